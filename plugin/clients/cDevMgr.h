#pragma once

#include "IDevMgr.h"

/// The client of IDevMgr, the service "DevMgr.DevMgr"; see cServiceClient.h for how its members call.
class cDevMgr : public IDevMgr
{
    Q_OBJECT

public:
    cDevMgr();

    cJsonValue enumerate(const cJsonValue& filter) override;
    void writeProperty(const cJsonValue& filter, const cJsonValue& prop) override;
    void writeBlob(const cJsonValue& filter, const cJsonValue& blob, const QByteArray& data) override;
    cJsonValue readState(const cJsonValue& deviceid, const cJsonValue& properties) override;
    QDomElement metaData(const QString& deviceModel) override;
    cAbstractDevicePtr findDevice(const QString& uid) override;
    cAbstractDeviceList findDevices(const cJsonValue& filter) override;
};
