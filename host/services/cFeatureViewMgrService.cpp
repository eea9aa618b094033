#include "cFeatureViewMgrService.h"

#include "cDevMgrService.h"
#include "FeatureViewController.h"
#include "HostDevice.h"
#include "IHostWindow.h"

#include <algorithm>
#include <iterator>

namespace {

QString viewIdOf(IFeatureView* view)
{
    const cJsonValue info = view->viewInfo();
    return info["view_id"].toString();
}

cJsonValue infoRecords(const QList<IFeatureView*>& views)
{
    cJsonValue records(cJsonValue::arrayValue);
    for (IFeatureView* view : views)
        records.append(view->viewInfo());
    return records;
}

} // namespace

cFeatureViewMgrService::cFeatureViewMgrService(
    cDevMgrService& devices, FeatureViewController& controller, QObject* parent)
    : IFeatureViewMgr(parent)
    , m_devices(devices)
    , m_controller(controller)
{ }

QList<IFeatureView*> cFeatureViewMgrService::registeredViews() const
{
    QList<IFeatureView*> result;
    for (const QPointer<IFeatureView>& view : m_views)
        result.append(view);
    return result;
}

QList<IFeatureView*> cFeatureViewMgrService::viewsForDevice(const QString& deviceModel) const
{
    QList<IFeatureView*> result;
    if (const cDevMgrService::DevicePtr device = m_devices.deviceOfModel(deviceModel)) {
        const QList<IFeatureView*> views = registeredViews();
        std::copy_if(views.begin(), views.end(), std::back_inserter(result),
            [&](IFeatureView* view) { return device->suitsView(viewIdOf(view)); });
    }
    return result;
}

bool cFeatureViewMgrService::registerView(IFeatureView* view)
{
    if (!view || m_views.contains(view))
        return false;
    m_views.append(view);
    connect(view, SIGNAL(destroyed()), this, SLOT(onViewDestroyed()));
    Q_EMIT viewsChanged();
    return true;
}

bool cFeatureViewMgrService::unregisterView(IFeatureView* provider)
{
    if (!provider || !m_views.contains(provider))
        return false;
    disconnect(provider, SIGNAL(destroyed()), this, SLOT(onViewDestroyed()));
    m_controller.forget(provider);
    m_views.removeAll(provider);
    Q_EMIT viewsChanged();
    return true;
}

void cFeatureViewMgrService::onViewDestroyed()
{
    m_views.removeAll(nullptr);
    Q_EMIT viewsChanged();
}

bool cFeatureViewMgrService::init(const cJsonValue& viewInfo)
{
    IFeatureView* view = viewOfId(viewInfo["view_id"].toString());
    if (!view || !m_window)
        return false;
    const QString model = viewInfo.contains("device_model") ? viewInfo["device_model"].toString()
                                                            : m_window->activeDeviceModel();
    return m_window->selectDevice(model) && m_controller.open(view, model);
}

bool cFeatureViewMgrService::activate(const cJsonValue& viewInfo)
{
    IFeatureView* view = viewOfId(viewInfo["view_id"].toString());
    return view && m_controller.view() == view && m_controller.activate();
}

cJsonValue cFeatureViewMgrService::views()
{
    return infoRecords(registeredViews());
}

cJsonValue cFeatureViewMgrService::getRegisteredViewsForDevice(const QString& deviceModel)
{
    return infoRecords(viewsForDevice(deviceModel));
}

IFeatureView* cFeatureViewMgrService::viewOfId(const QString& viewId) const
{
    const QList<IFeatureView*> views = registeredViews();
    const auto found = std::find_if(
        views.begin(), views.end(), [&](IFeatureView* view) { return viewIdOf(view) == viewId; });
    return found == views.end() ? nullptr : *found;
}
