#include "ViewFixture.h"

#include <cMacroList.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <SceneEvents.h>
#include <TestCase.h>

#include <QPointer>
#include <QSignalSpy>

namespace {

const char* const RequiredDevice = R"(
<controls>
  <control id="G2"><generic_assignment type="t2" name="n2" required="true" hidden="true"/></control>
  <control id="G1"><generic_assignment type="t1" name="n1" required="true"/></control>
  <control id="G3"><generic_assignment type="t3" name="n3"/></control>
</controls>)";

} // namespace

/// Which labels the picture shows for a profile, and how they stand.
class ViewLabelsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
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
    void requiredCommandsStayWithTheirProfile();

    void labelStandsAtItsPlaceInTheManifest();
    void labelStandsOverItsKeyWithoutAPlace();
    void labelHasALineIfTheManifestDrawsOne();
    void labelOfAHiddenCommandIsStatic();
    void labelAndKeyAreOneTarget();
    void selectedCommandsLightTheirLabels();
};

void ViewLabelsTest::profileIsShownInItsOrder()
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

void ViewLabelsTest::labelsAreRebuiltForAnotherProfile()
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

void ViewLabelsTest::labelsChangeBeforeTheList()
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

void ViewLabelsTest::profileWithoutRecordsHasNoLabels()
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

void ViewLabelsTest::recordsAreFoundWithoutRegardToCase()
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

void ViewLabelsTest::unknownCommandsGetEmptyLabels()
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

void ViewLabelsTest::newCategoryGetsTheRequiredCommands()
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

void ViewLabelsTest::knownCategoryGetsNone()
{
    ViewFixture fixture;
    fixture.categories["{P}"] = QStringList({"other", "pad"});
    fixture.open(makeManifest(RequiredDevice));
    fixture.host.publishProfileSelectionChanging("{P}");
    const QStringList calls = fixture.host.takeCalls();
    QCOMPARE(calls.filter("setGenericAssignment").size(), 0);
    QCOMPARE(calls.filter("enableProfileBackup").size(), 0);
}

void ViewLabelsTest::profileWithoutRecordsStillGetsTheRequiredCommands()
{
    ViewFixture fixture;
    fixture.open(makeManifest(RequiredDevice));
    fixture.host.publishProfileSelectionChanging("{P}");
    QCOMPARE(fixture.host.takeCalls().filter("setGenericAssignment").size(), 2);
}

void ViewLabelsTest::hostThatAnswersRequiredCommandsAtOnce()
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

void ViewLabelsTest::requiredCommandsStayWithTheirProfile()
{
    ViewFixture fixture;
    fixture.categories["{Q}"] = QStringList("pad");
    fixture.open(makeManifest(RequiredDevice));
    // Another profile comes while the first key of this one is filled.
    fixture.host.answer("setGenericAssignment", [&fixture](const RecordedCall&) {
        if (fixture.view.getProfileId() == "{P}")
            fixture.host.publishProfileSelectionChanging("{Q}");
    });
    fixture.host.publishProfileSelectionChanging("{P}");
    const QStringList calls = fixture.host.takeCalls();
    QCOMPARE(calls.filter("setGenericAssignment"),
        QStringList({R"(setGenericAssignment("{P}", "pad", "t1", "n1", false, 0, "G1"))",
            R"(setGenericAssignment("{P}", "pad", "t2", "n2", true, 0, "G2"))"}));
    QCOMPARE(calls.filter("enableProfileBackup"),
        QStringList({R"(enableProfileBackup("{P}", false))", R"(enableProfileBackup("{P}", true))"}));
}

void ViewLabelsTest::labelStandsAtItsPlaceInTheManifest()
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
    // Halves are whole pixels.
    QCOMPARE(label->pos(), QPoint(141 - 81 / 2, 52 - textHeight / 2));
}

void ViewLabelsTest::labelStandsOverItsKeyWithoutAPlace()
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
    QCOMPARE(label->pos(), QPoint(231 - 61 / 2, 292 - textHeight / 2));
}

void ViewLabelsTest::labelHasALineIfTheManifestDrawsOne()
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

void ViewLabelsTest::labelOfAHiddenCommandIsStatic()
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

void ViewLabelsTest::labelAndKeyAreOneTarget()
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

void ViewLabelsTest::selectedCommandsLightTheirLabels()
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

VELTRANO_TEST_MAIN(ViewLabelsTest)
#include "ViewLabelsTest.moc"
