#include <cEventHelpers.h>
#include <EventNames.h>
#include <RecordingHost.h>
#include <TestCase.h>

namespace {

/// Has a handler for each event that the plug-in publishes.
class Subscriber : public QObject
{
    Q_OBJECT

public:
    QStringList heard;

public Q_SLOTS:
    void onProfileSelectionChanging(const QString& id) { heard.append("changing " + id); }
    void onProfileSelectionChanged(const QString& id) { heard.append("changed " + id); }
    void onDeviceTransformBegin(const cJsonValue& metadata)
    {
        heard.append("begin " + metadata["device_model"].toString());
    }
    void onProfileSelectionChange() { heard.append("change"); }
};

} // namespace

class EventHelpersTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void subscriptionNamesSourceAndPrefix_data();
    void subscriptionNamesSourceAndPrefix();
    void publicationNamesSourceEventAndArgument();
    void publicationReachesTheHandler();
    void subscribingTwiceIsNotGuardedAgainst();
    void unsubscribingEndsDelivery();
    void sourceWithoutHandlerIsHarmless();
};

void EventHelpersTest::subscriptionNamesSourceAndPrefix_data()
{
    QTest::addColumn<QString>("constant");
    const auto row = [](const char* name, QLatin1String constant) {
        QTest::newRow(name) << QString(constant);
    };
    row("ProfileMgr_Events", EventSources::ProfileMgr);
    row("Profiler_Events", EventSources::Profiler);
    row("MainUI_Events", EventSources::MainUI);
    row("MainApp_Events", EventSources::MainApp);
    row("DevMgr_Events", EventSources::DevMgr);
    row("ProfilesToGo_Events", EventSources::ProfilesToGo);
    row("HelpMgrEvent", EventSources::HelpMgr);
    row("MacroBindingView_MacroBindingViewEvents", EventSources::MacroBindingView);
}

void EventHelpersTest::subscriptionNamesSourceAndPrefix()
{
    QFETCH(QString, constant);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    RecordingHost host;
    QObject subscriber;
    EventHelpers::subscribe(QLatin1String(constant.toLatin1()), &subscriber);
    QCOMPARE(host.takeLog(), QStringList({"subscribe " + name + " on"}));
    EventHelpers::unsubscribe(QLatin1String(constant.toLatin1()), &subscriber);
    QCOMPARE(host.takeLog(), QStringList({"unsubscribe " + name}));
}

void EventHelpersTest::publicationNamesSourceEventAndArgument()
{
    RecordingHost host;
    EventHelpers::publishProfileSelectionChanging("{1}");
    EventHelpers::publishProfileSelectionChanged("{2}");
    cJsonValue metadata;
    metadata["scale"] = 1;
    EventHelpers::publishDeviceTransformBegin(metadata);
    EventHelpers::publishProfileSelectionChange();
    QCOMPARE(host.takeLog(),
        QStringList({"publish Profiler_Events ProfileSelectionChanging(QString \"{1}\")",
            "publish Profiler_Events ProfileSelectionChanged(QString \"{2}\")",
            "publish MainUI_Events DeviceTransformBegin(cJsonValue {\"scale\":1})",
            "publish MacroBindingView_MacroBindingViewEvents ProfileSelectionChange()"}));
    QVERIFY(host.calls().isEmpty());
}

void EventHelpersTest::publicationReachesTheHandler()
{
    RecordingHost host;
    Subscriber subscriber;
    for (QLatin1String source :
        {EventSources::Profiler, EventSources::MainUI, EventSources::MacroBindingView})
        EventHelpers::subscribe(source, &subscriber);
    EventHelpers::publishProfileSelectionChanging("{1}");
    EventHelpers::publishProfileSelectionChanged("{2}");
    cJsonValue metadata;
    metadata["device_model"] = "K13";
    EventHelpers::publishDeviceTransformBegin(metadata);
    EventHelpers::publishProfileSelectionChange();
    QCOMPARE(subscriber.heard, QStringList({"changing {1}", "changed {2}", "begin K13", "change"}));
}

void EventHelpersTest::subscribingTwiceIsNotGuardedAgainst()
{
    RecordingHost host;
    Subscriber subscriber;
    EventHelpers::subscribe(EventSources::Profiler, &subscriber);
    EventHelpers::subscribe(EventSources::Profiler, &subscriber);
    EventHelpers::publishProfileSelectionChanged("{1}");
    QCOMPARE(subscriber.heard, QStringList({"changed {1}", "changed {1}"}));
}

void EventHelpersTest::unsubscribingEndsDelivery()
{
    RecordingHost host;
    Subscriber subscriber;
    EventHelpers::subscribe(EventSources::Profiler, &subscriber);
    EventHelpers::unsubscribe(EventSources::Profiler, &subscriber);
    EventHelpers::publishProfileSelectionChanged("{1}");
    QCOMPARE(subscriber.heard, QStringList());
}

void EventHelpersTest::sourceWithoutHandlerIsHarmless()
{
    RecordingHost host;
    QObject subscriber;
    EventHelpers::subscribe(EventSources::Profiler, &subscriber);
    EventHelpers::publishProfileSelectionChanged("{1}");
    EventHelpers::unsubscribe(EventSources::Profiler, &subscriber);
    // Never subscribed to.
    EventHelpers::unsubscribe(EventSources::DevMgr, &subscriber);
}

VELTRANO_TEST_MAIN(EventHelpersTest)
#include "EventHelpersTest.moc"
