#include <cGraphicsButton.h>
#include <PluginContext.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPropertyAnimation>

#include <limits>

using namespace SceneEvents;

namespace {

const QSize Small(10, 8);

/// A button whose dormant gradient is awake.
class AwakeButton : public cGraphicsButton
{
public:
    using cGraphicsButton::cGraphicsButton;
    void showGradient() { m_gradientShown = true; }
};

QPixmap filled(const QSize& size, const QColor& color)
{
    return filledPicture(size.width(), size.height(), color);
}

cJsonValue record(const char* key1, int value1, const char* key2, int value2)
{
    cJsonValue pair;
    pair[key1] = value1;
    pair[key2] = value2;
    return pair;
}

QLinearGradient plainGradient(const QColor& color)
{
    // Its own ends are somewhere else, to be set anew at each painting.
    QLinearGradient gradient(500, 500, 600, 700);
    gradient.setColorAt(0, color);
    gradient.setColorAt(1, color);
    return gradient;
}

} // namespace

class cGraphicsButtonTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void signalsSlotAndPropertyStandInTheirOrder();
    void pictureConstructorsGiveTheSameStart();
    void buttonWithoutPicturesIsEmpty();
    void emptyDescriptionGivesAnEmptyButton();
    void descriptionIsRead();
    void descriptionWithoutHoverShowsNoHandCursor();
    void boundaryOfADescription_data();
    void boundaryOfADescription();
    void valuesOfAnotherTypeAreHarmless_data();
    void valuesOfAnotherTypeAreHarmless();
    void missingPicturesAreNull();

    void lookFollowsTheState_data();
    void lookFollowsTheState();
    void placeOfThePicture_data();
    void placeOfThePicture();
    void extremeOffsetsPaintNothing();
    void stretchedPictureFillsTheBoundary();
    void nothingIsPaintedWithoutAPicture();
    void gradientStaysDormant();
    void gradientFillsTheBoundaryUnderThePicture();
    void gradientRunsFromTopToBottom();

    void pathAndPictureSettersAgree();
    void onlyTheHoverPathTurnsHoverOn();
    void boundaryCanBeResized();
    void opacityCanBeAnimated();
    void ownersDataIsKept();

private:
    QString saved(const char* name, const QSize& size, const QColor& color);

    QScopedPointer<TestPictures> m_pictures;
    QScopedPointer<QGraphicsScene> m_scene;
};

void cGraphicsButtonTest::init()
{
    m_pictures.reset(new TestPictures);
    m_scene.reset(new QGraphicsScene);
}

void cGraphicsButtonTest::cleanup()
{
    m_scene.reset();
    m_pictures.reset();
}

QString cGraphicsButtonTest::saved(const char* name, const QSize& size, const QColor& color)
{
    return m_pictures->add(QLatin1String(name), filled(size, color));
}

void cGraphicsButtonTest::signalsSlotAndPropertyStandInTheirOrder()
{
    const QMetaObject& type = cGraphicsButton::staticMetaObject;
    QList<QByteArray> methods;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        methods.append(type.method(i).methodSignature());
    QCOMPARE(methods,
        QList<QByteArray>({"clicked()", "clicked(QPoint)", "clicked(cGraphicsButton*)",
            "released(cGraphicsButton*)", "hoverEntered()", "hoverLeft()", "toggle()"}));
    QCOMPARE(type.propertyCount() - type.propertyOffset(), 1);
    QCOMPARE(type.property(type.propertyOffset()).name(), "opacity");
    QCOMPARE(type.property(type.propertyOffset()).typeName(), "double");
}

void cGraphicsButtonTest::pictureConstructorsGiveTheSameStart()
{
    QGraphicsItem* parent = m_scene->addRect(QRectF());
    const QPixmap picture = filled(Small, Qt::red);
    const QPixmap other = filled(QSize(3, 3), Qt::green);
    for (cGraphicsButton* button :
        {new cGraphicsButton(picture, parent), new cGraphicsButton(picture, other, parent),
            new cGraphicsButton(picture, other, other, parent)}) {
        QCOMPARE(button->parentItem(), parent);
        QCOMPARE(button->boundingRect(), QRectF(0, 0, 10, 8));
        QCOMPARE(button->state(), 1);
        QVERIFY(button->acceptHoverEvents());
        QVERIFY(!button->stretch());
        QVERIFY(!button->toggleFlag());
        QVERIFY(button->userData().isNull());
        QVERIFY(button->userText().isEmpty());
        QVERIFY(isFilled(painted(*button, QSize(20, 20)), QRect(0, 0, 10, 8), Qt::red));
    }
}

void cGraphicsButtonTest::buttonWithoutPicturesIsEmpty()
{
    cGraphicsButton button(nullptr);
    QCOMPARE(button.boundingRect(), QRectF());
    QCOMPARE(button.state(), 1);
    QVERIFY(button.acceptHoverEvents());
    QVERIFY(inkExtent(painted(button, Small)).isNull());
}

void cGraphicsButtonTest::emptyDescriptionGivesAnEmptyButton()
{
    for (const cJsonValue& description :
        {cJsonValue(), cJsonValue(cJsonValue::objectValue), cJsonValue("text"), cJsonValue(7)}) {
        cGraphicsButton button(description, nullptr);
        QCOMPARE(button.boundingRect(), QRectF(0, 0, 0, 0));
        QCOMPARE(button.state(), 1);
        QVERIFY(!button.acceptHoverEvents());
        QVERIFY(inkExtent(painted(button, Small)).isNull());
    }
}

void cGraphicsButtonTest::descriptionIsRead()
{
    cJsonValue description;
    description["normal"] = saved("normal.png", Small, Qt::red);
    description["hover"] = saved("hover.png", Small, Qt::green);
    description["pressed"] = saved("pressed.png", Small, Qt::blue);
    description["boundary"] = record("width", 30, "height", 20);
    description["toggle"] = true;
    description["pos"] = record("x", -6, "y", 54);
    description["alignment"] = 3;
    description["offset"] = record("x", 1, "y", 5);
    description["tooltip"] = "Print";
    auto* button = new cGraphicsButton(description, nullptr);
    m_scene->addItem(button);

    QCOMPARE(button->boundingRect(), QRectF(0, 0, 30, 20));
    QCOMPARE(button->pos(), QPointF(-6, 54));
    QCOMPARE(button->toolTip(), QString("Print"));
    QVERIFY(button->toggleFlag());
    QVERIFY(!button->stretch());
    QVERIFY(button->acceptHoverEvents());
    // Right aligned and vertically centred, plus the offset.
    const QRect place(20 + 1, 6 + 5, 10, 8);
    QVERIFY(isFilled(painted(*button, QSize(40, 40)), place, Qt::red));
    button->setState(5);
    QVERIFY(isFilled(painted(*button, QSize(40, 40)), place, Qt::green));
    button->setState(7);
    QVERIFY(isFilled(painted(*button, QSize(40, 40)), place, Qt::blue));
}

void cGraphicsButtonTest::descriptionWithoutHoverShowsNoHandCursor()
{
    cJsonValue description;
    description["normal"] = saved("normal.png", Small, Qt::red);
    auto* button = new cGraphicsButton(description, nullptr);
    m_scene->addItem(button);
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseMove);
    event.setScenePos(QPointF(5, 4));
    QCoreApplication::sendEvent(m_scene.data(), &event);
    QVERIFY(!button->acceptHoverEvents());
    QVERIFY(!button->hasCursor());
    QCOMPARE(button->state(), 1);
}

void cGraphicsButtonTest::boundaryOfADescription_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QRectF>("boundary");
    QTest::newRow("both") << 30 << 20 << QRectF(0, 0, 30, 20);
    QTest::newRow("width of the picture") << 0 << 20 << QRectF(0, 0, 10, 20);
    QTest::newRow("height of the picture") << 30 << 0 << QRectF(0, 0, 30, 8);
    QTest::newRow("both of the picture") << 0 << 0 << QRectF(0, 0, 10, 8);
    QTest::newRow("negative") << -5 << -2147483647 << QRectF(0, 0, 10, 8);
    QTest::newRow("smaller than the picture") << 3 << 2 << QRectF(0, 0, 3, 2);
    QTest::newRow("largest") << 2147483647 << 1 << QRectF(0, 0, 2147483647, 1);
}

void cGraphicsButtonTest::boundaryOfADescription()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(QRectF, boundary);
    cJsonValue description;
    description["normal"] = saved("normal.png", Small, Qt::red);
    description["boundary"] = record("width", width, "height", height);
    QCOMPARE(cGraphicsButton(description, nullptr).boundingRect(), boundary);
}

void cGraphicsButtonTest::valuesOfAnotherTypeAreHarmless_data()
{
    QTest::addColumn<QString>("key");
    for (const char* key : {"normal", "hover", "pressed", "boundary", "toggle", "stretch", "pos", "alignment",
             "offset", "tooltip"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void cGraphicsButtonTest::valuesOfAnotherTypeAreHarmless()
{
    QFETCH(QString, key);
    cJsonValue array;
    array.append(1).append("2");
    cJsonValue nested;
    nested["width"]["width"] = 1;
    nested["x"]["x"] = 1;
    for (const cJsonValue& value : {cJsonValue(), cJsonValue(""), cJsonValue("nothing of that name"),
             cJsonValue(true), cJsonValue(-1), cJsonValue(1e300), array, nested}) {
        cJsonValue description;
        description["normal"] = saved("normal.png", Small, Qt::red);
        description[key] = value;
        cGraphicsButton button(description, nullptr);
        const QImage image = painted(button, QSize(40, 40));
        QCOMPARE(button.state(), 1);
        if (key == "normal") {
            QCOMPARE(button.boundingRect(), QRectF(0, 0, 0, 0));
            QVERIFY(inkExtent(image).isNull());
        } else {
            QCOMPARE(button.boundingRect(), QRectF(0, 0, 10, 8));
            QVERIFY(isFilled(image, QRect(0, 0, 10, 8), Qt::red));
        }
        QCOMPARE(button.pos(), QPointF(0, 0));
        QCOMPARE(button.acceptHoverEvents(), key == "hover");
    }
}

void cGraphicsButtonTest::missingPicturesAreNull()
{
    cJsonValue description;
    description["normal"] = pluginResource("Resources/images/missing.png");
    description["hover"] = pluginResource("Resources/images");
    description["pressed"] = QString::fromUtf8("\u0000:?*");
    cGraphicsButton button(description, nullptr);
    QVERIFY(button.normalPixmap().isNull());
    QVERIFY(button.acceptHoverEvents());
    button.setState(7);
    QVERIFY(inkExtent(painted(button, Small)).isNull());
}

void cGraphicsButtonTest::lookFollowsTheState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QColor>("color");
    QTest::newRow("resting") << 1 << QColor(Qt::red);
    QTest::newRow("under the pointer") << 5 << QColor(Qt::green);
    QTest::newRow("toggled on") << 3 << QColor(Qt::blue);
    QTest::newRow("both") << 7 << QColor(Qt::blue);
}

void cGraphicsButtonTest::lookFollowsTheState()
{
    QFETCH(int, state);
    QFETCH(QColor, color);
    cGraphicsButton button(
        filled(Small, Qt::red), filled(Small, Qt::green), filled(Small, Qt::blue), nullptr);
    button.setState(state);
    QCOMPARE(button.state(), state);
    QVERIFY(isFilled(painted(button, QSize(20, 20)), QRect(0, 0, 10, 8), color));
}

void cGraphicsButtonTest::placeOfThePicture_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QPoint>("place");
    // The picture of 10 by 8 in 31 by 21: a slack of 21 by 13.
    QTest::newRow("top left") << 0 << QPoint(0, 0);
    QTest::newRow("top centre") << 1 << QPoint(10, 0);
    QTest::newRow("top right") << 2 << QPoint(21, 0);
    QTest::newRow("right middle") << 3 << QPoint(21, 6);
    QTest::newRow("bottom right") << 4 << QPoint(21, 13);
    QTest::newRow("bottom centre") << 5 << QPoint(10, 13);
    QTest::newRow("bottom left") << 6 << QPoint(0, 13);
    QTest::newRow("left middle") << 7 << QPoint(0, 6);
    QTest::newRow("centre") << -1 << QPoint(10, 6);
    QTest::newRow("another") << 99 << QPoint(10, 6);
}

void cGraphicsButtonTest::placeOfThePicture()
{
    QFETCH(int, alignment);
    QFETCH(QPoint, place);
    cJsonValue description;
    description["normal"] = saved("normal.png", Small, Qt::red);
    description["boundary"] = record("width", 31, "height", 21);
    description["alignment"] = alignment;
    cGraphicsButton plain(description, nullptr);
    QVERIFY(isFilled(painted(plain, QSize(50, 50)), QRect(place, Small), Qt::red));

    description["offset"] = record("x", 3, "y", -2);
    cGraphicsButton moved(description, nullptr);
    QVERIFY(isFilled(painted(moved, QSize(50, 50), QPoint(0, -5)),
        QRect(place + QPoint(3, -2) + QPoint(0, 5), Small), Qt::red));
}

void cGraphicsButtonTest::extremeOffsetsPaintNothing()
{
    for (const int far : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        cJsonValue description;
        description["normal"] = saved("normal.png", Small, Qt::red);
        description["boundary"] = record("width", std::numeric_limits<int>::max(), "height", 21);
        description["alignment"] = 2;
        description["offset"] = record("x", far, "y", far);
        cGraphicsButton button(description, nullptr);
        QVERIFY(inkExtent(painted(button, QSize(50, 50))).isNull());
    }
}

void cGraphicsButtonTest::stretchedPictureFillsTheBoundary()
{
    cJsonValue description;
    description["normal"] = saved("normal.png", Small, Qt::red);
    description["boundary"] = record("width", 31, "height", 5);
    description["stretch"] = true;
    description["alignment"] = 4;
    description["offset"] = record("x", 7, "y", 7);
    cGraphicsButton button(description, nullptr);
    QVERIFY(button.stretch());
    QVERIFY(isFilled(painted(button, QSize(50, 50)), QRect(0, 0, 31, 5), Qt::red));
}

void cGraphicsButtonTest::nothingIsPaintedWithoutAPicture()
{
    cGraphicsButton button(QPixmap(), filled(Small, Qt::green), nullptr);
    button.setBoundarySize(20, 20);
    QVERIFY(inkExtent(painted(button, QSize(20, 20))).isNull());
    button.setState(5);
    QVERIFY(!inkExtent(painted(button, QSize(20, 20))).isNull());
}

void cGraphicsButtonTest::gradientStaysDormant()
{
    cJsonValue description;
    description["boundary"] = record("width", 20, "height", 10);
    cGraphicsButton button(description, nullptr);
    QVERIFY(!button.acceptHoverEvents());
    button.setGradients(plainGradient(Qt::yellow), plainGradient(Qt::cyan));
    QVERIFY(button.acceptHoverEvents());
    QVERIFY(inkExtent(painted(button, QSize(20, 20))).isNull());
    button.setNormalPixmap(filled(Small, Qt::red));
    QVERIFY(isFilled(painted(button, QSize(20, 20)), QRect(5, 1, 10, 8), Qt::red));
}

void cGraphicsButtonTest::gradientFillsTheBoundaryUnderThePicture()
{
    AwakeButton button(filled(Small, Qt::red), nullptr);
    button.setBoundarySize(20, 10);
    button.showGradient();
    QCOMPARE(qAlpha(painted(button, QSize(30, 30)).pixel(0, 0)), 0);

    button.setGradients(plainGradient(Qt::yellow), plainGradient(Qt::cyan));
    const QImage resting = painted(button, QSize(30, 30));
    QCOMPARE(colorExtent(resting, Qt::yellow), QRect(0, 0, 20, 10));
    QVERIFY(isFilled(resting, QRect(5, 1, 10, 8), Qt::red));
    button.setState(5);
    QCOMPARE(colorExtent(painted(button, QSize(30, 30)), Qt::cyan), QRect(0, 0, 20, 10));

    button.setNormalPixmap(QPixmap());
    QVERIFY(isFilled(painted(button, QSize(30, 30)), QRect(0, 0, 20, 10), Qt::cyan));
}

void cGraphicsButtonTest::gradientRunsFromTopToBottom()
{
    AwakeButton button(nullptr);
    button.setBoundarySize(4, 100);
    button.showGradient();
    QLinearGradient gradient(50, 0, 0, 0);
    gradient.setColorAt(0, Qt::black);
    gradient.setColorAt(1, Qt::white);
    button.setGradients(gradient, gradient);
    const QImage image = painted(button, QSize(4, 100));
    QVERIFY(image.pixelColor(0, 0).red() < 5);
    QVERIFY(qAbs(image.pixelColor(2, 50).red() - 128) < 5);
    QVERIFY(image.pixelColor(3, 99).red() > 250);
    QCOMPARE(image.pixelColor(0, 50), image.pixelColor(3, 50));
}

void cGraphicsButtonTest::pathAndPictureSettersAgree()
{
    cGraphicsButton button(nullptr);
    button.setBoundarySize(Small);
    const QRect whole(QPoint(0, 0), Small);
    button.setNormalPixmap(saved("1.png", Small, Qt::red));
    QVERIFY(isFilled(painted(button, Small), whole, Qt::red));
    button.setNormalPixmap(filled(Small, Qt::yellow));
    QVERIFY(isFilled(painted(button, Small), whole, Qt::yellow));
    button.setState(5);
    button.setHoverPixmap(saved("2.png", Small, Qt::green));
    QVERIFY(isFilled(painted(button, Small), whole, Qt::green));
    button.setHoverPixmap(filled(Small, Qt::cyan));
    QVERIFY(isFilled(painted(button, Small), whole, Qt::cyan));
    button.setState(3);
    button.setPressedPixmap(saved("3.png", Small, Qt::blue));
    QVERIFY(isFilled(painted(button, Small), whole, Qt::blue));
    button.setPressedPixmap(filled(Small, Qt::magenta));
    QVERIFY(isFilled(painted(button, Small), whole, Qt::magenta));
    button.setNormalPixmap(filled(QSize(99, 99), Qt::red));
    QCOMPARE(button.boundingRect(), QRectF(whole));
}

void cGraphicsButtonTest::onlyTheHoverPathTurnsHoverOn()
{
    cGraphicsButton button(cJsonValue(), nullptr);
    button.setHoverPixmap(filled(Small, Qt::green));
    button.setNormalPixmap(saved("1.png", Small, Qt::red));
    button.setPressedPixmap(saved("1.png", Small, Qt::red));
    QVERIFY(!button.acceptHoverEvents());
    button.setHoverPixmap(saved("2.png", Small, Qt::green));
    QVERIFY(button.acceptHoverEvents());
}

void cGraphicsButtonTest::boundaryCanBeResized()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    QVERIFY(m_scene->items(QPointF(50, 50)).isEmpty());
    button->setBoundarySize(QSize(60, 70));
    QCOMPARE(button->boundingRect(), QRectF(0, 0, 60, 70));
    QCOMPARE(m_scene->items(QPointF(50, 50)).size(), 1);
    button->setBoundarySize(5, 6);
    QCOMPARE(button->boundingRect(), QRectF(0, 0, 5, 6));
    QVERIFY(m_scene->items(QPointF(50, 50)).isEmpty());
    button->setBoundarySize(-5, 6);
    QCOMPARE(button->boundingRect(), QRectF(0, 0, 0, 6));
}

void cGraphicsButtonTest::opacityCanBeAnimated()
{
    cGraphicsButton button(filled(Small, Qt::red), nullptr);
    QPropertyAnimation animation(&button, "opacity");
    animation.setDuration(300);
    animation.setStartValue(0.0);
    animation.setEndValue(1.0);
    animation.start();
    animation.pause();
    animation.setCurrentTime(150);
    QCOMPARE(button.opacity(), 0.5);
    QCOMPARE(button.property("opacity").toDouble(), 0.5);
}

void cGraphicsButtonTest::ownersDataIsKept()
{
    cGraphicsButton button(nullptr);
    button.setUserText("mouse");
    button.setUserData(record("a", 1, "b", 2));
    QCOMPARE(button.userText(), QString("mouse"));
    QVERIFY(button.userData() == record("a", 1, "b", 2));
}

VELTRANO_TEST_MAIN(cGraphicsButtonTest)
#include "cGraphicsButtonTest.moc"
