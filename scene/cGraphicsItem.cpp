#include "cGraphicsItem.h"

#include "SceneConstants.h"

#include <QCursor>
#include <QPainter>
#include <QPropertyAnimation>

using namespace SceneConstants;

cGraphicsItem::cGraphicsItem(const QString& id, const QString& normalPath, const QString& hoverPath,
    const QString& selectedPath, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_id(id)
    , m_normalPixmap(normalPath)
    , m_selectedPixmap(selectedPath)
    , m_hoverPixmap(hoverPath)
    , m_rect(QPointF(0, 0), m_normalPixmap.size())
{
    setAcceptHoverEvents(true);
}

cGraphicsItem::~cGraphicsItem() = default;

QRectF cGraphicsItem::boundingRect() const
{
    return m_rect;
}

void cGraphicsItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_selected)
        painter->drawPixmap(0, 0, m_selectedPixmap);
    else if (m_hovered)
        painter->drawPixmap(0, 0, m_hoverPixmap);
    else
        painter->drawPixmap(0, 0, m_normalPixmap);
}

void cGraphicsItem::setItemSelected(bool selected)
{
    m_selected = selected;
    update();
}

void cGraphicsItem::startPulse()
{
    if (m_pulsing)
        m_pulseAnimation->start(QAbstractAnimation::KeepWhenStopped);
}

void cGraphicsItem::stopPulse()
{
    if (m_pulseAnimation)
        m_pulseAnimation->stop();
    setScale(1.0);
}

void cGraphicsItem::setPulsate(bool on)
{
    if (!m_pulseAnimation)
        m_pulseAnimation = std::make_unique<QPropertyAnimation>(this, "scale");
    m_pulseAnimation->setDuration(PulseTime);
    m_pulseAnimation->setKeyValueAt(0.0, 1.0);
    m_pulseAnimation->setKeyValueAt(0.5, PulseScale);
    m_pulseAnimation->setKeyValueAt(1.0, 1.0);
    m_pulseAnimation->setLoopCount(-1);
    // A whole pixel, so that a picture of odd size stands sharp at scale 1.
    const QPoint origin(m_normalPixmap.width() / 2, m_normalPixmap.height() / 2);
    setTransformOriginPoint(origin);
    m_pulsing = on;
    if (!on)
        stopPulse();
}

void cGraphicsItem::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    setCursor(Qt::PointingHandCursor);
    m_hovered = true;
    update();
}

void cGraphicsItem::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    setCursor(Qt::ArrowCursor);
    m_hovered = false;
    update();
}

void cGraphicsItem::mousePressEvent(QGraphicsSceneMouseEvent*)
{
    setItemSelected(true);
    // A copy: a receiver may delete the item while others still read the id.
    Q_EMIT clicked(QString(m_id));
}
