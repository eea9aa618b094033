#include "cHalvorinePlugin.h"

#include "PluginStatics.h"

#include <cFeatureViewMgr.h>
#include <cLog.h>
#include <cMacroBindingView.h>
#include <cProfilerWidgetFactory.h>
#include <IPluginHost.h>
#include <IServiceMgr.h>

#include <utility>

bool cHalvorinePlugin::init(IPluginHost* host)
{
    PluginStatics::alias() = host->pluginAlias();
    PluginStatics::log() = host->log();
    host->serviceMgr()->registerService(&PluginStatics::widgetFactory());
    // The view's constructor relies on the alias and may be asked for the service.
    m_view = cMacroBindingView::instance();
    cFeatureViewMgr().registerView(m_view);
    return true;
}

void cHalvorinePlugin::deinit(IPluginHost* host)
{
    // Not the mirror image of init: the view goes first, the service last.
    cFeatureViewMgr().unregisterView(m_view);
    delete std::exchange(m_view, nullptr);
    host->serviceMgr()->unregisterService(&PluginStatics::widgetFactory());
}
