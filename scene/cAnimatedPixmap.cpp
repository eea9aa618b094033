#include "cAnimatedPixmap.h"

#include "SceneConstants.h"

#include <QPainter>

using namespace SceneConstants;

cAnimatedPixmap::cAnimatedPixmap(const QPixmap& strip, int frameWidth, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_frameWidth(frameWidth)
    , m_strip(frameWidth == SinglePicture ? FilmStrip::singleFrame() : FilmStrip(strip.width(), frameWidth))
{
    // The only frame is the picture as it stands, with what it may have beside the frame.
    if (m_strip.count() == 1)
        m_frames.append(strip);
    else
        for (int i = 0; i < m_strip.count(); ++i)
            m_frames.append(strip.copy(i * m_frameWidth, 0, m_frameWidth, strip.height()));
    m_timer.setInterval(FrameInterval);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(timeout()));
}

cAnimatedPixmap::~cAnimatedPixmap()
{
    stop();
}

QRectF cAnimatedPixmap::boundingRect() const
{
    return QRectF(QPointF(0, 0), m_frames.value(0).size());
}

void cAnimatedPixmap::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->drawPixmap(0, 0, m_frames.value(currentFrame()));
}

void cAnimatedPixmap::setFrame(int frame)
{
    m_strip.setCurrent(frame);
    update();
}

void cAnimatedPixmap::timeout()
{
    m_strip.step();
    update();
}
