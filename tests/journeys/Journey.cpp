#include "Journey.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QScreen>
#include <QtTest>

#include <tuple>
#include <utility>

namespace {

/// Longest wait for something that the application does, in milliseconds.
constexpr int Patience = 20000;
/// Longer than anything stands still in the middle of a movement.
constexpr int LookInterval = 500;

/// What `look` gives once it gives the same twice in a row.
template<typename Look>
QImage resting(const Look& look)
{
    QImage last = look();
    std::ignore = QTest::qWaitFor(
        [&] {
            QTest::qWait(LookInterval);
            return std::exchange(last, look()) == last;
        },
        Patience);
    return last;
}

} // namespace

Journey::Journey(const QStringList& arguments, const QMap<QString, QByteArray>& files)
    : m_arguments(QStringList({QStringLiteral("--data-dir"), m_data.path()}) + arguments)
{
    writeSettings();
    for (auto file = files.begin(); file != files.end(); ++file) {
        if (file.value().isNull())
            QFile::remove(dataFile(file.key()));
        else
            write(file.key(), file.value());
    }
    start(QStringLiteral(JOURNEY_APPLICATION), m_arguments, QStringLiteral("Veltrano"));
}

Journey::Journey(const QString& program, const QStringList& arguments, const QString& title)
{
    start(program, arguments, title);
}

void Journey::writeSettings() const
{
    write(QStringLiteral("settings.json"),
        R"({"version": 1, "settings": {"profiler": {"autoScannedForGames": true}}})");
}

void Journey::write(const QString& name, const QByteArray& content) const
{
    QFile file(dataFile(name));
    QDir().mkpath(QFileInfo(file.fileName()).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", qPrintable(file.fileName()));
}

void Journey::start(const QString& program, const QStringList& arguments, const QString& title)
{
    // A runtime folder as a session has it; the machine that tests may have none.
    const QString runtime = m_data.filePath(QStringLiteral("runtime"));
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    m_process.setProcessEnvironment(environment);
    m_process.start(program, arguments);
    if (!m_process.waitForStarted())
        return;
    std::ignore = QTest::qWaitFor(
        [&] {
            m_window = windows(title).section(QLatin1Char('\n'), 0, 0);
            return !m_window.isEmpty() || m_process.state() != QProcess::Running;
        },
        Patience);
    if (!m_window.isEmpty())
        xdotool({QStringLiteral("windowactivate"), QStringLiteral("--sync"), m_window});
}

Journey::~Journey()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

QString Journey::xdotool(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    process.waitForFinished(Patience);
    return QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
}

bool Journey::restart()
{
    key(QStringLiteral("ctrl+q"));
    if (!waitForEnd() || hasCrashed() || exitCode() != 0)
        return false;
    errors();
    m_window.clear();
    start(QStringLiteral(JOURNEY_APPLICATION), m_arguments, QStringLiteral("Veltrano"));
    return isRunning();
}

QString Journey::windows(const QString& title) const
{
    // Without "--all" one of the conditions is enough.
    return xdotool({QStringLiteral("search"), QStringLiteral("--all"), QStringLiteral("--onlyvisible"),
        QStringLiteral("--pid"), QString::number(m_process.processId()), QStringLiteral("--name"), title});
}

QStringList Journey::moveCommand(const QPoint& point) const
{
    return {QStringLiteral("mousemove"), QStringLiteral("--window"), m_window, QString::number(point.x()),
        QString::number(point.y())};
}

void Journey::moveTo(const QPoint& point)
{
    xdotool(moveCommand(point));
}

void Journey::click(const QPoint& point, int button)
{
    xdotool(moveCommand(point) + QStringList({QStringLiteral("click"), QString::number(button)}));
}

void Journey::doubleClick(const QPoint& point)
{
    xdotool(moveCommand(point)
        + QStringList({QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"),
            QStringLiteral("--delay"), QStringLiteral("80"), QStringLiteral("1")}));
}

void Journey::clickWith(const QString& key, const QPoint& point)
{
    xdotool(QStringList({QStringLiteral("keydown"), key}) + moveCommand(point)
        + QStringList({QStringLiteral("click"), QStringLiteral("1"), QStringLiteral("keyup"), key}));
}

void Journey::drag(const QPoint& from, const QPoint& to)
{
    dragAndHold(from, to);
    drop();
}

void Journey::dragAndHold(const QPoint& from, const QPoint& to)
{
    constexpr int Steps = 8;
    // Not to be taken for the second press of a double click.
    const QStringList settle {QStringLiteral("sleep"), QStringLiteral("0.6")};
    const QStringList pause {QStringLiteral("sleep"), QStringLiteral("0.05")};
    const QStringList answer {QStringLiteral("sleep"), QStringLiteral("0.3")};
    QStringList commands =
        moveCommand(from) + settle + QStringList({QStringLiteral("mousedown"), QStringLiteral("1")});
    for (int step = 1; step <= Steps; ++step)
        commands += pause + moveCommand(from + (to - from) * step / Steps);
    // A drag looks around when the pointer moves: once more at the end, and with time for the answer.
    xdotool(commands + answer + moveCommand(to + QPoint(1, 1)) + answer);
}

void Journey::drop()
{
    xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});
}

void Journey::type(const QString& text)
{
    xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("40"), text});
}

bool Journey::hasWindow(const QString& title) const
{
    return !windows(title).isEmpty();
}

bool Journey::waitForWindow(const QString& title)
{
    return QTest::qWaitFor(
        [&] {
            return hasWindow(title)
                && xdotool({QStringLiteral("getactivewindow"), QStringLiteral("getwindowname")})
                       .contains(title);
        },
        Patience);
}

bool Journey::waitForNoWindow(const QString& title)
{
    return QTest::qWaitFor([&] { return !hasWindow(title); }, Patience);
}

int Journey::countWindows(const QString& title)
{
    const QString found =
        xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), title});
    return found.split(QLatin1Char('\n'), Qt::SkipEmptyParts).size();
}

void Journey::key(const QString& chord)
{
    xdotool({QStringLiteral("key"), chord});
}

QStringList Journey::childProcesses() const
{
    QFile file(QStringLiteral("/proc/%1/task/%1/children").arg(m_process.processId()));
    if (!file.open(QIODevice::ReadOnly))
        return {QStringLiteral("unknown")};
    return QString::fromLatin1(file.readAll()).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QImage Journey::picture() const
{
    return QGuiApplication::primaryScreen()->grabWindow(WId(m_window.toULongLong())).toImage();
}

QImage Journey::restingPicture(const QRect& area) const
{
    return resting([&] { return picture().copy(area); });
}

QImage Journey::screen()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

QImage Journey::restingScreen(const QRect& area)
{
    return resting([&] { return screen().copy(area); });
}

bool Journey::saveScreen(const QString& name)
{
    QDir().mkpath(QStringLiteral(JOURNEY_PICTURES));
    return screen().save(QStringLiteral(JOURNEY_PICTURES "/") + name);
}

bool Journey::savePicture(const QString& name) const
{
    QDir().mkpath(QStringLiteral(JOURNEY_PICTURES));
    return picture().save(QStringLiteral(JOURNEY_PICTURES "/") + name);
}

bool Journey::showsMessage() const
{
    constexpr QRgb Amber = qRgb(0xe0, 0xb0, 0x5a);
    const QImage shown = picture();
    int edge = 0;
    for (int y = 0; y < shown.height(); ++y)
        edge += shown.pixel(shown.width() / 2, y) == Amber ? 1 : 0;
    return edge > 0;
}

bool Journey::opensHelp(const QString& title)
{
    key(QStringLiteral("F1"));
    if (!waitForWindow(title + QStringLiteral(" - Help")))
        return false;
    key(QStringLiteral("Escape"));
    return QTest::qWaitFor([] { return countWindows(QStringLiteral("Help")) == 0; }, Patience);
}

bool Journey::end()
{
    key(QStringLiteral("ctrl+q"));
    if (!waitForEnd() || hasCrashed() || exitCode() != 0)
        return false;
    // Presses in wells are logged, and nothing else.
    QString told = errors();
    told.remove(
        QRegularExpression(QStringLiteral("MacroBindingView: User clicked on empty profile well \\d\n")));
    if (!told.isEmpty())
        qWarning("%s", qPrintable(told));
    return told.isEmpty();
}

bool Journey::waitForEnd()
{
    return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(Patience);
}

QString Journey::errors()
{
    m_errors += QString::fromLocal8Bit(m_process.readAllStandardError());
    // The search box's style sheets are fixed down to a brace too many, which Qt remarks on and passes over.
    m_errors.remove(
        QRegularExpression(QStringLiteral("Could not parse stylesheet of object cSearchBox\\(.*\\)\n")));
    return m_errors;
}
