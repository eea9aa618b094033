#include "CommandEditorTestCase.h"

#include <FixedIds.h>
#include <ServiceNames.h>

using namespace TestIds;

/// How the page gets on with the forms of the types: which one is in front, what it lets be saved, and where
/// one is missing.
class MacroFormsTest : public CommandEditorTestCase
{
    Q_OBJECT

private Q_SLOTS:
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
    void helpIsTheForms();
    void cancelAsksTheForm_data();
    void cancelAsksTheForm();
    void commandOfAnotherTypeKeepsItsName_data();
    void commandOfAnotherTypeKeepsItsName();
    void typeWithoutAFormKeepsItsPlace();
    void formThatIsGoneIsLeftAlone();
    void hostWithoutTypesOffersNothing();
};

void MacroFormsTest::nextPageTakesOver()
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

void MacroFormsTest::nextPageIsAskedWhatCanBeSaved_data()
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

void MacroFormsTest::nextPageIsAskedWhatCanBeSaved()
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

void MacroFormsTest::placeOutsideKeepsThePage_data()
{
    QTest::addColumn<int>("place");
    for (int place : {-2, -1, 3, 100})
        QTest::newRow(qPrintable(QString::number(place))) << place;
}

void MacroFormsTest::placeOutsideKeepsThePage()
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

void MacroFormsTest::typeThatDoesNotRepeatHidesTheOptions()
{
    openPage();
    text().repeats = false;
    QVERIFY(group().isVisible());
    page().changePage(1);
    QVERIFY(!group().isVisible());
    page().changePage(0);
    QVERIFY(group().isVisible());
}

void MacroFormsTest::unknownAnswerLeavesTheOptionsAsTheyAre()
{
    openPage();
    text().repeats = false;
    page().changePage(1);
    host().setTypes({});
    page().changePage(0);
    QVERIFY(!group().isVisible());
}

void MacroFormsTest::nameAndFormDecideWhatCanBeSaved_data()
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

void MacroFormsTest::nameAndFormDecideWhatCanBeSaved()
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

void MacroFormsTest::formIsNotAskedWithoutAName()
{
    openPage();
    keys().form->timesAsked = 0;
    page().macroNameChanged(QString());
    QCOMPARE(keys().form->timesAsked, 0);
    name().setText("a");
    QVERIFY(keys().form->timesAsked > 0);
}

void MacroFormsTest::proposalOfAFormBecomesTheName()
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

void MacroFormsTest::eachKeystrokeCounts()
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

void MacroFormsTest::helpIsTheForms()
{
    openPage();
    page().changePage(1);
    takeLog();
    grayButton("Help")->click();
    QCOMPARE(takeLog(), QStringList({"urn:text: onHelp"}));
}

void MacroFormsTest::cancelAsksTheForm_data()
{
    QTest::addColumn<bool>("canBeLeft");
    QTest::newRow("agrees") << true;
    QTest::newRow("objects") << false;
}

void MacroFormsTest::cancelAsksTheForm()
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

void MacroFormsTest::commandOfAnotherTypeKeepsItsName_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("title");
    QTest::newRow("private") << Hidden << "Hidden";
    QTest::newRow("unknown") << "urn:none"
                             << "";
    QTest::newRow("no type") << ""
                             << "";
}

void MacroFormsTest::commandOfAnotherTypeKeepsItsName()
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
    const QLabel* const remark = part<QLabel>("QuietText");
    QVERIFY(remark->isVisible());
    QCOMPARE(remark->text(), QString("There is nothing to set for this kind of command."));
    QVERIFY(remark->wordWrap());
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
    QVERIFY(!remark->isVisible());
    QCOMPARE(this->title(), QString("Text"));
}

void MacroFormsTest::typeWithoutAFormKeepsItsPlace()
{
    text().hasForm = false;
    openPage();
    page().changePage(1);
    QCOMPARE(stack().currentWidget(), static_cast<QWidget*>(keys().form));
    page().changePage(2);
    QCOMPARE(title(), QString("Media"));
}

void MacroFormsTest::formThatIsGoneIsLeftAlone()
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

void MacroFormsTest::hostWithoutTypesOffersNothing()
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

VELTRANO_TEST_MAIN(MacroFormsTest)
#include "MacroFormsTest.moc"
