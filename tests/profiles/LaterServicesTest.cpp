#include "Fakes.h"

#include <cDevMgrService.h>
#include <cLCDMon.h>
#include <cLCDMonService.h>
#include <cLuaScript.h>
#include <cLuaScriptService.h>
#include <cProfilesToGo.h>
#include <cProfilesToGoService.h>
#include <cServiceMgr.h>
#include <HostDevice.h>
#include <TestCase.h>

#include <memory>

/// The services whose work this version does not do: they answer what is true, and tell the user.
class LaterServicesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void thereAreNoDisplays();
    void scriptEditorIsDeclined();
    void scriptsDoNotRun();
    void noDeviceHoldsProfiles();
    void transferIsDeclined();
    void devicesHaveShortNames();

private:
    std::unique_ptr<cServiceMgr> m_manager;
    std::unique_ptr<FakeMainUI> m_mainUI;
    std::unique_ptr<cDevMgrService> m_devices;
    std::unique_ptr<cLCDMonService> m_displays;
    std::unique_ptr<cLuaScriptService> m_scripts;
    std::unique_ptr<cProfilesToGoService> m_profilesToGo;
};

void LaterServicesTest::init()
{
    m_manager = std::make_unique<cServiceMgr>();
    IServiceMgr::setInstance(m_manager.get());
    m_mainUI = std::make_unique<FakeMainUI>();
    m_devices = std::make_unique<cDevMgrService>();
    m_displays = std::make_unique<cLCDMonService>();
    m_scripts = std::make_unique<cLuaScriptService>(*m_mainUI);
    m_profilesToGo = std::make_unique<cProfilesToGoService>(*m_devices, *m_mainUI);
    for (QObject* service : QList<QObject*> {m_displays.get(), m_scripts.get(), m_profilesToGo.get()})
        m_manager->registerService(service);
}

void LaterServicesTest::cleanup()
{
    m_profilesToGo.reset();
    m_scripts.reset();
    m_displays.reset();
    m_devices.reset();
    m_mainUI.reset();
    IServiceMgr::setInstance(nullptr);
    m_manager.reset();
}

void LaterServicesTest::thereAreNoDisplays()
{
    cLCDMon displays;
    QVERIFY(displays.lcdDevices());
    QCOMPARE(displays.lcdDevices()->count(), 0);
    QVERIFY(displays.lcdDevices()->at(0).isNull());
    QVERIFY(displays.appletsOnDevice("any"));
    QCOMPARE(displays.appletsOnDevice("any")->count(), 0);
    QVERIFY(displays.appletsOnDevice("any")->at(-1).isNull());
    QVERIFY(displays.deviceSettings("any").isNull());
    QVERIFY(displays.lastBitmapSent("any").isNull());
}

void LaterServicesTest::scriptEditorIsDeclined()
{
    cLuaScript scripts;
    scripts.showEditor(true, "{1}");
    QCOMPARE(m_mainUI->messages, QStringList({"Scripting: There is no script editor in this version."}));
    scripts.showEditor(false, "{1}");
    QCOMPARE(m_mainUI->messages.size(), 1);
}

void LaterServicesTest::scriptsDoNotRun()
{
    cLuaScript scripts;
    QVERIFY(!scripts.run("{1}", "print(1)"));
    scripts.stop();
    QCOMPARE(m_mainUI->messages, QStringList());
}

void LaterServicesTest::noDeviceHoldsProfiles()
{
    cProfilesToGo device;
    QVERIFY(device.getProfiles("any").isArray());
    QCOMPARE(device.getProfiles("any").size(), 0u);
    QCOMPARE(device.memoryUsed("any"), 0);
    QVERIFY(!device.isDeviceBusy("any"));
    QVERIFY(!device.isDeviceBusyReading("any"));
    QVERIFY(!device.isDeviceBusyWriting("any"));
    QVERIFY(!device.isSpaceAvailable("any", {"{1}"}));
}

void LaterServicesTest::transferIsDeclined()
{
    cProfilesToGo device;
    device.commitDevice("any");
    QCOMPARE(m_mainUI->messages.size(), 1);
    device.commitAllDevices();
    device.commitAllDevicesAndWait();
    QCOMPARE(m_mainUI->messages.size(), 1);
}

void LaterServicesTest::devicesHaveShortNames()
{
    m_devices->load(QStringLiteral(DEVICES_FOLDER));
    QVERIFY(!m_devices->devices().isEmpty());
    cProfilesToGo device;
    for (const auto& each : m_devices->devices()) {
        const QString name = device.shortDeviceName(each->uid());
        QVERIFY(!name.isEmpty());
        QVERIFY(name.size() < 8);
    }
    QCOMPARE(device.shortDeviceName("any"), QString());
}

VELTRANO_TEST_MAIN(LaterServicesTest)
#include "LaterServicesTest.moc"
