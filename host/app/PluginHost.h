#pragma once

#include <IPluginHost.h>

/// What one plug-in gets from the application.
class PluginHost : public IPluginHost
{
public:
    /// `alias` is the search-path name under which `folder` is mounted.
    PluginHost(const QString& alias, const QString& folder);
    virtual ~PluginHost() = default;

    IServiceMgr* serviceMgr() override;
    QString pluginAlias() override { return m_alias; }
    QString pluginFolder() override { return m_folder; }
    cLog log() override { return m_log; }

private:
    QString m_alias;
    QString m_folder;
    cLog m_log;
};
