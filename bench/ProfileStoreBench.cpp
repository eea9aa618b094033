// How long the profiles of a heavy user take: to read at the start, to save one change, to take a step.
//
//     ProfileStoreBench [profiles [commands]]
//     ProfileStoreBench --read <folder>
//
// Times are of the process's CPU, in milliseconds, and by the clock, which the disk and neighbours lengthen.
// The second form reads a folder and says how long that took. The first form calls it, since the application
// reads when it has just started: into memory that its process never had before, which costs time of its own.
// Fails if reading takes longer than it may.

#include "ManyProfiles.h"
#include "Measure.h"

#include <ProfileBackups.h>
#include <ProfileBook.h>
#include <ProfileStore.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <limits>
#include <utility>

using namespace ProfileChanges;

namespace {

/// Longest time that reading the default number may take, in milliseconds.
constexpr double ReadLimit = 1000;
constexpr int Repetitions = 3;

const QString ReadOption = QStringLiteral("--read");

void show(const char* what, const Times& times)
{
    std::printf("%-32s %9.2f ms, %9.2f ms by the clock\n", what, times.cpu, times.clock);
}

template<typename Work>
void measure(const char* what, const Work& work)
{
    const Stopwatch stopwatch;
    work();
    show(what, stopwatch.times());
}

void readInto(ProfileBook& book, ProfileStore& store)
{
    ProfileStep step;
    for (Profile& profile : store.readAll())
        step.changes.emplace_back(InsertProfile {std::move(profile), -1});
    book.apply(std::move(step));
}

int readFolder(const QString& folder)
{
    const MacroTypeLookup types = ManyProfiles::types();
    ProfileBook book;
    ProfileStore store(folder, types, [&](const QString& id) { return book.find(id); });
    const Stopwatch stopwatch;
    readInto(book, store);
    stopwatch.times().print();
    return 0;
}

/// The best of a few, since neighbours on the machine cost CPU time too.
double measureReading(const QString& folder)
{
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < Repetitions; ++i) {
        const Times times = Times::ofOwnProcess({ReadOption, folder});
        show("read all in a new process", times);
        best = qMin(best, times.cpu);
    }
    return best;
}

void measureChanges(const QString& folder, int profiles)
{
    const MacroTypeLookup types = ManyProfiles::types();
    ProfileBook book;
    ProfileStore store(folder, types, [&](const QString& id) { return book.find(id); });
    readInto(book, store);
    const QString id = ManyProfiles::uid(profiles / 2, 0);
    measure("one change in memory", [&] {
        book.apply({{SetAssignment {id, ManyProfiles::control(1), ManyProfiles::uid(profiles / 2, 2)}}});
    });
    store.markChanged(id);
    measure("one change on disk", [&] { store.writeNow(); });
    const QTemporaryDir backupsFolder;
    ProfileBackups backups(backupsFolder.path(), folder, types);
    measure("first backup", [&] { backups.make(ProfileBackups::Reason::Daily); });
    measure("backup after one change", [&] { backups.make(ProfileBackups::Reason::Deletion); });
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == ReadOption)
        return readFolder(arguments.value(2));
    const int profiles = arguments.value(1, QString::number(ManyProfiles::DefaultProfiles)).toInt();
    const int commands = arguments.value(2, QString::number(ManyProfiles::DefaultCommands)).toInt();

    const QTemporaryDir folder;
    measure("make and write all", [&] { ManyProfiles::write(folder.path(), profiles, commands); });
    qint64 bytes = 0;
    const QFileInfoList documents = QDir(folder.path()).entryInfoList({QStringLiteral("*.xml")});
    for (const QFileInfo& each : documents)
        bytes += each.size();
    std::printf(
        "%d profiles of %d commands, %.1f MB\n", documents.size(), commands, double(bytes) / 1024 / 1024);

    const double readTime = measureReading(folder.path());
    measureChanges(folder.path(), profiles);
    if (profiles == ManyProfiles::DefaultProfiles && commands == ManyProfiles::DefaultCommands
        && readTime > ReadLimit) {
        std::printf("reading took longer than %.0f ms\n", ReadLimit);
        return 1;
    }
    return 0;
}
