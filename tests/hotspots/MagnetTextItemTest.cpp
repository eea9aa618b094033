#include "LabelSupport.h"

#include <MagnetTextItem.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QCursor>
#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>

#include <climits>

using namespace LabelSupport;

namespace {

/// An item that keeps all events of the item that it filters.
class EventKeeper : public QGraphicsItem
{
public:
    QRectF boundingRect() const override { return {}; }
    void paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) override { }

    QVector<QEvent::Type> types;

protected:
    bool sceneEventFilter(QGraphicsItem*, QEvent* event) override
    {
        types += event->type();
        return true;
    }
};

} // namespace

/// Geometry, cursor and state; what is drawn is in MagnetTextItemPaintTest.
class MagnetTextItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasTwoSlotsAndNothingElse();
    void newLabelIsEmptyAndOpenToAllEvents();
    void settersOnlyStore();
    void boundsFollowTheText();
    void textAsWideAsItsPlaceFits();
    void textIsOnOneLineAtRest();
    void centerIsKeptInWholePixels();
    void setTextCentresAgain();
    void hoverOverAFittingTextChangesTheCursorOnly();
    void cursorTellsWhetherTheLabelCanBeDragged_data();
    void cursorTellsWhetherTheLabelCanBeDragged();
    void hoverGrowsToTheTextsOwnWidth();
    void hoverWrapsAtTheLargestWidth();
    void wrapsAtAnyCharacter();
    void grownLabelKeepsItsTopLeftCorner();
    void grownLabelIsFoundInItsWholePlace();
    void grownLabelStandsAboveAndReturns();
    void staticLabelGrowsWithAnArrow();
    void setTextOnAGrownLabelLeavesItExpanded();
    void repeatedHoversAreHarmless();
    void badWidthsAreBounded_data();
    void badWidthsAreBounded();
    void longTextsAreLaidOut_data();
    void longTextsAreLaidOut();
    void fontComesBackAfterTheLastLabel();
    void filterSeesAllEvents();
};

void MagnetTextItemTest::hasTwoSlotsAndNothingElse()
{
    const QMetaObject& meta = MagnetTextItem::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(meta.method(i).access(), QMetaMethod::Public);
        methods += meta.method(i).methodSignature();
    }
    QCOMPARE(methods, QStringList({"onGkeyHoverIn()", "onGkeyHoverOut()"}));
    QCOMPARE(meta.propertyCount(), QObject::staticMetaObject.propertyCount());
}

void MagnetTextItemTest::newLabelIsEmptyAndOpenToAllEvents()
{
    EventKeeper parent;
    // Owned by the parent.
    const auto* label = new MagnetTextItem("G7", false, &parent);
    QCOMPARE(label->parentItem(), &parent);
    QCOMPARE(label->contextID(), QString("G7"));
    QCOMPARE(label->text(), QString());
    QCOMPARE(label->macroID(), QString());
    QCOMPARE(label->boundingRect(), QRectF(0, 0, 10, 6));
    QVERIFY(label->acceptHoverEvents());
    QVERIFY(label->acceptDrops());
    QCOMPARE(label->acceptedMouseButtons(), Qt::LeftButton | Qt::RightButton);
    QCOMPARE(label->zValue(), 0.0);
}

void MagnetTextItemTest::settersOnlyStore()
{
    MagnetTextItem label("G1", false, nullptr);
    label.setCollapsedWidth(70);
    label.setExpandedMaxWidth(90);
    QCOMPARE(label.boundingRect(), QRectF(0, 0, 10, 6));
    label.setMacroID("{1}");
    QCOMPARE(label.macroID(), QString("{1}"));
    label.setText("Jump");
    QCOMPARE(label.text(), QString("Jump"));
    label.setCollapsedWidth(40);
    QCOMPARE(label.boundingRect().width(), 80.0);
}

void MagnetTextItemTest::boundsFollowTheText()
{
    const Label label("Jump", 60);
    QCOMPARE(label.boundingRect(), QRectF(0, 0, 70, naturalSize("Jump").height() + 6));
}

void MagnetTextItemTest::textAsWideAsItsPlaceFits()
{
    const int natural = naturalSize("Reload now").width();
    Label fitting("Reload now", natural);
    fitting.onGkeyHoverIn();
    QCOMPARE(fitting.zValue(), 0.0);
    Label tooWide("Reload now", natural - 1);
    tooWide.onGkeyHoverIn();
    QCOMPARE(tooWide.zValue(), 100.0);
}

void MagnetTextItemTest::textIsOnOneLineAtRest()
{
    Label label("one\ntwo three", 30);
    QCOMPARE(label.textHeight(), naturalSize("x").height());
}

void MagnetTextItemTest::centerIsKeptInWholePixels()
{
    MagnetTextItem label("G1", false, nullptr);
    // Before there is a text, there is nothing to take the half of.
    label.setCenter(10.5, 20.25);
    QCOMPARE(label.pos(), QPointF(10.5, 20.25));
    label.setCollapsedWidth(61);
    label.setText("Jump");
    const int height = naturalSize("Jump").height();
    QCOMPARE(label.pos(), QPointF(10.5 - 30, 20.25 - half(height)));
    label.setCenter(-3.0, 0.0);
    QCOMPARE(label.pos(), QPointF(-33, -half(height)));
}

void MagnetTextItemTest::setTextCentresAgain()
{
    Label label("Jump", 60);
    label.setCenter(200, 100);
    label.setPos(1, 1);
    label.setCollapsedWidth(80);
    label.setText("Run");
    QCOMPARE(label.pos(), QPointF(160, 100 - half(label.textHeight())));
}

void MagnetTextItemTest::hoverOverAFittingTextChangesTheCursorOnly()
{
    TestPictures pictures;
    addBalloons(pictures);
    Label label("Jump", 60);
    label.setMacroID("{1}");
    const QImage before = drawn(label);
    const QRectF bounds = label.boundingRect();
    QVERIFY(!label.hasCursor());
    label.onGkeyHoverIn();
    QCOMPARE(label.cursor().shape(), Qt::OpenHandCursor);
    QCOMPARE(label.boundingRect(), bounds);
    QCOMPARE(label.zValue(), 0.0);
    QCOMPARE(drawn(label), before);
    label.onGkeyHoverOut();
    QCOMPARE(drawn(label), before);
}

void MagnetTextItemTest::cursorTellsWhetherTheLabelCanBeDragged_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<bool>("isStatic");
    QTest::addColumn<int>("cursor");
    QTest::newRow("command") << "{1}" << false << int(Qt::OpenHandCursor);
    QTest::newRow("static command") << "{1}" << true << int(Qt::ArrowCursor);
    QTest::newRow("no command") << "" << false << int(Qt::ArrowCursor);
    QTest::newRow("static and none") << "" << true << int(Qt::ArrowCursor);
}

void MagnetTextItemTest::cursorTellsWhetherTheLabelCanBeDragged()
{
    QFETCH(QString, macroID);
    QFETCH(bool, isStatic);
    QFETCH(int, cursor);
    Label label("Jump", 60, 150, isStatic);
    label.setMacroID(macroID);
    label.setCursor(Qt::ClosedHandCursor);
    label.onGkeyHoverIn();
    QCOMPARE(int(label.cursor().shape()), cursor);
    // Leaving does not touch it.
    label.setCursor(Qt::ClosedHandCursor);
    label.onGkeyHoverOut();
    QCOMPARE(label.cursor().shape(), Qt::ClosedHandCursor);
}

void MagnetTextItemTest::hoverGrowsToTheTextsOwnWidth()
{
    TestPictures pictures;
    addBalloons(pictures);
    const QString text("Throw grenade");
    const QSize natural = naturalSize(text);
    Label label(text, 30, natural.width());
    label.onGkeyHoverIn();
    QCOMPARE(label.textWidth(), natural.width());
    QCOMPARE(label.textHeight(), natural.height());
    QCOMPARE(lookOf(label), QByteArray("normal_expanded"));
    // Nothing overflows now, and it shrinks all the same.
    label.onGkeyHoverOut();
    QCOMPARE(label.textWidth(), 30);
    QCOMPARE(label.zValue(), 0.0);
    QCOMPARE(lookOf(label), QByteArray("normal"));
    // At rest it overflows again.
    label.onGkeyHoverIn();
    QCOMPARE(label.textWidth(), natural.width());
}

void MagnetTextItemTest::hoverWrapsAtTheLargestWidth()
{
    const QString text("Throw the second grenade over the wall");
    Label label(text, 30, naturalSize(text).width() - 1);
    label.onGkeyHoverIn();
    QCOMPARE(label.textWidth(), naturalSize(text).width() - 1);
    QCOMPARE(linesIn(label.textHeight()), 2);
    Label narrow(text, 30, 50);
    narrow.onGkeyHoverIn();
    QCOMPARE(narrow.textWidth(), 50);
    QVERIFY(linesIn(narrow.textHeight()) >= 4);
    // All lines have room.
    QVERIFY(textInk(narrow).bottom() < 3 + narrow.textHeight());
    QVERIFY(textInk(narrow).bottom() > 3 + narrow.textHeight() - naturalSize("x").height());
}

void MagnetTextItemTest::wrapsAtAnyCharacter()
{
    const int letter = naturalSize("W").width();
    const int line = naturalSize("W").height();
    {
        // Without a space: six letters in a line of six and a half.
        Label label(QString(18, 'W'), 20, 6 * letter + letter / 2);
        label.onGkeyHoverIn();
        QCOMPARE(linesIn(label.textHeight()), 3);
    }
    // With one: at the word there would be two letters in the first line.
    Label label("WW WWWWWWWWWW", 20, 8 * letter);
    label.onGkeyHoverIn();
    QCOMPARE(linesIn(label.textHeight()), 2);
    const QRect firstLine(Margin, Margin + 3, label.textWidth() + 10, line);
    QVERIFY(inkExtent(drawn(label).copy(firstLine)).width() > 6 * letter);
}

void MagnetTextItemTest::grownLabelKeepsItsTopLeftCorner()
{
    Label label("Throw the second grenade over the wall", 30, 60);
    label.setCenter(200, 100);
    const QPointF corner = label.pos();
    QCOMPARE(corner.x(), 185.0);
    label.onGkeyHoverIn();
    QCOMPARE(label.pos(), corner);
    QVERIFY(label.textWidth() > 30);
    label.onGkeyHoverOut();
    QCOMPARE(label.pos(), corner);
}

void MagnetTextItemTest::grownLabelIsFoundInItsWholePlace()
{
    QGraphicsScene scene(0, 0, 1000, 1000);
    auto* const label = new Label("Throw the second grenade over the wall", 30, 400);
    scene.addItem(label);
    // Others, so that the scene's index has something to tell apart.
    for (int i = 0; i < 200; ++i)
        scene.addRect(5 * i, 900, 3, 3);
    const auto isThere = [&](int x) {
        return scene.items(label->mapToScene(x, 5)).contains(label);
    };
    QVERIFY(isThere(20));
    QVERIFY(!isThere(120));
    QCoreApplication::processEvents();
    label->onGkeyHoverIn();
    QVERIFY(label->textWidth() > 120);
    QVERIFY(isThere(120));
    label->onGkeyHoverOut();
    QVERIFY(!isThere(120));
}

void MagnetTextItemTest::grownLabelStandsAboveAndReturns()
{
    Label label("Throw the second grenade", 30);
    label.onGkeyHoverIn();
    QCOMPARE(label.zValue(), 100.0);
    label.onGkeyHoverOut();
    QCOMPARE(label.zValue(), 0.0);
    // To the z of its construction, not to the one that it had in between.
    label.setZValue(7);
    label.onGkeyHoverOut();
    QCOMPARE(label.zValue(), 7.0);
    label.onGkeyHoverIn();
    label.onGkeyHoverOut();
    QCOMPARE(label.zValue(), 0.0);
}

void MagnetTextItemTest::staticLabelGrowsWithAnArrow()
{
    TestPictures pictures;
    addBalloons(pictures);
    Label label("Throw the second grenade", 30, 150, true);
    label.setMacroID("{1}");
    label.onGkeyHoverIn();
    QVERIFY(label.textWidth() > 30);
    QCOMPARE(label.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(lookOf(label), QByteArray("static"));
}

void MagnetTextItemTest::setTextOnAGrownLabelLeavesItExpanded()
{
    TestPictures pictures;
    addBalloons(pictures);
    Label label("Throw the second grenade", 30);
    label.onGkeyHoverIn();
    label.setText("Go");
    QCOMPARE(label.textWidth(), 30);
    QCOMPARE(lookOf(label), QByteArray("normal_expanded"));
    QCOMPARE(label.zValue(), 100.0);
    label.onGkeyHoverOut();
    QCOMPARE(lookOf(label), QByteArray("normal"));
    QCOMPARE(label.zValue(), 0.0);
    QCOMPARE(label.textWidth(), 30);
}

void MagnetTextItemTest::repeatedHoversAreHarmless()
{
    Label label("Throw the second grenade over the wall", 30, 60);
    label.onGkeyHoverOut();
    QCOMPARE(label.textWidth(), 30);
    label.onGkeyHoverIn();
    const QRectF grown = label.boundingRect();
    label.onGkeyHoverIn();
    QCOMPARE(label.boundingRect(), grown);
    label.onGkeyHoverOut();
    label.onGkeyHoverOut();
    QCOMPARE(label.textWidth(), 30);
    QCOMPARE(label.zValue(), 0.0);
}

void MagnetTextItemTest::badWidthsAreBounded_data()
{
    QTest::addColumn<int>("collapsed");
    QTest::addColumn<int>("expanded");
    QTest::addColumn<int>("atRest");
    QTest::addColumn<int>("grown");
    QTest::newRow("none") << 0 << 0 << 0 << 0;
    QTest::newRow("negative") << -50 << -1 << 0 << 0;
    QTest::newRow("most negative") << INT_MIN << INT_MIN << 0 << 0;
    QTest::newRow("one pixel") << 1 << 1 << 1 << 1;
    QTest::newRow("expanded below collapsed") << 30 << 10 << 30 << 10;
    QTest::newRow("largest") << INT_MAX << INT_MAX << 32767 << 32767;
}

void MagnetTextItemTest::badWidthsAreBounded()
{
    QFETCH(int, collapsed);
    QFETCH(int, expanded);
    QFETCH(int, atRest);
    QFETCH(int, grown);
    TestPictures pictures;
    addBalloons(pictures);
    Label label("Throw the second grenade over the wall", collapsed, expanded);
    QCOMPARE(label.boundingRect().width(), atRest + 10.0);
    drawn(label);
    label.onGkeyHoverIn();
    QCOMPARE(label.boundingRect().width(), grown + 10.0);
    drawn(label);
    label.onGkeyHoverOut();
    QCOMPARE(label.boundingRect().width(), atRest + 10.0);
    label.setCenter(0, 0);
    QCOMPARE(label.pos().x(), -double(half(atRest)));
}

void MagnetTextItemTest::longTextsAreLaidOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("leastLines");
    QTest::newRow("one word") << QString(10000, 'W') << 400;
    QTest::newRow("words") << QString("grenade ").repeated(1250) << 200;
    QTest::newRow("right to left") << QString::fromUtf8("\u05d0\u05d1\u05d2 ").repeated(2500) << 100;
    QTest::newRow("lines") << QString("a\n").repeated(5000) << 20;
    QTest::newRow("tabs") << QString("\t").repeated(10000) << 2;
    QTest::newRow("halves of characters") << QString(10000, QChar(0xd800)) << 20;
    QTest::newRow("ampersands") << QString("&").repeated(10000) << 200;
    QTest::newRow("controls and zeros") << QString(10000, QChar(0)) << 1;
}

void MagnetTextItemTest::longTextsAreLaidOut()
{
    QFETCH(QString, text);
    QFETCH(int, leastLines);
    Label label(text, 60, 150);
    QCOMPARE(label.boundingRect().width(), 70.0);
    QVERIFY(drawn(label).height() < 60);
    label.onGkeyHoverIn();
    QVERIFY2(label.textWidth() <= 150, qPrintable(QString::number(label.textWidth())));
    QVERIFY2(linesIn(label.textHeight()) >= leastLines, qPrintable(QString::number(label.textHeight())));
    QVERIFY(label.textHeight() <= 32767);
    drawn(label);
}

void MagnetTextItemTest::fontComesBackAfterTheLastLabel()
{
    QImage first;
    {
        Label one("Jump");
        Label two("Jump");
        first = drawn(one);
    }
    Label three("Jump");
    QCOMPARE(drawn(three), first);
    {
        Label four("Jump");
    }
    // Not the last, so that the font is still there.
    three.setText("Run");
    three.setText("Jump");
    QCOMPARE(drawn(three), first);
}

void MagnetTextItemTest::filterSeesAllEvents()
{
    QGraphicsScene scene(0, 0, 100, 50);
    auto* keeper = new EventKeeper;
    auto* label = new Label("Jump");
    scene.addItem(keeper);
    scene.addItem(label);
    label->installSceneEventFilter(keeper);
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    scene.sendEvent(label, &press);
    QGraphicsSceneHoverEvent hover(QEvent::GraphicsSceneHoverEnter);
    scene.sendEvent(label, &hover);
    QCOMPARE(keeper->types,
        QVector<QEvent::Type>({QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneHoverEnter}));
}

VELTRANO_TEST_MAIN(MagnetTextItemTest)
#include "MagnetTextItemTest.moc"
