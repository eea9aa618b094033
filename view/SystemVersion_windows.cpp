#include "SystemVersion.h"

#include <QOperatingSystemVersion>

// Built on this system alone, but analysed on each.
#ifdef Q_OS_WIN

bool SystemVersion::isWindows7()
{
    const QOperatingSystemVersion current = QOperatingSystemVersion::current();
    return current.majorVersion() == QOperatingSystemVersion::Windows7.majorVersion()
        && current.minorVersion() == QOperatingSystemVersion::Windows7.minorVersion();
}

#endif
