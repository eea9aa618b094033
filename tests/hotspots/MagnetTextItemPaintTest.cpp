#include "LabelSupport.h"

#include <MagnetTextItem.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QPaintEvent>
#include <QRegion>
#include <QSignalSpy>

using namespace LabelSupport;

using Change = void (*)(Label*);
Q_DECLARE_METATYPE(Change)

namespace {

/// The colour of the pixel that is covered most.
QColor strongest(const QImage& image)
{
    QColor found(0, 0, 0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > found.alpha())
                found = image.pixelColor(x, y);
        }
    }
    return found;
}

/// What a widget was asked to paint.
class PaintedRegion : public QObject
{
public:
    bool contains(const QRegion& place) const { return place.subtracted(m_region).isEmpty(); }
    void clear() { m_region = QRegion(); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

private:
    QRegion m_region;
};

/// A label with a connect line in a view that has been drawn.
class LineInView
{
    Q_DISABLE_COPY(LineInView)

public:
    /// The line's ends are opposite corners of this, in the label's coordinates.
    static constexpr QRectF Line {20, 50, 100, 40};

    LineInView()
        : label(new Label(blank(3), 60))
    {
        scene.addItem(label);
        label->setCenter(100, 100);
        label->setConnectLine(Line.topLeft(), Line.bottomRight());
        // As on the canvas: the bounds, by which other views know what to redraw, do not count the line in.
        view.setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
        // A scene that tells its changes redraws all of itself when an item goes: the paint events count.
        view.viewport()->installEventFilter(&painted);
        view.resize(640, 640);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QTRY_VERIFY(painted.contains(placeOf(Line)));
        QCoreApplication::processEvents();
        painted.clear();
    }

    /// Where the view shows a place that is given in the label's coordinates.
    QRegion placeOf(const QRectF& inLabel) const
    {
        return view.mapFromScene(label->mapRectToScene(inLabel)).boundingRect();
    }

    QGraphicsScene scene {0, 0, 600, 600};
    Label* const label;
    PaintedRegion painted;
    QGraphicsView view {&scene};
};

} // namespace

/// What a label draws, pixel by pixel.
class MagnetTextItemPaintTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void emptyTextDrawsNothing();
    void fittingTextIsCentred();
    void wideTextIsCutOffAtTheRight();
    void eachPieceStandsInItsPlace_data();
    void eachPieceStandsInItsPlace();
    void lowLabelHasNoSides();
    void missingPicturesDrawNothing();
    void looksHaveAnOrder_data();
    void looksHaveAnOrder();
    void textIsWhiteAndStaticTextGrey_data();
    void textIsWhiteAndStaticTextGrey();
    void selectionRedrawsTheItem();
    void connectLineLiesUnderTheBalloon();
    void connectLineNeedsAText();
    void connectLineMayLeaveTheBounds();
    void connectLineGoesWithItsLabel_data();
    void connectLineGoesWithItsLabel();
    void connectLineComesWithItsLabel_data();
    void connectLineComesWithItsLabel();
    void wideRightToLeftTextShowsItsBeginning();
};

void MagnetTextItemPaintTest::emptyTextDrawsNothing()
{
    TestPictures pictures;
    addBalloons(pictures);
    for (const QString& text : {QString(), QString("")}) {
        Label label(text, 60);
        QVERIFY(inkExtent(drawn(label)).isNull());
        QCOMPARE(label.boundingRect(), QRectF(0, 0, 70, naturalSize(text).height() + 6));
        label.onGkeyHoverIn();
        QVERIFY(inkExtent(drawn(label)).isNull());
        QCOMPARE(label.zValue(), 0.0);
    }
}

void MagnetTextItemPaintTest::fittingTextIsCentred()
{
    Label label("nnn", 100);
    const QRect ink = textInk(label);
    const int left = ink.left() - 5;
    const int right = 5 + 100 - 1 - ink.right();
    QVERIFY2(left > 30 && qAbs(left - right) <= 1, qPrintable(QString("%1 %2").arg(left).arg(right)));
    QVERIFY(ink.top() >= 3 && ink.bottom() < 3 + label.textHeight());
}

void MagnetTextItemPaintTest::wideTextIsCutOffAtTheRight()
{
    const QString text("WWWWWWWWWW");
    Label cut(text, 33);
    QCOMPARE(cut.textWidth(), 33);
    // No ellipsis, no centring: what is there is the beginning of the whole.
    QImage whole(500, cut.textHeight(), QImage::Format_ARGB32_Premultiplied);
    whole.fill(Qt::transparent);
    QPainter painter(&whole);
    painter.setFont(labelFont());
    painter.setPen(Qt::white);
    painter.drawText(0, QFontMetrics(labelFont()).ascent(), text);
    painter.end();
    const QImage shown = drawn(cut).copy(Margin + 5, Margin + 3, 33, cut.textHeight());
    QCOMPARE(shown, whole.copy(0, 0, 33, cut.textHeight()));
    QCOMPARE(textInk(cut).right(), 5 + 33 - 1);
}

void MagnetTextItemPaintTest::eachPieceStandsInItsPlace_data()
{
    QTest::addColumn<QByteArray>("look");
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<QRect>("place");
    // The text area is 60 wide and 39 high.
    for (const QByteArray look : {"normal_expanded", "selected", "static"}) {
        const auto row = [&](const char* piece, const QRect& place) {
            QTest::newRow((look + ' ' + piece).constData()) << look << QByteArray(piece) << place;
        };
        row("topleft", QRect(0, 0, 10, 10));
        row("top", QRect(10, 0, 50, 10));
        row("topright", QRect(60, 0, 10, 10));
        row("left", QRect(0, 10, 10, 25));
        row("bottomleft", QRect(0, 35, 10, 10));
        row("bottom", QRect(10, 35, 50, 10));
        row("bottomright", QRect(60, 35, 10, 10));
        row("right", QRect(60, 10, 10, 25));
        row("center", QRect(10, 10, 50, 25));
    }
}

void MagnetTextItemPaintTest::eachPieceStandsInItsPlace()
{
    QFETCH(QByteArray, look);
    QFETCH(QByteArray, piece);
    QFETCH(QRect, place);
    TestPictures pictures;
    addBalloons(pictures);
    Label label(blank(50), 20, 60, look == "static");
    label.onGkeyHoverIn();
    label.setBalloonSelected(look == "selected");
    QCOMPARE(label.textWidth(), 60);
    // The frame's height depends on the font; the table is for three lines of 13 pixels.
    const int moved = label.textHeight() - 39;
    QVERIFY(label.textHeight() > 20);
    if (place.top() == 35)
        place.translate(0, moved);
    else if (place.height() == 25)
        place.setHeight(25 + moved);
    const QImage image = drawn(label);
    QVERIFY(isFilled(image, place.translated(Margin, Margin), colorOf(look, piece)));
    QCOMPARE(inkExtent(image).translated(-Margin, -Margin), label.boundingRect().toRect());
}

void MagnetTextItemPaintTest::lowLabelHasNoSides()
{
    TestPictures pictures;
    addBalloons(pictures);
    Label label(blank(3), 60);
    const int height = label.textHeight();
    // With one line there is no room between the corners, and the lower ones cover the feet of the upper.
    QVERIFY2(height > 4 && height <= 14, qPrintable(QString::number(height)));
    const QImage image = drawn(label);
    const auto shows = [&](const char* piece, const QRect& place) {
        return isFilled(image, place.translated(Margin, Margin), colorOf("normal", piece));
    };
    QVERIFY(shows("topleft", QRect(0, 0, 10, height - 4)));
    QVERIFY(shows("top", QRect(10, 0, 50, height - 4)));
    QVERIFY(shows("topright", QRect(60, 0, 10, height - 4)));
    QVERIFY(shows("bottomleft", QRect(0, height - 4, 10, 10)));
    QVERIFY(shows("bottom", QRect(10, height - 4, 50, 10)));
    QVERIFY(shows("bottomright", QRect(60, height - 4, 10, 10)));
    for (const char* piece : {"left", "right", "center"})
        QVERIFY2(colorExtent(image, colorOf("normal", piece)).isNull(), piece);
    QCOMPARE(inkExtent(image), QRect(Margin, Margin, 70, height + 6));
}

void MagnetTextItemPaintTest::missingPicturesDrawNothing()
{
    {
        Label label(blank(3));
        QVERIFY(inkExtent(drawn(label)).isNull());
    }
    TestPictures pictures;
    pictures.add("balloon_bottomright_normal.png", filledPicture(10, 10, Qt::red));
    Label label(blank(3), 60);
    QCOMPARE(inkExtent(drawn(label)), QRect(Margin + 60, Margin + label.textHeight() - 4, 10, 10));
}

void MagnetTextItemPaintTest::looksHaveAnOrder_data()
{
    QTest::addColumn<bool>("isStatic");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("expanded");
    QTest::addColumn<QByteArray>("look");
    QTest::newRow("at rest") << false << false << false << QByteArray("normal");
    QTest::newRow("grown") << false << false << true << QByteArray("normal_expanded");
    QTest::newRow("selected") << false << true << false << QByteArray("selected");
    QTest::newRow("selected and grown") << false << true << true << QByteArray("selected");
    QTest::newRow("static") << true << false << false << QByteArray("static");
    QTest::newRow("static and grown") << true << false << true << QByteArray("static");
    QTest::newRow("static and selected") << true << true << false << QByteArray("static");
    QTest::newRow("static, selected and grown") << true << true << true << QByteArray("static");
}

void MagnetTextItemPaintTest::looksHaveAnOrder()
{
    QFETCH(bool, isStatic);
    QFETCH(bool, selected);
    QFETCH(bool, expanded);
    QFETCH(QByteArray, look);
    TestPictures pictures;
    addBalloons(pictures);
    Label label(blank(50), 20, 60, isStatic);
    label.setBalloonSelected(selected);
    if (expanded)
        label.onGkeyHoverIn();
    QCOMPARE(lookOf(label), look);
    label.setBalloonSelected(false);
    label.onGkeyHoverOut();
    QCOMPARE(lookOf(label), QByteArray(isStatic ? "static" : "normal"));
}

void MagnetTextItemPaintTest::textIsWhiteAndStaticTextGrey_data()
{
    QTest::addColumn<bool>("isStatic");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("expanded");
    QTest::addColumn<QColor>("color");
    const QColor white(255, 255, 255);
    const QColor grey(180, 180, 180);
    QTest::newRow("at rest") << false << false << false << white;
    QTest::newRow("grown") << false << false << true << white;
    QTest::newRow("selected") << false << true << false << white;
    QTest::newRow("static") << true << false << false << grey;
    QTest::newRow("static and selected") << true << true << false << grey;
    QTest::newRow("static and grown") << true << false << true << grey;
}

void MagnetTextItemPaintTest::textIsWhiteAndStaticTextGrey()
{
    QFETCH(bool, isStatic);
    QFETCH(bool, selected);
    QFETCH(bool, expanded);
    QFETCH(QColor, color);
    // Thick letters, so that a pixel is filled by them.
    Label label(QString(12, QChar(0x2588)) + "EEEHHH", 20, 150, isStatic);
    label.setBalloonSelected(selected);
    if (expanded)
        label.onGkeyHoverIn();
    QCOMPARE(strongest(drawn(label)), color);
}

void MagnetTextItemPaintTest::selectionRedrawsTheItem()
{
    TestPictures pictures;
    addBalloons(pictures);
    QGraphicsScene scene(0, 0, 100, 50);
    auto* label = new Label(blank(3), 60);
    scene.addItem(label);
    QCOMPARE(lookOf(*label), QByteArray("normal"));
    QSignalSpy changed(&scene, SIGNAL(changed(const QList<QRectF>&)));
    QTRY_VERIFY(!changed.isEmpty());
    changed.clear();
    label->setBalloonSelected(true);
    QTRY_VERIFY(!changed.isEmpty());
    QRectF region;
    const QVariantList arguments = changed.first();
    for (const QRectF& part : qvariant_cast<QList<QRectF>>(arguments.first()))
        region |= part;
    QVERIFY(region.contains(label->sceneBoundingRect()));
    QCOMPARE(lookOf(*label), QByteArray("selected"));
}

void MagnetTextItemPaintTest::connectLineLiesUnderTheBalloon()
{
    TestPictures pictures;
    addBalloons(pictures);
    Label label(blank(3), 60);
    label.setConnectLine(QPointF(-5, 5), QPointF(40, 5));
    const QImage image = drawn(label, QPen(Qt::red));
    // The painter's own pen.
    QCOMPARE(image.pixelColor(Margin - 3, Margin + 5), QColor(Qt::red));
    QCOMPARE(image.pixelColor(Margin + 3, Margin + 5), colorOf("normal", "topleft"));
    QCOMPARE(image.pixelColor(Margin + 30, Margin + 5), colorOf("normal", "top"));
}

void MagnetTextItemPaintTest::connectLineNeedsAText()
{
    Label label("", 60);
    label.setConnectLine(QPointF(0, 5), QPointF(40, 5));
    QVERIFY(inkExtent(drawn(label)).isNull());
    label.setText(blank(1));
    QVERIFY(!inkExtent(drawn(label)).isNull());
}

void MagnetTextItemPaintTest::connectLineMayLeaveTheBounds()
{
    Label label(blank(3), 60);
    const QRectF bounds = label.boundingRect();
    label.setConnectLine(QPointF(-5, -4), QPointF(bounds.width() + 4, -4));
    QCOMPARE(label.boundingRect(), bounds);
    const QRect ink = textInk(label);
    QCOMPARE(ink.left(), -5);
    QCOMPARE(ink.top(), -4);
    QCOMPARE(ink.right(), int(bounds.width()) + 4);
}

void MagnetTextItemPaintTest::connectLineGoesWithItsLabel_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("deleted") << Change([](Label* label) { delete label; });
    QTest::newRow("emptied") << Change([](Label* label) { label->setText(QString()); });
    QTest::newRow("moved") << Change([](Label* label) { label->setCenter(400, 400); });
}

void MagnetTextItemPaintTest::connectLineGoesWithItsLabel()
{
    QFETCH(Change, change);
    LineInView on;
    const QRegion place = on.placeOf(LineInView::Line);
    change(on.label);
    QTRY_VERIFY(on.painted.contains(place));
}

void MagnetTextItemPaintTest::connectLineComesWithItsLabel_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QRectF>("line");
    QTest::newRow("moved") << Change([](Label* label) { label->setCenter(400, 400); }) << LineInView::Line;
    QTest::newRow("given another line")
        << Change([](Label* label) { label->setConnectLine(QPointF(220, 250), QPointF(320, 290)); })
        << QRectF(220, 250, 100, 40);
}

void MagnetTextItemPaintTest::connectLineComesWithItsLabel()
{
    QFETCH(Change, change);
    QFETCH(QRectF, line);
    LineInView on;
    change(on.label);
    QTRY_VERIFY(on.painted.contains(on.placeOf(line)));
}

void MagnetTextItemPaintTest::wideRightToLeftTextShowsItsBeginning()
{
    const QString text =
        QString::fromUtf8("\u05d0\u05d1\u05d2\u05d3\u05d4\u05d5\u05d6\u05d7\u05d8\u05d9").repeated(3);
    Label label(text, 30);
    const QRect ink = textInk(label);
    QVERIFY(!ink.isNull());
    QVERIFY(ink.left() >= 5 && ink.right() < 35);
    label.onGkeyHoverIn();
    QCOMPARE(label.textWidth(), qMin(150, naturalSize(text).width()));
    QVERIFY(textInk(label).width() > 30);
}

VELTRANO_TEST_MAIN(MagnetTextItemPaintTest)
#include "MagnetTextItemPaintTest.moc"
