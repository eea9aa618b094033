#include "Journey.h"

#include <TestCase.h>
#include <WineHome.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <tuple>
#include <utility>

namespace {

const QString ScanTitle = QStringLiteral("Scan For New Games");

/// The names and targets of all profiles on the disk, as in "Game=/path".
QSet<QString> storedProfiles(const QString& folder)
{
    QSet<QString> found;
    QDir profiles(folder);
    const QStringList files = profiles.entryList({QStringLiteral("*.xml")}, QDir::Files);
    for (const QString& name : files) {
        QFile file(profiles.filePath(name));
        QDomDocument document;
        if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
            continue;
        const QDomElement profile = document.documentElement().firstChildElement(QStringLiteral("profile"));
        found.insert(profile.attribute(QStringLiteral("name")) + QLatin1Char('=')
            + profile.firstChildElement(QStringLiteral("target")).text());
    }
    return found;
}

} // namespace

/// The first start on a machine with games.
class GameScanJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void firstStartScansAndMakesTheChosenProfiles();
};

void GameScanJourney::firstStartScansAndMakesTheChosenProfiles()
{
    const WineHome home;
    home.addPrefix(".wine",
        WineHome::hive(
            {"[Software\\\\Wow6432Node\\\\Quarto Nine\\\\Aqueduct]", R"("InstallDir"="C:\\Games\\AQUEDUCT")",
                "[Software\\\\Feldspar Works\\\\Bisque]", R"("InstallDir"="C:\\Gone")"}),
        WineHome::hive({"[Software\\\\Otterquill\\\\Apiary Overdrive]", R"("InstallDir"="C:\\Games\\Apiary")",
            "[Software\\\\Slow Barge\\\\Bellows & Bagpipes]", R"("InstallDir"="Z:\\none")"}));
    home.write(".wine/drive_c/Games/Apiary/Apiary.exe");
    const QString aqueduct = home.write(".wine/drive_c/Games/Aqueduct/Bin/aqueduct.exe");

    const QTemporaryDir data;
    const QStringList start {
        "--data-dir", data.path(), "--device", "Veltrano.Gaming.LeftHandedController.K13", "--open-view"};
    {
        Journey journey(start);
        QVERIFY(journey.isRunning());
        QVERIFY(journey.waitForWindow(ScanTitle));
        QVERIFY(Journey::saveScreen("scan-begin.png"));
        // The list has filled when the picture stands still.
        QImage last = Journey::screen();
        std::ignore = QTest::qWaitFor(
            [&] {
                QTest::qWait(500);
                return std::exchange(last, Journey::screen()) == last;
            },
            30000);
        QVERIFY(Journey::saveScreen("scan-end.png"));
        // The first game is the one that is not wanted.
        journey.key("Home");
        journey.key("space");
        QVERIFY(Journey::saveScreen("scan-unchecked.png"));
        journey.key("Return");
        QTRY_VERIFY(!journey.hasWindow(ScanTitle));
        QVERIFY(Journey::saveScreen("scan-profiles.png"));
        journey.key("ctrl+q");
        QVERIFY(journey.waitForEnd());
        QVERIFY(!journey.hasCrashed());
        QCOMPARE(journey.exitCode(), 0);
        QCOMPARE(journey.errors(), QString());
    }
    const QSet<QString> stored = storedProfiles(data.filePath("profiles"));
    QVERIFY2(stored.contains("Aqueduct Assault Team=" + aqueduct), qPrintable(stored.values().join('\n')));
    for (const QString& profile : stored)
        QVERIFY2(!profile.startsWith("Apiary"), qPrintable(profile));
    QCOMPARE(stored.size(), 2);

    // It is offered once.
    Journey journey(start);
    QVERIFY(journey.isRunning());
    QTest::qWait(2000);
    QVERIFY(!journey.hasWindow(ScanTitle));
    journey.key("ctrl+q");
    QVERIFY(journey.waitForEnd());
    QCOMPARE(journey.errors(), QString());
}

VELTRANO_TEST_MAIN(GameScanJourney)
#include "GameScanJourney.moc"
