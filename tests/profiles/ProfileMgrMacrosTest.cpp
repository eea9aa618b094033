#include "ProfilesTestCase.h"

using namespace TestIds;

/// Commands of profiles.
class ProfileMgrMacrosTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void addedCommandIsKnownWhenItsEventComes();
    void commandOfAUsedIdIsRefused();
    void commandsAreListedInTheirOrder();
    void editReplacesTheRecord();
    void editWithoutAChangeIsSilent();
    void deletedCommandTakesItsAssignmentsAlong();
    void listenerFillsAControlOfADeletedCommand();
    void builtInIsFoundByTypeNameAndHiding();
    void copiedCommandsGetNewIds();
    void builtInsAreNotCopiedTwice();
    void copyIntoTheSameProfileDoesNothing();
    void stickCommandsAreAddedOnce();
    void stickCommandKeepsItsIdWhenCopied();
    void moveTakesAssignmentsAndDefaultsAlong();
    void changeHasToFitTheControls();
};

void ProfileMgrMacrosTest::init()
{
    ProfilesTestCase::init();
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().addProfile(profile(Q, "Other"));
    events().take();
}

void ProfileMgrMacrosTest::addedCommandIsKnownWhenItsEventComes()
{
    cJsonValue seen;
    events().onEvent = [&](const QString&) {
        seen = profiles().getMacroByID(P, M2);
    };
    QVERIFY(profiles().addMacro(P, macro(M2, "Run")));
    QVERIFY(seen == macro(M2, "Run"));
    QCOMPARE(events().take(), QStringList({"macroAdded " + P + " " + M2}));
}

void ProfileMgrMacrosTest::commandOfAUsedIdIsRefused()
{
    QVERIFY(!profiles().addMacro(P, macro(M1, "Other")));
    QVERIFY(!profiles().addMacro(P, macro(M1.toLower(), "Other")));
    QCOMPARE(events().take(), QStringList());
    // Another profile may have the id.
    QVERIFY(profiles().addMacro(Q, macro(M1, "Other")));
}

void ProfileMgrMacrosTest::commandsAreListedInTheirOrder()
{
    profiles().addMacro(P, macro(M2, "Attack"));
    const cJsonValue macros = profiles().macros(P);
    QVERIFY(macros.isArray());
    QCOMPARE(macros.size(), 2u);
    QVERIFY(macros[0] == macro(M1, "Jump"));
    QVERIFY(macros[1] == macro(M2, "Attack"));
    QVERIFY(profiles().macros(Q).isNull());
}

void ProfileMgrMacrosTest::editReplacesTheRecord()
{
    cJsonValue edited = macro(M1, "Duck");
    edited["repeat"]["mode"] = "toggle";
    edited["repeat"]["delay"] = 30;
    QVERIFY(profiles().editMacro(P, edited));
    QCOMPARE(events().take(), QStringList({"macroChanged " + P + " " + M1}));
    QVERIFY(profiles().getMacroByID(P, M1) == edited);
    QVERIFY(profiles().editMacro(P, macro(M1, "Duck")));
    QVERIFY(!profiles().getMacroByID(P, M1).contains("repeat"));
}

void ProfileMgrMacrosTest::editWithoutAChangeIsSilent()
{
    QVERIFY(!profiles().editMacro(P, macro(M1, "Jump")));
    QVERIFY(!profiles().editMacro(P, macro(M2, "Unknown")));
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrMacrosTest::deletedCommandTakesItsAssignmentsAlong()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    profiles().setAssignment(P, Mouse, M1, MKey::M3, "G2");
    profiles().setAssignment(P, "Keyboard", M1, MKey::M2, "G1");
    events().take();
    QStringList left;
    events().onEvent = [&](const QString&) {
        left.append(profiles().getAssignment(P, Mouse, MKey::M1, "G1")
            + profiles().getMacroByID(P, M1)["uid"].toString());
    };
    cJsonValue named;
    named["uid"] = M1.toLower();
    QVERIFY(profiles().deleteMacro(P, named));
    // The command first: its listeners see which controls showed it.
    QCOMPARE(events().take(),
        QStringList({"macroDeleted " + P + " " + M1, "AssignmentRemoved " + P + " Keyboard 1 G1 " + M1,
            "AssignmentRemoved " + P + " Mouse 0 G1 " + M1, "AssignmentRemoved " + P + " Mouse 2 G2 " + M1}));
    // All of it was gone when the first of them came.
    QCOMPARE(left, QStringList({"", "", "", ""}));
    QVERIFY(!profiles().deleteMacro(P, named));
}

void ProfileMgrMacrosTest::listenerFillsAControlOfADeletedCommand()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    events().take();
    QString assigned;
    events().onEvent = [&](const QString& line) {
        if (!line.startsWith(QLatin1String("macroDeleted")))
            return;
        profiles().setGenericAssignment(
            P, Mouse, MacroNamespaces::MouseFunction, "Left Click", true, MKey::M1, "G1");
        // What is changed while events go out is in memory at once.
        assigned = profiles().getAssignment(P, Mouse, MKey::M1, "G1");
    };
    QVERIFY(profiles().deleteMacro(P, macro(M1, "Jump")));
    QVERIFY(!assigned.isEmpty());
    QCOMPARE(events().take(),
        QStringList({"macroDeleted " + P + " " + M1, "AssignmentRemoved " + P + " Mouse 0 G1 " + M1,
            "macroAdded " + P + " " + assigned, "MacroAssigned " + P + " Mouse " + assigned + " 0 G1"}));
}

void ProfileMgrMacrosTest::builtInIsFoundByTypeNameAndHiding()
{
    cJsonValue hidden = macro(M2, "Jump");
    hidden["hidden"] = true;
    profiles().addMacro(P, hidden);
    QCOMPARE(profiles().getMacroByTypeAndName(P, ButtonType, "Jump", false)["uid"].toString(), M1);
    QCOMPARE(profiles().getMacroByTypeAndName(P, ButtonType, "Jump", true)["uid"].toString(), M2);
    QVERIFY(profiles().getMacroByTypeAndName(P, ButtonType, "jump", false).isNull());
    QVERIFY(profiles().getMacroByTypeAndName(P, KeyType, "Jump", false).isNull());
}

void ProfileMgrMacrosTest::copiedCommandsGetNewIds()
{
    profiles().addMacro(P, macro(M2, "Run", NoType));
    events().take();
    QVERIFY(profiles().copyMacros(P, Q, {M1, Unknown, M2}));
    const cJsonValue macros = profiles().macros(Q);
    QCOMPARE(macros.size(), 2u);
    QCOMPARE(events().take(),
        QStringList({"macroAdded " + Q + " " + macros[0]["uid"].toString(),
            "macroAdded " + Q + " " + macros[1]["uid"].toString()}));
    QVERIFY(macros[0]["uid"].toString() != M1);
    cJsonValue expected = macro(M2, "Run", NoType);
    expected["uid"] = macros[1]["uid"].toString();
    QVERIFY(macros[1] == expected);
    QVERIFY(!profiles().copyMacros(P, Q, {Unknown}));
    QVERIFY(!profiles().copyMacros(P, Q, {}));
}

void ProfileMgrMacrosTest::builtInsAreNotCopiedTwice()
{
    const QString ids[] = {"{1}", "{2}", "{3}"};
    const QLatin1String types[] = {
        MacroNamespaces::MouseFunction, MacroNamespaces::Media, MacroNamespaces::Hotkeys};
    for (int i = 0; i < 3; ++i)
        profiles().addMacro(P, macro(ids[i], "Function", types[i]));
    QVERIFY(profiles().copyMacros(P, Q, {ids[0], ids[1], ids[2]}));
    QCOMPARE(profiles().macros(Q).size(), 3u);
    events().take();
    QVERIFY(!profiles().copyMacros(P, Q, {ids[0], ids[1], ids[2]}));
    QCOMPARE(events().take(), QStringList());
    // All other commands are what their user made them, and may be there twice.
    profiles().copyMacros(P, Q, {M1});
    profiles().copyMacros(P, Q, {M1});
    QCOMPARE(profiles().macros(Q).size(), 5u);
}

void ProfileMgrMacrosTest::copyIntoTheSameProfileDoesNothing()
{
    QVERIFY(!profiles().copyMacros(P, P.toLower(), {M1}));
    QCOMPARE(profiles().macros(P).size(), 1u);
}

void ProfileMgrMacrosTest::stickCommandsAreAddedOnce()
{
    QVERIFY(profiles().addMouseMacro(P));
    QVERIFY(profiles().addJoystickMacro(P));
    QCOMPARE(events().take(),
        QStringList({QString("macroAdded " + P + " ") + FixedIds::MouseMacro,
            QString("macroAdded " + P + " ") + FixedIds::JoystickMacro}));
    QVERIFY(profiles().addMouseMacro(P));
    QVERIFY(profiles().addJoystickMacro(P));
    QCOMPARE(events().take(), QStringList());
    const cJsonValue mouse = profiles().getMacroByID(P, FixedIds::MouseMacro);
    QCOMPARE(mouse["namespace"].toString(), QString(MacroNamespaces::StickMouse));
    QVERIFY(!mouse["display_name"].toString().isEmpty());
    QCOMPARE(profiles().getMacroByID(P, FixedIds::JoystickMacro)["namespace"].toString(),
        QString(MacroNamespaces::StickJoystick));
}

void ProfileMgrMacrosTest::stickCommandKeepsItsIdWhenCopied()
{
    profiles().addMouseMacro(P);
    QVERIFY(profiles().copyMacros(P, Q, {FixedIds::MouseMacro}));
    QVERIFY(!profiles().copyMacros(P, Q, {FixedIds::MouseMacro}));
    QVERIFY(!profiles().getMacroByID(Q, FixedIds::MouseMacro).isNull());
    QCOMPARE(profiles().macros(Q).size(), 1u);
}

void ProfileMgrMacrosTest::moveTakesAssignmentsAndDefaultsAlong()
{
    profiles().addMacro(P, macro(M2, "Run"));
    profiles().enableProfileBackup(P, false);
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    profiles().setAssignment(P, Mouse, M1, MKey::M2, "G2");
    profiles().enableProfileBackup(P, true);
    profiles().removeAssignment(P, Mouse, MKey::M2, "G2");
    events().take();
    profiles().moveAssignments(P, M1, M2);
    QCOMPARE(events().take(),
        QStringList({"AssignmentRemoved " + P + " Mouse 0 G1 " + M1,
            "MacroAssigned " + P + " Mouse " + M2 + " 0 G1"}));
    profiles().deleteMacro(P, macro(M1, "Jump"));
    // The default of G2 is what its command has become; G1 was not changed from its default.
    QVERIFY(!profiles().assignmentHasBackup(P, Mouse, MKey::M1, "G1"));
    profiles().setDefaultAssignment(P, Mouse, MKey::M2, "G2");
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M2, "G2"), M2);
    events().take();
    profiles().moveAssignments(P, M2, Unknown);
    profiles().moveAssignments(P, M2, M2);
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrMacrosTest::changeHasToFitTheControls()
{
    QVERIFY(profiles().canMacroBeChangedTo(P, M1, macro(M1, "Jump", KeyType)));
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    QVERIFY(profiles().canMacroBeChangedTo(P, M1, macro(M1, "Other")));
    QVERIFY(!profiles().canMacroBeChangedTo(P, M1, macro(M1, "Jump", KeyType)));
    QVERIFY(!profiles().canMacroBeChangedTo(P, M1, macro(M1, "Jump", NoType)));
    // The stick commands are what they are.
    profiles().addMouseMacro(P);
    QVERIFY(!profiles().canMacroBeChangedTo(P, FixedIds::MouseMacro, macro(FixedIds::MouseMacro, "Jump")));
}

VELTRANO_TEST_MAIN(ProfileMgrMacrosTest)
#include "ProfileMgrMacrosTest.moc"
