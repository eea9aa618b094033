#include "ViewFixture.h"

#include <cGraphicsItem.h>
#include <cGraphicsItemGroup.h>
#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cPulseGlowImage.h>
#include <cTooltip.h>
#include <Gkey.h>
#include <ServiceNames.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDir>
#include <QFrame>
#include <QGraphicsPixmapItem>

/// onDeviceTransformEnd(): what it makes of a record, in which order.
class ViewSceneTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hostSeesTheStepsInOrder();
    void stepsMakeTheirThingsInOrder();
    void panesAndMaskLieUnderEverythingElse();
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
    QCOMPARE(fixture.takeLog(), expected);
}

namespace {

const char* const DeviceWithAll = R"(
<mstates><mstate id="M1"/><mstate id="M2"/></mstates>
<pulseGlows><pulseGlow><types><type name="key"/></types></pulseGlow></pulseGlows>
<controls><control id="G1"/><control id="G2"/></controls>)";

/// The class of an item as far as it has a name at run time.
QString classOf(const QGraphicsItem& item)
{
    if (const auto* const object = dynamic_cast<const QObject*>(&item))
        return object->metaObject()->className();
    if (dynamic_cast<const cGraphicsText*>(&item))
        return "cGraphicsText";
    if (qgraphicsitem_cast<const QGraphicsPixmapItem*>(&item))
        return "QGraphicsPixmapItem";
    return "QGraphicsRectItem";
}

QStringList classesOf(const QObjectList& children)
{
    QStringList found;
    for (const QObject* child : children) {
        if (child->isWidgetType())
            found.append(child->metaObject()->className());
    }
    return found;
}

/// The view of a device with all that a device can have, whose panes came first.
class WholeScene : public ViewFixture
{
public:
    WholeScene()
    {
        setManifest(makeManifest(DeviceWithAll, "Veltrano.Gaming.LeftHandedController.K13"));
        view.init(cJsonValue(), canvas.get());
        call("onPaneAndMaskEnterAnimation");
        host.publishDeviceTransformEnd();
    }
};

} // namespace

void ViewSceneTest::stepsMakeTheirThingsInOrder()
{
    const WholeScene scene;
    QStringList ofTheDevice;
    for (const QGraphicsItem* item : scene.rootItem()->childItems())
        ofTheDevice.append(classOf(*item));
    QCOMPARE(ofTheDevice,
        QStringList({"Gkey", "Gkey", "cTooltip", "QGraphicsPixmapItem", "cGraphicsItemGroup", "cGraphicsItem",
            "cGraphicsItem", "cPulseGlowImage", "cProfileTrashcanGraphicsItem"}));
    QStringList ofTheScene;
    for (const QGraphicsItem* item : scene.scene->items(Qt::AscendingOrder)) {
        if (!item->parentItem())
            ofTheScene.append(classOf(*item));
    }
    QCOMPARE(ofTheScene,
        QStringList({"cScalablePixmap", "cPanel", "cPanel", "QGraphicsRectItem", "cGraphicsText"}));

    QStringList ofTheCanvas;
    for (const QFrame* frame : scene.canvas->findChildren<QFrame*>(QString(), Qt::FindDirectChildrenOnly))
        ofTheCanvas.append(QString("%1,%2").arg(frame->x()).arg(frame->y()));
    // Commands, profiles, the search for profiles.
    QCOMPARE(ofTheCanvas, QStringList({"38,157", "518,26", "349,69"}));
    QCOMPARE(classesOf(scene.commandFrame()->children()),
        QStringList({"QLabel", "cAnimatedPixmapWidget", "cClickableLabel", "cSearchBox", "cMacroList"}));
}

void ViewSceneTest::panesAndMaskLieUnderEverythingElse()
{
    const WholeScene scene;
    for (const QGraphicsItem* item : scene.scene->items()) {
        // What stands in another thing is that one's affair.
        if (item->parentItem() && item->parentItem() != scene.rootItem())
            continue;
        const QString type = classOf(*item);
        const qreal z = type == "cScalablePixmap" ? -80 : type == "cPanel" ? -60 : 0;
        QVERIFY2(item->zValue() == z, qPrintable(QString("%1 at %2").arg(type).arg(item->zValue())));
    }
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
