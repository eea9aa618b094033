// What the command list costs with very many commands: to fill, to search, to sort, to select, to scroll, to
// empty.
//
//     CommandListBench [commands]...
//
// Times are of the thread's CPU, in milliseconds; a turn is one round of the event loop, painting included.
// Fails if a turn of the fill or a keystroke of a search takes longer than it may.

#include <cMacroList.h>
#include <IMacroType.h>
#include <IServiceMgr.h>
#include <PluginFolder.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>

namespace {

/// The longest that a turn of the fill and a keystroke may take, in milliseconds.
constexpr double TurnLimit = 16;
constexpr double KeystrokeLimit = 50;
constexpr int Types = 10;

double cpuTime()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

template<typename Work>
double measure(const Work& work)
{
    const double begin = cpuTime();
    work();
    return cpuTime() - begin;
}

QString typeId(int number)
{
    return QStringLiteral("urn:type:%1").arg(number);
}

class Type : public IMacroType
{
public:
    explicit Type(int number)
        : m_number(number)
    { }
    cJsonValue info() override
    {
        cJsonValue info;
        info["uid"] = typeId(m_number);
        info["displayname"] = "Type";
        info["iconpath"] = QStringLiteral(VELTRANO_SOURCE_DIR "/host/resources/images/macro_keystroke.png");
        return info;
    }
    IMacroEditor* editor(cJsonValue) override { return nullptr; }
    cJsonValue XmlToJson(QDomElement) override { return {}; }
    QDomElement JsonToXml(QDomDocument, cJsonValue) override { return {}; }
    cPlayStatePtr createPlayState(cJsonValue) override { return {}; }
    bool isRepeatable() override { return true; }
    bool isPrivate() override { return false; }
    bool isFixedName() override { return false; }
    int getPriority() override { return 0; }

private:
    const int m_number;
};

/// A host that answers at once, so that what is measured is the list.
class Host : public IServiceMgr
{
public:
    Host()
    {
        for (int i = 0; i < Types; ++i)
            m_types.append(cMacroTypePtr(new Type(i)));
        IServiceMgr::setInstance(this);
    }
    virtual ~Host() { IServiceMgr::setInstance(nullptr); }

    cJsonValue m_macros;

    void requireService(const QString&, const QString&) override { }
    bool hasService(const QString&) const override { return true; }
    void registerService(QObject*) override { }
    void unregisterService(QObject*) override { }
    bool invoke(const QString&, const QString&, QGenericArgument, QGenericArgument, QGenericArgument,
        QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument,
        QGenericArgument, QGenericArgument) override
    {
        return true;
    }
    bool invoke(const QString&, const QString& operation, QGenericReturnArgument result,
        QGenericArgument value0, QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument,
        QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument) override
    {
        if (operation == QLatin1String("macros"))
            *static_cast<cJsonValue*>(result.data()) = m_macros;
        else if (operation == QLatin1String("getAllMacroTypes"))
            *static_cast<IMacroTypePtrList*>(result.data()) = m_types;
        else if (operation == QLatin1String("isMacroAssigned"))
            *static_cast<bool*>(result.data()) = false;
        else if (operation == QLatin1String("getMacroTypeByID")) {
            const QString& id = *static_cast<QString*>(value0.data());
            *static_cast<cMacroTypePtr*>(result.data()) = m_types[id.section(':', 2).toInt()];
        }
        return true;
    }
    void subscribe(const QString&, QObject*, const QString&) override { }
    void unsubscribe(const QString&, QObject*) override { }
    void publish(const QString&, const QString&, QGenericArgument, QGenericArgument, QGenericArgument,
        QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument,
        QGenericArgument, QGenericArgument) override
    { }

private:
    IMacroTypePtrList m_types;
};

/// Commands in no order, with names of one to three words.
cJsonValue makeMacros(int count)
{
    static const QStringList words {"Jump", "Fire", "Reload", "Crouch", "Sprint", "Grenade", "Map", "Command",
        "Mute", "Push to talk", "Volume", "Next weapon", "Heal", "Shield", "Screenshot"};
    std::mt19937 random(1);
    cJsonValue macros(cJsonValue::arrayValue);
    for (int i = 0; i < count; ++i) {
        cJsonValue macro;
        macro["uid"] = QStringLiteral("{%1}").arg(i);
        macro["namespace"] = typeId(int(random() % Types));
        macro["hidden"] = false;
        macro["display_name"] = QStringLiteral("%1 %2 %3")
                                    .arg(words[int(random() % unsigned(words.size()))],
                                        words[int(random() % unsigned(words.size()))])
                                    .arg(random() % 10000);
        macros.append(macro);
    }
    return macros;
}

/// Turns the event loop until nothing is left to do.
void settle()
{
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

bool search(cMacroList& list, const QString& text)
{
    const double time = measure([&] {
        QMetaObject::invokeMethod(&list, "onSearch", Q_ARG(QString, text));
        settle();
    });
    std::printf("    search %-22s %8.1f ms\n", qPrintable('"' + text + '"'), time);
    return time <= KeystrokeLimit;
}

bool run(Host& host, int commands)
{
    host.m_macros = makeMacros(commands);
    QWidget window;
    cMacroList list(&window);
    window.show();
    settle();

    bool filling = false;
    QObject::connect(&list, &cMacroList::populating, [&] { filling = true; });
    QObject::connect(&list, &cMacroList::populated, [&] { filling = false; });
    double total = measure([&] { list.onProfileSelectionChanged(QString()); });
    double longest = total;
    while (filling) {
        const double turn = measure([] { QCoreApplication::processEvents(); });
        longest = qMax(longest, turn);
        total += turn;
    }
    settle();
    std::printf("%6d commands: fill %8.0f ms, %5.2f ms each, longest turn %5.1f ms\n", commands, total,
        total / commands, longest);
    bool good = longest <= TurnLimit && list.count() == commands;

    for (const char* text : {"j", "ju", "jum", "jump", "", "command 1", "9", "zzz", "[a-c]", "(", ""})
        good = search(list, text) && good;

    std::printf("    select one            %8.1f ms\n", measure([&] {
        list.setCurrentRow(commands / 2);
        settle();
    }));
    std::printf("    scroll by one notch   %8.2f ms\n", measure([&] {
        list.verticalScrollBar()->setValue(list.verticalScrollBar()->value() + 60);
        settle();
    }));
    std::printf("    sort by type          %8.1f ms\n", measure([&] {
        list.setSortMode(cListWidgetItem::SortByType);
        list.sortItems();
        settle();
    }));
    std::printf("    rename one            %8.1f ms\n", measure([&] {
        cJsonValue macro = host.m_macros[commands / 2];
        macro["display_name"] = "A new name";
        list.onmacroChanged(QString(), macro);
        settle();
    }));
    std::printf("    delete one            %8.1f ms\n", measure([&] {
        list.onmacroDeleted(QString(), host.m_macros[commands / 2]);
        settle();
    }));
    std::printf("    empty                 %8.1f ms\n", measure([&] {
        host.m_macros = cJsonValue(cJsonValue::arrayValue);
        list.onProfileSelectionChanged(QString());
        settle();
    }));
    return good;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QDir source(QStringLiteral(VELTRANO_SOURCE_DIR));
    const PluginFolder folder(source.path());
    QFile styleSheet(source.filePath(QStringLiteral("host/resources/style/veltrano.qss")));
    if (!styleSheet.open(QIODevice::ReadOnly))
        return 1;
    application.setStyleSheet(QString::fromUtf8(styleSheet.readAll()));

    Host host;
    QStringList counts = QCoreApplication::arguments().mid(1);
    if (counts.isEmpty())
        counts = QStringList({"1000", "2000", "4000", "10000"});
    const bool good = std::all_of(
        counts.cbegin(), counts.cend(), [&](const QString& count) { return run(host, count.toInt()); });
    if (!good)
        std::printf("a turn took longer than %.0f ms, or a keystroke longer than %.0f ms\n", TurnLimit,
            KeystrokeLimit);
    return good ? 0 : 1;
}
