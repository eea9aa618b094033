#include "CommandEditorTestCase.h"

#include <cMacroEditor.h>
#include <cMacroTypeIconItem.h>
#include <cMacroTypeIconList.h>
#include <FixedIds.h>
#include <MetaMembers.h>
#include <ServiceNames.h>

#include <QHBoxLayout>
#include <QIcon>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTimer>

#include <functional>

using namespace TestIds;

class cMacroEditorTest : public CommandEditorTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void hasItsMembers();
    void isADialogOfTheMainWindow();
    void columnStandsBesideThePage();
    void constructionCallsInOrder_data();
    void constructionCallsInOrder();
    void typeOfTheCommandIsChosen_data();
    void typeOfTheCommandIsChosen();
    void unknownTypeLeavesThePageAsItIs();
    void scriptsReachTheDialog();
    void clickOnAnIconShowsItsPage();
    void choosingAPlaceAgainKeepsThePage();

    void resultsOfThePageEndIt_data();
    void resultsOfThePageEndIt();
    void addKeepsItOpen();
    void closingTheWindowDoesNotAskTheForm_data();
    void closingTheWindowDoesNotAskTheForm();

    void firstFieldHasTheFocus_data();
    void firstFieldHasTheFocus();
    void returnSavesFromTheNameField();
    void returnDoesNothingWhileNothingCanBeSaved();
    void helpKeyOpensTheHelpOfTheForm_data();
    void helpKeyOpensTheHelpOfTheForm();

    void typesThatGoWhileItIsOpenBreakNothing();
    void eventsWhileItIsOpenBreakNothing();

private:
    cMacroEditor& open(const cJsonValue& macro = cJsonValue(), QWidget* parent = nullptr)
    {
        m_dialog = std::make_unique<cMacroEditor>(macro, parent, true);
        return *m_dialog;
    }
    cMacroEditor& show(const cJsonValue& macro = cJsonValue())
    {
        open(macro).show();
        if (!QTest::qWaitForWindowActive(m_dialog.get()))
            qFatal("the dialog does not come up");
        takeLog();
        return *m_dialog;
    }
    template<typename T>
    T* part(const char* uiType) const
    {
        for (T* each : m_dialog->findChildren<T*>()) {
            if (each->property("uiType") == QLatin1String(uiType))
                return each;
        }
        return nullptr;
    }
    QLineEdit& name() const { return *part<QLineEdit>("meLineEdit"); }
    QPushButton& okButton() const { return *part<QPushButton>("acceptbutton"); }
    QPushButton& button(const char* shown) const
    {
        for (QPushButton* each : m_dialog->findChildren<QPushButton*>()) {
            if (each->text() == shown)
                return *each;
        }
        qFatal("no button %s", shown);
    }
    QStackedWidget& stack() const { return *m_dialog->findChild<QStackedWidget*>(); }
    QList<cMacroTypeIconItem*> items() const { return m_dialog->findChildren<cMacroTypeIconItem*>(); }
    /// The highlighted types.
    QString chosen() const
    {
        QStringList names;
        for (const cMacroTypeIconItem* item : items()) {
            if (item->isHighlighted())
                names << item->displayName();
        }
        return names.join(' ');
    }

    std::unique_ptr<cMacroEditor> m_dialog;
};

void cMacroEditorTest::cleanup()
{
    m_dialog.reset();
    CommandEditorTestCase::cleanup();
}

void cMacroEditorTest::hasItsMembers()
{
    const QMetaObject& type = cMacroEditor::staticMetaObject;
    QCOMPARE(type.superClass(), &QDialog::staticMetaObject);
    QCOMPARE(MetaMembers::signalsOf(type), QStringList({"macroEditorClosed(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(type), QStringList({"changePage(int)", "setCurrentIndex(int)", "count()"}));
    QCOMPARE(type.method(type.indexOfSlot("count()")).returnType(), int(QMetaType::Int));
    open();
    int count = 0;
    QVERIFY(QMetaObject::invokeMethod(m_dialog.get(), "count", Q_RETURN_ARG(int, count)));
    QCOMPARE(count, 3);
}

void cMacroEditorTest::isADialogOfTheMainWindow()
{
    QWidget window;
    open(cJsonValue(), &window);
    QCOMPARE(m_dialog->parentWidget(), &window);
    QCOMPARE(m_dialog->windowTitle(), QString("Command Editor"));
    QCOMPARE(m_dialog->windowModality(), Qt::WindowModal);
    QCOMPARE(m_dialog->windowFlags(),
        Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    m_dialog.reset();
}

void cMacroEditorTest::columnStandsBesideThePage()
{
    open();
    auto* const layout = qobject_cast<QHBoxLayout*>(m_dialog->layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), static_cast<QWidget*>(m_dialog->findChild<cMacroTypeIconList*>()));
    QCOMPARE(layout->itemAt(1)->widget(), static_cast<QWidget*>(m_dialog->findChild<cMacroEditPage*>()));
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(layout->stretch(1), 1);
    QCOMPARE(layout->spacing(), 15);
}

void cMacroEditorTest::constructionCallsInOrder_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::addColumn<QStringList>("log");
    const QString types = "getAllMacroTypes()";
    const QString script = "newObject(cMacroEditor, \"CommandEditor\")";
    QTest::newRow("new") << cJsonValue()
                         << QStringList({types, types, "urn:keys: onCancel", "getMacroTypeByID(\"urn:keys\")",
                                script});
    QTest::newRow("first type") << record(
        Keys) << QStringList({types, types, "urn:keys: onCancel", "getMacroTypeByID(\"urn:keys\")", script});
    QTest::newRow("later type") << record(
        Text) << QStringList({types, types, "urn:keys: onCancel", "getMacroTypeByID(\"urn:text\")", script});
    QTest::newRow("unknown type") << record("urn:none") << QStringList({types, types, script});
    QTest::newRow("private type") << record(Hidden) << QStringList({types, types, script});
}

void cMacroEditorTest::constructionCallsInOrder()
{
    QFETCH(cJsonValue, macro);
    QFETCH(QStringList, log);
    open(macro);
    QCOMPARE(takeLog(), log);
}

void cMacroEditorTest::typeOfTheCommandIsChosen_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::addColumn<QString>("type");
    QTest::newRow("new") << cJsonValue() << "Keys";
    QTest::newRow("first type") << record(Keys) << "Keys";
    QTest::newRow("later type") << record(Text) << "Text";
    QTest::newRow("fixed names") << record(MacroNamespaces::Media) << "Media";
}

void cMacroEditorTest::typeOfTheCommandIsChosen()
{
    QFETCH(cJsonValue, macro);
    QFETCH(QString, type);
    open(macro);
    QCOMPARE(chosen(), type);
    QCOMPARE(part<QLabel>("DialogTitle")->text(), type);
    QCOMPARE(stack().currentWidget()->property("MacroType").toString(), type);
}

void cMacroEditorTest::unknownTypeLeavesThePageAsItIs()
{
    open(record("urn:none"));
    QCOMPARE(chosen(), QString());
    QCOMPARE(part<QLabel>("DialogTitle")->text(), QString());
    QCOMPARE(name().text(), QString("Shoot"));
    QVERIFY(okButton().isEnabled());
    m_dialog->show();
    QVERIFY(!stack().isVisible());
}

void cMacroEditorTest::scriptsReachTheDialog()
{
    open();
    const RecordedCall& call = host().calls().constLast();
    QCOMPARE(call.full(),
        QString("ECMAScript.ECMAScriptMgr newObject(QObject * cMacroEditor, const QString "
                "\"CommandEditor\")"));
    QCOMPARE(call.values.constFirst().value<QObject*>(), m_dialog.get());
}

void cMacroEditorTest::clickOnAnIconShowsItsPage()
{
    show();
    QTest::mouseClick(items()[1], Qt::LeftButton);
    QCOMPARE(takeLog(), QStringList({"urn:keys: onCancel", "getMacroTypeByID(\"urn:text\")"}));
    QCOMPARE(chosen(), QString("Text"));
    QCOMPARE(part<QLabel>("DialogTitle")->text(), QString("Text"));
    m_dialog->changePage(0);
    QCOMPARE(part<QLabel>("DialogTitle")->text(), QString("Keys"));
}

void cMacroEditorTest::choosingAPlaceAgainKeepsThePage()
{
    show();
    m_dialog->setCurrentIndex(0);
    QCOMPARE(takeLog(), QStringList());
    m_dialog->setCurrentIndex(2);
    QCOMPARE(chosen(), QString("Media"));
    QCOMPARE(stack().currentIndex(), 2);
}

void cMacroEditorTest::resultsOfThePageEndIt_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("OK") << "OK" << 1;
    QTest::newRow("Cancel") << "Cancel" << 0;
}

void cMacroEditorTest::resultsOfThePageEndIt()
{
    QFETCH(QString, button);
    QFETCH(int, result);
    open(record(Keys));
    QSignalSpy closed(m_dialog.get(), SIGNAL(macroEditorClosed(QString)));
    QTimer::singleShot(0, &this->button(qPrintable(button)), SLOT(click()));
    QCOMPARE(m_dialog->exec(), result);
    QCOMPARE(closed.size(), result);
    if (result)
        QCOMPARE(closed.constFirst().constFirst().toString(), QString("{1}"));
}

void cMacroEditorTest::addKeepsItOpen()
{
    show();
    const QSignalSpy closed(m_dialog.get(), SIGNAL(macroEditorClosed(QString)));
    name().setText("Shoot");
    button("Add").click();
    QCOMPARE(host().calls().constLast().operation, QString("addMacro"));
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(closed.size(), 0);
    // A built-in that exists is told of, and the dialog stays open all the same.
    host().answer("getMacroByTypeAndName", record(MacroNamespaces::Media));
    m_dialog->setCurrentIndex(2);
    media().form->fixedName = "Louder";
    media().form->propose("Louder");
    button("Add").click();
    QCOMPARE(closed.size(), 1);
    QVERIFY(m_dialog->isVisible());
}

void cMacroEditorTest::closingTheWindowDoesNotAskTheForm_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("title bar") << false;
    QTest::newRow("Escape") << true;
}

void cMacroEditorTest::closingTheWindowDoesNotAskTheForm()
{
    QFETCH(bool, byKey);
    show(record(Keys));
    keys().form->canBeLeft = false;
    const QSignalSpy finished(m_dialog.get(), SIGNAL(finished(int)));
    const QSignalSpy closed(m_dialog.get(), SIGNAL(macroEditorClosed(QString)));
    if (byKey)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    else
        m_dialog->close();
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(finished.size(), 1);
    QCOMPARE(m_dialog->result(), 0);
    QCOMPARE(closed.size(), 0);
    QCOMPARE(takeLog(), QStringList());
}

void cMacroEditorTest::firstFieldHasTheFocus_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::addColumn<bool>("isName");
    QTest::newRow("new") << cJsonValue() << true;
    QTest::newRow("edit") << record(Text) << true;
    QTest::newRow("fixed names") << record(MacroNamespaces::Media) << false;
    QTest::newRow("unknown type") << record("urn:none") << true;
}

void cMacroEditorTest::firstFieldHasTheFocus()
{
    QFETCH(cJsonValue, macro);
    QFETCH(bool, isName);
    show(macro);
    QCOMPARE(QApplication::focusWidget(), isName ? static_cast<QWidget*>(&name()) : media().form);
}

void cMacroEditorTest::returnSavesFromTheNameField()
{
    show();
    const QSignalSpy closed(m_dialog.get(), SIGNAL(macroEditorClosed(QString)));
    QTest::keyClicks(QApplication::focusWidget(), "Shoot");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(closed.size(), 1);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(sentRecord("addMacro")["name"].toString(), QString("Shoot"));
}

void cMacroEditorTest::returnDoesNothingWhileNothingCanBeSaved()
{
    show();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(takeLog(), QStringList());
}

void cMacroEditorTest::helpKeyOpensTheHelpOfTheForm_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::addColumn<QString>("line");
    QTest::newRow("new") << cJsonValue() << "urn:keys: onHelp";
    QTest::newRow("edit") << record(Text) << "urn:text: onHelp";
    QTest::newRow("unknown type") << record("urn:none")
                                  << "LaunchHelp(\"com.veltrano.profile\", \"customizing_gkeys.htm\")";
}

void cMacroEditorTest::helpKeyOpensTheHelpOfTheForm()
{
    QFETCH(cJsonValue, macro);
    QFETCH(QString, line);
    show(macro);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    QCOMPARE(takeLog(), QStringList({line}));
    // From any field.
    for (QWidget* field : {static_cast<QWidget*>(m_dialog->findChild<QComboBox*>()),
             static_cast<QWidget*>(m_dialog->findChild<cMacroTypeIconList*>()),
             static_cast<QWidget*>(&button("Cancel"))}) {
        QTest::keyClick(field, Qt::Key_F1);
        QCOMPARE(takeLog(), QStringList({line}));
    }
    QVERIFY(m_dialog->isVisible());
}

void cMacroEditorTest::typesThatGoWhileItIsOpenBreakNothing()
{
    QSharedPointer<FakeMacroType> guest(new FakeMacroType(host(), "urn:guest", "Guest"));
    const IMacroTypePtrList types = host().types();
    host().setTypes(types + IMacroTypePtrList {guest});
    show();
    host().setTypes(types);
    guest.reset();
    // The form stays the dialog's.
    QTest::mouseClick(items()[3], Qt::LeftButton);
    QTest::keyClicks(&name(), "Shoot");
    okButton().click();
    QCOMPARE(sentRecord("addMacro")["namespace"].toString(), QString("urn:guest"));
    // A host that unloads a type takes its forms along.
    show();
    QTest::keyClicks(&name(), "Shoot");
    delete keys().form;
    takeLog();
    okButton().click();
    button("Add").click();
    QCOMPARE(takeLog(), QStringList());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    QTest::mouseClick(items()[2], Qt::LeftButton);
}

void cMacroEditorTest::eventsWhileItIsOpenBreakNothing()
{
    show(record(Keys));
    host().publishMacroDeleted(Profile, record(Keys));
    host().publishProfileDeleted(Profile);
    host().publishCurrentProfileSwitched("{OTHER}");
    host().answer("canMacroBeChangedTo", false);
    const QSignalSpy closed(m_dialog.get(), SIGNAL(macroEditorClosed(QString)));
    name().setText("Fire");
    okButton().click();
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(closed.size(), 0);
}

VELTRANO_TEST_MAIN(cMacroEditorTest)
#include "cMacroEditorTest.moc"
