#pragma once

#include <IDevMgr.h>

#include <QList>
#include <QSharedPointer>

class HostDevice;

/// The devices that are offered for demonstration, one for each folder below the devices folder.
///
/// A filter matches a device if each of its members equals the member of that name in the device's record.
/// What is written to a device is kept as long as the application runs.
class cDevMgrService : public IDevMgr
{
    Q_OBJECT
    Q_CLASSINFO("service", "DevMgr.DevMgr")

public:
    using DevicePtr = QSharedPointer<HostDevice>;

    explicit cDevMgrService(QObject* parent = nullptr);

    /// Reads the devices and makes each folder known as the search path of its name. A folder without a
    /// usable manifest is listed all the same.
    void load(const QString& devicesFolder);

    /// All devices in the order of their folders' names.
    QList<DevicePtr> devices() const { return m_devices; }
    /// The device of that model, or a null pointer.
    DevicePtr deviceOfModel(const QString& model) const;

    cJsonValue enumerate(const cJsonValue& filter) override;
    void writeProperty(const cJsonValue& filter, const cJsonValue& prop) override;
    void writeBlob(const cJsonValue& filter, const cJsonValue& blob, const QByteArray& data) override;
    /// `deviceid` is the id or a record that has it as `uid`; `properties` an array of names, or null for
    /// all. Names without a value are left out.
    cJsonValue readState(const cJsonValue& deviceid, const cJsonValue& properties) override;
    /// A copy; changing it changes nothing here.
    QDomElement metaData(const QString& deviceModel) override;
    cAbstractDevicePtr findDevice(const QString& uid) override;
    cAbstractDeviceList findDevices(const cJsonValue& filter) override;

Q_SIGNALS:
    /// Something is wrong with a device; the text is for the user.
    void problemFound(const QString& message);

private:
    void addDevice(const QString& folder);
    QList<DevicePtr> matching(const cJsonValue& filter) const;

    QList<DevicePtr> m_devices;
};
