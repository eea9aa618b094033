#pragma once

#include <QLatin1String>
#include <QPoint>
#include <QRect>
#include <QSize>

/// Sizes, places, times and ids of the profile bar. Lengths are pixels, times milliseconds.
namespace ProfileBarConstants {

// cProfileItem
inline constexpr QSize TileSize(62, 88);
/// Where the picture of the well stands, and the icon in it.
inline constexpr QPoint TileWellPos(5, 14);
inline constexpr QPoint TileIconPos(8, 17);
/// The side of the icon. Icons that come in another width are scaled to this one.
inline constexpr int TileIconSize = 48;
inline constexpr QPoint TileNamePos(0, 70);
/// The right edge of the balloon with the device's name, and the top edge of the text in it.
inline constexpr int BalloonRight = 56;
inline constexpr int BalloonTextTop = 17;
/// The icon that opens the menu: the room at its left and below it.
inline constexpr int ContextIconLeft = 41;
inline constexpr int ContextIconBottom = 20;
inline constexpr int TileLayoutSpacing = 1;
/// Design sizes in points at 96 dots per inch.
inline constexpr qreal NameFontSize = 8;
inline constexpr qreal DeviceFontSize = 7;

// cProfileList
inline const QLatin1String RowNamespace("ProfileItem");
inline constexpr int ListSpacing = 3;
/// The places for profiles that the bar shows at once. Those without a profile are wells.
inline constexpr int WellCount = 6;
/// From the left edge of a well to that of the next.
inline constexpr int WellPitch = 68;
inline constexpr QPoint FirstWellPos(8, 17);
/// What counts as a well while the pointer moves; a press goes by the size of the picture.
inline constexpr QRect WellHoverArea(8, 17, 54, 54);
/// Behind the last well: the rest of its tile and the spacing.
inline constexpr int EmptyMargin = TileSize.width() - (TileWellPos.x() + WellHoverArea.width()) + ListSpacing;
/// The start of the base line of "No Results".
inline constexpr QPoint NoResultsPos(20, 55);

/// The entries of the profile menu, by the ids with which they are chosen.
enum MenuOption {
    SaveOption,
    DeleteOption,
    ExportOption,
    PrintOption,
    AllKeysOption,
    UseDefaultOption,
    UseGenericOption,
    UnassignOption,
    TestOption,
    ScriptingOption,
    ChooseIconOption,
    DefaultIconOption,
    SetDefaultOption,
    SetPersistentOption,
    PropertiesOption,
    MenuOptionCount
};

// cProfileBar
/// The buttons, by the ids with which they are chosen.
enum BarButton { NewButton, ImportButton, PrintButton, BarButtonCount };

inline constexpr QPoint TitlePos(-1, 1);
inline constexpr qreal TitleFontSize = 15;
inline constexpr QPoint NewButtonPos(-6, 54);
inline constexpr int ButtonWidth = 27;
inline constexpr int ButtonHeight = 31;
/// The strip with the arrow under the new button.
inline constexpr int MenuStripHeight = 10;
inline constexpr QPoint ButtonOffset(0, 5);
/// From the left edge of a button to that of the next.
inline constexpr int ImportButtonStep = ButtonWidth + 3 + 3;
inline constexpr int PrintButtonStep = ButtonWidth + 3 + 2;
/// Where the menu of the import button opens, in the button's coordinates.
inline constexpr QPoint ImportMenuPos(0, 41);
inline constexpr QPoint LeftArrowPos(143, 22);
inline constexpr QPoint RightArrowPos(579, 22);
inline constexpr int ArrowFadeTime = 300;
inline constexpr int ScrollTime = 200;
inline constexpr QSize SearchBoxSize(135, 28);

// cProfileBarImpl
/// A bar for other modules is as large as this, and by that much taller.
inline constexpr QSize SharedBarSize(593, 88);
inline constexpr int SharedBarExtraHeight = 10;

} // namespace ProfileBarConstants
