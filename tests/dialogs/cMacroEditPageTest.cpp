#include "CommandEditorTestCase.h"

#include <FixedIds.h>
#include <LayoutText.h>
#include <MetaMembers.h>
#include <MethodText.h>

#include <QBoxLayout>
#include <QIntValidator>
#include <QMap>

using namespace TestIds;

/// What the page is built of, and what it shows of a record.
class cMacroEditPageTest : public CommandEditorTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsMembers();
    void parametersBearTheirNames();
    void newPageStartsEmpty();
    void editPageShowsTheRecord();
    void onlyTheFormOfTheRecordsTypeGetsTheRecord_data();
    void onlyTheFormOfTheRecordsTypeGetsTheRecord();
    void partsStandFromTopToBottom();
    void buttonsStandInARow_data();
    void buttonsStandInARow();
    void fixedNameIsNotShown_data();
    void fixedNameIsNotShown();
    void repeatOfTheRecordIsShown_data();
    void repeatOfTheRecordIsShown();
    void delayCanBeSetForRepeats();
    void delayTakesNumbersOnly();

private:
    /// Texts of the buttons of the row, from left to right.
    QString row()
    {
        QMap<int, QString> buttons;
        for (const QPushButton* button : page().findChildren<QPushButton*>()) {
            if (button->isVisible())
                buttons[button->x()] = button->text();
        }
        return QStringList(buttons.values()).join(' ');
    }
};

void cMacroEditPageTest::hasItsMembers()
{
    const QMetaObject& type = cMacroEditPage::staticMetaObject;
    QCOMPARE(type.superClass(), &QWidget::staticMetaObject);
    QCOMPARE(MetaMembers::signalsOf(type),
        QStringList({"accepted(int)", "rejected(int)", "macroEditorClosed(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(type),
        QStringList({"macroEditPageNameChanged(QString)", "macroNameChanged(QString)", "ok()", "cancel()",
            "add()", "onHelp()", "onRepeatOptionChanged(int)"}));
}

void cMacroEditPageTest::parametersBearTheirNames()
{
    const QStringList all = methodTexts(cMacroEditPage::staticMetaObject);
    for (const char* text : {"accepted(int result)", "rejected(int result)",
             "macroEditorClosed(QString macroID)", "macroEditPageNameChanged(QString name)",
             "macroNameChanged(QString name)", "onRepeatOptionChanged(int optionIdx)"})
        QVERIFY2(all.contains(text), text);
}

void cMacroEditPageTest::newPageStartsEmpty()
{
    openPage();
    QCOMPARE(takeLog(), QStringList({"getAllMacroTypes()"}));
    QCOMPARE(page().property("uiType").toString(), QString("meBackground"));
    QCOMPARE(title(), QString());
    QCOMPARE(part<QLabel>("DialogTitle")->textFormat(), Qt::PlainText);
    // Larger than other texts.
    QVERIFY(part<QLabel>("DialogTitle")->fontMetrics().height()
        > part<QLabel>("meNameLabel")->fontMetrics().height() * 5 / 4);
    QVERIFY(!part<QLabel>("QuietText")->isVisible());
    QCOMPARE(repeat().accessibleName(), QString("Repeat Options"));
    QCOMPARE(part<QLabel>("meNameLabel")->text(), QString("Name:"));
    QCOMPARE(part<QLabel>("meNameLabel")->buddy(), &name());
    QCOMPARE(name().text(), QString());
    QCOMPARE(name().contextMenuPolicy(), Qt::NoContextMenu);
    QVERIFY(name().isVisible());
    QCOMPARE(stack().count(), 3);
    QCOMPARE(stack().currentWidget(), static_cast<QWidget*>(keys().form));
    QCOMPARE(group().title(), QString("Repeat Options"));
    QCOMPARE(group().property("uiType").toString(), QString("GroupBoxTitleWhite"));
    QStringList options;
    for (int i = 0; i < repeat().count(); ++i)
        options << repeat().itemText(i) + repeat().itemData(i).toString();
    QCOMPARE(options, QStringList({"None0", "While Pressed1", "Toggle2"}));
    QCOMPARE(repeat().currentIndex(), 0);
    QCOMPARE(delay().text(), QString("25"));
    QVERIFY(!delay().isEnabled());
    QCOMPARE(delay().maximumWidth(), 60);
    QCOMPARE(delay().contextMenuPolicy(), Qt::NoContextMenu);
    QVERIFY(okButton().isDefault());
    QCOMPARE(savers(), QString());
    QVERIFY(grayButton("Cancel")->isEnabled());
    QVERIFY(grayButton("Help")->isEnabled());
    QCOMPARE(keys().form->property("MacroType").toString(), QString("Keys"));
    QCOMPARE(media().form->property("MacroType").toString(), QString("Media"));
}

void cMacroEditPageTest::editPageShowsTheRecord()
{
    cJsonValue macro = record(Text);
    macro["name"] = "Inner";
    openPage(macro);
    QCOMPARE(takeLog(), QStringList({"getAllMacroTypes()"}));
    QCOMPARE(name().text(), QString("Shoot"));
    QVERIFY(okButton().isEnabled());
}

void cMacroEditPageTest::onlyTheFormOfTheRecordsTypeGetsTheRecord_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::newRow("new") << cJsonValue();
    QTest::newRow("first type") << record(Keys);
    QTest::newRow("later type") << record(Text);
    QTest::newRow("unknown type") << record("urn:none");
    QTest::newRow("no type") << json("{\"display_name\": \"x\"}");
}

void cMacroEditPageTest::onlyTheFormOfTheRecordsTypeGetsTheRecord()
{
    QFETCH(cJsonValue, macro);
    openPage(macro);
    for (const FakeMacroType* type : {&keys(), &text(), &media()}) {
        const bool isMatch = !macro.isNull()
            && const_cast<FakeMacroType*>(type)->info()["uid"] == qAsConst(macro)["namespace"];
        QVERIFY(type->form->record == (isMatch ? macro : cJsonValue()));
    }
    QVERIFY(!hidden().form);
}

void cMacroEditPageTest::partsStandFromTopToBottom()
{
    openPage();
    auto* const layout = qobject_cast<QVBoxLayout*>(page().layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 10, 0, 0));
    QCOMPARE(layout->spacing(), 5);
    int last = -1;
    for (const QWidget* widget : std::initializer_list<QWidget*> {part<QLabel>("DialogTitle"),
             part<QLabel>("meNameLabel"), &name(), &stack(), &group(), &okButton()}) {
        QVERIFY(widget->y() > last);
        last = widget->geometry().bottom();
    }
    QCOMPARE(layoutText(*layout),
        QString("V[QLabel, spacing 5, Name:, QLineEdit, QStackedWidget, There , stretch*1000, Repeat, 0x10, "
                "H[0x0*1, OK, Cancel, Add, Help], 0x0*1]"));
    QCOMPARE(layoutText(*group().layout()), QString("V[QComboBox, H[Delay , QLineEdit, stretch]]"));
    QCOMPARE(group().layout()->itemAt(1)->layout()->spacing(), 5);
    const QList<QLabel*> captions = group().findChildren<QLabel*>();
    QCOMPARE(captions.size(), 1);
    QCOMPARE(captions.first()->text(), QString("Delay (milliseconds):"));
    QCOMPARE(captions.first()->buddy(), &delay());
    QCOMPARE(group().layout()->contentsMargins(), QMargins(15, 15, 0, 0));
    QCOMPARE(group().layout()->spacing(), 5);
}

void cMacroEditPageTest::buttonsStandInARow_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<bool>("withAddButton");
    QTest::addColumn<QString>("row");
    QTest::newRow("new") << true << false << "OK Cancel Help";
    QTest::newRow("new, add") << true << true << "OK Cancel Add Help";
    QTest::newRow("edit") << false << false << "OK Cancel Help";
    QTest::newRow("edit, add") << false << true << "OK Cancel Help";
}

void cMacroEditPageTest::buttonsStandInARow()
{
    QFETCH(bool, isNew);
    QFETCH(bool, withAddButton);
    QFETCH(QString, row);
    openPage(isNew ? cJsonValue() : record(Keys), withAddButton);
    QCOMPARE(this->row(), row);
    // It is there, and only left out of the row.
    QCOMPARE(grayButton("Add") != nullptr, withAddButton);
    QCOMPARE(okButton().isEnabled(), !isNew);
}

void cMacroEditPageTest::fixedNameIsNotShown_data()
{
    QTest::addColumn<cJsonValue>("macro");
    QTest::addColumn<bool>("isFirstFixed");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("new, first type has names") << cJsonValue() << false << true;
    QTest::newRow("new, first type has fixed names") << cJsonValue() << true << false;
    QTest::newRow("edit, its type has names") << record(Text) << true << true;
    QTest::newRow("edit, its type has fixed names") << record(MacroNamespaces::Media) << false << false;
}

void cMacroEditPageTest::fixedNameIsNotShown()
{
    QFETCH(cJsonValue, macro);
    QFETCH(bool, isFirstFixed);
    QFETCH(bool, isShown);
    keys().showsName = !isFirstFixed;
    openPage(macro);
    QCOMPARE(part<QLabel>("meNameLabel")->isVisible(), isShown);
    QCOMPARE(name().isVisible(), isShown);
    QCOMPARE(name().isEnabled(), isShown);
}

void cMacroEditPageTest::repeatOfTheRecordIsShown_data()
{
    QTest::addColumn<QByteArray>("repeat");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("delay");
    const auto row = [](const char* repeat, const char* option, const char* delay) {
        QTest::newRow(repeat) << QByteArray(repeat) << QString(option) << QString(delay);
    };
    row("{\"mode\": \"whilepressed\", \"delay\": 40}", "While Pressed", "40");
    row("{\"mode\": \"toggle\", \"delay\": 0}", "Toggle", "0");
    row("{\"mode\": \"none\", \"delay\": 30}", "None", "30");
    row("{\"mode\": \"forever\", \"delay\": 77}", "None", "77");
    row("{\"mode\": \"Toggle\", \"delay\": 77}", "None", "77");
    row("{\"delay\": 12}", "None", "12");
    row("{\"mode\": 2, \"delay\": \"15\"}", "None", "15");
    row("{\"mode\": \"toggle\", \"delay\": 99999999}", "Toggle", "99999999");
}

void cMacroEditPageTest::repeatOfTheRecordIsShown()
{
    QFETCH(QByteArray, repeat);
    QFETCH(QString, option);
    QFETCH(QString, delay);
    cJsonValue macro = record(Keys);
    macro["repeat"] = json(repeat);
    openPage(macro);
    QCOMPARE(this->repeat().currentText(), option);
    QCOMPARE(this->delay().text(), delay);
    QCOMPARE(this->delay().isEnabled(), option != "None");
}

void cMacroEditPageTest::delayCanBeSetForRepeats()
{
    openPage();
    for (int option : {1, 0, 2, 1, 0}) {
        repeat().setCurrentIndex(option);
        QCOMPARE(delay().isEnabled(), option != 0);
    }
    QCOMPARE(delay().text(), QString("25"));
}

void cMacroEditPageTest::delayTakesNumbersOnly()
{
    openPage();
    const auto* const validator = page().findChild<QIntValidator*>();
    QCOMPARE(validator->bottom(), 0);
    QCOMPARE(validator->top(), 9999999);
    repeat().setCurrentIndex(1);
    delay().clear();
    QTest::keyClicks(&delay(), "-1x.2345678");
    QCOMPARE(delay().text(), QString("1234567"));
}

VELTRANO_TEST_MAIN(cMacroEditPageTest)
#include "cMacroEditPageTest.moc"
