#pragma once

#include <cJsonValue.h>

#include <QGraphicsItem>
#include <QGraphicsPixmapItem>
#include <QObject>
#include <QPixmap>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

/// The framed pane behind the profile bar and behind the command list: a black field in a border of eight
/// pictures. The field's top left corner is the item's origin; the border is outside of it.
///
/// The pane is moved and resized by animations while the host transforms the device's picture. It hears of
/// that through the host's events and holds its hover signals back meanwhile.
class cPanel : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_PROPERTY(QPointF pos READ pos WRITE setPos)
    Q_PROPERTY(QSizeF size READ panelSize WRITE setSize)
    Q_DISABLE_COPY(cPanel)

public:
    /// The size is that of the field.
    explicit cPanel(const QSizeF& size, QGraphicsItem* parent = nullptr);
    ~cPanel() override;

    /// The field with its border.
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// Size of the field, without the border.
    QSizeF panelSize() const { return m_panelSize; }
    /// A negative length counts as 0.
    void setSize(const QSizeF& size);

    /// Makes the pane a child of the item, at that place in it.
    void placeInto(QGraphicsItem* parent, const QPointF& pos);

    // Events of the host.
    Q_INVOKABLE void onDeviceTransformBegin(const cJsonValue& metadata);
    Q_INVOKABLE void onDeviceTransformEnd();

Q_SIGNALS:
    /// A pointer that came in during a transformation and stayed is told of at its end, one that left during
    /// it never.
    void hoverIn();
    void hoverOut();

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;

private:
    void placePiece(QGraphicsPixmapItem& piece, const QPixmap& picture, qreal x, qreal y);

    QRectF m_bounds;
    QSizeF m_panelSize;

    QGraphicsPixmapItem m_topLeft;
    QGraphicsPixmapItem m_topRight;
    QGraphicsPixmapItem m_bottomLeft;
    QGraphicsPixmapItem m_bottomRight;
    QGraphicsPixmapItem m_left;
    QGraphicsPixmapItem m_top;
    QGraphicsPixmapItem m_bottom;
    QGraphicsPixmapItem m_right;

    QPixmap m_topLeftPixmap;
    QPixmap m_topRightPixmap;
    QPixmap m_bottomLeftPixmap;
    QPixmap m_bottomRightPixmap;
    QPixmap m_leftPixmap;
    QPixmap m_rightPixmap;
    QPixmap m_topPixmap;
    QPixmap m_bottomPixmap;

    /// The pointer came in during a transformation.
    bool m_hoverPending = false;
    bool m_inTransform = false;
};
