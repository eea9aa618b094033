#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cMacroEditor.h>
#include <cMacroList.h>
#include <DialogDriver.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QItemSelectionModel>

namespace {

/// G1 can't be empty, G2 has a generic command, G3 has none.
const char* const GenericDevice = R"(
<controls>
  <control id="G1"><generic_assignment type="uri/Mouse" name="Click" hidden="true" cannotbeunassigned="true"/></control>
  <control id="G2"><generic_assignment type="uri/Media" name="Play"/></control>
  <control id="G3"/>
</controls>)";

const QString UseDefaultQuestion =
    R"(yesno("Use Default", "Are you sure you want to replace all your G-key assignments with default settings?"))";
const QString UseGenericQuestion =
    R"(yesno("Use Generic", "Are you sure you want to replace all your G-key assignments with generic settings?"))";

QStringList selectedCommands(const cMacroList& list)
{
    QStringList found;
    for (const QListWidgetItem* item : list.selectedItems())
        found.append(item->text());
    return found;
}

} // namespace

/// What users do to keys, and what the host tells of commands and assignments.
class ViewAssignmentsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void slotAsksTheHost_data();
    void slotAsksTheHost();
    void requestsChangeNothingInThePicture();
    void unassignedKeyThatMayNotBeEmptyGetsItsGenericCommand();
    void editOpensTheCommandOfTheKey();
    void editOfAHiddenCommandOpensANewOne();
    void editOfAKeyThatIsNotThereOpensNothing();

    void allKeysAreAskedForFirst_data();
    void allKeysAreAskedForFirst();
    void useDefaultForAllGoesByContextIdAndCleansUp();
    void useGenericForAllTakesEmptyValuesAndCleansNothing();
    void unassignAllIsForTheShownProfileWithoutAQuestion();
    void printNamesAllKeys();
    void keysThatGoDuringTheQuestionArePassedOver();

    void newCommandOpensTheEditor();
    void editorIsOpenedForKnownPublicTypesOnly_data();
    void editorIsOpenedForKnownPublicTypesOnly();
    void savedCommandIsSelectedAndSeen();
    void savedCommandWithoutARowChangesNothing();

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
    /// "{P}" with "{1}" Jump on G1 and G3, and "{2}" Run on no key.
    void openWithCommands(const char* device = PlainDevice);

    QScopedPointer<ViewFixture> m_fixture;
};

void ViewAssignmentsTest::init()
{
    // One host at a time.
    m_fixture.reset();
    m_fixture.reset(new ViewFixture);
}

void ViewAssignmentsTest::cleanup()
{
    m_fixture.reset();
}

void ViewAssignmentsTest::openWithCommands(const char* device)
{
    m_fixture->host.answer(
        "getMacroTypeByID", [](const RecordedCall&) { return QVariant::fromValue(makeMacroType({"key"})); });
    m_fixture->putMacro("{P}", makeMacro("{1}", "Jump"));
    m_fixture->putMacro("{P}", makeMacro("{2}", "Run"));
    m_fixture->assign("{P}", "G1", "{1}");
    m_fixture->assign("{P}", "G3", "{1}");
    m_fixture->categories["{P}"] = QStringList("pad");
    m_fixture->open(makeManifest(device));
    m_fixture->showProfile("{P}");
    m_fixture->host.publishProfileSelectionChanged("{P}");
    QTRY_COMPARE(m_fixture->macroList()->count(), 2);
    m_fixture->host.clear();
}

void ViewAssignmentsTest::slotAsksTheHost_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("contextID");
    QTest::addColumn<QStringList>("calls");
    const auto row = [](const char* slot, const char* contextID, const QStringList& calls) {
        QTest::addRow("%s %s", slot, contextID) << QByteArray(slot) << QString(contextID) << calls;
    };
    row("onUseDefaultAssignment", "G2", {R"(setDefaultAssignment("{P}", "pad", 0, "G2"))"});
    row("onUseDefaultAssignment", "G9", {});
    row("onUseGenericAssignment", "G1",
        {R"(setGenericAssignment("{P}", "pad", "uri/Mouse", "Click", true, 0, "G1"))"});
    row("onUseGenericAssignment", "G2",
        {R"(setGenericAssignment("{P}", "pad", "uri/Media", "Play", false, 0, "G2"))"});
    row("onUseGenericAssignment", "G3", {R"(setGenericAssignment("{P}", "pad", "", "", false, 0, "G3"))"});
    row("onUseGenericAssignment", "G9", {});
    row("onUnassignAssignment", "G2", {R"(removeAssignment("{P}", "pad", 0, "G2"))"});
    row("onUnassignAssignment", "G9", {R"(removeAssignment("{P}", "pad", 0, "G9"))"});
}

void ViewAssignmentsTest::slotAsksTheHost()
{
    QFETCH(QByteArray, slot);
    QFETCH(QString, contextID);
    QFETCH(QStringList, calls);
    openWithCommands(GenericDevice);
    QVERIFY(m_fixture->call(slot, Q_ARG(QString, contextID)));
    QCOMPARE(m_fixture->host.takeCalls(), calls);
}

void ViewAssignmentsTest::requestsChangeNothingInThePicture()
{
    openWithCommands();
    const QStringList before = m_fixture->labels();
    QCOMPARE(before, QStringList({"G1=Jump", "G3=Jump"}));
    QVERIFY(m_fixture->call("setAssignment", Q_ARG(QString, "{2}"), Q_ARG(QString, "G2")));
    QVERIFY(m_fixture->call("setAssignment", Q_ARG(QString, "{2}"), Q_ARG(QString, "G9")));
    QVERIFY(m_fixture->call("onUnassignAssignment", Q_ARG(QString, "G1")));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({R"(setAssignment("{P}", "pad", "{2}", 0, "G2"))",
            R"(setAssignment("{P}", "pad", "{2}", 0, "G9"))", R"(removeAssignment("{P}", "pad", 0, "G1"))"}));
    QCOMPARE(m_fixture->labels(), before);
    QCOMPARE(m_fixture->key("G1")->macroID(), QString("{1}"));
}

void ViewAssignmentsTest::unassignedKeyThatMayNotBeEmptyGetsItsGenericCommand()
{
    openWithCommands(GenericDevice);
    QVERIFY(m_fixture->call("onUnassignAssignment", Q_ARG(QString, "G1")));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({R"(removeAssignment("{P}", "pad", 0, "G1"))",
            R"(setGenericAssignment("{P}", "pad", "uri/Mouse", "Click", true, 0, "G1"))"}));
}

void ViewAssignmentsTest::editOpensTheCommandOfTheKey()
{
    openWithCommands();
    bool opened = false;
    const DialogDriver driver([&](QWidget& dialog) {
        opened = qobject_cast<cMacroEditor*>(&dialog) != nullptr;
        dialog.close();
    });
    QVERIFY(m_fixture->call("onEditAssignment", Q_ARG(QString, "G1")));
    QVERIFY(opened);
    QCOMPARE(m_fixture->host.takeCalls().mid(0, 5),
        QStringList({R"(getAssignment("{P}", "pad", 0, "G1"))", R"(getMacroByID("{P}", "{1}"))",
            R"(getMacroByID("{P}", "{1}"))", R"(getMacroTypeByID("uri/keystroke"))", "window()"}));
}

void ViewAssignmentsTest::editOfAHiddenCommandOpensANewOne()
{
    openWithCommands();
    m_fixture->putMacro("{P}", makeMacro("{3}", "Hidden", true));
    m_fixture->assign("{P}", "G2", "{3}");
    bool opened = false;
    const DialogDriver driver([&](QWidget& dialog) {
        auto* const editor = qobject_cast<cMacroEditor*>(&dialog);
        opened = editor != nullptr;
        // The new command goes onto the key.
        if (editor)
            Q_EMIT editor->macroEditorClosed("{4}");
        dialog.close();
    });
    QVERIFY(m_fixture->call("onEditAssignment", Q_ARG(QString, "G2")));
    QVERIFY(opened);
    const QStringList calls = m_fixture->host.takeCalls();
    QCOMPARE(calls.mid(0, 3),
        QStringList(
            {R"(getAssignment("{P}", "pad", 0, "G2"))", R"(getMacroByID("{P}", "{3}"))", "window()"}));
    QCOMPARE(calls.filter("setAssignment"), QStringList(R"(setAssignment("{P}", "pad", "{4}", 0, "G2"))"));
    // A hidden command is never loaded into the editor.
    QCOMPARE(calls.filter("getMacroTypeByID(").size(), 0);
}

void ViewAssignmentsTest::editOfAKeyThatIsNotThereOpensNothing()
{
    openWithCommands();
    m_fixture->host.answer("getMacroTypeByID", [](const RecordedCall&) { return QVariant(); });
    QVERIFY(m_fixture->call("onEditAssignment", Q_ARG(QString, "G9")));
    m_fixture->putMacro("{P}", makeMacro("{3}", "Hidden", true));
    m_fixture->assign("{P}", "G9", "{3}");
    QVERIFY(m_fixture->call("onEditAssignment", Q_ARG(QString, "G9")));
}

void ViewAssignmentsTest::allKeysAreAskedForFirst_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("question");
    QTest::newRow("default") << QByteArray("onUseDefaultForAllGkeys") << UseDefaultQuestion;
    QTest::newRow("generic") << QByteArray("onUseGenericForAllGkeys") << UseGenericQuestion;
}

void ViewAssignmentsTest::allKeysAreAskedForFirst()
{
    QFETCH(QByteArray, slot);
    QFETCH(QString, question);
    openWithCommands();
    m_fixture->host.answer("yesno", false);
    QVERIFY(m_fixture->call(slot, Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList(question));
}

void ViewAssignmentsTest::useDefaultForAllGoesByContextIdAndCleansUp()
{
    openWithCommands("<controls><control id='G2'/><control id='G10'/><control id='G1'/></controls>");
    m_fixture->host.answer("yesno", true);
    QVERIFY(m_fixture->call("onUseDefaultForAllGkeys", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({UseDefaultQuestion, R"(setDefaultAssignment("{Q}", "pad", 0, "G1"))",
            R"(setDefaultAssignment("{Q}", "pad", 0, "G10"))",
            R"(setDefaultAssignment("{Q}", "pad", 0, "G2"))", R"(cleanupBackup("{Q}", "pad"))"}));
}

void ViewAssignmentsTest::useGenericForAllTakesEmptyValuesAndCleansNothing()
{
    openWithCommands(GenericDevice);
    m_fixture->host.answer("yesno", true);
    QVERIFY(m_fixture->call("onUseGenericForAllGkeys", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList(
            {UseGenericQuestion, R"(setGenericAssignment("{Q}", "pad", "uri/Mouse", "Click", true, 0, "G1"))",
                R"(setGenericAssignment("{Q}", "pad", "uri/Media", "Play", false, 0, "G2"))",
                R"(setGenericAssignment("{Q}", "pad", "", "", false, 0, "G3"))"}));
}

void ViewAssignmentsTest::unassignAllIsForTheShownProfileWithoutAQuestion()
{
    openWithCommands(GenericDevice);
    QVERIFY(m_fixture->call("onUnassignAllGkeys", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({R"(removeAssignment("{P}", "pad", 0, "G1"))",
            R"(setGenericAssignment("{P}", "pad", "uri/Mouse", "Click", true, 0, "G1"))",
            R"(removeAssignment("{P}", "pad", 0, "G2"))", R"(removeAssignment("{P}", "pad", 0, "G3"))"}));
}

void ViewAssignmentsTest::printNamesAllKeys()
{
    openWithCommands();
    QVERIFY(m_fixture->call("onPrintProfile", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList(R"(printProfile("{Q}", "pad", ["G1", "G2", "G3"]))"));
}

void ViewAssignmentsTest::keysThatGoDuringTheQuestionArePassedOver()
{
    openWithCommands();
    m_fixture->host.answer("yesno", [this](const RecordedCall&) {
        m_fixture->view.deinit(cJsonValue(), nullptr);
        m_fixture->host.clear();
        return QVariant(true);
    });
    QVERIFY(m_fixture->call("onUseGenericForAllGkeys", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
    // And those that go while the host answers.
    init();
    openWithCommands();
    m_fixture->host.answer("removeAssignment", [this](const RecordedCall&) {
        m_fixture->view.deinit(cJsonValue(), nullptr);
        m_fixture->host.clear();
    });
    QVERIFY(m_fixture->call("onUnassignAllGkeys", Q_ARG(QString, "{P}")));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
}

void ViewAssignmentsTest::newCommandOpensTheEditor()
{
    openWithCommands();
    QWidget window;
    m_fixture->host.answer("window", &window);
    QString title;
    const QWidget* parent = nullptr;
    const DialogDriver driver([&](QWidget& dialog) {
        title = dialog.windowTitle();
        parent = dialog.parentWidget();
        if (auto* const editor = qobject_cast<cMacroEditor*>(&dialog))
            Q_EMIT editor->macroEditorClosed("{2}");
        dialog.close();
    });
    QVERIFY(m_fixture->call("newCommand"));
    QCOMPARE(title, QString("Command Editor"));
    QCOMPARE(parent, &window);
    QCOMPARE(selectedCommands(*m_fixture->macroList()), QStringList("Run"));
}

void ViewAssignmentsTest::editorIsOpenedForKnownPublicTypesOnly_data()
{
    QTest::addColumn<bool>("isKnown");
    QTest::addColumn<bool>("isPrivate");
    QTest::addColumn<bool>("opens");
    QTest::newRow("unknown") << false << false << false;
    QTest::newRow("private") << true << true << false;
    QTest::newRow("public") << true << false << true;
}

void ViewAssignmentsTest::editorIsOpenedForKnownPublicTypesOnly()
{
    QFETCH(bool, isKnown);
    QFETCH(bool, isPrivate);
    QFETCH(bool, opens);
    openWithCommands();
    m_fixture->host.answer("getMacroTypeByID", [=](const RecordedCall&) {
        return isKnown ? QVariant::fromValue(makeMacroType({}, isPrivate)) : QVariant();
    });
    int opened = 0;
    const DialogDriver driver([&](QWidget& dialog) {
        ++opened;
        dialog.close();
    });
    QVERIFY(m_fixture->call("loadMacroEditor", Q_ARG(cJsonValue, makeMacro("{1}", "Jump"))));
    QCOMPARE(m_fixture->host.takeCalls().constFirst(), QString(R"(getMacroTypeByID("uri/keystroke"))"));
    QCOMPARE(opened, opens ? 1 : 0);
}

void ViewAssignmentsTest::savedCommandIsSelectedAndSeen()
{
    openWithCommands();
    for (int i = 0; i < 30; ++i)
        m_fixture->putMacro(
            "{P}", makeMacro(qPrintable(QString::number(100 + i)), qPrintable(QString("C%1").arg(i))));
    m_fixture->host.publishProfileSelectionChanged("{P}");
    cMacroList& list = *m_fixture->macroList();
    QTRY_COMPARE(list.count(), 32);
    m_fixture->canvas->show();
    list.item(0)->setSelected(true);
    QVERIFY(m_fixture->call("onMacroEditorClosed", Q_ARG(QString, "{2}")));
    QCOMPARE(selectedCommands(list), QStringList("Run"));
    QCOMPARE(list.currentItem()->text(), QString("Run"));
    const QRect place = list.visualItemRect(list.currentItem());
    QVERIFY(place.top() >= 0 && place.bottom() < list.viewport()->height());
}

void ViewAssignmentsTest::savedCommandWithoutARowChangesNothing()
{
    openWithCommands();
    QVERIFY(m_fixture->call("onMacroEditorClosed", Q_ARG(QString, "{2}")));
    QVERIFY(m_fixture->call("onMacroEditorClosed", Q_ARG(QString, "")));
    QVERIFY(m_fixture->call("onMacroEditorClosed", Q_ARG(QString, "{9}")));
    QCOMPARE(selectedCommands(*m_fixture->macroList()), QStringList("Run"));
}

void ViewAssignmentsTest::addedCommandIsSelected()
{
    openWithCommands();
    cMacroList& list = *m_fixture->macroList();
    list.selectAll();
    m_fixture->host.publishMacroAdded("{P}", makeMacro("{3}", "Duck"));
    // The list makes the row within the event, but after the view has heard of it.
    QTRY_COMPARE(selectedCommands(list), QStringList("Duck"));
    QCOMPARE(list.currentItem()->text(), QString("Duck"));
    // One that the list has already is selected at once.
    QVERIFY(
        m_fixture->call("onmacroAdded", Q_ARG(QString, "{P}"), Q_ARG(cJsonValue, makeMacro("{1}", "Jump"))));
    QCOMPARE(selectedCommands(list), QStringList("Jump"));
}

void ViewAssignmentsTest::addedCommandOfAnotherProfileIsIgnored()
{
    openWithCommands();
    cMacroList& list = *m_fixture->macroList();
    list.selectAll();
    m_fixture->host.publishMacroAdded("{Q}", makeMacro("{1}", "Jump"));
    QCoreApplication::processEvents();
    QCOMPARE(selectedCommands(list).size(), 2);
}

void ViewAssignmentsTest::addedHiddenCommandClearsTheSelection()
{
    openWithCommands();
    cMacroList& list = *m_fixture->macroList();
    list.selectAll();
    m_fixture->host.publishMacroAdded("{P}", makeMacro("{3}", "Hidden", true));
    QCoreApplication::processEvents();
    QCOMPARE(selectedCommands(list), QStringList());
    QVERIFY(!list.currentItem());
}

void ViewAssignmentsTest::changedCommandRenamesItsLabelsByName()
{
    openWithCommands();
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G2");
    cJsonValue changed = makeMacro("{1}", "Jump");
    changed["name"] = "the name";
    changed["display_name"] = "the display name";
    m_fixture->host.publishMacroChanged("{P}", changed);
    QCOMPARE(m_fixture->labels(), QStringList({"G1=the name", "G2=Run", "G3=the name"}));
    QCOMPARE(selectedCommands(*m_fixture->macroList()), QStringList("the display name"));
}

void ViewAssignmentsTest::changedCommandOfAnotherProfileIsIgnored()
{
    openWithCommands();
    m_fixture->host.publishMacroChanged("{Q}", makeMacro("{1}", "Other"));
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(selectedCommands(*m_fixture->macroList()), QStringList());
}

void ViewAssignmentsTest::deletedCommandEmptiesItsKeys()
{
    openWithCommands();
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

void ViewAssignmentsTest::deletedCommandLeavesAKeyThatMayNotBeEmpty()
{
    openWithCommands(GenericDevice);
    m_fixture->host.publishMacroDeleted("{P}", makeMacro("{1}", "Jump"));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({R"(setGenericAssignment("{P}", "pad", "uri/Mouse", "Click", true, 0, "G1"))",
            R"(getMacroByID("{P}", ""))"}));
    // The old label stays until the host's events replace it.
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString("{1}"));

    // A host that answers at once.
    init();
    openWithCommands(GenericDevice);
    m_fixture->host.answer("setGenericAssignment", [this](const RecordedCall&) {
        m_fixture->putMacro("{P}", makeMacro("{7}", "Click", true));
        m_fixture->host.publishMacroAssigned("{P}", "pad", "{7}", MKey::M1, "G1");
    });
    m_fixture->host.publishMacroDeleted("{P}", makeMacro("{1}", "Jump"));
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Click"}));
}

void ViewAssignmentsTest::deletedCommandOfAnotherProfileIsIgnored()
{
    openWithCommands();
    m_fixture->host.publishMacroDeleted("{Q}", makeMacro("{1}", "Jump"));
    m_fixture->host.publishMacroDeleted("{P}", makeMacro("{9}", "Unknown"));
    m_fixture->host.publishMacroDeleted("{P}", cJsonValue());
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
}

void ViewAssignmentsTest::assignmentMakesALabel()
{
    openWithCommands();
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G2");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G2=Run", "G3=Jump"}));
    QCOMPARE(m_fixture->label("G2")->macroID(), QString("{2}"));
    QCOMPARE(m_fixture->key("G2")->macroID(), QString("{2}"));
    // The records for the name, the command for the label, and the command once more for the key; then the
    // list marks its row.
    QCOMPARE(m_fixture->host.takeCalls().mid(0, 3),
        QStringList({R"(macros("{P}"))", R"(getMacroByID("{P}", "{2}"))", R"(getMacroByID("{P}", "{2}"))"}));
}

void ViewAssignmentsTest::assignmentReplacesTheLabel()
{
    openWithCommands();
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

void ViewAssignmentsTest::assignmentComparesIdsExactly()
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

void ViewAssignmentsTest::assignmentElsewhereIsIgnored_data()
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

void ViewAssignmentsTest::assignmentElsewhereIsIgnored()
{
    QFETCH(QString, profile);
    QFETCH(QString, category);
    QFETCH(MKey::MKey_t, mode);
    openWithCommands();
    QVERIFY(m_fixture->call("onMacroAssigned", Q_ARG(QString, profile), Q_ARG(QString, category),
        Q_ARG(QString, "{2}"), Q_ARG(MKey::MKey_t, mode), Q_ARG(QString, "G1")));
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
}

void ViewAssignmentsTest::assignmentOfAnUnknownKeyOrCommand()
{
    openWithCommands();
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M1, "G9");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    // A command that nobody knows is on the key all the same, and its label draws nothing.
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{9}", MKey::M1, "G1");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=", "G3=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString("{9}"));
}

void ViewAssignmentsTest::assignmentOfAnotherModeShowsAtTheSwitch()
{
    openWithCommands();
    m_fixture->assign("{P}", "G2", "{2}", MKey::M2);
    m_fixture->host.publishMacroAssigned("{P}", "pad", "{2}", MKey::M2, "G2");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    m_fixture->host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(m_fixture->labels(), QStringList({"G2=Run"}));
}

void ViewAssignmentsTest::removalTakesTheLabel()
{
    openWithCommands();
    // Which command it was is not read.
    m_fixture->host.publishAssignmentRemoved("{P}", "pad", MKey::M1, "G1", "{9}");
    QCOMPARE(m_fixture->labels(), QStringList({"G3=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString());
}

void ViewAssignmentsTest::removalWithoutALabelClearsTheKey()
{
    openWithCommands();
    m_fixture->key("G2")->setMacro("{2}");
    m_fixture->host.clear();
    m_fixture->host.publishAssignmentRemoved("{P}", "pad", MKey::M1, "G2", "{9}");
    QCOMPARE(m_fixture->key("G2")->macroID(), QString());
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList(R"(getMacroByID("{P}", ""))"));
    m_fixture->host.publishAssignmentRemoved("{P}", "pad", MKey::M1, "G9", "{9}");
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
}

void ViewAssignmentsTest::removalElsewhereIsIgnored_data()
{
    assignmentElsewhereIsIgnored_data();
}

void ViewAssignmentsTest::removalElsewhereIsIgnored()
{
    QFETCH(QString, profile);
    QFETCH(QString, category);
    QFETCH(MKey::MKey_t, mode);
    openWithCommands();
    m_fixture->host.publishAssignmentRemoved(profile, category, mode, "G1", "{9}");
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString("{1}"));
}

void ViewAssignmentsTest::changesOfABoundProfileOfferTheSync_data()
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

void ViewAssignmentsTest::changesOfABoundProfileOfferTheSync()
{
    QFETCH(QString, event);
    QFETCH(bool, isBound);
    QFETCH(QString, profile);
    QFETCH(bool, offers);
    m_fixture->boundDevice = isBound ? "{D}" : "";
    openWithCommands();
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

VELTRANO_TEST_MAIN(ViewAssignmentsTest)
#include "ViewAssignmentsTest.moc"
