#include <cGraphicsMenuButton.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QCursor>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>

using namespace SceneEvents;

/// Stands for an owner that runs a menu when it is asked for one.
class MenuRunner : public QObject
{
    Q_OBJECT

public:
    explicit MenuRunner(cGraphicsMenuButton& button)
        : m_button(&button)
    {
        connect(&button, SIGNAL(menu(const QPoint&)), this, SLOT(onMenu(const QPoint&)));
    }

    void deleteButton() { m_deletes = true; }

    QList<QPoint> points;
    bool wasEnabled = true;

private Q_SLOTS:
    void onMenu(const QPoint& point)
    {
        points.append(point);
        wasEnabled = m_button->isEnabled();
        if (m_deletes)
            delete m_button.data();
    }

private:
    QPointer<cGraphicsMenuButton> m_button;
    bool m_deletes = false;
};

class cGraphicsMenuButtonTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void signalAndSlotsStandInTheirOrder();
    void arrowFillsTheButton();
    void arrowFollowsTheButtonsSize();
    void missingArrowIsAnEmptyOne_data();
    void missingArrowIsAnEmptyOne();
    void pressOfTheArrowAsksForTheMenu();
    void pressBesideTheArrowAsksForNone();
    void buttonIsDisabledWhileTheMenuRuns();
    void stateIsTidiedWhenThePointerHasLeft();
    void stateIsKeptWhileThePointerIsThere();
    void receiverMayDeleteTheButton();
    void toggleTogglesTheArrowAlone();
    void arrowCanBeHidden();
    void arrowGoesWithTheButton();

private:
    cGraphicsMenuButton* addButton();
    static cGraphicsButton* arrowOf(const cGraphicsMenuButton& button);

    QScopedPointer<TestPictures> m_pictures;
    QScopedPointer<QGraphicsScene> m_scene;
};

void cGraphicsMenuButtonTest::init()
{
    m_pictures.reset(new TestPictures);
    m_scene.reset(new QGraphicsScene);
}

void cGraphicsMenuButtonTest::cleanup()
{
    m_scene.reset();
    m_pictures.reset();
}

/// A button of 27 by 10 at (100, 50) with a red arrow of 9 by 5, whose toggled-on look is blue.
cGraphicsMenuButton* cGraphicsMenuButtonTest::addButton()
{
    cJsonValue description;
    description["boundary"]["width"] = 27;
    description["boundary"]["height"] = 10;
    description["pos"]["x"] = 100;
    description["pos"]["y"] = 50;
    description["arrow"]["normal"] = m_pictures->add("up.png", filledPicture(9, 5, Qt::red));
    description["arrow"]["pressed"] = m_pictures->add("down.png", filledPicture(9, 5, Qt::blue));
    auto* button = new cGraphicsMenuButton(description, nullptr);
    m_scene->addItem(button);
    return button;
}

cGraphicsButton* cGraphicsMenuButtonTest::arrowOf(const cGraphicsMenuButton& button)
{
    return button.childItems().isEmpty() ? nullptr
                                         : dynamic_cast<cGraphicsButton*>(button.childItems().first());
}

void cGraphicsMenuButtonTest::signalAndSlotsStandInTheirOrder()
{
    const QMetaObject& type = cGraphicsMenuButton::staticMetaObject;
    QStringList methods;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        methods.append(type.method(i).methodSignature());
    QCOMPARE(methods, QStringList({"menu(QPoint)", "toggle()", "onMenuClicked()"}));
    QCOMPARE(type.method(type.indexOfMethod("onMenuClicked()")).access(), QMetaMethod::Private);
}

void cGraphicsMenuButtonTest::arrowFillsTheButton()
{
    const cGraphicsMenuButton* button = addButton();
    QCOMPARE(button->boundingRect(), QRectF(0, 0, 27, 10));
    cGraphicsButton* arrow = arrowOf(*button);
    QVERIFY(arrow);
    QCOMPARE(arrow->boundingRect(), QRectF(0, 0, 27, 10));
    QVERIFY(isFilled(painted(*arrow, QSize(30, 20)), QRect(9, 2, 9, 5), Qt::red));
}

void cGraphicsMenuButtonTest::arrowFollowsTheButtonsSize()
{
    cGraphicsMenuButton* button = addButton();
    button->setBoundarySize(QSize(40, 12));
    QCOMPARE(button->boundingRect(), QRectF(0, 0, 40, 12));
    QCOMPARE(arrowOf(*button)->boundingRect(), QRectF(0, 0, 40, 12));
    button->setBoundarySize(31, -1);
    QCOMPARE(button->boundingRect(), QRectF(0, 0, 31, 0));
    QCOMPARE(arrowOf(*button)->boundingRect(), QRectF(0, 0, 31, 0));
}

void cGraphicsMenuButtonTest::missingArrowIsAnEmptyOne_data()
{
    QTest::addColumn<cJsonValue>("description");
    cJsonValue withoutArrow;
    withoutArrow["boundary"]["width"] = 27;
    withoutArrow["boundary"]["height"] = 10;
    cJsonValue textArrow = withoutArrow;
    textArrow["arrow"] = "up.png";
    cJsonValue arrayArrow = withoutArrow;
    arrayArrow["arrow"].append(1);
    QTest::newRow("without") << withoutArrow;
    QTest::newRow("text") << textArrow;
    QTest::newRow("array") << arrayArrow;
    QTest::newRow("nothing at all") << cJsonValue();
}

void cGraphicsMenuButtonTest::missingArrowIsAnEmptyOne()
{
    QFETCH(cJsonValue, description);
    auto* button = new cGraphicsMenuButton(description, nullptr);
    m_scene->addItem(button);
    cGraphicsButton* arrow = arrowOf(*button);
    QVERIFY(arrow);
    QCOMPARE(arrow->boundingRect(), button->boundingRect());
    QVERIFY(inkExtent(painted(*arrow, QSize(30, 20))).isNull());
    const QSignalSpy asked(button, SIGNAL(menu(QPoint)));
    press(*arrow);
    QCOMPARE(asked.size(), 1);
}

void cGraphicsMenuButtonTest::pressOfTheArrowAsksForTheMenu()
{
    cGraphicsMenuButton* button = addButton();
    const QSignalSpy clicked(button, SIGNAL(clicked()));
    MenuRunner runner(*button);
    // Wherever the press, the menu belongs to the arrow's corner.
    press(*arrowOf(*button), QPointF(13, 7));
    QCOMPARE(runner.points, QList<QPoint>({QPoint(100, 50)}));
    QVERIFY(clicked.isEmpty());
}

void cGraphicsMenuButtonTest::pressBesideTheArrowAsksForNone()
{
    cGraphicsMenuButton* button = addButton();
    const QSignalSpy clicked(button, SIGNAL(clicked()));
    MenuRunner runner(*button);
    press(*button);
    QVERIFY(runner.points.isEmpty());
    QCOMPARE(clicked.size(), 1);
}

void cGraphicsMenuButtonTest::buttonIsDisabledWhileTheMenuRuns()
{
    cGraphicsMenuButton* button = addButton();
    MenuRunner runner(*button);
    press(*arrowOf(*button));
    QVERIFY(!runner.wasEnabled);
    QVERIFY(button->isEnabled());
    QVERIFY(arrowOf(*button)->isEnabled());
}

void cGraphicsMenuButtonTest::stateIsTidiedWhenThePointerHasLeft()
{
    cGraphicsMenuButton* button = addButton();
    hoverEnter(*button);
    button->cGraphicsButton::toggle();
    QCOMPARE(button->state(), 7);
    press(*arrowOf(*button));
    QCOMPARE(button->state(), 3);
}

void cGraphicsMenuButtonTest::stateIsKeptWhileThePointerIsThere()
{
    cGraphicsMenuButton* button = addButton();
    QGraphicsView view(m_scene.data());
    view.setSceneRect(0, 0, 300, 200);
    view.resize(310, 210);
    view.show();
    QCursor::setPos(view.viewport()->mapToGlobal(view.mapFromScene(105, 55)));
    QVERIFY(button->isUnderMouse());
    button->setState(5);
    press(*arrowOf(*button));
    QCOMPARE(button->state(), 5);
    QCursor::setPos(view.viewport()->mapToGlobal(view.mapFromScene(5, 5)));
    press(*arrowOf(*button));
    QCOMPARE(button->state(), 1);
}

void cGraphicsMenuButtonTest::receiverMayDeleteTheButton()
{
    QPointer<cGraphicsMenuButton> button = addButton();
    MenuRunner runner(*button);
    runner.deleteButton();
    press(*arrowOf(*button));
    QVERIFY(!button);
    QCOMPARE(runner.points.size(), 1);
    QVERIFY(m_scene->items().isEmpty());
}

void cGraphicsMenuButtonTest::toggleTogglesTheArrowAlone()
{
    cGraphicsMenuButton* button = addButton();
    QMetaObject::invokeMethod(button, "toggle");
    QCOMPARE(button->state(), 1);
    QCOMPARE(arrowOf(*button)->state(), 3);
    QVERIFY(isFilled(painted(*arrowOf(*button), QSize(30, 20)), QRect(9, 2, 9, 5), Qt::blue));
    button->toggle();
    QCOMPARE(arrowOf(*button)->state(), 1);
}

void cGraphicsMenuButtonTest::arrowCanBeHidden()
{
    cGraphicsMenuButton* button = addButton();
    button->setArrowVisible(false);
    QVERIFY(!arrowOf(*button)->isVisible());
    QVERIFY(button->isVisible());
    button->setArrowVisible(true);
    QVERIFY(arrowOf(*button)->isVisible());
}

void cGraphicsMenuButtonTest::arrowGoesWithTheButton()
{
    cGraphicsMenuButton* button = addButton();
    const QPointer<cGraphicsButton> arrow = arrowOf(*button);
    delete button;
    QVERIFY(!arrow);
}

VELTRANO_TEST_MAIN(cGraphicsMenuButtonTest)
#include "cGraphicsMenuButtonTest.moc"
