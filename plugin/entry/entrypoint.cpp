#include "cHalvorinePlugin.h"
#include "PluginStatics.h"

#include <cProfilerWidgetFactory.h>
#include <PluginContext.h>

namespace {

// In this order: the library's objects exist before its entry point can be called.
cHalvorinePlugin s_plugin;
QString s_alias;
cLog s_log;
cProfilerWidgetFactory s_widgetFactory;

} // namespace

extern "C" Q_DECL_EXPORT IPlugin* entrypoint()
{
    return &s_plugin;
}

const QString& pluginAlias()
{
    return s_alias;
}

cLog pluginLog()
{
    return s_log;
}

QString& PluginStatics::alias()
{
    return s_alias;
}

cLog& PluginStatics::log()
{
    return s_log;
}

cProfilerWidgetFactory& PluginStatics::widgetFactory()
{
    return s_widgetFactory;
}
