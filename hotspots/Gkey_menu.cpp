#include "Gkey.h"

#include "StickCommands.h"

#include <cJsonValue.h>
#include <cMacroBindingView.h>
#include <cMacroEditor.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <cProfiler.h>
#include <MainWindowMenu.h>

#include <QAction>
#include <QGraphicsSceneContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QWidget>

void Gkey::contextMenuEvent(QGraphicsSceneContextMenuEvent* event)
{
    showContextMenu(event->screenPos());
}

void Gkey::onClickedContextButton(const QPoint& point)
{
    if (const QWidget* window = MainWindowMenu::window())
        showContextMenu(MainWindowMenu::globalPosOf(*window, scene(), point));
}

void Gkey::showContextMenu(const QPoint& globalPos)
{
    QWidget* const window = MainWindowMenu::window();
    if (!window)
        return;
    // The host may take the key or its window down while the menu is open.
    const QPointer<Gkey> self(this);
    auto* const menu = new QMenu(window);
    fillContextMenu(*menu);
    MainWindowMenu::run(menu, this, MainWindowMenu::placeInside(*window, *menu, globalPos));
    if (self)
        update();
}

void Gkey::fillContextMenu(QMenu& menu)
{
    if (m_macroID == StickCommands::Mouse.macroID) {
        menu.addAction(tr("Unassign Mouse"), this, SLOT(onUnassignMouse()));
        return;
    }
    if (m_macroID == StickCommands::Joystick.macroID) {
        menu.addAction(tr("Unassign Joystick"), this, SLOT(onUnassignJoystick()));
        return;
    }
    // Queued, so that the editor opens when the menu is gone.
    connect(menu.addAction(tr("Edit...")), SIGNAL(triggered()), this,
        m_macroID.isEmpty() ? SLOT(onAddNewMacro()) : SLOT(onEditMacro()), Qt::QueuedConnection);

    QAction* const useDefault = menu.addAction(tr("Use Default"), this, SLOT(onUseDefault()));
    useDefault->setEnabled(cProfileMgr().assignmentHasBackup(
        m_view->getProfileId(), m_view->getDeviceCategory(), m_view->getCurrentMState(), m_contextID));

    QAction* const useGeneric = menu.addAction(tr("Use Generic"), this, SLOT(onUseGeneric()));
    useGeneric->setEnabled(!m_macroHidden);

    if (!m_macroID.isEmpty()) {
        QAction* const unassign = menu.addAction(tr("Unassign"), this, SLOT(onUnassign()));
        unassign->setEnabled(!m_cannotBeUnassigned);
    }

    const GKey::GKey_t key = cProfiler().stringToGKey(m_contextID);
    if (StickCommands::Joystick.occupies(key)) {
        menu.addSeparator();
        menu.addAction(tr("Assign Joystick"), this, SLOT(onAssignJoystick()));
    }
    if (StickCommands::Mouse.occupies(key))
        menu.addAction(tr("Assign Mouse"), this, SLOT(onAssignMouse()));
}

void Gkey::onAssignMouse()
{
    assignStick(StickCommands::Mouse, &cProfileMgr::addMouseMacro);
}

void Gkey::onAssignJoystick()
{
    assignStick(StickCommands::Joystick, &cProfileMgr::addJoystickMacro);
}

void Gkey::assignStick(const StickCommand& command, bool (cProfileMgr::*addMacro)(const QString&))
{
    // All of it is taken beforehand: the host answers each call with an event, in which the key may go.
    const QString profileID = m_view->getProfileId();
    const QString category = m_view->getDeviceCategory();
    const MKey::MKey_t mode = m_view->getCurrentMState();
    cProfileMgr profiles;
    (profiles.*addMacro)(profileID);
    cProfiler profiler;
    for (int key = command.firstKey; key <= GKey::StickLast; ++key) {
        profiles.setAssignment(
            profileID, category, command.macroID, mode, profiler.gKeyToString(GKey::GKey_t(key)));
    }
}

void Gkey::onUnassignMouse()
{
    emitForStick(StickCommands::Mouse, &Gkey::unassign);
}

void Gkey::onUnassignJoystick()
{
    emitForStick(StickCommands::Joystick, &Gkey::unassign);
}

void Gkey::emitForStick(const StickCommand& command, void (Gkey::*signal)(const QString&))
{
    const QPointer<Gkey> self(this);
    for (const QString& contextID : command.contextIDs()) {
        if (self)
            Q_EMIT(this->*signal)(contextID);
    }
}

void Gkey::onAddNewMacro()
{
    // Not touched by what happens to the key meanwhile: what the user writes is saved in the profile all the
    // same.
    cMacroEditor editor(cJsonValue(), cMainUI().window(), false);
    connect(&editor, SIGNAL(macroEditorClosed(QString)), SLOT(onMacroEditorClosed(QString)));
    editor.exec();
}
