#pragma once

#include <QString>
#include <QStringList>

/// The entries of the desktop's application menu.
namespace DesktopEntry {

/// The icons of the entries that start the program, the best first, each an absolute path or a name in the
/// icon theme. Entries that start the program without arguments stand before those that have some: a
/// launcher's entries for what it launches aren't about the launcher. `program` is an absolute path without
/// symbolic links.
QStringList iconsOfProgram(const QString& program);

} // namespace DesktopEntry
