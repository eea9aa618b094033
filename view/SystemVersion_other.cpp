#include "SystemVersion.h"

bool SystemVersion::isWindows7()
{
    return false;
}
