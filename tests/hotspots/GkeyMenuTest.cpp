#include "KeySupport.h"

#include <cGraphicsButton.h>
#include <cMacroEditor.h>
#include <DialogDriver.h>
#include <GKey.h>
#include <MagnetTextItem.h>
#include <MenuDriver.h>
#include <SceneEvents.h>
#include <SceneRedraws.h>
#include <ShownInView.h>
#include <TestCase.h>

#include <QGraphicsSceneContextMenuEvent>

using namespace KeySupport;

namespace {

const QString Command = QStringLiteral("{1}");

/// Has the host number keys as it does.
void numberKeys(RecordingHost& host)
{
    host.answer("stringToGKey", [](const RecordedCall& call) {
        return QVariant::fromValue(GKey::GKey_t(call.values.first().toString().mid(1).toInt()));
    });
    host.answer("gKeyToString", [](const RecordedCall& call) {
        return QVariant(QStringLiteral("key %1").arg(call.values.first().toInt()));
    });
}

void askForMenu(QGraphicsItem& item, const QPoint& screenPos = QPoint(150, 150))
{
    QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
    event.setScreenPos(screenPos);
    item.scene()->sendEvent(&item, &event);
}

/// Opens the key's menu, and clicks an entry if there is a text.
QStringList entriesOf(KeyScene& on, const QString& choice = QString())
{
    QStringList entries;
    const MenuDriver driver([&](QMenu& menu) {
        entries = MenuDriver::entriesOf(menu);
        on.takeLog();
        if (!choice.isEmpty())
            MenuDriver::choose(menu, choice);
    });
    askForMenu(*on.key);
    return entries;
}

} // namespace

class GkeyMenuTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void entriesFollowWhatTheKeyHolds_data();
    void entriesFollowWhatTheKeyHolds();
    void entriesAreAskedForInOrder_data();
    void entriesAreAskedForInOrder();
    void chosenEntryDoesItsWork_data();
    void chosenEntryDoesItsWork();
    void greyEntryDoesNothing_data();
    void greyEntryDoesNothing();
    void editorOpensWhenTheMenuIsGone();
    void labelOpensTheKeysMenu();
    void contextButtonOpensTheMenuInTheWindow();
    void menuStaysInsideTheWindow_data();
    void menuStaysInsideTheWindow();
    void menuIsDeletedAfterwards();
    void keyIsRedrawnWhenItsMenuIsGone();
    void withoutMainWindowThereIsNoMenu_data();
    void withoutMainWindowThereIsNoMenu();
    void stickCommandGoesOnAllItsKeys_data();
    void stickCommandGoesOnAllItsKeys();
    void stickCommandGoesWhereItWasPutWhenTheMenuWasUsed();
};

void GkeyMenuTest::entriesFollowWhatTheKeyHolds_data()
{
    QTest::addColumn<QString>("contextID");
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<bool>("isHidden");
    QTest::addColumn<bool>("cannotBeUnassigned");
    QTest::addColumn<bool>("hasBackup");
    QTest::addColumn<QStringList>("entries");
    const auto row = [](const char* name, const QString& contextID, const QString& macroID, bool isHidden,
                         bool cannotBeUnassigned, bool hasBackup, const QStringList& entries) {
        QTest::newRow(name) << contextID << macroID << isHidden << cannotBeUnassigned << hasBackup << entries;
    };
    const QString none;
    row("empty", "G7", none, false, false, false, {"Edit...", "(Use Default)", "Use Generic"});
    row("empty with backup", "G7", none, false, false, true, {"Edit...", "Use Default", "Use Generic"});
    row("empty, can't be unassigned", "G7", none, false, true, false,
        {"Edit...", "(Use Default)", "Use Generic"});
    row("command", "G7", Command, false, false, false,
        {"Edit...", "(Use Default)", "Use Generic", "Unassign"});
    row("command with backup", "G7", Command, false, false, true,
        {"Edit...", "Use Default", "Use Generic", "Unassign"});
    row("command, can't be unassigned", "G7", Command, false, true, false,
        {"Edit...", "(Use Default)", "Use Generic", "(Unassign)"});
    row("hidden command", "G7", Command, true, false, false,
        {"Edit...", "(Use Default)", "(Use Generic)", "Unassign"});
    row("hidden command, can't be unassigned", "G7", Command, true, true, true,
        {"Edit...", "Use Default", "(Use Generic)", "(Unassign)"});
    row("mouse", "G26", Mouse, false, false, true, {"Unassign Mouse"});
    row("mouse, can't be unassigned", "G26", Mouse, false, true, true, {"Unassign Mouse"});
    row("hidden mouse", "G26", Mouse, true, false, true, {"Unassign Mouse"});
    row("joystick", "G25", Joystick, false, false, true, {"Unassign Joystick"});
    row("joystick on no stick", "G7", Joystick, false, false, true, {"Unassign Joystick"});
    const QStringList empty {"Edit...", "(Use Default)", "Use Generic"};
    row("before the stick", "G24", none, false, false, false, empty);
    row("stick's press", "G25", none, false, false, false, empty + QStringList({"-", "Assign Joystick"}));
    const QStringList stick = empty + QStringList({"-", "Assign Joystick", "Assign Mouse"});
    row("stick's first direction", "G26", none, false, false, false, stick);
    row("stick's last direction", "G29", none, false, false, false, stick);
    row("behind the stick", "G30", none, false, false, false, empty);
    row("stick with a command", "G27", Command, false, false, false,
        {"Edit...", "(Use Default)", "Use Generic", "Unassign", "-", "Assign Joystick", "Assign Mouse"});
}

void GkeyMenuTest::entriesFollowWhatTheKeyHolds()
{
    QFETCH(QString, contextID);
    QFETCH(QString, macroID);
    QFETCH(bool, isHidden);
    QFETCH(bool, cannotBeUnassigned);
    QFETCH(bool, hasBackup);
    QFETCH(QStringList, entries);
    KeyScene on(contextID);
    numberKeys(on.host);
    on.host.answer("assignmentHasBackup", hasBackup);
    on.key->setGenericInfo(QString(), QString(), false, false, cannotBeUnassigned);
    on.setMacro(macroID, isHidden);
    QCOMPARE(entriesOf(on), entries);
}

void GkeyMenuTest::entriesAreAskedForInOrder_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<QStringList>("log");
    const QStringList questions {mainWindow(), assignmentHasBackup(), stringToGKey()};
    QTest::newRow("empty") << QString() << questions;
    QTest::newRow("command") << Command << questions;
    QTest::newRow("mouse") << Mouse << QStringList(mainWindow());
    QTest::newRow("joystick") << Joystick << QStringList(mainWindow());
}

void GkeyMenuTest::entriesAreAskedForInOrder()
{
    QFETCH(QString, macroID);
    QFETCH(QStringList, log);
    KeyScene on;
    on.setMacro(macroID);
    const MenuDriver driver([](QMenu&) {});
    askForMenu(*on.key);
    QVERIFY(driver.hasRun());
    QCOMPARE(on.takeLog(), log);
}

void GkeyMenuTest::chosenEntryDoesItsWork_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QStringList>("log");
    const auto row = [](const QString& macroID, const QString& choice, const QStringList& log) {
        QTest::newRow(qPrintable(choice + ' ' + macroID)) << macroID << choice << log;
    };
    row(Command, "Edit...", {R"(edit("G27"))"});
    row(QString(), "Use Default", {R"(useDefault("G27"))"});
    row(QString(), "Use Generic", {R"(useGeneric("G27"))"});
    row(Command, "Use Default", {R"(useDefault("G27"))"});
    row(Command, "Use Generic", {R"(useGeneric("G27"))"});
    row(Command, "Unassign", {R"(unassign("G27"))"});
    const QStringList unassign {
        R"(unassign("G26"))", R"(unassign("G27"))", R"(unassign("G28"))", R"(unassign("G29"))"};
    row(Mouse, "Unassign Mouse", unassign);
    row(Joystick, "Unassign Joystick", QStringList(R"(unassign("G25"))") + unassign);
    QStringList mouse;
    QStringList joystick;
    for (int key = 25; key <= 29; ++key) {
        const QString name = QStringLiteral("key %1").arg(key);
        joystick += {gKeyToString(key), setAssignment(Joystick, name)};
        if (key > 25)
            mouse += {gKeyToString(key), setAssignment(Mouse, name)};
    }
    row(QString(), "Assign Mouse", addStickMacro("addMouseMacro") + mouse);
    row(QString(), "Assign Joystick", addStickMacro("addJoystickMacro") + joystick);
}

void GkeyMenuTest::chosenEntryDoesItsWork()
{
    QFETCH(QString, macroID);
    QFETCH(QString, choice);
    QFETCH(QStringList, log);
    KeyScene on("G27");
    numberKeys(on.host);
    on.host.answer("assignmentHasBackup", true);
    on.setMacro(macroID);
    QVERIFY(!entriesOf(on, choice).isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(on.takeLog(), log);
}

void GkeyMenuTest::greyEntryDoesNothing_data()
{
    QTest::addColumn<QString>("choice");
    QTest::newRow("Use Default") << "Use Default";
    QTest::newRow("Use Generic") << "Use Generic";
    QTest::newRow("Unassign") << "Unassign";
}

void GkeyMenuTest::greyEntryDoesNothing()
{
    QFETCH(QString, choice);
    KeyScene on;
    on.key->setGenericInfo(QString(), QString(), false, false, true);
    on.setMacro(Command, true);
    QVERIFY(entriesOf(on, choice).contains('(' + choice + ')'));
    QCOMPARE(on.takeLog(), QStringList());
}

void GkeyMenuTest::editorOpensWhenTheMenuIsGone()
{
    KeyScene on;
    QPointer<QMenu> menu;
    const MenuDriver menuDriver([&](QMenu& opened) {
        menu = &opened;
        MenuDriver::choose(opened, "Edit...");
    });
    const DialogDriver dialogDriver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<cMacroEditor*>(&dialog));
        QVERIFY(!menu);
        on.takeLog();
        Q_EMIT qobject_cast<cMacroEditor*>(&dialog)->macroEditorClosed("{new}");
    });
    askForMenu(*on.key);
    QVERIFY(menuDriver.hasRun());
    QVERIFY(!dialogDriver.hasRun());
    QTRY_VERIFY(dialogDriver.hasRun());
    QCOMPARE(on.takeLog(), QStringList(R"(macroDropped("{new}", "G7"))"));
}

void GkeyMenuTest::labelOpensTheKeysMenu()
{
    KeyScene on;
    on.setMacro(Command);
    QStringList entries;
    const MenuDriver driver([&](QMenu& menu) {
        entries = MenuDriver::entriesOf(menu);
        MenuDriver::choose(menu, "Unassign");
    });
    askForMenu(*on.label);
    QCOMPARE(entries, QStringList({"Edit...", "(Use Default)", "Use Generic", "Unassign"}));
    QVERIFY(on.takeLog().contains(R"(unassign("G7"))"));
}

void GkeyMenuTest::contextButtonOpensTheMenuInTheWindow()
{
    KeyScene on;
    on.showWindow();
    SceneEvents::hoverEnter(*on.key);
    on.takeLog();
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) {
        place = menu.pos();
        QVERIFY(!on.key->button().isEnabled());
    });
    SceneEvents::press(on.key->button(), QPointF(4, 5));
    QVERIFY(driver.hasRun());
    QVERIFY(on.key->button().isEnabled());
    // The point of the scene, taken as one of the window.
    const QPointF pressed = on.key->button().mapToScene(4, 5);
    QCOMPARE(place, on.window.mapToGlobal(pressed.toPoint()));
    QCOMPARE(on.takeLog(), QStringList({mainWindow(), mainWindow(), assignmentHasBackup(), stringToGKey()}));
}

void GkeyMenuTest::menuStaysInsideTheWindow_data()
{
    QTest::addColumn<int>("fromRight");
    QTest::addColumn<int>("overhang");
    // The distance to the window's right edge, as the menu's width plus this.
    QTest::newRow("room enough") << 50 << 0;
    QTest::newRow("just fits") << 0 << 0;
    QTest::newRow("one too far") << -1 << 1;
    QTest::newRow("half of it outside") << -30 << 30;
}

void GkeyMenuTest::menuStaysInsideTheWindow()
{
    QFETCH(int, fromRight);
    QFETCH(int, overhang);
    KeyScene on;
    on.showWindow();
    int width = 0;
    const MenuDriver measure([&](QMenu& menu) { width = menu.sizeHint().width(); });
    askForMenu(*on.key, QPoint(100, 100));
    QVERIFY(width > 0);

    const int right = on.window.pos().x() + on.window.size().width();
    const QPoint wished(right - width - fromRight, 110);
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) { place = menu.pos(); });
    askForMenu(*on.key, wished);
    QVERIFY(driver.hasRun());
    QCOMPARE(place, wished - QPoint(overhang, 0));
}

void GkeyMenuTest::menuIsDeletedAfterwards()
{
    KeyScene on;
    QPointer<QMenu> menu;
    const MenuDriver driver([&](QMenu& opened) {
        menu = &opened;
        QCOMPARE(opened.parentWidget(), &on.window);
    });
    askForMenu(*on.key);
    QVERIFY(driver.hasRun());
    QVERIFY(!menu);
    QVERIFY(on.window.children().isEmpty());
}

void GkeyMenuTest::keyIsRedrawnWhenItsMenuIsGone()
{
    KeyScene on;
    SceneRedraws redraws(on.scene);
    const QRectF inKey(101, 101, 38, 28);
    QTRY_VERIFY(redraws.cover(inKey));
    const MenuDriver driver([&](QMenu&) { redraws.clear(); });
    askForMenu(*on.key);
    QVERIFY(driver.hasRun());
    QTRY_VERIFY(redraws.cover(inKey));
}

void GkeyMenuTest::withoutMainWindowThereIsNoMenu_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("context menu") << false;
    QTest::newRow("context button") << true;
}

void GkeyMenuTest::withoutMainWindowThereIsNoMenu()
{
    QFETCH(bool, byButton);
    KeyScene on;
    on.host.answer("window", static_cast<QWidget*>(nullptr));
    const ExpectedMessage said(QtCriticalMsg, "Main Window is returning NULL window");
    if (byButton)
        on.key->onClickedContextButton(QPoint(10, 10));
    else
        askForMenu(*on.key);
    QCOMPARE(on.takeLog(), QStringList(mainWindow()));
}

void GkeyMenuTest::stickCommandGoesOnAllItsKeys_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("mouse") << QByteArray("onAssignMouse") << QStringList({"26", "27", "28", "29"});
    QTest::newRow("joystick") << QByteArray("onAssignJoystick")
                              << QStringList({"25", "26", "27", "28", "29"});
}

void GkeyMenuTest::stickCommandGoesOnAllItsKeys()
{
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, keys);
    KeyScene on;
    numberKeys(on.host);
    // That the host says no to it is not looked at.
    on.host.answer("addMouseMacro", false);
    on.host.answer("addJoystickMacro", false);
    QVERIFY(QMetaObject::invokeMethod(on.key, slot));
    QStringList assigned;
    for (const RecordedCall& call : on.host.calls()) {
        if (call.operation == "setAssignment")
            assigned += call.values.last().toString().mid(4);
    }
    QCOMPARE(assigned, keys);
}

void GkeyMenuTest::stickCommandGoesWhereItWasPutWhenTheMenuWasUsed()
{
    KeyScene on;
    numberKeys(on.host);
    // The user switches the mode, and a game the profile, while the host is at it.
    on.host.answer(
        "addMouseMacro", [&](const RecordedCall&) { setShownInView(on.view, "{other}", "Other", MKey::M3); });
    on.key->onAssignMouse();
    QStringList expected = addStickMacro("addMouseMacro");
    for (int key = 26; key <= 29; ++key)
        expected += {gKeyToString(key), setAssignment(Mouse, QStringLiteral("key %1").arg(key))};
    QCOMPARE(on.takeLog(), expected);
}

VELTRANO_TEST_MAIN(GkeyMenuTest)
#include "GkeyMenuTest.moc"
