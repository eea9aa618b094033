#include "HVS.h"

#include "DesktopEntry.h"

#include <QBuffer>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QStandardPaths>
#include <QtEndian>

#include <algorithm>
#include <vector>

namespace {

/// Edge of the largest picture that is wanted, in pixels.
constexpr int IconSize = 256;
/// Larger pictures are taken for damage and not read.
constexpr int MaxPictureSize = 1024;
constexpr qint64 MaxProgramSize = 1024LL * 1024 * 1024;
/// An icon file has some hundred KiB.
constexpr int MaxIconFileSize = 16 * 1024 * 1024;
/// Time for the program that takes the icon out of an executable, in milliseconds.
constexpr int ExtractionTime = 3000;

/// A picture of an icon file.
struct Frame
{
    int index;
    int edge;
    int bitsPerPixel;
};

template<typename T>
T littleEndian(const QByteArray& bytes, qint64 place)
{
    return qFromLittleEndian<T>(bytes.constData() + place);
}

/// The larger edge of the picture at `place`, in pixels, as the picture itself says; 0 if it can't be one.
/// The icon's directory may say something else.
int pictureEdge(const QByteArray& icon, qint64 place, qint64 length)
{
    // Both kinds of pictures have more than this in front of the first pixel.
    constexpr qint64 headerSize = 40;
    if (length < headerSize || place + length > icon.size())
        return 0;
    const char* picture = icon.constData() + place;
    const bool isPng = QByteArray::fromRawData(picture, 4) == "\x89PNG";
    const qint64 width =
        isPng ? qFromBigEndian<quint32>(picture + 16) : littleEndian<qint32>(icon, place + 4);
    // A bitmap's height is that of the picture and its mask.
    const qint64 height =
        isPng ? qFromBigEndian<quint32>(picture + 20) : littleEndian<qint32>(icon, place + 8) / 2;
    const qint64 edge = std::max(width, height);
    return width > 0 && height > 0 && edge <= MaxPictureSize ? int(edge) : 0;
}

/// The pictures of an icon file, the best first: large, but not larger than needed, with many colours.
std::vector<Frame> frames(const QByteArray& icon)
{
    constexpr int headerSize = 6;
    constexpr int entrySize = 16;
    std::vector<Frame> result;
    if (!icon.startsWith(QByteArray("\0\0\1\0", 4)) || icon.size() < headerSize)
        return result;
    const int count = littleEndian<quint16>(icon, 4);
    for (int i = 0; i < count && headerSize + (i + 1) * entrySize <= icon.size(); ++i) {
        const int entry = headerSize + i * entrySize;
        const int edge = pictureEdge(
            icon, littleEndian<quint32>(icon, entry + 12), littleEndian<quint32>(icon, entry + 8));
        if (edge > 0)
            result.push_back({i, edge, littleEndian<quint16>(icon, entry + 6)});
    }
    std::stable_sort(result.begin(), result.end(), [](const Frame& a, const Frame& b) {
        const bool isALarge = a.edge > IconSize;
        const bool isBLarge = b.edge > IconSize;
        if (isALarge != isBLarge)
            return isBLarge;
        if (a.edge != b.edge)
            return isALarge ? a.edge < b.edge : a.edge > b.edge;
        return a.bitsPerPixel > b.bitsPerPixel;
    });
    return result;
}

/// The best picture of an icon file. What stands behind the icon doesn't matter.
QPixmap pictureOfIcon(QByteArray icon)
{
    for (const Frame& frame : frames(icon)) {
        QBuffer buffer(&icon);
        buffer.open(QIODevice::ReadOnly);
        QImageReader reader(&buffer, "ico");
        QImage image;
        if (!reader.jumpToImage(frame.index) || !reader.read(&image))
            continue;
        if (frame.edge > IconSize)
            image = image.scaled(IconSize, IconSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        return QPixmap::fromImage(image);
    }
    return QPixmap();
}

/// The icons of an executable, one behind the other, the program's own first. They are taken out by a process
/// of its own, which a damaged executable may crash or stall.
QByteArray iconsOfExecutable(const QString& path)
{
    const QString extractor = QStandardPaths::findExecutable(QStringLiteral("wrestool"));
    if (extractor.isEmpty())
        return QByteArray();
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(extractor, {QStringLiteral("--extract"), QStringLiteral("--type=group_icon"), path});
    QByteArray icons;
    const QDeadlineTimer deadline(ExtractionTime);
    while (icons.size() < MaxIconFileSize && process.waitForReadyRead(int(deadline.remainingTime())))
        icons += process.read(MaxIconFileSize);
    icons += process.read(MaxIconFileSize);
    process.kill();
    process.waitForFinished(ExtractionTime);
    return icons;
}

/// The picture in an executable or icon file, which are told by what they begin with.
QPixmap pictureInFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QPixmap();
    constexpr int enough = 4;
    const QByteArray start = file.peek(enough);
    if (start.startsWith("MZ"))
        return file.size() <= MaxProgramSize ? pictureOfIcon(iconsOfExecutable(path)) : QPixmap();
    if (start == QByteArray("\0\0\1\0", enough))
        return file.size() <= MaxIconFileSize ? pictureOfIcon(file.readAll()) : QPixmap();
    return QPixmap();
}

QPixmap picture(const QIcon& icon)
{
    return icon.pixmap(IconSize, IconSize);
}

/// The icon theme's picture of that name itself, not of a more general one.
QPixmap pictureOfTheme(const QString& name)
{
    const QIcon icon = QIcon::fromTheme(name);
    if (icon.name() == name)
        return picture(icon);
    for (const char* suffix : {".png", ".svg", ".xpm"}) {
        const QString path = QStandardPaths::locate(
            QStandardPaths::GenericDataLocation, QStringLiteral("pixmaps/") + name + QLatin1String(suffix));
        if (!path.isEmpty())
            return picture(QIcon(path));
    }
    return QPixmap();
}

/// The picture that a desktop entry means.
QPixmap pictureOfEntry(QString icon)
{
    if (QDir::isAbsolutePath(icon))
        return QFileInfo(icon).isFile() ? picture(QIcon(icon)) : QPixmap();
    // Names have no suffix, but some entries give one.
    for (const char* suffix : {".png", ".svg", ".xpm"}) {
        if (icon.endsWith(QLatin1String(suffix)))
            icon.chop(int(qstrlen(suffix)));
    }
    return icon.isEmpty() ? QPixmap() : pictureOfTheme(icon);
}

} // namespace

namespace HVS {

QPixmap loadApplicationIcon(const QString& path)
{
    const QFileInfo program(path);
    if (!program.isFile())
        return QPixmap();
    const QPixmap own = pictureInFile(program.absoluteFilePath());
    if (!own.isNull())
        return own;
    const QStringList icons = DesktopEntry::iconsOfProgram(program.canonicalFilePath());
    for (const QString& icon : icons) {
        const QPixmap found = pictureOfEntry(icon);
        if (!found.isNull())
            return found;
    }
    const bool isExecutable = program.suffix().compare(QLatin1String("exe"), Qt::CaseInsensitive) == 0;
    return pictureOfTheme(isExecutable ? program.completeBaseName() : program.fileName());
}

} // namespace HVS
