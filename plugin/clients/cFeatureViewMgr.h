#pragma once

#include "IFeatureViewMgr.h"

/// The client of IFeatureViewMgr, the service "MainUI.FeatureViewMgr"; see cServiceClient.h for how its
/// members call.
class cFeatureViewMgr : public IFeatureViewMgr
{
    Q_OBJECT

public:
    cFeatureViewMgr();

    bool registerView(IFeatureView* view) override;
    bool unregisterView(IFeatureView* provider) override;
    bool init(const cJsonValue& viewInfo) override;
    bool activate(const cJsonValue& viewInfo) override;
    cJsonValue views() override;
    cJsonValue getRegisteredViewsForDevice(const QString& deviceModel) override;
};
