// The parts of the window and its menu.
#include "MainWindow.h"

#include "AppConstants.h"
#include "DeviceBar.h"
#include "DeviceCanvas.h"
#include "MenuText.h"
#include "MessageStrip.h"

#include <cDevMgrService.h>
#include <cFeatureViewMgrService.h>
#include <cHelpMgrService.h>
#include <cMainAppService.h>
#include <FeatureViewController.h>
#include <HostDevice.h>
#include <IFeatureView.h>
#include <MessageDialog.h>

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QVariant>
#include <QVBoxLayout>

using namespace AppConstants;

namespace {

/// Devices and views that have a shortcut: Ctrl or Alt with a digit.
constexpr int MaxShortcuts = 9;

QKeySequence digitShortcut(int modifier, int index)
{
    return index < MaxShortcuts ? QKeySequence(modifier + Qt::Key_1 + index) : QKeySequence();
}

} // namespace

void MainWindow::createContent()
{
    m_canvas = new DeviceCanvas;
    // The canvas keeps its size, as the views rely on it; a smaller window scrolls it.
    auto* const area = new QScrollArea;
    area->setWidget(m_canvas);
    area->setAlignment(Qt::AlignCenter);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    m_canvasArea = area;
    m_deviceBar = new DeviceBar;

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createHeader());
    layout->addWidget(m_canvasArea, 1);
    layout->addWidget(m_deviceBar);

    m_strip = new MessageStrip(this);
}

QWidget* MainWindow::createHeader()
{
    auto* const header = new QFrame;
    header->setProperty("uiType", QStringLiteral("Header"));
    header->setFixedHeight(HeaderHeight);

    auto* const product = new QLabel(QCoreApplication::applicationName());
    product->setProperty("uiType", QStringLiteral("ProductName"));
    m_deviceName = new QLabel;
    m_deviceName->setTextFormat(Qt::PlainText);
    m_deviceName->setProperty("uiType", QStringLiteral("DeviceName"));
    m_status = new QLabel;
    m_status->setTextFormat(Qt::PlainText);
    m_status->setProperty("uiType", QStringLiteral("QuietText"));
    const auto createMenuButton = [this](const QString& text, QMenu*& menu) {
        auto* const button = new QPushButton(text);
        button->setProperty("uiType", QStringLiteral("HeaderButton"));
        menu = new QMenu(this);
        button->setMenu(menu);
        return button;
    };
    auto* const menus = new QHBoxLayout;
    menus->setSpacing(0);
    menus->addWidget(createMenuButton(tr("&Menu"), m_menu));
    menus->addWidget(createMenuButton(tr("&Edit"), m_editMenu));

    auto* const layout = new QHBoxLayout(header);
    layout->setContentsMargins(BarMargin, 0, BarMargin, 0);
    layout->setSpacing(BarMargin);
    layout->addLayout(menus);
    layout->addWidget(m_deviceName);
    layout->addWidget(m_status, 1);
    layout->addWidget(product);
    return header;
}

void MainWindow::createMenu()
{
    const auto addEntry = [this](const QString& text, const QKeySequence& shortcut, const char* slot) {
        QAction* const action = m_menu->addAction(text);
        action->setShortcut(shortcut);
        // Also an action of the window, so that its shortcut works while the menu is closed.
        addAction(action);
        connect(action, SIGNAL(triggered()), this, slot);
    };
    m_deviceMenu = m_menu->addMenu(tr("&Device"));
    m_deviceActions = new QActionGroup(this);
    connect(m_deviceActions, SIGNAL(triggered(QAction*)), this, SLOT(onDeviceAction(QAction*)));
    m_viewSection = m_menu->addSeparator();
    m_viewSectionEnd = m_menu->addSeparator();
    m_toolSectionEnd = m_menu->addSeparator();
    m_dataSectionEnd = m_menu->addSeparator();
    addEntry(tr("&Help Contents"), QKeySequence(Qt::Key_F1), SLOT(onHelp()));
    addEntry(tr("&About %1").arg(QCoreApplication::applicationName()), QKeySequence(), SLOT(onAbout()));
    m_menu->addSeparator();
    addEntry(tr("&Quit"), QKeySequence(Qt::CTRL + Qt::Key_Q), SLOT(close()));
}

void MainWindow::addTool(
    const QString& text, const QKeySequence& shortcut, const QObject* receiver, const char* slot)
{
    auto* const action = new QAction(text, this);
    action->setShortcut(shortcut);
    connect(action, SIGNAL(triggered()), receiver, slot);
    m_menu->insertAction(m_toolSectionEnd, action);
    addAction(action);
}

void MainWindow::addDataEntry(QAction* action)
{
    m_menu->insertAction(m_dataSectionEnd, action);
    addAction(action);
}

void MainWindow::rebuildDeviceActions()
{
    const QList<QAction*> old = m_deviceActions->actions();
    qDeleteAll(old);
    int index = 0;
    const QList<cDevMgrService::DevicePtr> devices = m_services.devices.devices();
    for (const cDevMgrService::DevicePtr& device : devices) {
        QAction* const action = m_deviceMenu->addAction(MenuText::plain(device->displayName()));
        action->setData(device->model());
        action->setCheckable(true);
        action->setShortcut(digitShortcut(Qt::CTRL, index++));
        m_deviceActions->addAction(action);
        addAction(action);
    }
    m_deviceMenu->setEnabled(!devices.isEmpty());
}

void MainWindow::onDeviceAction(QAction* action)
{
    selectDevice(action->data().toString());
}

void MainWindow::rebuildViewActions()
{
    // Deleted later: this may be the outcome of one of them.
    for (QAction* action : qAsConst(m_viewActions)) {
        m_menu->removeAction(action);
        removeAction(action);
        action->deleteLater();
    }
    m_viewActions.clear();
    const QList<IFeatureView*> views = m_services.featureViews.viewsForDevice(m_deviceModel);
    for (IFeatureView* view : views) {
        const cJsonValue info = view->viewInfo();
        auto* const action = new QAction(MenuText::plain(info["tooltip"].toString()), this);
        action->setData(info["view_id"].toString());
        action->setCheckable(true);
        action->setShortcut(digitShortcut(Qt::ALT, m_viewActions.size()));
        connect(action, SIGNAL(triggered()), this, SLOT(onViewAction()));
        m_menu->insertAction(m_viewSectionEnd, action);
        addAction(action);
        m_viewActions.append(action);
    }
}

void MainWindow::onViewAction()
{
    onViewToggled(qobject_cast<QAction*>(sender())->data().toString());
}

void MainWindow::markView()
{
    QString viewId;
    QString name;
    const QList<IFeatureView*> views = m_services.featureViews.viewsForDevice(m_deviceModel);
    for (IFeatureView* view : views) {
        if (!m_services.controller.isWanted(view))
            continue;
        const cJsonValue info = view->viewInfo();
        viewId = info["view_id"].toString();
        name = info["tooltip"].toString();
    }
    m_deviceBar->setWantedView(viewId);
    for (QAction* action : qAsConst(m_viewActions))
        action->setChecked(!viewId.isEmpty() && action->data().toString() == viewId);

    const cDevMgrService::DevicePtr device = m_services.devices.deviceOfModel(m_deviceModel);
    m_deviceName->setText(device ? device->displayName() : QString());
    if (!device || !device->problem().isEmpty())
        m_status->clear();
    else
        m_status->setText(viewId.isEmpty() ? tr("Demonstration device") : name);
}

QString MainWindow::caption() const
{
    return m_deviceName->text() + QLatin1Char('|') + m_status->text();
}

void MainWindow::onHelp()
{
    IFeatureView* view = m_services.controller.view();
    const QList<IFeatureView*> views = m_services.featureViews.registeredViews();
    if (!view && !views.isEmpty())
        view = views.first();
    const cJsonValue info = view ? view->viewInfo() : cJsonValue();
    m_services.help.LaunchHelpByViewID(info["view_id"].toString());
}

void MainWindow::onAbout()
{
    auto* const dialog = new MessageDialog(MessageDialog::Kind::Information,
        tr("About %1").arg(QCoreApplication::applicationName()),
        tr("Version %1\n\nAssign commands to the programmable keys of your gaming devices.")
            .arg(QCoreApplication::applicationVersion()),
        this);
    dialog->addChoice(QDialog::Accepted, tr("OK"), true);
    MessageDialog::run(dialog, QDialog::Rejected);
}
