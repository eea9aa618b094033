#include "cAnimatedPixmapWidget.h"

#include "SceneConstants.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

using namespace SceneConstants;

cAnimatedPixmapWidget::cAnimatedPixmapWidget(const QPixmap& strip, int frameWidth, QWidget* parent)
    : QWidget(parent)
    , m_strip(strip)
    , m_frameWidth(frameWidth == SinglePicture ? strip.width() : frameWidth)
    , m_counter(frameWidth == SinglePicture ? FilmStrip::singleFrame() : FilmStrip(strip.width(), frameWidth))
{
    setAutoFillBackground(true);
    setFixedSize(qMax(0, m_frameWidth), m_strip.height());
    m_timer.setInterval(FrameInterval);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(timeout()));
}

cAnimatedPixmapWidget::~cAnimatedPixmapWidget()
{
    stop();
}

QSize cAnimatedPixmapWidget::sizeHint() const
{
    return m_strip.size();
}

void cAnimatedPixmapWidget::setFrame(int frame)
{
    m_counter.setCurrent(frame);
    update();
}

void cAnimatedPixmapWidget::setUseHoverPixmap(bool use)
{
    m_useHoverPixmap = use;
    update();
}

void cAnimatedPixmapWidget::setOpacity(qreal o)
{
    m_opacity = o;
    update();
}

qreal cAnimatedPixmapWidget::opacity() const
{
    return m_opacity;
}

void cAnimatedPixmapWidget::timeout()
{
    m_counter.step();
    update();
}

void cAnimatedPixmapWidget::mousePressEvent(QMouseEvent* event)
{
    // A receiver may delete this widget.
    const QPointer<cAnimatedPixmapWidget> self(this);
    if (event->button() == Qt::LeftButton)
        Q_EMIT clicked();
    if (self)
        QWidget::mousePressEvent(event);
}

void cAnimatedPixmapWidget::enterEvent(QEvent*)
{
    setCursor(Qt::PointingHandCursor);
    m_underPointer = true;
    update();
    Q_EMIT enter();
}

void cAnimatedPixmapWidget::leaveEvent(QEvent*)
{
    setCursor(Qt::ArrowCursor);
    m_underPointer = false;
    update();
    Q_EMIT leave();
}

void cAnimatedPixmapWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    if (m_underPointer && m_useHoverPixmap)
        painter.drawPixmap(0, 0, m_hoverPixmap);
    else
        // In reals, where no frame that was set is too far away.
        painter.drawPixmap(QPointF(0, 0), m_strip,
            QRectF(qreal(currentFrame()) * m_frameWidth, 0, m_frameWidth, m_strip.height()));
}
