#pragma once

#include <cJsonValue.h>
#include <TestCase.h>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class cMacroTypeIconItem;
class HostApplication;
class IMacroEditor;
class PluginFolder;
class QDialog;
class QLineEdit;
class QPushButton;

/// Base of the tests of the command editor over the real host: its window, its command types, its store of
/// profiles, its help. Each case has a profile of its own, which the view shows.
class CommandEditorWindowTestCase : public TestCase
{
    Q_OBJECT

public:
    CommandEditorWindowTestCase();
    ~CommandEditorWindowTestCase() override;

protected Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

protected:
    /// A row for each type that commands are made of, with the column "typeId".
    static void addTypes();
    /// Opens the editor as its callers do and lets a function use it.
    void run(const cJsonValue& macro, const std::function<void(QDialog&)>& use);
    static void showProfile(const QString& profile);
    /// Of the case's profile; null if there is none.
    cJsonValue commandNamed(const QString& name) const;
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

    std::unique_ptr<HostApplication> m_host;
    QString m_profile;
    /// What the editor has reported in the case.
    QStringList m_closed;

private Q_SLOTS:
    void onMacroEditorClosed(const QString& macroID) { m_closed << macroID; }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<PluginFolder> m_plugin;
};
