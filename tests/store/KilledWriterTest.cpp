#include "RandomProfiles.h"

#include <ProfileStore.h>
#include <TestCase.h>

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <chrono>
#include <limits>
#include <thread>

namespace {

/// How often the writer is killed.
constexpr int Kills = 250;
/// Longest life of a writer once it writes, in microseconds.
constexpr int LongestLife = 30000;

} // namespace

class KilledWriterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyProfileSurvivesAKillAtAnyMoment();
};

void KilledWriterTest::everyProfileSurvivesAKillAtAnyMoment()
{
    const QTemporaryDir directory;
    const QString folder = directory.filePath(QStringLiteral("profiles"));
    QRandomGenerator random(42);
    std::size_t count = 0;
    int highest = 0;
    int finished = 1;
    for (int kill = 0; kill < Kills; ++kill) {
        QProcess writer;
        writer.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        writer.start(QStringLiteral(STORE_WRITER), {folder});
        QVERIFY(writer.waitForReadyRead());
        // The first writer gets through a round, so that there is something to lose.
        while (kill == 0 && !writer.readAllStandardOutput().contains("3\n"))
            QVERIFY(writer.waitForReadyRead());
        std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(LongestLife)));
        writer.kill();
        QVERIFY(writer.waitForFinished());
        QCOMPARE(writer.exitStatus(), QProcess::CrashExit);

        ProfileStore store(folder, {}, [](const QString&) { return nullptr; });
        QSignalSpy problems(&store, SIGNAL(problem(QString)));
        QVERIFY(!store.isReadOnly());
        const std::vector<Profile> profiles = store.readAll();
        QVERIFY2(problems.isEmpty(), qPrintable(problems.value(0).value(0).toString()));
        if (kill == 0)
            count = profiles.size();
        QCOMPARE(profiles.size(), count);
        // No document falls behind what was there before the writer that was killed.
        int lowest = std::numeric_limits<int>::max();
        for (const Profile& profile : profiles) {
            lowest = qMin(lowest, profile.properties["round"].toInt());
            highest = qMax(highest, profile.properties["round"].toInt());
        }
        QVERIFY(lowest >= finished);
        finished = lowest;
    }
    QVERIFY(count >= 5);
    // The kills did hit writers at work.
    QVERIFY2(highest > Kills / 4, qPrintable(QString::number(highest)));
}

VELTRANO_TEST_MAIN(KilledWriterTest)
#include "KilledWriterTest.moc"
