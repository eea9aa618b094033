#include "cLaunchType.h"

#include "cLaunchEditor.h"
#include "MacroTypeIds.h"

#include <utility>

namespace {

const RecordFields LaunchFields {{"path", RecordField::Kind::Text, true},
    {"arguments", RecordField::Kind::Text, false}, {"folder", RecordField::Kind::Text, false}};

} // namespace

cLaunchType::cLaunchType(InputSinkPtr sink)
    : cMacroType(
        [] {
            MacroTypeTraits traits;
            traits.uid = MacroTypeIds::Launch;
            traits.displayName = tr("Launch");
            traits.icon = QLatin1String("macro_launch.png");
            traits.controlTypes = anyControl();
            traits.priority = MacroTypePriority::Launch;
            // A held key would start program after program.
            traits.isRepeatable = false;
            traits.tag = QLatin1String("launch");
            traits.fields = LaunchFields;
            return traits;
        }(),
        std::move(sink))
{ }

IMacroEditor* cLaunchType::editor(cJsonValue macroData)
{
    return new cLaunchEditor(macroData);
}

std::optional<LaunchInput> cLaunchType::fromData(const cJsonValue& data)
{
    if (!RecordXml::holds(data, LaunchFields) || data["path"].toString().isEmpty())
        return std::nullopt;
    return LaunchInput {data["path"].toString(), data["arguments"].toString(), data["folder"].toString()};
}

cJsonValue cLaunchType::toData(const LaunchInput& launch)
{
    cJsonValue data;
    data["path"] = launch.path;
    if (!launch.arguments.isEmpty())
        data["arguments"] = launch.arguments;
    if (!launch.folder.isEmpty())
        data["folder"] = launch.folder;
    return data;
}

cPlayStatePtr cLaunchType::run(const cJsonValue& data)
{
    return runOnce(fromData(data));
}
