#pragma once

#include <QString>
#include <QStringList>

/// The folders in which Windows programs of the user run on other systems. Each holds a registry and drives.
namespace WinePrefixes {

/// The prefixes of the user, each once: that of the environment's WINEPREFIX, the usual one, and those that
/// Steam has made for its games, wherever it is installed and in all of its libraries.
QStringList find();

/// The file or folder that a path with a drive letter names in a prefix; empty if there is none. Names are
/// compared without regard to case, as programs of Windows expect it; one that is spelled exactly goes first.
QString resolve(const QString& prefix, const QString& windowsPath);

} // namespace WinePrefixes
