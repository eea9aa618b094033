#include "cGraphicsText.h"

#include "cScaledFont.h"
#include "TextPixmap.h"

#include <QPainter>

#include <algorithm>

cGraphicsText::cGraphicsText(QGraphicsItem* parent)
    : QGraphicsItem(parent)
{
    const QFont& font = cScaledFont(SceneConstants::TextFamily, SceneConstants::TextDesignSize);
    m_font = font;
}

QRectF cGraphicsText::boundingRect() const
{
    return m_rect;
}

void cGraphicsText::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    // The picture of the last text is kept when the text becomes empty.
    if (m_rect.isValid())
        painter->drawPixmap(0, 0, m_pixmap);
}

void cGraphicsText::setText(const QString& text)
{
    m_text = text;
    render();
}

void cGraphicsText::setFont(const QFont& font)
{
    m_font = font;
    render();
}

void cGraphicsText::setFontWeight(int weight)
{
    m_font.setWeight(weight);
    render();
}

void cGraphicsText::setFlags(int flags)
{
    m_flags = flags;
    render();
}

void cGraphicsText::setPen(const QPen& pen)
{
    m_pen = pen;
    render();
}

void cGraphicsText::setTextWidth(int width, bool fixed)
{
    m_textWidth = width;
    m_fixedWidth = fixed;
    render();
}

void cGraphicsText::render()
{
    const QRect bounds = TextPixmap::measure(
        m_text, m_font, m_flags, QRect(0, 0, m_textWidth, 0), SceneConstants::TextScratchSize);
    prepareGeometryChange();
    m_rect = QRect(0, 0, bounds.width(), bounds.height());
    if (m_fixedWidth)
        m_rect.setWidth(std::max(m_textWidth, m_rect.width()));
    if (!m_rect.isValid())
        return;
    m_pixmap = TextPixmap::render(m_text, m_font, m_pen, m_flags, m_rect.size());
    update();
}
