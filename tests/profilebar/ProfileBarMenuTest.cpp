#include "Bar.h"

#include <cGraphicsRibbonButton.h>
#include <DialogDriver.h>
#include <EditProfileDialog.h>
#include <GameDatabase.h>
#include <MenuDriver.h>
#include <ScanForGamesDialog.h>
#include <SceneEvents.h>
#include <TestCase.h>

#include <QAction>
#include <QActionGroup>
#include <QGraphicsView>

/// The buttons of the bar, its menus, and the dialogs that they open.
class ProfileBarMenuTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void newButtonOpensTheDialog();
    void wellOpensTheDialog();
    void scanOpensTheDialog();
    void newMenu();
    void newMenuCopiesProfiles();
    void menusOpenOnTheCanvas();
    void importMenu();
    void missingWindowIsLogged_data();
    void missingWindowIsLogged();
};

void ProfileBarMenuTest::newButtonOpensTheDialog()
{
    const Bar on;
    QString title;
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<EditProfileDialog*>(&dialog));
        QCOMPARE(dialog.parentWidget(), &on.host.window);
        title = dialog.windowTitle();
    });
    Q_EMIT on.newButton().clicked();
    QVERIFY(driver.hasRun());
    QCOMPARE(title, QString("New Profile"));
}

void ProfileBarMenuTest::wellOpensTheDialog()
{
    const Bar on;
    const DialogDriver driver(
        [](QDialog& dialog) { QCOMPARE(dialog.windowTitle(), QString("New Profile")); });
    const ExpectedMessage line(QtInfoMsg, QRegularExpression("empty profile well 4$"));
    QTest::mouseClick(on.list->viewport(), Qt::LeftButton, {}, QPoint(4 * 68 + 30, 40));
    QVERIFY(driver.hasRun());
}

void ProfileBarMenuTest::scanOpensTheDialog()
{
    const Bar on;
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<ScanForGamesDialog*>(&dialog));
        QCOMPARE(dialog.parentWidget(), &on.host.window);
    });
    const GameDatabase none;
    on.call("scanForGames");
    QVERIFY(driver.hasRun());
}

void ProfileBarMenuTest::newMenu()
{
    const Bar on({"Beta", "Default", "Rock & Roll"});
    QStringList entries;
    QStringList copies;
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) {
        entries = MenuDriver::entriesOf(menu);
        copies = MenuDriver::entriesOf(*menu.actions().last()->menu());
        place = menu.pos();
        QCOMPARE(menu.parentWidget(), &on.host.window);
    });
    Q_EMIT on.newButton().menu(QPoint(20, 30));
    QVERIFY(driver.hasRun());
    QCOMPARE(entries, QStringList({"Create New Profile...", "Scan For New Games", "Copy Existing Profile"}));
    QCOMPARE(copies, QStringList({"Beta", "Default", "Rock && Roll"}));
    QCOMPARE(place, on.host.window.mapToGlobal(QPoint(20, 30)));
}

void ProfileBarMenuTest::newMenuCopiesProfiles()
{
    Bar on({"Beta", "Default"});
    const MenuDriver driver([&](QMenu& menu) {
        QAction* copy = menu.actions().last()->menu()->actions().first();
        QVERIFY(copy->actionGroup());
        QCOMPARE(copy->data().toString(), QString("{Beta}"));
        on.host.clear();
        copy->trigger();
    });
    Q_EMIT on.newButton().menu(QPoint(20, 30));
    QVERIFY(driver.hasRun());
    QCOMPARE(on.host.takeRequests(), QStringList(R"(copyProfile("{Beta}"))"));
}

void ProfileBarMenuTest::menusOpenOnTheCanvas()
{
    // The canvas may stand anywhere in the window.
    Bar on;
    auto* const canvas = new QGraphicsView(&on.scene, &on.host.window);
    canvas->setFrameShape(QFrame::NoFrame);
    canvas->setSceneRect(0, 0, 600, 300);
    canvas->setGeometry(15, 40, 600, 300);
    on.host.window.show();
    on.bar->setPos(10, 5);
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) { place = menu.pos(); });
    on.call("onSaveMenuClicked");
    QVERIFY(driver.hasRun());
    QCOMPARE(place, on.host.window.mapToGlobal(QPoint(15 + 10 + 27, 40 + 5 + 54 + 41)));
}

void ProfileBarMenuTest::importMenu()
{
    Bar on;
    on.bar->setPos(100, 20);
    QStringList entries;
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) {
        entries = MenuDriver::entriesOf(menu);
        place = menu.pos();
    });
    SceneEvents::press(on.importButton());
    QVERIFY(driver.hasRun());
    QCOMPARE(entries, QStringList({"Import...", "Export..."}));
    QCOMPARE(place, on.host.window.mapToGlobal(QPoint(100 + 27, 20 + 54 + 41)));
}

void ProfileBarMenuTest::missingWindowIsLogged_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::newRow("new") << true;
    QTest::newRow("import") << false;
}

void ProfileBarMenuTest::missingWindowIsLogged()
{
    QFETCH(bool, isNew);
    Bar on;
    on.host.host.answer("window", static_cast<QWidget*>(nullptr));
    const MenuDriver driver([](QMenu&) {});
    const ExpectedMessage line(QtCriticalMsg, "Main Window is returning NULL window");
    if (isNew)
        Q_EMIT on.newButton().menu(QPoint(1, 1));
    else
        on.call("onSaveMenuClicked");
    QVERIFY(!driver.hasRun());
}

VELTRANO_TEST_MAIN(ProfileBarMenuTest)
#include "ProfileBarMenuTest.moc"
