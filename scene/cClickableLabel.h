#pragma once

#include <QLabel>
#include <QPixmap>

/// A picture button with three looks, for places where widgets stand.
///
/// Until the hover and pressed pictures are set, they are the one of the constructor.
class cClickableLabel : public QLabel
{
    Q_OBJECT

public:
    explicit cClickableLabel(const QPixmap& pixmap, QWidget* parent = nullptr);

    /// Seen from the next time that the pointer enters.
    void setHoverPixmap(const QPixmap& pixmap) { m_hoverPixmap = pixmap; }
    /// Seen from the next press.
    void setPressedPixmap(const QPixmap& pixmap) { m_pressedPixmap = pixmap; }

Q_SIGNALS:
    /// Where the left button was released, in global coordinates.
    void clicked(const QPoint& point);
    void clicked();
    void hoverIn();
    void hoverOut();

protected:
    /// Leaves the press to the parent too, so that a row is selected by a press on its button.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    QPixmap m_normalPixmap;
    QPixmap m_hoverPixmap;
    QPixmap m_pressedPixmap;
};
