#include "IconFiles.h"

#include <QBuffer>
#include <QDataStream>
#include <QImage>
#include <QMap>

namespace {

// Types of resources.
constexpr int IconResource = 3;
constexpr int GroupIconResource = 14;

// Places in the executable.
constexpr int NewHeaderPlace = 0x40;
constexpr int SectionPlace = 0x200;
constexpr int SectionAddress = 0x1000;

/// The data of a resource by type and id.
using Resources = QMap<int, QMap<int, QByteArray>>;

class Stream : public QDataStream
{
public:
    explicit Stream(QByteArray& bytes)
        : QDataStream(&bytes, QIODevice::WriteOnly | QIODevice::Append)
    {
        setByteOrder(QDataStream::LittleEndian);
    }
    void raw(const QByteArray& bytes) { writeRawData(bytes.constData(), bytes.size()); }
    void zeros(int count) { raw(QByteArray(count, '\0')); }
};

/// The directory of an icon. In a file each entry ends with the place of the picture, in a resource with the
/// picture's id.
QByteArray iconDirectory(const IconFiles::Icon& frames, int firstId)
{
    constexpr int headerSize = 6;
    constexpr int entrySize = 16;
    QByteArray directory;
    Stream stream(directory);
    stream << quint16(0) << quint16(1) << quint16(frames.size());
    int place = headerSize + entrySize * frames.size();
    for (int i = 0; i < frames.size(); ++i) {
        const int claimed = frames[i].claimedSize ? frames[i].claimedSize : frames[i].size;
        const int length = IconFiles::pngData(frames[i]).size();
        stream << quint8(claimed) << quint8(claimed) << quint16(0) << quint16(1) << quint16(32)
               << quint32(length);
        if (firstId > 0)
            stream << quint16(firstId + i);
        else
            stream << quint32(place);
        place += length;
    }
    return directory;
}

QByteArray resourceSection(const Resources& resources)
{
    constexpr int directorySize = 16;
    constexpr int entrySize = 8;
    constexpr quint32 isDirectory = 0x80000000U;
    int count = 0;
    for (const auto& ofType : resources)
        count += ofType.size();
    const int typesPlace = directorySize + entrySize * resources.size();
    const int languagesPlace = typesPlace + directorySize * resources.size() + entrySize * count;
    const int entriesPlace = languagesPlace + (directorySize + entrySize) * count;
    int dataPlace = entriesPlace + 16 * count;

    QByteArray section;
    Stream stream(section);
    const auto directory = [&stream](int entries) {
        stream.zeros(12);
        stream << quint16(0) << quint16(entries);
    };
    directory(resources.size());
    int place = typesPlace;
    for (auto type = resources.begin(); type != resources.end(); ++type) {
        stream << quint32(type.key()) << (quint32(place) | isDirectory);
        place += directorySize + entrySize * type->size();
    }
    place = languagesPlace;
    for (const auto& ofType : resources) {
        directory(ofType.size());
        for (auto id = ofType.keyBegin(); id != ofType.keyEnd(); ++id) {
            stream << quint32(*id) << (quint32(place) | isDirectory);
            place += directorySize + entrySize;
        }
    }
    for (int i = 0; i < count; ++i) {
        constexpr quint32 english = 1033;
        directory(1);
        stream << english << quint32(entriesPlace + 16 * i);
    }
    for (const auto& ofType : resources) {
        for (const QByteArray& data : ofType) {
            stream << quint32(SectionAddress + dataPlace) << quint32(data.size()) << quint32(0) << quint32(0);
            dataPlace += data.size();
        }
    }
    for (const auto& ofType : resources) {
        for (const QByteArray& data : ofType)
            stream.raw(data);
    }
    return section;
}

} // namespace

namespace IconFiles {

QByteArray pngData(const Frame& frame)
{
    QImage image(frame.size, frame.size, QImage::Format_ARGB32);
    image.fill(frame.colour);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

QByteArray iconFile(const Icon& frames)
{
    QByteArray file = iconDirectory(frames, 0);
    for (const Frame& frame : frames)
        file += pngData(frame);
    return file;
}

QByteArray executable(const QList<Icon>& icons)
{
    Resources resources;
    int nextId = 1;
    for (int i = 0; i < icons.size(); ++i) {
        resources[GroupIconResource][i + 1] = iconDirectory(icons[i], nextId);
        for (const Frame& frame : icons[i])
            resources[IconResource][nextId++] = pngData(frame);
    }
    const QByteArray section = resourceSection(resources);
    const auto length = quint32(section.size());

    QByteArray file;
    Stream stream(file);
    stream.raw("MZ");
    stream.zeros(0x3C - 2);
    stream << quint32(NewHeaderPlace);
    // File header: machine, sections, three fields that don't matter, size of what follows, flags.
    constexpr int directories = 16;
    stream.raw(QByteArray("PE\0\0", 4));
    stream << quint16(0x14C) << quint16(1) << quint32(0) << quint32(0) << quint32(0)
           << quint16(96 + directories * 8) << quint16(0x102);
    // Optional header.
    stream << quint16(0x10B) << quint16(0) << quint32(0) << length << quint32(0) << quint32(0) << quint32(0)
           << quint32(SectionAddress) << quint32(0x400000) << quint32(0x1000) << quint32(0x200) << quint32(4)
           << quint32(0) << quint32(4) << quint32(0) << quint32(SectionAddress + length)
           << quint32(SectionPlace) << quint32(0) << quint16(2) << quint16(0);
    stream.zeros(16);
    stream << quint32(0) << quint32(directories);
    constexpr int resourceDirectory = 2;
    for (int i = 0; i < directories; ++i) {
        const bool isResources = i == resourceDirectory;
        stream << quint32(isResources ? SectionAddress : 0) << (isResources ? length : 0U);
    }
    // The one section.
    stream.raw(QByteArray(".rsrc\0\0\0", 8));
    stream << length << quint32(SectionAddress) << length << quint32(SectionPlace);
    stream.zeros(12);
    stream << quint32(0x40000040);
    stream.zeros(SectionPlace - file.size());
    stream.raw(section);
    return file;
}

} // namespace IconFiles
