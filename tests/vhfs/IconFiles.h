#pragma once

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QSize>

/// Windows icon files and executables, made for tests.
namespace IconFiles {

/// A picture of one colour.
struct Frame
{
    int size;
    QColor colour;
    /// The size that the file's directory claims, 0 if the true one.
    int claimedSize = 0;
};
using Icon = QList<Frame>;

/// The picture as PNG, which is how icon files hold it.
QByteArray pngData(const Frame& frame);

/// An icon file (.ico) with these frames.
QByteArray iconFile(const Icon& frames);

/// A 32-bit executable without code that holds these icons under the ids 1, 2, 3 ...
QByteArray executable(const QList<Icon>& icons);

} // namespace IconFiles
