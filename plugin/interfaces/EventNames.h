#pragma once

#include <QLatin1String>

/// The sources of events, which subscribers name.
namespace EventSources {
inline constexpr QLatin1String ProfileMgr("ProfileMgr_Events");
inline constexpr QLatin1String Profiler("Profiler_Events");
inline constexpr QLatin1String MainUI("MainUI_Events");
inline constexpr QLatin1String MainApp("MainApp_Events");
inline constexpr QLatin1String DevMgr("DevMgr_Events");
inline constexpr QLatin1String ProfilesToGo("ProfilesToGo_Events");
inline constexpr QLatin1String HelpMgr("HelpMgrEvent");
inline constexpr QLatin1String MacroBindingView("MacroBindingView_MacroBindingViewEvents");
} // namespace EventSources

/// The events by source. A handler's name is the prefix "on" and the event's name as it stands here: the
/// three macro events begin with a small letter.
namespace Events {
// ProfileMgr_Events
inline constexpr QLatin1String ProfileAdded("ProfileAdded");
inline constexpr QLatin1String ProfileDeleted("ProfileDeleted");
inline constexpr QLatin1String ProfilePropertyChanged("ProfilePropertyChanged");
inline constexpr QLatin1String CurrentProfileSwitched("CurrentProfileSwitched");
inline constexpr QLatin1String MacroAdded("macroAdded");
inline constexpr QLatin1String MacroDeleted("macroDeleted");
inline constexpr QLatin1String MacroChanged("macroChanged");
inline constexpr QLatin1String MacroAssigned("MacroAssigned");
inline constexpr QLatin1String AssignmentRemoved("AssignmentRemoved");
// Profiler_Events
inline constexpr QLatin1String ProfileSelectionChanging("ProfileSelectionChanging");
inline constexpr QLatin1String ProfileSelectionChanged("ProfileSelectionChanged");
inline constexpr QLatin1String MStateChanged("MStateChanged");
// MainUI_Events
inline constexpr QLatin1String DeviceTransformBegin("DeviceTransformBegin");
inline constexpr QLatin1String DeviceTransformEnd("DeviceTransformEnd");
// MainApp_Events
inline constexpr QLatin1String ForegroundAppChange("ForegroundAppChange");
inline constexpr QLatin1String MainWindowClosing("MainWindowClosing");
// ProfilesToGo_Events
inline constexpr QLatin1String ProfilesToGoDeviceBusy("ProfilesToGoDeviceBusy");
inline constexpr QLatin1String ProfilesToGoDeviceIdle("ProfilesToGoDeviceIdle");
// HelpMgrEvent
inline constexpr QLatin1String RegisterHelpProvider("RegisterHelpProvider");
// MacroBindingView_MacroBindingViewEvents
inline constexpr QLatin1String ProfileSelectionChange("ProfileSelectionChange");

/// What stands before an event's name in the name of its handler.
inline constexpr QLatin1String HandlerPrefix("on");
} // namespace Events
