#include <cProfileTrashcanGraphicsItem.h>
#include <cProfileTrashcanWidget.h>
#include <DragFormats.h>
#include <RealPointer.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDrag>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QMimeData>
#include <QMouseEvent>
#include <QSignalSpy>

#include <memory>
#include <utility>

namespace {

constexpr int Size = 120;

/// A drag with the real pointer: it starts when the pointer is moved over the source with the button down,
/// goes to the middle of the target, and the button is released once the target was told.
class Drag : public QObject
{
    Q_DISABLE_COPY(Drag)

public:
    Drag(QWidget* source, QWidget* target, QEvent::Type told)
        : m_source(source)
        , m_target(target)
        , m_told(told)
    {
        source->installEventFilter(this);
        target->installEventFilter(this);
    }

    /// The result of the drag; -1 if it did not take place.
    int run(std::unique_ptr<QMimeData> data, Qt::DropAction action)
    {
        m_data = std::move(data);
        m_action = action;
        RealPointer::act(
            RealPointer::moveTo(*m_source) + " mousedown 1 " + RealPointer::moveTo(*m_source, QPoint(12, 0)));
        return QTest::qWaitFor([this] { return m_result >= 0; }, 20000) ? m_result : -1;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == m_source && event->type() == QEvent::MouseMove && m_data
            && (static_cast<QMouseEvent*>(event)->buttons() & Qt::LeftButton)) {
            start();
            return true;
        }
        if (watched == m_target && event->type() == m_told && !std::exchange(m_released, true))
            RealPointer::act("mouseup 1");
        return false;
    }

private:
    void start()
    {
        auto* drag = new QDrag(m_source);
        drag->setMimeData(m_data.release());
        // In two steps: a drag is brought up to date when the pointer moves.
        RealPointer::act(
            RealPointer::moveTo(*m_target, QPoint(-6, 0)) + ' ' + RealPointer::moveTo(*m_target));
        m_result = drag->exec(m_action);
    }

    QWidget* const m_source;
    QWidget* const m_target;
    const QEvent::Type m_told;
    std::unique_ptr<QMimeData> m_data;
    Qt::DropAction m_action = Qt::IgnoreAction;
    bool m_released = false;
    int m_result = -1;
};

/// A window with a widget to drag from at the left and another to drag to at the right.
class Window : public QWidget
{
public:
    explicit Window(QWidget* target)
        : source(new QWidget)
    {
        auto* row = new QHBoxLayout(this);
        for (QWidget* widget : {source, target}) {
            widget->setFixedSize(Size, Size);
            row->addWidget(widget);
        }
    }

    bool isUp()
    {
        move(100, 100);
        show();
        return QTest::qWaitForWindowActive(this);
    }

    QWidget* const source;
};

} // namespace

/// Real drags with the real pointer.
class TrashcanDragTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void assignmentIsMovedOntoTheItem();
    void commandsAreCopiedOntoTheWidget();
    void widgetRefusesItsOwnDrag();
};

void TrashcanDragTest::assignmentIsMovedOntoTheItem()
{
    QGraphicsScene scene(0, 0, Size - 20, Size - 20);
    auto* trashcan = new cProfileTrashcanGraphicsItem(
        filledPicture(Size - 20, Size - 20, Qt::red), filledPicture(Size - 20, Size - 20, Qt::blue), nullptr);
    scene.addItem(trashcan);
    auto* view = new QGraphicsView(&scene);
    Window window(view);
    QVERIFY(window.isUp());
    QSignalSpy dropped(trashcan, SIGNAL(assignmentsDropped(const QStringList&)));

    Drag drag(window.source, view->viewport(), QEvent::DragMove);
    // By the move the source learns that it has to let go.
    QCOMPARE(drag.run(DragFormats::makeAssignment({"{1}", "G7"}), Qt::MoveAction), int(Qt::MoveAction));
    QCOMPARE(dropped, QList<QVariantList>({{QStringList({"G7"})}}));
}

void TrashcanDragTest::commandsAreCopiedOntoTheWidget()
{
    auto* trashcan = new cProfileTrashcanWidget(nullptr);
    Window window(trashcan);
    QVERIFY(window.isUp());
    QSignalSpy dropped(trashcan, SIGNAL(macrosDropped(const QStringList&)));

    Drag drag(window.source, trashcan, QEvent::DragMove);
    QCOMPARE(drag.run(DragFormats::makeMacros({"{1}", "{2}"}), Qt::CopyAction), int(Qt::CopyAction));
    QCOMPARE(dropped, QList<QVariantList>({{QStringList({"{1}", "{2}"})}}));
}

void TrashcanDragTest::widgetRefusesItsOwnDrag()
{
    auto* trashcan = new cProfileTrashcanWidget(nullptr);
    Window window(trashcan);
    QVERIFY(window.isUp());
    QSignalSpy dropped(trashcan, SIGNAL(macrosDropped(const QStringList&)));

    Drag drag(trashcan, trashcan, QEvent::DragEnter);
    QCOMPARE(drag.run(DragFormats::makeMacros({"{1}"}), Qt::CopyAction), int(Qt::IgnoreAction));
    QVERIFY(dropped.isEmpty());
}

VELTRANO_TEST_MAIN(TrashcanDragTest)
#include "TrashcanDragTest.moc"
