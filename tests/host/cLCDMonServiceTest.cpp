#include <cDevMgr.h>
#include <cDevMgrService.h>
#include <cLCDMon.h>
#include <cLCDMonService.h>
#include <cMainUIService.h>
#include <EditProfileDialog.h>
#include <FakeWindow.h>
#include <FixedIds.h>
#include <HostDevice.h>
#include <IServiceMgr.h>
#include <TestCase.h>

#include <QRadioButton>

#include <memory>

/// The displays of the real devices, through the plug-in's client and its profile dialog.
class cLCDMonServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void listFollowsTheChosenDevice_data();
    void listFollowsTheChosenDevice();
    void listThatWasHandedOutStays();
    void withoutAWindowThereIsNone();
    void settingsAreThoseOfTheDisplay();
    void nothingRunsOnDisplays();
    void profileDialogOffersADisplayThatIsThere();

private:
    void show(const QString& alias);

    std::unique_ptr<FakeWindow> m_window;
    std::unique_ptr<cDevMgrService> m_devices;
    std::unique_ptr<cMainUIService> m_mainUI;
    std::unique_ptr<cLCDMonService> m_displays;
};

void cLCDMonServiceTest::init()
{
    m_window = std::make_unique<FakeWindow>();
    m_devices = std::make_unique<cDevMgrService>();
    m_devices->load(QStringLiteral(DEVICES_FOLDER));
    m_mainUI = std::make_unique<cMainUIService>();
    m_mainUI->setWindow(m_window.get());
    m_displays = std::make_unique<cLCDMonService>(*m_devices, *m_mainUI);
    for (QObject* service : QList<QObject*> {m_devices.get(), m_mainUI.get(), m_displays.get()})
        IServiceMgr::instance()->registerService(service);
}

void cLCDMonServiceTest::cleanup()
{
    m_displays.reset();
    m_mainUI.reset();
    m_devices.reset();
    m_window.reset();
}

void cLCDMonServiceTest::show(const QString& alias)
{
    m_window->deviceId.clear();
    for (const auto& device : m_devices->devices()) {
        if (device->folderName() == alias)
            m_window->deviceId = device->uid();
    }
    QVERIFY(!m_window->deviceId.isEmpty());
}

void cLCDMonServiceTest::listFollowsTheChosenDevice_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("K13Device") << 1;
    QTest::newRow("M5Device") << 0;
    QTest::newRow("B18Device") << 0;
}

void cLCDMonServiceTest::listFollowsTheChosenDevice()
{
    QFETCH(int, count);
    show(QTest::currentDataTag());
    const cLCDDeviceListPtr list = cLCDMon().lcdDevices();
    QVERIFY(list);
    QCOMPARE(list->count(), count);
    QVERIFY(list->at(-1).isNull());
    QVERIFY(list->at(count).isNull());
    if (count > 0) {
        QCOMPARE(list->at(0)->model(), QString(DeviceIds::K13Model));
        QCOMPARE(list->at(0)->size(), QSize(160, 43));
    }
}

void cLCDMonServiceTest::listThatWasHandedOutStays()
{
    show("K13Device");
    const cLCDDeviceListPtr list = cLCDMon().lcdDevices();
    show("M5Device");
    QCOMPARE(list->count(), 1);
    QCOMPARE(cLCDMon().lcdDevices()->count(), 0);
    show("K13Device");
    QCOMPARE(cLCDMon().lcdDevices()->count(), 1);
}

void cLCDMonServiceTest::withoutAWindowThereIsNone()
{
    m_mainUI->setWindow(nullptr);
    QVERIFY(cLCDMon().lcdDevices());
    QCOMPARE(cLCDMon().lcdDevices()->count(), 0);
}

void cLCDMonServiceTest::settingsAreThoseOfTheDisplay()
{
    const QString model = DeviceIds::K13Model;
    QVERIFY(cLCDMon().deviceSettings(model));
    QCOMPARE(cLCDMon().deviceSettings(model)->brightness(), 100);
    cJsonValue filter;
    filter["device_model"] = model;
    const auto write = [&](int brightness) {
        cJsonValue property;
        property[cLCDMonService::BrightnessProperty] = brightness;
        cDevMgr().writeProperty(filter, property);
        return cLCDMon().deviceSettings(model)->brightness();
    };
    QCOMPARE(write(30), 30);
    QCOMPARE(write(-5), 0);
    QCOMPARE(write(1000), 100);
    QVERIFY(cLCDMon().deviceSettings("Veltrano.Gaming.Mouse.M5").isNull());
    QVERIFY(cLCDMon().deviceSettings("nobody").isNull());
}

void cLCDMonServiceTest::nothingRunsOnDisplays()
{
    for (const QString& model : {QString(DeviceIds::K13Model), QString("nobody")}) {
        QVERIFY(cLCDMon().appletsOnDevice(model));
        QCOMPARE(cLCDMon().appletsOnDevice(model)->count(), 0);
        QVERIFY(cLCDMon().appletsOnDevice(model)->at(0).isNull());
        QVERIFY(cLCDMon().lastBitmapSent(model).isNull());
    }
}

void cLCDMonServiceTest::profileDialogOffersADisplayThatIsThere()
{
    show("K13Device");
    QCOMPARE(EditProfileDialog(nullptr).findChildren<QRadioButton*>().size(), 2);
    show("M5Device");
    QCOMPARE(EditProfileDialog(nullptr).findChildren<QRadioButton*>().size(), 0);
}

VELTRANO_TEST_MAIN(cLCDMonServiceTest)
#include "cLCDMonServiceTest.moc"
