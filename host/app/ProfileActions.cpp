#include "ProfileActions.h"

#include "AppConstants.h"
#include "BackupsDialog.h"
#include "ImportDialog.h"
#include "MainWindow.h"
#include "MenuText.h"

#include <cProfileMgrService.h>
#include <ISettings.h>
#include <SettingsKeys.h>

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QMenu>
#include <QPointer>
#include <QStandardPaths>

using namespace AppConstants;

ProfileActions::ProfileActions(MainWindow& window, cProfileMgrService& profiles, ISettings& settings)
    : m_window(window)
    , m_profiles(profiles)
    , m_settings(settings)
{
    createHistoryActions();
    createDataActions();
    // Also for imports that a plug-in asks for.
    m_profiles.setImportReview([this](std::vector<cProfileMgrService::ImportFile>& files) {
        return ImportDialog::review(m_profiles, files, &m_window);
    });
    connect(&m_profiles.history(), SIGNAL(changed()), this, SLOT(onHistoryChanged()));
    onHistoryChanged();
}

ProfileActions::~ProfileActions()
{
    m_profiles.setImportReview(nullptr);
}

void ProfileActions::createHistoryActions()
{
    const auto add = [this](const QList<QKeySequence>& shortcuts, const char* slot) {
        QAction* const action = m_window.editMenu().addAction(QString());
        action->setShortcuts(shortcuts);
        // Also an action of the window, so that its shortcut works while the menu is closed. Fields with an
        // undo of their own take the keys first.
        m_window.addAction(action);
        connect(action, SIGNAL(triggered()), &m_profiles, slot);
        return action;
    };
    m_undo = add({QKeySequence(Qt::CTRL + Qt::Key_Z)}, SLOT(undo()));
    m_redo = add(
        {QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z), QKeySequence(Qt::CTRL + Qt::Key_Y)}, SLOT(redo()));
}

void ProfileActions::createDataActions()
{
    const auto add = [this](const QString& text, const QKeySequence& shortcut, const char* slot) {
        auto* const action = new QAction(text, this);
        action->setShortcut(shortcut);
        connect(action, SIGNAL(triggered()), this, slot);
        m_window.addDataEntry(action);
    };
    add(tr("&Import Profiles..."), QKeySequence(Qt::CTRL + Qt::Key_I), SLOT(onImport()));
    add(tr("&Backups..."), QKeySequence(Qt::CTRL + Qt::Key_B), SLOT(onBackups()));
}

void ProfileActions::onImport()
{
    const QString start = m_settings.getPropertyString(
        SettingsKeys::LastImportDir, QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
    const QStringList paths = QFileDialog::getOpenFileNames(&m_window, tr("Import Profiles"), start,
        tr("Game Profiles (*.lgp *.xml)") + QLatin1String(";;") + tr("All Files (*)"));
    if (paths.isEmpty())
        return;
    m_settings.setPropertyString(SettingsKeys::LastImportDir, QFileInfo(paths.first()).absolutePath());
    m_profiles.importProfiles(paths);
}

void ProfileActions::onBackups()
{
    const QPointer<BackupsDialog> dialog = new BackupsDialog(m_profiles, &m_window);
    dialog->exec();
    delete dialog;
}

void ProfileActions::onHistoryChanged()
{
    const ProfileHistory& history = m_profiles.history();
    const QFontMetrics metrics = m_window.editMenu().fontMetrics();
    const auto show = [&](QAction* action, const QString& verb, const QString& step, bool isPossible) {
        // Names of profiles and commands may have any length.
        const QString name = metrics.elidedText(step, Qt::ElideMiddle, MenuEntryMaxWidth, Qt::TextSingleLine);
        action->setText(QString(verb + QLatin1Char(' ') + MenuText::plain(name)).trimmed());
        action->setEnabled(isPossible);
    };
    show(m_undo, tr("&Undo"), history.undoName(), history.canUndo());
    show(m_redo, tr("&Redo"), history.redoName(), history.canRedo());
}
