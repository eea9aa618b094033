#include "ViewJourney.h"

#include <QColor>
#include <QFile>
#include <QFileInfo>
#include <QImage>

using namespace ViewPlaces;

/// What the menu of a tile offers, and the files that profiles are written to and read from.
class ProfileMenuJourney : public ViewJourneyTest
{
    Q_OBJECT

private Q_SLOTS:
    void profileIsWrittenOutAndReadIn();
    void entriesOfTheMenuWork();
    void iconIsChosenAndGivenUp();
};

void ProfileMenuJourney::profileIsWrittenOutAndReadIn()
{
    QVERIFY(m_journey->makeProfile("Chess"));
    const QString path = m_journey->dataFile("exported.xml");
    m_journey->chooseInMenuOf(0, Export);
    QVERIFY(m_journey->waitForWindow("Export Profile"));
    QVERIFY(Journey::saveScreen("profile-export.png"));
    m_journey->type(path);
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Export Profile"));
    QTRY_VERIFY(QFile::exists(path));
    QTRY_COMPARE(m_journey->setting("lastexportdir"), QFileInfo(path).absolutePath());

    m_journey->click(tile(0));
    m_journey->key("Delete");
    QVERIFY(m_journey->confirmDeletion());
    QTRY_COMPARE(m_journey->storedNames(), QStringList("Default Profile"));

    m_journey->click(ImportButton);
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("profile-import-menu.png"));
    m_journey->chooseEntry(1);
    QVERIFY(m_journey->giveFile("Import Profile", path));
    // The application shows what would come in.
    QVERIFY(m_journey->waitForWindow("Profiles to Import"));
    QVERIFY(Journey::saveScreen("profile-import.png"));
    m_journey->key("Return");
    QTRY_COMPARE(m_journey->storedNames(), QStringList({"Chess", "Default Profile"}));
}

void ProfileMenuJourney::entriesOfTheMenuWork()
{
    QVERIFY(m_journey->makeProfile("Chess"));
    m_journey->chooseInMenuOf(0, Save);
    QVERIFY(m_journey->waitForWindow("Profile Saved"));
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Profile Saved"));

    const QString id = m_journey->idOf("Chess");
    QVERIFY(id != m_journey->setting("defaultProfile"));
    m_journey->chooseInMenuOf(0, SetDefault);
    m_journey->chooseInMenuOf(0, SetPersistent);
    QTest::qWait(300);
    m_journey->click(tile(0), 3);
    QTest::qWait(400);
    QVERIFY(Journey::saveScreen("profile-menu-checked.png"));
    m_journey->key("Escape");

    m_journey->chooseInMenuOf(0, Test);
    m_journey->chooseInMenuOf(0, Properties);
    // The name is selected, so that typing replaces it.
    QVERIFY(m_journey->waitForWindow("Edit"));
    m_journey->key("ctrl+a");
    m_journey->type("Draughts");
    QVERIFY(Journey::saveScreen("profile-properties.png"));
    m_journey->key("Return");
    QTRY_COMPARE(m_journey->storedNames(), QStringList({"Default Profile", "Draughts"}));

    m_journey->restingBar();
    // The submenu of all keys: its last entry but one asks first. The second tile is the renamed profile.
    m_journey->openKeysMenu(1);
    QVERIFY(Journey::saveScreen("profile-keys-menu.png"));
    for (const char* key : {"End", "Up", "Return"})
        m_journey->key(key);
    QVERIFY(m_journey->waitForWindow("Use Generic"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Use Generic"));
}

void ProfileMenuJourney::iconIsChosenAndGivenUp()
{
    QVERIFY(m_journey->makeProfile("Chess"));
    const QImage before = m_journey->restingBar();
    QImage picture(200, 100, QImage::Format_RGB32);
    picture.fill(QColor(220, 120, 20));
    const QString path = m_journey->dataFile("icon.png");
    QVERIFY(picture.save(path));
    m_journey->chooseInMenuOf(0, ChooseIcon);
    QVERIFY(m_journey->giveFile("Choose Icon", path));
    m_journey->moveTo(BareCanvas);
    QTRY_COMPARE(m_journey->picture().pixelColor(tile(0) - QPoint(10, 10)), QColor(220, 120, 20));
    QVERIFY(m_journey->savePicture("profile-icon.png"));

    // A file that is none.
    QFile file(m_journey->dataFile("no picture.png"));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("none");
    file.close();
    m_journey->chooseInMenuOf(0, ChooseIcon);
    QVERIFY(m_journey->waitForWindow("Choose Icon"));
    m_journey->type(file.fileName());
    m_journey->key("Return");
    QTest::qWait(500);
    QVERIFY(Journey::saveScreen("profile-no-icon.png"));
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Choose Icon"));

    // The entry stands below that by which it was chosen.
    m_journey->chooseInMenuOf(0, ChooseIcon + 1);
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY(m_journey->restingPicture(TileArea) == before);
}

VELTRANO_TEST_MAIN(ProfileMenuJourney)
#include "ProfileMenuJourney.moc"
