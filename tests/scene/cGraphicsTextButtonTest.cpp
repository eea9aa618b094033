#include <cGraphicsTextButton.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <limits>

using SceneEvents::painted;

namespace {

const QSize Canvas(120, 90);

cJsonValue extent(int width, int height)
{
    cJsonValue record;
    record["width"] = width;
    record["height"] = height;
    return record;
}

/// What the caption alone looks like in that rectangle.
QImage caption(const QString& text, const QRectF& place, int alignment, const QFont& font = QFont())
{
    QImage image(Canvas, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(place, alignment | Qt::TextWordWrap, text);
    return image;
}

} // namespace

class cGraphicsTextButtonTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_pictures.reset(new TestPictures); }
    void cleanup() { m_pictures.reset(); }

    void constructorsGiveTheSameStart();
    void descriptionReachesTheButtonToo();
    void captionFillsWhatThePictureLeaves();
    void marginsMoveTheCaption();
    void captionIsCenteredUnlessDescribed_data();
    void captionIsCenteredUnlessDescribed();
    void captionWrapsAtWords();
    void captionIsDrawnInThePaintersFont();
    void painterIsLeftAsItWas();
    void emptyCaptionDrawsThePictureAlone();
    void captionIsDrawnWithoutAPicture();
    void valuesOfAnotherTypeAreHarmless_data();
    void valuesOfAnotherTypeAreHarmless();
    void extremeMarginsDrawNoCaption();
    void longCaptionIsCutOffAtTheBoundary();
    void rightToLeftCaptionIsDrawn();

private:
    cJsonValue description(const QString& text);

    QScopedPointer<TestPictures> m_pictures;
};

/// A red picture of 30 by 20 at the top left of 100 by 60.
cJsonValue cGraphicsTextButtonTest::description(const QString& text)
{
    cJsonValue record;
    record["normal"] = m_pictures->add("normal.png", filledPicture(30, 20, Qt::red));
    record["boundary"] = extent(100, 60);
    record["alignment"] = 0;
    record["text"] = text;
    return record;
}

void cGraphicsTextButtonTest::constructorsGiveTheSameStart()
{
    const cGraphicsTextButton plain(nullptr);
    QVERIFY(plain.text().isEmpty());
    QVERIFY(plain.font() == QFont());
    QVERIFY(plain.acceptHoverEvents());
    QCOMPARE(plain.boundingRect(), QRectF());

    cGraphicsTextButton button(QString("Import"), nullptr);
    QCOMPARE(button.text(), QString("Import"));
    QVERIFY(button.acceptHoverEvents());
    button.setBoundarySize(100, 60);
    QCOMPARE(button.boundingRect(), QRectF(0, 0, 100, 60));
    QCOMPARE(painted(button, Canvas), caption("Import", QRectF(0, 0, 100, 60), Qt::AlignCenter));
}

void cGraphicsTextButtonTest::descriptionReachesTheButtonToo()
{
    cJsonValue record = description("Import");
    record["hover"] = m_pictures->add("hover.png", filledPicture(30, 20, Qt::green));
    record["tooltip"] = "Import/Export";
    cGraphicsTextButton button(record, nullptr);
    QCOMPARE(button.toolTip(), QString("Import/Export"));
    QCOMPARE(button.boundingRect(), QRectF(0, 0, 100, 60));
    QVERIFY(isFilled(painted(button, Canvas), QRect(0, 0, 30, 20), Qt::red));
    button.setState(5);
    QVERIFY(isFilled(painted(button, Canvas), QRect(0, 0, 30, 20), Qt::green));
}

void cGraphicsTextButtonTest::captionFillsWhatThePictureLeaves()
{
    cGraphicsTextButton button(description("Import"), nullptr);
    QImage expected = caption("Import", QRectF(0, 20, 100, 40), Qt::AlignCenter);
    QPainter(&expected).fillRect(0, 0, 30, 20, Qt::red);
    QCOMPARE(painted(button, Canvas), expected);
    const QRect ink = inkExtent(caption("Import", QRectF(0, 20, 100, 40), Qt::AlignCenter));
    QVERIFY(qAbs(ink.center().x() - 50) <= 2);
    QVERIFY(QRect(0, 20, 100, 40).contains(ink));
}

void cGraphicsTextButtonTest::marginsMoveTheCaption()
{
    cJsonValue record = description("Import");
    record["imagemargin"] = 6;
    record["textmargin"] = 10;
    record["textalignment"] = int(Qt::AlignTop | Qt::AlignLeft);
    cGraphicsTextButton top(record, nullptr);
    QImage expected = caption("Import", QRectF(0, 26, 100, 30), Qt::AlignTop | Qt::AlignLeft);
    QPainter(&expected).fillRect(0, 0, 30, 20, Qt::red);
    QCOMPARE(painted(top, Canvas), expected);

    // The lower end shows the margin of the text.
    record["textalignment"] = int(Qt::AlignBottom | Qt::AlignLeft);
    cGraphicsTextButton bottom(record, nullptr);
    expected = caption("Import", QRectF(0, 26, 100, 30), Qt::AlignBottom | Qt::AlignLeft);
    QPainter(&expected).fillRect(0, 0, 30, 20, Qt::red);
    QCOMPARE(painted(bottom, Canvas), expected);
}

void cGraphicsTextButtonTest::captionIsCenteredUnlessDescribed_data()
{
    QTest::addColumn<int>("alignment");
    QTest::newRow("absent") << -1;
    QTest::newRow("left") << int(Qt::AlignLeft | Qt::AlignVCenter);
    QTest::newRow("right bottom") << int(Qt::AlignRight | Qt::AlignBottom);
    QTest::newRow("none") << 0;
}

void cGraphicsTextButtonTest::captionIsCenteredUnlessDescribed()
{
    QFETCH(int, alignment);
    cJsonValue record = description("Import");
    if (alignment >= 0)
        record["textalignment"] = alignment;
    cGraphicsTextButton button(record, nullptr);
    QImage expected = caption("Import", QRectF(0, 20, 100, 40), alignment >= 0 ? alignment : 0x84);
    QPainter(&expected).fillRect(0, 0, 30, 20, Qt::red);
    QCOMPARE(painted(button, Canvas), expected);
}

void cGraphicsTextButtonTest::captionWrapsAtWords()
{
    const int line = QFontMetrics(QFont()).height();
    cGraphicsTextButton button(description("Import profiles now"), nullptr);
    button.setNormalPixmap(QPixmap());
    button.setBoundarySize(70, 90);
    QVERIFY(inkExtent(painted(button, Canvas)).height() > line);
}

void cGraphicsTextButtonTest::captionIsDrawnInThePaintersFont()
{
    cGraphicsTextButton button(description("Import"), nullptr);
    QFont own;
    own.setPointSize(30);
    const QImage before = painted(button, Canvas);
    button.setFont(own);
    QVERIFY(button.font() == own);
    QCOMPARE(painted(button, Canvas), before);

    QImage image(Canvas, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QFont small;
    small.setPointSize(5);
    QPainter painter(&image);
    painter.setFont(small);
    const QStyleOptionGraphicsItem option;
    button.setNormalPixmap(QPixmap());
    button.paint(&painter, &option, nullptr);
    painter.end();
    QCOMPARE(image, caption("Import", QRectF(0, 0, 100, 60), Qt::AlignCenter, small));
}

void cGraphicsTextButtonTest::painterIsLeftAsItWas()
{
    cGraphicsTextButton button(description("Import"), nullptr);
    QImage image(Canvas, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setPen(Qt::green);
    painter.setBrush(Qt::blue);
    painter.setBackgroundMode(Qt::OpaqueMode);
    const QStyleOptionGraphicsItem option;
    button.paint(&painter, &option, nullptr);
    QCOMPARE(painter.pen().color(), QColor(Qt::green));
    QCOMPARE(painter.brush().color(), QColor(Qt::blue));
    QCOMPARE(painter.backgroundMode(), Qt::OpaqueMode);
}

void cGraphicsTextButtonTest::emptyCaptionDrawsThePictureAlone()
{
    cGraphicsTextButton button(description(""), nullptr);
    QCOMPARE(inkExtent(painted(button, Canvas)), QRect(0, 0, 30, 20));
    button.setText("Import");
    QVERIFY(inkExtent(painted(button, Canvas)).bottom() > 20);
    button.setText(QString());
    QCOMPARE(inkExtent(painted(button, Canvas)), QRect(0, 0, 30, 20));
}

void cGraphicsTextButtonTest::captionIsDrawnWithoutAPicture()
{
    cGraphicsTextButton button(nullptr);
    button.setText("Import");
    button.setBoundarySize(100, 60);
    QCOMPARE(painted(button, Canvas), caption("Import", QRectF(0, 0, 100, 60), Qt::AlignCenter));
}

void cGraphicsTextButtonTest::valuesOfAnotherTypeAreHarmless_data()
{
    QTest::addColumn<QString>("key");
    for (const char* key : {"text", "imagemargin", "textmargin", "textalignment"})
        QTest::newRow(key) << QString::fromLatin1(key);
}

void cGraphicsTextButtonTest::valuesOfAnotherTypeAreHarmless()
{
    QFETCH(QString, key);
    cJsonValue array;
    array.append(1);
    cJsonValue object;
    object["x"] = 1;
    for (const cJsonValue& value : {cJsonValue(), array, object}) {
        cJsonValue record = description("Import");
        record[key] = value;
        cGraphicsTextButton button(record, nullptr);
        const int alignment = key == "textalignment" ? 0 : 0x84;
        const QString text = key == "text" ? QString() : QStringLiteral("Import");
        QImage expected = caption(text, QRectF(0, 20, 100, 40), alignment);
        QPainter(&expected).fillRect(0, 0, 30, 20, Qt::red);
        QCOMPARE(button.text(), text);
        QCOMPARE(painted(button, Canvas), expected);
    }
    cJsonValue record = description("Import");
    record["text"] = 42;
    QCOMPARE(cGraphicsTextButton(record, nullptr).text(), QString("42"));
    record["imagemargin"] = "6";
    cGraphicsTextButton button(record, nullptr);
    QImage expected = caption("42", QRectF(0, 26, 100, 40), 0x84);
    QPainter(&expected).fillRect(0, 0, 30, 20, Qt::red);
    QCOMPARE(painted(button, Canvas), expected);
}

void cGraphicsTextButtonTest::extremeMarginsDrawNoCaption()
{
    for (const int far : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        cJsonValue record = description("Import");
        record["imagemargin"] = far;
        record["textmargin"] = far;
        cGraphicsTextButton button(record, nullptr);
        QCOMPARE(inkExtent(painted(button, Canvas)), QRect(0, 0, 30, 20));
    }
}

void cGraphicsTextButtonTest::longCaptionIsCutOffAtTheBoundary()
{
    cGraphicsTextButton button(description(QStringLiteral("abcdefghi ").repeated(1000)), nullptr);
    const QRect ink = inkExtent(painted(button, Canvas));
    QVERIFY(QRect(0, 0, 100, 60).contains(ink));
    QVERIFY(ink.bottom() > 50);
}

void cGraphicsTextButtonTest::rightToLeftCaptionIsDrawn()
{
    const QString text = QString::fromUtf8("שלום עולם");
    cGraphicsTextButton button(description(text), nullptr);
    QImage expected = caption(text, QRectF(0, 20, 100, 40), Qt::AlignCenter);
    QVERIFY(!inkExtent(expected).isNull());
    QPainter(&expected).fillRect(0, 0, 30, 20, Qt::red);
    QCOMPARE(painted(button, Canvas), expected);
}

VELTRANO_TEST_MAIN(cGraphicsTextButtonTest)
#include "cGraphicsTextButtonTest.moc"
