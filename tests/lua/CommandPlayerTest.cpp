#include <cLuaScript.h>
#include <cLuaScriptService.h>
#include <CommandPlayer.h>
#include <cProfiler.h>
#include <cProfilerService.h>
#include <MacroTypeIds.h>
#include <MacroTypes.h>
#include <ProfilesTestCase.h>

#include <memory>

using namespace TestIds;

namespace {

/// Keeps what reaches the system, as text.
class RecordingSink : public IInputSink
{
public:
    void send(const InputEvent& event) override { m_sent.append(InputEvents::toText(event)); }
    QStringList sent() const { return m_sent; }

private:
    QStringList m_sent;
};

const QString Script = QStringLiteral("function greet(whom) print('hello ' .. tostring(whom)) end\n"
                                      "lamp = {color = 'red', switch = function(state) print(state) end}\n"
                                      "function fail()\n    error('no lamp')\nend\n"
                                      "function spin() while true do end end\n"
                                      "local function secret() end\n");

} // namespace

/// Commands that are played by name, from the service to the script in its runner.
class CommandPlayerTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void functionOfTheScriptIsCalled_data();
    void functionOfTheScriptIsCalled();
    void scriptIsThatOfTheCommandsProfile();
    void missingFunctionIsTold_data();
    void missingFunctionIsTold();
    void missingScriptIsTold();
    void failureIsToldWithItsLine();
    void secondCallIsRefusedWhileOneRuns();
    void tooLargeArgumentIsRefused();
    void abortEndsACallAlone();
    void otherTypesPlayAsTheirKeysWould();
    void longCommandPlaysOnAndIsAborted();
    void unknownCommandIsNotPlayed();
    void droppedPlayerReleasesWhatIsPressed();
    void keyPlaysTheActiveProfilesScript();

private:
    void add(const QString& profileId, const char* name, QLatin1String type, const cJsonValue& data);
    void addCall(const char* name, const QString& function, const QString& argument = {});
    ScriptWindow& openEditor();

    cProfiler m_client;
    std::unique_ptr<cMacroTypeMgrService> m_types;
    std::shared_ptr<RecordingSink> m_sink;
    std::unique_ptr<cProfilerService> m_profiler;
    std::unique_ptr<cLuaScriptService> m_scripts;
    std::unique_ptr<CommandPlayer> m_player;
    QStringList m_told;

private Q_SLOTS:
    void onTold(const QString& text) { m_told.append(text); }
};

void CommandPlayerTest::init()
{
    ProfilesTestCase::init();
    m_told.clear();
    m_sink = std::make_shared<RecordingSink>();
    m_types = std::make_unique<cMacroTypeMgrService>();
    m_scripts = std::make_unique<cLuaScriptService>(QStringLiteral(SCRIPT_RUNNER), service());
    connect(m_scripts.get(), SIGNAL(problem(QString)), this, SLOT(onTold(QString)));
    m_player = std::make_unique<CommandPlayer>(profiles(), *m_types, *m_scripts, m_sink);
    m_profiler = std::make_unique<cProfilerService>();
    m_profiler->setPlayer(m_player.get());
    IServiceMgr::instance()->registerService(m_scripts.get());
    IServiceMgr::instance()->registerService(m_profiler.get());
    QVERIFY(MacroTypes::registerAll(*m_types, m_player->sink()));
    QVERIFY(profiles().addProfile(profile(P, "Pilot")));
    QVERIFY(profiles().addProfile(profile(Q, "Quest")));
    QVERIFY(profiles().setProfileScript(P, Script));
}

void CommandPlayerTest::cleanup()
{
    m_profiler.reset();
    m_player.reset();
    m_scripts.reset();
    ProfilesTestCase::cleanup();
    m_types.reset();
    m_sink.reset();
}

void CommandPlayerTest::add(
    const QString& profileId, const char* name, QLatin1String type, const cJsonValue& data)
{
    cJsonValue record = macro(QUuid::createUuid().toString().toUpper(), name, type);
    record["data"] = data;
    QVERIFY(profiles().addMacro(profileId, record));
}

void CommandPlayerTest::addCall(const char* name, const QString& function, const QString& argument)
{
    cJsonValue data;
    data["function"] = function;
    if (!argument.isEmpty())
        data["argument"] = argument;
    add(P, name, MacroTypeIds::Script, data);
}

ScriptWindow& CommandPlayerTest::openEditor()
{
    cLuaScript().showEditor(true, P);
    return *m_scripts->editor(P);
}

void CommandPlayerTest::functionOfTheScriptIsCalled_data()
{
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("output");
    QTest::newRow("with an argument") << "greet"
                                      << "you"
                                      << "hello you\nDone.\n";
    QTest::newRow("without") << "greet" << QString() << "hello nil\nDone.\n";
    QTest::newRow("in a table") << "lamp.switch"
                                << "on"
                                << "on\nDone.\n";
    const QString odd = QString::fromUtf8("-e ' \" \\ %1 $HOME\n\u00e4\u20ac");
    QTest::newRow("argument of odd characters") << "greet" << odd << "hello " + odd + "\nDone.\n";
}

void CommandPlayerTest::functionOfTheScriptIsCalled()
{
    QFETCH(QString, function);
    QFETCH(QString, argument);
    QFETCH(QString, output);
    addCall("Call", function, argument);
    ScriptWindow& window = openEditor();
    for (int round = 0; round < 2; ++round) {
        QVERIFY(m_client.playScriptingMacroByName(P, "Call"));
        QVERIFY(m_scripts->isRunning());
        QTRY_VERIFY(!m_scripts->isRunning());
        QCOMPARE(window.output(), output);
    }
    QCOMPARE(m_told, QStringList());
    QCOMPARE(m_sink->sent(), QStringList());
}

void CommandPlayerTest::scriptIsThatOfTheCommandsProfile()
{
    profiles().setProfileScript(Q, "function greet() error('of Quest') end");
    addCall("Greet", "greet");
    cJsonValue data;
    data["function"] = "greet";
    add(Q, "Greet", MacroTypeIds::Script, data);
    QVERIFY(m_client.playScriptingMacroByName(Q, "Greet"));
    QTRY_COMPARE(m_told, QStringList("The script of Quest failed. Line 1: of Quest"));
    QVERIFY(m_client.playScriptingMacroByName(P, "Greet"));
    QTRY_VERIFY(!m_scripts->isRunning());
    QCOMPARE(m_told.size(), 1);
}

void CommandPlayerTest::missingFunctionIsTold_data()
{
    QTest::addColumn<QString>("function");
    for (const char* function :
        {"gone", "secret", "lamp", "lamp.gone", "lamp.color.red", "greet.more", "gone.more"})
        QTest::newRow(function) << function;
}

void CommandPlayerTest::missingFunctionIsTold()
{
    QFETCH(QString, function);
    addCall("Call", function);
    const QString text = QStringLiteral("The script has no function %1, or it is a local one.").arg(function);
    QVERIFY(m_client.playScriptingMacroByName(P, "Call"));
    QTRY_COMPARE(m_told, QStringList("The script of Pilot failed. " + text));
    ScriptWindow& window = openEditor();
    QVERIFY(m_client.playScriptingMacroByName(P, "Call"));
    QTRY_COMPARE(window.output(), text + '\n');
    QCOMPARE(m_told.size(), 1);
}

void CommandPlayerTest::missingScriptIsTold()
{
    profiles().setProfileScript(P, " \n");
    addCall("Call", "greet");
    const QString text = QStringLiteral("The function greet can't be called: Pilot has no script.");
    QVERIFY(!m_client.playScriptingMacroByName(P, "Call"));
    QCOMPARE(m_told, QStringList(text));
    ScriptWindow& window = openEditor();
    QVERIFY(!m_client.playScriptingMacroByName(P, "Call"));
    QCOMPARE(window.output(), text + '\n');
    QCOMPARE(m_told.size(), 1);
}

void CommandPlayerTest::failureIsToldWithItsLine()
{
    addCall("Call", "fail");
    QVERIFY(m_client.playScriptingMacroByName(P, "Call"));
    QTRY_COMPARE(m_told, QStringList("The script of Pilot failed. Line 4: no lamp"));
}

void CommandPlayerTest::secondCallIsRefusedWhileOneRuns()
{
    addCall("Spin", "spin");
    addCall("Greet", "greet");
    QVERIFY(m_client.playScriptingMacroByName(P, "Spin"));
    QVERIFY(!m_client.playScriptingMacroByName(P, "Greet"));
    QCOMPARE(m_told, QStringList("The script was not run: another one is running."));
    cLuaScript().stop();
    QTRY_VERIFY(!m_scripts->isRunning());
    QVERIFY(m_client.playScriptingMacroByName(P, "Greet"));
}

void CommandPlayerTest::tooLargeArgumentIsRefused()
{
    addCall("Call", "greet", QString(64 * 1024 + 1, 'x'));
    QVERIFY(!m_client.playScriptingMacroByName(P, "Call"));
    QCOMPARE(m_told, QStringList("The script was not run: its function is called with more than 64 KB."));
    addCall("Fitting", "greet", QString(64 * 1024, 'x'));
    QVERIFY(m_client.playScriptingMacroByName(P, "Fitting"));
    QTRY_VERIFY(!m_scripts->isRunning());
    QCOMPARE(m_told.size(), 1);
}

void CommandPlayerTest::abortEndsACallAlone()
{
    QVERIFY(!m_client.abortScriptingMacro());
    addCall("Spin", "spin");
    QVERIFY(m_client.playScriptingMacroByName(P, "Spin"));
    QVERIFY(m_client.abortScriptingMacro());
    QTRY_VERIFY(!m_scripts->isRunning());
    QVERIFY(!m_client.abortScriptingMacro());
    // What the user runs goes on.
    QVERIFY(cLuaScript().run(P, "while true do end"));
    QVERIFY(!m_client.abortScriptingMacro());
    QVERIFY(m_scripts->isRunning());
    cLuaScript().stop();
    QTRY_VERIFY(!m_scripts->isRunning());
    QCOMPARE(m_told, QStringList());
}

void CommandPlayerTest::otherTypesPlayAsTheirKeysWould()
{
    cJsonValue keys;
    keys["keys"] = "Ctrl+A";
    add(P, "Select All", MacroTypeIds::Keystroke, keys);
    QVERIFY(m_client.playScriptingMacroByName(P, "Select All"));
    QCOMPARE(m_sink->sent(), QStringList({"press Ctrl", "press A", "release A", "release Ctrl"}));
    QVERIFY(!m_client.abortScriptingMacro());
}

void CommandPlayerTest::longCommandPlaysOnAndIsAborted()
{
    const auto step = [](const char* type, const char* key, int delay) {
        cJsonValue value;
        value["type"] = type;
        value["key"] = key;
        value["delay"] = delay;
        return value;
    };
    cJsonValue quick;
    quick["events"].append(step("press", "A", 0));
    quick["events"].append(step("release", "A", 10));
    quick["events"].append(step("press", "B", 10));
    add(P, "Quick", MacroTypeIds::MultiKey, quick);
    cJsonValue slow;
    slow["events"].append(step("press", "C", 0));
    slow["events"].append(step("release", "C", 60000));
    add(P, "Slow", MacroTypeIds::MultiKey, slow);
    QVERIFY(m_client.playScriptingMacroByName(P, "Slow"));
    QVERIFY(m_client.playScriptingMacroByName(P, "Quick"));
    QTRY_COMPARE(m_sink->sent(), QStringList({"press C", "press A", "release A", "press B", "release B"}));
    QVERIFY(m_client.abortScriptingMacro());
    QCOMPARE(m_sink->sent().last(), QString("release C"));
    QVERIFY(!m_client.abortScriptingMacro());
}

void CommandPlayerTest::unknownCommandIsNotPlayed()
{
    addCall("Call", "greet");
    add(P, "Nothing", MacroTypeIds::Script, cJsonValue());
    QVERIFY(profiles().addMacro(P, macro(M1, "No Type", NoType)));
    for (const char* name : {"", "call", "Call ", "Nothing", "No Type"})
        QVERIFY2(!m_client.playScriptingMacroByName(P, name), name);
    QVERIFY(!m_client.playScriptingMacroByName(Q, "Call"));
    QVERIFY(!m_client.playScriptingMacroByName(Unknown, "Call"));
    QVERIFY(!m_scripts->isRunning());
    QCOMPARE(m_told, QStringList());
}

void CommandPlayerTest::droppedPlayerReleasesWhatIsPressed()
{
    cJsonValue data;
    for (const char* type : {"press", "release"}) {
        cJsonValue step;
        step["type"] = type;
        step["key"] = "A";
        step["delay"] = *type == 'p' ? 0 : 60000;
        data["events"].append(step);
    }
    add(P, "Slow", MacroTypeIds::MultiKey, data);
    QVERIFY(m_client.playScriptingMacroByName(P, "Slow"));
    m_profiler->setPlayer(nullptr);
    m_player.reset();
    QCOMPARE(m_sink->sent(), QStringList({"press A", "release A"}));
    QVERIFY(!m_client.playScriptingMacroByName(P, "Slow"));
}

void CommandPlayerTest::keyPlaysTheActiveProfilesScript()
{
    cJsonValue record = macro(M1, "Call", MacroTypeIds::Script);
    record["data"]["function"] = "fail";
    const auto press = [&] {
        const cPlayStatePtr state = m_types->getMacroTypeByID(MacroTypeIds::Script)->createPlayState(record);
        state->play(PlayStateTriggers::Pressed);
    };
    profiles().setDefaultProfileByID(P);
    QCOMPARE(profiles().getActiveProfileID(), P);
    press();
    QTRY_COMPARE(m_told, QStringList("The script of Pilot failed. Line 4: no lamp"));
    profiles().setDefaultProfileByID(Q);
    press();
    QCOMPARE(m_told.last(), QString("The function fail can't be called: Quest has no script."));
    // The types live longer than the player.
    m_profiler->setPlayer(nullptr);
    m_player.reset();
    press();
    QCOMPARE(m_told.size(), 2);
}

VELTRANO_TEST_MAIN(CommandPlayerTest)
#include "CommandPlayerTest.moc"
