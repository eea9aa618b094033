#include "Bar.h"

#include <SceneEvents.h>
#include <TestCase.h>

#include <QEasingCurve>
#include <QPropertyAnimation>
#include <QScrollBar>
#include <QVariant>

namespace {

/// The bar's animation of that object; null if there is none or another one as well.
QPropertyAnimation* animationOf(const Bar& on, const QObject* target)
{
    QList<QPropertyAnimation*> found;
    for (QPropertyAnimation* animation : on.bar->findChildren<QPropertyAnimation*>()) {
        if (animation->targetObject() == target)
            found.append(animation);
    }
    return found.size() == 1 ? found.constFirst() : nullptr;
}

/// The property's value half-way through the animation's time.
QVariant valueHalfWay(QPropertyAnimation& animation)
{
    animation.pause();
    animation.setCurrentTime(animation.duration() / 2);
    const QVariant value = animation.targetObject()->property(animation.propertyName());
    animation.resume();
    return value;
}

} // namespace

/// The arrows of the bar: when they show, and how they scroll the tiles.
class ProfileScrollTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void fewTilesShowNoArrows_data();
    void fewTilesShowNoArrows();
    void arrowsFollowThePlace();
    void arrowsFadeInTheirTime_data();
    void arrowsFadeInTheirTime();
    void arrowsScrollByOneTile();
    void scrollingTakesItsTime_data();
    void scrollingTakesItsTime();
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

void ProfileScrollTest::arrowsFadeInTheirTime_data()
{
    QTest::addColumn<bool>("isLeft");
    QTest::newRow("left") << true;
    QTest::newRow("right") << false;
}

void ProfileScrollTest::arrowsFadeInTheirTime()
{
    QFETCH(bool, isLeft);
    const Bar on(ProfileHost::someNames(20), "Default");
    QScrollBar& scrollBar = *on.list->horizontalScrollBar();
    cGraphicsButton& arrow = isLeft ? on.left() : on.right();
    QPropertyAnimation* const fade = animationOf(on, &arrow);
    QVERIFY(fade);
    QCOMPARE(fade->propertyName(), QByteArray("opacity"));
    QCOMPARE(fade->duration(), 300);
    QCOMPARE(fade->easingCurve(), QEasingCurve(QEasingCurve::OutCubic));

    // At the other end the arrow shows, at its own it hides.
    scrollBar.setValue(isLeft ? 0 : scrollBar.maximum());
    QTRY_COMPARE(arrow.opacity(), 0.0);
    scrollBar.setValue(isLeft ? scrollBar.maximum() : 0);
    QCOMPARE(fade->state(), QAbstractAnimation::Running);
    QCOMPARE(fade->startValue().toDouble(), 0.0);
    QCOMPARE(fade->endValue().toDouble(), 1.0);
    QCOMPARE(valueHalfWay(*fade).toDouble(), 0.875);
    QTRY_COMPARE(arrow.opacity(), 1.0);
    scrollBar.setValue(isLeft ? 0 : scrollBar.maximum());
    QCOMPARE(fade->startValue().toDouble(), 1.0);
    QCOMPARE(fade->endValue().toDouble(), 0.0);
    QCOMPARE(valueHalfWay(*fade).toDouble(), 0.125);
    QTRY_COMPARE(arrow.opacity(), 0.0);
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

void ProfileScrollTest::scrollingTakesItsTime_data()
{
    QTest::addColumn<bool>("isLeft");
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("halfWay");
    // A tile's step is 68, of which three quarters are done after half of the time.
    QTest::newRow("left") << true << 200 - 68 << 200 - 51;
    QTest::newRow("right") << false << 200 + 68 << 200 + 51;
}

void ProfileScrollTest::scrollingTakesItsTime()
{
    QFETCH(bool, isLeft);
    QFETCH(int, end);
    QFETCH(int, halfWay);
    const Bar on(ProfileHost::someNames(20), "Default");
    QScrollBar& scrollBar = *on.list->horizontalScrollBar();
    scrollBar.setValue(200);
    QPropertyAnimation* const scroll = animationOf(on, &scrollBar);
    QVERIFY(scroll);
    QCOMPARE(scroll->propertyName(), QByteArray("value"));
    QCOMPARE(scroll->duration(), 200);
    QCOMPARE(scroll->easingCurve(), QEasingCurve(QEasingCurve::OutQuad));
    SceneEvents::press(isLeft ? on.left() : on.right());
    QCOMPARE(scroll->state(), QAbstractAnimation::Running);
    QCOMPARE(scroll->startValue().toInt(), 200);
    QCOMPARE(scroll->endValue().toInt(), end);
    QCOMPARE(valueHalfWay(*scroll).toInt(), halfWay);
    QTRY_COMPARE(scrollBar.value(), end);
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
