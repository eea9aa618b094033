#include "CommandSupport.h"

#include <cClickableLabel.h>
#include <cMacroItem.h>
#include <MetaMembers.h>
#include <MethodText.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

using namespace CommandSupport;

namespace {

const QStringList Looks {"normal", "normal_assigned", "normal_selected", "normal_selected_assigned", "hover",
    "hover_assigned", "hover_selected", "hover_selected_assigned"};

QColor colorOf(const QString& look)
{
    return QColor(20 * (Looks.indexOf(look) + 1), 0, 100);
}

/// A row on a host with the types, in a parent that stands for the list.
class Stage
{
public:
    explicit Stage(const cJsonValue& record = macro("{1}", "Jump"))
    {
        for (const QString& look : Looks)
            pictures.add("command_" + look + ".png", filledPicture(220, 30, colorOf(look)));
        pictures.add("pointer_left-click.png", filledPicture(16, 16, Qt::white));
        const QString keysIcon = pictures.add("keys.png", filledPicture(28, 28, Qt::red));
        const QString textIcon = pictures.add("text.png", filledPicture(20, 20, Qt::green));
        panel.types = {
            cMacroTypePtr(new FakeType(Keys, keysIcon)), cMacroTypePtr(new FakeType(Text, textIcon))};
        parent.resize(300, 60);
        make(record);
    }

    void make(const cJsonValue& record)
    {
        panel.host.clear();
        row = std::make_unique<cMacroItem>(record, &parent);
        log = panel.takeLog();
        signalLog = std::make_unique<SignalLog>(*row, cMacroItem::staticMetaObject, panel.host);
    }

    /// Sends the event to the row alone and tells whether it accepted it.
    bool send(QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons buttons,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QMouseEvent event(type, at, row->mapToGlobal(at.toPoint()), button, buttons, modifiers);
        QCoreApplication::sendEvent(row.get(), &event);
        return event.isAccepted();
    }
    bool press(const QPointF& at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        return send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, modifiers);
    }
    bool move(const QPointF& at, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        return send(QEvent::MouseMove, at, Qt::NoButton, buttons);
    }
    void enter()
    {
        QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(row.get(), &event);
    }
    void leave()
    {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(row.get(), &event);
    }
    /// The picture behind the labels, and how much of it there is.
    QColor background() { return row->grab().toImage().pixelColor(215, 2); }
    QList<QLabel*> labels() const { return row->findChildren<QLabel*>(); }
    cClickableLabel& contextIcon() const { return *row->findChild<cClickableLabel*>(); }
    QLabel* nameLabel() const
    {
        for (QLabel* label : labels()) {
            if (label->width() == 160)
                return label;
        }
        return nullptr;
    }
    QLabel* iconLabel() const
    {
        for (QLabel* label : labels()) {
            if (label != nameLabel() && label != &contextIcon())
                return label;
        }
        return nullptr;
    }
    QSize iconSize() const { return iconLabel() ? iconLabel()->pixmap(Qt::ReturnByValue).size() : QSize(); }

    TestPictures pictures;
    Panel panel;
    QWidget parent;
    std::unique_ptr<cMacroItem> row;
    QStringList log;
    std::unique_ptr<SignalLog> signalLog;
};

} // namespace

class cMacroItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembersInOrder();
    void parametersBearTheirNames();
    void constructionAsksTheHost();
    void constructionMakesTheRow();
    void rowWithoutTypeHasNoIcon_data();
    void rowWithoutTypeHasNoIcon();
    void firstMatchingTypeEndsTheWalk();
    void missingTypesArePassedOver();
    void nameIsNoMarkup();
    void longNameEndsInDots();
    void picturesShowTheState_data();
    void picturesShowTheState();
    void missingPicturesAreHarmless();
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
    void changedNameIsShownAndTold();
    void changedIconIsShownOnly();
    void changedRecordKeepsTheAssignedMark();
    void rowGetsItsIconWhenTheTypeComesLater();
    void receiverMayDeleteTheRow_data();
    void receiverMayDeleteTheRow();
};

void cMacroItemTest::hasItsMembersInOrder()
{
    const QMetaObject& meta = cMacroItem::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta),
        QStringList({"macroDoubleClicked(cJsonValue)", "macroContextMenuIconClicked(QPoint)",
            "dragStart(cJsonValue)", "hoverIn()", "hoverOut()", "nameChanged(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(meta), QStringList({"contextMenuIconClicked(QPoint)"}));
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
}

void cMacroItemTest::parametersBearTheirNames()
{
    const QStringList all = methodTexts(cMacroItem::staticMetaObject);
    for (const char* text :
        {"macroDoubleClicked(cJsonValue macro)", "dragStart(cJsonValue macro)", "nameChanged(QString name)"})
        QVERIFY2(all.contains(text), text);
}

void cMacroItemTest::constructionAsksTheHost()
{
    const Stage stage;
    QCOMPARE(stage.log, QStringList({assignedCall("{1}"), allTypesCall()}));
}

void cMacroItemTest::constructionMakesTheRow()
{
    const Stage stage;
    QCOMPARE(stage.row->size(), QSize(220, 30));
    QCOMPARE(stage.row->minimumSize(), stage.row->maximumSize());
    QCOMPARE(stage.row->cursor().shape(), Qt::OpenHandCursor);
    QCOMPARE(stage.row->toolTip(), QString("Jump"));
    QCOMPARE(stage.row->macroId(), QString("{1}"));
    QCOMPARE(stage.row->macro(), macro("{1}", "Jump"));
    QCOMPARE(stage.nameLabel()->text(), QString("Jump"));
    QCOMPARE(stage.iconSize(), QSize(28, 28));
    QVERIFY(stage.contextIcon().isHidden());

    const auto* layout = qobject_cast<QHBoxLayout*>(stage.row->layout());
    QCOMPARE(layout->contentsMargins(), QMargins(10, 1, 1, 1));
    QCOMPARE(layout->count(), 4);
    QCOMPARE(layout->itemAt(0)->widget(), stage.iconLabel());
    QCOMPARE(layout->itemAt(1)->widget(), stage.nameLabel());
    QVERIFY(layout->itemAt(2)->spacerItem());
    QCOMPARE(layout->stretch(2), 1);
    auto* column = dynamic_cast<QVBoxLayout*>(layout->itemAt(3)->layout());
    QVERIFY(column->itemAt(0)->spacerItem());
    QCOMPARE(column->itemAt(1)->widget(), &stage.contextIcon());
}

void cMacroItemTest::rowWithoutTypeHasNoIcon_data()
{
    QTest::addColumn<cJsonValue>("record");
    QTest::newRow("another namespace") << macro("{1}", "Jump", "urn:unknown");
    cJsonValue record = macro("{1}", "Jump");
    record.deleteKey("namespace");
    QTest::newRow("none") << record;
    cJsonValue empty = macro("{1}", "Jump", "");
    QTest::newRow("empty") << empty;
}

void cMacroItemTest::rowWithoutTypeHasNoIcon()
{
    QFETCH(cJsonValue, record);
    Stage stage;
    // A type without an id matches nothing, not even a command without a namespace.
    auto* nameless = new FakeType(QString(), QString());
    nameless->m_info.deleteKey("uid");
    stage.panel.types.prepend(cMacroTypePtr(nameless));
    stage.make(record);
    QCOMPARE(stage.iconLabel(), nullptr);
    QCOMPARE(stage.row->layout()->itemAt(0)->widget(), stage.nameLabel());
    // By position the stretch falls on the column of the context icon.
    QVERIFY(stage.row->layout()->itemAt(2)->layout());
    QCOMPARE(qobject_cast<QHBoxLayout*>(stage.row->layout())->stretch(2), 1);
    stage.row->grab();
}

void cMacroItemTest::firstMatchingTypeEndsTheWalk()
{
    Stage stage;
    stage.panel.types.append(
        cMacroTypePtr(new FakeType(Keys, stage.pictures.add("late.png", filledPicture(5, 5, Qt::blue)))));
    stage.make(macro("{1}", "Jump"));
    QCOMPARE(stage.iconSize(), QSize(28, 28));
}

void cMacroItemTest::missingTypesArePassedOver()
{
    Stage stage;
    stage.panel.types.prepend(cMacroTypePtr());
    stage.make(macro("{1}", "Jump"));
    QCOMPARE(stage.iconSize(), QSize(28, 28));
}

void cMacroItemTest::nameIsNoMarkup()
{
    const Stage stage(macro("{1}", "<b>Jump</b> & run"));
    QCOMPARE(stage.nameLabel()->text(), QString("<b>Jump</b> & run"));
    QCOMPARE(stage.nameLabel()->textFormat(), Qt::PlainText);
}

void cMacroItemTest::longNameEndsInDots()
{
    const QString name = QString("Wide ").repeated(30);
    Stage stage(macro("{1}", name));
    const QImage full = stage.nameLabel()->grab().toImage();
    QCOMPARE(stage.nameLabel()->text(), name);
    const QString shown = stage.nameLabel()->fontMetrics().elidedText(name, Qt::ElideRight, 160);
    QVERIFY(shown != name);
    stage.make(macro("{1}", shown));
    QCOMPARE(stage.nameLabel()->grab().toImage(), full);
}

void cMacroItemTest::picturesShowTheState_data()
{
    QTest::addColumn<bool>("hover");
    QTest::addColumn<bool>("assigned");
    QTest::addColumn<bool>("selected");
    for (int state = 0; state < 8; ++state) {
        const bool hover = state & 4;
        const bool selected = state & 2;
        const bool assigned = state & 1;
        QTest::newRow(qPrintable(Looks[state])) << hover << assigned << selected;
    }
}

void cMacroItemTest::picturesShowTheState()
{
    QFETCH(bool, hover);
    QFETCH(bool, assigned);
    QFETCH(bool, selected);
    Stage stage;
    stage.row->setAssigned(assigned);
    stage.row->setRowSelected(selected);
    if (hover)
        stage.enter();
    QCOMPARE(stage.background(), colorOf(QTest::currentDataTag()));
    // The mark that the host gives at construction is the same.
    stage.panel.host.answer("isMacroAssigned", assigned);
    stage.make(macro("{1}", "Jump"));
    stage.row->setRowSelected(selected);
    if (hover)
        stage.enter();
    QCOMPARE(stage.background(), colorOf(QTest::currentDataTag()));
}

void cMacroItemTest::missingPicturesAreHarmless()
{
    Stage stage;
    const TestPictures none;
    stage.make(macro("{1}", "Jump"));
    stage.enter();
    stage.row->grab();
    stage.leave();
    QCOMPARE(stage.nameLabel()->text(), QString("Jump"));
}

void cMacroItemTest::pressHoldsTheRow()
{
    Stage stage;
    QVERIFY(!stage.press(QPointF(50, 10)));
    QCOMPARE(stage.row->cursor().shape(), Qt::ClosedHandCursor);
}

void cMacroItemTest::otherPressesDoNot_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("ctrl") << int(Qt::LeftButton) << int(Qt::ControlModifier);
    QTest::newRow("shift") << int(Qt::LeftButton) << int(Qt::ShiftModifier);
    QTest::newRow("keypad") << int(Qt::LeftButton) << int(Qt::KeypadModifier);
    QTest::newRow("right") << int(Qt::RightButton) << int(Qt::NoModifier);
    QTest::newRow("middle") << int(Qt::MiddleButton) << int(Qt::NoModifier);
}

void cMacroItemTest::otherPressesDoNot()
{
    QFETCH(int, button);
    QFETCH(int, modifiers);
    Stage stage;
    QVERIFY(!stage.send(QEvent::MouseButtonPress, QPointF(50, 10), Qt::MouseButton(button),
        Qt::MouseButton(button), Qt::KeyboardModifiers(modifiers)));
    QCOMPARE(stage.row->cursor().shape(), Qt::OpenHandCursor);
}

void cMacroItemTest::releaseLetsGo()
{
    Stage stage;
    stage.press(QPointF(50, 10));
    QVERIFY(!stage.send(QEvent::MouseButtonRelease, QPointF(50, 10), Qt::LeftButton, Qt::NoButton));
    QCOMPARE(stage.row->cursor().shape(), Qt::OpenHandCursor);
}

void cMacroItemTest::dragStartsBeyondTheDistance_data()
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

void cMacroItemTest::dragStartsBeyondTheDistance()
{
    QFETCH(QPointF, way);
    QFETCH(bool, starts);
    Stage stage;
    stage.press(QPointF(50, 10));
    stage.panel.host.clear();
    QVERIFY(stage.move(QPointF(50, 10) + way));
    QCOMPARE(stage.panel.takeLog(), starts ? QStringList({"dragStart({1})"}) : QStringList());
}

void cMacroItemTest::dragTakesTheLeftButtonAlone_data()
{
    QTest::addColumn<int>("buttons");
    QTest::newRow("none") << int(Qt::NoButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("left and right") << int(Qt::LeftButton | Qt::RightButton);
}

void cMacroItemTest::dragTakesTheLeftButtonAlone()
{
    QFETCH(int, buttons);
    Stage stage;
    stage.press(QPointF(50, 10));
    QVERIFY(stage.move(QPointF(150, 10), Qt::MouseButtons(buttons)));
    QCOMPARE(stage.panel.takeLog(), QStringList());
}

void cMacroItemTest::pressPointIsThatOfThePlainPress()
{
    Stage stage;
    stage.press(QPointF(50, 10));
    stage.press(QPointF(150, 10), Qt::ControlModifier);
    stage.move(QPointF(150, 10));
    QCOMPARE(stage.panel.takeLog(), QStringList({"dragStart({1})"}));
}

void cMacroItemTest::doubleClickEdits()
{
    Stage stage;
    stage.send(QEvent::MouseButtonDblClick, QPointF(50, 10), Qt::RightButton, Qt::RightButton);
    QCOMPARE(stage.panel.takeLog(), QStringList());
    stage.send(QEvent::MouseButtonDblClick, QPointF(50, 10), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(stage.panel.takeLog(), QStringList({"macroDoubleClicked({1})"}));
}

void cMacroItemTest::pointerShowsTheContextIcon()
{
    Stage stage;
    stage.parent.show();
    stage.row->show();
    stage.press(QPointF(50, 10));
    stage.enter();
    QVERIFY(stage.contextIcon().isVisible());
    QCOMPARE(stage.row->cursor().shape(), Qt::OpenHandCursor);
    // At the bottom of the row, at its right end.
    stage.row->grab();
    QCOMPARE(stage.contextIcon().geometry().bottom(), 28);
    QVERIFY(stage.contextIcon().geometry().right() >= 215);
    stage.leave();
    QVERIFY(!stage.contextIcon().isVisible());
    QCOMPARE(stage.row->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(stage.panel.takeLog(), QStringList({"hoverIn()", "hoverOut()"}));
}

void cMacroItemTest::contextIconAsksForTheMenu()
{
    Stage stage;
    stage.parent.show();
    stage.enter();
    stage.panel.host.clear();
    QTest::mouseClick(&stage.contextIcon(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 3));
    const QPoint at = stage.contextIcon().mapToGlobal(QPoint(2, 3));
    QCOMPARE(stage.panel.takeLog(),
        QStringList({QString("macroContextMenuIconClicked(%1,%2)").arg(at.x()).arg(at.y())}));
}

void cMacroItemTest::changedNameIsShownAndTold()
{
    Stage stage;
    stage.row->setMacro(macro("{1}", "Fire"));
    QCOMPARE(stage.nameLabel()->text(), QString("Fire"));
    QCOMPARE(stage.row->toolTip(), QString("Fire"));
    QCOMPARE(stage.row->macro(), macro("{1}", "Fire"));
    QCOMPARE(stage.panel.takeLog(), QStringList({"nameChanged(\"Fire\")", allTypesCall()}));
}

void cMacroItemTest::changedIconIsShownOnly()
{
    Stage stage;
    stage.row->setMacro(macro("{1}", "Jump", Text));
    QCOMPARE(stage.iconSize(), QSize(20, 20));
    QCOMPARE(stage.panel.takeLog(), QStringList({allTypesCall()}));
    // A type that nobody knows leaves the icon.
    stage.row->setMacro(macro("{1}", "Jump", "urn:unknown"));
    QCOMPARE(stage.iconSize(), QSize(20, 20));
}

void cMacroItemTest::changedRecordKeepsTheAssignedMark()
{
    Stage stage;
    stage.row->setAssigned(true);
    stage.panel.host.takeCalls();
    stage.row->setMacro(macro("{1}", "Fire"));
    QCOMPARE(stage.background(), colorOf("normal_assigned"));
    QCOMPARE(stage.panel.host.takeCalls(), QStringList({"getAllMacroTypes()"}));
}

void cMacroItemTest::rowGetsItsIconWhenTheTypeComesLater()
{
    Stage stage(macro("{1}", "Jump", "urn:late"));
    QCOMPARE(stage.iconLabel(), nullptr);
    stage.panel.types.append(cMacroTypePtr(
        new FakeType("urn:late", stage.pictures.add("late.png", filledPicture(9, 9, Qt::blue)))));
    stage.row->setMacro(macro("{1}", "Jump", "urn:late"));
    QCOMPARE(stage.iconSize(), QSize(9, 9));
    QCOMPARE(stage.row->layout()->itemAt(0)->widget(), stage.iconLabel());
    QCOMPARE(stage.row->layout()->itemAt(1)->widget(), stage.nameLabel());
    stage.row->grab();
}

void cMacroItemTest::receiverMayDeleteTheRow_data()
{
    QTest::addColumn<QString>("signal");
    for (const char* signal : {"dragStart({1})", "macroDoubleClicked({1})", "nameChanged(\"Fire\")"})
        QTest::newRow(signal) << QString(signal);
}

void cMacroItemTest::receiverMayDeleteTheRow()
{
    QFETCH(QString, signal);
    Stage stage;
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

VELTRANO_TEST_MAIN(cMacroItemTest)
#include "cMacroItemTest.moc"
