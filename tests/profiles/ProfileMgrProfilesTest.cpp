#include "ProfilesTestCase.h"

#include <IProfilePrinter.h>

#include <QDomDocument>

using namespace TestIds;

namespace {

class FakePrinter : public IProfilePrinter
{
public:
    void print(const Profile& profile, const QString& deviceCategory, const QStringList& keys) override
    {
        printed.append(QStringLiteral("%1 %2 %3").arg(profile.name(), deviceCategory, keys.join(',')));
    }

    QStringList printed;
};

} // namespace

/// Profiles as a whole: adding, copying, editing, deleting, finding.
class ProfileMgrProfilesTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void addedProfileIsKnownWhenItsEventComes();
    void recordComesBackWithCommandsAndAssignments();
    void recordWithoutAnIdGetsOne();
    void recordWithAUsedIdIsRefused();
    void recordOfAWrongShapeIsRefused_data();
    void recordOfAWrongShapeIsRefused();
    void innerPartsOfAWrongShapeAreLeftOut();
    void listLeavesOutCommandsAndAssignments();
    void gameBecomesAProfile();
    void gameOfATakenNameGetsAnother();
    void elementThatIsNoProfileIsRefused();
    void deletedProfileIsGoneWhenItsEventComes();
    void builtInProfileStays();
    void copyHasAllButIdAndName();
    void copiesNeverShareAName();
    void copyOfADeviceProfileIsLocal();
    void copyToADeviceIsBoundToIt();
    void editChangesPropertiesAlone();
    void editKeepsWhatTheRecordDoesNotHave();
    void editOfTheBuiltInProfileIsRefused();
    void editWithoutAChangeIsSilent();
    void idInAnotherSpellingIsTheSame();
    void profileIsFoundByNameAndTarget();
    void scriptIsKept();
    void iconIsKeptAndTakenBack();
    void pointerPropertiesAreKept();
    void profilesOnADeviceAreListed();
    void printerGetsProfileCategoryAndKeys();
};

void ProfileMgrProfilesTest::addedProfileIsKnownWhenItsEventComes()
{
    QString name;
    events().onEvent = [&](const QString&) {
        name = profiles().getProfileName(P);
    };
    QVERIFY(profiles().addProfile(profile(P, "Game")));
    QCOMPARE(name, QStringLiteral("Game"));
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + P}));
    QCOMPARE(profiles().profileIDs(), QStringList({Default, P}));
}

void ProfileMgrProfilesTest::recordComesBackWithCommandsAndAssignments()
{
    cJsonValue record = profile(P, "Game");
    record["macros"].append(macro(M1, "Jump"));
    cJsonValue assignment;
    assignment["macrouid"] = M1;
    assignment["contextid"] = "G1";
    assignment["shiftstate"] = "M2";
    record["assignments"][Mouse].append(assignment);
    record["assignments"]["Keyboard"] = cJsonValue(cJsonValue::arrayValue);
    QVERIFY(profiles().addProfile(record));
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + P}));
    QVERIFY(profiles().getProfileByID(P) == record);
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M2, "G1"), M1);
    QVERIFY(profiles().containsDevCategory(P, "Keyboard"));
}

void ProfileMgrProfilesTest::recordWithoutAnIdGetsOne()
{
    cJsonValue record;
    record["name"] = "Copied from a profile that is gone";
    QVERIFY(profiles().addProfile(record));
    QCOMPARE(profiles().profileIDs().size(), 2);
    const QString id = profiles().profileIDs().last();
    QVERIFY(!QUuid(id).isNull());
    QCOMPARE(id, id.toUpper());
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + id}));
    restart();
    QCOMPARE(profiles().getProfileByID(id)["name"].toString(), record["name"].toString());
}

void ProfileMgrProfilesTest::recordWithAUsedIdIsRefused()
{
    profiles().addProfile(profile(P, "Game"));
    events().take();
    QVERIFY(!profiles().addProfile(profile(P.toLower(), "Other")));
    QVERIFY(!profiles().addProfile(profile(Default, "Other")));
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(profiles().getProfileName(P), QStringLiteral("Game"));
}

void ProfileMgrProfilesTest::recordOfAWrongShapeIsRefused_data()
{
    QTest::addColumn<cJsonValue>("record");
    QTest::newRow("null") << cJsonValue();
    QTest::newRow("text") << cJsonValue("text");
    QTest::newRow("number") << cJsonValue(7);
    QTest::newRow("array") << cJsonValue(cJsonValue::arrayValue);
    QTest::newRow("id that no document can hold") << profile(QStringLiteral("{\x01}"), "Game");
}

void ProfileMgrProfilesTest::recordOfAWrongShapeIsRefused()
{
    QFETCH(cJsonValue, record);
    QVERIFY(!profiles().addProfile(record));
    QVERIFY(!profiles().editProfileProperty(record));
    QVERIFY(!profiles().addMacro(Default, record));
    QVERIFY(!profiles().editMacro(Default, record));
    QVERIFY(!profiles().deleteMacro(Default, record));
    QVERIFY(!profiles().canMacroBeChangedTo(Default, "{D}", record));
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(profiles().profileIDs(), QStringList({Default}));
    QCOMPARE(profiles().macros(Default).size(), 1u);
}

void ProfileMgrProfilesTest::innerPartsOfAWrongShapeAreLeftOut()
{
    cJsonValue record = profile(P, "Game");
    record["macros"].append(cJsonValue("text"));
    record["macros"].append(macro(M1, "Jump"));
    record["macros"].append(macro(M1.toLower(), "Same id"));
    record["macros"].append(macro(QString(), "No id"));
    record["assignments"][Mouse] = "text";
    cJsonValue assignment;
    assignment["macrouid"] = M1;
    assignment["contextid"] = "G1";
    assignment["shiftstate"] = "M9";
    record["assignments"]["Keyboard"].append(assignment);
    QVERIFY(profiles().addProfile(record));
    const cJsonValue macros = profiles().macros(P);
    QCOMPARE(macros.size(), 3u);
    QSet<QString> ids;
    for (unsigned i = 0; i < macros.size(); ++i)
        ids.insert(macros[int(i)]["uid"].toString().toUpper());
    QCOMPARE(ids.size(), 3);
    QVERIFY(!ids.contains(QString()));
    QCOMPARE(profiles().getAssignment(P, "Keyboard", MKey::M1, "G1"), QString());
    const cJsonValue before = profiles().getProfileByID(P);
    restart();
    QVERIFY(profiles().getProfileByID(P) == before);
}

void ProfileMgrProfilesTest::listLeavesOutCommandsAndAssignments()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    const cJsonValue records = profiles().profiles();
    QVERIFY(records.isArray());
    QCOMPARE(records.size(), 2u);
    QVERIFY(records[1] == profile(P, "Game"));
}

void ProfileMgrProfilesTest::gameBecomesAProfile()
{
    QDomDocument database;
    QVERIFY(database.setContent(
        QByteArray("<profiles><profile name=\"Game\" later=\"1\">"
                   "<signature key=\"k\" value=\"v\" executable=\"e\" name=\"Gold\"/>"
                   "<macros><macro uid=\"{2}\" name=\"Jump\" namespace=\"urn:button\"><data><fake "
                   "function=\"Jump\"/></data></macro></macros>"
                   "<assignments category=\"Mouse\"><assignment macrouid=\"{2}\" contextid=\"G1\" "
                   "shiftstate=\"M1\"/></assignments></profile></profiles>")));
    const QDomElement element = database.documentElement().firstChildElement();
    QVERIFY(profiles().addProfile(element, "Game (Gold)", "/games/gold"));
    const cJsonValue record = profiles().getProfileByName("Game (Gold)");
    const QString id = record["uid"].toString();
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + id}));
    QCOMPARE(record["target"].toString(), QStringLiteral("/games/gold"));
    QCOMPARE(record["signatures"][0]["executable"].toString(), QStringLiteral("e"));
    QCOMPARE(record["macros"][0]["data"]["function"].toString(), QStringLiteral("Jump"));
    QCOMPARE(profiles().getAssignment(id, Mouse, MKey::M1, "G1"), QStringLiteral("{2}"));
    restart();
    QVERIFY(profiles().getProfileByID(id) == record);
}

void ProfileMgrProfilesTest::gameOfATakenNameGetsAnother()
{
    QDomDocument database;
    QVERIFY(database.setContent(QByteArray("<profile uid=\"{1}\" name=\"Game\"/>")));
    QVERIFY(profiles().addProfile(database.documentElement(), "Game", ""));
    QVERIFY(profiles().addProfile(database.documentElement(), "Game", ""));
    QVERIFY(!profiles().getProfileByName("Game (2)").isNull());
    QCOMPARE(profiles().profileIDs().size(), 3);
}

void ProfileMgrProfilesTest::elementThatIsNoProfileIsRefused()
{
    QDomDocument document;
    QVERIFY(document.setContent(QByteArray("<other/>")));
    QVERIFY(!profiles().addProfile(document.documentElement(), "Game", "/game"));
    QVERIFY(!profiles().addProfile(QDomElement(), "Game", "/game"));
    QVERIFY(document.setContent(QByteArray("<profile/>")));
    QVERIFY(!profiles().addProfile(document.documentElement(), "", "/game"));
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrProfilesTest::deletedProfileIsGoneWhenItsEventComes()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    events().take();
    bool isThere = true;
    events().onEvent = [&](const QString&) {
        isThere = !profiles().getProfileByID(P).isNull();
    };
    QVERIFY(profiles().deleteProfileByID(P.toLower()));
    QVERIFY(!isThere);
    QCOMPARE(events().take(), QStringList({"ProfileDeleted " + P}));
    QVERIFY(!profiles().deleteProfileByID(P));
}

void ProfileMgrProfilesTest::builtInProfileStays()
{
    QVERIFY(!profiles().deleteProfileByID(Default));
    QVERIFY(!profiles().deleteProfileByID(Default.toLower()));
    QVERIFY(profiles().isDefaultConfiguration(Default.toLower()));
    profiles().addProfile(profile(P, "Game"));
    QVERIFY(!profiles().isDefaultConfiguration(P));
    QCOMPARE(profiles().profileIDs(), QStringList({Default, P}));
}

void ProfileMgrProfilesTest::copyHasAllButIdAndName()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    QPixmap icon(2, 2);
    icon.fill(Qt::green);
    profiles().setProfileIcon(P, icon);
    events().take();
    profiles().copyProfile(P);
    const QString copy = profiles().profileIDs().last();
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + copy}));
    QVERIFY(copy != P);
    QCOMPARE(copy, copy.toUpper());
    cJsonValue expected = profiles().getProfileByID(P);
    expected["uid"] = copy;
    expected["name"] = "Game (2)";
    QVERIFY(profiles().getProfileByID(copy) == expected);
    QVERIFY(profiles().hasCustomIcon(copy));
    // They are two: a change of one is none of the other.
    profiles().removeAssignment(copy, Mouse, MKey::M1, "G1");
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M1, "G1"), M1);
}

void ProfileMgrProfilesTest::copiesNeverShareAName()
{
    profiles().addProfile(profile(P, "Game"));
    for (int i = 0; i < 4; ++i)
        profiles().copyProfile(P);
    profiles().copyProfile(profiles().profileIDs().last());
    QSet<QString> names;
    for (const QString& id : profiles().profileIDs())
        names.insert(profiles().getProfileName(id));
    QCOMPARE(names.size(), 7);
}

void ProfileMgrProfilesTest::copyOfADeviceProfileIsLocal()
{
    cJsonValue record = profile(P, "Game");
    record["deviceid"] = "device";
    profiles().addProfile(record);
    profiles().copyProfile(P);
    const QString copy = profiles().profileIDs().last();
    QCOMPARE(profiles().getProfileDeviceId(copy), QString());
    // A local profile and one on a device may share a name.
    QCOMPARE(profiles().getProfileName(copy), QStringLiteral("Game"));
}

void ProfileMgrProfilesTest::copyToADeviceIsBoundToIt()
{
    profiles().addProfile(profile(P, "Game"));
    events().take();
    profiles().copyProfileToDevice(P, "device", "My Device");
    const QString copy = profiles().profileIDs().last();
    QCOMPARE(events().take(), QStringList({"ProfileAdded " + copy}));
    QCOMPARE(profiles().getProfileDeviceId(copy), QStringLiteral("device"));
    QVERIFY(profiles().isProfileToGoDirty(copy));
    QVERIFY(!profiles().isProfileToGoDirty(P));
    profiles().copyProfileToDevice(P, "", "");
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrProfilesTest::editChangesPropertiesAlone()
{
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    events().take();
    cJsonValue record = profiles().getProfileByID(P);
    record["name"] = "Renamed";
    record["target"] = "/game";
    record["macros"] = cJsonValue(cJsonValue::arrayValue);
    QVERIFY(profiles().editProfileProperty(record));
    QCOMPARE(events().take(), QStringList({"ProfilePropertyChanged " + P}));
    QCOMPARE(profiles().getProfileName(P), QStringLiteral("Renamed"));
    QCOMPARE(profiles().macros(P).size(), 1u);
}

void ProfileMgrProfilesTest::editKeepsWhatTheRecordDoesNotHave()
{
    cJsonValue record = profile(P, "Game");
    record["script"] = "text";
    record["deviceid"] = "device";
    profiles().addProfile(record);
    QVERIFY(profiles().editProfileProperty(profile(P, "Renamed")));
    record["name"] = "Renamed";
    QVERIFY(profiles().getProfileByID(P) == record);
}

void ProfileMgrProfilesTest::editOfTheBuiltInProfileIsRefused()
{
    QVERIFY(!profiles().editProfileProperty(profile(Default, "Renamed")));
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrProfilesTest::editWithoutAChangeIsSilent()
{
    profiles().addProfile(profile(P, "Game"));
    events().take();
    QVERIFY(!profiles().editProfileProperty(profiles().getProfileByID(P)));
    QVERIFY(!profiles().setProfileScript(P, ""));
    profiles().setProfileIcon(P, QPixmap());
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrProfilesTest::idInAnotherSpellingIsTheSame()
{
    const QString small = P.toLower();
    profiles().addProfile(profile(P, "Game"));
    profiles().setDefaultProfileByID(small);
    QVERIFY(profiles().editProfileProperty(profile(small, "Renamed")));
    QVERIFY(profiles().addMacro(small, macro(M1, "Jump")));
    profiles().setAssignment(small, Mouse, M1.toLower(), MKey::M1, "G1");
    QVERIFY(profiles().editMacro(small, macro(M1.toLower(), "Duck")));
    // All events have the first spelling.
    QCOMPARE(events().take(),
        QStringList({"ProfileAdded " + P, "ProfilePropertyChanged " + Default, "ProfilePropertyChanged " + P,
            "CurrentProfileSwitched " + P, "ProfilePropertyChanged " + P, "macroAdded " + P + " " + M1,
            "MacroAssigned " + P + " Mouse " + M1 + " 0 G1", "macroChanged " + P + " " + M1}));
    QCOMPARE(profiles().profileIDs(), QStringList({Default, P}));
    QVERIFY(profiles().deleteProfileByID(small));
    QCOMPARE(profiles().getDefaultProfileID(), Default);
}

void ProfileMgrProfilesTest::profileIsFoundByNameAndTarget()
{
    writeFile(path("game"), "");
    cJsonValue record = profile(P, "Game");
    record["target"] = path("game");
    profiles().addProfile(record);
    QCOMPARE(profiles().getProfileByName("Game")["uid"].toString(), P);
    QVERIFY(profiles().getProfileByName("game").isNull());
    QCOMPARE(profiles().getProfileByTarget(path("./game"))["uid"].toString(), P);
    QVERIFY(profiles().getProfileByTarget(path("other")).isNull());
    // Profiles without a target are not those of no program.
    QVERIFY(profiles().getProfileByTarget("").isNull());
}

void ProfileMgrProfilesTest::scriptIsKept()
{
    QVERIFY(profiles().setProfileScript(Default, "print(1)"));
    QCOMPARE(events().take(), QStringList({"ProfilePropertyChanged " + Default}));
    QCOMPARE(profiles().getProfileScript(Default), QStringLiteral("print(1)"));
}

void ProfileMgrProfilesTest::iconIsKeptAndTakenBack()
{
    QVERIFY(!profiles().hasCustomIcon(Default));
    QVERIFY(profiles().profileIcon(Default).isNull());
    QPixmap icon(48, 48);
    icon.fill(QColor(10, 20, 30, 128));
    profiles().setProfileIcon(Default, icon);
    QCOMPARE(events().take(), QStringList({"ProfilePropertyChanged " + Default}));
    QVERIFY(profiles().hasCustomIcon(Default));
    QCOMPARE(profiles().profileIcon(Default).toImage().pixelColor(1, 1), icon.toImage().pixelColor(1, 1));
    profiles().setProfileIcon(Default, QPixmap());
    QCOMPARE(events().take(), QStringList({"ProfilePropertyChanged " + Default}));
    QVERIFY(!profiles().hasCustomIcon(Default));
}

void ProfileMgrProfilesTest::pointerPropertiesAreKept()
{
    cDpiSettings dpi;
    int speed = 99;
    bool acceleration = true;
    int reportRate = 99;
    QVERIFY(!profiles().pointerDpi(Default, "m", dpi));
    QVERIFY(!profiles().pointerMovement(Default, "m", speed, acceleration));
    QVERIFY(!profiles().pointerReportRate(Default, "m", reportRate));
    QCOMPARE(speed, 99);
    QCOMPARE(reportRate, 99);

    cDpiSettings stored;
    stored.levels = {{400, 400}, {1600, 1600}};
    stored.defaultLevel = 1;
    profiles().setPointerDpi(Default, "m", stored);
    profiles().setPointerMovement(Default, "m", 1000, false);
    profiles().setPointerReportRate(Default, "m", -5);
    profiles().setPointerReportRate(Default, "m", 1000);
    QCOMPARE(events().take().size(), 3);
    QVERIFY(profiles().pointerDpi(Default, "m", dpi));
    QVERIFY(dpi == stored);
    QVERIFY(profiles().pointerMovement(Default, "m", speed, acceleration));
    QCOMPARE(speed, 20);
    QVERIFY(!acceleration);
    QVERIFY(profiles().pointerReportRate(Default, "m", reportRate));
    QCOMPARE(reportRate, 1000);
    QVERIFY(!profiles().pointerReportRate(Default, "other model", reportRate));
}

void ProfileMgrProfilesTest::profilesOnADeviceAreListed()
{
    cJsonValue record = profile(P, "Game");
    record["deviceid"] = "device";
    profiles().addProfile(record);
    profiles().addProfile(profile(Q, "Local"));
    const cJsonValue records = profiles().getProfilesToGo("device");
    QCOMPARE(records.size(), 1u);
    QCOMPARE(records[0]["uid"].toString(), P);
    QCOMPARE(profiles().getProfilesToGo("").size(), 0u);
    QVERIFY(profiles().getProfilesToGoXML("device", true, {Q}).contains("Local"));
    QVERIFY(!profiles().getProfilesToGoXML("device", false, {}).contains("Local"));
    QVERIFY(profiles().getProfilesToGoXML("device", false, {}).contains("Game"));
    QVERIFY(!profiles().getProfilesToGoXML("", false, {}).contains("Game"));
}

void ProfileMgrProfilesTest::printerGetsProfileCategoryAndKeys()
{
    // Without a printer nothing happens.
    profiles().printProfile(Default, Mouse, {"G1"});
    FakePrinter printer;
    service().setPrinter(&printer);
    profiles().printProfile(Default.toLower(), Mouse, {"G1", "G2"});
    profiles().printProfile(Unknown, Mouse, {});
    service().setPrinter(nullptr);
    QCOMPARE(printer.printed, QStringList({"Start Mouse G1,G2"}));
}

VELTRANO_TEST_MAIN(ProfileMgrProfilesTest)
#include "ProfileMgrProfilesTest.moc"
