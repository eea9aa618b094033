#include "ProfileActions.h"

#include "AppConstants.h"
#include "MainWindow.h"
#include "MenuText.h"

#include <cProfileMgrService.h>

#include <QAction>
#include <QFontMetrics>
#include <QMenu>

using namespace AppConstants;

ProfileActions::ProfileActions(MainWindow& window, cProfileMgrService& profiles)
    : m_window(window)
    , m_profiles(profiles)
{
    createHistoryActions();
    connect(&m_profiles.history(), SIGNAL(changed()), this, SLOT(onHistoryChanged()));
    onHistoryChanged();
}

ProfileActions::~ProfileActions() = default;

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
