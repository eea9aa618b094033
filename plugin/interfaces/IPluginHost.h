#pragma once

#include <cLog.h>

#include <QString>

class IServiceMgr;

/// What the host hands to a plug-in.
class IPluginHost
{
public:
    /// The service manager of the process.
    virtual IServiceMgr* serviceMgr() = 0;

    /// The search-path name under which the host has mounted the plug-in's files.
    virtual QString pluginAlias() = 0;

    /// Absolute path of the folder that the alias stands for.
    virtual QString pluginFolder() = 0;

    /// The log for the plug-in's own lines.
    virtual cLog log() = 0;

protected:
    ~IPluginHost() = default;
};
