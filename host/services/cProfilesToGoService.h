#pragma once

#include <IProfilesToGo.h>

class IDevMgr;
class IMainUI;

/// The service "ProfilesToGo". This version writes no profiles into devices: no device holds any, none is
/// ever busy, nothing fits, and a user who asks for a transfer is told so.
class cProfilesToGoService : public IProfilesToGo
{
    Q_OBJECT
    Q_CLASSINFO("service", "ProfilesToGo")

public:
    /// Both outlive the service.
    cProfilesToGoService(IDevMgr& devices, IMainUI& mainUI, QObject* parent = nullptr);

    cJsonValue getProfiles(const QString& deviceId) override;
    /// The short name of a device that is there, or empty.
    QString shortDeviceName(const QString& deviceId) override;
    void commitDevice(const QString& deviceId) override;
    void commitAllDevices() override;
    void commitAllDevicesAndWait() override;
    int memoryUsed(const QString& deviceId) override;
    bool isDeviceBusy(const QString& deviceId) override;
    bool isDeviceBusyReading(const QString& deviceId) override;
    bool isDeviceBusyWriting(const QString& deviceId) override;
    bool isSpaceAvailable(const QString& deviceId, const QStringList& profileIds) override;

private:
    IDevMgr& m_devices;
    IMainUI& m_mainUI;
};
