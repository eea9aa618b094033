#pragma once

#include <QPixmap>

class QMargins;
class QPainter;
class QRect;

/// Nine pictures that make a frame of any size: corners that keep their size, edges that stretch along the
/// frame, a centre that stretches both ways. A null picture draws nothing.
class NineSlice
{
public:
    QPixmap topLeft;
    QPixmap topRight;
    QPixmap top;
    QPixmap left;
    QPixmap bottomLeft;
    QPixmap bottomRight;
    QPixmap bottom;
    QPixmap right;
    QPixmap center;

    /// Draws the frame so that it fills the target. `insets` is how far the corners and edges reach into it
    /// at each side. Each corner stands with its top left pixel where its place begins and is not scaled.
    /// Edges and centre are scaled to what the insets leave; where they leave nothing, nothing is drawn.
    ///
    /// The pieces are drawn from the top to the bottom, the right edge and the centre last, so that these two
    /// lie on top in a target that is smaller than its insets.
    void draw(QPainter& painter, const QRect& target, const QMargins& insets) const;
};
