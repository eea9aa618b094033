#pragma once

#include <cLog.h>

#include <QDir>
#include <QString>

/// What the plug-in keeps from its host for the rest of its life. Defined beside the entry point.

/// The prefix of the plug-in's resources, a search-path name; empty before the plug-in is started.
const QString& pluginAlias();

/// The log for the plug-in's own lines. All other diagnostics go to qCritical and qDebug.
cLog pluginLog();

/// The path of a resource of the plug-in: the alias, ":" and the path below the plug-in's folder.
inline QString pluginResource(const char* path)
{
    return pluginAlias() + QLatin1Char(':') + QLatin1String(path);
}
