#include "Journey.h"
#include "ViewPlaces.h"

#include <TestCase.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QMap>

using namespace ViewPlaces;

namespace {

const QString Controller = QStringLiteral("Veltrano.Gaming.LeftHandedController");

constexpr QPoint SearchBox = onCanvas(180, 202);
constexpr QRect KeyArea(onCanvas(350, 220), QSize(610, 250));
constexpr QRect ListArea(onCanvas(38, 220), QSize(232, 316));

/// The assignments of the default profile on the controller: "M1 G1" to the command's display name.
using Assignments = QMap<QString, QString>;

Assignments storedAssignments(const Journey& journey)
{
    Assignments found;
    const QDir folder(journey.dataFile("profiles"));
    QFile file(folder.filePath(folder.entryList({"*.xml"}, QDir::Files).value(0)));
    QDomDocument document;
    if (!file.open(QFile::ReadOnly) || !document.setContent(&file))
        return found;
    QMap<QString, QString> names;
    const QDomNodeList macros = document.elementsByTagName("macro");
    for (int i = 0; i < macros.size(); ++i) {
        const QDomElement macro = macros.at(i).toElement();
        names[macro.attribute("uid")] = macro.attribute("display_name");
    }
    const QDomNodeList assignments = document.elementsByTagName("assignment");
    for (int i = 0; i < assignments.size(); ++i) {
        const QDomElement assignment = assignments.at(i).toElement();
        // Backups hold assignments as well.
        const QDomElement parent = assignment.parentNode().toElement();
        if (parent.tagName() == "assignments" && parent.attribute("category") == Controller)
            found[assignment.attribute("shiftstate") + ' ' + assignment.attribute("contextid")] =
                names.value(assignment.attribute("macrouid"));
    }
    return found;
}

QString stored(const Journey& journey, const char* place)
{
    return storedAssignments(journey).value(place);
}

} // namespace

/// Commands are put on keys, moved, edited and taken away, with the pointer and with the keyboard.
class AssignmentJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void draggedCommandStaysOnItsKey();
    void assignmentIsDraggedToAnotherKey();
    void dropsThatMeanNothingChangeNothing();
    void keyIsEmptiedOnTheTrashCan();
    void modesHaveTheirOwnCommands();
    void commandIsEditedOnDoubleClick();
    void keyIsEmptiedByItsMenu();
    void commandIsFoundAndEditedByKeyboard();

private:
    QScopedPointer<Journey> m_journey;
};

void AssignmentJourney::init()
{
    m_journey.reset(new Journey({"--device", Controller + ".K13", "--open-view"}));
    QVERIFY2(m_journey->isRunning(), qPrintable(m_journey->errors()));
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(KeyArea.united(ListArea));
}

void AssignmentJourney::cleanup()
{
    m_journey->key("ctrl+q");
    QVERIFY(m_journey->waitForEnd());
    QVERIFY(!m_journey->hasCrashed());
    QCOMPARE(m_journey->errors(), QString());
    m_journey.reset();
}

void AssignmentJourney::draggedCommandStaysOnItsKey()
{
    QCOMPARE(stored(*m_journey, "M1 G1"), QString("Escape"));
    const QImage before = m_journey->restingPicture(KeyArea);
    m_journey->drag(commandRow(1), KeyG1);
    QTRY_COMPARE(stored(*m_journey, "M1 G1"), QString("2"));
    // A command that is selected in the list lights its labels.
    m_journey->clickWith("ctrl", commandRow(1));
    m_journey->moveTo(BareCanvas);
    const QImage after = m_journey->restingPicture(KeyArea);
    QVERIFY(after != before);
    QVERIFY(m_journey->savePicture("assignment-dropped.png"));
    const Assignments assignments = storedAssignments(*m_journey);

    QVERIFY(m_journey->restart());
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY_WITH_TIMEOUT(m_journey->restingPicture(KeyArea) == after, 20000);
    QCOMPARE(storedAssignments(*m_journey), assignments);
    QVERIFY(m_journey->savePicture("assignment-after-restart.png"));
}

void AssignmentJourney::assignmentIsDraggedToAnotherKey()
{
    const QString moved = stored(*m_journey, "M1 G2");
    QVERIFY(!moved.isEmpty());
    m_journey->drag(KeyG2, KeyG14);
    QTRY_COMPARE(stored(*m_journey, "M1 G14"), moved);
    QTRY_COMPARE(stored(*m_journey, "M1 G2"), QString());
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(KeyArea);
    QVERIFY(m_journey->savePicture("assignment-moved.png"));
}

void AssignmentJourney::dropsThatMeanNothingChangeNothing()
{
    const Assignments before = storedAssignments(*m_journey);
    const QImage keys = m_journey->restingPicture(KeyArea);
    // Onto nothing, onto itself, and two commands for one key.
    m_journey->drag(KeyG2, BareCanvas);
    m_journey->drag(commandRow(1), BareCanvas);
    m_journey->drag(KeyG2, KeyG2 + QPoint(20, 5));
    m_journey->click(commandRow(0));
    m_journey->clickWith("ctrl", commandRow(1));
    m_journey->drag(commandRow(1), KeyG1);
    QVERIFY(m_journey->savePicture("assignment-refused.png"));
    m_journey->click(BareCanvas);
    m_journey->clickWith("ctrl", commandRow(0));
    m_journey->clickWith("ctrl", commandRow(1));
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY_WITH_TIMEOUT(m_journey->restingPicture(KeyArea) == keys, 20000);
    QCOMPARE(storedAssignments(*m_journey), before);
}

void AssignmentJourney::keyIsEmptiedOnTheTrashCan()
{
    QVERIFY(!stored(*m_journey, "M1 G1").isEmpty());
    const Assignments before = storedAssignments(*m_journey);
    m_journey->drag(KeyG1, Trashcan);
    QTRY_COMPARE(stored(*m_journey, "M1 G1"), QString());
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(KeyArea);
    QVERIFY(m_journey->savePicture("assignment-trashed.png"));
    QCOMPARE(storedAssignments(*m_journey).size(), before.size() - 1);
}

void AssignmentJourney::modesHaveTheirOwnCommands()
{
    const Assignments before = storedAssignments(*m_journey);
    const QImage first = m_journey->restingPicture(KeyArea);
    m_journey->click(ModeM2);
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY(m_journey->restingPicture(KeyArea) != first);
    QVERIFY(m_journey->savePicture("assignment-second-mode.png"));
    QCOMPARE(storedAssignments(*m_journey), before);
    m_journey->drag(commandRow(1), KeyG1);
    QTRY_COMPARE(stored(*m_journey, "M2 G1"), QString("2"));
    QCOMPARE(stored(*m_journey, "M1 G1"), before.value("M1 G1"));
}

void AssignmentJourney::commandIsEditedOnDoubleClick()
{
    m_journey->doubleClick(commandRow(0));
    QVERIFY(m_journey->waitForWindow("Command Editor"));
    QVERIFY(Journey::saveScreen("assignment-editor-of-row.png"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Command Editor"));

    m_journey->doubleClick(KeyG1);
    QVERIFY(m_journey->waitForWindow("Command Editor"));
    QVERIFY(Journey::saveScreen("assignment-editor-of-key.png"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Command Editor"));
}

void AssignmentJourney::keyIsEmptiedByItsMenu()
{
    QVERIFY(!stored(*m_journey, "M1 G15").isEmpty());
    const QImage before = Journey::screen();
    m_journey->click(KeyG15, 3);
    QTRY_VERIFY(Journey::screen() != before);
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("assignment-menu.png"));
    // The last entry is "Unassign".
    m_journey->key("Up");
    m_journey->key("Return");
    QTRY_COMPARE(stored(*m_journey, "M1 G15"), QString());
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(KeyArea);
    QVERIFY(m_journey->savePicture("assignment-unassigned.png"));
}

void AssignmentJourney::commandIsFoundAndEditedByKeyboard()
{
    const QImage all = m_journey->restingPicture(ListArea);
    m_journey->click(SearchBox);
    m_journey->type("vol");
    QTRY_VERIFY(m_journey->restingPicture(ListArea) != all);
    QVERIFY(m_journey->savePicture("assignment-search.png"));
    m_journey->key("Down");
    m_journey->key("Return");
    QVERIFY(m_journey->waitForWindow("Command Editor"));
    QVERIFY(Journey::saveScreen("assignment-search-editor.png"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Command Editor"));
}

VELTRANO_TEST_MAIN(AssignmentJourney)
#include "AssignmentJourney.moc"
