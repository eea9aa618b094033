#include "DeviceBar.h"

#include "AppConstants.h"
#include "DeviceButton.h"
#include "FeatureViewButton.h"

#include <HostDevice.h>

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVariant>

using namespace AppConstants;

DeviceBar::DeviceBar(QWidget* parent)
    : QFrame(parent)
{
    setFixedHeight(DeviceBarHeight);
    setProperty("uiType", QStringLiteral("DeviceBar"));
    setAccessibleName(tr("Devices and views"));

    auto* const devices = new QWidget;
    m_devicesLayout = new QHBoxLayout(devices);
    m_devicesLayout->setContentsMargins(0, 0, 0, 0);
    m_devicesLayout->setSpacing(BarButtonSpacing);
    m_devicesLayout->setSizeConstraint(QLayout::SetMinAndMaxSize);

    m_area = new QScrollArea;
    m_area->setWidget(devices);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    // The focus scrolls it; a scroll bar would not leave room for the buttons.
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFixedHeight(BarButtonHeight);

    m_viewsLayout = new QHBoxLayout;
    m_viewsLayout->setSpacing(BarButtonSpacing);

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(BarMargin, 0, BarMargin, 0);
    layout->setSpacing(BarMargin);
    layout->addWidget(m_area, 1);
    layout->addLayout(m_viewsLayout);

    m_group = new QButtonGroup(this);
}

void DeviceBar::setDevices(const QList<QSharedPointer<HostDevice>>& devices)
{
    qDeleteAll(m_deviceButtons);
    m_deviceButtons.clear();
    for (const QSharedPointer<HostDevice>& device : devices) {
        auto* const button = new DeviceButton(*device);
        button->installEventFilter(this);
        m_group->addButton(button);
        m_devicesLayout->addWidget(button);
        m_deviceButtons.append(button);
        connect(button, SIGNAL(toggled(bool)), this, SLOT(onDeviceToggled(bool)));
    }
}

void DeviceBar::setActiveDevice(const QString& model)
{
    auto* const focused = qobject_cast<DeviceButton*>(window()->focusWidget());
    for (DeviceButton* button : qAsConst(m_deviceButtons)) {
        if (button->model() != model)
            continue;
        const QSignalBlocker blocker(button);
        button->setChecked(true);
        m_area->ensureWidgetVisible(button, 0, 0);
        // The focus among the devices is on the marked one, as the arrow keys go on from there.
        if (focused && focused != button)
            button->setFocus();
    }
}

void DeviceBar::focusActiveDevice()
{
    if (QAbstractButton* const button = m_group->checkedButton())
        button->setFocus();
}

void DeviceBar::setViews(const cJsonValue& viewInfos)
{
    if (m_viewInfos == viewInfos)
        return;
    m_viewInfos = viewInfos;
    // Deleted later: this may be the outcome of a click on one of them.
    for (FeatureViewButton* button : qAsConst(m_viewButtons)) {
        button->hide();
        button->deleteLater();
    }
    m_viewButtons.clear();
    for (unsigned i = 0; i < viewInfos.size(); ++i) {
        auto* const button = new FeatureViewButton(viewInfos[int(i)], this);
        m_viewsLayout->addWidget(button);
        m_viewButtons.append(button);
        connect(button, SIGNAL(clicked()), this, SLOT(onViewClicked()));
    }
}

void DeviceBar::setWantedView(const QString& viewId)
{
    for (FeatureViewButton* button : qAsConst(m_viewButtons))
        button->setChecked(!viewId.isEmpty() && button->viewId() == viewId);
}

bool DeviceBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        m_area->ensureWidgetVisible(qobject_cast<QWidget*>(watched), 0, 0);
    return QFrame::eventFilter(watched, event);
}

void DeviceBar::onDeviceToggled(bool checked)
{
    if (checked)
        Q_EMIT deviceChosen(qobject_cast<DeviceButton*>(sender())->model());
}

void DeviceBar::onViewClicked()
{
    Q_EMIT viewToggled(qobject_cast<FeatureViewButton*>(sender())->viewId());
}
