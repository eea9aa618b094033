#include "cECMAScriptMgrService.h"

#include "ServiceConstants.h"

namespace {

/// A new error object that is not thrown.
QScriptValue errorObject(QScriptEngine& engine, const QString& text)
{
    const QScriptValue constructor = engine.globalObject().property(QStringLiteral("Error"));
    return QScriptValue(constructor).construct(QScriptValueList({QScriptValue(text)}));
}

} // namespace

cECMAScriptMgrService::cECMAScriptMgrService(QObject* parent)
    : IECMAScriptMgr(parent)
{
    setTimeLimit(ServiceConstants::ScriptTimeLimit);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(onTimeout()));
}

QScriptValue cECMAScriptMgrService::evaluate(const QString& program)
{
    // A program that is run by a program runs within the time of the outer one.
    if (m_engine.isEvaluating())
        return m_engine.evaluate(program);
    m_isOver = false;
    // The engine looks at events in this interval, which is how the timer gets its turn; not more often, so
    // that nothing comes in between while a program keeps within its time.
    m_engine.setProcessEventsInterval(m_timer.interval());
    m_timer.start();
    QScriptValue result = m_engine.evaluate(program);
    m_timer.stop();
    if (m_isOver)
        result = errorObject(m_engine, tr("The script ran too long and was stopped."));
    else if (m_engine.hasUncaughtException() && !result.isError())
        result = errorObject(m_engine, m_engine.uncaughtException().toString());
    m_engine.clearExceptions();
    return result;
}

void cECMAScriptMgrService::onTimeout()
{
    m_isOver = true;
    m_engine.abortEvaluation();
}

void cECMAScriptMgrService::newObject(QObject* obj, const QString& varName)
{
    if (varName.isEmpty())
        return;
    m_engine.globalObject().setProperty(varName,
        obj ? m_engine.newQObject(obj, QScriptEngine::QtOwnership) : QScriptValue(QScriptValue::NullValue));
}

QScriptEngine* cECMAScriptMgrService::engine()
{
    return &m_engine;
}
