#pragma once

#include <cJsonValue.h>
#include <EventNames.h>
#include <IServiceMgr.h>

#include <QObject>
#include <QStringList>

#include <utility>

/// Writes down the host's events of one source.
class EventLog : public QObject
{
    Q_OBJECT

public:
    explicit EventLog(QLatin1String source)
        : m_source(source)
    {
        IServiceMgr::instance()->subscribe(source, this, Events::HandlerPrefix);
    }
    ~EventLog() override { IServiceMgr::instance()->unsubscribe(m_source, this); }

    QStringList take() { return std::exchange(m_events, {}); }
    int count() const { return m_events.size(); }

    Q_INVOKABLE void onDeviceTransformEnd() { m_events.append(QStringLiteral("DeviceTransformEnd")); }
    Q_INVOKABLE void onMainWindowClosing() { m_events.append(QStringLiteral("MainWindowClosing")); }
    Q_INVOKABLE void onForegroundAppChange(const QString& appPath, quint32 processId)
    {
        m_events.append(QStringLiteral("ForegroundAppChange %1 %2").arg(appPath).arg(processId));
    }
    Q_INVOKABLE void onRegisterHelpProvider(int index)
    {
        m_events.append(QStringLiteral("RegisterHelpProvider %1").arg(index));
    }
    Q_INVOKABLE void onDevicePropertyChanged(const QString& uid, const cJsonValue& properties)
    {
        m_events.append(
            QStringLiteral("DevicePropertyChanged %1 %2").arg(uid, properties["light"].toString()));
    }
    Q_INVOKABLE void onDeviceBlobWritten(const QString& uid, const cJsonValue& blob, const QByteArray& data)
    {
        m_events.append(QStringLiteral("DeviceBlobWritten %1 %2 %3")
                            .arg(uid, blob["kind"].toString(), QLatin1String(data)));
    }

private:
    QLatin1String m_source;
    QStringList m_events;
};
