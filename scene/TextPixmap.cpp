#include "TextPixmap.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QSize>
#include <QString>

#include <utility>

QRect TextPixmap::measure(
    const QString& text, const QFont& font, int flags, const QRect& area, const QSize& scratch)
{
    QPixmap picture(scratch.expandedTo(QSize(1, 1)));
    QRect bounds;
    QPainter painter(&picture);
    painter.setFont(font);
    painter.drawText(area, flags, text, &bounds);
    return bounds;
}

QPixmap TextPixmap::render(const QString& text, const QFont& font, const QPen& pen, int flags,
    const QSize& size, const QColor& background)
{
    if (size.isEmpty() || qint64(size.width()) * size.height() > MaxPixels)
        return QPixmap();
    // A pixmap doesn't tell that there was no memory for it, an image does.
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return QPixmap();
    image.fill(background);
    QPixmap picture = QPixmap::fromImage(std::move(image));
    QPainter painter(&picture);
    painter.setFont(font);
    painter.setPen(pen);
    painter.drawText(QRect(QPoint(0, 0), size), flags, text);
    return picture;
}
