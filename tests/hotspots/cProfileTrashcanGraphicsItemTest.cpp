#include "DropEvents.h"

#include <cProfileTrashcanGraphicsItem.h>
#include <DragFormats.h>
#include <SceneEvents.h>
#include <SceneRedraws.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDragEnterEvent>
#include <QGraphicsScene>
#include <QGraphicsView>

namespace {

constexpr int Width = 48;
constexpr int Height = 56;
const QPointF Middle(24, 28);

/// What the item shows.
enum Look { Normal, Hover, Nothing, Something };

Look lookOf(QGraphicsItem& item)
{
    const QImage image = SceneEvents::painted(item, QSize(Width, Height));
    if (isFilled(image, image.rect(), Qt::red))
        return Normal;
    if (isFilled(image, image.rect(), Qt::blue))
        return Hover;
    return inkExtent(image).isNull() ? Nothing : Something;
}

/// All signals of a trash can, as they come.
class Receiver : public QObject
{
    Q_OBJECT

public:
    explicit Receiver(cProfileTrashcanGraphicsItem* trashcan)
    {
        // In the form in which the view connects.
        connect(
            trashcan, SIGNAL(profilesDropped(const QStringList&)), this, SLOT(profiles(const QStringList&)));
        connect(trashcan, SIGNAL(macrosDropped(const QStringList&)), this, SLOT(macros(const QStringList&)));
        connect(trashcan, SIGNAL(assignmentsDropped(const QStringList&)), this,
            SLOT(assignments(const QStringList&)));
    }

    QStringList calls;

public Q_SLOTS:
    void profiles(const QStringList& ids) { calls += "profiles " + ids.join('|'); }
    void macros(const QStringList& ids) { calls += "macros " + ids.join('|'); }
    void assignments(const QStringList& ids) { calls += "assignments " + ids.join('|'); }
};

class Trashcan : public cProfileTrashcanGraphicsItem
{
public:
    explicit Trashcan(const QPixmap& hover = filledPicture(Width, Height, Qt::blue))
        : cProfileTrashcanGraphicsItem(filledPicture(Width, Height, Qt::red), hover, nullptr)
    { }

    /// Whether the drag was accepted.
    bool enter(const QMimeData* data, Qt::DropAction proposed = Qt::CopyAction)
    {
        SceneDragEvent event(QEvent::GraphicsSceneDragEnter, data, proposed);
        dragEnterEvent(&event);
        return event.isAccepted() && event.dropAction() == proposed;
    }
    void leave()
    {
        SceneDragEvent event(QEvent::GraphicsSceneDragLeave, nullptr, Qt::CopyAction);
        dragLeaveEvent(&event);
    }
    bool drop(const QMimeData* data, Qt::DropAction proposed = Qt::CopyAction)
    {
        SceneDragEvent event(QEvent::GraphicsSceneDrop, data, proposed);
        dropEvent(&event);
        return event.isAccepted() && event.dropAction() == proposed;
    }
};

} // namespace

class cProfileTrashcanGraphicsItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void signalsStandInTheirOrder();
    void itemIsAsLargeAsTheNormalPicture();
    void acceptsDropsAndHoverEvents();
    void onlyTheDragBitShowsTheHoverPicture_data();
    void onlyTheDragBitShowsTheHoverPicture();
    void anotherStateIsDrawnAtOnce();
    void withoutHoverPictureTheNormalOneStays();
    void nullPicturesDrawNothing();
    void dragLightsThePictureUntilItLeaves();
    void refusedDragLightsThePictureToo();
    void dropPutsThePictureOutWhateverThePayload();
    void eachFormatIsSignalled();
    void severalCommandsAreTaken();
    void dropOfForeignDataIsAcceptedInSilence();
    void receiverSeesThePictureStillLit();
    void sceneMayBeTakenAwayDuringADrop();
    void dragGoesThroughTheScene();
    void refusedDragIsNotDroppedByTheScene();
};

void cProfileTrashcanGraphicsItemTest::signalsStandInTheirOrder()
{
    const QMetaObject& meta = cProfileTrashcanGraphicsItem::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Signal);
        methods += meta.method(i).methodSignature();
    }
    QCOMPARE(methods,
        QStringList({"profilesDropped(QStringList)", "macrosDropped(QStringList)",
            "assignmentsDropped(QStringList)"}));
}

void cProfileTrashcanGraphicsItemTest::itemIsAsLargeAsTheNormalPicture()
{
    const cProfileTrashcanGraphicsItem item(
        filledPicture(48, 56, Qt::red), filledPicture(90, 91, Qt::blue), nullptr);
    QCOMPARE(item.boundingRect(), QRectF(0, 0, 48, 56));
}

void cProfileTrashcanGraphicsItemTest::acceptsDropsAndHoverEvents()
{
    const Trashcan trashcan;
    QVERIFY(trashcan.acceptDrops());
    QVERIFY(trashcan.acceptHoverEvents());
}

void cProfileTrashcanGraphicsItemTest::onlyTheDragBitShowsTheHoverPicture_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("look");
    QTest::newRow("resting") << 1 << int(Normal);
    QTest::newRow("drag over") << 4 << int(Hover);
    QTest::newRow("both") << 5 << int(Hover);
    QTest::newRow("toggled") << 2 << int(Normal);
    QTest::newRow("toggled and drag over") << 6 << int(Hover);
    QTest::newRow("none") << 0 << int(Normal);
    QTest::newRow("higher bits") << 0x78 << int(Normal);
    QTest::newRow("all bits") << -1 << int(Hover);
}

void cProfileTrashcanGraphicsItemTest::onlyTheDragBitShowsTheHoverPicture()
{
    QFETCH(int, state);
    QFETCH(int, look);
    Trashcan trashcan;
    trashcan.setState(state);
    QCOMPARE(int(lookOf(trashcan)), look);
}

void cProfileTrashcanGraphicsItemTest::anotherStateIsDrawnAtOnce()
{
    QGraphicsScene scene(0, 0, 200, 200);
    auto* const trashcan = new Trashcan;
    scene.addItem(trashcan);
    SceneRedraws redraws(scene);
    QTRY_VERIFY(redraws.cover(trashcan->boundingRect()));
    redraws.clear();
    trashcan->setState(4);
    QTRY_VERIFY(redraws.cover(trashcan->boundingRect()));
}

void cProfileTrashcanGraphicsItemTest::withoutHoverPictureTheNormalOneStays()
{
    Trashcan trashcan {QPixmap()};
    trashcan.enter(DragFormats::makeMacros({"1"}).get());
    QCOMPARE(lookOf(trashcan), Normal);
}

void cProfileTrashcanGraphicsItemTest::nullPicturesDrawNothing()
{
    cProfileTrashcanGraphicsItem trashcan {QPixmap(), QPixmap(), nullptr};
    QCOMPARE(trashcan.boundingRect(), QRectF(0, 0, 0, 0));
    QCOMPARE(lookOf(trashcan), Nothing);
    trashcan.setState(4);
    QCOMPARE(lookOf(trashcan), Nothing);
}

void cProfileTrashcanGraphicsItemTest::dragLightsThePictureUntilItLeaves()
{
    Trashcan trashcan;
    QCOMPARE(lookOf(trashcan), Normal);
    QVERIFY(trashcan.enter(DragFormats::makeProfiles({"1"}).get()));
    QCOMPARE(lookOf(trashcan), Hover);
    trashcan.leave();
    QCOMPARE(lookOf(trashcan), Normal);
}

void cProfileTrashcanGraphicsItemTest::refusedDragLightsThePictureToo()
{
    Trashcan trashcan;
    QMimeData text;
    text.setText("#%1%2%3");
    QVERIFY(!trashcan.enter(&text));
    QCOMPARE(lookOf(trashcan), Hover);
    trashcan.leave();
    QVERIFY(!trashcan.enter(nullptr));
    QCOMPARE(lookOf(trashcan), Hover);
}

void cProfileTrashcanGraphicsItemTest::dropPutsThePictureOutWhateverThePayload()
{
    QMimeData text;
    text.setText("#%1%2%3");
    const auto macros = DragFormats::makeMacros({"1"});
    for (const QMimeData* data : {&text, macros.get()}) {
        Trashcan trashcan;
        trashcan.enter(data);
        QVERIFY(trashcan.drop(data));
        QCOMPARE(lookOf(trashcan), Normal);
    }
}

void cProfileTrashcanGraphicsItemTest::eachFormatIsSignalled()
{
    Trashcan trashcan;
    const Receiver receiver(&trashcan);
    QVERIFY(trashcan.drop(DragFormats::makeProfiles({"{1}"}).get()));
    QVERIFY(trashcan.drop(DragFormats::makeMacros({"{2}"}).get()));
    // The move has to come out of the drop: by it the key learns that it has to let go.
    QVERIFY(trashcan.drop(DragFormats::makeAssignment({"{3}", "G3"}).get(), Qt::MoveAction));
    QCOMPARE(receiver.calls, QStringList({"profiles {1}", "macros {2}", "assignments G3"}));
}

void cProfileTrashcanGraphicsItemTest::severalCommandsAreTaken()
{
    Trashcan trashcan;
    const Receiver receiver(&trashcan);
    const auto data = DragFormats::makeMacros({"{1}", "{2}", "{3}"});
    QVERIFY(trashcan.enter(data.get()));
    QVERIFY(trashcan.drop(data.get()));
    QCOMPARE(receiver.calls, QStringList({"macros {1}|{2}|{3}"}));
}

void cProfileTrashcanGraphicsItemTest::dropOfForeignDataIsAcceptedInSilence()
{
    Trashcan trashcan;
    const Receiver receiver(&trashcan);
    QMimeData text;
    text.setText("#%1%2%3");
    QVERIFY(trashcan.drop(&text));
    QVERIFY(trashcan.drop(nullptr));
    QCOMPARE(receiver.calls, QStringList());
}

void cProfileTrashcanGraphicsItemTest::receiverSeesThePictureStillLit()
{
    Trashcan trashcan;
    const auto data = DragFormats::makeMacros({"{1}"});
    trashcan.enter(data.get());
    Look during = Something;
    connect(
        &trashcan, &cProfileTrashcanGraphicsItem::macrosDropped, this, [&] { during = lookOf(trashcan); });
    trashcan.drop(data.get());
    QCOMPARE(during, Hover);
}

void cProfileTrashcanGraphicsItemTest::sceneMayBeTakenAwayDuringADrop()
{
    auto* trashcan = new Trashcan;
    QGraphicsScene scene;
    scene.addItem(trashcan);
    connect(trashcan, &cProfileTrashcanGraphicsItem::macrosDropped, this, [&] { delete trashcan; });
    QVERIFY(trashcan->drop(DragFormats::makeMacros({"{1}"}).get()));
    QVERIFY(scene.items().isEmpty());
}

void cProfileTrashcanGraphicsItemTest::dragGoesThroughTheScene()
{
    QGraphicsScene scene(0, 0, 400, 600);
    auto* trashcan = new Trashcan;
    scene.addItem(trashcan);
    trashcan->setPos(315, 501);
    QGraphicsView view(&scene);
    view.resize(500, 700);
    const QPoint inside = view.mapFromScene(trashcan->mapToScene(Middle));
    const QPoint outside = view.mapFromScene(100, 100);
    const Receiver receiver(trashcan);
    const auto data = DragFormats::makeProfiles({"{1}", "{2}"});
    const auto send = [&](auto&& event) {
        QApplication::sendEvent(view.viewport(), &event);
        return event.isAccepted();
    };

    send(QDragEnterEvent(outside, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier));
    QVERIFY(!send(QDragMoveEvent(outside, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier)));
    QVERIFY(send(QDragMoveEvent(inside, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier)));
    QCOMPARE(lookOf(*trashcan), Hover);
    send(QDragMoveEvent(outside, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier));
    QCOMPARE(lookOf(*trashcan), Normal);
    send(QDragMoveEvent(inside, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier));
    QCOMPARE(receiver.calls, QStringList());
    QVERIFY(send(QDropEvent(inside, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier)));
    QCOMPARE(receiver.calls, QStringList({"profiles {1}|{2}"}));
    QCOMPARE(lookOf(*trashcan), Normal);
}

void cProfileTrashcanGraphicsItemTest::refusedDragIsNotDroppedByTheScene()
{
    QGraphicsScene scene(0, 0, 100, 100);
    auto* trashcan = new Trashcan;
    scene.addItem(trashcan);
    QGraphicsView view(&scene);
    const QPoint inside = view.mapFromScene(trashcan->mapToScene(Middle));
    QMimeData text;
    text.setText("#%1%2%3");
    QDragEnterEvent enter(inside, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &enter);
    QDragMoveEvent move(inside, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    QVERIFY(!move.isAccepted());
    QCOMPARE(lookOf(*trashcan), Hover);
    // The scene never took it for the drag's target, so it does not tell it that the drag has gone.
    QDragLeaveEvent leave;
    QApplication::sendEvent(view.viewport(), &leave);
    QCOMPARE(lookOf(*trashcan), Hover);
}

VELTRANO_TEST_MAIN(cProfileTrashcanGraphicsItemTest)
#include "cProfileTrashcanGraphicsItemTest.moc"
