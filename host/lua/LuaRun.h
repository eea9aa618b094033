#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTextDecoder>
#include <QTimer>

#include <memory>

/// A function that is called once the script has run through.
struct ScriptCall
{
    /// Its name, of one part or more that are joined by points; empty for none.
    QString function;
    /// Empty for none.
    QString argument;
};

/// One run of a script, in a process of its own. It can be stopped at any moment, whatever the script does,
/// and never holds up who started it.
class LuaRun : public QObject
{
    Q_OBJECT

public:
    enum class End { Done, Failed, Stopped };

    /// `runner` is the program that runs scripts.
    explicit LuaRun(const QString& runner, QObject* parent = nullptr);
    /// Stops the script.
    ~LuaRun() override;

    /// True if the script may be run, else why not, for people.
    static bool isAcceptable(const QString& script, const ScriptCall& call, QString* reason);

    /// Called once.
    void start(const QString& script, const QString& profileName, const ScriptCall& call = {});
    bool isRunning() const { return m_isRunning; }
    void stop();

    // Known once the run has ended.
    End end() const { return m_end; }
    /// Of a failure, for people.
    QString message() const { return m_message; }
    /// Line of the script in which the failure was, from 1; 0 if it was in none.
    int line() const { return m_line; }

Q_SIGNALS:
    void printed(const QString& text);
    void ended();

private Q_SLOTS:
    void onOutput();
    void onFinished();
    void onProcessError(QProcess::ProcessError error);
    void onTimeout();

private:
    void finish(End end, const QString& message = {});
    void readMessage(const QString& text);

    QString m_runner;
    QProcess m_process;
    /// A character may come in two parts.
    std::unique_ptr<QTextDecoder> m_decoder;
    QTimer m_timer;
    bool m_isRunning = false;
    bool m_isTimedOut = false;
    bool m_isStopped = false;
    End m_end = End::Done;
    QString m_message;
    int m_line = 0;
};
