#include <cGraphicsItem.h>
#include <cGraphicsItemGroup.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QPointer>
#include <QPropertyAnimation>

class cGraphicsItemGroupTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void hasItsMembers();
    void pressSelectsOneItem();
    void itemIsSelectedBeforeTheGroupSaysSo();
    void pressOnTheSelectedItemSaysSoAgain();
    void selectSaysNothing();
    void selectOfAnUnknownIdClearsTheSelection();
    void selectOfASharedIdSelectsAllThatHaveIt();
    void itemsAreFoundByTheirId();
    void firstSelectedItemIsFound();
    void itemIsAddedOnce();
    void nullItemsAreRefused();
    void removedItemIsDeleted();
    void strangersAreNotRemoved();
    void pulsesAreStopped();
    void boundsIgnoreThePlacesOfTheItems();
    void boundsCountHiddenItems();
    void drawsNothing();
    void deletesItsItemsFromTheLast();
    void outlivesItsItems();
    void receiverMayDeleteTheGroup();
    void unknownIdIsPassedOn();

private:
    cGraphicsItem* add(const QString& id);

    QScopedPointer<TestPictures> m_pictures;
    QScopedPointer<QGraphicsScene> m_scene;
    QGraphicsRectItem* m_root = nullptr;
    QPointer<cGraphicsItemGroup> m_group;
};

void cGraphicsItemGroupTest::init()
{
    m_pictures.reset(new TestPictures);
    m_pictures->add("wide.png", filledPicture(9, 3, Qt::red));
    m_pictures->add("high.png", filledPicture(3, 9, Qt::red));
    m_scene.reset(new QGraphicsScene);
    m_root = new QGraphicsRectItem;
    m_scene->addItem(m_root);
    m_group = new cGraphicsItemGroup(m_root);
}

void cGraphicsItemGroupTest::cleanup()
{
    delete m_group;
    m_scene.reset();
    m_pictures.reset();
}

cGraphicsItem* cGraphicsItemGroupTest::add(const QString& id)
{
    auto* item =
        new cGraphicsItem(id, "TestPictures:Resources/images/wide.png", QString(), QString(), m_root);
    m_group->addItem(item);
    return item;
}

void cGraphicsItemGroupTest::hasItsMembers()
{
    const QMetaObject& meta = cGraphicsItemGroup::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta), QStringList({"itemSelected(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList({"onClicked(QString)"}));
    QCOMPARE(m_group->parentItem(), m_root);
}

void cGraphicsItemGroupTest::pressSelectsOneItem()
{
    cGraphicsItem* first = add("M1");
    cGraphicsItem* second = add("M2");
    const QSignalSpy selected(m_group, SIGNAL(itemSelected(QString)));
    SceneEvents::press(*first);
    SceneEvents::press(*second, QPointF(), Qt::RightButton);
    QVERIFY(!first->isItemSelected());
    QVERIFY(second->isItemSelected());
    QCOMPARE(selected.size(), 2);
    QCOMPARE(selected.at(0).first().toString(), QString("M1"));
    QCOMPARE(selected.at(1).first().toString(), QString("M2"));
}

void cGraphicsItemGroupTest::itemIsSelectedBeforeTheGroupSaysSo()
{
    cGraphicsItem* first = add("M1");
    cGraphicsItem* second = add("M2");
    m_group->select("M1");
    bool switched = false;
    connect(m_group, &cGraphicsItemGroup::itemSelected, this,
        [&] { switched = second->isItemSelected() && !first->isItemSelected(); });
    SceneEvents::press(*second);
    QVERIFY(switched);
}

void cGraphicsItemGroupTest::pressOnTheSelectedItemSaysSoAgain()
{
    cGraphicsItem* item = add("M1");
    m_group->select("M1");
    const QSignalSpy selected(m_group, SIGNAL(itemSelected(QString)));
    SceneEvents::press(*item);
    SceneEvents::press(*item);
    QCOMPARE(selected.size(), 2);
    QVERIFY(item->isItemSelected());
}

void cGraphicsItemGroupTest::selectSaysNothing()
{
    cGraphicsItem* item = add("M1");
    const QSignalSpy selected(m_group, SIGNAL(itemSelected(QString)));
    m_group->select("M1");
    QVERIFY(item->isItemSelected());
    QCOMPARE(selected.size(), 0);
}

void cGraphicsItemGroupTest::selectOfAnUnknownIdClearsTheSelection()
{
    add("M1");
    add("M2");
    m_group->select("M1");
    QVERIFY(m_group->selectedItem());
    m_group->select("M3");
    QVERIFY(!m_group->selectedItem());
}

void cGraphicsItemGroupTest::selectOfASharedIdSelectsAllThatHaveIt()
{
    const cGraphicsItem* first = add("M1");
    const cGraphicsItem* other = add("M2");
    const cGraphicsItem* twin = add("M1");
    m_group->select("M1");
    QVERIFY(first->isItemSelected());
    QVERIFY(twin->isItemSelected());
    QVERIFY(!other->isItemSelected());
}

void cGraphicsItemGroupTest::itemsAreFoundByTheirId()
{
    QVERIFY(!m_group->itemByID("M1"));
    const cGraphicsItem* first = add("M1");
    const cGraphicsItem* second = add("M2");
    add("M1");
    QCOMPARE(m_group->itemByID("M1"), first);
    QCOMPARE(m_group->itemByID("M2"), second);
    QVERIFY(!m_group->itemByID("m2"));
    QVERIFY(!m_group->itemByID(QString()));
}

void cGraphicsItemGroupTest::firstSelectedItemIsFound()
{
    QVERIFY(!m_group->selectedItem());
    add("M1");
    cGraphicsItem* second = add("M2");
    cGraphicsItem* third = add("M3");
    QVERIFY(!m_group->selectedItem());
    third->setItemSelected(true);
    QCOMPARE(m_group->selectedItem(), third);
    second->setItemSelected(true);
    QCOMPARE(m_group->selectedItem(), second);
}

void cGraphicsItemGroupTest::itemIsAddedOnce()
{
    cGraphicsItem* item = add("M1");
    m_group->addItem(item);
    const QSignalSpy selected(m_group, SIGNAL(itemSelected(QString)));
    SceneEvents::press(*item);
    QCOMPARE(selected.size(), 1);
    m_group->removeItem(item);
    QVERIFY(!m_group->itemByID("M1"));
}

void cGraphicsItemGroupTest::nullItemsAreRefused()
{
    m_group->addItem(nullptr);
    m_group->removeItem(nullptr);
    QCOMPARE(m_group->boundingRect(), QRectF());
    m_group->select("M1");
    QVERIFY(!m_group->selectedItem());
}

void cGraphicsItemGroupTest::removedItemIsDeleted()
{
    const QPointer<cGraphicsItem> first = add("M1");
    cGraphicsItem* second = add("M2");
    m_group->removeItem(first);
    QVERIFY(!first);
    QVERIFY(!m_group->itemByID("M1"));
    QCOMPARE(m_group->itemByID("M2"), second);
}

void cGraphicsItemGroupTest::strangersAreNotRemoved()
{
    add("M1");
    const QPointer<cGraphicsItem> stranger = new cGraphicsItem("M2", {}, {}, {}, m_root);
    m_group->removeItem(stranger);
    QVERIFY(stranger);
    QVERIFY(m_group->itemByID("M1"));
}

void cGraphicsItemGroupTest::pulsesAreStopped()
{
    QList<cGraphicsItem*> items {add("M1"), add("M2"), add("M3")};
    for (cGraphicsItem* item : {items[0], items[1]}) {
        item->setPulsate(true);
        item->startPulse();
        item->pulseAnimation()->setCurrentTime(500);
    }
    m_group->stopPulses();
    for (cGraphicsItem* item : {items[0], items[1]}) {
        QCOMPARE(item->pulseAnimation()->state(), QAbstractAnimation::Stopped);
        QCOMPARE(static_cast<QGraphicsItem*>(item)->scale(), 1.0);
    }
}

void cGraphicsItemGroupTest::boundsIgnoreThePlacesOfTheItems()
{
    QCOMPARE(m_group->boundingRect(), QRectF());
    add("M1")->setPos(100, 100);
    QCOMPARE(m_group->boundingRect(), QRectF(0, 0, 9, 3));
    auto* high = new cGraphicsItem("M2", "TestPictures:Resources/images/high.png", {}, {}, m_root);
    high->setPos(50, 50);
    m_group->addItem(high);
    QCOMPARE(m_group->boundingRect(), QRectF(0, 0, 9, 9));
    m_group->removeItem(high);
    QCOMPARE(m_group->boundingRect(), QRectF(0, 0, 9, 3));
}

void cGraphicsItemGroupTest::boundsCountHiddenItems()
{
    add("M1")->hide();
    QCOMPARE(m_group->boundingRect(), QRectF(0, 0, 9, 3));
}

void cGraphicsItemGroupTest::drawsNothing()
{
    add("M1");
    QVERIFY(inkExtent(SceneEvents::painted(*m_group, QSize(20, 20))).isNull());
}

void cGraphicsItemGroupTest::deletesItsItemsFromTheLast()
{
    QStringList deleted;
    for (const char* id : {"M1", "M2", "M3"}) {
        const cGraphicsItem* item = add(id);
        connect(item, &QObject::destroyed, this, [&deleted, id] { deleted.append(id); });
    }
    delete m_group;
    QCOMPARE(deleted, QStringList({"M3", "M2", "M1"}));
}

void cGraphicsItemGroupTest::outlivesItsItems()
{
    const cGraphicsItem* deleted = add("M1");
    cGraphicsItem* second = add("M2");
    delete deleted;
    m_group->select("M2");
    m_group->stopPulses();
    QCOMPARE(m_group->selectedItem(), second);
    QVERIFY(!m_group->itemByID("M1"));
    QCOMPARE(m_group->boundingRect(), QRectF(0, 0, 9, 3));
    // The item's parent goes with the scene, and the group after it.
    m_group->setParentItem(nullptr);
    m_scene->removeItem(m_group);
    m_scene.reset();
    QVERIFY(!m_group->selectedItem());
}

void cGraphicsItemGroupTest::receiverMayDeleteTheGroup()
{
    cGraphicsItem* item = add("M1");
    const QPointer<cGraphicsItem> watched = item;
    connect(m_group, &cGraphicsItemGroup::itemSelected, this, [this] { delete m_group; });
    SceneEvents::press(*item);
    QVERIFY(!m_group);
    QVERIFY(!watched);
}

void cGraphicsItemGroupTest::unknownIdIsPassedOn()
{
    cGraphicsItem* item = add("M1");
    m_group->select("M1");
    const QSignalSpy selected(m_group, SIGNAL(itemSelected(QString)));
    m_group->onClicked(QString());
    QVERIFY(!item->isItemSelected());
    QCOMPARE(selected.size(), 1);
}

VELTRANO_TEST_MAIN(cGraphicsItemGroupTest)
#include "cGraphicsItemGroupTest.moc"
