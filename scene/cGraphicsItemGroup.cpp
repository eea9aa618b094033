#include "cGraphicsItemGroup.h"

#include "cGraphicsItem.h"

#include <QtGlobal>

cGraphicsItemGroup::cGraphicsItemGroup(QGraphicsItem* parent)
    : QGraphicsItem(parent)
{ }

cGraphicsItemGroup::~cGraphicsItemGroup()
{
    // From the last to the first.
    while (!m_items.isEmpty())
        delete m_items.takeLast();
}

QRectF cGraphicsItemGroup::boundingRect() const
{
    QRectF united;
    for (const cGraphicsItem* item : m_items) {
        if (item)
            united |= item->boundingRect();
    }
    return united;
}

void cGraphicsItemGroup::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*)
{ }

void cGraphicsItemGroup::addItem(cGraphicsItem* item)
{
    if (!item || m_items.contains(item))
        return;
    connect(item, SIGNAL(clicked(QString)), this, SLOT(onClicked(QString)));
    prepareGeometryChange();
    m_items.append(item);
}

void cGraphicsItemGroup::removeItem(cGraphicsItem* item)
{
    if (!item || !m_items.contains(item))
        return;
    prepareGeometryChange();
    m_items.removeOne(item);
    delete item;
}

cGraphicsItem* cGraphicsItemGroup::selectedItem() const
{
    for (cGraphicsItem* item : m_items) {
        if (item && item->isItemSelected())
            return item;
    }
    return nullptr;
}

cGraphicsItem* cGraphicsItemGroup::itemByID(const QString& id) const
{
    for (cGraphicsItem* item : m_items) {
        if (item && item->id() == id)
            return item;
    }
    return nullptr;
}

void cGraphicsItemGroup::select(const QString& id)
{
    for (cGraphicsItem* item : qAsConst(m_items)) {
        if (item)
            item->setItemSelected(item->id() == id);
    }
    update();
}

void cGraphicsItemGroup::stopPulses()
{
    for (cGraphicsItem* item : qAsConst(m_items)) {
        if (item)
            item->stopPulse();
    }
}

void cGraphicsItemGroup::onClicked(const QString& id)
{
    select(id);
    Q_EMIT itemSelected(id);
}
