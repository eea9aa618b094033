#pragma once

#include <cJsonValue.h>

#include <QLatin1String>
#include <QString>

class QObject;

/// Subscribing to and publishing events through the service manager.
namespace EventHelpers {

/// Has the source's events delivered to the subscriber's handlers, see EventNames.h.
void subscribe(QLatin1String source, QObject* subscriber);
void unsubscribe(QLatin1String source, QObject* subscriber);

/// The events that the plug-in publishes.
void publishProfileSelectionChanging(const QString& profileID);
void publishProfileSelectionChanged(const QString& profileID);
void publishDeviceTransformBegin(const cJsonValue& metadata);
void publishProfileSelectionChange();

} // namespace EventHelpers
