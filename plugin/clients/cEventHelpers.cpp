#include "cEventHelpers.h"

#include "cServiceClient.h"
#include "EventNames.h"

namespace EventHelpers {

using ServiceClient::tagged;

void subscribe(QLatin1String source, QObject* subscriber)
{
    IServiceMgr::instance()->subscribe(source, subscriber, Events::HandlerPrefix);
}

void unsubscribe(QLatin1String source, QObject* subscriber)
{
    IServiceMgr::instance()->unsubscribe(source, subscriber);
}

void publishProfileSelectionChanging(const QString& profileID)
{
    IServiceMgr::instance()->publish(
        EventSources::Profiler, Events::ProfileSelectionChanging, tagged("QString", profileID));
}

void publishProfileSelectionChanged(const QString& profileID)
{
    IServiceMgr::instance()->publish(
        EventSources::Profiler, Events::ProfileSelectionChanged, tagged("QString", profileID));
}

void publishDeviceTransformBegin(const cJsonValue& metadata)
{
    IServiceMgr::instance()->publish(
        EventSources::MainUI, Events::DeviceTransformBegin, tagged("cJsonValue", metadata));
}

void publishProfileSelectionChange()
{
    IServiceMgr::instance()->publish(EventSources::MacroBindingView, Events::ProfileSelectionChange);
}

} // namespace EventHelpers
