#include "ViewJourney.h"

#include <QImage>

using namespace ViewPlaces;

/// Commands are put on keys, moved, edited and taken away, with the pointer and with the keyboard.
class AssignmentJourney : public ViewJourneyTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void draggedCommandStaysOnItsKey();
    void draggedCommandLightsTheDevice();
    void assignmentIsDraggedToAnotherKey();
    void dropsThatMeanNothingChangeNothing();
    void keyIsEmptiedOnTheTrashCan();
    void modesHaveTheirOwnCommands();
    void modeButtonRestsWhileThePointerIsOnAPanel();
    void commandIsEditedOnDoubleClick();
    void keyIsEmptiedByItsMenu();
    void commandIsFoundAndEditedByKeyboard();
};

void AssignmentJourney::init()
{
    ViewJourneyTest::init();
    m_journey->restingPicture(KeyArea.united(ListArea));
}

void AssignmentJourney::draggedCommandStaysOnItsKey()
{
    QCOMPARE(m_journey->commandOn("M1 G1"), QString("Escape"));
    const QImage before = m_journey->restingPicture(KeyArea);
    m_journey->drag(commandRow(1), KeyG1);
    QTRY_COMPARE(m_journey->commandOn("M1 G1"), QString("2"));
    // A command that is selected in the list lights its labels.
    m_journey->clickWith("ctrl", commandRow(1));
    m_journey->moveTo(BareCanvas);
    const QImage after = m_journey->restingPicture(KeyArea);
    QVERIFY(after != before);
    QVERIFY(m_journey->savePicture("assignment-dropped.png"));
    const ViewJourney::Assignments assignments = m_journey->assignments();

    QVERIFY(m_journey->restart());
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY_WITH_TIMEOUT(m_journey->restingPicture(KeyArea) == after, 20000);
    QCOMPARE(m_journey->assignments(), assignments);
    QVERIFY(m_journey->savePicture("assignment-after-restart.png"));
}

void AssignmentJourney::draggedCommandLightsTheDevice()
{
    // Selected before, so that nothing but the drag changes the keys.
    m_journey->click(commandRow(1));
    m_journey->moveTo(BareCanvas);
    const ViewJourney::Assignments before = m_journey->assignments();
    const QImage keys = m_journey->restingPicture(KeyArea);
    m_journey->dragAndHold(commandRow(1), BareCanvas);
    // The glow breathes, so that it is looked for and not waited for.
    QTRY_VERIFY(m_journey->picture().copy(KeyArea) != keys);
    QVERIFY(m_journey->savePicture("assignment-dragged.png"));
    m_journey->drop();
    QTRY_VERIFY_WITH_TIMEOUT(m_journey->restingPicture(KeyArea) == keys, 20000);
    QCOMPARE(m_journey->assignments(), before);
}

void AssignmentJourney::assignmentIsDraggedToAnotherKey()
{
    const QString moved = m_journey->commandOn("M1 G2");
    QVERIFY(!moved.isEmpty());
    m_journey->drag(KeyG2, KeyG14);
    QTRY_COMPARE(m_journey->commandOn("M1 G14"), moved);
    QTRY_COMPARE(m_journey->commandOn("M1 G2"), QString());
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(KeyArea);
    QVERIFY(m_journey->savePicture("assignment-moved.png"));
}

void AssignmentJourney::dropsThatMeanNothingChangeNothing()
{
    const ViewJourney::Assignments before = m_journey->assignments();
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
    QCOMPARE(m_journey->assignments(), before);
}

void AssignmentJourney::keyIsEmptiedOnTheTrashCan()
{
    QVERIFY(!m_journey->commandOn("M1 G1").isEmpty());
    const ViewJourney::Assignments before = m_journey->assignments();
    m_journey->drag(KeyG1, Trashcan);
    QTRY_COMPARE(m_journey->commandOn("M1 G1"), QString());
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(KeyArea);
    QVERIFY(m_journey->savePicture("assignment-trashed.png"));
    QCOMPARE(m_journey->assignments().size(), before.size() - 1);
}

void AssignmentJourney::modesHaveTheirOwnCommands()
{
    const ViewJourney::Assignments before = m_journey->assignments();
    const QImage first = m_journey->restingPicture(KeyArea);
    m_journey->click(ModeM2);
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY(m_journey->restingPicture(KeyArea) != first);
    QVERIFY(m_journey->savePicture("assignment-second-mode.png"));
    QCOMPARE(m_journey->assignments(), before);
    m_journey->drag(commandRow(1), KeyG1);
    QTRY_COMPARE(m_journey->commandOn("M2 G1"), QString("2"));
    QCOMPARE(m_journey->assignments().value("M1 G1"), before.value("M1 G1"));
}

void AssignmentJourney::modeButtonRestsWhileThePointerIsOnAPanel()
{
    const auto changesWithin = [this](int milliseconds) {
        const QImage before = m_journey->picture().copy(ModeM1Area);
        return QTest::qWaitFor([&] { return m_journey->picture().copy(ModeM1Area) != before; }, milliseconds);
    };
    QVERIFY(changesWithin(20000));
    // The list, its button, the bar.
    for (const QPoint& panel : {commandRow(3), NewCommandButton, BarTitle}) {
        m_journey->moveTo(panel);
        m_journey->restingPicture(ModeM1Area);
        QVERIFY(!changesWithin(1500));
        m_journey->moveTo(BareCanvas);
        QVERIFY(changesWithin(20000));
    }
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
    QVERIFY(!m_journey->commandOn("M1 G15").isEmpty());
    const QImage before = Journey::screen();
    m_journey->click(KeyG15, 3);
    QTRY_VERIFY(Journey::screen() != before);
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("assignment-menu.png"));
    // The last entry is "Unassign".
    m_journey->key("Up");
    m_journey->key("Return");
    QTRY_COMPARE(m_journey->commandOn("M1 G15"), QString());
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
