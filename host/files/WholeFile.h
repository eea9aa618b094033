#pragma once

#include <QByteArray>
#include <QString>

class QSaveFile;

/// Files that are there as a whole or as they were before, whatever happens in between.
namespace WholeFile {

/// Replaces the file, or makes it. Returns false, with the reason for people in `error`, if the content has
/// not reached the disk; the file is as it was then.
bool write(const QString& path, const QByteArray& content, QString* error);

/// The same for what was written into an open file, in the place of its own commit(), which takes a file for
/// whole whose last part did not fit on the disk.
bool commit(QSaveFile& file, QString* error);

} // namespace WholeFile
