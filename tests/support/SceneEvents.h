#pragma once

#include <QImage>
#include <QPointF>
#include <QSize>

class QGraphicsItem;

/// Pointer events for items that stand in a scene, sent to the item itself. Points are in the item's own
/// coordinates. The functions with a result tell whether the item accepted the event.
namespace SceneEvents {

bool press(QGraphicsItem& item, const QPointF& pos = QPointF(), Qt::MouseButton button = Qt::LeftButton);
bool move(QGraphicsItem& item, const QPointF& from, const QPointF& to);
bool release(QGraphicsItem& item, const QPointF& pos = QPointF(), Qt::MouseButton button = Qt::LeftButton);
/// `delta` is in eighths of a degree; one notch is 120.
bool wheel(QGraphicsItem& item, int delta);
void hoverEnter(QGraphicsItem& item);
void hoverLeave(QGraphicsItem& item);

/// What the item alone draws on a transparent picture of that size, whose corner is at `origin` of the item.
QImage painted(QGraphicsItem& item, const QSize& size, const QPoint& origin = QPoint());

} // namespace SceneEvents
