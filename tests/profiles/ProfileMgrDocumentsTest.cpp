#include "ProfilesTestCase.h"

#include <QDir>
#include <QFileInfo>

using namespace TestIds;

/// Import and export.
class ProfileMgrDocumentsTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void exportedProfileIsImportedAsItWas();
    void importBesideTheOriginalGetsIdAndNameOfItsOwn();
    void severalProfilesInADocumentAreAllImported();
    void profileWithoutANameIsNamedAfterItsFile();
    void importComesToThisComputer();
    void unknownPartsGoThrough();
    void badFileIsToldAndChangesNothing_data();
    void badFileIsToldAndChangesNothing();
    void missingFileIsTold();
    void folderIsNoDocument();
    void exportToAnImpossiblePathIsTold();
    void exportKeepsTheOldFileWhenItFails();
    void exportOfAnUnknownProfileWritesNothing();
    void exportNeverReachesTheStoredDocuments();
};

void ProfileMgrDocumentsTest::exportedProfileIsImportedAsItWas()
{
    cJsonValue record = profile(P, "Game");
    record["script"] = "a\r\nb";
    profiles().addProfile(record);
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().addMacro(P, macro(M2, "Run", NoType));
    profiles().setAssignment(P, Mouse, M1, MKey::M2, "G1");
    QPixmap icon(3, 3);
    icon.fill(Qt::blue);
    profiles().setProfileIcon(P, icon);
    const cJsonValue before = profiles().getProfileByID(P);
    for (const QString& name : {QStringLiteral("game.lgp"), QStringLiteral("game.xml"),
             QString::fromUtf8("Späße & <co> ゲーム.xml")}) {
        profiles().exportProfile(P, path(name));
        QVERIFY(QFileInfo(path(name)).size() > 0);
        profiles().deleteProfileByID(P);
        events().take();
        profiles().importProfile(path(name));
        QCOMPARE(events().take(), QStringList({"ProfileAdded " + P}));
        QVERIFY(profiles().getProfileByID(P) == before);
        QCOMPARE(profiles().profileIcon(P).toImage().pixelColor(1, 1), QColor(Qt::blue));
    }
    QVERIFY(takeProblems().isEmpty());
}

void ProfileMgrDocumentsTest::importBesideTheOriginalGetsIdAndNameOfItsOwn()
{
    profiles().exportProfile(Default, path("default.lgp"));
    const cJsonValue before = profiles().getProfileByID(Default);
    profiles().importProfile(path("default.lgp"));
    profiles().importProfile(path("default.lgp"));
    QVERIFY(profiles().getProfileByID(Default) == before);
    const QStringList ids = profiles().profileIDs();
    QCOMPARE(ids.size(), 3);
    QCOMPARE(profiles().getProfileName(ids[1]), QStringLiteral("Start (2)"));
    QCOMPARE(profiles().getProfileName(ids[2]), QStringLiteral("Start (3)"));
    QVERIFY(!profiles().isDefaultConfiguration(ids[1]));
    QCOMPARE(profiles().macros(ids[2]).size(), 1u);
}

void ProfileMgrDocumentsTest::severalProfilesInADocumentAreAllImported()
{
    writeFile(path("several.xml"),
        "<profiles version=\"1\"><profile uid=\"{1}\" name=\"Same\"/><profile uid=\"{1}\" name=\"Same\"/>"
        "<profile name=\"Without id\"/></profiles>");
    profiles().importProfile(path("several.xml"));
    QCOMPARE(events().take().size(), 3);
    QCOMPARE(profiles().profileIDs().size(), 4);
    QVERIFY(!profiles().getProfileByName("Same").isNull());
    QVERIFY(!profiles().getProfileByName("Same (2)").isNull());
    QVERIFY(!profiles().getProfileByName("Without id").isNull());
}

void ProfileMgrDocumentsTest::profileWithoutANameIsNamedAfterItsFile()
{
    writeFile(path("My Game.xml"), "<profile/>");
    profiles().importProfile(path("My Game.xml"));
    QVERIFY(!profiles().getProfileByName("My Game").isNull());
}

void ProfileMgrDocumentsTest::importComesToThisComputer()
{
    writeFile(path("device.xml"), "<profile uid=\"{1}\" name=\"Game\" deviceid=\"elsewhere\"/>");
    profiles().importProfile(path("device.xml"));
    QCOMPARE(profiles().getProfileDeviceId("{1}"), QString());
}

void ProfileMgrDocumentsTest::unknownPartsGoThrough()
{
    const QByteArray later = "<later:thing a=\"1\">text<deeper/></later:thing>";
    const QByteArray data = "<of another=\"type\"/>";
    writeFile(path("in.xml"),
        "<profile uid=\"{1}\" name=\"Game\" later=\"7\"><macros><macro uid=\"{2}\" namespace=\"urn:other\">"
        "<data>"
            + data + "</data></macro></macros>" + later + "</profile>");
    profiles().importProfile(path("in.xml"));
    restart();
    profiles().setProfileScript("{1}", "changed");
    restart();
    profiles().exportProfile("{1}", path("out.xml"));
    const QByteArray out = readFile(path("out.xml"));
    QVERIFY(out.contains("later=\"7\""));
    QVERIFY(out.contains(later));
    QVERIFY(out.contains(data));
}

void ProfileMgrDocumentsTest::badFileIsToldAndChangesNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("another kind") << QByteArray("\x89PNG\r\n\x1a\n");
    QTest::newRow("another XML") << QByteArray("<html/>");
    QTest::newRow("no profiles") << QByteArray("<profiles version=\"1\"/>");
    QTest::newRow("cut off") << QByteArray(
        "<profiles version=\"1\"><profile uid=\"{1}\" name=\"A\"/><profile uid=\"{2}\" na");
    QTest::newRow("newer") << QByteArray("<profiles version=\"2\"><profile uid=\"{1}\"/></profiles>");
    QTest::newRow("100 MB") << QByteArray(100 * 1024 * 1024, ' ');
    QTest::newRow("entity bomb") << QByteArray(
        "<!DOCTYPE b [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]><profile name=\"&b;\"/>");
    QTest::newRow("deep") << "<profile><icon>" + QByteArray("<a>").repeated(1000000);
}

void ProfileMgrDocumentsTest::badFileIsToldAndChangesNothing()
{
    QFETCH(QByteArray, content);
    writeFile(path("bad.lgp"), content);
    QVERIFY(profiles().saveAllProfiles());
    const QByteArray before = snapshot();
    profiles().importProfile(path("bad.lgp"));
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY(problems.first().contains(QStringLiteral("bad.lgp was not imported: ")));
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(profiles().profileIDs(), QStringList({Default}));
    QVERIFY(profiles().saveAllProfiles());
    QCOMPARE(snapshot(), before);
    QCOMPARE(readFile(path("bad.lgp")), content);
}

void ProfileMgrDocumentsTest::missingFileIsTold()
{
    profiles().importProfile(path("none.lgp"));
    profiles().importProfile(QString());
    QCOMPARE(takeProblems().size(), 2);
}

void ProfileMgrDocumentsTest::folderIsNoDocument()
{
    profiles().importProfile(folder());
    QCOMPARE(takeProblems().size(), 1);
}

void ProfileMgrDocumentsTest::exportToAnImpossiblePathIsTold()
{
    for (const QString& place : {path("no such folder/game.lgp"), folder(), QString()}) {
        profiles().exportProfile(Default, place);
        const QStringList problems = takeProblems();
        QCOMPARE(problems.size(), 1);
        QVERIFY(problems.first().startsWith(QStringLiteral("Start was not exported")));
    }
}

void ProfileMgrDocumentsTest::exportKeepsTheOldFileWhenItFails()
{
    writeFile(path("file"), "old");
    // A file is no folder.
    profiles().exportProfile(Default, path("file/game.lgp"));
    QCOMPARE(takeProblems().size(), 1);
    QCOMPARE(readFile(path("file")), QByteArray("old"));
}

void ProfileMgrDocumentsTest::exportOfAnUnknownProfileWritesNothing()
{
    profiles().exportProfile(Unknown, path("none.lgp"));
    QVERIFY(!QFileInfo::exists(path("none.lgp")));
}

void ProfileMgrDocumentsTest::exportNeverReachesTheStoredDocuments()
{
    profiles().addProfile(profile(P, "Game"));
    QVERIFY(profiles().saveAllProfiles());
    const QByteArray before = snapshot();
    for (const QString& name : documents()) {
        profiles().exportProfile(P, folder() + QLatin1Char('/') + name);
        QCOMPARE(takeProblems().size(), 1);
    }
    profiles().exportProfile(P, folder() + QStringLiteral("/new.xml"));
    QCOMPARE(takeProblems().size(), 1);
    QCOMPARE(snapshot(), before);
}

VELTRANO_TEST_MAIN(ProfileMgrDocumentsTest)
#include "ProfileMgrDocumentsTest.moc"
