#include <FixedIds.h>
#include <ProfileStore.h>
#include <TestCase.h>

#include <QDateTime>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

/// Longest wait for something that the application does, in milliseconds.
constexpr int Patience = 60000;
/// How long the application has to be quiet until it has written all that it has to write.
constexpr int QuietTime = 4 * ProfileStore::WriteDelay;

} // namespace

/// The real application, twice on the same data.
class SecondProcessTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void secondProcessSaysSoAndWritesNothing();

private:
    QStringList arguments() const { return {"--data-dir", m_data.path()}; }
    QString dataFile(const QString& name) const { return m_data.filePath(name); }
    /// Runs the application until it has taken a picture of itself.
    QImage pictureOfARun() const;
    /// Names, times and contents of all that the data folder holds.
    QStringList snapshot() const;
    /// What the message strip's amber edge covers.
    static int amberPixels(const QImage& picture);

    QTemporaryDir m_data;
};

QImage SecondProcessTest::pictureOfARun() const
{
    const QTemporaryDir pictures;
    QProcess process;
    process.start(QStringLiteral(APPLICATION), arguments() + QStringList({"--screenshots", pictures.path()}));
    if (!process.waitForFinished(Patience) || process.exitStatus() != QProcess::NormalExit)
        return QImage();
    return QImage(pictures.filePath("home.png"));
}

QStringList SecondProcessTest::snapshot() const
{
    QStringList lines;
    QDirIterator files(m_data.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        const QString time = files.fileInfo().lastModified().toString(Qt::ISODateWithMs);
        const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
        lines.append(files.filePath() + ' ' + time + ' ' + QString::fromUtf8(content));
    }
    lines.sort();
    return lines;
}

int SecondProcessTest::amberPixels(const QImage& picture)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixelColor(x, y) == QColor(0xe0, 0xb0, 0x5a) ? 1 : 0;
    }
    return count;
}

void SecondProcessTest::secondProcessSaysSoAndWritesNothing()
{
    const QString document =
        dataFile(QStringLiteral("profiles/") + ProfileStore::fileName(FixedIds::DefaultProfile));
    const QImage alone = pictureOfARun();
    QVERIFY(!alone.isNull());
    QCOMPARE(amberPixels(alone), 0);
    QVERIFY(QFile::exists(document));

    QProcess first;
    first.start(QStringLiteral(APPLICATION), arguments());
    QVERIFY(first.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(dataFile("profiles/.lock")), Patience);
    QStringList before;
    QElapsedTimer quiet;
    const auto isQuiet = [&] {
        const QStringList now = snapshot();
        if (before != now) {
            before = now;
            quiet.start();
        }
        return quiet.elapsed() > QuietTime;
    };
    QTRY_VERIFY_WITH_TIMEOUT(isQuiet(), Patience);
    // Alone, the second one would write the missing profile and set the damaged one aside.
    QVERIFY(QFile::remove(document));
    QFile damaged(dataFile("profiles/damaged.xml"));
    QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("damaged") > 0);
    damaged.close();
    before = snapshot();

    const QImage told = pictureOfARun();
    QVERIFY(!told.isNull());
    QVERIFY(told.save(QStringLiteral(PICTURES_FOLDER "/second-process.png")));
    QVERIFY(amberPixels(told) > told.width());
    QCOMPARE(snapshot(), before);
    QCOMPARE(first.state(), QProcess::Running);

    // The lock ends with its process, however that ends.
    first.kill();
    QVERIFY(first.waitForFinished(Patience));
    QVERIFY(!pictureOfARun().isNull());
    QVERIFY(QFile::exists(document));
    QVERIFY(!QFile::exists(damaged.fileName()));
    QVERIFY(snapshot() != before);
}

VELTRANO_TEST_MAIN(SecondProcessTest)
#include "SecondProcessTest.moc"
