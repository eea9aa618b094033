#include "Journey.h"

#include <AppConstants.h>
#include <TestCase.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSet>

namespace {

/// The mouse's memory has 128 KB and takes 32 of them in a second.
constexpr int LargeText = 55 * 1024;

const QString LargeName = QStringLiteral("profiles/00000000-0000-0000-0000-000000000001.xml");

const QByteArray LargeId = "{00000000-0000-0000-0000-000000000001}";

/// Where the view has its button that writes the profile to the device.
constexpr QRect SyncButton(38 + 180, AppConstants::HeaderHeight + 157 - 1, 29, 29);

QByteArray largeProfile(const QByteArray& deviceId = {})
{
    return "<profiles version=\"1\"><profile uid=\"" + LargeId + "\" name=\"Zeppelin\" deviceid=\"" + deviceId
        + "\"><description>" + QByteArray(LargeText, 'z') + "</description></profile></profiles>";
}

} // namespace

/// Profiles on the way into the mouse.
class OnBoardJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void mouseIsPulledOutWhileItIsWrittenAndThenFull();
    void viewOffersWhatIsNotWrittenAndWritesIt();
};

void OnBoardJourney::mouseIsPulledOutWhileItIsWrittenAndThenFull()
{
    Journey journey({"--device", "Veltrano.Gaming.Mouse.M5"}, {{LargeName, largeProfile()}});
    QVERIFY(journey.isRunning());
    const QString memory = journey.dataFile("onboard/M5Device");
    const QString away = journey.dataFile("elsewhere");
    const auto stored = [&] {
        return QDir(memory).entryList({"*.xml"}, QDir::Files).size();
    };
    QTRY_VERIFY(QDir(memory).exists());
    journey.key("alt+m");
    journey.key("o");
    QVERIFY(journey.waitForWindow("On-board Memory"));

    journey.key("End");
    journey.key("alt+c");
    QTRY_COMPARE_WITH_TIMEOUT(stored(), 1, 20000);
    QVERIFY(Journey::saveScreen("onboard-written.png"));
    QVERIFY(!journey.showsMessage());

    journey.key("alt+c");
    QElapsedTimer timer;
    timer.start();
    // In the middle of its two seconds.
    QTRY_VERIFY(timer.elapsed() > 700);
    QCOMPARE(stored(), 1);
    QVERIFY(QFile::rename(memory, away));
    QTRY_VERIFY_WITH_TIMEOUT(journey.showsMessage(), 20000);
    QVERIFY(journey.isRunning());
    QVERIFY(Journey::saveScreen("onboard-pulled.png"));

    QVERIFY(QFile::rename(away, memory));
    QCOMPARE(stored(), 1);
    // The button comes to life when the mouse has been read again.
    QTRY_VERIFY_WITH_TIMEOUT((journey.key("alt+w"), stored() == 2), 20000);

    // No room for a third one.
    QTRY_VERIFY_WITH_TIMEOUT((journey.key("alt+c"), Journey::countWindows("On-board Memory") == 2), 20000);
    QVERIFY(Journey::saveScreen("onboard-full.png"));
    journey.key("Return");
    QTRY_COMPARE(Journey::countWindows("On-board Memory"), 1);
    QCOMPARE(stored(), 2);
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("On-board Memory"), 0);

    QVERIFY(journey.end());
}

void OnBoardJourney::viewOffersWhatIsNotWrittenAndWritesIt()
{
    Journey journey({"--device", "Veltrano.Gaming.Mouse.M5", "--open-view"},
        {{LargeName, largeProfile("Veltrano.Gaming.Mouse.M5#demonstration")},
            {"settings.json",
                R"({"version": 1, "settings": {"profiler": {"autoScannedForGames": true, "lastProfile": ")"
                    + LargeId + "\"}}}"}});
    QVERIFY(journey.isRunning());
    const auto button = [&] {
        return journey.picture().copy(SyncButton);
    };
    const QImage offered = journey.restingPicture(SyncButton);
    QVERIFY(journey.savePicture("onboard-view-offered.png"));

    journey.click(SyncButton.center());
    journey.moveTo(QPoint(AppConstants::SceneSize.width() / 2, AppConstants::HeaderHeight / 2));
    // It turns for as long as the device is written, nearly two seconds.
    QSet<QByteArray> looks;
    const auto look = [&] {
        const QImage shown = button();
        looks.insert(QByteArray(reinterpret_cast<const char*>(shown.constBits()), int(shown.sizeInBytes())));
        return looks.size() >= 5;
    };
    QTRY_VERIFY(look());
    QVERIFY(journey.savePicture("onboard-view-writing.png"));
    const QDir memory(journey.dataFile("onboard/M5Device"));
    QTRY_COMPARE_WITH_TIMEOUT(memory.entryList({"*.xml"}, QDir::Files).size(), 1, 20000);
    const QImage written = journey.restingPicture(SyncButton);
    QVERIFY(journey.savePicture("onboard-view-written.png"));
    QVERIFY(written != offered);

    // With nothing to write there is no button from the start.
    QVERIFY(journey.restart());
    QCOMPARE(journey.restingPicture(SyncButton), written);
    QVERIFY(journey.end());
}

VELTRANO_TEST_MAIN(OnBoardJourney)
#include "OnBoardJourney.moc"
