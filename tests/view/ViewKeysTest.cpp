#include "ViewFixture.h"

#include <cGraphicsButton.h>
#include <Gkey.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QGraphicsPixmapItem>
#include <QLoggingCategory>
#include <QPainter>
#include <QPen>

/// The keys that the view makes of a record.
class ViewKeysTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cornersAreTold();
    void polygonIsTheKeysShape();
    void polygonGoesBeforeAPixmap();
    void onePointGivesAKeyOfNoSize();
    void pixmapHasItsShapeFromTheOutline();
    void pixmapWithoutPicturesHasNoShape();
    void controlWithoutAShapeIsAKeyAllTheSame();
    void pathIsPaintedLikeAKeyWouldBe();
    void contextButtonHasItsPlace();
    void genericAssignmentReachesTheKey();
    void labelPlaceReachesTheKey();
    void typesReachTheKey();
    void controlsKeepTheirOrder();
    void twoControlsOfOneNameAreTwoKeys();
    void keyIsConnected_data();
    void keyIsConnected();
};

void ViewKeysTest::cornersAreTold()
{
    ViewFixture fixture;
    QLoggingCategory::setFilterRules(QString());
    const ExpectedMessage first(QtDebugMsg, "point is  10 -- 20");
    const ExpectedMessage second(QtDebugMsg, "point is  -30 -- 5");
    fixture.open(
        makeManifest("<controls><control id='G1'><points><point x='10' y='20'/><point x='-30' y='5'/>"
                     "</points></control></controls>"));
}

void ViewKeysTest::polygonIsTheKeysShape()
{
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    const Gkey* const key = fixture.key("G2");
    QVERIFY(key);
    QCOMPARE(key->parentItem(), fixture.rootItem());
    QCOMPARE(key->pos(), QPointF(0, 0));
    QCOMPARE(key->shapeKind(), 0);
    QPainterPath path;
    path.addPolygon(QPolygonF({QPointF(500, 200), QPointF(540, 200), QPointF(540, 230)}));
    QCOMPARE(key->path(), path);
    QCOMPARE(key->keyRect(), QRectF(500, 200, 40, 30));
}

void ViewKeysTest::polygonGoesBeforeAPixmap()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<controls><control id='G1'><pixmap image='a.png' outline='b.png' x='1' y='2'/>"
                     "<points><point x='1' y='2'/><point x='11' y='22'/></points></control></controls>"));
    QCOMPARE(fixture.key("G1")->shapeKind(), 0);
    QCOMPARE(fixture.key("G1")->path().elementCount(), 2);
    QCOMPARE(fixture.key("G1")->keyRect(), QRectF(1, 2, 10, 20));
}

void ViewKeysTest::onePointGivesAKeyOfNoSize()
{
    ViewFixture fixture;
    fixture.open(makeManifest(
        "<controls><control id='G1'><points><point x='7' y='8'/></points></control></controls>"));
    QCOMPARE(fixture.key("G1")->path().elementCount(), 1);
    QCOMPARE(fixture.key("G1")->keyRect(), QRectF(7, 8, 0, 0));
}

void ViewKeysTest::pixmapHasItsShapeFromTheOutline()
{
    ViewFixture fixture;
    QPixmap outline(20, 10);
    outline.fill(Qt::transparent);
    {
        QPainter painter(&outline);
        painter.fillRect(5, 2, 10, 6, Qt::black);
    }
    TestPictures files;
    const QString glowPath = files.add("glow.png", filledPicture(40, 30, Qt::red));
    const QString outlinePath = files.add("outline.png", outline);
    fixture.open(makeManifest(qPrintable(
        QStringLiteral("<controls><control id='G1'><pixmap image='%1' outline='%2' x='100' y='-50'/>"
                       "</control></controls>")
            .arg(glowPath, outlinePath))));
    const Gkey* const key = fixture.key("G1");
    QCOMPARE(key->shapeKind(), 1);
    QCOMPARE(key->path().boundingRect(), QRectF(105, -48, 10, 6));
    QVERIFY(key->contains(QPointF(110, -45)));
    QVERIFY(!key->contains(QPointF(102, -45)));
    // The pen counts.
    QCOMPARE(key->keyRect(), QRectF(key->boundingRect().toRect()));
    QVERIFY(key->keyRect().width() > 10);
    bool hasGlow = false;
    for (const QGraphicsItem* child : key->childItems()) {
        if (const auto* const glow = qgraphicsitem_cast<const QGraphicsPixmapItem*>(child))
            hasGlow = glow->pixmap().size() == QSize(40, 30);
    }
    QVERIFY(hasGlow);
}

void ViewKeysTest::pixmapWithoutPicturesHasNoShape()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'><pixmap image='missing.png' outline='missing.png' "
                              "x='100' y='50'/></control></controls>"));
    QCOMPARE(fixture.key("G1")->shapeKind(), 1);
    QVERIFY(fixture.key("G1")->path().isEmpty());
    QCOMPARE(fixture.key("G1")->keyRect(), QRectF(0, 0, 0, 0));
}

void ViewKeysTest::controlWithoutAShapeIsAKeyAllTheSame()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'/><anything/></controls>"));
    QCOMPARE(fixture.items<Gkey>().size(), 2);
    QCOMPARE(fixture.key("G1")->shapeKind(), 0);
    QVERIFY(fixture.key("G1")->path().isEmpty());
    QCOMPARE(fixture.key("G1")->keyRect(), QRectF(0, 0, 0, 0));
    QCOMPARE(fixture.view.getControlIds(), QStringList({"G1", ""}));
    QVERIFY(fixture.key(""));
}

void ViewKeysTest::pathIsPaintedLikeAKeyWouldBe()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'/></controls>"));
    const Gkey* const key = fixture.key("G1");
    QCOMPARE(key->brush(), QBrush(QColor(0, 80, 80, 255), Qt::SolidPattern));
    QCOMPARE(key->pen(),
        QPen(
            QBrush(QColor(0, 80, 80, 255), Qt::SolidPattern), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void ViewKeysTest::contextButtonHasItsPlace()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'><context_button><point x='31' y='32'/>"
                              "<point x='1' y='1'/></context_button></control></controls>"));
    const QList<QGraphicsItem*> children = fixture.key("G1")->childItems();
    QPointF place;
    for (QGraphicsItem* child : children) {
        if (const auto* const button = dynamic_cast<cGraphicsButton*>(child))
            place = button->pos();
    }
    QCOMPARE(place, QPointF(31, 32));
}

void ViewKeysTest::genericAssignmentReachesTheKey()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<controls><control id='G1'><generic_assignment type='t' name='n' required='true' "
                     "hidden='false' cannotbeunassigned='true'/></control>"
                     "<control id='G2'><generic_assignment type='t2' name='n2' hidden='true'/></control>"
                     "<control id='G3'/></controls>"));
    const Gkey* const one = fixture.key("G1");
    QCOMPARE(one->genericType(), QString("t"));
    QCOMPARE(one->genericName(), QString("n"));
    QVERIFY(one->isGenericRequired());
    QVERIFY(!one->isGenericHidden());
    QVERIFY(one->cannotBeUnassignedFlag());
    const Gkey* const two = fixture.key("G2");
    QCOMPARE(two->genericType(), QString("t2"));
    QVERIFY(!two->isGenericRequired());
    QVERIFY(two->isGenericHidden());
    QVERIFY(!two->cannotBeUnassignedFlag());
    const Gkey* const three = fixture.key("G3");
    QCOMPARE(three->genericType(), QString());
    QCOMPARE(three->genericName(), QString());
    QVERIFY(!three->isGenericRequired());
    QVERIFY(!three->isGenericHidden());
    QVERIFY(!three->cannotBeUnassignedFlag());
}

void ViewKeysTest::labelPlaceReachesTheKey()
{
    ViewFixture fixture;
    fixture.open(makeManifest(
        "<controls><control id='G1'><assignment_label x='11' y='12' min_width='13' max_width='14'>"
        "<connect_line x1='21' y1='22' x2='-23' y2='-24'/></assignment_label></control>"
        "<control id='G2'><assignment_label x='1' y='2' min_width='3' max_width='4'/></control>"
        "<control id='G3'/></controls>"));
    const Gkey* const one = fixture.key("G1");
    QVERIFY(one->hasLabelRect());
    QCOMPARE(one->labelPos(), QPoint(11, 12));
    QCOMPARE(one->labelMinWidth(), 13);
    QCOMPARE(one->labelMaxWidth(), 14);
    QVERIFY(one->hasConnectLine());
    QCOMPARE(one->connectLineP1(), QPointF(21, 22));
    QCOMPARE(one->connectLineP2(), QPointF(-23, -24));
    QVERIFY(fixture.key("G2")->hasLabelRect());
    QVERIFY(!fixture.key("G2")->hasConnectLine());
    QVERIFY(!fixture.key("G3")->hasLabelRect());
}

void ViewKeysTest::typesReachTheKey()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<controls><control id='G1'><types><type name='b'/><type name='a'/><type/></types>"
                     "</control><control id='G2'/></controls>"));
    QCOMPARE(fixture.key("G1")->controlTypes(), QStringList({"b", "a", ""}));
    QCOMPARE(fixture.key("G2")->controlTypes(), QStringList());
}

void ViewKeysTest::controlsKeepTheirOrder()
{
    ViewFixture fixture;
    fixture.open(
        makeManifest("<controls><control id='G10'/><control id='G2'/><control id='G1'/></controls>"));
    QCOMPARE(fixture.view.getControlIds(), QStringList({"G10", "G2", "G1"}));
    QStringList painted;
    for (const Gkey* key : fixture.items<Gkey>())
        painted.append(key->contextID());
    QCOMPARE(painted, QStringList({"G10", "G2", "G1"}));
}

void ViewKeysTest::twoControlsOfOneNameAreTwoKeys()
{
    ViewFixture fixture;
    fixture.open(makeManifest("<controls><control id='G1'/><control id='G1'/></controls>"));
    QCOMPARE(fixture.items<Gkey>().size(), 2);
    QCOMPARE(fixture.view.getControlIds(), QStringList({"G1", "G1"}));
    QVERIFY(fixture.view.deinit(cJsonValue(), nullptr));
    QCOMPARE(fixture.items<Gkey>().size(), 0);
}

void ViewKeysTest::keyIsConnected_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QStringList>("calls");
    const auto row = [](const char* signal, const QStringList& calls) {
        QTest::newRow(signal) << QByteArray(signal) << calls;
    };
    const QString place = "\"{P}\", \"pad\", 0, \"G1\"";
    row("edit",
        {"getAssignment(" + place + ")", "getMacroByID(\"{P}\", \"\")", "getMacroByID(\"{P}\", \"\")",
            "getMacroTypeByID(\"\")"});
    row("useDefault", {"setDefaultAssignment(" + place + ")"});
    row("useGeneric", {"setGenericAssignment(\"{P}\", \"pad\", \"\", \"\", false, 0, \"G1\")"});
    row("unassign", {"removeAssignment(" + place + ")"});
    row("macroMoved", {"removeAssignment(" + place + ")"});
}

void ViewKeysTest::keyIsConnected()
{
    QFETCH(QByteArray, signal);
    QFETCH(QStringList, calls);
    ViewFixture fixture;
    fixture.open(makeManifest(PlainDevice));
    fixture.showProfile("{P}");
    Gkey* const key = fixture.key("G1");
    QVERIFY(QMetaObject::invokeMethod(key, signal, Q_ARG(QString, "G1")));
    QCOMPARE(fixture.host.takeCalls(), calls);
}

VELTRANO_TEST_MAIN(ViewKeysTest)
#include "ViewKeysTest.moc"
