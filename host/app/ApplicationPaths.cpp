#include "ApplicationPaths.h"

#include <QCoreApplication>
#include <QDir>

ApplicationPaths ApplicationPaths::ofExecutable()
{
    const QDir bin(QCoreApplication::applicationDirPath());
    // A build tree has plain "lib" and "share", an installation what it was configured with.
    const auto find = [&](const char* installed, const char* built) {
        const QString folder = QDir::cleanPath(bin.filePath(QLatin1String(installed)));
        return QDir(folder).exists() ? folder : QDir::cleanPath(bin.filePath(QLatin1String(built)));
    };
    ApplicationPaths paths;
    const QString libFolder = find(VELTRANO_BIN_TO_LIB "/veltrano-gaming", "../lib/veltrano-gaming");
    paths.pluginsFolder = libFolder + QStringLiteral("/plugins");
    paths.scriptRunner = libFolder + QStringLiteral("/veltrano-script-runner");
    paths.shareFolder = find(VELTRANO_BIN_TO_DATA "/veltrano-gaming", "../share/veltrano-gaming");
    return paths;
}

void ApplicationPaths::mount() const
{
    QDir::setSearchPaths(QStringLiteral("MainApp"), {shareFolder});
    QDir::setSearchPaths(QStringLiteral("Profiler"), {profilerFolder()});
}
