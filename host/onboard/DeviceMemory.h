#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <atomic>

/// The on-board memory of a device: a folder with a document for each profile.
///
/// It is as slow as such memories are, so it is read and written in another thread than the user's. It may
/// vanish at any moment, when the device is pulled out: a document is then there as it was before or as it is
/// after, never in between.
class DeviceMemory
{
public:
    struct Document
    {
        QString fileName;
        /// Empty for a document that is larger than the memory.
        QByteArray bytes;
        qint64 size = 0;
    };

    struct Contents
    {
        QList<Document> documents;
        /// Why the memory could not be read or written, for people; empty if it could.
        QString error;
        /// The same of what was to be removed.
        QString removalError;
    };

    struct Changes
    {
        /// Documents by file name.
        QMap<QString, QByteArray> written;
        /// File names. They go first, to make room.
        QStringList removed;

        bool isEmpty() const { return written.isEmpty() && removed.isEmpty(); }
    };

    /// `bytesPerSecond` is 0 for a memory without a speed.
    DeviceMemory(const QString& folder, int capacity, int bytesPerSecond);

    QString folder() const { return m_folder; }
    int capacity() const { return m_capacity; }
    /// True while the device is plugged in.
    bool isThere() const;

    /// What the memory holds now, in the order of the file names. Once `hurry` is true it takes no more time
    /// than it must.
    Contents read(const std::atomic_bool& hurry) const;
    /// Carries out the changes, and returns what the memory then holds. Nothing more is written once a
    /// document could not be, and nothing at all if what could not be removed leaves too little room.
    Contents write(const Changes& changes, const std::atomic_bool& hurry) const;

private:
    /// Passes the time that the memory takes for so many bytes. False if the device was pulled out meanwhile.
    bool pass(qint64 bytes, const std::atomic_bool& hurry) const;
    /// True if the memory, as it is, has room for what is to be written, or if that is nothing.
    bool hasRoom(const Changes& changes) const;
    QString writeOne(const QString& fileName, const QByteArray& bytes, const std::atomic_bool& hurry) const;
    QString goneText() const;

    QString m_folder;
    int m_capacity = 0;
    int m_bytesPerSecond = 0;
};
