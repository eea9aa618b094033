#include "SceneEvents.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace {

bool sendMouse(QGraphicsItem& item, QEvent::Type type, const QPointF& from, const QPointF& to,
    Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QGraphicsSceneMouseEvent event(type);
    event.setLastPos(from);
    event.setLastScenePos(item.mapToScene(from));
    event.setPos(to);
    event.setScenePos(item.mapToScene(to));
    event.setButton(button);
    event.setButtons(buttons);
    event.setAccepted(true);
    item.scene()->sendEvent(&item, &event);
    return event.isAccepted();
}

void sendHover(QGraphicsItem& item, QEvent::Type type)
{
    QGraphicsSceneHoverEvent event(type);
    item.scene()->sendEvent(&item, &event);
}

} // namespace

bool SceneEvents::press(QGraphicsItem& item, const QPointF& pos, Qt::MouseButton button)
{
    return sendMouse(item, QEvent::GraphicsSceneMousePress, pos, pos, button, button);
}

bool SceneEvents::move(QGraphicsItem& item, const QPointF& from, const QPointF& to)
{
    return sendMouse(item, QEvent::GraphicsSceneMouseMove, from, to, Qt::NoButton, Qt::LeftButton);
}

bool SceneEvents::release(QGraphicsItem& item, const QPointF& pos, Qt::MouseButton button)
{
    return sendMouse(item, QEvent::GraphicsSceneMouseRelease, pos, pos, button, Qt::NoButton);
}

bool SceneEvents::wheel(QGraphicsItem& item, int delta)
{
    QGraphicsSceneWheelEvent event(QEvent::GraphicsSceneWheel);
    event.setDelta(delta);
    event.setAccepted(true);
    item.scene()->sendEvent(&item, &event);
    return event.isAccepted();
}

void SceneEvents::hoverEnter(QGraphicsItem& item)
{
    sendHover(item, QEvent::GraphicsSceneHoverEnter);
}

void SceneEvents::hoverLeave(QGraphicsItem& item)
{
    sendHover(item, QEvent::GraphicsSceneHoverLeave);
}

QImage SceneEvents::painted(QGraphicsItem& item, const QSize& size, const QPoint& origin)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(-origin);
    const QStyleOptionGraphicsItem option;
    item.paint(&painter, &option, nullptr);
    return image;
}
