#include <cGraphicsItem.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QCursor>
#include <QGraphicsScene>
#include <QPointer>
#include <QPropertyAnimation>

namespace {

const QColor Normal(Qt::red);
const QColor Hover(Qt::green);
const QColor Selected(Qt::blue);

QString path(const char* name)
{
    return QStringLiteral("TestPictures:Resources/images/%1.png").arg(name);
}

QColor look(cGraphicsItem& item)
{
    return SceneEvents::painted(item, QSize(20, 20)).pixelColor(0, 0);
}

} // namespace

class cGraphicsItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void hasItsMembers();
    void isAsLargeAsTheNormalPicture();
    void looksLikeItsState();
    void selectedLookComesBeforeHover();
    void missingPicturesDrawNothing();
    void pointerSetsTheCursor();
    void pressSelectsAndSaysSo_data();
    void pressSelectsAndSaysSo();
    void isSelectedBeforeItSaysSo();
    void pressOnASelectedItemSaysSoAgain();
    void selectionIsPainted();
    void receiverMayDeleteTheItem();
    void pulseNeedsToBeSwitchedOn();
    void pulseBreathesAboutTheCentre();
    void pulseGoesOnForEver();
    void pulseStopsInItsOwnSize();
    void switchingThePulseOffStopsIt();
    void switchingThePulseOnAgainKeepsTheAnimation();
    void stopWithoutAPulseIsHarmless();
    void scaleIsTheItems();

private:
    QScopedPointer<TestPictures> m_pictures;
    QScopedPointer<QGraphicsScene> m_scene;
    QPointer<cGraphicsItem> m_item;
};

void cGraphicsItemTest::init()
{
    m_pictures.reset(new TestPictures);
    m_pictures->add("normal.png", filledPicture(7, 5, Normal));
    m_pictures->add("hover.png", filledPicture(8, 6, Hover));
    m_pictures->add("selected.png", filledPicture(9, 7, Selected));
    m_scene.reset(new QGraphicsScene);
    m_item = new cGraphicsItem("M1", path("normal"), path("hover"), path("selected"));
    m_scene->addItem(m_item);
}

void cGraphicsItemTest::cleanup()
{
    m_scene.reset();
    m_pictures.reset();
}

void cGraphicsItemTest::hasItsMembers()
{
    const QMetaObject& meta = cGraphicsItem::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta), QStringList({"clicked(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList());
    QCOMPARE(MetaMembers::propertiesOf(meta), QStringList({"double scale"}));
    QCOMPARE(m_item->id(), QString("M1"));
    QVERIFY(m_item->acceptHoverEvents());
}

void cGraphicsItemTest::isAsLargeAsTheNormalPicture()
{
    QCOMPARE(m_item->boundingRect(), QRectF(0, 0, 7, 5));
    m_item->setItemSelected(true);
    QCOMPARE(m_item->boundingRect(), QRectF(0, 0, 7, 5));
}

void cGraphicsItemTest::looksLikeItsState()
{
    QCOMPARE(look(*m_item), Normal);
    QCOMPARE(inkExtent(SceneEvents::painted(*m_item, QSize(20, 20))), QRect(0, 0, 7, 5));
    SceneEvents::hoverEnter(*m_item);
    QCOMPARE(look(*m_item), Hover);
    SceneEvents::hoverLeave(*m_item);
    QCOMPARE(look(*m_item), Normal);
    m_item->setItemSelected(true);
    QCOMPARE(look(*m_item), Selected);
    m_item->setItemSelected(false);
    QCOMPARE(look(*m_item), Normal);
}

void cGraphicsItemTest::selectedLookComesBeforeHover()
{
    SceneEvents::hoverEnter(*m_item);
    m_item->setItemSelected(true);
    QCOMPARE(look(*m_item), Selected);
}

void cGraphicsItemTest::missingPicturesDrawNothing()
{
    cGraphicsItem item("M1", path("normal"), "no/such/picture.png", QString());
    m_scene->addItem(&item);
    QCOMPARE(look(item), Normal);
    // No other picture stands in for one that is missing.
    SceneEvents::hoverEnter(item);
    QCOMPARE(look(item).alpha(), 0);
    item.setItemSelected(true);
    QCOMPARE(look(item).alpha(), 0);
    const cGraphicsItem nothing({}, {}, {}, {});
    QCOMPARE(nothing.boundingRect(), QRectF());
    m_scene->removeItem(&item);
}

void cGraphicsItemTest::pointerSetsTheCursor()
{
    SceneEvents::hoverEnter(*m_item);
    QCOMPARE(m_item->cursor().shape(), Qt::PointingHandCursor);
    SceneEvents::hoverLeave(*m_item);
    QCOMPARE(m_item->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(m_item->hasCursor());
}

void cGraphicsItemTest::pressSelectsAndSaysSo_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void cGraphicsItemTest::pressSelectsAndSaysSo()
{
    QFETCH(int, button);
    const QSignalSpy clicked(m_item, SIGNAL(clicked(QString)));
    SceneEvents::press(*m_item, QPointF(1, 1), Qt::MouseButton(button));
    QVERIFY(m_item->isItemSelected());
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(clicked.first().first().toString(), QString("M1"));
    SceneEvents::release(*m_item, QPointF(1, 1), Qt::MouseButton(button));
    QCOMPARE(clicked.size(), 1);
}

void cGraphicsItemTest::isSelectedBeforeItSaysSo()
{
    bool selected = false;
    connect(m_item, &cGraphicsItem::clicked, this, [&] { selected = m_item->isItemSelected(); });
    SceneEvents::press(*m_item);
    QVERIFY(selected);
}

void cGraphicsItemTest::pressOnASelectedItemSaysSoAgain()
{
    const QSignalSpy clicked(m_item, SIGNAL(clicked(QString)));
    SceneEvents::press(*m_item);
    SceneEvents::press(*m_item);
    QCOMPARE(clicked.size(), 2);
    // Nothing but a group takes the selection away.
    QVERIFY(m_item->isItemSelected());
}

void cGraphicsItemTest::selectionIsPainted()
{
    QSignalSpy changes(m_scene.data(), SIGNAL(changed(QList<QRectF>)));
    QTRY_VERIFY(!changes.isEmpty());
    changes.clear();
    m_item->setItemSelected(true);
    QTRY_VERIFY(!changes.isEmpty());
    m_item->setItemSelected(false);
    QTRY_VERIFY(changes.size() > 1);
    changes.clear();
    SceneEvents::press(*m_item);
    QTRY_VERIFY(!changes.isEmpty());
}

void cGraphicsItemTest::receiverMayDeleteTheItem()
{
    QString heard;
    connect(m_item, &cGraphicsItem::clicked, this, [this] { delete m_item; });
    connect(m_item, &cGraphicsItem::clicked, this, [&](const QString& id) { heard = id; });
    m_item->setPulsate(true);
    m_item->startPulse();
    SceneEvents::press(*m_item);
    QVERIFY(!m_item);
}

void cGraphicsItemTest::pulseNeedsToBeSwitchedOn()
{
    m_item->startPulse();
    QVERIFY(!m_item->pulseAnimation());
    m_item->setPulsate(false);
    m_item->startPulse();
    QCOMPARE(m_item->pulseAnimation()->state(), QAbstractAnimation::Stopped);
    m_item->setPulsate(true);
    QCOMPARE(m_item->pulseAnimation()->state(), QAbstractAnimation::Stopped);
    m_item->startPulse();
    QCOMPARE(m_item->pulseAnimation()->state(), QAbstractAnimation::Running);
}

void cGraphicsItemTest::pulseBreathesAboutTheCentre()
{
    m_item->setPulsate(true);
    QCOMPARE(m_item->transformOriginPoint(), QPointF(3, 2));
    QPropertyAnimation* animation = m_item->pulseAnimation();
    QCOMPARE(animation->targetObject(), m_item.data());
    QVERIFY(!animation->parent());
    QCOMPARE(animation->propertyName(), QByteArray("scale"));
    m_item->startPulse();
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.0);
    animation->setCurrentTime(250);
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.075);
    animation->setCurrentTime(500);
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.15);
    animation->setCurrentTime(750);
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.075);
}

void cGraphicsItemTest::pulseGoesOnForEver()
{
    m_item->setPulsate(true);
    m_item->startPulse();
    QCOMPARE(m_item->pulseAnimation()->duration(), 1000);
    QCOMPARE(m_item->pulseAnimation()->loopCount(), -1);
    m_item->pulseAnimation()->setCurrentTime(1500);
    QCOMPARE(m_item->pulseAnimation()->state(), QAbstractAnimation::Running);
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.15);
}

void cGraphicsItemTest::pulseStopsInItsOwnSize()
{
    m_item->setPulsate(true);
    m_item->startPulse();
    m_item->pulseAnimation()->setCurrentTime(500);
    m_item->stopPulse();
    QCOMPARE(m_item->pulseAnimation()->state(), QAbstractAnimation::Stopped);
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.0);
    m_item->startPulse();
    QCOMPARE(m_item->pulseAnimation()->state(), QAbstractAnimation::Running);
}

void cGraphicsItemTest::switchingThePulseOffStopsIt()
{
    m_item->setPulsate(true);
    m_item->startPulse();
    m_item->pulseAnimation()->setCurrentTime(500);
    m_item->setPulsate(false);
    QCOMPARE(m_item->pulseAnimation()->state(), QAbstractAnimation::Stopped);
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.0);
    m_item->startPulse();
    QCOMPARE(m_item->pulseAnimation()->state(), QAbstractAnimation::Stopped);
}

void cGraphicsItemTest::switchingThePulseOnAgainKeepsTheAnimation()
{
    m_item->setPulsate(true);
    const QPropertyAnimation* animation = m_item->pulseAnimation();
    m_item->startPulse();
    m_item->setPulsate(true);
    QCOMPARE(m_item->pulseAnimation(), animation);
    QCOMPARE(animation->state(), QAbstractAnimation::Running);
}

void cGraphicsItemTest::stopWithoutAPulseIsHarmless()
{
    m_item->setScale(2.0);
    m_item->stopPulse();
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.0);
}

void cGraphicsItemTest::scaleIsTheItems()
{
    QVERIFY(m_item->setProperty("scale", 1.5));
    QCOMPARE(static_cast<QGraphicsItem&>(*m_item).scale(), 1.5);
}

VELTRANO_TEST_MAIN(cGraphicsItemTest)
#include "cGraphicsItemTest.moc"
