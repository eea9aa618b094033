#pragma once

#include <cJsonValue.h>
#include <IMacroEditor.h>
#include <IMacroType.h>

#include <QPointer>
#include <QString>
#include <QWidget>

class cProfileMgr;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

/// The right-hand side of the command editor: the name above, the form of the command's type, the repeat
/// options, the buttons. The forms are the types' own; the page turns what they give into a command record
/// and stores it through the profile service, in the profile that the view shows.
///
/// Saving is offered when there is a name and the form in front holds enough for a command; whether it is
/// right, the form checks itself and says what is wrong.
class cMacroEditPage : public QWidget
{
    Q_OBJECT

public:
    /// Edits a command record; a null one makes a new command.
    cMacroEditPage(const cJsonValue& macro, QWidget* parent, bool withAddButton);

    /// Brings the form of a type to the front, by its place among the types that are not private. A place
    /// outside changes nothing.
    void changePage(int idx);
    /// Where typing begins: the name, or the form of a type whose commands have fixed names.
    void focusFirstField();

Q_SIGNALS:
    /// The command is saved; the result is 1.
    void accepted(int result);
    /// Nothing is saved; the result is 0.
    void rejected(int result);
    /// A command was saved, or was found to be there already, under that uid.
    void macroEditorClosed(const QString& macroID);

public Q_SLOTS:
    void macroEditPageNameChanged(const QString& name);
    /// A form proposes a name, or its canAddMacro() has changed.
    void macroNameChanged(const QString& name);
    void ok();
    void cancel();
    void add();
    void onHelp();
    void onRepeatOptionChanged(int optionIdx);

private:
    Q_DISABLE_COPY(cMacroEditPage)

    void createNameField();
    void createEditors();
    QWidget* createEditor(IMacroType& type, const QString& typeName, bool isMatch);
    void createRepeatOptions();
    void showRepeat();
    void createButtons(bool withAddButton);
    QPushButton* createButton(const QString& text, const char* uiType, const char* slot);

    /// Has the form check itself.
    bool isFormRight();
    IMacroEditor* editorInFront() const;
    void showName(bool isShown);
    void setSavable(bool isSavable);

    /// Puts what the form says into the record.
    void fillRecord();
    void fillName();
    void fillRepeat();
    /// The command of the profile that is the same function; null if there is none or the type is not built
    /// in.
    cJsonValue findBuiltIn(cProfileMgr& profiles, const QString& profile) const;
    /// Stores the record under its uid and returns the uid under which the command is found from now on.
    QString saveEdited(cProfileMgr& profiles, const QString& profile, const cJsonValue& builtIn);
    QString saveNew(cProfileMgr& profiles, const QString& profile, const cJsonValue& builtIn);

    // Owned as child widgets.
    QLabel* m_titleLabel = nullptr;
    QStackedWidget* m_stack = nullptr;
    QVBoxLayout* m_layout = nullptr;
    QLabel* m_nameLabel = nullptr;
    QLineEdit* m_nameEdit = nullptr;
    QPushButton* m_okButton = nullptr;
    /// Null unless it was asked for. A command that is edited has it, but does not show it.
    QPushButton* m_addButton = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QGroupBox* m_repeatGroup = nullptr;
    QComboBox* m_repeatCombo = nullptr;
    QLineEdit* m_delayEdit = nullptr;
    /// The form in front, in the stack. Null for a command whose type has no form here: then its name and
    /// repeat options are all that can be changed.
    QPointer<IMacroEditor> m_currentEditor;
    /// Stands in the place of the stack while no form is in front.
    QLabel* m_noFormLabel = nullptr;
    cJsonValue m_macro;
    bool m_isNew = false;
};
