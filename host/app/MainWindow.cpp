#include "MainWindow.h"

#include "AppConstants.h"
#include "DeviceBar.h"
#include "DeviceCanvas.h"
#include "DeviceTransform.h"
#include "MessageStrip.h"

#include <cDevMgrService.h>
#include <cFeatureViewMgrService.h>
#include <cMainAppService.h>
#include <EventNames.h>
#include <FeatureViewController.h>
#include <HostDevice.h>
#include <IFeatureView.h>
#include <IServiceMgr.h>

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QVariant>

using namespace AppConstants;

MainWindow::MainWindow(const MainWindowServices& services)
    : m_services(services)
{
    setWindowTitle(QCoreApplication::applicationName());
    setWindowIcon(QIcon(QStringLiteral("MainApp:/Resources/images/VeltranoBlackLogo.png")));
    setProperty("uiType", QStringLiteral("MainWindow"));
    setMinimumSize(MinimumWindowSize);
    createContent();
    createMenu();
    resize(WindowSize.boundedTo(screen()->availableSize()));

    connect(m_deviceBar, SIGNAL(deviceChosen(QString)), this, SLOT(onDeviceChosen(QString)));
    connect(m_deviceBar, SIGNAL(viewToggled(QString)), this, SLOT(onViewToggled(QString)));
    connect(&m_services.featureViews, SIGNAL(viewsChanged()), this, SLOT(onViewsChanged()));
    connect(&m_services.controller, SIGNAL(stateChanged()), this, SLOT(onViewStateChanged()));
    connect(&m_services.controller, SIGNAL(failed(QString)), this, SLOT(onMessage(QString)));
    m_services.controller.setCanvas(m_canvas);
    onViewStateChanged();
}

MainWindow::~MainWindow()
{
    m_services.controller.closeNow();
}

void MainWindow::reloadDevices()
{
    m_deviceModel.clear();
    m_canvas->setDevice(nullptr);
    const QList<cDevMgrService::DevicePtr> devices = m_services.devices.devices();
    m_deviceBar->setDevices(devices);
    rebuildDeviceActions();
    if (!devices.isEmpty())
        selectDevice(devices.first()->model());
    m_deviceBar->focusActiveDevice();
}

void MainWindow::raiseDeviceBar()
{
    m_deviceBar->raise();
}

bool MainWindow::isDeviceBarUnderMouse() const
{
    return m_deviceBar->underMouse();
}

QString MainWindow::activeDeviceId() const
{
    const cDevMgrService::DevicePtr device = m_services.devices.deviceOfModel(m_deviceModel);
    return device ? device->uid() : QString();
}

bool MainWindow::selectDevice(const QString& model)
{
    const cDevMgrService::DevicePtr device = m_services.devices.deviceOfModel(model);
    if (!device)
        return false;
    if (model == m_deviceModel)
        return true;
    m_deviceModel = model;
    m_canvas->setDevice(device.get());
    m_deviceBar->setActiveDevice(model);
    for (QAction* action : m_deviceActions->actions())
        action->setChecked(action->data().toString() == model);

    const QList<IFeatureView*> views = m_services.featureViews.viewsForDevice(model);
    IFeatureView* wanted = nullptr;
    for (IFeatureView* view : views) {
        if (m_services.controller.isWanted(view))
            wanted = view;
    }
    onViewsChanged();
    if (wanted)
        m_services.controller.open(wanted, model);
    else
        m_services.controller.close();
    markView();
    Q_EMIT deviceChanged(model);
    return true;
}

void MainWindow::showMessage(const QString& text)
{
    m_strip->addMessage(text);
}

void MainWindow::onMessage(const QString& text)
{
    showMessage(text);
}

bool MainWindow::openFirstView()
{
    const QList<IFeatureView*> views = m_services.featureViews.viewsForDevice(m_deviceModel);
    const bool isOpen = !views.isEmpty() && m_services.controller.open(views.first(), m_deviceModel);
    markView();
    return isOpen;
}

void MainWindow::closeView()
{
    m_services.controller.close();
    markView();
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeStrip();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_closeGuard && !m_closeGuard()) {
        event->ignore();
        return;
    }
    // The open view removes its panes at once instead of playing their exit.
    IServiceMgr::instance()->publish(EventSources::MainApp, Events::MainWindowClosing);
    event->accept();
    Q_EMIT closing();
}

void MainWindow::onDeviceChosen(const QString& model)
{
    selectDevice(model);
}

void MainWindow::onViewToggled(const QString& viewId)
{
    const QList<IFeatureView*> views = m_services.featureViews.viewsForDevice(m_deviceModel);
    for (IFeatureView* view : views) {
        const cJsonValue info = view->viewInfo();
        if (info["view_id"].toString() != viewId)
            continue;
        if (m_services.controller.isWanted(view))
            m_services.controller.close();
        else
            m_services.controller.open(view, m_deviceModel);
    }
    markView();
}

void MainWindow::onViewsChanged()
{
    m_deviceBar->setViews(m_services.featureViews.getRegisteredViewsForDevice(m_deviceModel));
    rebuildViewActions();
    markView();
}

void MainWindow::onViewStateChanged()
{
    using State = FeatureViewController::State;
    const State state = m_services.controller.state();
    // It comes back when the panes that covered its place are gone.
    m_canvas->setNoticeVisible(state == State::Closed);
    if (state == State::Closing || state == State::Closed)
        m_canvas->transformer().returnHome();
    markView();
}

void MainWindow::placeStrip()
{
    m_strip->placeIn(m_canvasArea->geometry());
}
