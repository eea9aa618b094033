#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cMacroList.h>
#include <cPanel.h>
#include <Gkey.h>
#include <MagnetTextItem.h>
#include <RealPointer.h>
#include <TestCase.h>

#include <QPointer>
#include <QScopedPointer>
#include <QSignalSpy>

namespace {

/// The first glow lights at commands for keys, the second at those for a wheel.
const char* const Device = R"(
<pulseGlows>
  <pulseGlow x="1"><types><type name="key"/></types></pulseGlow>
  <pulseGlow x="2"><types><type name="key"/><type name="wheel"/></types></pulseGlow>
</pulseGlows>
<controls>
  <control id="G1"><points><point x="400" y="200"/><point x="480" y="200"/><point x="480" y="240"/><point x="400" y="240"/></points></control>
  <control id="G2"><points><point x="600" y="200"/><point x="680" y="200"/><point x="680" y="240"/><point x="600" y="240"/></points></control>
</controls>)";
constexpr QPoint OnG1(440, 220);

/// Milliseconds for a drag on a machine that may be busy.
constexpr int Patience = 20000;

/// What the row asks about its command's type, for two glows that are each connected for both.
const QStringList FourTypes {R"(getMacroTypeByID("uri/keystroke"))", R"(getMacroTypeByID("uri/keystroke"))",
    R"(getMacroTypeByID("uri/keystroke"))", R"(getMacroTypeByID("uri/keystroke"))"};
const QString Question = R"(canMacroBeAssignedTo("{2}", "{P}", "pad", 0, "G1"))";

/// Notes in the host's log what is told of a drag, with the glows that are lit then, and leads it over a key,
/// where it lets go.
class DragWitness : public QObject
{
    Q_OBJECT

public:
    explicit DragWitness(ViewFixture& fixture)
        : m_fixture(fixture)
    {
        const cMacroList* const list = fixture.macroList();
        connect(list, SIGNAL(singleMacroStartDrag(cJsonValue)), SLOT(onStart(cJsonValue)));
        connect(list, SIGNAL(singleMacroEndDrag()), SLOT(onEnd()));
        connect(list, SIGNAL(multiMacroStartDrag()), SLOT(onStart()));
        connect(list, SIGNAL(multiMacroEndDrag()), SLOT(onEnd()));
        connect(fixture.key("G1"), SIGNAL(macroDropped(QString, QString)), SLOT(onDropped(QString, QString)));
        fixture.canvas->viewport()->installEventFilter(this);
    }

    bool hasEnded() const { return m_hasEnded; }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::DragMove && !m_isOverKey
            && m_fixture.key("G1")->contains(static_cast<QDragMoveEvent*>(event)->pos())) {
            m_isOverKey = true;
            note("over the key");
            RealPointer::act("sleep 0.3 mouseup 1");
        }
        return false;
    }

public Q_SLOTS:
    void onStart(const cJsonValue& macro = cJsonValue())
    {
        note("drag of " + (macro.isNull() ? QString("several") : macro["uid"].toString()));
        const QWidget& canvas = *m_fixture.canvas->viewport();
        RealPointer::act(RealPointer::moveTo(canvas.mapToGlobal(OnG1 - QPoint(9, 0))) + " sleep 0.1 "
            + RealPointer::moveTo(canvas.mapToGlobal(OnG1)));
    }
    void onDropped(const QString& macroID, const QString& contextID)
    {
        note(macroID + " dropped on " + contextID);
    }
    void onEnd()
    {
        note("end");
        m_hasEnded = true;
    }

private:
    void note(const QString& what)
    {
        m_fixture.host.note(what + ", glows: " + m_fixture.litGlows().join(' '));
    }

    ViewFixture& m_fixture;
    bool m_isOverKey = false;
    bool m_hasEnded = false;
};

} // namespace

/// The way of a command from its row onto a key, with the pointer of the display: who asks whom for what, in
/// which order.
class CommandDragTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void droppedCommandGoesItsWholeWay_data();
    void droppedCommandGoesItsWholeWay();
    void refusedCommandChangesNothing();
    void severalCommandsEnterNoKey();

private:
    /// Opens the view, until all that comes by itself has come.
    void open();
    QWidget* row(const QString& name) const;
    /// Drags the row with the name of the command onto G1 and waits for the end; the host's log is empty
    /// before.
    bool drag(const QString& name) const;

    QScopedPointer<ViewFixture> m_fixture;
};

void CommandDragTest::init()
{
    m_fixture.reset(new ViewFixture);
    QVERIFY(m_fixture->showOnScreen());
    m_fixture->host.answer("canMacroBeAssignedTo", true);
    // As a host does: it stores the assignment and publishes that.
    m_fixture->host.answer("setAssignment", [this](const RecordedCall& call) {
        m_fixture->assign("{P}", call.values[4].toString(), call.values[2].toString());
        m_fixture->host.note("labels before: " + m_fixture->labels().join(' '));
        m_fixture->host.publishMacroAssigned(
            "{P}", "pad", call.values[2].toString(), MKey::M1, call.values[4].toString());
        m_fixture->host.note("labels after: " + m_fixture->labels().join(' '));
    });
}

void CommandDragTest::cleanup()
{
    m_fixture.reset();
}

void CommandDragTest::open()
{
    m_fixture->openWithCommands(Device);
    QTRY_COMPARE(m_fixture->items<cPanel>().size(), 2);
    QTRY_VERIFY(row("Run") && row("Run")->isVisible());
}

QWidget* CommandDragTest::row(const QString& name) const
{
    cMacroList& list = *m_fixture->macroList();
    const QList<QListWidgetItem*> found = list.findItems(name, Qt::MatchExactly);
    return found.size() == 1 ? list.itemWidget(found.constFirst()) : nullptr;
}

bool CommandDragTest::drag(const QString& name) const
{
    const QWidget* const start = row(name);
    if (!start)
        return false;
    const DragWitness witness(*m_fixture);
    const QPoint place = start->mapToGlobal(QPoint(60, 15));
    m_fixture->host.clear();
    RealPointer::act(RealPointer::moveTo(place) + " sleep 0.3 mousedown 1 sleep 0.1 "
        + RealPointer::moveTo(place + QPoint(14, 0)));
    return QTest::qWaitFor([&] { return witness.hasEnded() && RealPointer::isIdle(); }, Patience);
}

void CommandDragTest::droppedCommandGoesItsWholeWay_data()
{
    QTest::addColumn<QString>("boundDevice");
    QTest::newRow("of a profile on the computer") << QString();
    QTest::newRow("of a profile on a device") << "{D}";
}

void CommandDragTest::droppedCommandGoesItsWholeWay()
{
    QFETCH(QString, boundDevice);
    m_fixture->boundDevice = boundDevice;
    open();
    const QPointer<MagnetTextItem> replaced = m_fixture->label("G1");
    m_fixture->macroList()->setCurrentRow(1);
    const QPointer<QWidget> run = row("Run");
    QVERIFY(run);
    const QImage unassigned = run->grab().toImage();
    QVERIFY(m_fixture->syncButton()->isHidden());

    QVERIFY(drag("Run"));
    QCOMPARE(m_fixture->takeBriefLog(),
        FourTypes
            + QStringList({"drag of {2}, glows: 1", "over the key, glows: 1", Question,
                R"(setAssignment("{P}", "pad", "{2}", 0, "G1"))", "labels before: G1=Jump",
                R"(macros("{P}"))", R"(getMacroByID("{P}", "{2}"))", R"(getMacroByID("{P}", "{2}"))",
                "labels after: G1=Run", "{2} dropped on G1, glows: 1", "end, glows: "}));
    QVERIFY(!replaced);
    QCOMPARE(m_fixture->labels(), QStringList("G1=Run"));
    // The row is marked.
    QVERIFY(run);
    QVERIFY(run->grab().toImage() != unassigned);
    QCOMPARE(m_fixture->syncButton()->isHidden(), boundDevice.isEmpty());
}

void CommandDragTest::refusedCommandChangesNothing()
{
    m_fixture->host.answer("canMacroBeAssignedTo", false);
    open();
    const QPointer<MagnetTextItem> label = m_fixture->label("G1");
    QVERIFY(drag("Run"));
    QCOMPARE(m_fixture->takeBriefLog(),
        FourTypes
            + QStringList({"drag of {2}, glows: 1", "over the key, glows: 1", Question, "end, glows: "}));
    QVERIFY(label);
    QCOMPARE(m_fixture->labels(), QStringList("G1=Jump"));
}

void CommandDragTest::severalCommandsEnterNoKey()
{
    open();
    m_fixture->macroList()->selectAll();
    QVERIFY(drag("Run"));
    QCOMPARE(m_fixture->takeBriefLog(),
        QStringList({"drag of several, glows: ", "over the key, glows: ", "end, glows: "}));
    QCOMPARE(m_fixture->labels(), QStringList("G1=Jump"));
}

VELTRANO_TEST_MAIN(CommandDragTest)
#include "CommandDragTest.moc"
