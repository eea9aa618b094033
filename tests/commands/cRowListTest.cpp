#include <cCustomStyle.h>
#include <cRowList.h>
#include <cRowWidget.h>
#include <TestCase.h>

#include <QScrollBar>

#include <memory>

namespace {

constexpr QSize RowSize(220, 30);

class Rows : public cRowList
{
public:
    using cRowList::addRow;
    using cRowList::CursorAction;
    using cRowList::moveCursor;
    using cRowList::MoveDown;
    using cRowList::MoveEnd;
    using cRowList::MoveHome;
    using cRowList::MoveNext;
    using cRowList::MovePageDown;
    using cRowList::MovePageUp;
    using cRowList::MovePrevious;
    using cRowList::MoveUp;
    using cRowList::showAllRows;
    using cRowList::showOnlyRows;
};

class PlainRows : public QListWidget
{
public:
    using QListWidget::moveCursor;
};

template<class List>
void setUp(List& list)
{
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    list.setSpacing(1);
    list.setUniformItemSizes(true);
    list.setSortingEnabled(true);
    list.setFixedSize(239, 315);
}

QString name(int number)
{
    return QString("%1").arg(number, 5, 10, QLatin1Char('0'));
}

QListWidgetItem* makeItem(int number)
{
    auto* item = new QListWidgetItem(name(number));
    item->setSizeHint(RowSize);
    return item;
}

cRowWidget* makeWidget(int number)
{
    auto* widget = new cRowWidget;
    widget->setFixedSize(RowSize);
    widget->setObjectName(name(number));
    return widget;
}

/// Two lists with the same rows: ours, and the one that Qt lays out.
struct Pair
{
    Rows ours;
    PlainRows plain;

    explicit Pair(int count)
    {
        setUp(ours);
        setUp(plain);
        for (int i = 0; i < count; ++i)
            add(i);
        ours.show();
        plain.show();
    }
    void add(int number, bool hidden = false)
    {
        ours.addRow(makeItem(number), makeWidget(number), hidden);
        QListWidgetItem* item = makeItem(number);
        plain.addItem(item);
        plain.setItemWidget(item, makeWidget(number));
        item->setHidden(hidden);
    }
    void compare()
    {
        QCOMPARE(ours.count(), plain.count());
        // The second for the viewport, which follows its scroll bar later.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        QCOMPARE(ours.verticalScrollBar()->maximum(), plain.verticalScrollBar()->maximum());
        QCOMPARE(ours.verticalScrollBar()->value(), plain.verticalScrollBar()->value());
        if (ours.count() > 0)
            QCOMPARE(ours.verticalScrollBar()->pageStep(), plain.verticalScrollBar()->pageStep());
        for (int i = 0; i < ours.count(); ++i) {
            const QRect expected = plain.visualItemRect(plain.item(i));
            QCOMPARE(ours.item(i)->text(), plain.item(i)->text());
            QCOMPARE(ours.item(i)->isHidden(), plain.item(i)->isHidden());
            QCOMPARE(ours.visualItemRect(ours.item(i)), expected);
            const QWidget* widget = ours.itemWidget(ours.item(i));
            const QWidget* expectedWidget = plain.itemWidget(plain.item(i));
            if (!expected.intersects(plain.viewport()->rect()))
                continue;
            QCOMPARE(widget->isVisible(), expectedWidget->isVisible());
            if (widget->isVisible())
                QCOMPARE(widget->geometry(), expectedWidget->geometry());
        }
        for (int y = 0; y < 315; y += 5)
            QCOMPARE(ours.indexAt(QPoint(50, y)).row(), plain.indexAt(QPoint(50, y)).row());
    }
};

/// Names of the widgets that are shown, from the top.
QStringList shownWidgets(const QListWidget& list)
{
    QStringList names;
    for (int i = 0; i < list.count(); ++i) {
        const QWidget* widget = list.itemWidget(list.item(i));
        if (widget && widget->isVisible())
            names.append(widget->objectName());
    }
    return names;
}

QString topName(const Rows& list)
{
    const QModelIndex index = list.indexAt(QPoint(50, 3));
    return index.data().toString();
}

} // namespace

class cRowListTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void standsWhereQtWouldPutIt_data();
    void standsWhereQtWouldPutIt();
    void hiddenRowsLeaveNoGap();
    void rowsAddedHiddenLeaveNoGap();
    void scrollsAsQtWould_data();
    void scrollsAsQtWould();
    void cursorMovesAsQtWould_data();
    void cursorMovesAsQtWould();
    void cursorPassesOverHiddenRows();
    void shiftClickSelectsWhatIsShownOnly();
    void onlyWidgetsInSightAreShown();
    void othersMayHideRows();
    void sortingMovesTheWidgets();
    void renamingMovesTheWidget();
    void rowsThatComeAboveLeaveThoseInSight();
    void rowsThatGoAboveLeaveThoseInSight();
    void rowsThatComeAtTheTopAreSeen();
    void streamSetsAllWidgetsInTheEnd();
    void widgetsAreKnownWhileTheyWait();
    void waitingRowsCanGo();
    void waitingRowsAreDeletedWithTheList();
    void waitingWidgetsComeIntoSightByScrolling();
    void removedRowsLeaveNoWidget();
};

void cRowListTest::standsWhereQtWouldPutIt_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 2, 9, 10, 11, 50, 300})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

void cRowListTest::standsWhereQtWouldPutIt()
{
    QFETCH(int, count);
    Pair(count).compare();
}

void cRowListTest::hiddenRowsLeaveNoGap()
{
    Pair pair(30);
    pair.ours.showOnlyRows({3, 4, 9, 20, 29});
    for (int i = 0; i < 30; ++i)
        pair.plain.item(i)->setHidden(!QList<int>({3, 4, 9, 20, 29}).contains(i));
    pair.compare();
    QCOMPARE(shownWidgets(pair.ours), QStringList({"00003", "00004", "00009", "00020", "00029"}));
    pair.ours.showOnlyRows({});
    QCOMPARE(pair.ours.indexAt(QPoint(50, 10)), QModelIndex());
    QCoreApplication::processEvents();
    QCOMPARE(shownWidgets(pair.ours), QStringList());
    pair.ours.showAllRows();
    for (int i = 0; i < 30; ++i)
        pair.plain.item(i)->setHidden(false);
    pair.compare();
}

void cRowListTest::rowsAddedHiddenLeaveNoGap()
{
    Pair pair(5);
    for (int i = 10; i < 40; ++i)
        pair.add(i, i % 2 == 0);
    pair.compare();
}

void cRowListTest::scrollsAsQtWould_data()
{
    QTest::addColumn<int>("hint");
    QTest::newRow("ensure visible") << int(QAbstractItemView::EnsureVisible);
    QTest::newRow("at top") << int(QAbstractItemView::PositionAtTop);
    QTest::newRow("at bottom") << int(QAbstractItemView::PositionAtBottom);
    QTest::newRow("at center") << int(QAbstractItemView::PositionAtCenter);
}

void cRowListTest::scrollsAsQtWould()
{
    QFETCH(int, hint);
    Pair pair(60);
    for (const int row : {40, 0, 59, 30, 31, 25, 5}) {
        pair.ours.scrollToItem(pair.ours.item(row), QAbstractItemView::ScrollHint(hint));
        pair.plain.scrollToItem(pair.plain.item(row), QAbstractItemView::ScrollHint(hint));
        pair.compare();
    }
}

void cRowListTest::cursorMovesAsQtWould_data()
{
    QTest::addColumn<int>("action");
    QTest::newRow("up") << int(Rows::MoveUp);
    QTest::newRow("down") << int(Rows::MoveDown);
    QTest::newRow("home") << int(Rows::MoveHome);
    QTest::newRow("end") << int(Rows::MoveEnd);
    QTest::newRow("next") << int(Rows::MoveNext);
    QTest::newRow("previous") << int(Rows::MovePrevious);
    QTest::newRow("page up") << int(Rows::MovePageUp);
    QTest::newRow("page down") << int(Rows::MovePageDown);
}

void cRowListTest::cursorMovesAsQtWould()
{
    QFETCH(int, action);
    Pair pair(40);
    for (const int row : {0, 1, 5, 20, 38, 39}) {
        pair.ours.setCurrentRow(row);
        pair.plain.setCurrentRow(row);
        const auto move = [action](auto& list) {
            return list.moveCursor(Rows::CursorAction(action), Qt::NoModifier).row();
        };
        QCOMPARE(move(pair.ours), move(pair.plain));
    }
}

void cRowListTest::cursorPassesOverHiddenRows()
{
    Pair pair(20);
    pair.ours.setCurrentRow(5);
    pair.ours.showOnlyRows({2, 8, 11});
    const auto move = [&pair](auto action) {
        return pair.ours.moveCursor(action, Qt::NoModifier).row();
    };
    // From a current row that is hidden itself.
    QCOMPARE(move(Rows::MoveDown), 8);
    QCOMPARE(move(Rows::MoveUp), 2);
    pair.ours.setCurrentRow(8);
    QCOMPARE(move(Rows::MoveDown), 11);
    QCOMPARE(move(Rows::MoveUp), 2);
    QCOMPARE(move(Rows::MoveEnd), 11);
    pair.ours.showOnlyRows({});
    QCOMPARE(move(Rows::MoveDown), -1);
}

void cRowListTest::shiftClickSelectsWhatIsShownOnly()
{
    Pair pair(30);
    pair.ours.showOnlyRows({3, 4, 9, 20, 29});
    const auto click = [&pair](int row, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(pair.ours.viewport(), Qt::LeftButton, modifiers,
            pair.ours.visualItemRect(pair.ours.item(row)).center());
    };
    click(4, Qt::NoModifier);
    click(20, Qt::ShiftModifier);
    QStringList selected;
    for (int i = 0; i < 30; ++i) {
        if (pair.ours.item(i)->isSelected())
            selected.append(QString::number(i));
    }
    QCOMPARE(selected, QStringList({"4", "9", "20"}));
}

void cRowListTest::onlyWidgetsInSightAreShown()
{
    Pair pair(100);
    QCoreApplication::processEvents();
    QCOMPARE(shownWidgets(pair.ours).first(), name(0));
    QVERIFY(shownWidgets(pair.ours).size() <= 11);
    pair.ours.verticalScrollBar()->setValue(32 * 50 - 10);
    QCOMPARE(shownWidgets(pair.ours).first(), name(49));
    QVERIFY(shownWidgets(pair.ours).size() <= 12);
}

void cRowListTest::othersMayHideRows()
{
    Pair pair(20);
    for (const int row : {0, 3, 7}) {
        pair.ours.item(row)->setHidden(true);
        pair.plain.item(row)->setHidden(true);
        // Also when a row comes before the layout has taken notice.
        pair.add(100 + row);
        pair.compare();
    }
}

void cRowListTest::sortingMovesTheWidgets()
{
    Pair pair(40);
    pair.ours.sortItems(Qt::DescendingOrder);
    pair.plain.sortItems(Qt::DescendingOrder);
    pair.compare();
    QCOMPARE(shownWidgets(pair.ours).first(), name(39));
}

void cRowListTest::renamingMovesTheWidget()
{
    Pair pair(40);
    pair.ours.item(2)->setText(name(99));
    pair.plain.item(2)->setText(name(99));
    pair.compare();
    QCOMPARE(pair.ours.itemWidget(pair.ours.item(39))->objectName(), name(2));
}

void cRowListTest::rowsThatComeAboveLeaveThoseInSight()
{
    Pair pair(0);
    for (int i = 100; i < 200; ++i)
        pair.ours.addRow(makeItem(i), makeWidget(i), false);
    pair.ours.verticalScrollBar()->setValue(40 * 32 + 10);
    const QString top = topName(pair.ours);
    const int offset = pair.ours.verticalScrollBar()->value() % 32;
    for (int i = 0; i < 50; ++i)
        pair.ours.addRow(makeItem(i), makeWidget(i), i % 3 == 0);
    QCOMPARE(topName(pair.ours), top);
    QCOMPARE(pair.ours.verticalScrollBar()->value() % 32, offset);
    for (int i = 300; i < 350; ++i)
        pair.ours.addRow(makeItem(i), makeWidget(i), false);
    QCOMPARE(topName(pair.ours), top);
}

void cRowListTest::rowsThatGoAboveLeaveThoseInSight()
{
    Pair pair(100);
    // The list would go to the next row when the current one goes.
    pair.ours.setCurrentRow(45);
    pair.ours.verticalScrollBar()->setValue(40 * 32 + 10);
    const QString top = topName(pair.ours);
    for (int i = 0; i < 10; ++i) {
        delete pair.ours.itemWidget(pair.ours.item(0));
        delete pair.ours.takeItem(0);
        QCoreApplication::processEvents();
    }
    QCOMPARE(topName(pair.ours), top);
}

void cRowListTest::rowsThatComeAtTheTopAreSeen()
{
    Pair pair(0);
    for (int i = 100; i < 150; ++i)
        pair.ours.addRow(makeItem(i), makeWidget(i), false);
    pair.ours.addRow(makeItem(1), makeWidget(1), false);
    QCOMPARE(topName(pair.ours), name(1));
    QCOMPARE(pair.ours.verticalScrollBar()->value(), 0);
    QCOMPARE(shownWidgets(pair.ours).first(), name(1));
}

namespace {

/// More rows than are set at once, those behind out of sight.
void stream(Rows& list, int count)
{
    for (int i = 0; i < count; ++i)
        list.addRow(makeItem(i), makeWidget(i), false);
}

int setWidgets(const Rows& list)
{
    int set = 0;
    for (int i = 0; i < list.count(); ++i)
        set += list.itemWidget(list.item(i)) ? 1 : 0;
    return set;
}

} // namespace

void cRowListTest::streamSetsAllWidgetsInTheEnd()
{
    Rows list;
    setUp(list);
    list.show();
    stream(list, 600);
    QVERIFY(setWidgets(list) < 600);
    QTRY_COMPARE(setWidgets(list), 600);
    for (int i = 0; i < 600; ++i)
        QCOMPARE(list.itemWidget(list.item(i))->objectName(), name(i));
    QVERIFY(shownWidgets(list).size() <= 11);
    QCOMPARE(shownWidgets(list).first(), name(0));
}

void cRowListTest::widgetsAreKnownWhileTheyWait()
{
    Rows list;
    setUp(list);
    list.show();
    stream(list, 400);
    for (int i = 0; i < 400; ++i) {
        QCOMPARE(list.rowWidget(i)->objectName(), name(i));
        QCOMPARE(list.rowWidget(list.item(i)), list.rowWidget(i));
    }
    // Those in sight are set.
    for (int i = 0; i < 9; ++i)
        QVERIFY(list.itemWidget(list.item(i))->isVisible());
    QCOMPARE(list.rowWidget(400), nullptr);
    QCOMPARE(list.rowWidget(-1), nullptr);
}

void cRowListTest::waitingRowsCanGo()
{
    Rows list;
    setUp(list);
    list.show();
    stream(list, 400);
    int gone = 0;
    for (int i = list.count() - 1; i >= 0; --i) {
        if (list.itemWidget(list.item(i)))
            continue;
        const QPointer<QWidget> widget = list.rowWidget(i);
        // By whoever deletes the widget first, as well as by who takes the item only.
        if (++gone % 2)
            delete widget;
        delete list.takeItem(i);
        QVERIFY(!widget);
    }
    QVERIFY(gone > 50);
    QTRY_COMPARE(setWidgets(list), 400 - gone);
}

void cRowListTest::waitingRowsAreDeletedWithTheList()
{
    QVector<QPointer<QWidget>> widgets;
    Rows list;
    setUp(list);
    list.show();
    stream(list, 400);
    for (int i = 0; i < 400; ++i)
        widgets.append(list.rowWidget(i));
    list.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const QPointer<QWidget>& widget : qAsConst(widgets))
        QVERIFY(!widget);
    stream(list, 3);
    QCOMPARE(setWidgets(list), 3);
}

void cRowListTest::waitingWidgetsComeIntoSightByScrolling()
{
    Rows list;
    setUp(list);
    list.show();
    stream(list, 600);
    for (int value = 0; value < list.verticalScrollBar()->maximum(); value += 480) {
        list.verticalScrollBar()->setValue(value);
        const QModelIndex index = list.indexAt(QPoint(50, 100));
        QVERIFY(index.isValid());
        QVERIFY(list.indexWidget(index)->isVisible());
        QCOMPARE(list.indexWidget(index)->objectName(), index.data().toString());
        QCOMPARE(list.indexWidget(index)->pos(), list.visualRect(index).topLeft());
    }
}

void cRowListTest::removedRowsLeaveNoWidget()
{
    Pair pair(30);
    for (const int row : {29, 0, 12}) {
        for (QListWidget* list :
            {static_cast<QListWidget*>(&pair.ours), static_cast<QListWidget*>(&pair.plain)})
            delete list->takeItem(row);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        pair.compare();
    }
    QCOMPARE(pair.ours.viewport()->findChildren<cRowWidget*>().size(), 27);
}

VELTRANO_TEST_MAIN(cRowListTest)
#include "cRowListTest.moc"
