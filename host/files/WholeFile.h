#pragma once

#include <QByteArray>
#include <QString>

/// Files that are there as a whole or as they were before, whatever happens in between.
namespace WholeFile {

/// Replaces the file, or makes it. Returns false, with the reason for people in `error`, if the content has
/// not reached the disk; the file is as it was then.
bool write(const QString& path, const QByteArray& content, QString* error);

} // namespace WholeFile
