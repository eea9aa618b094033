#include "cGraphicsTextButton.h"

#include <QPainter>

cGraphicsTextButton::cGraphicsTextButton(const cJsonValue& description, QGraphicsItem* parent)
    : cGraphicsButton(description, parent)
{
    if (description.contains("text"))
        m_text = description["text"].toString();
    if (description.contains("imagemargin"))
        m_imageMargin = description["imagemargin"].toInt();
    if (description.contains("textmargin"))
        m_textMargin = description["textmargin"].toInt();
    if (description.contains("textalignment"))
        m_textAlignment = description["textalignment"].toInt();
}

cGraphicsTextButton::cGraphicsTextButton(const QString& text, QGraphicsItem* parent)
    : cGraphicsButton(parent)
    , m_text(text)
{ }

cGraphicsTextButton::cGraphicsTextButton(QGraphicsItem* parent)
    : cGraphicsButton(parent)
{ }

QRectF cGraphicsTextButton::boundingRect() const
{
    return cGraphicsButton::boundingRect();
}

void cGraphicsTextButton::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    cGraphicsButton::paint(painter, option, widget);
    if (m_text.isEmpty())
        return;
    // In reals, because the margins come from a record and may be any integers.
    const qreal pictureHeight = normalPixmap().height();
    const QRectF caption(0, pictureHeight + m_imageMargin, boundary().width(),
        boundary().height() - pictureHeight - m_textMargin);
    painter->save();
    painter->setBrush(Qt::white);
    painter->setPen(Qt::white);
    painter->setBackgroundMode(Qt::TransparentMode);
    painter->drawText(caption, m_textAlignment | Qt::TextWordWrap, m_text);
    painter->restore();
}

void cGraphicsTextButton::setText(const QString& text)
{
    m_text = text;
    update();
}

void cGraphicsTextButton::setFont(const QFont& font)
{
    m_font = font;
    update();
}
