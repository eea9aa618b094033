#pragma once

#include <QColor>
#include <QLatin1String>
#include <QMargins>
#include <QSize>

/// Sizes, places and names of the command panel. Lengths are pixels.
namespace CommandConstants {

// Both row lists
/// The style sheets know both lists by this value of the property `uiType`.
inline const QLatin1String ListUiType("MacroOrProfileList");
/// Design size of "No Results", in points at 96 dots per inch.
inline constexpr qreal NoResultsFontSize = 12;

// cMacroList
inline constexpr QSize ListSize(239, 315);
inline constexpr int ListSpacing = 1;

// cMacroItem
inline constexpr QSize RowSize(220, 30);
inline constexpr QMargins RowMargins(10, 1, 1, 1);
inline constexpr int NameWidth = 160;
/// Place among the columns of a row whose stretch factor is 1: the space behind icon and name. Without an
/// icon it is the column of the context icon.
inline constexpr int StretchedColumn = 2;

// cSearchBox
inline constexpr int SearchSpacing = 2;
/// Between the edges of the field and its text: at the left the magnifier stands, at the right the border.
inline constexpr QMargins SearchTextMargins(15, 0, 5, 0);
inline constexpr int SearchIconX = 5;
inline constexpr int SearchIconSize = 17;
/// From the right edge of the box to the left one of the clear button.
inline constexpr int ClearButtonInset = 23;
inline constexpr int ClearButtonSize = 16;

} // namespace CommandConstants
