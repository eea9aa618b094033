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
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QWindow>

#include <cstdio>
#include <cstdlib>
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

/// Makes the backup of the folder one of the day before.
void passADay(const QString& folder)
{
    const QDir backups(folder + QStringLiteral("/backups"));
    const QString name = backups.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    const QDateTime time = QDateTime::fromString(name, QStringLiteral("yyyyMMdd-HHmmss"));
    const QDateTime dayBefore = time.addDays(-1);
    QFile contents(backups.filePath(name + QStringLiteral("/backup.json")));
    if (!time.isValid() || !contents.open(QIODevice::ReadWrite)) {
        std::fprintf(stderr, "the start made no backup\n");
        std::exit(1);
    }
    const QByteArray text = contents.readAll().replace(
        time.date().toString(Qt::ISODate).toLatin1(), dayBefore.date().toString(Qt::ISODate).toLatin1());
    contents.seek(0);
    contents.write(text);
    contents.close();
    QDir().rename(
        backups.filePath(name), backups.filePath(dayBefore.toString(QStringLiteral("yyyyMMdd-HHmmss"))));
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
    measureStart("first start with many, backs up all", full.path());
    passADay(full.path());
    measureStart("first start of the next day", full.path());
    const double with = bestOfStarts("start with many profiles", full.path());
    std::printf("%d profiles of %d commands cost %.0f ms\n", profiles, commands, with - without);
    if (profiles == ManyProfiles::DefaultProfiles && commands == ManyProfiles::DefaultCommands
        && with - without > Limit) {
        std::printf("they may cost %.0f ms\n", Limit);
        return 1;
    }
    return 0;
}
