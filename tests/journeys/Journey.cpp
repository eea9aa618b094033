#include "Journey.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QScreen>
#include <QtTest>

#include <tuple>

namespace {

/// Longest wait for something that the application does, in milliseconds.
constexpr int Patience = 20000;

} // namespace

Journey::Journey(const QStringList& arguments, const QMap<QString, QByteArray>& files)
{
    for (auto file = files.begin(); file != files.end(); ++file) {
        QFile written(dataFile(file.key()));
        if (!written.open(QIODevice::WriteOnly) || written.write(file.value()) != file.value().size())
            return;
    }
    start(QStringLiteral(JOURNEY_APPLICATION),
        QStringList({QStringLiteral("--data-dir"), m_data.path()}) + arguments, QStringLiteral("Veltrano"));
}

Journey::Journey(const QString& program, const QStringList& arguments, const QString& title)
{
    start(program, arguments, title);
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
    const QString processId = QString::number(m_process.processId());
    std::ignore = QTest::qWaitFor(
        [&] {
            m_window = xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                   QStringLiteral("--pid"), processId, QStringLiteral("--name"), title})
                           .section(QLatin1Char('\n'), 0, 0);
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

void Journey::click(const QPoint& point)
{
    xdotool({QStringLiteral("mousemove"), QStringLiteral("--window"), m_window, QString::number(point.x()),
        QString::number(point.y()), QStringLiteral("click"), QStringLiteral("1")});
}

bool Journey::hasWindow(const QString& title) const
{
    return !xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--pid"),
                        QString::number(m_process.processId()), QStringLiteral("--name"), title})
                .isEmpty();
}

bool Journey::waitForWindow(const QString& title)
{
    return QTest::qWaitFor([&] { return hasWindow(title); }, Patience);
}

void Journey::key(const QString& chord)
{
    xdotool({QStringLiteral("key"), chord});
}

void Journey::type(const QString& text)
{
    xdotool({QStringLiteral("type"), text});
}

QImage Journey::picture() const
{
    return QGuiApplication::primaryScreen()->grabWindow(WId(m_window.toULongLong())).toImage();
}

QImage Journey::screen()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
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
