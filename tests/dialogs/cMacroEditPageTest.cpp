#include "CommandEditorTestCase.h"

#include <FixedIds.h>
#include <MetaMembers.h>
#include <MethodText.h>
#include <ServiceNames.h>

#include <QBoxLayout>
#include <QGroupBox>
#include <QIntValidator>
#include <QStackedWidget>

using namespace TestIds;

class cMacroEditPageTest : public CommandEditorTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembers();
    void parametersBearTheirNames();
    void newPageStartsEmpty();
    void editPageShowsTheRecord();
    void onlyTheFormOfTheRecordsTypeGetsTheRecord_data();
    void onlyTheFormOfTheRecordsTypeGetsTheRecord();
    void partsStandFromTopToBottom();
    void buttonsStandInARow_data();
    void buttonsStandInARow();
    void fixedNameIsNotShown_data();
    void fixedNameIsNotShown();

    void nextPageTakesOver();
    void nextPageIsAskedWhatCanBeSaved_data();
    void nextPageIsAskedWhatCanBeSaved();
    void placeOutsideKeepsThePage_data();
    void placeOutsideKeepsThePage();
    void typeThatDoesNotRepeatHidesTheOptions();
    void unknownAnswerLeavesTheOptionsAsTheyAre();

    void nameAndFormDecideWhatCanBeSaved_data();
    void nameAndFormDecideWhatCanBeSaved();
    void formIsNotAskedWithoutAName();
    void proposalOfAFormBecomesTheName();
    void eachKeystrokeCounts();

    void repeatOfTheRecordIsShown_data();
    void repeatOfTheRecordIsShown();
    void delayCanBeSetForRepeats();
    void delayTakesNumbersOnly();

    void helpIsTheForms();
    void cancelAsksTheForm_data();
    void cancelAsksTheForm();

    void commandOfAnotherTypeKeepsItsName_data();
    void commandOfAnotherTypeKeepsItsName();
    void typeWithoutAFormKeepsItsPlace();
    void formThatIsGoneIsLeftAlone();
    void hostWithoutTypesOffersNothing();

private:
    QGroupBox& group() { return *page().findChild<QGroupBox*>(); }
    QStackedWidget& stack() { return *page().findChild<QStackedWidget*>(); }
    QString title() { return part<QLabel>("DialogTitle")->text(); }
    /// Texts of the buttons of the row, from left to right.
    QString row() const
    {
        QMap<int, QString> buttons;
        for (const QPushButton* button : page().findChildren<QPushButton*>()) {
            if (button->isVisible())
                buttons[button->x()] = button->text();
        }
        return QStringList(buttons.values()).join(' ');
    }
    cMacroEditPage& page() const
    {
        return const_cast<cMacroEditPageTest*>(this)->CommandEditorTestCase::page();
    }
};

void cMacroEditPageTest::hasItsMembers()
{
    const QMetaObject& type = cMacroEditPage::staticMetaObject;
    QCOMPARE(type.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(MetaMembers::signalsOf(type),
        QStringList({"accepted(int)", "rejected(int)", "macroEditorClosed(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(type),
        QStringList({"macroEditPageNameChanged(QString)", "macroNameChanged(QString)", "ok()", "cancel()",
            "add()", "onHelp()", "onRepeatOptionChanged(int)"}));
}

void cMacroEditPageTest::parametersBearTheirNames()
{
    const QStringList all = methodTexts(cMacroEditPage::staticMetaObject);
    for (const char* text : {"accepted(int result)", "rejected(int result)",
             "macroEditorClosed(QString macroID)", "macroEditPageNameChanged(QString name)",
             "macroNameChanged(QString name)", "onRepeatOptionChanged(int optionIdx)"})
        QVERIFY2(all.contains(text), text);
}

void cMacroEditPageTest::newPageStartsEmpty()
{
    openPage();
    QCOMPARE(takeLog(), QStringList({"getAllMacroTypes()"}));
    QCOMPARE(page().property("uiType").toString(), QString("meBackground"));
    QCOMPARE(title(), QString());
    QCOMPARE(part<QLabel>("meNameLabel")->text(), QString("Name:"));
    QCOMPARE(name().text(), QString());
    QCOMPARE(name().contextMenuPolicy(), Qt::NoContextMenu);
    QVERIFY(name().isVisible());
    QCOMPARE(stack().count(), 3);
    QCOMPARE(stack().currentWidget(), static_cast<QWidget*>(keys().form));
    QCOMPARE(group().title(), QString("Repeat Options"));
    QCOMPARE(group().property("uiType").toString(), QString("GroupBoxTitleWhite"));
    QStringList options;
    for (int i = 0; i < repeat().count(); ++i)
        options << repeat().itemText(i) + repeat().itemData(i).toString();
    QCOMPARE(options, QStringList({"None0", "While Pressed1", "Toggle2"}));
    QCOMPARE(repeat().currentIndex(), 0);
    QCOMPARE(delay().text(), QString("25"));
    QVERIFY(!delay().isEnabled());
    QCOMPARE(delay().maximumWidth(), 60);
    QCOMPARE(delay().contextMenuPolicy(), Qt::NoContextMenu);
    QVERIFY(okButton().isDefault());
    QCOMPARE(savers(), QString());
    QVERIFY(grayButton("Cancel")->isEnabled());
    QVERIFY(grayButton("Help")->isEnabled());
    QCOMPARE(keys().form->property("MacroType").toString(), QString("Keys"));
    QCOMPARE(media().form->property("MacroType").toString(), QString("Media"));
}

void cMacroEditPageTest::editPageShowsTheRecord()
{
    cJsonValue macro = record(Text);
    macro["name"] = "Inner";
    openPage(macro);
    QCOMPARE(takeLog(), QStringList({"getAllMacroTypes()"}));
    QCOMPARE(name().text(), QString("Shoot"));
    QVERIFY(okButton().isEnabled());
}

void cMacroEditPageTest::onlyTheFormOfTheRecordsTypeGetsTheRecord_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::newRow("new") << cJsonValue();
    QTest::newRow("first type") << record(Keys);
    QTest::newRow("later type") << record(Text);
    QTest::newRow("unknown type") << record("urn:none");
    QTest::newRow("no type") << json("{\"display_name\": \"x\"}");
}

void cMacroEditPageTest::onlyTheFormOfTheRecordsTypeGetsTheRecord()
{
    QFETCH(cJsonValue, macro);
    openPage(macro);
    for (const FakeMacroType* type : {&keys(), &text(), &media()}) {
        const bool isMatch = !macro.isNull()
            && const_cast<FakeMacroType*>(type)->info()["uid"] == qAsConst(macro)["namespace"];
        QVERIFY(type->form->record == (isMatch ? macro : cJsonValue()));
    }
    QVERIFY(!hidden().form);
}

void cMacroEditPageTest::partsStandFromTopToBottom()
{
    openPage();
    auto* const layout = qobject_cast<QVBoxLayout*>(page().layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 10, 0, 0));
    QCOMPARE(layout->spacing(), 5);
    int last = -1;
    for (const QWidget* widget : std::initializer_list<QWidget*> {part<QLabel>("DialogTitle"),
             part<QLabel>("meNameLabel"), &name(), &stack(), &group(), &okButton()}) {
        QVERIFY(widget->y() > last);
        last = widget->geometry().bottom();
    }
    int stretch = -1;
    for (int i = 0; i < layout->count(); ++i) {
        if (layout->stretch(i) == 1000)
            stretch = i;
    }
    QCOMPARE(layout->itemAt(stretch + 1)->widget(), &group());
    QCOMPARE(layout->stretch(layout->count() - 1), 1);
    QCOMPARE(group().layout()->contentsMargins(), QMargins(15, 15, 0, 0));
    QCOMPARE(group().layout()->spacing(), 5);
}

void cMacroEditPageTest::buttonsStandInARow_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<bool>("withAddButton");
    QTest::addColumn<QString>("row");
    QTest::newRow("new") << true << false << "OK Cancel Help";
    QTest::newRow("new, add") << true << true << "OK Cancel Add Help";
    QTest::newRow("edit") << false << false << "OK Cancel Help";
    QTest::newRow("edit, add") << false << true << "OK Cancel Help";
}

void cMacroEditPageTest::buttonsStandInARow()
{
    QFETCH(bool, isNew);
    QFETCH(bool, withAddButton);
    QFETCH(QString, row);
    openPage(isNew ? cJsonValue() : record(Keys), withAddButton);
    QCOMPARE(this->row(), row);
    // It is there, and only left out of the row.
    QCOMPARE(grayButton("Add") != nullptr, withAddButton);
    QCOMPARE(okButton().isEnabled(), !isNew);
}

void cMacroEditPageTest::fixedNameIsNotShown_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::addColumn<bool>("isFirstFixed");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("new, first type has names") << cJsonValue() << false << true;
    QTest::newRow("new, first type has fixed names") << cJsonValue() << true << false;
    QTest::newRow("edit, its type has names") << record(Text) << true << true;
    QTest::newRow("edit, its type has fixed names") << record(MacroNamespaces::Media) << false << false;
}

void cMacroEditPageTest::fixedNameIsNotShown()
{
    QFETCH(cJsonValue, macro);
    QFETCH(bool, isFirstFixed);
    QFETCH(bool, isShown);
    keys().showsName = !isFirstFixed;
    openPage(macro);
    QCOMPARE(part<QLabel>("meNameLabel")->isVisible(), isShown);
    QCOMPARE(name().isVisible(), isShown);
    QCOMPARE(name().isEnabled(), isShown);
}

void cMacroEditPageTest::nextPageTakesOver()
{
    openPage();
    takeLog();
    page().changePage(1);
    QCOMPARE(takeLog(), QStringList({"urn:keys: onCancel", "getMacroTypeByID(\"urn:text\")"}));
    QCOMPARE(stack().currentWidget(), static_cast<QWidget*>(text().form));
    QCOMPARE(title(), QString("Text"));
    QVERIFY(name().isVisible());

    name().setText("Louder");
    takeLog();
    page().changePage(2);
    QCOMPARE(takeLog(),
        QStringList({"urn:text: onCancel", MacroNamespaces::Media + QString(": setMacroName Louder"),
            "getMacroTypeByID(\"" + MacroNamespaces::Media + "\")"}));
    QVERIFY(!name().isVisible());
    QVERIFY(!name().isEnabled());
    QVERIFY(!part<QLabel>("meNameLabel")->isVisible());

    // A page that does not want to be left is left all the same.
    media().form->canBeLeft = false;
    page().changePage(0);
    QCOMPARE(takeLog(),
        QStringList({MacroNamespaces::Media + QString(": onCancel"), "getMacroTypeByID(\"urn:keys\")"}));
    QCOMPARE(stack().currentIndex(), 0);
    QVERIFY(name().isVisible());
    QVERIFY(name().isEnabled());
    QVERIFY(part<QLabel>("meNameLabel")->isVisible());
    // The same page once more is left as well.
    page().changePage(0);
    QCOMPARE(takeLog(), QStringList({"urn:keys: onCancel", "getMacroTypeByID(\"urn:keys\")"}));
}

void cMacroEditPageTest::nextPageIsAskedWhatCanBeSaved_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("typedName");
    QTest::addColumn<QString>("fixedName");
    QTest::addColumn<QString>("savers");
    QTest::newRow("no name") << 1 << ""
                             << ""
                             << "";
    // Whether the form is filled is seen when it is saved.
    QTest::newRow("name") << 1 << "a"
                          << ""
                          << "OK Add";
    QTest::newRow("no name, default name does not count") << 1 << ""
                                                          << "b"
                                                          << "";
    QTest::newRow("no fixed name") << 2 << ""
                                   << ""
                                   << "";
    QTest::newRow("typed name does not count") << 2 << "a"
                                               << ""
                                               << "";
    QTest::newRow("fixed name") << 2 << ""
                                << "b"
                                << "OK Add";
}

void cMacroEditPageTest::nextPageIsAskedWhatCanBeSaved()
{
    QFETCH(int, place);
    QFETCH(QString, typedName);
    QFETCH(QString, fixedName);
    QFETCH(QString, savers);
    openPage();
    name().setText(typedName);
    text().form->isFilled = false;
    text().form->fixedName = fixedName;
    media().form->fixedName = fixedName;
    page().changePage(place);
    QCOMPARE(this->savers(), savers);
}

void cMacroEditPageTest::placeOutsideKeepsThePage_data()
{
    QTest::addColumn<int>("place");
    for (int place : {-2, -1, 3, 100})
        QTest::newRow(qPrintable(QString::number(place))) << place;
}

void cMacroEditPageTest::placeOutsideKeepsThePage()
{
    QFETCH(int, place);
    openPage();
    page().changePage(1);
    takeLog();
    page().changePage(place);
    QCOMPARE(takeLog(), QStringList());
    QCOMPARE(stack().currentIndex(), 1);
    QCOMPARE(title(), QString("Text"));
}

void cMacroEditPageTest::typeThatDoesNotRepeatHidesTheOptions()
{
    openPage();
    text().repeats = false;
    QVERIFY(group().isVisible());
    page().changePage(1);
    QVERIFY(!group().isVisible());
    page().changePage(0);
    QVERIFY(group().isVisible());
}

void cMacroEditPageTest::unknownAnswerLeavesTheOptionsAsTheyAre()
{
    openPage();
    text().repeats = false;
    page().changePage(1);
    host().setTypes({});
    page().changePage(0);
    QVERIFY(!group().isVisible());
}

void cMacroEditPageTest::nameAndFormDecideWhatCanBeSaved_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("newName");
    QTest::addColumn<bool>("isFilled");
    QTest::addColumn<QString>("savers");
    QTest::newRow("new, name, filled") << true << "a" << true << "OK Add";
    QTest::newRow("new, name, not filled") << true << "a" << false << "";
    QTest::newRow("new, no name, filled") << true << "" << true << "";
    QTest::newRow("new, no name, not filled") << true << "" << false << "";
    QTest::newRow("edit, name, filled") << false << "a" << true << "OK Add";
    QTest::newRow("edit, name, not filled") << false << "a" << false << "";
    QTest::newRow("edit, no name, filled") << false << "" << true << "";
}

void cMacroEditPageTest::nameAndFormDecideWhatCanBeSaved()
{
    QFETCH(bool, isNew);
    QFETCH(QString, newName);
    QFETCH(bool, isFilled);
    QFETCH(QString, savers);
    openPage(isNew ? cJsonValue() : record(Keys));
    keys().form->isFilled = isFilled;
    page().macroNameChanged(newName);
    QCOMPARE(this->savers(), savers);
    QCOMPARE(name().text(), newName);
    // The other road to it: typing.
    keys().form->isFilled = true;
    page().macroNameChanged("other");
    QCOMPARE(this->savers(), QString("OK Add"));
    keys().form->isFilled = isFilled;
    name().setText(newName);
    QCOMPARE(this->savers(), savers);
}

void cMacroEditPageTest::formIsNotAskedWithoutAName()
{
    openPage();
    keys().form->timesAsked = 0;
    page().macroNameChanged(QString());
    QCOMPARE(keys().form->timesAsked, 0);
    name().setText("a");
    QVERIFY(keys().form->timesAsked > 0);
}

void cMacroEditPageTest::proposalOfAFormBecomesTheName()
{
    openPage();
    keys().form->propose("Ctrl+A");
    QCOMPARE(name().text(), QString("Ctrl+A"));
    QCOMPARE(savers(), QString("OK Add"));
    // A form may say the same name again when only its state has changed.
    keys().form->isFilled = false;
    keys().form->propose("Ctrl+A");
    QCOMPARE(savers(), QString());
    keys().form->isFilled = true;
    text().form->propose("Hello");
    QCOMPARE(name().text(), QString("Hello"));
    QCOMPARE(savers(), QString("OK Add"));
}

void cMacroEditPageTest::eachKeystrokeCounts()
{
    openPage();
    QStringList states;
    const auto strike = [&](Qt::Key key) {
        QTest::keyClick(&name(), key);
        states << savers();
    };
    strike(Qt::Key_A);
    strike(Qt::Key_B);
    strike(Qt::Key_Backspace);
    strike(Qt::Key_Backspace);
    keys().form->isFilled = false;
    strike(Qt::Key_A);
    keys().form->isFilled = true;
    strike(Qt::Key_B);
    QCOMPARE(states, QStringList({"OK Add", "OK Add", "OK Add", "", "", "OK Add"}));
}

void cMacroEditPageTest::repeatOfTheRecordIsShown_data()
{
    QTest::addColumn<QByteArray>("repeat");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("delay");
    const auto row = [](const char* repeat, const char* option, const char* delay) {
        QTest::newRow(repeat) << QByteArray(repeat) << QString(option) << QString(delay);
    };
    row("{\"mode\": \"whilepressed\", \"delay\": 40}", "While Pressed", "40");
    row("{\"mode\": \"toggle\", \"delay\": 0}", "Toggle", "0");
    row("{\"mode\": \"none\", \"delay\": 30}", "None", "30");
    row("{\"mode\": \"forever\", \"delay\": 77}", "None", "77");
    row("{\"mode\": \"Toggle\", \"delay\": 77}", "None", "77");
    row("{\"delay\": 12}", "None", "12");
    row("{\"mode\": 2, \"delay\": \"15\"}", "None", "15");
    row("{\"mode\": \"toggle\", \"delay\": 99999999}", "Toggle", "99999999");
}

void cMacroEditPageTest::repeatOfTheRecordIsShown()
{
    QFETCH(QByteArray, repeat);
    QFETCH(QString, option);
    QFETCH(QString, delay);
    cJsonValue macro = record(Keys);
    macro["repeat"] = json(repeat);
    openPage(macro);
    QCOMPARE(this->repeat().currentText(), option);
    QCOMPARE(this->delay().text(), delay);
    QCOMPARE(this->delay().isEnabled(), option != "None");
}

void cMacroEditPageTest::delayCanBeSetForRepeats()
{
    openPage();
    for (int option : {1, 0, 2, 1, 0}) {
        repeat().setCurrentIndex(option);
        QCOMPARE(delay().isEnabled(), option != 0);
    }
    QCOMPARE(delay().text(), QString("25"));
}

void cMacroEditPageTest::delayTakesNumbersOnly()
{
    openPage();
    const auto* const validator = page().findChild<QIntValidator*>();
    QCOMPARE(validator->bottom(), 0);
    QCOMPARE(validator->top(), 9999999);
    repeat().setCurrentIndex(1);
    delay().clear();
    QTest::keyClicks(&delay(), "-1x.2345678");
    QCOMPARE(delay().text(), QString("1234567"));
}

void cMacroEditPageTest::helpIsTheForms()
{
    openPage();
    page().changePage(1);
    takeLog();
    grayButton("Help")->click();
    QCOMPARE(takeLog(), QStringList({"urn:text: onHelp"}));
}

void cMacroEditPageTest::cancelAsksTheForm_data()
{
    QTest::addColumn<bool>("canBeLeft");
    QTest::newRow("agrees") << true;
    QTest::newRow("objects") << false;
}

void cMacroEditPageTest::cancelAsksTheForm()
{
    QFETCH(bool, canBeLeft);
    openPage(record(Text));
    listen();
    takeLog();
    text().form->canBeLeft = canBeLeft;
    grayButton("Cancel")->click();
    QStringList expected {"urn:text: onCancel"};
    if (canBeLeft)
        expected << "signal rejected 0";
    QCOMPARE(takeLog(), expected);
}

void cMacroEditPageTest::commandOfAnotherTypeKeepsItsName_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("title");
    QTest::newRow("private") << Hidden << "Hidden";
    QTest::newRow("unknown") << "urn:none"
                             << "";
    QTest::newRow("no type") << ""
                             << "";
}

void cMacroEditPageTest::commandOfAnotherTypeKeepsItsName()
{
    QFETCH(QString, type);
    QFETCH(QString, title);
    openPage(record(type));
    listen();
    QCOMPARE(name().text(), QString("Shoot"));
    QVERIFY(name().isVisible());
    QVERIFY(okButton().isEnabled());
    QCOMPARE(this->title(), title);
    // No form of another type is shown as if it were this command's.
    QVERIFY(!stack().isVisible());
    name().clear();
    QVERIFY(!okButton().isEnabled());
    name().setText("Fire");
    QVERIFY(okButton().isEnabled());
    takeLog();
    grayButton("Help")->click();
    grayButton("Cancel")->click();
    QCOMPARE(takeLog(),
        QStringList(
            {"LaunchHelp(\"com.veltrano.profile\", \"customizing_gkeys.htm\")", "signal rejected 0"}));
    // Choosing a type makes it one of that.
    page().changePage(1);
    QVERIFY(stack().isVisible());
    QCOMPARE(this->title(), QString("Text"));
}

void cMacroEditPageTest::typeWithoutAFormKeepsItsPlace()
{
    text().hasForm = false;
    openPage();
    page().changePage(1);
    QCOMPARE(stack().currentWidget(), static_cast<QWidget*>(keys().form));
    page().changePage(2);
    QCOMPARE(title(), QString("Media"));
}

void cMacroEditPageTest::formThatIsGoneIsLeftAlone()
{
    openPage();
    listen();
    name().setText("Shoot");
    delete keys().form;
    takeLog();
    name().setText("Fire");
    QVERIFY(!okButton().isEnabled());
    grayButton("Help")->click();
    grayButton("Cancel")->click();
    QCOMPARE(takeLog(),
        QStringList(
            {"LaunchHelp(\"com.veltrano.profile\", \"customizing_gkeys.htm\")", "signal rejected 0"}));
}

void cMacroEditPageTest::hostWithoutTypesOffersNothing()
{
    host().remove(ServiceNames::MacroTypeMgr);
    {
        const ExpectedMessage message(
            QtCriticalMsg, "Failed to call 'getAllMacroTypes' on service Profiler.MacroTypeMgr");
        openPage();
    }
    page().changePage(0);
    name().setText("Shoot");
    QCOMPARE(savers(), QString());
    listen();
    takeLog();
    grayButton("Cancel")->click();
    QCOMPARE(takeLog(), QStringList({"signal rejected 0"}));
}

VELTRANO_TEST_MAIN(cMacroEditPageTest)
#include "cMacroEditPageTest.moc"
