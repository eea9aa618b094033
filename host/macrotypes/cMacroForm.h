#pragma once

#include <IMacroEditor.h>

#include <QLatin1String>
#include <QPointer>
#include <QString>
#include <QStringList>

class QLabel;
class QLineEdit;
class QVBoxLayout;

/// What the pages of the host's command types have in common.
///
/// A page is filled with a command or empty for a new one. Where the user does not change the form, data() is
/// what the page was filled with, whatever it holds; where he does, members that the form does not know stay.
///
/// The name: a page proposes one that follows the form. It goes into the editor's name field as long as that
/// field is empty or holds a proposal; a name that the user has typed stays. The interface does not tell a
/// page what has been typed, so it looks for the field, by its `uiType`, around itself.
class cMacroForm : public IMacroEditor
{
    Q_OBJECT

public:
    cJsonValue data() override;
    QString getMacroTypeID() override { return m_typeId; }
    bool showMacroName() override { return true; }
    void setMacroName(QString macroName) override { m_name = macroName; }
    bool onOK() override;
    bool onCancel() override;
    void onHelp() override;
    void onClearForm() override;
    bool canAddMacro() override;

    /// The message under the form, empty if there is none.
    QString message() const;

protected:
    class Objection
    {
    public:
        /// Empty if the form is good.
        QString text;
        /// Where the user can put it right.
        QWidget* field = nullptr;
    };

    /// `fields` are the members of `data` that the form shows.
    cMacroForm(const QString& typeId, QLatin1String helpTopic, const QStringList& fields);

    /// True for a command as it came, which needs no check.
    bool isUntouched() const { return !m_isChanged && !m_original.isNull(); }
    const cJsonValue& original() const { return m_original; }
    /// Fills the form with a command record; null leaves it empty. Called at the end of the constructor.
    void fill(const cJsonValue& macro);
    /// Shows a message under the form; one with a field moves the focus there and marks it.
    void say(const QString& text, QWidget* field = nullptr);
    /// Where a subclass puts its form; the message stands below.
    QVBoxLayout* formLayout() const { return m_formLayout; }
    /// The label of a field: reached by its mnemonic, and read out with the field.
    static QLabel* makeLabel(const QString& text, QWidget* field);
    /// A field that shows `vacantText` while it is empty.
    QLineEdit* makeLineEdit(const QString& accessibleName, const QString& vacantText = QString());
    /// A quiet line of explanation.
    static QLabel* makeHint(const QString& text);
    /// A proposal for a command's name, from a text of any length.
    static QString shortened(const QString& text);

    /// Puts data into the form; false if it is not of this type.
    virtual bool setForm(const cJsonValue& data) = 0;
    /// The data that the form describes.
    virtual cJsonValue formData() const = 0;
    virtual void clearForm() = 0;
    /// True if the form holds enough for a command.
    virtual bool isFilled() const = 0;
    /// Looks for what is wrong in the form.
    virtual Objection check() = 0;
    /// Ends what runs on its own in the form, such as a recording.
    virtual void stop() { }

protected Q_SLOTS:
    /// After each change by the user.
    void formChanged();

private Q_SLOTS:
    void onLineEditChanged(const QString& text);

private:
    void mark(QWidget* field);
    QLineEdit* nameField() const;
    QString nextName();

    QString m_typeId;
    QLatin1String m_helpTopic;
    QStringList m_fields;
    cJsonValue m_original;
    /// True if the form shows the command that it was filled with.
    bool m_isShown = false;
    bool m_isChanged = false;
    bool m_isFilling = false;
    QString m_name;
    QString m_proposal;
    QVBoxLayout* m_formLayout = nullptr;
    QLabel* m_message = nullptr;
    QPointer<QWidget> m_marked;
};
