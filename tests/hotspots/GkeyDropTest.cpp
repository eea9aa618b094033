#include "DropEvents.h"
#include "KeySupport.h"

#include <DragFormats.h>
#include <MagnetTextItem.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QGraphicsView>

using namespace KeySupport;

namespace {

const QString Command = QStringLiteral("{1}");

/// Data with the payloads of other data as well.
std::unique_ptr<QMimeData> both(std::unique_ptr<QMimeData> one, const std::unique_ptr<QMimeData>& other)
{
    for (const QString& format : other->formats())
        one->setData(format, other->data(format));
    return one;
}

/// Drags over key and label as a scene reports them: the enter of the one comes before the leave of the
/// other.
class Dragging
{
public:
    explicit Dragging(KeyScene& on)
        : m_on(on)
    { }

    /// As in "enter key, enter label, leave key".
    void run(const QString& steps)
    {
        for (const QString& step : steps.split(QLatin1String(", "))) {
            const bool onLabel = step.endsWith(QLatin1String("label"));
            step.startsWith(QLatin1String("enter")) ? enter(onLabel) : leave(onLabel);
        }
    }

private:
    void enter(bool onLabel)
    {
        SceneDragEvent event(QEvent::GraphicsSceneDragEnter, m_data.get(), Qt::CopyAction);
        send(event, onLabel);
        QVERIFY(event.isAccepted());
    }
    void leave(bool onLabel)
    {
        SceneDragEvent event(QEvent::GraphicsSceneDragLeave, m_data.get(), Qt::CopyAction);
        send(event, onLabel);
    }
    void send(SceneDragEvent& event, bool onLabel)
    {
        QGraphicsItem* item = m_on.key.data();
        if (onLabel)
            item = m_on.label.data();
        m_on.scene.sendEvent(item, &event);
    }

    KeyScene& m_on;
    const std::unique_ptr<QMimeData> m_data = DragFormats::makeMacros({Command});
};

} // namespace

class GkeyDropTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void enteringDragIsJudgedByItsData_data();
    void enteringDragIsJudgedByItsData();
    void enteringDragAsksNobody();
    void refusedDragLeavesTheKeyAsItIs();
    void glowStaysWhileADragIsOverKeyOrLabel_data();
    void glowStaysWhileADragIsOverKeyOrLabel();
    void sceneReportsADragAcrossKeyAndLabel();
    void dropAsksTheHostAndPutsTheCommand_data();
    void dropAsksTheHostAndPutsTheCommand();
    void dropThatTheHostRefusesChangesNothing_data();
    void dropThatTheHostRefusesChangesNothing();
    void dropOfAFailedCallIsRefused();
    void dropWithoutACommandIsIgnored_data();
    void dropWithoutACommandIsIgnored();
    void dropOfTheOwnAssignmentChangesNothing();
    void dropReplacesAStickCommandAsAWhole_data();
    void dropReplacesAStickCommandAsAWhole();
    void refusedDropKeepsTheStickCommand();
    void dropPutsTheGlowOut();
    void dropMovesAreLeftToTheScene();
};

void GkeyDropTest::enteringDragIsJudgedByItsData_data()
{
    QTest::addColumn<QSharedPointer<QMimeData>>("data");
    QTest::addColumn<bool>("isWelcome");
    const auto row = [](const char* name, std::unique_ptr<QMimeData> data, bool isWelcome) {
        QTest::newRow(name) << QSharedPointer<QMimeData>(data.release()) << isWelcome;
    };
    const auto assignment = [](const QString& contextID) {
        return DragFormats::makeAssignment({Command, contextID});
    };
    const QString macros = DragFormats::Macros;
    row("one command", DragFormats::makeMacros({Command}), true);
    row("two commands", DragFormats::makeMacros({Command, "{2}"}), false);
    row("three commands", DragFormats::makeMacros({Command, "{2}", "{3}"}), false);
    row("empty text", dataOf(macros, ""), true);
    row("only a comma", dataOf(macros, ","), false);
    row("another key's assignment", assignment("G8"), true);
    row("its own assignment", assignment("G7"), false);
    row("assignment of a key in other letters", assignment("g7"), true);
    row("assignment that can't be read", dataOf(DragFormats::Assignment, "x"), true);
    row("two commands and an assignment", both(DragFormats::makeMacros({Command, "{2}"}), assignment("G8")),
        true);
    row("two commands and its own assignment",
        both(DragFormats::makeMacros({Command, "{2}"}), assignment("G7")), false);
    row("one command and its own assignment", both(DragFormats::makeMacros({Command}), assignment("G7")),
        true);
    row("profiles", DragFormats::makeProfiles({Profile}), false);
    row("a button's text", dataOf("text/plain", "#%1%2%3"), false);
    row("nothing", std::make_unique<QMimeData>(), false);
}

void GkeyDropTest::enteringDragIsJudgedByItsData()
{
    QFETCH(QSharedPointer<QMimeData>, data);
    QFETCH(bool, isWelcome);
    for (const bool onLabel : {false, true}) {
        for (const Qt::DropAction proposed : {Qt::CopyAction, Qt::MoveAction}) {
            KeyScene on;
            SceneDragEvent event(QEvent::GraphicsSceneDragEnter, data.data(), proposed);
            if (onLabel)
                QVERIFY(on.key->sceneEventFilter(on.label, &event));
            else
                on.key->dragEnterEvent(&event);
            QCOMPARE(event.isAccepted(), isWelcome);
            QCOMPARE(event.dropAction(), isWelcome ? proposed : Qt::IgnoreAction);
            QCOMPARE(on.key->isLit(), isWelcome);
        }
    }
}

void GkeyDropTest::enteringDragAsksNobody()
{
    KeyScene on;
    Dragging(on).run("enter key, leave key, enter label, leave label");
    QCOMPARE(on.takeLog(), QStringList());
}

void GkeyDropTest::refusedDragLeavesTheKeyAsItIs()
{
    KeyScene on;
    const auto refused = DragFormats::makeMacros({Command, "{2}"});
    SceneDragEvent enter(QEvent::GraphicsSceneDragEnter, refused.get(), Qt::CopyAction);
    on.key->dragEnterEvent(&enter);
    QVERIFY(!on.key->isLit());
    // There is no leave after a refusal. The next drag finds nothing of it.
    Dragging(on).run("enter label, leave label");
    QVERIFY(!on.key->isLit());
    on.key->dragEnterEvent(&enter);
    Dragging(on).run("enter key, leave key");
    QVERIFY(!on.key->isLit());
}

void GkeyDropTest::glowStaysWhileADragIsOverKeyOrLabel_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<bool>("isLit");
    const auto row = [](const char* steps, bool isLit) {
        QTest::newRow(steps) << QString(steps) << isLit;
    };
    row("enter key", true);
    row("enter label", true);
    row("leave key", false);
    row("leave label", false);
    row("enter key, leave key", false);
    row("enter label, leave label", false);
    row("enter key, enter label", true);
    row("enter key, enter label, leave key", true);
    row("enter key, enter label, leave key, leave label", false);
    row("enter label, enter key, leave label", true);
    row("enter label, enter key, leave label, leave key", false);
    // Back and forth.
    row("enter key, enter label, leave key, enter key, leave label", true);
    row("enter key, enter label, leave key, enter key, leave label, leave key", false);
    row("enter label, enter key, leave label, enter label, leave key", true);
    row("enter label, enter key, leave label, enter label, leave key, leave label", false);
    // Across a gap between the two.
    row("enter key, leave key, enter label", true);
    row("enter label, leave label, enter key", true);
    row("enter key, leave key, enter label, leave label", false);
    row("enter label, leave label, enter key, leave key", false);
    // Whatever a scene may not send: the last one that was entered decides.
    row("enter key, leave label", true);
    row("enter label, leave key", true);
    row("enter key, enter label, leave label", false);
    row("enter label, enter key, leave key", false);
    row("enter key, enter label, leave label, leave key", false);
    row("enter key, enter key, leave key", false);
    row("leave label, enter key", true);
    row("leave key, enter label, leave key", true);
}

void GkeyDropTest::glowStaysWhileADragIsOverKeyOrLabel()
{
    QFETCH(QString, steps);
    QFETCH(bool, isLit);
    KeyScene on;
    Dragging(on).run(steps);
    QCOMPARE(on.key->isLit(), isLit);
}

void GkeyDropTest::sceneReportsADragAcrossKeyAndLabel()
{
    KeyScene on;
    const auto data = DragFormats::makeMacros({Command});
    const auto dragTo = [&](QEvent::Type type, const QPointF& place) {
        SceneDragEvent event(type, data.get(), Qt::CopyAction);
        event.setScenePos(place);
        QCoreApplication::sendEvent(&on.scene, &event);
        return event.isAccepted();
    };
    const QPointF overKey(120, 125);
    const QPointF overLabel = on.label->sceneBoundingRect().center();
    const QPointF beside(10, 10);
    dragTo(QEvent::GraphicsSceneDragEnter, beside);
    dragTo(QEvent::GraphicsSceneDragMove, beside);
    QVERIFY(!on.key->isLit());
    for (int turn = 0; turn < 2; ++turn) {
        QVERIFY(dragTo(QEvent::GraphicsSceneDragMove, overKey));
        QVERIFY(on.key->isLit());
        QVERIFY(dragTo(QEvent::GraphicsSceneDragMove, overKey + QPointF(2, 0)));
        QVERIFY(on.key->isLit());
        QVERIFY(dragTo(QEvent::GraphicsSceneDragMove, overLabel));
        QVERIFY(on.key->isLit());
        QVERIFY(dragTo(QEvent::GraphicsSceneDragMove, overLabel + QPointF(2, 0)));
        QVERIFY(on.key->isLit());
    }
    dragTo(QEvent::GraphicsSceneDragMove, beside);
    QVERIFY(!on.key->isLit());

    dragTo(QEvent::GraphicsSceneDragMove, overLabel);
    on.host.answer("canMacroBeAssignedTo", true);
    QVERIFY(dragTo(QEvent::GraphicsSceneDrop, overLabel));
    QVERIFY(!on.key->isLit());
    QCOMPARE(on.takeLog(), QStringList({canMacroBeAssignedTo(Command), R"(macroDropped("{1}", "G7"))"}));
}

void GkeyDropTest::dropAsksTheHostAndPutsTheCommand_data()
{
    QTest::addColumn<QSharedPointer<QMimeData>>("data");
    const auto row = [](const char* name, std::unique_ptr<QMimeData> data) {
        QTest::newRow(name) << QSharedPointer<QMimeData>(data.release());
    };
    row("command", DragFormats::makeMacros({Command}));
    // Refused at entering, but taken here.
    row("two commands", DragFormats::makeMacros({Command, "{2}"}));
    row("assignment", DragFormats::makeAssignment({Command, "G8"}));
    row("command before assignment",
        both(DragFormats::makeMacros({Command}), DragFormats::makeAssignment({"{2}", "G7"})));
}

void GkeyDropTest::dropAsksTheHostAndPutsTheCommand()
{
    QFETCH(QSharedPointer<QMimeData>, data);
    for (const bool onLabel : {false, true}) {
        for (const QString& held : {QString(), QStringLiteral("{held}")}) {
            KeyScene on;
            on.setMacro(held);
            on.host.answer("canMacroBeAssignedTo", true);
            SceneDragEvent event(QEvent::GraphicsSceneDrop, data.data(), Qt::CopyAction);
            event.ignore();
            if (onLabel)
                QVERIFY(on.key->sceneEventFilter(on.label, &event));
            else
                on.key->dropEvent(&event);
            QVERIFY(event.isAccepted());
            QCOMPARE(event.dropAction(), Qt::MoveAction);
            QCOMPARE(
                on.takeLog(), QStringList({canMacroBeAssignedTo(Command), R"(macroDropped("{1}", "G7"))"}));
            // What it holds is told by the view.
            QCOMPARE(on.key->macroID(), held);
        }
    }
}

void GkeyDropTest::dropThatTheHostRefusesChangesNothing_data()
{
    dropAsksTheHostAndPutsTheCommand_data();
}

void GkeyDropTest::dropThatTheHostRefusesChangesNothing()
{
    QFETCH(QSharedPointer<QMimeData>, data);
    KeyScene on;
    on.host.answer("canMacroBeAssignedTo", false);
    SceneDragEvent event(QEvent::GraphicsSceneDrop, data.data(), Qt::CopyAction);
    event.setDropAction(Qt::CopyAction);
    event.ignore();
    on.key->dropEvent(&event);
    QVERIFY(event.isAccepted());
    QCOMPARE(event.dropAction(), Qt::IgnoreAction);
    QCOMPARE(on.takeLog(), QStringList(canMacroBeAssignedTo(Command)));
}

void GkeyDropTest::dropOfAFailedCallIsRefused()
{
    KeyScene on;
    on.host.remove(ServiceNames::ProfileMgr);
    const ExpectedMessage failed(
        QtCriticalMsg, "Failed to call 'canMacroBeAssignedTo' on service Profiler.ProfileMgr");
    const auto data = DragFormats::makeMacros({Command});
    SceneDragEvent event(QEvent::GraphicsSceneDrop, data.get(), Qt::CopyAction);
    on.key->dropEvent(&event);
    QVERIFY(event.isAccepted());
    QCOMPARE(event.dropAction(), Qt::IgnoreAction);
    QCOMPARE(on.takeLog(), QStringList(canMacroBeAssignedTo(Command)));
}

void GkeyDropTest::dropWithoutACommandIsIgnored_data()
{
    QTest::addColumn<QSharedPointer<QMimeData>>("data");
    const auto row = [](const char* name, std::unique_ptr<QMimeData> data) {
        QTest::newRow(name) << QSharedPointer<QMimeData>(data.release());
    };
    row("empty text", dataOf(DragFormats::Macros, ""));
    row("empty first part", dataOf(DragFormats::Macros, ",{2}"));
    row("empty text before an assignment",
        both(dataOf(DragFormats::Macros, ""), DragFormats::makeAssignment({Command, "G8"})));
    row("assignment of an empty key", DragFormats::makeAssignment({QString(), "G8"}));
    row("assignment that can't be read", dataOf(DragFormats::Assignment, "x"));
    row("profiles", DragFormats::makeProfiles({Profile}));
    row("nothing", std::make_unique<QMimeData>());
}

void GkeyDropTest::dropWithoutACommandIsIgnored()
{
    QFETCH(QSharedPointer<QMimeData>, data);
    KeyScene on;
    Dragging(on).run("enter key");
    SceneDragEvent event(QEvent::GraphicsSceneDrop, data.data(), Qt::CopyAction);
    on.key->dropEvent(&event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(on.takeLog(), QStringList());
    // That is no end of the drag for the key.
    QVERIFY(on.key->isLit());
}

void GkeyDropTest::dropOfTheOwnAssignmentChangesNothing()
{
    KeyScene on;
    on.host.answer("canMacroBeAssignedTo", true);
    Dragging(on).run("enter key");
    const auto data = DragFormats::makeAssignment({Command, "G7"});
    SceneDragEvent event(QEvent::GraphicsSceneDrop, data.get(), Qt::MoveAction);
    event.ignore();
    on.key->dropEvent(&event);
    QVERIFY(event.isAccepted());
    QCOMPARE(event.dropAction(), Qt::IgnoreAction);
    QCOMPARE(on.takeLog(), QStringList(canMacroBeAssignedTo(Command)));
    QVERIFY(!on.key->isLit());
}

void GkeyDropTest::dropReplacesAStickCommandAsAWhole_data()
{
    QTest::addColumn<QString>("held");
    QTest::addColumn<QStringList>("moved");
    const QStringList mouse {
        R"(macroMoved("G26"))", R"(macroMoved("G27"))", R"(macroMoved("G28"))", R"(macroMoved("G29"))"};
    QTest::newRow("mouse") << Mouse << mouse;
    QTest::newRow("joystick") << Joystick << QStringList(R"(macroMoved("G25"))") + mouse;
    QTest::newRow("mouse in other letters") << Mouse.toLower() << QStringList();
}

void GkeyDropTest::dropReplacesAStickCommandAsAWhole()
{
    QFETCH(QString, held);
    QFETCH(QStringList, moved);
    const QStringList log = QStringList(canMacroBeAssignedTo(Command, "G27")) + moved
        + QStringList(R"(macroDropped("{1}", "G27"))");
    for (const bool asAssignment : {false, true}) {
        KeyScene on("G27");
        on.setMacro(held);
        on.host.answer("canMacroBeAssignedTo", true);
        const auto data =
            asAssignment ? DragFormats::makeAssignment({Command, "G8"}) : DragFormats::makeMacros({Command});
        SceneDragEvent event(QEvent::GraphicsSceneDrop, data.get(), Qt::CopyAction);
        // The view empties each key as it is told, this one too.
        on.signalLog->onLine = [&](const QString& line) {
            if (line == R"(macroMoved("G27"))")
                on.key->setMacro(QString());
        };
        on.key->dropEvent(&event);
        QStringList lines = on.takeLog();
        lines.removeAll(getMacroByID(QString()));
        QCOMPARE(lines, log);
        QCOMPARE(event.dropAction(), Qt::MoveAction);
    }
}

void GkeyDropTest::refusedDropKeepsTheStickCommand()
{
    for (const QString& held : {Mouse, Joystick}) {
        KeyScene on("G27");
        on.setMacro(held);
        on.host.answer("canMacroBeAssignedTo", false);
        const auto data = DragFormats::makeMacros({Command});
        SceneDragEvent event(QEvent::GraphicsSceneDrop, data.get(), Qt::CopyAction);
        on.key->dropEvent(&event);
        QCOMPARE(on.takeLog(), QStringList(canMacroBeAssignedTo(Command, "G27")));
    }
}

void GkeyDropTest::dropPutsTheGlowOut()
{
    for (const bool isAllowed : {false, true}) {
        KeyScene on;
        on.host.answer("canMacroBeAssignedTo", isAllowed);
        Dragging(on).run("enter key");
        QVERIFY(on.key->isLit());
        const auto data = DragFormats::makeMacros({Command});
        SceneDragEvent event(QEvent::GraphicsSceneDrop, data.get(), Qt::CopyAction);
        on.key->dropEvent(&event);
        QVERIFY(!on.key->isLit());
    }
}

void GkeyDropTest::dropMovesAreLeftToTheScene()
{
    KeyScene on;
    const auto data = DragFormats::makeMacros({Command});
    SceneDragEvent event(QEvent::GraphicsSceneDragMove, data.get(), Qt::CopyAction);
    QVERIFY(!on.key->sceneEventFilter(on.label, &event));
    QVERIFY(event.isAccepted());
    QVERIFY(!on.key->isLit());
}

VELTRANO_TEST_MAIN(GkeyDropTest)
#include "GkeyDropTest.moc"
