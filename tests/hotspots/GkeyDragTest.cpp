#include "KeySupport.h"

#include <DragFormats.h>
#include <MagnetTextItem.h>
#include <TestCase.h>

#include <QCursor>
#include <QDrag>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPointer>
#include <QTimer>

using namespace KeySupport;

namespace {

const QString Command = QStringLiteral("{1}");
const QPointF PressPlace(110, 110);

/// Looks at the drag once it is under way, and cancels it.
class DragWatch : public QObject
{
    Q_OBJECT

public:
    explicit DragWatch(const std::function<void(QDrag&)>& look = nullptr)
        : m_look(look)
    {
        connect(&m_timer, SIGNAL(timeout()), SLOT(onTimeout()));
        m_timer.start(5);
    }
    bool hasSeen() const { return m_hasSeen; }

private Q_SLOTS:
    void onTimeout()
    {
        auto* drag = qApp->findChild<QDrag*>();
        if (!drag)
            return;
        m_timer.stop();
        m_hasSeen = true;
        if (m_look)
            m_look(*drag);
        QDrag::cancel();
    }

private:
    std::function<void(QDrag&)> m_look;
    QTimer m_timer;
    bool m_hasSeen = false;
};

void send(QGraphicsItem& item, QEvent::Type type, const QPointF& pos, QWidget& widget)
{
    QGraphicsSceneMouseEvent event(type);
    event.setPos(pos);
    event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : Qt::LeftButton);
    event.setButtons(Qt::LeftButton);
    event.setWidget(&widget);
    item.scene()->sendEvent(&item, &event);
}

/// Presses on the item and moves by `way`.
void drag(QGraphicsItem& item, const QPointF& way, QWidget& widget)
{
    send(item, QEvent::GraphicsSceneMousePress, PressPlace, widget);
    send(item, QEvent::GraphicsSceneMouseMove, PressPlace + way, widget);
}

QPointF farEnough()
{
    return QPointF(QApplication::startDragDistance() + 1, 0);
}

} // namespace

class GkeyDragTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void moveStartsADragFromSomeDistance_data();
    void moveStartsADragFromSomeDistance();
    void whatCanNotBeDraggedStays_data();
    void whatCanNotBeDraggedStays();
    void moveWithoutAPressStartsNoDrag();
    void dragCarriesTheAssignmentAndNothingElse();
    void dragStartsFromTheLabelToo();
    void cancelledDragLeavesTheAssignment();
    void canvasMayGoDuringTheDrag();
};

void GkeyDragTest::moveStartsADragFromSomeDistance_data()
{
    QTest::addColumn<QPointF>("way");
    QTest::addColumn<bool>("starts");
    const int distance = QApplication::startDragDistance();
    QTest::newRow("none") << QPointF() << false;
    QTest::newRow("just not") << QPointF(distance, 0) << false;
    QTest::newRow("just so") << QPointF(distance + 1, 0) << true;
    QTest::newRow("a part of a pixel more") << QPointF(distance + 0.25, 0) << true;
    QTest::newRow("back") << QPointF(-distance - 1, 0) << true;
    QTest::newRow("both ways, just not") << QPointF(distance - 4, 4) << false;
    QTest::newRow("both ways") << QPointF(distance - 4, -5) << true;
}

void GkeyDragTest::moveStartsADragFromSomeDistance()
{
    QFETCH(QPointF, way);
    QFETCH(bool, starts);
    KeyScene on;
    on.showWindow();
    on.setMacro(Command);
    const DragWatch watch;
    drag(*on.key, way, on.window);
    QCOMPARE(watch.hasSeen(), starts);
    QCOMPARE(on.takeLog().contains(R"(assignmentStartDrag("{1}"))"), starts);
}

void GkeyDragTest::whatCanNotBeDraggedStays_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<bool>("isHidden");
    QTest::newRow("hidden command") << Command << true;
    QTest::newRow("mouse") << Mouse << false;
    QTest::newRow("joystick") << Joystick << false;
    QTest::newRow("nothing") << QString() << false;
}

void GkeyDragTest::whatCanNotBeDraggedStays()
{
    QFETCH(QString, macroID);
    QFETCH(bool, isHidden);
    KeyScene on;
    on.showWindow();
    on.host.answer("macros", cJsonValue(cJsonValue::arrayValue));
    // With a press on a command before, which is not forgotten.
    on.setMacro(Command);
    send(*on.key, QEvent::GraphicsSceneMousePress, PressPlace, on.window);
    on.setMacro(macroID, isHidden);
    const DragWatch watch;
    drag(*on.key, farEnough(), on.window);
    drag(*on.label, farEnough(), on.window);
    QVERIFY(!watch.hasSeen());
    QVERIFY(!on.takeLog().join('\n').contains("assignment"));
}

void GkeyDragTest::moveWithoutAPressStartsNoDrag()
{
    KeyScene on;
    on.showWindow();
    on.setMacro(Command);
    const DragWatch watch;
    send(*on.key, QEvent::GraphicsSceneMouseMove, PressPlace, on.window);
    QVERIFY(!watch.hasSeen());
    QCOMPARE(on.takeLog(), QStringList());
}

void GkeyDragTest::dragCarriesTheAssignmentAndNothingElse()
{
    KeyScene on;
    on.showWindow();
    on.setMacro(Command);
    const DragWatch watch([&](QDrag& drag) {
        QCOMPARE(drag.mimeData()->formats(), QStringList(DragFormats::Assignment));
        const DragFormats::AssignmentIds ids = DragFormats::assignment(*drag.mimeData());
        QCOMPARE(ids.macroID, Command);
        QCOMPARE(ids.contextID, QString("G7"));
        QVERIFY(drag.pixmap().isNull());
        QCOMPARE(drag.hotSpot(), QDrag(&on.window).hotSpot());
        QCOMPARE(drag.supportedActions(), Qt::DropActions(Qt::MoveAction));
        QCOMPARE(drag.source(), &on.window);
        QCOMPARE(on.key->cursor().shape(), Qt::OpenHandCursor);
        QCOMPARE(on.takeLog(), QStringList({R"(clicked("G7"))", R"(assignmentStartDrag("{1}"))"}));
    });
    drag(*on.key, farEnough(), on.window);
    QVERIFY(watch.hasSeen());
}

void GkeyDragTest::dragStartsFromTheLabelToo()
{
    KeyScene on;
    on.showWindow();
    on.setMacro(Command);
    const DragWatch watch;
    drag(*on.label, farEnough(), on.window);
    QVERIFY(watch.hasSeen());
}

void GkeyDragTest::cancelledDragLeavesTheAssignment()
{
    KeyScene on;
    on.showWindow();
    on.setMacro(Command);
    QGraphicsSceneHoverEvent hover(QEvent::GraphicsSceneHoverEnter);
    on.scene.sendEvent(on.key, &hover);
    on.takeLog();
    const DragWatch watch;
    drag(*on.key, farEnough(), on.window);
    QVERIFY(watch.hasSeen());
    QCOMPARE(on.takeLog(),
        QStringList({R"(clicked("G7"))", R"(assignmentStartDrag("{1}"))", "assignmentEndDrag()"}));
    QVERIFY(on.key->isLit());
    QCOMPARE(on.key->cursor().shape(), Qt::OpenHandCursor);
}

void GkeyDragTest::canvasMayGoDuringTheDrag()
{
    KeyScene on;
    on.showWindow();
    on.setMacro(Command);
    auto* const canvas = new QWidget(&on.window);
    bool isDeleted = false;
    const DragWatch watch([&](QDrag& drag) {
        const QPointer<QDrag> running(&drag);
        delete canvas;
        isDeleted = true;
        QVERIFY(running);
    });
    drag(*on.key, farEnough(), *canvas);
    QVERIFY(isDeleted);
    QCOMPARE(
        on.takeLog().filter("Drag"), QStringList({R"(assignmentStartDrag("{1}"))", "assignmentEndDrag()"}));
    QCOMPARE(on.key->macroID(), Command);
}

VELTRANO_TEST_MAIN(GkeyDragTest)
#include "GkeyDragTest.moc"
