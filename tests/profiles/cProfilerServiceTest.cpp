#include "EventLog.h"

#include <cProfiler.h>
#include <cProfilerService.h>
#include <cServiceMgr.h>
#include <TestCase.h>

#include <memory>

class cProfilerServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void keysAreTextAndBack();
    void unknownKeysAreNone();
    void buttonsHaveContextIds();
    void modesAreTextAndBack();
    void eachCategoryHasAModeOfItsOwn();
    void changedModeIsPublishedOnce();
    void impossibleModeIsRefused();
    void nothingIsPlayedWithoutAPlayer();

private:
    std::unique_ptr<cServiceMgr> m_manager;
    std::unique_ptr<cProfilerService> m_service;
    std::unique_ptr<EventLog> m_events;
};

void cProfilerServiceTest::init()
{
    m_manager = std::make_unique<cServiceMgr>();
    IServiceMgr::setInstance(m_manager.get());
    m_service = std::make_unique<cProfilerService>();
    m_manager->registerService(m_service.get());
    m_events = std::make_unique<EventLog>();
}

void cProfilerServiceTest::cleanup()
{
    m_events.reset();
    m_service.reset();
    IServiceMgr::setInstance(nullptr);
    m_manager.reset();
}

void cProfilerServiceTest::keysAreTextAndBack()
{
    cProfiler profiler;
    for (int number = 1; number <= 29; ++number) {
        const auto key = GKey::GKey_t(number);
        const QString name = QStringLiteral("G%1").arg(number);
        QCOMPARE(profiler.gKeyToString(key), name);
        QCOMPARE(profiler.toContextId(key), name);
        QCOMPARE(int(profiler.stringToGKey(name)), number);
    }
}

void cProfilerServiceTest::unknownKeysAreNone()
{
    cProfiler profiler;
    for (const char* name : {"", "G0", "G30", "G01", "g1", "G", "M1", "G1 "})
        QCOMPARE(profiler.stringToGKey(name), GKey::None);
    QCOMPARE(profiler.gKeyToString(GKey::None), QString());
    QCOMPARE(profiler.gKeyToString(GKey::GKey_t(30)), QString());
}

void cProfilerServiceTest::buttonsHaveContextIds()
{
    cProfiler profiler;
    QCOMPARE(profiler.toContextId(GenericButton::GenericButton_t(3)), QStringLiteral("B3"));
    QCOMPARE(profiler.toContextId(GenericButton::None), QString());
}

void cProfilerServiceTest::modesAreTextAndBack()
{
    cProfiler profiler;
    const MKey::MKey_t modes[] = {MKey::M1, MKey::M2, MKey::M3};
    for (const MKey::MKey_t mode : modes) {
        const QString name = QStringLiteral("M%1").arg(int(mode) + 1);
        QCOMPARE(profiler.mKeyToString(mode), name);
        QCOMPARE(profiler.stringToMKey(name), mode);
    }
    QCOMPARE(profiler.stringToMKey("M4"), MKey::M1);
    QCOMPARE(profiler.stringToMKey(""), MKey::M1);
}

void cProfilerServiceTest::eachCategoryHasAModeOfItsOwn()
{
    cProfiler profiler;
    QCOMPARE(profiler.getMState("Keyboard"), MKey::M1);
    QVERIFY(profiler.setMState("Keyboard", MKey::M3));
    QCOMPARE(profiler.getMState("Keyboard"), MKey::M3);
    QCOMPARE(profiler.getMState("Mouse"), MKey::M1);
}

void cProfilerServiceTest::changedModeIsPublishedOnce()
{
    cProfiler profiler;
    QVERIFY(profiler.setMState("Keyboard", MKey::M2));
    QCOMPARE(m_events->take(), QStringList({"MStateChanged 1 Keyboard"}));
    QVERIFY(!profiler.setMState("Keyboard", MKey::M2));
    QCOMPARE(m_events->take(), QStringList());
}

void cProfilerServiceTest::impossibleModeIsRefused()
{
    cProfiler profiler;
    QVERIFY(!profiler.setMState("Keyboard", MKey::MKey_t(3)));
    QCOMPARE(profiler.getMState("Keyboard"), MKey::M1);
    QCOMPARE(m_events->take(), QStringList());
}

void cProfilerServiceTest::nothingIsPlayedWithoutAPlayer()
{
    cProfiler profiler;
    QVERIFY(!profiler.playScriptingMacroByName("{1}", "Name"));
    QVERIFY(!profiler.abortScriptingMacro());
}

VELTRANO_TEST_MAIN(cProfilerServiceTest)
#include "cProfilerServiceTest.moc"
