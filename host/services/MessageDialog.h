#pragma once

#include <QDialog>

class QHBoxLayout;
class QVBoxLayout;

/// A modal message in the application's look. Texts are shown as they are, without markup. exec() returns the
/// result of the choice that the user made; Escape and the window's close button stand for the escape
/// result. A choice is made with its underlined letter as well, and Ctrl+C copies the texts.
class MessageDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Kind { Information, Warning, Question };

    MessageDialog(Kind kind, const QString& title, const QString& text, QWidget* parent);

    /// A second text, set off from the first; the item that the message is about.
    void addItemText(const QString& text);
    /// A button. The default choice answers Enter and has the focus at first.
    void addChoice(int result, const QString& text, bool isDefault = false);
    void setEscapeResult(int result) { m_escapeResult = result; }

    /// Runs a dialog that may be deleted with its parent while it runs, and deletes it; `dialog` was made
    /// with new. Returns `otherwise` if it was deleted.
    static int run(MessageDialog* dialog, int otherwise);

public Q_SLOTS:
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void onChoice();

private:
    /// The text with the first letter underlined that no other choice has.
    QString withShortcut(const QString& text);
    QWidget* createText(const QString& text, const char* uiType);

    QVBoxLayout* m_texts = nullptr;
    QHBoxLayout* m_choices = nullptr;
    /// Title and texts, as they are copied.
    QString m_wholeText;
    /// The letters of the choices, in capitals.
    QString m_shortcuts;
    int m_escapeResult = QDialog::Rejected;
};
