// What acts on the command list and the profile bar as wholes.
#include "cMacroBindingView.h"

#include "ViewConstants.h"

#include <cListWidgetItem.h>
#include <cMacroList.h>
#include <cProfileBar.h>
#include <cProfileList.h>
#include <cProfileMgr.h>
#include <cProfileTrashcanGraphicsItem.h>
#include <MainWindowMenu.h>
#include <PluginContext.h>

#include <QGraphicsScene>
#include <QMenu>
#include <QPixmap>
#include <QWidget>

using namespace ViewConstants;

// Profiles, for scripts

void cMacroBindingView::newProfile()
{
    if (m_profileBar)
        m_profileBar->newProfile();
}

void cMacroBindingView::scanForGames()
{
    if (m_profileBar)
        m_profileBar->scanForGames();
}

void cMacroBindingView::selectProfile(const QString& profileID)
{
    if (m_profileBar && m_profileBar->profileList())
        m_profileBar->profileList()->selectProfile(profileID);
}

void cMacroBindingView::testProfile()
{
    if (m_profileBar)
        cProfileMgr().testProfile(m_profileBar->currentProfileId());
}

void cMacroBindingView::deleteSelectedProfiles()
{
    if (m_profileBar && m_profileBar->profileList())
        m_profileBar->profileList()->deleteSelectedProfiles();
}

// The order of the command list

void cMacroBindingView::onSortIconClicked(const QPoint& point)
{
    QWidget* const window = MainWindowMenu::window();
    if (!window)
        return;
    const QPoint place = MainWindowMenu::globalPosOf(*window, m_scene, point);
    auto* const menu = new QMenu(window);
    QMenu* const byName = menu->addMenu(tr("Sort by Name..."));
    byName->addAction(tr("Ascending"), this, SLOT(sortMacroNameAscending()));
    byName->addAction(tr("Descending"), this, SLOT(sortMacroNameDescending()));
    menu->addAction(tr("Sort By Type..."), this, SLOT(sortMacroType()));
    MainWindowMenu::run(menu, this, place);
}

void cMacroBindingView::sortMacroNameAscending()
{
    sortMacros(cListWidgetItem::SortByName, Qt::AscendingOrder);
}

void cMacroBindingView::sortMacroNameDescending()
{
    sortMacros(cListWidgetItem::SortByName, Qt::DescendingOrder);
}

void cMacroBindingView::sortMacroType()
{
    sortMacros(cListWidgetItem::SortByType, Qt::AscendingOrder);
}

void cMacroBindingView::sortMacros(int sortMode, Qt::SortOrder order)
{
    if (!m_macroList)
        return;
    m_macroList->setSortMode(sortMode);
    m_macroList->sortItems(order);
    m_macroList->update();
}

// The trash can

void cMacroBindingView::createTrashcan()
{
    m_trashcan = new cProfileTrashcanGraphicsItem(QPixmap(pluginResource("/Resources/images/icon_trash.png")),
        QPixmap(pluginResource("/Resources/images/icon_trash_hover.png")), m_rootItem);
    m_trashcan->setPos(TrashcanPos);
    connect(m_trashcan, SIGNAL(profilesDropped(const QStringList&)), this,
        SLOT(deleteProfiles(const QStringList&)));
    connect(
        m_trashcan, SIGNAL(macrosDropped(const QStringList&)), this, SLOT(deleteMacros(const QStringList&)));
    connect(m_trashcan, SIGNAL(assignmentsDropped(const QStringList&)), this,
        SLOT(deleteAssignments(const QStringList&)));
}

void cMacroBindingView::deleteAssignments(const QStringList& contextIds)
{
    for (const QString& contextID : contextIds)
        onUnassignAssignment(contextID);
}

// What was dragged onto the can is what is selected in its list, and goes with the whole selection.

void cMacroBindingView::deleteProfiles(const QStringList&)
{
    deleteSelectedProfiles();
}

void cMacroBindingView::deleteMacros(const QStringList&)
{
    if (m_macroList)
        m_macroList->deleteSelectedMacros();
}
