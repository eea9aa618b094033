#include "EventLog.h"

#include <EventNames.h>
#include <IServiceMgr.h>

#include <utility>

namespace {

QString uidOf(const cJsonValue& macro)
{
    return macro["uid"].toString();
}

} // namespace

EventLog::EventLog()
{
    IServiceMgr::instance()->subscribe(EventSources::ProfileMgr, this, Events::HandlerPrefix);
    IServiceMgr::instance()->subscribe(EventSources::Profiler, this, Events::HandlerPrefix);
}

EventLog::~EventLog()
{
    IServiceMgr::instance()->unsubscribe(EventSources::ProfileMgr, this);
    IServiceMgr::instance()->unsubscribe(EventSources::Profiler, this);
}

QStringList EventLog::take()
{
    return std::exchange(m_lines, {});
}

void EventLog::write(const QStringList& words)
{
    const QString line = words.join(QLatin1Char(' '));
    m_lines.append(line);
    if (onEvent)
        onEvent(line);
}

void EventLog::onProfileAdded(const QString& profileID)
{
    write({"ProfileAdded", profileID});
}

void EventLog::onProfileDeleted(const QString& profileID)
{
    write({"ProfileDeleted", profileID});
}

void EventLog::onProfilePropertyChanged(const QString& profileID)
{
    write({"ProfilePropertyChanged", profileID});
}

void EventLog::onCurrentProfileSwitched(const QString& id)
{
    write({"CurrentProfileSwitched", id});
}

void EventLog::onmacroAdded(const QString& profileID, const cJsonValue& macro)
{
    write({"macroAdded", profileID, uidOf(macro)});
}

void EventLog::onmacroDeleted(const QString& profileID, const cJsonValue& macro)
{
    write({"macroDeleted", profileID, uidOf(macro)});
}

void EventLog::onmacroChanged(const QString& profileID, const cJsonValue& macro)
{
    write({"macroChanged", profileID, uidOf(macro)});
}

void EventLog::onMacroAssigned(const QString& profileID, const QString& deviceModel, const QString& macroID,
    MKey::MKey_t mode, const QString& contextID)
{
    write({"MacroAssigned", profileID, deviceModel, macroID, QString::number(mode), contextID});
}

void EventLog::onAssignmentRemoved(const QString& profileID, const QString& deviceModel, MKey::MKey_t mode,
    const QString& contextID, const QString& macroID)
{
    write({"AssignmentRemoved", profileID, deviceModel, QString::number(mode), contextID, macroID});
}

void EventLog::onMStateChanged(MKey::MKey_t mkeyState, const QString& category)
{
    write({"MStateChanged", QString::number(mkeyState), category});
}
