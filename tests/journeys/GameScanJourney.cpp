#include "ViewJourney.h"

#include <WineHome.h>

#include <QByteArray>
#include <QDomElement>
#include <QMap>
#include <QRect>

namespace {

const QString ScanTitle = QStringLiteral("Scan For New Games");

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

    ViewJourney journey(QMap<QString, QByteArray> {{"settings.json", QByteArray()}});
    QVERIFY(journey.isRunning());
    QVERIFY(journey.waitForWindow(ScanTitle));
    QVERIFY(Journey::saveScreen("scan-begin.png"));
    // The list, which stands in the middle of the screen, has filled when its picture stands still.
    QRect list(0, 0, 400, 400);
    list.moveCenter(Journey::screen().rect().center());
    Journey::restingScreen(list);
    QVERIFY(Journey::saveScreen("scan-end.png"));
    // The first game is the one that is not wanted.
    journey.key("Home");
    journey.key("space");
    QVERIFY(Journey::saveScreen("scan-unchecked.png"));
    journey.key("Return");
    QVERIFY(journey.waitForNoWindow(ScanTitle));
    QVERIFY(Journey::saveScreen("scan-profiles.png"));

    QTRY_COMPARE(journey.storedNames(), QStringList({"Aqueduct Assault Team", ViewJourney::DefaultProfile}));
    const QDomElement target = journey.storedProfiles().first().firstChildElement("target");
    QCOMPARE(target.text(), aqueduct);

    // It is offered once.
    QVERIFY(journey.restart());
    QTest::qWait(2000);
    QVERIFY(!journey.hasWindow(ScanTitle));
    QVERIFY(journey.end());
}

VELTRANO_TEST_MAIN(GameScanJourney)
#include "GameScanJourney.moc"
