#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cGraphicsItem.h>
#include <cMacroList.h>
#include <cPulseGlowImage.h>
#include <cTooltip.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <SceneEvents.h>
#include <TestCase.h>

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>

namespace {

const char* const RequiredDevice = R"(
<controls>
  <control id="G2"><generic_assignment type="t2" name="n2" required="true" hidden="true"/></control>
  <control id="G1"><generic_assignment type="t1" name="n1" required="true"/></control>
  <control id="G3"><generic_assignment type="t3" name="n3"/></control>
</controls>)";

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

/// How the picture follows modes and profiles, and what glows in it.
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

    void profileIsShownInItsOrder();
    void labelsAreRebuiltForAnotherProfile();
    void labelsChangeBeforeTheList();
    void profileWithoutRecordsHasNoLabels();
    void recordsAreFoundWithoutRegardToCase();
    void unknownCommandsGetEmptyLabels();
    void newCategoryGetsTheRequiredCommands();
    void knownCategoryGetsNone();
    void profileWithoutRecordsStillGetsTheRequiredCommands();
    void hostThatAnswersRequiredCommandsAtOnce();

    void labelStandsAtItsPlaceInTheManifest();
    void labelStandsOverItsKeyWithoutAPlace();
    void labelHasALineIfTheManifestDrawsOne();
    void labelOfAHiddenCommandIsStatic();
    void labelAndKeyAreOneTarget();

    void selectedCommandsLightTheirLabels();
    void draggedCommandLightsTheGlows();
    void draggedLabelLightsTheSameGlows();
    void pointerOnAPanelStopsThePulse();
    void foregroundStartsAndStopsThePulse();
    void foregroundOfADeviceWithoutModesIsIgnored();
    void foregroundIsNotRemembered();
    void tipStandsToTheRightOfItsPoint();

    void syncButtonOfAProfile_data();
    void syncButtonOfAProfile();
    void busyDeviceRunsTheSyncButton_data();
    void busyDeviceRunsTheSyncButton();
    void idleDeviceHidesTheSyncButton();
    void syncIsAskedForTheBoundDevice();
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

void ViewModesTest::profileIsShownInItsOrder()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G2", "{1}");
    fixture.categories["{P}"] = QStringList("pad");
    fixture.boundDevice = "{D}";
    fixture.open();
    fixture.host.publishProfileSelectionChanging("{P}");
    QCOMPARE(fixture.view.getProfileId(), QString("{P}"));
    QCOMPARE(fixture.host.takeCalls(),
        QStringList({R"(macros("{P}"))", R"(getAssignment("{P}", "pad", 0, "G1"))",
            R"(getAssignment("{P}", "pad", 0, "G2"))", R"(getMacroByID("{P}", "{1}"))",
            R"(getMacroByID("{P}", "{1}"))", R"(getAssignment("{P}", "pad", 0, "G3"))",
            R"(containsDevCategory("{P}", "pad"))", R"(getProfileDeviceId("{P}"))",
            R"(isProfileToGoDirty("{P}"))", R"(isDeviceBusy("{D}"))"}));
}

void ViewModesTest::labelsAreRebuiltForAnotherProfile()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.assign("{P}", "G2", "{1}");
    fixture.putMacro("{Q}", makeMacro("{1}", "Crouch"));
    fixture.assign("{Q}", "G2", "{1}");
    fixture.open();
    fixture.showProfile("{P}");
    const QPointer<MagnetTextItem> old = fixture.label("G2");
    fixture.showProfile("{Q}");
    QVERIFY(!old);
    QCOMPARE(fixture.labels(), QStringList("G2=Crouch"));
    QCOMPARE(fixture.key("G1")->macroID(), QString());
    QCOMPARE(fixture.key("G2")->macroID(), QString("{1}"));
    // The same profile once more makes new labels.
    const QPointer<MagnetTextItem> second = fixture.label("G2");
    fixture.showProfile("{Q}");
    QVERIFY(!second);
    QCOMPARE(fixture.labels(), QStringList("G2=Crouch"));
    // And one that nobody knows has none.
    fixture.showProfile("{unknown}");
    QCOMPARE(fixture.labels(), QStringList());
}

void ViewModesTest::labelsChangeBeforeTheList()
{
    ViewFixture fixture;
    fixture.host.answer(
        "getMacroTypeByID", [](const RecordedCall&) { return QVariant::fromValue(makeMacroType({})); });
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.putMacro("{Q}", makeMacro("{2}", "Run"));
    fixture.assign("{Q}", "G1", "{2}");
    fixture.open();
    fixture.showProfile("{P}");
    fixture.host.publishProfileSelectionChanged("{P}");
    QTRY_COMPARE(fixture.macroList()->count(), 1);
    fixture.host.publishProfileSelectionChanging("{Q}");
    QCOMPARE(fixture.labels(), QStringList("G1=Run"));
    QCOMPARE(fixture.macroList()->item(0)->text(), QString("Jump"));
    fixture.host.publishProfileSelectionChanged("{Q}");
    QTRY_COMPARE(fixture.macroList()->count(), 1);
    QCOMPARE(fixture.macroList()->item(0)->text(), QString("Run"));
}

void ViewModesTest::profileWithoutRecordsHasNoLabels()
{
    ViewFixture fixture;
    fixture.assign("{P}", "G1", "{1}");
    fixture.open();
    // Null is no array: nothing is asked for the keys.
    fixture.host.publishProfileSelectionChanging("{P}");
    QCOMPARE(fixture.host.takeCalls().filter("getAssignment").size(), 0);
    // An empty array is one.
    fixture.host.answer("macros", cJsonValue(cJsonValue::arrayValue));
    fixture.host.publishProfileSelectionChanging("{P}");
    QCOMPARE(fixture.host.takeCalls().filter("getAssignment").size(), 3);
    QCOMPARE(fixture.labels(), QStringList("G1="));
}

void ViewModesTest::recordsAreFoundWithoutRegardToCase()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{ab}", "First"));
    fixture.putMacro("{P}", makeMacro("{AB}", "Second"));
    fixture.assign("{P}", "G1", "{Ab}");
    fixture.assign("{P}", "G2", "{AB}");
    fixture.open();
    fixture.showProfile("{P}");
    QCOMPARE(fixture.labels(), QStringList({"G1=First", "G2=First"}));
    QCOMPARE(fixture.label("G1")->macroID(), QString("{Ab}"));
}

void ViewModesTest::unknownCommandsGetEmptyLabels()
{
    ViewFixture fixture;
    cJsonValue odd;
    odd["uid"] = "{2}";
    odd["namespace"] = "nobody/knows/it";
    fixture.putMacro("{P}", odd);
    fixture.putMacro("{P}", cJsonValue("no record"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.assign("{P}", "G2", "{2}");
    fixture.open();
    fixture.showProfile("{P}");
    QCOMPARE(fixture.labels(), QStringList({"G1=", "G2="}));
    QCOMPARE(fixture.key("G1")->macroID(), QString("{1}"));
}

void ViewModesTest::newCategoryGetsTheRequiredCommands()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.open(makeManifest(RequiredDevice));
    fixture.host.publishProfileSelectionChanging("{P}");
    const QStringList calls = fixture.host.takeCalls();
    const int first = calls.indexOf(R"(containsDevCategory("{P}", "pad"))");
    QCOMPARE(calls.mid(first),
        QStringList({R"(containsDevCategory("{P}", "pad"))", R"(enableProfileBackup("{P}", false))",
            R"(setGenericAssignment("{P}", "pad", "t1", "n1", false, 0, "G1"))",
            R"(setGenericAssignment("{P}", "pad", "t2", "n2", true, 0, "G2"))",
            R"(enableProfileBackup("{P}", true))", R"(getProfileDeviceId("{P}"))"}));
    QCOMPARE(fixture.labels(), QStringList());
}

void ViewModesTest::knownCategoryGetsNone()
{
    ViewFixture fixture;
    fixture.categories["{P}"] = QStringList({"other", "pad"});
    fixture.open(makeManifest(RequiredDevice));
    fixture.host.publishProfileSelectionChanging("{P}");
    const QStringList calls = fixture.host.takeCalls();
    QCOMPARE(calls.filter("setGenericAssignment").size(), 0);
    QCOMPARE(calls.filter("enableProfileBackup").size(), 0);
}

void ViewModesTest::profileWithoutRecordsStillGetsTheRequiredCommands()
{
    ViewFixture fixture;
    fixture.open(makeManifest(RequiredDevice));
    fixture.host.publishProfileSelectionChanging("{P}");
    QCOMPARE(fixture.host.takeCalls().filter("setGenericAssignment").size(), 2);
}

void ViewModesTest::hostThatAnswersRequiredCommandsAtOnce()
{
    ViewFixture fixture;
    fixture.open(makeManifest(RequiredDevice));
    fixture.host.answer("setGenericAssignment", [&fixture](const RecordedCall& call) {
        fixture.putMacro("{P}", makeMacro("{g}", "Generic", true));
        fixture.host.publishMacroAdded("{P}", makeMacro("{g}", "Generic", true));
        fixture.host.publishMacroAssigned("{P}", "pad", "{g}", MKey::M1, call.values[6].toString());
    });
    fixture.showProfile("{P}");
    QCOMPARE(fixture.labels(), QStringList({"G1=Generic", "G2=Generic"}));
}

void ViewModesTest::labelStandsAtItsPlaceInTheManifest()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "x"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.open(makeManifest(
        "<controls><control id='G1'><points><point x='1' y='1'/><point x='9' y='9'/></points>"
        "<assignment_label x='100' y='60' min_width='81' max_width='120'/></control></controls>"));
    fixture.showProfile("{P}");
    const MagnetTextItem* const label = fixture.label("G1");
    QVERIFY(label->isVisible());
    QCOMPARE(label->parentItem(), fixture.rootItem());
    // The text area begins at x; its middle is 8 above y. 100 + 81 / 2.0 rounds to 141.
    const int textHeight = int(label->boundingRect().height()) - 6;
    QCOMPARE(label->boundingRect().width(), 81.0 + 10);
    QCOMPARE(label->pos(), QPointF(141 - 81 / 2, 52 - textHeight / 2));
}

void ViewModesTest::labelStandsOverItsKeyWithoutAPlace()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "x"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.open(
        makeManifest("<controls><control id='G1'><points><point x='200' y='300'/><point x='261' y='340'/>"
                     "</points></control></controls>"));
    fixture.showProfile("{P}");
    const MagnetTextItem* const label = fixture.label("G1");
    const int textHeight = int(label->boundingRect().height()) - 6;
    QCOMPARE(label->boundingRect().width(), 61.0 + 10);
    QCOMPARE(label->pos(), QPointF(231 - 61 / 2, 292 - textHeight / 2));
}

void ViewModesTest::labelHasALineIfTheManifestDrawsOne()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "x"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.open(makeManifest(
        "<controls><control id='G1'>"
        "<assignment_label x='100' y='60' min_width='80' max_width='120'>"
        "<connect_line x1='100' y1='200' x2='180' y2='200'/></assignment_label></control></controls>"));
    fixture.showProfile("{P}");
    MagnetTextItem* const label = fixture.label("G1");
    // Ends are taken relative to (x, y - 8), and drawn from the label's corner: half a text above the
    // manifest's place.
    const QImage image = SceneEvents::painted(*label, QSize(200, 300));
    const int y = 200 - 52;
    QVERIFY(qAlpha(image.pixel(10, y)) > 0);
    QVERIFY(qAlpha(image.pixel(70, y)) > 0);
    QVERIFY(qAlpha(image.pixel(10, y + 3)) == 0);
    QVERIFY(qAlpha(image.pixel(90, y)) == 0);
}

void ViewModesTest::labelOfAHiddenCommandIsStatic()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Same", true));
    fixture.putMacro("{P}", makeMacro("{2}", "Same"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.assign("{P}", "G2", "{2}");
    fixture.open();
    fixture.showProfile("{P}");
    const auto pictureOf = [&fixture](const char* contextID) {
        return SceneEvents::painted(*fixture.label(contextID), QSize(80, 40));
    };
    QVERIFY(pictureOf("G1") != pictureOf("G2"));
    QVERIFY(fixture.key("G1")->isMacroHidden());
    QVERIFY(!fixture.key("G2")->isMacroHidden());
}

void ViewModesTest::labelAndKeyAreOneTarget()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "A name that is too long for the key"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.open();
    fixture.showProfile("{P}");
    MagnetTextItem* const label = fixture.label("G1");
    const QRectF atRest = label->boundingRect();
    Q_EMIT fixture.key("G1")->hoverIn();
    QVERIFY(label->boundingRect().width() > atRest.width());
    // No wider than what a label without a place of its own may have.
    QVERIFY(label->boundingRect().width() <= 150 + 10);
    Q_EMIT fixture.key("G1")->hoverOut();
    QCOMPARE(label->boundingRect(), atRest);
    // The key gets the label's events.
    QSignalSpy clicks(fixture.key("G1"), SIGNAL(clicked(QString)));
    SceneEvents::press(*label);
    QCOMPARE(clicks.size(), 1);
}

void ViewModesTest::selectedCommandsLightTheirLabels()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.putMacro("{P}", makeMacro("{2}", "Run"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.assign("{P}", "G2", "{2}");
    fixture.assign("{P}", "G3", "{1}");
    fixture.open();
    fixture.showProfile("{P}");
    const auto pictures = [&fixture] {
        QList<QImage> found;
        for (const char* contextID : {"G1", "G2", "G3"})
            found.append(SceneEvents::painted(*fixture.label(contextID), QSize(80, 40)));
        return found;
    };
    const QList<QImage> atRest = pictures();
    Q_EMIT fixture.macroList()->MacroSelected(makeMacro("{1}", "Jump"));
    QVERIFY(pictures()[0] != atRest[0]);
    QCOMPARE(pictures()[1], atRest[1]);
    QVERIFY(pictures()[2] != atRest[2]);
    Q_EMIT fixture.macroList()->MacroUnSelected(makeMacro("{1}", "Jump"));
    QCOMPARE(pictures(), atRest);
    Q_EMIT fixture.macroList()->MacroSelected(makeMacro("{9}", "on no key"));
    QCOMPARE(pictures(), atRest);
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

void ViewModesTest::syncButtonOfAProfile_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<bool>("isDirty");
    QTest::addColumn<bool>("isBusy");
    QTest::addColumn<bool>("isShown");
    QTest::addColumn<bool>("isRunning");
    QTest::newRow("on no device") << "" << false << false << false << false;
    QTest::newRow("on no device, dirty and busy") << "" << true << true << false << false;
    QTest::newRow("clean") << "{D}" << false << false << false << false;
    QTest::newRow("dirty") << "{D}" << true << false << true << false;
    QTest::newRow("busy") << "{D}" << false << true << true << true;
    QTest::newRow("dirty and busy") << "{D}" << true << true << true << true;
}

void ViewModesTest::syncButtonOfAProfile()
{
    QFETCH(QString, device);
    QFETCH(bool, isDirty);
    QFETCH(bool, isBusy);
    QFETCH(bool, isShown);
    QFETCH(bool, isRunning);
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = device;
    fixture.isDirty = isDirty;
    fixture.isBusy = isBusy;
    fixture.syncButton()->setFrame(4);
    fixture.showProfile("{P}");
    QCOMPARE(!fixture.syncButton()->isHidden(), isShown);
    QCOMPARE(fixture.syncButton()->isRunning(), isRunning);
    QCOMPARE(fixture.syncButton()->currentFrame(), isRunning ? 0 : 4);
    // The next profile is on no device.
    fixture.boundDevice.clear();
    fixture.showProfile("{Q}");
    QVERIFY(fixture.syncButton()->isHidden());
}

void ViewModesTest::busyDeviceRunsTheSyncButton_data()
{
    QTest::addColumn<QString>("bound");
    QTest::addColumn<QString>("busy");
    QTest::addColumn<bool>("runs");
    QTest::newRow("the bound one") << "{D}"
                                   << "{D}" << true;
    QTest::newRow("another one") << "{D}"
                                 << "{E}" << false;
    QTest::newRow("none bound") << ""
                                << "{D}" << false;
    QTest::newRow("none bound, none named") << ""
                                            << "" << true;
}

void ViewModesTest::busyDeviceRunsTheSyncButton()
{
    QFETCH(QString, bound);
    QFETCH(QString, busy);
    QFETCH(bool, runs);
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = bound;
    fixture.showProfile("{P}");
    fixture.syncButton()->setFrame(4);
    fixture.host.publishProfilesToGoDeviceBusy("any name", busy);
    QCOMPARE(fixture.syncButton()->isRunning(), runs);
    QCOMPARE(fixture.syncButton()->currentFrame(), runs ? 0 : 4);
    QVERIFY(fixture.syncButton()->isHidden());
}

void ViewModesTest::idleDeviceHidesTheSyncButton()
{
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = "{D}";
    fixture.isDirty = true;
    fixture.showProfile("{P}");
    fixture.host.publishProfilesToGoDeviceBusy("", "{D}");
    fixture.syncButton()->setFrame(4);
    fixture.host.publishProfilesToGoDeviceIdle("{E}");
    QVERIFY(fixture.syncButton()->isRunning());
    fixture.host.publishProfilesToGoDeviceIdle("{D}");
    QVERIFY(!fixture.syncButton()->isRunning());
    QVERIFY(fixture.syncButton()->isHidden());
    QVERIFY(!fixture.syncButton()->isEnabled());
    QCOMPARE(fixture.syncButton()->currentFrame(), 0);
}

void ViewModesTest::syncIsAskedForTheBoundDevice()
{
    ViewFixture fixture;
    fixture.open();
    fixture.boundDevice = "{D}";
    fixture.showProfile("{P}");
    QVERIFY(fixture.call("onForceProfilesToGoSync"));
    QCOMPARE(fixture.host.takeCalls(), QStringList(R"(commitDevice("{D}"))"));
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
