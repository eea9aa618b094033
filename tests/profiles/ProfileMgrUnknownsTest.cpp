#include "ProfilesTestCase.h"

using namespace TestIds;

/// Every operation with ids that nobody has: empty answers, no event, no message, nothing written.
class ProfileMgrUnknownsTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void recordsAndTextsAreEmpty();
    void changesDoNothing();
    void answersAreNo();
    void everyOperationIsReachedByItsName();
};

void ProfileMgrUnknownsTest::cleanup()
{
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(takeProblems(), QStringList());
    QCOMPARE(mainUI().messages, QStringList());
    QCOMPARE(profiles().profileIDs(), QStringList({Default}));
    ProfilesTestCase::cleanup();
}

void ProfileMgrUnknownsTest::recordsAndTextsAreEmpty()
{
    QVERIFY(profiles().getProfileByID(Unknown).isNull());
    QVERIFY(profiles().getProfileByID(QString()).isNull());
    QVERIFY(profiles().getProfileByName(Unknown).isNull());
    QVERIFY(profiles().getProfileByTarget(Unknown).isNull());
    QVERIFY(profiles().getPersistentProfile().isNull());
    QVERIFY(profiles().macros(Unknown).isNull());
    QVERIFY(profiles().getMacroByID(Unknown, M1).isNull());
    QVERIFY(profiles().getMacroByID(Default, Unknown).isNull());
    QVERIFY(profiles().getMacroByTypeAndName(Unknown, ButtonType, "x", false).isNull());
    QCOMPARE(profiles().getAssignment(Unknown, Mouse, MKey::M1, "G1"), QString());
    QCOMPARE(profiles().getProfileScript(Unknown), QString());
    QCOMPARE(profiles().getProfileName(Unknown), QString());
    QCOMPARE(profiles().getProfileDeviceId(Unknown), QString());
    QVERIFY(profiles().getProfilesToGo(Unknown).isArray());
    QVERIFY(!profiles().getProfilesToGoXML(Unknown, false, {Unknown}).contains("<profile "));
    QVERIFY(profiles().pointerProperties(Unknown, "m") == cPointerProperties());
    QVERIFY(profiles().profileIcon(Unknown).isNull());
}

void ProfileMgrUnknownsTest::changesDoNothing()
{
    QVERIFY(!profiles().deleteProfileByID(Unknown));
    profiles().copyProfile(Unknown);
    profiles().copyProfileToDevice(Unknown, "device", "Device");
    profiles().exportProfile(Unknown, path("file"));
    profiles().printProfile(Unknown, Mouse, {"G1"});
    QVERIFY(!profiles().editProfileProperty(profile(Unknown, "Name")));
    profiles().setPersistentProfileByID(Unknown);
    profiles().setDefaultProfileByID(Unknown);
    QVERIFY(!profiles().addMacro(Unknown, macro(M1, "Jump")));
    QVERIFY(!profiles().copyMacros(Unknown, Default, {M1}));
    QVERIFY(!profiles().copyMacros(Default, Unknown, {"{D}"}));
    QVERIFY(!profiles().deleteMacro(Unknown, macro(M1, "Jump")));
    QVERIFY(!profiles().deleteMacro(Default, macro(M1, "Jump")));
    QVERIFY(!profiles().editMacro(Unknown, macro(M1, "Jump")));
    profiles().setAssignment(Unknown, Mouse, M1, MKey::M1, "G1");
    profiles().setAssignment(Default, Mouse, M1, MKey::M1, "G1");
    profiles().setGenericAssignment(Unknown, Mouse, ButtonType, "Back", true, MKey::M1, "G1");
    profiles().removeAssignment(Unknown, Mouse, MKey::M1, "G1");
    QVERIFY(!profiles().saveProfile(Unknown));
    QVERIFY(!profiles().addMouseMacro(Unknown));
    QVERIFY(!profiles().addJoystickMacro(Unknown));
    QVERIFY(!profiles().setProfileScript(Unknown, "x"));
    profiles().testProfile(Unknown);
    profiles().moveAssignments(Unknown, M1, M2);
    profiles().moveAssignments(Default, "{D}", Unknown);
    profiles().setPointerDpi(Unknown, "m", cDpiSettings());
    profiles().setPointerMovement(Unknown, "m", 1, true);
    profiles().setPointerReportRate(Unknown, "m", 1);
    profiles().setDefaultAssignment(Unknown, Mouse, MKey::M1, "G1");
    profiles().cleanupBackup(Unknown, Mouse);
    QPixmap icon(1, 1);
    icon.fill(Qt::red);
    profiles().setProfileIcon(Unknown, icon);
    QVERIFY(!profiles().enableProfileBackup(Unknown, false));
}

void ProfileMgrUnknownsTest::answersAreNo()
{
    QVERIFY(!profiles().isDefaultConfiguration(Unknown));
    QVERIFY(!profiles().isMacroAssigned(Unknown, Mouse, {"G1"}, M1));
    QVERIFY(!profiles().isProfileToGoDirty(Unknown));
    QVERIFY(!profiles().containsDevCategory(Unknown, Mouse));
    QVERIFY(!profiles().profileHasBackup(Unknown, Mouse));
    QVERIFY(!profiles().assignmentHasBackup(Unknown, Mouse, MKey::M1, "G1"));
    QVERIFY(!profiles().hasCustomIcon(Unknown));
    QVERIFY(!profiles().canMacroBeAssignedTo("{D}", Unknown, Mouse, MKey::M1, "G1"));
    QVERIFY(!profiles().canMacroBeChangedTo(Unknown, "{D}", macro("{D}", "x")));
    cDpiSettings dpi;
    int number = 0;
    bool flag = false;
    QVERIFY(!profiles().pointerDpi(Unknown, "m", dpi));
    QVERIFY(!profiles().pointerMovement(Unknown, "m", number, flag));
    QVERIFY(!profiles().pointerReportRate(Unknown, "m", number));
}

void ProfileMgrUnknownsTest::everyOperationIsReachedByItsName()
{
    const QMetaObject& interface = IProfileMgr::staticMetaObject;
    int count = 0;
    for (int i = interface.methodOffset(); i < interface.methodCount(); ++i, ++count) {
        const QByteArray signature = interface.method(i).methodSignature();
        // What the service adds may hide none of them.
        const int place = service().metaObject()->indexOfMethod(signature.constData());
        QVERIFY2(place == i, signature.constData());
    }
    QCOMPARE(count, 66);
}

VELTRANO_TEST_MAIN(ProfileMgrUnknownsTest)
#include "ProfileMgrUnknownsTest.moc"
