#include "GameFiles.h"

#include <RecordingHost.h>
#include <ScanForGamesDialog.h>
#include <TestCase.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QThread>
#include <QThreadPool>
#include <QTimer>

#include <memory>

namespace {

/// Longest time that a cancel may keep the window from answering, in milliseconds; the machine that tests may
/// be busy with other things.
constexpr int Patience = 2000;

QPushButton* cancelButton(const QDialog& dialog)
{
    for (auto* const each : dialog.findChildren<QPushButton*>()) {
        if (each->text() == QLatin1String("Cancel"))
            return each;
    }
    return nullptr;
}

/// Whether the worker goes on. The pool takes a moment to learn of an end, but far less than a whole scan
/// does.
bool isWorkerAtWork()
{
    constexpr int moment = 200;
    return !QThreadPool::globalInstance()->waitForDone(moment);
}

} // namespace

/// Ending the scan while its worker is at work.
class ScanCancelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void cancelAtOnce_data();
    void cancelAtOnce();
    void cancelAtAnyMoment();
    void cancelWhileFindingsAreReported();
    void cancelWhileALargeHiveIsRead();
    void signaturesOfTheCurrentGameAreStillReported();
    void noCallIsMadeAfterwards();
    void dialogOnTheStackOfItsCaller_data();
    void dialogOnTheStackOfItsCaller();
    void dialogThatIsDeletedInItsScanWaitsForTheWorker();
    void parentThatIsDeletedEndsTheScan();
    void manyScansInARow();

private:
    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<GameFiles> m_files;
};

void ScanCancelTest::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_files = std::make_unique<GameFiles>();
    for (int i = 0; i < 100; ++i)
        m_files->addGame(QString("Game %1").arg(i), {i % 2 == 0, i % 3 == 0, false});
    m_files->write();
}

void ScanCancelTest::cleanup()
{
    m_host.reset();
    m_files.reset();
    QVERIFY(!isWorkerAtWork());
    QVERIFY(!QApplication::overrideCursor());
}

void ScanCancelTest::cancelAtOnce_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << "button";
    QTest::newRow("escape") << "escape";
    QTest::newRow("close") << "close";
    QTest::newRow("reject") << "reject";
}

void ScanCancelTest::cancelAtOnce()
{
    QFETCH(QString, way);
    ScanForGamesDialog dialog(nullptr);
    dialog.show();
    QVERIFY(QApplication::overrideCursor());
    if (way == "button")
        cancelButton(dialog)->click();
    else if (way == "escape")
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else if (way == "close")
        dialog.close();
    else
        dialog.reject();
    QVERIFY(!isWorkerAtWork());
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void ScanCancelTest::cancelAtAnyMoment()
{
    // In steps that no part of the worker's round divides.
    for (int delay = 0; delay < 300; delay += 7) {
        ScanForGamesDialog dialog(nullptr);
        dialog.show();
        QTimer::singleShot(delay, &dialog, SLOT(reject()));
        QTRY_VERIFY(!dialog.isVisible());
        QVERIFY(!isWorkerAtWork());
        QVERIFY(!QApplication::overrideCursor());
    }
}

void ScanCancelTest::cancelWhileFindingsAreReported()
{
    // The first row comes while the worker goes on.
    for (int rows = 1; rows < 20; ++rows) {
        ScanForGamesDialog dialog(nullptr);
        dialog.show();
        int asked = 0;
        m_host->answer("getProfileByName", [&](const RecordedCall&) {
            if (++asked == rows)
                dialog.reject();
        });
        QTRY_VERIFY(!dialog.isVisible());
        QVERIFY(!isWorkerAtWork());
    }
}

void ScanCancelTest::cancelWhileALargeHiveIsRead()
{
    QFile hive(m_files->home().path(".wine/system.reg"));
    QVERIFY(hive.open(QIODevice::Append));
    const QByteArray block = QByteArray("[Software\\\\Nobody]\n\"a\"=\"b\"\n").repeated(40000);
    for (int i = 0; i < 80; ++i)
        QVERIFY(hive.write(block) == block.size());
    hive.close();

    ScanForGamesDialog dialog(nullptr);
    dialog.show();
    // The database is read; now it is the registry's turn.
    QTRY_VERIFY(!QApplication::overrideCursor());
    QElapsedTimer timer;
    timer.start();
    dialog.reject();
    QVERIFY2(timer.elapsed() < Patience, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(!isWorkerAtWork());
}

void ScanCancelTest::signaturesOfTheCurrentGameAreStillReported()
{
    QByteArray games = "<profiles>";
    for (const char* const name : {"First", "Second"}) {
        games += QByteArray("<profile name='") + name + "'>";
        for (int i = 0; i < 500; ++i)
            games += "<signature name='" + QByteArray::number(i) + "'/>";
        games += "</profile>";
    }
    m_files->writeDatabase(games + "</profiles>");
    ScanForGamesDialog dialog(nullptr);
    dialog.show();
    bool isCancelled = false;
    m_host->answer("getProfileByName", [&](const RecordedCall&) {
        if (!isCancelled)
            dialog.reject();
        isCancelled = true;
    });
    QTRY_VERIFY(!dialog.isVisible());
    QCoreApplication::sendPostedEvents();
    const auto* const list = dialog.findChild<QListWidget*>();
    QCOMPARE(list->findItems("First", Qt::MatchStartsWith).size(), 500);
    // A slow window may have seen the second game begin; games are never reported in part.
    const int second = list->findItems("Second", Qt::MatchStartsWith).size();
    QVERIFY2(second == 0 || second == 500, qPrintable(QString::number(second)));
}

void ScanCancelTest::noCallIsMadeAfterwards()
{
    {
        ScanForGamesDialog dialog(nullptr);
        dialog.show();
        const auto* const list = dialog.findChild<QListWidget*>();
        QTRY_VERIFY(list->count() > 5);
        m_host->clear();
        dialog.reject();
    }
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QCOMPARE(m_host->takeCalls(), QStringList());
}

void ScanCancelTest::dialogOnTheStackOfItsCaller_data()
{
    QTest::addColumn<int>("delay");

    QTest::newRow("at once") << 0;
    QTest::newRow("in the scan") << 100;
}

void ScanCancelTest::dialogOnTheStackOfItsCaller()
{
    QFETCH(int, delay);
    QWidget window;
    window.show();
    ScanForGamesDialog dialog(&window);
    QTimer::singleShot(delay, &dialog, SLOT(reject()));
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

void ScanCancelTest::dialogThatIsDeletedInItsScanWaitsForTheWorker()
{
    for (int delay = 0; delay < 60; delay += 5) {
        {
            const ScanForGamesDialog dialog(nullptr);
            QTest::qWait(delay);
        }
        QVERIFY(!isWorkerAtWork());
        // Nobody has rejected it, so the cursor may still wait.
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
    }
}

void ScanCancelTest::parentThatIsDeletedEndsTheScan()
{
    auto window = std::make_unique<QWidget>();
    // As all callers have it; it stays theirs.
    ScanForGamesDialog dialog(window.get());
    dialog.show();
    const auto* const list = dialog.findChild<QListWidget*>();
    QTRY_VERIFY(list->count() > 0);
    window.reset();
    QVERIFY(!dialog.isVisible());
    QTRY_VERIFY(!isWorkerAtWork());
}

void ScanCancelTest::manyScansInARow()
{
    for (int i = 0; i < 200; ++i) {
        ScanForGamesDialog dialog(nullptr);
        if (i % 3 == 0)
            QCoreApplication::processEvents();
        if (i % 5 == 0)
            QThread::msleep(3);
        dialog.reject();
    }
}

VELTRANO_TEST_MAIN(ScanCancelTest)
#include "ScanCancelTest.moc"
