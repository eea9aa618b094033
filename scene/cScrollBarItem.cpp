#include "cScrollBarItem.h"

#include "SceneConstants.h"

#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QPainter>
#include <QPropertyAnimation>

#include <cmath>
#include <limits>

using namespace SceneConstants;

namespace {

/// Without its fraction, and brought into the range of int.
int truncated(qreal number)
{
    using Limits = std::numeric_limits<int>;
    return int(qBound(qreal(Limits::min()), std::trunc(number), qreal(Limits::max())));
}

} // namespace

cScrollBarItem::cScrollBarItem(QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_fadeAnimation(std::make_unique<QPropertyAnimation>(this, "opacity"))
{
    m_fadeAnimation->setDuration(ScrollFadeTime);
    m_fadeAnimation->setEasingCurve(QEasingCurve::InOutQuad);
    m_fadeAnimation->setStartValue(ScrollFaint);
    m_fadeAnimation->setEndValue(ScrollBright);
    setAcceptHoverEvents(true);
    layoutHandle(0);
}

cScrollBarItem::~cScrollBarItem() = default;

QRectF cScrollBarItem::boundingRect() const
{
    return m_bounds;
}

void cScrollBarItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const int width = m_bounds.width();
    const int height = m_bounds.height();
    painter->setPen(QColor(62, 62, 62, 255));
    if (isVertical())
        painter->drawLine(width / 2, 0, width / 2, height);
    else
        painter->drawLine(0, height / 2, width, height / 2);
    painter->drawPixmap(m_topRect.topLeft(), m_topPixmap);
    // Ends that are longer than the handle leave nothing between them.
    if (!m_middleRect.isEmpty())
        painter->drawPixmap(m_middleRect, m_middlePixmap);
    painter->drawPixmap(m_bottomRect.topLeft(), m_bottomPixmap);
}

void cScrollBarItem::setSize(const QSize& size)
{
    prepareGeometryChange();
    m_bounds = QRect(QPoint(0, 0), size.expandedTo(QSize(0, 0)));
    fitHandle();
}

void cScrollBarItem::setSize(int width, int height)
{
    setSize(QSize(width, height));
}

void cScrollBarItem::setRange(int minimum, int maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    if (!m_bounds.isNull())
        fitHandle();
}

void cScrollBarItem::setPixmaps(const QPixmap& top, const QPixmap& middle, const QPixmap& bottom)
{
    m_topPixmap = top;
    m_middlePixmap = middle;
    m_bottomPixmap = bottom;
    fitHandle();
}

void cScrollBarItem::setOrientation(int orientation)
{
    m_orientation = orientation;
    fitHandle();
}

void cScrollBarItem::setMinimumHandle(int length)
{
    m_minimumHandle = length;
    fitHandle();
}

void cScrollBarItem::setContentLength(int length)
{
    m_contentLength = length;
    fitHandle();
}

void cScrollBarItem::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    Q_EMIT enters();
}

void cScrollBarItem::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    Q_EMIT leaves();
}

void cScrollBarItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const QPoint point = event->pos().toPoint();
    if (event->button() == Qt::LeftButton && m_handleRect.contains(point)) {
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    // Before the step, whose receivers may delete the bar.
    event->ignore();
    if (event->button() == Qt::LeftButton)
        page(point);
}

void cScrollBarItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    moveHandle(event->lastPos(), event->pos());
}

void cScrollBarItem::mouseReleaseEvent(QGraphicsSceneMouseEvent*)
{
    setCursor(Qt::OpenHandCursor);
}

void cScrollBarItem::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    // Whole notches only, as if computed in integers, but wide enough for any step. The wheel works along y
    // on a horizontal bar too, where it therefore leaves the handle in its place.
    const int wholeNotches = event->delta() / WheelNotch;
    const qreal notches = wholeNotches;
    const int step = m_contentLength == 0
        ? 0
        : truncated(notches * m_wheelStep * (m_bounds.height() - m_handleLength) / m_contentLength);
    if (step < 0) {
        const qreal bottom = m_handleRect.bottom();
        moveHandle(QPointF(0, bottom), QPointF(0, qMin(bottom - step, qreal(m_bounds.height() - 1))));
    } else {
        const qreal top = m_handleRect.top();
        moveHandle(QPointF(0, top), QPointF(0, qMax(top - step, 0.0)));
    }
}

/// Gives the handle the length that fits the bar and the content.
void cScrollBarItem::fitHandle()
{
    const qint64 bar = barLength();
    layoutHandle(m_contentLength <= bar ? bar : bar - (m_contentLength - bar));
}

void cScrollBarItem::layoutHandle(qint64 length)
{
    m_handleLength = int(qMin<qint64>(qMax<qint64>(length, m_minimumHandle), barLength()));
    if (isVertical()) {
        const int x = (m_bounds.width() - m_middlePixmap.width()) / 2;
        const int middle = m_handleLength - m_topPixmap.height() - m_bottomPixmap.height();
        m_topRect = QRect(QPoint(x, 0), m_topPixmap.size());
        m_middleRect = QRect(x, m_topPixmap.height(), m_middlePixmap.width(), middle);
        m_bottomRect = QRect(QPoint(x, m_topPixmap.height() + middle), m_bottomPixmap.size());
    } else {
        const int y = (m_bounds.height() - m_middlePixmap.height()) / 2;
        const int middle = m_handleLength - m_topPixmap.width() - m_bottomPixmap.width();
        m_topRect = QRect(QPoint(0, y), m_topPixmap.size());
        m_middleRect = QRect(m_topPixmap.width(), y, middle, m_middlePixmap.height());
        m_bottomRect = QRect(QPoint(m_topPixmap.width() + middle, y), m_bottomPixmap.size());
    }
    m_handleRect = m_topRect | m_middleRect | m_bottomRect;
    update();
}

/// Moves the handle by its own length towards a point beside it.
void cScrollBarItem::page(const QPoint& point)
{
    const qreal start = startOf(m_handleRect);
    const qreal end = endOf(m_handleRect);
    const qreal length = end - start;
    if (along(point) < start)
        moveHandle(pointAt(start), pointAt(qMax(start - length, 0.0)));
    else if (along(point) > end)
        moveHandle(pointAt(end), pointAt(qMin(end + length, qreal(barLength() - 1))));
}

void cScrollBarItem::moveHandle(const QPointF& from, const QPointF& to)
{
    const qint64 distance = truncated(along(to) - along(from));
    if (startOf(m_topRect) + distance < 0 || endOf(m_bottomRect) + distance >= barLength())
        return;
    const QPoint offset = isVertical() ? QPoint(0, int(distance)) : QPoint(int(distance), 0);
    m_topRect.translate(offset);
    m_middleRect.translate(offset);
    m_bottomRect.translate(offset);
    const QRect before = m_handleRect;
    m_handleRect = m_topRect | m_middleRect | m_bottomRect;
    update(before | m_handleRect);
    Q_EMIT sliderMoved(value());
}

/// The value at which the handle stands.
int cScrollBarItem::value() const
{
    const int room = barLength() - m_handleLength;
    if (room == 0)
        return m_minimum;
    const qreal scrolled = std::trunc(startOf(m_topRect) * (qreal(m_contentLength) - barLength()) / room);
    return truncated(scrolled + m_minimum);
}
