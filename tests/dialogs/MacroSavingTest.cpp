#include "MacroSavingTestCase.h"

#include <ServiceNames.h>

#include <QRegularExpression>
#include <QTranslator>
#include <QUuid>

#include <algorithm>

using namespace TestIds;

namespace {

/// Turns each text of the page around.
class TurningTranslator : public QTranslator
{
    Q_OBJECT

public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (qstrcmp(context, "cMacroEditPage") != 0)
            return QString();
        QByteArray turned(text);
        std::reverse(turned.begin(), turned.end());
        return QString::fromLatin1(turned);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

/// What OK stores, also where the form objects or is missing or the host does not answer.
class MacroSavingTest : public MacroSavingTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void newCommandIsAdded();
    void newIdIsInCapitals();
    void newBuiltInIsLookedForAndAdded_data();
    void newBuiltInIsLookedForAndAdded();
    void newBuiltInThatExistsIsReported();
    void editedCommandIsStored();
    void editedCommandKeepsWhatIsNotEdited();
    void editThatIsNotAllowedStoresNothing();
    void editedBuiltInThatIsNewIsStored();
    void editedBuiltInThatIsTheSameStoresNothing();
    void editedBuiltInThatExistsGoesIntoThatOne();
    void commandBecomesABuiltInThatExists();
    void builtInBecomesACommand();
    void wrongFormIsNotSaved_data();
    void wrongFormIsNotSaved();
    void fixedNameIsTranslatedForTheUser();
    void repeatGoesIntoTheRecord_data();
    void repeatGoesIntoTheRecord();
    void hiddenRepeatOptionsStillCount();
    void commandWithoutAFormIsRenamed();
    void commandWithoutAFormStaysAsItIs();
    void profileIsTheOneThatTheViewShowsWhenSaving();
    void hostThatDoesNotAnswerBreaksNothing();
    void formThatGoesDuringItsCheckIsLeftAlone();
};

void MacroSavingTest::newCommandIsAdded()
{
    openNew(1);
    name().setText("Greet");
    text().form->content = json("{\"text\": \"hi\"}");
    takeLog();
    okButton().click();
    QCOMPARE(takeLog(),
        QStringList({"urn:text: onOK", call("addMacro", added(Text, "Greet", json("{\"text\": \"hi\"}"))),
            "signal macroEditorClosed {NEW}", "signal accepted 1"}));
}

void MacroSavingTest::newIdIsInCapitals()
{
    openNew(0);
    name().setText("Shoot");
    page().ok();
    const QString uid = sentRecord("addMacro")["uid"].toString();
    QVERIFY2(QRegularExpression("^\\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\}$").match(uid).hasMatch(),
        qPrintable(uid));
    QVERIFY(!QUuid(uid).isNull());
}

void MacroSavingTest::newBuiltInIsLookedForAndAdded_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("mouse function") << QString(MacroNamespaces::MouseFunction);
    QTest::newRow("media") << QString(MacroNamespaces::Media);
    QTest::newRow("hotkeys") << QString(MacroNamespaces::Hotkeys);
}

void MacroSavingTest::newBuiltInIsLookedForAndAdded()
{
    QFETCH(QString, type);
    const QSharedPointer<FakeMacroType> builtIn(new FakeMacroType(host(), type, "Built-in"));
    builtIn->showsName = false;
    host().setTypes({builtIn});
    openNew(0);
    builtIn->form->fixedName = "Copy";
    builtIn->form->content = 3;
    page().ok();
    QCOMPARE(takeLog(),
        QStringList({type + ": onOK",
            QString("getMacroByTypeAndName(\"{PROFILE}\", \"%1\", \"Copy\", false)").arg(type),
            call("addMacro", added(type, "Copy", 3)), "signal macroEditorClosed {NEW}",
            "signal accepted 1"}));
}

void MacroSavingTest::newBuiltInThatExistsIsReported()
{
    openNew(2);
    offer("{7}");
    media().form->fixedName = "Louder";
    page().ok();
    QCOMPARE(takeLog(),
        QStringList(
            {mediaNote("onOK"), lookup("Louder"), "signal macroEditorClosed {7}", "signal accepted 1"}));
}

void MacroSavingTest::editedCommandIsStored()
{
    openEdit(record(Keys), 0);
    name().setText("Fire");
    keys().form->content = "new";
    takeLog();
    okButton().click();
    const cJsonValue macro = saved("{1}", Keys, "Fire", "new");
    QCOMPARE(takeLog(),
        QStringList({"urn:keys: onOK", "getMacroByID(\"{PROFILE}\", \"{1}\")", permission(macro),
            call("editMacro", macro), "signal macroEditorClosed {1}", "signal accepted 1"}));
}

void MacroSavingTest::editedCommandKeepsWhatIsNotEdited()
{
    cJsonValue macro = record(Keys);
    macro["hidden"] = true;
    macro["later"] = json("{\"a\": [1]}");
    openEdit(macro, 0);
    page().ok();
    QCOMPARE(HVS::toJsonText(sentRecord("editMacro")), HVS::toJsonText(macro));
}

void MacroSavingTest::editThatIsNotAllowedStoresNothing()
{
    host().answer("canMacroBeChangedTo", false);
    openEdit(record(Keys), 0);
    page().ok();
    QCOMPARE(takeLog(),
        QStringList({"urn:keys: onOK", "getMacroByID(\"{PROFILE}\", \"{1}\")", permission(record(Keys)),
            "signal rejected 0"}));
}

void MacroSavingTest::editedBuiltInThatIsNewIsStored()
{
    openEdit(record(Media, "Louder"), 2);
    media().form->fixedName = "Softer";
    page().ok();
    const cJsonValue macro = saved("{1}", Media, "Softer", 5);
    QCOMPARE(takeLog(),
        QStringList(
            {mediaNote("onOK"), "getMacroByID(\"{PROFILE}\", \"{1}\")", permission(macro), lookup("Softer"),
                call("editMacro", macro), "signal macroEditorClosed {1}", "signal accepted 1"}));
}

void MacroSavingTest::editedBuiltInThatIsTheSameStoresNothing()
{
    openEdit(record(Media, "Louder"), 2);
    offer("{1}");
    media().form->fixedName = "Louder";
    page().ok();
    QCOMPARE(takeLog(),
        QStringList(
            {mediaNote("onOK"), "getMacroByID(\"{PROFILE}\", \"{1}\")", permission(record(Media, "Louder")),
                lookup("Louder"), "signal macroEditorClosed {1}", "signal accepted 1"}));
}

void MacroSavingTest::editedBuiltInThatExistsGoesIntoThatOne()
{
    openEdit(record(Media, "Louder"), 2);
    offer("{7}");
    media().form->fixedName = "Softer";
    page().ok();
    const cJsonValue macro = saved("{1}", Media, "Softer", 5);
    QCOMPARE(takeLog(),
        QStringList({mediaNote("onOK"), "getMacroByID(\"{PROFILE}\", \"{1}\")", permission(macro),
            lookup("Softer"), "moveAssignments(\"{PROFILE}\", \"{1}\", \"{7}\")", call("deleteMacro", macro),
            "signal macroEditorClosed {7}", "signal accepted 1"}));
}

void MacroSavingTest::commandBecomesABuiltInThatExists()
{
    openEdit(record(Keys), 0);
    offer("{7}");
    page().changePage(2);
    media().form->fixedName = "Louder";
    media().form->content = 8;
    takeLog();
    page().ok();
    const cJsonValue macro = saved("{1}", Media, "Louder", 8);
    QCOMPARE(takeLog(),
        QStringList({mediaNote("onOK"), "getMacroByID(\"{PROFILE}\", \"{1}\")", permission(macro),
            lookup("Louder"), "moveAssignments(\"{PROFILE}\", \"{1}\", \"{7}\")", call("deleteMacro", macro),
            "signal macroEditorClosed {7}", "signal accepted 1"}));
}

void MacroSavingTest::builtInBecomesACommand()
{
    openEdit(record(Media, "Louder"), 2);
    page().changePage(1);
    text().form->content = 8;
    takeLog();
    page().ok();
    const cJsonValue macro = saved("{1}", Text, "Louder", 8);
    QCOMPARE(takeLog(),
        QStringList({"urn:text: onOK", "getMacroByID(\"{PROFILE}\", \"{1}\")", permission(macro),
            call("editMacro", macro), "signal macroEditorClosed {1}", "signal accepted 1"}));
}

void MacroSavingTest::wrongFormIsNotSaved_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::addColumn<bool>("isAdd");
    QTest::newRow("new") << cJsonValue() << false;
    QTest::newRow("add") << cJsonValue() << true;
    QTest::newRow("edit") << record(Keys) << false;
}

void MacroSavingTest::wrongFormIsNotSaved()
{
    QFETCH(cJsonValue, macro);
    QFETCH(bool, isAdd);
    openEdit(macro, 0);
    keys().form->isRight = false;
    name().setText("Shoot");
    takeLog();
    isAdd ? page().add() : page().ok();
    QCOMPARE(takeLog(), QStringList({"urn:keys: onOK"}));
    QCOMPARE(name().text(), QString("Shoot"));
    QVERIFY(grayButton("Cancel"));
}

void MacroSavingTest::fixedNameIsTranslatedForTheUser()
{
    TurningTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    openNew(2);
    media().form->fixedName = "Louder";
    page().ok();
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(sentRecord("addMacro")["name"].toString(), QString("Louder"));
    QCOMPARE(sentRecord("addMacro")["display_name"].toString(), QString("reduoL"));
}

void MacroSavingTest::repeatGoesIntoTheRecord_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("delay");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const char* before, int option, const char* delay,
                         const char* after) {
        QTest::newRow(name) << QByteArray(before) << option << QString(delay) << QByteArray(after);
    };
    row("none stays none", "", 0, "25", "null");
    row("none removes it", "{\"mode\": \"toggle\", \"delay\": 7}", 0, "7", "null");
    row("unknown mode counts as none", "{\"mode\": \"forever\", \"delay\": 7}", 0, "7", "null");
    row("while pressed", "", 1, "25", "{\"delay\":25,\"mode\":\"whilepressed\"}");
    row("toggle", "", 2, "100", "{\"delay\":100,\"mode\":\"toggle\"}");
    row("toggle becomes while pressed", "{\"mode\": \"toggle\", \"delay\": 7}", 1, "8",
        "{\"delay\":8,\"mode\":\"whilepressed\"}");
    row("untouched", "{\"mode\": \"toggle\", \"delay\": 7}", 2, "7", "{\"delay\":7,\"mode\":\"toggle\"}");
    row("other keys stay", "{\"mode\": \"toggle\", \"delay\": 7, \"count\": 3}", 2, "7",
        "{\"count\":3,\"delay\":7,\"mode\":\"toggle\"}");
    row("no delay", "", 1, "", "{\"delay\":0,\"mode\":\"whilepressed\"}");
    row("not an object", "\"often\"", 2, "9", "{\"delay\":9,\"mode\":\"toggle\"}");
}

void MacroSavingTest::repeatGoesIntoTheRecord()
{
    QFETCH(QByteArray, before);
    QFETCH(int, option);
    QFETCH(QString, delay);
    QFETCH(QByteArray, after);
    cJsonValue macro = record(Keys);
    if (!before.isEmpty())
        macro["repeat"] = json(before);
    openEdit(macro, 0);
    repeat().setCurrentIndex(option);
    this->delay().setText(delay);
    page().ok();
    const cJsonValue sent = sentRecord("editMacro");
    QCOMPARE(HVS::toJsonText(sent["repeat"]), after);
    QCOMPARE(sent.contains("repeat"), after != "null");
}

void MacroSavingTest::hiddenRepeatOptionsStillCount()
{
    text().repeats = false;
    openNew(0);
    name().setText("Greet");
    repeat().setCurrentIndex(2);
    page().changePage(1);
    QVERIFY(!repeat().isVisible());
    page().ok();
    QCOMPARE(
        HVS::toJsonText(sentRecord("addMacro")["repeat"]), QByteArray("{\"delay\":25,\"mode\":\"toggle\"}"));
}

void MacroSavingTest::commandWithoutAFormIsRenamed()
{
    openPage(record(Hidden));
    listen();
    name().setText("Fire");
    takeLog();
    page().ok();
    const cJsonValue macro = saved("{1}", Hidden, "Fire", 5);
    QCOMPARE(takeLog(),
        QStringList({"getMacroByID(\"{PROFILE}\", \"{1}\")", permission(macro), call("editMacro", macro),
            "signal macroEditorClosed {1}", "signal accepted 1"}));
}

void MacroSavingTest::commandWithoutAFormStaysAsItIs()
{
    cJsonValue macro = record("urn:none");
    macro["name"] = "Inner";
    openPage(macro);
    page().ok();
    QCOMPARE(HVS::toJsonText(sentRecord("editMacro")), HVS::toJsonText(macro));
}

void MacroSavingTest::profileIsTheOneThatTheViewShowsWhenSaving()
{
    openNew(0);
    name().setText("Shoot");
    host().showProfile("{OTHER}");
    page().ok();
    QCOMPARE(host().calls().constLast().values.constFirst().toString(), QString("{OTHER}"));
}

void MacroSavingTest::hostThatDoesNotAnswerBreaksNothing()
{
    openNew(2);
    media().form->fixedName = "Louder";
    host().remove(ServiceNames::ProfileMgr);
    const ExpectedMessage lookupMessage(
        QtCriticalMsg, "Failed to call 'getMacroByTypeAndName' on service Profiler.ProfileMgr");
    const ExpectedMessage addMessage(
        QtCriticalMsg, "Failed to call 'addMacro' on service Profiler.ProfileMgr");
    page().ok();
    QCOMPARE(takeLog(),
        QStringList(
            {mediaNote("onOK"), lookup("Louder"), call("addMacro", added(Media, "Louder", cJsonValue())),
                "signal macroEditorClosed {NEW}", "signal accepted 1"}));
}

void MacroSavingTest::formThatGoesDuringItsCheckIsLeftAlone()
{
    openEdit(record(Keys), 0);
    keys().form->goesDuringCheck = true;
    page().ok();
    QVERIFY(!keys().form);
    QVERIFY(sentRecord("editMacro") == record(Keys));
}

VELTRANO_TEST_MAIN(MacroSavingTest)
#include "MacroSavingTest.moc"
