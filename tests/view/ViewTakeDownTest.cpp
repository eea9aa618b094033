#include "ViewFixture.h"

#include <cGraphicsItemGroup.h>
#include <cMacroList.h>
#include <cSearchBox.h>
#include <cTooltip.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <TestCase.h>

#include <QFrame>
#include <QGraphicsEllipseItem>
#include <QLabel>
#include <QPointer>

/// What of the scene goes with the view, in which order, and what stays with the host.
class ViewTakeDownTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void deinitTakesItAllAway();
    void deinitKeepsItsOrder();
    void sceneIsBuiltAnewAfterDeinit();
    void hostKeepsItsCanvasAndItsScene();
    void hostKeepsItsRecords();
};

void ViewTakeDownTest::deinitTakesItAllAway()
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

void ViewTakeDownTest::deinitKeepsItsOrder()
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
    QCOMPARE(fixture.takeLog(),
        QStringList({"label G1", clearedKey, "label G3", clearedKey, "key G1", "key G2", "key G3", "modes",
            "unsubscribe Profiler_Events", "unsubscribe ProfileMgr_Events", "list",
            "tooltip of the root item",
            // The list of profiles goes with its frame.
            "unsubscribe ProfileMgr_Events", "command frame", "unsubscribe ProfileMgr_Events",
            "unsubscribe Profiler_Events", "unsubscribe DevMgr_Events", "unsubscribe ProfilesToGo_Events",
            "unsubscribe MainUI_Events", "unsubscribe MainApp_Events"}));
}

void ViewTakeDownTest::sceneIsBuiltAnewAfterDeinit()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const int items = fixture.scene->items().size();
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    fixture.open(makeManifest(PlainDevice));
    QCOMPARE(fixture.scene->items().size(), items);
    QCOMPARE(fixture.view.getControlIds().size(), 3);
}

void ViewTakeDownTest::hostKeepsItsCanvasAndItsScene()
{
    QGraphicsScene scene;
    auto* const device = new QGraphicsEllipseItem;
    scene.addItem(device);
    QGraphicsView canvas(&scene);
    const QPointer<QLabel> label(new QLabel("of the host", &canvas));
    {
        ViewFixture fixture;
        QVERIFY(fixture.view.init(cJsonValue(), &canvas));
        QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
        fixture.host.publishDeviceTransformEnd();
        QVERIFY(scene.items().size() > 10);
        QVERIFY(fixture.view.deinit(cJsonValue(), &canvas));
    }
    QCOMPARE(scene.items(), QList<QGraphicsItem*>({device}));
    QVERIFY(label);
    QCOMPARE(canvas.findChildren<QFrame*>(QString(), Qt::FindDirectChildrenOnly), QList<QFrame*>({label}));
}

void ViewTakeDownTest::hostKeepsItsRecords()
{
    ViewFixture fixture;
    const cJsonValue kept = makeMacro("{1}", "Jump");
    cJsonValue records;
    records.append(kept);
    // The very values of the host, as each of its answers carries them.
    fixture.host.answer("macros", [&](const RecordedCall&) { return QVariant::fromValue(records); });
    fixture.host.answer("getMacroByID", [&](const RecordedCall&) { return QVariant::fromValue(records[0]); });
    fixture.assign("{P}", "G1", "{1}");
    fixture.open();
    fixture.showProfile("{P}");
    QCOMPARE(fixture.labels(), QStringList("G1=Jump"));
    // What the plug-in makes of its copies does not reach the host.
    cJsonValue renamed = kept;
    renamed["name"] = "Leap";
    fixture.host.publishMacroChanged("{P}", renamed);
    QCOMPARE(fixture.labels(), QStringList("G1=Leap"));
    QCOMPARE(records[0], kept);
    // Nor does what the host makes of its own reach the plug-in before it is told.
    records[0]["name"] = "Hop";
    records[0]["display_name"] = "Hop";
    QCOMPARE(fixture.labels(), QStringList("G1=Leap"));
    fixture.host.publishMacroAssigned("{P}", "pad", "{1}", MKey::M1, "G1");
    QCOMPARE(fixture.labels(), QStringList("G1=Hop"));
}

VELTRANO_TEST_MAIN(ViewTakeDownTest)
#include "ViewTakeDownTest.moc"
