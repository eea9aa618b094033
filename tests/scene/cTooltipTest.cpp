#include <cScaledFont.h>
#include <cTooltip.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <TestCase.h>

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QPointer>
#include <QTimer>

namespace {

const QColor Text(230, 230, 230);
const QColor Background(80, 80, 80);
constexpr int Margin = 5;

QTimer* timerOf(cTooltip& tooltip)
{
    return tooltip.findChild<QTimer*>();
}

QSize sizeOf(const cTooltip& tooltip)
{
    return tooltip.boundingRect().size().toSize();
}

/// What the tip draws, with room for the lines that lie outside.
QImage painted(cTooltip& tooltip)
{
    return SceneEvents::painted(tooltip, sizeOf(tooltip) + QSize(3, 3));
}

} // namespace

class cTooltipTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsSlotOnly();
    void isHiddenAtFirst();
    void showsAtTheGivenPlace();
    void textIsInItsFont();
    void boundingRectIsTheTextWithItsMargin();
    void frameIsDrawnInTheColorOfTheText();
    void textStandsInsideTheMargin();
    void hidesWhenItsTimeIsOver();
    void secondTipReplacesTheFirst();
    void emptyTextLeavesTheFrame();
    void lineBreaksDoNotBreakTheLine();
    void veryLongTextIsShown();
    void rightToLeftTextIsShown();
    void newTextIsPaintedInTheScene();
    void deletedTipIsForgotten();
};

void cTooltipTest::hasItsSlotOnly()
{
    const QMetaObject& meta = cTooltip::staticMetaObject;
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList({"timerOut()"}));
    QCOMPARE(meta.method(meta.methodOffset()).access(), QMetaMethod::Private);
    QCOMPARE(MetaMembers::signalsOf(meta), QStringList());
}

void cTooltipTest::isHiddenAtFirst()
{
    cTooltip tooltip;
    QVERIFY(!tooltip.isVisible());
    QVERIFY(!timerOf(tooltip)->isActive());
    QCOMPARE(tooltip.boundingRect(), QRectF(0, 0, 2 * Margin, 2 * Margin));
}

void cTooltipTest::showsAtTheGivenPlace()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(12.5, 30), "G1");
    QVERIFY(tooltip.isVisible());
    QCOMPARE(tooltip.pos(), QPointF(12.5, 30));
    QCOMPARE(tooltip.zValue(), 200.0);
    QVERIFY(timerOf(tooltip)->isActive());
    QCOMPARE(timerOf(tooltip)->interval(), 2000);
}

void cTooltipTest::textIsInItsFont()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(), "Assign");
    const QFontMetrics metrics(cScaledFont("Arial", 9, 75));
    const QSize text = sizeOf(tooltip) - QSize(2 * Margin, 2 * Margin);
    QCOMPARE(text.height(), metrics.height());
    QCOMPARE(text.width(), metrics.size(Qt::TextSingleLine, "Assign").width());
}

void cTooltipTest::boundingRectIsTheTextWithItsMargin()
{
    cTooltip narrow;
    narrow.showTip(QPointF(), "i");
    cTooltip wide;
    wide.showTip(QPointF(), "iiiiiiiiii");
    QCOMPARE(narrow.boundingRect().topLeft(), QPointF(0, 0));
    QCOMPARE(narrow.boundingRect().height(), wide.boundingRect().height());
    QVERIFY(narrow.boundingRect().width() < wide.boundingRect().width());
}

void cTooltipTest::frameIsDrawnInTheColorOfTheText()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(), "Assign");
    const QImage image = painted(tooltip);
    const int w = sizeOf(tooltip).width();
    const int h = sizeOf(tooltip).height();
    for (const QPoint& corner : {QPoint(0, 0), QPoint(w, 0), QPoint(0, h), QPoint(w, h)})
        QCOMPARE(image.pixelColor(corner), Text);
    for (int x = 0; x <= w; ++x) {
        QCOMPARE(image.pixelColor(x, 0), Text);
        QCOMPARE(image.pixelColor(x, h), Text);
    }
    for (int y = 0; y <= h; ++y) {
        QCOMPARE(image.pixelColor(0, y), Text);
        QCOMPARE(image.pixelColor(w, y), Text);
    }
    QCOMPARE(image.pixelColor(1, 1), Background);
    QCOMPARE(image.pixelColor(w - 1, h - 1), Background);
    QCOMPARE(image.pixelColor(w + 1, h / 2).alpha(), 0);
    QCOMPARE(image.pixelColor(w / 2, h + 1).alpha(), 0);
}

void cTooltipTest::textStandsInsideTheMargin()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(), "HHH");
    const QImage image = painted(tooltip);
    const QRect inside(QPoint(1, 1), sizeOf(tooltip) - QSize(1, 1));
    const QRect area(QPoint(Margin, Margin), sizeOf(tooltip) - QSize(2 * Margin, 2 * Margin));
    int textPixels = 0;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (image.pixelColor(x, y) == Background)
                continue;
            QVERIFY2(area.contains(x, y), qPrintable(QStringLiteral("%1, %2").arg(x).arg(y)));
            ++textPixels;
        }
    }
    QVERIFY(textPixels > 10);
}

void cTooltipTest::hidesWhenItsTimeIsOver()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(), "Assign");
    timerOf(tooltip)->start(0);
    QTRY_VERIFY(!tooltip.isVisible());
    QVERIFY(!timerOf(tooltip)->isActive());
}

void cTooltipTest::secondTipReplacesTheFirst()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(1, 1), "A long text for a tip");
    const qreal width = tooltip.boundingRect().width();
    timerOf(tooltip)->start(1000000);
    tooltip.showTip(QPointF(2, 2), "Tip");
    QVERIFY(tooltip.isVisible());
    QCOMPARE(tooltip.pos(), QPointF(2, 2));
    QVERIFY(tooltip.boundingRect().width() < width);
    QCOMPARE(timerOf(tooltip)->interval(), 2000);
    QCOMPARE(tooltip.findChildren<QTimer*>().size(), 1);
}

void cTooltipTest::emptyTextLeavesTheFrame()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(), QString());
    QVERIFY(tooltip.isVisible());
    QCOMPARE(tooltip.boundingRect().width(), qreal(2 * Margin));
    QCOMPARE(painted(tooltip).pixelColor(1, 1), Background);
}

void cTooltipTest::lineBreaksDoNotBreakTheLine()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(), "one");
    const qreal height = tooltip.boundingRect().height();
    tooltip.showTip(QPointF(), "one\ntwo\nthree");
    QCOMPARE(tooltip.boundingRect().height(), height);
}

void cTooltipTest::veryLongTextIsShown()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(), QString(10000, 'W'));
    QVERIFY(tooltip.isVisible());
    QVERIFY(tooltip.boundingRect().width() > 10000);
    const QImage image = SceneEvents::painted(tooltip, QSize(200, sizeOf(tooltip).height()));
    QCOMPARE(image.pixelColor(1, 1), Background);
}

void cTooltipTest::rightToLeftTextIsShown()
{
    cTooltip tooltip;
    tooltip.showTip(QPointF(), QString::fromUtf8("שלום עולם"));
    const QImage image = painted(tooltip);
    const QRect area(QPoint(Margin, Margin), sizeOf(tooltip) - QSize(2 * Margin, 2 * Margin));
    QVERIFY(area.width() > 10);
    bool leftHalf = false;
    bool rightHalf = false;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixelColor(x, y) != Background)
                (x < area.center().x() ? leftHalf : rightHalf) = true;
        }
    }
    QVERIFY(leftHalf);
    QVERIFY(rightHalf);
}

void cTooltipTest::newTextIsPaintedInTheScene()
{
    QGraphicsScene scene(0, 0, 300, 100);
    auto* tooltip = new cTooltip;
    scene.addItem(tooltip);
    QSignalSpy changes(&scene, SIGNAL(changed(QList<QRectF>)));
    tooltip->showTip(QPointF(), "Tip");
    QTRY_VERIFY(!changes.isEmpty());
    changes.clear();
    tooltip->showTip(QPointF(), "Another tip that is wider");
    QTRY_VERIFY(!changes.isEmpty());
    QCOMPARE(scene.items(QPointF(100, 10)), QList<QGraphicsItem*>({tooltip}));
}

void cTooltipTest::deletedTipIsForgotten()
{
    QPointer<QTimer> timer;
    {
        cTooltip tooltip;
        tooltip.showTip(QPointF(), "Tip");
        timer = timerOf(tooltip);
    }
    QVERIFY(!timer);
}

VELTRANO_TEST_MAIN(cTooltipTest)
#include "cTooltipTest.moc"
