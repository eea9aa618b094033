#include "ScanTestCase.h"

#include <cAnimatedPixmapWidget.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QtConcurrentRun>
#include <QThread>
#include <QThreadPool>

#include <utility>

namespace {

/// Keeps workers from beginning for a moment, as other things that the application does would.
void occupyAllThreads()
{
    for (int i = QThreadPool::globalInstance()->maxThreadCount(); i > 0; --i)
        QtConcurrent::run([] { QThread::msleep(200); });
}

} // namespace

/// What the worker reads of the database, and how several scans get on with each other.
class ScanWorkerTest : public ScanTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void missingAttributesAreEmpty();
    void otherElementsAreNotLookedAt();
    void rowsComeOnTheThreadOfTheWindow();
    void workerRestsBehindEachGame();
    void databaseThatCantBeUsedEndsTheScan_data();
    void databaseThatCantBeUsedEndsTheScan();
    void aSecondScanStartsAnew();
    void dialogsMadeAtOnceScanEachForItself();
    void endOfOneOfTwoDialogsLeavesTheOther_data();
    void endOfOneOfTwoDialogsLeavesTheOther();
    void dialogNeedNotWaitForAWorkerThatNeverBegan();
};

void ScanWorkerTest::missingAttributesAreEmpty()
{
    m_files->writeDatabase("<profiles><profile><signature/></profile><profile name='B'/>"
                           "<profile name='C'><signature key='HKEY_LOCAL_MACHINE\\x'/></profile></profiles>");
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.allRows(), QStringList({"[ ] ", "[ ] C"}));
}

void ScanWorkerTest::otherElementsAreNotLookedAt()
{
    m_files->writeDatabase("<!-- games --><profiles><other name='X'><signature/></other>"
                           "<profile name='A'>text<macros><signature/></macros><signature/></profile>"
                           "<group><profile name='Y'><signature/></profile></group>"
                           "<profile name='B'><signature/></profile></profiles>");
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.allRows(), QStringList({"[ ] A", "[ ] B"}));
}

void ScanWorkerTest::rowsComeOnTheThreadOfTheWindow()
{
    m_files->addGame("A", {true});
    m_files->write();
    const Scan scan;
    QThread* thread = nullptr;
    m_host->answer("getProfileByName", [&thread](const RecordedCall&) { thread = QThread::currentThread(); });
    // Nothing is reported before the window's thread gets round to it.
    QThread::msleep(100);
    QCOMPARE(scan.list->count(), 0);
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(thread, QThread::currentThread());
}

void ScanWorkerTest::workerRestsBehindEachGame()
{
    constexpr int games = 40;
    for (int i = 0; i < games; ++i)
        m_files->addGame(QString::number(i), {false, false});
    m_files->write();
    QElapsedTimer timer;
    timer.start();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.list->count(), 2 * games);
    // How long it takes besides depends on the machine.
    QVERIFY2(timer.elapsed() >= 10 * games, qPrintable(QString::number(timer.elapsed())));
}

void ScanWorkerTest::databaseThatCantBeUsedEndsTheScan_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("warning");

    QTest::newRow("missing") << QByteArray() << "there is no such file";
    QTest::newRow("empty") << QByteArray("") << "it is empty";
    QTest::newRow("malformed") << QByteArray("<profiles><profile name='A'>") << "line 1, column .*";
    QTest::newRow("not XML") << QByteArray("games") << "line 1, column .*";
    QTest::newRow("without profiles") << QByteArray("<games><profile name='A'/></games>") << "";
    QTest::newRow("without profile") << QByteArray("<profiles><game/></profiles>") << "";
    QTest::newRow("profiles without content") << QByteArray("<profiles/>") << "";
}

void ScanWorkerTest::databaseThatCantBeUsedEndsTheScan()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, warning);
    if (!text.isNull())
        m_files->writeDatabase(text);
    std::unique_ptr<ExpectedMessage> message;
    if (!warning.isEmpty()) {
        message = std::make_unique<ExpectedMessage>(
            QtWarningMsg, QRegularExpression("^Can't read Profiler:/GameDatabase.xml: " + warning + "$"));
    }
    Scan scan;
    scan.dialog.show();
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.status->text(), QString("The profiler has completed its scan."));
    QCOMPARE(scan.list->count(), 0);
    QVERIFY(scan.count->isHidden());
    QVERIFY(!scan.animation->isRunning());
    // The wait ends with the reading; where that failed it goes on.
    QCOMPARE(QApplication::overrideCursor() != nullptr, !warning.isEmpty());
    scan.cancel()->click();
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!scan.dialog.isVisible());
    QCOMPARE(m_host->takeCalls(), QStringList());
}

void ScanWorkerTest::aSecondScanStartsAnew()
{
    m_files->addGame("new", {true});
    m_files->write();
    for (int i = 0; i < 3; ++i) {
        const Scan scan;
        QTRY_VERIFY(scan.isFinished());
        QCOMPARE(scan.allRows(), QStringList("[x] new"));
        QCOMPARE(scan.count->text(), QString("1/1 profile(s) found"));
    }
}

void ScanWorkerTest::dialogsMadeAtOnceScanEachForItself()
{
    m_files->addGame("new", {true});
    m_files->write();
    occupyAllThreads();
    const Scan first;
    const Scan second;
    for (const Scan* const each : {&first, &second}) {
        QTRY_VERIFY(each->isFinished());
        QCOMPARE(each->allRows(), QStringList("[x] new"));
    }
}

void ScanWorkerTest::endOfOneOfTwoDialogsLeavesTheOther_data()
{
    QTest::addColumn<bool>("firstEnds");
    QTest::addColumn<bool>("isCancelled");

    QTest::newRow("first cancelled") << true << true;
    QTest::newRow("second cancelled") << false << true;
    QTest::newRow("first deleted") << true << false;
    QTest::newRow("second deleted") << false << false;
}

void ScanWorkerTest::endOfOneOfTwoDialogsLeavesTheOther()
{
    QFETCH(bool, firstEnds);
    QFETCH(bool, isCancelled);
    m_files->addGame("new", {true});
    m_files->write();
    occupyAllThreads();
    auto ends = std::make_unique<Scan>();
    auto stays = std::make_unique<Scan>();
    if (!firstEnds)
        std::swap(ends, stays);
    if (isCancelled)
        ends->cancel()->click();
    else
        ends.reset();
    QTRY_VERIFY(stays->isFinished());
    QCOMPARE(stays->allRows(), QStringList("[x] new"));
}

void ScanWorkerTest::dialogNeedNotWaitForAWorkerThatNeverBegan()
{
    m_files->addGame("new", {true});
    m_files->write();
    occupyAllThreads();
    const Scan first;
    first.cancel()->click();
    const Scan second;
    QTRY_VERIFY(second.isFinished());
    QCOMPARE(second.allRows(), QStringList("[x] new"));
    QCOMPARE(first.allRows(), QStringList());
}

VELTRANO_TEST_MAIN(ScanWorkerTest)
#include "ScanWorkerTest.moc"
