#include "ViewJourney.h"

using namespace ViewPlaces;

/// What the menus of the bar do to a profile as a whole.
class MenuEntriesJourney : public ViewJourneyTest
{
    Q_OBJECT

private Q_SLOTS:
    void allKeysGetTheirDefaultsBack();
    void allKeysAreUnassigned();
    void profileIsPrintedByMenuAndButton();
    void scriptIsOpened();
    void scanIsOpenedByTheNewMenu();

private:
    /// The commands on the keys of the first mode, by place.
    ViewJourney::Assignments assignments() const;
    /// Of the one tile, that of the fixed default profile.
    void openKeysMenu() { m_journey->openKeysMenu(0, inDefaultMenu(AllKeys)); }
};

ViewJourney::Assignments MenuEntriesJourney::assignments() const
{
    ViewJourney::Assignments found = m_journey->assignments();
    for (const QString& place : found.keys()) {
        if (!place.startsWith("M1 "))
            found.remove(place);
    }
    return found;
}

void MenuEntriesJourney::allKeysGetTheirDefaultsBack()
{
    const ViewJourney::Assignments before = assignments();
    QVERIFY(before.contains("M1 G1"));
    m_journey->drag(commandRow(1), KeyG1);
    QTRY_VERIFY(assignments() != before);

    // No is what Escape answers.
    openKeysMenu();
    QVERIFY(Journey::saveScreen("menu-use-default.png"));
    m_journey->key("Return");
    QVERIFY(m_journey->waitForWindow("Use Default"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Use Default"));
    QVERIFY(assignments() != before);

    openKeysMenu();
    m_journey->key("Return");
    QVERIFY(m_journey->waitForWindow("Use Default"));
    m_journey->key("shift+Tab");
    m_journey->key("space");
    QVERIFY(m_journey->waitForNoWindow("Use Default"));
    QTRY_COMPARE(assignments(), before);
}

void MenuEntriesJourney::allKeysAreUnassigned()
{
    QVERIFY(!assignments().isEmpty());
    openKeysMenu();
    m_journey->key("End");
    QVERIFY(Journey::saveScreen("menu-unassign.png"));
    m_journey->key("Return");
    QTRY_COMPARE(assignments(), ViewJourney::Assignments());
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(KeyArea);
    QVERIFY(m_journey->savePicture("menu-unassigned.png"));
}

void MenuEntriesJourney::profileIsPrintedByMenuAndButton()
{
    m_journey->chooseInMenuOf(0, inDefaultMenu(Print));
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
    m_journey->chooseInMenuOf(0, inDefaultMenu(Scripting));
    QVERIFY(m_journey->waitForWindow("Script of Default Profile"));
    m_journey->key("alt+F4");
    QVERIFY(m_journey->waitForNoWindow("Script of"));
}

void MenuEntriesJourney::scanIsOpenedByTheNewMenu()
{
    m_journey->moveTo(NewButton);
    m_journey->moveTo(NewMenuArrow);
    m_journey->click(NewMenuArrow);
    m_journey->chooseEntry(2);
    QVERIFY(m_journey->waitForWindow("Scan For New Games"));
    QVERIFY(Journey::saveScreen("menu-scan.png"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Scan For New Games"));
}

VELTRANO_TEST_MAIN(MenuEntriesJourney)
#include "MenuEntriesJourney.moc"
