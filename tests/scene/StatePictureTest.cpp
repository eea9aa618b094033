#include <StatePicture.h>
#include <TestCase.h>

class StatePictureTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pictureOfAState_data();
    void pictureOfAState();
    void pressedPictureCanBeLeftOut();
};

void StatePictureTest::pictureOfAState_data()
{
    // Pictures are told apart by their width; 0 is a null one.
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("normal");
    QTest::addColumn<int>("hover");
    QTest::addColumn<int>("pressed");
    QTest::addColumn<int>("chosen");
    QTest::newRow("resting") << 1 << 10 << 20 << 30 << 10;
    QTest::newRow("under the pointer") << 5 << 10 << 20 << 30 << 20;
    QTest::newRow("toggled on") << 3 << 10 << 20 << 30 << 30;
    QTest::newRow("toggled on under the pointer") << 7 << 10 << 20 << 30 << 30;
    QTest::newRow("no state at all") << 0 << 10 << 20 << 30 << 10;
    QTest::newRow("other bits") << 0x78 << 10 << 20 << 30 << 10;
    QTest::newRow("toggled on without a picture") << 3 << 10 << 20 << 0 << 10;
    QTest::newRow("toggled on under the pointer without a picture") << 7 << 10 << 20 << 0 << 20;
    QTest::newRow("under the pointer without a picture") << 5 << 10 << 0 << 30 << 10;
    QTest::newRow("no normal picture") << 1 << 0 << 20 << 30 << 0;
    QTest::newRow("no picture") << 7 << 0 << 0 << 0 << 0;
}

void StatePictureTest::pictureOfAState()
{
    QFETCH(int, state);
    QFETCH(int, normal);
    QFETCH(int, hover);
    QFETCH(int, pressed);
    QFETCH(int, chosen);
    const auto picture = [](int width) {
        return width ? QPixmap(width, 1) : QPixmap();
    };
    QCOMPARE(StatePicture::choose(state, picture(normal), picture(hover), picture(pressed)).width(), chosen);
}

void StatePictureTest::pressedPictureCanBeLeftOut()
{
    using namespace StatePicture;
    QCOMPARE(choose(UnderPointer, QPixmap(10, 1), QPixmap(20, 1)).width(), 20);
    QCOMPARE(choose(Resting | ToggledOn, QPixmap(10, 1), QPixmap(20, 1)).width(), 10);
}

VELTRANO_TEST_MAIN(StatePictureTest)
#include "StatePictureTest.moc"
