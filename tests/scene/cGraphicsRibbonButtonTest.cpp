#include <cGraphicsMenuButton.h>
#include <cGraphicsRibbonButton.h>
#include <cGraphicsTextButton.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QCursor>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLinearGradient>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>

using namespace SceneEvents;

namespace {

cJsonValue extent(int width, int height)
{
    cJsonValue record;
    record["width"] = width;
    record["height"] = height;
    return record;
}

cJsonValue point(int x, int y)
{
    cJsonValue record;
    record["x"] = x;
    record["y"] = y;
    return record;
}

template<typename Child>
Child* childOf(const QGraphicsItem& item)
{
    for (QGraphicsItem* child : item.childItems()) {
        if (auto* found = dynamic_cast<Child*>(child))
            return found;
    }
    return nullptr;
}

cGraphicsMenuButton* menuOf(const cGraphicsRibbonButton& ribbon)
{
    return childOf<cGraphicsMenuButton>(ribbon);
}

cGraphicsButton* mainOf(const cGraphicsRibbonButton& ribbon)
{
    for (QGraphicsItem* child : ribbon.childItems()) {
        if (!dynamic_cast<cGraphicsMenuButton*>(child))
            return dynamic_cast<cGraphicsButton*>(child);
    }
    return nullptr;
}

cGraphicsButton* arrowOf(const cGraphicsRibbonButton& ribbon)
{
    return childOf<cGraphicsButton>(*menuOf(ribbon));
}

} // namespace

class cGraphicsRibbonButtonTest : public TestCase
{
    Q_OBJECT

public Q_SLOTS:
    void deleteRibbon() { delete m_doomed.data(); }

private Q_SLOTS:
    void init();
    void cleanup();

    void signalsAndSlotsStandInTheirOrder();
    void stripStandsAboveTheMainButton();
    void stripStandsUnderTheMainButtonIfDescribed();
    void otherMenuDirectionsMeanAbove_data();
    void otherMenuDirectionsMeanAbove();
    void extentIsTheUnionWithoutABoundary();
    void stripIsAsWideAsTheControl();
    void mainButtonOfZeroHeightIfTheStripTakesAll();
    void captionMakesATextButton();
    void placesAreRead();
    void emptyDescriptionGivesAnEmptyControl_data();
    void emptyDescriptionGivesAnEmptyControl();
    void valuesOfAnotherTypeAreHarmless_data();
    void valuesOfAnotherTypeAreHarmless();
    void controlItselfPaintsNothing();
    void stripShowsUnderThePointerOnly();
    void stripStaysWhileThePointerIsOnIt();
    void showMenuShowsTheStrip();
    void toggleTogglesTheArrow();
    void pressOfTheMainButtonIsTold();
    void menuOpensAtTheStrip();
    void menuOpensUnderAStripThatIsBelow();
    void receiverMayDeleteTheControl_data();
    void receiverMayDeleteTheControl();
    void gradientsGoToTheirButtons();
    void arrowCanBeHidden();
    void ownersTextIsThatOfTheMainButton();
    void childrenGoWithTheControl();

private:
    cJsonValue description(const char* direction);
    cGraphicsRibbonButton* add(const cJsonValue& description);

    QScopedPointer<TestPictures> m_pictures;
    QScopedPointer<QGraphicsScene> m_scene;
    QPointer<cGraphicsRibbonButton> m_doomed;
};

void cGraphicsRibbonButtonTest::init()
{
    m_pictures.reset(new TestPictures);
    m_scene.reset(new QGraphicsScene);
}

void cGraphicsRibbonButtonTest::cleanup()
{
    m_scene.reset();
    m_pictures.reset();
}

/// 27 by 41 at (-6, 54), with a strip that is 10 high.
cJsonValue cGraphicsRibbonButtonTest::description(const char* direction)
{
    cJsonValue record;
    record["normal"] = m_pictures->add("new.png", filledPicture(22, 22, Qt::red));
    record["boundary"] = extent(27, 41);
    record["pos"] = point(-6, 54);
    record["tooltip"] = "Create new profile";
    record["menubutton"]["boundary"] = extent(20, 10);
    record["menubutton"]["arrow"]["normal"] = m_pictures->add("arrow.png", filledPicture(9, 5, Qt::green));
    if (direction)
        record["menudir"] = direction;
    return record;
}

cGraphicsRibbonButton* cGraphicsRibbonButtonTest::add(const cJsonValue& description)
{
    auto* ribbon = new cGraphicsRibbonButton(description, nullptr);
    m_scene->addItem(ribbon);
    return ribbon;
}

void cGraphicsRibbonButtonTest::signalsAndSlotsStandInTheirOrder()
{
    const QMetaObject& type = cGraphicsRibbonButton::staticMetaObject;
    QStringList methods;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        methods.append(type.method(i).methodSignature());
    QCOMPARE(methods,
        QStringList({"menu(QPoint)", "clicked()", "toggle()", "showMenu(bool)", "onMenuClicked(QPoint)",
            "onMainButtonClicked()"}));
}

void cGraphicsRibbonButtonTest::stripStandsAboveTheMainButton()
{
    const cGraphicsRibbonButton* ribbon = add(description(nullptr));
    QCOMPARE(ribbon->boundingRect(), QRectF(0, 0, 27, 41));
    QCOMPARE(ribbon->pos(), QPointF(-6, 54));
    QCOMPARE(menuOf(*ribbon)->pos(), QPointF(0, 0));
    QCOMPARE(menuOf(*ribbon)->zValue(), 1.0);
    QCOMPARE(mainOf(*ribbon)->pos(), QPointF(0, 10));
    QCOMPARE(mainOf(*ribbon)->boundingRect(), QRectF(0, 0, 27, 31));
    QCOMPARE(mainOf(*ribbon)->toolTip(), QString("Create new profile"));
    QVERIFY(ribbon->acceptHoverEvents());
    QVERIFY(!menuOf(*ribbon)->isVisible());
    QVERIFY(mainOf(*ribbon)->isVisible());
}

void cGraphicsRibbonButtonTest::stripStandsUnderTheMainButtonIfDescribed()
{
    const cGraphicsRibbonButton* ribbon = add(description("bottom"));
    QCOMPARE(menuOf(*ribbon)->pos(), QPointF(0, 31));
    QCOMPARE(mainOf(*ribbon)->pos(), QPointF(0, 0));
    QCOMPARE(mainOf(*ribbon)->boundingRect(), QRectF(0, 0, 27, 31));
    QVERIFY(isFilled(painted(*mainOf(*ribbon), QSize(40, 50)), QRect(2, 4, 22, 22), Qt::red));
}

void cGraphicsRibbonButtonTest::otherMenuDirectionsMeanAbove_data()
{
    QTest::addColumn<cJsonValue>("direction");
    QTest::newRow("top") << cJsonValue("top");
    QTest::newRow("capitals") << cJsonValue("BOTTOM");
    QTest::newRow("number") << cJsonValue(0x40);
    QTest::newRow("null") << cJsonValue();
    cJsonValue array;
    array.append("bottom");
    QTest::newRow("array") << array;
}

void cGraphicsRibbonButtonTest::otherMenuDirectionsMeanAbove()
{
    QFETCH(cJsonValue, direction);
    cJsonValue record = description(nullptr);
    record["menudir"] = direction;
    QCOMPARE(menuOf(*add(record))->pos(), QPointF(0, 0));
}

void cGraphicsRibbonButtonTest::extentIsTheUnionWithoutABoundary()
{
    cJsonValue record = description(nullptr);
    record.deleteKey("boundary");
    record["menu"]["boundary"] = extent(30, 10);
    record["button"]["boundary"] = extent(25, 44);
    const cGraphicsRibbonButton* both = add(record);
    QCOMPARE(both->boundingRect(), QRectF(0, 0, 30, 44));
    QCOMPARE(mainOf(*both)->boundingRect(), QRectF(0, 0, 30, 34));

    record.deleteKey("menu");
    QCOMPARE(add(record)->boundingRect(), QRectF(0, 0, 25, 44));
    record.deleteKey("button");
    QCOMPARE(add(record)->boundingRect(), QRectF(0, 0, 0, 0));
}

void cGraphicsRibbonButtonTest::stripIsAsWideAsTheControl()
{
    const cGraphicsRibbonButton* ribbon = add(description(nullptr));
    QCOMPARE(menuOf(*ribbon)->boundingRect(), QRectF(0, 0, 27, 10));
    QCOMPARE(arrowOf(*ribbon)->boundingRect(), QRectF(0, 0, 27, 10));
    QVERIFY(isFilled(painted(*arrowOf(*ribbon), QSize(40, 20)), QRect(9, 2, 9, 5), Qt::green));
}

void cGraphicsRibbonButtonTest::mainButtonOfZeroHeightIfTheStripTakesAll()
{
    cJsonValue record = description("bottom");
    record["boundary"] = extent(27, 4);
    const cGraphicsRibbonButton* ribbon = add(record);
    QCOMPARE(mainOf(*ribbon)->boundingRect(), QRectF(0, 0, 27, 0));
    QCOMPARE(menuOf(*ribbon)->pos(), QPointF(0, -6));
}

void cGraphicsRibbonButtonTest::captionMakesATextButton()
{
    QVERIFY(!dynamic_cast<cGraphicsTextButton*>(mainOf(*add(description(nullptr)))));
    cJsonValue record = description(nullptr);
    record["text"] = "New";
    const auto* main = dynamic_cast<cGraphicsTextButton*>(mainOf(*add(record)));
    QVERIFY(main);
    QCOMPARE(main->text(), QString("New"));
    record["text"] = cJsonValue();
    QVERIFY(dynamic_cast<cGraphicsTextButton*>(mainOf(*add(record))));
}

void cGraphicsRibbonButtonTest::placesAreRead()
{
    cJsonValue record = description(nullptr);
    record["buttonpos"] = point(3, 4);
    const cGraphicsRibbonButton* ribbon = add(record);
    QCOMPARE(mainOf(*ribbon)->pos(), QPointF(3, 4));
    QCOMPARE(ribbon->pos(), QPointF(-6, 54));
    record.deleteKey("pos");
    record.deleteKey("buttonpos");
    ribbon = add(record);
    QCOMPARE(ribbon->pos(), QPointF(0, 0));
    // The main button reads `pos` as well and is then laid out.
    QCOMPARE(mainOf(*add(description(nullptr)))->pos(), QPointF(0, 10));
}

void cGraphicsRibbonButtonTest::emptyDescriptionGivesAnEmptyControl_data()
{
    QTest::addColumn<cJsonValue>("description");
    QTest::newRow("null") << cJsonValue();
    QTest::newRow("object") << cJsonValue(cJsonValue::objectValue);
    QTest::newRow("array") << cJsonValue(cJsonValue::arrayValue);
    QTest::newRow("text") << cJsonValue("text");
}

void cGraphicsRibbonButtonTest::emptyDescriptionGivesAnEmptyControl()
{
    QFETCH(cJsonValue, description);
    cGraphicsRibbonButton* ribbon = add(description);
    QCOMPARE(ribbon->boundingRect(), QRectF(0, 0, 0, 0));
    QVERIFY(menuOf(*ribbon));
    QVERIFY(mainOf(*ribbon));
    const QSignalSpy clicked(ribbon, SIGNAL(clicked()));
    press(*mainOf(*ribbon));
    QCOMPARE(clicked.size(), 1);
    hoverEnter(*ribbon);
    hoverLeave(*ribbon);
}

void cGraphicsRibbonButtonTest::valuesOfAnotherTypeAreHarmless_data()
{
    QTest::addColumn<QString>("key");
    for (const char* key : {"boundary", "menu", "button", "menubutton", "pos", "buttonpos"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void cGraphicsRibbonButtonTest::valuesOfAnotherTypeAreHarmless()
{
    QFETCH(QString, key);
    cJsonValue array;
    array.append(1);
    for (const cJsonValue& value : {cJsonValue(), cJsonValue("x"), cJsonValue(5), cJsonValue(true), array}) {
        cJsonValue record = description("bottom");
        record[key] = value;
        const cGraphicsRibbonButton* ribbon = add(record);
        const int menuHeight = key == "menubutton" ? 0 : 10;
        const int height = key == "boundary" ? 0 : 41;
        QCOMPARE(ribbon->boundingRect(), QRectF(0, 0, height ? 27 : 0, height));
        QCOMPARE(ribbon->pos(), key == "pos" ? QPointF(0, 0) : QPointF(-6, 54));
        QCOMPARE(menuOf(*ribbon)->pos(), QPointF(0, height - menuHeight));
        QCOMPARE(mainOf(*ribbon)->pos(), QPointF(0, 0));
    }
}

void cGraphicsRibbonButtonTest::controlItselfPaintsNothing()
{
    QVERIFY(inkExtent(painted(*add(description(nullptr)), QSize(40, 60))).isNull());
}

void cGraphicsRibbonButtonTest::stripShowsUnderThePointerOnly()
{
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    hoverEnter(*ribbon);
    QVERIFY(menuOf(*ribbon)->isVisible());
    QCOMPARE(mainOf(*ribbon)->cursor().shape(), Qt::PointingHandCursor);
    hoverLeave(*ribbon);
    QVERIFY(!menuOf(*ribbon)->isVisible());
    QCOMPARE(mainOf(*ribbon)->cursor().shape(), Qt::ArrowCursor);
}

void cGraphicsRibbonButtonTest::stripStaysWhileThePointerIsOnIt()
{
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    QGraphicsView view(m_scene.data());
    view.setSceneRect(-50, 0, 200, 200);
    view.resize(210, 210);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const auto pointTo = [&](const QPointF& place) {
        QTest::mouseMove(view.viewport(), view.mapFromScene(ribbon->mapToScene(place)));
    };
    pointTo(QPointF(100, 5));
    QVERIFY(!menuOf(*ribbon)->isVisible());
    pointTo(QPointF(10, 10));
    QTRY_VERIFY(menuOf(*ribbon)->isVisible());
    pointTo(QPointF(10, 35));
    QVERIFY(menuOf(*ribbon)->isVisible());

    const QSignalSpy menu(ribbon, SIGNAL(menu(QPoint)));
    const QSignalSpy clicked(ribbon, SIGNAL(clicked()));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
        view.mapFromScene(ribbon->mapToScene(QPointF(10, 35))));
    QCOMPARE(menu.size(), 1);
    QCOMPARE(clicked.size(), 0);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
        view.mapFromScene(ribbon->mapToScene(QPointF(10, 10))));
    QCOMPARE(menu.size(), 1);
    QCOMPARE(clicked.size(), 1);

    pointTo(QPointF(100, 5));
    QTRY_VERIFY(!menuOf(*ribbon)->isVisible());
}

void cGraphicsRibbonButtonTest::showMenuShowsTheStrip()
{
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    QMetaObject::invokeMethod(ribbon, "showMenu", Q_ARG(bool, true));
    QVERIFY(menuOf(*ribbon)->isVisible());
    ribbon->showMenu(false);
    QVERIFY(!menuOf(*ribbon)->isVisible());
}

void cGraphicsRibbonButtonTest::toggleTogglesTheArrow()
{
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    QMetaObject::invokeMethod(ribbon, "toggle");
    QCOMPARE(arrowOf(*ribbon)->state(), 3);
    QCOMPARE(menuOf(*ribbon)->state(), 1);
    QCOMPARE(mainOf(*ribbon)->state(), 1);
    ribbon->toggle();
    QCOMPARE(arrowOf(*ribbon)->state(), 1);
}

void cGraphicsRibbonButtonTest::pressOfTheMainButtonIsTold()
{
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    const QSignalSpy clicked(ribbon, SIGNAL(clicked()));
    const QSignalSpy menu(ribbon, SIGNAL(menu(QPoint)));
    press(*mainOf(*ribbon));
    press(*mainOf(*ribbon), QPointF(), Qt::RightButton);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(menu.isEmpty());
}

void cGraphicsRibbonButtonTest::menuOpensAtTheStrip()
{
    cGraphicsRibbonButton* ribbon = add(description(nullptr));
    ribbon->showMenu(true);
    QSignalSpy menu(ribbon, SIGNAL(menu(QPoint)));
    const QSignalSpy clicked(ribbon, SIGNAL(clicked()));
    press(*arrowOf(*ribbon));
    QCOMPARE(menu.size(), 1);
    QCOMPARE(menu.first().first().toPoint(), QPoint(-6, 54));
    QVERIFY(clicked.isEmpty());
}

void cGraphicsRibbonButtonTest::menuOpensUnderAStripThatIsBelow()
{
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    ribbon->showMenu(true);
    QSignalSpy menu(ribbon, SIGNAL(menu(QPoint)));
    press(*arrowOf(*ribbon));
    QCOMPARE(menu.size(), 1);
    // The arrow's top is at 54 + 31, its strip is 10 high.
    QCOMPARE(menu.first().first().toPoint(), QPoint(-6, 95));
}

void cGraphicsRibbonButtonTest::receiverMayDeleteTheControl_data()
{
    QTest::addColumn<bool>("byMenu");
    QTest::newRow("menu") << true;
    QTest::newRow("click") << false;
}

void cGraphicsRibbonButtonTest::receiverMayDeleteTheControl()
{
    QFETCH(bool, byMenu);
    m_doomed = add(description("bottom"));
    m_doomed->showMenu(true);
    connect(m_doomed, SIGNAL(menu(const QPoint&)), this, SLOT(deleteRibbon()));
    connect(m_doomed, SIGNAL(clicked()), this, SLOT(deleteRibbon()));
    press(byMenu ? *arrowOf(*m_doomed) : *mainOf(*m_doomed));
    QVERIFY(!m_doomed);
    QVERIFY(m_scene->items().isEmpty());
}

void cGraphicsRibbonButtonTest::gradientsGoToTheirButtons()
{
    // A button that has a gradient takes notice of the pointer.
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    QVERIFY(!mainOf(*ribbon)->acceptHoverEvents());
    QVERIFY(!menuOf(*ribbon)->acceptHoverEvents());
    ribbon->setMainGradients(QLinearGradient(), QLinearGradient());
    QVERIFY(mainOf(*ribbon)->acceptHoverEvents());
    QVERIFY(!menuOf(*ribbon)->acceptHoverEvents());
    ribbon->setMenuGradients(QLinearGradient(), QLinearGradient());
    QVERIFY(menuOf(*ribbon)->acceptHoverEvents());
}

void cGraphicsRibbonButtonTest::arrowCanBeHidden()
{
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    ribbon->showMenu(true);
    ribbon->setMenuArrowVisible(false);
    QVERIFY(!arrowOf(*ribbon)->isVisible());
    QVERIFY(menuOf(*ribbon)->isVisible());
    ribbon->setMenuArrowVisible(true);
    QVERIFY(arrowOf(*ribbon)->isVisible());
}

void cGraphicsRibbonButtonTest::ownersTextIsThatOfTheMainButton()
{
    cGraphicsRibbonButton* ribbon = add(description("bottom"));
    QVERIFY(ribbon->userText().isEmpty());
    ribbon->setUserText("new");
    QCOMPARE(ribbon->userText(), QString("new"));
    QCOMPARE(mainOf(*ribbon)->userText(), QString("new"));
    QVERIFY(menuOf(*ribbon)->userText().isEmpty());
}

void cGraphicsRibbonButtonTest::childrenGoWithTheControl()
{
    QGraphicsItem* parent = m_scene->addRect(QRectF());
    auto* ribbon = new cGraphicsRibbonButton(description("bottom"), parent);
    QCOMPARE(ribbon->parentItem(), parent);
    const QPointer<cGraphicsButton> main = mainOf(*ribbon);
    const QPointer<cGraphicsMenuButton> menu = menuOf(*ribbon);
    delete parent;
    QVERIFY(!main);
    QVERIFY(!menu);
}

VELTRANO_TEST_MAIN(cGraphicsRibbonButtonTest)
#include "cGraphicsRibbonButtonTest.moc"
