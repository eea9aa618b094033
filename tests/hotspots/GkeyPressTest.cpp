#include "KeySupport.h"

#include <cMacroEditor.h>
#include <DialogDriver.h>
#include <MagnetTextItem.h>
#include <MenuDriver.h>
#include <SceneEvents.h>
#include <SceneRedraws.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QCursor>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>

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

/// What the pointer does on a key and on its label.
class GkeyPressTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hoverLightsTheKey();
    void hoverRedrawsTheKey();
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
    void slotsEmitTheirSignals_data();
    void slotsEmitTheirSignals();

    void filterForwardsTheLabelsEvents_data();
    void filterForwardsTheLabelsEvents();
    void filterDoesNotLookAtTheWatchedItem();
    void pointerOnTheLabelIsPointerOnTheKey();
    void pressOnTheLabelIsAPressOnTheKey();
};

void GkeyPressTest::hoverLightsTheKey()
{
    KeyScene on;
    SceneEvents::hoverEnter(*on.key);
    QVERIFY(on.key->isLit());
    QCOMPARE(on.takeLog(), QStringList("hoverIn()"));
    SceneEvents::hoverLeave(*on.key);
    QVERIFY(!on.key->isLit());
    QCOMPARE(on.takeLog(), QStringList("hoverOut()"));
}

void GkeyPressTest::hoverRedrawsTheKey()
{
    KeyScene on;
    // Away from the key, so that what is drawn anew is the key's own place.
    on.key->setGlowPixmap(QPixmap());
    on.key->setContextButtonPos(300, 300);
    on.key->setKeyRect(100, 100, 40, 30);
    on.scene.removeItem(on.label);
    const std::unique_ptr<MagnetTextItem> label(on.label);
    SceneRedraws redraws(on.scene);
    const QRectF inKey(101, 101, 38, 28);
    QTRY_VERIFY(redraws.cover(inKey));
    redraws.clear();
    SceneEvents::hoverEnter(*on.key);
    QTRY_VERIFY(redraws.cover(inKey));
    redraws.clear();
    SceneEvents::hoverLeave(*on.key);
    QTRY_VERIFY(redraws.cover(inKey));
}

void GkeyPressTest::hoverCursorTellsWhatCanBeDragged_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<bool>("isHidden");
    QTest::addColumn<Qt::CursorShape>("cursor");
    QTest::newRow("empty") << QString() << false << Qt::ArrowCursor;
    QTest::newRow("command") << Command << false << Qt::OpenHandCursor;
    QTest::newRow("hidden command") << Command << true << Qt::ArrowCursor;
}

void GkeyPressTest::hoverCursorTellsWhatCanBeDragged()
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

void GkeyPressTest::leavingKeepsTheCursor()
{
    KeyScene on;
    on.setMacro(Command);
    SceneEvents::hoverEnter(*on.key);
    SceneEvents::hoverLeave(*on.key);
    QCOMPARE(on.key->cursor().shape(), Qt::OpenHandCursor);
}

void GkeyPressTest::otherButtonsAreIgnored_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void GkeyPressTest::otherButtonsAreIgnored()
{
    QFETCH(Qt::MouseButton, button);
    KeyScene on;
    for (const QString& macroID : {QString(), Command}) {
        on.setMacro(macroID);
        QVERIFY(!SceneEvents::press(*on.key, QPointF(110, 110), button));
        QCOMPARE(on.takeLog(), QStringList());
    }
}

void GkeyPressTest::pressOnAnEmptyKeyShowsTheTip()
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

void GkeyPressTest::pressOnAnEmptyKeyWithoutCommandsOpensTheEditor()
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

void GkeyPressTest::pressWhenTheHostFailsOpensTheEditor()
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

void GkeyPressTest::closedEditorAssignsTheNewCommand()
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

void GkeyPressTest::cancelledEditorAssignsNothing()
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

void GkeyPressTest::pressOnACommandClosesTheHand()
{
    KeyScene on;
    on.setMacro(Command);
    QVERIFY(SceneEvents::press(*on.key, QPointF(110, 110)));
    QCOMPARE(on.key->cursor().shape(), Qt::ClosedHandCursor);
    QCOMPARE(on.takeLog(), QStringList(R"(clicked("G7"))"));
}

void GkeyPressTest::pressOnAHiddenCommandDoesNothingMore()
{
    KeyScene on;
    on.setMacro(Command, true);
    on.key->setCursor(Qt::WaitCursor);
    SceneEvents::press(*on.key, QPointF(110, 110));
    QCOMPARE(on.key->cursor().shape(), Qt::WaitCursor);
    QCOMPARE(on.takeLog(), QStringList(R"(clicked("G7"))"));
}

void GkeyPressTest::releaseShowsTheArrow()
{
    KeyScene on;
    on.setMacro(Command);
    SceneEvents::press(*on.key);
    on.takeLog();
    SceneEvents::release(*on.key);
    QCOMPARE(on.key->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(on.takeLog(), QStringList());
}

void GkeyPressTest::doubleClickOpensAnEditor_data()
{
    QTest::addColumn<QString>("macroID");
    QTest::addColumn<bool>("isHidden");
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("command") << Command << false;
    QTest::newRow("hidden command") << Command << true;
}

void GkeyPressTest::doubleClickOpensAnEditor()
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

void GkeyPressTest::slotsEmitTheirSignals_data()
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

void GkeyPressTest::slotsEmitTheirSignals()
{
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, log);
    KeyScene on;
    QVERIFY(QMetaObject::invokeMethod(on.key, slot));
    QCOMPARE(on.takeLog(), log);
}

void GkeyPressTest::filterForwardsTheLabelsEvents_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<bool>("isTaken");
    const QStringList nothing;
    QTest::newRow("move") << QEvent::GraphicsSceneMouseMove << nothing << true;
    QTest::newRow("press") << QEvent::GraphicsSceneMousePress << QStringList(R"(clicked("G7"))") << true;
    QTest::newRow("double click") << QEvent::GraphicsSceneMouseDoubleClick << QStringList(R"(edit("G7"))")
                                  << true;
    QTest::newRow("context menu") << QEvent::GraphicsSceneContextMenu
                                  << QStringList({mainWindow(), assignmentHasBackup(), stringToGKey()})
                                  << true;
    QTest::newRow("drag leave") << QEvent::GraphicsSceneDragLeave << nothing << true;
    QTest::newRow("hover enter") << QEvent::GraphicsSceneHoverEnter << QStringList("hoverIn()") << false;
    QTest::newRow("hover leave") << QEvent::GraphicsSceneHoverLeave << QStringList("hoverOut()") << false;
    QTest::newRow("release") << QEvent::GraphicsSceneMouseRelease << nothing << false;
    QTest::newRow("hover move") << QEvent::GraphicsSceneHoverMove << nothing << false;
    QTest::newRow("wheel") << QEvent::GraphicsSceneWheel << nothing << false;
}

void GkeyPressTest::filterForwardsTheLabelsEvents()
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
    } else if (type == QEvent::GraphicsSceneContextMenu) {
        QGraphicsSceneContextMenuEvent event(type);
        const MenuDriver driver([](QMenu&) {});
        filter(event);
        QVERIFY(driver.hasRun());
    } else if (type == QEvent::GraphicsSceneDragLeave) {
        QGraphicsSceneDragDropEvent event(type);
        filter(event);
    } else {
        QGraphicsSceneMouseEvent event(type);
        event.setButton(Qt::LeftButton);
        event.ignore();
        filter(event);
        // Without that the scene would send no moves.
        QCOMPARE(event.isAccepted(), type == QEvent::GraphicsSceneMousePress);
    }
    // A release over the label leaves the key's cursor alone.
    if (type == QEvent::GraphicsSceneMouseRelease)
        QCOMPARE(on.key->cursor().shape(), Qt::WaitCursor);
}

void GkeyPressTest::filterDoesNotLookAtTheWatchedItem()
{
    KeyScene on;
    QGraphicsSceneHoverEvent event(QEvent::GraphicsSceneHoverEnter);
    on.key->sceneEventFilter(nullptr, &event);
    QVERIFY(on.key->isLit());
}

void GkeyPressTest::pointerOnTheLabelIsPointerOnTheKey()
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

void GkeyPressTest::pressOnTheLabelIsAPressOnTheKey()
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

VELTRANO_TEST_MAIN(GkeyPressTest)
#include "GkeyPressTest.moc"
