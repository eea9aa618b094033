#include "Journey.h"

#include <ProfileDocument.h>
#include <ProfileStore.h>
#include <TestCase.h>

#include <QDir>
#include <QFile>

namespace {

const QString Id = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");

} // namespace

/// A profile comes in from a file, goes and comes back: by undo, by redo and from a backup. All by keyboard.
class UndoJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void importIsUndoneRedoneAndBroughtBack();
};

void UndoJourney::importIsUndoneRedoneAndBroughtBack()
{
    Journey journey;
    QVERIFY(journey.isRunning());
    Profile profile;
    profile.properties["uid"] = Id;
    profile.properties["name"] = "Dungeon";
    const QString file = journey.dataFile("dungeon.lgp");
    QFile written(file);
    QVERIFY(written.open(QIODevice::WriteOnly));
    written.write(ProfileDocument::write({profile}, {}));
    written.close();
    const QString stored = journey.dataFile("profiles/" + ProfileStore::fileName(Id));
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
    journey.key("Return");
    QTRY_VERIFY(QFile::exists(stored));
    QTRY_VERIFY(backups() == 2);

    const QImage before = Journey::screen();
    journey.key("alt+e");
    QTRY_VERIFY(Journey::screen() != before);
    QVERIFY(Journey::saveScreen("undo-menu.png"));
    journey.key("Escape");
    journey.key("ctrl+z");
    QTRY_VERIFY(!QFile::exists(stored));
    journey.key("ctrl+shift+z");
    QTRY_VERIFY(QFile::exists(stored));
    journey.key("ctrl+z");
    QTRY_VERIFY(!QFile::exists(stored));

    journey.key("ctrl+b");
    QVERIFY(journey.waitForWindow("Backups"));
    QVERIFY(Journey::saveScreen("undo-backups.png"));
    journey.key("alt+a");
    QTRY_VERIFY(QFile::exists(stored));
    QVERIFY(Journey::saveScreen("undo-brought-back.png"));
    journey.key("Escape");
    journey.key("ctrl+z");
    QTRY_VERIFY(!QFile::exists(stored));

    journey.key("ctrl+q");
    QVERIFY(journey.waitForEnd());
    QVERIFY(!journey.hasCrashed());
    QCOMPARE(journey.exitCode(), 0);
    QCOMPARE(journey.errors(), QString());
}

VELTRANO_TEST_MAIN(UndoJourney)
#include "UndoJourney.moc"
