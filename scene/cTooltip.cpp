#include "cTooltip.h"

#include "cScaledFont.h"
#include "SceneConstants.h"
#include "TextPixmap.h"

#include <QPainter>
#include <QPen>
#include <QTimer>

using namespace SceneConstants;

namespace {

constexpr int TextFlags = Qt::AlignLeft | Qt::TextSingleLine;

} // namespace

cTooltip::cTooltip(QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_timer(new QTimer(this))
    // NOLINTNEXTLINE(cppcoreguidelines-slicing): the design size has done its work.
    , m_font(cScaledFont(TextFamily, TooltipDesignSize, QFont::Bold))
{
    connect(m_timer, SIGNAL(timeout()), this, SLOT(timerOut()));
    hide();
}

QRectF cTooltip::boundingRect() const
{
    return QRectF(0, 0, m_textPixmap.width() + 2 * TooltipMargin, m_textPixmap.height() + 2 * TooltipMargin);
}

void cTooltip::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QRect frame(QPoint(0, 0), boundingRect().size().toSize());
    painter->fillRect(frame, QBrush(m_backgroundColor, Qt::SolidPattern));
    painter->setPen(m_textColor);
    painter->drawRect(frame);
    painter->drawPixmap(TooltipMargin, TooltipMargin, m_textPixmap);
}

void cTooltip::showTip(const QPointF& pos, const QString& text)
{
    prepareGeometryChange();
    const QRect bounds = TextPixmap::measure(text, m_font, TextFlags, QRect(0, 0, 0, 0), TooltipScratchSize);
    m_textPixmap =
        TextPixmap::render(text, m_font, QPen(m_textColor), TextFlags, bounds.size(), m_backgroundColor);
    setPos(pos);
    setZValue(TooltipZ);
    show();
    m_timer->start(TooltipTime);
}

void cTooltip::timerOut()
{
    m_timer->stop();
    hide();
}
