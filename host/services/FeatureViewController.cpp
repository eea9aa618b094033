#include "FeatureViewController.h"

#include "ServiceConstants.h"

#include <EventNames.h>
#include <IServiceMgr.h>

#include <utility>

FeatureViewController::FeatureViewController(QObject* parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    // Other timers may come early.
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(onTimeout()));
    IServiceMgr::instance()->subscribe(EventSources::MainUI, this, Events::HandlerPrefix);
}

FeatureViewController::~FeatureViewController()
{
    IServiceMgr::instance()->unsubscribe(EventSources::MainUI, this);
}

bool FeatureViewController::isWanted(const IFeatureView* view) const
{
    if (!view)
        return false;
    return m_state == State::Closing ? m_nextView == view : m_view == view;
}

bool FeatureViewController::open(IFeatureView* view, const QString& deviceModel)
{
    if (!view || !m_canvas)
        return false;
    if (m_state == State::Closed)
        return start(view, deviceModel);
    if (m_state != State::Closing) {
        if (m_view == view && m_deviceModel == deviceModel && !m_closeAfterStart)
            return true;
        close();
    }
    // A view that died took its state along.
    if (m_state == State::Closed)
        return start(view, deviceModel);
    m_nextView = view;
    m_nextDeviceModel = deviceModel;
    return true;
}

bool FeatureViewController::start(IFeatureView* view, const QString& deviceModel)
{
    m_view = view;
    m_deviceModel = deviceModel;
    m_isTransforming = false;
    m_isTakenDown = false;
    m_closeAfterStart = false;
    m_isStarting = true;
    connect(view, SIGNAL(destroyed()), this, SLOT(onViewDestroyed()));
    m_age.start();
    setState(State::Opening);

    const cJsonValue record = info();
    const QString name = qAsConst(record)["tooltip"].toString();
    const bool isUp = m_view && m_view->init(record, m_canvas);
    const bool isActive = isUp && m_view && m_view->activate(record);
    m_isStarting = false;
    if (!isUp) {
        // Nothing came up, so there is nothing to wait for.
        m_isTakenDown = true;
        finishClosing();
        Q_EMIT failed(tr("\"%1\" can't be shown for this device.").arg(name));
        return false;
    }
    if (!isActive) {
        close();
        Q_EMIT failed(tr("\"%1\" can't be activated.").arg(name));
        return false;
    }
    if (m_closeAfterStart)
        close();
    else if (!m_isTransforming)
        setState(State::Open);
    return true;
}

void FeatureViewController::close()
{
    if (m_isStarting) {
        m_closeAfterStart = true;
        return;
    }
    m_nextView = nullptr;
    if (m_state == State::Closed || m_state == State::Closing)
        return;
    setState(State::Closing);
    const qint64 remaining = ServiceConstants::ViewSettleTime - m_age.elapsed();
    if (remaining > 0)
        m_timer.start(int(remaining));
    else
        takeDown();
}

void FeatureViewController::closeNow()
{
    m_nextView = nullptr;
    if (m_state == State::Closed)
        return;
    if (m_state != State::Closing)
        setState(State::Closing);
    takeDown();
    finishClosing();
}

void FeatureViewController::forget(IFeatureView* view)
{
    if (!view)
        return;
    if (m_nextView == view)
        m_nextView = nullptr;
    if (m_view != view)
        return;
    const QPointer<IFeatureView> next = m_nextView;
    closeNow();
    if (next)
        start(next, m_nextDeviceModel);
}

bool FeatureViewController::activate()
{
    return m_view && (m_state == State::Opening || m_state == State::Open) && m_view->activate(info());
}

void FeatureViewController::onDeviceTransformBegin(const cJsonValue&)
{
    m_isTransforming = true;
}

void FeatureViewController::onDeviceTransformEnd()
{
    m_isTransforming = false;
    if (m_state == State::Opening && !m_isStarting)
        setState(State::Open);
}

void FeatureViewController::onTimeout()
{
    if (m_isTakenDown)
        finishClosing();
    else
        takeDown();
}

void FeatureViewController::onViewDestroyed()
{
    if (m_view)
        return;
    m_isTakenDown = true;
    if (m_state != State::Closed && !m_isStarting)
        finishClosing();
}

void FeatureViewController::takeDown()
{
    if (!std::exchange(m_isTakenDown, true) && m_view) {
        const cJsonValue record = info();
        m_view->deactivate(record);
        if (m_view)
            m_view->deinit(record, m_canvas);
    }
    m_timer.start(ServiceConstants::PaneRemovalTime);
}

void FeatureViewController::finishClosing()
{
    m_timer.stop();
    if (m_view)
        disconnect(m_view, SIGNAL(destroyed()), this, SLOT(onViewDestroyed()));
    m_view = nullptr;
    m_deviceModel.clear();
    const QPointer<IFeatureView> next = std::exchange(m_nextView, nullptr);
    setState(State::Closed);
    if (next && m_state == State::Closed)
        start(next, m_nextDeviceModel);
}

void FeatureViewController::setState(State state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateChanged();
}

cJsonValue FeatureViewController::info() const
{
    cJsonValue record = m_view ? m_view->viewInfo() : cJsonValue();
    record["device_model"] = m_deviceModel;
    return record;
}
