#include "FakePluginHost.h"

#include <cHalvorinePlugin.h>
#include <cMacroBindingView.h>
#include <PluginContext.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QPointer>

extern "C" IPlugin* entrypoint();

/// The plug-in runs once in the life of its library, so initTestCase() takes it through its life and keeps
/// what it saw; the tests look at that.
class PluginLifecycleTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void entryPointGivesOneObject();
    void nothingHappensBeforeInit();
    void initDoesItsStepsInOrder();
    void viewIsMadeWhenAliasAndLogAreInPlace();
    void viewOfTheRunningPluginIsTheOneView();
    void serviceIsThereWhileThePluginRuns();
    void deinitDoesItsStepsInOrder();
    void deinitDeletesTheView();
    void aliasAndLogOutliveDeinit();

private:
    struct Moment
    {
        IPlugin* entry = nullptr;
        const IFeatureView* view = nullptr;
        QString alias;
        QString logName;
        bool hasService = false;
        QStringList log;
    };
    static Moment momentOf(RecordingHost& services);

    Moment m_loaded;
    bool m_initResult = false;
    QString m_aliasInConstructor;
    QString m_logNameInConstructor;
    bool m_hasServiceInConstructor = false;
    Moment m_running;
    const IFeatureView* m_oneView = nullptr;
    QString m_helpFolder;
    QPointer<const QObject> m_view;
    bool m_viewLivedAtUnregistering = false;
    bool m_viewLivedAtTheEnd = true;
    Moment m_stopped;
};

PluginLifecycleTest::Moment PluginLifecycleTest::momentOf(RecordingHost& services)
{
    Moment moment;
    moment.entry = entrypoint();
    moment.view = static_cast<cHalvorinePlugin*>(moment.entry)->view();
    moment.alias = pluginAlias();
    moment.logName = pluginLog().name();
    moment.hasService = services.hasService(ServiceNames::ProfilerWidgetFactory);
    moment.log = services.takeLog();
    return moment;
}

void PluginLifecycleTest::initTestCase()
{
    TestCase::initTestCase();
    RecordingHost services;
    FakePluginHost host(services);
    m_helpFolder = host.helpFolder();
    m_loaded = momentOf(services);

    services.answer("newObject", [&](const RecordedCall&) {
        m_aliasInConstructor = pluginAlias();
        m_logNameInConstructor = pluginLog().name();
        m_hasServiceInConstructor = services.hasService(ServiceNames::ProfilerWidgetFactory);
    });
    m_initResult = entrypoint()->init(&host);
    m_running = momentOf(services);
    m_oneView = cMacroBindingView::instance();
    m_view = m_running.view;

    services.answer("unregisterView", [&](const RecordedCall&) { m_viewLivedAtUnregistering = m_view; });
    entrypoint()->deinit(&host);
    m_viewLivedAtTheEnd = m_view;
    m_stopped = momentOf(services);
}

void PluginLifecycleTest::entryPointGivesOneObject()
{
    QVERIFY(m_loaded.entry);
    QCOMPARE(m_running.entry, m_loaded.entry);
    QCOMPARE(m_stopped.entry, m_loaded.entry);
}

void PluginLifecycleTest::nothingHappensBeforeInit()
{
    QCOMPARE(m_loaded.view, nullptr);
    QVERIFY(m_loaded.alias.isEmpty());
    QVERIFY(m_loaded.logName.isEmpty());
    QVERIFY(!m_loaded.hasService);
    QCOMPARE(m_loaded.log, QStringList());
}

void PluginLifecycleTest::initDoesItsStepsInOrder()
{
    QVERIFY(m_initResult);
    QCOMPARE(m_running.log, expectedInitLog());
}

void PluginLifecycleTest::viewIsMadeWhenAliasAndLogAreInPlace()
{
    QCOMPARE(m_aliasInConstructor, FakePluginHost::alias());
    QCOMPARE(m_logNameInConstructor, FakePluginHost::logName());
    QVERIFY(m_hasServiceInConstructor);
}

void PluginLifecycleTest::viewOfTheRunningPluginIsTheOneView()
{
    QVERIFY(m_running.view);
    QCOMPARE(m_running.view, m_oneView);
}

void PluginLifecycleTest::serviceIsThereWhileThePluginRuns()
{
    QVERIFY(m_running.hasService);
    QVERIFY(!m_stopped.hasService);
}

void PluginLifecycleTest::deinitDoesItsStepsInOrder()
{
    QCOMPARE(m_stopped.log, expectedDeinitLog(m_helpFolder));
}

void PluginLifecycleTest::deinitDeletesTheView()
{
    QVERIFY(m_viewLivedAtUnregistering);
    QVERIFY(!m_viewLivedAtTheEnd);
    QCOMPARE(m_stopped.view, nullptr);
}

void PluginLifecycleTest::aliasAndLogOutliveDeinit()
{
    QCOMPARE(m_stopped.alias, FakePluginHost::alias());
    QCOMPARE(m_stopped.logName, FakePluginHost::logName());
}

VELTRANO_TEST_MAIN(PluginLifecycleTest)
#include "PluginLifecycleTest.moc"
