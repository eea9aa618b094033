#include "CommandSupport.h"

#include <cMacroItem.h>
#include <TestCase.h>

#include <QPointer>
#include <QScrollBar>

using namespace CommandSupport;

namespace {

QStringList names(int count, const QString& pattern = "Command %1")
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list.append(pattern.arg(i, 4, 10, QLatin1Char('0')));
    return list;
}

/// One step of the fill, without the event loop.
void step(Panel& panel)
{
    QMetaObject::invokeMethod(panel.list.get(), "onIdleTimeout");
}

} // namespace

class cMacroListFillTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void announcementStartsTheFill();
    void argumentOfTheAnnouncementIsNotRead();
    void oneRowForEachTurn();
    void rowsAreRealChildWidgets();
    void profileWithoutCommandsStaysEmpty_data();
    void profileWithoutCommandsStaysEmpty();
    void anotherProfileDropsTheRestOfTheFill();
    void newFillDeletesTheRows();
    void someCommandsGetNoRow_data();
    void someCommandsGetNoRow();
    void recordsWithoutKeysAreBorne();
    void fillSortsAtOnce();
    void filterHoldsForTheNewRows();
    void listStaysUsableDuringTheFill();
    void eventsDuringTheFill();
    void manyCommandsFillCompletely();
    void hiddenListFillsToo();
};

void cMacroListFillTest::announcementStartsTheFill()
{
    Panel panel;
    panel.list->hide();
    panel.host.takeLog();
    panel.startFill(macros({"a"}));
    QCOMPARE(panel.takeLog(), QStringList({"populated()", macrosCall(), "populating()"}));
    QVERIFY(panel.list->isVisible());
    QCOMPARE(panel.list->count(), 0);
    QTRY_COMPARE(panel.list->count(), 1);
    QCOMPARE(panel.takeLog(), rowCalls("{1}") + QStringList({"populated()"}));
    QCoreApplication::processEvents();
    QCOMPARE(panel.takeLog(), QStringList());
}

void cMacroListFillTest::argumentOfTheAnnouncementIsNotRead()
{
    Panel panel;
    show("{Q}");
    panel.host.publishProfileSelectionChanged("{Z}");
    QCOMPARE(panel.takeLog(), QStringList({"populated()", macrosCall("{Q}")}));
}

void cMacroListFillTest::oneRowForEachTurn()
{
    Panel panel;
    panel.startFill(macros({"a", "b", "c"}));
    panel.host.clear();
    step(panel);
    QCOMPARE(panel.takeLog(), rowCalls("{1}"));
    QCOMPARE(panel.list->count(), 1);
    step(panel);
    QCOMPARE(panel.takeLog(), rowCalls("{2}"));
    QCOMPARE(panel.list->count(), 2);
    step(panel);
    QCOMPARE(panel.takeLog(), rowCalls("{3}") + QStringList({"populated()"}));
    QCOMPARE(panel.list->count(), 3);

    // And by the event loop no more than one.
    panel.startFill(macros(names(40)));
    int before = 0;
    while (panel.list->count() < 40) {
        QCoreApplication::processEvents();
        QVERIFY(panel.list->count() <= before + 1);
        before = panel.list->count();
    }
}

void cMacroListFillTest::rowsAreRealChildWidgets()
{
    Panel panel;
    panel.fillNames(names(50));
    QCOMPARE(panel.list->viewport()->findChildren<cMacroItem*>().size(), 50);
    for (int i = 0; i < 50; ++i) {
        auto* item = dynamic_cast<cListWidgetItem*>(panel.list->item(i));
        QVERIFY(item);
        QCOMPARE(panel.row(i)->parentWidget(), panel.list->viewport());
        QCOMPARE(item->sizeHint(), QSize(220, 30));
        QCOMPARE(item->text(), panel.row(i)->macro()["display_name"].toString());
        QCOMPARE(item->data(33).toString(), Keys);
    }
}

void cMacroListFillTest::profileWithoutCommandsStaysEmpty_data()
{
    QTest::addColumn<cJsonValue>("records");
    QTest::newRow("empty array") << cJsonValue(cJsonValue::arrayValue);
    QTest::newRow("null") << cJsonValue();
    QTest::newRow("object") << macro("{1}", "Jump");
    QTest::newRow("text") << cJsonValue("macros");
}

void cMacroListFillTest::profileWithoutCommandsStaysEmpty()
{
    QFETCH(cJsonValue, records);
    Panel panel;
    panel.fillNames({"old"});
    panel.startFill(records);
    QCOMPARE(panel.takeLog(), QStringList({"populated()", macrosCall()}));
    QTest::qWait(0);
    QCOMPARE(panel.takeLog(), QStringList());
    QCOMPARE(panel.list->count(), 0);
}

void cMacroListFillTest::anotherProfileDropsTheRestOfTheFill()
{
    Panel panel;
    panel.startFill(macros({"a", "b", "c"}));
    step(panel);
    const QPointer<cMacroItem> row = panel.row(0);
    panel.host.clear();
    show("{Q}");
    panel.startFill(macros({"x", "y"}));
    QCOMPARE(panel.takeLog(), QStringList({"populated()", macrosCall("{Q}"), "populating()"}));
    QVERIFY(!row);
    QTRY_COMPARE(panel.shownNames(), QStringList({"x", "y"}));
    QTest::qWait(0);
    QCOMPARE(panel.shownNames(), QStringList({"x", "y"}));
}

void cMacroListFillTest::newFillDeletesTheRows()
{
    Panel panel;
    panel.fillNames(names(300));
    QVector<QPointer<cMacroItem>> rows;
    for (int i = 0; i < 300; ++i)
        rows.append(qobject_cast<cMacroItem*>(panel.list->rowWidget(i)));
    panel.startFill(cJsonValue());
    for (const QPointer<cMacroItem>& row : qAsConst(rows))
        QVERIFY(!row);
}

void cMacroListFillTest::someCommandsGetNoRow_data()
{
    QTest::addColumn<cJsonValue>("record");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("unknown type") << macro("{1}", "x", "urn:unknown")
                                  << QStringList({typeCall("urn:unknown")});
    QTest::newRow("private type") << macro("{1}", "x", Private) << QStringList({typeCall(Private)});
    QTest::newRow("hidden") << macro("{1}", "x", Keys, true) << QStringList({typeCall(Keys)});
    QTest::newRow("null") << cJsonValue() << QStringList({typeCall("")});
}

void cMacroListFillTest::someCommandsGetNoRow()
{
    QFETCH(cJsonValue, record);
    QFETCH(QStringList, calls);
    Panel panel;
    cJsonValue records(cJsonValue::arrayValue);
    records.append(record);
    records.append(macro("{2}", "shown"));
    panel.startFill(records);
    panel.host.clear();
    step(panel);
    QCOMPARE(panel.takeLog(), calls);
    QCOMPARE(panel.list->count(), 0);
    step(panel);
    QCOMPARE(panel.shownNames(), QStringList({"shown"}));
    panel.host.clear();
    panel.host.publishMacroAdded(Profile, record);
    QCOMPARE(panel.takeLog(), calls);
    QCOMPARE(panel.list->count(), 1);
}

void cMacroListFillTest::recordsWithoutKeysAreBorne()
{
    Panel panel;
    cJsonValue bare;
    bare["namespace"] = Keys;
    cJsonValue records(cJsonValue::arrayValue);
    records.append(bare);
    records.append(bare);
    panel.fill(records);
    QCOMPARE(panel.list->count(), 2);
    QCOMPARE(panel.row(0)->macroId(), QString());
}

void cMacroListFillTest::fillSortsAtOnce()
{
    Panel panel;
    panel.startFill(macros({"c", "a", "d", "b"}));
    step(panel);
    step(panel);
    QCOMPARE(panel.shownNames(), QStringList({"a", "c"}));
    step(panel);
    step(panel);
    QCOMPARE(panel.shownNames(), QStringList({"a", "b", "c", "d"}));
    for (int i = 0; i < 4; ++i)
        QCOMPARE(panel.row(i)->y(), 1 + 32 * i);
}

void cMacroListFillTest::filterHoldsForTheNewRows()
{
    Panel panel;
    panel.fillNames({"Jump", "Fire"});
    panel.search("fi");
    panel.startFill(macros({"Jump", "Fire at will", "Fish", "Run"}));
    for (int i = 0; i < 4; ++i)
        step(panel);
    QCOMPARE(panel.list->count(), 4);
    QCOMPARE(panel.shownNames(), QStringList({"Fire at will", "Fish"}));
    QVERIFY(!panel.showsNoResults());
    // They are hits: when both have gone there are none.
    panel.host.publishMacroDeleted(Profile, macro("{2}", ""));
    QVERIFY(!panel.showsNoResults());
    panel.host.publishMacroDeleted(Profile, macro("{3}", ""));
    QVERIFY(panel.showsNoResults());
}

void cMacroListFillTest::listStaysUsableDuringTheFill()
{
    Panel panel;
    // Each lands above those before, the worst case for what is in sight.
    QStringList texts = names(700);
    std::reverse(texts.begin(), texts.end());
    panel.startFill(macros(texts));
    int turn = 0;
    while (panel.list->count() < 700) {
        QCoreApplication::processEvents();
        ++turn;
        if (turn % 50 == 0) {
            panel.list->verticalScrollBar()->setValue(panel.list->verticalScrollBar()->maximum() / 2);
            panel.search(turn % 100 ? "command" : "");
        }
        if (turn % 120 == 0)
            panel.select({panel.list->count() - 1, 0});
        // What is in sight is in order, in its place, and its own row.
        int last = -1;
        for (int y = 2; y < panel.list->viewport()->height(); y += 32) {
            const QModelIndex index = panel.list->indexAt(QPoint(50, y));
            if (!index.isValid())
                continue;
            QVERIFY(index.row() > last);
            last = index.row();
            const auto* row = qobject_cast<cMacroItem*>(panel.list->indexWidget(index));
            QVERIFY(row && row->isVisible());
            QCOMPARE(row->macro()["display_name"].toString(), index.data().toString());
            QCOMPARE(row->pos(), panel.list->visualRect(index).topLeft());
        }
    }
    QCOMPARE(panel.shownNames(), names(700));
}

void cMacroListFillTest::eventsDuringTheFill()
{
    Panel panel;
    panel.startFill(macros({"b", "d", "f", "h"}));
    step(panel);
    step(panel);
    panel.host.publishMacroAdded(Profile, macro("{9}", "c"));
    QCOMPARE(panel.shownNames(), QStringList({"b", "c", "d"}));
    // One that has no row yet can't be changed or go; its row comes as the fill has read it.
    panel.host.publishMacroChanged(Profile, macro("{4}", "z"));
    panel.host.publishMacroDeleted(Profile, macro("{3}", ""));
    panel.host.publishMacroDeleted(Profile, macro("{1}", ""));
    QCOMPARE(panel.shownNames(), QStringList({"c", "d"}));
    QTRY_COMPARE(panel.shownNames(), QStringList({"c", "d", "f", "h"}));
}

void cMacroListFillTest::manyCommandsFillCompletely()
{
    Panel panel;
    QStringList texts = names(1200);
    // Neither in order nor against it.
    for (int i = 0; i < texts.size(); ++i)
        texts.swapItemsAt(i, (i * 7919) % texts.size());
    panel.fill(macros(texts));
    QCOMPARE(panel.list->count(), 1200);
    QCOMPARE(panel.shownNames(), names(1200));
    const auto set = [&panel] {
        int rows = 0;
        for (int i = 0; i < 1200; ++i)
            rows += panel.row(i) ? 1 : 0;
        return rows;
    };
    QTRY_COMPARE(set(), 1200);
    for (int i = 0; i < 1200; ++i)
        QCOMPARE(panel.row(i)->macro()["display_name"].toString(), panel.list->item(i)->text());
}

void cMacroListFillTest::hiddenListFillsToo()
{
    Panel panel;
    panel.window.hide();
    panel.startFill(macros(names(30)));
    QTRY_COMPARE(panel.list->count(), 30);
    panel.window.show();
    QCoreApplication::processEvents();
    QVERIFY(panel.row(0)->isVisible());
    QCOMPARE(panel.row(5)->y(), 1 + 32 * 5);
}

VELTRANO_TEST_MAIN(cMacroListFillTest)
#include "cMacroListFillTest.moc"
