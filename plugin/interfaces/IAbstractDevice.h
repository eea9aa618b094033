#pragma once

#include <cJsonValue.h>

#include <QList>
#include <QSharedPointer>
#include <QString>

/// A device that is connected, or offered for demonstration.
class IAbstractDevice
{
public:
    virtual ~IAbstractDevice() = default;

    /// Identity of this one device.
    virtual QString uid() const = 0;

    /// Model, as the device's manifest names it.
    virtual QString model() const = 0;

    /// The device's record: `uid`, `device_model`, `display_name` and what else is known.
    virtual cJsonValue properties() const = 0;
};

using cAbstractDevicePtr = QSharedPointer<IAbstractDevice>;
using cAbstractDeviceList = QList<cAbstractDevicePtr>;

Q_DECLARE_METATYPE(cAbstractDevicePtr)
Q_DECLARE_METATYPE(cAbstractDeviceList)
