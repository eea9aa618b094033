#include "NineSlice.h"

#include <QMargins>
#include <QPainter>
#include <QRect>

namespace {

void drawStretched(QPainter& painter, const QRect& place, const QPixmap& picture)
{
    // The painter takes a negative length to mean the picture's own.
    if (!place.isEmpty())
        painter.drawPixmap(place, picture);
}

} // namespace

void NineSlice::draw(QPainter& painter, const QRect& target, const QMargins& insets) const
{
    const QRect inner = target.marginsRemoved(insets);
    const int innerRight = inner.x() + inner.width();
    const int innerBottom = inner.y() + inner.height();

    painter.drawPixmap(target.topLeft(), topLeft);
    drawStretched(painter, QRect(inner.x(), target.y(), inner.width(), insets.top()), top);
    painter.drawPixmap(innerRight, target.y(), topRight);
    drawStretched(painter, QRect(target.x(), inner.y(), insets.left(), inner.height()), left);
    painter.drawPixmap(target.x(), innerBottom, bottomLeft);
    drawStretched(painter, QRect(inner.x(), innerBottom, inner.width(), insets.bottom()), bottom);
    painter.drawPixmap(innerRight, innerBottom, bottomRight);
    drawStretched(painter, QRect(innerRight, inner.y(), insets.right(), inner.height()), right);
    drawStretched(painter, inner, center);
}
