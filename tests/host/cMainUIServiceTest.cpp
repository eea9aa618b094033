#include "cMainUIService.h"

#include <cMainUI.h>
#include <DialogButtons.h>
#include <DialogDriver.h>
#include <FakeWindow.h>
#include <IServiceMgr.h>
#include <MessageDialog.h>
#include <TestCase.h>

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTemporaryDir>

namespace {

QPushButton* defaultButtonOf(const QDialog& dialog)
{
    const QList<QPushButton*> buttons = dialog.findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->isDefault())
            return button;
    }
    return nullptr;
}

QStringList textsOf(const QDialog& dialog)
{
    QStringList texts;
    const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (!label->text().isEmpty())
            texts.append(label->text());
    }
    return texts;
}

} // namespace

/// The service is called through the plug-in's client, by name.
class cMainUIServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void windowIsShownAndHidden();
    void screenshotIsWritten();
    void screenshotThatFailsIsReported();
    void deviceBarAndDeviceAreTheWindows();
    void messagesAreModalAndPlain_data();
    void messagesAreModalAndPlain();
    void messageStandsOverTheDialogThatIsOpen();
    void yesAnswersTrue();
    void enterAndEscapeAnswerNo();
    void conflictAnswersTheChoice_data();
    void conflictAnswersTheChoice();
    void conflictWithoutTextsHasItsOwn();
    void tabReachesEveryChoice();
    void longTextScrolls();
    void ampersandIsACharacter();
    void lettersAnswer_data();
    void lettersAnswer();
    void copyTakesTheTexts();
    void parentDeletedMeanwhileIsSurvived();
    void withoutAWindowMessagesStillShow();

private:
    QScopedPointer<cMainUIService> m_service;
    QScopedPointer<FakeWindow> m_window;
};

void cMainUIServiceTest::init()
{
    m_service.reset(new cMainUIService);
    m_window.reset(new FakeWindow);
    m_service->setWindow(m_window.get());
    IServiceMgr::instance()->registerService(m_service.get());
}

void cMainUIServiceTest::cleanup()
{
    m_service.reset();
    m_window.reset();
}

void cMainUIServiceTest::windowIsShownAndHidden()
{
    QCOMPARE(cMainUI().window(), m_window->widget());
    cMainUI().setVisible(true);
    QVERIFY(m_window->isVisible());
    cMainUI().setVisible(false);
    QVERIFY(!m_window->isVisible());
}

void cMainUIServiceTest::screenshotIsWritten()
{
    const QTemporaryDir folder;
    m_window->resize(120, 80);
    cMainUI().saveScreenshot(folder.filePath("picture.png"));
    QCOMPARE(QPixmap(folder.filePath("picture.png")).size(), QSize(120, 80));
    QCOMPARE(m_window->messages, QStringList());
}

void cMainUIServiceTest::screenshotThatFailsIsReported()
{
    cMainUI().saveScreenshot("/nonexistent/picture.png");
    QCOMPARE(m_window->messages.size(), 1);
    QVERIFY(m_window->messages.constFirst().contains("/nonexistent/picture.png"));
}

void cMainUIServiceTest::deviceBarAndDeviceAreTheWindows()
{
    m_window->deviceId = "d1";
    cMainUI().raiseDeviceBar();
    QCOMPARE(m_window->raised, 1);
    QVERIFY(!cMainUI().isDeviceBarUnderMouse());
    m_window->underMouse = true;
    QVERIFY(cMainUI().isDeviceBarUnderMouse());
    QCOMPARE(cMainUI().getActiveDeviceId(), QString("d1"));
}

void cMainUIServiceTest::messagesAreModalAndPlain_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"warning", "info", "yesno"})
        QTest::newRow(kind) << kind;
}

void cMainUIServiceTest::messagesAreModalAndPlain()
{
    QFETCH(QString, kind);
    const QString text = "<b>bold</b> &amp; <img src='x'>";
    const DialogDriver driver([&](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("<i>T</i>"));
        QVERIFY(dialog.isModal());
        QCOMPARE(dialog.parentWidget(), m_window->widget());
        QVERIFY(textsOf(dialog).contains(text));
        const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
        for (const QLabel* label : labels)
            QVERIFY(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
    });
    if (kind == "warning")
        cMainUI().warning("<i>T</i>", text);
    else if (kind == "info")
        cMainUI().info("<i>T</i>", text);
    else
        QVERIFY(!cMainUI().yesno("<i>T</i>", text));
    QVERIFY(driver.hasRun());
}

void cMainUIServiceTest::messageStandsOverTheDialogThatIsOpen()
{
    QDialog open(m_window->widget());
    open.setModal(true);
    open.show();
    const DialogDriver driver([&open](QDialog& dialog) { QCOMPARE(dialog.parentWidget(), &open); });
    cMainUI().info("T", "text");
    QVERIFY(driver.hasRun());
    QVERIFY(open.isVisible());
}

void cMainUIServiceTest::yesAnswersTrue()
{
    const DialogDriver driver(
        [](QDialog& dialog) { QTest::mouseClick(buttonOf(dialog, "Yes"), Qt::LeftButton); });
    QVERIFY(cMainUI().yesno("T", "Q?"));
}

void cMainUIServiceTest::enterAndEscapeAnswerNo()
{
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        const DialogDriver driver([key](QDialog& dialog) {
            QCOMPARE(defaultButtonOf(dialog), buttonOf(dialog, "No"));
            QTest::keyClick(&dialog, Qt::Key(key));
        });
        QVERIFY(!cMainUI().yesno("T", "Q?"));
        QVERIFY(driver.hasRun());
    }
}

void cMainUIServiceTest::conflictAnswersTheChoice_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("answer");
    QTest::newRow("replace") << "R" << int(ConflictResolution::Replace);
    QTest::newRow("nothing") << "N" << int(ConflictResolution::DoNothing);
    QTest::newRow("duplicate") << "D" << int(ConflictResolution::Duplicate);
    QTest::newRow("escape") << "" << int(ConflictResolution::DoNothing);
}

void cMainUIServiceTest::conflictAnswersTheChoice()
{
    QFETCH(QString, button);
    QFETCH(int, answer);
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(textsOf(dialog).contains("the item"));
        QCOMPARE(defaultButtonOf(dialog), buttonOf(dialog, "N"));
        if (button.isEmpty())
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            QTest::mouseClick(buttonOf(dialog, button), Qt::LeftButton);
    });
    QCOMPARE(int(cMainUI().conflict("T", "description", "the item", "R", "N", "D")), answer);
    QVERIFY(driver.hasRun());
}

void cMainUIServiceTest::conflictWithoutTextsHasItsOwn()
{
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(buttonOf(dialog, "Replace"));
        QVERIFY(buttonOf(dialog, "Do Nothing"));
        QTest::mouseClick(buttonOf(dialog, "Keep Both"), Qt::LeftButton);
    });
    QCOMPARE(cMainUI().conflict("", "", "", "", "", ""), ConflictResolution::Duplicate);
}

void cMainUIServiceTest::tabReachesEveryChoice()
{
    const DialogDriver driver([&](QDialog& dialog) {
        QStringList reached;
        for (int i = 0; i < 3; ++i) {
            reached.append(dialog.focusWidget()->accessibleName());
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        }
        reached.sort();
        QCOMPARE(reached, QStringList({"D", "N", "R"}));
        while (dialog.focusWidget()->accessibleName() != "D")
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    });
    QCOMPARE(cMainUI().conflict("T", "d", "i", "R", "N", "D"), ConflictResolution::Duplicate);
    QVERIFY(driver.hasRun());
}

void cMainUIServiceTest::longTextScrolls()
{
    const DialogDriver driver([](QDialog& dialog) {
        QVERIFY(dialog.height() < 600);
        QVERIFY(dialog.width() < 600);
        const auto* const area = dialog.findChild<QScrollArea*>();
        QVERIFY(area);
        QVERIFY(area->widget()->height() > area->viewport()->height());
    });
    cMainUI().info("T", QStringLiteral("many words ").repeated(5000));
    QVERIFY(driver.hasRun());
}

void cMainUIServiceTest::ampersandIsACharacter()
{
    const DialogDriver driver(
        [](QDialog& dialog) { QCOMPARE(buttonOf(dialog, "This & That")->text(), QString("&This && That")); });
    cMainUI().conflict("T", "d", "i", "This & That", "N", "D");
    QVERIFY(driver.hasRun());
}

void cMainUIServiceTest::lettersAnswer_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifier");
    QTest::addColumn<int>("answer");
    const auto row = [](const char* name, Qt::Key key, Qt::KeyboardModifier modifier, int answer) {
        QTest::newRow(name) << int(key) << int(modifier) << answer;
    };
    row("replace", Qt::Key_R, Qt::NoModifier, ConflictResolution::Replace);
    row("replace with Alt", Qt::Key_R, Qt::AltModifier, ConflictResolution::Replace);
    // "Remain" gives way to the choice before it.
    row("remain", Qt::Key_E, Qt::NoModifier, ConflictResolution::DoNothing);
    row("both", Qt::Key_B, Qt::NoModifier, ConflictResolution::Duplicate);
    row("no choice's letter", Qt::Key_X, Qt::NoModifier, ConflictResolution::DoNothing);
}

void cMainUIServiceTest::lettersAnswer()
{
    QFETCH(int, key);
    QFETCH(int, modifier);
    QFETCH(int, answer);
    const DialogDriver driver([&](QDialog& dialog) {
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClick(dialog.focusWidget(), Qt::Key(key), Qt::KeyboardModifier(modifier));
        // A button that is pressed by its shortcut shows that for a moment.
        if (modifier != Qt::NoModifier)
            QTRY_VERIFY(!dialog.isVisible());
    });
    QCOMPARE(int(cMainUI().conflict("T", "d", "i", "Replace", "Remain", "Both")), answer);
    QVERIFY(driver.hasRun());
}

void cMainUIServiceTest::copyTakesTheTexts()
{
    const DialogDriver driver([](QDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(dialog.isVisible());
    });
    cMainUI().conflict("Title", "description", "item", "Copy", "N", "D");
    QVERIFY(driver.hasRun());
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("Title\n\ndescription\n\nitem"));
}

void cMainUIServiceTest::parentDeletedMeanwhileIsSurvived()
{
    const DialogDriver driver([this](QDialog&) {
        m_service->setWindow(nullptr);
        m_window.reset();
    });
    QVERIFY(!cMainUI().yesno("T", "Q?"));
    QVERIFY(driver.hasRun());
}

void cMainUIServiceTest::withoutAWindowMessagesStillShow()
{
    m_service->setWindow(nullptr);
    QVERIFY(!cMainUI().window());
    cMainUI().setVisible(true);
    cMainUI().raiseDeviceBar();
    cMainUI().saveScreenshot("/nonexistent/picture.png");
    QVERIFY(!cMainUI().isDeviceBarUnderMouse());
    QCOMPARE(cMainUI().getActiveDeviceId(), QString());
    const DialogDriver driver([](QDialog& dialog) { QVERIFY(!dialog.parentWidget()); });
    cMainUI().warning("T", "text");
    QVERIFY(driver.hasRun());
}

VELTRANO_TEST_MAIN(cMainUIServiceTest)
#include "cMainUIServiceTest.moc"
