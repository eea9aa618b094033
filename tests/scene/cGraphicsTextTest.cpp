#include <cGraphicsText.h>
#include <cScaledFont.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>
#include <TextPixmap.h>

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QSignalSpy>

using SceneEvents::painted;

namespace {

constexpr int StartFlags = Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap;
const QString Sentence = QStringLiteral("Drag commands onto G-keys or profile icons");
const QString RightToLeft = QString::fromUtf8("שלום עולם");

cScaledFont startFont()
{
    return cScaledFont("Arial", 10);
}

/// What an item of that extent has to draw.
QImage rendered(const QString& text, const QFont& font, const QPen& pen, int flags, const QSize& size)
{
    return TextPixmap::render(text, font, pen, flags, size)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

class cGraphicsTextTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void emptyTextHasNoExtentAndDrawsNothing();
    void settersOfAnEmptyTextDrawNothing();
    void textIsDrawnInItsExtent();
    void startFlagsWrapAtTheStartWidth();
    void fontChangesTheExtent();
    void weightChangesTheFontAlone();
    void flagsDecideOnWrapping();
    void penColorsTheText();
    void textWithoutPenHasNoExtent();
    void widthDecidesWhereTheTextWraps_data();
    void widthDecidesWhereTheTextWraps();
    void fixedWidthIsTheLeastExtent();
    void emptyTextOfFixedWidthHasAnInvalidExtent();
    void emptiedTextDrawsNothingUntilItIsSetAgain();
    void longTextIsDrawnToItsEnd();
    void rightToLeftTextIsDrawnWhole();
    void extentIsAnnouncedToTheScene();
};

void cGraphicsTextTest::emptyTextHasNoExtentAndDrawsNothing()
{
    cGraphicsText item(nullptr);
    QVERIFY(item.text().isEmpty());
    QVERIFY(item.pen() == QPen());
    QCOMPARE(item.boundingRect(), QRectF());
    QVERIFY(inkExtent(painted(item, QSize(300, 50))).isNull());
    for (const QString& empty : {QString(), QString("")}) {
        item.setText(empty);
        QVERIFY(!item.boundingRect().isValid());
        QVERIFY(inkExtent(painted(item, QSize(300, 50))).isNull());
    }
}

void cGraphicsTextTest::settersOfAnEmptyTextDrawNothing()
{
    cGraphicsText item(nullptr);
    item.setFont(cScaledFont("Arial", 15));
    item.setFontWeight(QFont::Bold);
    item.setFlags(Qt::TextSingleLine);
    item.setPen(QPen(Qt::white));
    item.setTextWidth(100, false);
    QVERIFY(!item.boundingRect().isValid());
    QVERIFY(inkExtent(painted(item, QSize(300, 50))).isNull());
    QCOMPARE(item.pen().color(), QColor(Qt::white));
}

void cGraphicsTextTest::textIsDrawnInItsExtent()
{
    cGraphicsText item(nullptr);
    item.setText("Profiles");
    QCOMPARE(item.text(), QString("Profiles"));
    const QSize size = item.boundingRect().size().toSize();
    QCOMPARE(item.boundingRect(), QRectF(QPointF(0, 0), QSizeF(size)));
    QCOMPARE(size.height(), QFontMetrics(startFont()).height());
    QCOMPARE(painted(item, size), rendered("Profiles", startFont(), QPen(), StartFlags, size));
    QVERIFY(!inkExtent(painted(item, size)).isNull());
}

void cGraphicsTextTest::startFlagsWrapAtTheStartWidth()
{
    cGraphicsText item(nullptr);
    item.setText(Sentence.repeated(3));
    QVERIFY(item.boundingRect().width() <= 256);
    QVERIFY(item.boundingRect().width() > 200);
    QVERIFY(item.boundingRect().height() >= 2 * QFontMetrics(startFont()).height());
    const QSize size = item.boundingRect().size().toSize();
    QCOMPARE(painted(item, size), rendered(Sentence.repeated(3), startFont(), QPen(), 0x1021, size));
}

void cGraphicsTextTest::fontChangesTheExtent()
{
    cGraphicsText item(nullptr);
    item.setText("Profiles");
    const cScaledFont large("Arial", 30);
    item.setFont(large);
    QCOMPARE(item.boundingRect().height(), qreal(QFontMetrics(large).height()));
}

void cGraphicsTextTest::weightChangesTheFontAlone()
{
    cGraphicsText item(nullptr);
    item.setText("Profiles");
    item.setFontWeight(QFont::Bold);
    const QSize size = item.boundingRect().size().toSize();
    QCOMPARE(painted(item, size),
        rendered("Profiles", cScaledFont("Arial", 10, QFont::Bold), QPen(), StartFlags, size));
    QVERIFY(painted(item, size) != rendered("Profiles", startFont(), QPen(), StartFlags, size));
}

void cGraphicsTextTest::flagsDecideOnWrapping()
{
    cGraphicsText item(nullptr);
    item.setFlags(Qt::TextSingleLine);
    item.setText(Sentence);
    QCOMPARE(item.boundingRect().height(), qreal(QFontMetrics(startFont()).height()));
    QVERIFY(item.boundingRect().width() > 256);
    item.setFlags(StartFlags);
    QVERIFY(item.boundingRect().width() <= 256);
}

void cGraphicsTextTest::penColorsTheText()
{
    cGraphicsText item(nullptr);
    item.setText("MMM");
    QPen pen;
    pen.setBrush(QBrush(Qt::lightGray, Qt::SolidPattern));
    item.setPen(pen);
    QVERIFY(item.pen() == pen);
    const QSize size = item.boundingRect().size().toSize();
    QCOMPARE(painted(item, size), rendered("MMM", startFont(), pen, StartFlags, size));
    QVERIFY(!colorExtent(painted(item, size), Qt::lightGray).isNull());
}

void cGraphicsTextTest::textWithoutPenHasNoExtent()
{
    // It is measured with the painter's own pen.
    cGraphicsText item(nullptr);
    item.setText("Profiles");
    const QRectF extent = item.boundingRect();
    item.setPen(QPen(Qt::NoPen));
    QCOMPARE(item.boundingRect(), extent);
    QVERIFY(inkExtent(painted(item, QSize(100, 30))).isNull());
}

void cGraphicsTextTest::widthDecidesWhereTheTextWraps_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("narrow") << 90;
    QTest::newRow("nothing") << 0;
    QTest::newRow("negative") << -50;
    QTest::newRow("most negative") << -2147483647;
}

void cGraphicsTextTest::widthDecidesWhereTheTextWraps()
{
    QFETCH(int, width);
    cGraphicsText item(nullptr);
    item.setText("one two three four five six seven");
    const qreal height = item.boundingRect().height();
    item.setTextWidth(width, false);
    QVERIFY(item.boundingRect().width() <= qMax(width, 60));
    QVERIFY(item.boundingRect().height() >= (width > 0 ? 2 : 7) * height);
}

void cGraphicsTextTest::fixedWidthIsTheLeastExtent()
{
    cGraphicsText item(nullptr);
    item.setText("One");
    const QSizeF natural = item.boundingRect().size();
    item.setTextWidth(200, true);
    QCOMPARE(item.boundingRect(), QRectF(0, 0, 200, natural.height()));
    item.setTextWidth(200, false);
    QCOMPARE(item.boundingRect(), QRectF(QPointF(0, 0), natural));
    // A word that is wider than that is not cut off.
    item.setTextWidth(5, true);
    QCOMPARE(item.boundingRect(), QRectF(QPointF(0, 0), natural));
    item.setFlags(Qt::AlignHCenter);
    item.setTextWidth(200, true);
    const QRect ink = inkExtent(painted(item, QSize(200, 30)));
    QVERIFY(qAbs(ink.center().x() - 100) <= 2);
}

void cGraphicsTextTest::emptyTextOfFixedWidthHasAnInvalidExtent()
{
    cGraphicsText item(nullptr);
    item.setTextWidth(200, true);
    QVERIFY(!item.boundingRect().isValid());
    QVERIFY(inkExtent(painted(item, QSize(200, 30))).isNull());
}

void cGraphicsTextTest::emptiedTextDrawsNothingUntilItIsSetAgain()
{
    cGraphicsText item(nullptr);
    item.setText("Profiles");
    const QImage image = painted(item, QSize(100, 30));
    item.setText("");
    QVERIFY(!item.boundingRect().isValid());
    QVERIFY(inkExtent(painted(item, QSize(100, 30))).isNull());
    item.setText("Profiles");
    QCOMPARE(painted(item, QSize(100, 30)), image);
}

void cGraphicsTextTest::longTextIsDrawnToItsEnd()
{
    cGraphicsText item(nullptr);
    item.setText(QStringLiteral("abcdefghi ").repeated(1000));
    QCOMPARE(item.text().size(), 10000);
    const QSize size = item.boundingRect().size().toSize();
    QVERIFY(size.width() <= 256);
    QVERIFY(inkExtent(painted(item, size)).bottom() > size.height() - QFontMetrics(startFont()).height());

    item.setFlags(Qt::TextSingleLine);
    QVERIFY(item.boundingRect().width() > 10000);
    QCOMPARE(item.boundingRect().height(), qreal(QFontMetrics(startFont()).height()));

    // One word without a place to wrap.
    item.setFlags(StartFlags);
    item.setText(QString(10000, QLatin1Char('x')));
    QVERIFY(item.boundingRect().width() > 10000);
}

void cGraphicsTextTest::rightToLeftTextIsDrawnWhole()
{
    cGraphicsText item(nullptr);
    item.setText(RightToLeft);
    const QSize size = item.boundingRect().size().toSize();
    QVERIFY(size.width() > 0 && size.width() < 256);
    const QRect ink = inkExtent(painted(item, size));
    const QRect all = inkExtent(rendered(RightToLeft, startFont(), QPen(), StartFlags, QSize(256, 60)));
    QCOMPARE(ink.size(), all.size());
}

void cGraphicsTextTest::extentIsAnnouncedToTheScene()
{
    QGraphicsScene scene;
    auto* item = new cGraphicsText(nullptr);
    scene.addItem(item);
    item->setText("Profiles and commands");
    const QRectF extent = item->boundingRect();
    QCOMPARE(scene.items(QPointF(60, 5)).size(), 1);

    // What the text leaves has to be painted anew, also when nothing comes in its place.
    QSignalSpy changed(&scene, SIGNAL(changed(QList<QRectF>)));
    QTRY_VERIFY(!changed.isEmpty());
    changed.clear();
    item->setText("");
    QVERIFY(scene.items(QPointF(60, 5)).isEmpty());
    QTRY_VERIFY(!changed.isEmpty());
    QRectF region;
    for (const QRectF& part : changed.first().first().value<QList<QRectF>>())
        region |= part;
    QVERIFY(region.contains(extent));
}

VELTRANO_TEST_MAIN(cGraphicsTextTest)
#include "cGraphicsTextTest.moc"
