#pragma once

#include "IProfilesToGo.h"

/// The client of IProfilesToGo, the service "ProfilesToGo"; see cServiceClient.h for how its members call.
class cProfilesToGo : public IProfilesToGo
{
    Q_OBJECT

public:
    cProfilesToGo();

    cJsonValue getProfiles(const QString& deviceId) override;
    QString shortDeviceName(const QString& deviceId) override;
    void commitDevice(const QString& deviceId) override;
    void commitAllDevices() override;
    void commitAllDevicesAndWait() override;
    int memoryUsed(const QString& deviceId) override;
    bool isDeviceBusy(const QString& deviceId) override;
    bool isDeviceBusyReading(const QString& deviceId) override;
    bool isDeviceBusyWriting(const QString& deviceId) override;
    bool isSpaceAvailable(const QString& deviceId, const QStringList& profileIds) override;
};
