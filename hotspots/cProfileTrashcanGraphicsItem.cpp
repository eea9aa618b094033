#include "cProfileTrashcanGraphicsItem.h"

#include <QGraphicsSceneDragDropEvent>
#include <QPainter>
#include <QPointer>

cProfileTrashcanGraphicsItem::cProfileTrashcanGraphicsItem(
    const QPixmap& normalPixmap, const QPixmap& hoverPixmap, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_normalPixmap(normalPixmap)
    , m_hoverPixmap(hoverPixmap)
    , m_rect(normalPixmap.rect())
{
    setAcceptDrops(true);
    setAcceptHoverEvents(true);
}

void cProfileTrashcanGraphicsItem::setState(int state)
{
    m_state = state;
    update();
}

QRectF cProfileTrashcanGraphicsItem::boundingRect() const
{
    return m_rect;
}

void cProfileTrashcanGraphicsItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->drawPixmap(0, 0, StatePicture::choose(m_state, m_normalPixmap, m_hoverPixmap));
}

void cProfileTrashcanGraphicsItem::dragEnterEvent(QGraphicsSceneDragDropEvent* event)
{
    // Before the drag is looked at: one that is refused lights the picture as well, and as the scene sends it
    // no leave event, the picture stays until the next leave or drop.
    setState(StatePicture::UnderPointer);
    if (canAcceptDrop(event->source(), this, event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void cProfileTrashcanGraphicsItem::dragLeaveEvent(QGraphicsSceneDragDropEvent*)
{
    setState(StatePicture::Resting);
}

void cProfileTrashcanGraphicsItem::dropEvent(QGraphicsSceneDragDropEvent* event)
{
    // The receivers may ask the user, and while they wait the host may take the whole scene away.
    const QPointer<cProfileTrashcanGraphicsItem> self(this);
    deliverDrop(event->source(), this, event->mimeData());
    event->acceptProposedAction();
    if (self)
        setState(StatePicture::Resting);
}
