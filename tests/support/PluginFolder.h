#pragma once

#include <PluginContext.h>
#include <PluginStatics.h>

#include <QDir>
#include <QString>

/// Mounts a folder as the plug-in's own while it lives: `pluginAlias()` names it, and paths such as
/// "MacroBindingView:/Resources/images/..." lead into it.
class PluginFolder
{
    Q_DISABLE_COPY(PluginFolder)

public:
    explicit PluginFolder(const QString& path, const QString& alias = QStringLiteral("MacroBindingView"))
        : m_previousAlias(pluginAlias())
    {
        PluginStatics::alias() = alias;
        QDir::setSearchPaths(alias, {path});
    }
    ~PluginFolder()
    {
        QDir::setSearchPaths(pluginAlias(), {});
        PluginStatics::alias() = m_previousAlias;
    }

private:
    QString m_previousAlias;
};
