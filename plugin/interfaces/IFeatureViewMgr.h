#pragma once

#include <cJsonValue.h>

#include <QObject>
#include <QString>

class IFeatureView;

/// The views that a device's page can show.
class IFeatureViewMgr : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Makes a view known; false for a null or known view.
    Q_INVOKABLE virtual bool registerView(IFeatureView* view) = 0;

    /// Removes a view, closing it first if it is open; false for an unknown view.
    Q_INVOKABLE virtual bool unregisterView(IFeatureView* provider) = 0;

    /// Opens the view that the record's `view_id` names on the device that its `device_model` names.
    Q_INVOKABLE virtual bool init(const cJsonValue& viewInfo) = 0;

    /// Activates the open view that the record's `view_id` names.
    Q_INVOKABLE virtual bool activate(const cJsonValue& viewInfo) = 0;

    /// Array of the info records of all views.
    Q_INVOKABLE virtual cJsonValue views() = 0;

    /// Array of the info records of the views that suit a device.
    Q_INVOKABLE virtual cJsonValue getRegisteredViewsForDevice(const QString& deviceModel) = 0;
};
