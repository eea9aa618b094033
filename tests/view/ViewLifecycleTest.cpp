#include <cMacroBindingView.h>
#include <EventNames.h>
#include <RecordingHost.h>
#include <ServiceNames.h>
#include <SingleShots.h>
#include <TestCase.h>

#include <QDomDocument>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPen>

#include <functional>
#include <memory>

namespace {

const QRectF CanvasRect(-10, 20, 960, 540);

/// A canvas as the host has one. Its part of the scene differs from what the scene itself would say.
class Canvas
{
public:
    Canvas()
        : view(new QGraphicsView(&scene))
    {
        view->setSceneRect(CanvasRect);
    }

    QGraphicsScene scene;
    std::unique_ptr<QGraphicsView> view;
};

cJsonValue viewInfoFor(const char* deviceModel)
{
    cJsonValue info;
    info["device_model"] = deviceModel;
    return info;
}

const QStringList InitLog {
    "require DevMgr.DevMgr 1",
    "DevMgr.DevMgr metaData(const QString \"K13\") -> QDomElement",
    "subscribe MainUI_Events on",
    "subscribe MainApp_Events on",
    "publish MainUI_Events DeviceTransformBegin(cJsonValue "
    "{\"device_model\":\"\",\"profiler\":{\"category\":\"\"}})",
};
const QStringList DeinitLog {
    "unsubscribe MainUI_Events",
    "unsubscribe MainApp_Events",
};

/// Hears the beginning of the transform.
class TransformListener : public QObject
{
    Q_OBJECT

public:
    std::function<void(const cJsonValue&)> onBegin;

public Q_SLOTS:
    void onDeviceTransformBegin(const cJsonValue& metadata) { onBegin(metadata); }
};

} // namespace

class ViewLifecycleTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initWithoutUsableCanvasChangesNothing();
    void initDoesItsStepsInOrder();
    void initMakesThePlainRootItem();
    void initArmsOneSingleShot();
    void initReadsTheModelAndLeavesTheRecordAlone();
    void transformBeginsWhenAllElseIsInPlace();
    void transformBeginCarriesACopyOfTheMetadata();
    void initWithoutServicesStillBringsTheViewUp();
    void activationDoesNothing();
    void helpIsRegisteredEachTimeItIsAskedFor();
    void deinitWithoutInitIsHarmless();
    void deinitBeforeTheEndOfTheTransformLeavesTheScene();
    void secondDeinitIsHarmless();
    void nextInitUsesItsOwnCanvas();
    void canvasDeletedBeforeDeinit_data();
    void canvasDeletedBeforeDeinit();
    void viewDeletedWhileItsTimerRuns();
};

void ViewLifecycleTest::initWithoutUsableCanvasChangesNothing()
{
    RecordingHost host;
    const Canvas canvas;
    QGraphicsView withoutScene;
    cMacroBindingView view;
    const int timersBefore = singleShots(250);
    host.clear();
    QVERIFY(!view.init(viewInfoFor("K13"), nullptr));
    QVERIFY(!view.init(viewInfoFor("K13"), &withoutScene));
    QCOMPARE(host.takeLog(), QStringList());
    QCOMPARE(singleShots(250), timersBefore);

    // Nor does it disturb a view that is up.
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    host.clear();
    const int timers = singleShots(250);
    QVERIFY(!view.init(viewInfoFor("other"), nullptr));
    QVERIFY(!view.init(viewInfoFor("other"), &withoutScene));
    QCOMPARE(host.takeLog(), QStringList());
    QCOMPARE(singleShots(250), timers);
    QCOMPARE(canvas.scene.items().size(), 1);
}

void ViewLifecycleTest::initDoesItsStepsInOrder()
{
    RecordingHost host;
    const Canvas canvas;
    cMacroBindingView view;
    host.clear();
    int itemsWhenMetadataIsRead = -1;
    host.answer(
        "metaData", [&](const RecordedCall&) { itemsWhenMetadataIsRead = canvas.scene.items().size(); });
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    QCOMPARE(host.takeLog(), InitLog);
    QCOMPARE(itemsWhenMetadataIsRead, 0);
}

void ViewLifecycleTest::initMakesThePlainRootItem()
{
    RecordingHost host;
    const Canvas canvas;
    cMacroBindingView view;
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    QCOMPARE(canvas.scene.items().size(), 1);
    const auto* root = qgraphicsitem_cast<QGraphicsRectItem*>(canvas.scene.items().constFirst());
    QVERIFY(root);
    QCOMPARE(root->rect(), CanvasRect);
    QCOMPARE(root->pos(), QPointF(0, 0));
    QCOMPARE(root->parentItem(), nullptr);
    QCOMPARE(root->pen(), QGraphicsRectItem().pen());
    QCOMPARE(root->brush(), QBrush());
}

void ViewLifecycleTest::initArmsOneSingleShot()
{
    RecordingHost host;
    const Canvas canvas;
    cMacroBindingView view;
    const int timersBefore = singleShots(250);
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    QCOMPARE(singleShots(250), timersBefore + 1);
}

void ViewLifecycleTest::initReadsTheModelAndLeavesTheRecordAlone()
{
    RecordingHost host;
    const Canvas canvas;
    cMacroBindingView view;
    const cJsonValue empty;
    QVERIFY(view.init(empty, canvas.view.get()));
    QVERIFY(empty.isNull());
    const cJsonValue text("no record");
    QVERIFY(view.init(text, canvas.view.get()));
    QCOMPARE(text.toString(), QString("no record"));
    QVERIFY(view.init(viewInfoFor("Model"), canvas.view.get()));
    QStringList models;
    for (const RecordedCall& call : host.calls()) {
        if (call.operation == "metaData")
            models.append(call.values.constFirst().toString());
    }
    QCOMPARE(models, QStringList({"", "", "Model"}));
}

void ViewLifecycleTest::transformBeginsWhenAllElseIsInPlace()
{
    RecordingHost host;
    const Canvas canvas;
    cMacroBindingView view;
    TransformListener listener;
    const int timersBefore = singleShots(250);
    int heard = 0;
    listener.onBegin = [&](const cJsonValue&) {
        ++heard;
        QCOMPARE(canvas.scene.items().size(), 1);
        QCOMPARE(singleShots(250), timersBefore + 1);
    };
    host.subscribe(EventSources::MainUI, &listener, Events::HandlerPrefix);
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    QCOMPARE(heard, 1);
}

void ViewLifecycleTest::transformBeginCarriesACopyOfTheMetadata()
{
    QDomDocument manifest;
    QVERIFY(manifest.setContent(
        QByteArray("<device model='K13'><profiler category='pad'/><macrobindingmetadata viewid='v'>"
                   "<transform scale='0.5' x='3' y='-4'/></macrobindingmetadata></device>")));
    RecordingHost host;
    host.answer("metaData", manifest.documentElement());
    const Canvas canvas;
    cMacroBindingView view;
    TransformListener listener;
    cJsonValue heard;
    listener.onBegin = [&heard](const cJsonValue& metadata) {
        heard = metadata;
        // What a subscriber does to the record must stay with it.
        const_cast<cJsonValue&>(metadata)["view_id"] = "changed";
    };
    host.subscribe(EventSources::MainUI, &listener, Events::HandlerPrefix);
    host.clear();
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    QCOMPARE(heard, view.readDeviceMetadata("K13"));
    QCOMPARE(heard["view_id"].toString(), QString("v"));
    QVERIFY(host.takeLog().contains(
        "publish MainUI_Events DeviceTransformBegin(cJsonValue {\"device_model\":\"K13\",\"pos_x\":3,"
        "\"pos_y\":-4,\"profiler\":{\"category\":\"pad\"},\"scale\":0.5,\"view_id\":\"v\"})"));
}

void ViewLifecycleTest::initWithoutServicesStillBringsTheViewUp()
{
    RecordingHost host;
    for (QLatin1String service : {ServiceNames::ECMAScriptMgr, ServiceNames::DevMgr, ServiceNames::HelpMgr})
        host.remove(service);
    const Canvas canvas;
    {
        const ExpectedMessage scripts(
            QtCriticalMsg, "Failed to call 'newObject' on service ECMAScript.ECMAScriptMgr");
        const ExpectedMessage devices(QtCriticalMsg, "Failed to call 'metaData' on service DevMgr.DevMgr");
        const ExpectedMessage help(QtCriticalMsg, "Failed to call 'registerHelp' on service Help.HelpMgr");
        const ExpectedMessage noHelp(
            QtCriticalMsg, "Failed to call 'unRegisterHelp' on service Help.HelpMgr");
        cMacroBindingView view;
        host.clear();
        QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
        QCOMPARE(host.takeLog(), InitLog);
        QCOMPARE(canvas.scene.items().size(), 1);
        host.publishRegisterHelpProvider(10);
    }
}

void ViewLifecycleTest::activationDoesNothing()
{
    RecordingHost host;
    const Canvas canvas;
    cMacroBindingView view;
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    host.clear();
    QVERIFY(view.activate(viewInfoFor("K13")));
    QVERIFY(view.deactivate(viewInfoFor("K13")));
    QVERIFY(view.activate(cJsonValue()));
    QVERIFY(view.deactivate(cJsonValue()));
    QCOMPARE(host.takeLog(), QStringList());
}

void ViewLifecycleTest::helpIsRegisteredEachTimeItIsAskedFor()
{
    RecordingHost host;
    const Canvas canvas;
    cMacroBindingView view;
    const auto registrations = [&host] {
        host.clear();
        host.publishRegisterHelpProvider(10);
        return host.calls().size();
    };
    QCOMPARE(registrations(), 1);
    QCOMPARE(registrations(), 1);
    // Whether the view is shown makes no difference.
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    QCOMPARE(registrations(), 1);
    QVERIFY(view.deinit(cJsonValue(), canvas.view.get()));
    QCOMPARE(registrations(), 1);
}

void ViewLifecycleTest::deinitWithoutInitIsHarmless()
{
    RecordingHost host;
    cMacroBindingView view;
    host.clear();
    QVERIFY(view.deinit(cJsonValue(), nullptr));
    QCOMPARE(host.takeLog(), DeinitLog);
}

void ViewLifecycleTest::deinitBeforeTheEndOfTheTransformLeavesTheScene()
{
    RecordingHost host;
    const Canvas canvas;
    const Canvas other;
    cMacroBindingView view;
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    const QList<QGraphicsItem*> items = canvas.scene.items();
    const int timers = singleShots(250);
    host.clear();
    // Neither argument is read.
    QVERIFY(view.deinit(viewInfoFor("other"), other.view.get()));
    QCOMPARE(host.takeLog(), DeinitLog);
    QCOMPARE(canvas.scene.items(), items);
    // The exit begins all the same, beside the enter that is still to come.
    QCOMPARE(singleShots(250), timers + 1);
}

void ViewLifecycleTest::secondDeinitIsHarmless()
{
    RecordingHost host;
    const Canvas canvas;
    cMacroBindingView view;
    QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    host.publishDeviceTransformEnd();
    QVERIFY(view.deinit(cJsonValue(), canvas.view.get()));
    host.clear();
    QVERIFY(view.deinit(cJsonValue(), canvas.view.get()));
    // The sources of the scene come first again if there was one.
    const QStringList log = host.takeLog();
    QCOMPARE(log.mid(log.size() - DeinitLog.size()), DeinitLog);
}

void ViewLifecycleTest::nextInitUsesItsOwnCanvas()
{
    RecordingHost host;
    const Canvas first;
    const Canvas second;
    second.view->setSceneRect(0, 0, 100, 50);
    cMacroBindingView view;
    QVERIFY(view.init(viewInfoFor("K13"), first.view.get()));
    QVERIFY(view.deinit(cJsonValue(), first.view.get()));
    const int itemsOfFirst = first.scene.items().size();
    host.clear();
    QVERIFY(view.init(viewInfoFor("K13"), second.view.get()));
    QCOMPARE(host.takeLog(), InitLog);
    QCOMPARE(first.scene.items().size(), itemsOfFirst);
    QCOMPARE(second.scene.items().size(), 1);
    const auto* root = qgraphicsitem_cast<QGraphicsRectItem*>(second.scene.items().constFirst());
    QVERIFY(root);
    QCOMPARE(root->rect(), QRectF(0, 0, 100, 50));
}

void ViewLifecycleTest::canvasDeletedBeforeDeinit_data()
{
    QTest::addColumn<bool>("transformed");
    QTest::addColumn<bool>("withScene");
    QTest::newRow("canvas, transforming") << false << false;
    QTest::newRow("canvas and scene, transforming") << false << true;
    QTest::newRow("canvas, shown") << true << false;
    QTest::newRow("canvas and scene, shown") << true << true;
}

void ViewLifecycleTest::canvasDeletedBeforeDeinit()
{
    QFETCH(bool, transformed);
    QFETCH(bool, withScene);
    RecordingHost host;
    // With a deinit() before the view goes, and without one.
    for (const bool isTakenDown : {true, false}) {
        auto scene = std::make_unique<QGraphicsScene>();
        auto canvas = std::make_unique<QGraphicsView>(scene.get());
        cMacroBindingView view;
        QVERIFY(view.init(viewInfoFor("K13"), canvas.get()));
        if (transformed)
            host.publishDeviceTransformEnd();
        canvas.reset();
        if (withScene)
            scene.reset();
        if (!isTakenDown)
            continue;
        // The panes' time comes after the canvas has gone.
        QTRY_COMPARE(singleShots(250), 0);
        QVERIFY(view.deinit(cJsonValue(), nullptr));
    }
}

void ViewLifecycleTest::viewDeletedWhileItsTimerRuns()
{
    RecordingHost host;
    const Canvas canvas;
    {
        cMacroBindingView view;
        QVERIFY(view.init(viewInfoFor("K13"), canvas.view.get()));
    }
    // The single shot ends on nothing.
    QTRY_COMPARE(singleShots(250), 0);
}

VELTRANO_TEST_MAIN(ViewLifecycleTest)
#include "ViewLifecycleTest.moc"
