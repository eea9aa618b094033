#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cMacroEditor.h>
#include <cMacroList.h>
#include <DialogDriver.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <TestCase.h>

#include <QPointer>
#include <QScopedPointer>

namespace {

const QString UseDefaultQuestion =
    R"(yesno("Use Default", "Are you sure you want to replace all your G-key assignments with default settings?"))";
const QString UseGenericQuestion =
    R"(yesno("Use Generic", "Are you sure you want to replace all your G-key assignments with generic settings?"))";

} // namespace

/// What users do to keys and commands, and what the host is asked for it.
class ViewAssignmentsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void slotAsksTheHost_data();
    void slotAsksTheHost();
    void requestsChangeNothingInThePicture_data();
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

private:
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
    m_fixture->openWithCommands(GenericDevice);
    QVERIFY(m_fixture->call(slot, Q_ARG(QString, contextID)));
    QCOMPARE(m_fixture->host.takeCalls(), calls);
}

void ViewAssignmentsTest::requestsChangeNothingInThePicture_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("calls");
    const auto row = [](const char* slot, const QStringList& arguments, const QStringList& calls) {
        QTest::addRow("%s %s", slot, qPrintable(arguments.join(' ')))
            << QByteArray(slot) << arguments << calls;
    };
    row("setAssignment", {"{2}", "G1"}, {R"(setAssignment("{P}", "pad", "{2}", 0, "G1"))"});
    row("setAssignment", {"{2}", "G2"}, {R"(setAssignment("{P}", "pad", "{2}", 0, "G2"))"});
    row("setAssignment", {"{2}", "G9"}, {R"(setAssignment("{P}", "pad", "{2}", 0, "G9"))"});
    row("onUnassignAssignment", {"G1"}, {R"(removeAssignment("{P}", "pad", 0, "G1"))"});
    row("onUseDefaultAssignment", {"G1"}, {R"(setDefaultAssignment("{P}", "pad", 0, "G1"))"});
    row("onUseGenericAssignment", {"G1"}, {R"(setGenericAssignment("{P}", "pad", "", "", false, 0, "G1"))"});
    row("onUnassignAllGkeys", {"{P}"}, forPlainKeys(R"(removeAssignment("{P}", "pad", 0, "%1"))"));
    row("onUseDefaultForAllGkeys", {"{P}"},
        QStringList(UseDefaultQuestion) + forPlainKeys(R"(setDefaultAssignment("{P}", "pad", 0, "%1"))")
            + QStringList(R"(cleanupBackup("{P}", "pad"))"));
    row("onUseGenericForAllGkeys", {"{P}"},
        QStringList(UseGenericQuestion)
            + forPlainKeys(R"(setGenericAssignment("{P}", "pad", "", "", false, 0, "%1"))"));
    row("SwitchMState", {"M2"}, {R"(stringToMKey("M2"))", R"(setMState("pad", 1))"});
}

void ViewAssignmentsTest::requestsChangeNothingInThePicture()
{
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, calls);
    m_fixture->openWithCommands();
    m_fixture->host.answer("yesno", true);
    m_fixture->boundDevice = "{D}";
    m_fixture->showProfile("{P}");
    const QPointer<MagnetTextItem> label = m_fixture->label("G1");
    QVERIFY(arguments.size() == 1
            ? m_fixture->call(slot, Q_ARG(QString, arguments[0]))
            : m_fixture->call(slot, Q_ARG(QString, arguments[0]), Q_ARG(QString, arguments[1])));
    QCOMPARE(m_fixture->host.takeCalls(), calls);
    // All is as it was: the host has said nothing yet.
    QVERIFY(label);
    QCOMPARE(m_fixture->labels(), QStringList({"G1=Jump", "G3=Jump"}));
    QCOMPARE(m_fixture->key("G1")->macroID(), QString("{1}"));
    QCOMPARE(m_fixture->key("G2")->macroID(), QString());
    QCOMPARE(m_fixture->view.getCurrentMState(), MKey::M1);
    QCOMPARE(m_fixture->selectedModes(), QStringList("M1"));
    QVERIFY(m_fixture->syncButton()->isHidden());
}

void ViewAssignmentsTest::unassignedKeyThatMayNotBeEmptyGetsItsGenericCommand()
{
    m_fixture->openWithCommands(GenericDevice);
    QVERIFY(m_fixture->call("onUnassignAssignment", Q_ARG(QString, "G1")));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({R"(removeAssignment("{P}", "pad", 0, "G1"))",
            R"(setGenericAssignment("{P}", "pad", "uri/Mouse", "Click", true, 0, "G1"))"}));
}

void ViewAssignmentsTest::editOpensTheCommandOfTheKey()
{
    m_fixture->openWithCommands();
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
    m_fixture->openWithCommands();
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
    m_fixture->openWithCommands();
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
    m_fixture->openWithCommands();
    m_fixture->host.answer("yesno", false);
    QVERIFY(m_fixture->call(slot, Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList(question));
}

void ViewAssignmentsTest::useDefaultForAllGoesByContextIdAndCleansUp()
{
    m_fixture->openWithCommands(
        "<controls><control id='G2'/><control id='G10'/><control id='G1'/></controls>");
    m_fixture->host.answer("yesno", true);
    QVERIFY(m_fixture->call("onUseDefaultForAllGkeys", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({UseDefaultQuestion, R"(setDefaultAssignment("{Q}", "pad", 0, "G1"))",
            R"(setDefaultAssignment("{Q}", "pad", 0, "G10"))",
            R"(setDefaultAssignment("{Q}", "pad", 0, "G2"))", R"(cleanupBackup("{Q}", "pad"))"}));
}

void ViewAssignmentsTest::useGenericForAllTakesEmptyValuesAndCleansNothing()
{
    m_fixture->openWithCommands(GenericDevice);
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
    m_fixture->openWithCommands(GenericDevice);
    QVERIFY(m_fixture->call("onUnassignAllGkeys", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(),
        QStringList({R"(removeAssignment("{P}", "pad", 0, "G1"))",
            R"(setGenericAssignment("{P}", "pad", "uri/Mouse", "Click", true, 0, "G1"))",
            R"(removeAssignment("{P}", "pad", 0, "G2"))", R"(removeAssignment("{P}", "pad", 0, "G3"))"}));
}

void ViewAssignmentsTest::printNamesAllKeys()
{
    m_fixture->openWithCommands();
    QVERIFY(m_fixture->call("onPrintProfile", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList(R"(printProfile("{Q}", "pad", ["G1", "G2", "G3"]))"));
}

void ViewAssignmentsTest::keysThatGoDuringTheQuestionArePassedOver()
{
    m_fixture->openWithCommands();
    m_fixture->host.answer("yesno", [this](const RecordedCall&) {
        m_fixture->view.deinit(cJsonValue(), nullptr);
        m_fixture->host.clear();
        return QVariant(true);
    });
    QVERIFY(m_fixture->call("onUseGenericForAllGkeys", Q_ARG(QString, "{Q}")));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
    // And those that go while the host answers.
    init();
    m_fixture->openWithCommands();
    m_fixture->host.answer("removeAssignment", [this](const RecordedCall&) {
        m_fixture->view.deinit(cJsonValue(), nullptr);
        m_fixture->host.clear();
    });
    QVERIFY(m_fixture->call("onUnassignAllGkeys", Q_ARG(QString, "{P}")));
    QCOMPARE(m_fixture->host.takeCalls(), QStringList());
}

void ViewAssignmentsTest::newCommandOpensTheEditor()
{
    m_fixture->openWithCommands();
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
    QCOMPARE(m_fixture->selectedCommands(), QStringList("Run"));
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
    m_fixture->openWithCommands();
    m_fixture->host.answer("getMacroTypeByID", [=](const RecordedCall&) {
        return isKnown ? QVariant::fromValue(makeMacroType({}, isPrivate)) : QVariant();
    });
    int opened = 0;
    const DialogDriver driver([&](QWidget& dialog) {
        ++opened;
        dialog.close();
    });
    QVERIFY(m_fixture->call("loadMacroEditor", Q_ARG(cJsonValue, makeMacro("{1}", "Jump"))));
    const QStringList calls = m_fixture->host.takeCalls();
    const QString typeQuestion = R"(getMacroTypeByID("uri/keystroke"))";
    QCOMPARE(calls.constFirst(), typeQuestion);
    QCOMPARE(opened, opens ? 1 : 0);
    // Nor is anything said about it.
    if (!opens)
        QCOMPARE(calls, QStringList(typeQuestion));
}

void ViewAssignmentsTest::savedCommandIsSelectedAndSeen()
{
    m_fixture->openWithCommands();
    for (int i = 0; i < 30; ++i)
        m_fixture->putMacro(
            "{P}", makeMacro(qPrintable(QString::number(100 + i)), qPrintable(QString("C%1").arg(i))));
    m_fixture->host.publishProfileSelectionChanged("{P}");
    cMacroList& list = *m_fixture->macroList();
    QTRY_COMPARE(list.count(), 32);
    m_fixture->canvas->show();
    list.item(0)->setSelected(true);
    QVERIFY(m_fixture->call("onMacroEditorClosed", Q_ARG(QString, "{2}")));
    QCOMPARE(m_fixture->selectedCommands(), QStringList("Run"));
    QCOMPARE(list.currentItem()->text(), QString("Run"));
    const QRect place = list.visualItemRect(list.currentItem());
    QVERIFY(place.top() >= 0 && place.bottom() < list.viewport()->height());
}

void ViewAssignmentsTest::savedCommandWithoutARowChangesNothing()
{
    m_fixture->openWithCommands();
    QVERIFY(m_fixture->call("onMacroEditorClosed", Q_ARG(QString, "{2}")));
    QVERIFY(m_fixture->call("onMacroEditorClosed", Q_ARG(QString, "")));
    QVERIFY(m_fixture->call("onMacroEditorClosed", Q_ARG(QString, "{9}")));
    QCOMPARE(m_fixture->selectedCommands(), QStringList("Run"));
}

VELTRANO_TEST_MAIN(ViewAssignmentsTest)
#include "ViewAssignmentsTest.moc"
