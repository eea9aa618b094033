#include "Journey.h"

#include <AppConstants.h>
#include <TestCase.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QMap>

using namespace AppConstants;

namespace {

const QString Controller = QStringLiteral("Veltrano.Gaming.LeftHandedController");

/// A point of the canvas as one of the window.
constexpr QPoint onCanvas(int x, int y)
{
    return {x, HeaderHeight + y};
}

constexpr QPoint NewButton = onCanvas(359, 108);
constexpr QPoint NewMenuArrow = onCanvas(359, 127);
constexpr QPoint PrintButton = onCanvas(424, 106);
constexpr QPoint DefaultTile = onCanvas(552, 73);
constexpr QPoint KeyG1 = onCanvas(396, 283);
constexpr QPoint SecondCommand = onCanvas(140, 268);
constexpr QPoint BareCanvas = onCanvas(560, 505);
constexpr QRect BarArea(QPoint(352, HeaderHeight + 37), QSize(593, 86));
constexpr QRect KeyArea(QPoint(350, HeaderHeight + 220), QSize(610, 250));

/// The entries of the fixed default profile's menu by which keys reach them: it is not deleted.
enum Entry { Print = 4, AllKeys, Test, Scripting };

/// The ids of the commands on the keys of the first mode, by key.
using Assignments = QMap<QString, QString>;

Assignments storedAssignments(const Journey& journey)
{
    Assignments found;
    const QDir folder(journey.dataFile("profiles"));
    QFile file(folder.filePath(folder.entryList({"*.xml"}, QDir::Files).value(0)));
    QDomDocument document;
    if (!file.open(QFile::ReadOnly) || !document.setContent(&file))
        return found;
    const QDomNodeList all = document.elementsByTagName("assignment");
    for (int i = 0; i < all.size(); ++i) {
        const QDomElement assignment = all.at(i).toElement();
        // Backups hold assignments as well.
        const QDomElement parent = assignment.parentNode().toElement();
        if (parent.tagName() == "assignments" && parent.attribute("category") == Controller
            && assignment.attribute("shiftstate") == "M1")
            found[assignment.attribute("contextid")] = assignment.attribute("macrouid");
    }
    return found;
}

} // namespace

/// What the menus of the bar do to a profile as a whole.
class MenuEntriesJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void allKeysGetTheirDefaultsBack();
    void allKeysAreUnassigned();
    void profileIsPrintedByMenuAndButton();
    void scriptIsOpened();
    void scanIsOpenedByTheNewMenu();

private:
    /// Opens the menu of the one tile and goes to the entry with that number.
    void goTo(int entry);
    void goToKeysMenu();

    QScopedPointer<Journey> m_journey;
};

void MenuEntriesJourney::init()
{
    m_journey.reset(new Journey({"--device", Controller + ".K13", "--open-view"}));
    QVERIFY2(m_journey->isRunning(), qPrintable(m_journey->errors()));
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
}

void MenuEntriesJourney::cleanup()
{
    m_journey->key("ctrl+q");
    QVERIFY(m_journey->waitForEnd());
    QVERIFY(!m_journey->hasCrashed());
    QCOMPARE(m_journey->errors(), QString());
    m_journey.reset();
}

void MenuEntriesJourney::goTo(int entry)
{
    m_journey->click(DefaultTile, 3);
    // A menu takes a moment to come up.
    QTest::qWait(300);
    for (int i = 0; i < entry; ++i)
        m_journey->key("Down");
}

void MenuEntriesJourney::goToKeysMenu()
{
    goTo(AllKeys);
    m_journey->key("Right");
    QTest::qWait(300);
}

void MenuEntriesJourney::allKeysGetTheirDefaultsBack()
{
    const Assignments before = storedAssignments(*m_journey);
    QVERIFY(before.contains("G1"));
    m_journey->drag(SecondCommand, KeyG1);
    QTRY_VERIFY(storedAssignments(*m_journey) != before);

    // No is what Escape answers.
    goToKeysMenu();
    QVERIFY(Journey::saveScreen("menu-use-default.png"));
    m_journey->key("Return");
    QVERIFY(m_journey->waitForWindow("Use Default"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Use Default"));
    QVERIFY(storedAssignments(*m_journey) != before);

    goToKeysMenu();
    m_journey->key("Return");
    QVERIFY(m_journey->waitForWindow("Use Default"));
    m_journey->key("shift+Tab");
    m_journey->key("space");
    QVERIFY(m_journey->waitForNoWindow("Use Default"));
    QTRY_COMPARE(storedAssignments(*m_journey), before);
}

void MenuEntriesJourney::allKeysAreUnassigned()
{
    QVERIFY(!storedAssignments(*m_journey).isEmpty());
    goToKeysMenu();
    m_journey->key("End");
    QVERIFY(Journey::saveScreen("menu-unassign.png"));
    m_journey->key("Return");
    QTRY_COMPARE(storedAssignments(*m_journey), Assignments());
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(KeyArea);
    QVERIFY(m_journey->savePicture("menu-unassigned.png"));
}

void MenuEntriesJourney::profileIsPrintedByMenuAndButton()
{
    goTo(Print);
    m_journey->key("Return");
    QVERIFY(m_journey->waitForWindow("Print Profile"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Print Profile"));
    m_journey->click(PrintButton);
    QVERIFY(m_journey->waitForWindow("Print Profile"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Print Profile"));
}

void MenuEntriesJourney::scriptIsOpened()
{
    goTo(Scripting);
    m_journey->key("Return");
    QVERIFY(m_journey->waitForWindow("Script of Default Profile"));
    m_journey->key("alt+F4");
    QVERIFY(m_journey->waitForNoWindow("Script of"));
}

void MenuEntriesJourney::scanIsOpenedByTheNewMenu()
{
    m_journey->moveTo(NewButton);
    m_journey->moveTo(NewMenuArrow);
    m_journey->click(NewMenuArrow);
    QTest::qWait(300);
    for (const char* key : {"Down", "Down", "Return"})
        m_journey->key(key);
    QVERIFY(m_journey->waitForWindow("Scan For New Games"));
    QVERIFY(Journey::saveScreen("menu-scan.png"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Scan For New Games"));
}

VELTRANO_TEST_MAIN(MenuEntriesJourney)
#include "MenuEntriesJourney.moc"
