#include "PluginHost.h"

#include <IServiceMgr.h>

PluginHost::PluginHost(const QString& alias, const QString& folder)
    : m_alias(alias)
    , m_folder(folder)
    , m_log(alias)
{ }

IServiceMgr* PluginHost::serviceMgr()
{
    return IServiceMgr::instance();
}
