#include <cGraphicsButton.h>
#include <cGraphicsButtonList.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QGraphicsScene>
#include <QPointer>
#include <QPropertyAnimation>

#include <limits>

namespace {

const QColor Face(Qt::red);
const QColor Edge(Qt::green);

/// A list that counts its layouts.
class CountingList : public cGraphicsButtonList
{
public:
    using cGraphicsButtonList::cGraphicsButtonList;

    void updateLayout() override
    {
        ++layouts;
        cGraphicsButtonList::updateLayout();
    }

    int layouts = 0;
};

cGraphicsButton* newButton(int width = 10, int height = 6)
{
    return new cGraphicsButton(filledPicture(width, height, Face));
}

QList<QPointF> places(const cGraphicsButtonList& list)
{
    QList<QPointF> found;
    for (int i = 0; list.itemAt(i); ++i)
        found.append(list.itemAt(i)->pos());
    return found;
}

} // namespace

class cGraphicsButtonListTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void hasItsMembers();
    void startsEmpty();
    void buttonIsTakenOver();
    void nullButtonIsRefused();
    void layoutRunsBeforeAndAfterAButtonJoins();
    void columnIsLaidOut();
    void rowIsLaidOut_data();
    void rowIsLaidOut();
    void spacingTrailsBehindEachButtonButTheFirst();
    void hiddenButtonsTakeNoRoom();
    void hiddenFirstButtonGivesItsPlaceToTheNext();
    void noVisibleButtonMakesEmptyBounds();
    void layoutFollowsTheSizesOfTheButtons();
    void clickIsPassedOnWithItsIndex();
    void buttonAddedTwiceIsReportedAtBothPlaces();
    void clickOfAStrangerIsNotPassedOn();
    void removedButtonIsDeletedAndTheRestMovesUp();
    void indexOutOfRangeRemovesNothing_data();
    void indexOutOfRangeRemovesNothing();
    void buttonIsRemovedByItsText();
    void firstButtonWithATextIsFound();
    void dataIsACopy();
    void clearDeletesAllButtons();
    void showingTheListHidesTheOther();
    void backgroundFillsTheBounds();
    void backgroundIsBlackUnlessSet();
    void edgesStandAtBothSides();
    void edgesBeginAtTheFirstButton();
    void edgesNeedAButton();
    void edgesAreNotDrawnWhenSwitchedOff();
    void missingEdgePictureDrawsNothing();
    void listDeletesItsButtons();
    void outlivesItsButtons();
    void receiverMayRemoveTheClickedButton();
    void receiverMayDeleteTheList();
    void posCanBeAnimated();

private:
    CountingList* makeList(int orientation);

    QScopedPointer<QGraphicsScene> m_scene;
    QPointer<CountingList> m_list;
};

void cGraphicsButtonListTest::init()
{
    // For the spies.
    qRegisterMetaType<cGraphicsButton*>();
    m_scene.reset(new QGraphicsScene);
    m_list = makeList(Qt::Vertical);
}

void cGraphicsButtonListTest::cleanup()
{
    m_scene.reset();
}

CountingList* cGraphicsButtonListTest::makeList(int orientation)
{
    auto* list = new CountingList(orientation);
    m_scene->addItem(list);
    return list;
}

void cGraphicsButtonListTest::hasItsMembers()
{
    const QMetaObject& meta = cGraphicsButtonList::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta), QStringList({"itemClicked(int,cGraphicsButton*)"}));
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList({"onClicked(cGraphicsButton*)"}));
    QCOMPARE(MetaMembers::propertiesOf(meta), QStringList({"QPointF pos"}));
}

void cGraphicsButtonListTest::startsEmpty()
{
    QCOMPARE(m_list->boundingRect(), QRectF());
    QVERIFY(!m_list->itemAt(0));
    QVERIFY(!m_list->findItem(QString()));
    QVERIFY(inkExtent(SceneEvents::painted(*m_list, QSize(20, 20))).isNull());
}

void cGraphicsButtonListTest::buttonIsTakenOver()
{
    cGraphicsButton* button = newButton();
    cJsonValue data;
    data["device"] = "K13";
    QVERIFY(m_list->addItem(button, "first", data));
    QCOMPARE(button->parentItem(), m_list.data());
    QCOMPARE(button->userText(), QString("first"));
    QCOMPARE(button->userData(), data);
    QCOMPARE(m_list->itemAt(0), button);
}

void cGraphicsButtonListTest::nullButtonIsRefused()
{
    const ExpectedMessage message(QtCriticalMsg, "cGraphicsButtonList::addItem() Invalid parameter");
    QVERIFY(!m_list->addItem(nullptr, "text", cJsonValue()));
    QVERIFY(!m_list->itemAt(0));
    QCOMPARE(m_list->layouts, 0);
}

void cGraphicsButtonListTest::layoutRunsBeforeAndAfterAButtonJoins()
{
    m_list->addItem(newButton(), "a", cJsonValue());
    QCOMPARE(m_list->layouts, 2);
}

void cGraphicsButtonListTest::columnIsLaidOut()
{
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->addItem(newButton(14, 8), "b", cJsonValue());
    m_list->addItem(newButton(4, 2), "c", cJsonValue());
    QCOMPARE(places(*m_list), QList<QPointF>({{0, 0}, {0, 6}, {0, 14}}));
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 14, 16));
}

void cGraphicsButtonListTest::rowIsLaidOut_data()
{
    QTest::addColumn<int>("orientation");
    QTest::newRow("Qt::Horizontal") << int(Qt::Horizontal);
    QTest::newRow("0") << 0;
    QTest::newRow("3") << 3;
    QTest::newRow("negative") << -2;
}

void cGraphicsButtonListTest::rowIsLaidOut()
{
    QFETCH(int, orientation);
    CountingList* row = makeList(orientation);
    row->addItem(newButton(10, 6), "a", cJsonValue());
    row->addItem(newButton(14, 8), "b", cJsonValue());
    row->addItem(newButton(4, 2), "c", cJsonValue());
    QCOMPARE(places(*row), QList<QPointF>({{0, 0}, {10, 0}, {24, 0}}));
    QCOMPARE(row->boundingRect(), QRectF(0, 0, 28, 8));
}

void cGraphicsButtonListTest::spacingTrailsBehindEachButtonButTheFirst()
{
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->setSpacing(5);
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 6));
    m_list->addItem(newButton(10, 6), "b", cJsonValue());
    QCOMPARE(places(*m_list), QList<QPointF>({{0, 0}, {0, 11}}));
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 22));
    CountingList* row = makeList(Qt::Horizontal);
    row->setSpacing(5);
    for (int i = 0; i < 3; ++i)
        row->addItem(newButton(10, 6), "a", cJsonValue());
    QCOMPARE(places(*row), QList<QPointF>({{0, 0}, {15, 0}, {30, 0}}));
    QCOMPARE(row->boundingRect(), QRectF(0, 0, 45, 6));
}

void cGraphicsButtonListTest::hiddenButtonsTakeNoRoom()
{
    for (const char* text : {"a", "b", "c"})
        m_list->addItem(newButton(10, 6), text, cJsonValue());
    m_list->setSpacing(2);
    m_list->itemAt(1)->hide();
    m_list->updateLayout();
    QCOMPARE(m_list->itemAt(2)->pos(), QPointF(0, 8));
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 16));
    m_list->itemAt(2)->hide();
    m_list->updateLayout();
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 6));
}

void cGraphicsButtonListTest::hiddenFirstButtonGivesItsPlaceToTheNext()
{
    for (const char* text : {"a", "b", "c"})
        m_list->addItem(newButton(10, 6), text, cJsonValue());
    m_list->setSpacing(2);
    m_list->itemAt(0)->hide();
    m_list->updateLayout();
    QCOMPARE(m_list->itemAt(1)->pos(), QPointF(0, 0));
    QCOMPARE(m_list->itemAt(2)->pos(), QPointF(0, 8));
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 16));
}

void cGraphicsButtonListTest::noVisibleButtonMakesEmptyBounds()
{
    m_list->addItem(newButton(), "a", cJsonValue());
    m_list->itemAt(0)->hide();
    m_list->updateLayout();
    QCOMPARE(m_list->boundingRect(), QRectF());
}

void cGraphicsButtonListTest::layoutFollowsTheSizesOfTheButtons()
{
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->addItem(newButton(10, 6), "b", cJsonValue());
    m_list->itemAt(0)->setBoundarySize(30, 20);
    m_list->updateLayout();
    QCOMPARE(m_list->itemAt(1)->pos(), QPointF(0, 20));
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 30, 26));
}

void cGraphicsButtonListTest::clickIsPassedOnWithItsIndex()
{
    m_list->addItem(newButton(), "a", cJsonValue());
    m_list->addItem(newButton(), "b", cJsonValue());
    const QSignalSpy clicked(m_list, SIGNAL(itemClicked(int, cGraphicsButton*)));
    SceneEvents::press(*m_list->itemAt(1));
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(clicked.first().at(0).toInt(), 1);
    QCOMPARE(clicked.first().at(1).value<cGraphicsButton*>(), m_list->itemAt(1));
    SceneEvents::press(*m_list->itemAt(0), QPointF(), Qt::RightButton);
    QCOMPARE(clicked.size(), 1);
}

void cGraphicsButtonListTest::buttonAddedTwiceIsReportedAtBothPlaces()
{
    cGraphicsButton* button = newButton();
    m_list->addItem(button, "a", cJsonValue());
    m_list->addItem(button, "a", cJsonValue());
    const QSignalSpy clicked(m_list, SIGNAL(itemClicked(int, cGraphicsButton*)));
    m_list->onClicked(button);
    QCOMPARE(clicked.size(), 2);
    QCOMPARE(clicked.at(0).first().toInt(), 0);
    QCOMPARE(clicked.at(1).first().toInt(), 1);
    QVERIFY(m_list->removeAt(0));
    QVERIFY(!m_list->itemAt(0));
    m_list->clear();
}

void cGraphicsButtonListTest::clickOfAStrangerIsNotPassedOn()
{
    m_list->addItem(newButton(), "a", cJsonValue());
    const QSignalSpy clicked(m_list, SIGNAL(itemClicked(int, cGraphicsButton*)));
    cGraphicsButton stranger;
    m_list->onClicked(&stranger);
    m_list->onClicked(nullptr);
    delete m_list->itemAt(0);
    m_list->onClicked(nullptr);
    QCOMPARE(clicked.size(), 0);
}

void cGraphicsButtonListTest::removedButtonIsDeletedAndTheRestMovesUp()
{
    for (const char* text : {"a", "b", "c"})
        m_list->addItem(newButton(10, 6), text, cJsonValue());
    const QPointer<cGraphicsButton> removed = m_list->itemAt(1);
    QVERIFY(m_list->removeAt(1));
    QVERIFY(!removed);
    QCOMPARE(m_list->itemAt(1)->userText(), QString("c"));
    QCOMPARE(places(*m_list), QList<QPointF>({{0, 0}, {0, 6}}));
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 12));
}

void cGraphicsButtonListTest::indexOutOfRangeRemovesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("behind the last") << 1;
    QTest::newRow("negative") << -1;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void cGraphicsButtonListTest::indexOutOfRangeRemovesNothing()
{
    QFETCH(int, index);
    m_list->addItem(newButton(), "a", cJsonValue());
    const int layouts = m_list->layouts;
    QVERIFY(!m_list->removeAt(index));
    QVERIFY(m_list->itemAt(0));
    QCOMPARE(m_list->layouts, layouts);
    QVERIFY(!m_list->itemAt(index));
    QVERIFY(m_list->dataAt(index).isNull());
}

void cGraphicsButtonListTest::buttonIsRemovedByItsText()
{
    for (const char* text : {"a", "b", "b"})
        m_list->addItem(newButton(), text, cJsonValue());
    const QPointer<cGraphicsButton> first = m_list->itemAt(1);
    const QPointer<cGraphicsButton> second = m_list->itemAt(2);
    QVERIFY(m_list->removeItem("b"));
    QVERIFY(!first);
    QVERIFY(second);
    QVERIFY(m_list->removeItem("b"));
    QVERIFY(!m_list->removeItem("b"));
    QVERIFY(!m_list->removeItem("A"));
    QVERIFY(m_list->itemAt(0));
}

void cGraphicsButtonListTest::firstButtonWithATextIsFound()
{
    for (const char* text : {"a", "b", "b"})
        m_list->addItem(newButton(), text, cJsonValue());
    int index = -5;
    QCOMPARE(m_list->findItem("b", &index), m_list->itemAt(1));
    QCOMPARE(index, 1);
    QCOMPARE(m_list->findItem("a"), m_list->itemAt(0));
    index = -5;
    QVERIFY(!m_list->findItem("c", &index));
    QCOMPARE(index, -5);
}

void cGraphicsButtonListTest::dataIsACopy()
{
    cJsonValue data;
    data["device"] = "K13";
    m_list->addItem(newButton(), "a", data);
    cJsonValue byText = m_list->dataOf("a");
    QCOMPARE(byText, data);
    byText["device"] = "other";
    QCOMPARE(m_list->dataAt(0), data);
    QVERIFY(m_list->dataOf("b").isNull());
}

void cGraphicsButtonListTest::clearDeletesAllButtons()
{
    m_list->addItem(newButton(), "a", cJsonValue());
    m_list->addItem(newButton(), "b", cJsonValue());
    const QPointer<cGraphicsButton> first = m_list->itemAt(0);
    const QPointer<cGraphicsButton> second = m_list->itemAt(1);
    m_list->clear();
    QVERIFY(!first);
    QVERIFY(!second);
    QVERIFY(!m_list->itemAt(0));
    QCOMPARE(m_list->boundingRect(), QRectF());
    m_list->clear();
    m_list->addItem(newButton(10, 6), "c", cJsonValue());
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 6));
}

void cGraphicsButtonListTest::showingTheListHidesTheOther()
{
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->addItem(newButton(10, 6), "b", cJsonValue());
    cGraphicsButton* other = newButton();
    m_scene->addItem(other);
    m_list->setItemsVisible(false, other);
    QVERIFY(!m_list->itemAt(0)->isVisible());
    QVERIFY(!m_list->itemAt(1)->isVisible());
    QVERIFY(other->isVisible());
    QCOMPARE(m_list->boundingRect(), QRectF());
    m_list->setItemsVisible(true, other);
    QVERIFY(m_list->itemAt(1)->isVisible());
    QVERIFY(!other->isVisible());
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 12));
    m_list->setItemsVisible(false, nullptr);
    QVERIFY(!m_list->itemAt(0)->isVisible());
}

void cGraphicsButtonListTest::backgroundFillsTheBounds()
{
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->setBackground(Qt::blue);
    const QImage image = SceneEvents::painted(*m_list, QSize(30, 30), QPoint(-5, -5));
    QVERIFY(isFilled(image, QRect(5, 5, 10, 6), Qt::blue));
    QCOMPARE(inkExtent(image), QRect(5, 5, 10, 6));
    m_list->setEdge(false, false);
    QVERIFY(inkExtent(SceneEvents::painted(*m_list, QSize(30, 30))).isNull());
}

void cGraphicsButtonListTest::backgroundIsBlackUnlessSet()
{
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    QVERIFY(inkExtent(SceneEvents::painted(*m_list, QSize(30, 30))).isNull());
    m_list->setEdge(false, true);
    QVERIFY(isFilled(SceneEvents::painted(*m_list, QSize(30, 30)), QRect(0, 0, 10, 6), Qt::black));
}

void cGraphicsButtonListTest::edgesStandAtBothSides()
{
    TestPictures pictures;
    pictures.add("edge_devicepanel.png", filledPicture(1, 16, Edge));
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->addItem(newButton(8, 6), "b", cJsonValue());
    m_list->setEdge(true, false);
    const QImage image = SceneEvents::painted(*m_list, QSize(30, 30), QPoint(-5, -5));
    for (int y = 5; y < 17; ++y) {
        QCOMPARE(image.pixelColor(4, y), Edge);
        QCOMPARE(image.pixelColor(15, y), Edge);
    }
    QCOMPARE(colorExtent(image, Edge), QRect(4, 5, 12, 12));
    QCOMPARE(image.pixelColor(5, 8).alpha(), 0);
    QCOMPARE(image.pixelColor(14, 8).alpha(), 0);
}

void cGraphicsButtonListTest::edgesBeginAtTheFirstButton()
{
    TestPictures pictures;
    pictures.add("edge_devicepanel.png", filledPicture(1, 16, Edge));
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->setEdge(true, false);
    m_list->itemAt(0)->setPos(0, 3);
    const QImage image = SceneEvents::painted(*m_list, QSize(30, 30), QPoint(-5, -5));
    QCOMPARE(colorExtent(image, Edge), QRect(4, 8, 12, 6));
}

void cGraphicsButtonListTest::edgesNeedAButton()
{
    TestPictures pictures;
    pictures.add("edge_devicepanel.png", filledPicture(1, 16, Edge));
    m_list->setEdge(true, true);
    QVERIFY(inkExtent(SceneEvents::painted(*m_list, QSize(30, 30), QPoint(-5, -5))).isNull());
}

void cGraphicsButtonListTest::edgesAreNotDrawnWhenSwitchedOff()
{
    TestPictures pictures;
    pictures.add("edge_devicepanel.png", filledPicture(1, 16, Edge));
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->setEdge(true, false);
    m_list->setEdge(false, false);
    QVERIFY(inkExtent(SceneEvents::painted(*m_list, QSize(30, 30), QPoint(-5, -5))).isNull());
}

void cGraphicsButtonListTest::missingEdgePictureDrawsNothing()
{
    const TestPictures pictures;
    m_list->addItem(newButton(10, 6), "a", cJsonValue());
    m_list->setEdge(true, false);
    QVERIFY(inkExtent(SceneEvents::painted(*m_list, QSize(30, 30), QPoint(-5, -5))).isNull());
}

void cGraphicsButtonListTest::listDeletesItsButtons()
{
    const QPointer<cGraphicsButton> kept = newButton();
    const QPointer<cGraphicsButton> moved = newButton();
    m_list->addItem(kept, "a", cJsonValue());
    m_list->addItem(moved, "b", cJsonValue());
    moved->setParentItem(nullptr);
    delete m_list;
    QVERIFY(!kept);
    QVERIFY(!moved);
}

void cGraphicsButtonListTest::outlivesItsButtons()
{
    for (const char* text : {"a", "b", "c"})
        m_list->addItem(newButton(10, 6), text, cJsonValue());
    delete m_list->itemAt(0);
    m_list->updateLayout();
    QVERIFY(!m_list->itemAt(0));
    QCOMPARE(m_list->itemAt(1)->pos(), QPointF(0, 0));
    QCOMPARE(m_list->boundingRect(), QRectF(0, 0, 10, 12));
    QVERIFY(!m_list->findItem("a"));
    QVERIFY(!m_list->findItem(QString()));
    m_list->setItemsVisible(true, nullptr);
    SceneEvents::painted(*m_list, QSize(30, 30));
    QVERIFY(m_list->removeAt(0));
    QCOMPARE(m_list->itemAt(0)->userText(), QString("b"));
}

void cGraphicsButtonListTest::receiverMayRemoveTheClickedButton()
{
    m_list->addItem(newButton(), "a", cJsonValue());
    m_list->addItem(newButton(), "b", cJsonValue());
    connect(m_list, &cGraphicsButtonList::itemClicked, this, [this](int index) { m_list->removeAt(index); });
    SceneEvents::press(*m_list->itemAt(0));
    QCOMPARE(m_list->itemAt(0)->userText(), QString("b"));
    QVERIFY(!m_list->itemAt(1));
}

void cGraphicsButtonListTest::receiverMayDeleteTheList()
{
    cGraphicsButton* button = newButton();
    m_list->addItem(button, "a", cJsonValue());
    m_list->addItem(button, "a", cJsonValue());
    connect(m_list, &cGraphicsButtonList::itemClicked, this, [this] { delete m_list; });
    SceneEvents::press(*button);
    QVERIFY(!m_list);
}

void cGraphicsButtonListTest::posCanBeAnimated()
{
    QPropertyAnimation animation(m_list, "pos");
    animation.setStartValue(QPointF(0, 0));
    animation.setEndValue(QPointF(40, 20));
    animation.setDuration(100);
    animation.start();
    animation.setCurrentTime(50);
    QCOMPARE(static_cast<QGraphicsItem*>(m_list)->pos(), QPointF(20, 10));
}

VELTRANO_TEST_MAIN(cGraphicsButtonListTest)
#include "cGraphicsButtonListTest.moc"
