#include "Bar.h"

#include <SceneEvents.h>
#include <TestCase.h>

#include <QScrollBar>

/// The arrows of the bar: when they show, and how they scroll the tiles.
class ProfileScrollTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void fewTilesShowNoArrows_data();
    void fewTilesShowNoArrows();
    void arrowsFollowThePlace();
    void arrowsScrollByOneTile();
    void arrowsFadeWhenTilesComeAndGo();
    void valueIsThatOfTheScrollBar();
};

void ProfileScrollTest::fewTilesShowNoArrows_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("scrolls");
    for (int count = 0; count <= 8; ++count)
        QTest::newRow(qPrintable(QString::number(count))) << count << (count > 6);
}

void ProfileScrollTest::fewTilesShowNoArrows()
{
    QFETCH(int, count);
    QFETCH(bool, scrolls);
    const Bar on(ProfileHost::someNames(count), "Default");
    QCOMPARE(on.list->horizontalScrollBar()->isVisible(), scrolls);
    QCOMPARE(on.list->horizontalScrollBar()->maximum() > 0, scrolls);
    QTRY_COMPARE(on.right().opacity(), scrolls ? 1.0 : 0.0);
    QCOMPARE(on.left().opacity(), 0.0);
}

void ProfileScrollTest::arrowsFollowThePlace()
{
    const Bar on(ProfileHost::someNames(20), "Default");
    QScrollBar& scrollBar = *on.list->horizontalScrollBar();
    const auto showArrows = [&](double left, double right) {
        return QTest::qWaitFor([&] { return on.left().opacity() == left && on.right().opacity() == right; });
    };
    QVERIFY(showArrows(0, 1));
    scrollBar.setValue(1);
    QVERIFY(showArrows(1, 1));
    scrollBar.setValue(scrollBar.maximum() - 1);
    QVERIFY(showArrows(1, 1));
    scrollBar.setValue(scrollBar.maximum());
    QVERIFY(showArrows(1, 0));
    // To and fro faster than the fade: the last word counts.
    scrollBar.setValue(0);
    QTest::qWait(20);
    scrollBar.setValue(scrollBar.maximum() / 2);
    QVERIFY(showArrows(1, 1));
    scrollBar.setValue(0);
    QVERIFY(showArrows(0, 1));
}

void ProfileScrollTest::arrowsScrollByOneTile()
{
    const Bar on(ProfileHost::someNames(20), "Default");
    QScrollBar& scrollBar = *on.list->horizontalScrollBar();
    QCOMPARE(scrollBar.singleStep(), 68);
    SceneEvents::press(on.right());
    QVERIFY(scrollBar.value() < 68);
    QTRY_COMPARE(scrollBar.value(), 68);
    SceneEvents::press(on.right());
    QTRY_COMPARE(scrollBar.value(), 136);
    SceneEvents::press(on.left());
    QTRY_COMPARE(scrollBar.value(), 68);
    // At the ends it stays inside.
    SceneEvents::press(on.left());
    QTRY_COMPARE(scrollBar.value(), 0);
    SceneEvents::press(on.left());
    QTest::qWait(250);
    QCOMPARE(scrollBar.value(), 0);
    // A second press on the way starts where the first has got to.
    SceneEvents::press(on.right());
    QTRY_VERIFY(scrollBar.value() > 20);
    const int reached = scrollBar.value();
    SceneEvents::press(on.right());
    QTRY_VERIFY(scrollBar.value() >= reached + 60);
    // The list may go while it runs.
    SceneEvents::press(on.right());
}

void ProfileScrollTest::arrowsFadeWhenTilesComeAndGo()
{
    Bar on(ProfileHost::someNames(6), "Default");
    QCOMPARE(on.right().opacity(), 0.0);
    on.host.add("More", "device");
    QTRY_COMPARE(on.right().opacity(), 1.0);
    on.host.remove("{More}");
    QTRY_COMPARE(on.right().opacity(), 0.0);
    // A search leaves few.
    on.host.add("More", "device");
    QTRY_COMPARE(on.right().opacity(), 1.0);
    on.list->onSearch("more");
    QTRY_COMPARE(on.right().opacity(), 0.0);
    on.list->onSearch(QString());
    QTRY_COMPARE(on.right().opacity(), 1.0);
}

void ProfileScrollTest::valueIsThatOfTheScrollBar()
{
    const Bar on(ProfileHost::someNames(20), "Default");
    QVERIFY(on.bar->setProperty("value", 77));
    QCOMPARE(on.list->horizontalScrollBar()->value(), 77);
    QCOMPARE(on.bar->property("value").toInt(), 77);
}

VELTRANO_TEST_MAIN(ProfileScrollTest)
#include "ProfileScrollTest.moc"
