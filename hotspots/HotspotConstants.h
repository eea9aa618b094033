#pragma once

#include <QtGlobal>

/// Sizes, places and z values of what lies on the keys. Lengths are pixels of the canvas's scene.
namespace HotspotConstants {

/// Edge of a corner picture of a label's balloon, and thickness of its edge pictures.
inline constexpr int BalloonBorder = 10;
/// How far a label's text stands inside the balloon. It reaches into the border on purpose.
inline constexpr int LabelTextMarginX = 5;
inline constexpr int LabelTextMarginY = 3;

/// Design size of a label's text, in points at 96 dots per inch.
inline constexpr qreal LabelFontSize = 8.0;
/// Grey value of the text of a command that can't be moved.
inline constexpr int StaticTextGrey = 180;
/// The longest side of a label's text area; the raster engine paints no further than that. Widths come from
/// device manifests, and a nonsensical one must not take all memory.
inline constexpr int LabelMaxLength = 32767;

/// A grown label stands above its neighbours.
inline constexpr qreal GrownLabelZ = 100.0;

} // namespace HotspotConstants
