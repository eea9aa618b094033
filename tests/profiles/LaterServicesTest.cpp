#include "Fakes.h"

#include <cLCDMon.h>
#include <cLCDMonService.h>
#include <cServiceMgr.h>
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

private:
    std::unique_ptr<cServiceMgr> m_manager;
    std::unique_ptr<FakeMainUI> m_mainUI;
    std::unique_ptr<cLCDMonService> m_displays;
};

void LaterServicesTest::init()
{
    m_manager = std::make_unique<cServiceMgr>();
    IServiceMgr::setInstance(m_manager.get());
    m_mainUI = std::make_unique<FakeMainUI>();
    m_displays = std::make_unique<cLCDMonService>();
    for (QObject* service : QList<QObject*> {m_displays.get()})
        m_manager->registerService(service);
}

void LaterServicesTest::cleanup()
{
    m_displays.reset();
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

VELTRANO_TEST_MAIN(LaterServicesTest)
#include "LaterServicesTest.moc"
