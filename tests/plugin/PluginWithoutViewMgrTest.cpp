#include "FakePluginHost.h"

#include <cHalvorinePlugin.h>
#include <ServiceNames.h>
#include <TestCase.h>

extern "C" IPlugin* entrypoint();

class PluginWithoutViewMgrTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void startAndStopSucceedAndWriteOneLineEach();
};

void PluginWithoutViewMgrTest::startAndStopSucceedAndWriteOneLineEach()
{
    RecordingHost services;
    services.remove(ServiceNames::FeatureViewMgr);
    FakePluginHost host(services);
    {
        const ExpectedMessage line(
            QtCriticalMsg, "Failed to call 'registerView' on service MainUI.FeatureViewMgr");
        QVERIFY(entrypoint()->init(&host));
    }
    QCOMPARE(services.takeLog(), expectedInitLog());
    QVERIFY(static_cast<cHalvorinePlugin*>(entrypoint())->view());
    {
        const ExpectedMessage line(
            QtCriticalMsg, "Failed to call 'unregisterView' on service MainUI.FeatureViewMgr");
        entrypoint()->deinit(&host);
    }
    QCOMPARE(services.takeLog(), expectedDeinitLog(host.helpFolder()));
    QCOMPARE(static_cast<cHalvorinePlugin*>(entrypoint())->view(), nullptr);
}

VELTRANO_TEST_MAIN(PluginWithoutViewMgrTest)
#include "PluginWithoutViewMgrTest.moc"
