#include "ViewFixture.h"

#include <cGraphicsItem.h>
#include <cGraphicsItemGroup.h>
#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cPulseGlowImage.h>
#include <cTooltip.h>
#include <Gkey.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDir>
#include <QGraphicsPixmapItem>

/// What the view makes of a record, apart from its keys.
class ViewSceneTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
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

    void emptyManifestGivesPanelsWithoutKeys_data();
    void emptyManifestGivesPanelsWithoutKeys();
};

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

VELTRANO_TEST_MAIN(ViewSceneTest)
#include "ViewSceneTest.moc"
