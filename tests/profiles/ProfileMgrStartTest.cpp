#include "ProfilesTestCase.h"

#include <ProfileStore.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace TestIds;

/// Start, restart, and folders that can't be used.
class ProfileMgrStartTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void freshStartHasTheDefaultProfile();
    void missingDefaultDocumentIsToldAndAProfileIsThere();
    void restartKeepsEverything();
    void startChangesNothingOnDisk();
    void orderAfterARestartIsByName();
    void lostDefaultProfileIsMadeAgain();
    void damagedDocumentIsToldAndSetAside();
    void changeIsOnDiskShortlyAfterwards();
    void saveAllProfilesWritesAtOnce();
    void saveProfileWritesOne();
    void oneChangeWritesOneDocument();
    void secondHostReadsTellsAndWritesNothing();
    void unwritableFolderIsToldAndKeepsWorking();
    void failedSaveIsToldAndMadeGood();
};

void ProfileMgrStartTest::freshStartHasTheDefaultProfile()
{
    QCOMPARE(profiles().profileIDs(), QStringList({Default}));
    QCOMPARE(profiles().getProfileName(Default), QStringLiteral("Start"));
    QCOMPARE(profiles().getDefaultProfileID(), Default);
    QCOMPARE(profiles().getActiveProfileID(), Default);
    QCOMPARE(profiles().getPersistentProfileID(), QString());
    QCOMPARE(profiles().macros(Default).size(), 1u);
    QCOMPARE(profiles().getAssignment(Default, "Keyboard", MKey::M1, "G1"), QStringLiteral("{D}"));
    QVERIFY(profiles().isDefaultConfiguration(Default));
    QVERIFY(takeProblems().isEmpty());
    QVERIFY(profiles().saveAllProfiles());
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(Default)}));
}

void ProfileMgrStartTest::missingDefaultDocumentIsToldAndAProfileIsThere()
{
    stop();
    QVERIFY(QDir(folder()).removeRecursively());
    QVERIFY(QFile::remove(defaultDocument()));
    start();
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY(problems.first().contains(QStringLiteral("new users begin with")));
    QCOMPARE(profiles().profileIDs(), QStringList({Default}));
    QVERIFY(!profiles().getProfileName(Default).isEmpty());
}

void ProfileMgrStartTest::restartKeepsEverything()
{
    cJsonValue record = profile(P, "Game");
    record["description"] = "About";
    record["target"] = "/games/game";
    record["script"] = "function OnEvent()\r\nend";
    record["lock"] = true;
    record["later"]["key"] = 7;
    QVERIFY(profiles().addProfile(record));
    QVERIFY(profiles().addMacro(P, macro(M1, "Jump")));
    cJsonValue repeated = macro(M2, "Run", NoType);
    repeated["repeat"]["mode"] = "toggle";
    repeated["repeat"]["delay"] = 30;
    QVERIFY(profiles().addMacro(P, repeated));
    profiles().setAssignment(P, Mouse, M1, MKey::M2, "G1");
    profiles().setAssignment(P, Mouse, M2, MKey::M2, "G1");
    profiles().setGenericAssignment(P, Mouse, MacroNamespaces::MouseFunction, "Back", true, MKey::M1, "G2");
    QVERIFY(profiles().addMouseMacro(P));
    QPixmap icon(48, 48);
    icon.fill(Qt::red);
    profiles().setProfileIcon(P, icon);
    cDpiSettings dpi;
    dpi.levels = {{400, 800}};
    profiles().setPointerDpi(P, "Mouse.A", dpi);
    profiles().setPointerMovement(P, "Mouse.A", 12, true);
    profiles().setPointerReportRate(P, "Mouse.A", 500);
    profiles().setDefaultProfileByID(P);
    profiles().setPersistentProfileByID(P);
    const cJsonValue before = profiles().getProfileByID(P);

    restart();
    QVERIFY(profiles().getProfileByID(P) == before);
    QCOMPARE(before["macros"].size(), 4u);
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M2, "G1"), M2);
    QVERIFY(profiles().assignmentHasBackup(P, Mouse, MKey::M2, "G1"));
    QCOMPARE(profiles().profileIcon(P).toImage().pixelColor(5, 5), QColor(Qt::red));
    QVERIFY(profiles().hasCustomIcon(P));
    const cPointerProperties pointer = profiles().pointerProperties(P, "Mouse.A");
    QVERIFY(pointer.dpi == dpi);
    QCOMPARE(pointer.speed, 12);
    QVERIFY(pointer.acceleration);
    QCOMPARE(pointer.reportRate, 500);
    QVERIFY(profiles().containsDevCategory(P, Mouse));
    QCOMPARE(profiles().getDefaultProfileID(), P);
    QCOMPARE(profiles().getPersistentProfileID(), P);
    QCOMPARE(profiles().getActiveProfileID(), P);
    QVERIFY(takeProblems().isEmpty());

    QVERIFY(profiles().deleteProfileByID(P));
    restart();
    QCOMPARE(profiles().profileIDs(), QStringList({Default}));
    QCOMPARE(profiles().getDefaultProfileID(), Default);
    QCOMPARE(profiles().getPersistentProfileID(), QString());
}

void ProfileMgrStartTest::startChangesNothingOnDisk()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    stop();
    const QByteArray before = snapshot();
    start();
    QVERIFY(profiles().saveAllProfiles());
    stop();
    QVERIFY(!before.isEmpty());
    QCOMPARE(snapshot(), before);
    // A change there and back writes the same bytes.
    start();
    profiles().editMacro(P, macro(M1, "Duck"));
    profiles().editMacro(P, macro(M1, "Jump"));
    stop();
    QCOMPARE(snapshot(), before);
}

void ProfileMgrStartTest::orderAfterARestartIsByName()
{
    const QString third = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000003}");
    profiles().addProfile(profile(third, "A"));
    profiles().addProfile(profile(P, "C"));
    profiles().addProfile(profile(Q, "B"));
    QCOMPARE(profiles().profileIDs(), QStringList({Default, third, P, Q}));
    restart();
    QCOMPARE(profiles().profileIDs(), QStringList({Default, third, Q, P}));
}

void ProfileMgrStartTest::lostDefaultProfileIsMadeAgain()
{
    profiles().addProfile(profile(P, "Game"));
    stop();
    QVERIFY(QFile::remove(folder() + QLatin1Char('/') + ProfileStore::fileName(Default)));
    start();
    QCOMPARE(profiles().profileIDs(), QStringList({Default, P}));
}

void ProfileMgrStartTest::damagedDocumentIsToldAndSetAside()
{
    profiles().addProfile(profile(P, "Game"));
    stop();
    const QString name = ProfileStore::fileName(P);
    writeFile(folder() + QLatin1Char('/') + name, "<profiles version=\"1\"><profile uid=");
    start();
    QCOMPARE(profiles().profileIDs(), QStringList({Default}));
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY(problems.first().contains(name));
    QCOMPARE(QDir(folder() + "/damaged").entryList(QDir::Files).size(), 2);
}

void ProfileMgrStartTest::changeIsOnDiskShortlyAfterwards()
{
    profiles().addProfile(profile(P, "Game"));
    const QString path = folder() + QLatin1Char('/') + ProfileStore::fileName(P);
    QVERIFY(!QFileInfo::exists(path));
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(path), 10 * ProfileStore::WriteDelay);
}

void ProfileMgrStartTest::saveAllProfilesWritesAtOnce()
{
    profiles().addProfile(profile(P, "Game"));
    QVERIFY(profiles().saveAllProfiles());
    QVERIFY(documents().contains(ProfileStore::fileName(P)));
    profiles().deleteProfileByID(P);
    QVERIFY(profiles().saveAllProfiles());
    QVERIFY(!documents().contains(ProfileStore::fileName(P)));
}

void ProfileMgrStartTest::saveProfileWritesOne()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    QVERIFY(profiles().saveProfile(P));
    QVERIFY(documents().contains(ProfileStore::fileName(P)));
    QVERIFY(!documents().contains(ProfileStore::fileName(Q)));
}

void ProfileMgrStartTest::oneChangeWritesOneDocument()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    QVERIFY(profiles().saveAllProfiles());
    // Who writes a document makes it anew, so removed ones show which were written.
    for (const QString& name : documents())
        QVERIFY(QFile::remove(folder() + QLatin1Char('/') + name));
    profiles().addMacro(P, macro(M1, "Jump"));
    QVERIFY(profiles().saveAllProfiles());
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(P)}));
}

void ProfileMgrStartTest::secondHostReadsTellsAndWritesNothing()
{
    profiles().addProfile(profile(P, "Game"));
    QVERIFY(profiles().saveAllProfiles());
    const QByteArray before = snapshot();
    {
        const auto second = makeService();
        second->load();
        QVERIFY(second->isReadOnly());
        QCOMPARE(second->getProfileName(P), QStringLiteral("Game"));
        QVERIFY(takeProblems().value(0).contains(QStringLiteral("Another process")));
        QVERIFY(second->addProfile(profile(Q, "Second")));
        QVERIFY(second->deleteProfileByID(P));
        QVERIFY(!second->saveAllProfiles());
        QCOMPARE(takeProblems().size(), 1);
    }
    QCOMPARE(snapshot(), before);
    // The first one goes on.
    profiles().addMacro(P, macro(M1, "Jump"));
    QVERIFY(profiles().saveAllProfiles());
    QVERIFY(snapshot() != before);
}

void ProfileMgrStartTest::unwritableFolderIsToldAndKeepsWorking()
{
    stop();
    QVERIFY(QDir(folder()).removeRecursively());
    writeFile(folder(), "a file where the folder has to be");
    start();
    QVERIFY(takeProblems().value(0).contains(QStringLiteral("can't be written to")));
    QVERIFY(service().isReadOnly());
    QVERIFY(profiles().addProfile(profile(P, "Game")));
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + P}));
    QVERIFY(!profiles().saveAllProfiles());
    QCOMPARE(profiles().getProfileName(P), QStringLiteral("Game"));
}

void ProfileMgrStartTest::failedSaveIsToldAndMadeGood()
{
    profiles().addProfile(profile(P, "Game"));
    QVERIFY(profiles().saveAllProfiles());
    const QString place = folder() + QLatin1Char('/') + ProfileStore::fileName(P);
    QVERIFY(QFile::remove(place));
    QVERIFY(QDir().mkpath(place + QStringLiteral("/in the way")));
    profiles().addMacro(P, macro(M1, "Jump"));
    QVERIFY(!profiles().saveAllProfiles());
    QVERIFY(!profiles().saveProfile(P));
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY(problems.first().contains(QStringLiteral("Game")));
    QCOMPARE(profiles().macros(P).size(), 1u);
    QVERIFY(QDir(place).removeRecursively());
    QVERIFY(profiles().saveAllProfiles());
    restart();
    QCOMPARE(profiles().macros(P).size(), 1u);
}

VELTRANO_TEST_MAIN(ProfileMgrStartTest)
#include "ProfileMgrStartTest.moc"
