#include "cProfileList.h"

#include "cProfileItem.h"
#include "ProfileBarConstants.h"

#include <cEventHelpers.h>
#include <cJsonValue.h>
#include <cProfileMgr.h>
#include <cSettings.h>
#include <EventNames.h>
#include <FixedIds.h>
#include <HVS.h>
#include <PluginContext.h>
#include <RowLists.h>
#include <SettingsKeys.h>

#include <QPointer>
#include <QScrollBar>
#include <QTimer>

using namespace ProfileBarConstants;

cProfileList::cProfileList(QWidget* parent)
    : QListWidget(parent)
    , m_wellPixmap(QStringLiteral("MacroBindingView:/Resources/images/profile_outline.png"))
{
    RowLists::setUp(*this);
    setFlow(QListView::LeftToRight);
    setSpacing(ListSpacing);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalScrollBar()->setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, SIGNAL(itemSelectionChanged()), SLOT(onProfileSelectionChanged()));
    EventHelpers::subscribe(EventSources::ProfileMgr, this);
    for (int option = 0; option < MenuOptionCount; ++option)
        m_menuOptions.insert(option);
    refreshMouseTracking();
}

cProfileList::~cProfileList()
{
    // What the selection does while the tiles go is nobody's affair any more.
    disconnect(this, SIGNAL(itemSelectionChanged()), this, nullptr);
    RowLists::deleteRowWidgets(*this);
    EventHelpers::unsubscribe(EventSources::ProfileMgr, this);
}

// The tiles

void cProfileList::populate()
{
    const cJsonValue profiles = cProfileMgr().profiles();
    if (!profiles.isArray())
        return;
    for (unsigned i = 0; i < profiles.size(); ++i)
        addProfileRecord(profiles[int(i)]);
    const QString lastProfile =
        cSettings().getPropertyString(SettingsKeys::LastProfile, FixedIds::DefaultProfile);
    int row = rowOfProfile(lastProfile);
    if (row < 0)
        row = rowOfProfile(FixedIds::DefaultProfile);
    selectRow(row);
}

void cProfileList::addProfileRecord(const cJsonValue& profile)
{
    const QString target = profile["target"].toString();
    const QString id = profile["uid"].toString();
    const QPixmap icon = profileTileIcon(id, target);
    addTile(id, profile["name"].toString(), target, icon);
}

QPixmap cProfileList::profileTileIcon(const QString& id, const QString& target) const
{
    QPixmap icon = cProfileMgr().profileIcon(id);
    if (icon.isNull() && !target.isEmpty())
        icon = HVS::loadApplicationIcon(target);
    if (icon.isNull())
        icon = QPixmap(pluginResource("Resources/images/default_profile.png"));
    if (icon.isNull() || icon.width() == TileIconSize)
        return icon;
    return icon.scaledToWidth(TileIconSize, Qt::FastTransformation);
}

void cProfileList::addTile(const QString& id, const QString& name, const QString& target, const QPixmap& icon)
{
    // The list's from setItemWidget() on.
    auto* const tile = new cProfileItem(id, name, icon, this);
    tile->setTarget(target);
    tile->installEventFilter(this);
    connectTile(*tile);

    auto* const item = new cListWidgetItem(name, m_sortMode);
    item->setNamespace(RowNamespace);
    item->setSizeHint(tile->sizeHint());
    addItem(item);
    setItemWidget(item, tile);
    connect(tile, SIGNAL(nameChanged(const QString&)), item, SLOT(onNameChanged(const QString&)));

    const QString deviceId = cProfileMgr().getProfileDeviceId(id);
    tile->setDeviceId(deviceId);
    if (!m_deviceFilter.isEmpty())
        item->setHidden(isHiddenByDevice(deviceId));
    tile->setDragEnabled(m_tileDragEnabled);
    connect(tile, SIGNAL(dragStart()), SLOT(onProfileDragStart()));
    refreshCurrentRow();
    refreshMouseTracking();
}

void cProfileList::connectTile(const cProfileItem& tile)
{
    connect(
        &tile, SIGNAL(useDefaultForAllGkeys(const QString&)), SIGNAL(useDefaultForAllGkeys(const QString&)));
    connect(
        &tile, SIGNAL(useGenericForAllGkeys(const QString&)), SIGNAL(useGenericForAllGkeys(const QString&)));
    connect(&tile, SIGNAL(unassignAllGkeys(const QString&)), SIGNAL(unassignAllGkeys(const QString&)));
    connect(&tile, SIGNAL(printProfile(const QString&)), SIGNAL(printProfile(const QString&)));
    connect(&tile, SIGNAL(macrosDropped(const QStringList&, const QString&)),
        SIGNAL(macrosDropped(const QStringList&, const QString&)));
    connect(&tile, SIGNAL(hoverIn()), SIGNAL(hoverIn()));
    connect(&tile, SIGNAL(profileContextMenuIconClicked(const QPoint&)),
        SLOT(profileContextMenuIconClicked(const QPoint&)));
}

void cProfileList::setTileDragEnabled(bool enabled)
{
    if (m_tileDragEnabled == enabled)
        return;
    for (int row = 0; row < count(); ++row) {
        if (cProfileItem* tile = tileAt(row))
            tile->setDragEnabled(enabled);
    }
    m_tileDragEnabled = enabled;
}

void cProfileList::setSortMode(int mode)
{
    m_sortMode = mode;
    RowLists::setSortMode(*this, mode);
}

void cProfileList::setMenuOptions(const QSet<int>& options)
{
    m_menuOptions = options;
}

cProfileItem* cProfileList::tileAt(int row) const
{
    return RowLists::rowAt<cProfileItem>(*this, row);
}

cProfileItem* cProfileList::tileOf(const QListWidgetItem* item) const
{
    return qobject_cast<cProfileItem*>(itemWidget(const_cast<QListWidgetItem*>(item)));
}

int cProfileList::rowOfProfile(const QString& id) const
{
    return RowLists::findRow(*this, &cProfileItem::id, id);
}

QString cProfileList::profileName(int row) const
{
    const cProfileItem* tile = tileAt(row);
    return tile ? tile->name() : QString();
}

QString cProfileList::profileId(int row) const
{
    const cProfileItem* tile = tileAt(row);
    return tile ? tile->id() : QString();
}

// The current profile

void cProfileList::selectRow(int row)
{
    if (cProfileItem* previous = tileAt(rowOfProfile(m_currentProfileId)))
        previous->setCurrent(false);
    if (cProfileItem* tile = tileAt(row)) {
        tile->setCurrent(true);
        m_currentProfileId = tile->id();
        m_currentRow = row;
        const QString id = m_currentProfileId;
        // Whoever hears of it may make tiles come and go, or take the list down.
        const QPointer<cProfileList> self(this);
        Q_EMIT selectedProfile(id);
        cSettings().setPropertyString(SettingsKeys::LastProfile, id);
        if (!self)
            return;
        row = rowOfProfile(id);
    }
    if (QListWidgetItem* current = item(row)) {
        setCurrentItem(current);
        scrollToItem(current, QAbstractItemView::EnsureVisible);
    }
}

void cProfileList::selectProfile(const QString& id)
{
    const int row = rowOfProfile(id);
    if (row >= 0)
        selectRow(row);
}

void cProfileList::ensureCurrentVisible()
{
    if (const QListWidgetItem* current = item(m_currentRow))
        scrollToItem(current, QAbstractItemView::EnsureVisible);
}

void cProfileList::refreshCurrentRow()
{
    const int row = m_currentProfileId.isEmpty() ? -1 : rowOfProfile(m_currentProfileId);
    if (row >= 0)
        m_currentRow = row;
}

void cProfileList::onProfileSelectionChanged()
{
    for (int row = 0; row < count(); ++row) {
        if (cProfileItem* tile = tileAt(row))
            tile->setTileSelected(false);
    }
    m_selectedIds.clear();
    const QList<QListWidgetItem*> selected = selectedItems();
    for (const QListWidgetItem* item : selected) {
        if (cProfileItem* tile = tileOf(item)) {
            tile->setTileSelected(true);
            m_selectedIds.append(tile->id());
        }
    }
    if (m_selectedIds.contains(m_currentProfileId))
        return;
    if (!selected.isEmpty())
        selectRow(row(selected.first()));
    else if (m_currentProfileId.isEmpty())
        // Later, when the row is gone.
        QTimer::singleShot(0, this, SLOT(onCurrentProfileDeleted()));
    if (!selected.isEmpty() || m_currentProfileId.isEmpty())
        EventHelpers::publishProfileSelectionChange();
}

void cProfileList::onCurrentProfileDeleted()
{
    selectRow(qMin(m_currentRow, count() - 1));
}

// The host's events

void cProfileList::onProfileAdded(const QString& profileID)
{
    const cJsonValue profile = cProfileMgr().getProfileByID(profileID);
    // Gone again before its event came.
    if (profile.isNull())
        return;
    const QString target = profile["target"].toString();
    addTile(profileID, profile["name"].toString(), target, profileTileIcon(profileID, target));
    QListWidgetItem* const added = item(rowOfProfile(profileID));
    if (added && profile["deviceid"].toString().isEmpty())
        setCurrentItem(added, QItemSelectionModel::ClearAndSelect);
    repeatSearch();
}

void cProfileList::onProfileDeleted(const QString& profileID)
{
    const int row = rowOfProfile(profileID);
    if (row >= 0) {
        // A selected tile takes the selection with it, which makes another one current.
        const bool needsSuccessor = profileID == m_currentProfileId && !item(row)->isSelected();
        if (profileID == m_currentProfileId)
            m_currentProfileId.clear();
        m_searchHits.removeOne(item(row));
        RowLists::deleteRow(*this, row);
        refreshCurrentRow();
        if (needsSuccessor)
            QTimer::singleShot(0, this, SLOT(onCurrentProfileDeleted()));
    }
    refreshMouseTracking();
    repeatSearch();
}

void cProfileList::onProfilePropertyChanged(const QString& profileID)
{
    const int row = rowOfProfile(profileID);
    const QString oldName = profileName(row);
    const cJsonValue profile = cProfileMgr().getProfileByID(profileID);
    cProfileItem* const tile = tileAt(row);
    if (!tile || profile.isNull())
        return;
    const QString name = profile["name"].toString();
    const QString target = profile["target"].toString();
    tile->setProfileName(name);
    tile->setProfileIcon(profileTileIcon(profileID, target));
    tile->setTarget(target);
    tile->update();
    refreshCurrentRow();
    if (oldName.compare(name, Qt::CaseInsensitive) != 0)
        repeatSearch();
}
