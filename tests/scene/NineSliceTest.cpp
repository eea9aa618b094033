#include <NineSlice.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QImage>
#include <QMargins>
#include <QPainter>

namespace {

/// Corners of 4 by 3, edges of 5 along the frame, each in a colour of its own.
NineSlice markedPieces()
{
    NineSlice pieces;
    pieces.topLeft = filledPicture(4, 3, Qt::red);
    pieces.top = filledPicture(5, 3, Qt::green);
    pieces.topRight = filledPicture(4, 3, Qt::blue);
    pieces.left = filledPicture(4, 5, Qt::cyan);
    pieces.center = filledPicture(2, 2, Qt::white);
    pieces.right = filledPicture(4, 5, Qt::magenta);
    pieces.bottomLeft = filledPicture(4, 3, Qt::yellow);
    pieces.bottom = filledPicture(5, 3, Qt::gray);
    pieces.bottomRight = filledPicture(4, 3, Qt::darkRed);
    return pieces;
}

QImage drawn(const NineSlice& pieces, const QRect& target, const QMargins& insets)
{
    QImage image(60, 50, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    pieces.draw(painter, target, insets);
    return image;
}

} // namespace

class NineSliceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void eachPieceStandsInItsPlace_data();
    void eachPieceStandsInItsPlace();
    void frameFillsTheTargetAndNoMore();
    void nullPiecesDrawNothing();
    void cornersAreNotScaled();
    void targetWithoutRoomHasCornersAlone();
    void targetSmallerThanItsInsetsStretchesNothing();
    void rightEdgeLiesOverTheCornerWhereTheyMeet();
};

void NineSliceTest::eachPieceStandsInItsPlace_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QRect>("place");
    // The target is 30 by 20 at (7, 11), its inner rectangle 22 by 14 at (11, 14).
    QTest::newRow("top left") << QColor(Qt::red) << QRect(7, 11, 4, 3);
    QTest::newRow("top") << QColor(Qt::green) << QRect(11, 11, 22, 3);
    QTest::newRow("top right") << QColor(Qt::blue) << QRect(33, 11, 4, 3);
    QTest::newRow("left") << QColor(Qt::cyan) << QRect(7, 14, 4, 14);
    QTest::newRow("center") << QColor(Qt::white) << QRect(11, 14, 22, 14);
    QTest::newRow("right") << QColor(Qt::magenta) << QRect(33, 14, 4, 14);
    QTest::newRow("bottom left") << QColor(Qt::yellow) << QRect(7, 28, 4, 3);
    QTest::newRow("bottom") << QColor(Qt::gray) << QRect(11, 28, 22, 3);
    QTest::newRow("bottom right") << QColor(Qt::darkRed) << QRect(33, 28, 4, 3);
}

void NineSliceTest::eachPieceStandsInItsPlace()
{
    QFETCH(QColor, color);
    QFETCH(QRect, place);
    const QImage image = drawn(markedPieces(), QRect(7, 11, 30, 20), QMargins(4, 3, 4, 3));
    QVERIFY2(isFilled(image, place, color), qPrintable(QTest::toString(colorExtent(image, color))));
}

void NineSliceTest::frameFillsTheTargetAndNoMore()
{
    const QRect target(7, 11, 30, 20);
    const QImage image = drawn(markedPieces(), target, QMargins(4, 3, 4, 3));
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 0)
                continue;
            QVERIFY(target.contains(x, y));
            ++painted;
        }
    }
    QCOMPARE(painted, target.width() * target.height());
}

void NineSliceTest::nullPiecesDrawNothing()
{
    QVERIFY(inkExtent(drawn(NineSlice(), QRect(7, 11, 30, 20), QMargins(4, 3, 4, 3))).isNull());

    NineSlice pieces = markedPieces();
    pieces.left = QPixmap();
    const QImage image = drawn(pieces, QRect(7, 11, 30, 20), QMargins(4, 3, 4, 3));
    QVERIFY(isFilled(image, QRect(11, 14, 22, 14), Qt::white));
    QCOMPARE(qAlpha(image.pixel(7, 20)), 0);
}

void NineSliceTest::cornersAreNotScaled()
{
    NineSlice pieces;
    pieces.topLeft = filledPicture(4, 3, Qt::red);
    const QImage image = drawn(pieces, QRect(0, 0, 40, 40), QMargins(9, 9, 9, 9));
    QVERIFY(isFilled(image, QRect(0, 0, 4, 3), Qt::red));
}

void NineSliceTest::targetWithoutRoomHasCornersAlone()
{
    const QImage image = drawn(markedPieces(), QRect(10, 10, 8, 6), QMargins(4, 3, 4, 3));
    QVERIFY(isFilled(image, QRect(10, 10, 4, 3), Qt::red));
    QVERIFY(isFilled(image, QRect(14, 10, 4, 3), Qt::blue));
    QVERIFY(isFilled(image, QRect(10, 13, 4, 3), Qt::yellow));
    QVERIFY(isFilled(image, QRect(14, 13, 4, 3), Qt::darkRed));
    for (const Qt::GlobalColor color : {Qt::green, Qt::cyan, Qt::white, Qt::magenta, Qt::gray})
        QVERIFY(colorExtent(image, color).isNull());
}

void NineSliceTest::targetSmallerThanItsInsetsStretchesNothing()
{
    const QImage image = drawn(markedPieces(), QRect(10, 10, 6, 4), QMargins(4, 3, 4, 3));
    for (const Qt::GlobalColor color : {Qt::green, Qt::cyan, Qt::white, Qt::magenta, Qt::gray})
        QVERIFY(colorExtent(image, color).isNull());
    QCOMPARE(colorExtent(image, Qt::darkRed), QRect(12, 11, 4, 3));
    drawn(markedPieces(), QRect(), QMargins(4, 3, 4, 3));
}

void NineSliceTest::rightEdgeLiesOverTheCornerWhereTheyMeet()
{
    NineSlice pieces = markedPieces();
    // Taller than its inset, so that it reaches into the edge below it.
    pieces.topRight = filledPicture(4, 8, Qt::blue);
    const QImage image = drawn(pieces, QRect(7, 11, 30, 20), QMargins(4, 3, 4, 3));
    QVERIFY(isFilled(image, QRect(33, 14, 4, 14), Qt::magenta));
}

VELTRANO_TEST_MAIN(NineSliceTest)
#include "NineSliceTest.moc"
