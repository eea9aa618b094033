#include "ViewJourney.h"

#include <ProfileDocument.h>
#include <ProfileStore.h>

#include <QDir>
#include <QFile>
#include <QImage>

using namespace ViewPlaces;

namespace {

const QString Id = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");
const QString HelpTitle = QStringLiteral("Importing profiles and backups");

} // namespace

/// A profile comes in from a file, goes and comes back: by undo, by redo and from a backup. All by keyboard.
class UndoJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void importIsUndoneRedoneAndBroughtBack();
    void deletedProfileComesBackInTheView();
    void changeOfTheLastMomentSurvivesTheEndOfTheSession_data();
    void changeOfTheLastMomentSurvivesTheEndOfTheSession();

private:
    static QString writeProfile(const Journey& journey);
    static QString stored(const Journey& journey)
    {
        return journey.dataFile("profiles/" + ProfileStore::fileName(Id));
    }
};

QString UndoJourney::writeProfile(const Journey& journey)
{
    Profile profile;
    profile.properties["uid"] = Id;
    profile.properties["name"] = "Dungeon";
    QString path = journey.dataFile("dungeon.lgp");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(ProfileDocument::write({profile}, {})) <= 0)
        return QString();
    return path;
}

void UndoJourney::importIsUndoneRedoneAndBroughtBack()
{
    Journey journey;
    QVERIFY(journey.isRunning());
    const QString file = writeProfile(journey);
    const auto backups = [&] {
        return QDir(journey.dataFile("backups")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    };

    journey.key("ctrl+i");
    QVERIFY(journey.waitForWindow("Import Profiles"));
    journey.type(file);
    QVERIFY(Journey::saveScreen("undo-file.png"));
    journey.key("Return");
    QVERIFY(journey.waitForWindow("Profiles to Import"));
    QVERIFY(Journey::saveScreen("undo-import.png"));
    QVERIFY(journey.opensHelp(HelpTitle));
    journey.key("Return");
    QTRY_VERIFY(QFile::exists(stored(journey)));
    QTRY_VERIFY(backups() == 2);

    const QImage before = Journey::screen();
    journey.key("alt+e");
    QTRY_VERIFY(Journey::screen() != before);
    QVERIFY(Journey::saveScreen("undo-menu.png"));
    journey.key("Escape");
    journey.key("ctrl+z");
    QTRY_VERIFY(!QFile::exists(stored(journey)));
    journey.key("ctrl+shift+z");
    QTRY_VERIFY(QFile::exists(stored(journey)));
    journey.key("ctrl+z");
    QTRY_VERIFY(!QFile::exists(stored(journey)));

    journey.key("ctrl+b");
    QVERIFY(journey.waitForWindow("Backups"));
    QVERIFY(Journey::saveScreen("undo-backups.png"));
    QVERIFY(journey.opensHelp(HelpTitle));
    journey.key("alt+a");
    QTRY_VERIFY(QFile::exists(stored(journey)));
    QVERIFY(Journey::saveScreen("undo-brought-back.png"));
    journey.key("Escape");
    journey.key("ctrl+z");
    QTRY_VERIFY(!QFile::exists(stored(journey)));

    QVERIFY(journey.end());
}

void UndoJourney::deletedProfileComesBackInTheView()
{
    ViewJourney journey;
    QVERIFY(journey.isRunning());
    const QImage onlyDefault = journey.restingView();
    journey.key("ctrl+i");
    QVERIFY(journey.waitForWindow("Import Profiles"));
    journey.type(writeProfile(journey));
    journey.key("Return");
    QVERIFY(journey.waitForWindow("Profiles to Import"));
    QVERIFY(Journey::saveScreen("undo-view-import.png"));
    journey.key("Return");
    QTRY_VERIFY(QFile::exists(stored(journey)));

    // The second tile takes the focus of the keyboard.
    journey.click(tile(1));
    const QImage both = journey.restingView();
    QVERIFY(both != onlyDefault);
    QVERIFY(journey.savePicture("undo-view-both.png"));
    journey.key("Delete");
    QVERIFY(journey.waitForWindow("Delete Profile"));
    journey.key("y");
    QTRY_VERIFY(!QFile::exists(stored(journey)));
    QVERIFY(journey.restingView() != both);
    QVERIFY(journey.savePicture("undo-view-deleted.png"));
    journey.key("ctrl+z");
    QTRY_VERIFY(QFile::exists(stored(journey)));
    QTRY_VERIFY(journey.restingView() == both);

    QVERIFY(journey.end());
}

void UndoJourney::changeOfTheLastMomentSurvivesTheEndOfTheSession_data()
{
    QTest::addColumn<QString>("open");
    QTest::newRow("nothing is open") << QString();
    QTest::newRow("a dialog is open") << "Backups";
}

void UndoJourney::changeOfTheLastMomentSurvivesTheEndOfTheSession()
{
    QFETCH(QString, open);
    Journey journey;
    QVERIFY(journey.isRunning());
    journey.key("ctrl+i");
    QVERIFY(journey.waitForWindow("Import Profiles"));
    journey.type(writeProfile(journey));
    journey.key("Return");
    QVERIFY(journey.waitForWindow("Profiles to Import"));
    journey.key("Return");
    QTRY_VERIFY(QFile::exists(stored(journey)));
    journey.key("ctrl+z");
    QTRY_VERIFY(!QFile::exists(stored(journey)));
    if (!open.isEmpty()) {
        journey.key("ctrl+b");
        QVERIFY(journey.waitForWindow(open));
    } else {
        // Half a second before it is written in any case.
        journey.key("ctrl+shift+z");
    }
    journey.askToEnd();
    QVERIFY(journey.waitForEnd());
    QVERIFY(!journey.hasCrashed());
    QCOMPARE(journey.exitCode(), 0);
    QCOMPARE(journey.errors(), QString());
    QCOMPARE(QFile::exists(stored(journey)), open.isEmpty());
}

VELTRANO_TEST_MAIN(UndoJourney)
#include "UndoJourney.moc"
