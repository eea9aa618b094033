#pragma once

#include <QAbstractButton>
#include <QPixmap>

/// A button of the device bar: a picture and a name. Hover has a light rim, selected is filled and
/// underlined, focus has a ring of its own.
class BarButton : public QAbstractButton
{
    Q_OBJECT

public:
    /// `iconSide` is the side of the square for the picture.
    BarButton(const QString& text, int iconSide, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// The picture for the present state; a null pixmap gets the name's initials instead.
    virtual QPixmap currentIcon() const = 0;
    bool isHovered() const { return m_isHovered; }

    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void paintPlate(QPainter& painter) const;
    void paintIcon(QPainter& painter, const QRect& box) const;

    int m_iconSide;
    bool m_isHovered = false;
};
