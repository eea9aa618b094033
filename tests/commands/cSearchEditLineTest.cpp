#include <cSearchEditLine.h>
#include <MetaMembers.h>
#include <TestCase.h>

#include <QKeyEvent>

#include <memory>

namespace {

/// Keeps the keys that it gets.
class Target : public QWidget
{
public:
    QStringList keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { note("press", *event); }
    void keyReleaseEvent(QKeyEvent* event) override { note("release", *event); }

private:
    void note(const QString& kind, const QKeyEvent& event)
    {
        keys.append(QString("%1 %2 %3 '%4' %5 x%6")
                        .arg(kind)
                        .arg(event.key(), 0, 16)
                        .arg(int(event.modifiers()), 0, 16)
                        .arg(event.text())
                        .arg(event.isAutoRepeat())
                        .arg(event.count()));
    }
};

void send(QWidget& widget, QEvent::Type type, int key, const QString& text = QString(),
    Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool repeat = false, ushort count = 1)
{
    QKeyEvent event(type, key, modifiers, text, repeat, count);
    QCoreApplication::sendEvent(&widget, &event);
}

void focusIn(QWidget& widget)
{
    QFocusEvent event(QEvent::FocusIn);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

class cSearchEditLineTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsSignal();
    void tellsTheFirstFocusOnly();
    void chosenKeysGoToBoth();
    void keysArriveThroughTheEventLoop();
    void forwardedKeysKeepAllTheyHave();
    void releasesAreForwardedToo();
    void releasesAreLeftToTheParent();
    void focusDoesWhatItDoesInAnyField();
    void otherKeysStay();
    void withoutATargetKeysStay();
    void targetMayGo();
};

void cSearchEditLineTest::hasItsSignal()
{
    QCOMPARE(
        MetaMembers::signalsOf(cSearchEditLine::staticMetaObject), QStringList({"focusInIntialStatus()"}));
}

void cSearchEditLineTest::tellsTheFirstFocusOnly()
{
    cSearchEditLine edit;
    QSignalSpy told(&edit, SIGNAL(focusInIntialStatus()));
    focusIn(edit);
    QCOMPARE(told.size(), 1);
    focusIn(edit);
    QCOMPARE(told.size(), 2);
    edit.setInitialStatus(false);
    focusIn(edit);
    QCOMPARE(told.size(), 2);
    edit.setInitialStatus(true);
    focusIn(edit);
    QCOMPARE(told.size(), 3);
}

void cSearchEditLineTest::chosenKeysGoToBoth()
{
    cSearchEditLine edit;
    Target target;
    edit.setForwarding(&target, {Qt::Key_A, Qt::Key_Down});
    send(edit, QEvent::KeyPress, Qt::Key_A, "a");
    QCOMPARE(edit.text(), QString("a"));
    QCoreApplication::processEvents();
    QCOMPARE(target.keys, QStringList({"press 41 0 'a' 0 x1"}));
}

void cSearchEditLineTest::keysArriveThroughTheEventLoop()
{
    cSearchEditLine edit;
    Target target;
    edit.setForwarding(&target, {Qt::Key_Down});
    send(edit, QEvent::KeyPress, Qt::Key_Down);
    QVERIFY(target.keys.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(target.keys.size(), 1);
}

void cSearchEditLineTest::forwardedKeysKeepAllTheyHave()
{
    cSearchEditLine edit;
    Target target;
    edit.setForwarding(&target, {Qt::Key_PageDown});
    send(edit, QEvent::KeyPress, Qt::Key_PageDown, "x", Qt::ShiftModifier | Qt::KeypadModifier, true, 7);
    QCoreApplication::processEvents();
    QCOMPARE(target.keys, QStringList({"press 1000017 22000000 'x' 1 x7"}));
}

void cSearchEditLineTest::releasesAreForwardedToo()
{
    cSearchEditLine edit;
    Target target;
    edit.setForwarding(&target, {Qt::Key_Up});
    send(edit, QEvent::KeyRelease, Qt::Key_Up);
    QCoreApplication::processEvents();
    QCOMPARE(target.keys, QStringList({"release 1000013 0 '' 0 x1"}));
}

void cSearchEditLineTest::releasesAreLeftToTheParent()
{
    Target parent;
    auto* const edit = new cSearchEditLine(&parent);
    send(*edit, QEvent::KeyRelease, Qt::Key_Up);
    QCOMPARE(parent.keys, QStringList({"release 1000013 0 '' 0 x1"}));
}

void cSearchEditLineTest::focusDoesWhatItDoesInAnyField()
{
    cSearchEditLine edit;
    edit.setInitialStatus(false);
    edit.setText("jump");
    QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&edit, &event);
    QCOMPARE(edit.selectedText(), QString("jump"));
}

void cSearchEditLineTest::otherKeysStay()
{
    cSearchEditLine edit;
    Target target;
    edit.setForwarding(&target, {Qt::Key_Up});
    send(edit, QEvent::KeyPress, Qt::Key_B, "b");
    send(edit, QEvent::KeyRelease, Qt::Key_B, "b");
    QCoreApplication::processEvents();
    QVERIFY(target.keys.isEmpty());
    QCOMPARE(edit.text(), QString("b"));
}

void cSearchEditLineTest::withoutATargetKeysStay()
{
    cSearchEditLine edit;
    edit.setForwarding(nullptr, {Qt::Key_B});
    send(edit, QEvent::KeyPress, Qt::Key_B, "b");
    QCoreApplication::processEvents();
    QCOMPARE(edit.text(), QString("b"));
}

void cSearchEditLineTest::targetMayGo()
{
    cSearchEditLine edit;
    auto target = std::make_unique<Target>();
    edit.setForwarding(target.get(), {Qt::Key_Up});
    send(edit, QEvent::KeyPress, Qt::Key_Up);
    target.reset();
    QCoreApplication::processEvents();
    send(edit, QEvent::KeyPress, Qt::Key_Up);
    QCoreApplication::processEvents();
}

VELTRANO_TEST_MAIN(cSearchEditLineTest)
#include "cSearchEditLineTest.moc"
