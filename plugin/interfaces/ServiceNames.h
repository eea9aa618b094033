#pragma once

#include <QLatin1String>

/// The names under which services are registered. A service object carries its name as the class information
/// "service"; these constants are for those who call.
namespace ServiceNames {
inline constexpr QLatin1String ProfileMgr("Profiler.ProfileMgr");
inline constexpr QLatin1String MacroTypeMgr("Profiler.MacroTypeMgr");
inline constexpr QLatin1String Profiler("Profiler.Profiler");
inline constexpr QLatin1String MainUI("MainUI.MainUI");
inline constexpr QLatin1String FeatureViewMgr("MainUI.FeatureViewMgr");
inline constexpr QLatin1String MainApp("MainApp.MainApp");
inline constexpr QLatin1String DevMgr("DevMgr.DevMgr");
inline constexpr QLatin1String Settings("VGFSettings.Settings");
inline constexpr QLatin1String HelpMgr("Help.HelpMgr");
inline constexpr QLatin1String ProfilesToGo("ProfilesToGo");
inline constexpr QLatin1String LCDMon("LCDMon.LCDMon");
inline constexpr QLatin1String LuaScript("LuaScript.LuaScript");
inline constexpr QLatin1String ECMAScriptMgr("ECMAScript.ECMAScriptMgr");
/// Offered by the plug-in itself.
inline constexpr QLatin1String ProfilerWidgetFactory("ProfilerWidgetFactory");
} // namespace ServiceNames
