#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cMacroList.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QItemSelectionModel>
#include <QScopedPointer>

/// What the view makes of what the host tells of commands and assignments.
class ViewCommandEventsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void addedCommandIsSelected();
    void addedCommandOfAnotherProfileIsIgnored();
    void addedHiddenCommandClearsTheSelection();
    void changedCommandRenamesItsLabelsByName();
    void changedCommandOfAnotherProfileIsIgnored();
    void deletedCommandEmptiesItsKeys();
    void deletedCommandLeavesAKeyThatMayNotBeEmpty();
    void deletedCommandOfAnotherProfileIsIgnored();

    void assignmentMakesALabel();
    void assignmentReplacesTheLabel();
    void assignmentComparesIdsExactly();
    void assignmentElsewhereIsIgnored_data();
    void assignmentElsewhereIsIgnored();
    void assignmentOfAnUnknownKeyOrCommand();
    void assignmentOfAnotherModeShowsAtTheSwitch();
    void removalTakesTheLabel();
    void removalWithoutALabelClearsTheKey();
    void removalElsewhereIsIgnored_data();
    void removalElsewhereIsIgnored();
    void changesOfABoundProfileOfferTheSync_data();
    void changesOfABoundProfileOfferTheSync();

private:
    QScopedPointer<ViewFixture> m_fixture;
};

void ViewCommandEventsTest::init()
{
    // One host at a time.
    m_fixture.reset();
    m_fixture.reset(new ViewFixture);
}

void ViewCommandEventsTest::cleanup()
{
    m_fixture.reset();
}

void ViewCommandEventsTest::addedCommandIsSelected()
{
    m_fixture->openWithCommands();
    cMacroList& list = *m_fixture->macroList();
    list.selectAll();
    m_fixture->host.publishMacroAdded("{P}", makeMacro("{3}", "Duck"));
    // The list makes the row within the event, but after the view has heard of it.
    QTRY_COMPARE(m_fixture->selectedCommands(), QStringList("Duck"));
    QCOMPARE(list.currentItem()->text(), QString("Duck"));
    // One that the list has already is selected at once.
    QVERIFY(
        m_fixture->call("onmacroAdded", Q_ARG(QString, "{P}"), Q_ARG(cJsonValue, makeMacro("{1}", "Jump"))));
    QCOMPARE(m_fixture->selectedCommands(), QStringList("Jump"));
}

void ViewCommandEventsTest::addedCommandOfAnotherProfileIsIgnored()
{
    m_fixture->openWithCommands();
    cMacroList& list = *m_fixture->macroList();
    list.selectAll();
    m_fixture->host.publishMacroAdded("{Q}", makeMacro("{1}", "Jump"));
    QCoreApplication::processEvents();
    QCOMPARE(m_fixture->selectedCommands().size(), 2);
}

void ViewCommandEventsTest::addedHiddenCommandClearsTheSelection()
{
    m_fixture->openWithCommands();
    cMacroList& list = *m_fixture->macroList();
    list.selectAll();
    m_fixture->host.publishMacroAdded("{P}", makeMacro("{3}", "Hidden", true));
    QCoreApplication::processEvents();
    QCOMPARE(m_fixture->selectedCommands(), QStringList());
    QVERIFY(!list.currentItem());
}

void ViewCommandEventsTest::changedCommandRenamesItsLabelsByName()
{
    m_fixture->openWithCommands();
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G2");
    cJsonValue changed = makeMacro("{1}", "Jump");
    changed["name"] = "the name";
    changed["display_name"] = "the display name";
    m_fixture->host.publishMacroChanged("{P}", changed);
    QCOMPARE(m_fixture->labels(), QStringList({"G1=the name", "G2=Run", "G3=the name"}));
    QCOMPARE(m_fixture->selectedCommands(), QStringList("the display name"));
}

void ViewCommandEventsTest::changedCommandOfAnotherProfileIsIgnored()
{
    m_fixture->openWithCommands();
    m_fixture->host.publishMacroChanged("{Q}", makeMacro("{1}", "Other"));
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->selectedCommands(), QStringList());
}

void ViewCommandEventsTest::deletedCommandEmptiesItsKeys()
{
    m_fixture->openWithCommands();
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G2");
    m_fixture->host.clear();
    m_fixture->host.publishMacroDeleted("{P}", makeMacro("{1}", "Jump"));
    QCOMPARE(m_fixture->labels(), QStringList({"G2=Run"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString());
    QCOMPARE(m_fixture->key("G2")->macroID(), QString("{2}"));
    QCOMPARE(m_fixture->key("G3")->macroID(), QString());
    const QString clearedKey = R"(getMacroByID("{P}", ""))";
    QCOMPARE(m_fixture->host.takeCalls(), QStringList({clearedKey, clearedKey}));
}

void ViewCommandEventsTest::deletedCommandLeavesAKeyThatMayNotBeEmpty()
{
    m_fixture->openWithCommands(GenericDevice);
    m_fixture->host.publishMacroDeleted("{P}", makeMacro("{1}", "Jump"));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({R"(setGenericAssignment("{P}", "pad", "uri/Mouse", "Click", true, 0, "G1"))",
            R"(getMacroByID("{P}", ""))"}));
    // The old label stays until the host's events replace it.
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString("{1}"));

    // A host that answers at once.
    init();
    m_fixture->openWithCommands(GenericDevice);
    m_fixture->host.answer("setGenericAssignment", [this](const RecordedCall&) {
        m_fixture->putMacro("{P}", makeMacro("{7}", "Click", true));
        m_fixture->host.publishMacroAssigned("{P}", "pad", "{7}", MKey::M1, "G1");
    });
    m_fixture->host.publishMacroDeleted("{P}", makeMacro("{1}", "Jump"));
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Click"}));
}

void ViewCommandEventsTest::deletedCommandOfAnotherProfileIsIgnored()
{
    m_fixture->openWithCommands();
    m_fixture->host.publishMacroDeleted("{Q}", makeMacro("{1}", "Jump"));
    m_fixture->host.publishMacroDeleted("{P}", makeMacro("{9}", "Unknown"));
    m_fixture->host.publishMacroDeleted("{P}", cJsonValue());
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
}

void ViewCommandEventsTest::assignmentMakesALabel()
{
    m_fixture->openWithCommands();
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G2");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G2=Run", "G3=Jump"}));
    QCOMPARE(m_fixture->label("G2")->macroID(), QString("{2}"));
    QCOMPARE(m_fixture->key("G2")->macroID(), QString("{2}"));
    // The records for the name, the command for the label, and the command once more for the key; then the
    // list marks its row.
    QCOMPARE(m_fixture->host.takeCalls().mid(0, 3),
        QStringList({R"(macros("{P}"))", R"(getMacroByID("{P}", "{2}"))", R"(getMacroByID("{P}", "{2}"))"}));
}

void ViewCommandEventsTest::assignmentReplacesTheLabel()
{
    m_fixture->openWithCommands();
    const QPointer<MagnetTextItem> old = m_fixture->label("G1");
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G1");
    QVERIFY(!old);
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Run", "G3=Jump"}));
    // Also by the same command.
    const QPointer<MagnetTextItem> second = m_fixture->label("G1");
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G1");
    QVERIFY(!second);
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Run", "G3=Jump"}));
}

void ViewCommandEventsTest::assignmentComparesIdsExactly()
{
    m_fixture->putMacro("{P}", makeMacro("{ab}", "Low"));
    m_fixture->assign("{P}", "G1", "{AB}");
    m_fixture->open(makeManifest(PlainDevice));
    // A profile's labels are found without regard to case, those of an event with regard to it.
    m_fixture->showProfile("{P}");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Low"}));
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{AB}", MKey::M1, "G1");
    QCOMPARE(m_fixture->labels(), QStringList({"G1="}));
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{ab}", MKey::M1, "G1");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Low"}));
}

void ViewCommandEventsTest::assignmentElsewhereIsIgnored_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QString>("category");
    QTest::addColumn<MKey::MKey_t>("mode");
    QTest::newRow("profile") << "{Q}"
                             << "pad" << MKey::M1;
    QTest::newRow("category") << "{P}"
                              << "other" << MKey::M1;
    QTest::newRow("model instead of category") << "{P}"
                                               << "Model" << MKey::M1;
    QTest::newRow("mode") << "{P}"
                          << "pad" << MKey::M2;
}

void ViewCommandEventsTest::assignmentElsewhereIsIgnored()
{
    QFETCH(QString, profile);
    QFETCH(QString, category);
    QFETCH(MKey::MKey_t, mode);
    m_fixture->openWithCommands();
    QVERIFY(m_fixture->call("onMacroAssigned", Q_ARG(QString, profile), Q_ARG(QString, category),
        Q_ARG(QString, "{2}"), Q_ARG(MKey::MKey_t, mode), Q_ARG(QString, "G1")));
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
}

void ViewCommandEventsTest::assignmentOfAnUnknownKeyOrCommand()
{
    m_fixture->openWithCommands();
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G9");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    // A command that nobody knows is on the key all the same, and its label draws nothing.
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{9}", MKey::M1, "G1");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=", "G3=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString("{9}"));
}

void ViewCommandEventsTest::assignmentOfAnotherModeShowsAtTheSwitch()
{
    m_fixture->openWithCommands();
    m_fixture->assign("{P}", "G2", "{2}", MKey::M2);
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M2, "G2");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    m_fixture->host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(m_fixture->labels(), QStringList({"G2=Run"}));
}

void ViewCommandEventsTest::removalTakesTheLabel()
{
    m_fixture->openWithCommands();
    // Which command it was is not read.
    m_fixture->host.publishAssignmentRemoved("{P}", "pad", MKey::M1, "G1", "{9}");
    QCOMPARE(m_fixture->labels(), QStringList({"G3=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString());
}

void ViewCommandEventsTest::removalWithoutALabelClearsTheKey()
{
    m_fixture->openWithCommands();
    m_fixture->key("G2")->setMacro("{2}");
    m_fixture->host.clear();
    m_fixture->host.publishAssignmentRemoved("{P}", "pad", MKey::M1, "G2", "{9}");
    QCOMPARE(m_fixture->key("G2")->macroID(), QString());
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList(R"(getMacroByID("{P}", ""))"));
    m_fixture->host.publishAssignmentRemoved("{P}", "pad", MKey::M1, "G9", "{9}");
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
}

void ViewCommandEventsTest::removalElsewhereIsIgnored_data()
{
    assignmentElsewhereIsIgnored_data();
}

void ViewCommandEventsTest::removalElsewhereIsIgnored()
{
    QFETCH(QString, profile);
    QFETCH(QString, category);
    QFETCH(MKey::MKey_t, mode);
    m_fixture->openWithCommands();
    m_fixture->host.publishAssignmentRemoved(profile, category, mode, "G1", "{9}");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString("{1}"));
}

void ViewCommandEventsTest::changesOfABoundProfileOfferTheSync_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<bool>("isBound");
    QTest::addColumn<QString>("profile");
    QTest::addColumn<bool>("offers");
    for (const char* event : {"added", "changed", "deleted", "assigned", "removed", "property"}) {
        QTest::addRow("%s, bound", event) << event << true << "{P}" << true;
        QTest::addRow("%s, not bound", event) << event << false << "{P}" << false;
        QTest::addRow("%s, other profile", event) << event << true << "{Q}" << false;
    }
}

void ViewCommandEventsTest::changesOfABoundProfileOfferTheSync()
{
    QFETCH(QString, event);
    QFETCH(bool, isBound);
    QFETCH(QString, profile);
    QFETCH(bool, offers);
    m_fixture->boundDevice = isBound ? "{D}" : "";
    m_fixture->openWithCommands();
    RecordingHost& host = m_fixture->host;
    QVERIFY(m_fixture->syncButton()->isHidden());
    m_fixture->syncButton()->setFrame(5);
    const cJsonValue macro = makeMacro("{2}", "Run");
    if (event == "added")
        host.publishMacroAdded(profile, makeMacro("{3}", "Duck"));
    else if (event == "changed")
        host.publishMacroChanged(profile, macro);
    else if (event == "deleted")
        host.publishMacroDeleted(profile, macro);
    else if (event == "assigned")
        host.publishMacroAssigned(profile, "pad", "{2}", MKey::M1, "G2");
    else if (event == "removed")
        host.publishAssignmentRemoved(profile, "pad", MKey::M1, "G1", "{1}");
    else
        host.publishProfilePropertyChanged(profile);
    QCOMPARE(!m_fixture->syncButton()->isHidden(), offers);
    QCOMPARE(m_fixture->syncButton()->isEnabled(), offers);
    QCOMPARE(m_fixture->syncButton()->currentFrame(), offers ? 0 : 5);
}

VELTRANO_TEST_MAIN(ViewCommandEventsTest)
#include "ViewCommandEventsTest.moc"
