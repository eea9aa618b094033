#include "ProfilesTestCase.h"

using namespace TestIds;

/// Default assignments: what controls held before they were changed.
class ProfileMgrBackupTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void firstChangeIsRemembered();
    void changeBackIsNoDifference();
    void restoringTellsOfTheChange();
    void emptyControlIsADefaultToo();
    void pausedChangesBecomeTheDefault();
    void pauseIsPerProfile();
    void cleanupMakesThePresentTheDefault();
    void cleanupIsPerCategory();
    void deletedCommandLeavesAnEmptyDefault();
    void deletionIsAChangeThatCanNotBeTakenBack();
    void defaultsSurviveARestart();
    void firstUseOfACategoryHasNoBackup();

private:
    bool hasBackup() { return profiles().assignmentHasBackup(P, Mouse, MKey::M1, "G1"); }
    QString held() { return profiles().getAssignment(P, Mouse, MKey::M1, "G1"); }
    void assign(const QString& macroId) { profiles().setAssignment(P, Mouse, macroId, MKey::M1, "G1"); }
    void restore() { profiles().setDefaultAssignment(P, Mouse, MKey::M1, "G1"); }
};

void ProfileMgrBackupTest::init()
{
    ProfilesTestCase::init();
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().addMacro(P, macro(M2, "Run"));
    profiles().enableProfileBackup(P, false);
    assign(M1);
    profiles().enableProfileBackup(P, true);
    events().take();
}

void ProfileMgrBackupTest::firstChangeIsRemembered()
{
    QVERIFY(!hasBackup());
    QVERIFY(!profiles().profileHasBackup(P, Mouse));
    assign(M2);
    QVERIFY(hasBackup());
    QVERIFY(profiles().profileHasBackup(P, Mouse));
    QVERIFY(!profiles().profileHasBackup(P, "Keyboard"));
    QVERIFY(!profiles().assignmentHasBackup(P, Mouse, MKey::M2, "G1"));
    // Not the second one.
    profiles().removeAssignment(P, Mouse, MKey::M1, "G1");
    restore();
    QCOMPARE(held(), M1);
}

void ProfileMgrBackupTest::changeBackIsNoDifference()
{
    assign(M2);
    assign(M1);
    QVERIFY(!hasBackup());
    QVERIFY(!profiles().profileHasBackup(P, Mouse));
    events().take();
    restore();
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrBackupTest::restoringTellsOfTheChange()
{
    assign(M2);
    events().take();
    restore();
    QCOMPARE(events().take(),
        QStringList({"AssignmentRemoved " + P + " Mouse 0 G1 " + M2,
            "MacroAssigned " + P + " Mouse " + M1 + " 0 G1"}));
    QVERIFY(!hasBackup());
    // What is remembered stays remembered.
    assign(M2);
    QVERIFY(hasBackup());
}

void ProfileMgrBackupTest::emptyControlIsADefaultToo()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M2, "G2");
    QVERIFY(profiles().assignmentHasBackup(P, Mouse, MKey::M2, "G2"));
    events().take();
    profiles().setDefaultAssignment(P, Mouse, MKey::M2, "G2");
    QCOMPARE(events().take(), QStringList({"AssignmentRemoved " + P + " Mouse 1 G2 " + M1}));
}

void ProfileMgrBackupTest::pausedChangesBecomeTheDefault()
{
    QVERIFY(profiles().enableProfileBackup(P.toLower(), false));
    assign(M2);
    QVERIFY(profiles().enableProfileBackup(P, true));
    QVERIFY(!hasBackup());
    profiles().removeAssignment(P, Mouse, MKey::M1, "G1");
    restore();
    QCOMPARE(held(), M2);
}

void ProfileMgrBackupTest::pauseIsPerProfile()
{
    profiles().addProfile(profile(Q, "Other"));
    profiles().enableProfileBackup(Q, false);
    assign(M2);
    QVERIFY(hasBackup());
    QVERIFY(!profiles().enableProfileBackup(Unknown, false));
}

void ProfileMgrBackupTest::cleanupMakesThePresentTheDefault()
{
    assign(M2);
    events().take();
    profiles().cleanupBackup(P, Mouse);
    QCOMPARE(events().take(), QStringList());
    QVERIFY(!hasBackup());
    restore();
    QCOMPARE(held(), M2);
    assign(M1);
    QVERIFY(hasBackup());
    restore();
    QCOMPARE(held(), M2);
}

void ProfileMgrBackupTest::cleanupIsPerCategory()
{
    profiles().setAssignment(P, "Keyboard", M1, MKey::M1, "G1");
    assign(M2);
    profiles().cleanupBackup(P, "Keyboard");
    QVERIFY(hasBackup());
    QVERIFY(!profiles().profileHasBackup(P, "Keyboard"));
}

void ProfileMgrBackupTest::deletedCommandLeavesAnEmptyDefault()
{
    assign(M2);
    profiles().deleteMacro(P, macro(M1, "Jump"));
    QVERIFY(hasBackup());
    events().take();
    restore();
    QCOMPARE(events().take(), QStringList({"AssignmentRemoved " + P + " Mouse 0 G1 " + M2}));
    QVERIFY(!hasBackup());
}

void ProfileMgrBackupTest::deletionIsAChangeThatCanNotBeTakenBack()
{
    profiles().deleteMacro(P, macro(M1, "Jump"));
    QVERIFY(!hasBackup());
    QVERIFY(!profiles().profileHasBackup(P, Mouse));
}

void ProfileMgrBackupTest::defaultsSurviveARestart()
{
    assign(M2);
    restart();
    QVERIFY(hasBackup());
    restore();
    QCOMPARE(held(), M1);
}

void ProfileMgrBackupTest::firstUseOfACategoryHasNoBackup()
{
    QVERIFY(!profiles().containsDevCategory(P, "Keyboard"));
    profiles().enableProfileBackup(P, false);
    profiles().setGenericAssignment(
        P, "Keyboard", MacroNamespaces::MouseFunction, "Left Click", true, MKey::M1, "G1");
    profiles().enableProfileBackup(P, true);
    QVERIFY(profiles().containsDevCategory(P, "Keyboard"));
    QVERIFY(!profiles().profileHasBackup(P, "Keyboard"));
    const QString generic = profiles().getAssignment(P, "Keyboard", MKey::M1, "G1");
    profiles().setAssignment(P, "Keyboard", M1, MKey::M1, "G1");
    profiles().setDefaultAssignment(P, "Keyboard", MKey::M1, "G1");
    QCOMPARE(profiles().getAssignment(P, "Keyboard", MKey::M1, "G1"), generic);
}

VELTRANO_TEST_MAIN(ProfileMgrBackupTest)
#include "ProfileMgrBackupTest.moc"
