#include "KeySheet.h"

#include <ModeNames.h>

#include <QMap>

#include <algorithm>
#include <optional>

namespace {

/// From the place of a label in the manifest to the edges of its box, and what the box is wider than its
/// text.
constexpr qreal LabelRise = 14.0;
constexpr qreal LabelDrop = 5.0;
constexpr qreal LabelFrame = 10.0;
/// Lines are drawn this far above the numbers of the manifest.
constexpr qreal LineLift = 6.0;

qreal number(const QDomElement& element, const char* name)
{
    return element.attribute(QLatin1String(name)).toDouble();
}

QDomElement child(const QDomElement& parent, const char* name)
{
    return parent.firstChildElement(QLatin1String(name));
}

/// The control elements of the manifest by their context ids.
QMap<QString, QDomElement> controlsById(const QDomElement& binding)
{
    QMap<QString, QDomElement> controls;
    for (QDomElement control = child(child(binding, "controls"), "control"); !control.isNull();
         control = control.nextSiblingElement(QStringLiteral("control")))
        controls[control.attribute(QStringLiteral("id"))] = control;
    return controls;
}

QStringList idsInOrder(const QDomElement& binding)
{
    QStringList ids;
    for (QDomElement control = child(child(binding, "controls"), "control"); !control.isNull();
         control = control.nextSiblingElement(QStringLiteral("control")))
        ids.append(control.attribute(QStringLiteral("id")));
    return ids;
}

std::optional<KeySheet::Label> labelOf(const QDomElement& control)
{
    const QDomElement place = child(control, "assignment_label");
    if (place.isNull())
        return std::nullopt;
    KeySheet::Label label;
    label.contextId = control.attribute(QStringLiteral("id"));
    label.box = QRectF(number(place, "x"), number(place, "y") - LabelRise,
        number(place, "max_width") + LabelFrame, LabelRise + LabelDrop);
    const QDomElement line = child(place, "connect_line");
    if (!line.isNull())
        label.line = QLineF(number(line, "x1"), number(line, "y1") - LineLift, number(line, "x2"),
            number(line, "y2") - LineLift);
    return label;
}

QString commandName(const Profile& profile, const QString& macroId)
{
    const auto found =
        std::find_if(profile.macros.begin(), profile.macros.end(), [&](const cJsonValue& macro) {
            return macro["uid"].toString().compare(macroId, Qt::CaseInsensitive) == 0;
        });
    if (found == profile.macros.end())
        return QString();
    const QString name = (*found)["display_name"].toString();
    return name.isEmpty() ? (*found)["name"].toString() : name;
}

} // namespace

KeySheet KeySheet::make(
    const Profile& profile, const QString& category, const QStringList& keys, const QDomElement& manifest)
{
    const QDomElement presentation = child(manifest, "presentation");
    const QDomElement binding = child(manifest, "macrobindingmetadata");
    const QDomElement transform = child(binding, "transform");
    const QMap<QString, QDomElement> controls = controlsById(binding);

    KeySheet sheet;
    sheet.profileName = profile.name();
    sheet.description = profile.properties["description"].toString();
    sheet.deviceName = presentation.attribute(QStringLiteral("name"), category);
    sheet.picturePath = presentation.attribute(QStringLiteral("picture"));
    sheet.picturePosition = {number(transform, "x"), number(transform, "y")};
    if (const qreal scale = number(transform, "scale"); scale > 0.0)
        sheet.pictureScale = scale;

    QStringList ids = keys.isEmpty() ? idsInOrder(binding) : keys;
    for (const auto& [control, macroId] : profile.assignments) {
        if (keys.isEmpty() && control.category == category && !ids.contains(control.contextId))
            ids.append(control.contextId);
    }
    for (const QString& id : qAsConst(ids)) {
        if (const auto label = labelOf(controls.value(id)))
            sheet.labels.append(*label);
    }
    QList<QPair<QString, MKey::MKey_t>> modes;
    for (QDomElement mode = child(child(binding, "mstates"), "mstate"); !mode.isNull();
         mode = mode.nextSiblingElement(QStringLiteral("mstate"))) {
        const QString name = mode.attribute(QStringLiteral("id"));
        if (const auto state = ModeNames::parse(name))
            modes.append({name, *state});
    }
    if (modes.isEmpty())
        modes.append({QString(), MKey::M1});
    for (const auto& [modeName, state] : qAsConst(modes)) {
        Mode mode {modeName, {}};
        for (const QString& id : qAsConst(ids)) {
            const QString name = controls.value(id).attribute(QStringLiteral("name"));
            const QString keyName = name.isEmpty() || name == id ? id : id + QStringLiteral("  ") + name;
            const auto assigned = profile.assignments.find({category, state, id});
            const QString command =
                assigned == profile.assignments.end() ? QString() : commandName(profile, assigned->second);
            mode.rows.append({id, keyName, command});
        }
        sheet.modes.append(mode);
    }
    return sheet;
}
