#include "DropEvents.h"
#include "KeySupport.h"

#include <cGraphicsButton.h>
#include <cMacroEditor.h>
#include <DialogDriver.h>
#include <DragFormats.h>
#include <MagnetTextItem.h>
#include <MenuDriver.h>
#include <SceneEvents.h>
#include <ShownInView.h>
#include <TestCase.h>

#include <QDrag>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QTimer>

using namespace KeySupport;

namespace {

const QString Command = QStringLiteral("{1}");

/// What a host's events do to the scene while a key waits for somebody.
struct Event
{
    const char* name;
    std::function<void(KeyScene&)> happen;
};

/// The profile is deleted: another one is shown, which has nothing on the key.
void showEmptyProfile(KeyScene& on)
{
    setShownInView(on.view, QStringLiteral("{next}"), Category, Mode);
    on.key->setMacro(QString());
    delete on.label;
}

const QVector<Event>& events()
{
    static const QVector<Event> all {
        {"command deleted",
            [](KeyScene& on) {
                on.key->setMacro(QString());
                delete on.label;
            }},
        {"profile deleted", showEmptyProfile},
        {"key deleted",
            [](KeyScene& on) {
                delete on.key;
            }},
        {"key and label deleted",
            [](KeyScene& on) {
                delete on.label;
                delete on.key;
            }},
        {"all items deleted",
            [](KeyScene& on) {
                on.scene.clear();
            }},
    };
    return all;
}

void addEventRows()
{
    QTest::addColumn<int>("event");
    QTest::addColumn<bool>("onLabel");
    for (int i = 0; i < events().size(); ++i) {
        QTest::addRow("%s, from the key", events()[i].name) << i << false;
        QTest::addRow("%s, from the label", events()[i].name) << i << true;
    }
}

/// The scene's own road to the item at that place.
void sendThroughScene(KeyScene& on, QEvent& event)
{
    QCoreApplication::sendEvent(&on.scene, &event);
}

QPointF placeOn(const KeyScene& on, bool onLabel)
{
    return onLabel ? on.label->sceneBoundingRect().center() : QPointF(120, 125);
}

void pressAt(KeyScene& on, QEvent::Type type, const QPointF& place)
{
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(place);
    event.setButton(Qt::LeftButton);
    event.setButtons(Qt::LeftButton);
    sendThroughScene(on, event);
}

/// Events that come after, which must not reach what is gone.
void goOn(KeyScene& on)
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    for (const QPointF& place : {QPointF(120, 125), QPointF(120, 90), QPointF(0, 0)}) {
        QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
        move.setScenePos(place);
        sendThroughScene(on, move);
    }
}

} // namespace

/// The host takes down what a key stands on while the key waits in an event loop or for an answer. Each of
/// these is to be seen under the address sanitizer as well.
class GkeyTakenDownTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whileItsMenuIsOpen_data() { addEventRows(); }
    void whileItsMenuIsOpen();
    void byTheChoiceInItsMenu_data() { addEventRows(); }
    void byTheChoiceInItsMenu();
    void whileTheMenuOfItsButtonIsOpen_data() { addEventRows(); }
    void whileTheMenuOfItsButtonIsOpen();
    void betweenItsMenuAndTheEditor_data() { addEventRows(); }
    void betweenItsMenuAndTheEditor();
    void withTheWindowWhileItsMenuIsOpen();
    void withTheWindowWhileTheEditorIsOpen();
    void whileTheEditorOfAPressIsOpen_data() { addEventRows(); }
    void whileTheEditorOfAPressIsOpen();
    void whileTheEditorOfADoubleClickIsOpen_data() { addEventRows(); }
    void whileTheEditorOfADoubleClickIsOpen();
    void duringADrop_data() { addEventRows(); }
    void duringADrop();
    void byTheHostsAnswerToADrop_data() { addEventRows(); }
    void byTheHostsAnswerToADrop();
    void whileAStickCommandIsReplaced_data() { addEventRows(); }
    void whileAStickCommandIsReplaced();
    void whileAStickCommandIsUnassigned_data() { addEventRows(); }
    void whileAStickCommandIsUnassigned();
    void whileAStickCommandIsAssigned_data() { addEventRows(); }
    void whileAStickCommandIsAssigned();
    void duringADrag_data();
    void duringADrag();
    void byItsOwnClick_data() { addEventRows(); }
    void byItsOwnClick();
};

void GkeyTakenDownTest::whileItsMenuIsOpen()
{
    QFETCH(int, event);
    QFETCH(bool, onLabel);
    KeyScene on;
    on.setMacro(Command);
    QPointer<QMenu> menu;
    const MenuDriver driver([&](QMenu& opened) {
        menu = &opened;
        events()[event].happen(on);
        // There is nothing left to choose for.
        QCOMPARE(opened.isVisible(), !on.key.isNull());
        on.takeLog();
        if (on.key)
            MenuDriver::choose(opened, "Unassign");
    });
    QGraphicsSceneContextMenuEvent ask(QEvent::GraphicsSceneContextMenu);
    ask.setScenePos(placeOn(on, onLabel));
    sendThroughScene(on, ask);
    QVERIFY(driver.hasRun());
    QVERIFY(!menu);
    QCOMPARE(on.takeLog(), on.key ? QStringList(R"(unassign("G7"))") : QStringList());
    goOn(on);
}

void GkeyTakenDownTest::byTheChoiceInItsMenu()
{
    QFETCH(int, event);
    QFETCH(bool, onLabel);
    for (const char* choice : {"Use Generic", "Unassign"}) {
        KeyScene on;
        on.setMacro(Command);
        on.signalLog->onLine = [&](const QString&) {
            events()[event].happen(on);
        };
        const MenuDriver driver([&](QMenu& menu) { MenuDriver::choose(menu, choice); });
        QGraphicsSceneContextMenuEvent ask(QEvent::GraphicsSceneContextMenu);
        ask.setScenePos(placeOn(on, onLabel));
        sendThroughScene(on, ask);
        QVERIFY(driver.hasRun());
        goOn(on);
    }
}

void GkeyTakenDownTest::whileTheMenuOfItsButtonIsOpen()
{
    QFETCH(int, event);
    KeyScene on;
    on.showWindow();
    SceneEvents::hoverEnter(*on.key);
    const MenuDriver driver([&](QMenu&) { events()[event].happen(on); });
    pressAt(on, QEvent::GraphicsSceneMousePress, on.key->button().sceneBoundingRect().center());
    QVERIFY(driver.hasRun());
    goOn(on);
}

void GkeyTakenDownTest::betweenItsMenuAndTheEditor()
{
    QFETCH(int, event);
    for (const QString& macroID : {QString(), Command}) {
        KeyScene on;
        on.setMacro(macroID);
        const MenuDriver driver([&](QMenu& menu) { MenuDriver::choose(menu, "Edit..."); });
        const DialogDriver dialogDriver([](QDialog&) {});
        SceneEvents::hoverEnter(*on.key);
        on.key->onClickedContextButton(QPoint(5, 5));
        QVERIFY(driver.hasRun());
        events()[event].happen(on);
        on.takeLog();
        goOn(on);
        // It was asked for when the key was there.
        QCOMPARE(dialogDriver.hasRun(), on.key && macroID.isEmpty());
        QCOMPARE(on.takeLog().contains(R"(edit("G7"))"), on.key && !macroID.isEmpty());
    }
}

void GkeyTakenDownTest::withTheWindowWhileTheEditorIsOpen()
{
    KeyScene on;
    auto window = std::make_unique<QWidget>();
    on.host.answer("window", window.get());
    const DialogDriver driver([&](QDialog&) { window.reset(); });
    on.key->onAddNewMacro();
    QVERIFY(driver.hasRun());
    QVERIFY(!window);
    goOn(on);
}

void GkeyTakenDownTest::withTheWindowWhileItsMenuIsOpen()
{
    KeyScene on;
    auto window = std::make_unique<QWidget>();
    on.host.answer("window", window.get());
    const MenuDriver driver([&](QMenu&) { window.reset(); });
    on.key->onClickedContextButton(QPoint(5, 5));
    QVERIFY(driver.hasRun());
    goOn(on);
}

void GkeyTakenDownTest::whileTheEditorOfAPressIsOpen()
{
    QFETCH(int, event);
    QFETCH(bool, onLabel);
    KeyScene on;
    const DialogDriver driver([&](QDialog& dialog) {
        events()[event].happen(on);
        on.takeLog();
        // What the user writes is not lost with the key.
        QVERIFY(dialog.isVisible());
        Q_EMIT qobject_cast<cMacroEditor*>(&dialog)->macroEditorClosed("{new}");
    });
    pressAt(on, QEvent::GraphicsSceneMousePress, placeOn(on, onLabel));
    QVERIFY(driver.hasRun());
    QCOMPARE(on.takeLog(), on.key ? QStringList(R"(macroDropped("{new}", "G7"))") : QStringList());
    goOn(on);
}

void GkeyTakenDownTest::whileTheEditorOfADoubleClickIsOpen()
{
    QFETCH(int, event);
    QFETCH(bool, onLabel);
    KeyScene on;
    const DialogDriver driver([&](QDialog&) { events()[event].happen(on); });
    pressAt(on, QEvent::GraphicsSceneMouseDoubleClick, placeOn(on, onLabel));
    QVERIFY(driver.hasRun());
    goOn(on);

    // That of a command opens in the view, within the signal.
    KeyScene other;
    other.setMacro(Command);
    other.signalLog->onLine = [&](const QString& line) {
        if (line.startsWith("edit"))
            events()[event].happen(other);
    };
    pressAt(other, QEvent::GraphicsSceneMouseDoubleClick, placeOn(other, onLabel));
    goOn(other);
}

void GkeyTakenDownTest::duringADrop()
{
    QFETCH(int, event);
    QFETCH(bool, onLabel);
    KeyScene on;
    on.host.answer("canMacroBeAssignedTo", true);
    on.signalLog->onLine = [&](const QString&) {
        events()[event].happen(on);
    };
    const auto data = DragFormats::makeAssignment({Command, "G8"});
    SceneDragEvent drop(QEvent::GraphicsSceneDrop, data.get(), Qt::MoveAction);
    if (onLabel)
        on.scene.sendEvent(on.label, &drop);
    else
        on.scene.sendEvent(on.key, &drop);
    // The source has to learn what came of it.
    QVERIFY(drop.isAccepted());
    QCOMPARE(drop.dropAction(), Qt::MoveAction);
    goOn(on);
}

void GkeyTakenDownTest::byTheHostsAnswerToADrop()
{
    QFETCH(int, event);
    QFETCH(bool, onLabel);
    KeyScene on;
    on.host.answer("canMacroBeAssignedTo", [&](const RecordedCall&) {
        events()[event].happen(on);
        return QVariant(true);
    });
    const auto data = DragFormats::makeAssignment({Command, "G8"});
    SceneDragEvent drop(QEvent::GraphicsSceneDrop, data.get(), Qt::MoveAction);
    if (onLabel)
        on.scene.sendEvent(on.label, &drop);
    else
        on.scene.sendEvent(on.key, &drop);
    // A drop on a key that went took place nowhere, so that the source keeps what it has.
    QCOMPARE(drop.dropAction(), on.key ? Qt::MoveAction : Qt::IgnoreAction);
    goOn(on);
}

void GkeyTakenDownTest::whileAStickCommandIsReplaced()
{
    QFETCH(int, event);
    for (const char* last : {"G25", "G27", "G29"}) {
        KeyScene on;
        on.setMacro(Joystick);
        on.host.answer("canMacroBeAssignedTo", true);
        on.signalLog->onLine = [&](const QString& line) {
            if (line.contains(last))
                events()[event].happen(on);
        };
        const auto data = DragFormats::makeMacros({Command});
        SceneDragEvent drop(QEvent::GraphicsSceneDrop, data.get(), Qt::CopyAction);
        on.scene.sendEvent(on.key, &drop);
        QVERIFY(drop.isAccepted());
        goOn(on);
    }
}

void GkeyTakenDownTest::whileAStickCommandIsUnassigned()
{
    QFETCH(int, event);
    KeyScene on;
    on.setMacro(Joystick);
    on.signalLog->onLine = [&](const QString& line) {
        if (line.contains("G26"))
            events()[event].happen(on);
    };
    const MenuDriver driver([&](QMenu& menu) { MenuDriver::choose(menu, "Unassign Joystick"); });
    on.key->onClickedContextButton(QPoint(5, 5));
    QVERIFY(driver.hasRun());
    goOn(on);
}

void GkeyTakenDownTest::whileAStickCommandIsAssigned()
{
    QFETCH(int, event);
    KeyScene on;
    int calls = 0;
    on.host.answer("setAssignment", [&](const RecordedCall&) {
        if (++calls == 2)
            events()[event].happen(on);
    });
    on.key->onAssignJoystick();
    // The command goes on all of its keys, or the stick would be left with a part of it.
    QCOMPARE(calls, 5);
    goOn(on);
}

void GkeyTakenDownTest::duringADrag_data()
{
    QTest::addColumn<int>("event");
    QTest::addColumn<QString>("when");
    for (int i = 0; i < events().size(); ++i) {
        QTest::addRow("%s, at its start", events()[i].name) << i << "assignmentStartDrag";
        QTest::addRow("%s, at its end", events()[i].name) << i << "assignmentEndDrag";
        QTest::addRow("%s, under way", events()[i].name) << i << "";
    }
}

void GkeyTakenDownTest::duringADrag()
{
    QFETCH(int, event);
    QFETCH(QString, when);
    for (const bool onLabel : {false, true}) {
        KeyScene on;
        on.showWindow();
        on.setMacro(Command);
        const QPointF place = placeOn(on, onLabel);
        on.signalLog->onLine = [&](const QString& line) {
            if (!when.isEmpty() && line.startsWith(when))
                events()[event].happen(on);
        };
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (!qApp->findChild<QDrag*>())
                return;
            timer.stop();
            if (when.isEmpty())
                events()[event].happen(on);
            QDrag::cancel();
        });
        timer.start(5);
        pressAt(on, QEvent::GraphicsSceneMousePress, place);
        QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
        move.setScenePos(place + QPointF(30, 0));
        move.setButtons(Qt::LeftButton);
        move.setWidget(&on.window);
        sendThroughScene(on, move);
        QVERIFY(on.takeLog().contains(R"(assignmentStartDrag("{1}"))"));
        goOn(on);
    }
}

void GkeyTakenDownTest::byItsOwnClick()
{
    QFETCH(int, event);
    QFETCH(bool, onLabel);
    for (const QString& macroID : {QString(), Command}) {
        KeyScene on;
        on.setMacro(macroID);
        const DialogDriver driver([](QDialog&) {});
        on.signalLog->onLine = [&](const QString& line) {
            if (line.startsWith("clicked"))
                events()[event].happen(on);
        };
        pressAt(on, QEvent::GraphicsSceneMousePress, placeOn(on, onLabel));
        goOn(on);
    }
}

VELTRANO_TEST_MAIN(GkeyTakenDownTest)
#include "GkeyTakenDownTest.moc"
