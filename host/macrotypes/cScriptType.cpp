#include "cScriptType.h"

#include "cScriptEditor.h"
#include "MacroTypeIds.h"

#include <QRegularExpression>

#include <utility>

namespace {

const RecordFields ScriptFields {
    {"function", RecordField::Kind::Text, true}, {"argument", RecordField::Kind::Text, false}};

} // namespace

cScriptType::cScriptType(InputSinkPtr sink)
    : cMacroType(
        [] {
            MacroTypeTraits traits;
            traits.uid = MacroTypeIds::Script;
            traits.displayName = tr("Script");
            traits.icon = QLatin1String("macro_script.png");
            traits.controlTypes = anyControl();
            traits.priority = MacroTypePriority::Script;
            traits.tag = QLatin1String("script");
            traits.fields = ScriptFields;
            return traits;
        }(),
        std::move(sink))
{ }

IMacroEditor* cScriptType::editor(cJsonValue macroData)
{
    return new cScriptEditor(macroData);
}

std::optional<ScriptInput> cScriptType::fromData(const cJsonValue& data)
{
    if (!RecordXml::holds(data, ScriptFields) || !isFunctionName(data["function"].toString()))
        return std::nullopt;
    return ScriptInput {data["function"].toString(), data["argument"].toString()};
}

cJsonValue cScriptType::toData(const ScriptInput& call)
{
    cJsonValue data;
    data["function"] = call.function;
    if (!call.argument.isEmpty())
        data["argument"] = call.argument;
    return data;
}

bool cScriptType::isFunctionName(const QString& name)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_]*(\\.[A-Za-z_][A-Za-z0-9_]*)*\\z"));
    return pattern.match(name).hasMatch();
}

cPlayStatePtr cScriptType::run(const cJsonValue& data)
{
    return runOnce(fromData(data));
}
