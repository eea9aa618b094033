#include "ProfilesTestCase.h"

#include <EventNames.h>
#include <IServiceMgr.h>

#include <QCoreApplication>
#include <QProcess>

using namespace TestIds;

/// The default, the persistent and the current profile.
class ProfileMgrRolesTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void defaultProfileIsCurrentByDefault();
    void persistentProfileIsCurrentWhateverRuns();
    void applicationBringsItsProfile();
    void ownWindowChangesNothing();
    void lockedProfileStaysWhileItsProcessRuns();
    void testedProfileStaysUntilAnotherGameComes();
    void nextProfileIsTheOneAfterTheCurrent();
    void deletedDefaultLeavesTheRoleToTheBuiltInOne();
    void deletedPersistentLeavesTheRoleToNone();
    void deletedCurrentGivesWayToTheDefault();
    void unknownIdsTakeNoRole();
    void recordsOfRolesAreGiven();

private:
    void comeToForeground(const QString& application, quint32 processId = 1)
    {
        IServiceMgr::instance()->publish(EventSources::MainApp, Events::ForegroundAppChange,
            QGenericArgument("QString", &application), QGenericArgument("quint32", &processId));
    }
};

void ProfileMgrRolesTest::init()
{
    ProfilesTestCase::init();
    cJsonValue record = profile(P, "Game");
    record["target"] = "/games/game";
    profiles().addProfile(record);
    profiles().addProfile(profile(Q, "Other"));
    events().take();
    IServiceMgr::instance()->subscribe(EventSources::MainApp, &service(), Events::HandlerPrefix);
}

void ProfileMgrRolesTest::defaultProfileIsCurrentByDefault()
{
    profiles().setDefaultProfileByID(Q);
    QCOMPARE(events().take(),
        QStringList({"ProfilePropertyChanged " + Default, "ProfilePropertyChanged " + Q,
            "CurrentProfileSwitched " + Q}));
    QCOMPARE(profiles().getActiveProfileID(), Q);
    profiles().setDefaultProfileByID(Q);
    QCOMPARE(events().take(), QStringList());
    restart();
    QCOMPARE(profiles().getActiveProfileID(), Q);
}

void ProfileMgrRolesTest::persistentProfileIsCurrentWhateverRuns()
{
    profiles().setPersistentProfileByID(Q);
    QCOMPARE(events().take(), QStringList({"ProfilePropertyChanged " + Q, "CurrentProfileSwitched " + Q}));
    comeToForeground("/games/game");
    profiles().setDefaultProfileByID(P);
    QCOMPARE(profiles().getActiveProfileID(), Q);
    events().take();
    // The game is still in front.
    profiles().setPersistentProfileByID(QString());
    QCOMPARE(events().take(), QStringList({"ProfilePropertyChanged " + Q, "CurrentProfileSwitched " + P}));
    QCOMPARE(profiles().getPersistentProfileID(), QString());
}

void ProfileMgrRolesTest::applicationBringsItsProfile()
{
    comeToForeground("/games/game");
    QCOMPARE(events().take(), QStringList({"CurrentProfileSwitched " + P}));
    comeToForeground("/games/game");
    QCOMPARE(events().take(), QStringList());
    comeToForeground("/usr/bin/editor");
    QCOMPARE(events().take(), QStringList({"CurrentProfileSwitched " + Default}));
    comeToForeground(QString(), 0);
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrRolesTest::ownWindowChangesNothing()
{
    comeToForeground("/games/game");
    events().take();
    comeToForeground(QCoreApplication::applicationFilePath(), quint32(QCoreApplication::applicationPid()));
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(profiles().getActiveProfileID(), P);
}

void ProfileMgrRolesTest::lockedProfileStaysWhileItsProcessRuns()
{
    cJsonValue record = profile(P, "Game");
    record["lock"] = true;
    profiles().editProfileProperty(record);
    QProcess game;
    game.start(QStringLiteral("cat"), QStringList());
    QVERIFY(game.waitForStarted());
    comeToForeground("/games/game", quint32(game.processId()));
    comeToForeground("/usr/bin/editor");
    QCOMPARE(profiles().getActiveProfileID(), P);
    game.closeWriteChannel();
    QVERIFY(game.waitForFinished());
    comeToForeground("/usr/bin/other");
    QCOMPARE(profiles().getActiveProfileID(), Default);
}

void ProfileMgrRolesTest::testedProfileStaysUntilAnotherGameComes()
{
    profiles().testProfile(Q);
    QCOMPARE(events().take(), QStringList({"CurrentProfileSwitched " + Q}));
    comeToForeground("/usr/bin/editor");
    profiles().setDefaultProfileByID(P);
    QCOMPARE(profiles().getActiveProfileID(), Q);
    profiles().setDefaultProfileByID(Default);
    comeToForeground("/games/game");
    QCOMPARE(profiles().getActiveProfileID(), P);
    comeToForeground("/usr/bin/editor");
    QCOMPARE(profiles().getActiveProfileID(), Default);
}

void ProfileMgrRolesTest::nextProfileIsTheOneAfterTheCurrent()
{
    profiles().activateNextProfile();
    profiles().activateNextProfile();
    profiles().activateNextProfile();
    QCOMPARE(events().take(),
        QStringList({"CurrentProfileSwitched " + P, "CurrentProfileSwitched " + Q,
            "CurrentProfileSwitched " + Default}));
}

void ProfileMgrRolesTest::deletedDefaultLeavesTheRoleToTheBuiltInOne()
{
    profiles().setDefaultProfileByID(Q);
    events().take();
    QVERIFY(profiles().deleteProfileByID(Q));
    QCOMPARE(events().take(),
        QStringList({"ProfilePropertyChanged " + Default, "ProfileDeleted " + Q,
            "CurrentProfileSwitched " + Default}));
    QCOMPARE(profiles().getDefaultProfileID(), Default);
}

void ProfileMgrRolesTest::deletedPersistentLeavesTheRoleToNone()
{
    profiles().setDefaultProfileByID(P);
    profiles().setPersistentProfileByID(Q);
    events().take();
    QVERIFY(profiles().deleteProfileByID(Q));
    QCOMPARE(events().take(), QStringList({"ProfileDeleted " + Q, "CurrentProfileSwitched " + P}));
    QCOMPARE(profiles().getPersistentProfileID(), QString());
    QVERIFY(profiles().getPersistentProfile().isNull());
}

void ProfileMgrRolesTest::deletedCurrentGivesWayToTheDefault()
{
    profiles().setDefaultProfileByID(Q);
    profiles().testProfile(P);
    events().take();
    QVERIFY(profiles().deleteProfileByID(P));
    QCOMPARE(events().take(), QStringList({"ProfileDeleted " + P, "CurrentProfileSwitched " + Q}));
}

void ProfileMgrRolesTest::unknownIdsTakeNoRole()
{
    profiles().setDefaultProfileByID(Unknown);
    profiles().setDefaultProfileByID(QString());
    profiles().setPersistentProfileByID(Unknown);
    profiles().testProfile(Unknown);
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(profiles().getDefaultProfileID(), Default);
    // Nor does one that the settings name and that is gone.
    settings().setPropertyString("profiles/default", Unknown);
    settings().setPropertyString("profiles/persistent", Unknown);
    restart();
    QCOMPARE(profiles().getDefaultProfileID(), Default);
    QCOMPARE(profiles().getPersistentProfileID(), QString());
    QCOMPARE(profiles().getActiveProfileID(), Default);
}

void ProfileMgrRolesTest::recordsOfRolesAreGiven()
{
    profiles().setDefaultProfileByID(P);
    profiles().setPersistentProfileByID(Q);
    QVERIFY(profiles().getDefaultProfile() == profiles().getProfileByID(P));
    QVERIFY(profiles().getPersistentProfile() == profiles().getProfileByID(Q));
}

VELTRANO_TEST_MAIN(ProfileMgrRolesTest)
#include "ProfileMgrRolesTest.moc"
