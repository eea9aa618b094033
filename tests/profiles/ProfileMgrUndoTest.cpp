#include "ProfilesTestCase.h"

#include <SettingsKeys.h>

#include <QSignalSpy>

#include <functional>

using namespace TestIds;

class ProfileMgrUndoTest;
Q_DECLARE_METATYPE(std::function<void(ProfileMgrUndoTest&)>)

/// Undo and redo of what changes profiles, commands and assignments.
class ProfileMgrUndoTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void nothingToUndoAtTheStart();
    void everyRoadIsUndoneAndRedone_data();
    void everyRoadIsUndoneAndRedone();
    void deletedProfileComesBackWhole();
    void deletedProfileGetsItsRolesBack();
    void roleGivenToAnotherSinceStaysThere();
    void rolesHandedOverBeforeTheDeletionComeBack();
    void undoneAdditionHandsOverItsRoles();
    void shownProfileThatGoesIsLeft();
    void viewThatLeavesByItselfIsLeftAlone();
    void otherProfileThatGoesLeavesTheViewAlone();
    void callsOfOneTurnAreOneStep();
    void useDefaultForAllKeysIsOneStep();
    void firstUseOfACategoryIsNoStep();
    void commandThatASetUpUsesLeavesItsControls();
    void newStepForgetsWhatCouldBeRedone();
    void answerToAnUndoneStepBelongsToIt();
    void undoWhileTellingIsIgnored();
    void undoneChangesReachTheDisk();
};

void ProfileMgrUndoTest::nothingToUndoAtTheStart()
{
    QVERIFY(!history().canUndo());
    QVERIFY(!history().canRedo());
    QCOMPARE(history().undoName(), QString());
    service().undo();
    service().redo();
    profiles().setDefaultProfileByID(Default);
    profiles().activateNextProfile();
    endTurn();
    QVERIFY(!history().canUndo());
    QCOMPARE(profiles().profileIDs(), QStringList(Default));
}

void ProfileMgrUndoTest::everyRoadIsUndoneAndRedone_data()
{
    using Road = std::function<void(ProfileMgrUndoTest&)>;
    QTest::addColumn<Road>("road");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("undoEvents");
    QTest::addColumn<QStringList>("redoEvents");
    const auto row = [](const char* tag, const Road& road, const QString& name, const QStringList& undone,
                         const QStringList& redone) {
        QTest::newRow(tag) << road << name << undone << redone;
    };
    const auto on = [](const QString& control, const QString& macroId) {
        return QStringLiteral("MacroAssigned %1 Mouse %2 0 %3").arg(P, macroId, control);
    };
    const auto off = [](const QString& control, const QString& macroId) {
        return QStringLiteral("AssignmentRemoved %1 Mouse 0 %2 %3").arg(P, control, macroId);
    };
    const QStringList changed {"ProfilePropertyChanged " + P};
    row("add a profile", [](auto& t) { t.profiles().addProfile(profile(Q, "New")); }, "Add Profile New",
        {"ProfileDeleted " + Q}, {"ProfileAdded " + Q});
    row("delete a profile", [](auto& t) { t.profiles().deleteProfileByID(P); }, "Delete Profile Game",
        {"ProfileAdded " + P}, {"ProfileDeleted " + P});
    row(
        "edit a profile", [](auto& t) { t.profiles().editProfileProperty(profile(P, "Renamed & <b>%1")); },
        "Change Profile Game", changed, changed);
    row(
        "script", [](auto& t) { t.profiles().setProfileScript(P, "x"); }, "Change Script of Game", changed,
        changed);
    row(
        "icon",
        [](auto& t) {
            QPixmap icon(2, 2);
            icon.fill(Qt::red);
            t.profiles().setProfileIcon(P, icon);
        },
        "Change Icon of Game", changed, changed);
    row(
        "pointer", [](auto& t) { t.profiles().setPointerMovement(P, "Mouse.A", 3, true); },
        "Change Pointer Speed", changed, changed);
    row("add a command", [](auto& t) { t.profiles().addMacro(P, macro("{N}", "New")); }, "Add Command New",
        {"macroDeleted " + P + " {N}"}, {"macroAdded " + P + " {N}"});
    row("edit a command", [](auto& t) { t.profiles().editMacro(P, macro(M1, "Duck")); },
        "Change Command Jump", {"macroChanged " + P + ' ' + M1}, {"macroChanged " + P + ' ' + M1});
    row("delete a command with its assignments",
        [](auto& t) { t.profiles().deleteMacro(P, macro(M1, QString())); }, "Delete Command Jump",
        {"macroAdded " + P + ' ' + M1, on("G1", M1)}, {"macroDeleted " + P + ' ' + M1, off("G1", M1)});
    row("assign", [](auto& t) { t.profiles().setAssignment(P, Mouse, M2, MKey::M1, "G1"); },
        "Assign Run to G1", {off("G1", M2), on("G1", M1)}, {off("G1", M1), on("G1", M2)});
    row("unassign", [](auto& t) { t.profiles().removeAssignment(P, Mouse, MKey::M1, "G1"); }, "Unassign G1",
        {on("G1", M1)}, {off("G1", M1)});
    row("move assignments", [](auto& t) { t.profiles().moveAssignments(P, M1, M2); },
        "Move Assignments to Run", {off("G1", M2), on("G1", M1)}, {off("G1", M1), on("G1", M2)});
    row("use default", [](auto& t) { t.profiles().setDefaultAssignment(P, Mouse, MKey::M1, "G1"); },
        "Use Default of G1", {on("G1", M1)}, {off("G1", M1)});
    row("forget defaults", [](auto& t) { t.profiles().cleanupBackup(P, Mouse); }, "Forget Defaults of Game",
        {}, {});
    row("stick command", [](auto& t) { t.profiles().addMouseMacro(P); }, "Add Command Mouse",
        {"macroDeleted " + P + ' ' + FixedIds::MouseMacro}, {"macroAdded " + P + ' ' + FixedIds::MouseMacro});
}

void ProfileMgrUndoTest::everyRoadIsUndoneAndRedone()
{
    QFETCH(std::function<void(ProfileMgrUndoTest&)>, road);
    QFETCH(QString, name);
    QFETCH(QStringList, undoEvents);
    QFETCH(QStringList, redoEvents);
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().addMacro(P, macro(M2, "Run"));
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    endTurn();
    const QByteArray before = content();
    road(*this);
    endTurn();
    const QByteArray after = content();
    QVERIFY(after != before);
    QCOMPARE(history().undoName(), name);
    for (int round = 0; round < 2; ++round) {
        events().take();
        service().undo();
        QCOMPARE(content(), before);
        QCOMPARE(events().take(), undoEvents);
        QCOMPARE(history().redoName(), name);
        service().redo();
        QCOMPARE(content(), after);
        QCOMPARE(events().take(), redoEvents);
    }
}

void ProfileMgrUndoTest::deletedProfileComesBackWhole()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().setAssignment(P, Mouse, M1, MKey::M2, "G1");
    QPixmap icon(2, 2);
    icon.fill(Qt::green);
    profiles().setProfileIcon(P, icon);
    endTurn();
    const QByteArray before = content();
    profiles().deleteProfileByID(P);
    endTurn();
    service().undo();
    QCOMPARE(profiles().profileIDs(), QStringList({Default, P, Q}));
    QCOMPARE(content(), before);
    QVERIFY(profiles().hasCustomIcon(P));
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M2, "G1"), M1);
    QVERIFY(profiles().assignmentHasBackup(P, Mouse, MKey::M2, "G1"));
}

void ProfileMgrUndoTest::deletedProfileGetsItsRolesBack()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().setDefaultProfileByID(P);
    profiles().setPersistentProfileByID(P);
    endTurn();
    profiles().deleteProfileByID(P);
    endTurn();
    QCOMPARE(profiles().getDefaultProfileID(), Default);
    events().take();
    service().undo();
    QCOMPARE(profiles().getDefaultProfileID(), P);
    QCOMPARE(profiles().getPersistentProfileID(), P);
    QCOMPARE(profiles().getActiveProfileID(), P);
    QCOMPARE(events().take().last(), "CurrentProfileSwitched " + P);
    restart();
    QCOMPARE(profiles().getPersistentProfileID(), P);
}

void ProfileMgrUndoTest::roleGivenToAnotherSinceStaysThere()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    profiles().setDefaultProfileByID(P);
    endTurn();
    profiles().deleteProfileByID(P);
    endTurn();
    profiles().setDefaultProfileByID(Q);
    endTurn();
    service().undo();
    QVERIFY(!profiles().getProfileByID(P).isNull());
    QCOMPARE(profiles().getDefaultProfileID(), Q);
    QCOMPARE(profiles().getActiveProfileID(), Q);
}

void ProfileMgrUndoTest::rolesHandedOverBeforeTheDeletionComeBack()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().setDefaultProfileByID(P);
    endTurn();
    // As the list of profiles deletes the one that is shown.
    profiles().setDefaultProfileByID(Default);
    profiles().deleteProfileByID(P);
    endTurn();
    service().undo();
    QCOMPARE(profiles().getDefaultProfileID(), P);
    service().redo();
    QCOMPARE(profiles().getDefaultProfileID(), Default);
}

void ProfileMgrUndoTest::undoneAdditionHandsOverItsRoles()
{
    profiles().addProfile(profile(P, "Game"));
    endTurn();
    profiles().setDefaultProfileByID(P);
    endTurn();
    events().take();
    service().undo();
    QCOMPARE(profiles().getDefaultProfileID(), Default);
    QCOMPARE(profiles().getActiveProfileID(), Default);
    QCOMPARE(events().take(),
        QStringList({"ProfilePropertyChanged " + Default, "ProfileDeleted " + P,
            "CurrentProfileSwitched " + Default}));
}

void ProfileMgrUndoTest::shownProfileThatGoesIsLeft()
{
    profiles().addProfile(profile(P, "Game"));
    settings().setPropertyString(SettingsKeys::LastProfile, P);
    endTurn();
    events().take();
    service().undo();
    QCOMPARE(events().take(), QStringList({"ProfileDeleted " + P, "CurrentProfileSwitched " + Default}));
}

void ProfileMgrUndoTest::viewThatLeavesByItselfIsLeftAlone()
{
    profiles().addProfile(profile(Q, "Neighbour"));
    endTurn();
    profiles().addProfile(profile(P, "Game"));
    settings().setPropertyString(SettingsKeys::LastProfile, P);
    endTurn();
    events().take();
    events().onEvent = [this](const QString&) {
        settings().setPropertyString(SettingsKeys::LastProfile, Q);
    };
    service().undo();
    events().onEvent = nullptr;
    QCOMPARE(events().take(), QStringList("ProfileDeleted " + P));
}

void ProfileMgrUndoTest::otherProfileThatGoesLeavesTheViewAlone()
{
    profiles().addProfile(profile(Q, "Shown"));
    endTurn();
    profiles().addProfile(profile(P, "Game"));
    settings().setPropertyString(SettingsKeys::LastProfile, Q);
    endTurn();
    events().take();
    service().undo();
    QCOMPARE(events().take(), QStringList("ProfileDeleted " + P));
}

void ProfileMgrUndoTest::callsOfOneTurnAreOneStep()
{
    const QSignalSpy changes(&history(), SIGNAL(changed()));
    profiles().addProfile(profile(P, "One"));
    endTurn();
    profiles().addProfile(profile(Q, "Two"));
    endTurn();
    const QByteArray before = content();
    profiles().deleteProfileByID(P);
    QCOMPARE(history().undoName(), QStringLiteral("Delete Profile One"));
    const int told = changes.size();
    profiles().deleteProfileByID(Q);
    QVERIFY(changes.size() > told);
    QCOMPARE(history().undoName(), QStringLiteral("Delete 2 Profiles"));
    endTurn();
    events().take();
    service().undo();
    QCOMPARE(content(), before);
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + Q, "ProfileAdded " + P}));
    QCOMPARE(history().undoName(), QStringLiteral("Add Profile Two"));
}

void ProfileMgrUndoTest::useDefaultForAllKeysIsOneStep()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    for (const char* key : {"G1", "G2", "G3"})
        profiles().setAssignment(P, Mouse, M1, MKey::M1, key);
    endTurn();
    const QByteArray before = content();
    for (const char* key : {"G1", "G2", "G3"})
        profiles().setDefaultAssignment(P, Mouse, MKey::M1, key);
    profiles().cleanupBackup(P, Mouse);
    endTurn();
    QCOMPARE(history().undoName(), QStringLiteral("Use Default of 3 Keys"));
    service().undo();
    QCOMPARE(content(), before);
    QVERIFY(profiles().assignmentHasBackup(P, Mouse, MKey::M1, "G2"));
}

void ProfileMgrUndoTest::firstUseOfACategoryIsNoStep()
{
    profiles().addProfile(profile(P, "Game"));
    endTurn();
    profiles().setProfileScript(P, "x");
    endTurn();
    service().undo();
    profiles().enableProfileBackup(P, false);
    profiles().setGenericAssignment(P, Mouse, MacroNamespaces::MouseFunction, "Back", true, MKey::M1, "G1");
    profiles().enableProfileBackup(P, true);
    endTurn();
    QCOMPARE(history().undoName(), QStringLiteral("Add Profile Game"));
    QVERIFY(history().canRedo());
    const QByteArray setUp = content();
    service().undo();
    service().redo();
    QCOMPARE(content(), setUp);
}

void ProfileMgrUndoTest::commandThatASetUpUsesLeavesItsControls()
{
    profiles().addProfile(profile(P, "Game"));
    endTurn();
    profiles().setGenericAssignment(P, Mouse, MacroNamespaces::MouseFunction, "Back", true, MKey::M1, "G1");
    endTurn();
    profiles().enableProfileBackup(P, false);
    profiles().setGenericAssignment(
        P, "Keyboard", MacroNamespaces::MouseFunction, "Back", true, MKey::M1, "G1");
    profiles().enableProfileBackup(P, true);
    endTurn();
    const QString id = profiles().getAssignment(P, "Keyboard", MKey::M1, "G1");
    QVERIFY(!id.isEmpty());
    service().undo();
    QVERIFY(profiles().getMacroByID(P, id).isNull());
    QCOMPARE(profiles().getAssignment(P, "Keyboard", MKey::M1, "G1"), QString());
    service().redo();
    QCOMPARE(profiles().getAssignment(P, "Keyboard", MKey::M1, "G1"), id);
}

void ProfileMgrUndoTest::newStepForgetsWhatCouldBeRedone()
{
    profiles().addProfile(profile(P, "Game"));
    endTurn();
    service().undo();
    QVERIFY(history().canRedo());
    profiles().addProfile(profile(Q, "Other"));
    QVERIFY(!history().canRedo());
    endTurn();
    service().redo();
    QVERIFY(profiles().getProfileByID(P).isNull());
}

void ProfileMgrUndoTest::answerToAnUndoneStepBelongsToIt()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().addMacro(P, macro(M2, "Run"));
    endTurn();
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    endTurn();
    const QByteArray before = content();
    // A listener that puts something else on a control that became empty.
    events().onEvent = [this](const QString& line) {
        if (line.startsWith(QStringLiteral("AssignmentRemoved")))
            profiles().setAssignment(P, Mouse, M2, MKey::M1, "G1");
    };
    service().undo();
    events().onEvent = nullptr;
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M1, "G1"), M2);
    QCOMPARE(history().redoName(), QStringLiteral("Assign Jump to G1"));
    service().redo();
    QCOMPARE(content(), before);
}

void ProfileMgrUndoTest::undoWhileTellingIsIgnored()
{
    profiles().addProfile(profile(P, "Game"));
    endTurn();
    profiles().addProfile(profile(Q, "Other"));
    endTurn();
    events().onEvent = [this](const QString&) {
        service().undo();
    };
    service().undo();
    events().onEvent = nullptr;
    QCOMPARE(profiles().profileIDs(), QStringList({Default, P}));
}

void ProfileMgrUndoTest::undoneChangesReachTheDisk()
{
    profiles().addProfile(profile(P, "Game"));
    QVERIFY(profiles().saveAllProfiles());
    endTurn();
    const QByteArray before = snapshot();
    profiles().deleteProfileByID(P);
    QVERIFY(profiles().saveAllProfiles());
    QVERIFY(snapshot() != before);
    service().undo();
    QVERIFY(profiles().saveAllProfiles());
    QCOMPARE(snapshot(), before);
}

VELTRANO_TEST_MAIN(ProfileMgrUndoTest)
#include "ProfileMgrUndoTest.moc"
