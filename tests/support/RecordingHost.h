#pragma once

#include "ServiceInterfaces.h"

#include <cJsonValue.h>
#include <cServiceMgr.h>
#include <IServiceMgr.h>
#include <MKey.h>

#include <QByteArray>
#include <QHash>
#include <QLatin1String>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>
#include <QVector>

#include <functional>
#include <type_traits>

/// One call of a service's operation, as it arrived.
class RecordedCall
{
public:
    QString service;
    QString operation;
    /// The tags of the arguments, as the caller spelled them.
    QList<QByteArray> typeNames;
    QVariantList values;
    /// The tag of the result, empty if none was asked for.
    QByteArray resultType;

    /// Writes to an out-parameter; `value` has to be of the parameter's type.
    void setOut(int place, const QVariant& value) const;

    /// As in: getAssignment("{1}", "Veltrano.Gaming.Mouse", 0, "G1")
    QString brief() const;
    /// As in: Profiler.ProfileMgr getAssignment(QString "{1}", const QString "G1") -> QString
    QString full() const;

private:
    friend class RecordingHost;
    QVector<void*> m_addresses;
};

/// A host made for tests: it takes the place of the service manager, plays all thirteen services, records
/// what reaches it, answers what the test sets, and publishes events.
///
///     RecordingHost host;
///     host.answer("getMacroByID", macro);
///     key.drop(...);
///     QCOMPARE(host.takeCalls(), QStringList({"canMacroBeAssignedTo(...)"}));
///
/// A call is checked against the interface of its service: an operation that is not there, a parameter or
/// result of another type fails the test. Operations without an answer come back with an empty result.
class RecordingHost : public IServiceMgr
{
    Q_DISABLE_COPY(RecordingHost)

public:
    using Handler = std::function<QVariant(const RecordedCall&)>;

    RecordingHost();
    virtual ~RecordingHost();

    /// What the operation returns from now on: a value of the result's type, or a function of the call that
    /// returns one or nothing. The function may publish events and write to out-parameters.
    template<typename T>
    void answer(const QString& operation, const T& answer)
    {
        if constexpr (std::is_invocable_r_v<QVariant, T, const RecordedCall&>)
            m_answers[operation] = answer;
        else if constexpr (std::is_invocable_v<T, const RecordedCall&>)
            m_answers[operation] = [answer](const RecordedCall& call) {
                return answer(call), QVariant();
            };
        else
            this->answer(operation, [value = toValue(answer)](const RecordedCall&) { return value; });
    }

    /// From now on calls to the service fail.
    void remove(QLatin1String service);
    void restore(QLatin1String service);

    /// The calls so far, oldest first.
    const QVector<RecordedCall>& calls() const { return m_calls; }
    /// The calls since the last take, briefly; see RecordedCall::brief.
    QStringList takeCalls();
    /// All that reached the host since the last take, in order: calls as RecordedCall::full, and lines such
    /// as "require Profiler.ProfileMgr 1", "register ProfilerWidgetFactory", "subscribe MainUI_Events on",
    /// "publish MainUI_Events DeviceTransformBegin(cJsonValue {})".
    QStringList takeLog();
    /// Adds a line of the test's own to the log, to see what comes before and behind it.
    void note(const QString& line);
    void clear();

    // The events that the host sends, with their exact parameters.
    void publishProfileAdded(const QString& profileID);
    void publishProfileDeleted(const QString& profileID);
    void publishProfilePropertyChanged(const QString& profileID);
    void publishCurrentProfileSwitched(const QString& id);
    void publishMacroAdded(const QString& profileID, const cJsonValue& macro);
    void publishMacroDeleted(const QString& profileID, const cJsonValue& macro);
    void publishMacroChanged(const QString& profileID, const cJsonValue& macro);
    void publishMacroAssigned(const QString& profileID, const QString& deviceModel, const QString& macroID,
        MKey::MKey_t mode, const QString& contextID);
    void publishAssignmentRemoved(const QString& profileID, const QString& deviceModel, MKey::MKey_t mode,
        const QString& contextID, const QString& macroID);
    void publishProfileSelectionChanging(const QString& profileID);
    void publishProfileSelectionChanged(const QString& profileID);
    void publishMStateChanged(MKey::MKey_t mkeyState, const QString& category);
    void publishDeviceTransformBegin(const cJsonValue& metadata);
    void publishDeviceTransformEnd();
    void publishForegroundAppChange(const QString& appPath, quint32 processId);
    void publishMainWindowClosing();
    void publishProfilesToGoDeviceBusy(const QString& deviceName, const QString& deviceId);
    void publishProfilesToGoDeviceIdle(const QString& deviceId);
    void publishRegisterHelpProvider(int index);

    void requireService(const QString& serviceName, const QString& version) override;
    bool hasService(const QString& serviceName) const override;
    void registerService(QObject* service) override;
    void unregisterService(QObject* service) override;
    bool invoke(const QString& serviceName, const QString& operation, QGenericArgument value0,
        QGenericArgument value1, QGenericArgument value2, QGenericArgument value3, QGenericArgument value4,
        QGenericArgument value5, QGenericArgument value6, QGenericArgument value7, QGenericArgument value8,
        QGenericArgument value9) override;
    bool invoke(const QString& serviceName, const QString& operation, QGenericReturnArgument result,
        QGenericArgument value0, QGenericArgument value1, QGenericArgument value2, QGenericArgument value3,
        QGenericArgument value4, QGenericArgument value5, QGenericArgument value6, QGenericArgument value7,
        QGenericArgument value8, QGenericArgument value9) override;
    void subscribe(const QString& eventSource, QObject* subscriber, const QString& handlerPrefix) override;
    void unsubscribe(const QString& eventSource, QObject* subscriber) override;
    void publish(const QString& eventSource, const QString& eventName, QGenericArgument value0,
        QGenericArgument value1, QGenericArgument value2, QGenericArgument value3, QGenericArgument value4,
        QGenericArgument value5, QGenericArgument value6, QGenericArgument value7, QGenericArgument value8,
        QGenericArgument value9) override;

private:
    using Places = QVector<QGenericArgument>;

    static QVariant toValue(const char* text) { return QString::fromUtf8(text); }
    template<typename T>
    static QVariant toValue(const T& value)
    {
        return QVariant::fromValue(value);
    }

    bool receive(const QString& service, const QString& operation, const QGenericReturnArgument& result,
        const Places& places);
    void send(QLatin1String source, QLatin1String event, const Places& places = {});

    /// Keeps the subscriptions, and the services that a test or the plug-in registers.
    cServiceMgr m_manager;
    IServiceMgr* m_previous = nullptr;
    QHash<QString, Handler> m_answers;
    QSet<QString> m_removed;
    QVector<RecordedCall> m_calls;
    /// The calls that were not taken yet, put into words as they came: objects among their values may be gone
    /// by now.
    QStringList m_briefCalls;
    QStringList m_log;
};
