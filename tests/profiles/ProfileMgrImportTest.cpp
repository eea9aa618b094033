#include "ProfilesTestCase.h"

#include <ProfileDocument.h>

using namespace TestIds;

/// Files with profiles that are there already, several files, and the review of what they hold.
class ProfileMgrImportTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void newProfileIsNotAskedAbout();
    void sameIdIsAskedAbout_data();
    void sameIdIsAskedAbout();
    void sameNameIsAskedAbout();
    void nameOnADeviceIsFree();
    void replacedProfileTellsWhatChanged();
    void replacedProfileKeepsRolesAndPlace();
    void replacedNameIsNotAnothers();
    void eachProfileIsAskedAboutOnce();
    void severalFilesAreOneStep();
    void badFileAmongGoodOnesIsTold();
    void reviewSeesAllAndChoosesBeforeAnythingChanges();
    void reviewThatDeclinesChangesNothing();
    void reviewIsNotAskedAboutNothing();
    void profileThatGoesMeanwhileIsAdded();
    void profileThatComesMeanwhileStays();
    void importIsUndone();

private:
    static void endTurn() { QCoreApplication::processEvents(); }
    void writeProfile(const QString& file, const QString& uid, const QString& name)
    {
        Profile written;
        written.properties = profile(uid, name);
        written.properties["script"] = "from the file";
        written.macros.push_back(macro(M2, "Run"));
        writeFile(path(file), ProfileDocument::write({written}, {}));
    }
    QString script(const QString& id) { return profiles().getProfileScript(id); }
};

void ProfileMgrImportTest::newProfileIsNotAskedAbout()
{
    writeProfile("in.xml", P, "Game");
    profiles().importProfile(path("in.xml"));
    QCOMPARE(mainUI().conflicts, QStringList());
    QCOMPARE(profiles().getProfileName(P), QString("Game"));
}

void ProfileMgrImportTest::sameIdIsAskedAbout_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("script");
    QTest::newRow("replace") << int(ConflictResolution::Replace) << QStringList({"Start", "New name"})
                             << "from the file";
    QTest::newRow("leave") << int(ConflictResolution::DoNothing) << QStringList({"Start", "Game"}) << "";
    QTest::newRow("keep both") << int(ConflictResolution::Duplicate)
                               << QStringList({"Start", "Game", "New name"}) << "";
}

void ProfileMgrImportTest::sameIdIsAskedAbout()
{
    QFETCH(int, answer);
    QFETCH(QStringList, names);
    QFETCH(QString, script);
    profiles().addProfile(profile(P, "Game"));
    endTurn();
    writeProfile("in.xml", P.toLower(), "New name");
    mainUI().answers = {ConflictResolution::ConflictResolution_t(answer)};
    profiles().importProfile(path("in.xml"));
    QCOMPARE(mainUI().conflicts,
        QStringList("This profile is on your computer already, as \"Game\". | New name, with one command, "
                    "from in.xml"));
    QStringList all;
    for (const QString& id : profiles().profileIDs())
        all.append(profiles().getProfileName(id));
    QCOMPARE(all, names);
    QCOMPARE(profiles().getProfileScript(P), script);
    QVERIFY(takeProblems().isEmpty());
}

void ProfileMgrImportTest::sameNameIsAskedAbout()
{
    profiles().addProfile(profile(P, "Game"));
    writeProfile("in.xml", Q, "Game");
    mainUI().answers = {ConflictResolution::Replace};
    profiles().importProfile(path("in.xml"));
    QCOMPARE(mainUI().conflicts.size(), 1);
    QVERIFY(mainUI().conflicts.first().startsWith("Your computer has another profile of the name \"Game\"."));
    QVERIFY(profiles().getProfileByID(Q).isNull());
    QCOMPARE(script(P), QString("from the file"));
    QCOMPARE(profiles().getProfileName(P), QString("Game"));
}

void ProfileMgrImportTest::nameOnADeviceIsFree()
{
    cJsonValue record = profile(P, "Game");
    record["deviceid"] = "device";
    profiles().addProfile(record);
    writeProfile("in.xml", Q, "Game");
    profiles().importProfile(path("in.xml"));
    QCOMPARE(mainUI().conflicts, QStringList());
    QCOMPARE(profiles().getProfileName(Q), QString("Game"));
}

void ProfileMgrImportTest::replacedProfileTellsWhatChanged()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    endTurn();
    events().take();
    writeProfile("in.xml", P, "Game");
    mainUI().answers = {ConflictResolution::Replace};
    profiles().importProfile(path("in.xml"));
    QCOMPARE(events().take(),
        QStringList({"macroDeleted " + P + ' ' + M1, "macroAdded " + P + ' ' + M2,
            QString("AssignmentRemoved %1 Mouse 0 G1 %2").arg(P, M1), "ProfilePropertyChanged " + P}));
}

void ProfileMgrImportTest::replacedProfileKeepsRolesAndPlace()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    profiles().setDefaultProfileByID(P);
    profiles().setPersistentProfileByID(P);
    writeProfile("in.xml", P, "Game");
    mainUI().answers = {ConflictResolution::Replace};
    profiles().importProfile(path("in.xml"));
    QCOMPARE(profiles().profileIDs(), QStringList({Default, P, Q}));
    QCOMPARE(profiles().getDefaultProfileID(), P);
    QCOMPARE(profiles().getPersistentProfileID(), P);
}

void ProfileMgrImportTest::replacedNameIsNotAnothers()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addProfile(profile(Q, "Other"));
    writeProfile("in.xml", P, "Other");
    mainUI().answers = {ConflictResolution::Replace};
    profiles().importProfile(path("in.xml"));
    QCOMPARE(profiles().getProfileName(P), QString("Other (2)"));
    QCOMPARE(profiles().getProfileName(Q), QString("Other"));
}

void ProfileMgrImportTest::eachProfileIsAskedAboutOnce()
{
    profiles().addProfile(profile(P, "Game"));
    writeProfile("a.xml", P, "Game");
    writeProfile("b.xml", P, "Game");
    mainUI().answers = {ConflictResolution::Replace};
    service().importProfiles({path("a.xml"), path("b.xml")});
    QCOMPARE(mainUI().conflicts.size(), 1);
    QCOMPARE(profiles().profileIDs().size(), 3);
    QVERIFY(!profiles().getProfileByName("Game (2)").isNull());
}

void ProfileMgrImportTest::severalFilesAreOneStep()
{
    writeProfile("a.xml", P, "One");
    writeProfile("b.xml", Q, "Two");
    service().importProfiles({path("a.xml"), path("b.xml")});
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + P, "ProfileAdded " + Q}));
    QCOMPARE(service().history().undoName(), QString("Import 2 Profiles"));
    endTurn();
    service().undo();
    QCOMPARE(profiles().profileIDs(), QStringList(Default));
    service().importProfiles({});
    QVERIFY(service().history().canRedo());
}

void ProfileMgrImportTest::badFileAmongGoodOnesIsTold()
{
    writeProfile("a.xml", P, "One");
    writeFile(path("bad.xml"), "bad");
    service().importProfiles({path("bad.xml"), path("a.xml"), path("missing.xml")});
    QCOMPARE(takeProblems().size(), 2);
    QCOMPARE(profiles().getProfileName(P), QString("One"));
}

void ProfileMgrImportTest::reviewSeesAllAndChoosesBeforeAnythingChanges()
{
    writeProfile("a.xml", P, "One");
    writeProfile("b.xml", Q, "Two");
    writeFile(path("bad.xml"), "bad");
    service().setImportReview([this](std::vector<cProfileMgrService::ImportFile>& files) {
        if (files.size() != 3 || files[0].profiles.size() != 1 || files[2].problem.isEmpty()
            || profiles().profileIDs() != QStringList(Default))
            return false;
        files[0].profiles.clear();
        return true;
    });
    service().importProfiles({path("a.xml"), path("b.xml"), path("bad.xml")});
    takeProblems();
    QCOMPARE(profiles().profileIDs(), QStringList({Default, Q}));
}

void ProfileMgrImportTest::reviewThatDeclinesChangesNothing()
{
    profiles().addProfile(profile(P, "Game"));
    QVERIFY(profiles().saveAllProfiles());
    endTurn();
    const QByteArray before = snapshot();
    events().take();
    writeProfile("a.xml", P, "One");
    service().setImportReview([](std::vector<cProfileMgrService::ImportFile>&) { return false; });
    profiles().importProfile(path("a.xml"));
    QCOMPARE(mainUI().conflicts, QStringList());
    QCOMPARE(events().take(), QStringList());
    QVERIFY(profiles().saveAllProfiles());
    QCOMPARE(snapshot(), before);
}

void ProfileMgrImportTest::reviewIsNotAskedAboutNothing()
{
    bool isAsked = false;
    service().setImportReview([&](std::vector<cProfileMgrService::ImportFile>&) { return isAsked = true; });
    writeFile(path("bad.xml"), "bad");
    profiles().importProfile(path("bad.xml"));
    QVERIFY(!isAsked);
    QCOMPARE(takeProblems().size(), 1);
}

void ProfileMgrImportTest::profileThatGoesMeanwhileIsAdded()
{
    profiles().addProfile(profile(P, "Game"));
    writeProfile("in.xml", P, "Game");
    mainUI().answers = {ConflictResolution::Replace};
    mainUI().whileAsked = [this] {
        profiles().deleteProfileByID(P);
    };
    profiles().importProfile(path("in.xml"));
    QCOMPARE(script(P), QString("from the file"));
}

void ProfileMgrImportTest::profileThatComesMeanwhileStays()
{
    profiles().addProfile(profile(P, "Game"));
    writeProfile("a.xml", P, "Game");
    writeProfile("b.xml", Q, "Other");
    mainUI().whileAsked = [this] {
        profiles().addProfile(profile(Q, "Other"));
    };
    service().importProfiles({path("b.xml"), path("a.xml")});
    QCOMPARE(script(Q), QString());
    QCOMPARE(profiles().profileIDs().size(), 5);
    QVERIFY(!profiles().getProfileByName("Other (2)").isNull());
}

void ProfileMgrImportTest::importIsUndone()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    QVERIFY(profiles().saveAllProfiles());
    endTurn();
    const QByteArray before = snapshot();
    writeProfile("in.xml", P, "Game");
    mainUI().answers = {ConflictResolution::Replace};
    profiles().importProfile(path("in.xml"));
    endTurn();
    QCOMPARE(service().history().undoName(), QString("Import Profile Game"));
    service().undo();
    QVERIFY(profiles().saveAllProfiles());
    QCOMPARE(snapshot(), before);
}

VELTRANO_TEST_MAIN(ProfileMgrImportTest)
#include "ProfileMgrImportTest.moc"
