#include "ProfilesTestCase.h"

#include <ProfileDocument.h>

#include <QDir>
#include <QFileInfo>

using namespace TestIds;
using Reason = ProfileBackups::Reason;

/// Backups of all profiles, and what comes back from them.
class ProfileMgrBackupsTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void startMakesTheBackupOfTheDay();
    void secondStartOfADayMakesNone();
    void deletionIsBackedUpFirst();
    void deletionOfSeveralIsOneBackup();
    void deletionAfterARedoneOneIsBackedUpToo();
    void importIsBackedUpFirst();
    void otherVersionIsBackedUpBeforeItReads();
    void secondHostMakesNoBackup();
    void failureIsToldOnceAndStopsNothing();
    void deletedProfileIsBroughtBack();
    void changedProfileBecomesWhatItWas();
    void severalComeBackInOneStep();
    void sameProfileStaysAsItIs();
    void nameThatIsTakenByNowGetsANumber();
    void damagedDocumentIsToldAndTheOthersComeBack();

private:
    std::vector<ProfileBackups::Backup> list() { return service().backups().list(); }
    /// "Game" and "Other", in one turn.
    void deleteTwoProfiles()
    {
        profiles().addProfile(profile(P, "Game"));
        profiles().addProfile(profile(Q, "Other"));
        endTurn();
        profiles().deleteProfileByID(P);
        profiles().deleteProfileByID(Q);
        endTurn();
    }
    /// Reasons and notes, the newest first.
    QStringList reasons()
    {
        QStringList result;
        for (const ProfileBackups::Backup& backup : list())
            result.append(ProfileBackups::text(backup.reason) + ": " + backup.note);
        return result;
    }
    /// The document of a profile in the newest backup that holds it.
    QString documentOf(const QString& name, QString& backupName)
    {
        for (const ProfileBackups::Backup& backup : list()) {
            for (const ProfileBackups::Entry& entry : service().backups().read(backup.name)) {
                if (entry.profile && entry.profile->name() == name) {
                    backupName = backup.name;
                    return entry.document;
                }
            }
        }
        return QString();
    }
    QByteArray text(const QString& id) { return ProfileDocument::write({*service().book().find(id)}, {}); }
};

void ProfileMgrBackupsTest::startMakesTheBackupOfTheDay()
{
    QCOMPARE(reasons(), QStringList("Daily: "));
    QCOMPARE(service().backups().read(list().front().name).front().profile->uid(), Default);
}

void ProfileMgrBackupsTest::secondStartOfADayMakesNone()
{
    restart();
    QCOMPARE(reasons().size(), 1);
}

void ProfileMgrBackupsTest::deletionIsBackedUpFirst()
{
    profiles().addProfile(profile(P, "Game"));
    endTurn();
    profiles().deleteProfileByID(P);
    endTurn();
    QCOMPARE(reasons().first(), QString("Before a deletion: Game"));
    QString backup;
    QVERIFY(!documentOf("Game", backup).isEmpty());
    QCOMPARE(backup, list().front().name);
    QVERIFY(!profiles().deleteProfileByID(Default));
    QVERIFY(!profiles().deleteProfileByID(Unknown));
    QCOMPARE(reasons().size(), 2);
}

void ProfileMgrBackupsTest::deletionOfSeveralIsOneBackup()
{
    deleteTwoProfiles();
    QCOMPARE(reasons().size(), 2);
    QCOMPARE(list().front().count, 3);
}

void ProfileMgrBackupsTest::deletionAfterARedoneOneIsBackedUpToo()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    endTurn();
    profiles().deleteProfileByID(P);
    endTurn();
    service().undo();
    endTurn();
    service().redo();
    endTurn();
    profiles().deleteProfileByID(Q);
    endTurn();
    QCOMPARE(reasons().mid(0, 3),
        QStringList({"Before a deletion: Other", "Before a deletion: Game", "Before a deletion: Game"}));
}

void ProfileMgrBackupsTest::importIsBackedUpFirst()
{
    writeFile(path("in.xml"), "<profile uid=\"{1}\" name=\"Game\"/>");
    profiles().importProfile(path("in.xml"));
    endTurn();
    QCOMPARE(reasons().first(), QString("Before an import: in.xml"));
    QCOMPARE(list().front().count, 1);
    writeFile(path("bad.xml"), "bad");
    profiles().importProfile(path("bad.xml"));
    takeProblems();
    QCOMPARE(reasons().size(), 2);
}

void ProfileMgrBackupsTest::otherVersionIsBackedUpBeforeItReads()
{
    profiles().addProfile(profile(P, "Game"));
    stop();
    // What this version sets aside is in the backup.
    writeFile(folder() + "/x.xml", "unreadable");
    QCoreApplication::setApplicationVersion("7.1");
    start();
    QCoreApplication::setApplicationVersion(QString());
    takeProblems();
    QCOMPARE(reasons().first(), QString("Before an upgrade: 7.1"));
    QCOMPARE(list().front().count, 3);
    QCoreApplication::setApplicationVersion("7.1");
    restart();
    QCOMPARE(reasons().size(), 2);
    QCoreApplication::setApplicationVersion("7.2");
    restart();
    QCOMPARE(reasons().first(), QString("Before an upgrade: 7.1 to 7.2"));
    QCoreApplication::setApplicationVersion(QString());
}

void ProfileMgrBackupsTest::secondHostMakesNoBackup()
{
    profiles().addProfile(profile(P, "Game"));
    QVERIFY(profiles().saveAllProfiles());
    const auto second = makeService();
    second->load();
    second->deleteProfileByID(P);
    takeProblems();
    QCOMPARE(reasons().size(), 1);
}

void ProfileMgrBackupsTest::failureIsToldOnceAndStopsNothing()
{
    QVERIFY(QDir(path("backups")).removeRecursively());
    writeFile(path("backups"), "a file where the folder has to be");
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    endTurn();
    profiles().deleteProfileByID(P);
    endTurn();
    profiles().deleteProfileByID(Q);
    endTurn();
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY(problems.first().contains("could not be backed up"));
    QCOMPARE(profiles().profileIDs(), QStringList(Default));
    QVERIFY(QFile::remove(path("backups")));
    service().undo();
    endTurn();
    service().redo();
    QCOMPARE(reasons().size(), 1);
}

void ProfileMgrBackupsTest::deletedProfileIsBroughtBack()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    const QByteArray before = text(P);
    endTurn();
    profiles().deleteProfileByID(P);
    endTurn();
    QString backup;
    const QString document = documentOf("Game", backup);
    events().take();
    QCOMPARE(service().bringBack(backup, {document}), 1);
    endTurn();
    QCOMPARE(events().take(), QStringList("ProfileAdded " + P));
    QCOMPARE(text(P), before);
    QCOMPARE(service().history().undoName(), QString("Bring Back Profile Game"));
    QCOMPARE(reasons().first(), QString("Before a restore: Game"));
    service().undo();
    QVERIFY(profiles().getProfileByID(P).isNull());
    service().redo();
    QCOMPARE(text(P), before);
}

void ProfileMgrBackupsTest::changedProfileBecomesWhatItWas()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    const QByteArray before = text(P);
    endTurn();
    profiles().deleteProfileByID(Q);
    endTurn();
    profiles().deleteMacro(P, macro(M1, "Jump"));
    profiles().addMacro(P, macro(M2, "Run"));
    profiles().setProfileScript(P, "x");
    endTurn();
    const QByteArray changed = text(P);
    QString backup;
    const QString document = documentOf("Game", backup);
    events().take();
    QCOMPARE(service().bringBack(backup, {document}), 1);
    endTurn();
    QCOMPARE(text(P), before);
    QCOMPARE(events().take(),
        QStringList({"macroDeleted " + P + ' ' + M2, "macroAdded " + P + ' ' + M1,
            QString("MacroAssigned %1 Mouse %2 0 G1").arg(P, M1), "ProfilePropertyChanged " + P}));
    service().undo();
    QCOMPARE(text(P), changed);
    // What was not asked for stays away.
    QVERIFY(profiles().getProfileByID(Q).isNull());
}

void ProfileMgrBackupsTest::severalComeBackInOneStep()
{
    deleteTwoProfiles();
    QString backup;
    const QStringList documents {documentOf("Game", backup), documentOf("Other", backup)};
    QCOMPARE(service().bringBack(backup, documents), 2);
    endTurn();
    QCOMPARE(service().history().undoName(), QString("Bring Back 2 Profiles"));
    service().undo();
    QCOMPARE(profiles().profileIDs(), QStringList(Default));
}

void ProfileMgrBackupsTest::sameProfileStaysAsItIs()
{
    QString backup;
    const QString document = documentOf("Start", backup);
    QVERIFY(!document.isEmpty());
    QCOMPARE(service().bringBack(backup, {document}), 0);
    QCOMPARE(service().bringBack("no backup", {document}), 0);
    QVERIFY(!service().history().canUndo());
    QCOMPARE(reasons().size(), 1);
}

void ProfileMgrBackupsTest::nameThatIsTakenByNowGetsANumber()
{
    profiles().addProfile(profile(P, "Game"));
    endTurn();
    profiles().deleteProfileByID(P);
    endTurn();
    profiles().addProfile(profile(Q, "Game"));
    endTurn();
    QString backup;
    const QString document = documentOf("Game", backup);
    QCOMPARE(service().bringBack(backup, {document}), 1);
    QCOMPARE(profiles().getProfileName(P), QString("Game (2)"));
    QCOMPARE(profiles().getProfileName(Q), QString("Game"));
}

void ProfileMgrBackupsTest::damagedDocumentIsToldAndTheOthersComeBack()
{
    deleteTwoProfiles();
    QString backup;
    const QStringList documents {documentOf("Game", backup), documentOf("Other", backup)};
    writeFile(path("backups/" + backup + '/' + documents[0]), "damaged");
    QCOMPARE(service().bringBack(backup, documents), 1);
    QCOMPARE(takeProblems().size(), 1);
    QVERIFY(profiles().getProfileByID(P).isNull());
    QCOMPARE(profiles().getProfileName(Q), QString("Other"));
}

VELTRANO_TEST_MAIN(ProfileMgrBackupsTest)
#include "ProfileMgrBackupsTest.moc"
