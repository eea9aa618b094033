#include "MethodText.h"

#include <QMetaMethod>
#include <QMetaObject>

QString methodText(const QMetaMethod& method)
{
    QStringList parameters;
    for (int i = 0; i < method.parameterCount(); ++i) {
        parameters.append(
            QString::fromLatin1(method.parameterTypes().at(i) + ' ' + method.parameterNames().at(i)));
    }
    return QStringLiteral("%1(%2)").arg(
        QString::fromLatin1(method.name()), parameters.join(QLatin1String(", ")));
}

QStringList methodTexts(const QMetaObject& meta)
{
    QStringList texts;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        texts.append(methodText(meta.method(i)));
    return texts;
}
