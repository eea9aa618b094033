#include "Journey.h"

#include <TestCase.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

namespace {

/// The mouse's memory has 128 KB and takes 32 of them in a second.
constexpr int LargeText = 55 * 1024;

const QString LargeName = QStringLiteral("profiles/00000000-0000-0000-0000-000000000001.xml");

QByteArray largeProfile()
{
    return "<profiles version=\"1\"><profile uid=\"{00000000-0000-0000-0000-000000000001}\" "
           "name=\"Zeppelin\"><description>"
        + QByteArray(LargeText, 'z') + "</description></profile></profiles>";
}

} // namespace

/// Profiles on the way into the mouse.
class OnBoardJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void mouseIsPulledOutWhileItIsWrittenAndThenFull();
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

    journey.key("ctrl+q");
    QVERIFY(journey.waitForEnd());
    QVERIFY(!journey.hasCrashed());
    QCOMPARE(journey.errors(), QString());
}

VELTRANO_TEST_MAIN(OnBoardJourney)
#include "OnBoardJourney.moc"
