#include "FilmStripPictures.h"

#include <cAnimatedPixmapWidget.h>
#include <MetaMembers.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QEnterEvent>
#include <QPalette>
#include <QPointer>

#include <limits>

namespace {

void sendEnter(QWidget& widget)
{
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(&widget, &event);
}

void sendLeave(QWidget& widget)
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(&widget, &event);
}

/// What the widget shows on a black background.
QImage shown(QWidget& widget)
{
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::black);
    widget.setPalette(palette);
    return widget.grab().toImage();
}

} // namespace

class cAnimatedPixmapWidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembersInOrder();
    void hasTheSizeOfAFrame();
    void hintsAtTheWholeStrip();
    void minusOneMakesOneFrame();
    void drawsTheFrameThatIsSet_data();
    void drawsTheFrameThatIsSet();
    void hoverPictureShowsUnderThePointerOnly();
    void hoverPictureHasToBeSwitchedOn();
    void missingHoverPictureDrawsNothing();
    void opacityBlendsWithTheBackground();
    void pointerIsReported();
    void leftPressClicks_data();
    void leftPressClicks();
    void pressIsLeftToTheParent();
    void receiverMayDeleteTheWidget();
    void disabledWidgetDoesNotClick();
    void timerStandsStillUntilStarted();
    void timeoutShowsTheNextFrame();
    void badStripsAreHarmless_data();
    void badStripsAreHarmless();
    void frameOutsideTheStripDrawsNothing_data();
    void frameOutsideTheStripDrawsNothing();
};

void cAnimatedPixmapWidgetTest::hasItsMembersInOrder()
{
    const QMetaObject& meta = cAnimatedPixmapWidget::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta), QStringList({"clicked()", "enter()", "leave()"}));
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList({"setOpacity(double)", "opacity()", "timeout()"}));
    QCOMPARE(MetaMembers::propertiesOf(meta), QStringList({"double opacity"}));
}

void cAnimatedPixmapWidgetTest::hasTheSizeOfAFrame()
{
    const cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    QCOMPARE(widget.size(), QSize(FrameWidth, FrameHeight));
    QCOMPARE(widget.minimumSize(), widget.size());
    QCOMPARE(widget.maximumSize(), widget.size());
    QCOMPARE(widget.frameCount(), 3);
    QVERIFY(widget.autoFillBackground());
}

void cAnimatedPixmapWidgetTest::hintsAtTheWholeStrip()
{
    const cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    QCOMPARE(widget.sizeHint(), filmStrip().size());
}

void cAnimatedPixmapWidgetTest::minusOneMakesOneFrame()
{
    cAnimatedPixmapWidget widget(filmStrip(), -1);
    QCOMPARE(widget.size(), filmStrip().size());
    QCOMPARE(widget.frameCount(), 1);
    widget.timeout();
    QCOMPARE(widget.currentFrame(), 0);
    const QImage image = shown(widget);
    QCOMPARE(image.pixelColor(0, 0), frameColors().first());
    QCOMPARE(image.pixelColor(widget.width() - 1, 0), frameColors().last());
}

void cAnimatedPixmapWidgetTest::drawsTheFrameThatIsSet_data()
{
    QTest::addColumn<int>("frame");
    for (int i = 0; i < frameColors().size(); ++i)
        QTest::addRow("%d", i) << i;
}

void cAnimatedPixmapWidgetTest::drawsTheFrameThatIsSet()
{
    QFETCH(int, frame);
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    widget.setFrame(frame);
    const QImage image = shown(widget);
    QCOMPARE(image.size(), QSize(FrameWidth, FrameHeight));
    QCOMPARE(image.pixelColor(0, 0), frameColors().at(frame));
    QCOMPARE(image.pixelColor(FrameWidth - 1, FrameHeight - 1), frameColors().at(frame));
    widget.reset();
    QCOMPARE(shown(widget).pixelColor(0, 0), frameColors().first());
}

void cAnimatedPixmapWidgetTest::hoverPictureShowsUnderThePointerOnly()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    widget.setHoverPixmap(filledPicture(FrameWidth, FrameHeight, Qt::yellow));
    widget.setUseHoverPixmap(true);
    QCOMPARE(shown(widget).pixelColor(0, 0), frameColors().first());
    sendEnter(widget);
    QCOMPARE(shown(widget).pixelColor(0, 0), QColor(Qt::yellow));
    sendLeave(widget);
    QCOMPARE(shown(widget).pixelColor(0, 0), frameColors().first());
}

void cAnimatedPixmapWidgetTest::hoverPictureHasToBeSwitchedOn()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    widget.setHoverPixmap(filledPicture(FrameWidth, FrameHeight, Qt::yellow));
    sendEnter(widget);
    QCOMPARE(shown(widget).pixelColor(0, 0), frameColors().first());
    widget.setUseHoverPixmap(true);
    QCOMPARE(shown(widget).pixelColor(0, 0), QColor(Qt::yellow));
    widget.setUseHoverPixmap(false);
    QCOMPARE(shown(widget).pixelColor(0, 0), frameColors().first());
}

void cAnimatedPixmapWidgetTest::missingHoverPictureDrawsNothing()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    widget.setUseHoverPixmap(true);
    sendEnter(widget);
    QCOMPARE(shown(widget).pixelColor(0, 0), QColor(Qt::black));
}

void cAnimatedPixmapWidgetTest::opacityBlendsWithTheBackground()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    QCOMPARE(widget.opacity(), 1.0);
    QVERIFY(widget.setProperty("opacity", 0.5));
    QCOMPARE(widget.opacity(), 0.5);
    const int red = shown(widget).pixelColor(0, 0).red();
    QVERIFY2(red >= 126 && red <= 129, qPrintable(QString::number(red)));
    widget.setOpacity(-1.0);
    QCOMPARE(shown(widget).pixelColor(0, 0), QColor(Qt::black));
    widget.setOpacity(7.0);
    QCOMPARE(shown(widget).pixelColor(0, 0), frameColors().first());
}

void cAnimatedPixmapWidgetTest::pointerIsReported()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    const QSignalSpy entered(&widget, SIGNAL(enter()));
    const QSignalSpy left(&widget, SIGNAL(leave()));
    sendEnter(widget);
    QCOMPARE(entered.size(), 1);
    QCOMPARE(widget.cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(left.size(), 0);
    sendLeave(widget);
    QCOMPARE(left.size(), 1);
    QCOMPARE(entered.size(), 1);
    QCOMPARE(widget.cursor().shape(), Qt::ArrowCursor);
}

void cAnimatedPixmapWidgetTest::leftPressClicks_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("clicks");
    QTest::newRow("left") << int(Qt::LeftButton) << 1;
    QTest::newRow("right") << int(Qt::RightButton) << 0;
    QTest::newRow("middle") << int(Qt::MiddleButton) << 0;
}

void cAnimatedPixmapWidgetTest::leftPressClicks()
{
    QFETCH(int, button);
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    const QSignalSpy clicked(&widget, SIGNAL(clicked()));
    QTest::mousePress(&widget, Qt::MouseButton(button));
    QTEST(clicked.size(), "clicks");
}

void cAnimatedPixmapWidgetTest::pressIsLeftToTheParent()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    QMouseEvent event(
        QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
    QVERIFY(!event.isAccepted());
}

void cAnimatedPixmapWidgetTest::receiverMayDeleteTheWidget()
{
    QPointer<cAnimatedPixmapWidget> widget = new cAnimatedPixmapWidget(filmStrip(), FrameWidth);
    connect(widget, &cAnimatedPixmapWidget::clicked, this, [&widget] { delete widget; });
    QTest::mousePress(widget, Qt::LeftButton);
    QVERIFY(!widget);
}

void cAnimatedPixmapWidgetTest::disabledWidgetDoesNotClick()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    const QSignalSpy clicked(&widget, SIGNAL(clicked()));
    widget.setEnabled(false);
    QMouseEvent event(
        QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
    QCOMPARE(clicked.size(), 0);
}

void cAnimatedPixmapWidgetTest::timerStandsStillUntilStarted()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    QVERIFY(!widget.isRunning());
    QCOMPARE(widget.interval(), 100);
    widget.setInterval(1);
    widget.start();
    QVERIFY(widget.isRunning());
    QTRY_COMPARE(widget.currentFrame(), 2);
    widget.stop();
    QVERIFY(!widget.isRunning());
}

void cAnimatedPixmapWidgetTest::timeoutShowsTheNextFrame()
{
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    widget.setFrame(1);
    widget.timeout();
    QCOMPARE(widget.currentFrame(), 2);
    widget.timeout();
    QCOMPARE(widget.currentFrame(), 0);
}

void cAnimatedPixmapWidgetTest::badStripsAreHarmless_data()
{
    QTest::addColumn<QPixmap>("strip");
    QTest::addColumn<int>("frameWidth");
    QTest::addColumn<QSize>("size");
    QTest::newRow("narrower than a frame") << filmStrip() << 100 << QSize(100, FrameHeight);
    QTest::newRow("null picture") << QPixmap() << FrameWidth << QSize(FrameWidth, 0);
    QTest::newRow("null picture, no strip") << QPixmap() << -1 << QSize(0, 0);
    QTest::newRow("no width") << filmStrip() << 0 << QSize(0, FrameHeight);
    QTest::newRow("negative width") << filmStrip() << -3 << QSize(0, FrameHeight);
}

void cAnimatedPixmapWidgetTest::badStripsAreHarmless()
{
    QFETCH(QPixmap, strip);
    QFETCH(int, frameWidth);
    cAnimatedPixmapWidget widget(strip, frameWidth);
    QTEST(widget.size(), "size");
    widget.start();
    widget.timeout();
    QCOMPARE(widget.currentFrame(), 0);
    QImage target(10, 10, QImage::Format_ARGB32_Premultiplied);
    widget.render(&target);
}

void cAnimatedPixmapWidgetTest::frameOutsideTheStripDrawsNothing_data()
{
    QTest::addColumn<int>("frame");
    QTest::newRow("behind the last") << frameColors().size();
    QTest::newRow("before the first") << -1;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void cAnimatedPixmapWidgetTest::frameOutsideTheStripDrawsNothing()
{
    QFETCH(int, frame);
    cAnimatedPixmapWidget widget(filmStrip(), FrameWidth);
    widget.setFrame(frame);
    const QImage image = shown(widget);
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::black));
    QCOMPARE(image.pixelColor(FrameWidth - 1, 0), QColor(Qt::black));
}

VELTRANO_TEST_MAIN(cAnimatedPixmapWidgetTest)
#include "cAnimatedPixmapWidgetTest.moc"
