#pragma once

#include "SceneConstants.h"

#include <QFont>
#include <QGraphicsItem>
#include <QPen>
#include <QPixmap>
#include <QRect>
#include <QString>

/// A text on the canvas, rendered into a picture when it changes. An empty text has an empty extent.
class cGraphicsText : public QGraphicsItem
{
    Q_DISABLE_COPY(cGraphicsText)

public:
    explicit cGraphicsText(QGraphicsItem* parent = nullptr);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    QString text() const { return m_text; }
    void setText(const QString& text);
    void setFont(const QFont& font);
    /// A QFont::Weight.
    void setFontWeight(int weight);
    /// As QPainter::drawText takes them: Qt::AlignmentFlag and Qt::TextFlag.
    void setFlags(int flags);
    QPen pen() const { return m_pen; }
    void setPen(const QPen& pen);
    /// The width in pixels at which the text is wrapped if its flags say so. With `fixed` the extent is at
    /// least as wide.
    void setTextWidth(int width, bool fixed);

private:
    void render();

    QString m_text;
    int m_flags = Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap;
    QFont m_font;
    QPixmap m_pixmap;
    QRect m_rect;
    int m_textWidth = SceneConstants::TextWidth;
    QPen m_pen;
    bool m_fixedWidth = false;
};
