#include "RecordingHost.h"

#include <cServiceClient.h>
#include <EventNames.h>

using ServiceClient::tagged;

void RecordingHost::send(QLatin1String source, QLatin1String event, const Places& places)
{
    const auto place = [&](int i) {
        return i < places.size() ? places[i] : QGenericArgument();
    };
    m_manager.publish(source, event, place(0), place(1), place(2), place(3), place(4), place(5), place(6),
        place(7), place(8), place(9));
}

void RecordingHost::publishProfileAdded(const QString& profileID)
{
    send(EventSources::ProfileMgr, Events::ProfileAdded, {tagged("QString", profileID)});
}

void RecordingHost::publishProfileDeleted(const QString& profileID)
{
    send(EventSources::ProfileMgr, Events::ProfileDeleted, {tagged("QString", profileID)});
}

void RecordingHost::publishProfilePropertyChanged(const QString& profileID)
{
    send(EventSources::ProfileMgr, Events::ProfilePropertyChanged, {tagged("QString", profileID)});
}

void RecordingHost::publishCurrentProfileSwitched(const QString& id)
{
    send(EventSources::ProfileMgr, Events::CurrentProfileSwitched, {tagged("QString", id)});
}

void RecordingHost::publishMacroAdded(const QString& profileID, const cJsonValue& macro)
{
    send(EventSources::ProfileMgr, Events::MacroAdded,
        {tagged("QString", profileID), tagged("cJsonValue", macro)});
}

void RecordingHost::publishMacroDeleted(const QString& profileID, const cJsonValue& macro)
{
    send(EventSources::ProfileMgr, Events::MacroDeleted,
        {tagged("QString", profileID), tagged("cJsonValue", macro)});
}

void RecordingHost::publishMacroChanged(const QString& profileID, const cJsonValue& macro)
{
    send(EventSources::ProfileMgr, Events::MacroChanged,
        {tagged("QString", profileID), tagged("cJsonValue", macro)});
}

void RecordingHost::publishMacroAssigned(const QString& profileID, const QString& deviceModel,
    const QString& macroID, MKey::MKey_t mode, const QString& contextID)
{
    send(EventSources::ProfileMgr, Events::MacroAssigned,
        {tagged("QString", profileID), tagged("QString", deviceModel), tagged("QString", macroID),
            tagged("MKey::MKey_t", mode), tagged("QString", contextID)});
}

void RecordingHost::publishAssignmentRemoved(const QString& profileID, const QString& deviceModel,
    MKey::MKey_t mode, const QString& contextID, const QString& macroID)
{
    send(EventSources::ProfileMgr, Events::AssignmentRemoved,
        {tagged("QString", profileID), tagged("QString", deviceModel), tagged("MKey::MKey_t", mode),
            tagged("QString", contextID), tagged("QString", macroID)});
}

void RecordingHost::publishProfileSelectionChanging(const QString& profileID)
{
    send(EventSources::Profiler, Events::ProfileSelectionChanging, {tagged("QString", profileID)});
}

void RecordingHost::publishProfileSelectionChanged(const QString& profileID)
{
    send(EventSources::Profiler, Events::ProfileSelectionChanged, {tagged("QString", profileID)});
}

void RecordingHost::publishMStateChanged(MKey::MKey_t mkeyState, const QString& category)
{
    send(EventSources::Profiler, Events::MStateChanged,
        {tagged("MKey::MKey_t", mkeyState), tagged("QString", category)});
}

void RecordingHost::publishDeviceTransformBegin(const cJsonValue& metadata)
{
    send(EventSources::MainUI, Events::DeviceTransformBegin, {tagged("cJsonValue", metadata)});
}

void RecordingHost::publishDeviceTransformEnd()
{
    send(EventSources::MainUI, Events::DeviceTransformEnd);
}

void RecordingHost::publishForegroundAppChange(const QString& appPath, quint32 processId)
{
    send(EventSources::MainApp, Events::ForegroundAppChange,
        {tagged("QString", appPath), tagged("quint32", processId)});
}

void RecordingHost::publishMainWindowClosing()
{
    send(EventSources::MainApp, Events::MainWindowClosing);
}

void RecordingHost::publishProfilesToGoDeviceBusy(const QString& deviceName, const QString& deviceId)
{
    send(EventSources::ProfilesToGo, Events::ProfilesToGoDeviceBusy,
        {tagged("QString", deviceName), tagged("QString", deviceId)});
}

void RecordingHost::publishProfilesToGoDeviceIdle(const QString& deviceId)
{
    send(EventSources::ProfilesToGo, Events::ProfilesToGoDeviceIdle, {tagged("QString", deviceId)});
}

void RecordingHost::publishRegisterHelpProvider(int index)
{
    send(EventSources::HelpMgr, Events::RegisterHelpProvider, {tagged("int", index)});
}
