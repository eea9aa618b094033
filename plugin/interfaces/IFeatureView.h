#pragma once

#include <cJsonValue.h>

#include <QObject>

class QGraphicsView;

/// A view that a plug-in adds to the page of a device. The host calls it in this order: viewInfo() at any
/// time; init(), activate(); deactivate(), deinit(); then init() again or the end.
///
/// The host and each plug-in have a copy of this class's meta-object of their own, so qobject_cast and
/// QVariant::value do not see through from one to the other. A pointer that is passed on as an IFeatureView*
/// needs no cast.
class IFeatureView : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Brings the view up on the canvas for the device that the key `device_model` of `viewInfo` names; false
    /// if it can't, and nothing has changed then. The canvas redraws all of itself with each change, since an
    /// item of the view may draw beyond its bounds.
    virtual bool init(cJsonValue viewInfo, QGraphicsView* canvas) = 0;

    /// Takes the view down. What it still animates afterwards it removes by itself.
    virtual bool deinit(cJsonValue viewInfo, QGraphicsView* canvas) = 0;

    virtual bool activate(cJsonValue viewInfo) = 0;

    virtual bool deactivate(cJsonValue viewInfo) = 0;

    /// The view's info record: `view_id`, `tooltip`, and the absolute paths `icon_on_path`, `icon_off_path`
    /// and `icon_hover_path`.
    virtual cJsonValue viewInfo() = 0;
};

Q_DECLARE_METATYPE(IFeatureView*)
