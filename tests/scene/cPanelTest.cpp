#include <cPanel.h>
#include <RecordingHost.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPainter>
#include <QPointer>
#include <QPropertyAnimation>
#include <QSignalSpy>

#include <limits>

using namespace SceneEvents;

namespace {

/// The order in which the border's pieces are children of the pane.
enum Piece { TopLeft, TopRight, BottomLeft, BottomRight, Left, Top, Bottom, Right, PieceCount };

} // namespace

Q_DECLARE_METATYPE(Qt::GlobalColor)

class cPanelTest : public TestCase
{
    Q_OBJECT

public Q_SLOTS:
    void deletePane() { delete m_panel.data(); }

private Q_SLOTS:
    void init();
    void cleanup();

    void signalsHandlersAndPropertiesStandInTheirOrder();
    void paneSubscribesForItsLife();
    void extentIncludesTheBorder();
    void pieceStandsInItsPlace_data();
    void pieceStandsInItsPlace();
    void piecesAreChildrenInTheirOrder();
    void rightEdgeAloneReachesIntoTheField();
    void fieldIsBlack();
    void eightPicturesAreReadFromTheResources();
    void missingPicturesLeaveTheField();
    void sizeOfNothingLeavesTheCorners();
    void badSizesCountAsNothing_data();
    void badSizesCountAsNothing();
    void sizeCanBeAnimated();
    void posCanBeAnimatedByWholePoints();
    void paneIsPlacedIntoAnItem();

    void pointerIsToldOutsideATransformation();
    void stayingPointerIsNotToldAgain();
    void enteringPointerIsToldAtTheEnd();
    void passingPointerIsNotTold();
    void leavingPointerIsNeverTold();
    void secondTransformationStartsAnew();
    void endWithoutABeginIsHarmless();
    void receiverMayDeleteThePane();
    void deletedPaneHearsNoEvents();

private:
    QGraphicsPixmapItem* piece(Piece which) const;
    /// The pane with its children; the picture's corner is the border's.
    QImage picture() const;
    cPanel* add(const QSizeF& size);

    QScopedPointer<RecordingHost> m_host;
    QScopedPointer<TestPictures> m_pictures;
    QScopedPointer<QGraphicsScene> m_scene;
    QPointer<cPanel> m_panel;
};

void cPanelTest::init()
{
    m_host.reset(new RecordingHost);
    m_pictures.reset(new TestPictures);
    m_pictures->add("panel-topleft.png", filledPicture(21, 21, Qt::red));
    m_pictures->add("panel-topright.png", filledPicture(21, 21, Qt::green));
    m_pictures->add("panel-bottomleft.png", filledPicture(21, 21, Qt::blue));
    m_pictures->add("panel-bottomright.png", filledPicture(21, 21, Qt::cyan));
    m_pictures->add("panel-left.png", filledPicture(21, 12, Qt::magenta));
    m_pictures->add("panel-right.png", filledPicture(21, 12, Qt::yellow));
    m_pictures->add("panel-top.png", filledPicture(12, 21, Qt::darkRed));
    m_pictures->add("panel-bottom.png", filledPicture(12, 21, Qt::darkGreen));
    m_scene.reset(new QGraphicsScene);
}

void cPanelTest::cleanup()
{
    m_scene.reset();
    QVERIFY(!m_panel);
    m_pictures.reset();
    m_host.reset();
}

cPanel* cPanelTest::add(const QSizeF& size)
{
    m_panel = new cPanel(size, nullptr);
    m_scene->addItem(m_panel);
    return m_panel;
}

QGraphicsPixmapItem* cPanelTest::piece(Piece which) const
{
    return dynamic_cast<QGraphicsPixmapItem*>(m_panel->childItems().value(which));
}

QImage cPanelTest::picture() const
{
    const QRectF area = m_panel->boundingRect().translated(m_panel->pos());
    QImage image(area.size().toSize() + QSize(10, 10), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    m_scene->render(&painter, QRectF(image.rect()), QRectF(area.topLeft(), QSizeF(image.size())));
    return image;
}

void cPanelTest::signalsHandlersAndPropertiesStandInTheirOrder()
{
    const QMetaObject& type = cPanel::staticMetaObject;
    QStringList methods;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        methods.append(type.method(i).methodSignature());
    QCOMPARE(methods,
        QStringList(
            {"hoverIn()", "hoverOut()", "onDeviceTransformBegin(cJsonValue)", "onDeviceTransformEnd()"}));
    QCOMPARE(type.method(type.methodOffset() + 2).methodType(), QMetaMethod::Method);
    QCOMPARE(type.method(type.methodOffset() + 3).methodType(), QMetaMethod::Method);
    QCOMPARE(type.propertyCount() - type.propertyOffset(), 2);
    QCOMPARE(type.property(type.propertyOffset()).name(), "pos");
    QCOMPARE(type.property(type.propertyOffset()).typeName(), "QPointF");
    QCOMPARE(type.property(type.propertyOffset() + 1).name(), "size");
    QCOMPARE(type.property(type.propertyOffset() + 1).typeName(), "QSizeF");
}

void cPanelTest::paneSubscribesForItsLife()
{
    auto* panel = new cPanel(QSizeF(30, 24), nullptr);
    QCOMPARE(m_host->takeLog(), QStringList("subscribe MainUI_Events on"));
    delete panel;
    QCOMPARE(m_host->takeLog(), QStringList("unsubscribe MainUI_Events"));
}

void cPanelTest::extentIncludesTheBorder()
{
    const cPanel* panel = add(QSizeF(593, 86));
    QCOMPARE(panel->boundingRect(), QRectF(-21, -21, 635, 128));
    QCOMPARE(panel->panelSize(), QSizeF(593, 86));
    QVERIFY(panel->acceptHoverEvents());
}

void cPanelTest::pieceStandsInItsPlace_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Qt::GlobalColor>("color");
    QTest::addColumn<QRect>("place");
    const auto rows = [](const char* name, int w, int h) {
        const auto row = [&](const char* piece, Qt::GlobalColor color, const QRect& place) {
            QTest::addRow("%s, %s", name, piece) << QSize(w, h) << color << place;
        };
        row("top left", Qt::red, QRect(0, 0, 21, 21));
        row("top right", Qt::green, QRect(21 + w, 0, 21, 21));
        row("bottom left", Qt::blue, QRect(0, 21 + h, 21, 21));
        row("bottom right", Qt::cyan, QRect(21 + w, 21 + h, 21, 21));
        row("left", Qt::magenta, QRect(0, 21, 21, h));
        row("right", Qt::yellow, QRect(21 + w - 1, 21, 21, h));
        row("top", Qt::darkRed, QRect(21, 0, w, 21));
        row("bottom", Qt::darkGreen, QRect(21, 21 + h, w, 21));
        // The right edge lies over the last column of the field.
        row("field", Qt::black, QRect(21, 21, w - 1, h));
    };
    rows("profile pane", 593, 86);
    rows("command pane", 232, 380);
    rows("small", 24, 12);
}

void cPanelTest::pieceStandsInItsPlace()
{
    QFETCH(QSize, size);
    QFETCH(Qt::GlobalColor, color);
    QFETCH(QRect, place);
    add(size)->setPos(40, 30);
    QVERIFY2(isFilled(picture(), place, color), QTest::toString(colorExtent(picture(), color)));
}

void cPanelTest::piecesAreChildrenInTheirOrder()
{
    add(QSizeF(30.5, 24));
    QCOMPARE(m_panel->childItems().size(), int(PieceCount));
    QCOMPARE(piece(TopLeft)->pos(), QPointF(-21, -21));
    QCOMPARE(piece(TopRight)->pos(), QPointF(30.5, -21));
    QCOMPARE(piece(BottomLeft)->pos(), QPointF(-21, 24));
    QCOMPARE(piece(BottomRight)->pos(), QPointF(30.5, 24));
    QCOMPARE(piece(Left)->pos(), QPointF(-21, 0));
    QCOMPARE(piece(Top)->pos(), QPointF(0, -21));
    QCOMPARE(piece(Bottom)->pos(), QPointF(0, 24));
    QCOMPARE(piece(Right)->pos(), QPointF(29.5, 0));
    for (const Piece corner : {TopLeft, TopRight, BottomLeft, BottomRight})
        QVERIFY(piece(corner)->transform().isIdentity());
    QCOMPARE(piece(Left)->transform(), QTransform(1, 0, 0, 2, 0, 0));
    QCOMPARE(piece(Right)->transform(), QTransform(1, 0, 0, 2, 0, 0));
    QCOMPARE(piece(Top)->transform(), QTransform(30.5 / 12.0, 0, 0, 1, 0, 0));
    QCOMPARE(piece(Bottom)->transform(), QTransform(30.5 / 12.0, 0, 0, 1, 0, 0));
}

void cPanelTest::rightEdgeAloneReachesIntoTheField()
{
    add(QSizeF(24, 12));
    const QImage image = picture();
    QCOMPARE(image.pixelColor(21 + 23, 25), QColor(Qt::yellow));
    QCOMPARE(image.pixelColor(21 + 22, 25), QColor(Qt::black));
    QCOMPARE(image.pixelColor(21, 25), QColor(Qt::black));
    QCOMPARE(image.pixelColor(25, 21), QColor(Qt::black));
    QCOMPARE(image.pixelColor(25, 21 + 11), QColor(Qt::black));
    // The column that it leaves at its outer side stays empty.
    QCOMPARE(qAlpha(image.pixel(21 + 24 + 20, 25)), 0);
}

void cPanelTest::fieldIsBlack()
{
    add(QSizeF(24, 12));
    QVERIFY(isFilled(painted(*m_panel, QSize(100, 100), QPoint(-30, -30)), QRect(30, 30, 24, 12), Qt::black));
}

void cPanelTest::eightPicturesAreReadFromTheResources()
{
    add(QSizeF(24, 12));
    for (int i = 0; i < PieceCount; ++i)
        QVERIFY(!piece(Piece(i))->pixmap().isNull());
    QCOMPARE(piece(Left)->pixmap().size(), QSize(21, 12));
    QCOMPARE(piece(Top)->pixmap().size(), QSize(12, 21));
}

void cPanelTest::missingPicturesLeaveTheField()
{
    m_pictures.reset(new TestPictures);
    add(QSizeF(24, 12));
    QCOMPARE(m_panel->boundingRect(), QRectF(-21, -21, 66, 54));
    QVERIFY(isFilled(picture(), QRect(21, 21, 24, 12), Qt::black));
    QCOMPARE(inkExtent(picture()), QRect(21, 21, 24, 12));
}

void cPanelTest::sizeOfNothingLeavesTheCorners()
{
    add(QSizeF(0, 0));
    QCOMPARE(m_panel->boundingRect(), QRectF(-21, -21, 42, 42));
    const QImage image = picture();
    QVERIFY(isFilled(image, QRect(0, 0, 21, 21), Qt::red));
    QVERIFY(isFilled(image, QRect(21, 0, 21, 21), Qt::green));
    QVERIFY(isFilled(image, QRect(0, 21, 21, 21), Qt::blue));
    QVERIFY(isFilled(image, QRect(21, 21, 21, 21), Qt::cyan));
    QCOMPARE(inkExtent(image), QRect(0, 0, 42, 42));
    QVERIFY(inkExtent(painted(*m_panel, QSize(60, 60), QPoint(-30, -30))).isNull());
}

void cPanelTest::badSizesCountAsNothing_data()
{
    QTest::addColumn<QSizeF>("size");
    const qreal nan = std::numeric_limits<qreal>::quiet_NaN();
    QTest::newRow("invalid") << QSizeF();
    QTest::newRow("negative") << QSizeF(-100, -0.5);
    QTest::newRow("no numbers") << QSizeF(nan, nan);
}

void cPanelTest::badSizesCountAsNothing()
{
    QFETCH(QSizeF, size);
    add(QSizeF(24, 12))->setSize(size);
    QCOMPARE(m_panel->panelSize(), QSizeF(0, 0));
    QCOMPARE(m_panel->boundingRect(), QRectF(-21, -21, 42, 42));
    QCOMPARE(inkExtent(picture()), QRect(0, 0, 42, 42));
}

void cPanelTest::sizeCanBeAnimated()
{
    add(QSizeF(24, 12));
    QPropertyAnimation animation(m_panel, "size");
    animation.setDuration(100);
    animation.setStartValue(QSizeF(0, 0));
    animation.setEndValue(QSizeF(240, 120));
    animation.start();
    animation.pause();
    for (const int time : {0, 25, 50, 75}) {
        animation.setCurrentTime(time);
        const qreal width = 2.4 * time;
        const qreal height = 1.2 * time;
        QCOMPARE(m_panel->panelSize(), QSizeF(width, height));
        QCOMPARE(m_panel->property("size").toSizeF(), QSizeF(width, height));
        QCOMPARE(m_panel->boundingRect(), QRectF(-21, -21, width + 42, height + 42));
        QCOMPARE(piece(Left)->transform(), QTransform::fromScale(1, height / 12.0));
        QCOMPARE(piece(Right)->transform(), QTransform::fromScale(1, height / 12.0));
        QCOMPARE(piece(Top)->transform(), QTransform::fromScale(width / 12.0, 1));
        QCOMPARE(piece(Bottom)->transform(), QTransform::fromScale(width / 12.0, 1));
        QCOMPARE(piece(BottomRight)->pos(), QPointF(width, height));
        QCOMPARE(m_panel->childItems().size(), int(PieceCount));
    }
}

void cPanelTest::posCanBeAnimatedByWholePoints()
{
    add(QSizeF(24, 12));
    QPropertyAnimation animation(m_panel, "pos");
    animation.setDuration(100);
    animation.setStartValue(QPoint(-60, 157));
    animation.setEndValue(QPoint(40, 157));
    animation.start();
    animation.pause();
    animation.setCurrentTime(50);
    QCOMPARE(m_panel->pos(), QPointF(-10, 157));
}

void cPanelTest::paneIsPlacedIntoAnItem()
{
    QGraphicsItem* parent = m_scene->addRect(0, 0, 10, 10);
    parent->setPos(100, 100);
    add(QSizeF(24, 12))->placeInto(parent, QPointF(3.5, 4));
    QCOMPARE(m_panel->parentItem(), parent);
    QCOMPARE(m_panel->scenePos(), QPointF(103.5, 104));
    m_panel->placeInto(nullptr, QPointF(1, 2));
    QVERIFY(!m_panel->parentItem());
    QCOMPARE(m_panel->scenePos(), QPointF(1, 2));
}

void cPanelTest::pointerIsToldOutsideATransformation()
{
    add(QSizeF(24, 12));
    const QSignalSpy in(m_panel, SIGNAL(hoverIn()));
    const QSignalSpy out(m_panel, SIGNAL(hoverOut()));
    hoverEnter(*m_panel);
    QCOMPARE(in.size(), 1);
    QCOMPARE(out.size(), 0);
    hoverLeave(*m_panel);
    QCOMPARE(in.size(), 1);
    QCOMPARE(out.size(), 1);
}

void cPanelTest::stayingPointerIsNotToldAgain()
{
    add(QSizeF(24, 12));
    hoverEnter(*m_panel);
    const QSignalSpy in(m_panel, SIGNAL(hoverIn()));
    const QSignalSpy out(m_panel, SIGNAL(hoverOut()));
    m_host->publishDeviceTransformBegin(cJsonValue());
    m_host->publishDeviceTransformEnd();
    QCOMPARE(in.size() + out.size(), 0);
    hoverLeave(*m_panel);
    QCOMPARE(out.size(), 1);
}

void cPanelTest::enteringPointerIsToldAtTheEnd()
{
    add(QSizeF(24, 12));
    const QSignalSpy in(m_panel, SIGNAL(hoverIn()));
    const QSignalSpy out(m_panel, SIGNAL(hoverOut()));
    m_host->publishDeviceTransformBegin(cJsonValue());
    hoverEnter(*m_panel);
    hoverLeave(*m_panel);
    hoverEnter(*m_panel);
    QCOMPARE(in.size(), 0);
    m_host->publishDeviceTransformEnd();
    QCOMPARE(in.size(), 1);
    m_host->publishDeviceTransformEnd();
    QCOMPARE(in.size(), 1);
    QCOMPARE(out.size(), 0);
}

void cPanelTest::passingPointerIsNotTold()
{
    add(QSizeF(24, 12));
    const QSignalSpy in(m_panel, SIGNAL(hoverIn()));
    const QSignalSpy out(m_panel, SIGNAL(hoverOut()));
    m_host->publishDeviceTransformBegin(cJsonValue());
    hoverEnter(*m_panel);
    hoverLeave(*m_panel);
    m_host->publishDeviceTransformEnd();
    QCOMPARE(in.size() + out.size(), 0);
}

void cPanelTest::leavingPointerIsNeverTold()
{
    add(QSizeF(24, 12));
    hoverEnter(*m_panel);
    const QSignalSpy in(m_panel, SIGNAL(hoverIn()));
    const QSignalSpy out(m_panel, SIGNAL(hoverOut()));
    m_host->publishDeviceTransformBegin(cJsonValue());
    hoverLeave(*m_panel);
    m_host->publishDeviceTransformEnd();
    QCOMPARE(in.size() + out.size(), 0);
}

void cPanelTest::secondTransformationStartsAnew()
{
    add(QSizeF(24, 12));
    const QSignalSpy in(m_panel, SIGNAL(hoverIn()));
    m_host->publishDeviceTransformBegin(cJsonValue());
    m_host->publishDeviceTransformBegin(cJsonValue("again"));
    hoverEnter(*m_panel);
    m_host->publishDeviceTransformEnd();
    QCOMPARE(in.size(), 1);
    m_host->publishDeviceTransformBegin(cJsonValue());
    m_host->publishDeviceTransformEnd();
    QCOMPARE(in.size(), 1);
}

void cPanelTest::endWithoutABeginIsHarmless()
{
    add(QSizeF(24, 12));
    const QSignalSpy in(m_panel, SIGNAL(hoverIn()));
    m_host->publishDeviceTransformEnd();
    QCOMPARE(in.size(), 0);
    hoverEnter(*m_panel);
    QCOMPARE(in.size(), 1);
}

void cPanelTest::receiverMayDeleteThePane()
{
    add(QSizeF(24, 12));
    connect(m_panel, SIGNAL(hoverIn()), this, SLOT(deletePane()));
    m_host->publishDeviceTransformBegin(cJsonValue());
    hoverEnter(*m_panel);
    m_host->publishDeviceTransformEnd();
    QVERIFY(!m_panel);
}

void cPanelTest::deletedPaneHearsNoEvents()
{
    QGraphicsItem* parent = m_scene->addRect(0, 0, 10, 10);
    add(QSizeF(24, 12))->placeInto(parent, QPointF());
    delete parent;
    QVERIFY(!m_panel);
    m_host->publishDeviceTransformBegin(cJsonValue());
    m_host->publishDeviceTransformEnd();
    QVERIFY(m_host->takeLog().contains("unsubscribe MainUI_Events"));
    QVERIFY(m_scene->items().isEmpty());
}

VELTRANO_TEST_MAIN(cPanelTest)
#include "cPanelTest.moc"
