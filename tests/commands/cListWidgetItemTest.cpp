#include <cListWidgetItem.h>
#include <MetaMembers.h>
#include <RowLists.h>
#include <TestCase.h>

#include <QListWidget>

namespace {

std::unique_ptr<cListWidgetItem> makeItem(const QString& name, const QString& type, int mode)
{
    auto item = std::make_unique<cListWidgetItem>(name, mode);
    item->setNamespace(type);
    return item;
}

} // namespace

class cListWidgetItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsSlot();
    void namespaceIsDataUnderRole33();
    void compares_data();
    void compares();
    void nameSlotSetsTheText();
    void sortsByName();
    void sortsByTypeFromTheHighestToTheLowest();
    void emptyWellsStandBehindAllOthers();
    void sortingManyEqualItemsIsHarmless_data();
    void sortingManyEqualItemsIsHarmless();
    void unknownModeLeavesTheOrder();
};

void cListWidgetItemTest::hasItsSlot()
{
    const QMetaObject& meta = cListWidgetItem::staticMetaObject;
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList({"onNameChanged(QString)"}));
    QCOMPARE(meta.method(meta.methodOffset()).access(), QMetaMethod::Private);
}

void cListWidgetItemTest::namespaceIsDataUnderRole33()
{
    const auto item = makeItem("Jump", "urn:keys", 1);
    QCOMPARE(item->data(33).toString(), QString("urn:keys"));
    QCOMPARE(item->data(Qt::UserRole + 1).toString(), QString("urn:keys"));
    item->setData(Qt::UserRole + 1, "urn:text");
    QCOMPARE(item->data(33).toString(), QString("urn:text"));
    QCOMPARE(item->text(), QString("Jump"));
}

void cListWidgetItemTest::compares_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("otherName");
    QTest::addColumn<QString>("otherType");
    QTest::addColumn<bool>("isLess");
    const QString well("EmptyWell");
    QTest::newRow("name: a before b") << 1 << "a"
                                      << "z"
                                      << "b"
                                      << "a" << true;
    QTest::newRow("name: b not before a") << 1 << "b"
                                          << "a"
                                          << "a"
                                          << "z" << false;
    QTest::newRow("name: equal") << 1 << "a"
                                 << "x"
                                 << "a"
                                 << "x" << false;
    QTest::newRow("name: well behind") << 1 << "a" << well << "b"
                                       << "x" << false;
    QTest::newRow("name: in front of a well") << 1 << "b"
                                              << "x"
                                              << "a" << well << true;
    QTest::newRow("name: two wells") << 1 << "a" << well << "b" << well << false;
    QTest::newRow("type: higher namespace first") << 2 << "a"
                                                  << "y"
                                                  << "a"
                                                  << "x" << true;
    QTest::newRow("type: lower namespace behind") << 2 << "a"
                                                  << "x"
                                                  << "a"
                                                  << "y" << false;
    QTest::newRow("type: by code point") << 2 << "a"
                                         << "a"
                                         << "a"
                                         << "Z" << true;
    QTest::newRow("type: names from the last") << 2 << "b"
                                               << "x"
                                               << "a"
                                               << "x" << true;
    QTest::newRow("type: names to the first") << 2 << "a"
                                              << "x"
                                              << "b"
                                              << "x" << false;
    QTest::newRow("type: equal keys are less") << 2 << "a"
                                               << "x"
                                               << "a"
                                               << "x" << true;
    QTest::newRow("type: a well is a namespace like any") << 2 << "a" << well << "a"
                                                          << "A" << true;
    for (const int mode : {0, 3, -1})
        QTest::newRow(qPrintable(QString("mode %1").arg(mode))) << mode << "a"
                                                                << "y"
                                                                << "b"
                                                                << "x" << false;
}

void cListWidgetItemTest::compares()
{
    QFETCH(int, mode);
    QFETCH(QString, name);
    QFETCH(QString, type);
    QFETCH(QString, otherName);
    QFETCH(QString, otherType);
    QFETCH(bool, isLess);
    const auto item = makeItem(name, type, mode);
    const auto other = makeItem(otherName, otherType, mode);
    QCOMPARE(*item < *other, isLess);
}

void cListWidgetItemTest::nameSlotSetsTheText()
{
    cListWidgetItem item("Jump", 1);
    QVERIFY(QMetaObject::invokeMethod(&item, "onNameChanged", Q_ARG(QString, "Fire")));
    QCOMPARE(item.text(), QString("Fire"));
}

namespace {

QStringList sorted(const QList<QPair<QString, QString>>& namesAndTypes, int mode)
{
    QListWidget list;
    RowLists::setUp(list);
    for (const auto& each : namesAndTypes)
        list.addItem(makeItem(each.first, each.second, 0).release());
    RowLists::setSortMode(list, mode);
    list.sortItems();
    QStringList names;
    for (int i = 0; i < list.count(); ++i)
        names.append(list.item(i)->text());
    return names;
}

} // namespace

void cListWidgetItemTest::sortsByName()
{
    QCOMPARE(sorted({{"b", "x"}, {"c", "y"}, {"a", "x"}}, 1), QStringList({"a", "b", "c"}));
}

void cListWidgetItemTest::sortsByTypeFromTheHighestToTheLowest()
{
    QCOMPARE(sorted({{"b", "x"}, {"d", "y"}, {"a", "x"}, {"e", "y"}}, 2), QStringList({"e", "d", "b", "a"}));
}

void cListWidgetItemTest::emptyWellsStandBehindAllOthers()
{
    QCOMPARE(sorted({{"a", "EmptyWell"}, {"c", "y"}, {"b", "x"}}, 1), QStringList({"b", "c", "a"}));
}

void cListWidgetItemTest::sortingManyEqualItemsIsHarmless_data()
{
    QTest::addColumn<int>("order");
    QTest::newRow("ascending") << int(Qt::AscendingOrder);
    QTest::newRow("descending") << int(Qt::DescendingOrder);
}

void cListWidgetItemTest::sortingManyEqualItemsIsHarmless()
{
    // An order in which equal items are less than each other makes a sort run over the end of what it sorts.
    QFETCH(int, order);
    QListWidget list;
    RowLists::setUp(list);
    for (int i = 0; i < 300; ++i)
        list.addItem(makeItem(i % 3 ? "same" : "other", "x", 2).release());
    list.sortItems(Qt::SortOrder(order));
    QCOMPARE(list.count(), 300);
    const bool isAscending = order == Qt::AscendingOrder;
    QCOMPARE(list.item(0)->text(), QString(isAscending ? "same" : "other"));
    QCOMPARE(list.item(299)->text(), QString(isAscending ? "other" : "same"));
    // Only while the list sorts.
    QVERIFY(*list.item(0) < *list.item(1));
}

void cListWidgetItemTest::unknownModeLeavesTheOrder()
{
    // No item is less than another one, so each new one comes first, and sorting moves none.
    QCOMPARE(sorted({{"b", "x"}, {"c", "y"}, {"a", "x"}}, 7), QStringList({"a", "c", "b"}));
}

VELTRANO_TEST_MAIN(cListWidgetItemTest)
#include "cListWidgetItemTest.moc"
