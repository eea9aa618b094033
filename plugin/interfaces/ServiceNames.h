#pragma once

#include <QLatin1String>

/// The names under which services are registered. A service object carries its name as the class information
/// "service"; these constants are for those who call.
namespace ServiceNames {
inline const QLatin1String ProfileMgr("Profiler.ProfileMgr");
inline const QLatin1String MacroTypeMgr("Profiler.MacroTypeMgr");
inline const QLatin1String Profiler("Profiler.Profiler");
inline const QLatin1String MainUI("MainUI.MainUI");
inline const QLatin1String FeatureViewMgr("MainUI.FeatureViewMgr");
inline const QLatin1String MainApp("MainApp.MainApp");
inline const QLatin1String DevMgr("DevMgr.DevMgr");
inline const QLatin1String Settings("VGFSettings.Settings");
inline const QLatin1String HelpMgr("Help.HelpMgr");
inline const QLatin1String ProfilesToGo("ProfilesToGo");
inline const QLatin1String LCDMon("LCDMon.LCDMon");
inline const QLatin1String LuaScript("LuaScript.LuaScript");
inline const QLatin1String ECMAScriptMgr("ECMAScript.ECMAScriptMgr");
/// Offered by the plug-in itself.
inline const QLatin1String ProfilerWidgetFactory("ProfilerWidgetFactory");
} // namespace ServiceNames
