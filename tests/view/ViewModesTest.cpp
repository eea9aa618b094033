#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cGraphicsItem.h>
#include <cMacroList.h>
#include <cPulseGlowImage.h>
#include <cTooltip.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <TestCase.h>

#include <QCoreApplication>
#include <QSignalSpy>

namespace {

const char* const GlowingDevice = R"(
<pulseGlows>
  <pulseGlow><types><type name="key"/></types></pulseGlow>
  <pulseGlow><types><type name="x"/><type name="key"/></types></pulseGlow>
</pulseGlows>
<controls><control id="G1"/></controls>)";

quint32 ownProcess()
{
    return quint32(QCoreApplication::applicationPid());
}

} // namespace

/// How the picture follows the modes, and what glows in it.
class ViewModesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void clickedModeIsAskedFor();
    void modeOfTheDeviceIsFollowed();
    void modeOfAnotherCategoryIsIgnored();
    void modeWithoutAButtonSelectsNothing();
    void modeOfADeviceWithoutButtonsIsFollowed();
    void modeSwitchInTheBackgroundStartsNoPulse();

    void draggedCommandLightsTheGlows();
    void draggedLabelLightsTheSameGlows();
    void pointerOnAPanelStopsThePulse();
    void foregroundStartsAndStopsThePulse();
    void foregroundOfADeviceWithoutModesIsIgnored();
    void foregroundIsNotRemembered();
    void tipStandsToTheRightOfItsPoint();

    void slotsAreHarmlessWithoutAScene();
};

void ViewModesTest::clickedModeIsAskedFor()
{
    ViewFixture fixture;
    fixture.open();
    QVERIFY(fixture.call("SwitchMState", Q_ARG(QString, "M3")));
    QCOMPARE(fixture.host.takeCalls(), QStringList({R"(stringToMKey("M3"))", R"(setMState("pad", 2))"}));
    // The picture waits for the event.
    QCOMPARE(fixture.view.getCurrentMState(), MKey::M1);
    QCOMPARE(fixture.selectedModes(), QStringList("M1"));
}

void ViewModesTest::modeOfTheDeviceIsFollowed()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.putMacro("{P}", makeMacro("{2}", "Run"));
    fixture.assign("{P}", "G1", "{1}", MKey::M1);
    fixture.assign("{P}", "G2", "{2}", MKey::M2);
    fixture.categories["{P}"] = QStringList("pad");
    fixture.open();
    fixture.showProfile("{P}");
    QCOMPARE(fixture.labels(), QStringList("G1=Jump"));
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.view.getCurrentMState(), MKey::M2);
    QCOMPARE(fixture.selectedModes(), QStringList("M2"));
    QCOMPARE(fixture.pulsatingModes(), QStringList("M2"));
    QCOMPARE(fixture.labels(), QStringList("G2=Run"));
    QCOMPARE(fixture.host.takeCalls(),
        QStringList({"mKeyToString(1)", R"(getMacroByID("{P}", ""))", R"(macros("{P}"))",
            R"(getAssignment("{P}", "pad", 1, "G1"))", R"(getAssignment("{P}", "pad", 1, "G2"))",
            R"(getMacroByID("{P}", "{2}"))", R"(getMacroByID("{P}", "{2}"))",
            R"(getAssignment("{P}", "pad", 1, "G3"))", R"(containsDevCategory("{P}", "pad"))"}));
}

void ViewModesTest::modeOfAnotherCategoryIsIgnored()
{
    ViewFixture fixture;
    fixture.open();
    fixture.host.publishMStateChanged(MKey::M2, "other");
    QCOMPARE(fixture.view.getCurrentMState(), MKey::M1);
    QCOMPARE(fixture.selectedModes(), QStringList("M1"));
    QCOMPARE(fixture.pulsatingModes(), QStringList("M1"));
    QCOMPARE(fixture.host.takeCalls(), QStringList());
}

void ViewModesTest::modeWithoutAButtonSelectsNothing()
{
    ViewFixture fixture;
    fixture.open();
    fixture.host.answer("mKeyToString", QString("M9"));
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.selectedModes(), QStringList());
    QCOMPARE(fixture.pulsatingModes(), QStringList());
    QCOMPARE(fixture.view.getCurrentMState(), MKey::M2);
}

void ViewModesTest::modeOfADeviceWithoutButtonsIsFollowed()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G1", "{1}", MKey::M2);
    fixture.open(makeManifest("<controls><control id='G1'/></controls>"));
    fixture.showProfile("{P}");
    QCOMPARE(fixture.labels(), QStringList());
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.view.getCurrentMState(), MKey::M2);
    QCOMPARE(fixture.labels(), QStringList("G1=Jump"));
}

void ViewModesTest::modeSwitchInTheBackgroundStartsNoPulse()
{
    ViewFixture fixture;
    fixture.isInForeground = false;
    fixture.open();
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.selectedModes(), QStringList("M2"));
    QCOMPARE(fixture.pulsatingModes(), QStringList());
}

void ViewModesTest::draggedCommandLightsTheGlows()
{
    ViewFixture fixture;
    fixture.host.answer(
        "getMacroTypeByID", [](const RecordedCall&) { return QVariant::fromValue(makeMacroType({"key"})); });
    fixture.open(makeManifest(GlowingDevice));
    Q_EMIT fixture.macroList()->singleMacroStartDrag(makeMacro("{1}", "Jump"));
    for (const cPulseGlowImage* glow : fixture.items<cPulseGlowImage>())
        QVERIFY(glow->isVisible());
    Q_EMIT fixture.macroList()->singleMacroEndDrag();
    for (const cPulseGlowImage* glow : fixture.items<cPulseGlowImage>())
        QVERIFY(!glow->isVisible());
    // Several commands at once go on no key.
    Q_EMIT fixture.macroList()->multiMacroStartDrag();
    for (const cPulseGlowImage* glow : fixture.items<cPulseGlowImage>())
        QVERIFY(!glow->isVisible());
}

void ViewModesTest::draggedLabelLightsTheSameGlows()
{
    ViewFixture fixture;
    fixture.host.answer(
        "getMacroTypeByID", [](const RecordedCall&) { return QVariant::fromValue(makeMacroType({"key"})); });
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.open(makeManifest(GlowingDevice));
    fixture.showProfile("{P}");
    Q_EMIT fixture.key("G1")->assignmentStartDrag("{1}");
    QCOMPARE(fixture.items<cPulseGlowImage>().size(), 2);
    for (const cPulseGlowImage* glow : fixture.items<cPulseGlowImage>())
        QVERIFY(glow->isVisible());
    QCOMPARE(fixture.host.takeCalls(),
        QStringList({R"(getMacroByID("{P}", "{1}"))", R"(getMacroTypeByID("uri/keystroke"))",
            R"(getMacroTypeByID("uri/keystroke"))"}));
    Q_EMIT fixture.key("G1")->assignmentEndDrag();
    for (const cPulseGlowImage* glow : fixture.items<cPulseGlowImage>())
        QVERIFY(!glow->isVisible());
}

void ViewModesTest::pointerOnAPanelStopsThePulse()
{
    ViewFixture fixture;
    fixture.open();
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.pulsatingModes(), QStringList("M2"));
    QVERIFY(fixture.call("onStopMkeyPulsate"));
    QCOMPARE(fixture.pulsatingModes(), QStringList());
    QVERIFY(fixture.call("onStartMkeyPulsate"));
    QCOMPARE(fixture.pulsatingModes(), QStringList("M2"));
}

void ViewModesTest::foregroundStartsAndStopsThePulse()
{
    ViewFixture fixture;
    fixture.open();
    fixture.host.publishForegroundAppChange("/bin/game", ownProcess() + 1);
    QCOMPARE(fixture.pulsatingModes(), QStringList());
    // The path is not read.
    fixture.host.publishForegroundAppChange("/bin/game", ownProcess());
    QCOMPARE(fixture.pulsatingModes(), QStringList("M1"));
}

void ViewModesTest::foregroundOfADeviceWithoutModesIsIgnored()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls/>"));
    fixture.host.publishForegroundAppChange("", ownProcess());
    fixture.host.publishForegroundAppChange("", ownProcess() + 1);
    QCOMPARE(fixture.host.takeCalls(), QStringList());
    QVERIFY(fixture.call("onStartMkeyPulsate"));
    QVERIFY(fixture.call("onStopMkeyPulsate"));
}

void ViewModesTest::foregroundIsNotRemembered()
{
    ViewFixture fixture;
    fixture.open();
    // A mode switch looks at what was read when the scene was built.
    fixture.host.publishForegroundAppChange("", ownProcess() + 1);
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.pulsatingModes(), QStringList("M2"));
}

void ViewModesTest::tipStandsToTheRightOfItsPoint()
{
    ViewFixture fixture;
    fixture.open();
    QVERIFY(fixture.call("onShowTooltip", Q_ARG(QPointF, QPointF(100, 50)), Q_ARG(QString, "a tip")));
    QCOMPARE(fixture.item<cTooltip>()->pos(), QPointF(115, 50));
    QVERIFY(fixture.item<cTooltip>()->isVisible());
}

void ViewModesTest::slotsAreHarmlessWithoutAScene()
{
    ViewFixture fixture;
    const auto callAll = [&fixture] {
        const cJsonValue macro = makeMacro("{1}", "Jump");
        fixture.call("onMStateChanged", Q_ARG(MKey::MKey_t, MKey::M2),
            Q_ARG(QString, fixture.view.getDeviceCategory()));
        fixture.call("onProfileSelectionChanging", Q_ARG(QString, "{P}"));
        fixture.call("highlightAssignment", Q_ARG(cJsonValue, macro));
        fixture.call("onStartGkeyPulsate", Q_ARG(cJsonValue, macro));
        fixture.call("onStopGkeyPulsate");
        fixture.call("onStartMkeyPulsate");
        fixture.call("onStopMkeyPulsate");
        fixture.call("onForegroundAppChange", Q_ARG(QString, ""), Q_ARG(quint32, ownProcess()));
        fixture.call("onShowTooltip", Q_ARG(QPointF, QPointF()), Q_ARG(QString, "tip"));
        fixture.call("onProfilesToGoDeviceBusy", Q_ARG(QString, ""), Q_ARG(QString, "{D}"));
        fixture.call("onProfilesToGoDeviceIdle", Q_ARG(QString, "{D}"));
        fixture.call("onProfilePropertyChanged", Q_ARG(QString, "{P}"));
        fixture.call("onmacroAdded", Q_ARG(QString, "{P}"), Q_ARG(cJsonValue, macro));
        fixture.call("onmacroChanged", Q_ARG(QString, "{P}"), Q_ARG(cJsonValue, macro));
        fixture.call("onmacroDeleted", Q_ARG(QString, "{P}"), Q_ARG(cJsonValue, macro));
        fixture.call("onMacroAssigned", Q_ARG(QString, "{P}"),
            Q_ARG(QString, fixture.view.getDeviceCategory()), Q_ARG(QString, "{1}"),
            Q_ARG(MKey::MKey_t, fixture.view.getCurrentMState()), Q_ARG(QString, "G1"));
        fixture.call("onAssignmentRemoved", Q_ARG(QString, "{P}"),
            Q_ARG(QString, fixture.view.getDeviceCategory()),
            Q_ARG(MKey::MKey_t, fixture.view.getCurrentMState()), Q_ARG(QString, "G1"),
            Q_ARG(QString, "{1}"));
        fixture.call("onMacroEditorClosed", Q_ARG(QString, "{1}"));
        QCoreApplication::processEvents();
    };
    fixture.boundDevice = "{D}";
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G1", "{1}");
    callAll();
    fixture.open();
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    callAll();
    QVERIFY(fixture.items<MagnetTextItem>().isEmpty());
    // The host takes its canvas down before the view.
    fixture.open();
    fixture.showProfile("{P}");
    QVERIFY(fixture.label("G1"));
    fixture.canvas.reset();
    callAll();
    fixture.scene = std::make_unique<QGraphicsScene>();
    callAll();
    QVERIFY(fixture.scene->items().isEmpty());
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
}

VELTRANO_TEST_MAIN(ViewModesTest)
#include "ViewModesTest.moc"
