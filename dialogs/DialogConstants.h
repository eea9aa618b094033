#pragma once

#include <QLatin1String>
#include <QMargins>
#include <QRgb>
#include <QSize>
#include <QtGlobal>

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

// The command editor

/// Between the column of command types and the page of a command.
inline constexpr int EditorSpacing = 15;

/// The column of command types.
inline constexpr int IconListMargin = 10;
inline constexpr int IconListSpacing = 10;
inline constexpr int IconItemMinWidth = 70;
inline constexpr int IconItemMaxWidth = 140;
/// Between a type's icon and its name.
inline constexpr int IconItemSpacing = 5;
/// How far outside a type the frame stands that marks it while the column has the focus.
inline constexpr int IconFocusDistance = 3;
inline constexpr int IconFocusRadius = 6;
inline constexpr QRgb IconFocusColor = 0xff93c7c7;

/// The page of a command.
inline constexpr QMargins PageMargins(0, 10, 0, 0);
inline constexpr int PageSpacing = 5;
/// How much larger the title is than other texts.
inline constexpr qreal TitleScale = 1.4;
/// Below the form, where all height goes that nothing else needs.
inline constexpr int PageStretch = 1000;
/// Above the buttons.
inline constexpr int ButtonRowGap = 10;

inline constexpr QMargins RepeatMargins(15, 15, 0, 0);
inline constexpr int RepeatSpacing = 5;
/// The delay of a repeat.
inline constexpr int MaxRepeatDelay = 9999999;
inline constexpr int UsualRepeatDelay = 25;
inline constexpr int RepeatDelayMaxWidth = 60;

} // namespace DialogConstants
