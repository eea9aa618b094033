#pragma once

#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>
#include <QRect>

#include <memory>

class QPropertyAnimation;

/// A scroll bar drawn as an item: a line and on it a handle of three pictures.
///
/// The handle stands at the start of the bar again whenever something changes that its length or place
/// depends on. It moves with the pointer, by pages beside it and with the wheel. A movement past either end
/// of the bar is refused as a whole, and nothing is emitted then.
class cScrollBarItem : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(cScrollBarItem)
    Q_PROPERTY(qreal opacity READ opacity WRITE setOpacity)

public:
    explicit cScrollBarItem(QGraphicsItem* parent = nullptr);
    ~cScrollBarItem() override;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// The extent of the bar in pixels; a negative length counts as 0.
    void setSize(const QSize& size);
    void setSize(int width, int height);
    /// `minimum` is the value at the start of the bar. The value at its end follows from the content's
    /// length.
    void setRange(int minimum, int maximum);
    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }

    /// The ends of the handle and the piece between them, which is stretched.
    void setPixmaps(const QPixmap& top, const QPixmap& middle, const QPixmap& bottom);
    /// Qt::Vertical, which is 2, or any other number for a horizontal bar.
    void setOrientation(int orientation);
    /// The least length of the handle, in pixels.
    void setMinimumHandle(int length);
    /// The length, in pixels, of what is scrolled.
    void setContentLength(int length);
    /// How far one notch of the wheel scrolls the content, in pixels.
    void setWheelStep(int step) { m_wheelStep = step; }

    /// Where the handle stands; null while it has no extent at all.
    QRect handleRect() const { return m_handleRect; }
    /// Brings the bar from faint to bright, or back. The owner runs it, as at enters() and leaves().
    QPropertyAnimation* fadeAnimation() const { return m_fadeAnimation.get(); }

Q_SIGNALS:
    void sliderMoved(int value);
    void enters();
    void leaves();

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;

private:
    bool isVertical() const { return m_orientation == Qt::Vertical; }
    /// Lengths and places along the bar.
    int barLength() const { return isVertical() ? m_bounds.height() : m_bounds.width(); }
    qreal along(const QPointF& point) const { return isVertical() ? point.y() : point.x(); }
    int startOf(const QRect& rect) const { return isVertical() ? rect.top() : rect.left(); }
    int endOf(const QRect& rect) const { return isVertical() ? rect.bottom() : rect.right(); }
    QPointF pointAt(qreal place) const { return isVertical() ? QPointF(0, place) : QPointF(place, 0); }

    void fitHandle();
    void layoutHandle(qint64 length);
    void page(const QPoint& point);
    void moveHandle(const QPointF& from, const QPointF& to);
    int value() const;

    QPixmap m_topPixmap;
    QPixmap m_middlePixmap;
    QPixmap m_bottomPixmap;
    QRect m_bounds;
    QRect m_topRect;
    QRect m_middleRect;
    QRect m_bottomRect;
    QRect m_handleRect;
    int m_orientation = Qt::Vertical;
    int m_minimumHandle = 0;
    int m_handleLength = 0;
    int m_wheelStep = 1;
    std::unique_ptr<QPropertyAnimation> m_fadeAnimation;
    int m_minimum = 0;
    int m_maximum = 100;
    int m_contentLength = 100;
};
