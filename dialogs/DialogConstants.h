#pragma once

#include <QMargins>
#include <QRgb>

/// Sizes and times of the dialogs. Lengths are pixels.
namespace DialogConstants {

/// The column of command types.
inline constexpr int IconListMargin = 10;
inline constexpr int IconListSpacing = 10;
inline constexpr int IconItemMinWidth = 70;
inline constexpr int IconItemMaxWidth = 140;
/// Between a type's icon and its name.
inline constexpr int IconItemSpacing = 5;
/// How far outside a type the frame stands that marks it while the column has the focus.
inline constexpr int IconFocusDistance = 3;
inline constexpr QRgb IconFocusColor = 0xff93c7c7;

/// The page of a command.
inline constexpr QMargins PageMargins(0, 10, 0, 0);
inline constexpr int PageSpacing = 5;
/// Below the form, where all height goes that nothing else needs.
inline constexpr int PageStretch = 1000;
/// Above the buttons.
inline constexpr int ButtonRowGap = 10;

inline constexpr QMargins RepeatMargins(15, 15, 0, 0);
inline constexpr int RepeatSpacing = 5;
/// The delay of a repeat, in milliseconds.
inline constexpr int MaxRepeatDelay = 9999999;
inline constexpr int UsualRepeatDelay = 25;
inline constexpr int RepeatDelayMaxWidth = 60;

} // namespace DialogConstants
