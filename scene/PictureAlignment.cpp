#include "PictureAlignment.h"

#include <QPoint>
#include <QSize>

QPoint PictureAlignment::place(int alignment, const QSize& picture, const QSize& boundary)
{
    const int right = boundary.width() - picture.width();
    const int bottom = boundary.height() - picture.height();
    const int center = right / 2;
    const int middle = bottom / 2;
    switch (alignment) {
    case TopLeft:
        return QPoint(0, 0);
    case TopCenter:
        return QPoint(center, 0);
    case TopRight:
        return QPoint(right, 0);
    case RightMiddle:
        return QPoint(right, middle);
    case BottomRight:
        return QPoint(right, bottom);
    case BottomCenter:
        return QPoint(center, bottom);
    case BottomLeft:
        return QPoint(0, bottom);
    case LeftMiddle:
        return QPoint(0, middle);
    default:
        return QPoint(center, middle);
    }
}
