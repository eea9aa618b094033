#include <cGraphicsButton.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QCursor>
#include <QDrag>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QMimeData>
#include <QPointer>
#include <QWidget>

using namespace SceneEvents;

namespace {

const QSize Small(10, 8);

/// A button whose dormant drag is awake.
class DraggableButton : public cGraphicsButton
{
public:
    using cGraphicsButton::cGraphicsButton;
    void makeDraggable() { m_draggable = true; }
};

QPixmap filled(const QSize& size, const QColor& color)
{
    return filledPicture(size.width(), size.height(), color);
}

/// A move of the pointer that comes from a view, whose widget drags start on.
void moveOver(QGraphicsItem& item, QWidget* widget)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseMove);
    event.setWidget(widget);
    item.scene()->sendEvent(&item, &event);
}

} // namespace

/// Writes down what a button emits.
class Listener : public QObject
{
    Q_OBJECT

public:
    explicit Listener(cGraphicsButton& button)
        : m_button(&button)
    {
        connect(&button, SIGNAL(clicked()), this, SLOT(onClicked()));
        connect(&button, SIGNAL(clicked(QPoint)), this, SLOT(onClicked(QPoint)));
        connect(&button, SIGNAL(clicked(cGraphicsButton*)), this, SLOT(onClicked(cGraphicsButton*)));
        connect(&button, SIGNAL(released(cGraphicsButton*)), this, SLOT(onReleased(cGraphicsButton*)));
        connect(&button, SIGNAL(hoverEntered()), this, SLOT(onHoverEntered()));
        connect(&button, SIGNAL(hoverLeft()), this, SLOT(onHoverLeft()));
    }

    /// Deletes the button when it emits that line.
    void deleteAt(const QString& line) { m_deleteAt = line; }
    QStringList take() { return std::exchange(m_lines, {}); }

private Q_SLOTS:
    void onClicked() { add("clicked"); }
    void onClicked(const QPoint& point)
    {
        add(QStringLiteral("clicked at %1,%2").arg(point.x()).arg(point.y()));
    }
    void onClicked(cGraphicsButton* button) { add(button == m_button ? "clicked this" : "clicked another"); }
    void onReleased(cGraphicsButton* button)
    {
        add(button == m_button ? "released this" : "released another");
    }
    void onHoverEntered() { add("entered"); }
    void onHoverLeft() { add("left"); }

private:
    void add(const QString& line)
    {
        m_lines.append(m_button->isEnabled() ? line : line + QStringLiteral(", disabled"));
        if (!m_deleteAt.isEmpty() && line.startsWith(m_deleteAt))
            delete m_button.data();
    }

    QPointer<cGraphicsButton> m_button;
    QString m_deleteAt;
    QStringList m_lines;
};

/// What a button does under the pointer.
class GraphicsButtonPointerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void pressEmitsItsSignalsInOrder();
    void clickInAViewIsTold();
    void otherButtonsPressNothing();
    void releaseIsToldForEachButton();
    void pressDoesNotDrawThePressedLook();
    void toggleTurnsThePressedLookOnAndOff();
    void receiverMayDeleteTheButton_data();
    void receiverMayDeleteTheButton();
    void receiverOfTheScenesPressMayDeleteTheButton();
    void hoverChangesLookCursorAndTells();
    void hoverKeepsTheToggledLook();

    void dragStaysDormant();
    void dragCarriesALiteralText();
    void dragWithoutAWidgetIsHarmless();

private:
    QScopedPointer<QGraphicsScene> m_scene;
};

void GraphicsButtonPointerTest::init()
{
    m_scene.reset(new QGraphicsScene);
}

void GraphicsButtonPointerTest::cleanup()
{
    m_scene.reset();
}

void GraphicsButtonPointerTest::pressEmitsItsSignalsInOrder()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    Listener listener(*button);
    press(*button, QPointF(12.6, -33.6));
    QCOMPARE(listener.take(), QStringList({"clicked this", "clicked", "clicked at 13,-34, disabled"}));
    QVERIFY(button->isEnabled());
}

void GraphicsButtonPointerTest::clickInAViewIsTold()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    QGraphicsView view(m_scene.data());
    view.setSceneRect(0, 0, 100, 100);
    view.resize(110, 110);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    Listener listener(*button);
    const QPoint place = view.mapFromScene(QPointF(5, 4));
    QTest::mouseMove(view.viewport(), place);
    QTRY_COMPARE(button->state(), 5);
    QCOMPARE(listener.take(), QStringList("entered"));
    // Being disabled for a moment costs the button its hold on the pointer, so that the release goes astray.
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(listener.take(), QStringList({"clicked this", "clicked", "clicked at 5,4, disabled"}));
    QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::NoModifier, place);
    QCOMPARE(listener.take(), QStringList("released this"));
    QCOMPARE(button->state(), 5);
}

void GraphicsButtonPointerTest::otherButtonsPressNothing()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    Listener listener(*button);
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton, Qt::NoButton, Qt::BackButton})
        press(*button, QPointF(), other);
    QVERIFY(listener.take().isEmpty());
}

void GraphicsButtonPointerTest::releaseIsToldForEachButton()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    Listener listener(*button);
    for (const Qt::MouseButton each : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        release(*button, QPointF(), each);
    QCOMPARE(listener.take(), QStringList({"released this", "released this", "released this"}));
}

void GraphicsButtonPointerTest::pressDoesNotDrawThePressedLook()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), QPixmap(), filled(Small, Qt::blue), nullptr);
    m_scene->addItem(button);
    press(*button);
    QCOMPARE(button->state(), 1);
    QVERIFY(isFilled(painted(*button, Small), QRect(QPoint(0, 0), Small), Qt::red));
}

void GraphicsButtonPointerTest::toggleTurnsThePressedLookOnAndOff()
{
    cGraphicsButton button(filled(Small, Qt::red), QPixmap(), filled(Small, Qt::blue), nullptr);
    QMetaObject::invokeMethod(&button, "toggle");
    QCOMPARE(button.state(), 3);
    QVERIFY(isFilled(painted(button, Small), QRect(QPoint(0, 0), Small), Qt::blue));
    button.toggle();
    QCOMPARE(button.state(), 1);
    QVERIFY(isFilled(painted(button, Small), QRect(QPoint(0, 0), Small), Qt::red));
}

void GraphicsButtonPointerTest::receiverMayDeleteTheButton_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("lines");
    QTest::newRow("first") << QStringLiteral("clicked this") << 1;
    QTest::newRow("second") << QStringLiteral("clicked") << 1;
    QTest::newRow("third") << QStringLiteral("clicked at") << 3;
}

void GraphicsButtonPointerTest::receiverMayDeleteTheButton()
{
    QFETCH(QString, line);
    QFETCH(int, lines);
    QPointer<cGraphicsButton> button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    Listener listener(*button);
    listener.deleteAt(line);
    press(*button);
    QVERIFY(!button);
    QCOMPARE(listener.take().size(), lines);
}

void GraphicsButtonPointerTest::receiverOfTheScenesPressMayDeleteTheButton()
{
    QPointer<cGraphicsButton> button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    Listener listener(*button);
    listener.deleteAt("clicked at");
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMousePress);
    event.setButton(Qt::LeftButton);
    event.setButtons(Qt::LeftButton);
    event.setScenePos(QPointF(5, 4));
    event.setLastScenePos(QPointF(5, 4));
    QCoreApplication::sendEvent(m_scene.data(), &event);
    QVERIFY(!button);
    QCOMPARE(listener.take().last(), QString("clicked at 5,4, disabled"));
}

void GraphicsButtonPointerTest::hoverChangesLookCursorAndTells()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), filled(Small, Qt::green), nullptr);
    m_scene->addItem(button);
    Listener listener(*button);
    hoverEnter(*button);
    QCOMPARE(button->state(), 5);
    QCOMPARE(button->cursor().shape(), Qt::PointingHandCursor);
    QVERIFY(isFilled(painted(*button, Small), QRect(QPoint(0, 0), Small), Qt::green));
    hoverLeave(*button);
    QCOMPARE(button->state(), 1);
    QCOMPARE(button->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(isFilled(painted(*button, Small), QRect(QPoint(0, 0), Small), Qt::red));
    QCOMPARE(listener.take(), QStringList({"entered", "left"}));
}

void GraphicsButtonPointerTest::hoverKeepsTheToggledLook()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    button->toggle();
    hoverEnter(*button);
    QCOMPARE(button->state(), 7);
    hoverLeave(*button);
    QCOMPARE(button->state(), 3);
}

void GraphicsButtonPointerTest::dragStaysDormant()
{
    auto* button = new cGraphicsButton(filled(Small, Qt::red), nullptr);
    m_scene->addItem(button);
    QWidget widget;
    moveOver(*button, &widget);
    QVERIFY(!qApp->findChild<QDrag*>());
    QVERIFY(!button->hasCursor());
}

void GraphicsButtonPointerTest::dragCarriesALiteralText()
{
    auto* button = new DraggableButton(filled(Small, Qt::red), nullptr);
    button->makeDraggable();
    m_scene->addItem(button);
    QWidget widget;
    moveOver(*button, &widget);
    const auto* drag = qApp->findChild<QDrag*>();
    QVERIFY(drag);
    QCOMPARE(drag->mimeData()->formats(), QStringList("text/plain"));
    QCOMPARE(drag->mimeData()->text(), QString("#%1%2%3"));
    QCOMPARE(drag->pixmap().size(), Small);
    QCOMPARE(drag->hotSpot(), QPoint(15, 20));
    QCOMPARE(drag->supportedActions(), Qt::DropActions(Qt::MoveAction));
    QCOMPARE(button->cursor().shape(), Qt::OpenHandCursor);
}

void GraphicsButtonPointerTest::dragWithoutAWidgetIsHarmless()
{
    auto* button = new DraggableButton(filled(Small, Qt::red), nullptr);
    button->makeDraggable();
    m_scene->addItem(button);
    moveOver(*button, nullptr);
    QCOMPARE(button->cursor().shape(), Qt::OpenHandCursor);
}

VELTRANO_TEST_MAIN(GraphicsButtonPointerTest)
#include "GraphicsButtonPointerTest.moc"
