#pragma once

#include <QLatin1String>

/// The sources of events, which subscribers name.
namespace EventSources {
inline const QLatin1String ProfileMgr("ProfileMgr_Events");
inline const QLatin1String Profiler("Profiler_Events");
inline const QLatin1String MainUI("MainUI_Events");
inline const QLatin1String MainApp("MainApp_Events");
inline const QLatin1String DevMgr("DevMgr_Events");
inline const QLatin1String ProfilesToGo("ProfilesToGo_Events");
inline const QLatin1String HelpMgr("HelpMgrEvent");
inline const QLatin1String MacroBindingView("MacroBindingView_MacroBindingViewEvents");
} // namespace EventSources

/// The events by source. A handler's name is the prefix "on" and the event's name as it stands here: the
/// three macro events begin with a small letter.
namespace Events {
// ProfileMgr_Events
inline const QLatin1String ProfileAdded("ProfileAdded");
inline const QLatin1String ProfileDeleted("ProfileDeleted");
inline const QLatin1String ProfilePropertyChanged("ProfilePropertyChanged");
inline const QLatin1String CurrentProfileSwitched("CurrentProfileSwitched");
inline const QLatin1String MacroAdded("macroAdded");
inline const QLatin1String MacroDeleted("macroDeleted");
inline const QLatin1String MacroChanged("macroChanged");
inline const QLatin1String MacroAssigned("MacroAssigned");
inline const QLatin1String AssignmentRemoved("AssignmentRemoved");
// Profiler_Events
inline const QLatin1String ProfileSelectionChanging("ProfileSelectionChanging");
inline const QLatin1String ProfileSelectionChanged("ProfileSelectionChanged");
inline const QLatin1String MStateChanged("MStateChanged");
// MainUI_Events. Who hears the beginning ends the transform after that event has been delivered, never in its
// own handler: the view that published it is ready for the end only then.
inline const QLatin1String DeviceTransformBegin("DeviceTransformBegin");
inline const QLatin1String DeviceTransformEnd("DeviceTransformEnd");
// MainApp_Events
inline const QLatin1String ForegroundAppChange("ForegroundAppChange");
inline const QLatin1String MainWindowClosing("MainWindowClosing");
// ProfilesToGo_Events
inline const QLatin1String ProfilesToGoDeviceBusy("ProfilesToGoDeviceBusy");
inline const QLatin1String ProfilesToGoDeviceIdle("ProfilesToGoDeviceIdle");
// HelpMgrEvent
inline const QLatin1String RegisterHelpProvider("RegisterHelpProvider");
// MacroBindingView_MacroBindingViewEvents
inline const QLatin1String ProfileSelectionChange("ProfileSelectionChange");

/// What stands before an event's name in the name of its handler.
inline const QLatin1String HandlerPrefix("on");
} // namespace Events
