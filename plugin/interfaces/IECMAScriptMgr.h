#pragma once

#include <QObject>
#include <QScriptValue>
#include <QString>

class QScriptEngine;

/// The script engine of the application.
class IECMAScriptMgr : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Runs a program; the result is an error object if it failed.
    Q_INVOKABLE virtual QScriptValue evaluate(const QString& program) = 0;

    /// Shows an object to scripts as a global variable. The engine does not own it.
    Q_INVOKABLE virtual void newObject(QObject* obj, const QString& varName) = 0;

    /// The engine itself.
    Q_INVOKABLE virtual QScriptEngine* engine() = 0;
};
