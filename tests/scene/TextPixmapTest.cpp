#include <cScaledFont.h>
#include <SceneConstants.h>
#include <TestCase.h>
#include <TestPictures.h>
#include <TextPixmap.h>

#include <QFontMetrics>
#include <QImage>
#include <QPen>

namespace {

constexpr int Wrapped = Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap;
const QSize Scratch(8, 8);
const QString RightToLeft = QString::fromUtf8("שלום עולם");

cScaledFont textFont()
{
    return cScaledFont(SceneConstants::TextFamily, 10);
}

} // namespace

class TextPixmapTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void singleLineIsAsHighAsTheFont();
    void wrappedTextKeepsToTheWidthOfItsArea();
    void scratchMakesNoDifference();
    void emptyTextMeasuresAsNull();
    void longTextIsMeasuredAndRendered();
    void emptySizeRendersANullPicture_data();
    void emptySizeRendersANullPicture();
    void tooLargeSizeRendersANullPicture();
    void textHasTheColorOfItsPen();
    void backgroundIsTransparentUnlessGiven();
    void textIsCutOffAtTheEdges();
    void rightToLeftTextKeepsToTheSideThatTheFlagsName();
};

void TextPixmapTest::singleLineIsAsHighAsTheFont()
{
    const QRect bounds =
        TextPixmap::measure("Commands", textFont(), Qt::TextSingleLine, QRect(0, 0, 0, 0), Scratch);
    const QFontMetrics metrics(textFont());
    QCOMPARE(bounds.height(), metrics.height());
    QVERIFY(qAbs(bounds.width() - metrics.horizontalAdvance("Commands")) <= 1);
}

void TextPixmapTest::wrappedTextKeepsToTheWidthOfItsArea()
{
    const QString text = QStringLiteral("Drag commands onto buttons or profile icons");
    const QRect wide = TextPixmap::measure(text, textFont(), Wrapped, QRect(0, 0, 1000, 0), Scratch);
    const QRect narrow = TextPixmap::measure(text, textFont(), Wrapped, QRect(0, 0, 90, 0), Scratch);
    QVERIFY(wide.width() > 90);
    QVERIFY(narrow.width() <= 90);
    QVERIFY(narrow.height() >= 2 * wide.height());
}

void TextPixmapTest::scratchMakesNoDifference()
{
    const QString text = QStringLiteral("Drag commands onto buttons");
    const QRect area(0, 0, 90, 0);
    const QRect bounds = TextPixmap::measure(text, textFont(), Wrapped, area, QSize(900, 900));
    QCOMPARE(TextPixmap::measure(text, textFont(), Wrapped, area, Scratch), bounds);
    QCOMPARE(TextPixmap::measure(text, textFont(), Wrapped, area, QSize()), bounds);
}

void TextPixmapTest::emptyTextMeasuresAsNull()
{
    QCOMPARE(TextPixmap::measure(QString(), textFont(), Wrapped, QRect(0, 0, 256, 0), Scratch), QRect());
    QCOMPARE(TextPixmap::measure("", textFont(), Wrapped, QRect(0, 0, 256, 0), Scratch), QRect());
}

void TextPixmapTest::longTextIsMeasuredAndRendered()
{
    const QString text = QStringLiteral("abcdefghi ").repeated(1000);
    const QRect bounds = TextPixmap::measure(text, textFont(), Wrapped, QRect(0, 0, 256, 0), Scratch);
    QVERIFY(bounds.width() <= 256);
    const int lines = bounds.height() / QFontMetrics(textFont()).height();
    QVERIFY2(lines > 100 && lines < 1000, qPrintable(QString::number(lines)));
    const QPixmap picture = TextPixmap::render(text, textFont(), QPen(Qt::white), Wrapped, bounds.size());
    QCOMPARE(picture.size(), bounds.size());
    const QFontMetrics metrics(textFont());
    QVERIFY(inkExtent(picture.toImage()).bottom() > bounds.height() - metrics.height());
}

void TextPixmapTest::emptySizeRendersANullPicture_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("default") << QSize();
    QTest::newRow("no width") << QSize(0, 10);
    QTest::newRow("no height") << QSize(10, 0);
    QTest::newRow("negative") << QSize(-5, 10);
}

void TextPixmapTest::emptySizeRendersANullPicture()
{
    QFETCH(QSize, size);
    QVERIFY(TextPixmap::render("text", textFont(), QPen(Qt::white), Wrapped, size).isNull());
}

void TextPixmapTest::tooLargeSizeRendersANullPicture()
{
    for (const QSize& size :
        {QSize(1 << 20, 1 << 20), QSize(2147483647, 2147483647), QSize(TextPixmap::MaxPixels + 1, 1)})
        QVERIFY(TextPixmap::render("text", textFont(), QPen(Qt::white), Wrapped, size).isNull());
}

void TextPixmapTest::textHasTheColorOfItsPen()
{
    const QColor color(180, 90, 20);
    const QImage image =
        TextPixmap::render("MMM", textFont(), QPen(color), Wrapped, QSize(100, 30)).toImage();
    bool found = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            found = found || image.pixelColor(x, y) == color;
    }
    QVERIFY(found);
}

void TextPixmapTest::backgroundIsTransparentUnlessGiven()
{
    const QPen pen(Qt::white);
    const QImage plain = TextPixmap::render(".", textFont(), pen, Wrapped, QSize(60, 30)).toImage();
    QCOMPARE(qAlpha(plain.pixel(59, 29)), 0);
    const QColor background(80, 80, 80);
    const QImage backed =
        TextPixmap::render(".", textFont(), pen, Wrapped, QSize(60, 30), background).toImage();
    QCOMPARE(backed.pixelColor(59, 29), background);
}

void TextPixmapTest::textIsCutOffAtTheEdges()
{
    const QPixmap picture =
        TextPixmap::render("WWWWWWWWWWWW", textFont(), QPen(Qt::white), Qt::TextSingleLine, QSize(30, 10));
    QCOMPARE(picture.size(), QSize(30, 10));
    QCOMPARE(inkExtent(picture.toImage()).right(), 29);
}

void TextPixmapTest::rightToLeftTextKeepsToTheSideThatTheFlagsName()
{
    const QPen pen(Qt::white);
    const QRect bounds = TextPixmap::measure(RightToLeft, textFont(), Wrapped, QRect(0, 0, 200, 0), Scratch);
    QVERIFY(bounds.width() > 0 && bounds.width() < 200);

    const QSize wider(200, bounds.height());
    const QRect left = inkExtent(TextPixmap::render(RightToLeft, textFont(), pen, Wrapped, wider).toImage());
    const QRect right =
        inkExtent(TextPixmap::render(RightToLeft, textFont(), pen, Qt::AlignRight, wider).toImage());
    QVERIFY(left.left() < 5);
    QVERIFY(right.right() > 194);
    // The measured size is enough for all of the text.
    const QRect exact =
        inkExtent(TextPixmap::render(RightToLeft, textFont(), pen, Wrapped, bounds.size()).toImage());
    QCOMPARE(exact.size(), left.size());
}

VELTRANO_TEST_MAIN(TextPixmapTest)
#include "TextPixmapTest.moc"
