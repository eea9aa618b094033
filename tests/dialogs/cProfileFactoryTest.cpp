#include <cProfileFactory.h>
#include <FixedIds.h>
#include <RecordingHost.h>
#include <TestCase.h>

namespace {

const QUuid Id1(QStringLiteral("{aaaaaaaa-0000-0000-0000-000000000001}"));
const QUuid Id2(QStringLiteral("{aaaaaaaa-0000-0000-0000-000000000002}"));
const QString NoProfile = QStringLiteral("You must add a profile before you can add anything else.");
const QString NoCategory =
    QStringLiteral("You must add an assignment category before you can add assignments");
const QString NothingBuilt = QStringLiteral("Factory does not contain any profiles");

} // namespace

class cProfileFactoryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void profileHasItsKeysAndAnIdInCapitals();
    void finishProfileWithoutOneDoesNothing();
    void buildWithoutProfileGivesNull();
    void secondMacroFilesTheFirst();
    void macroIdKeepsItsCase();
    void openAssignmentIsFiledUnderItsOwnCategory();
    void secondAssignmentFilesTheFirst();
    void finishedPieceIsClosed_data();
    void finishedPieceIsClosed();
    void missingProfileIsReportedBeforeMissingCategory();
    void assignmentNeedsACategory();
    void finishCategoryNeedsNone();
    void shiftStateIsAskedFromTheHost();
    void repeatHasItsMode_data();
    void repeatHasItsMode();
    void repeatReachesFiledMacrosOnly();
    void repeatOfAnUnknownModeChangesNothing();
    void signaturesAreFiled();
    void profileAfterBuildJoinsTheSameArray();
    void secondProfileFilesTheFirst();
    void settersStartTheirPiece();
};

void cProfileFactoryTest::profileHasItsKeysAndAnIdInCapitals()
{
    cProfileFactory factory;
    factory.addProfile("Game", "About it", Id1, "/games/game.exe");
    const cJsonValue result = factory.build();
    QCOMPARE(result.size(), 1u);
    const cJsonValue& profile = result[0];
    QCOMPARE(profile["name"].toString(), QString("Game"));
    QCOMPARE(profile["description"].toString(), QString("About it"));
    QCOMPARE(profile["uid"].toString(), Id1.toString().toUpper());
    QCOMPARE(profile["target"].toString(), QString("/games/game.exe"));
    QVERIFY(!profile.contains("macros"));
    QVERIFY(!profile.contains("assignments"));
    QVERIFY(!profile.contains("signatures"));
}

void cProfileFactoryTest::finishProfileWithoutOneDoesNothing()
{
    cProfileFactory factory;
    factory.finishProfile();
    const ExpectedMessage message(QtCriticalMsg, NothingBuilt);
    QVERIFY(factory.build().isNull());
}

void cProfileFactoryTest::buildWithoutProfileGivesNull()
{
    cProfileFactory factory;
    const ExpectedMessage message(QtCriticalMsg, NothingBuilt);
    QCOMPARE(&factory.build(), &cJsonValue::null());
}

void cProfileFactoryTest::secondMacroFilesTheFirst()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.addMacro("first", Id1, cJsonValue("data"), "ns");
    factory.addMacro("second", Id2, cJsonValue(), "ns");
    factory.finishMacro();
    const cJsonValue macros = factory.build()[0]["macros"];
    QCOMPARE(macros.size(), 2u);
    QCOMPARE(macros[0]["name"].toString(), QString("first"));
    QCOMPARE(macros[0]["data"].toString(), QString("data"));
    QCOMPARE(macros[0]["namespace"].toString(), QString("ns"));
    QCOMPARE(macros[1]["name"].toString(), QString("second"));
}

void cProfileFactoryTest::macroIdKeepsItsCase()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.addMacro("m", Id1, cJsonValue(), "ns");
    QCOMPARE(factory.build()[0]["macros"][0]["uid"].toString(), Id1.toString());
}

void cProfileFactoryTest::openAssignmentIsFiledUnderItsOwnCategory()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.setAssignmentCategory("mouse");
    factory.addAssignment(Id1, "G1", "M1");
    factory.setAssignmentCategory("keyboard");
    factory.addAssignment(Id2, "G2", "M2");
    const cJsonValue assignments = factory.build()[0]["assignments"];
    QCOMPARE(assignments["mouse"].size(), 1u);
    QCOMPARE(assignments["mouse"][0]["macrouid"].toString(), Id1.toString());
    QCOMPARE(assignments["mouse"][0]["contextid"].toString(), QString("G1"));
    QCOMPARE(assignments["mouse"][0]["shiftstate"].toString(), QString("M1"));
    QCOMPARE(assignments["keyboard"].size(), 1u);
    QCOMPARE(assignments["keyboard"][0]["contextid"].toString(), QString("G2"));
}

void cProfileFactoryTest::secondAssignmentFilesTheFirst()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.setAssignmentCategory("mouse");
    factory.addAssignment(Id1, "G1", "M1");
    factory.addAssignment(Id2, "G2", "M2");
    const cJsonValue assignments = factory.build()[0]["assignments"]["mouse"];
    QCOMPARE(assignments.size(), 2u);
    QCOMPARE(assignments[0]["contextid"].toString(), QString("G1"));
    QCOMPARE(assignments[1]["contextid"].toString(), QString("G2"));
}

void cProfileFactoryTest::finishedPieceIsClosed_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("macros");
    QTest::addColumn<int>("assignments");
    QTest::addColumn<int>("signatures");
    QTest::newRow("none") << "" << 1 << 1 << 1;
    QTest::newRow("macro") << "macro" << 2 << 1 << 1;
    QTest::newRow("assignment") << "assignment" << 1 << 2 << 1;
    QTest::newRow("category") << "category" << 1 << 2 << 1;
    QTest::newRow("signature") << "signature" << 1 << 1 << 2;
}

void cProfileFactoryTest::finishedPieceIsClosed()
{
    QFETCH(QString, operation);
    QFETCH(int, macros);
    QFETCH(int, assignments);
    QFETCH(int, signatures);
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.addMacro("m", Id1, cJsonValue(), "ns");
    factory.setAssignmentCategory("mouse");
    factory.addAssignment(Id1, "G1", "M1");
    factory.addSignature("k", "v", "e", "n");
    if (operation == "macro")
        factory.finishMacro();
    else if (operation == "assignment")
        factory.finishAssignment();
    else if (operation == "category")
        factory.finishCategory();
    else if (operation == "signature")
        factory.finishSignature();
    // A setter changes the piece that is open, or starts the next one.
    factory.setMacroName("later");
    factory.setAssignmentContextId("later");
    factory.setSignatureKey("later");
    const cJsonValue profile = factory.build()[0];
    QCOMPARE(int(profile["macros"].size()), macros);
    QCOMPARE(int(profile["assignments"]["mouse"].size()), assignments);
    QCOMPARE(int(profile["signatures"].size()), signatures);
    QCOMPARE(profile["macros"][macros - 1]["name"].toString(), QString("later"));
    QCOMPARE(profile["assignments"]["mouse"][assignments - 1]["contextid"].toString(), QString("later"));
    QCOMPARE(profile["signatures"][signatures - 1]["key"].toString(), QString("later"));
}

void cProfileFactoryTest::missingProfileIsReportedBeforeMissingCategory()
{
    cProfileFactory factory;
    const auto reports = [](auto&& call) {
        const ExpectedMessage message(QtCriticalMsg, NoProfile);
        call();
        return message.hasCome();
    };
    QVERIFY(reports([&] { factory.finishAssignment(); }));
    QVERIFY(reports([&] { factory.addAssignment(Id1, "G1", "M1"); }));
    QVERIFY(reports([&] { factory.addMacro("m", Id1, cJsonValue(), "ns"); }));
    QVERIFY(reports([&] { factory.finishMacro(); }));
    QVERIFY(reports([&] { factory.setAssignmentCategory("mouse"); }));
    QVERIFY(reports([&] { factory.finishCategory(); }));
    QVERIFY(reports([&] { factory.addSignature("k", "v", "e", "n"); }));
    QVERIFY(reports([&] { factory.finishSignature(); }));
}

void cProfileFactoryTest::assignmentNeedsACategory()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    {
        const ExpectedMessage message(QtCriticalMsg, NoCategory);
        factory.addAssignment(Id1, "G1", "M1");
    }
    {
        const ExpectedMessage message(QtCriticalMsg, NoCategory);
        factory.finishAssignment();
    }
    QVERIFY(!factory.build()[0].contains("assignments"));
}

void cProfileFactoryTest::finishCategoryNeedsNone()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.setAssignmentContextId("G1");
    factory.finishCategory();
    QCOMPARE(factory.build()[0]["assignments"][""][0]["contextid"].toString(), QString("G1"));
}

void cProfileFactoryTest::shiftStateIsAskedFromTheHost()
{
    RecordingHost host;
    host.answer("mKeyToString", "M3");
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.setAssignmentCategory("mouse");
    factory.setAssignmentShiftState(MKey::M3);
    factory.setAssignmentMacroUid(Id2);
    QCOMPARE(host.takeCalls(), QStringList({"mKeyToString(2)"}));
    const cJsonValue assignment = factory.build()[0]["assignments"]["mouse"][0];
    QCOMPARE(assignment["shiftstate"].toString(), QString("M3"));
    QCOMPARE(assignment["macrouid"].toString(), Id2.toString());
}

void cProfileFactoryTest::repeatHasItsMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << "none";
    QTest::newRow("while pressed") << 1 << "whilepressed";
    QTest::newRow("toggle") << 2 << "toggle";
}

void cProfileFactoryTest::repeatHasItsMode()
{
    QFETCH(int, mode);
    QFETCH(QString, text);
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.addMacro("m", Id1, cJsonValue(), "ns");
    factory.finishMacro();
    factory.setMacroRepeat(Id1, mode);
    const cJsonValue repeat = factory.build()[0]["macros"][0]["repeat"];
    QCOMPARE(repeat["mode"], cJsonValue(text));
    QCOMPARE(repeat["delay"], cJsonValue(30));
}

void cProfileFactoryTest::repeatReachesFiledMacrosOnly()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.addMacro("open", Id1, cJsonValue(), "ns");
    factory.setMacroRepeat(Id1, 1);
    factory.addMacro("twin", Id1, cJsonValue(), "ns");
    factory.addMacro("other", Id2, cJsonValue(), "ns");
    factory.finishMacro();
    factory.setMacroRepeat(Id1, 2);
    const cJsonValue macros = factory.build()[0]["macros"];
    for (int i : {0, 1}) {
        QCOMPARE(macros[i]["repeat"]["mode"].toString(), QString("toggle"));
        QCOMPARE(macros[i]["repeat"]["delay"].toInt(), 30);
    }
    QVERIFY(!macros[2].contains("repeat"));
}

void cProfileFactoryTest::repeatOfAnUnknownModeChangesNothing()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.addMacro("m", Id1, cJsonValue(), "ns");
    factory.finishMacro();
    factory.setMacroRepeat(Id1, 3);
    factory.setMacroRepeat(Id1, -1);
    QVERIFY(!factory.build()[0]["macros"][0].contains("repeat"));
}

void cProfileFactoryTest::signaturesAreFiled()
{
    cProfileFactory factory;
    factory.addProfile("P", "", Id1, "");
    factory.addSignature("k1", "v1", "e1", "n1");
    factory.addSignature("k2", "v2", "e2", "n2");
    const cJsonValue signatures = factory.build()[0]["signatures"];
    QCOMPARE(signatures.size(), 2u);
    QCOMPARE(signatures[1]["key"].toString(), QString("k2"));
    QCOMPARE(signatures[1]["value"].toString(), QString("v2"));
    QCOMPARE(signatures[1]["executable"].toString(), QString("e2"));
    QCOMPARE(signatures[1]["name"].toString(), QString("n2"));
}

void cProfileFactoryTest::profileAfterBuildJoinsTheSameArray()
{
    cProfileFactory factory;
    factory.addProfile("first", "", Id1, "");
    factory.build();
    factory.addProfile("second", "", Id2, "");
    QCOMPARE(factory.build().size(), 2u);
}

void cProfileFactoryTest::secondProfileFilesTheFirst()
{
    cProfileFactory factory;
    factory.addProfile("first", "", Id1, "");
    factory.addMacro("m", Id1, cJsonValue(), "ns");
    factory.addProfile("second", "", Id2, "");
    const cJsonValue result = factory.build();
    QCOMPARE(result.size(), 2u);
    QCOMPARE(result[0]["macros"].size(), 1u);
    QVERIFY(!result[1].contains("macros"));
}

void cProfileFactoryTest::settersStartTheirPiece()
{
    cProfileFactory factory;
    factory.setScript("print()");
    factory.setMigration("1");
    factory.setMacroDisplayName("Shown");
    factory.setSignatureName("s");
    const cJsonValue profile = factory.build()[0];
    QCOMPARE(profile["script"].toString(), QString("print()"));
    QCOMPARE(profile["migration"].toString(), QString("1"));
    QCOMPARE(profile["macros"][0]["display_name"].toString(), QString("Shown"));
    QCOMPARE(profile["signatures"][0]["name"].toString(), QString("s"));
}

VELTRANO_TEST_MAIN(cProfileFactoryTest)
#include "cProfileFactoryTest.moc"
