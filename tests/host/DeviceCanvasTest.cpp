#include "DeviceCanvas.h"

#include <TestCase.h>

#include <QBackingStore>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>

namespace {

/// A small square, from which a line leads out of its bounds.
class SquareWithLine : public QGraphicsItem
{
public:
    QRectF boundingRect() const override { return QRectF(0, 0, 10, 10); }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        painter->fillRect(boundingRect(), Qt::red);
        painter->fillRect(QRectF(10, 4, 100, 2), Qt::red);
    }
};

/// What stands on the screen, as it was painted piece by piece.
QImage shown(const DeviceCanvas& canvas)
{
    return static_cast<const QImage*>(canvas.backingStore()->paintDevice())->copy();
}

} // namespace

class DeviceCanvasTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void changeBesideAnItemLeavesItsLineWhole();
};

void DeviceCanvasTest::changeBesideAnItemLeavesItsLineWhole()
{
    DeviceCanvas canvas;
    auto* const glow = canvas.scene()->addRect(QRectF(150, 80, 40, 40), Qt::NoPen, QColor(Qt::blue));
    auto* const square = new SquareWithLine;
    square->setPos(100, 100);
    canvas.scene()->addItem(square);
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    QTRY_COMPARE(shown(canvas).pixelColor(155, 85), QColor(Qt::blue));
    QCOMPARE(shown(canvas).pixelColor(155, 105), QColor(Qt::red));

    glow->setBrush(QColor(Qt::green));
    QTRY_COMPARE(shown(canvas).pixelColor(155, 85), QColor(Qt::green));
    for (int x = 100; x < 210; ++x)
        QCOMPARE(shown(canvas).pixelColor(x, 105), QColor(Qt::red));
}

QTEST_MAIN(DeviceCanvasTest)
#include "DeviceCanvasTest.moc"
