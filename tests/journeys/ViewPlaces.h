#pragma once

#include <AppConstants.h>

#include <QPoint>
#include <QRect>
#include <QSize>

/// Where the window and the view of the controller have their things, in pixels of the window.
namespace ViewPlaces {

/// A point of the canvas as one of the window.
constexpr QPoint onCanvas(int x, int y)
{
    return {x, AppConstants::HeaderHeight + y};
}

inline constexpr int BarMiddle = AppConstants::WindowSize.height() - AppConstants::DeviceBarHeight / 2;

/// The middle of a device's button in the bar; short names give it the least width.
constexpr QPoint deviceButton(int index)
{
    using namespace AppConstants;
    return {BarMargin + index * (BarButtonMinWidth + BarButtonSpacing) + BarButtonMinWidth / 2, BarMiddle};
}

inline constexpr QPoint ViewButton(
    AppConstants::WindowSize.width() - AppConstants::BarMargin - AppConstants::BarButtonMinWidth / 2,
    BarMiddle);
inline constexpr QRect CanvasArea(QPoint(0, AppConstants::HeaderHeight), AppConstants::SceneSize);

inline constexpr QPoint KeyG1 = onCanvas(396, 283);
inline constexpr QPoint KeyG2 = onCanvas(480, 275);
inline constexpr QPoint KeyG14 = onCanvas(900, 340);
inline constexpr QPoint KeyG15 = onCanvas(480, 395);
/// The button of the first mode.
inline constexpr QRect ModeM1Area(onCanvas(764, 173), QSize(48, 26));
inline constexpr QPoint ModeM2 = onCanvas(844, 186);
inline constexpr QPoint NewCommandButton = onCanvas(261, 167);
/// Where the bar has nothing but its title.
inline constexpr QPoint BarTitle = onCanvas(400, 50);
inline constexpr QPoint NewButton = onCanvas(359, 108);
inline constexpr QPoint NewMenuArrow = onCanvas(359, 127);
inline constexpr QPoint ImportButton = onCanvas(392, 106);
inline constexpr QPoint PrintButton = onCanvas(424, 106);
inline constexpr QPoint ProfileSearchBox = onCanvas(430, 83);
inline constexpr QPoint SearchBox = onCanvas(180, 202);
inline constexpr QPoint Trashcan = onCanvas(339, 530);
inline constexpr QPoint BareCanvas = onCanvas(560, 505);
/// The tiles of profiles. The search box beside them has a caret, which never rests.
inline constexpr QRect TileArea(onCanvas(518, 26), QSize(404, 103));
/// The keys with their labels, without those of the stick.
inline constexpr QRect KeyArea(onCanvas(350, 220), QSize(610, 250));
/// The rows of commands.
inline constexpr QRect ListArea(onCanvas(38, 220), QSize(232, 316));
/// Commands and keys. The current mode's button above them never rests.
inline constexpr QRect DeskArea(onCanvas(0, 220), QSize(980, 400));

/// The middle of the command list's row with that number, unscrolled.
constexpr QPoint commandRow(int row)
{
    return onCanvas(140, 237 + row * 31);
}

constexpr QPoint tile(int number)
{
    return onCanvas(552 + 68 * number, 73);
}

/// Where a tile's icon for the menu stands.
constexpr QPoint menuIcon(int number)
{
    return tile(number) + QPoint(19, 14);
}

/// The entries of a tile's menu by which keys reach them; those of the fixed default profile are fewer.
enum MenuEntry {
    Save = 2,
    Delete,
    Export,
    Print,
    AllKeys,
    Test,
    Scripting,
    ChooseIcon,
    SetDefault,
    SetPersistent,
    Properties
};

/// The place of an entry behind "Delete" in the menu of the fixed default profile, which is never deleted.
constexpr int inDefaultMenu(MenuEntry entry)
{
    return entry - 1;
}

} // namespace ViewPlaces
