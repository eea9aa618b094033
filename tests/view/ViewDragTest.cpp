#include "ViewFixture.h"

#include <cMacroEditor.h>
#include <cMacroList.h>
#include <DialogDriver.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <RealPointer.h>
#include <TestCase.h>

#include <QProcess>
#include <QSignalSpy>
#include <QTimer>

#include <functional>

namespace {

using Action = std::function<void(ViewFixture&)>;

const char* const TwoKeys = R"(
<mstates><mstate id="M1"/><mstate id="M2"/></mstates>
<controls>
  <control id="G1"><points><point x="400" y="200"/><point x="480" y="200"/><point x="480" y="240"/><point x="400" y="240"/></points></control>
  <control id="G2"><points><point x="600" y="200"/><point x="680" y="200"/><point x="680" y="240"/><point x="600" y="240"/></points></control>
</controls>)";
constexpr QPoint OnG1(440, 220);
constexpr QPoint OnG2(640, 220);

} // namespace

Q_DECLARE_METATYPE(Action)

/// Host events that come while the user drags or while a dialog is open, on a display.
class ViewDragTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void eventDuringTheDragOfALabel_data();
    void eventDuringTheDragOfALabel();
    void eventDuringTheDragOfACommand_data();
    void eventDuringTheDragOfACommand();
    void viewIsClosedWhileTheEditorIsOpen();
    void viewIsClosedWhileTheEditorOfAKeyIsOpen();

private:
    QString moveTo(const QPoint& place) const
    {
        return RealPointer::moveTo(
            m_fixture->canvas->viewport()->mapToGlobal(m_fixture->canvas->mapFromScene(place)));
    }
    /// Drags from a place of the screen onto the second key; does something as soon as the drag runs.
    bool drag(const QString& start, const QString& away, const Action& action);
    static void addEvents();

    QScopedPointer<ViewFixture> m_fixture;
};

void ViewDragTest::init()
{
    m_fixture.reset();
    m_fixture.reset(new ViewFixture);
    ViewFixture& fixture = *m_fixture;
    fixture.host.answer(
        "getMacroTypeByID", [](const RecordedCall&) { return QVariant::fromValue(makeMacroType({"key"})); });
    fixture.host.answer("canMacroBeAssignedTo", true);
    for (const char* profile : {"{P}", "{Q}"})
        fixture.categories[profile] = QStringList("pad");
    fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
    fixture.assign("{P}", "G1", "{1}");
    QVERIFY(fixture.showOnScreen());
    fixture.open(makeManifest(TwoKeys));
    fixture.showProfile("{P}");
    fixture.host.publishProfileSelectionChanged("{P}");
    QTRY_COMPARE(fixture.macroList()->count(), 1);
    fixture.host.clear();
}

void ViewDragTest::cleanup()
{
    m_fixture.reset();
}

bool ViewDragTest::drag(const QString& start, const QString& away, const Action& action)
{
    bool ran = false;
    QSignalSpy keyStarted(m_fixture->key("G1"), SIGNAL(assignmentStartDrag(QString)));
    QSignalSpy listStarted(m_fixture->macroList(), SIGNAL(singleMacroStartDrag(cJsonValue)));
    QProcess begin;
    QProcess end;
    QTimer look;
    connect(&look, &QTimer::timeout, [&] {
        if (ran || keyStarted.isEmpty() == listStarted.isEmpty())
            return;
        ran = true;
        action(*m_fixture);
        const QString way = moveTo(OnG2 - QPoint(9, 0)) + " sleep 0.1 " + moveTo(OnG2 - QPoint(4, 0))
            + " sleep 0.1 " + moveTo(OnG2) + " sleep 0.3 mouseup 1";
        end.start("xdotool", way.split(' '));
    });
    look.start(10);
    begin.start(
        "xdotool", (start + " sleep 0.3 mousedown 1 sleep 0.1 " + away + " sleep 0.1 " + away).split(' '));
    // The drag runs a loop of its own, so this goes on behind it. A drag that the view ends leaves the
    // pointer on its way.
    return QTest::qWaitFor(
        [&] { return ran && begin.state() == QProcess::NotRunning && end.state() == QProcess::NotRunning; },
        20000);
}

void ViewDragTest::addEvents()
{
    QTest::addColumn<Action>("action");
    QTest::newRow("nothing") << Action([](ViewFixture&) {});
    QTest::newRow("the label goes") << Action([](ViewFixture& fixture) {
        fixture.host.publishAssignmentRemoved("{P}", "pad", MKey::M1, "G1", "{1}");
    });
    QTest::newRow("the label is replaced") << Action(
        [](ViewFixture& fixture) { fixture.host.publishMacroAssigned("{P}", "pad", "{1}", MKey::M1, "G1"); });
    QTest::newRow("the command is deleted") << Action(
        [](ViewFixture& fixture) { fixture.host.publishMacroDeleted("{P}", makeMacro("{1}", "Jump")); });
    QTest::newRow("another profile is shown") << Action([](ViewFixture& fixture) {
        fixture.host.publishProfileSelectionChanging("{Q}");
        fixture.host.publishProfileSelectionChanged("{Q}");
    });
    QTest::newRow("another mode is shown")
        << Action([](ViewFixture& fixture) { fixture.host.publishMStateChanged(MKey::M2, "pad"); });
    QTest::newRow("the main window closes")
        << Action([](ViewFixture& fixture) { fixture.host.publishMainWindowClosing(); });
    QTest::newRow("the view is closed")
        << Action([](ViewFixture& fixture) { fixture.view.deinit(cJsonValue(), nullptr); });
}

void ViewDragTest::eventDuringTheDragOfALabel_data()
{
    addEvents();
}

void ViewDragTest::eventDuringTheDragOfALabel()
{
    QFETCH(Action, action);
    QVERIFY(drag(moveTo(OnG1), moveTo(OnG1 + QPoint(14, 0)), action));
    const QStringList calls = m_fixture->host.takeCalls();
    if (!m_fixture->key("G2")) {
        QCOMPARE(calls.filter("setAssignment").size(), 0);
        return;
    }
    // What was dragged lands all the same, in the profile and mode that are shown by now, and the key behind
    // it is emptied.
    const QString profile = m_fixture->view.getProfileId();
    const QString mode = QString::number(m_fixture->view.getCurrentMState());
    const QString place = QStringLiteral("\"%1\", \"pad\", ").arg(profile);
    QCOMPARE(calls.filter(QRegularExpression("^(setAssignment|removeAssignment)")),
        QStringList({"setAssignment(" + place + "\"{1}\", " + mode + ", \"G2\")",
            "removeAssignment(" + place + mode + ", \"G1\")"}));
}

void ViewDragTest::eventDuringTheDragOfACommand_data()
{
    addEvents();
}

void ViewDragTest::eventDuringTheDragOfACommand()
{
    QFETCH(Action, action);
    cMacroList& list = *m_fixture->macroList();
    const QWidget* const rowWidget = list.itemWidget(list.item(0));
    QTRY_VERIFY(rowWidget && rowWidget->isVisible());
    const QPoint row = rowWidget->mapToGlobal(QPoint(60, rowWidget->height() / 2));
    QVERIFY(drag(RealPointer::moveTo(row), RealPointer::moveTo(row + QPoint(14, 0)), action));
    const QStringList calls = m_fixture->host.takeCalls().filter(QRegularExpression("^setAssignment"));
    QCOMPARE(calls.size(), m_fixture->key("G2") ? 1 : 0);
}

void ViewDragTest::viewIsClosedWhileTheEditorIsOpen()
{
    const DialogDriver driver([this](QDialog& dialog) {
        auto* const editor = qobject_cast<cMacroEditor*>(&dialog);
        QVERIFY(editor);
        m_fixture->view.deinit(cJsonValue(), nullptr);
        Q_EMIT editor->macroEditorClosed("{1}");
    });
    QVERIFY(m_fixture->call("newCommand"));
    QVERIFY(driver.hasRun());
    QVERIFY(!m_fixture->macroList());
}

void ViewDragTest::viewIsClosedWhileTheEditorOfAKeyIsOpen()
{
    m_fixture->putMacro("{P}", makeMacro("{3}", "Hidden", true));
    m_fixture->assign("{P}", "G2", "{3}");
    const DialogDriver driver([this](QDialog& dialog) {
        auto* const editor = qobject_cast<cMacroEditor*>(&dialog);
        QVERIFY(editor);
        m_fixture->view.deinit(cJsonValue(), nullptr);
        m_fixture->host.clear();
        Q_EMIT editor->macroEditorClosed("{1}");
    });
    QVERIFY(m_fixture->call("onEditAssignment", Q_ARG(QString, "G2")));
    QVERIFY(driver.hasRun());
    // There is no key left to take the command.
    QCOMPARE(m_fixture->host.takeCalls().filter("setAssignment").size(), 0);
}

VELTRANO_TEST_MAIN(ViewDragTest)
#include "ViewDragTest.moc"
