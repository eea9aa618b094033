#pragma once

/// Times, counts and sizes of the services. Times are milliseconds.
namespace ServiceConstants {

/// From a change of the settings to its writing, so that a run of changes is one write.
inline constexpr int SettingsSaveDelay = 300;
/// From a failed write to the next one.
inline constexpr int SettingsRetryTime = 5000;

/// How long after init() a feature view brings its panes in, and how long after deinit() it removes them.
inline constexpr int PaneTime = 250;
/// What a timer may be late under load.
inline constexpr int PaneTimeMargin = 100;
/// A view younger than this is not taken down: its panes would come in afterwards and stay.
inline constexpr int ViewSettleTime = PaneTime + PaneTimeMargin;
/// From deinit() to the moment at which the view's panes are surely gone.
inline constexpr int PaneRemovalTime = PaneTime + PaneTimeMargin;

/// Help providers are asked in rounds numbered from 0 to this; a provider answers its own number.
inline constexpr int LastHelpProvider = 31;

/// Longest run of a script.
inline constexpr int ScriptTimeLimit = 5000;

/// Width of the text of a message, and the height above which it scrolls. In pixels.
inline constexpr int MessageTextWidth = 380;
inline constexpr int MessageTextMaxHeight = 360;
/// Side of the sign beside a message.
inline constexpr int MessageSignSize = 40;

} // namespace ServiceConstants
