#include "FakePluginHost.h"

#include <cHalvorinePlugin.h>
#include <TestCase.h>

extern "C" IPlugin* entrypoint();

class PluginWithoutInitTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void deinitOfAPluginThatWasNotStarted();
};

void PluginWithoutInitTest::deinitOfAPluginThatWasNotStarted()
{
    RecordingHost services;
    FakePluginHost host(services);
    entrypoint()->deinit(&host);
    QCOMPARE(services.takeLog(),
        QStringList({"require MainUI.FeatureViewMgr 1",
            "MainUI.FeatureViewMgr unregisterView(IFeatureView* null) -> bool", "serviceMgr",
            "unregister ProfilerWidgetFactory"}));
    QCOMPARE(static_cast<cHalvorinePlugin*>(entrypoint())->view(), nullptr);
}

VELTRANO_TEST_MAIN(PluginWithoutInitTest)
#include "PluginWithoutInitTest.moc"
