#include <cScalablePixmap.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QPropertyAnimation>

class cScalablePixmapTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsPropertyOnly();
    void showsItsPicture();
    void animationScalesIt();
    void nullPictureDrawsNothing();
};

void cScalablePixmapTest::hasItsPropertyOnly()
{
    const QMetaObject& meta = cScalablePixmap::staticMetaObject;
    QCOMPARE(MetaMembers::propertiesOf(meta), QStringList({"double scale"}));
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void cScalablePixmapTest::showsItsPicture()
{
    cScalablePixmap item(filledPicture(4, 3, Qt::red));
    QCOMPARE(inkExtent(SceneEvents::painted(item, QSize(10, 10))), QRect(0, 0, 4, 3));
}

void cScalablePixmapTest::animationScalesIt()
{
    cScalablePixmap item(filledPicture(4, 3, Qt::red));
    QPropertyAnimation animation(&item, "scale");
    animation.setStartValue(1.5);
    animation.setEndValue(1.0);
    animation.setDuration(250);
    animation.start();
    QCOMPARE(static_cast<QGraphicsItem&>(item).scale(), 1.5);
    animation.setCurrentTime(250);
    QCOMPARE(static_cast<QGraphicsItem&>(item).scale(), 1.0);
}

void cScalablePixmapTest::nullPictureDrawsNothing()
{
    cScalablePixmap item {QPixmap()};
    QVERIFY(inkExtent(SceneEvents::painted(item, QSize(10, 10))).isNull());
}

VELTRANO_TEST_MAIN(cScalablePixmapTest)
#include "cScalablePixmapTest.moc"
