#pragma once

#include <QMetaType>
#include <QSharedPointer>
#include <QSize>
#include <QString>

/// A device with a display.
class ILCDDevice
{
public:
    virtual ~ILCDDevice() = default;

    /// Model of the device.
    virtual QString model() const = 0;

    /// Size of the display in pixels.
    virtual QSize size() const = 0;
};

using ILCDDevicePtr = QSharedPointer<ILCDDevice>;

/// The devices that have a display.
class ILCDDeviceList
{
public:
    virtual ~ILCDDeviceList() = default;

    virtual int count() const = 0;

    /// A null pointer for an index outside the list.
    virtual ILCDDevicePtr at(int index) const = 0;
};

using cLCDDeviceListPtr = QSharedPointer<ILCDDeviceList>;

Q_DECLARE_METATYPE(ILCDDevicePtr)
Q_DECLARE_METATYPE(cLCDDeviceListPtr)
