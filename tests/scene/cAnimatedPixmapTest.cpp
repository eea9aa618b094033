#include "FilmStripPictures.h"

#include <cAnimatedPixmap.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QGraphicsScene>
#include <QGraphicsView>

#include <limits>

class cAnimatedPixmapTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsSlotAndProperty();
    void drawsTheFrameThatIsSet_data();
    void drawsTheFrameThatIsSet();
    void isAsLargeAsAFrame();
    void onlyFrameIsTheWholeStrip();
    void minusOneMakesOneFrame();
    void stripWithoutFramesDrawsNothing_data();
    void stripWithoutFramesDrawsNothing();
    void frameOutsideTheStripDrawsNothing_data();
    void frameOutsideTheStripDrawsNothing();
    void timerStandsStillUntilStarted();
    void timeoutShowsTheNextFrame();
    void resetShowsTheFirstFrame();
    void newFrameIsPainted();
    void opacityIsTheItems();
};

void cAnimatedPixmapTest::hasItsSlotAndProperty()
{
    const QMetaObject& meta = cAnimatedPixmap::staticMetaObject;
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList({"timeout()"}));
    QCOMPARE(MetaMembers::propertiesOf(meta), QStringList({"double opacity"}));
}

void cAnimatedPixmapTest::drawsTheFrameThatIsSet_data()
{
    QTest::addColumn<int>("frame");
    for (int i = 0; i < frameColors().size(); ++i)
        QTest::addRow("%d", i) << i;
}

void cAnimatedPixmapTest::drawsTheFrameThatIsSet()
{
    QFETCH(int, frame);
    cAnimatedPixmap item(filmStrip(), FrameWidth);
    item.setFrame(frame);
    // Wider than a frame, so that a neighbour would be seen.
    const QImage image = SceneEvents::painted(item, QSize(3 * FrameWidth, 2 * FrameHeight));
    QCOMPARE(inkExtent(image), QRect(0, 0, FrameWidth, FrameHeight));
    QCOMPARE(image.pixelColor(0, 0), frameColors().at(frame));
    QCOMPARE(image.pixelColor(FrameWidth - 1, FrameHeight - 1), frameColors().at(frame));
}

void cAnimatedPixmapTest::isAsLargeAsAFrame()
{
    const cAnimatedPixmap item(filmStrip(), FrameWidth);
    QCOMPARE(item.boundingRect(), QRectF(0, 0, FrameWidth, FrameHeight));
    QCOMPARE(item.frameCount(), frameColors().size());
}

void cAnimatedPixmapTest::onlyFrameIsTheWholeStrip()
{
    const int width = 2 * FrameWidth - 1;
    const cAnimatedPixmap item(filledPicture(width, FrameHeight, Qt::red), FrameWidth);
    QCOMPARE(item.frameCount(), 1);
    QCOMPARE(item.boundingRect(), QRectF(0, 0, width, FrameHeight));
}

void cAnimatedPixmapTest::minusOneMakesOneFrame()
{
    cAnimatedPixmap item(filmStrip(), -1);
    QCOMPARE(item.frameCount(), 1);
    QCOMPARE(item.boundingRect().size(), QSizeF(filmStrip().size()));
    item.timeout();
    QCOMPARE(item.currentFrame(), 0);
    QCOMPARE(SceneEvents::painted(item, filmStrip().size()),
        filmStrip().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void cAnimatedPixmapTest::stripWithoutFramesDrawsNothing_data()
{
    QTest::addColumn<QPixmap>("strip");
    QTest::addColumn<int>("frameWidth");
    QTest::newRow("narrower than a frame") << filmStrip() << 100;
    QTest::newRow("null picture") << QPixmap() << FrameWidth;
    QTest::newRow("null picture, no strip") << QPixmap() << -1;
    QTest::newRow("no width") << filmStrip() << 0;
    QTest::newRow("negative width") << filmStrip() << -3;
}

void cAnimatedPixmapTest::stripWithoutFramesDrawsNothing()
{
    QFETCH(QPixmap, strip);
    QFETCH(int, frameWidth);
    cAnimatedPixmap item(strip, frameWidth);
    item.setInterval(0);
    item.start();
    item.timeout();
    QCOMPARE(item.currentFrame(), 0);
    QCOMPARE(item.boundingRect(), QRectF());
    QVERIFY(inkExtent(SceneEvents::painted(item, QSize(10, 10))).isNull());
}

void cAnimatedPixmapTest::frameOutsideTheStripDrawsNothing_data()
{
    QTest::addColumn<int>("frame");
    QTest::newRow("behind the last") << frameColors().size();
    QTest::newRow("before the first") << -1;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void cAnimatedPixmapTest::frameOutsideTheStripDrawsNothing()
{
    QFETCH(int, frame);
    cAnimatedPixmap item(filmStrip(), FrameWidth);
    item.setFrame(frame);
    QVERIFY(inkExtent(SceneEvents::painted(item, filmStrip().size())).isNull());
    QCOMPARE(item.boundingRect(), QRectF(0, 0, FrameWidth, FrameHeight));
}

void cAnimatedPixmapTest::timerStandsStillUntilStarted()
{
    cAnimatedPixmap item(filmStrip(), FrameWidth);
    QVERIFY(!item.isRunning());
    QCOMPARE(item.interval(), 100);
    item.setInterval(1);
    item.start();
    QVERIFY(item.isRunning());
    QTRY_COMPARE(item.currentFrame(), 2);
    item.stop();
    QVERIFY(!item.isRunning());
}

void cAnimatedPixmapTest::timeoutShowsTheNextFrame()
{
    cAnimatedPixmap item(filmStrip(), FrameWidth);
    item.timeout();
    QCOMPARE(item.currentFrame(), 1);
    item.setFrame(2);
    item.timeout();
    QCOMPARE(item.currentFrame(), 0);
}

void cAnimatedPixmapTest::resetShowsTheFirstFrame()
{
    cAnimatedPixmap item(filmStrip(), FrameWidth);
    item.setFrame(2);
    item.reset();
    QCOMPARE(item.currentFrame(), 0);
}

void cAnimatedPixmapTest::newFrameIsPainted()
{
    QGraphicsScene scene;
    cAnimatedPixmap item(filmStrip(), FrameWidth);
    scene.addItem(&item);
    QSignalSpy changes(&scene, SIGNAL(changed(QList<QRectF>)));
    item.setFrame(1);
    QTRY_VERIFY(!changes.isEmpty());
    changes.clear();
    item.timeout();
    QTRY_VERIFY(!changes.isEmpty());
    scene.removeItem(&item);
}

void cAnimatedPixmapTest::opacityIsTheItems()
{
    cAnimatedPixmap item(filmStrip(), FrameWidth);
    QVERIFY(item.setProperty("opacity", 0.25));
    QCOMPARE(static_cast<QGraphicsItem&>(item).opacity(), 0.25);
    QCOMPARE(item.property("opacity").toReal(), 0.25);
}

VELTRANO_TEST_MAIN(cAnimatedPixmapTest)
#include "cAnimatedPixmapTest.moc"
