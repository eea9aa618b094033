#include "SampleCommands.h"

#include <ApplicationLook.h>
#include <cHelpMgr.h>
#include <cMacroBindingView.h>
#include <cMacroEditor.h>
#include <cMacroTypeIconItem.h>
#include <cMacroTypeIconList.h>
#include <cMacroTypeMgr.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <DialogDriver.h>
#include <FixedIds.h>
#include <HelpWindow.h>
#include <HostApplication.h>
#include <IMacroEditor.h>
#include <JsonText.h>
#include <KeyCaptureButton.h>
#include <MacroTypeIds.h>
#include <MainWindow.h>
#include <PluginFolder.h>
#include <TestCase.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTextBrowser>

#include <memory>

/// The command editor over the real host: its window, its command types, its store of profiles, its help.
class CommandEditorWindowTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void opensOverTheMiddleOfTheMainWindow();
    void typingBeginsInTheFirstField();
    void commandOfEachTypeIsMade_data();
    void commandOfEachTypeIsMade();
    void commandOfEachTypeIsMadeByKeyboard_data();
    void commandOfEachTypeIsMadeByKeyboard();
    void commandOfEachTypeIsOpenedAndStaysAsItIs_data();
    void commandOfEachTypeIsOpenedAndStaysAsItIs();
    void severalCommandsAreAddedInARow();
    void functionIsMadeOnlyOnce();
    void editedFunctionGoesIntoTheOneThatExists();
    void wrongFormSaysWhatIsWrong();
    void tabGoesThroughTheDialogAsTheEyeDoes_data();
    void tabGoesThroughTheDialogAsTheEyeDoes();
    void recorderTakesTheKeysOfTheDialog();
    void nothingIsClipped_data();
    void nothingIsClipped();
    void helpCanBeReadWhileTheEditorIsOpen_data();
    void helpCanBeReadWhileTheEditorIsOpen();
    void commandIsDeletedWhileItIsEdited();
    void profileIsDeletedWhileItsCommandIsEdited();

private:
    static void addTypes();
    /// Opens the editor as its callers do and lets a function use it.
    void run(const cJsonValue& macro, const std::function<void(QDialog&)>& use);
    void showProfile(const QString& profile);
    cJsonValue commandNamed(const QString& name);
    static cMacroTypeIconItem* icon(const QDialog& dialog, const QString& typeId);
    static QPushButton* button(const QDialog& dialog, const QString& text);
    static QLineEdit* nameOf(const QDialog& dialog);
    static IMacroEditor* formOf(const QDialog& dialog);
    static QString messageOf(const QDialog& dialog);
    /// Fills the form, which has the focus, by keyboard.
    static void fillIn(const QDialog& dialog, const QString& typeId);
    static QString nameAfterFilling(const QString& typeId);
    /// What is wrong with the sizes of the widgets that are shown, empty if nothing is.
    static QString clippedPart(const QWidget& dialog);

    QTemporaryDir m_folder;
    std::unique_ptr<PluginFolder> m_plugin;
    std::unique_ptr<HostApplication> m_host;
    QString m_profile;
    QStringList m_closed;

private Q_SLOTS:
    void onMacroEditorClosed(const QString& macroID) { m_closed << macroID; }
};

void CommandEditorWindowTest::initTestCase()
{
    TestCase::initTestCase();
    ApplicationLook::apply();
    QApplication::setQuitOnLastWindowClosed(false);
    m_plugin = std::make_unique<PluginFolder>(SOURCE_FOLDER);
    ApplicationPaths paths;
    paths.pluginsFolder = m_folder.path();
    paths.shareFolder = SHARE_FOLDER;
    m_host = std::make_unique<HostApplication>(
        paths, CommandLine({"test", "--data-dir", m_folder.filePath("data")}));
    m_host->start();
    QVERIFY(QTest::qWaitForWindowActive(&m_host->window()));
    // As the host asks a plug-in that is there from the start.
    QVERIFY(
        QMetaObject::invokeMethod(cMacroBindingView::instance(), "onRegisterHelpProvider", Q_ARG(int, 10)));
}

void CommandEditorWindowTest::cleanupTestCase()
{
    delete cMacroBindingView::instance();
    m_host.reset();
    m_plugin.reset();
    qApp->setStyleSheet(QString());
    TestCase::cleanupTestCase();
}

void CommandEditorWindowTest::init()
{
    cProfileMgr profiles;
    m_profile = QUuid::createUuid().toString().toUpper();
    cJsonValue profile;
    profile["uid"] = m_profile;
    profile["name"] = "Test";
    QVERIFY(profiles.addProfile(profile));
    showProfile(m_profile);
}

void CommandEditorWindowTest::cleanup()
{
    cProfileMgr().deleteProfileByID(m_profile);
    m_closed.clear();
}

void CommandEditorWindowTest::showProfile(const QString& profile)
{
    QMetaObject::invokeMethod(
        cMacroBindingView::instance(), "onProfileSelectionChanging", Q_ARG(QString, profile));
}

void CommandEditorWindowTest::run(const cJsonValue& macro, const std::function<void(QDialog&)>& use)
{
    DialogDriver driver([&](QDialog& dialog) {
        // Qt calls a dialog active while its main window is; the focus tells.
        QTRY_VERIFY(dialog.isAncestorOf(QApplication::focusWidget()));
        use(dialog);
    });
    cMacroEditor editor(macro, cMainUI().window(), true);
    connect(&editor, SIGNAL(macroEditorClosed(QString)), this, SLOT(onMacroEditorClosed(QString)));
    editor.exec();
    QVERIFY(driver.hasRun());
}

cJsonValue CommandEditorWindowTest::commandNamed(const QString& name)
{
    const cJsonValue macros = cProfileMgr().macros(m_profile);
    for (int i = 0; i < int(macros.size()); ++i) {
        if (macros[i]["display_name"].toString() == name)
            return macros[i];
    }
    return {};
}

cMacroTypeIconItem* CommandEditorWindowTest::icon(const QDialog& dialog, const QString& typeId)
{
    for (cMacroTypeIconItem* item : dialog.findChildren<cMacroTypeIconItem*>()) {
        if (item->macroTypeID() == typeId)
            return item;
    }
    return nullptr;
}

QPushButton* CommandEditorWindowTest::button(const QDialog& dialog, const QString& text)
{
    for (QPushButton* each : dialog.findChildren<QPushButton*>()) {
        if (each->text().remove('&') == text && each->isVisible())
            return each;
    }
    return nullptr;
}

QLineEdit* CommandEditorWindowTest::nameOf(const QDialog& dialog)
{
    for (QLineEdit* each : dialog.findChildren<QLineEdit*>()) {
        if (each->property("uiType") == "meLineEdit")
            return each;
    }
    return nullptr;
}

IMacroEditor* CommandEditorWindowTest::formOf(const QDialog& dialog)
{
    return qobject_cast<IMacroEditor*>(dialog.findChild<QStackedWidget*>()->currentWidget());
}

QString CommandEditorWindowTest::messageOf(const QDialog& dialog)
{
    for (const QLabel* label : formOf(dialog)->findChildren<QLabel*>()) {
        if (label->property("uiType") == "meMessage" && label->isVisible())
            return label->text();
    }
    return QString();
}

void CommandEditorWindowTest::addTypes()
{
    QTest::addColumn<QString>("typeId");
    for (const QLatin1String typeId : {MacroTypeIds::Keystroke, MacroTypeIds::MultiKey,
             MacroTypeIds::TextBlock, MacroNamespaces::MouseFunction, MacroNamespaces::Media,
             MacroNamespaces::Hotkeys, MacroTypeIds::Launch, MacroTypeIds::Script})
        QTest::newRow(qPrintable(QString(typeId).section('/', -1))) << QString(typeId);
}

QString CommandEditorWindowTest::nameAfterFilling(const QString& typeId)
{
    if (typeId == MacroTypeIds::Keystroke || typeId == MacroTypeIds::MultiKey)
        return "A";
    if (typeId == MacroTypeIds::TextBlock)
        return "gg wp";
    if (typeId == MacroTypeIds::Launch)
        return "sh";
    if (typeId == MacroTypeIds::Script)
        return "reload";
    if (typeId == MacroNamespaces::MouseFunction)
        return "Right Click";
    return typeId == MacroNamespaces::Media ? "Stop" : "Cut";
}

void CommandEditorWindowTest::fillIn(const QDialog& dialog, const QString& typeId)
{
    QWidget* const field = QApplication::focusWidget();
    QVERIFY(formOf(dialog)->isAncestorOf(field));
    if (typeId == MacroTypeIds::Keystroke || typeId == MacroTypeIds::MultiKey) {
        QVERIFY(qobject_cast<KeyCaptureButton*>(field));
        QTest::keyClick(field, Qt::Key_Space);
        QTest::keyClick(field, Qt::Key_A);
        // Ends a recording; a keystroke is complete by now.
        if (typeId == MacroTypeIds::MultiKey)
            QTest::keyClick(field, Qt::Key_Escape);
    } else if (typeId == MacroTypeIds::TextBlock) {
        QTest::keyClicks(field, "gg wp");
    } else if (typeId == MacroTypeIds::Launch) {
        QTest::keyClicks(field, "/bin/sh");
    } else if (typeId == MacroTypeIds::Script) {
        QTest::keyClicks(field, "reload");
    } else {
        QTest::keyClick(field, Qt::Key_Home);
        QTest::keyClick(field, Qt::Key_Down);
    }
}

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

void CommandEditorWindowTest::commandOfEachTypeIsMade_data()
{
    addTypes();
}

void CommandEditorWindowTest::commandOfEachTypeIsMade()
{
    QFETCH(QString, typeId);
    run(cJsonValue(), [&](QDialog& dialog) {
        QVERIFY(!button(dialog, "OK")->isEnabled());
        // All of them are seen on the way to the one that is wanted.
        for (cMacroTypeIconItem* item : dialog.findChildren<cMacroTypeIconItem*>()) {
            QTest::mouseClick(item, Qt::LeftButton);
            QCOMPARE(formOf(dialog)->getMacroTypeID(), item->macroTypeID());
        }
        QTest::mouseClick(icon(dialog, typeId), Qt::LeftButton);
        formOf(dialog)->setFocus();
        fillIn(dialog, typeId);
        QVERIFY(button(dialog, "OK")->isEnabled());
        QTest::mouseClick(button(dialog, "OK"), Qt::LeftButton);
        QVERIFY2(!dialog.isVisible(), qPrintable(messageOf(dialog)));
    });
    const cJsonValue macro = commandNamed(nameAfterFilling(typeId));
    QCOMPARE(macro["namespace"].toString(), typeId);
    QVERIFY(macro["data"].isObject());
    QVERIFY(!macro["hidden"].toBool());
    QVERIFY(!macro.contains("repeat"));
    QCOMPARE(m_closed, QStringList({macro["uid"].toString()}));
}

void CommandEditorWindowTest::commandOfEachTypeIsMadeByKeyboard_data()
{
    addTypes();
}

void CommandEditorWindowTest::commandOfEachTypeIsMadeByKeyboard()
{
    QFETCH(QString, typeId);
    run(cJsonValue(), [&](QDialog& dialog) {
        const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
            QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        };
        // The column of types stands before the name.
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(qobject_cast<cMacroTypeIconList*>(QApplication::focusWidget()));
        while (formOf(dialog)->getMacroTypeID() != typeId)
            press(Qt::Key_Down);
        QVERIFY(dialog.grab().save(
            QString(PICTURES_FOLDER "/command-editor-column-%1.png").arg(QTest::currentDataTag())));
        press(Qt::Key_Tab);
        if (nameOf(dialog)->isVisible()) {
            QVERIFY(nameOf(dialog)->hasFocus());
            press(Qt::Key_Tab);
        }
        fillIn(dialog, typeId);
        // Repeat options, where the type has them.
        QComboBox* const repeat = dialog.findChild<QComboBox*>();
        for (int i = 0; i < 12 && repeat->isVisible() && !repeat->hasFocus(); ++i)
            press(Qt::Key_Tab);
        if (repeat->hasFocus()) {
            press(Qt::Key_Down);
            press(Qt::Key_Tab);
        }
        for (int i = 0; i < 12 && !button(dialog, "OK")->hasFocus(); ++i)
            press(Qt::Key_Tab);
        QVERIFY(button(dialog, "OK")->hasFocus());
        press(Qt::Key_Return);
        QVERIFY2(!dialog.isVisible(), qPrintable(messageOf(dialog)));
    });
    const cJsonValue macro = commandNamed(nameAfterFilling(typeId));
    QCOMPARE(macro["namespace"].toString(), typeId);
    const bool repeats = cMacroTypeMgr().getMacroTypeByID(typeId)->isRepeatable();
    QCOMPARE(HVS::toJsonText(macro["repeat"]),
        QByteArray(repeats ? "{\"delay\":25,\"mode\":\"whilepressed\"}" : "null"));
}

void CommandEditorWindowTest::commandOfEachTypeIsOpenedAndStaysAsItIs_data()
{
    addTypes();
}

void CommandEditorWindowTest::commandOfEachTypeIsOpenedAndStaysAsItIs()
{
    QFETCH(QString, typeId);
    const QString name = typeId.startsWith("http")
            && (typeId == MacroNamespaces::MouseFunction || typeId == MacroNamespaces::Media
                || typeId == MacroNamespaces::Hotkeys)
        ? SampleCommands::data(typeId)["function"].toString()
        : QString("My Command");
    cJsonValue macro = SampleCommands::record(typeId, "{00000000-0000-0000-0000-0000000000AB}", name);
    macro["repeat"]["mode"] = "toggle";
    macro["repeat"]["delay"] = 40;
    QVERIFY(cProfileMgr().addMacro(m_profile, macro));
    const cJsonValue stored = commandNamed(name);
    run(stored, [&](QDialog& dialog) {
        QVERIFY(icon(dialog, typeId)->isHighlighted());
        QCOMPARE(messageOf(dialog), QString());
        QTest::keyClick(&dialog, Qt::Key_Return);
        QVERIFY2(!dialog.isVisible(), qPrintable(messageOf(dialog)));
    });
    QCOMPARE(HVS::toJsonText(commandNamed(name)), HVS::toJsonText(stored));
    QCOMPARE(m_closed, QStringList({stored["uid"].toString()}));
}

void CommandEditorWindowTest::severalCommandsAreAddedInARow()
{
    run(cJsonValue(), [](QDialog& dialog) {
        QTest::mouseClick(icon(dialog, MacroTypeIds::Script), Qt::LeftButton);
        for (const char* name : {"aim", "duck", "jump"}) {
            QVERIFY(!button(dialog, "Add")->isEnabled());
            formOf(dialog)->setFocus();
            QTest::keyClicks(QApplication::focusWidget(), name);
            QTest::mouseClick(button(dialog, "Add"), Qt::LeftButton);
            QVERIFY(dialog.isVisible());
            QVERIFY(nameOf(dialog)->hasFocus());
            QCOMPARE(nameOf(dialog)->text(), QString());
            QVERIFY(button(dialog, "Close"));
        }
        QTest::mouseClick(button(dialog, "Close"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
    });
    for (const char* name : {"aim", "duck", "jump"})
        QCOMPARE(commandNamed(name)["data"]["function"].toString(), QString(name));
    QCOMPARE(m_closed, QStringList());
}

void CommandEditorWindowTest::functionIsMadeOnlyOnce()
{
    const auto make = [](QDialog& dialog) {
        QTest::mouseClick(icon(dialog, MacroNamespaces::Media), Qt::LeftButton);
        formOf(dialog)->setFocus();
        fillIn(dialog, MacroNamespaces::Media);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
    };
    run(cJsonValue(), make);
    run(cJsonValue(), make);
    QCOMPARE(m_closed.size(), 2);
    QCOMPARE(m_closed[0], m_closed[1]);
    QCOMPARE(int(cProfileMgr().macros(m_profile).size()), 1);
}

void CommandEditorWindowTest::editedFunctionGoesIntoTheOneThatExists()
{
    const QString other = "{00000000-0000-0000-0000-0000000000AB}";
    const QString edited = "{00000000-0000-0000-0000-0000000000AC}";
    cJsonValue stop = SampleCommands::record(MacroNamespaces::Media, other, "Stop");
    stop["data"]["function"] = "Stop";
    cProfileMgr profiles;
    QVERIFY(profiles.addMacro(m_profile, stop));
    QVERIFY(
        profiles.addMacro(m_profile, SampleCommands::record(MacroNamespaces::Media, edited, "Volume Up")));
    profiles.setAssignment(m_profile, DeviceIds::MouseCategory, edited, MKey::MKey_t(0), "G4");
    run(commandNamed("Volume Up"), [](QDialog& dialog) {
        fillIn(dialog, MacroNamespaces::Media);
        QTest::mouseClick(button(dialog, "OK"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(m_closed, QStringList({other}));
    QVERIFY(commandNamed("Volume Up").isNull());
    QCOMPARE(profiles.getAssignment(m_profile, DeviceIds::MouseCategory, MKey::MKey_t(0), "G4"), other);
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

QString CommandEditorWindowTest::clippedPart(const QWidget& dialog)
{
    for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const bool isText =
            label || qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget);
        if (!isText)
            continue;
        QSize needed = widget->minimumSizeHint();
        if (label && label->wordWrap())
            needed = QSize(0, label->heightForWidth(label->width()));
        const QRect place(widget->mapTo(&dialog, QPoint()), widget->size());
        if (widget->width() < needed.width() || widget->height() < needed.height()
            || !dialog.rect().contains(place))
            return QString("%1 \"%2\": %3x%4, needs %5x%6")
                .arg(widget->metaObject()->className(), widget->property("text").toString())
                .arg(widget->width())
                .arg(widget->height())
                .arg(needed.width())
                .arg(needed.height());
    }
    return QString();
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
        help->resize(760, 640);
        QVERIFY(
            help->grab().save(QString(PICTURES_FOLDER "/help-command-%1.png").arg(QTest::currentDataTag())));
        help->resize(300, 200);
        QTRY_VERIFY(browser->verticalScrollBar()->maximum() > 0);
        QTest::keyClick(help->windowHandle(), Qt::Key_PageDown);
        QTRY_VERIFY(browser->verticalScrollBar()->value() > 0);
        QTest::keyClick(help->windowHandle(), Qt::Key_Escape);
        QVERIFY(!help->isVisible());
        QVERIFY(dialog.isVisible());
    });
}

void CommandEditorWindowTest::commandIsDeletedWhileItIsEdited()
{
    QVERIFY(cProfileMgr().addMacro(m_profile,
        SampleCommands::record(MacroTypeIds::Script, "{00000000-0000-0000-0000-0000000000AB}", "Test")));
    const cJsonValue macro = commandNamed("Test");
    run(macro, [&](QDialog& dialog) {
        QVERIFY(cProfileMgr().deleteMacro(m_profile, macro));
        nameOf(dialog)->setText("Later");
        QTest::mouseClick(button(dialog, "OK"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(int(cProfileMgr().macros(m_profile).size()), 0);
    QCOMPARE(m_closed, QStringList());
}

void CommandEditorWindowTest::profileIsDeletedWhileItsCommandIsEdited()
{
    QVERIFY(cProfileMgr().addMacro(m_profile,
        SampleCommands::record(MacroTypeIds::Script, "{00000000-0000-0000-0000-0000000000AB}", "Test")));
    run(commandNamed("Test"), [&](QDialog& dialog) {
        QVERIFY(cProfileMgr().deleteProfileByID(m_profile));
        QTest::mouseClick(button(dialog, "OK"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
    });
    // A new command has nowhere to go.
    run(cJsonValue(), [&](QDialog& dialog) {
        QTest::mouseClick(icon(dialog, MacroTypeIds::Script), Qt::LeftButton);
        formOf(dialog)->setFocus();
        fillIn(dialog, MacroTypeIds::Script);
        QTest::mouseClick(button(dialog, "Add"), Qt::LeftButton);
        QVERIFY(dialog.isVisible());
    });
    QVERIFY(cProfileMgr().getProfileByID(m_profile).isNull());
    showProfile(FixedIds::DefaultProfile);
}

VELTRANO_TEST_MAIN(CommandEditorWindowTest)
#include "CommandEditorWindowTest.moc"
