#include "WholeFile.h"

#include <QSaveFile>

#include <cerrno>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

/// A full disk may say so as late as this.
bool reachesTheDisk(QSaveFile& file, QString* error)
{
    // QSaveFile replaces the file even if what it had buffered could not be written, so it must have nothing
    // left to write.
    if (!file.flush()) {
        *error = file.errorString();
        return false;
    }
#ifdef Q_OS_UNIX
    // Some file systems have nothing to do here and refuse.
    if (::fsync(file.handle()) != 0 && errno != EINVAL && errno != ENOTSUP && errno != EROFS) {
        *error = qt_error_string(errno);
        return false;
    }
#endif
    return true;
}

} // namespace

bool WholeFile::write(const QString& path, const QByteArray& content, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        *error = file.errorString();
        return false;
    }
    return commit(file, error);
}

bool WholeFile::commit(QSaveFile& file, QString* error)
{
    if (!reachesTheDisk(file, error))
        return false;
    if (file.commit())
        return true;
    *error = file.errorString();
    return false;
}
