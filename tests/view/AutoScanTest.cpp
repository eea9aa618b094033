#include "ViewFixture.h"

#include <ScanForGamesDialog.h>
#include <TestCase.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>

namespace {

/// How long the view waits before it offers the scan, in milliseconds.
constexpr int Delay = 500;

const QString Stored = QStringLiteral(R"(setPropertyBool("profiler/autoScannedForGames", true))");

ScanForGamesDialog* openScan()
{
    return qobject_cast<ScanForGamesDialog*>(QApplication::activeModalWidget());
}

/// Looks for the scan's dialog, which holds up its caller until it is closed: does something with it and
/// closes it.
class ScanWatcher
{
    Q_DISABLE_COPY(ScanWatcher)

public:
    explicit ScanWatcher(std::function<void(ScanForGamesDialog&)> action)
        : m_action(std::move(action))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(5);
    }

    bool hasSeen() const { return m_hasSeen; }

private:
    void look()
    {
        ScanForGamesDialog* const dialog = openScan();
        if (!dialog)
            return;
        m_timer.stop();
        m_action(*dialog);
        if (dialog->isVisible())
            dialog->reject();
        m_hasSeen = true;
    }

    std::function<void(ScanForGamesDialog&)> m_action;
    QTimer m_timer;
    bool m_hasSeen = false;
};

/// Those of the calls so far that concern the setting and are not the question for it.
QStringList storing(const RecordingHost& host)
{
    QStringList found;
    for (const RecordedCall& call : host.calls()) {
        if (call.operation.startsWith(QLatin1String("setProperty")))
            found.append(call.brief());
    }
    return found;
}

} // namespace

/// The scan that the view offers by itself, once.
class AutoScanTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void firstStartOffersTheScan_data();
    void firstStartOffersTheScan();
    void laterStartsOfferNone();
    void scanComesAfterAMoment();
    void viewThatHasGoneOffersNone();
    void dialogStandsOnTheMainWindow();

private:
    std::unique_ptr<QTemporaryDir> m_home;
    QByteArray m_previousHome;
};

void AutoScanTest::init()
{
    // A machine without games, whatever the user of this one has.
    m_home = std::make_unique<QTemporaryDir>();
    m_previousHome = qgetenv("HOME");
    qputenv("HOME", m_home->path().toLocal8Bit());
    QFile database(m_home->filePath("GameDatabase.xml"));
    QVERIFY(database.open(QIODevice::WriteOnly));
    database.write("<profiles><profile name='A'><signature/></profile></profiles>");
    QDir::setSearchPaths("Profiler", {m_home->path()});
}

void AutoScanTest::cleanup()
{
    QDir::setSearchPaths("Profiler", {});
    qputenv("HOME", m_previousHome);
    m_home.reset();
}

void AutoScanTest::firstStartOffersTheScan_data()
{
    QTest::addColumn<bool>("accepts");

    QTest::newRow("accepted") << true;
    QTest::newRow("declined") << false;
}

void AutoScanTest::firstStartOffersTheScan()
{
    QFETCH(bool, accepts);
    ViewFixture fixture;
    fixture.host.answer("getPropertyBool", false);
    fixture.open();
    QVERIFY(!openScan());
    const ScanWatcher watcher([&](ScanForGamesDialog& dialog) {
        QCOMPARE(dialog.windowModality(), Qt::WindowModal);
        QCOMPARE(storing(fixture.host), QStringList());
        if (accepts)
            dialog.accept();
    });
    QTRY_VERIFY(watcher.hasSeen());
    QTRY_COMPARE(storing(fixture.host), QStringList(Stored));
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
}

void AutoScanTest::laterStartsOfferNone()
{
    ViewFixture fixture;
    fixture.host.answer("getPropertyBool", true);
    fixture.open();
    const ScanWatcher watcher([](ScanForGamesDialog&) {});
    QTest::qWait(2 * Delay);
    QVERIFY(!watcher.hasSeen());
    QCOMPARE(storing(fixture.host), QStringList());
}

void AutoScanTest::scanComesAfterAMoment()
{
    ViewFixture fixture;
    QElapsedTimer timer;
    fixture.host.answer("getPropertyBool", false);
    timer.start();
    fixture.open();
    qint64 delay = 0;
    const ScanWatcher watcher([&](ScanForGamesDialog&) { delay = timer.elapsed(); });
    QTRY_VERIFY(watcher.hasSeen());
    // A coarse timer may come a little early.
    QVERIFY2(delay >= Delay * 9 / 10, qPrintable(QString::number(delay)));
}

void AutoScanTest::viewThatHasGoneOffersNone()
{
    {
        ViewFixture fixture;
        fixture.host.answer("getPropertyBool", false);
        fixture.open();
    }
    const ScanWatcher watcher([](ScanForGamesDialog&) {});
    QTest::qWait(2 * Delay);
    QVERIFY(!watcher.hasSeen());
}

void AutoScanTest::dialogStandsOnTheMainWindow()
{
    QWidget window;
    window.show();
    ViewFixture fixture;
    fixture.host.answer("getPropertyBool", false);
    fixture.host.answer("window", &window);
    fixture.open();
    const ScanWatcher watcher([&](ScanForGamesDialog& dialog) { QCOMPARE(dialog.parentWidget(), &window); });
    QTRY_VERIFY(watcher.hasSeen());
}

VELTRANO_TEST_MAIN(AutoScanTest)
#include "AutoScanTest.moc"
