#include "KeySupport.h"

#include <cGraphicsButton.h>
#include <MetaMembers.h>
#include <MethodText.h>
#include <SceneEvents.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QGraphicsPixmapItem>
#include <QPainterPath>

using namespace KeySupport;

namespace {

const QString Command = QStringLiteral("{1}");

} // namespace

class GkeyTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void signalsAndSlotsStandInTheirOrder();
    void parametersBearTheirNames();
    void startsEmpty();
    void storesWhatTheViewGives();
    void childrenAreMadeHidden();
    void takesHoverEventsAndDrops();
    void paintsNothing();
    void glowStandsOnTheMiddleOfTheKey_data();
    void glowStandsOnTheMiddleOfTheKey();
    void contextButtonStandsInTheLowerRightCorner_data();
    void contextButtonStandsInTheLowerRightCorner();
    void contextButtonOfAPixmapKeyStandsInItsBounds();
    void explicitPlaceOfTheContextButton_data();
    void explicitPlaceOfTheContextButton();
    void setMacroAsksWhetherTheCommandIsHidden_data();
    void setMacroAsksWhetherTheCommandIsHidden();
    void setMacroOfAFailedCallIsNotHidden();
};

void GkeyTest::signalsAndSlotsStandInTheirOrder()
{
    QCOMPARE(MetaMembers::signalsOf(Gkey::staticMetaObject),
        QStringList({"clicked(QString)", "showTooltip(QPointF,QString)", "macroDropped(QString,QString)",
            "edit(QString)", "useGeneric(QString)", "unassign(QString)", "macroMoved(QString)",
            "assignmentStartDrag(QString)", "assignmentEndDrag()", "hoverIn()", "hoverOut()",
            "useDefault(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(Gkey::staticMetaObject),
        QStringList({"onEditMacro()", "onUseDefault()", "onUseGeneric()", "onUnassign()", "onAssignMouse()",
            "onAssignJoystick()", "onUnassignMouse()", "onUnassignJoystick()",
            "onClickedContextButton(QPoint)", "onAddNewMacro()", "onMacroEditorClosed(QString)"}));
}

void GkeyTest::parametersBearTheirNames()
{
    const QStringList all = methodTexts(Gkey::staticMetaObject);
    for (const char* text : {"clicked(QString id)", "showTooltip(QPointF pt, QString tip)",
             "macroDropped(QString macroID, QString contextID)", "edit(QString contextID)",
             "useGeneric(QString contextID)", "unassign(QString contextID)", "macroMoved(QString contextID)",
             "useDefault(QString contextID)", "onMacroEditorClosed(QString macroID)"})
        QVERIFY2(all.contains(text), text);
}

void GkeyTest::startsEmpty()
{
    RecordingHost host;
    const TestPictures pictures;
    cMacroBindingView view;
    const TestKey key(&view);
    QCOMPARE(key.macroID(), QString());
    QCOMPARE(key.contextID(), QString());
    QCOMPARE(key.genericType(), QString());
    QCOMPARE(key.genericName(), QString());
    QVERIFY(!key.isGenericRequired());
    QVERIFY(!key.isGenericHidden());
    QVERIFY(!key.cannotBeUnassignedFlag());
    QVERIFY(!key.isMacroHidden());
    QCOMPARE(key.keyRect(), QRectF(0, 0, 0, 0));
    QVERIFY(!key.hasLabelRect());
    QCOMPARE(key.labelPos(), QPoint(0, 0));
    QCOMPARE(key.labelMinWidth(), 0);
    QCOMPARE(key.labelMaxWidth(), 0);
    QVERIFY(!key.hasConnectLine());
    QCOMPARE(key.connectLineP1(), QPointF());
    QCOMPARE(key.connectLineP2(), QPointF());
    QCOMPARE(key.controlTypes(), QStringList());
    QCOMPARE(key.shapeKind(), 0);
}

void GkeyTest::storesWhatTheViewGives()
{
    KeyScene on;
    on.key->setContextID("G9");
    QCOMPARE(on.key->contextID(), QString("G9"));
    on.key->setGenericInfo("type", "name", true, false, true);
    QCOMPARE(on.key->genericType(), QString("type"));
    QCOMPARE(on.key->genericName(), QString("name"));
    QVERIFY(on.key->isGenericRequired());
    QVERIFY(!on.key->isGenericHidden());
    QVERIFY(on.key->cannotBeUnassignedFlag());
    on.key->setGenericInfo(QString(), QString(), false, true, false);
    QVERIFY(!on.key->isGenericRequired());
    QVERIFY(on.key->isGenericHidden());
    QVERIFY(!on.key->cannotBeUnassignedFlag());
    on.key->setLabelRect(1, 2, 30, 40);
    QVERIFY(on.key->hasLabelRect());
    QCOMPARE(on.key->labelPos(), QPoint(1, 2));
    QCOMPARE(on.key->labelMinWidth(), 30);
    QCOMPARE(on.key->labelMaxWidth(), 40);
    on.key->setConnectLine(QPointF(1.5, 2), QPointF(3, 4.5));
    QVERIFY(on.key->hasConnectLine());
    QCOMPARE(on.key->connectLineP1(), QPointF(1.5, 2));
    QCOMPARE(on.key->connectLineP2(), QPointF(3, 4.5));
    on.key->setControlTypes({"button", "axis"});
    QCOMPARE(on.key->controlTypes(), QStringList({"button", "axis"}));
    on.key->setShapeKind(1);
    QCOMPARE(on.key->shapeKind(), 1);
    on.key->setKeyRect(5, 6, 7, 8);
    QCOMPARE(on.key->keyRect(), QRectF(5, 6, 7, 8));
    // None of it concerns the host.
    QCOMPARE(on.takeLog(), QStringList());
}

void GkeyTest::childrenAreMadeHidden()
{
    KeyScene on;
    QCOMPARE(on.key->childItems().size(), 2);
    QVERIFY(!on.key->isLit());
    const QGraphicsPixmapItem& glow = on.key->glow();
    QCOMPARE(glow.pixmap().size(), GlowSize);
    QCOMPARE(glow.transformationMode(), Qt::SmoothTransformation);
    QCOMPARE(glow.acceptedMouseButtons(), Qt::MouseButtons(Qt::NoButton));
    QCOMPARE(on.key->button().boundingRect(), QRectF(QPointF(), ButtonSize));

    on.key->setGlowPixmap(filledPicture(10, 12, Qt::red));
    QCOMPARE(glow.pixmap().size(), QSize(10, 12));
}

void GkeyTest::takesHoverEventsAndDrops()
{
    KeyScene on;
    QVERIFY(on.key->acceptHoverEvents());
    QVERIFY(on.key->acceptDrops());
}

void GkeyTest::paintsNothing()
{
    KeyScene on;
    on.key->setBrush(QColor(0, 80, 80));
    on.key->setPen(QPen(QBrush(Qt::red), 3));
    QVERIFY(inkExtent(SceneEvents::painted(*on.key, QSize(200, 200))).isNull());
}

void GkeyTest::glowStandsOnTheMiddleOfTheKey_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QSize>("glow");
    QTest::addColumn<QPointF>("place");
    // Half of the key is a whole number, half of the glow is not.
    QTest::newRow("even") << QRect(100, 50, 40, 30) << QSize(64, 64) << QPointF(88, 33);
    QTest::newRow("odd key") << QRect(100, 50, 41, 31) << QSize(64, 64) << QPointF(88, 33);
    QTest::newRow("odd glow") << QRect(100, 50, 41, 31) << QSize(63, 61) << QPointF(88.5, 34.5);
    QTest::newRow("no glow") << QRect(100, 50, 40, 30) << QSize() << QPointF(120, 65);
    QTest::newRow("negative") << QRect(-10, -20, -5, -7) << QSize(64, 64) << QPointF(-44, -55);
}

void GkeyTest::glowStandsOnTheMiddleOfTheKey()
{
    QFETCH(QRect, rect);
    QFETCH(QSize, glow);
    QFETCH(QPointF, place);
    KeyScene on;
    on.key->setGlowPixmap(glow.isValid() ? filledPicture(glow.width(), glow.height(), Qt::red) : QPixmap());
    on.key->setKeyRect(rect.x(), rect.y(), rect.width(), rect.height());
    QCOMPARE(on.key->glow().pos(), place);
}

void GkeyTest::contextButtonStandsInTheLowerRightCorner_data()
{
    QTest::addColumn<QPolygonF>("polygon");
    QTest::addColumn<QPointF>("corner");
    const auto row = [](const char* name, std::initializer_list<QPointF> points, const QPointF& corner) {
        QTest::newRow(name) << QPolygonF(QVector<QPointF>(points)) << corner;
    };
    row("rectangle", {{10, 10}, {50, 10}, {50, 40}, {10, 40}}, {50, 40});
    row("rectangle, other way round", {{10, 40}, {50, 40}, {50, 10}, {10, 10}}, {50, 40});
    row("right-most is lower", {{10, 10}, {48, 10}, {50, 40}, {10, 40}}, {50, 40});
    row("next to right-most is lower", {{10, 10}, {50, 10}, {48, 40}, {10, 40}}, {48, 40});
    // The lower of the two, not the lowest of all.
    row("lowest is left", {{10, 90}, {50, 10}, {48, 40}}, {48, 40});
    // Of two equally low ones, the last but one.
    row("same height", {{10, 10}, {48, 40}, {50, 40}}, {48, 40});
    row("negative", {{-50, -40}, {-10, -40}, {-10, -10}, {-50, -10}}, {-10, -10});
    row("two points", {{10, 10}, {20, 30}}, {20, 30});
    row("one point", {{10, 20}}, {10, 20});
    row("no shape", {}, {0, 0});
}

void GkeyTest::contextButtonStandsInTheLowerRightCorner()
{
    QFETCH(QPolygonF, polygon);
    QFETCH(QPointF, corner);
    KeyScene on;
    on.key->setShapeKind(0);
    on.key->setPolygon(polygon);
    on.key->setKeyRect(0, 0, 1, 1);
    QCOMPARE(on.key->button().pos(), corner - QPointF(16, 16));
}

void GkeyTest::contextButtonOfAPixmapKeyStandsInItsBounds()
{
    KeyScene on;
    QPainterPath path;
    path.addRegion(QRegion(QRect(200, 210, 30, 20)).united(QRect(220, 230, 20, 10)));
    on.key->setPath(path);
    on.key->setPen(Qt::NoPen);
    on.key->setShapeKind(1);
    // Of a polygon that it does not have.
    on.key->setPolygon(QPolygonF(QRectF(0, 0, 1000, 1000)));
    on.key->setKeyRect(0, 0, 1, 1);
    QCOMPARE(on.key->button().pos(), QPointF(240 - 16, 240 - 16));
    // A pen makes the bounds larger by half its width.
    on.key->setPen(QPen(QBrush(Qt::red), 3));
    on.key->setKeyRect(0, 0, 1, 1);
    QCOMPARE(on.key->button().pos(), QPointF(241.5 - 16, 241.5 - 16));
}

void GkeyTest::explicitPlaceOfTheContextButton_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QPointF>("button");
    const QPointF automatic(140 - 16, 130 - 16);
    QTest::newRow("explicit") << QPoint(7, 9) << QPointF(7, 9);
    QTest::newRow("origin") << QPoint(0, 0) << QPointF(0, 0);
    QTest::newRow("left of it") << QPoint(-2, -3) << QPointF(-2, -3);
    QTest::newRow("no x") << QPoint(-1, 9) << automatic;
    QTest::newRow("no y") << QPoint(7, -1) << automatic;
    QTest::newRow("neither") << QPoint(-1, -1) << automatic;
}

void GkeyTest::explicitPlaceOfTheContextButton()
{
    QFETCH(QPoint, place);
    QFETCH(QPointF, button);
    for (const int shapeKind : {0, 1}) {
        KeyScene on;
        on.key->setPen(Qt::NoPen);
        on.key->setShapeKind(shapeKind);
        on.key->setContextButtonPos(place.x(), place.y());
        on.key->setKeyRect(100, 100, 40, 30);
        QCOMPARE(on.key->button().pos(), button);
    }
}

void GkeyTest::setMacroAsksWhetherTheCommandIsHidden_data()
{
    QTest::addColumn<cJsonValue>("record");
    QTest::addColumn<bool>("isHidden");
    const auto record = [](const cJsonValue& hidden) {
        cJsonValue macro;
        macro["hidden"] = hidden;
        return macro;
    };
    QTest::newRow("unknown") << cJsonValue() << false;
    QTest::newRow("hidden") << record(true) << true;
    QTest::newRow("visible") << record(false) << false;
    QTest::newRow("as text") << record("true") << true;
    QTest::newRow("says nothing") << cJsonValue(cJsonValue::objectValue) << false;
}

void GkeyTest::setMacroAsksWhetherTheCommandIsHidden()
{
    QFETCH(cJsonValue, record);
    QFETCH(bool, isHidden);
    KeyScene on;
    on.setMacro("{before}", !isHidden);
    on.host.answer("getMacroByID", record);
    on.key->setMacro(Command);
    QCOMPARE(on.takeLog(), QStringList(getMacroByID(Command)));
    QCOMPARE(on.key->macroID(), Command);
    QCOMPARE(on.key->isMacroHidden(), isHidden);

    // Also an empty uid is asked for.
    on.host.answer("getMacroByID", cJsonValue());
    on.key->setMacro(QString());
    QCOMPARE(on.takeLog(), QStringList(getMacroByID(QString())));
    QCOMPARE(on.key->macroID(), QString());
    QVERIFY(!on.key->isMacroHidden());
}

void GkeyTest::setMacroOfAFailedCallIsNotHidden()
{
    KeyScene on;
    on.setMacro("{before}", true);
    on.host.remove(ServiceNames::ProfileMgr);
    const ExpectedMessage failed(
        QtCriticalMsg, "Failed to call 'getMacroByID' on service Profiler.ProfileMgr");
    on.key->setMacro(Command);
    QCOMPARE(on.key->macroID(), Command);
    QVERIFY(!on.key->isMacroHidden());
}

VELTRANO_TEST_MAIN(GkeyTest)
#include "GkeyTest.moc"
