#pragma once

#include <cListWidgetItem.h>

#include <QList>
#include <QListWidget>
#include <QPixmap>
#include <QSet>
#include <QString>
#include <QStringList>

class cJsonValue;
class cProfileItem;
class QMenu;
class QMimeData;

/// The strip of profile tiles in the bar.
///
/// It shows all profiles of the host and follows the host's events. One tile is the current profile, which
/// the list remembers from one run to the next; it changes when the selection leaves it, and when it is
/// deleted. Places for profiles that are still empty are drawn as wells, which make a profile when they are
/// pressed. The list filters by search text and device, opens the tiles' menu, and deletes profiles after a
/// question. What it asks of the host shows when the host's event comes back.
///
/// It belongs to whoever embeds it, not to the bar.
class cProfileList : public QListWidget
{
    Q_OBJECT

public:
    explicit cProfileList(QWidget* parent = nullptr);
    ~cProfileList() override;

    /// Fills the list and makes the profile of the last run current, or else the fixed default profile.
    /// Called once.
    void populate();
    /// Adds a tile for a profile record.
    void addProfileRecord(const cJsonValue& profile);

    /// Makes the tile of that row current. Without such a tile none is current.
    void selectRow(int row);
    /// Does nothing if the profile has no tile.
    void selectProfile(const QString& id);

    /// Hides the profiles of that device and shows all others, whatever is searched; an empty id hides none.
    void setDeviceFilter(const QString& deviceId);
    /// False at first, also for tiles to come.
    void setTileDragEnabled(bool enabled);
    /// A cListWidgetItem::SortMode. Call sortItems() to sort the tiles that are there.
    void setSortMode(int mode);
    /// The entries of the menu to offer, as ProfileBarConstants::MenuOption numbers them. All at first.
    void setMenuOptions(const QSet<int>& options);
    /// Whether a press in an empty well asks for a new profile. True at first.
    void setWellsClickable(bool clickable);

    QStringList selectedProfileIds() const { return m_selectedIds; }
    void ensureCurrentVisible();

    /// Null texts for a row that isn't there.
    QString profileName(int row) const;
    QString profileId(int row) const;

Q_SIGNALS:
    void useDefaultForAllGkeys(const QString& profileID);
    void useGenericForAllGkeys(const QString& profileID);
    void unassignAllGkeys(const QString& profileID);
    void printProfile(const QString& profileID);
    void macrosDropped(const QStringList& macroIDs, const QString& profileID);
    /// The user wishes a new profile.
    void newProfile();
    void hoverIn();
    void hoverOut();
    /// The profile is current from now on.
    void selectedProfile(const QString& profileID);
    void startDrag();
    void endDrag();
    /// The user wishes to export the current profile.
    void exportProfile();

private Q_SLOTS:
    void onProfileSelectionChanged();
    // Events of the host.
    void onProfileAdded(const QString& profileID);
    void onProfileDeleted(const QString& profileID);
    void onProfilePropertyChanged(const QString& profileID);
    void onProfileDragStart();
    /// Opens the menu of the selected tiles at a place in global coordinates.
    void profileContextMenuIconClicked(const QPoint& point);

public Q_SLOTS:
    /// Shows only the profiles in which a word begins with the text.
    void onSearch(const QString& name);
    /// Makes the tile current that has come to the place of the one that was.
    void onCurrentProfileDeleted();
    /// Asks the user and then has the host delete the selected profiles but the fixed default one.
    void deleteSelectedProfiles();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void updateGeometries() override;
    /// Opens the menu by the keyboard.
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    Q_DISABLE_COPY(cProfileList)

    void addTile(const QString& id, const QString& name, const QString& target, const QPixmap& icon);
    void connectTile(const cProfileItem& tile);
    QPixmap profileTileIcon(const QString& id, const QString& target) const;

    cProfileItem* tileAt(int row) const;
    cProfileItem* tileOf(const QListWidgetItem* item) const;
    /// -1 if the profile has no tile.
    int rowOfProfile(const QString& id) const;
    /// The tiles come and go and are renamed, by which the current one changes its place.
    void refreshCurrentRow();

    bool isHiddenByDevice(const QString& deviceId) const;
    /// The search looks at the changed tiles.
    void repeatSearch();
    bool showsWells() const;
    void refreshMouseTracking();

    void fillMenuOfTile(QMenu& menu, const cProfileItem& tile);
    void addKeysMenu(QMenu& menu, const cProfileItem& tile);
    void addRoleEntries(QMenu& menu, const cProfileItem& tile);
    QString deleteQuestion(const QStringList& ids) const;

    void enterDrag(QDragEnterEvent& event) const;
    static void copyProfiles(const QMimeData& data);

    QPixmap m_wellPixmap;
    int m_sortMode = cListWidgetItem::SortByName;
    QList<QListWidgetItem*> m_searchHits;
    QString m_searchText;
    /// The device whose profiles are hidden; empty for none.
    QString m_deviceFilter;
    bool m_tileDragEnabled = false;
    /// Empty if no tile is current.
    QString m_currentProfileId;
    /// The row of the current tile, or the one that it had when it went.
    int m_currentRow = -1;
    bool m_searchActive = false;
    QStringList m_selectedIds;
    QSet<int> m_menuOptions;
    bool m_wellsClickable = true;
};
