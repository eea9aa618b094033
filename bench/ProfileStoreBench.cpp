// How long the profiles of a heavy user take: to read at the start, to save one change, to take a step.
//
//     ProfileStoreBench [profiles [commands]]
//
// Times are of the process's CPU, in milliseconds, and by the clock, which the disk and neighbours lengthen.
// Fails if reading takes longer than it may.

#include <ProfileBackups.h>
#include <ProfileBook.h>
#include <ProfileDocument.h>
#include <ProfileStore.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>
#include <limits>
#include <utility>

using namespace ProfileChanges;

namespace {

constexpr int DefaultProfiles = 200;
constexpr int DefaultCommands = 200;
/// Longest time that reading the default number may take, in milliseconds.
constexpr double ReadLimit = 1000;
constexpr int Repetitions = 3;

/// A type that writes data the way those of the application do: an element with attributes and children.
class KeysType : public IMacroType
{
public:
    cJsonValue info() override { return {}; }
    IMacroEditor* editor(cJsonValue) override { return nullptr; }
    cJsonValue XmlToJson(QDomElement element) override
    {
        cJsonValue data;
        for (QDomElement key = element.firstChildElement(); !key.isNull(); key = key.nextSiblingElement()) {
            cJsonValue event;
            event["key"] = key.attribute(QStringLiteral("key"));
            event["delay"] = key.attribute(QStringLiteral("delay")).toInt();
            data["events"].append(event);
        }
        return data;
    }
    QDomElement JsonToXml(QDomDocument document, cJsonValue macro) override
    {
        QDomElement element = document.createElement(QStringLiteral("keys"));
        const cJsonValue& events = macro["data"]["events"];
        for (unsigned i = 0; i < events.size(); ++i) {
            QDomElement key = document.createElement(QStringLiteral("key"));
            key.setAttribute(QStringLiteral("key"), qAsConst(events)[int(i)]["key"].toString());
            key.setAttribute(QStringLiteral("delay"), qAsConst(events)[int(i)]["delay"].toInt());
            element.appendChild(key);
        }
        return element;
    }
    cPlayStatePtr createPlayState(cJsonValue) override { return {}; }
    bool isRepeatable() override { return true; }
    bool isPrivate() override { return false; }
    bool isFixedName() override { return false; }
    int getPriority() override { return 0; }
};

QString uid(int profile, int number)
{
    return QStringLiteral("{%1-0000-0000-0000-%2}")
        .arg(profile, 8, 16, QLatin1Char('0'))
        .arg(number, 12, 16, QLatin1Char('0'))
        .toUpper();
}

Profile makeProfile(int number, int commands)
{
    Profile profile;
    profile.properties["uid"] = uid(number, 0);
    profile.properties["name"] = QStringLiteral("Profile %1").arg(number);
    profile.properties["description"] = "Made to be measured";
    for (int i = 1; i <= commands; ++i) {
        cJsonValue macro;
        macro["uid"] = uid(number, i);
        macro["name"] = QStringLiteral("Command %1").arg(i);
        macro["display_name"] = macro["name"];
        macro["namespace"] = "urn:keys";
        macro["hidden"] = false;
        for (int event = 0; event < 4; ++event) {
            cJsonValue key;
            key["key"] = QStringLiteral("F%1").arg(event);
            key["delay"] = 25;
            macro["data"]["events"].append(key);
        }
        profile.macros.push_back(macro);
        const ControlKey control {QStringLiteral("Veltrano.Gaming.Keyboard"), MKey::MKey_t(i % 3),
            QStringLiteral("G%1").arg(i % 29)};
        profile.assignments[control] = uid(number, i);
    }
    profile.categories.insert(QStringLiteral("Veltrano.Gaming.Keyboard"));
    return profile;
}

/// CPU time of the process so far, in milliseconds.
double cpuTime()
{
    timespec time {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

template<typename Work>
double measure(const char* what, const Work& work)
{
    QElapsedTimer clock;
    clock.start();
    const double begin = cpuTime();
    work();
    const double time = cpuTime() - begin;
    std::printf("%-32s %9.2f ms, %9.2f ms by the clock\n", what, time, double(clock.nsecsElapsed()) / 1e6);
    return time;
}

void readInto(ProfileBook& book, ProfileStore& store)
{
    ProfileStep step;
    for (Profile& profile : store.readAll())
        step.changes.emplace_back(InsertProfile {std::move(profile), -1});
    book.apply(std::move(step));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int profiles = arguments.size() > 1 ? arguments[1].toInt() : DefaultProfiles;
    const int commands = arguments.size() > 2 ? arguments[2].toInt() : DefaultCommands;
    const cMacroTypePtr type(new KeysType);
    const MacroTypeLookup types = [&](const QString&) -> cMacroTypePtr {
        return type;
    };
    const QTemporaryDir folder;
    const auto place = folder.path();

    ProfileBook book;
    ProfileStep fill;
    for (int i = 0; i < profiles; ++i)
        fill.changes.emplace_back(InsertProfile {makeProfile(i, commands), -1});
    book.apply(fill);
    {
        ProfileStore store(place, types, [&](const QString& id) { return book.find(id); });
        store.readAll();
        for (const QString& id : book.ids())
            store.markChanged(id);
        measure("write all", [&] { store.writeNow(); });
    }
    qint64 bytes = 0;
    for (const QFileInfo& each : QDir(place).entryInfoList({QStringLiteral("*.xml")}))
        bytes += each.size();
    std::printf("%d profiles of %d commands, %.1f MB\n", profiles, commands, double(bytes) / 1024 / 1024);

    // The best of a few, since neighbours on the machine cost CPU time too.
    double readTime = std::numeric_limits<double>::max();
    for (int i = 0; i < Repetitions; ++i) {
        ProfileBook again;
        ProfileStore store(place, types, [&](const QString& id) { return again.find(id); });
        readTime = qMin(readTime, measure("read all", [&] { readInto(again, store); }));
    }
    ProfileBook readBook;
    ProfileStore store(place, types, [&](const QString& id) { return readBook.find(id); });
    readInto(readBook, store);
    if (readBook.ids().size() != profiles) {
        std::printf("read %d profiles only\n", readBook.ids().size());
        return 1;
    }
    const QString id = uid(profiles / 2, 0);
    const ControlKey control {QStringLiteral("Veltrano.Gaming.Keyboard"), MKey::M1, QStringLiteral("G1")};
    measure("one change in memory", [&] {
        readBook.apply({{SetAssignment {id, control, uid(profiles / 2, 1)}}});
    });
    store.markChanged(id);
    measure("one change on disk", [&] { store.writeNow(); });
    const QTemporaryDir backupsFolder;
    ProfileBackups backups(backupsFolder.path(), place, types);
    measure("first backup", [&] { backups.make(ProfileBackups::Reason::Daily); });
    measure("backup after one change", [&] { backups.make(ProfileBackups::Reason::Deletion); });
    if (profiles == DefaultProfiles && commands == DefaultCommands && readTime > ReadLimit) {
        std::printf("reading took longer than %.0f ms\n", ReadLimit);
        return 1;
    }
    return 0;
}
