#include "cLog.h"

cLog::cLog(const QString& name)
    : m_name(name)
{ }

cDebug cLog::info() const
{
    return cDebug(m_name);
}
