#include "cProfilesToGo.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cProfilesToGo::cProfilesToGo()
{
    requireService(ServiceNames::ProfilesToGo);
}

cJsonValue cProfilesToGo::getProfiles(const QString& deviceId)
{
    return askService<cJsonValue>(
        ServiceNames::ProfilesToGo, "getProfiles", "cJsonValue", tagged("const QString", deviceId));
}

QString cProfilesToGo::shortDeviceName(const QString& deviceId)
{
    return askService<QString>(
        ServiceNames::ProfilesToGo, "shortDeviceName", "QString", tagged("const QString", deviceId));
}

void cProfilesToGo::commitDevice(const QString& deviceId)
{
    callService(ServiceNames::ProfilesToGo, "commitDevice", tagged("const QString", deviceId));
}

void cProfilesToGo::commitAllDevices()
{
    callService(ServiceNames::ProfilesToGo, "commitAllDevices");
}

void cProfilesToGo::commitAllDevicesAndWait()
{
    callService(ServiceNames::ProfilesToGo, "commitAllDevicesAndWait");
}

int cProfilesToGo::memoryUsed(const QString& deviceId)
{
    return askService<int>(
        ServiceNames::ProfilesToGo, "memoryUsed", "int", tagged("const QString", deviceId));
}

bool cProfilesToGo::isDeviceBusy(const QString& deviceId)
{
    return askService<bool>(
        ServiceNames::ProfilesToGo, "isDeviceBusy", "bool", tagged("const QString", deviceId));
}

bool cProfilesToGo::isDeviceBusyReading(const QString& deviceId)
{
    return askService<bool>(
        ServiceNames::ProfilesToGo, "isDeviceBusyReading", "bool", tagged("const QString", deviceId));
}

bool cProfilesToGo::isDeviceBusyWriting(const QString& deviceId)
{
    return askService<bool>(
        ServiceNames::ProfilesToGo, "isDeviceBusyWriting", "bool", tagged("const QString", deviceId));
}

bool cProfilesToGo::isSpaceAvailable(const QString& deviceId, const QStringList& profileIds)
{
    return askService<bool>(ServiceNames::ProfilesToGo, "isSpaceAvailable", "bool",
        tagged("const QString", deviceId), tagged("const QStringList", profileIds));
}
