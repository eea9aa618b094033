#include <FilmStrip.h>
#include <TestCase.h>

#include <limits>

class FilmStripTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void framesAreCounted_data();
    void framesAreCounted();
    void stepGoesRound();
    void singleFrameStaysFirst();
    void stepWithoutFramesDoesNothing();
    void stepComesBackFromAnyFrame();
};

void FilmStripTest::framesAreCounted_data()
{
    QTest::addColumn<int>("stripWidth");
    QTest::addColumn<int>("frameWidth");
    QTest::addColumn<int>("count");
    QTest::newRow("whole frames") << 841 << 29 << 29;
    QTest::newRow("rest is left out") << 65 << 64 << 1;
    QTest::newRow("narrower than a frame") << 63 << 64 << 0;
    QTest::newRow("no picture") << 0 << 64 << 0;
    QTest::newRow("no width") << 64 << 0 << 0;
    QTest::newRow("negative width") << 64 << -2 << 0;
}

void FilmStripTest::framesAreCounted()
{
    QFETCH(int, stripWidth);
    QFETCH(int, frameWidth);
    QTEST(FilmStrip(stripWidth, frameWidth).count(), "count");
}

void FilmStripTest::stepGoesRound()
{
    FilmStrip strip(30, 10);
    QList<int> frames;
    for (int i = 0; i < 5; ++i) {
        frames.append(strip.current());
        strip.step();
    }
    QCOMPARE(frames, QList<int>({0, 1, 2, 0, 1}));
}

void FilmStripTest::singleFrameStaysFirst()
{
    FilmStrip strip = FilmStrip::singleFrame();
    QCOMPARE(strip.count(), 1);
    strip.step();
    QCOMPARE(strip.current(), 0);
}

void FilmStripTest::stepWithoutFramesDoesNothing()
{
    FilmStrip strip(5, 10);
    strip.step();
    QCOMPARE(strip.current(), 0);
}

void FilmStripTest::stepComesBackFromAnyFrame()
{
    FilmStrip strip(30, 10);
    strip.setCurrent(std::numeric_limits<int>::max());
    strip.step();
    QCOMPARE(strip.current(), 2);
    strip.setCurrent(-2);
    strip.step();
    strip.step();
    QCOMPARE(strip.current(), 0);
}

VELTRANO_TEST_MAIN(FilmStripTest)
#include "FilmStripTest.moc"
