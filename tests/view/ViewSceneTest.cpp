#include "ViewFixture.h"

#include <cGraphicsItem.h>
#include <cGraphicsItemGroup.h>
#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cPulseGlowImage.h>
#include <cSearchBox.h>
#include <cTooltip.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <ServiceNames.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDir>
#include <QFrame>
#include <QGraphicsPixmapItem>

namespace {

/// The log without the lines of clients that are made, and without what the lists and panes say of
/// themselves.
QStringList callsOf(RecordingHost& host)
{
    QStringList found;
    for (const QString& line : host.takeLog()) {
        if (!line.startsWith("require "))
            found.append(line);
    }
    return found;
}

} // namespace

/// onDeviceTransformEnd(): what it makes of a record, in which order.
class ViewSceneTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hostSeesTheStepsInOrder();
    void hostSeesNoModesOfADeviceWithoutThem();
    void endWithoutInitBuildsNothing();
    void endWithoutCanvasBuildsNothing();
    void factsOfTheDeviceAreRead();

    void tooltipStandsInTheScene();

    void overlayIsForOneModelAlone_data();
    void overlayIsForOneModelAlone();
    void modeButtonsStandAndTheCurrentOnePulsates();
    void modeButtonsStandStillInTheBackground();
    void unknownModeSelectsNothing();
    void deviceWithoutModesKeepsTheForeground();
    void glowTakesTheTypeOfItsOwnNumber();
    void glowWithoutTypesIsLeftOut();
    void eachGlowConnectsTheListOnce();
    void glowsAreHiddenAtTheirPlaces();

    void framesAreShownAtTheEnd();
    void deinitTakesItAllAway();
    void deinitKeepsItsOrder();
    void sceneIsBuiltAnewAfterDeinit();
    void secondEndBuildsASecondTime();
    void emptyManifestGivesPanelsWithoutKeys_data();
    void emptyManifestGivesPanelsWithoutKeys();
    void missingServicesStillGiveAScene();
};

void ViewSceneTest::hostSeesTheStepsInOrder()
{
    ViewFixture fixture;
    fixture.setManifest(makeManifest(PlainDevice));
    fixture.mode = MKey::M2;
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    fixture.host.clear();
    fixture.host.publishDeviceTransformEnd();
    const QStringList expected {
        "subscribe ProfileMgr_Events on",
        "subscribe Profiler_Events on",
        "subscribe DevMgr_Events on",
        "subscribe ProfilesToGo_Events on",
        "Profiler.Profiler getMState(const QString \"pad\") -> MKey::MKey_t",
        // The list of commands.
        "subscribe Profiler_Events on",
        "subscribe ProfileMgr_Events on",
        // The list of profiles, and the bar around it.
        "subscribe ProfileMgr_Events on",
        "Profiler.ProfileMgr profiles() -> cJsonValue",
        "subscribe ProfileMgr_Events on",
        "MainApp.MainApp inForeground() -> bool",
        "Profiler.Profiler mKeyToString(MKey::MKey_t 1) -> QString",
        "VGFSettings.Settings getPropertyBool(const QString \"profiler/autoScannedForGames\", bool false) -> "
        "bool",
        "MainUI.MainUI raiseDeviceBar()",
    };
    QCOMPARE(callsOf(fixture.host), expected);
}

void ViewSceneTest::hostSeesNoModesOfADeviceWithoutThem()
{
    ViewFixture fixture;
    fixture.setManifest(makeManifest("<controls><control id='G1'/></controls>"));
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    fixture.host.clear();
    fixture.host.publishDeviceTransformEnd();
    QCOMPARE(fixture.host.takeCalls(),
        QStringList({"getMState(\"pad\")", "profiles()",
            "getPropertyBool(\"profiler/autoScannedForGames\", false)", "raiseDeviceBar()"}));
    QCOMPARE(fixture.items<cGraphicsItemGroup>().size(), 0);
    QVERIFY(fixture.key("G1"));
}

void ViewSceneTest::endWithoutInitBuildsNothing()
{
    ViewFixture fixture;
    fixture.host.clear();
    QVERIFY(fixture.call("onDeviceTransformEnd"));
    QCOMPARE(fixture.host.takeLog(), QStringList());
    QVERIFY(fixture.scene->items().isEmpty());
}

void ViewSceneTest::endWithoutCanvasBuildsNothing()
{
    ViewFixture fixture;
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    fixture.canvas.reset();
    fixture.host.clear();
    fixture.host.publishDeviceTransformEnd();
    QCOMPARE(fixture.host.takeLog(), QStringList());
    QCOMPARE(fixture.scene->items().size(), 1);
}

void ViewSceneTest::factsOfTheDeviceAreRead()
{
    ViewFixture fixture;
    fixture.mode = MKey::M3;
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.view.getDeviceCategory(), QString("pad"));
    QCOMPARE(fixture.view.getCurrentMState(), MKey::M3);
    QCOMPARE(fixture.view.getControlIds(), QStringList({"G1", "G2", "G3"}));
    QCOMPARE(fixture.view.getProfileId(), QString());
}

void ViewSceneTest::tooltipStandsInTheScene()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    cTooltip* const tooltip = fixture.item<cTooltip>();
    QVERIFY(tooltip);
    QCOMPARE(tooltip->parentItem(), fixture.rootItem());
    QVERIFY(!tooltip->isVisible());
    Q_EMIT fixture.key("G1")->showTooltip(QPointF(100, 40.5), "a tip");
    QVERIFY(tooltip->isVisible());
    QCOMPARE(tooltip->pos(), QPointF(115, 40.5));
}

void ViewSceneTest::overlayIsForOneModelAlone_data()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<bool>("hasOverlay");
    QTest::newRow("K13") << QByteArray("Veltrano.Gaming.LeftHandedController.K13") << true;
    QTest::newRow("small letters") << QByteArray("veltrano.gaming.lefthandedcontroller.k13") << false;
    QTest::newRow("other") << QByteArray("Veltrano.Gaming.LeftHandedController.K14") << false;
    QTest::newRow("none") << QByteArray("") << false;
}

void ViewSceneTest::overlayIsForOneModelAlone()
{
    QFETCH(QByteArray, model);
    QFETCH(bool, hasOverlay);
    QDir::setSearchPaths("K13Device", {QStringLiteral(PROJECT_FOLDER "/host/devices/K13Device")});
    ViewFixture fixture;
    // The category plays no part.
    fixture.open(makeManifest("", model.constData(), "Veltrano.Gaming.Mouse"));
    QDir::setSearchPaths("K13Device", {});
    QList<QGraphicsPixmapItem*> pictures;
    for (QGraphicsPixmapItem* item : fixture.items<QGraphicsPixmapItem>()) {
        if (item->parentItem() == fixture.rootItem())
            pictures.append(item);
    }
    QCOMPARE(pictures.size(), hasOverlay ? 1 : 0);
    if (hasOverlay) {
        QCOMPARE(pictures.constFirst()->pos(), QPointF(820, 461));
        QCOMPARE(pictures.constFirst()->opacity(), 0.3);
        QVERIFY(!pictures.constFirst()->pixmap().isNull());
    }
}

void ViewSceneTest::modeButtonsStandAndTheCurrentOnePulsates()
{
    ViewFixture fixture;
    fixture.mode = MKey::M2;
    fixture.open(makeManifest(PlainDevice));
    cGraphicsItemGroup* const group = fixture.item<cGraphicsItemGroup>();
    QVERIFY(group);
    QCOMPARE(group->parentItem(), fixture.rootItem());
    QCOMPARE(fixture.items<cGraphicsItem>().size(), 3);
    QCOMPARE(fixture.modeButton("M1")->pos(), QPointF(20, 10));
    QCOMPARE(fixture.modeButton("M3")->pos(), QPointF(60, 10));
    QCOMPARE(fixture.modeButton("M3")->parentItem(), fixture.rootItem());
    QCOMPARE(group->itemByID("M3"), fixture.modeButton("M3"));
    QCOMPARE(fixture.selectedModes(), QStringList({"M2"}));
    QCOMPARE(fixture.pulsatingModes(), QStringList({"M2"}));

    group->onClicked("M3");
    QCOMPARE(fixture.host.takeCalls(), QStringList({"stringToMKey(\"M3\")", "setMState(\"pad\", 2)"}));
}

void ViewSceneTest::modeButtonsStandStillInTheBackground()
{
    ViewFixture fixture;
    fixture.isInForeground = false;
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.selectedModes(), QStringList({"M1"}));
    QCOMPARE(fixture.pulsatingModes(), QStringList());
}

void ViewSceneTest::unknownModeSelectsNothing()
{
    ViewFixture fixture;
    fixture.host.answer("mKeyToString", QString("M9"));
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.selectedModes(), QStringList());
    QCOMPARE(fixture.pulsatingModes(), QStringList());
}

void ViewSceneTest::deviceWithoutModesKeepsTheForeground()
{
    ViewFixture fixture;
    fixture.isInForeground = false;
    fixture.open(makeManifest(PlainDevice));
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    fixture.isInForeground = true;
    fixture.open(makeManifest("<controls/>"));
    QCOMPARE(fixture.items<cGraphicsItemGroup>().size(), 0);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    // What was read at the first scene still holds: the host is not asked for what follows.
    fixture.host.answer("inForeground", [](const RecordedCall&) { return QVariant(); });
    fixture.open(makeManifest(PlainDevice));
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.selectedModes(), QStringList({"M2"}));
    QCOMPARE(fixture.pulsatingModes(), QStringList());
}

void ViewSceneTest::glowTakesTheTypeOfItsOwnNumber()
{
    // Three glows of one type each, and a fourth that has a type of its own number.
    ViewFixture fixture;
    fixture.open(
        makeManifest("<pulseGlows>"
                     "<pulseGlow x='1' y='0'><types><type name='a'/><type name='b'/></types></pulseGlow>"
                     "<pulseGlow x='2' y='0'><types><type name='a'/><type name='b'/></types></pulseGlow>"
                     "<pulseGlow x='3' y='0'><types><type name='a'/></types></pulseGlow>"
                     "<pulseGlow x='4' y='0'><types><type name='a'/><type name='b'/><type name='c'/><type "
                     "name='d'/></types>"
                     "</pulseGlow></pulseGlows>"));
    // Of all glows those light whose one type fits.
    const auto lit = [&fixture](const char* type) {
        fixture.host.answer("getMacroTypeByID",
            [type](const RecordedCall&) { return QVariant::fromValue(makeMacroType({QString(type)})); });
        fixture.call("onStartGkeyPulsate", Q_ARG(cJsonValue, makeMacro("{1}", "Jump")));
        const QStringList places = fixture.litGlows();
        fixture.call("onStopGkeyPulsate");
        return places;
    };
    QCOMPARE(lit("a"), QStringList({"1"}));
    QCOMPARE(lit("b"), QStringList({"2"}));
    QCOMPARE(lit("c"), QStringList());
    QCOMPARE(lit("d"), QStringList({"4"}));
    // The third has no third type; what it reads is the empty one.
    QCOMPARE(lit(""), QStringList({"3"}));
}

void ViewSceneTest::glowWithoutTypesIsLeftOut()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<pulseGlows><pulseGlow x='1' y='0'/><pulseGlow x='2' y='0'><types/></pulseGlow>"
                     "</pulseGlows>"));
    QCOMPARE(fixture.items<cPulseGlowImage>().size(), 0);
    QCOMPARE(connections(*fixture.macroList(), SIGNAL(singleMacroStartDrag(cJsonValue))), 0);
    QCOMPARE(connections(*fixture.macroList(), SIGNAL(singleMacroEndDrag())), 0);
}

void ViewSceneTest::eachGlowConnectsTheListOnce()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<pulseGlows>"
                              "<pulseGlow><types><type name='a'/></types></pulseGlow><pulseGlow/>"
                              "<pulseGlow><types><type name='a'/></types></pulseGlow>"
                              "<pulseGlow><types><type name='a'/></types></pulseGlow></pulseGlows>"));
    QCOMPARE(fixture.items<cPulseGlowImage>().size(), 3);
    QCOMPARE(connections(*fixture.macroList(), SIGNAL(singleMacroStartDrag(cJsonValue))), 3);
    QCOMPARE(connections(*fixture.macroList(), SIGNAL(singleMacroEndDrag())), 3);
    // Three slots, each for three glows.
    Q_EMIT fixture.macroList()->singleMacroStartDrag(makeMacro("{1}", "Jump"));
    QCOMPARE(fixture.host.takeCalls().size(), 9);
}

void ViewSceneTest::glowsAreHiddenAtTheirPlaces()
{
    ViewFixture fixture;
    TestPictures pictures;
    const QString path = pictures.add("glow.png", filledPicture(12, 13, Qt::red));
    fixture.open(
        makeManifest(qPrintable(QStringLiteral("<pulseGlows><pulseGlow image='%1' x='51' y='-52'><types>"
                                               "<type name='a'/></types></pulseGlow></pulseGlows>")
                                    .arg(path))));
    const cPulseGlowImage* const glow = fixture.item<cPulseGlowImage>();
    QVERIFY(glow);
    QCOMPARE(glow->parentItem(), fixture.rootItem());
    QCOMPARE(glow->pos(), QPointF(51, -52));
    QCOMPARE(glow->pixmap().size(), QSize(12, 13));
    QVERIFY(!glow->isVisible());
}

void ViewSceneTest::framesAreShownAtTheEnd()
{
    ViewFixture fixture;
    fixture.canvas->show();
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    bool wasHidden = false;
    fixture.host.answer("mKeyToString", [&](const RecordedCall&) {
        wasHidden = !fixture.commandFrame()->isVisible();
        return QVariant(QString("M1"));
    });
    bool wasShown = false;
    fixture.host.answer(
        "raiseDeviceBar", [&](const RecordedCall&) { wasShown = fixture.commandFrame()->isVisible(); });
    fixture.host.publishDeviceTransformEnd();
    QVERIFY(wasHidden);
    QVERIFY(wasShown);
}

void ViewSceneTest::deinitTakesItAllAway()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.open(makeManifest(PlainDevice));
    fixture.showProfile("{P}");
    QVERIFY(fixture.label("G1"));
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QVERIFY(fixture.scene->items().isEmpty());
    QVERIFY(!fixture.macroList());
    QVERIFY(!fixture.syncButton());
    QVERIFY(!fixture.canvas->findChild<cSearchBox*>());
    // And nothing is heard any more.
    fixture.host.clear();
    fixture.host.publishProfileSelectionChanging("{Q}");
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    fixture.host.publishProfilesToGoDeviceBusy("name", "");
    fixture.host.publishMacroAssigned("{P}", "pad", "{1}", MKey::M1, "G1");
    QCOMPARE(fixture.host.takeCalls(), QStringList());
    // Once more, with nothing left.
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
}

void ViewSceneTest::deinitKeepsItsOrder()
{
    ViewFixture fixture;
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G1", "{1}");
    fixture.assign("{P}", "G3", "{1}");
    fixture.open(makeManifest(PlainDevice));
    fixture.showProfile("{P}");
    const auto noteEnd = [&fixture](QObject* object, const char* name) {
        QObject::connect(object, &QObject::destroyed, [&fixture, name] { fixture.host.note(name); });
    };
    noteEnd(fixture.label("G1"), "label G1");
    noteEnd(fixture.label("G3"), "label G3");
    noteEnd(fixture.key("G1"), "key G1");
    noteEnd(fixture.key("G2"), "key G2");
    noteEnd(fixture.key("G3"), "key G3");
    noteEnd(fixture.item<cGraphicsItemGroup>(), "modes");
    noteEnd(fixture.macroList(), "list");
    noteEnd(fixture.item<cTooltip>(), "tooltip of the root item");
    noteEnd(fixture.commandFrame(), "command frame");
    fixture.host.clear();
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    // A cleared key asks the host about no command.
    const QString clearedKey =
        "Profiler.ProfileMgr getMacroByID(QString \"{P}\", QString \"\") -> cJsonValue";
    QCOMPARE(callsOf(fixture.host),
        QStringList({"label G1", clearedKey, "label G3", clearedKey, "key G1", "key G2", "key G3", "modes",
            "unsubscribe Profiler_Events", "unsubscribe ProfileMgr_Events", "list",
            "tooltip of the root item",
            // The list of profiles goes with its frame.
            "unsubscribe ProfileMgr_Events", "command frame", "unsubscribe ProfileMgr_Events",
            "unsubscribe Profiler_Events", "unsubscribe DevMgr_Events", "unsubscribe ProfilesToGo_Events",
            "unsubscribe MainUI_Events", "unsubscribe MainApp_Events"}));
}

void ViewSceneTest::sceneIsBuiltAnewAfterDeinit()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const int items = fixture.scene->items().size();
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.scene->items().size(), items);
    QCOMPARE(fixture.view.getControlIds().size(), 3);
}

void ViewSceneTest::secondEndBuildsASecondTime()
{
    // The host ends a transform once; if it doesn't, nothing breaks when the view goes.
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    fixture.host.publishDeviceTransformEnd();
    QCOMPARE(fixture.items<Gkey>().size(), 6);
    QCOMPARE(fixture.view.getControlIds().size(), 3);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(fixture.items<Gkey>().size(), 0);
}

void ViewSceneTest::emptyManifestGivesPanelsWithoutKeys_data()
{
    QTest::addColumn<QByteArray>("manifest");
    QTest::newRow("no manifest") << QByteArray();
    QTest::newRow("no content") << QByteArray("<device/>");
    QTest::newRow("no controls") << makeManifest("");
    QTest::newRow("empty lists") << makeManifest("<mstates/><pulseGlows/><controls/>");
    QTest::newRow("foreign elements") << makeManifest("<mstates><x/></mstates><pulseGlows><x/></pulseGlows>"
                                                      "<controls><x/></controls>");
}

void ViewSceneTest::emptyManifestGivesPanelsWithoutKeys()
{
    QFETCH(QByteArray, manifest);
    ViewFixture fixture;
    fixture.open(manifest);
    QCOMPARE(fixture.items<Gkey>().size(), 0);
    QCOMPARE(fixture.items<cGraphicsItemGroup>().size(), 0);
    QCOMPARE(fixture.items<cPulseGlowImage>().size(), 0);
    QCOMPARE(fixture.view.getControlIds(), QStringList());
    QVERIFY(fixture.macroList());
    QVERIFY(fixture.item<cGraphicsText>());
    QVERIFY(fixture.item<cTooltip>());
    fixture.showProfile("{P}");
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.labels(), QStringList());
}

void ViewSceneTest::missingServicesStillGiveAScene()
{
    ViewFixture fixture;
    fixture.setManifest(makeManifest(PlainDevice));
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    for (QLatin1String service : {ServiceNames::Profiler, ServiceNames::MainApp, ServiceNames::MainUI})
        fixture.host.remove(service);
    {
        const ExpectedMessage mode(QtCriticalMsg, "Failed to call 'getMState' on service Profiler.Profiler");
        const ExpectedMessage name(
            QtCriticalMsg, "Failed to call 'mKeyToString' on service Profiler.Profiler");
        const ExpectedMessage foreground(
            QtCriticalMsg, "Failed to call 'inForeground' on service MainApp.MainApp");
        const ExpectedMessage bar(QtCriticalMsg, "Failed to call 'raiseDeviceBar' on service MainUI.MainUI");
        fixture.host.publishDeviceTransformEnd();
    }
    QCOMPARE(fixture.items<Gkey>().size(), 3);
    QCOMPARE(fixture.selectedModes(), QStringList());
    QVERIFY(fixture.macroList());
}

VELTRANO_TEST_MAIN(ViewSceneTest)
#include "ViewSceneTest.moc"
