#include "cKeystrokeType.h"

#include "cKeystrokeEditor.h"
#include "MacroRun.h"
#include "MacroTypeIds.h"

#include <utility>

namespace {

const RecordFields Fields {
    {"keys", RecordField::Kind::Text, true}, {"scancode", RecordField::Kind::Number, false}};

} // namespace

cKeystrokeType::cKeystrokeType(InputSinkPtr sink)
    : cMacroType(
        [] {
            MacroTypeTraits traits;
            traits.uid = MacroTypeIds::Keystroke;
            traits.displayName = tr("Keystroke");
            traits.icon = QLatin1String("macro_keystroke.png");
            traits.controlTypes = anyControl();
            traits.priority = MacroTypePriority::Keystroke;
            traits.tag = QLatin1String("keystroke");
            traits.fields = Fields;
            return traits;
        }(),
        std::move(sink))
{ }

IMacroEditor* cKeystrokeType::editor(cJsonValue macroData)
{
    return new cKeystrokeEditor(macroData);
}

std::optional<KeyCombination> cKeystrokeType::fromData(const cJsonValue& data)
{
    if (!RecordXml::holds(data, Fields) || data["scancode"].toInt() < 0)
        return std::nullopt;
    KeyCombination combination = KeyNames::combinationFromText(data["keys"].toString());
    combination.key.scanCode = quint32(data["scancode"].toInt());
    return combination.isNull() ? std::nullopt : std::optional(combination);
}

cJsonValue cKeystrokeType::toData(const KeyCombination& combination)
{
    cJsonValue data;
    data["keys"] = KeyNames::toText(combination);
    if (combination.key.scanCode)
        data["scancode"] = int(combination.key.scanCode);
    return data;
}

cPlayStatePtr cKeystrokeType::run(const cJsonValue& data)
{
    const std::optional<KeyCombination> combination = fromData(data);
    if (!combination)
        return {};
    return cPlayStatePtr(
        new MacroRun(sink(), InputEvents::pressesOf(*combination), MacroRun::Until::Released));
}
