#pragma once

#include <QColor>
#include <QPixmap>
#include <QRect>

class QFont;
class QPen;
class QSize;
class QString;

/// Texts of the scene are rendered into pictures when they change, so that painting only copies them.
///
/// `flags` are those of QPainter::drawText: Qt::AlignmentFlag and Qt::TextFlag. Qt::AlignLeft means the left
/// side also for a text that is read from right to left.
namespace TextPixmap {

/// The rectangle that the text fills if it is drawn into `area` with its flags; it may be larger than the
/// area. A null rectangle for an empty text. `scratch` is the size of the picture on which it is tried out.
QRect measure(const QString& text, const QFont& font, int flags, const QRect& area, const QSize& scratch);

/// Pixels of the largest picture that render() makes: more than any text that is read, and a quarter of a
/// gigabyte.
constexpr qint64 MaxPixels = 64 * 1024 * 1024;

/// The text on a picture of that size, cut off at its edges. A null picture for an empty size, for one beyond
/// MaxPixels, and if there is no memory for it.
QPixmap render(const QString& text, const QFont& font, const QPen& pen, int flags, const QSize& size,
    const QColor& background = Qt::transparent);

} // namespace TextPixmap
