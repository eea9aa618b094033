#include "Panes.h"

#include <TestCase.h>

#include <QElapsedTimer>

/// How the panes and the mask come in and leave.
class ViewPanesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void panesAreMadeWhenTheirTimeComes();
    void panesAndMaskHaveTheirPlaces();
    void enterMovesEachFromOutside_data();
    void enterMovesEachFromOutside();
    void exitMovesEachOutside_data();
    void exitMovesEachOutside();
    void secondEnterBeginsAnew();
    void exitTurnsAnEnterAround();
    void exitEndsByTheTimerAlone();
};

void ViewPanesTest::panesAreMadeWhenTheirTimeComes()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    QElapsedTimer time;
    time.start();
    bringUp(fixture);
    QCOMPARE(panes.count(), 0);
    QTRY_COMPARE(panes.count(), 3);
    // Timers of that length may be early by a twentieth.
    QVERIFY(time.elapsed() >= 237);
    QVERIFY(panes.areMoving());
    QTRY_COMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
    QTRY_COMPARE(panes.profile()->pos(), QPointF(ProfilePaneAtRest));
    QTRY_COMPARE(panes.mask()->scale(), 1.0);
    QTRY_VERIFY(!panes.areMoving());
}

void ViewPanesTest::panesAndMaskHaveTheirPlaces()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    fixture.canvas->setSceneRect(10, 20, 981, 621);
    bringUp(fixture);
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QVERIFY(panes.command());
    QCOMPARE(panes.command()->parentItem(), nullptr);
    QCOMPARE(panes.command()->zValue(), -60.0);
    QVERIFY(panes.profile());
    QCOMPARE(panes.profile()->parentItem(), nullptr);
    QCOMPARE(panes.profile()->zValue(), -60.0);
    const cScalablePixmap* const mask = panes.mask();
    QVERIFY(mask);
    QCOMPARE(mask->parentItem(), nullptr);
    QCOMPARE(mask->zValue(), -80.0);
    QCOMPARE(mask->pos(), QPointF(0, 0));
    QCOMPARE(mask->transformOriginPoint(), QPointF(490.5, 310.5));
    QCOMPARE(
        mask->pixmap().size(), QPixmap("MacroBindingView:/Resources/images/gradient_mask_gkeys.png").size());
    QVERIFY(!mask->pixmap().isNull());
    // Only the panes hear of the transform.
    QCOMPARE(
        fixture.host.takeLog(), QStringList({"subscribe MainUI_Events on", "subscribe MainUI_Events on"}));
}

void ViewPanesTest::enterMovesEachFromOutside_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("start");
    QTest::addColumn<QVariant>("end");
    QTest::newRow("mask") << "mask" << QByteArray("scale") << QVariant(1.5) << QVariant(1.0);
    QTest::newRow("command pane") << "command" << QByteArray("pos") << QVariant(QPointF(CommandPaneOutside))
                                  << QVariant(QPointF(CommandPaneAtRest));
    QTest::newRow("profile pane") << "profile" << QByteArray("pos") << QVariant(QPointF(ProfilePaneOutside))
                                  << QVariant(QPointF(ProfilePaneAtRest));
}

namespace {

QObject* thing(const Panes& panes, const QString& what)
{
    if (what == "mask")
        return panes.mask();
    return what == "command" ? panes.command() : panes.profile();
}

} // namespace

void ViewPanesTest::enterMovesEachFromOutside()
{
    QFETCH(QString, what);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, start);
    QFETCH(QVariant, end);
    ViewFixture fixture;
    const Panes panes(fixture);
    bringUp(fixture);
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QObject* const target = thing(panes, what);
    const QPropertyAnimation* const animation = panes.animationOf(target);
    QVERIFY(animation);
    QCOMPARE(animation->propertyName(), property);
    QCOMPARE(animation->duration(), 250);
    QCOMPARE(animation->easingCurve().type(), QEasingCurve::OutCubic);
    QCOMPARE(animation->startValue(), start);
    QCOMPARE(animation->endValue(), end);
    QCOMPARE(animation->state(), QAbstractAnimation::Running);
    QCOMPARE(target->property(property), start);
    QTRY_COMPARE(animation->state(), QAbstractAnimation::Stopped);
    QCOMPARE(target->property(property), end);
}

void ViewPanesTest::exitMovesEachOutside_data()
{
    enterMovesEachFromOutside_data();
}

void ViewPanesTest::exitMovesEachOutside()
{
    QFETCH(QString, what);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, start);
    QFETCH(QVariant, end);
    RestingView fixture;
    const Panes panes(fixture);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QObject* const target = thing(panes, what);
    const QPropertyAnimation* const animation = panes.animationOf(target);
    QVERIFY(animation);
    QCOMPARE(animation->duration(), 250);
    QCOMPARE(animation->easingCurve().type(), QEasingCurve::InCubic);
    // The way that it came.
    QCOMPARE(animation->startValue(), end);
    QCOMPARE(animation->endValue(), start);
    QCOMPARE(animation->state(), QAbstractAnimation::Running);
    QCOMPARE(target->property(property), end);
    QTRY_COMPARE(panes.count(), 0);
    QCOMPARE(panes.animations().size(), 0);
}

void ViewPanesTest::secondEnterBeginsAnew()
{
    RestingView fixture;
    const Panes panes(fixture);
    const cPanel* const command = panes.command();
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QCOMPARE(panes.count(), 3);
    QCOMPARE(panes.command(), command);
    QCOMPARE(panes.command()->pos(), QPointF(CommandPaneOutside));
    QCOMPARE(panes.profile()->pos(), QPointF(ProfilePaneOutside));
    QCOMPARE(panes.mask()->scale(), 1.5);
    QTRY_COMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
    QTRY_COMPARE(panes.profile()->pos(), QPointF(ProfilePaneAtRest));
    QTRY_COMPARE(panes.mask()->scale(), 1.0);
}

void ViewPanesTest::exitTurnsAnEnterAround()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    bringUp(fixture);
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QTRY_VERIFY(panes.command()->x() > CommandPaneOutside.x() + 50);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    for (const QPropertyAnimation* animation : panes.animations()) {
        QCOMPARE(animation->currentTime(), 0);
        QCOMPARE(animation->state(), QAbstractAnimation::Running);
    }
    QCOMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
    QTRY_COMPARE(panes.count(), 0);
}

void ViewPanesTest::exitEndsByTheTimerAlone()
{
    RestingView fixture;
    const Panes panes(fixture);
    QElapsedTimer time;
    time.start();
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    // An animation that stands still ends nothing.
    for (QPropertyAnimation* animation : panes.animations())
        animation->stop();
    QCoreApplication::processEvents();
    QCOMPARE(panes.count(), 3);
    QTRY_COMPARE(panes.count(), 0);
    QVERIFY(time.elapsed() >= 237);
    // Once more there is nothing left to delete.
    QVERIFY(fixture.call("onPaneAndMaskAnimationExitFinished"));
}

VELTRANO_TEST_MAIN(ViewPanesTest)
#include "ViewPanesTest.moc"
