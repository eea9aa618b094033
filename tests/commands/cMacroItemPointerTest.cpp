#include "RowStage.h"

#include <cClickableLabel.h>
#include <cMacroItem.h>
#include <TestCase.h>

#include <QApplication>

using namespace CommandSupport;

/// What the row does under the pointer.
class cMacroItemPointerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pressHoldsTheRow();
    void otherPressesDoNot_data();
    void otherPressesDoNot();
    void releaseLetsGo();
    void dragStartsBeyondTheDistance_data();
    void dragStartsBeyondTheDistance();
    void dragTakesTheLeftButtonAlone_data();
    void dragTakesTheLeftButtonAlone();
    void pressPointIsThatOfThePlainPress();
    void doubleClickEdits();
    void pointerShowsTheContextIcon();
    void contextIconAsksForTheMenu();
    void receiverMayDeleteTheRow_data();
    void receiverMayDeleteTheRow();
};

void cMacroItemPointerTest::pressHoldsTheRow()
{
    RowStage stage;
    QVERIFY(!stage.press(QPointF(50, 10)));
    QCOMPARE(stage.row->cursor().shape(), Qt::ClosedHandCursor);
}

void cMacroItemPointerTest::otherPressesDoNot_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("ctrl") << int(Qt::LeftButton) << int(Qt::ControlModifier);
    QTest::newRow("shift") << int(Qt::LeftButton) << int(Qt::ShiftModifier);
    QTest::newRow("keypad") << int(Qt::LeftButton) << int(Qt::KeypadModifier);
    QTest::newRow("right") << int(Qt::RightButton) << int(Qt::NoModifier);
    QTest::newRow("middle") << int(Qt::MiddleButton) << int(Qt::NoModifier);
}

void cMacroItemPointerTest::otherPressesDoNot()
{
    QFETCH(int, button);
    QFETCH(int, modifiers);
    RowStage stage;
    QVERIFY(!stage.send(QEvent::MouseButtonPress, QPointF(50, 10), Qt::MouseButton(button),
        Qt::MouseButton(button), Qt::KeyboardModifiers(modifiers)));
    QCOMPARE(stage.row->cursor().shape(), Qt::OpenHandCursor);
}

void cMacroItemPointerTest::releaseLetsGo()
{
    RowStage stage;
    stage.press(QPointF(50, 10));
    QVERIFY(!stage.send(QEvent::MouseButtonRelease, QPointF(50, 10), Qt::LeftButton, Qt::NoButton));
    QCOMPARE(stage.row->cursor().shape(), Qt::OpenHandCursor);
}

void cMacroItemPointerTest::dragStartsBeyondTheDistance_data()
{
    QTest::addColumn<QPointF>("way");
    QTest::addColumn<bool>("starts");
    const int distance = QApplication::startDragDistance();
    QTest::newRow("exactly the distance") << QPointF(distance, 0) << false;
    QTest::newRow("one pixel more") << QPointF(distance + 1, 0) << true;
    QTest::newRow("exactly, around the corner") << QPointF(distance - 3, -3) << false;
    QTest::newRow("more, around the corner") << QPointF(3 - distance, 4) << true;
    QTest::newRow("a part of a pixel more") << QPointF(distance + 0.25, 0) << true;
}

void cMacroItemPointerTest::dragStartsBeyondTheDistance()
{
    QFETCH(QPointF, way);
    QFETCH(bool, starts);
    RowStage stage;
    stage.press(QPointF(50, 10));
    stage.panel.host.clear();
    QVERIFY(stage.move(QPointF(50, 10) + way));
    QCOMPARE(stage.panel.takeLog(), starts ? QStringList({"dragStart({1})"}) : QStringList());
}

void cMacroItemPointerTest::dragTakesTheLeftButtonAlone_data()
{
    QTest::addColumn<int>("buttons");
    QTest::newRow("none") << int(Qt::NoButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("left and right") << int(Qt::LeftButton | Qt::RightButton);
}

void cMacroItemPointerTest::dragTakesTheLeftButtonAlone()
{
    QFETCH(int, buttons);
    RowStage stage;
    stage.press(QPointF(50, 10));
    QVERIFY(stage.move(QPointF(150, 10), Qt::MouseButtons(buttons)));
    QCOMPARE(stage.panel.takeLog(), QStringList());
}

void cMacroItemPointerTest::pressPointIsThatOfThePlainPress()
{
    RowStage stage;
    stage.press(QPointF(50, 10));
    stage.press(QPointF(150, 10), Qt::ControlModifier);
    stage.move(QPointF(150, 10));
    QCOMPARE(stage.panel.takeLog(), QStringList({"dragStart({1})"}));
}

void cMacroItemPointerTest::doubleClickEdits()
{
    RowStage stage;
    stage.send(QEvent::MouseButtonDblClick, QPointF(50, 10), Qt::RightButton, Qt::RightButton);
    QCOMPARE(stage.panel.takeLog(), QStringList());
    stage.send(QEvent::MouseButtonDblClick, QPointF(50, 10), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(stage.panel.takeLog(), QStringList({"macroDoubleClicked({1})"}));
}

void cMacroItemPointerTest::pointerShowsTheContextIcon()
{
    RowStage stage;
    stage.parent.show();
    stage.row->show();
    stage.press(QPointF(50, 10));
    stage.enter();
    QVERIFY(stage.contextIcon().isVisible());
    QCOMPARE(stage.row->cursor().shape(), Qt::OpenHandCursor);
    QCOMPARE(stage.background(), RowStage::colorOf("hover"));
    // At the bottom of the row, at its right end.
    stage.row->grab();
    QCOMPARE(stage.contextIcon().geometry().bottom(), 28);
    QVERIFY(stage.contextIcon().geometry().right() >= 215);
    stage.leave();
    QVERIFY(!stage.contextIcon().isVisible());
    QCOMPARE(stage.row->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(stage.background(), RowStage::colorOf("normal"));
    QCOMPARE(stage.panel.takeLog(), QStringList({"hoverIn()", "hoverOut()"}));
}

void cMacroItemPointerTest::contextIconAsksForTheMenu()
{
    RowStage stage;
    stage.parent.show();
    stage.enter();
    stage.panel.host.clear();
    QTest::mouseClick(&stage.contextIcon(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 3));
    const QPoint at = stage.contextIcon().mapToGlobal(QPoint(2, 3));
    QCOMPARE(stage.panel.takeLog(),
        QStringList({QString("macroContextMenuIconClicked(%1,%2)").arg(at.x()).arg(at.y())}));
}

void cMacroItemPointerTest::receiverMayDeleteTheRow_data()
{
    QTest::addColumn<QString>("signal");
    for (const char* signal : {"dragStart({1})", "macroDoubleClicked({1})", "nameChanged(\"Fire\")"})
        QTest::newRow(signal) << QString(signal);
}

void cMacroItemPointerTest::receiverMayDeleteTheRow()
{
    QFETCH(QString, signal);
    RowStage stage;
    bool deleted = false;
    stage.signalLog->onLine = [&](const QString& line) {
        if (line != signal)
            return;
        deleted = true;
        stage.row.reset();
    };
    stage.press(QPointF(50, 10));
    if (signal.startsWith("drag"))
        stage.move(QPointF(150, 10));
    else if (signal.startsWith("macro"))
        stage.send(QEvent::MouseButtonDblClick, QPointF(50, 10), Qt::LeftButton, Qt::LeftButton);
    else
        stage.row->setMacro(macro("{1}", "Fire"));
    QVERIFY(deleted);
}

VELTRANO_TEST_MAIN(cMacroItemPointerTest)
#include "cMacroItemPointerTest.moc"
