#pragma once

class IPluginHost;

/// A plug-in, as its library's `entrypoint` returns it. The library owns the object. One init() and one
/// deinit() follow the load of the library; it can't be started again after that.
class IPlugin
{
public:
    /// Starts the plug-in; false if it can't run.
    virtual bool init(IPluginHost* host) = 0;

    virtual void deinit(IPluginHost* host) = 0;

protected:
    ~IPlugin() = default;
};

/// The signature of the one symbol that a plug-in's library exports, undecorated, as "entrypoint".
using PluginEntryPoint = IPlugin* (*)();
