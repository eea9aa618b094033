#include "cFeatureViewMgr.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cFeatureViewMgr::cFeatureViewMgr()
{
    requireService(ServiceNames::FeatureViewMgr);
}

bool cFeatureViewMgr::registerView(IFeatureView* view)
{
    return askService<bool>(
        ServiceNames::FeatureViewMgr, "registerView", "bool", tagged("IFeatureView*", view));
}

bool cFeatureViewMgr::unregisterView(IFeatureView* provider)
{
    return askService<bool>(
        ServiceNames::FeatureViewMgr, "unregisterView", "bool", tagged("IFeatureView*", provider));
}

bool cFeatureViewMgr::init(const cJsonValue& viewInfo)
{
    return askService<bool>(ServiceNames::FeatureViewMgr, "init", "bool", tagged("cJsonValue", viewInfo));
}

bool cFeatureViewMgr::activate(const cJsonValue& viewInfo)
{
    return askService<bool>(ServiceNames::FeatureViewMgr, "activate", "bool", tagged("cJsonValue", viewInfo));
}

cJsonValue cFeatureViewMgr::views()
{
    return askService<cJsonValue>(ServiceNames::FeatureViewMgr, "views", "cJsonValue");
}

cJsonValue cFeatureViewMgr::getRegisteredViewsForDevice(const QString& deviceModel)
{
    return askService<cJsonValue>(ServiceNames::FeatureViewMgr, "getRegisteredViewsForDevice", "cJsonValue",
        tagged("QString", deviceModel));
}
