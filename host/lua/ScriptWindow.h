#pragma once

#include <QString>
#include <QWidget>

class IProfileMgr;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QsciScintilla;
class QSplitter;

/// The window in which the script of a profile is written and run.
///
/// The text is kept with the profile as soon as the user saves it, runs it, goes to another window or closes
/// this one. The window follows changes that come from elsewhere unless it has changes of its own, and closes
/// with its profile. It deletes itself when it is closed.
class ScriptWindow : public QWidget
{
    Q_OBJECT

public:
    enum class Tone { Quiet, Bad };

    /// `profiles` outlives the window.
    ScriptWindow(IProfileMgr& profiles, const QString& profileId, QWidget* parent = nullptr);
    ~ScriptWindow() override;

    QString profileId() const { return m_profileId; }
    QString text() const;
    /// All that stands below the script.
    QString output() const;

    /// Gives the text to the profile.
    void storeText();

    /// Empties the output and takes the mark off.
    void beginRun();
    void setRunning(bool running);
    void appendOutput(const QString& text);
    void appendMessage(const QString& text, Tone tone);
    /// Marks the line, from 1, and goes there; 0 marks none.
    void markLine(int line);

    // Events of "ProfileMgr_Events".
    Q_INVOKABLE void onProfilePropertyChanged(const QString& profileID);
    Q_INVOKABLE void onProfileDeleted(const QString& profileID);

Q_SIGNALS:
    void runAsked(const QString& profileId, const QString& script);
    void stopAsked();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private Q_SLOTS:
    void onSave();
    void onRun();
    void onTextChanged();
    void onCursorMoved(int line, int column);
    void updateState();

private:
    QWidget* createBar();
    QWidget* createStatus();
    void createEditor();
    void createOutput();
    QPushButton* addButton(const QString& text, const QKeySequence& shortcut, const char* slot);
    void loadText();
    bool isOwn(const QString& profileID) const;

    IProfileMgr& m_profiles;
    QString m_profileId;
    bool m_isGone = false;
    bool m_isRunning = false;
    QsciScintilla* m_editor = nullptr;
    QPlainTextEdit* m_output = nullptr;
    QPushButton* m_save = nullptr;
    QPushButton* m_run = nullptr;
    QPushButton* m_stop = nullptr;
    QLabel* m_place = nullptr;
    QLabel* m_state = nullptr;
};
