#pragma once

#include <cJsonValue.h>
#include <MKey.h>

#include <QObject>
#include <QStringList>

#include <functional>

/// A listener of "ProfileMgr_Events" and "Profiler_Events" that writes each event as a line, such as
/// "MacroAssigned {P} Mouse {M} 0 G1": name and parameters in their order, of a record its uid.
class EventLog : public QObject
{
    Q_OBJECT

public:
    EventLog();
    ~EventLog() override;

    /// The events since the last take.
    QStringList take();

    /// Called for each event after it was written.
    std::function<void(const QString& line)> onEvent;

    Q_INVOKABLE void onProfileAdded(const QString& profileID);
    Q_INVOKABLE void onProfileDeleted(const QString& profileID);
    Q_INVOKABLE void onProfilePropertyChanged(const QString& profileID);
    Q_INVOKABLE void onCurrentProfileSwitched(const QString& id);
    Q_INVOKABLE void onmacroAdded(const QString& profileID, const cJsonValue& macro);
    Q_INVOKABLE void onmacroDeleted(const QString& profileID, const cJsonValue& macro);
    Q_INVOKABLE void onmacroChanged(const QString& profileID, const cJsonValue& macro);
    Q_INVOKABLE void onMacroAssigned(const QString& profileID, const QString& deviceModel,
        const QString& macroID, MKey::MKey_t mode, const QString& contextID);
    Q_INVOKABLE void onAssignmentRemoved(const QString& profileID, const QString& deviceModel,
        MKey::MKey_t mode, const QString& contextID, const QString& macroID);
    Q_INVOKABLE void onMStateChanged(MKey::MKey_t mkeyState, const QString& category);

private:
    void write(const QStringList& words);

    QStringList m_lines;
};
