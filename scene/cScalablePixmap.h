#pragma once

#include <QGraphicsPixmapItem>
#include <QObject>

/// A picture whose scale can be animated.
class cScalablePixmap : public QObject, public QGraphicsPixmapItem
{
    Q_OBJECT
    Q_DISABLE_COPY(cScalablePixmap)
    Q_PROPERTY(qreal scale READ scale WRITE setScale)

public:
    explicit cScalablePixmap(const QPixmap& pixmap, QGraphicsItem* parent = nullptr);
};
