#pragma once

#include <QMetaType>
#include <QSharedPointer>
#include <QString>

/// An applet that runs on a device's display.
class IAppletOnDevice
{
public:
    virtual ~IAppletOnDevice() = default;

    virtual QString name() const = 0;
};

using IAppletOnDevicePtr = QSharedPointer<IAppletOnDevice>;

/// The applets on one device.
class IAppletOnDeviceList
{
public:
    virtual ~IAppletOnDeviceList() = default;

    virtual int count() const = 0;

    /// A null pointer for an index outside the list.
    virtual IAppletOnDevicePtr at(int index) const = 0;
};

using cAppletOnDeviceListPtr = QSharedPointer<IAppletOnDeviceList>;

Q_DECLARE_METATYPE(cAppletOnDeviceListPtr)
