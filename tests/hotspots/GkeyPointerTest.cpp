#include "KeySupport.h"

#include <cGraphicsButton.h>
#include <cMacroEditor.h>
#include <cProfileTrashcanGraphicsItem.h>
#include <DialogDriver.h>
#include <MagnetTextItem.h>
#include <MenuDriver.h>
#include <RealPointer.h>
#include <TestCase.h>

#include <QCursor>
#include <QDragMoveEvent>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QPainterPath>
#include <QSignalSpy>

#include <memory>
#include <optional>

using namespace KeySupport;

namespace {

const QString Command = QStringLiteral("{1}");

const QPointF OnKey(120, 125);
const QPointF OnOther(320, 125);
const QPointF OnTrashcan(120, 330);
const QPointF Beside(220, 220);

/// The scene of the key with a second key, "G8", and a trash can, on a canvas in a window.
class Stage : public QObject
{
    Q_DISABLE_COPY(Stage)

public:
    Stage()
        : canvas(new QGraphicsView(&on.scene, &on.window))
        , other(new TestKey(&on.view))
        , trashcan(new cProfileTrashcanGraphicsItem(
              filledPicture(48, 56, Qt::red), filledPicture(48, 56, Qt::blue), nullptr))
    {
        QPainterPath path;
        path.addRect(300, 100, 40, 30);
        other->setPath(path);
        other->setPolygon(path.toFillPolygon());
        other->setKeyRect(300, 100, 40, 30);
        other->setContextID("G8");
        on.scene.addItem(other);
        trashcan->setPos(100, 300);
        on.scene.addItem(trashcan);
        otherLog = std::make_unique<SignalLog>(*other, on.host);
        on.scene.setSceneRect(0, 0, 400, 400);
        canvas->setFrameShape(QFrame::NoFrame);
        canvas->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        canvas->setGeometry(0, 0, 400, 400);
        canvas->viewport()->installEventFilter(this);
    }

    bool isUp()
    {
        on.window.setGeometry(60, 50, 400, 400);
        on.window.show();
        if (!QTest::qWaitForWindowActive(&on.window))
            return false;
        on.takeLog();
        return true;
    }

    QString moveTo(const QPointF& place) const
    {
        return RealPointer::moveTo(canvas->viewport()->mapToGlobal(canvas->mapFromScene(place)));
    }

    /// Drags from the one place to the other; the log holds what came of it.
    void drag(const QPointF& from, const QPointF& to)
    {
        m_target = to;
        const QPointF away(12, 0);
        QSignalSpy ended(on.key, SIGNAL(assignmentEndDrag()));
        on.signalLog->onLine = [this](const QString& line) {
            // In two steps: a drag is brought up to date when the pointer moves.
            if (line.startsWith("assignmentStartDrag"))
                RealPointer::act(moveTo(*m_target - QPointF(4, 0)) + ' ' + moveTo(*m_target));
        };
        RealPointer::act(moveTo(from) + " mousedown 1 " + moveTo(from + away));
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, 20000);
        on.signalLog->onLine = nullptr;
    }

    /// Moves there until the canvas notices: the frame of a dialog that is just closing may take a move.
    bool reach(const QPointF& place)
    {
        for (int turn = 0; turn < 5; ++turn) {
            // A move to where the pointer is would be none.
            const QPointF aside = place + QPointF(turn % 2, 0);
            RealPointer::act(moveTo(aside));
            if (QTest::qWaitFor([&] { return m_pointer == canvas->mapFromScene(aside); }, 1000))
                return true;
        }
        return false;
    }

    /// Nobody holds the mouse: each key notices the pointer.
    void expectFreePointer()
    {
        QVERIFY(reach(Beside));
        RealPointer::act(moveTo(OnKey));
        QTRY_VERIFY(on.key->isLit());
        RealPointer::act(moveTo(OnOther));
        QTRY_VERIFY(other->isLit());
        QVERIFY(!on.key->isLit());
        QVERIFY(!on.scene.mouseGrabberItem());
    }

    /// The log without what the pointer's way brings.
    QStringList takeLog()
    {
        QStringList lines = on.takeLog();
        lines.removeAll("hoverIn()");
        lines.removeAll("hoverOut()");
        return lines;
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove)
            m_pointer = static_cast<QMouseEvent*>(event)->pos();
        if (event->type() == QEvent::DragMove && m_target
            && static_cast<QDragMoveEvent*>(event)->pos() == canvas->mapFromScene(*m_target)) {
            m_target.reset();
            RealPointer::act("mouseup 1");
        }
        return false;
    }

    KeyScene on;
    QGraphicsView* const canvas;
    TestKey* const other;
    cProfileTrashcanGraphicsItem* const trashcan;
    std::unique_ptr<SignalLog> otherLog;

private:
    std::optional<QPointF> m_target;
    /// Where the last move went.
    QPoint m_pointer;
};

} // namespace

/// The real pointer on keys of a canvas in a window.
class GkeyPointerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void assignmentIsDraggedToAnotherKey_data();
    void assignmentIsDraggedToAnotherKey();
    void refusedAssignmentStaysWhereItWas();
    void ownKeyAndLabelTakeNoDrop_data();
    void ownKeyAndLabelTakeNoDrop();
    void assignmentIsDraggedOntoTheTrashCan();
    void pointerLightsTheKeyAndItsLabel();
    void rightClickOpensTheMenu_data();
    void rightClickOpensTheMenu();
    void contextButtonIsReachedAndPressed();
    void pointerIsFreeAfterTheEditor();
};

void GkeyPointerTest::assignmentIsDraggedToAnotherKey_data()
{
    QTest::addColumn<bool>("fromLabel");
    QTest::newRow("from the key") << false;
    QTest::newRow("from the label") << true;
}

void GkeyPointerTest::assignmentIsDraggedToAnotherKey()
{
    QFETCH(bool, fromLabel);
    Stage stage;
    stage.on.setMacro(Command);
    stage.on.host.answer("canMacroBeAssignedTo", true);
    QVERIFY(stage.isUp());
    stage.drag(fromLabel ? stage.on.label->sceneBoundingRect().center() : OnKey, OnOther);
    // The target is filled before the source is emptied.
    QCOMPARE(stage.takeLog(),
        QStringList({R"(clicked("G7"))", R"(assignmentStartDrag("{1}"))", canMacroBeAssignedTo(Command, "G8"),
            R"(macroDropped("{1}", "G8"))", R"(macroMoved("G7"))", "assignmentEndDrag()"}));
    QVERIFY(!stage.on.key->isLit());
    QCOMPARE(stage.on.key->cursor().shape(), Qt::ArrowCursor);
    stage.expectFreePointer();
}

void GkeyPointerTest::refusedAssignmentStaysWhereItWas()
{
    Stage stage;
    stage.on.setMacro(Command);
    stage.on.host.answer("canMacroBeAssignedTo", false);
    QVERIFY(stage.isUp());
    stage.drag(OnKey, OnOther);
    QCOMPARE(stage.takeLog(),
        QStringList({R"(clicked("G7"))", R"(assignmentStartDrag("{1}"))", canMacroBeAssignedTo(Command, "G8"),
            "assignmentEndDrag()"}));
    QCOMPARE(stage.on.key->macroID(), Command);
}

void GkeyPointerTest::ownKeyAndLabelTakeNoDrop_data()
{
    QTest::addColumn<bool>("onLabel");
    QTest::newRow("key") << false;
    QTest::newRow("label") << true;
}

void GkeyPointerTest::ownKeyAndLabelTakeNoDrop()
{
    QFETCH(bool, onLabel);
    Stage stage;
    stage.on.setMacro(Command);
    stage.on.host.answer("canMacroBeAssignedTo", true);
    QVERIFY(stage.isUp());
    stage.drag(OnKey, onLabel ? stage.on.label->sceneBoundingRect().center() : QPointF(112, 120));
    QCOMPARE(stage.takeLog(),
        QStringList({R"(clicked("G7"))", R"(assignmentStartDrag("{1}"))", "assignmentEndDrag()"}));
}

void GkeyPointerTest::assignmentIsDraggedOntoTheTrashCan()
{
    Stage stage;
    stage.on.setMacro(Command);
    QVERIFY(stage.isUp());
    QSignalSpy dropped(stage.trashcan, SIGNAL(assignmentsDropped(QStringList)));
    stage.drag(OnKey, OnTrashcan);
    QCOMPARE(dropped, QList<QVariantList>({{QStringList("G7")}}));
    QCOMPARE(stage.takeLog(),
        QStringList({R"(clicked("G7"))", R"(assignmentStartDrag("{1}"))", R"(macroMoved("G7"))",
            "assignmentEndDrag()"}));
}

void GkeyPointerTest::pointerLightsTheKeyAndItsLabel()
{
    Stage stage;
    stage.on.setMacro(Command);
    QVERIFY(stage.isUp());
    RealPointer::act(stage.moveTo(OnKey));
    QTRY_VERIFY(stage.on.key->isLit());
    RealPointer::act(stage.moveTo(Beside));
    QTRY_VERIFY(!stage.on.key->isLit());
    RealPointer::act(stage.moveTo(stage.on.label->sceneBoundingRect().center()));
    QTRY_VERIFY(stage.on.key->isLit());
    RealPointer::act(stage.moveTo(OnOther));
    QTRY_VERIFY(stage.other->isLit());
    QVERIFY(!stage.on.key->isLit());
}

void GkeyPointerTest::rightClickOpensTheMenu_data()
{
    QTest::addColumn<bool>("onLabel");
    QTest::newRow("key") << false;
    QTest::newRow("label") << true;
}

void GkeyPointerTest::rightClickOpensTheMenu()
{
    QFETCH(bool, onLabel);
    Stage stage;
    stage.on.setMacro(Command);
    QVERIFY(stage.isUp());
    const QPointF place = onLabel ? stage.on.label->sceneBoundingRect().center() : OnKey;
    QSignalSpy unassigned(stage.on.key, SIGNAL(unassign(QString)));
    QPoint menuPlace;
    const MenuDriver driver([&](QMenu& menu) {
        menuPlace = menu.pos();
        MenuDriver::choose(menu, "Unassign");
    });
    RealPointer::act(stage.moveTo(place) + " click 3");
    QTRY_VERIFY(driver.hasRun());
    QCOMPARE(menuPlace, stage.canvas->viewport()->mapToGlobal(stage.canvas->mapFromScene(place)));
    QTRY_COMPARE(unassigned.size(), 1);
    QCOMPARE(stage.takeLog(),
        QStringList({mainWindow(), assignmentHasBackup(), stringToGKey(), R"(unassign("G7"))"}));
}

void GkeyPointerTest::contextButtonIsReachedAndPressed()
{
    Stage stage;
    stage.on.setMacro(Command);
    QVERIFY(stage.isUp());
    RealPointer::act(stage.moveTo(QPointF(105, 125)));
    QTRY_VERIFY(stage.on.key->isLit());
    // On its own child the pointer is still on the key.
    RealPointer::act(stage.moveTo(stage.on.key->button().sceneBoundingRect().center()));
    QTRY_COMPARE(stage.on.key->button().cursor().shape(), Qt::PointingHandCursor);
    QVERIFY(stage.on.key->isLit());
    QSignalSpy chosen(stage.on.key, SIGNAL(useGeneric(QString)));
    const MenuDriver driver([](QMenu& menu) { MenuDriver::choose(menu, "Use Generic"); });
    RealPointer::act("click 1");
    QTRY_VERIFY(driver.hasRun());
    QTRY_COMPARE(chosen, QList<QVariantList>({{"G7"}}));
    stage.expectFreePointer();
}

// The dialog swallows the release. Were the key to go on holding the mouse, the next move would drag its
// command about.
void GkeyPointerTest::pointerIsFreeAfterTheEditor()
{
    Stage stage;
    stage.on.setMacro(Command);
    QVERIFY(stage.isUp());
    // The key remembers that it was pressed while it held a command.
    QSignalSpy clicked(stage.on.key, SIGNAL(clicked(QString)));
    RealPointer::act(stage.moveTo(OnKey) + " click 1");
    QTRY_COMPARE(clicked.size(), 1);
    QTRY_VERIFY(!stage.on.scene.mouseGrabberItem());
    QVERIFY(stage.reach(Beside));
    stage.on.key->setMacro(QString());
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<cMacroEditor*>(&dialog));
        RealPointer::act("mouseup 1");
        QTRY_COMPARE(QGuiApplication::mouseButtons(), Qt::MouseButtons(Qt::NoButton));
        stage.on.key->setMacro(Command);
    });
    RealPointer::act(stage.moveTo(OnKey) + " mousedown 1");
    QTRY_VERIFY(driver.hasRun());
    stage.expectFreePointer();
    QVERIFY(!stage.takeLog().join('\n').contains("assignmentStartDrag"));
}

VELTRANO_TEST_MAIN(GkeyPointerTest)
#include "GkeyPointerTest.moc"
