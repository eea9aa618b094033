// Plug-ins for the tests of the loader; the variant is chosen by a definition.
#include <IPlugin.h>
#include <IPluginHost.h>

#include <QCoreApplication>
#include <QVariant>

namespace {

class TestPlugin : public IPlugin
{
public:
    bool init(IPluginHost* host) override
    {
        note(QStringLiteral("init %1 %2").arg(host->pluginAlias(), host->pluginFolder()));
        m_hasServices = host->serviceMgr() != nullptr;
        host->log().info() << "log";
#if defined(REFUSES)
        return false;
#else
        return true;
#endif
    }
    void deinit(IPluginHost* host) override
    {
        note(QStringLiteral("deinit ") + host->pluginAlias());
    }

private:
    /// The test reads what happened in a property of the application.
    static void note(const QString& text)
    {
        QStringList log = qApp->property("pluginLog").toStringList();
        log.append(text);
        qApp->setProperty("pluginLog", log);
    }

    bool m_hasServices = false;
};

TestPlugin s_plugin;

} // namespace

#if !defined(HAS_NO_ENTRY_POINT)
extern "C" Q_DECL_EXPORT IPlugin* entrypoint()
{
#if defined(OFFERS_NULL)
    return nullptr;
#else
    return &s_plugin;
#endif
}
#else
IPlugin* entrypointUnderAnotherName();
IPlugin* entrypointUnderAnotherName()
{
    return &s_plugin;
}
#endif
