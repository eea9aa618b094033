#pragma once

#include <ServiceConstants.h>

#include <QSize>

/// Sizes, z values and times of the window. Lengths are pixels, times milliseconds.
namespace AppConstants {

/// The scene of the canvas. Feature views rely on it: they place their widgets on the canvas by the same
/// coordinates, so the canvas has this size too.
inline constexpr QSize SceneSize(980, 620);
/// Below everything that a feature view puts into the scene.
inline constexpr qreal PictureZ = -100.0;
/// How long the device picture moves.
inline constexpr int TransformTime = 250;
/// From the beginning of a transform to its end. A feature view brings its panes in meanwhile: at the end it
/// fills them, and only those that are there.
inline constexpr int TransformEndTime = ServiceConstants::PaneTime + ServiceConstants::PaneTimeMargin;
static_assert(TransformEndTime >= TransformTime, "a picture comes to rest before the transform ends");

inline constexpr int HeaderHeight = 40;
inline constexpr int DeviceBarHeight = 76;
inline constexpr QSize WindowSize(SceneSize.width(), HeaderHeight + SceneSize.height() + DeviceBarHeight);
/// Smaller windows scroll the canvas.
inline constexpr QSize MinimumWindowSize(640, 400);

/// A button of the device bar.
inline constexpr int BarButtonHeight = 56;
inline constexpr int BarButtonMinWidth = 120;
inline constexpr int BarButtonMaxWidth = 230;
inline constexpr int BarButtonPadding = 10;
inline constexpr int BarButtonSpacing = 10;
inline constexpr int BarMargin = 16;
inline constexpr int DeviceIconSize = 40;
inline constexpr int ViewIconSize = 32;

/// The text in place of a picture.
inline constexpr int NoticeTextSize = 16;

/// Longer names in a menu are shortened.
inline constexpr int MenuEntryMaxWidth = 320;

/// Columns of a table of profiles, and the dialogs that have one.
inline constexpr int TableNameWidth = 180;
inline constexpr int TableNumberWidth = 86;
inline constexpr int TableStatusWidth = 150;
inline constexpr int BackupTimeWidth = 170;
inline constexpr QSize ImportDialogSize(780, 420);
inline constexpr QSize BackupsDialogSize(940, 520);

/// From the edges of the canvas to the message strip.
inline constexpr int StripMargin = 16;

/// From an opened view to its picture: the panes and the scene have come to rest by then.
inline constexpr int ScreenshotSettleTime = 1000;
/// The longest that taking screenshots waits for a view to open or close.
inline constexpr int ScreenshotTimeLimit = 15000;

} // namespace AppConstants
