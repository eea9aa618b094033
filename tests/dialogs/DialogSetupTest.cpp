#include <DialogDriver.h>
#include <DialogSetup.h>
#include <TestCase.h>

#include <QDialog>
#include <QPointer>
#include <QWidget>

/// What all dialogs of the plug-in share.
class DialogSetupTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheFrameOfADialog();
    void parentMayGoWhileTheDialogIsOpen();
    void parentMayGoBeforeTheDialogOpens();
};

void DialogSetupTest::givesTheFrameOfADialog()
{
    QWidget window;
    QDialog dialog(&window);
    DialogSetup::apply(dialog);
    QCOMPARE(dialog.windowFlags(),
        Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    QCOMPARE(dialog.windowModality(), Qt::WindowModal);
    QCOMPARE(dialog.parentWidget(), &window);
}

void DialogSetupTest::parentMayGoWhileTheDialogIsOpen()
{
    const QPointer<QWidget> window = new QWidget;
    window->show();
    QDialog dialog(window);
    DialogSetup::apply(dialog);
    const QPointer<QDialog> alive(&dialog);
    const DialogDriver driver([&](QDialog&) { delete window; });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(driver.hasRun());
    QVERIFY(!window);
    QVERIFY(alive);
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.parentWidget());
}

void DialogSetupTest::parentMayGoBeforeTheDialogOpens()
{
    auto* const window = new QWidget;
    QDialog dialog(window);
    DialogSetup::apply(dialog);
    const Qt::WindowFlags flags = dialog.windowFlags();
    delete window;
    const DialogDriver driver([](QDialog&) {});
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(driver.hasRun());
    QCOMPARE(dialog.windowFlags(), flags);
}

VELTRANO_TEST_MAIN(DialogSetupTest)
#include "DialogSetupTest.moc"
