#include "CommandSupport.h"

#include <cClickableLabel.h>
#include <cMacroItem.h>
#include <cSearchBox.h>
#include <cSearchEditLine.h>
#include <DragFormats.h>
#include <MenuDriver.h>
#include <RealPointer.h>
#include <TestCase.h>

#include <QCursor>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>

#include <memory>

using namespace CommandSupport;

namespace {

/// Milliseconds for the window manager, which may share the machine with a build.
constexpr int WindowPatience = 20000;

/// Takes drops of commands, and says what came.
class Target : public QWidget
{
public:
    explicit Target(QWidget* parent)
        : QWidget(parent)
    {
        setAcceptDrops(true);
        setGeometry(250, 0, 50, 400);
    }

    QStringList dropped;
    QStringList formats;
    QPointer<QObject> source;
    Qt::DropActions possible;
    /// Called when the drag has come.
    std::function<void()> onEnter;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        event->acceptProposedAction();
        if (onEnter)
            onEnter();
    }
    void dragMoveEvent(QDragMoveEvent* event) override
    {
        // By a move the source has learnt that the drop is welcome.
        event->acceptProposedAction();
        if (!m_released)
            RealPointer::act("mouseup 1");
        m_released = true;
    }
    void dropEvent(QDropEvent* event) override
    {
        dropped = DragFormats::macroIds(*event->mimeData());
        formats = event->mimeData()->formats();
        source = event->source();
        possible = event->possibleActions();
        event->acceptProposedAction();
    }

private:
    bool m_released = false;
};

/// A panel on the screen with the pointer of the display.
class Stage
{
public:
    Stage()
        : target(new Target(&panel.window))
        , box(244, 28, &panel.window)
    {
        box.move(0, 330);
        box.setForwarding(panel.list.get(),
            {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter});
        QObject::connect(
            &box, SIGNAL(textEdited(const QString&)), panel.list.get(), SLOT(onSearch(const QString&)));
        // Placed before it is shown, and without a frame: the window manager moves one that is up at its own
        // time.
        panel.window.setWindowFlag(Qt::FramelessWindowHint);
        panel.window.setGeometry(100, 100, 300, 400);
        target->show();
        box.show();
    }

    bool isUp()
    {
        panel.window.show();
        return QTest::qWaitForWindowActive(&panel.window, WindowPatience);
    }

    /// A place of a row, on its name.
    QString moveTo(int row, const QPoint& offset = QPoint())
    {
        return RealPointer::moveTo(panel.row(row)->mapToGlobal(QPoint(60, 15)) + offset);
    }
    /// Drags that row to the target; what was told of it stands in the log.
    void drag(int row, const QString& press = "mousedown 1")
    {
        bool ended = false;
        panel.signalLog->onLine = [&](const QString& line) {
            if (line.contains("StartDrag")) {
                RealPointer::act(RealPointer::moveTo(*target, QPoint(-8, 0)) + ' '
                    + RealPointer::moveTo(*target, QPoint(-4, 0)) + ' ' + RealPointer::moveTo(*target));
            } else if (line.contains("EndDrag")) {
                ended = true;
            }
        };
        const QPointer<cMacroList> list = panel.list.get();
        RealPointer::act(moveTo(row) + ' ' + press + ' ' + moveTo(row, QPoint(14, 0)));
        QTRY_VERIFY_WITH_TIMEOUT(ended || !list, 20000);
        if (list)
            panel.signalLog->onLine = nullptr;
    }
    QStringList dragLog()
    {
        QStringList lines;
        for (const QString& line : panel.takeLog()) {
            if (line.contains("Drag"))
                lines.append(line);
        }
        return lines;
    }
    QList<int> selectedRows() const
    {
        QList<int> rows;
        for (int i = 0; i < panel.list->count(); ++i) {
            if (panel.list->item(i)->isSelected())
                rows.append(i);
        }
        return rows;
    }
    cSearchEditLine& edit() const { return *box.findChild<cSearchEditLine*>(); }
    /// True once the log has had that line.
    bool heard(const QString& line)
    {
        m_heard += panel.takeLog();
        return m_heard.contains(line);
    }

    Panel panel {false};
    Target* const target;
    cSearchBox box;

private:
    QStringList m_heard;
};

} // namespace

/// The panel under the real pointer and the real keyboard focus.
class CommandPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void rowIsDragged();
    void severalRowsAreDragged();
    void rowMayGoWhileItIsDragged();
    void profileMaySwitchWhileARowIsDragged();
    void listMayGoWhileARowIsDragged();
    void pressSelectsAndHolds();
    void ctrlClickExtendsWithTheOpenHand();
    void pointerLightsRowsUp();
    void scrolledRowLosesThePointer();
    void rightClickSelectsAndOpensTheMenu();
    void contextIconOpensTheMenuOfItsRow();
    void keysWalkTheListFromTheSearch();
    void clickIntoTheSearchTellsTheList();
};

void CommandPanelTest::cleanup()
{
    RealPointer::act("mouseup 1 keyup ctrl mousemove 900 700");
    QTRY_VERIFY_WITH_TIMEOUT(RealPointer::isIdle(), WindowPatience);
    QTRY_COMPARE(QCursor::pos(), QPoint(900, 700));
}

void CommandPanelTest::rowIsDragged()
{
    Stage stage;
    stage.panel.fillNames({"a", "b", "c"});
    QVERIFY(stage.isUp());
    stage.drag(1);
    QCOMPARE(stage.dragLog(), QStringList({"singleMacroStartDrag({2})", "singleMacroEndDrag()"}));
    QCOMPARE(stage.target->dropped, QStringList({"{2}"}));
    QCOMPARE(stage.target->formats, QStringList({DragFormats::Macros}));
    QCOMPARE(stage.target->source, stage.panel.list.get());
    QCOMPARE(stage.target->possible, Qt::DropActions(Qt::CopyAction));
    QCOMPARE(stage.panel.list->cursor().shape(), Qt::OpenHandCursor);
}

void CommandPanelTest::severalRowsAreDragged()
{
    Stage stage;
    stage.panel.fillNames({"a", "b", "c"});
    QVERIFY(stage.isUp());
    stage.panel.select({0, 2});
    stage.drag(2);
    QCOMPARE(stage.dragLog(), QStringList({"multiMacroStartDrag()", "multiMacroEndDrag()"}));
    QStringList dropped = stage.target->dropped;
    dropped.sort();
    QCOMPARE(dropped, QStringList({"{1}", "{3}"}));
}

void CommandPanelTest::rowMayGoWhileItIsDragged()
{
    Stage stage;
    stage.panel.fillNames({"a", "b", "c"});
    QVERIFY(stage.isUp());
    const QPointer<cMacroItem> row = stage.panel.row(1);
    stage.target->onEnter = [&stage] {
        stage.panel.host.publishMacroDeleted(Profile, macro("{2}", ""));
    };
    stage.drag(1);
    QVERIFY(!row);
    QCOMPARE(stage.dragLog(), QStringList({"singleMacroStartDrag({2})", "singleMacroEndDrag()"}));
    QCOMPARE(stage.target->dropped, QStringList({"{2}"}));
    QCOMPARE(stage.panel.shownNames(), QStringList({"a", "c"}));
    // The list takes presses as before.
    RealPointer::act(stage.moveTo(0) + " click 1");
    QTRY_COMPARE(stage.selectedRows(), QList<int>({0}));
}

void CommandPanelTest::profileMaySwitchWhileARowIsDragged()
{
    Stage stage;
    stage.panel.fillNames({"a", "b", "c"});
    QVERIFY(stage.isUp());
    stage.target->onEnter = [&stage] {
        show("{Q}");
        stage.panel.startFill(macros({"x", "y"}));
    };
    stage.drag(1);
    QCOMPARE(stage.dragLog(), QStringList({"singleMacroStartDrag({2})", "singleMacroEndDrag()"}));
    QTRY_COMPARE(stage.panel.shownNames(), QStringList({"x", "y"}));
}

void CommandPanelTest::listMayGoWhileARowIsDragged()
{
    Stage stage;
    stage.panel.fillNames({"a", "b", "c"});
    QVERIFY(stage.isUp());
    // The host takes the view down from the event loop that the drag runs.
    stage.target->onEnter = [&stage] {
        QTimer::singleShot(0, stage.target, [&stage] { stage.panel.list.reset(); });
    };
    stage.drag(1);
    QVERIFY(!stage.panel.list);
    QCOMPARE(stage.dragLog(), QStringList({"singleMacroStartDrag({2})"}));
    QCOMPARE(stage.target->dropped, QStringList());
}

void CommandPanelTest::pressSelectsAndHolds()
{
    Stage stage;
    stage.panel.fillNames({"a", "b"});
    QVERIFY(stage.isUp());
    RealPointer::act(stage.moveTo(1) + " mousedown 1");
    QTRY_COMPARE(stage.panel.row(1)->cursor().shape(), Qt::ClosedHandCursor);
    QCOMPARE(stage.selectedRows(), QList<int>({1}));
    RealPointer::act("mouseup 1");
    QTRY_COMPARE(stage.panel.row(1)->cursor().shape(), Qt::OpenHandCursor);
}

void CommandPanelTest::ctrlClickExtendsWithTheOpenHand()
{
    Stage stage;
    stage.panel.fillNames({"a", "b", "c"});
    QVERIFY(stage.isUp());
    stage.panel.select({0});
    RealPointer::act(stage.moveTo(2) + " keydown ctrl mousedown 1");
    QTRY_COMPARE(stage.selectedRows(), QList<int>({0, 2}));
    QCOMPARE(stage.panel.row(2)->cursor().shape(), Qt::OpenHandCursor);
    RealPointer::act("mouseup 1 keyup ctrl");
    QTRY_COMPARE(QGuiApplication::mouseButtons(), Qt::NoButton);
    QCOMPARE(stage.selectedRows(), QList<int>({0, 2}));
}

void CommandPanelTest::pointerLightsRowsUp()
{
    Stage stage;
    stage.panel.fillNames({"a", "b"});
    QVERIFY(stage.isUp());
    const auto icon = [&stage](int row) {
        return stage.panel.row(row)->findChild<cClickableLabel*>();
    };
    RealPointer::act(stage.moveTo(0));
    QTRY_VERIFY(icon(0)->isVisible());
    RealPointer::act(stage.moveTo(1));
    QTRY_VERIFY(icon(1)->isVisible());
    QVERIFY(!icon(0)->isVisible());
    RealPointer::act("mousemove 900 700");
    QTRY_VERIFY(!icon(1)->isVisible());
    QCOMPARE(stage.panel.takeLog(), QStringList({"hoverIn()", "hoverOut()", "hoverIn()", "hoverOut()"}));
}

void CommandPanelTest::scrolledRowLosesThePointer()
{
    Stage stage;
    QStringList names;
    for (int i = 0; i < 60; ++i)
        names.append(QString("%1").arg(i, 3, 10, QLatin1Char('0')));
    stage.panel.fill(macros(names));
    QVERIFY(stage.isUp());
    const auto* icon = stage.panel.row(0)->findChild<cClickableLabel*>();
    RealPointer::act(stage.moveTo(0));
    QTRY_VERIFY(icon->isVisible());
    RealPointer::act("click --repeat 4 5");
    QTRY_VERIFY(stage.panel.list->verticalScrollBar()->value() > 200);
    QTRY_VERIFY(icon->isHidden());
    stage.panel.list->verticalScrollBar()->setValue(0);
    RealPointer::act("mousemove 900 700");
    QTRY_VERIFY(stage.panel.row(0)->isVisible());
    QVERIFY(!icon->isVisible());
}

void CommandPanelTest::rightClickSelectsAndOpensTheMenu()
{
    Stage stage;
    stage.panel.fillNames({"a", "b"});
    QVERIFY(stage.isUp());
    QStringList entries;
    MenuDriver driver([&](QMenu& menu) { entries = MenuDriver::entriesOf(menu); });
    RealPointer::act(stage.moveTo(1) + " click 3");
    QTRY_VERIFY(driver.hasRun());
    QCOMPARE(entries, QStringList({"Edit...", "Delete"}));
    QCOMPARE(stage.selectedRows(), QList<int>({1}));
}

void CommandPanelTest::contextIconOpensTheMenuOfItsRow()
{
    Stage stage;
    stage.panel.fillNames({"a", "b"});
    QVERIFY(stage.isUp());
    auto* icon = stage.panel.row(1)->findChild<cClickableLabel*>();
    // The pictures of this stage are missing; a button needs a size to be hit.
    icon->setMinimumSize(16, 16);
    RealPointer::act(stage.moveTo(1));
    QTRY_VERIFY(icon->isVisible());
    MenuDriver driver([&](QMenu& menu) { MenuDriver::choose(menu, "Edit..."); });
    RealPointer::act(RealPointer::moveTo(*icon) + " click 1");
    QTRY_VERIFY(driver.hasRun());
    QCOMPARE(stage.selectedRows(), QList<int>({1}));
    QTRY_VERIFY(stage.heard("editMacro({2})"));
}

void CommandPanelTest::keysWalkTheListFromTheSearch()
{
    Stage stage;
    stage.panel.fillNames({"Fire", "Find", "Jump"});
    QVERIFY(stage.isUp());
    // The window's first focus was on the list and made its first row the current one.
    stage.panel.list->setCurrentIndex(QModelIndex());
    RealPointer::act(RealPointer::moveTo(stage.edit()) + " click 1");
    QTRY_VERIFY(stage.edit().hasFocus());
    RealPointer::act("type fi");
    QTRY_COMPARE(stage.edit().text(), QString("fi"));
    QTRY_COMPARE(stage.panel.shownNames(), QStringList({"Find", "Fire"}));
    RealPointer::act("key Down");
    QTRY_COMPARE(stage.selectedRows(), QList<int>({0}));
    RealPointer::act("key Down");
    QTRY_COMPARE(stage.selectedRows(), QList<int>({1}));
    QCOMPARE(stage.edit().cursorPosition(), 2);
    QVERIFY(stage.edit().hasFocus());
    RealPointer::act("key Return");
    QTRY_VERIFY(stage.heard("editMacro({1})"));
    QVERIFY(stage.edit().hasFocus());
    QCOMPARE(stage.edit().text(), QString("fi"));
}

void CommandPanelTest::clickIntoTheSearchTellsTheList()
{
    Stage stage;
    stage.panel.fillNames({"Fire"});
    QVERIFY(stage.isUp());
    QSignalSpy told(&stage.box, SIGNAL(textEdited(QString)));
    RealPointer::act(RealPointer::moveTo(stage.edit()) + " click 1");
    QTRY_VERIFY(stage.edit().hasFocus());
    QCOMPARE(stage.edit().text(), QString());
    QCOMPARE(told, QList<QVariantList>({{QString()}}));
    // Leaving by a click into the list brings the word back.
    RealPointer::act(stage.moveTo(0) + " click 1");
    QTRY_COMPARE(stage.edit().text(), QString("Search"));
    QCOMPARE(told.size(), 1);
}

VELTRANO_TEST_MAIN(CommandPanelTest)
#include "CommandPanelTest.moc"
