#pragma once

#include <QLatin1String>

/// The paths that the plug-in keeps in ISettings.
namespace SettingsKeys {
/// bool: the first start has offered its game scan.
inline const QLatin1String AutoScannedForGames("profiler/autoScannedForGames");
/// string: id of the profile that was current last.
inline const QLatin1String LastProfile("profiler/lastProfile");
/// string: folder of the last import.
inline const QLatin1String LastImportDir("profiler/lastimportdir");
/// string: folder of the last export.
inline const QLatin1String LastExportDir("profiler/lastexportdir");
} // namespace SettingsKeys
