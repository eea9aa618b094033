#include "MacroSavingTestCase.h"

using namespace TestIds;

/// What Add stores, and how the page goes on then.
class MacroAddingTest : public MacroSavingTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void addLeavesThePageOpen();
    void addedCommandsHaveIdsOfTheirOwn();
    void addOfABuiltInThatExistsIsReported();
    void addOfAFixedNameGoesOnInTheForm();
};

void MacroAddingTest::addLeavesThePageOpen()
{
    openNew(0);
    name().setText("Shoot");
    keys().form->content = 1;
    page().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page()));
    repeat().setFocus();
    takeLog();
    grayButton("Add")->click();
    QCOMPARE(takeLog(),
        QStringList({"urn:keys: onOK", call("addMacro", added(Keys, "Shoot", 1)), "urn:keys: onClearForm"}));
    QCOMPARE(name().text(), QString());
    QVERIFY(name().hasFocus());
    QVERIFY(grayButton("Close"));
    QCOMPARE(savers(), QString());

    // Once the next one can be saved, leaving is cancelling again.
    keys().form->isFilled = false;
    name().setText("Fire");
    QVERIFY(grayButton("Close"));
    keys().form->isFilled = true;
    keys().form->propose("Fire");
    QVERIFY(!grayButton("Close"));
    QVERIFY(grayButton("Cancel"));
    takeLog();
    okButton().click();
    QCOMPARE(takeLog(),
        QStringList({"urn:keys: onOK", call("addMacro", added(Keys, "Fire", 1)),
            "signal macroEditorClosed {NEW}", "signal accepted 1"}));
}

void MacroAddingTest::addedCommandsHaveIdsOfTheirOwn()
{
    openNew(0);
    QStringList uids;
    for (int i = 0; i < 3; ++i) {
        name().setText("Shoot");
        grayButton("Add")->click();
        uids << sentRecord("addMacro")["uid"].toString();
    }
    uids.removeDuplicates();
    QCOMPARE(uids.size(), 3);
}

void MacroAddingTest::addOfABuiltInThatExistsIsReported()
{
    openNew(2);
    offer("{7}");
    media().form->fixedName = "Louder";
    media().form->propose("Louder");
    takeLog();
    grayButton("Add")->click();
    QCOMPARE(takeLog(), QStringList({mediaNote("onOK"), lookup("Louder"), "signal macroEditorClosed {7}"}));
    QCOMPARE(name().text(), QString("Louder"));
    QCOMPARE(savers(), QString("OK Add"));
    QVERIFY(grayButton("Cancel"));
}

void MacroAddingTest::addOfAFixedNameGoesOnInTheForm()
{
    openNew(2);
    media().form->fixedName = "Louder";
    media().form->propose("Louder");
    page().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page()));
    grayButton("Add")->setFocus();
    takeLog();
    grayButton("Add")->click();
    QCOMPARE(takeLog(),
        QStringList({mediaNote("onOK"), lookup("Louder"),
            call("addMacro", added(Media, "Louder", cJsonValue())), mediaNote("onClearForm")}));
    // The name field is not there to take the focus.
    QVERIFY(media().form->hasFocus());
    QVERIFY(grayButton("Close"));
}

VELTRANO_TEST_MAIN(MacroAddingTest)
#include "MacroAddingTest.moc"
