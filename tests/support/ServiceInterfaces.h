#pragma once

#include <QDomElement>
#include <QMetaType>
#include <QScriptEngine>
#include <QScriptValue>
#include <QString>

struct QMetaObject;
class QObject;

/// The interface of one of the thirteen services of the host; null for any other name.
const QMetaObject* serviceInterface(const QString& serviceName);

/// The name that the object's class information gives it as a service.
QString serviceNameOf(const QObject* object);

/// Makes all types of the interfaces known to QVariant.
void registerServiceTypes();

Q_DECLARE_METATYPE(QDomElement)
Q_DECLARE_METATYPE(QScriptEngine*)
Q_DECLARE_METATYPE(QScriptValue)
