#pragma once

#include "KeySheet.h"

#include <QList>
#include <QPixmap>
#include <QRectF>

class QPagedPaintDevice;
class QPainter;

/// Draws a key sheet on pages of any size: each mode begins a page of its own with the device's picture, and
/// goes on on further pages if its keys need them. All texts are drawn as they are.
class KeySheetPainter
{
public:
    explicit KeySheetPainter(const KeySheet& sheet);

    /// False if the device can't be drawn on.
    bool paint(QPagedPaintDevice& device) const;

private:
    /// A part of a mode's rows that fits on a page.
    struct Page
    {
        int mode = 0;
        int firstRow = 0;
        int rowCount = 0;
        bool hasHead = false;
    };

    QList<Page> pagesFor(const QSizeF& size) const;
    qreal headHeight(const QSizeF& size) const;
    qreal pictureHeight(const QSizeF& size) const;
    void paintPage(QPainter& painter, const QSizeF& size, const Page& page) const;
    qreal paintTitle(QPainter& painter, const QSizeF& size, const KeySheet::Mode& mode) const;
    void paintPicture(QPainter& painter, const QRectF& area, const KeySheet::Mode& mode) const;
    void paintLabel(QPainter& painter, const KeySheet::Label& label, const QString& text) const;
    void paintRows(QPainter& painter, const QRectF& area, const Page& page) const;
    static qreal keyColumnWidth(const KeySheet::Mode& mode, qreal columnWidth);
    void paintFooter(QPainter& painter, const QSizeF& size, int number, int count) const;
    /// Around the picture and all labels, in the scene.
    QRectF sceneBounds() const;

    KeySheet m_sheet;
    QPixmap m_picture;
};
