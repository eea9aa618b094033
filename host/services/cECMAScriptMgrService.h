#pragma once

#include <IECMAScriptMgr.h>

#include <QScriptEngine>
#include <QTimer>

/// The script engine. A program that fails, or that runs longer than ServiceConstants::ScriptTimeLimit, ends
/// with an error object as its result.
class cECMAScriptMgrService : public IECMAScriptMgr
{
    Q_OBJECT
    Q_CLASSINFO("service", "ECMAScript.ECMAScriptMgr")

public:
    explicit cECMAScriptMgrService(QObject* parent = nullptr);

    QScriptValue evaluate(const QString& program) override;
    /// A null object makes the variable null; an empty name does nothing. The variable of an object that is
    /// deleted later turns into an object without members.
    void newObject(QObject* obj, const QString& varName) override;
    QScriptEngine* engine() override;

    /// Longest run of a program, in milliseconds.
    void setTimeLimit(int milliseconds) { m_timer.setInterval(milliseconds); }

private Q_SLOTS:
    void onTimeout();

private:
    QScriptEngine m_engine;
    QTimer m_timer;
    bool m_isOver = false;
};
