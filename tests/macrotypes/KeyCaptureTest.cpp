#include <KeyCaptureButton.h>
#include <KeyMenuButton.h>
#include <KeyNames.h>
#include <TestCase.h>

#include <QAction>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <memory>

class KeyCaptureTest : public TestCase
{
    Q_OBJECT

public Q_SLOTS:
    void onPressed(const Key& key, Qt::KeyboardModifiers modifiers, qint64 time)
    {
        m_seen << "+" + KeyNames::toText({modifiers, key}) + scan(key) + "@" + QString::number(time);
    }
    void onReleased(const Key& key, qint64 time)
    {
        m_seen << "-" + KeyNames::toText(key.code) + scan(key) + "@" + QString::number(time);
    }
    void onStopped() { m_seen << "stopped"; }
    void onChosen(const Key& key) { m_seen << KeyNames::toText(key.code); }

private Q_SLOTS:
    void init();
    void cleanup();
    void keysAreReportedWithTheirTimes();
    void repeatsAreLeftOut();
    void releaseBelongsToItsPress();
    void keyOfTheStartIsNotReported();
    void escapeAloneStops();
    void escapeWithOthersIsReported();
    void lossOfFocusReleasesAndStops();
    void hidingStops();
    void tabAndReturnAreTaken();
    void keysArePassedOnWhileItIsUp();
    void spaceStarts();
    void timesNeverGoBack();
    void menuOffersEscape();

private:
    static QString scan(const Key& key)
    {
        return key.scanCode ? '(' + QString::number(key.scanCode) + ')' : QString();
    }
    void send(QEvent::Type type, int key, ulong time, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
        quint32 scanCode = 0, bool isRepeat = false)
    {
        QKeyEvent event(type, key, modifiers, scanCode, 0, 0, QString(), isRepeat);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(m_button, &event);
    }
    QStringList take()
    {
        QStringList seen;
        m_seen.swap(seen);
        return seen;
    }

    std::unique_ptr<QDialog> m_dialog;
    KeyCaptureButton* m_button = nullptr;
    QLineEdit* m_other = nullptr;
    QPushButton* m_ok = nullptr;
    QStringList m_seen;
};

void KeyCaptureTest::init()
{
    m_dialog = std::make_unique<QDialog>();
    auto* const layout = new QVBoxLayout(m_dialog.get());
    m_button = new KeyCaptureButton("Start", "Stop");
    m_other = new QLineEdit;
    m_ok = new QPushButton("OK");
    m_ok->setDefault(true);
    layout->addWidget(m_button);
    layout->addWidget(m_other);
    layout->addWidget(m_ok);
    connect(m_ok, SIGNAL(clicked()), m_dialog.get(), SLOT(accept()));
    connect(m_button, SIGNAL(keyPressed(Key, Qt::KeyboardModifiers, qint64)), this,
        SLOT(onPressed(Key, Qt::KeyboardModifiers, qint64)));
    connect(m_button, SIGNAL(keyReleased(Key, qint64)), this, SLOT(onReleased(Key, qint64)));
    connect(m_button, SIGNAL(stopped()), this, SLOT(onStopped()));
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    m_button->setFocus();
    m_button->click();
    QVERIFY(m_button->isCapturing());
    QCOMPARE(m_button->text(), QString("Stop"));
    m_seen.clear();
}

void KeyCaptureTest::cleanup()
{
    m_dialog.reset();
    m_seen.clear();
}

void KeyCaptureTest::keysAreReportedWithTheirTimes()
{
    send(QEvent::KeyPress, Qt::Key_Control, 1000, Qt::NoModifier, 37);
    send(QEvent::KeyPress, Qt::Key_A, 1120, Qt::ControlModifier, 38);
    send(QEvent::KeyRelease, Qt::Key_A, 1200, Qt::ControlModifier, 38);
    send(QEvent::KeyRelease, Qt::Key_Control, 1250, Qt::ControlModifier, 37);
    QCOMPARE(take(), QStringList({"+Ctrl(37)@1000", "+Ctrl+A(38)@1120", "-A(38)@1200", "-Ctrl(37)@1250"}));
    QVERIFY(m_button->isCapturing());
}

void KeyCaptureTest::repeatsAreLeftOut()
{
    send(QEvent::KeyPress, Qt::Key_A, 10);
    send(QEvent::KeyRelease, Qt::Key_A, 20, Qt::NoModifier, 0, true);
    send(QEvent::KeyPress, Qt::Key_A, 20, Qt::NoModifier, 0, true);
    send(QEvent::KeyPress, Qt::Key_A, 25);
    send(QEvent::KeyRelease, Qt::Key_A, 30);
    QCOMPARE(take(), QStringList({"+A@10", "-A@30"}));
}

// Shift is let go first, so the key's release comes under another name than its press.
void KeyCaptureTest::releaseBelongsToItsPress()
{
    send(QEvent::KeyPress, Qt::Key_Shift, 10, Qt::NoModifier, 50);
    send(QEvent::KeyPress, Qt::Key_Exclam, 20, Qt::ShiftModifier, 10);
    send(QEvent::KeyRelease, Qt::Key_Shift, 30, Qt::ShiftModifier, 50);
    send(QEvent::KeyRelease, Qt::Key_1, 40, Qt::NoModifier, 10);
    QCOMPARE(take(), QStringList({"+Shift(50)@10", "+Shift+!(10)@20", "-Shift(50)@30", "-!(10)@40"}));
}

void KeyCaptureTest::keyOfTheStartIsNotReported()
{
    send(QEvent::KeyRelease, Qt::Key_Alt, 5);
    QCOMPARE(take(), QStringList());
}

void KeyCaptureTest::escapeAloneStops()
{
    QTest::keyClick(m_button, Qt::Key_Escape);
    QVERIFY(!m_button->isCapturing());
    QCOMPARE(m_button->text(), QString("Start"));
    QCOMPARE(take(), QStringList({"stopped"}));
    QVERIFY(m_dialog->isVisible());
}

void KeyCaptureTest::escapeWithOthersIsReported()
{
    send(QEvent::KeyPress, Qt::Key_Escape, 10, Qt::ControlModifier);
    send(QEvent::KeyRelease, Qt::Key_Escape, 20, Qt::ControlModifier);
    QCOMPARE(take(), QStringList({"+Ctrl+Esc@10", "-Esc@20"}));
}

void KeyCaptureTest::lossOfFocusReleasesAndStops()
{
    send(QEvent::KeyPress, Qt::Key_Alt, 10);
    send(QEvent::KeyPress, Qt::Key_Tab, 20, Qt::AltModifier);
    m_other->setFocus();
    QCOMPARE(take(), QStringList({"+Alt@10", "+Alt+Tab@20", "-Tab@20", "-Alt@20", "stopped"}));
    QVERIFY(!m_button->isCapturing());
}

void KeyCaptureTest::hidingStops()
{
    m_button->hide();
    QCOMPARE(take(), QStringList({"stopped"}));
}

void KeyCaptureTest::tabAndReturnAreTaken()
{
    for (const int key : {int(Qt::Key_Tab), int(Qt::Key_Return), int(Qt::Key_Enter), int(Qt::Key_Space)})
        QTest::keyClick(m_button, Qt::Key(key));
    send(QEvent::KeyPress, Qt::Key_Backtab, 1, Qt::ShiftModifier);
    QStringList keys;
    for (const QString& each : take())
        keys << each.section('@', 0, 0);
    QCOMPARE(keys,
        QStringList(
            {"+Tab", "-Tab", "+Return", "-Return", "+Enter", "-Enter", "+Space", "-Space", "+Shift+Tab"}));
    QVERIFY(m_button->hasFocus());
    QVERIFY(m_dialog->isVisible());
}

void KeyCaptureTest::keysArePassedOnWhileItIsUp()
{
    m_button->stop();
    take();
    QTest::keyClick(m_button, Qt::Key_A);
    QTest::keyClick(m_button, Qt::Key_Tab);
    QVERIFY(m_other->hasFocus());
    m_button->setFocus();
    QTest::keyClick(m_button, Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
    m_dialog->show();
    m_button->setFocus();
    const QSignalSpy accepted(m_dialog.get(), SIGNAL(accepted()));
    QTest::keyClick(m_button, Qt::Key_Return);
    QCOMPARE(accepted.size(), 1);
    QCOMPARE(take(), QStringList());
}

void KeyCaptureTest::spaceStarts()
{
    m_button->stop();
    take();
    QTest::keyClick(m_button, Qt::Key_Space);
    QVERIFY(m_button->isCapturing());
    QCOMPARE(take(), QStringList());
}

void KeyCaptureTest::timesNeverGoBack()
{
    send(QEvent::KeyPress, Qt::Key_A, 1000);
    send(QEvent::KeyRelease, Qt::Key_A, 400);
    QCOMPARE(take(), QStringList({"+A@1000", "-A@1000"}));
}

void KeyCaptureTest::menuOffersEscape()
{
    KeyMenuButton button("Other");
    connect(&button, SIGNAL(keyChosen(Key)), this, SLOT(onChosen(Key)));
    button.menu()->actions().first()->trigger();
    QCOMPARE(take(), QStringList({"Esc"}));
}

VELTRANO_TEST_MAIN(KeyCaptureTest)
#include "KeyCaptureTest.moc"
