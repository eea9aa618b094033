#pragma once

#include <QLatin1String>
#include <QSize>

/// Sizes, names and times of the dialogs. Lengths are pixels, times milliseconds.
namespace DialogConstants {

inline const QLatin1String WindowIcon("MainApp:/Resources/images/VeltranoBlackLogo.png");
/// The style sheet's property of widgets, and its value for buttons that are not the dialog's first choice.
inline constexpr const char* UiType = "uiType";
inline const QLatin1String GrayButton("grayButton");

// The profile dialog
inline const QLatin1String ProfileHelpTopic("create_new_profile.htm");
inline constexpr QSize ProfileFieldSize(400, 27);
inline constexpr int ProfileDialogMinimumWidth = 525;
inline constexpr int ProfileDialogMargin = 20;
inline constexpr int ProfileDialogSpacing = 5;
/// Between groups of controls.
inline constexpr int ProfileGroupGap = 10;
inline constexpr int ProfileButtonGap = 20;
/// By which a control stands in that belongs to the one above it.
inline constexpr int ProfileIndent = 20;

// The game scan
inline const QLatin1String ScanHelpTopic("scan_new_games.htm");
inline const QLatin1String GameDatabase("Profiler:/GameDatabase.xml");
inline constexpr QSize ScanDialogSize(550, 450);
inline constexpr int ScanFrameWidth = 64;
/// The worker's rest behind each game, which keeps it from flooding the window with findings.
inline constexpr int ScanRest = 10;

} // namespace DialogConstants
