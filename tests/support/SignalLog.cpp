#include "SignalLog.h"

#include "RecordingHost.h"
#include "ValueText.h"

#include <cJsonValue.h>

#include <QMetaMethod>
#include <QPointF>
#include <QStringList>

namespace {

QString pointText(const QPointF& point)
{
    return QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
}

} // namespace

SignalLog::SignalLog(const QObject& sender, RecordingHost& host)
    : m_host(host)
{
    const QMetaObject& meta = *sender.metaObject();
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod signal = meta.method(i);
        if (signal.methodType() != QMetaMethod::Signal)
            continue;
        const QByteArray slot = "onSignal" + signal.methodSignature().mid(signal.name().size());
        const int index = staticMetaObject.indexOfSlot(slot);
        if (index < 0)
            qFatal("there is no slot for %s", signal.methodSignature().constData());
        connect(&sender, signal, this, staticMetaObject.method(index));
    }
}

void SignalLog::onSignal(const QString& text)
{
    add({valueText(text)});
}

void SignalLog::onSignal(const QString& one, const QString& other)
{
    add({valueText(one), valueText(other)});
}

void SignalLog::onSignal(const cJsonValue& record)
{
    add({record["uid"].toString()});
}

void SignalLog::onSignal(const QPoint& point)
{
    add({pointText(point)});
}

void SignalLog::onSignal(const QPointF& point, const QString& text)
{
    add({pointText(point), valueText(text)});
}

void SignalLog::add(const QStringList& values)
{
    const QByteArray name = sender()->metaObject()->method(senderSignalIndex()).name();
    const QString line = QString::fromLatin1(name) + '(' + values.join(QLatin1String(", ")) + ')';
    m_host.note(line);
    if (onLine)
        onLine(line);
}
