#include "KeySupport.h"

#include <cGraphicsButton.h>
#include <cMacroEditor.h>
#include <DialogDriver.h>
#include <MagnetTextItem.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QCursor>
#include <QGraphicsPixmapItem>
#include <QGraphicsSceneMouseEvent>
#include <QPainterPath>

using namespace KeySupport;

Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

const QString Command = QStringLiteral("{1}");

/// A double click as a scene hands it to an item.
void doubleClick(QGraphicsItem& item)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseDoubleClick);
    event.setButton(Qt::LeftButton);
    event.setButtons(Qt::LeftButton);
    item.scene()->sendEvent(&item, &event);
}

/// Records of `count` commands.
cJsonValue commands(int count)
{
    cJsonValue records(cJsonValue::arrayValue);
    for (int i = 0; i < count; ++i) {
        cJsonValue record;
        record["uid"] = QString::number(i);
        records.append(record);
    }
    return records;
}

} // namespace

class GkeyTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void signalsAndSlotsStandInTheirOrder();
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

    void hoverLightsTheKey();
    void hoverCursorTellsWhatCanBeDragged_data();
    void hoverCursorTellsWhatCanBeDragged();
    void leavingKeepsTheCursor();
    void otherButtonsAreIgnored_data();
    void otherButtonsAreIgnored();
    void pressOnAnEmptyKeyShowsTheTip();
    void pressOnAnEmptyKeyWithoutCommandsOpensTheEditor();
    void pressWhenTheHostFailsOpensTheEditor();
    void closedEditorAssignsTheNewCommand();
    void cancelledEditorAssignsNothing();
    void pressOnACommandClosesTheHand();
    void pressOnAHiddenCommandDoesNothingMore();
    void releaseShowsTheArrow();
    void doubleClickOpensAnEditor_data();
    void doubleClickOpensAnEditor();
    void mouseIsFreeAgainAfterAnEditor_data();
    void mouseIsFreeAgainAfterAnEditor();
    void slotsEmitTheirSignals_data();
    void slotsEmitTheirSignals();

    void filterForwardsTheLabelsEvents_data();
    void filterForwardsTheLabelsEvents();
    void filterDoesNotLookAtTheWatchedItem();
    void pointerOnTheLabelIsPointerOnTheKey();
    void pressOnTheLabelIsAPressOnTheKey();
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

void GkeyTest::hoverLightsTheKey()
{
    KeyScene on;
    SceneEvents::hoverEnter(*on.key);
    QVERIFY(on.key->isLit());
    QCOMPARE(on.takeLog(), QStringList("hoverIn()"));
    SceneEvents::hoverLeave(*on.key);
    QVERIFY(!on.key->isLit());
    QCOMPARE(on.takeLog(), QStringList("hoverOut()"));
}

void GkeyTest::hoverCursorTellsWhatCanBeDragged_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<bool>("isHidden");
    QTest::addColumn<Qt::CursorShape>("cursor");
    QTest::newRow("empty") << QString() << false << Qt::ArrowCursor;
    QTest::newRow("command") << Command << false << Qt::OpenHandCursor;
    QTest::newRow("hidden command") << Command << true << Qt::ArrowCursor;
}

void GkeyTest::hoverCursorTellsWhatCanBeDragged()
{
    QFETCH(QString, macroID);
    QFETCH(bool, isHidden);
    QFETCH(Qt::CursorShape, cursor);
    KeyScene on;
    on.key->setCursor(Qt::WaitCursor);
    on.setMacro(macroID, isHidden);
    SceneEvents::hoverEnter(*on.key);
    QCOMPARE(on.key->cursor().shape(), cursor);
}

void GkeyTest::leavingKeepsTheCursor()
{
    KeyScene on;
    on.setMacro(Command);
    SceneEvents::hoverEnter(*on.key);
    SceneEvents::hoverLeave(*on.key);
    QCOMPARE(on.key->cursor().shape(), Qt::OpenHandCursor);
}

void GkeyTest::otherButtonsAreIgnored_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void GkeyTest::otherButtonsAreIgnored()
{
    QFETCH(Qt::MouseButton, button);
    KeyScene on;
    for (const QString& macroID : {QString(), Command}) {
        on.setMacro(macroID);
        QVERIFY(!SceneEvents::press(*on.key, QPointF(110, 110), button));
        QCOMPARE(on.takeLog(), QStringList());
    }
}

void GkeyTest::pressOnAnEmptyKeyShowsTheTip()
{
    KeyScene on;
    on.host.answer("macros", commands(1));
    // A parent away from the origin tells the scene's coordinates from the key's.
    QGraphicsRectItem parent;
    on.scene.addItem(&parent);
    parent.setPos(1000, 500);
    on.key->setParentItem(&parent);
    SceneEvents::press(*on.key, QPointF(110, 120));
    QCOMPARE(on.takeLog(),
        QStringList({R"(clicked("G7"))", macros(), R"(showTooltip(1110,620, ")" + Tip + R"("))"}));
    on.key->setParentItem(nullptr);
}

void GkeyTest::pressOnAnEmptyKeyWithoutCommandsOpensTheEditor()
{
    KeyScene on;
    const DialogDriver driver([](QDialog& dialog) {
        QVERIFY(qobject_cast<cMacroEditor*>(&dialog));
        QVERIFY(dialog.isModal());
    });
    SceneEvents::press(*on.key, QPointF(110, 120));
    QVERIFY(driver.hasRun());
    const QStringList log = on.takeLog();
    QCOMPARE(log.mid(0, 3), QStringList({R"(clicked("G7"))", macros(), mainWindow()}));
    QVERIFY(!log.join('\n').contains("showTooltip"));
}

void GkeyTest::pressWhenTheHostFailsOpensTheEditor()
{
    KeyScene on;
    on.host.answer("macros", commands(1));
    const DialogDriver driver([&](QDialog& dialog) {
        on.host.restore(ServiceNames::ProfileMgr);
        QVERIFY(qobject_cast<cMacroEditor*>(&dialog));
    });
    on.host.remove(ServiceNames::ProfileMgr);
    const ExpectedMessage failed(QtCriticalMsg, "Failed to call 'macros' on service Profiler.ProfileMgr");
    SceneEvents::press(*on.key);
    QVERIFY(driver.hasRun());
}

void GkeyTest::closedEditorAssignsTheNewCommand()
{
    KeyScene on;
    const DialogDriver driver([&](QDialog& dialog) {
        QCOMPARE(dialog.parentWidget(), &on.window);
        on.takeLog();
        Q_EMIT qobject_cast<cMacroEditor*>(&dialog)->macroEditorClosed("{new}");
        dialog.accept();
    });
    SceneEvents::press(*on.key);
    QVERIFY(driver.hasRun());
    QCOMPARE(on.takeLog(), QStringList(R"(macroDropped("{new}", "G7"))"));
}

void GkeyTest::cancelledEditorAssignsNothing()
{
    KeyScene on;
    const DialogDriver driver([&](QDialog& dialog) {
        on.takeLog();
        dialog.reject();
    });
    on.key->onAddNewMacro();
    QVERIFY(driver.hasRun());
    QCOMPARE(on.takeLog(), QStringList());
}

void GkeyTest::pressOnACommandClosesTheHand()
{
    KeyScene on;
    on.setMacro(Command);
    QVERIFY(SceneEvents::press(*on.key, QPointF(110, 110)));
    QCOMPARE(on.key->cursor().shape(), Qt::ClosedHandCursor);
    QCOMPARE(on.takeLog(), QStringList(R"(clicked("G7"))"));
}

void GkeyTest::pressOnAHiddenCommandDoesNothingMore()
{
    KeyScene on;
    on.setMacro(Command, true);
    on.key->setCursor(Qt::WaitCursor);
    SceneEvents::press(*on.key, QPointF(110, 110));
    QCOMPARE(on.key->cursor().shape(), Qt::WaitCursor);
    QCOMPARE(on.takeLog(), QStringList(R"(clicked("G7"))"));
}

void GkeyTest::releaseShowsTheArrow()
{
    KeyScene on;
    on.setMacro(Command);
    SceneEvents::press(*on.key);
    on.takeLog();
    SceneEvents::release(*on.key);
    QCOMPARE(on.key->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(on.takeLog(), QStringList());
}

void GkeyTest::doubleClickOpensAnEditor_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<bool>("isHidden");
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("command") << Command << false;
    QTest::newRow("hidden command") << Command << true;
}

void GkeyTest::doubleClickOpensAnEditor()
{
    QFETCH(QString, macroID);
    QFETCH(bool, isHidden);
    KeyScene on;
    on.setMacro(macroID, isHidden);
    const DialogDriver driver([](QDialog& dialog) { QVERIFY(qobject_cast<cMacroEditor*>(&dialog)); });
    doubleClick(*on.key);
    QCOMPARE(driver.hasRun(), macroID.isEmpty());
    const QStringList log = on.takeLog();
    // That of a command is the view's.
    if (macroID.isEmpty())
        QCOMPARE(log.first(), mainWindow());
    else
        QCOMPARE(log, QStringList(R"(edit("G7"))"));
}

void GkeyTest::mouseIsFreeAgainAfterAnEditor_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<bool>("onLabel");
    for (const bool onLabel : {false, true}) {
        const char* where = onLabel ? "label" : "key";
        QTest::addRow("press, %s", where) << QString() << QEvent::GraphicsSceneMousePress << onLabel;
        QTest::addRow("double click, %s", where)
            << QString() << QEvent::GraphicsSceneMouseDoubleClick << onLabel;
        QTest::addRow("double click on a command, %s", where)
            << Command << QEvent::GraphicsSceneMouseDoubleClick << onLabel;
    }
}

// The release goes to the dialog. A key that went on holding the mouse would take the next move, without any
// button, for a drag.
void GkeyTest::mouseIsFreeAgainAfterAnEditor()
{
    QFETCH(QString, macroID);
    QFETCH(QEvent::Type, type);
    QFETCH(bool, onLabel);
    KeyScene on;
    on.setMacro(macroID);
    const DialogDriver driver([](QDialog&) {});
    const QPointF place = onLabel ? on.label->sceneBoundingRect().center() : QPointF(120, 125);
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(place);
    event.setButton(Qt::LeftButton);
    event.setButtons(Qt::LeftButton);
    QCoreApplication::sendEvent(&on.scene, &event);
    QCOMPARE(driver.hasRun(), macroID.isEmpty());
    QVERIFY(!on.scene.mouseGrabberItem());
}

void GkeyTest::slotsEmitTheirSignals_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("log");
    const auto row = [](const char* slot, const QStringList& log) {
        QTest::newRow(slot) << QByteArray(slot) << log;
    };
    row("onEditMacro", {R"(edit("G7"))"});
    row("onUseDefault", {R"(useDefault("G7"))"});
    row("onUseGeneric", {R"(useGeneric("G7"))"});
    row("onUnassign", {R"(unassign("G7"))"});
    row("onUnassignMouse",
        {R"(unassign("G26"))", R"(unassign("G27"))", R"(unassign("G28"))", R"(unassign("G29"))"});
    row("onUnassignJoystick",
        {R"(unassign("G25"))", R"(unassign("G26"))", R"(unassign("G27"))", R"(unassign("G28"))",
            R"(unassign("G29"))"});
}

void GkeyTest::slotsEmitTheirSignals()
{
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, log);
    KeyScene on;
    QVERIFY(QMetaObject::invokeMethod(on.key, slot));
    QCOMPARE(on.takeLog(), log);
}

void GkeyTest::filterForwardsTheLabelsEvents_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<bool>("isTaken");
    const QStringList nothing;
    QTest::newRow("move") << QEvent::GraphicsSceneMouseMove << nothing << true;
    QTest::newRow("press") << QEvent::GraphicsSceneMousePress << QStringList(R"(clicked("G7"))") << true;
    QTest::newRow("double click") << QEvent::GraphicsSceneMouseDoubleClick << QStringList(R"(edit("G7"))")
                                  << true;
    QTest::newRow("hover enter") << QEvent::GraphicsSceneHoverEnter << QStringList("hoverIn()") << false;
    QTest::newRow("hover leave") << QEvent::GraphicsSceneHoverLeave << QStringList("hoverOut()") << false;
    QTest::newRow("release") << QEvent::GraphicsSceneMouseRelease << nothing << false;
    QTest::newRow("hover move") << QEvent::GraphicsSceneHoverMove << nothing << false;
    QTest::newRow("wheel") << QEvent::GraphicsSceneWheel << nothing << false;
}

void GkeyTest::filterForwardsTheLabelsEvents()
{
    QFETCH(QEvent::Type, type);
    QFETCH(QStringList, log);
    QFETCH(bool, isTaken);
    KeyScene on;
    on.setMacro(Command);
    on.key->setCursor(Qt::WaitCursor);
    const auto filter = [&](QEvent& event) {
        QCOMPARE(on.key->sceneEventFilter(on.label, &event), isTaken);
        QCOMPARE(on.takeLog(), log);
    };
    if (type == QEvent::GraphicsSceneHoverEnter || type == QEvent::GraphicsSceneHoverLeave
        || type == QEvent::GraphicsSceneHoverMove) {
        QGraphicsSceneHoverEvent event(type);
        filter(event);
    } else if (type == QEvent::GraphicsSceneWheel) {
        QGraphicsSceneWheelEvent event(type);
        filter(event);
    } else {
        QGraphicsSceneMouseEvent event(type);
        event.setButton(Qt::LeftButton);
        filter(event);
    }
    // A release over the label leaves the key's cursor alone.
    if (type == QEvent::GraphicsSceneMouseRelease)
        QCOMPARE(on.key->cursor().shape(), Qt::WaitCursor);
}

void GkeyTest::filterDoesNotLookAtTheWatchedItem()
{
    KeyScene on;
    QGraphicsSceneHoverEvent event(QEvent::GraphicsSceneHoverEnter);
    on.key->sceneEventFilter(nullptr, &event);
    QVERIFY(on.key->isLit());
}

void GkeyTest::pointerOnTheLabelIsPointerOnTheKey()
{
    KeyScene on;
    on.setMacro(Command);
    SceneEvents::hoverEnter(*on.label);
    QVERIFY(on.key->isLit());
    QCOMPARE(on.key->cursor().shape(), Qt::OpenHandCursor);
    SceneEvents::hoverLeave(*on.label);
    QVERIFY(!on.key->isLit());
    QCOMPARE(on.takeLog(), QStringList({"hoverIn()", "hoverOut()"}));
}

void GkeyTest::pressOnTheLabelIsAPressOnTheKey()
{
    KeyScene on;
    on.setMacro(Command);
    SceneEvents::press(*on.label, QPointF(5, 5));
    QCOMPARE(on.key->cursor().shape(), Qt::ClosedHandCursor);
    SceneEvents::release(*on.label, QPointF(5, 5));
    QCOMPARE(on.key->cursor().shape(), Qt::ClosedHandCursor);
    QVERIFY(!SceneEvents::press(*on.label, QPointF(5, 5), Qt::RightButton));
    QCOMPARE(on.takeLog(), QStringList(R"(clicked("G7"))"));
}

VELTRANO_TEST_MAIN(GkeyTest)
#include "GkeyTest.moc"
