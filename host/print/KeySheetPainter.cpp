#include "KeySheetPainter.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPageLayout>
#include <QPainter>

#include <algorithm>

namespace {

// All lengths are points, 1/72 inch.
constexpr int TitleSize = 20;
constexpr int TextSize = 10;
constexpr int SmallSize = 8;
/// What a long command's name shrinks to.
constexpr int SmallestTextSize = 6;
constexpr qreal TitleHeight = 28.0;
constexpr qreal LineHeight = 15.0;
/// The profile's description has so many lines at most.
constexpr qreal DescriptionHeight = 2 * 12.0;
constexpr qreal Gap = 10.0;
constexpr qreal RowHeight = 15.5;
constexpr qreal ColumnGap = 16.0;
constexpr qreal CellPadding = 4.0;
/// The part of a column that the keys' names take at least and at most.
constexpr qreal MinKeyShare = 0.2;
constexpr qreal MaxKeyShare = 0.55;
constexpr int MaxColumns = 2;
constexpr qreal FooterHeight = 20.0;
/// What the picture takes of a page at most.
constexpr qreal PictureShare = 0.5;
/// Text of a label and the smallest that a long one shrinks to, in pixels of the scene.
constexpr int LabelTextSize = 11;
constexpr int SmallLabelTextSize = 8;

constexpr QRgb Ink = qRgb(0x14, 0x18, 0x19);
constexpr QRgb QuietInk = qRgb(0x5a, 0x64, 0x64);
constexpr QRgb Rule = qRgb(0xc4, 0xcc, 0xcc);
constexpr QRgb Stripe = qRgb(0xf2, 0xf5, 0xf5);
constexpr QRgb Accent = qRgb(0x0d, 0x6b, 0x6b);

QFont fontOf(int size, bool bold = false)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    // Points of the page are the painter's pixels.
    font.setPixelSize(size);
    font.setBold(bold);
    return font;
}

QString text(const char* source)
{
    return QCoreApplication::translate("KeySheetPainter", source);
}

/// Draws one line, smaller if it is long, and shortened if it is longer than that.
void drawFitting(QPainter& painter, const QRectF& box, Qt::Alignment alignment, const QString& string,
    int size, int smallestSize)
{
    const QString line = QString(string).replace(QLatin1Char('\n'), QLatin1Char(' '));
    const bool isBold = painter.font().bold();
    while (size > smallestSize && QFontMetricsF(fontOf(size, isBold)).horizontalAdvance(line) > box.width())
        --size;
    const QFont font = fontOf(size, isBold);
    painter.setFont(font);
    painter.drawText(box, int(alignment) | Qt::AlignVCenter | Qt::TextSingleLine,
        QFontMetricsF(font).elidedText(line, Qt::ElideRight, box.width()));
}

void drawElided(QPainter& painter, const QRectF& box, const QString& string)
{
    const int size = painter.font().pixelSize();
    drawFitting(painter, box, Qt::AlignLeft, string, size, size);
}

} // namespace

KeySheetPainter::KeySheetPainter(const KeySheet& sheet)
    : m_sheet(sheet)
    , m_picture(sheet.picturePath)
{ }

bool KeySheetPainter::paint(QPagedPaintDevice& device) const
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const QSizeF size = device.pageLayout().paintRect(QPageLayout::Point).size();
    const QList<Page> pages = pagesFor(size);
    for (int i = 0; i < pages.size(); ++i) {
        if (i > 0 && !device.newPage())
            return false;
        painter.save();
        painter.scale(device.logicalDpiX() / 72.0, device.logicalDpiY() / 72.0);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        paintPage(painter, size, pages[i]);
        paintFooter(painter, size, i + 1, pages.size());
        painter.restore();
    }
    return painter.end();
}

QRectF KeySheetPainter::sceneBounds() const
{
    QRectF bounds(m_sheet.picturePosition, QSizeF(m_picture.size()) * m_sheet.pictureScale);
    for (const KeySheet::Label& label : m_sheet.labels)
        bounds |= label.box.adjusted(-1, -1, 1, 1);
    return bounds;
}

qreal KeySheetPainter::pictureHeight(const QSizeF& size) const
{
    const QRectF bounds = sceneBounds();
    if (m_picture.isNull() || bounds.isEmpty())
        return 0.0;
    return std::min(size.height() * PictureShare, size.width() * bounds.height() / bounds.width());
}

qreal KeySheetPainter::headHeight(const QSizeF& size) const
{
    const qreal picture = pictureHeight(size);
    return TitleHeight + LineHeight + (m_sheet.description.isEmpty() ? 0.0 : DescriptionHeight) + Gap
        + (picture > 0.0 ? picture + Gap : 0.0);
}

QList<KeySheetPainter::Page> KeySheetPainter::pagesFor(const QSizeF& size) const
{
    const auto rowsIn = [](qreal height) {
        // One line of each column is its caption.
        return std::max(1, MaxColumns * (int(height / RowHeight) - 1));
    };
    const qreal body = size.height() - FooterHeight;
    QList<Page> pages;
    for (int mode = 0; mode < m_sheet.modes.size(); ++mode) {
        const int count = m_sheet.modes[mode].rows.size();
        Page page {mode, 0, std::min(count, rowsIn(body - headHeight(size))), true};
        pages.append(page);
        while (page.firstRow + page.rowCount < count) {
            const int next = page.firstRow + page.rowCount;
            page = {mode, next, std::min(count - next, rowsIn(body - TitleHeight - LineHeight - Gap)), false};
            pages.append(page);
        }
    }
    return pages;
}

void KeySheetPainter::paintPage(QPainter& painter, const QSizeF& size, const Page& page) const
{
    const KeySheet::Mode& mode = m_sheet.modes[page.mode];
    qreal y = paintTitle(painter, size, mode);
    if (page.hasHead) {
        if (!m_sheet.description.isEmpty()) {
            painter.setFont(fontOf(TextSize));
            painter.setPen(QColor(QuietInk));
            painter.drawText(QRectF(0, y, size.width(), DescriptionHeight),
                Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, m_sheet.description);
            y += DescriptionHeight;
        }
        y += Gap;
        if (const qreal height = pictureHeight(size); height > 0.0) {
            paintPicture(painter, QRectF(0, y, size.width(), height), mode);
            y += height + Gap;
        }
    } else {
        y += Gap;
    }
    paintRows(painter, QRectF(0, y, size.width(), size.height() - FooterHeight - y), page);
}

qreal KeySheetPainter::paintTitle(QPainter& painter, const QSizeF& size, const KeySheet::Mode& mode) const
{
    painter.setPen(QColor(Ink));
    painter.setFont(fontOf(TitleSize, true));
    const qreal modeWidth =
        mode.name.isEmpty() ? 0.0 : QFontMetricsF(painter.font()).horizontalAdvance(mode.name) + Gap;
    drawElided(painter, QRectF(0, 0, size.width() - modeWidth, TitleHeight), m_sheet.profileName);
    if (!mode.name.isEmpty()) {
        painter.setPen(QColor(Accent));
        painter.drawText(QRectF(size.width() - modeWidth, 0, modeWidth, TitleHeight),
            Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, mode.name);
    }
    painter.setPen(QColor(QuietInk));
    painter.setFont(fontOf(TextSize));
    drawElided(painter, QRectF(0, TitleHeight, size.width(), LineHeight), m_sheet.deviceName);
    return TitleHeight + LineHeight;
}

void KeySheetPainter::paintPicture(QPainter& painter, const QRectF& area, const KeySheet::Mode& mode) const
{
    const QRectF bounds = sceneBounds();
    const qreal scale = std::min(area.width() / bounds.width(), area.height() / bounds.height());
    painter.save();
    painter.translate(area.center());
    painter.scale(scale, scale);
    painter.translate(-bounds.center());
    const QRectF place(m_sheet.picturePosition, QSizeF(m_picture.size()) * m_sheet.pictureScale);
    painter.drawPixmap(place, m_picture, QRectF(m_picture.rect()));
    for (const KeySheet::Label& label : m_sheet.labels) {
        const auto row = std::find_if(mode.rows.begin(), mode.rows.end(),
            [&](const KeySheet::Row& each) { return each.contextId == label.contextId; });
        if (row != mode.rows.end() && !row->command.isEmpty())
            paintLabel(painter, label, row->command);
    }
    painter.restore();
}

void KeySheetPainter::paintLabel(QPainter& painter, const KeySheet::Label& label, const QString& text) const
{
    if (!label.line.isNull()) {
        // A light line under the dark one: it crosses dark keys and white paper.
        painter.setPen(QPen(Qt::white, 3.0));
        painter.drawLine(label.line);
        painter.setPen(QPen(QColor(Ink), 1.0));
        painter.drawLine(label.line);
    }
    painter.setPen(QPen(QColor(Accent), 1.0));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(label.box, 4.0, 4.0);
    painter.setPen(QColor(Ink));
    painter.setFont(fontOf(LabelTextSize));
    drawFitting(
        painter, label.box.adjusted(5, 0, -4, 0), Qt::AlignHCenter, text, LabelTextSize, SmallLabelTextSize);
}

void KeySheetPainter::paintRows(QPainter& painter, const QRectF& area, const Page& page) const
{
    const KeySheet::Mode& mode = m_sheet.modes[page.mode];
    const int columns = page.rowCount < int(area.height() / RowHeight) ? 1 : MaxColumns;
    const qreal width = (area.width() - (columns - 1) * ColumnGap) / columns;
    const qreal keyWidth = keyColumnWidth(mode, width);
    const int perColumn = (page.rowCount + columns - 1) / columns;
    for (int column = 0; column < columns && column * perColumn < page.rowCount; ++column) {
        const qreal left = area.left() + column * (width + ColumnGap);
        const auto cells = [&](int line) {
            const QRectF row(left, area.top() + line * RowHeight, width, RowHeight);
            return std::make_pair(
                QRectF(row.left() + CellPadding, row.top(), keyWidth - 2 * CellPadding, RowHeight),
                QRectF(row.left() + keyWidth, row.top(), width - keyWidth - CellPadding, RowHeight));
        };
        painter.setFont(fontOf(SmallSize, true));
        painter.setPen(QColor(QuietInk));
        drawElided(painter, cells(0).first, text("Key"));
        drawElided(painter, cells(0).second, text("Command"));
        painter.setPen(QPen(QColor(Rule), 1.0));
        painter.drawLine(
            QPointF(left, area.top() + RowHeight), QPointF(left + width, area.top() + RowHeight));
        const int count = std::min(perColumn, page.rowCount - column * perColumn);
        for (int i = 0; i < count; ++i) {
            const KeySheet::Row& row = mode.rows[page.firstRow + column * perColumn + i];
            const auto [key, command] = cells(i + 1);
            if (i % 2 == 1)
                painter.fillRect(QRectF(left, key.top(), width, RowHeight), QColor(Stripe));
            painter.setFont(fontOf(TextSize));
            painter.setPen(QColor(QuietInk));
            drawElided(painter, key, row.key);
            painter.setPen(QColor(row.command.isEmpty() ? Rule : Ink));
            drawFitting(painter, command, Qt::AlignLeft,
                row.command.isEmpty() ? QString(QChar(0x2013)) : row.command, TextSize, SmallestTextSize);
        }
    }
}

qreal KeySheetPainter::keyColumnWidth(const KeySheet::Mode& mode, qreal columnWidth)
{
    const QFontMetricsF metrics(fontOf(TextSize));
    qreal widest = 0.0;
    for (const KeySheet::Row& row : mode.rows)
        widest = std::max(widest, metrics.horizontalAdvance(row.key));
    return std::clamp(widest + 4 * CellPadding, MinKeyShare * columnWidth, MaxKeyShare * columnWidth);
}

void KeySheetPainter::paintFooter(QPainter& painter, const QSizeF& size, int number, int count) const
{
    const QRectF box(0, size.height() - LineHeight, size.width(), LineHeight);
    painter.setFont(fontOf(SmallSize));
    painter.setPen(QColor(QuietInk));
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, QCoreApplication::applicationName());
    painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, text("Page %1 of %2").arg(number).arg(count));
}
