#include "BarButton.h"

#include "AppConstants.h"

#include <HostPalette.h>

#include <QPainter>

#include <algorithm>

using namespace AppConstants;

namespace {

constexpr qreal PlateRadius = 6.0;
constexpr int UnderlineHeight = 3;

} // namespace

BarButton::BarButton(const QString& text, int iconSide, QWidget* parent)
    : QAbstractButton(parent)
    , m_iconSide(iconSide)
{
    setText(text);
    setToolTip(text);
    setAccessibleName(text);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize BarButton::sizeHint() const
{
    const int wanted = 3 * BarButtonPadding + m_iconSide + fontMetrics().horizontalAdvance(text());
    return {std::clamp(wanted, BarButtonMinWidth, BarButtonMaxWidth), BarButtonHeight};
}

void BarButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (!isEnabled())
        painter.setOpacity(0.4);
    paintPlate(painter);

    const QRect iconBox(BarButtonPadding, (height() - m_iconSide) / 2, m_iconSide, m_iconSide);
    paintIcon(painter, iconBox);

    QRect textBox = rect();
    textBox.setLeft(iconBox.right() + BarButtonPadding);
    textBox.setRight(rect().right() - BarButtonPadding / 2);
    painter.setPen(
        QColor(isChecked() || isHovered() || hasFocus() ? HostPalette::Text : HostPalette::QuietText));
    painter.drawText(textBox, Qt::AlignLeft | Qt::AlignVCenter,
        fontMetrics().elidedText(text(), Qt::ElideRight, textBox.width()));
}

void BarButton::paintPlate(QPainter& painter) const
{
    // Half a pixel in, so that lines of one pixel lie on whole pixels.
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QColor fill(HostPalette::Panel);
    if (isDown())
        fill = QColor(HostPalette::DeepTeal);
    else if (isChecked())
        fill = QColor(HostPalette::Teal);
    painter.setBrush(fill);
    painter.setPen(QColor(isHovered() ? HostPalette::LightTeal : HostPalette::Rim));
    painter.drawRoundedRect(plate, PlateRadius, PlateRadius);
    if (isChecked()) {
        const QRectF underline(BarButtonPadding, height() - UnderlineHeight - 3,
            width() - 2 * BarButtonPadding, UnderlineHeight);
        painter.fillRect(underline, QColor(HostPalette::LightTeal));
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(HostPalette::LightTeal), 2.0));
        painter.drawRoundedRect(plate.adjusted(0.5, 0.5, -0.5, -0.5), PlateRadius, PlateRadius);
    }
}

void BarButton::paintIcon(QPainter& painter, const QRect& box) const
{
    const QPixmap icon = currentIcon();
    if (icon.isNull()) {
        painter.setPen(QColor(HostPalette::LightTeal));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(box).adjusted(2.5, 2.5, -2.5, -2.5), PlateRadius, PlateRadius);
        painter.drawText(box, Qt::AlignCenter, text().left(1).toUpper());
        return;
    }
    QSizeF size = QSizeF(icon.size()) / icon.devicePixelRatio();
    if (size.width() > box.width() || size.height() > box.height())
        size.scale(box.size(), Qt::KeepAspectRatio);
    QRectF target(QPointF(0, 0), size);
    target.moveCenter(QRectF(box).center());
    target.moveTopLeft(target.topLeft().toPoint());
    painter.drawPixmap(target, icon, QRectF(icon.rect()));
}

void BarButton::enterEvent(QEvent* event)
{
    m_isHovered = true;
    update();
    QAbstractButton::enterEvent(event);
}

void BarButton::leaveEvent(QEvent* event)
{
    m_isHovered = false;
    update();
    QAbstractButton::leaveEvent(event);
}
