#include <cScrollBarItem.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QCursor>
#include <QGraphicsScene>
#include <QPointer>
#include <QPropertyAnimation>

#include <limits>

namespace {

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();

const QColor Line(62, 62, 62);

/// A vertical bar of 20 x 200 for a content of 300: its handle is 100 long, of which the ends take 10 and 8,
/// and 16 wide. It can move by 100, over which the content scrolls by 100.
void arrange(cScrollBarItem& bar)
{
    bar.setPixmaps(
        filledPicture(16, 10, Qt::red), filledPicture(16, 1, Qt::green), filledPicture(16, 8, Qt::blue));
    bar.setContentLength(300);
    bar.setSize(20, 200);
}

/// The same, lying.
void arrangeLying(cScrollBarItem& bar)
{
    bar.setPixmaps(
        filledPicture(10, 16, Qt::red), filledPicture(1, 16, Qt::green), filledPicture(8, 16, Qt::blue));
    bar.setOrientation(Qt::Horizontal);
    bar.setContentLength(300);
    bar.setSize(200, 20);
}

QList<int> values(const QSignalSpy& moved)
{
    QList<int> found;
    for (const QVariantList& arguments : moved)
        found.append(arguments.first().toInt());
    return found;
}

} // namespace

class cScrollBarItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void hasItsMembersInOrder();
    void startsAsAVerticalBarWithoutExtent();
    void fadesBetweenFaintAndBright();
    void handleLengthFollowsTheContent_data();
    void handleLengthFollowsTheContent();
    void handleIsNotShorterThanItsMinimum();
    void handleIsNotLongerThanTheBar();
    void rangeLaysTheHandleOutAnew();
    void rangeOfABarWithoutExtentChangesNothing();
    void handlePiecesStandInARow();
    void handlePiecesOfALyingBarStandInARow();
    void endsLongerThanTheHandleAreDrawnAlone();
    void lineRunsAlongTheMiddle();
    void barWithoutPicturesDrawsItsLine();
    void dragMovesTheHandle();
    void dragMovesALyingHandle();
    void dragIsTruncatedToWholePixels();
    void dragPastAnEndIsRefused_data();
    void dragPastAnEndIsRefused();
    void valueStartsAtTheMinimum();
    void valueIsTruncated();
    void handleThatFillsTheBarStaysAtTheMinimum();
    void pressOnTheHandleHoldsIt();
    void otherButtonsAreIgnored();
    void pressBesideTheHandlePages();
    void pressBesideALyingHandlePages();
    void pressAtTheLevelOfTheHandleDoesNothing();
    void releaseOpensTheHand();
    void wheelMovesByItsStep();
    void wheelStopsAtTheEnds();
    void wheelCountsWholeNotches();
    void wheelLeavesALyingHandleWhereItIs();
    void pointerIsReported();
    void movedHandleIsPaintedAnew();
    void extremeNumbersAreHarmless_data();
    void extremeNumbersAreHarmless();
    void receiverMayDeleteTheBar();

private:
    QScopedPointer<QGraphicsScene> m_scene;
    QPointer<cScrollBarItem> m_bar;
};

void cScrollBarItemTest::init()
{
    m_scene.reset(new QGraphicsScene);
    m_bar = new cScrollBarItem;
    m_scene->addItem(m_bar);
}

void cScrollBarItemTest::cleanup()
{
    m_scene.reset();
    QVERIFY(!m_bar);
}

void cScrollBarItemTest::hasItsMembersInOrder()
{
    const QMetaObject& meta = cScrollBarItem::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta), QStringList({"sliderMoved(int)", "enters()", "leaves()"}));
    QCOMPARE(MetaMembers::propertiesOf(meta), QStringList({"double opacity"}));
}

void cScrollBarItemTest::startsAsAVerticalBarWithoutExtent()
{
    QCOMPARE(m_bar->boundingRect(), QRectF());
    QVERIFY(m_bar->handleRect().isNull());
    QCOMPARE(m_bar->minimum(), 0);
    QCOMPARE(m_bar->maximum(), 100);
    QVERIFY(m_bar->acceptHoverEvents());
    m_bar->setPixmaps(QPixmap(), filledPicture(4, 1, Qt::red), QPixmap());
    m_bar->setSize(QSize(4, 50));
    QCOMPARE(m_bar->boundingRect(), QRectF(0, 0, 4, 50));
    // The content of 100 exceeds the bar by its whole length.
    QCOMPARE(m_bar->handleRect().height(), 0);
}

void cScrollBarItemTest::fadesBetweenFaintAndBright()
{
    QPropertyAnimation* fade = m_bar->fadeAnimation();
    QCOMPARE(fade->duration(), 500);
    QCOMPARE(fade->easingCurve(), QEasingCurve(QEasingCurve::InOutQuad));
    QCOMPARE(fade->state(), QAbstractAnimation::Stopped);
    fade->start();
    QCOMPARE(static_cast<QGraphicsItem&>(*m_bar).opacity(), 0.1);
    fade->setCurrentTime(500);
    QCOMPARE(static_cast<QGraphicsItem&>(*m_bar).opacity(), 1.0);
}

void cScrollBarItemTest::handleLengthFollowsTheContent_data()
{
    QTest::addColumn<int>("content");
    QTest::addColumn<int>("length");
    QTest::newRow("nothing") << 0 << 200;
    QTest::newRow("shorter than the bar") << 150 << 200;
    QTest::newRow("as long as the bar") << 200 << 200;
    QTest::newRow("one more") << 201 << 199;
    QTest::newRow("half as much again") << 300 << 100;
    QTest::newRow("twice") << 400 << 0;
}

void cScrollBarItemTest::handleLengthFollowsTheContent()
{
    QFETCH(int, content);
    m_bar->setPixmaps(QPixmap(), filledPicture(16, 1, Qt::green), QPixmap());
    m_bar->setSize(20, 200);
    m_bar->setContentLength(content);
    QTEST(m_bar->handleRect().height(), "length");
    QCOMPARE(m_bar->handleRect().top(), 0);
}

void cScrollBarItemTest::handleIsNotShorterThanItsMinimum()
{
    arrange(*m_bar);
    m_bar->setMinimumHandle(120);
    QCOMPARE(m_bar->handleRect(), QRect(2, 0, 16, 120));
    m_bar->setMinimumHandle(99);
    QCOMPARE(m_bar->handleRect(), QRect(2, 0, 16, 100));
}

void cScrollBarItemTest::handleIsNotLongerThanTheBar()
{
    arrange(*m_bar);
    m_bar->setMinimumHandle(1000);
    QCOMPARE(m_bar->handleRect(), QRect(2, 0, 16, 200));
}

void cScrollBarItemTest::rangeLaysTheHandleOutAnew()
{
    arrange(*m_bar);
    SceneEvents::move(*m_bar, QPointF(10, 10), QPointF(10, 50));
    QCOMPARE(m_bar->handleRect().top(), 40);
    m_bar->setRange(5, 50);
    QCOMPARE(m_bar->handleRect(), QRect(2, 0, 16, 100));
    QCOMPARE(m_bar->minimum(), 5);
    QCOMPARE(m_bar->maximum(), 50);
}

void cScrollBarItemTest::rangeOfABarWithoutExtentChangesNothing()
{
    m_bar->setRange(5, 50);
    QVERIFY(m_bar->handleRect().isNull());
    QCOMPARE(m_bar->minimum(), 5);
}

void cScrollBarItemTest::handlePiecesStandInARow()
{
    arrange(*m_bar);
    SceneEvents::move(*m_bar, QPointF(10, 10), QPointF(10, 30));
    QCOMPARE(m_bar->handleRect(), QRect(2, 20, 16, 100));
    const QImage image = SceneEvents::painted(*m_bar, QSize(20, 201));
    QCOMPARE(image.pixelColor(2, 20), QColor(Qt::red));
    QCOMPARE(image.pixelColor(17, 29), QColor(Qt::red));
    QCOMPARE(image.pixelColor(2, 30), QColor(Qt::green));
    QCOMPARE(image.pixelColor(17, 111), QColor(Qt::green));
    QCOMPARE(image.pixelColor(2, 112), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(17, 119), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(2, 19).alpha(), 0);
    QCOMPARE(image.pixelColor(2, 120).alpha(), 0);
    QCOMPARE(image.pixelColor(1, 60).alpha(), 0);
    QCOMPARE(image.pixelColor(18, 60).alpha(), 0);
}

void cScrollBarItemTest::handlePiecesOfALyingBarStandInARow()
{
    arrangeLying(*m_bar);
    SceneEvents::move(*m_bar, QPointF(10, 10), QPointF(30, 10));
    QCOMPARE(m_bar->handleRect(), QRect(20, 2, 100, 16));
    const QImage image = SceneEvents::painted(*m_bar, QSize(201, 20));
    QCOMPARE(image.pixelColor(20, 2), QColor(Qt::red));
    QCOMPARE(image.pixelColor(29, 17), QColor(Qt::red));
    QCOMPARE(image.pixelColor(30, 2), QColor(Qt::green));
    QCOMPARE(image.pixelColor(111, 17), QColor(Qt::green));
    QCOMPARE(image.pixelColor(112, 2), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(119, 17), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(19, 2).alpha(), 0);
    QCOMPARE(image.pixelColor(120, 2).alpha(), 0);
}

void cScrollBarItemTest::endsLongerThanTheHandleAreDrawnAlone()
{
    arrange(*m_bar);
    m_bar->setContentLength(390);
    const QImage image = SceneEvents::painted(*m_bar, QSize(20, 201));
    for (int y = 0; y < 200; ++y)
        QVERIFY(image.pixelColor(2, y) != QColor(Qt::green));
}

void cScrollBarItemTest::lineRunsAlongTheMiddle()
{
    m_bar->setSize(20, 200);
    QCOMPARE(inkExtent(SceneEvents::painted(*m_bar, QSize(300, 300))), QRect(10, 0, 1, 201));
    QCOMPARE(SceneEvents::painted(*m_bar, QSize(20, 201)).pixelColor(10, 100), Line);
    m_bar->setOrientation(Qt::Horizontal);
    QCOMPARE(inkExtent(SceneEvents::painted(*m_bar, QSize(300, 300))), QRect(0, 100, 21, 1));
}

void cScrollBarItemTest::barWithoutPicturesDrawsItsLine()
{
    m_bar->setSize(9, 40);
    QCOMPARE(inkExtent(SceneEvents::painted(*m_bar, QSize(100, 100))), QRect(4, 0, 1, 41));
}

void cScrollBarItemTest::dragMovesTheHandle()
{
    arrange(*m_bar);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    SceneEvents::press(*m_bar, QPointF(10, 10));
    SceneEvents::move(*m_bar, QPointF(10, 10), QPointF(40, 40));
    SceneEvents::move(*m_bar, QPointF(40, 40), QPointF(10, 35));
    QCOMPARE(m_bar->handleRect(), QRect(2, 25, 16, 100));
    QCOMPARE(values(moved), QList<int>({30, 25}));
}

void cScrollBarItemTest::dragMovesALyingHandle()
{
    arrangeLying(*m_bar);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    SceneEvents::move(*m_bar, QPointF(10, 10), QPointF(40, 90));
    QCOMPARE(m_bar->handleRect(), QRect(30, 2, 100, 16));
    QCOMPARE(values(moved), QList<int>({30}));
}

void cScrollBarItemTest::dragIsTruncatedToWholePixels()
{
    arrange(*m_bar);
    SceneEvents::move(*m_bar, QPointF(0, 10), QPointF(0, 15.9));
    QCOMPARE(m_bar->handleRect().top(), 5);
    SceneEvents::move(*m_bar, QPointF(0, 10), QPointF(0, 9.1));
    QCOMPARE(m_bar->handleRect().top(), 5);
}

void cScrollBarItemTest::dragPastAnEndIsRefused_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("signalsSent");
    QTest::newRow("up from the start") << -1 << 0 << 0;
    QTest::newRow("to the end") << 100 << 100 << 1;
    QTest::newRow("past the end") << 101 << 0 << 0;
    QTest::newRow("far past the end") << Largest << 0 << 0;
    QTest::newRow("far past the start") << Smallest << 0 << 0;
}

void cScrollBarItemTest::dragPastAnEndIsRefused()
{
    QFETCH(int, distance);
    arrange(*m_bar);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    SceneEvents::move(*m_bar, QPointF(0, 0), QPointF(0, distance));
    QTEST(m_bar->handleRect().top(), "top");
    QTEST(moved.size(), "signalsSent");
}

void cScrollBarItemTest::valueStartsAtTheMinimum()
{
    arrange(*m_bar);
    m_bar->setRange(1000, 2000);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    SceneEvents::move(*m_bar, QPointF(0, 0), QPointF(0, 100));
    SceneEvents::move(*m_bar, QPointF(0, 100), QPointF(0, 0));
    QCOMPARE(values(moved), QList<int>({1100, 1000}));
}

void cScrollBarItemTest::valueIsTruncated()
{
    arrange(*m_bar);
    // 150 of the bar's 200 are left, over which the content scrolls by 190.
    m_bar->setMinimumHandle(50);
    m_bar->setContentLength(390);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    SceneEvents::move(*m_bar, QPointF(0, 0), QPointF(0, 7));
    QCOMPARE(values(moved), QList<int>({8})); // 8.87
}

void cScrollBarItemTest::handleThatFillsTheBarStaysAtTheMinimum()
{
    arrange(*m_bar);
    m_bar->setContentLength(50);
    m_bar->setRange(7, 9);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    SceneEvents::move(*m_bar, QPointF(0, 10), QPointF(0, 10.5));
    SceneEvents::move(*m_bar, QPointF(0, 10), QPointF(0, 11));
    QCOMPARE(values(moved), QList<int>({7}));
}

void cScrollBarItemTest::pressOnTheHandleHoldsIt()
{
    arrange(*m_bar);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    QVERIFY(SceneEvents::press(*m_bar, QPointF(10, 99)));
    QCOMPARE(m_bar->cursor().shape(), Qt::ClosedHandCursor);
    QCOMPARE(moved.size(), 0);
}

void cScrollBarItemTest::otherButtonsAreIgnored()
{
    arrange(*m_bar);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    QVERIFY(!SceneEvents::press(*m_bar, QPointF(10, 50), Qt::RightButton));
    QVERIFY(!SceneEvents::press(*m_bar, QPointF(10, 150), Qt::MiddleButton));
    QCOMPARE(m_bar->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(moved.size(), 0);
}

void cScrollBarItemTest::pressBesideTheHandlePages()
{
    m_bar->setPixmaps(QPixmap(), filledPicture(16, 1, Qt::green), QPixmap());
    m_bar->setMinimumHandle(60);
    m_bar->setContentLength(400);
    m_bar->setSize(20, 200);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    QVERIFY(!SceneEvents::press(*m_bar, QPointF(10, 190)));
    // A page ends at the handle's last pixel, so it is one less than the handle is long.
    QCOMPARE(m_bar->handleRect().top(), 59);
    SceneEvents::press(*m_bar, QPointF(10, 190));
    QCOMPARE(m_bar->handleRect().top(), 118);
    SceneEvents::press(*m_bar, QPointF(10, 190));
    QCOMPARE(m_bar->handleRect().top(), 140);
    QVERIFY(!SceneEvents::press(*m_bar, QPointF(10, 3)));
    QCOMPARE(m_bar->handleRect().top(), 81);
    SceneEvents::press(*m_bar, QPointF(10, 3));
    SceneEvents::press(*m_bar, QPointF(10, 3));
    QCOMPARE(m_bar->handleRect().top(), 0);
    QCOMPARE(moved.size(), 6);
    QCOMPARE(m_bar->cursor().shape(), Qt::ArrowCursor);
}

void cScrollBarItemTest::pressBesideALyingHandlePages()
{
    arrangeLying(*m_bar);
    QVERIFY(!SceneEvents::press(*m_bar, QPointF(150, 10)));
    QCOMPARE(m_bar->handleRect().left(), 99);
    SceneEvents::press(*m_bar, QPointF(3, 10));
    QCOMPARE(m_bar->handleRect().left(), 0);
}

void cScrollBarItemTest::pressAtTheLevelOfTheHandleDoesNothing()
{
    arrange(*m_bar);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    QVERIFY(!SceneEvents::press(*m_bar, QPointF(0, 50)));
    QCOMPARE(moved.size(), 0);
}

void cScrollBarItemTest::releaseOpensTheHand()
{
    arrange(*m_bar);
    SceneEvents::press(*m_bar, QPointF(10, 10));
    SceneEvents::release(*m_bar, QPointF(10, 10));
    QCOMPARE(m_bar->cursor().shape(), Qt::OpenHandCursor);
}

void cScrollBarItemTest::wheelMovesByItsStep()
{
    arrange(*m_bar);
    m_bar->setWheelStep(30);
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    SceneEvents::wheel(*m_bar, -240); // 2 x 30 x 100 / 300
    QCOMPARE(m_bar->handleRect().top(), 20);
    SceneEvents::wheel(*m_bar, 120);
    QCOMPARE(m_bar->handleRect().top(), 10);
    QCOMPARE(values(moved), QList<int>({20, 10}));
}

void cScrollBarItemTest::wheelStopsAtTheEnds()
{
    arrange(*m_bar);
    m_bar->setWheelStep(200);
    SceneEvents::wheel(*m_bar, -240);
    QCOMPARE(m_bar->handleRect().bottom(), 199);
    SceneEvents::wheel(*m_bar, 120);
    SceneEvents::wheel(*m_bar, 120);
    QCOMPARE(m_bar->handleRect().top(), 0);
}

void cScrollBarItemTest::wheelCountsWholeNotches()
{
    arrange(*m_bar);
    m_bar->setWheelStep(30);
    SceneEvents::wheel(*m_bar, -119);
    QCOMPARE(m_bar->handleRect().top(), 0);
    SceneEvents::wheel(*m_bar, -239);
    QCOMPARE(m_bar->handleRect().top(), 10);
}

void cScrollBarItemTest::wheelLeavesALyingHandleWhereItIs()
{
    arrangeLying(*m_bar);
    m_bar->setWheelStep(300);
    SceneEvents::move(*m_bar, QPointF(0, 0), QPointF(30, 0));
    const QSignalSpy moved(m_bar, SIGNAL(sliderMoved(int)));
    SceneEvents::wheel(*m_bar, -240);
    SceneEvents::wheel(*m_bar, 240);
    QCOMPARE(m_bar->handleRect().left(), 30);
    QCOMPARE(values(moved), QList<int>({30, 30}));
}

void cScrollBarItemTest::pointerIsReported()
{
    const QSignalSpy entered(m_bar, SIGNAL(enters()));
    const QSignalSpy left(m_bar, SIGNAL(leaves()));
    SceneEvents::hoverEnter(*m_bar);
    QCOMPARE(entered.size(), 1);
    QCOMPARE(left.size(), 0);
    SceneEvents::hoverLeave(*m_bar);
    QCOMPARE(entered.size(), 1);
    QCOMPARE(left.size(), 1);
    QCOMPARE(m_bar->fadeAnimation()->state(), QAbstractAnimation::Stopped);
}

void cScrollBarItemTest::movedHandleIsPaintedAnew()
{
    arrange(*m_bar);
    m_bar->setContentLength(380); // a handle of 20
    QSignalSpy changes(m_scene.data(), SIGNAL(changed(QList<QRectF>)));
    // An update of an item becomes one of the scene in one round of events, which tells of it in the next.
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
    changes.clear();
    SceneEvents::move(*m_bar, QPointF(0, 0), QPointF(0, 30));
    QTRY_VERIFY(!changes.isEmpty());
    QRectF changed;
    for (const QRectF& rect : changes.first().first().value<QList<QRectF>>())
        changed |= rect;
    QVERIFY(changed.contains(QRectF(2, 0, 16, 50)));
}

void cScrollBarItemTest::extremeNumbersAreHarmless_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("content");
    QTest::addColumn<int>("minimumHandle");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("wheelStep");
    QTest::newRow("no content") << QSize(20, 200) << 0 << 0 << 0 << 30;
    QTest::newRow("negative content") << QSize(20, 200) << -50 << 0 << 0 << 30;
    QTest::newRow("largest content") << QSize(20, 200) << Largest << 0 << Largest << Largest;
    QTest::newRow("smallest content") << QSize(20, 200) << Smallest << 0 << Smallest << Smallest;
    QTest::newRow("no size") << QSize(0, 0) << 300 << 0 << 0 << 30;
    QTest::newRow("negative size") << QSize(-20, -200) << 300 << 0 << 0 << 30;
    QTest::newRow("negative handle") << QSize(20, 200) << 1000 << -50 << 0 << 30;
    QTest::newRow("largest handle") << QSize(20, 200) << 1000 << Largest << 0 << Largest;
    QTest::newRow("largest size") << QSize(Largest, Largest) << Largest << 10 << 0 << 30;
}

void cScrollBarItemTest::extremeNumbersAreHarmless()
{
    QFETCH(QSize, size);
    QFETCH(int, content);
    QFETCH(int, minimumHandle);
    QFETCH(int, minimum);
    QFETCH(int, wheelStep);
    arrange(*m_bar);
    m_bar->setContentLength(content);
    m_bar->setMinimumHandle(minimumHandle);
    m_bar->setWheelStep(wheelStep);
    m_bar->setSize(size);
    m_bar->setRange(minimum, minimum);
    for (const int orientation : {1, 2, -7}) {
        m_bar->setOrientation(orientation);
        for (const int delta : {-120, 120, 0, Largest, Smallest})
            SceneEvents::wheel(*m_bar, delta);
        for (const QPointF& point :
            {QPointF(0, 0), QPointF(1, 150), QPointF(1e300, 1e300), QPointF(-5, -5)}) {
            SceneEvents::press(*m_bar, point);
            SceneEvents::move(*m_bar, QPointF(0, 0), point);
            SceneEvents::release(*m_bar, point);
        }
        SceneEvents::painted(*m_bar, QSize(20, 20));
    }
    QCOMPARE(m_bar->boundingRect().size(), QSizeF(size.expandedTo(QSize(0, 0))));
}

void cScrollBarItemTest::receiverMayDeleteTheBar()
{
    arrange(*m_bar);
    connect(m_bar, &cScrollBarItem::sliderMoved, this, [this] { delete m_bar; });
    SceneEvents::press(*m_bar, QPointF(10, 150));
    QVERIFY(!m_bar);
}

VELTRANO_TEST_MAIN(cScrollBarItemTest)
#include "cScrollBarItemTest.moc"
