#include "cServiceClient.h"

#include <QDebug>

namespace ServiceClient {

namespace {
const QLatin1String InterfaceVersion("1");
} // namespace

void requireService(QLatin1String service)
{
    IServiceMgr::instance()->requireService(service, InterfaceVersion);
}

void reportFailedCall(const char* operation, QLatin1String service)
{
    qCritical("Failed to call '%s' on service %s", operation, service.data());
}

} // namespace ServiceClient
