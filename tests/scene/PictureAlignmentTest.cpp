#include <PictureAlignment.h>
#include <TestCase.h>

#include <QPoint>
#include <QSize>

class PictureAlignmentTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void placeInABoundary_data();
    void placeInABoundary();
    void halvesOfAnOverhangAreTruncatedTowardsZero();
};

void PictureAlignmentTest::placeInABoundary_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QPoint>("place");
    // A slack of 15 by 9.
    QTest::newRow("top left") << 0 << QPoint(0, 0);
    QTest::newRow("top centre") << 1 << QPoint(7, 0);
    QTest::newRow("top right") << 2 << QPoint(15, 0);
    QTest::newRow("right middle") << 3 << QPoint(15, 4);
    QTest::newRow("bottom right") << 4 << QPoint(15, 9);
    QTest::newRow("bottom centre") << 5 << QPoint(7, 9);
    QTest::newRow("bottom left") << 6 << QPoint(0, 9);
    QTest::newRow("left middle") << 7 << QPoint(0, 4);
    QTest::newRow("centre") << -1 << QPoint(7, 4);
    QTest::newRow("past the table") << 8 << QPoint(7, 4);
    QTest::newRow("far below the table") << -2147483647 << QPoint(7, 4);
}

void PictureAlignmentTest::placeInABoundary()
{
    QFETCH(int, alignment);
    QFETCH(QPoint, place);
    QCOMPARE(PictureAlignment::place(alignment, QSize(25, 11), QSize(40, 20)), place);
}

void PictureAlignmentTest::halvesOfAnOverhangAreTruncatedTowardsZero()
{
    QCOMPARE(PictureAlignment::place(PictureAlignment::Center, QSize(15, 14), QSize(10, 11)), QPoint(-2, -1));
    QCOMPARE(
        PictureAlignment::place(PictureAlignment::BottomRight, QSize(15, 14), QSize(10, 11)), QPoint(-5, -3));
}

VELTRANO_TEST_MAIN(PictureAlignmentTest)
#include "PictureAlignmentTest.moc"
