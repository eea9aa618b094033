#pragma once

#include <cJsonValue.h>

#include <QString>

/// The file that keeps the settings, one JSON document: {"settings": {...}, "version": 1}.
///
/// A file that can't be used is renamed and thereby kept; what is there is never written over unless it was
/// read or put there by this object.
class SettingsFile
{
public:
    /// The version of the document that is written, and the newest that is read.
    static constexpr int Version = 1;
    /// In bytes; a larger file is neither read nor written.
    static constexpr qint64 MaxSize = qint64(4) * 1024 * 1024;

    explicit SettingsFile(const QString& path);

    QString path() const { return m_path; }

    /// From now on the file is neither written nor set aside: another process keeps it.
    void setReadOnly() { m_isReadOnly = true; }

    /// The settings, an object. It is empty if there is no file or if the file can't be used; in the latter
    /// case the file was set aside, one warning was written, and `problem` tells the user.
    cJsonValue read(QString& problem);

    /// Replaces the file as a whole. On failure the file is as it was and `problem` tells the user why. A
    /// file that is read-only stays as it is, which is no failure.
    bool write(const cJsonValue& settings, QString& problem);

private:
    /// Why the file can't be used, for the log; empty if `settings` was filled.
    QString parse(cJsonValue& settings) const;
    /// Renames the file to a name that is free; returns that name, or an empty text if it could not.
    QString setAside() const;

    QString m_path;
    /// True while there is a file that could be neither read nor renamed.
    bool m_isBlocked = false;
    bool m_isReadOnly = false;
};
