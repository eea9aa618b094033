#include "CommandSupport.h"

#include <cMacroItem.h>
#include <MenuDriver.h>
#include <TestCase.h>

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPointer>

using namespace CommandSupport;

namespace {

const QString Question(
    "MainUI.MainUI yesno(const QString \"Delete Command\", const QString \"Are you sure you want "
    "to delete the selected command(s)?\") -> bool");
const QString WindowCall("MainUI.MainUI window() -> QWidget*");

QString deleteCall(const QString& uid)
{
    return QStringLiteral("deleteMacro({P}, %1)").arg(uid);
}

/// The calls without their texts: "yesno", "deleteMacro({P}, {1})".
QStringList briefly(const RecordingHost& host)
{
    QStringList lines;
    for (const RecordedCall& call : host.calls()) {
        if (call.operation == "deleteMacro") {
            lines.append(
                QStringLiteral("deleteMacro(%1, %2)")
                    .arg(call.values[0].toString(), call.values[1].value<cJsonValue>()["uid"].toString()));
        } else {
            lines.append(call.operation);
        }
    }
    return lines;
}

void contextMenu(QWidget& row, const QPoint& at)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, row.mapToGlobal(at));
    QCoreApplication::sendEvent(&row, &event);
}

void invoke(Panel& panel, const char* slot)
{
    QMetaObject::invokeMethod(panel.list.get(), slot);
}

} // namespace

class cMacroListActionsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void doubleClickEditsItsRowAndSuchOfItsId();
    void doubleClickSlotEditsTheItem();
    void editTakesTheFirstSelectedRow();
    void returnEditsOneSelectedRowOnly_data();
    void returnEditsOneSelectedRowOnly();
    void deleteKeyAsks_data();
    void deleteKeyAsks();
    void deletionCallsForEachSelectedRow();
    void deletionBearsTheEventsOfItsCalls();
    void deletionAfterAProfileSwitchDuringTheQuestion();
    void listMayGoDuringTheQuestion();
    void listMayGoWhileACommandIsEdited_data();
    void listMayGoWhileACommandIsEdited();
    void failedDeletionIsWrittenOnly();
    void menuHasItsEntries_data();
    void menuHasItsEntries();
    void menuEdits();
    void menuDeletes();
    void menuOpensAtThePoint();
    void noMenuWithoutAMainWindow();
    void menuOfTheIconIsQueued();
    void rowMayGoWhileItsMenuIsOpen();
    void listMayGoWhileItsMenuIsOpen();
    void windowMayGoWhileTheMenuIsOpen();
    void rowsPassTheirHoverOn();
};

void cMacroListActionsTest::doubleClickEditsItsRowAndSuchOfItsId()
{
    Panel panel;
    cJsonValue records(cJsonValue::arrayValue);
    records.append(macro("{1}", "a"));
    records.append(macro("{2}", "b"));
    records.append(macro("{1}", "c"));
    panel.fill(records);
    QVector<cJsonValue> edited;
    connect(panel.list.get(), &cMacroList::editMacro, this,
        [&](const cJsonValue& record) { edited.append(record); });
    QMouseEvent event(
        QEvent::MouseButtonDblClick, QPointF(50, 10), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(panel.row(0), &event);
    QCOMPARE(edited, QVector<cJsonValue>({macro("{1}", "a"), macro("{1}", "c")}));
    edited.clear();
    // The rows' own records count, not the one that is handed in.
    QVERIFY(QMetaObject::invokeMethod(
        panel.list.get(), "macroEditIconClicked", Q_ARG(cJsonValue, macro("{2}", "other"))));
    QCOMPARE(edited, QVector<cJsonValue>({macro("{2}", "b")}));
}

void cMacroListActionsTest::doubleClickSlotEditsTheItem()
{
    Panel panel;
    panel.fillNames({"a", "b"});
    const auto call = [&panel](cListWidgetItem* item) {
        return QMetaObject::invokeMethod(
            panel.list.get(), "macroItemDblClicked", Q_ARG(cListWidgetItem*, item));
    };
    QVERIFY(call(dynamic_cast<cListWidgetItem*>(panel.list->item(1))));
    QCOMPARE(panel.takeLog(), QStringList({"editMacro({2})"}));
    QVERIFY(call(nullptr));
    QCOMPARE(panel.takeLog(), QStringList());
}

void cMacroListActionsTest::editTakesTheFirstSelectedRow()
{
    Panel panel;
    panel.fillNames({"a", "b", "c"});
    invoke(panel, "onMenuEditMacro");
    QCOMPARE(panel.takeLog(), QStringList());
    panel.select({2});
    panel.host.clear();
    invoke(panel, "onMenuEditMacro");
    QCOMPARE(panel.takeLog(), QStringList({"editMacro({3})"}));
}

void cMacroListActionsTest::returnEditsOneSelectedRowOnly_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("return, one") << int(Qt::Key_Return) << QList<int>({1}) << QStringList({"editMacro({2})"});
    QTest::newRow("enter, one") << int(Qt::Key_Enter) << QList<int>({0}) << QStringList({"editMacro({1})"});
    QTest::newRow("return, two") << int(Qt::Key_Return) << QList<int>({0, 1}) << QStringList();
    QTest::newRow("return, none") << int(Qt::Key_Return) << QList<int>() << QStringList();
    QTest::newRow("another key") << int(Qt::Key_F5) << QList<int>({1}) << QStringList();
}

void cMacroListActionsTest::returnEditsOneSelectedRowOnly()
{
    QFETCH(int, key);
    QFETCH(QList<int>, selected);
    QFETCH(QStringList, log);
    Panel panel;
    panel.fillNames({"a", "b", "c"});
    panel.select(selected);
    panel.list->selectionModel()->setCurrentIndex(
        panel.list->model()->index(selected.value(0), 0), QItemSelectionModel::NoUpdate);
    QSignalSpy activated(panel.list.get(), SIGNAL(activated(QModelIndex)));
    panel.host.clear();
    QTest::keyClick(panel.list.get(), Qt::Key(key));
    QCOMPARE(panel.takeLog(), log);
    // The base class gets the key as well.
    QCOMPARE(activated.size(), key == Qt::Key_F5 ? 0 : 1);
}

void cMacroListActionsTest::deleteKeyAsks_data()
{
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<bool>("sure");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("nothing selected, yes") << QList<int>() << true << QStringList({"yesno"});
    QTest::newRow("nothing selected, no") << QList<int>() << false << QStringList({"yesno"});
    QTest::newRow("one, no") << QList<int>({0}) << false << QStringList({"yesno"});
    QTest::newRow("one, yes") << QList<int>({1}) << true << QStringList({"yesno", deleteCall("{2}")});
    QTest::newRow("two, yes") << QList<int>({0, 2}) << true
                              << QStringList({"yesno", deleteCall("{1}"), deleteCall("{3}")});
}

void cMacroListActionsTest::deleteKeyAsks()
{
    QFETCH(QList<int>, selected);
    QFETCH(bool, sure);
    QFETCH(QStringList, calls);
    Panel panel;
    panel.fillNames({"a", "b", "c"});
    panel.select(selected);
    panel.host.answer("yesno", sure);
    panel.host.clear();
    QTest::keyClick(panel.list.get(), Qt::Key_Delete);
    QCOMPARE(briefly(panel.host), calls);
    QCOMPARE(panel.takeLog().constFirst(), Question);
    // The rows go when the host says so.
    QCOMPARE(panel.list->count(), 3);
}

void cMacroListActionsTest::deletionCallsForEachSelectedRow()
{
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.select({0, 1});
    panel.host.answer("yesno", true);
    panel.host.clear();
    panel.list->deleteSelectedMacros();
    const QVector<RecordedCall> calls = panel.host.calls();
    QCOMPARE(calls.size(), 3);
    QCOMPARE(calls[1].typeNames, QList<QByteArray>({"QString", "const cJsonValue"}));
    QCOMPARE(calls[1].values[1].value<cJsonValue>(), macro("{1}", "a"));
}

void cMacroListActionsTest::deletionBearsTheEventsOfItsCalls()
{
    Panel panel;
    panel.fillNames({"a", "b", "c", "d"});
    panel.select({0, 1, 3});
    panel.host.answer("yesno", true);
    panel.host.answer("deleteMacro", [&panel](const RecordedCall& call) {
        panel.host.publishMacroDeleted(call.values[0].toString(), call.values[1].value<cJsonValue>());
    });
    panel.host.clear();
    panel.list->deleteSelectedMacros();
    QCOMPARE(
        briefly(panel.host), QStringList({"yesno", deleteCall("{1}"), deleteCall("{2}"), deleteCall("{4}")}));
    QCOMPARE(panel.shownNames(), QStringList({"c"}));
}

void cMacroListActionsTest::deletionAfterAProfileSwitchDuringTheQuestion()
{
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.select({0});
    panel.host.answer("yesno", [&panel](const RecordedCall&) {
        show("{Q}");
        panel.startFill(macros({"x"}));
        return QVariant(true);
    });
    panel.host.clear();
    panel.list->deleteSelectedMacros();
    // What was selected is gone, and nothing of the other profile is touched.
    QCOMPARE(briefly(panel.host), QStringList({"yesno", "macros"}));
}

void cMacroListActionsTest::listMayGoWhileACommandIsEdited_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("return") << true;
    QTest::newRow("double click") << false;
}

void cMacroListActionsTest::listMayGoWhileACommandIsEdited()
{
    QFETCH(bool, byKey);
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.select({0});
    // An editor that opens within the signal runs an event loop.
    panel.signalLog->onLine = [&panel](const QString& line) {
        if (line.startsWith("editMacro"))
            panel.list.reset();
    };
    if (byKey)
        QTest::keyClick(panel.list.get(), Qt::Key_Return);
    else
        QVERIFY(QMetaObject::invokeMethod(
            panel.list.get(), "macroEditIconClicked", Q_ARG(cJsonValue, macro("{1}", "a"))));
    QVERIFY(!panel.list);
}

void cMacroListActionsTest::listMayGoDuringTheQuestion()
{
    Panel panel;
    panel.fillNames({"a"});
    panel.select({0});
    panel.host.answer("yesno", [&panel](const RecordedCall&) {
        panel.list.reset();
        return QVariant(true);
    });
    panel.host.clear();
    panel.list->deleteSelectedMacros();
    QCOMPARE(briefly(panel.host), QStringList({"yesno"}));
}

void cMacroListActionsTest::failedDeletionIsWrittenOnly()
{
    Panel panel;
    panel.fillNames({"a"});
    panel.select({0});
    panel.host.answer("yesno", true);
    panel.host.remove(QLatin1String("Profiler.ProfileMgr"));
    const ExpectedMessage message(
        QtCriticalMsg, "Failed to call 'deleteMacro' on service Profiler.ProfileMgr");
    panel.list->deleteSelectedMacros();
    QCOMPARE(panel.list->count(), 1);
}

void cMacroListActionsTest::menuHasItsEntries_data()
{
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QStringList>("entries");
    QTest::newRow("none") << QList<int>() << QStringList({"Delete"});
    QTest::newRow("one") << QList<int>({1}) << QStringList({"Edit...", "Delete"});
    QTest::newRow("two") << QList<int>({0, 1}) << QStringList({"Delete"});
}

void cMacroListActionsTest::menuHasItsEntries()
{
    QFETCH(QList<int>, selected);
    QFETCH(QStringList, entries);
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.select(selected);
    panel.host.clear();
    QStringList found;
    QWidget* parent = nullptr;
    MenuDriver driver([&](QMenu& menu) {
        found = MenuDriver::entriesOf(menu);
        parent = menu.parentWidget();
    });
    contextMenu(*panel.row(1), QPoint(30, 10));
    QVERIFY(driver.hasRun());
    QCOMPARE(found, entries);
    QCOMPARE(parent, &panel.window);
    QCOMPARE(panel.takeLog(), QStringList({WindowCall}));
    QVERIFY(!panel.window.findChild<QMenu*>());
}

void cMacroListActionsTest::menuEdits()
{
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.select({1});
    panel.host.clear();
    MenuDriver driver([](QMenu& menu) { MenuDriver::choose(menu, "Edit..."); });
    contextMenu(*panel.row(1), QPoint(30, 10));
    QCOMPARE(panel.takeLog(), QStringList({WindowCall, "editMacro({2})"}));
}

void cMacroListActionsTest::menuDeletes()
{
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.select({0, 1});
    panel.host.answer("yesno", true);
    panel.host.clear();
    MenuDriver driver([](QMenu& menu) { MenuDriver::choose(menu, "Delete"); });
    contextMenu(*panel.row(1), QPoint(30, 10));
    QCOMPARE(briefly(panel.host), QStringList({"window", "yesno", deleteCall("{1}"), deleteCall("{2}")}));
}

void cMacroListActionsTest::menuOpensAtThePoint()
{
    Panel panel;
    panel.fillNames({"a"});
    QPoint place;
    MenuDriver driver([&](QMenu& menu) { place = menu.pos(); });
    const QPoint expected = panel.row(0)->mapToGlobal(QPoint(30, 10));
    contextMenu(*panel.row(0), QPoint(30, 10));
    QCOMPARE(place, expected);
}

void cMacroListActionsTest::noMenuWithoutAMainWindow()
{
    Panel panel;
    panel.fillNames({"a"});
    panel.host.answer("window", static_cast<QWidget*>(nullptr));
    const ExpectedMessage message(QtCriticalMsg, "Main Window is returning NULL window");
    MenuDriver driver([](QMenu&) {});
    contextMenu(*panel.row(0), QPoint(30, 10));
    QVERIFY(!driver.hasRun());
    QVERIFY(message.hasCome());
}

void cMacroListActionsTest::menuOfTheIconIsQueued()
{
    Panel panel;
    panel.fillNames({"a"});
    panel.host.clear();
    Q_EMIT panel.row(0)->macroContextMenuIconClicked(QPoint(20, 20));
    QCOMPARE(panel.takeLog(), QStringList());
    MenuDriver driver([](QMenu&) {});
    QCoreApplication::processEvents();
    QCOMPARE(panel.takeLog(), QStringList({WindowCall}));
    QVERIFY(driver.hasRun());
}

void cMacroListActionsTest::rowMayGoWhileItsMenuIsOpen()
{
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.select({0});
    MenuDriver driver([&panel](QMenu& menu) {
        panel.host.publishMacroDeleted(Profile, macro("{1}", ""));
        panel.host.clear();
        MenuDriver::choose(menu, "Edit...");
    });
    const QPointer<cMacroItem> row = panel.row(0);
    contextMenu(*panel.row(0), QPoint(30, 10));
    QVERIFY(driver.hasRun());
    QVERIFY(!row);
    QCOMPARE(panel.shownNames(), QStringList({"b"}));
}

void cMacroListActionsTest::listMayGoWhileItsMenuIsOpen()
{
    Panel panel;
    panel.fillNames({"a"});
    QPointer<QMenu> opened;
    MenuDriver driver([&](QMenu& menu) {
        opened = &menu;
        panel.list.reset();
    });
    Q_EMIT panel.row(0)->macroContextMenuIconClicked(QPoint(20, 20));
    QTRY_VERIFY(driver.hasRun());
    QTRY_VERIFY(!opened);
}

void cMacroListActionsTest::windowMayGoWhileTheMenuIsOpen()
{
    Panel panel;
    panel.fillNames({"a"});
    auto window = std::make_unique<QWidget>();
    panel.host.answer("window", window.get());
    MenuDriver driver([&window](QMenu&) { window.reset(); });
    contextMenu(*panel.row(0), QPoint(30, 10));
    QVERIFY(!window);
}

void cMacroListActionsTest::rowsPassTheirHoverOn()
{
    Panel panel;
    panel.fillNames({"a"});
    Q_EMIT panel.row(0)->hoverIn();
    Q_EMIT panel.row(0)->hoverOut();
    QCOMPARE(panel.takeLog(), QStringList({"hoverIn()", "hoverOut()"}));
}

VELTRANO_TEST_MAIN(cMacroListActionsTest)
#include "cMacroListActionsTest.moc"
