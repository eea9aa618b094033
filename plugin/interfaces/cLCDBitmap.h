#pragma once

#include <QImage>
#include <QMetaType>
#include <QSharedPointer>

/// A picture for a device's display, in the display's own size.
struct cLCDBitmap
{
    QImage image;
};

using cLCDBitmapPtr = QSharedPointer<cLCDBitmap>;

Q_DECLARE_METATYPE(cLCDBitmapPtr)
