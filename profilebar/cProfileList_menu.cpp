// The tiles' menu, and the deletion of profiles.
#include "cProfileList.h"

#include "cProfileItem.h"
#include "ProfileBarConstants.h"

#include <cMacroBindingView.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <cProfilesToGo.h>
#include <FixedIds.h>
#include <MainWindowMenu.h>
#include <PlainText.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

using namespace ProfileBarConstants;

namespace {

bool isFixedDefault(const QString& id)
{
    return id.compare(FixedIds::DefaultProfile, Qt::CaseInsensitive) == 0;
}

} // namespace

void cProfileList::profileContextMenuIconClicked(const QPoint& point)
{
    const QList<QListWidgetItem*> selected = selectedItems();
    if (selected.isEmpty())
        return;
    QWidget* const window = MainWindowMenu::window();
    if (!window)
        return;
    auto* const menu = new QMenu(window);
    QPoint place = point;
    if (selected.size() > 1) {
        menu->addAction(tr("Delete"), this, SLOT(deleteSelectedProfiles()));
    } else if (const cProfileItem* tile = tileOf(selected.first())) {
        fillMenuOfTile(*menu, *tile);
        place = MainWindowMenu::placeInside(*window, *menu, point);
    }
    MainWindowMenu::run(menu, this, place);
}

void cProfileList::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard) {
        QListWidget::contextMenuEvent(event);
        return;
    }
    if (!selectedItems().isEmpty()) {
        ensureCurrentVisible();
        profileContextMenuIconClicked(
            viewport()->mapToGlobal(visualItemRect(selectedItems().first()).center()));
    }
}

void cProfileList::fillMenuOfTile(QMenu& menu, const cProfileItem& tile)
{
    const auto offers = [this](MenuOption option) {
        return m_menuOptions.contains(option);
    };
    menu.addAction(
        QIcon(tile.icon()), PlainText::menuText(tile.name(), menu.font()), &tile, SLOT(onProfileLaunch()));
    menu.addSeparator();

    if (offers(SaveOption))
        menu.addAction(tr("Save"), &tile, SLOT(onSaveMenu()));
    if (offers(DeleteOption)) {
        QAction* const remove = menu.addAction(tr("Delete"), this, SLOT(deleteSelectedProfiles()));
        remove->setEnabled(!cProfileMgr().isDefaultConfiguration(tile.id()));
    }
    if (offers(ExportOption))
        connect(menu.addAction(tr("Export...")), SIGNAL(triggered()), SIGNAL(exportProfile()));
    if (offers(PrintOption))
        menu.addAction(tr("Print..."), &tile, SLOT(onMenuPrintProfile()));
    if (offers(SaveOption) || offers(DeleteOption) || offers(ExportOption) || offers(PrintOption))
        menu.addSeparator();

    if (offers(AllKeysOption)) {
        addKeysMenu(menu, tile);
        menu.addSeparator();
    }

    if (offers(TestOption))
        menu.addAction(tr("Test Profile"), &tile, SLOT(onTestProfile()));
    if (offers(ScriptingOption))
        menu.addAction(tr("Scripting"), &tile, SLOT(onProfileScripting()));
    menu.addSeparator();

    if (offers(ChooseIconOption))
        menu.addAction(tr("Choose Icon..."), &tile, SLOT(onChooseIcon()));
    if (offers(DefaultIconOption) && cProfileMgr().hasCustomIcon(tile.id()))
        menu.addAction(tr("Default Icon..."), &tile, SLOT(onResetIcon()));
    menu.addSeparator();

    addRoleEntries(menu, tile);
    menu.addSeparator();

    if (offers(PropertiesOption)) {
        QAction* const properties = menu.addAction(tr("Properties"), &tile, SLOT(onPropertiesMenu()));
        properties->setEnabled(!cProfileMgr().isDefaultConfiguration(tile.id()));
        menu.setDefaultAction(properties);
    }
}

void cProfileList::addKeysMenu(QMenu& menu, const cProfileItem& tile)
{
    const QString category = cMacroBindingView::instance()->getDeviceCategory();
    const bool isMouse = category == DeviceIds::MouseCategory;
    QMenu* const keys = menu.addMenu(isMouse ? tr("All Buttons") : tr("All G-keys"));
    if (m_menuOptions.contains(UseDefaultOption)) {
        QAction* const useDefault = keys->addAction(tr("Use Default"), &tile, SLOT(onUseDefaultForAll()));
        useDefault->setEnabled(cProfileMgr().profileHasBackup(tile.id(), category));
    }
    if (m_menuOptions.contains(UseGenericOption))
        keys->addAction(tr("Use Generic"), &tile, SLOT(onUseGenericForAll()));
    if (m_menuOptions.contains(UnassignOption) && !isMouse)
        keys->addAction(tr("Unassign"), &tile, SLOT(onUnassignAll()));
}

void cProfileList::addRoleEntries(QMenu& menu, const cProfileItem& tile)
{
    const auto addRole = [&](const QString& text, bool isChecked, const char* slot) {
        QAction* const action = menu.addAction(text);
        action->setCheckable(true);
        action->setChecked(isChecked);
        connect(action, SIGNAL(triggered(bool)), &tile, slot);
        return action;
    };
    if (m_menuOptions.contains(SetDefaultOption)) {
        const QString defaultId = cProfileMgr().getDefaultProfileID();
        QAction* const setDefault =
            addRole(tr("Set As Default"), tile.id() == defaultId, SLOT(onDefaultProfile(bool)));
        // It can't be taken from the profile that it would go to.
        setDefault->setEnabled(!(isFixedDefault(tile.id()) && isFixedDefault(defaultId)));
    }
    if (m_menuOptions.contains(SetPersistentOption))
        addRole(tr("Set As Persistent"), tile.id() == cProfileMgr().getPersistentProfileID(),
            SLOT(onPersistentProfile(bool)));
}

void cProfileList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete)
        deleteSelectedProfiles();
    else
        QListWidget::keyPressEvent(event);
}

void cProfileList::deleteSelectedProfiles()
{
    // Those that the question names, whatever the host changes while the user thinks it over.
    const QStringList ids = m_selectedIds;
    if (ids.isEmpty() || (ids.size() == 1 && isFixedDefault(ids.first())))
        return;
    const QPointer<cProfileList> self(this);
    if (!cMainUI().yesno(tr("Delete Profile"), deleteQuestion(ids)))
        return;
    cProfileMgr profiles;
    for (const QString& id : ids) {
        if (!self)
            return;
        if (isFixedDefault(id))
            continue;
        if (id == cMacroBindingView::instance()->getProfileId())
            profiles.setDefaultProfileByID(FixedIds::DefaultProfile);
        // So that its deletion makes another one current.
        if (self && id == m_currentProfileId)
            m_currentProfileId.clear();
        profiles.deleteProfileByID(id);
    }
}

QString cProfileList::deleteQuestion(const QStringList& ids) const
{
    if (ids.size() > 1)
        return tr("Are you sure you want to delete %1 profiles from your computer?").arg(ids.size());
    const QString& id = ids.first();
    cProfileMgr profiles;
    const QString deviceId = profiles.getProfileDeviceId(id);
    const QString name = profiles.getProfileName(id);
    if (deviceId.isEmpty())
        return tr("Are you sure you want to delete %1 from your computer?").arg(name);
    return tr("Are you sure you want to delete %1 from your %2?")
        .arg(name, cProfilesToGo().shortDeviceName(deviceId));
}
