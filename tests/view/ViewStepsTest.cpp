#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cClickableLabel.h>
#include <cGraphicsItemGroup.h>
#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cProfileBar.h>
#include <cProfileTrashcanGraphicsItem.h>
#include <cSearchBox.h>
#include <Gkey.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QFrame>
#include <QGraphicsPixmapItem>
#include <QVector>

#include <utility>

/// onDeviceTransformEnd(): which steps it takes, in which order.
class ViewStepsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hostSeesTheStepsInOrder();
    void stepsMakeTheirThingsInOrder();
    void panesAndMaskLieUnderEverythingElse();
    void eachSignalIsHeardOnce();
    void hostSeesNoModesOfADeviceWithoutThem();

    void endWithoutInitBuildsNothing();
    void endWithoutCanvasBuildsNothing();
    void secondEndBuildsASecondTime();
    void framesAreShownAtTheEnd();
    void missingServicesStillGiveAScene();
};

void ViewStepsTest::hostSeesTheStepsInOrder()
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

void ViewStepsTest::stepsMakeTheirThingsInOrder()
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

void ViewStepsTest::panesAndMaskLieUnderEverythingElse()
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

void ViewStepsTest::eachSignalIsHeardOnce()
{
    const WholeScene scene;
    const auto* const newCommandButton =
        scene.commandFrame()->findChild<cClickableLabel*>(QString(), Qt::FindDirectChildrenOnly);
    const QVector<std::pair<const QObject*, QList<const char*>>> table {
        {scene.key("G1"),
            {SIGNAL(edit(QString)), SIGNAL(useDefault(QString)), SIGNAL(useGeneric(QString)),
                SIGNAL(unassign(QString)), SIGNAL(macroDropped(QString, QString)),
                SIGNAL(macroMoved(QString)), SIGNAL(showTooltip(QPointF, QString)),
                SIGNAL(assignmentStartDrag(QString)), SIGNAL(assignmentEndDrag())}},
        {scene.syncButton(), {SIGNAL(clicked()), SIGNAL(enter()), SIGNAL(leave())}},
        {newCommandButton, {SIGNAL(hoverIn()), SIGNAL(hoverOut()), SIGNAL(clicked())}},
        {scene.macroList(),
            {SIGNAL(editMacro(cJsonValue)), SIGNAL(hoverIn()), SIGNAL(hoverOut()),
                SIGNAL(MacroSelected(cJsonValue)), SIGNAL(MacroUnSelected(cJsonValue)), SIGNAL(populating()),
                SIGNAL(populated()), SIGNAL(singleMacroStartDrag(cJsonValue)), SIGNAL(singleMacroEndDrag())}},
        {scene.commandFrame()->findChild<cSearchBox*>(), {SIGNAL(textEdited(QString))}},
        {scene.item<cProfileBar>(),
            {SIGNAL(useDefaultForAllGkeys(QString)), SIGNAL(useGenericForAllGkeys(QString)),
                SIGNAL(unassignAllGkeys(QString)), SIGNAL(printProfile(QString)), SIGNAL(hoverOut()),
                SIGNAL(hoverIn())}},
        {scene.item<cGraphicsItemGroup>(), {SIGNAL(itemSelected(QString))}},
        {scene.item<cProfileTrashcanGraphicsItem>(),
            {SIGNAL(profilesDropped(QStringList)), SIGNAL(macrosDropped(QStringList)),
                SIGNAL(assignmentsDropped(QStringList))}}};
    for (const auto& [sender, heard] : table) {
        QVERIFY(sender);
        for (const char* signal : heard)
            QVERIFY2(connections(*sender, signal) == 1, signal);
    }
}

void ViewStepsTest::hostSeesNoModesOfADeviceWithoutThem()
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

void ViewStepsTest::endWithoutInitBuildsNothing()
{
    ViewFixture fixture;
    fixture.host.clear();
    QVERIFY(fixture.call("onDeviceTransformEnd"));
    QCOMPARE(fixture.host.takeLog(), QStringList());
    QVERIFY(fixture.scene->items().isEmpty());
}

void ViewStepsTest::endWithoutCanvasBuildsNothing()
{
    ViewFixture fixture;
    QVERIFY(fixture.view.init(cJsonValue(), fixture.canvas.get()));
    fixture.canvas.reset();
    fixture.host.clear();
    fixture.host.publishDeviceTransformEnd();
    QCOMPARE(fixture.host.takeLog(), QStringList());
    QCOMPARE(fixture.scene->items().size(), 1);
}

void ViewStepsTest::secondEndBuildsASecondTime()
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

void ViewStepsTest::framesAreShownAtTheEnd()
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

void ViewStepsTest::missingServicesStillGiveAScene()
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

VELTRANO_TEST_MAIN(ViewStepsTest)
#include "ViewStepsTest.moc"
