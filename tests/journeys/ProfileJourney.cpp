#include "ViewJourney.h"

#include <QImage>

using namespace ViewPlaces;

/// Profiles are made, chosen, copied, found and deleted, and given commands.
class ProfileJourney : public ViewJourneyTest
{
    Q_OBJECT

private Q_SLOTS:
    void profileIsMadeChosenAndKept();
    void profileIsCopiedAndDeleted();
    void profilesAreSearched();
    void commandIsDroppedOnAProfile();
    void profileIsDroppedOnTheTrashCan();
};

void ProfileJourney::profileIsMadeChosenAndKept()
{
    QCOMPARE(m_journey->storedNames(), QStringList("Default Profile"));
    QVERIFY(m_journey->makeProfile("Chess & Go"));
    const QString id = m_journey->idOf("Chess & Go");
    QTRY_COMPARE(m_journey->setting("lastProfile"), id);
    QVERIFY(m_journey->savePicture("profile-made.png"));
    // The second tile is the default profile.
    m_journey->click(tile(1));
    QTRY_VERIFY(m_journey->setting("lastProfile") != id);
    m_journey->click(tile(0));
    QTRY_COMPARE(m_journey->setting("lastProfile"), id);
    const QImage before = m_journey->restingBar();
    QVERIFY(m_journey->restart());
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY_WITH_TIMEOUT(m_journey->restingPicture(TileArea) == before, 20000);

    // A press in an empty well asks for a profile as well.
    m_journey->moveTo(tile(3) - QPoint(2, 0));
    m_journey->click(tile(3));
    QVERIFY(m_journey->waitForWindow("New Profile"));
    QVERIFY(Journey::saveScreen("profile-new.png"));
    // A message over the dialog has the keyboard, and gives it back.
    m_journey->type("Go");
    m_journey->key("Return");
    QVERIFY(m_journey->waitForWindow("Missing Target Error"));
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Missing Target Error"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("New Profile"));
}

void ProfileJourney::profileIsCopiedAndDeleted()
{
    QVERIFY(m_journey->makeProfile("Chess"));
    m_journey->moveTo(NewButton);
    m_journey->moveTo(NewMenuArrow);
    m_journey->click(NewMenuArrow);
    QTest::qWait(300);
    for (const char* key : {"Down", "Down", "Down", "Right"})
        m_journey->key(key);
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("profile-copy-menu.png"));
    m_journey->key("Return");
    QTRY_COMPARE(m_journey->storedNames().size(), 3);
    m_journey->restingBar();
    QVERIFY(m_journey->savePicture("profile-copied.png"));

    // By the menu, and two at once by the keyboard, with the fixed default profile among them.
    m_journey->click(menuIcon(1));
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("profile-menu.png"));
    m_journey->chooseEntry(Delete);
    QVERIFY(m_journey->confirmDeletion());
    QTRY_COMPARE(m_journey->storedNames().size(), 2);
    m_journey->restingBar();
    m_journey->click(tile(0));
    m_journey->clickWith("ctrl", tile(1));
    m_journey->key("Delete");
    QVERIFY(m_journey->confirmDeletion());
    QTRY_COMPARE(m_journey->storedNames(), QStringList("Default Profile"));
}

void ProfileJourney::profilesAreSearched()
{
    QVERIFY(m_journey->makeProfile("Chess"));
    QVERIFY(m_journey->makeProfile("Go"));
    m_journey->click(ProfileSearchBox);
    m_journey->type("che");
    m_journey->restingBar();
    QVERIFY(m_journey->savePicture("profile-search.png"));
    m_journey->type("quers");
    m_journey->restingPicture(TileArea);
    QVERIFY(m_journey->savePicture("profile-no-results.png"));
    m_journey->key("ctrl+a");
    m_journey->key("BackSpace");
    m_journey->restingPicture(TileArea);
    m_journey->click(tile(0));
    QTRY_COMPARE(m_journey->setting("lastProfile"), m_journey->idOf("Chess"));
}

void ProfileJourney::commandIsDroppedOnAProfile()
{
    QVERIFY(m_journey->makeProfile("Chess"));
    // Of the default profile's commands one goes to the other.
    m_journey->click(tile(1));
    m_journey->restingBar();
    QTest::qWait(500);
    const int before = m_journey->macroCount("Chess");
    const int ofDefault = m_journey->macroCount("Default Profile");
    m_journey->drag(commandRow(0), tile(0));
    QTRY_COMPARE(m_journey->macroCount("Chess"), before + 1);
    QCOMPARE(m_journey->macroCount("Default Profile"), ofDefault);
    // On its own profile nothing happens.
    m_journey->drag(commandRow(0), tile(1));
    QTest::qWait(300);
    QCOMPARE(m_journey->macroCount("Default Profile"), ofDefault);
}

void ProfileJourney::profileIsDroppedOnTheTrashCan()
{
    QVERIFY(m_journey->makeProfile("Chess"));
    m_journey->drag(tile(0), Trashcan);
    QVERIFY(m_journey->confirmDeletion());
    QTRY_COMPARE(m_journey->storedNames(), QStringList("Default Profile"));
    // The one that stays can be dragged and nothing is asked.
    m_journey->restingBar();
    m_journey->drag(tile(0), Trashcan);
    QTest::qWait(300);
    QCOMPARE(m_journey->storedNames(), QStringList("Default Profile"));
    QVERIFY(m_journey->savePicture("profile-last.png"));
}

VELTRANO_TEST_MAIN(ProfileJourney)
#include "ProfileJourney.moc"
