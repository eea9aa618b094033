#include "DeviceMemory.h"

#include <WholeFile.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>

#include <algorithm>

namespace {

const QLatin1String DocumentPattern("*.xml");
/// What a write leaves that did not come to its end.
const QLatin1String LeftoverPattern("*.xml.*");

/// Bytes that are moved between two looks at the device.
constexpr qint64 PageSize = 2048;
/// Milliseconds after which a sleeper looks whether it has to go on.
constexpr qint64 LongestSleep = 40;

QString text(const char* source)
{
    return QCoreApplication::translate("DeviceMemory", source);
}

} // namespace

DeviceMemory::DeviceMemory(const QString& folder, int capacity, int bytesPerSecond)
    : m_folder(folder)
    , m_capacity(capacity)
    , m_bytesPerSecond(bytesPerSecond)
{ }

bool DeviceMemory::isThere() const
{
    return QFileInfo(m_folder).isDir();
}

QString DeviceMemory::goneText() const
{
    return text("it was disconnected");
}

bool DeviceMemory::pass(qint64 bytes, const std::atomic_bool& hurry) const
{
    qint64 left = m_bytesPerSecond > 0 ? bytes * 1000 / m_bytesPerSecond : 0;
    while (left > 0 && !hurry && isThere()) {
        const qint64 slice = std::min(left, LongestSleep);
        QThread::msleep(static_cast<unsigned long>(slice));
        left -= slice;
    }
    return isThere();
}

DeviceMemory::Contents DeviceMemory::read(const std::atomic_bool& hurry) const
{
    Contents contents;
    const QDir folder(m_folder);
    const QFileInfoList files = folder.entryInfoList({DocumentPattern}, QDir::Files, QDir::Name);
    for (const QFileInfo& info : files) {
        Document document {info.fileName(), QByteArray(), info.size()};
        QFile file(info.filePath());
        if (document.size <= m_capacity && file.open(QIODevice::ReadOnly)) {
            while (!file.atEnd()) {
                const QByteArray page = file.read(PageSize);
                if (page.isEmpty() || document.bytes.size() + page.size() > m_capacity)
                    break;
                document.bytes += page;
                if (!pass(page.size(), hurry))
                    return {{}, goneText(), {}};
            }
            document.size = document.bytes.size();
        }
        contents.documents.append(document);
    }
    if (!isThere())
        return {{}, goneText(), {}};
    if (!QFileInfo(m_folder).isReadable())
        contents.error = text("its memory can't be opened");
    return contents;
}

DeviceMemory::Contents DeviceMemory::write(const Changes& changes, const std::atomic_bool& hurry) const
{
    const QDir folder(m_folder);
    QString error;
    QString removalError;
    const QStringList leftovers = folder.entryList({LeftoverPattern}, QDir::Files);
    for (const QString& leftover : leftovers)
        QFile::remove(folder.filePath(leftover));
    for (const QString& fileName : changes.removed) {
        QFile file(folder.filePath(fileName));
        if (file.exists() && !file.remove() && removalError.isEmpty())
            removalError = file.errorString();
    }
    if (!removalError.isEmpty() && !hasRoom(changes))
        error = text("what can't be removed takes the room");
    for (auto each = changes.written.begin(); each != changes.written.end() && error.isEmpty(); ++each)
        error = writeOne(each.key(), each.value(), hurry);
    // What was written moments ago is known; reading it takes no time again.
    Contents contents = read(std::atomic_bool(true));
    if (!error.isEmpty())
        contents.error = error;
    contents.removalError = removalError;
    return contents;
}

bool DeviceMemory::hasRoom(const Changes& changes) const
{
    qint64 size = 0;
    const QFileInfoList files = QDir(m_folder).entryInfoList({DocumentPattern}, QDir::Files);
    for (const QFileInfo& file : files) {
        if (!changes.written.contains(file.fileName()))
            size += file.size();
    }
    for (const QByteArray& document : changes.written)
        size += document.size();
    return changes.written.isEmpty() || size <= m_capacity;
}

QString DeviceMemory::writeOne(
    const QString& fileName, const QByteArray& bytes, const std::atomic_bool& hurry) const
{
    if (!isThere())
        return goneText();
    QSaveFile file(QDir(m_folder).filePath(fileName));
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    for (qint64 start = 0; start < bytes.size(); start += PageSize) {
        const qint64 count = std::min(PageSize, bytes.size() - start);
        if (file.write(bytes.constData() + start, count) != count)
            return file.errorString();
        if (!pass(count, hurry))
            return goneText();
    }
    QString error;
    if (WholeFile::commit(file, &error))
        return QString();
    return isThere() ? error : goneText();
}
