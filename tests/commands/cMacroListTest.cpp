#include "CommandSupport.h"

#include <cCustomStyle.h>
#include <cMacroItem.h>
#include <EventNames.h>
#include <MetaMembers.h>
#include <MethodText.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QMetaMethod>
#include <QScrollBar>

using namespace CommandSupport;

class cMacroListTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembersInOrder();
    void parametersBearTheirNames();
    void handlersBearTheNamesOfTheirEvents_data();
    void handlersBearTheNamesOfTheirEvents();
    void constructionSubscribesAndFillsNothing();
    void constructionSetsTheListUp();
    void destructionStopsTheFillAndUnsubscribes();
    void selectionIsReportedWhole();
    void selectionMarksTheRows();
    void sortModeIsThatOfAllRows();
};

void cMacroListTest::hasItsMembersInOrder()
{
    const QMetaObject& meta = cMacroList::staticMetaObject;
    QCOMPARE(meta.superClass(), &QListWidget::staticMetaObject);
    QCOMPARE(MetaMembers::signalsOf(meta),
        QStringList({"MacroSelected(cJsonValue)", "MacroUnSelected(cJsonValue)", "editMacro(cJsonValue)",
            "hoverIn()", "hoverOut()", "singleMacroStartDrag(cJsonValue)", "singleMacroEndDrag()",
            "multiMacroStartDrag()", "multiMacroEndDrag()", "populating()", "populated()"}));
    QCOMPARE(MetaMembers::slotsOf(meta),
        QStringList({"deleteSelectedMacros()", "macroItemContextMenuIconClicked(QPoint)",
            "macroItemDblClicked(cListWidgetItem*)", "macroItemSelectionChanged()", "onMenuEditMacro()",
            "MacroStartDrag(cJsonValue)", "macroEditIconClicked(cJsonValue)", "onIdleTimeout()",
            "onSearch(QString)"}));
    QStringList handlers;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() == QMetaMethod::Method)
            handlers.append(methodText(method));
        if (method.methodType() == QMetaMethod::Slot)
            QCOMPARE(method.access() == QMetaMethod::Public, method.name() == "deleteSelectedMacros");
    }
    QCOMPARE(handlers,
        QStringList({"onmacroAdded(QString profileID, cJsonValue macro)",
            "onmacroDeleted(QString profileID, cJsonValue macro)",
            "onmacroChanged(QString profileID, cJsonValue macro)",
            "onMacroAssigned(QString profileID, QString deviceModel, QString macroID, MKey::MKey_t mode, "
            "QString contextID)",
            "onAssignmentRemoved(QString profileID, QString deviceModel, MKey::MKey_t mode, QString "
            "contextID, QString macroID)",
            "onProfileSelectionChanged(QString profileID)"}));
}

void cMacroListTest::parametersBearTheirNames()
{
    const QStringList all = methodTexts(cMacroList::staticMetaObject);
    for (const char* text : {"MacroSelected(cJsonValue macro)", "MacroUnSelected(cJsonValue macro)",
             "editMacro(cJsonValue macro)", "singleMacroStartDrag(cJsonValue macro)",
             "macroItemDblClicked(cListWidgetItem* pItem)", "MacroStartDrag(cJsonValue macro)",
             "macroEditIconClicked(cJsonValue macro)", "onSearch(QString name)"})
        QVERIFY2(all.contains(text), text);
}

void cMacroListTest::handlersBearTheNamesOfTheirEvents_data()
{
    QTest::addColumn<QString>("event");
    const auto row = [](QLatin1String event, const char* handler) {
        QTest::newRow(handler) << QString(event);
    };
    row(Events::MacroAdded, "onmacroAdded(QString,cJsonValue)");
    row(Events::MacroDeleted, "onmacroDeleted(QString,cJsonValue)");
    row(Events::MacroChanged, "onmacroChanged(QString,cJsonValue)");
    row(Events::MacroAssigned, "onMacroAssigned(QString,QString,QString,MKey::MKey_t,QString)");
    row(Events::AssignmentRemoved, "onAssignmentRemoved(QString,QString,MKey::MKey_t,QString,QString)");
    row(Events::ProfileSelectionChanged, "onProfileSelectionChanged(QString)");
}

void cMacroListTest::handlersBearTheNamesOfTheirEvents()
{
    // A handler of another name would be passed over without a word.
    QFETCH(QString, event);
    const QByteArray handler = QTest::currentDataTag();
    QCOMPARE(QString::fromLatin1(handler.left(handler.indexOf('('))), Events::HandlerPrefix + event);
    QVERIFY(cMacroList::staticMetaObject.indexOfMethod(handler) >= 0);
}

void cMacroListTest::constructionSubscribesAndFillsNothing()
{
    RecordingHost host;
    const cMacroList list;
    QCOMPARE(host.takeLog(), QStringList({"subscribe Profiler_Events on", "subscribe ProfileMgr_Events on"}));
    QCoreApplication::processEvents();
    QCOMPARE(host.takeLog(), QStringList());
}

void cMacroListTest::constructionSetsTheListUp()
{
    const Panel panel;
    const cMacroList& list = *panel.list;
    QVERIFY(list.isSortingEnabled());
    QCOMPARE(list.selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(list.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(list.spacing(), 1);
    QCOMPARE(list.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(list.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(list.property("uiType").toString(), QString("MacroOrProfileList"));
    QVERIFY(list.uniformItemSizes());
    QVERIFY(qobject_cast<cCustomStyle*>(list.style()));
    QCOMPARE(list.verticalScrollBar()->contextMenuPolicy(), Qt::NoContextMenu);
    QCOMPARE(list.minimumSize(), QSize(239, 315));
    QCOMPARE(list.maximumSize(), QSize(239, 315));
}

void cMacroListTest::destructionStopsTheFillAndUnsubscribes()
{
    Panel panel;
    panel.startFill(macros({"a", "b", "c"}));
    QCoreApplication::processEvents();
    const QPointer<cMacroItem> row = panel.row(0);
    QVERIFY(row);
    panel.host.clear();
    panel.list.reset();
    QCOMPARE(panel.host.takeLog(),
        QStringList({"populated()", "unsubscribe Profiler_Events", "unsubscribe ProfileMgr_Events"}));
    QVERIFY(!row);
    QCoreApplication::processEvents();
    QCOMPARE(panel.host.takeLog(), QStringList());
}

void cMacroListTest::selectionIsReportedWhole()
{
    Panel panel;
    panel.fillNames({"a", "b", "c"});
    panel.select({1});
    QCOMPARE(panel.takeLog(),
        QStringList(
            {"MacroUnSelected({1})", "MacroUnSelected({2})", "MacroUnSelected({3})", "MacroSelected({2})"}));
    // A row that stays selected is reported unselected first.
    panel.select({1, 2});
    QCOMPARE(panel.takeLog(),
        QStringList({"MacroUnSelected({1})", "MacroUnSelected({2})", "MacroUnSelected({3})",
            "MacroSelected({2})", "MacroSelected({3})"}));
    panel.list->clearSelection();
    QCOMPARE(panel.takeLog(),
        QStringList({"MacroUnSelected({1})", "MacroUnSelected({2})", "MacroUnSelected({3})"}));
}

void cMacroListTest::selectionMarksTheRows()
{
    // The row's own picture, which is the one mark of a selection.
    TestPictures pictures;
    Panel panel;
    pictures.add("command_normal.png", filledPicture(220, 30, Qt::red));
    pictures.add("command_normal_selected.png", filledPicture(220, 30, Qt::green));
    panel.fillNames({"a", "b"});
    const auto look = [&panel](int row) {
        return panel.list->viewport()->grab().toImage().pixelColor(
            panel.list->visualItemRect(panel.list->item(row)).topLeft() + QPoint(2, 2));
    };
    panel.select({1});
    QCOMPARE(look(0), QColor(Qt::red));
    QCOMPARE(look(1), QColor(Qt::green));
    panel.select({0});
    QCOMPARE(look(0), QColor(Qt::green));
    QCOMPARE(look(1), QColor(Qt::red));
}

void cMacroListTest::sortModeIsThatOfAllRows()
{
    Panel panel;
    panel.list->setSortMode(cListWidgetItem::SortByType);
    cJsonValue records(cJsonValue::arrayValue);
    records.append(macro("{1}", "b", Keys));
    records.append(macro("{2}", "a", Text));
    records.append(macro("{3}", "c", Text));
    panel.fill(records);
    // Also of rows that come later.
    QCOMPARE(panel.shownNames(), QStringList({"c", "a", "b"}));
    panel.list->setSortMode(cListWidgetItem::SortByName);
    panel.list->sortItems(Qt::AscendingOrder);
    QCOMPARE(panel.shownNames(), QStringList({"a", "b", "c"}));
    panel.list->setSortMode(cListWidgetItem::SortByType);
    // It stores only.
    QCOMPARE(panel.shownNames(), QStringList({"a", "b", "c"}));
    panel.list->sortItems(Qt::AscendingOrder);
    QCOMPARE(panel.shownNames(), QStringList({"c", "a", "b"}));
    // Later rows have the mode too.
    panel.host.publishMacroAdded(Profile, macro("{4}", "bb", Text));
    QCOMPARE(panel.shownNames(), QStringList({"c", "bb", "a", "b"}));
    panel.list->setSortMode(cListWidgetItem::SortByName);
    panel.list->sortItems(Qt::DescendingOrder);
    QCOMPARE(panel.shownNames(), QStringList({"c", "bb", "b", "a"}));
    for (int i = 0; i < 4; ++i)
        QCOMPARE(panel.row(i)->macro()["display_name"].toString(), panel.list->item(i)->text());
}

VELTRANO_TEST_MAIN(cMacroListTest)
#include "cMacroListTest.moc"
