#include "cScalablePixmap.h"

cScalablePixmap::cScalablePixmap(const QPixmap& pixmap, QGraphicsItem* parent)
    : QGraphicsPixmapItem(pixmap, parent)
{ }
