#include "ProfilesTestCase.h"

using namespace TestIds;

/// Commands on controls.
class ProfileMgrAssignmentsTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void assignmentIsStoredWhenItsEventComes();
    void anotherCommandFirstTakesTheOldOneOff();
    void sameCommandAgainIsSilent();
    void removalTellsWhatWasThere();
    void modesCategoriesAndControlsAreApart();
    void impossibleControlsAreIgnored_data();
    void impossibleControlsAreIgnored();
    void changeMadeWhileEventsGoOutComesBehindThem();
    void everyListenerHearsTheSameOrder();
    void commandIsAssignedIfOneOfTheControlsHasIt();
    void categoryIsKnownFromItsFirstAssignmentOn();
    void genericCommandIsMadeOnce();
    void genericCommandOfTheListIsNotTheHiddenOne();
    void emptyGenericCommandEmptiesTheControl_data();
    void emptyGenericCommandEmptiesTheControl();
    void commandHasToFitTheControl_data();
    void commandHasToFitTheControl();

private:
    QString removed(const QString& macroId, const QString& control = "Mouse 0 G1") const
    {
        return "AssignmentRemoved " + P + " " + control + " " + macroId;
    }
};

void ProfileMgrAssignmentsTest::init()
{
    ProfilesTestCase::init();
    profiles().addProfile(profile(P, "Game"));
    profiles().addMacro(P, macro(M1, "Jump"));
    profiles().addMacro(P, macro(M2, "Run", KeyType));
    events().take();
}

void ProfileMgrAssignmentsTest::assignmentIsStoredWhenItsEventComes()
{
    QString seen;
    events().onEvent = [&](const QString&) {
        seen = profiles().getAssignment(P, Mouse, MKey::M1, "G1");
    };
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    QCOMPARE(seen, M1);
    QCOMPARE(events().take(), QStringList({"MacroAssigned " + P + " Mouse " + M1 + " 0 G1"}));
}

void ProfileMgrAssignmentsTest::anotherCommandFirstTakesTheOldOneOff()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    events().take();
    QStringList seen;
    events().onEvent = [&](const QString&) {
        seen.append(profiles().getAssignment(P, Mouse, MKey::M1, "G1"));
    };
    profiles().setAssignment(P, Mouse, M2, MKey::M1, "G1");
    QCOMPARE(events().take(), QStringList({removed(M1), "MacroAssigned " + P + " Mouse " + M2 + " 0 G1"}));
    QCOMPARE(seen, QStringList({M2, M2}));
}

void ProfileMgrAssignmentsTest::sameCommandAgainIsSilent()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    events().take();
    profiles().setAssignment(P, Mouse, M1.toLower(), MKey::M1, "G1");
    profiles().removeAssignment(P, Mouse, MKey::M1, "G2");
    QCOMPARE(events().take(), QStringList());
}

void ProfileMgrAssignmentsTest::removalTellsWhatWasThere()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M3, "G1");
    events().take();
    profiles().removeAssignment(P, Mouse, MKey::M3, "G1");
    QCOMPARE(events().take(), QStringList({removed(M1, "Mouse 2 G1")}));
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M3, "G1"), QString());
}

void ProfileMgrAssignmentsTest::modesCategoriesAndControlsAreApart()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M2, "G1"), QString());
    QCOMPARE(profiles().getAssignment(P, "Keyboard", MKey::M1, "G1"), QString());
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M1, "G2"), QString());
    QCOMPARE(profiles().getAssignment(Default, Mouse, MKey::M1, "G1"), QString());
}

void ProfileMgrAssignmentsTest::impossibleControlsAreIgnored_data()
{
    QTest::addColumn<QString>("category");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("contextId");
    QTest::newRow("no category") << QString() << 0 << QStringLiteral("G1");
    QTest::newRow("no control") << QStringLiteral("Mouse") << 0 << QString();
    QTest::newRow("no mode") << QStringLiteral("Mouse") << 3 << QStringLiteral("G1");
    QTest::newRow("name that can't be stored") << QStringLiteral("Mouse") << 0 << QStringLiteral("\x01");
}

void ProfileMgrAssignmentsTest::impossibleControlsAreIgnored()
{
    QFETCH(QString, category);
    QFETCH(int, mode);
    QFETCH(QString, contextId);
    profiles().setAssignment(P, category, M1, MKey::MKey_t(mode), contextId);
    profiles().setGenericAssignment(P, category, ButtonType, "Back", true, MKey::MKey_t(mode), contextId);
    profiles().removeAssignment(P, category, MKey::MKey_t(mode), contextId);
    QVERIFY(!profiles().canMacroBeAssignedTo(M1, P, category, MKey::MKey_t(mode), contextId));
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(profiles().macros(P).size(), 2u);
}

void ProfileMgrAssignmentsTest::changeMadeWhileEventsGoOutComesBehindThem()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    events().take();
    QStringList seen;
    events().onEvent = [&](const QString& line) {
        if (line.startsWith(QLatin1String("AssignmentRemoved ")) && line.contains(QLatin1String("G1"))) {
            profiles().setAssignment(P, Mouse, M1, MKey::M1, "G2");
            seen = QStringList({profiles().getAssignment(P, Mouse, MKey::M1, "G1"),
                profiles().getAssignment(P, Mouse, MKey::M1, "G2")});
        }
    };
    profiles().setAssignment(P, Mouse, M2, MKey::M1, "G1");
    QCOMPARE(seen, QStringList({M2, M1}));
    QCOMPARE(events().take(),
        QStringList({removed(M1), "MacroAssigned " + P + " Mouse " + M2 + " 0 G1",
            "MacroAssigned " + P + " Mouse " + M1 + " 0 G2"}));
}

void ProfileMgrAssignmentsTest::everyListenerHearsTheSameOrder()
{
    // It comes behind the one that makes a change of its own.
    EventLog second;
    events().onEvent = [&](const QString& line) {
        if (line.contains(QLatin1String("G1")))
            profiles().setAssignment(P, Mouse, M1, MKey::M1, "G2");
    };
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    const QStringList heard = second.take();
    QCOMPARE(heard.size(), 2);
    QCOMPARE(heard, events().take());
}

void ProfileMgrAssignmentsTest::commandIsAssignedIfOneOfTheControlsHasIt()
{
    profiles().setAssignment(P, Mouse, M1, MKey::M3, "G2");
    QVERIFY(profiles().isMacroAssigned(P, Mouse, {"G1", "G2"}, M1.toLower()));
    QVERIFY(!profiles().isMacroAssigned(P, Mouse, {"G1"}, M1));
    QVERIFY(!profiles().isMacroAssigned(P, "Keyboard", {"G2"}, M1));
    QVERIFY(!profiles().isMacroAssigned(P, Mouse, {"G2"}, M2));
    QVERIFY(!profiles().isMacroAssigned(P, Mouse, {}, M1));
}

void ProfileMgrAssignmentsTest::categoryIsKnownFromItsFirstAssignmentOn()
{
    QVERIFY(!profiles().containsDevCategory(P, Mouse));
    profiles().removeAssignment(P, Mouse, MKey::M1, "G1");
    QVERIFY(!profiles().containsDevCategory(P, Mouse));
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    profiles().removeAssignment(P, Mouse, MKey::M1, "G1");
    QVERIFY(profiles().containsDevCategory(P, Mouse));
    QVERIFY(!profiles().containsDevCategory(P, "Keyboard"));
    restart();
    QVERIFY(profiles().containsDevCategory(P, Mouse));
}

void ProfileMgrAssignmentsTest::genericCommandIsMadeOnce()
{
    profiles().setGenericAssignment(P, Mouse, MacroNamespaces::MouseFunction, "Back", true, MKey::M1, "G1");
    const QString id = profiles().getAssignment(P, Mouse, MKey::M1, "G1");
    QCOMPARE(events().take(),
        QStringList({"macroAdded " + P + " " + id, "MacroAssigned " + P + " Mouse " + id + " 0 G1"}));
    const cJsonValue made = profiles().getMacroByID(P, id);
    QCOMPARE(id, QUuid(id).toString());
    QCOMPARE(made["name"].toString(), QStringLiteral("Back"));
    QCOMPARE(made["display_name"].toString(), QStringLiteral("Back"));
    QCOMPARE(made["namespace"].toString(), QString(MacroNamespaces::MouseFunction));
    QVERIFY(made["hidden"].toBool());
    QCOMPARE(made["data"]["function"].toString(), QStringLiteral("Back"));
    QVERIFY(profiles().containsDevCategory(P, Mouse));

    profiles().setGenericAssignment(P, Mouse, MacroNamespaces::MouseFunction, "Back", true, MKey::M1, "G2");
    QCOMPARE(events().take(), QStringList({"MacroAssigned " + P + " Mouse " + id + " 0 G2"}));
    QCOMPARE(profiles().macros(P).size(), 3u);
}

void ProfileMgrAssignmentsTest::genericCommandOfTheListIsNotTheHiddenOne()
{
    profiles().addMacro(P, macro("{V}", "Back", MacroNamespaces::MouseFunction));
    profiles().setGenericAssignment(P, Mouse, MacroNamespaces::MouseFunction, "Back", true, MKey::M1, "G1");
    QVERIFY(profiles().getAssignment(P, Mouse, MKey::M1, "G1") != QStringLiteral("{V}"));
    profiles().setGenericAssignment(P, Mouse, MacroNamespaces::MouseFunction, "Back", false, MKey::M1, "G1");
    QCOMPARE(profiles().getAssignment(P, Mouse, MKey::M1, "G1"), QStringLiteral("{V}"));
}

void ProfileMgrAssignmentsTest::emptyGenericCommandEmptiesTheControl_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("name");
    QTest::newRow("neither") << QString() << QString();
    QTest::newRow("no name") << ButtonType << QString();
    QTest::newRow("no type") << QString() << QStringLiteral("Back");
}

void ProfileMgrAssignmentsTest::emptyGenericCommandEmptiesTheControl()
{
    QFETCH(QString, type);
    QFETCH(QString, name);
    profiles().setAssignment(P, Mouse, M1, MKey::M1, "G1");
    events().take();
    profiles().setGenericAssignment(P, Mouse, type, name, true, MKey::M1, "G1");
    QCOMPARE(events().take(), QStringList({removed(M1)}));
    profiles().setGenericAssignment(P, Mouse, type, name, true, MKey::M1, "G1");
    QCOMPARE(events().take(), QStringList());
    QCOMPARE(profiles().macros(P).size(), 2u);
}

void ProfileMgrAssignmentsTest::commandHasToFitTheControl_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("contextId");
    QTest::addColumn<bool>("fits");
    QTest::newRow("button on a button") << ButtonType << Mouse << "G1" << true;
    QTest::newRow("button on a wheel") << ButtonType << Mouse << "G2" << true;
    QTest::newRow("button on a key") << ButtonType << "Keyboard"
                                     << "G1" << false;
    QTest::newRow("key on a key") << KeyType << "Keyboard"
                                  << "G1" << true;
    QTest::newRow("key on a button") << KeyType << Mouse << "G1" << false;
    QTest::newRow("unknown type") << NoType << Mouse << "G1" << false;
    QTest::newRow("control that no manifest has") << KeyType << Mouse << "G9" << true;
    QTest::newRow("category that no manifest has") << KeyType << "Other"
                                                   << "G1" << true;
    QTest::newRow("unknown type on an unknown control") << NoType << "Other"
                                                        << "G1" << false;
}

void ProfileMgrAssignmentsTest::commandHasToFitTheControl()
{
    QFETCH(QString, type);
    QFETCH(QString, category);
    QFETCH(QString, contextId);
    QFETCH(bool, fits);
    profiles().addMacro(P, macro("{T}", "Test", type));
    QCOMPARE(profiles().canMacroBeAssignedTo("{T}", P, category, MKey::M1, contextId), fits);
    QVERIFY(!profiles().canMacroBeAssignedTo(Unknown, P, category, MKey::M1, contextId));
}

VELTRANO_TEST_MAIN(ProfileMgrAssignmentsTest)
#include "ProfileMgrAssignmentsTest.moc"
