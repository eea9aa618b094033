#include "cMacroBindingView.h"

#include <cDevMgr.h>

#include <QDomElement>

namespace {

QString text(const QDomElement& element, const char* attribute)
{
    return element.attribute(QLatin1String(attribute));
}

/// 0 for an attribute that is missing or is no integer.
int integer(const QDomElement& element, const char* attribute)
{
    return text(element, attribute).toInt();
}

/// True only for the exact text "true".
bool flag(const QDomElement& element, const char* attribute)
{
    return text(element, attribute) == QLatin1String("true");
}

/// Calls `use` with each child element of that name, in order.
template<typename Use>
void forEachChild(const QDomElement& parent, const QString& name, const Use& use)
{
    for (QDomElement child = parent.firstChildElement(name); !child.isNull();
         child = child.nextSiblingElement(name))
        use(child);
}

/// Appends {key: name} to record[array] for each `type` of the element's child `types`.
void readTypes(const QDomElement& element, cJsonValue& record, const char* array, const char* key)
{
    forEachChild(element.firstChildElement(QStringLiteral("types")), QStringLiteral("type"),
        [&](const QDomElement& type) {
            cJsonValue entry;
            entry[key] = text(type, "name");
            record[array].append(entry);
        });
}

cJsonValue readPoint(const QDomElement& point)
{
    cJsonValue record;
    record["x"] = integer(point, "x");
    record["y"] = integer(point, "y");
    return record;
}

cJsonValue readMState(const QDomElement& mstate)
{
    cJsonValue record;
    record["id"] = text(mstate, "id");
    record["normal_image"] = text(mstate, "imageNormal");
    record["hover_image"] = text(mstate, "imageHover");
    record["on_image"] = text(mstate, "imageOn");
    record["top"] = integer(mstate, "top");
    record["left"] = integer(mstate, "left");
    return record;
}

cJsonValue readPulseGlow(const QDomElement& glow)
{
    cJsonValue record;
    record["pulse_glow_image"] = text(glow, "image");
    record["pulse_glow_image_x"] = integer(glow, "x");
    record["pulse_glow_image_y"] = integer(glow, "y");
    readTypes(glow, record, "pulse_glow_image_types", "type");
    return record;
}

/// The polygon and its bounds.
void readPoints(const QDomElement& points, cJsonValue& control)
{
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;
    // The bounds start at the first point, so that a polygon away from the origin is not stretched to it.
    const QDomElement first = points.firstChildElement(QStringLiteral("point"));
    if (!first.isNull()) {
        left = right = integer(first, "x");
        top = bottom = integer(first, "y");
    }
    forEachChild(points, QStringLiteral("point"), [&](const QDomElement& element) {
        const cJsonValue point = readPoint(element);
        control["points"].append(point);
        left = qMin(left, point["x"].toInt());
        right = qMax(right, point["x"].toInt());
        top = qMin(top, point["y"].toInt());
        bottom = qMax(bottom, point["y"].toInt());
    });
    control["x"] = double(left);
    control["y"] = double(top);
    control["polywidth"] = double(right) - left;
    control["polyheight"] = double(bottom) - top;
}

void readPixmap(const QDomElement& pixmap, cJsonValue& control)
{
    control["pixmapPath"] = text(pixmap, "image");
    control["outlinePath"] = text(pixmap, "outline");
    control["pixmap_offset_x"] = integer(pixmap, "x");
    control["pixmap_offset_y"] = integer(pixmap, "y");
}

void readGenericAssignment(const QDomElement& generic, cJsonValue& control)
{
    control["generic_assignment_type"] = text(generic, "type");
    control["generic_assignment_name"] = text(generic, "name");
    control["generic_assignment_required"] = flag(generic, "required");
    control["generic_assignment_hidden"] = flag(generic, "hidden");
    control["generic_assignment_cannotbeunassigned"] = flag(generic, "cannotbeunassigned");
}

void readAssignmentLabel(const QDomElement& label, cJsonValue& control)
{
    control["assignment_label_x"] = integer(label, "x");
    control["assignment_label_y"] = integer(label, "y");
    control["assignment_label_w_min"] = integer(label, "min_width");
    control["assignment_label_w_max"] = integer(label, "max_width");
    const QDomElement line = label.firstChildElement(QStringLiteral("connect_line"));
    if (line.isNull())
        return;
    control["assignment_label_line_x1"] = integer(line, "x1");
    control["assignment_label_line_y1"] = integer(line, "y1");
    control["assignment_label_line_x2"] = integer(line, "x2");
    control["assignment_label_line_y2"] = integer(line, "y2");
}

cJsonValue readControl(const QDomElement& element)
{
    cJsonValue control;
    control["control_id"] = text(element, "id");
    const auto child = [&](const char* name) {
        return element.firstChildElement(QLatin1String(name));
    };
    if (const QDomElement points = child("points"); !points.isNull())
        readPoints(points, control);
    if (const QDomElement pixmap = child("pixmap"); !pixmap.isNull())
        readPixmap(pixmap, control);
    if (const QDomElement generic = child("generic_assignment"); !generic.isNull())
        readGenericAssignment(generic, control);
    readTypes(element, control, "control_types", "control_type");
    // Of the points of the context button only the first counts; readers take element 0 of the array.
    const QDomElement button = child("context_button").firstChildElement(QStringLiteral("point"));
    if (!button.isNull())
        control["context_button"].append(readPoint(button));
    if (const QDomElement label = child("assignment_label"); !label.isNull())
        readAssignmentLabel(label, control);
    return control;
}

void readBindingMetadata(const QDomElement& element, cJsonValue& record)
{
    record["view_id"] = text(element, "viewid");
    const QDomElement transform = element.firstChildElement(QStringLiteral("transform"));
    if (!transform.isNull()) {
        record["scale"] = text(transform, "scale").toDouble();
        record["pos_x"] = integer(transform, "x");
        record["pos_y"] = integer(transform, "y");
    }
    forEachChild(element.firstChildElement(QStringLiteral("mstates")), QStringLiteral("mstate"),
        [&](const QDomElement& mstate) { record["mstates"].append(readMState(mstate)); });
    forEachChild(element.firstChildElement(QStringLiteral("pulseGlows")), QStringLiteral("pulseGlow"),
        [&](const QDomElement& glow) { record["pulseGlows"].append(readPulseGlow(glow)); });
    // From the first `control` on, every element is a control, whatever its name.
    const QDomElement controls = element.firstChildElement(QStringLiteral("controls"));
    for (QDomElement control = controls.firstChildElement(QStringLiteral("control")); !control.isNull();
         control = control.nextSiblingElement())
        record["hotspots"].append(readControl(control));
}

} // namespace

cJsonValue cMacroBindingView::readDeviceMetadata(const QString& deviceModel) const
{
    const QDomElement manifest = cDevMgr().metaData(deviceModel);
    cJsonValue record;
    record["device_model"] = text(manifest, "model");
    record["profiler"]["category"] = text(manifest.firstChildElement(QStringLiteral("profiler")), "category");
    const QDomElement binding = manifest.firstChildElement(QStringLiteral("macrobindingmetadata"));
    if (!binding.isNull())
        readBindingMetadata(binding, record);
    return record;
}
