#include "CommandEditorWindowTestCase.h"
#include "SampleCommands.h"

#include <cMacroTypeIconItem.h>
#include <cMacroTypeIconList.h>
#include <cProfileMgr.h>
#include <FixedIds.h>
#include <HelpWindow.h>
#include <HostApplication.h>
#include <IMacroEditor.h>
#include <MacroTypeIds.h>
#include <MainWindow.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextBrowser>
#include <QWindow>

/// The editor as a window: its place, its sizes, its keyboard and its help.
class CommandEditorWindowTest : public CommandEditorWindowTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void opensOverTheMiddleOfTheMainWindow();
    void typingBeginsInTheFirstField();
    void wrongFormSaysWhatIsWrong();
    void tabGoesThroughTheDialogAsTheEyeDoes_data();
    void tabGoesThroughTheDialogAsTheEyeDoes();
    void recorderTakesTheKeysOfTheDialog();
    void nothingIsClipped_data();
    void nothingIsClipped();
    void helpCanBeReadWhileTheEditorIsOpen_data();
    void helpCanBeReadWhileTheEditorIsOpen();
};

void CommandEditorWindowTest::opensOverTheMiddleOfTheMainWindow()
{
    run(cJsonValue(), [&](QDialog& dialog) {
        QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(&m_host->window()));
        const QPoint distance = dialog.frameGeometry().center() - m_host->window().frameGeometry().center();
        // The frame of the window manager comes on top of what Qt centres.
        QVERIFY2(distance.manhattanLength() <= 30,
            qPrintable(QString("%1, %2").arg(distance.x()).arg(distance.y())));
        QVERIFY(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
        QVERIFY(!dialog.windowIcon().isNull());
    });
}

void CommandEditorWindowTest::typingBeginsInTheFirstField()
{
    run(cJsonValue(), [](QDialog& dialog) {
        QTest::keyClicks(QApplication::focusWidget(), "Shoot");
        QCOMPARE(nameOf(dialog)->text(), QString("Shoot"));
    });
    run(SampleCommands::record(MacroNamespaces::Media, "{1}", "Volume Up"), [](QDialog&) {
        auto* const list = qobject_cast<QAbstractItemView*>(QApplication::focusWidget());
        QVERIFY(list);
        QCOMPARE(list->currentIndex().data().toString(), QString("Volume Up"));
    });
}

void CommandEditorWindowTest::wrongFormSaysWhatIsWrong()
{
    run(cJsonValue(), [](QDialog& dialog) {
        QTest::mouseClick(icon(dialog, MacroTypeIds::Launch), Qt::LeftButton);
        formOf(dialog)->setFocus();
        QTest::keyClicks(QApplication::focusWidget(), "/no/such/program");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QCOMPARE(messageOf(dialog), QString("There is no program or file \"/no/such/program\"."));
        QVERIFY(formOf(dialog)->isAncestorOf(QApplication::focusWidget()));
        QCoreApplication::processEvents();
        QCOMPARE(clippedPart(dialog), QString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(m_closed, QStringList());
    QCOMPARE(int(cProfileMgr().macros(m_profile).size()), 0);
}

void CommandEditorWindowTest::tabGoesThroughTheDialogAsTheEyeDoes_data()
{
    addTypes();
}

void CommandEditorWindowTest::tabGoesThroughTheDialogAsTheEyeDoes()
{
    QFETCH(QString, typeId);
    run(SampleCommands::record(typeId, "{1}", "Test"), [](QDialog& dialog) {
        auto* const column = dialog.findChild<cMacroTypeIconList*>();
        column->setFocus(Qt::TabFocusReason);
        QRect last(0, -1, 0, 0);
        int stops = 0;
        for (;; ++stops) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* const field = QApplication::focusWidget();
            if (field == column)
                break;
            const QRect place(field->mapTo(&dialog, QPoint()), field->size());
            // Down, or to the right in the same row.
            const bool isBelow = place.center().y() > last.bottom() || place.top() > last.top();
            const bool isBeside = place.left() > last.left();
            QVERIFY2(isBelow || isBeside, field->metaObject()->className());
            last = place;
            QVERIFY(stops < 30);
        }
        QVERIFY(stops >= 4);
    });
}

void CommandEditorWindowTest::recorderTakesTheKeysOfTheDialog()
{
    run(cJsonValue(), [](QDialog& dialog) {
        QTest::mouseClick(button(dialog, "Press Keys"), Qt::LeftButton);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
        QCOMPARE(nameOf(dialog)->text(), QString("F1"));
        QTest::mouseClick(button(dialog, "Press Keys"), Qt::LeftButton);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QVERIFY(nameOf(dialog)->text() != "F1");
        // Stops the recorder and nothing else.
        QTest::mouseClick(button(dialog, "Press Keys"), Qt::LeftButton);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(dialog.isVisible());
    });
}

void CommandEditorWindowTest::nothingIsClipped_data()
{
    QTest::addColumn<QString>("typeId");
    QTest::addColumn<int>("percent");
    for (const QLatin1String typeId :
        {MacroTypeIds::Keystroke, MacroTypeIds::MultiKey, MacroTypeIds::TextBlock,
            MacroNamespaces::MouseFunction, MacroNamespaces::Media, MacroNamespaces::Hotkeys,
            MacroTypeIds::Launch, MacroTypeIds::Script, MacroNamespaces::StickMouse}) {
        for (int percent : {100, 125, 150}) {
            const QString row = QString("%1-%2").arg(QString(typeId).section('/', -1).toLower()).arg(percent);
            QTest::newRow(qPrintable(row)) << QString(typeId) << percent;
        }
    }
}

void CommandEditorWindowTest::nothingIsClipped()
{
    QFETCH(QString, typeId);
    QFETCH(int, percent);
    const QFont usualFont = QApplication::font();
    QFont font = usualFont;
    font.setPixelSize(font.pixelSize() * percent / 100);
    QApplication::setFont(font);
    run(SampleCommands::record(typeId, "{1}", "A name that is rather long for a command"),
        [](QDialog& dialog) {
            QCoreApplication::processEvents();
            QCOMPARE(clippedPart(dialog), QString());
            QVERIFY(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
            QVERIFY(dialog.grab().save(
                QString(PICTURES_FOLDER "/command-editor-%1.png").arg(QTest::currentDataTag())));
            // As small as its user can make it.
            dialog.resize(dialog.minimumSize());
            QCoreApplication::processEvents();
            QCOMPARE(clippedPart(dialog), QString());
        });
    QApplication::setFont(usualFont);
}

void CommandEditorWindowTest::helpCanBeReadWhileTheEditorIsOpen_data()
{
    addTypes();
}

void CommandEditorWindowTest::helpCanBeReadWhileTheEditorIsOpen()
{
    QFETCH(QString, typeId);
    run(SampleCommands::record(typeId, "{1}", "Test"), [&](QDialog& dialog) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
        HelpWindow* help = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            help = help ? help : qobject_cast<HelpWindow*>(window);
        QVERIFY(help);
        QTRY_VERIFY(help->isAncestorOf(QApplication::focusWidget()));
        QVERIFY2(help->windowTitle() != "Help", "no page was found");
        QVERIFY(help->plainText().size() > 300);
        // Its window takes the pointer and the keyboard, also while the dialog waits for an answer.
        auto* const browser = help->findChild<QTextBrowser*>();
        browser->setFocus();
        help->resize(300, 200);
        QTRY_VERIFY(browser->verticalScrollBar()->maximum() > 0);
        QTest::keyClick(help->windowHandle(), Qt::Key_PageDown);
        QTRY_VERIFY(browser->verticalScrollBar()->value() > 0);
        // Only now: the answer to an earlier size would come between and scroll the page back to its top.
        QTest::keyClick(help->windowHandle(), Qt::Key_Home, Qt::ControlModifier);
        help->resize(760, 640);
        QVERIFY(
            help->grab().save(QString(PICTURES_FOLDER "/help-command-%1.png").arg(QTest::currentDataTag())));
        QTest::keyClick(help->windowHandle(), Qt::Key_Escape);
        QVERIFY(!help->isVisible());
        QVERIFY(dialog.isVisible());
    });
}

VELTRANO_TEST_MAIN(CommandEditorWindowTest)
#include "CommandEditorWindowTest.moc"
