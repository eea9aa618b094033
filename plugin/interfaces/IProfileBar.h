#pragma once

#include <cJsonValue.h>

#include <QMetaType>
#include <QSet>
#include <QString>
#include <QStringList>

class QFrame;
class QGraphicsItem;
class QListWidget;

/// A bar of profiles that another module places in its own view. Whoever asked for it keeps it as long as the
/// process runs. The order of the operations is fixed: modules are compiled against it.
class IProfileBar
{
public:
    /// The bar on the canvas, or null.
    virtual QGraphicsItem* graphicsItem() = 0;

    virtual QListWidget* profileList() = 0;

    /// Adds a tile for the profile record.
    virtual bool addProfile(const cJsonValue& profile) = 0;

    /// Hides the profiles of that device; an empty id hides none.
    virtual bool setDeviceFilter(const QString& deviceId) = 0;

    virtual void setTileDragEnabled(bool enabled) = 0;

    virtual void setDropsEnabled(bool enabled) = 0;

    virtual QStringList selectedProfileIds() = 0;

    virtual QString currentProfileId() = 0;

    /// The buttons to show: 0 new, 1 import, 2 print.
    virtual bool setButtons(const QSet<int>& buttons) = 0;

    /// The entries of the profile menu to show, by their ids 0 to 14.
    virtual bool setMenuOptions(const QSet<int>& options) = 0;

    virtual QFrame* searchFrame() = 0;

protected:
    ~IProfileBar() = default;
};

Q_DECLARE_METATYPE(IProfileBar*)
