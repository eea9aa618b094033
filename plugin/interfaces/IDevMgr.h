#pragma once

#include "IAbstractDevice.h"

#include <cJsonValue.h>

#include <QByteArray>
#include <QDomElement>
#include <QObject>
#include <QString>

/// The devices: which there are, what they are like, their properties.
class IDevMgr : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Array of the records of the devices that match all keys of the filter; a null filter matches all.
    Q_INVOKABLE virtual cJsonValue enumerate(const cJsonValue& filter) = 0;

    /// Writes the members of `prop` to the devices that match the filter.
    Q_INVOKABLE virtual void writeProperty(const cJsonValue& filter, const cJsonValue& prop) = 0;

    /// Writes a block of bytes, described by `blob`, to the devices that match the filter.
    Q_INVOKABLE virtual void writeBlob(
        const cJsonValue& filter, const cJsonValue& blob, const QByteArray& data) = 0;

    /// Object with the present values of the named properties of one device.
    Q_INVOKABLE virtual cJsonValue readState(const cJsonValue& deviceid, const cJsonValue& properties) = 0;

    /// The manifest of a device model; a null element for an unknown one.
    Q_INVOKABLE virtual QDomElement metaData(const QString& deviceModel) = 0;

    /// The device with that id, or a null pointer.
    Q_INVOKABLE virtual cAbstractDevicePtr findDevice(const QString& uid) = 0;

    /// The devices that match the filter.
    Q_INVOKABLE virtual cAbstractDeviceList findDevices(const cJsonValue& filter) = 0;
};
