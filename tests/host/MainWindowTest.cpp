#include "MainWindow.h"

#include "AppConstants.h"
#include "DeviceBar.h"
#include "DeviceButton.h"
#include "DeviceCanvas.h"
#include "DeviceTransform.h"
#include "FeatureViewButton.h"
#include "MessageStrip.h"

#include <cDevMgrService.h>
#include <cFeatureViewMgrService.h>
#include <cHelpMgrService.h>
#include <cMainAppService.h>
#include <DeviceFolder.h>
#include <DialogDriver.h>
#include <EventLog.h>
#include <FakeFeatureView.h>
#include <FeatureViewController.h>
#include <HelpWindow.h>
#include <TestCase.h>

#include <QGraphicsPixmapItem>
#include <QMenu>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTemporaryDir>

using State = FeatureViewController::State;

class MainWindowTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void homePageShowsTheDevice();
    void canvasIsTheScene();
    void smallWindowScrollsTheCanvas();
    void choosingADeviceShowsIt();
    void unknownDeviceIsRefused();
    void deviceWithoutPictureSaysSo();
    void noDevicesAtAllIsShown();
    void viewButtonsFollowTheRegisteredViews();
    void buttonOpensAndClosesTheView();
    void pictureMovesForTheViewAndBack();
    void closingDuringTheTransformHasNoEnd();
    void changingTheDeviceReopensTheView();
    void changingToADeviceWithoutTheViewClosesIt();
    void refusedViewIsReportedAndUnmarked();
    void clickWhileClosingIsRemembered();
    void menuChoosesDevicesAndViews();
    void shortcutsWorkWhileTheMenuIsClosed();
    void aboutAndHelpOpen();
    void closingPublishesBeforeTheEnd();
    void messagesComeOneAfterTheOther();
    void deviceBarIsRaised();

private:
    QAction* entry(const QString& text) const;
    FeatureViewButton* viewButton() const { return m_window->deviceBar().viewButtons().value(0); }
    bool waitFor(State state) const
    {
        return QTest::qWaitFor([this, state] { return m_controller->state() == state; });
    }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<cDevMgrService> m_devices;
    QScopedPointer<FeatureViewController> m_controller;
    QScopedPointer<cFeatureViewMgrService> m_views;
    QScopedPointer<cHelpMgrService> m_help;
    QScopedPointer<cMainAppService> m_mainApp;
    QScopedPointer<MainWindow> m_window;
    QScopedPointer<FakeFeatureView> m_view;
};

void MainWindowTest::init()
{
    m_folder.reset(new QTemporaryDir);
    DeviceFolder::make(m_folder->path(), "Alpha");
    DeviceFolder::make(m_folder->path(), "Beta");
    DeviceFolder::write(m_folder->filePath("Plain/manifest.xml"), "<device model='Test.Plain'/>");
    m_devices.reset(new cDevMgrService);
    m_devices->load(m_folder->path());
    m_controller.reset(new FeatureViewController);
    m_views.reset(new cFeatureViewMgrService(*m_devices, *m_controller));
    m_help.reset(new cHelpMgrService);
    m_mainApp.reset(new cMainAppService);
    m_window.reset(
        new MainWindow(MainWindowServices {*m_devices, *m_views, *m_controller, *m_help, *m_mainApp}));
    m_window->reloadDevices();
    m_view.reset(new FakeFeatureView);
    m_view->asksForTransform = true;
    m_views->registerView(m_view.get());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void MainWindowTest::cleanup()
{
    m_help->unloadHelp();
    m_views->unregisterView(m_view.get());
    m_view.reset();
    m_window.reset();
    m_mainApp.reset();
    m_help.reset();
    m_views.reset();
    m_controller.reset();
    m_devices.reset();
}

QAction* MainWindowTest::entry(const QString& text) const
{
    QList<QAction*> actions = m_window->menu().actions();
    for (int i = 0; i < actions.size(); ++i) {
        if (actions[i]->menu())
            actions.append(actions[i]->menu()->actions());
        if (QString(actions[i]->text()).remove('&') == text)
            return actions[i];
    }
    return nullptr;
}

void MainWindowTest::homePageShowsTheDevice()
{
    QCOMPARE(m_window->activeDeviceModel(), QString("Test.Alpha"));
    QCOMPARE(m_window->caption(), QString("The Alpha|Demonstration device"));
    const QGraphicsPixmapItem& picture = m_window->canvas().picture();
    QCOMPARE(picture.pixmap().size(), QSize(200, 100));
    QCOMPARE(picture.pos(), QPointF(10, 20));
    QCOMPARE(picture.scale(), 1.5);
    QVERIFY(m_window->deviceBar().deviceButtons().constFirst()->isChecked());
    QVERIFY(m_window->deviceBar().deviceButtons().constFirst()->hasFocus());
    QVERIFY(!m_window->activeDeviceId().isEmpty());
    QCOMPARE(m_window->canvas().notice(), QString());
}

void MainWindowTest::canvasIsTheScene()
{
    const DeviceCanvas& canvas = m_window->canvas();
    QCOMPARE(canvas.sceneRect(), QRectF(0, 0, 980, 620));
    QCOMPARE(canvas.size(), QSize(980, 620));
    // Widgets of a view stand on the canvas by the coordinates of its items in the scene.
    QCOMPARE(canvas.mapFromScene(QPointF(38, 157)), QPoint(38, 157));
    m_window->resize(1400, 900);
    QCOMPARE(canvas.size(), QSize(980, 620));
    QCOMPARE(canvas.mapFromScene(QPointF(0, 0)), QPoint(0, 0));
}

void MainWindowTest::smallWindowScrollsTheCanvas()
{
    m_window->resize(700, 500);
    QCOMPARE(m_window->canvas().size(), QSize(980, 620));
    QCOMPARE(m_window->canvas().mapFromScene(QPointF(0, 0)), QPoint(0, 0));
}

void MainWindowTest::choosingADeviceShowsIt()
{
    QSignalSpy changes(m_window.get(), SIGNAL(deviceChanged(QString)));
    QTest::mouseClick(m_window->deviceBar().deviceButtons().at(1), Qt::LeftButton);
    QCOMPARE(m_window->activeDeviceModel(), QString("Test.Beta"));
    QCOMPARE(changes.size(), 1);
    QVERIFY(m_window->selectDevice("Test.Beta"));
    QCOMPARE(changes.size(), 1);
}

void MainWindowTest::unknownDeviceIsRefused()
{
    QVERIFY(!m_window->selectDevice("Test.Nobody"));
    QCOMPARE(m_window->activeDeviceModel(), QString("Test.Alpha"));
}

void MainWindowTest::deviceWithoutPictureSaysSo()
{
    QVERIFY(m_window->selectDevice("Test.Plain"));
    QVERIFY(!m_window->canvas().notice().isEmpty());
    QCOMPARE(m_window->deviceBar().viewButtons().size(), 0);
}

void MainWindowTest::noDevicesAtAllIsShown()
{
    const QTemporaryDir empty;
    m_devices->load(empty.path());
    m_window->reloadDevices();
    QCOMPARE(m_window->activeDeviceModel(), QString());
    QCOMPARE(m_window->activeDeviceId(), QString());
    QVERIFY(!m_window->canvas().notice().isEmpty());
    QVERIFY(!m_window->openFirstView());
    QVERIFY(!m_window->grab().isNull());
}

void MainWindowTest::viewButtonsFollowTheRegisteredViews()
{
    QCOMPARE(m_window->deviceBar().viewButtons().size(), 1);
    QCOMPARE(viewButton()->viewId(), QString("fake_view"));
    QVERIFY(entry("fake_view tooltip"));
    m_views->unregisterView(m_view.get());
    QCOMPARE(m_window->deviceBar().viewButtons().size(), 0);
    QVERIFY(!entry("fake_view tooltip"));
}

void MainWindowTest::buttonOpensAndClosesTheView()
{
    QTest::mouseClick(viewButton(), Qt::LeftButton);
    QVERIFY(viewButton()->isChecked());
    QCOMPARE(m_window->caption(), QString("The Alpha|fake_view tooltip"));
    QVERIFY(entry("fake_view tooltip")->isChecked());
    QVERIFY(waitFor(State::Open));
    QTest::mouseClick(viewButton(), Qt::LeftButton);
    QVERIFY(!viewButton()->isChecked());
    QCOMPARE(m_window->caption(), QString("The Alpha|Demonstration device"));
    QVERIFY(waitFor(State::Closed));
}

void MainWindowTest::pictureMovesForTheViewAndBack()
{
    QVERIFY(m_window->openFirstView());
    QVERIFY(waitFor(State::Open));
    QCOMPARE(m_window->canvas().picture().pos(), QPointF(300, 150));
    QCOMPARE(m_window->canvas().picture().scale(), 0.5);
    m_window->closeView();
    QTRY_COMPARE(m_window->canvas().picture().pos(), QPointF(10, 20));
    QCOMPARE(m_window->canvas().picture().scale(), 1.5);
    QVERIFY(waitFor(State::Closed));
}

void MainWindowTest::closingDuringTheTransformHasNoEnd()
{
    EventLog events(EventSources::MainUI);
    m_window->openFirstView();
    m_window->closeView();
    QVERIFY(waitFor(State::Closed));
    QTest::qWait(AppConstants::TransformTime);
    QCOMPARE(events.take(), QStringList());
    QCOMPARE(m_window->canvas().picture().pos(), QPointF(10, 20));
}

void MainWindowTest::changingTheDeviceReopensTheView()
{
    EventLog events(EventSources::MainUI);
    m_window->openFirstView();
    QTest::mouseClick(m_window->deviceBar().deviceButtons().at(1), Qt::LeftButton);
    QVERIFY(viewButton()->isChecked());
    QTRY_COMPARE(m_controller->deviceModel(), QString("Test.Beta"));
    QVERIFY(waitFor(State::Open));
    QCOMPARE(events.take(), QStringList({"DeviceTransformEnd"}));
    QCOMPARE(m_view->log.filter(QRegularExpression("^init")),
        QStringList({"init fake_view Test.Alpha", "init fake_view Test.Beta"}));
}

void MainWindowTest::changingToADeviceWithoutTheViewClosesIt()
{
    m_window->openFirstView();
    QVERIFY(m_window->selectDevice("Test.Plain"));
    QVERIFY(waitFor(State::Closed));
    QCOMPARE(m_view->log.constLast(), QString("deinit fake_view Test.Alpha"));
}

void MainWindowTest::refusedViewIsReportedAndUnmarked()
{
    m_view->initAnswer = false;
    QTest::mouseClick(viewButton(), Qt::LeftButton);
    QVERIFY(!viewButton()->isChecked());
    QCOMPARE(m_window->messageStrip().messages().size(), 1);
    QVERIFY(m_window->messageStrip().isVisible());
    QTRY_COMPARE(m_window->canvas().picture().pos(), QPointF(10, 20));
}

void MainWindowTest::clickWhileClosingIsRemembered()
{
    QTest::mouseClick(viewButton(), Qt::LeftButton);
    QTest::mouseClick(viewButton(), Qt::LeftButton);
    QTest::mouseClick(viewButton(), Qt::LeftButton);
    QVERIFY(viewButton()->isChecked());
    QCOMPARE(m_view->log.filter(QRegularExpression("^init")).size(), 1);
    QTRY_COMPARE(m_view->log.filter(QRegularExpression("^init")).size(), 2);
    QVERIFY(waitFor(State::Open));
}

void MainWindowTest::menuChoosesDevicesAndViews()
{
    QVERIFY(entry("The Alpha")->isChecked());
    entry("The Beta")->trigger();
    QCOMPARE(m_window->activeDeviceModel(), QString("Test.Beta"));
    QVERIFY(entry("The Beta")->isChecked());
    QVERIFY(!entry("The Alpha")->isChecked());
    entry("fake_view tooltip")->trigger();
    QVERIFY(waitFor(State::Open));
    entry("fake_view tooltip")->trigger();
    QVERIFY(waitFor(State::Closed));
    QVERIFY(!entry("fake_view tooltip")->isChecked());
}

void MainWindowTest::shortcutsWorkWhileTheMenuIsClosed()
{
    QTest::keyClick(m_window.get(), Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(m_window->activeDeviceModel(), QString("Test.Beta"));
    QTest::keyClick(m_window.get(), Qt::Key_1, Qt::AltModifier);
    QVERIFY(viewButton()->isChecked());
    const QSignalSpy closings(m_window.get(), SIGNAL(closing()));
    QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
    QCOMPARE(closings.size(), 1);
}

void MainWindowTest::aboutAndHelpOpen()
{
    const DialogDriver driver([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    entry("About " + QCoreApplication::applicationName())->trigger();
    QVERIFY(driver.hasRun());
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window.get(), Qt::Key_F1);
    QVERIFY(m_help->helpWindow());
    QVERIFY(m_help->helpWindow()->plainText().contains("fake_view"));
}

void MainWindowTest::closingPublishesBeforeTheEnd()
{
    EventLog events(EventSources::MainApp);
    const QSignalSpy closings(m_window.get(), SIGNAL(closing()));
    m_window->close();
    QVERIFY(events.take().contains("MainWindowClosing"));
    QCOMPARE(closings.size(), 1);
    QVERIFY(!m_window->isVisible());
}

void MainWindowTest::messagesComeOneAfterTheOther()
{
    m_window->showMessage("one");
    m_window->onMessage("two");
    QCOMPARE(m_window->messageStrip().messages(), QStringList({"one", "two"}));
    QVERIFY(m_window->rect().contains(m_window->messageStrip().geometry()));
    m_window->resize(800, 600);
    QVERIFY(m_window->rect().contains(m_window->messageStrip().geometry()));
}

void MainWindowTest::deviceBarIsRaised()
{
    m_window->showMessage("one");
    m_window->raiseDeviceBar();
    const QObjectList& children = m_window->children();
    QCOMPARE(children.indexOf(&m_window->deviceBar()), children.size() - 1);
    QVERIFY(!m_window->isDeviceBarUnderMouse());
}

VELTRANO_TEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
