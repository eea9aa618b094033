#include "LuaRun.h"

#include "RunnerLimits.h"

#include <QRegularExpression>
#include <QTextCodec>

namespace {

/// What the runner may be late with ending a script by itself, in milliseconds.
constexpr int Grace = 1000;
/// How long an ended process may take to go, in milliseconds.
constexpr int EndTime = 2000;

} // namespace

LuaRun::LuaRun(const QString& runner, QObject* parent)
    : QObject(parent)
    , m_runner(runner)
    , m_decoder(QTextCodec::codecForName("UTF-8")->makeDecoder())
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(RunnerLimits::Seconds * 1000 + Grace);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(onTimeout()));
    connect(&m_process, SIGNAL(readyReadStandardOutput()), this, SLOT(onOutput()));
    connect(&m_process, SIGNAL(finished(int, QProcess::ExitStatus)), this, SLOT(onFinished()));
    connect(&m_process, SIGNAL(errorOccurred(QProcess::ProcessError)), this,
        SLOT(onProcessError(QProcess::ProcessError)));
}

LuaRun::~LuaRun()
{
    m_process.disconnect(this);
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished(EndTime);
    }
}

bool LuaRun::isAcceptable(const QString& script, const ScriptCall& call, QString* reason)
{
    const auto isWithin = [](const QString& text, std::size_t limit) {
        return std::size_t(text.toUtf8().size()) <= limit;
    };
    if (!isWithin(script, RunnerLimits::ScriptSize)) {
        *reason =
            tr("The script is too large to be run: it may have %1 KB.").arg(RunnerLimits::ScriptSize / 1024);
    } else if (!isWithin(call.function, RunnerLimits::CallSize)
        || !isWithin(call.argument, RunnerLimits::CallSize)) {
        *reason = tr("The script was not run: its function is called with more than %1 KB.")
                      .arg(RunnerLimits::CallSize / 1024);
    }
    return reason->isEmpty();
}

void LuaRun::start(const QString& script, const QString& profileName, const ScriptCall& call)
{
    m_isRunning = true;
    m_timer.start();
    QStringList arguments {profileName};
    if (!call.function.isEmpty())
        arguments << call.function;
    if (!call.argument.isEmpty())
        arguments << call.argument;
    m_process.start(m_runner, arguments);
    m_process.write(script.toUtf8());
    m_process.closeWriteChannel();
}

void LuaRun::stop()
{
    if (!m_isRunning)
        return;
    m_isStopped = true;
    m_process.kill();
}

void LuaRun::onTimeout()
{
    m_isTimedOut = true;
    m_process.kill();
}

void LuaRun::onOutput()
{
    const QString text = m_decoder->toUnicode(m_process.readAllStandardOutput());
    if (!text.isEmpty())
        Q_EMIT printed(text);
}

void LuaRun::onProcessError(QProcess::ProcessError error)
{
    // All others are followed by the end of the process.
    if (error == QProcess::FailedToStart && m_isRunning)
        finish(End::Failed, tr("Scripts can't be run: %1 is missing or damaged.").arg(m_runner));
}

void LuaRun::onFinished()
{
    onOutput();
    if (m_isStopped) {
        finish(End::Stopped);
    } else if (m_isTimedOut) {
        finish(End::Failed, tr("The script ran for more than %1 seconds.").arg(RunnerLimits::Seconds));
    } else if (m_process.exitStatus() != QProcess::NormalExit) {
        finish(End::Failed, tr("The script ended without a message."));
    } else if (m_process.exitCode() != RunnerLimits::Done) {
        readMessage(QString::fromUtf8(m_process.readAllStandardError()));
        finish(End::Failed, m_message);
    } else {
        finish(End::Done);
    }
}

void LuaRun::readMessage(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A%1:(\\d+): (.*)\\z").arg(QLatin1String(RunnerLimits::ScriptName)),
        QRegularExpression::DotMatchesEverythingOption);
    m_message = text;
    // An error out of a coroutine has the place of its call in front of its own.
    for (auto match = pattern.match(m_message); match.hasMatch(); match = pattern.match(m_message)) {
        m_line = match.captured(1).toInt();
        m_message = match.captured(2);
    }
}

void LuaRun::finish(End end, const QString& message)
{
    m_timer.stop();
    m_isRunning = false;
    m_end = end;
    m_message = message;
    Q_EMIT ended();
}
