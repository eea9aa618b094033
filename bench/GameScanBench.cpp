// How much work the game scan is, and how long it keeps the window from answering.
//
//     GameScanBench [games [megabytes of registry]]
//
// Makes a database of games with two signatures each, of which a tenth is installed, and a Wine prefix with a
// registry of that size. Times are of the CPU, in milliseconds, without the rests that the worker takes.
// Fails if the scan takes longer than it may, or the window.

#include <cServiceMgr.h>
#include <GameLocator.h>
#include <HVS.h>
#include <IProfileMgr.h>
#include <ScanForGamesDialog.h>

#include <QApplication>
#include <QDir>
#include <QDomDocument>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr int DefaultGames = 2000;
constexpr int DefaultMegabytes = 50;
/// Every so many games one is installed.
constexpr int InstalledEvery = 10;
/// How long the work of the default scan may take, and how long the window may be silent.
constexpr double WorkLimit = 1000;
constexpr qint64 SilenceLimit = 50;

double cpuTime(clockid_t clock)
{
    timespec time {};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double processTime()
{
    return cpuTime(CLOCK_PROCESS_CPUTIME_ID);
}

QByteArray keyOf(int game, int signature)
{
    return "Maker " + QByteArray::number(game % 40) + "\\Game " + QByteArray::number(game) + " of "
        + QByteArray::number(signature);
}

void write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", qPrintable(path));
}

void makeDatabase(const QString& path, int games)
{
    QByteArray text = "<profiles>\n";
    for (int i = 0; i < games; ++i) {
        text += "<profile name=\"Game " + QByteArray::number(i) + "\">\n";
        for (int signature = 0; signature < 2; ++signature)
            text += "<signature key=\"HKEY_LOCAL_MACHINE\\SOFTWARE\\" + keyOf(i, signature)
                + "\" value=\"InstallDir\" executable=\"bin\\game.exe\" name=\"\"/>\n";
        text += "<macros><macro name=\"Reload\" display_name=\"Reload\" namespace=\"urn:keys\">"
                "<data><keystroke keys=\"R\"/></data></macro></macros>\n</profile>\n";
    }
    write(path, text + "</profiles>\n");
}

/// A registry as Wine writes them: most of it is classes and their files.
void makePrefix(const QString& prefix, int games, int megabytes)
{
    QByteArray text = "WINE REGISTRY Version 2\n;; All keys relative to \\\\Machine\n\n#arch=win64\n\n";
    text.reserve((megabytes + 1) * 1024 * 1024);
    int game = 0;
    for (int i = 0; text.size() < megabytes * 1024 * 1024; ++i) {
        const QByteArray number = QByteArray::number(i, 16).rightJustified(8, '0');
        text += "[Software\\\\Classes\\\\CLSID\\\\{" + number
            + "-0000-0000-C000-000000000046}\\\\InprocServer32] 1400000000\n#time=1cf0000\n"
              "@=\"C:\\\\windows\\\\system32\\\\"
            + number + ".dll\"\n\"ThreadingModel\"=\"Both\"\n\n";
        if (i % 50 == 0 && game < games) {
            QByteArray key = keyOf(game, 1);
            text += "[Software\\\\Wow6432Node\\\\" + key.replace("\\", "\\\\")
                + "] 1400000000\n#time=1cf0000\n\"InstallDir\"=\"C:\\\\Games\\\\" + QByteArray::number(game)
                + "\"\n\n";
            if (game % InstalledEvery == 0)
                write(prefix + QStringLiteral("/drive_c/Games/%1/Bin/Game.exe").arg(game), "x");
            ++game;
        }
    }
    write(prefix + QStringLiteral("/system.reg"), text);
    write(prefix + QStringLiteral("/user.reg"), "WINE REGISTRY Version 2\n\n");
    QDir().mkpath(prefix + QStringLiteral("/dosdevices"));
    QFile::link(QStringLiteral("../drive_c"), prefix + QStringLiteral("/dosdevices/c:"));
}

/// The profile service of a host without profiles.
class NoProfiles : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("service", "Profiler.ProfileMgr")
    Q_CLASSINFO("version", "1")

public:
    Q_INVOKABLE cJsonValue getProfileByName(const QString&) { return cJsonValue(); }
};

/// The worker's work by itself, without rests: the database, the registry, the signatures.
void measureWorker()
{
    double total = 0;
    const auto step = [&total](const char* name, const auto& work) {
        const double begin = processTime();
        work();
        const double time = processTime() - begin;
        std::printf("%-52s %9.2f ms\n", name, time);
        total += time;
    };
    QDomDocument database;
    QVector<GameSignature> signatures;
    std::unique_ptr<GameLocator> locator;
    int found = 0;
    step("reading the database",
        [&] { HVS::FileReadDom(QStringLiteral("Profiler:/GameDatabase.xml"), database, true); });
    step("collecting the signatures", [&] {
        const QDomElement profiles = database.documentElement();
        for (QDomElement profile = profiles.firstChildElement(); !profile.isNull();
             profile = profile.nextSiblingElement()) {
            for (QDomElement each = profile.firstChildElement(QStringLiteral("signature")); !each.isNull();
                 each = each.nextSiblingElement(QStringLiteral("signature")))
                signatures.append({each.attribute(QStringLiteral("key")),
                    each.attribute(QStringLiteral("value")), each.attribute(QStringLiteral("executable"))});
        }
    });
    step("reading the registry",
        [&] { locator = std::make_unique<GameLocator>(signatures, [] { return false; }); });
    step("locating the games", [&] {
        for (const GameSignature& signature : qAsConst(signatures))
            found += locator->locate(signature).isEmpty() ? 0 : 1;
    });
    std::printf(
        "%-52s %9.2f ms, %d of %d signatures found\n", "the worker's work", total, found, signatures.size());
}

/// What a whole scan took.
class ScanTimes
{
public:
    double work = 0;
    /// Longest time in which the window did not answer.
    qint64 silence = 0;
};

/// The scan in its dialog. Unless that is shown, nothing is drawn, and all the work is the scan's own.
ScanTimes measureDialog(bool isShown)
{
    ScanForGamesDialog dialog(nullptr);
    dialog.setVisible(isShown);
    bool isFinished = false;
    QObject::connect(&dialog, &ScanForGamesDialog::scanCompleted, &dialog, [&] { isFinished = true; });
    ScanTimes times;
    // What lies between two ticks is a time in which the window does not answer.
    QElapsedTimer sinceTick;
    sinceTick.start();
    QTimer ticks;
    ticks.setTimerType(Qt::PreciseTimer);
    QObject::connect(&ticks, &QTimer::timeout, &dialog,
        [&] { times.silence = std::max(times.silence, sinceTick.restart()); });
    if (isShown)
        ticks.start(1);
    QElapsedTimer total;
    total.start();
    const double begin = processTime();
    while (!isFinished)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    times.work = processTime() - begin;
    std::printf("%-52s %9.2f ms, in %.1f s with all rests, %d rows\n",
        isShown ? "the whole scan with the drawing of its window" : "the whole scan without a window",
        times.work, double(total.elapsed()) / 1e3, dialog.findChild<QListWidget*>()->count());
    if (isShown)
        std::printf(
            "%-52s %9lld ms\n", "longest silence of the window", static_cast<long long>(times.silence));
    QApplication::restoreOverrideCursor();
    return times;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qunsetenv("WINEPREFIX");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int games = arguments.size() > 1 ? arguments[1].toInt() : DefaultGames;
    const int megabytes = arguments.size() > 2 ? arguments[2].toInt() : DefaultMegabytes;
    QDir::setSearchPaths(QStringLiteral("Profiler"), {home.path()});
    makeDatabase(home.filePath(QStringLiteral("GameDatabase.xml")), games);
    makePrefix(home.filePath(QStringLiteral(".wine")), games, megabytes);
    NoProfiles profiles;
    IServiceMgr::instance()->registerService(&profiles);
    std::printf("%d games, %d MB of registry\n", games, megabytes);

    measureWorker();
    const ScanTimes hidden = measureDialog(false);
    const ScanTimes shown = measureDialog(true);
    IServiceMgr::instance()->unregisterService(&profiles);
    const bool isDefault = games == DefaultGames && megabytes == DefaultMegabytes;
    if (isDefault && (hidden.work > WorkLimit || shown.silence > SilenceLimit)) {
        std::printf("the scan may take %.0f ms, the window may be silent for %lld ms\n", WorkLimit,
            static_cast<long long>(SilenceLimit));
        return 1;
    }
    return 0;
}

#include "GameScanBench.moc"
