#pragma once

class QPoint;
class QSize;

/// Where a picture stands in a boundary that is not of its size.
namespace PictureAlignment {

/// Round the boundary, clockwise. Any other number means the centre too.
enum Alignment {
    Center = -1,
    TopLeft,
    TopCenter,
    TopRight,
    RightMiddle,
    BottomRight,
    BottomCenter,
    BottomLeft,
    LeftMiddle
};

/// The top left corner of the picture in the boundary, whose own is (0, 0). Halves of a slack are truncated
/// towards 0, also if the picture is the larger one and stands out.
QPoint place(int alignment, const QSize& picture, const QSize& boundary);

} // namespace PictureAlignment
