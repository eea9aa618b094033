#include "EditorTestCase.h"

#include <FixedIds.h>
#include <MacroTypeIds.h>
#include <RecordingHost.h>

#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTimer>

class MacroEditorsTest : public EditorTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_dialog.reset(); }

    void commandComesOutAsItWentIn_data();
    void commandComesOutAsItWentIn();
    void changeKeepsWhatTheFormDoesNotShow();
    void newFormIsEmpty_data();
    void newFormIsEmpty();
    void wrongFormIsRefusedWithAMessage_data();
    void wrongFormIsRefusedWithAMessage();
    void messageGoesWithTheNextChange();
    void damagedDataIsShownAsSuchAndKept_data();
    void damagedDataIsShownAsSuchAndKept();
    void filledFormIsNamedAndCleared_data();
    void filledFormIsNamedAndCleared();
    void typedNameStays();
    void proposalOfAnotherPageIsReplaced();
    void namesAreShort();
    void helpOpensTheTopicOfTheType_data();
    void helpOpensTheTopicOfTheType();
    void pagesAreReachedByKeyboard_data();
    void pagesAreReachedByKeyboard();
    void textKeepsItsSpaces();
    void programIsBrowsedFor();
    void functionIsSelectedByName();
    void missingProgramCanStillBeRenamed();
};

void MacroEditorsTest::commandComesOutAsItWentIn_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<cJsonValue>("data");
    const auto row = [](QLatin1String uid, const char* data) {
        QTest::newRow(data) << QString(uid) << json(data);
    };
    row(MacroTypeIds::Keystroke, "{\"keys\": \"Shift+Ctrl+A\", \"scancode\": 38, \"later\": [1]}");
    row(MacroTypeIds::MultiKey, "{\"events\": [{\"type\": \"press\", \"key\": \"<b>\", \"delay\": -4}]}");
    row(MacroTypeIds::MultiKey,
        "{\"events\": [{\"type\": \"press\", \"key\": \"A\", \"delay\": 4, \"later\": 0.5}]}");
    row(MacroTypeIds::TextBlock, "{\"text\": \" <b>a</b>\\n\\u00a0\\r\\n\\t\\u0001\"}");
    row(MacroTypeIds::Launch, "{\"path\": \" /a \", \"arguments\": \"\", \"folder\": \"x\"}");
    row(MacroTypeIds::Script, "{\"function\": \"f\", \"argument\": \" a \"}");
    row(MacroNamespaces::Media, "{\"function\": \"Rewind the World\"}");
    row(MacroNamespaces::Hotkeys, "{\"function\": \"Copy\", \"later\": {}}");
    row(MacroNamespaces::StickMouse, "null");
    row(MacroNamespaces::StickJoystick, "{\"speed\": 3}");
}

void MacroEditorsTest::commandComesOutAsItWentIn()
{
    QFETCH(QString, uid);
    QFETCH(cJsonValue, data);
    IMacroEditor* const page = open(uid, record(uid, data));
    QCOMPARE(text(page->data()), text(data));
    QVERIFY(page->canAddMacro());
    QVERIFY(page->onOK());
    QVERIFY(page->onCancel());
    QCOMPARE(text(page->data()), text(data));
    QCOMPARE(page->getMacroTypeID(), uid);
    QCOMPARE(m_name->text(), QString("My Command"));
}

void MacroEditorsTest::changeKeepsWhatTheFormDoesNotShow()
{
    open(MacroTypeIds::Launch,
        record(MacroTypeIds::Launch, json("{\"path\": \"/bin/sh\", \"folder\": \"/tmp\", \"later\": 1}")));
    field<QLineEdit>("Arguments")->setText("-c true");
    field<QLineEdit>("Working folder")->clear();
    QCOMPARE(text(m_page->data()),
        text(json("{\"path\": \"/bin/sh\", \"arguments\": \"-c true\", \"later\": 1}")));
    QCOMPARE(m_name->text(), QString("My Command"));
}

void MacroEditorsTest::newFormIsEmpty_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<bool>("showsName");
    QTest::addColumn<QString>("name");
    const auto row = [](QLatin1String uid, bool showsName, const char* name) {
        QTest::newRow(qPrintable(QString(uid).section('/', -1)))
            << QString(uid) << showsName << QString(name);
    };
    row(MacroTypeIds::Keystroke, true, "A");
    row(MacroTypeIds::MultiKey, true, "A");
    row(MacroTypeIds::TextBlock, true, "Hello there");
    row(MacroTypeIds::Launch, true, "sh");
    row(MacroTypeIds::Script, true, "reload");
    row(MacroNamespaces::MouseFunction, false, "Left Click");
    row(MacroNamespaces::Media, false, "Play/Pause");
    row(MacroNamespaces::Hotkeys, false, "Copy");
}

void MacroEditorsTest::newFormIsEmpty()
{
    QFETCH(QString, uid);
    QFETCH(bool, showsName);
    IMacroEditor* const page = open(uid);
    QCOMPARE(page->showMacroName(), showsName);
    QCOMPARE(page->defaultMacroName(), QString());
    QVERIFY(!page->canAddMacro());
    QVERIFY(page->data().isNull());
    QVERIFY(page->onCancel());
    QCOMPARE(message(), QString());
    QCOMPARE(m_changes, 0);
    QVERIFY(!page->onOK());
    QVERIFY(!message().isEmpty());
    QVERIFY(page->isAncestorOf(QApplication::focusWidget()));
}

void MacroEditorsTest::wrongFormIsRefusedWithAMessage_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("wrongField");
    const auto row = [](QLatin1String uid, const QStringList& texts, const char* message, int wrongField) {
        QTest::newRow(message) << QString(uid) << texts << QString(message) << wrongField;
    };
    row(MacroTypeIds::Launch, {" ", "", ""}, "Choose the program or file that this command opens.", 0);
    row(MacroTypeIds::Launch, {"/no/<b>such", "", ""}, "There is no program or file \"/no/<b>such\".", 0);
    row(MacroTypeIds::Launch, {"sh", "-c \"a", ""}, "A quotation mark in the arguments is not closed.", 1);
    row(MacroTypeIds::Launch, {"/bin/sh", "", "/no/folder"}, "There is no folder \"/no/folder\".", 2);
    row(MacroTypeIds::Script, {"", "x"}, "Enter the name of the script's function.", 0);
    row(MacroTypeIds::Script, {"1f", "x"},
        "\"1f\" is not the name of a function. Names have letters, digits and underscores, and don't begin "
        "with "
        "a digit.",
        0);
}

void MacroEditorsTest::wrongFormIsRefusedWithAMessage()
{
    QFETCH(QString, uid);
    QFETCH(QStringList, texts);
    QFETCH(QString, message);
    QFETCH(int, wrongField);
    open(uid);
    const auto fields = m_page->findChildren<QLineEdit*>();
    QCOMPARE(fields.size(), texts.size());
    for (int i = 0; i < texts.size(); ++i)
        fields[i]->setText(texts[i]);
    QVERIFY(!m_page->onOK());
    QCOMPARE(this->message(), message);
    QVERIFY(fields[wrongField]->hasFocus());
    QCOMPARE(fields[wrongField]->property("needsChange").toBool(), true);
}

void MacroEditorsTest::messageGoesWithTheNextChange()
{
    open(MacroTypeIds::TextBlock);
    QVERIFY(!m_page->onOK());
    QCOMPARE(message(), QString("Enter the text that this command types."));
    auto* const field = m_page->findChild<QPlainTextEdit*>();
    field->setPlainText("a");
    QCOMPARE(message(), QString());
    QVERIFY(!field->property("needsChange").toBool());
    field->setPlainText(QString(MacroLimits::TextLength + 1, 'x'));
    QVERIFY(!m_page->onOK());
    QCOMPARE(message(), QString("A command types at most 10,000 characters; this text has 10,001."));
}

void MacroEditorsTest::damagedDataIsShownAsSuchAndKept_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<cJsonValue>("data");
    for (const QLatin1String uid : {MacroTypeIds::Keystroke, MacroTypeIds::MultiKey, MacroTypeIds::TextBlock,
             MacroTypeIds::Launch, MacroTypeIds::Script, MacroNamespaces::Hotkeys}) {
        for (const char* data : {"5", "[]", "\"x\"", "{}", "{\"raw_xml\": \"<new/>\"}",
                 "{\"keys\": [], \"events\": 7, "
                 "\"text\": {}, \"path\": 1, \"function\": true}",
                 "{\"events\": [1, null, \"a\"]}"})
            QTest::newRow(qPrintable(QString(uid).section('/', -1) + ' ' + data))
                << QString(uid) << json(data);
    }
}

void MacroEditorsTest::damagedDataIsShownAsSuchAndKept()
{
    QFETCH(QString, uid);
    QFETCH(cJsonValue, data);
    open(uid, record(uid, data));
    QVERIFY2(message().startsWith("This command holds something that can't be shown here."),
        qPrintable(message()));
    QCOMPARE(text(m_page->data()), text(data));
    QVERIFY(m_page->onOK());
    fillIn(uid);
    QCOMPARE(message(), QString());
    QVERIFY(m_page->canAddMacro());
    QVERIFY(m_page->data().isObject());
    QVERIFY(!m_page->data().contains("raw_xml"));
    QVERIFY(m_page->onOK());
}

void MacroEditorsTest::filledFormIsNamedAndCleared_data()
{
    newFormIsEmpty_data();
}

void MacroEditorsTest::filledFormIsNamedAndCleared()
{
    QFETCH(QString, uid);
    QFETCH(QString, name);
    open(uid);
    fillIn(uid);
    QVERIFY(m_changes > 0);
    QVERIFY(m_page->canAddMacro());
    QVERIFY2(m_page->onOK(), qPrintable(message()));
    QCOMPARE(m_page->defaultMacroName(), name);
    QCOMPARE(m_name->text(), name);
    const cJsonValue data = m_page->data();
    QVERIFY(data.isObject());

    m_name->clear();
    m_page->onClearForm();
    QVERIFY(!m_page->canAddMacro());
    QVERIFY(m_page->data().isNull());
    QCOMPARE(m_name->text(), QString());
    QCOMPARE(m_page->defaultMacroName(), QString());
    QVERIFY(!m_page->onOK());

    fillIn(uid);
    QCOMPARE(m_name->text(), name);
    QCOMPARE(text(m_page->data()), text(data));

    // What a page made, it shows.
    open(uid, record(uid, data, name));
    QCOMPARE(message(), QString());
    QCOMPARE(m_page->defaultMacroName(), name);
}

void MacroEditorsTest::typedNameStays()
{
    open(MacroTypeIds::Script);
    auto* const function = field<QLineEdit>("Function");
    function->setText("reload");
    QCOMPARE(m_name->text(), QString("reload"));
    function->setText("reload2");
    QCOMPARE(m_name->text(), QString("reload2"));
    m_name->setText("Reload Weapon");
    const int changes = m_changes;
    function->setText("load");
    QCOMPARE(m_changes, changes + 1);
    QCOMPARE(m_name->text(), QString("Reload Weapon"));
    m_name->clear();
    function->setText("loads");
    QCOMPARE(m_name->text(), QString("loads"));
    open(MacroTypeIds::Script, record(MacroTypeIds::Script, json("{\"function\": \"f\"}"), "f"));
    field<QLineEdit>("Function")->setText("g");
    QCOMPARE(m_name->text(), QString("g"));
}

void MacroEditorsTest::proposalOfAnotherPageIsReplaced()
{
    open(MacroTypeIds::Script);
    field<QLineEdit>("Function")->setText("reload");
    IMacroEditor* const other = typeOf(MacroTypeIds::TextBlock)->editor(cJsonValue());
    connect(other, SIGNAL(nameChanged(QString)), this, SLOT(onNameChanged(QString)));
    m_dialog->layout()->addWidget(other);
    other->findChild<QPlainTextEdit*>()->setPlainText("Hello");
    QCOMPARE(m_name->text(), QString("Hello"));
}

void MacroEditorsTest::namesAreShort()
{
    open(MacroTypeIds::TextBlock);
    m_page->findChild<QPlainTextEdit*>()->setPlainText("\n \n" + QString(100000, 'x') + "\nb");
    QCOMPARE(m_page->defaultMacroName().size(), MacroLimits::NameLength);
    m_page->findChild<QPlainTextEdit*>()->setPlainText("<b>one</b>  two\nthree");
    QCOMPARE(m_name->text(), QString("<b>one</b> two"));
}

void MacroEditorsTest::helpOpensTheTopicOfTheType_data()
{
    QTest::addColumn<QString>("uid");
    QTest::newRow("command_keystroke.htm") << QString(MacroTypeIds::Keystroke);
    QTest::newRow("command_multikey.htm") << QString(MacroTypeIds::MultiKey);
    QTest::newRow("command_textblock.htm") << QString(MacroTypeIds::TextBlock);
    QTest::newRow("command_mouse.htm") << QString(MacroNamespaces::MouseFunction);
    QTest::newRow("command_media.htm") << QString(MacroNamespaces::Media);
    QTest::newRow("command_hotkeys.htm") << QString(MacroNamespaces::Hotkeys);
    QTest::newRow("command_launch.htm") << QString(MacroTypeIds::Launch);
    QTest::newRow("command_script.htm") << QString(MacroTypeIds::Script);
    QTest::newRow("command_stick.htm") << QString(MacroNamespaces::StickMouse);
}

void MacroEditorsTest::helpOpensTheTopicOfTheType()
{
    QFETCH(QString, uid);
    RecordingHost host;
    open(uid)->onHelp();
    QCOMPARE(host.takeCalls(),
        QStringList({QString("LaunchHelp(\"com.veltrano.profile\", \"%1\")").arg(QTest::currentDataTag())}));
}

void MacroEditorsTest::pagesAreReachedByKeyboard_data()
{
    newFormIsEmpty_data();
}

void MacroEditorsTest::pagesAreReachedByKeyboard()
{
    QFETCH(QString, uid);
    open(uid);
    for (const QWidget* widget : m_page->findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (label && label->text().contains('&'))
            QVERIFY2(label->buddy(), qPrintable(label->text()));
        const auto* push = qobject_cast<const QPushButton*>(widget);
        if (push)
            QVERIFY2(!push->autoDefault(), qPrintable(push->text()));
    }
    // Tab goes down the page, and leaves it.
    m_name->setFocus();
    QPoint last(-1, -1);
    int stops = 0;
    for (;; ++stops) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QWidget* const widget = QApplication::focusWidget();
        if (!m_page->isAncestorOf(widget))
            break;
        const QPoint place = widget->mapTo(m_page, QPoint());
        QVERIFY2(place.y() >= last.y() || place.x() > last.x(), widget->metaObject()->className());
        last = place;
        QVERIFY(stops < 20);
    }
    QVERIFY(stops > 0);
}

void MacroEditorsTest::textKeepsItsSpaces()
{
    open(MacroTypeIds::TextBlock);
    const QString typed = QString(" a") + QChar(0xa0) + "b\n\n\tc ";
    m_page->findChild<QPlainTextEdit*>()->setPlainText(typed);
    QCOMPARE(m_page->data()["text"].toString(), typed);
}

void MacroEditorsTest::programIsBrowsedFor()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("my game.sh"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    open(MacroTypeIds::Launch);
    field<QLineEdit>("Program or file")->setText(file.fileName());
    QTimer::singleShot(0, this, [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        dialog->selectFile(file.fileName());
        QMetaObject::invokeMethod(dialog, "accept");
    });
    field<QPushButton>("Browse for a program or file")->click();
    QCOMPARE(field<QLineEdit>("Program or file")->text(), file.fileName());
    QCOMPARE(m_name->text(), QString("my game"));
    QTimer::singleShot(
        0, this, [&] { QMetaObject::invokeMethod(QApplication::activeModalWidget(), "reject"); });
    field<QPushButton>("Browse for a working folder")->click();
    QCOMPARE(field<QLineEdit>("Working folder")->text(), QString());
    QVERIFY(m_page->onOK());
}

void MacroEditorsTest::functionIsSelectedByName()
{
    open(MacroNamespaces::Hotkeys);
    m_page->setMacroName("No Such Function");
    QVERIFY(!m_page->canAddMacro());
    m_page->setMacroName("Paste");
    QCOMPARE(m_page->defaultMacroName(), QString("Paste"));
    // A choice that has been made stays.
    m_page->setMacroName("Copy");
    QCOMPARE(text(m_page->data()), QByteArray("{\"function\":\"Paste\"}"));
}

void MacroEditorsTest::missingProgramCanStillBeRenamed()
{
    open(MacroTypeIds::Launch, record(MacroTypeIds::Launch, json("{\"path\": \"/gone/game\"}")));
    QVERIFY(m_page->onOK());
    field<QLineEdit>("Arguments")->setText("-x");
    QVERIFY(!m_page->onOK());
}

VELTRANO_TEST_MAIN(MacroEditorsTest)
#include "MacroEditorsTest.moc"
