#include "cDevMgr.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cDevMgr::cDevMgr()
{
    requireService(ServiceNames::DevMgr);
}

cJsonValue cDevMgr::enumerate(const cJsonValue& filter)
{
    return askService<cJsonValue>(
        ServiceNames::DevMgr, "enumerate", "cJsonValue", tagged("const cJsonValue", filter));
}

void cDevMgr::writeProperty(const cJsonValue& filter, const cJsonValue& prop)
{
    callService(ServiceNames::DevMgr, "writeProperty", tagged("const cJsonValue", filter),
        tagged("const cJsonValue", prop));
}

void cDevMgr::writeBlob(const cJsonValue& filter, const cJsonValue& blob, const QByteArray& data)
{
    callService(ServiceNames::DevMgr, "writeBlob", tagged("const cJsonValue", filter),
        tagged("const cJsonValue", blob), tagged("const QByteArray", data));
}

cJsonValue cDevMgr::readState(const cJsonValue& deviceid, const cJsonValue& properties)
{
    return askService<cJsonValue>(ServiceNames::DevMgr, "readState", "cJsonValue",
        tagged("const cJsonValue", deviceid), tagged("const cJsonValue", properties));
}

QDomElement cDevMgr::metaData(const QString& deviceModel)
{
    return askService<QDomElement>(
        ServiceNames::DevMgr, "metaData", "QDomElement", tagged("const QString", deviceModel));
}

cAbstractDevicePtr cDevMgr::findDevice(const QString& uid)
{
    return askService<cAbstractDevicePtr>(
        ServiceNames::DevMgr, "findDevice", "cAbstractDevicePtr", tagged("const QString", uid));
}

cAbstractDeviceList cDevMgr::findDevices(const cJsonValue& filter)
{
    return askService<cAbstractDeviceList>(
        ServiceNames::DevMgr, "findDevices", "cAbstractDeviceList", tagged("const cJsonValue", filter));
}
