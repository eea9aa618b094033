#include "cFeatureViewMgrService.h"

#include <cDevMgrService.h>
#include <cFeatureViewMgr.h>
#include <DeviceFolder.h>
#include <FakeFeatureView.h>
#include <FakeWindow.h>
#include <FeatureViewController.h>
#include <TestCase.h>

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QSignalSpy>
#include <QTemporaryDir>

/// The service is called through the plug-in's client, by name.
class cFeatureViewMgrServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void viewIsRegisteredOnce();
    void unregisteringClosesTheView();
    void deletedViewIsForgotten();
    void viewsSuitTheDevicesThatNameThem();
    void initOpensTheViewOnTheDevice();
    void initWithoutADeviceTakesTheOneThatIsShown();
    void initOfUnknownThingsFails();
    void activateReachesTheOpenViewOnly();
    void missingWindowFails();

private:
    static cJsonValue request(const char* viewId, const char* deviceModel = nullptr);

    QTemporaryDir m_folder;
    QGraphicsScene m_scene;
    QScopedPointer<QGraphicsView> m_canvas;
    QScopedPointer<FakeWindow> m_window;
    QScopedPointer<cDevMgrService> m_devices;
    QScopedPointer<FeatureViewController> m_controller;
    QScopedPointer<cFeatureViewMgrService> m_service;
};

void cFeatureViewMgrServiceTest::init()
{
    DeviceFolder::make(m_folder.path(), QStringLiteral("Alpha"));
    DeviceFolder::make(m_folder.path(), QStringLiteral("Beta"));
    m_canvas.reset(new QGraphicsView(&m_scene));
    m_window.reset(new FakeWindow);
    m_window->models = QStringList({"Test.Alpha", "Test.Beta"});
    m_window->model = QStringLiteral("Test.Alpha");
    m_devices.reset(new cDevMgrService);
    m_devices->load(m_folder.path());
    m_controller.reset(new FeatureViewController);
    m_controller->setCanvas(m_canvas.get());
    m_service.reset(new cFeatureViewMgrService(*m_devices, *m_controller));
    m_service->setWindow(m_window.get());
    IServiceMgr::instance()->registerService(m_service.get());
}

void cFeatureViewMgrServiceTest::cleanup()
{
    m_service.reset();
    m_controller.reset();
    m_devices.reset();
    m_window.reset();
    m_canvas.reset();
}

cJsonValue cFeatureViewMgrServiceTest::request(const char* viewId, const char* deviceModel)
{
    cJsonValue info;
    info["view_id"] = viewId;
    if (deviceModel)
        info["device_model"] = deviceModel;
    return info;
}

void cFeatureViewMgrServiceTest::viewIsRegisteredOnce()
{
    FakeFeatureView view;
    const QSignalSpy changes(m_service.get(), SIGNAL(viewsChanged()));
    QVERIFY(cFeatureViewMgr().registerView(&view));
    QVERIFY(!cFeatureViewMgr().registerView(&view));
    QVERIFY(!cFeatureViewMgr().registerView(nullptr));
    QCOMPARE(changes.size(), 1);
    const cJsonValue views = cFeatureViewMgr().views();
    QCOMPARE(views.size(), 1u);
    QVERIFY(views[0] == view.viewInfo());
    QVERIFY(cFeatureViewMgr().unregisterView(&view));
    QVERIFY(!cFeatureViewMgr().unregisterView(&view));
    QVERIFY(!cFeatureViewMgr().unregisterView(nullptr));
    QCOMPARE(changes.size(), 2);
    QCOMPARE(cFeatureViewMgr().views().size(), 0u);
}

void cFeatureViewMgrServiceTest::unregisteringClosesTheView()
{
    FakeFeatureView view;
    cFeatureViewMgr().registerView(&view);
    QVERIFY(cFeatureViewMgr().init(request("fake_view")));
    cFeatureViewMgr().unregisterView(&view);
    QCOMPARE(view.log.constLast(), QString("deinit fake_view Test.Alpha"));
    QCOMPARE(m_controller->state(), FeatureViewController::State::Closed);
}

void cFeatureViewMgrServiceTest::deletedViewIsForgotten()
{
    {
        FakeFeatureView view;
        cFeatureViewMgr().registerView(&view);
        cFeatureViewMgr().init(request("fake_view"));
    }
    QCOMPARE(cFeatureViewMgr().views().size(), 0u);
    QVERIFY(!cFeatureViewMgr().init(request("fake_view")));
}

void cFeatureViewMgrServiceTest::viewsSuitTheDevicesThatNameThem()
{
    FakeFeatureView view;
    FakeFeatureView other("other");
    cFeatureViewMgr().registerView(&other);
    cFeatureViewMgr().registerView(&view);
    const cJsonValue suited = cFeatureViewMgr().getRegisteredViewsForDevice("Test.Beta");
    QCOMPARE(suited.size(), 1u);
    QCOMPARE(suited[0]["view_id"].toString(), QString("fake_view"));
    const cJsonValue none = cFeatureViewMgr().getRegisteredViewsForDevice("Test.Gamma");
    QVERIFY(none.isArray());
    QCOMPARE(none.size(), 0u);
}

void cFeatureViewMgrServiceTest::initOpensTheViewOnTheDevice()
{
    FakeFeatureView view;
    cFeatureViewMgr().registerView(&view);
    QVERIFY(cFeatureViewMgr().init(request("fake_view", "Test.Beta")));
    QCOMPARE(m_window->model, QString("Test.Beta"));
    QCOMPARE(view.takeLog().constFirst(), QString("init fake_view Test.Beta"));
}

void cFeatureViewMgrServiceTest::initWithoutADeviceTakesTheOneThatIsShown()
{
    FakeFeatureView view;
    cFeatureViewMgr().registerView(&view);
    QVERIFY(cFeatureViewMgr().init(request("fake_view")));
    QCOMPARE(view.takeLog().constFirst(), QString("init fake_view Test.Alpha"));
}

void cFeatureViewMgrServiceTest::initOfUnknownThingsFails()
{
    FakeFeatureView view;
    cFeatureViewMgr().registerView(&view);
    QVERIFY(!cFeatureViewMgr().init(request("nothing")));
    QVERIFY(!cFeatureViewMgr().init(request("fake_view", "Test.Gamma")));
    QVERIFY(!cFeatureViewMgr().init(cJsonValue()));
    QCOMPARE(view.log, QStringList());
}

void cFeatureViewMgrServiceTest::activateReachesTheOpenViewOnly()
{
    FakeFeatureView view;
    FakeFeatureView other("other");
    cFeatureViewMgr().registerView(&view);
    cFeatureViewMgr().registerView(&other);
    QVERIFY(!cFeatureViewMgr().activate(request("fake_view")));
    cFeatureViewMgr().init(request("fake_view"));
    QVERIFY(cFeatureViewMgr().activate(request("fake_view")));
    QVERIFY(!cFeatureViewMgr().activate(request("other")));
    QCOMPARE(other.log, QStringList());
}

void cFeatureViewMgrServiceTest::missingWindowFails()
{
    FakeFeatureView view;
    cFeatureViewMgr().registerView(&view);
    m_service->setWindow(nullptr);
    QVERIFY(!cFeatureViewMgr().init(request("fake_view")));
}

VELTRANO_TEST_MAIN(cFeatureViewMgrServiceTest)
#include "cFeatureViewMgrServiceTest.moc"
