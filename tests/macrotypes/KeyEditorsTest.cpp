#include "EditorTestCase.h"

#include <KeyCaptureButton.h>
#include <KeyStepModel.h>
#include <MacroTypeIds.h>

#include <QCheckBox>
#include <QSpinBox>
#include <QTableView>

#include <vector>

class KeyEditorsTest : public EditorTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_dialog.reset(); }

    void keystrokeIsCaptured();
    void modifiersAloneAreCaptured();
    void escapeLeavesTheKeystrokeAsItWas();
    void modifiersAreSetByHand();
    void recorderKeepsKeysAndTimes();
    void recorderStopsWithThePage();
    void recorderStopsAtTheLimit();
    void stepsAreMovedAndDeleted();
    void timesAreChanged();
    void escapeInTheListClosesTheDialog();
    void thousandsOfStepsAreShown();
};

void KeyEditorsTest::keystrokeIsCaptured()
{
    open(MacroTypeIds::Keystroke);
    m_page->findChild<KeyCaptureButton*>()->click();
    sendKey(QEvent::KeyPress, Qt::Key_Control, 1);
    sendKey(QEvent::KeyPress, Qt::Key_Tab, 2, Qt::ControlModifier);
    sendKey(QEvent::KeyRelease, Qt::Key_Tab, 3, Qt::ControlModifier);
    QVERIFY(m_page->findChild<KeyCaptureButton*>()->isCapturing());
    sendKey(QEvent::KeyRelease, Qt::Key_Control, 4, Qt::ControlModifier);
    QVERIFY(!m_page->findChild<KeyCaptureButton*>()->isCapturing());
    QCOMPARE(field<QLineEdit>("Keys")->text(), QString("Ctrl+Tab"));
    QCOMPARE(text(m_page->data()), QByteArray("{\"keys\":\"Ctrl+Tab\"}"));
    QCOMPARE(m_name->text(), QString("Ctrl+Tab"));
}

void KeyEditorsTest::modifiersAloneAreCaptured()
{
    open(MacroTypeIds::Keystroke);
    m_page->findChild<KeyCaptureButton*>()->click();
    sendKey(QEvent::KeyPress, Qt::Key_Control, 1);
    sendKey(QEvent::KeyPress, Qt::Key_Shift, 2, Qt::ControlModifier);
    sendKey(QEvent::KeyRelease, Qt::Key_Control, 3, Qt::ControlModifier | Qt::ShiftModifier);
    sendKey(QEvent::KeyRelease, Qt::Key_Shift, 4, Qt::ShiftModifier);
    QCOMPARE(text(m_page->data()), QByteArray("{\"keys\":\"Ctrl+Shift\"}"));
}

void KeyEditorsTest::escapeLeavesTheKeystrokeAsItWas()
{
    const cJsonValue data = json("{\"keys\": \"Alt+F4\"}");
    open(MacroTypeIds::Keystroke, record(MacroTypeIds::Keystroke, data));
    auto* const capture = m_page->findChild<KeyCaptureButton*>();
    capture->click();
    QTest::keyClick(capture, Qt::Key_Escape);
    QVERIFY(!capture->isCapturing());
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(text(m_page->data()), text(data));
    QCOMPARE(field<QLineEdit>("Keys")->text(), QString("Alt+F4"));
    QCOMPARE(m_changes, 0);
}

void KeyEditorsTest::modifiersAreSetByHand()
{
    open(MacroTypeIds::Keystroke);
    field<QCheckBox>("With Alt")->setChecked(true);
    QVERIFY(!m_page->canAddMacro());
    m_page->findChild<KeyCaptureButton*>()->click();
    tap(Qt::Key_F4, 1);
    field<QCheckBox>("With Alt")->setChecked(true);
    field<QCheckBox>("With Meta")->setChecked(true);
    QCOMPARE(text(m_page->data()), QByteArray("{\"keys\":\"Alt+Meta+F4\"}"));
    field<QCheckBox>("With Alt")->setChecked(false);
    QCOMPARE(m_name->text(), QString("Meta+F4"));
}

void KeyEditorsTest::recorderKeepsKeysAndTimes()
{
    open(MacroTypeIds::MultiKey);
    auto* const recorder = m_page->findChild<KeyCaptureButton*>();
    recorder->click();
    sendKey(QEvent::KeyPress, Qt::Key_Shift, 5000);
    sendKey(QEvent::KeyPress, Qt::Key_Q, 5120, Qt::ShiftModifier);
    sendKey(QEvent::KeyRelease, Qt::Key_Q, 5150, Qt::ShiftModifier);
    QTest::keyClick(recorder, Qt::Key_Return);
    QVERIFY(m_dialog->isVisible());
    m_page->findChild<KeyStepModel*>()->remove({3, 4});
    sendKey(QEvent::KeyRelease, Qt::Key_Shift, 999999999);
    QVERIFY(recorder->isCapturing());
    recorder->stop();
    QVERIFY2(steps().startsWith("+Shift0 +Q120 -Q30 -Shift"), qPrintable(steps()));
    QCOMPARE(m_name->text(), QString("Shift Q"));
    // A second recording goes on at the end and begins a time of its own.
    recorder->click();
    tap(Qt::Key_W, 7000);
    recorder->stop();
    QVERIFY2(steps().endsWith(" +W0 -W10"), qPrintable(steps()));
    QVERIFY(m_page->onOK());
}

void KeyEditorsTest::recorderStopsWithThePage()
{
    open(MacroTypeIds::MultiKey);
    auto* const recorder = m_page->findChild<KeyCaptureButton*>();
    recorder->click();
    sendKey(QEvent::KeyPress, Qt::Key_A, 10);
    QVERIFY(m_page->onCancel());
    QVERIFY(!recorder->isCapturing());
    QCOMPARE(steps(), QString("+A0 -A0"));
    recorder->click();
    m_page->onClearForm();
    QVERIFY(!recorder->isCapturing());
    QCOMPARE(steps(), QString());
    recorder->click();
    tap(Qt::Key_B, 10);
    QVERIFY(m_page->onOK());
    QVERIFY(!recorder->isCapturing());
}

void KeyEditorsTest::recorderStopsAtTheLimit()
{
    open(MacroTypeIds::MultiKey);
    std::vector<KeyStep> all(MacroLimits::Events - 3, KeyStep {true, {Qt::Key_A, 0}, 1});
    m_page->findChild<KeyStepModel*>()->setSteps(all);
    auto* const recorder = m_page->findChild<KeyCaptureButton*>();
    recorder->click();
    sendKey(QEvent::KeyPress, Qt::Key_B, 10);
    QVERIFY(recorder->isCapturing());
    sendKey(QEvent::KeyPress, Qt::Key_C, 20);
    QVERIFY(!recorder->isCapturing());
    QCOMPARE(m_page->findChild<KeyStepModel*>()->rowCount(), MacroLimits::Events - 1);
    QCOMPARE(message(), QString("A command holds at most 10,000 entries. The recording has stopped."));
}

void KeyEditorsTest::stepsAreMovedAndDeleted()
{
    open(MacroTypeIds::MultiKey);
    QVERIFY(!button("Up")->isEnabled());
    m_page->findChild<KeyCaptureButton*>()->click();
    tap(Qt::Key_A, 10);
    tap(Qt::Key_B, 30);
    m_page->findChild<KeyCaptureButton*>()->stop();
    QCOMPARE(steps(), QString("+A0 -A10 +B10 -B10"));
    auto* const list = m_page->findChild<QTableView*>();
    list->selectRow(2);
    QVERIFY(button("Up")->isEnabled());
    button("Up")->click();
    QCOMPARE(steps(), QString("+A0 +B10 -A10 -B10"));
    button("Up")->click();
    QVERIFY(!button("Up")->isEnabled());
    QCOMPARE(m_name->text(), QString("B A"));
    button("Down")->click();
    list->selectRow(2);
    button("Up")->click();
    button("Up")->click();
    QCOMPARE(steps(), QString("-A10 +A0 +B10 -B10"));
    QVERIFY(!m_page->onOK());
    QCOMPARE(message(), QString("Row 1 releases A, which no row before it presses."));
    QVERIFY(list->hasFocus());
    list->setSelectionMode(QAbstractItemView::ContiguousSelection);
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(steps(), QString("+A0 +B10 -B10"));
    list->selectAll();
    button("Delete")->click();
    QCOMPARE(steps(), QString());
    QVERIFY(!m_page->canAddMacro());
    QVERIFY(!button("Set")->isEnabled());
}

void KeyEditorsTest::timesAreChanged()
{
    open(MacroTypeIds::MultiKey);
    m_page->findChild<KeyCaptureButton*>()->click();
    tap(Qt::Key_A, 10);
    m_page->findChild<KeyCaptureButton*>()->stop();
    m_page->findChild<QSpinBox*>()->setValue(75);
    button("Set")->click();
    QCOMPARE(steps(), QString("+A75 -A75"));
    m_page->findChild<QTableView*>()->selectRow(0);
    m_page->findChild<QSpinBox*>()->setValue(0);
    button("Set")->click();
    QCOMPARE(steps(), QString("+A0 -A75"));
    auto* const model = m_page->findChild<KeyStepModel*>();
    const QModelIndex delay = model->index(1, KeyStepModel::DelayColumn);
    QVERIFY(model->setData(delay, 1234, Qt::EditRole));
    QVERIFY(!model->setData(delay, -1, Qt::EditRole));
    QVERIFY(!model->setData(delay, "soon", Qt::EditRole));
    QVERIFY(!model->setData(model->index(1, KeyStepModel::KeyColumn), 5, Qt::EditRole));
    QCOMPARE(steps(), QString("+A0 -A1234"));
    QVERIFY(model->setData(delay, MacroLimits::Delay + 1, Qt::EditRole));
    QCOMPARE(model->steps()[1].delay, MacroLimits::Delay);
}

void KeyEditorsTest::escapeInTheListClosesTheDialog()
{
    open(MacroTypeIds::MultiKey,
        record(MacroTypeIds::MultiKey,
            json("{\"events\": [{\"type\": \"press\", \"key\": \"A\", \"delay\": 4}]}")));
    auto* const list = m_page->findChild<QTableView*>();
    list->setFocus();
    list->setCurrentIndex(list->model()->index(0, KeyStepModel::DelayColumn));
    QTest::keyClick(list, Qt::Key_Escape);
    QVERIFY(!m_dialog->isVisible());
}

void KeyEditorsTest::thousandsOfStepsAreShown()
{
    cJsonValue data;
    for (int i = 0; i < MacroLimits::Events; ++i) {
        cJsonValue event;
        event["type"] = i % 2 ? "release" : "press";
        event["key"] = QString(QChar('A' + i / 2 % 26));
        event["delay"] = i;
        data["events"].append(event);
    }
    open(MacroTypeIds::MultiKey, record(MacroTypeIds::MultiKey, data));
    QCOMPARE(m_page->findChild<QTableView*>()->model()->rowCount(), MacroLimits::Events);
    button("Set")->click();
    const cJsonValue changed = m_page->data();
    QCOMPARE(changed["events"].size(), unsigned(MacroLimits::Events));
    QCOMPARE(changed["events"][9999]["delay"].toInt(), 50);
    QVERIFY(m_page->onOK());
    m_page->findChild<QTableView*>()->selectAll();
    button("Delete")->click();
    QCOMPARE(steps(), QString());
}

VELTRANO_TEST_MAIN(KeyEditorsTest)
#include "KeyEditorsTest.moc"
