#pragma once

#include "cGraphicsButton.h"

#include <QFont>
#include <QString>

/// A button with a caption in white under its picture, wrapped at words.
class cGraphicsTextButton : public cGraphicsButton
{
    Q_OBJECT

public:
    /// The keys of cGraphicsButton's description, and:
    /// - `text`: the caption.
    /// - `imagemargin`: integer, pixels between the normal picture and the caption.
    /// - `textmargin`: integer, pixels by which the caption's height is less than what the picture leaves.
    /// - `textalignment`: integer, Qt::Alignment of the caption, Qt::AlignCenter without this key.
    explicit cGraphicsTextButton(const cJsonValue& description, QGraphicsItem* parent = nullptr);
    explicit cGraphicsTextButton(const QString& text, QGraphicsItem* parent = nullptr);
    explicit cGraphicsTextButton(QGraphicsItem* parent = nullptr);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    QString text() const { return m_text; }
    void setText(const QString& text);
    /// Kept for the owner: the caption is drawn in the font that the painter comes with.
    QFont font() const { return m_font; }
    void setFont(const QFont& font);

private:
    QFont m_font;
    QString m_text;
    int m_imageMargin = 0;
    int m_textMargin = 0;
    int m_textAlignment = Qt::AlignCenter;
};
