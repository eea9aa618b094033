#include "CommandEditorWindowTestCase.h"
#include "SampleCommands.h"

#include <cMacroTypeIconItem.h>
#include <cMacroTypeIconList.h>
#include <cMacroTypeMgr.h>
#include <cProfileMgr.h>
#include <FixedIds.h>
#include <IMacroEditor.h>
#include <JsonText.h>
#include <MacroTypeIds.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

/// Commands that are made and changed in the editor, as the store of profiles has them then.
class CommandEditorSavingTest : public CommandEditorWindowTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void commandOfEachTypeIsMade_data();
    void commandOfEachTypeIsMade();
    void commandOfEachTypeIsMadeByKeyboard_data();
    void commandOfEachTypeIsMadeByKeyboard();
    void commandOfEachTypeIsOpenedAndStaysAsItIs_data();
    void commandOfEachTypeIsOpenedAndStaysAsItIs();
    void severalCommandsAreAddedInARow();
    void functionIsMadeOnlyOnce();
    void editedFunctionGoesIntoTheOneThatExists();
    void commandIsDeletedWhileItIsEdited();
    void profileIsDeletedWhileItsCommandIsEdited();
};

void CommandEditorSavingTest::commandOfEachTypeIsMade_data()
{
    addTypes();
}

void CommandEditorSavingTest::commandOfEachTypeIsMade()
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

void CommandEditorSavingTest::commandOfEachTypeIsMadeByKeyboard_data()
{
    addTypes();
}

void CommandEditorSavingTest::commandOfEachTypeIsMadeByKeyboard()
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

void CommandEditorSavingTest::commandOfEachTypeIsOpenedAndStaysAsItIs_data()
{
    addTypes();
}

void CommandEditorSavingTest::commandOfEachTypeIsOpenedAndStaysAsItIs()
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

void CommandEditorSavingTest::severalCommandsAreAddedInARow()
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

void CommandEditorSavingTest::functionIsMadeOnlyOnce()
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

void CommandEditorSavingTest::editedFunctionGoesIntoTheOneThatExists()
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

void CommandEditorSavingTest::commandIsDeletedWhileItIsEdited()
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

void CommandEditorSavingTest::profileIsDeletedWhileItsCommandIsEdited()
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

VELTRANO_TEST_MAIN(CommandEditorSavingTest)
#include "CommandEditorSavingTest.moc"
