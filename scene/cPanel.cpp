#include "cPanel.h"

#include "SceneConstants.h"

#include <cEventHelpers.h>
#include <EventNames.h>
#include <PluginContext.h>

#include <QPainter>
#include <QTransform>

using namespace SceneConstants;

cPanel::cPanel(const QSizeF& size, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_topLeftPixmap(pluginResource("Resources/images/panel-topleft.png"))
    , m_topRightPixmap(pluginResource("Resources/images/panel-topright.png"))
    , m_bottomLeftPixmap(pluginResource("Resources/images/panel-bottomleft.png"))
    , m_bottomRightPixmap(pluginResource("Resources/images/panel-bottomright.png"))
    , m_leftPixmap(pluginResource("Resources/images/panel-left.png"))
    , m_rightPixmap(pluginResource("Resources/images/panel-right.png"))
    , m_topPixmap(pluginResource("Resources/images/panel-top.png"))
    , m_bottomPixmap(pluginResource("Resources/images/panel-bottom.png"))
{
    setAcceptHoverEvents(true);
    setSize(size);
    EventHelpers::subscribe(EventSources::MainUI, this);
}

cPanel::~cPanel()
{
    EventHelpers::unsubscribe(EventSources::MainUI, this);
}

QRectF cPanel::boundingRect() const
{
    return m_bounds;
}

void cPanel::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->fillRect(
        QRectF(0, 0, m_bounds.width() - 2 * PanelBorder, m_bounds.height() - 2 * PanelBorder), Qt::black);
}

void cPanel::setSize(const QSizeF& size)
{
    // No prepareGeometryChange(): the border's items announce their own changes, and they cover all of the
    // border.
    m_panelSize = QSizeF(0, 0).expandedTo(size);
    const qreal width = m_panelSize.width();
    const qreal height = m_panelSize.height();
    m_bounds = QRectF(-PanelBorder, -PanelBorder, width + 2 * PanelBorder, height + 2 * PanelBorder);

    placePiece(m_topLeft, m_topLeftPixmap, -PanelBorder, -PanelBorder);
    placePiece(m_topRight, m_topRightPixmap, width, -PanelBorder);
    placePiece(m_bottomLeft, m_bottomLeftPixmap, -PanelBorder, height);
    placePiece(m_bottomRight, m_bottomRightPixmap, width, height);
    placePiece(m_left, m_leftPixmap, -PanelBorder, 0);
    placePiece(m_top, m_topPixmap, 0, -PanelBorder);
    placePiece(m_bottom, m_bottomPixmap, 0, height);
    placePiece(m_right, m_rightPixmap, width - PanelRightEdgeOverlap, 0);

    const QTransform upright = QTransform::fromScale(1, height / PanelEdgeLength);
    const QTransform level = QTransform::fromScale(width / PanelEdgeLength, 1);
    m_left.setTransform(upright);
    m_top.setTransform(level);
    m_bottom.setTransform(level);
    m_right.setTransform(upright);
}

void cPanel::placePiece(QGraphicsPixmapItem& piece, const QPixmap& picture, qreal x, qreal y)
{
    piece.setParentItem(this);
    piece.setPixmap(picture);
    piece.setPos(x, y);
}

void cPanel::placeInto(QGraphicsItem* parent, const QPointF& pos)
{
    setParentItem(parent);
    setPos(pos);
}

void cPanel::onDeviceTransformBegin(const cJsonValue&)
{
    m_inTransform = true;
}

void cPanel::onDeviceTransformEnd()
{
    m_inTransform = false;
    const bool hoverPending = m_hoverPending;
    m_hoverPending = false;
    if (hoverPending)
        Q_EMIT hoverIn();
}

void cPanel::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    if (m_inTransform)
        m_hoverPending = true;
    else
        Q_EMIT hoverIn();
}

void cPanel::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    if (m_inTransform)
        m_hoverPending = false;
    else
        Q_EMIT hoverOut();
}
