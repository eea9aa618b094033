#pragma once

#include <QLatin1String>
#include <QPoint>
#include <QSize>

/// Sizes, places and names of the scene's widgets. Lengths are pixels of the canvas's scene, times
/// milliseconds.
namespace SceneConstants {

/// The family of every text that is drawn on the canvas.
inline const QLatin1String TextFamily("Arial");

// cPanel
/// Width of the border at each side, and the length of a corner's two sides.
inline constexpr qreal PanelBorder = 21;
/// Length of an edge's picture along the edge over which it is stretched.
inline constexpr qreal PanelEdgeLength = 12;
/// How far the right edge, and no other, reaches into the field.
inline constexpr qreal PanelRightEdgeOverlap = 1;

// cGraphicsText
/// In points, see cScaledFont.
inline constexpr qreal TextDesignSize = 10;
/// The width at which a text is wrapped until it is told another one.
inline constexpr int TextWidth = 256;
/// The picture on which a text is measured.
inline constexpr QSize TextScratchSize(900, 900);

// cGraphicsButton
/// Where the pointer holds the picture of a dragged button.
inline constexpr QPoint ButtonDragHotSpot(15, 20);

// cGraphicsRibbonButton
/// The strip with the arrow stands over the main button.
inline constexpr qreal RibbonMenuZ = 1;

// cAnimatedPixmap, cAnimatedPixmapWidget
/// The frame width that says that a picture is no film strip.
inline constexpr int SinglePicture = -1;
/// How long a film strip shows a frame unless its owner sets another interval.
inline constexpr int FrameInterval = 100;

// cPulseGlowImage
/// One breath of a glow, and its faintest and brightest opacity.
inline constexpr int GlowTime = 2000;
inline constexpr qreal GlowFaint = 0.2;
inline constexpr qreal GlowBright = 1.0;

// cTooltip
/// How long a tip stays.
inline constexpr int TooltipTime = 2000;
/// In points, see cScaledFont.
inline constexpr qreal TooltipDesignSize = 9;
/// From the frame to the text.
inline constexpr int TooltipMargin = 5;
/// A tip lies over everything else on the canvas.
inline constexpr qreal TooltipZ = 200;
/// The picture on which a tip's text is measured.
inline constexpr QSize TooltipScratchSize(8, 8);

// PlainText
/// A name with more characters makes a tool tip of several lines.
inline constexpr int LongTipLength = 80;
/// The widest name in a menu.
inline constexpr int MenuTextWidth = 300;

// cScrollBarItem
/// How long a scroll bar takes to fade, and its opacity at both ends.
inline constexpr int ScrollFadeTime = 500;
inline constexpr qreal ScrollFaint = 0.1;
inline constexpr qreal ScrollBright = 1.0;
/// What a wheel reports for one notch, in eighths of a degree.
inline constexpr int WheelNotch = 120;

// cGraphicsItem
/// One breath of a selected item, and how much it grows on the way.
inline constexpr int PulseTime = 1000;
inline constexpr qreal PulseScale = 1.15;

// cGraphicsButtonList
/// Width of the edges at the sides of a list.
inline constexpr qreal ListEdgeWidth = 1;

} // namespace SceneConstants
