#include <DefaultInputSink.h>
#include <FixedIds.h>
#include <MacroRun.h>
#include <MacroTypeIds.h>
#include <MacroTypes.h>
#include <NamedFunctions.h>
#include <TestCase.h>

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace {

using namespace PlayStateTriggers;

/// Keeps what it is sent, as text.
class RecordingSink : public IInputSink
{
public:
    void send(const InputEvent& event) override { m_sent.append(InputEvents::toText(event)); }
    QStringList take()
    {
        QStringList sent;
        m_sent.swap(sent);
        return sent;
    }

private:
    QStringList m_sent;
};

cJsonValue record(QLatin1String uid, const cJsonValue& data)
{
    cJsonValue macro;
    macro["namespace"] = QString(uid);
    macro["data"] = data;
    return macro;
}

cJsonValue object(std::initializer_list<std::pair<const char*, cJsonValue>> members)
{
    cJsonValue value(cJsonValue::objectValue);
    for (const auto& member : members)
        value[member.first] = member.second;
    return value;
}

cJsonValue step(const char* type, const char* key, int delay)
{
    return object({{"type", type}, {"key", key}, {"delay", delay}});
}

} // namespace

class MacroRunTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_sink = std::make_shared<RecordingSink>(); }
    void cleanup() { m_sink.reset(); }

    void keystrokeIsHeldUntilTheRelease();
    void multiKeyWaitsForItsTimes();
    void multiKeyReleasesWhatItLeftPressed();
    void multiKeyGoesOnAfterTheRelease();
    void abortReleasesWhatIsPressed();
    void droppedRunReleasesWhatIsPressed();
    void triggersOutOfOrderChangeNothing();
    void longListOfKeysIsPlayed();
    void textLaunchAndScriptAreSentOnce();
    void functionsDoWhatTheyAreCalled_data();
    void functionsDoWhatTheyAreCalled();
    void everyFunctionEndsWhatItBegins();
    void stickCommandsLastUntilTheRelease();
    void badRecordGivesNoRun_data();
    void badRecordGivesNoRun();
    void defaultSinkStartsPrograms();
    void defaultSinkReportsWhatItCantLaunch();
    void defaultSinkIsSilentAboutKeys();

private:
    cPlayStatePtr run(QLatin1String uid, const cJsonValue& data) { return run(record(uid, data)); }
    cPlayStatePtr run(const cJsonValue& macro)
    {
        for (const cMacroTypePtr& type : MacroTypes::all(m_sink)) {
            if (type->info()["uid"] == macro["namespace"])
                return type->createPlayState(macro);
        }
        return {};
    }

    std::shared_ptr<RecordingSink> m_sink;
};

void MacroRunTest::keystrokeIsHeldUntilTheRelease()
{
    const cPlayStatePtr state =
        run(MacroTypeIds::Keystroke, object({{"keys", "Ctrl+Shift+A"}, {"scancode", 38}}));
    QVERIFY(state);
    QCOMPARE(m_sink->take(), QStringList());
    QVERIFY(state->play(Pressed));
    QCOMPARE(state->delay(), -1);
    QCOMPARE(m_sink->take(), QStringList({"press Ctrl", "press Shift", "press A (38)"}));
    QVERIFY(!state->play(Released));
    QCOMPARE(m_sink->take(), QStringList({"release A (38)", "release Shift", "release Ctrl"}));
    QVERIFY(!state->play(Pressed));
    QCOMPARE(m_sink->take(), QStringList());
}

void MacroRunTest::multiKeyWaitsForItsTimes()
{
    cJsonValue data;
    data["events"].append(step("press", "A", 0));
    data["events"].append(step("press", "B", 120));
    data["events"].append(step("release", "B", 0));
    data["events"].append(step("release", "A", 30));
    const cPlayStatePtr state = run(MacroTypeIds::MultiKey, data);
    QCOMPARE(state->delay(), -1);
    QVERIFY(state->play(Pressed));
    QCOMPARE(m_sink->take(), QStringList({"press A"}));
    QCOMPARE(state->delay(), 120);
    QVERIFY(state->play(Timer));
    QCOMPARE(m_sink->take(), QStringList({"press B", "release B"}));
    QCOMPARE(state->delay(), 30);
    QVERIFY(!state->play(Timer));
    QCOMPARE(m_sink->take(), QStringList({"release A"}));
    QCOMPARE(state->delay(), -1);
}

void MacroRunTest::multiKeyReleasesWhatItLeftPressed()
{
    cJsonValue data;
    for (const char* key : {"A", "B", "A"})
        data["events"].append(step("press", key, 0));
    const cPlayStatePtr state = run(MacroTypeIds::MultiKey, data);
    QVERIFY(!state->play(Pressed));
    QCOMPARE(m_sink->take(), QStringList({"press A", "press B", "press A", "release B", "release A"}));
}

void MacroRunTest::multiKeyGoesOnAfterTheRelease()
{
    cJsonValue data;
    data["events"].append(step("press", "A", 10));
    data["events"].append(step("release", "A", 10));
    const cPlayStatePtr state = run(MacroTypeIds::MultiKey, data);
    QVERIFY(state->play(Pressed));
    QCOMPARE(m_sink->take(), QStringList());
    QVERIFY(state->play(Released));
    QVERIFY(state->play(Timer));
    QCOMPARE(m_sink->take(), QStringList({"press A"}));
    QVERIFY(!state->play(Timer));
    QCOMPARE(m_sink->take(), QStringList({"release A"}));
}

void MacroRunTest::abortReleasesWhatIsPressed()
{
    cJsonValue data;
    data["events"].append(step("press", "Shift", 0));
    data["events"].append(step("press", "A", 500));
    const cPlayStatePtr state = run(MacroTypeIds::MultiKey, data);
    QVERIFY(state->play(Pressed));
    QVERIFY(!state->play(Aborted));
    QCOMPARE(m_sink->take(), QStringList({"press Shift", "release Shift"}));
    QCOMPARE(state->delay(), -1);
    QVERIFY(!state->play(Timer));
    QCOMPARE(m_sink->take(), QStringList());
}

void MacroRunTest::droppedRunReleasesWhatIsPressed()
{
    cPlayStatePtr state = run(MacroTypeIds::Keystroke, object({{"keys", "A"}}));
    state->play(Pressed);
    state.reset();
    QCOMPARE(m_sink->take(), QStringList({"press A", "release A"}));
}

void MacroRunTest::triggersOutOfOrderChangeNothing()
{
    const cPlayStatePtr state = run(MacroTypeIds::Keystroke, object({{"keys", "A"}}));
    QVERIFY(state->play(Released));
    QVERIFY(state->play(Timer));
    QCOMPARE(m_sink->take(), QStringList());
    QVERIFY(state->play(Pressed));
    QVERIFY(state->play(Pressed));
    QVERIFY(state->play(Timer));
    QCOMPARE(m_sink->take(), QStringList({"press A"}));
}

void MacroRunTest::longListOfKeysIsPlayed()
{
    cJsonValue data;
    for (int i = 0; i < MacroLimits::Events / 2; ++i) {
        data["events"].append(step("press", "A", 1));
        data["events"].append(step("release", "A", 1));
    }
    const cPlayStatePtr state = run(MacroTypeIds::MultiKey, data);
    QVERIFY(state->play(Pressed));
    int timers = 0;
    for (bool isGoingOn = true; isGoingOn; ++timers)
        isGoingOn = state->play(Timer);
    QCOMPARE(timers, MacroLimits::Events);
    QCOMPARE(m_sink->take().size(), MacroLimits::Events);
}

void MacroRunTest::textLaunchAndScriptAreSentOnce()
{
    QVERIFY(!run(MacroTypeIds::TextBlock, object({{"text", "a\n<b> & \"c\""}}))->play(Pressed));
    QVERIFY(!run(MacroTypeIds::Launch, object({{"path", "/bin/x"}, {"arguments", "-v"}, {"folder", "/tmp"}}))
                 ->play(Pressed));
    QVERIFY(!run(MacroTypeIds::Script, object({{"function", "f.g"}, {"argument", "1"}}))->play(Pressed));
    QCOMPARE(m_sink->take(),
        QStringList({"type \"a\n<b> & \"c\"\"", "launch \"/bin/x\" with -v in \"/tmp\"", "run f.g(\"1\")"}));
}

void MacroRunTest::functionsDoWhatTheyAreCalled_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QStringList>("sent");
    const auto row = [](QLatin1String uid, const char* name, const QStringList& sent) {
        QTest::newRow(name) << QString(uid) << sent;
    };
    row(MacroNamespaces::MouseFunction, "Left Click", {"press left button", "release left button"});
    row(MacroNamespaces::MouseFunction, "Forward", {"press forward button", "release forward button"});
    row(MacroNamespaces::MouseFunction, "Double Click",
        {"press left button", "release left button", "press left button", "release left button"});
    row(MacroNamespaces::MouseFunction, "Scroll Left", {"scroll -1, 0"});
    row(MacroNamespaces::MouseFunction, "Scroll Up", {"scroll 0, 1"});
    row(MacroNamespaces::MouseFunction, "DPI Up", {"step resolution 1"});
    row(MacroNamespaces::MouseFunction, "DPI Down", {"step resolution -1"});
    row(MacroNamespaces::MouseFunction, "DPI Shift", {"press resolution shift", "release resolution shift"});
    row(MacroNamespaces::Media, "Mute", {"press Volume Mute", "release Volume Mute"});
    row(MacroNamespaces::Hotkeys, "Copy", {"press Ctrl", "press C", "release C", "release Ctrl"});
    row(MacroNamespaces::Hotkeys, "Switch Window", {"press Alt", "press Tab", "release Tab", "release Alt"});
}

void MacroRunTest::functionsDoWhatTheyAreCalled()
{
    QFETCH(QString, uid);
    QFETCH(QStringList, sent);
    cJsonValue macro;
    macro["namespace"] = QString(uid);
    macro["data"]["function"] = QTest::currentDataTag();
    const cPlayStatePtr state = run(macro);
    QVERIFY(state);
    state->play(Pressed);
    QVERIFY(!state->play(Released));
    QCOMPARE(m_sink->take(), sent);
}

void MacroRunTest::everyFunctionEndsWhatItBegins()
{
    const std::pair<QLatin1String, const NamedFunctionList&> lists[] = {
        {MacroNamespaces::MouseFunction, NamedFunctions::mouse()},
        {MacroNamespaces::Media, NamedFunctions::media()},
        {MacroNamespaces::Hotkeys, NamedFunctions::hotkeys()},
    };
    for (const auto& list : lists) {
        QSet<QString> names;
        for (const NamedFunction& function : list.second) {
            QVERIFY2(!names.contains(function.name), function.name);
            names.insert(function.name);
            const cPlayStatePtr state = run(list.first, object({{"function", function.name}}));
            QVERIFY2(state, function.name);
            state->play(Pressed);
            QVERIFY2(!state->play(Released), function.name);
            const QStringList sent = m_sink->take();
            QVERIFY2(!sent.isEmpty(), function.name);
            QCOMPARE(sent.filter("press ").size(), sent.filter("release ").size());
        }
    }
}

void MacroRunTest::stickCommandsLastUntilTheRelease()
{
    const cPlayStatePtr mouse = run(MacroNamespaces::StickMouse, cJsonValue());
    const cPlayStatePtr joystick = run(MacroNamespaces::StickJoystick, cJsonValue());
    QVERIFY(mouse->play(Pressed));
    QVERIFY(joystick->play(Pressed));
    QVERIFY(!mouse->play(Released));
    QVERIFY(!joystick->play(Aborted));
    QCOMPARE(m_sink->take(),
        QStringList({"press stick as mouse", "press stick as joystick", "release stick as mouse",
            "release stick as joystick"}));
}

void MacroRunTest::badRecordGivesNoRun_data()
{
    QTest::addColumn<cJsonValue>("macro");
    const auto row = [](const char* name, QLatin1String uid, const cJsonValue& data) {
        QTest::newRow(name) << record(uid, data);
    };
    const auto events = [](const cJsonValue& event) {
        cJsonValue data;
        data["events"].append(step("press", "A", 0));
        data["events"].append(event);
        return data;
    };
    for (const QLatin1String uid : {MacroTypeIds::Keystroke, MacroTypeIds::MultiKey, MacroTypeIds::TextBlock,
             MacroTypeIds::Launch, MacroTypeIds::Script, MacroNamespaces::MouseFunction}) {
        for (const cJsonValue& data : {cJsonValue(), cJsonValue("text"), cJsonValue(3), cJsonValue(true),
                 cJsonValue(cJsonValue::arrayValue), cJsonValue(cJsonValue::objectValue),
                 object({{"raw_xml", "<x/>"}})})
            row("data of another kind", uid, data);
    }
    row("unknown key", MacroTypeIds::Keystroke, object({{"keys", "Hyper+A"}}));
    row("keys as number", MacroTypeIds::Keystroke, object({{"keys", 5}}));
    row("negative scan code", MacroTypeIds::Keystroke, object({{"keys", "A"}, {"scancode", -1}}));
    row("scan code as text", MacroTypeIds::Keystroke, object({{"keys", "A"}, {"scancode", "1"}}));
    row("negative time", MacroTypeIds::MultiKey, events(step("press", "B", -1)));
    row("time of two hours", MacroTypeIds::MultiKey, events(step("press", "B", 2 * 60 * 60 * 1000)));
    row("unknown event", MacroTypeIds::MultiKey, events(step("hold", "B", 1)));
    row("event as text", MacroTypeIds::MultiKey, events("press"));
    row("events as object", MacroTypeIds::MultiKey, object({{"events", object({})}}));
    row("empty path", MacroTypeIds::Launch, object({{"path", ""}}));
    row("no function name", MacroTypeIds::Script, object({{"function", "os.exit()"}}));
    row("unknown function", MacroNamespaces::Media, object({{"function", "Rewind the World"}}));
}

void MacroRunTest::badRecordGivesNoRun()
{
    QFETCH(cJsonValue, macro);
    QVERIFY(!run(macro));
    const QString uid = macro["namespace"].toString();
    for (const cMacroTypePtr& type : MacroTypes::all(m_sink)) {
        QVERIFY(!type->createPlayState(cJsonValue()));
        if (type->info()["uid"].toString() != uid)
            QVERIFY(!type->createPlayState(macro));
    }
}

void MacroRunTest::defaultSinkStartsPrograms()
{
    const QTemporaryDir folder;
    DefaultInputSink().send(LaunchInput {"sh", "-c \"echo done > 'a file'\"", folder.path()});
    QTRY_VERIFY(QFile::exists(folder.filePath("a file")));
}

void MacroRunTest::defaultSinkReportsWhatItCantLaunch()
{
    const ExpectedMessage message(QtWarningMsg, "Failed to launch '/no/such/program'");
    DefaultInputSink().send(LaunchInput {"/no/such/program", "", ""});
}

void MacroRunTest::defaultSinkIsSilentAboutKeys()
{
    DefaultInputSink().send(KeyInput {{Qt::Key_A, 0}, true});
    DefaultInputSink().send(TextInput {"text"});
}

VELTRANO_TEST_MAIN(MacroRunTest)
#include "MacroRunTest.moc"
