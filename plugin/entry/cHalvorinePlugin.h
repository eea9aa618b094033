#pragma once

#include <IPlugin.h>

#include <QtGlobal>

class IFeatureView;

/// The plug-in object. Its life has three states: loaded, running (between init and deinit) and stopped; it
/// runs once in the life of the library.
class cHalvorinePlugin : public IPlugin
{
    Q_DISABLE_COPY(cHalvorinePlugin)

public:
    cHalvorinePlugin() = default;

    bool init(IPluginHost* host) override;
    void deinit(IPluginHost* host) override;

    /// The view, null unless the plug-in runs.
    IFeatureView* view() const { return m_view; }

private:
    /// Owned; deleted in deinit between the withdrawal of the view and that of the service.
    IFeatureView* m_view = nullptr;
};
