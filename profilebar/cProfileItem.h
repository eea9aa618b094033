#pragma once

#include <cScaledFont.h>

#include <QPixmap>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QWidget>

class cClickableLabel;
class QLabel;

/// The tile of one profile: its icon in a well, the name below, a marker above while it is current or under
/// the pointer, and a balloon with the device's short name if the profile lives on a device.
///
/// The list owns it, gives it everything that it shows, and selects it; the tile carries out most entries of
/// its menu. It takes commands that are dropped on it. What it asks of the host comes back to the list, which
/// changes the tile.
class cProfileItem : public QWidget
{
    Q_OBJECT

public:
    cProfileItem(const QString& id, const QString& name, const QPixmap& icon, QWidget* parent = nullptr);

    QString id() const { return m_id; }
    QString name() const { return m_name; }
    QPixmap icon() const { return m_icon; }
    /// Empty for a profile on the computer.
    QString deviceId() const { return m_deviceId; }

    /// The program that the profile belongs to, as a file path.
    void setTarget(const QString& target);
    void setProfileIcon(const QPixmap& icon);
    void setProfileName(const QString& name);
    void setDeviceId(const QString& deviceId);
    void setCurrent(bool current);
    void setTileSelected(bool selected);
    /// Whether the tile can be dragged with the pointer. False at first.
    void setDragEnabled(bool enabled);

    QSize sizeHint() const override;

Q_SIGNALS:
    void useGenericForAllGkeys(const QString& profileID);
    void unassignAllGkeys(const QString& profileID);
    void printProfile(const QString& profileID);
    void macrosDropped(const QStringList& macroIDs, const QString& profileID);
    // The tile emits neither of these two: the list tells of the pointer for all of its tiles.
    void hoverIn();
    void hoverOut();
    void nameChanged(const QString& name);
    /// The pointer has gone far enough with the button down. A drag runs before this returns, and may end the
    /// tile.
    void dragStart();
    void profileContextMenuIconClicked(const QPoint& ptGlobal);
    void useDefaultForAllGkeys(const QString& profileID);

private Q_SLOTS:
    void onPropertiesMenu();
    void onSaveMenu();
    /// The title of the menu, which does nothing.
    void onProfileLaunch();
    void onPersistentProfile(bool checked);
    void onDefaultProfile(bool checked);
    void onProfileScripting();
    void onMenuPrintProfile();
    void onUseGenericForAll();
    void onUnassignAll();
    void contextMenuIconClicked(const QPoint& point);
    void onUseDefaultForAll();
    void onChooseIcon();
    void onResetIcon();
    void onTestProfile();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    Q_DISABLE_COPY(cProfileItem)

    void createMarker();
    void createContextIcon();
    void renderName();
    /// The picture in a file, or the icon of the program in it. Null, and the user has been told, if it is
    /// neither.
    QPixmap loadIcon(const QString& path) const;

    const QString m_id;
    QString m_name;
    QString m_target;
    QPixmap m_icon;
    QPixmap m_namePixmap;
    QPixmap m_currentNamePixmap;
    QPixmap m_deviceTextPixmap;
    bool m_selected = false;
    bool m_current = false;
    QLabel* m_markerLabel = nullptr;
    QPixmap m_shownWell;
    QPixmap m_wellPixmap;
    QPixmap m_selectedWellPixmap;
    QPixmap m_selectedMarker;
    QPixmap m_hoverMarker;
    QPixmap m_balloonPixmap;
    cScaledFont m_nameFont;
    cScaledFont m_deviceFont;
    QString m_deviceId;
    QString m_deviceShortName;
    bool m_dragEnabled = false;
    QPoint m_pressPoint;
    /// Opens the menu; shown under the pointer.
    cClickableLabel* m_contextIcon = nullptr;
};
