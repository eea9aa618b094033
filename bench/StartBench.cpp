// What the profiles of a heavy user cost at the application's start: CPU time until its window is shown, with
// them and without any.
//
//     StartBench [profiles [commands]]
//     StartBench --start <data folder>
//
// The first form calls the second one, which starts the application over the folder and says how long that
// took. Fails if the profiles cost more than they may.

#include "ManyProfiles.h"
#include "Measure.h"

#include <ApplicationLook.h>
#include <HostApplication.h>
#include <MainWindow.h>

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QWindow>

#include <cstdio>
#include <limits>

namespace {

/// How much longer a start with the default number may take than one without any, in milliseconds.
constexpr double Limit = 1000;
constexpr int Repetitions = 3;

const QString StartOption = QStringLiteral("--start");

int start(int argc, char** argv)
{
    const Stopwatch stopwatch;
    QApplication application(argc, argv);
    const QString folder = QApplication::arguments().value(2);
    ApplicationLook::apply();
    HostApplication host(ApplicationPaths::ofExecutable(),
        CommandLine({QApplication::arguments().first(), QStringLiteral("--data-dir"), folder}));
    host.start();
    while (!host.window().windowHandle()->isExposed())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    // What the window shows first.
    QApplication::processEvents();
    stopwatch.timesSinceStart().print();
    return 0;
}

Times measureStart(const char* what, const QString& folder)
{
    const Times times = Times::ofOwnProcess({StartOption, folder});
    std::printf("%-40s %9.2f ms, %9.2f ms by the clock\n", what, times.cpu, times.clock);
    return times;
}

/// The best of a few, since neighbours on the machine cost CPU time too.
double bestOfStarts(const char* what, const QString& folder)
{
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < Repetitions; ++i)
        best = qMin(best, measureStart(what, folder).cpu);
    return best;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc > 2 && QString::fromLocal8Bit(argv[1]) == StartOption)
        return start(argc, argv);

    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int profiles = arguments.value(1, QString::number(ManyProfiles::DefaultProfiles)).toInt();
    const int commands = arguments.value(2, QString::number(ManyProfiles::DefaultCommands)).toInt();
    const QTemporaryDir empty;
    const QTemporaryDir full;
    ManyProfiles::write(full.filePath(QStringLiteral("profiles")), profiles, commands);

    measureStart("the very first start", empty.path());
    const double without = bestOfStarts("start with the default profile", empty.path());
    measureStart("first start of a new version", full.path());
    QDir(full.filePath(QStringLiteral("backups"))).removeRecursively();
    measureStart("first start of a day", full.path());
    const double with = bestOfStarts("start with many profiles", full.path());
    std::printf("%d profiles of %d commands cost %.0f ms\n", profiles, commands, with - without);
    if (profiles == ManyProfiles::DefaultProfiles && commands == ManyProfiles::DefaultCommands
        && with - without > Limit) {
        std::printf("they may cost %.0f ms\n", Limit);
        return 1;
    }
    return 0;
}
