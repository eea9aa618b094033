#include "ViewFixture.h"

#include <cPanel.h>
#include <cScalablePixmap.h>
#include <SingleShots.h>
#include <TestCase.h>

#include <QElapsedTimer>
#include <QGraphicsRectItem>
#include <QPropertyAnimation>
#include <QSignalSpy>

namespace {

// The panes with their frames, outside of the canvas: 21 pixels of frame on each side.
constexpr QPoint CommandPaneOutside(-274, 157);
constexpr QPoint CommandPaneAtRest(38, 157);
constexpr QPoint ProfilePaneOutside(352, -128);
constexpr QPoint ProfilePaneAtRest(352, 37);

/// The view's panes, its mask and their animations, as a test sees them.
class Panes
{
public:
    explicit Panes(ViewFixture& fixture)
        : m_fixture(fixture)
    { }

    cPanel* command() const { return panel(QSizeF(232, 380)); }
    cPanel* profile() const { return panel(QSizeF(593, 86)); }
    cScalablePixmap* mask() const { return m_fixture.item<cScalablePixmap>(); }
    /// How many of the three there are.
    int count() const { return m_fixture.items<cPanel>().size() + m_fixture.items<cScalablePixmap>().size(); }
    QPropertyAnimation* animationOf(const QObject* target) const
    {
        for (QPropertyAnimation* animation : animations()) {
            if (animation->targetObject() == target)
                return animation;
        }
        return nullptr;
    }
    QList<QPropertyAnimation*> animations() const
    {
        return m_fixture.view.findChildren<QPropertyAnimation*>();
    }
    bool areMoving() const
    {
        for (const QPropertyAnimation* animation : animations()) {
            if (animation->state() == QAbstractAnimation::Running)
                return true;
        }
        return false;
    }

private:
    cPanel* panel(const QSizeF& size) const
    {
        for (cPanel* panel : m_fixture.items<cPanel>()) {
            if (panel->panelSize() == size)
                return panel;
        }
        return nullptr;
    }

    ViewFixture& m_fixture;
};

void bringUp(ViewFixture& fixture)
{
    fixture.view.init(cJsonValue(), fixture.canvas.get());
    fixture.host.clear();
}

/// With panes that have come in, so that no timer is under way any more.
class RestingView : public ViewFixture
{
public:
    RestingView()
    {
        bringUp(*this);
        const Panes panes(*this);
        QTRY_COMPARE(panes.count(), 3);
        QTRY_VERIFY(!panes.areMoving());
    }
};

} // namespace

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
    void exitOfALeavingViewMakesNothing();
    void exitByNameMakesThePanes();
    void closingMainWindowTakesThePanesAtOnce();
    void nothingComesAfterTheMainWindowHasClosed();
    void nextInitMakesPanesAgain();
    void enterThatIsStillToComeOutlivesTheDeinit();
    void deinitBeforeTheEnterLeavesThePanesThatComeLater();
    void initWhilePanesAreThereUsesThem();
    void noRootItemMeansNoMask();
    void sceneThatGoesTakesThePanes();
    void nextCanvasGetsPanesThatMove();
    void deletedViewLeavesNoPanes();
    void transformOfTheDeviceReachesThePanes();
    void fadeDoesNothing();
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

void ViewPanesTest::exitOfALeavingViewMakesNothing()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(panes.count(), 0);
    bringUp(fixture);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(panes.count(), 0);
    QCOMPARE(panes.animations().size(), 0);
}

void ViewPanesTest::exitByNameMakesThePanes()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    bringUp(fixture);
    QVERIFY(fixture.call("onPaneAndMaskExitAnimation"));
    QCOMPARE(panes.count(), 3);
    QCOMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
    QTRY_COMPARE(panes.count(), 0);
}

void ViewPanesTest::closingMainWindowTakesThePanesAtOnce()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    fixture.open();
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QCOMPARE(panes.count(), 3);
    fixture.host.publishMainWindowClosing();
    QCOMPARE(panes.count(), 0);
    QCOMPARE(panes.animations().size(), 0);
    // The scene stays until the host takes the view down.
    QVERIFY(fixture.key("G1"));
}

void ViewPanesTest::nothingComesAfterTheMainWindowHasClosed()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    fixture.open();
    fixture.host.publishMainWindowClosing();
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QCOMPARE(panes.count(), 0);
    QVERIFY(fixture.call("onPaneAndMaskExitAnimation"));
    QCOMPARE(panes.count(), 0);
    const int timers = singleShots(250);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(panes.count(), 0);
    QCOMPARE(panes.animations().size(), 0);
    // The exit's timer starts all the same. It comes by as that of init() does, and nothing is left for them.
    QCOMPARE(singleShots(250), timers + 1);
    QTRY_COMPARE(singleShots(250), 0);
    QCOMPARE(panes.count(), 0);
}

void ViewPanesTest::nextInitMakesPanesAgain()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    fixture.open();
    fixture.host.publishMainWindowClosing();
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    fixture.open();
    QTRY_COMPARE(panes.count(), 3);
    QTRY_COMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
}

void ViewPanesTest::enterThatIsStillToComeOutlivesTheDeinit()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    bringUp(fixture);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(panes.count(), 0);
    fixture.host.clear();
    // Heard, not looked for: the exit, which was asked for a moment later, ends at nearly the same time.
    QTRY_COMPARE(singleShots(250), 0);
    QCOMPARE(fixture.host.takeLog(),
        QStringList({"subscribe MainUI_Events on", "subscribe MainUI_Events on", "unsubscribe MainUI_Events",
            "unsubscribe MainUI_Events"}));
    QCOMPARE(panes.count(), 0);
}

void ViewPanesTest::deinitBeforeTheEnterLeavesThePanesThatComeLater()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    bringUp(fixture);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(panes.count(), 0);
    // The time of the enter comes all the same, as its single shot does: a view that has left brings panes
    // in, and they stay until an exit ends.
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QCOMPARE(panes.count(), 3);
    QVERIFY(panes.areMoving());
    QTRY_COMPARE(panes.count(), 0);
    // With no exit under way they stay until the next one.
    QTRY_COMPARE(singleShots(250), 0);
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QTRY_COMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
    QTRY_VERIFY(!panes.areMoving());
    QVERIFY(panes.profile());
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QTRY_COMPARE(panes.count(), 0);
}

void ViewPanesTest::initWhilePanesAreThereUsesThem()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    bringUp(fixture);
    QTRY_COMPARE(panes.count(), 3);
    const cPanel* const command = panes.command();
    const cScalablePixmap* const mask = panes.mask();
    // Heard, not looked for: the second way in may be over before a busy machine looks.
    qRegisterMetaType<QAbstractAnimation::State>();
    const QSignalSpy changes(panes.animationOf(command),
        SIGNAL(stateChanged(QAbstractAnimation::State, QAbstractAnimation::State)));
    bringUp(fixture);
    QTRY_COMPARE(changes.size(), 3);
    QCOMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
    QCOMPARE(panes.count(), 3);
    QCOMPARE(panes.command(), command);
    QCOMPARE(panes.mask(), mask);
}

void ViewPanesTest::noRootItemMeansNoMask()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    fixture.open();
    QTRY_COMPARE(panes.count(), 3);
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QTRY_COMPARE(panes.count(), 0);
    QCOMPARE(fixture.rootItem(), nullptr);
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QVERIFY(!panes.mask());
    QVERIFY(panes.command());
    QVERIFY(panes.profile());
    QCOMPARE(panes.animations().size(), 2);
    QTRY_COMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
    // A mask that comes later moves as well.
    bringUp(fixture);
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QVERIFY(panes.mask());
    QCOMPARE(panes.mask()->scale(), 1.5);
    QTRY_COMPARE(panes.mask()->scale(), 1.0);
}

void ViewPanesTest::sceneThatGoesTakesThePanes()
{
    ViewFixture fixture;
    fixture.open();
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    fixture.canvas.reset();
    fixture.scene = std::make_unique<QGraphicsScene>();
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    QVERIFY(fixture.call("onPaneAndMaskExitAnimation"));
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QVERIFY(fixture.scene->items().isEmpty());
}

void ViewPanesTest::nextCanvasGetsPanesThatMove()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    fixture.open();
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    fixture.canvas.reset();
    fixture.scene = std::make_unique<QGraphicsScene>();
    fixture.canvas = std::make_unique<QGraphicsView>(fixture.scene.get());
    fixture.canvas->setSceneRect(ViewFixture::CanvasRect);
    fixture.open();
    QTRY_COMPARE(panes.count(), 3);
    QTRY_COMPARE(panes.command()->pos(), QPointF(CommandPaneAtRest));
    QTRY_COMPARE(panes.profile()->pos(), QPointF(ProfilePaneAtRest));
    QCOMPARE(panes.animations().size(), 3);
}

void ViewPanesTest::deletedViewLeavesNoPanes()
{
    RecordingHost host;
    QGraphicsScene scene;
    QGraphicsView canvas(&scene);
    {
        cMacroBindingView view;
        QVERIFY(view.init(cJsonValue(), &canvas));
        QVERIFY(QMetaObject::invokeMethod(&view, "onPaneAndMaskEnterAnimation"));
        QCOMPARE(scene.items(QRectF(), Qt::IntersectsItemShape).size(), 0);
        QVERIFY(scene.items().size() > 1);
    }
    // The root item of a scene that was never built stays; it is the scene's.
    QCOMPARE(scene.items().size(), 1);
}

void ViewPanesTest::transformOfTheDeviceReachesThePanes()
{
    ViewFixture fixture;
    const Panes panes(fixture);
    bringUp(fixture);
    QVERIFY(fixture.call("onPaneAndMaskEnterAnimation"));
    fixture.host.publishMainWindowClosing();
    fixture.host.takeLog();
    // Gone panes hear nothing.
    fixture.host.publishDeviceTransformBegin(cJsonValue());
    QCOMPARE(fixture.host.takeLog(), QStringList());
}

void ViewPanesTest::fadeDoesNothing()
{
    ViewFixture fixture;
    bringUp(fixture);
    const int items = fixture.scene->items().size();
    QVERIFY(fixture.call("onFade", Q_ARG(qreal, 0.5)));
    QCOMPARE(fixture.scene->items().size(), items);
    QCOMPARE(fixture.host.takeLog(), QStringList());
}

VELTRANO_TEST_MAIN(ViewPanesTest)
#include "ViewPanesTest.moc"
