#include <cScaledFont.h>
#include <ScreenDpi.h>
#include <TestCase.h>

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>

#include <limits>

class cScaledFontTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pointSizeFollowsTheScreen_data();
    void pointSizeFollowsTheScreen();
    void designSizeIsTwelveByDefault();
    void weightAndSlantAreLeftAloneByDefault();
    void weightAndSlantAreSet();
    void sizeNotAboveZeroCountsAsTheDefault_data();
    void sizeNotAboveZeroCountsAsTheDefault();
    void plainCopyKeepsTheScaledSize();
    void resolutionIsThatOfTheScreen();
};

void cScaledFontTest::pointSizeFollowsTheScreen_data()
{
    QTest::addColumn<qreal>("designSize");
    QTest::newRow("label") << 8.0;
    QTest::newRow("title") << 15.0;
    QTest::newRow("fraction") << 10.5;
}

void cScaledFontTest::pointSizeFollowsTheScreen()
{
    QFETCH(qreal, designSize);
    const cScaledFont font("Arial", designSize);
    QCOMPARE(font.family(), QString("Arial"));
    QCOMPARE(font.designSize(), designSize);
    QCOMPARE(font.pointSizeF(), designSize * 96.0 / QGuiApplication::primaryScreen()->logicalDotsPerInchX());
}

void cScaledFontTest::designSizeIsTwelveByDefault()
{
    QCOMPARE(cScaledFont("Arial").designSize(), 12.0);
    QCOMPARE(cScaledFont("Arial").pointSizeF(), 12.0 * DesignDpi / screenHorizontalDpi());
}

void cScaledFontTest::weightAndSlantAreLeftAloneByDefault()
{
    const cScaledFont font("Arial", 8.0);
    QCOMPARE(font.weight(), QFont("Arial").weight());
    QVERIFY(!font.italic());
}

void cScaledFontTest::weightAndSlantAreSet()
{
    const cScaledFont font("Arial", 8.0, QFont::Bold, true);
    QCOMPARE(font.weight(), 75);
    QVERIFY(font.italic());
    QCOMPARE(cScaledFont("Arial", 8.0, QFont::Thin).weight(), 0);
}

void cScaledFontTest::sizeNotAboveZeroCountsAsTheDefault_data()
{
    QTest::addColumn<qreal>("designSize");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative") << -8.0;
    QTest::newRow("no number") << std::numeric_limits<qreal>::quiet_NaN();
}

void cScaledFontTest::sizeNotAboveZeroCountsAsTheDefault()
{
    QFETCH(qreal, designSize);
    cScaledFont font("Arial", 8.0);
    font.setDesignSize(designSize);
    QCOMPARE(font.designSize(), 12.0);
    QCOMPARE(font.pointSizeF(), 12.0 * DesignDpi / screenHorizontalDpi());
}

void cScaledFontTest::plainCopyKeepsTheScaledSize()
{
    const cScaledFont scaled("Arial", 9.0, QFont::Bold);
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization, cppcoreguidelines-slicing): what is tested
    const QFont plain = scaled;
    QCOMPARE(plain.pointSizeF(), scaled.pointSizeF());
    QCOMPARE(plain.weight(), scaled.weight());
}

void cScaledFontTest::resolutionIsThatOfTheScreen()
{
    QCOMPARE(screenHorizontalDpi(), QGuiApplication::primaryScreen()->logicalDotsPerInchX());
}

VELTRANO_TEST_MAIN(cScaledFontTest)
#include "cScaledFontTest.moc"
