#include "cFunctionType.h"

#include "cFunctionEditor.h"
#include "MacroRun.h"
#include "MacroTypeIds.h"

#include <FixedIds.h>

namespace {

MacroTypeTraits makeTraits(
    QLatin1String uid, const QString& displayName, QLatin1String icon, int priority, QLatin1String tag)
{
    MacroTypeTraits traits;
    traits.uid = uid;
    traits.displayName = displayName;
    traits.icon = icon;
    traits.controlTypes = cMacroType::anyControl();
    traits.priority = priority;
    traits.isFixedName = true;
    traits.tag = tag;
    traits.fields = {{"function", RecordField::Kind::Text, true}};
    return traits;
}

} // namespace

cFunctionType::cFunctionType(const MacroTypeTraits& traits, const NamedFunctionList& functions,
    QLatin1String helpTopic, const InputSinkPtr& sink)
    : cMacroType(traits, sink)
    , m_functions(functions)
    , m_helpTopic(helpTopic)
{ }

cMacroTypePtr cFunctionType::mouse(const InputSinkPtr& sink)
{
    return cMacroTypePtr(new cFunctionType(
        makeTraits(MacroNamespaces::MouseFunction, tr("Mouse Function"), QLatin1String("macro_mouse.png"),
            MacroTypePriority::Mouse, QLatin1String("mouse")),
        NamedFunctions::mouse(), QLatin1String("command_mouse.htm"), sink));
}

cMacroTypePtr cFunctionType::media(const InputSinkPtr& sink)
{
    return cMacroTypePtr(
        new cFunctionType(makeTraits(MacroNamespaces::Media, tr("Media"), QLatin1String("macro_media.png"),
                              MacroTypePriority::Media, QLatin1String("media")),
            NamedFunctions::media(), QLatin1String("command_media.htm"), sink));
}

cMacroTypePtr cFunctionType::hotkeys(const InputSinkPtr& sink)
{
    return cMacroTypePtr(new cFunctionType(
        makeTraits(MacroNamespaces::Hotkeys, tr("Hotkeys"), QLatin1String("macro_hotkeys.png"),
            MacroTypePriority::Hotkeys, QLatin1String("hotkey")),
        NamedFunctions::hotkeys(), QLatin1String("command_hotkeys.htm"), sink));
}

IMacroEditor* cFunctionType::editor(cJsonValue macroData)
{
    return new cFunctionEditor(traits().uid, m_helpTopic, m_functions, macroData);
}

cPlayStatePtr cFunctionType::run(const cJsonValue& data)
{
    const NamedFunction* function = RecordXml::holds(data, traits().fields)
        ? NamedFunctions::find(m_functions, data["function"].toString())
        : nullptr;
    return function ? cPlayStatePtr(new MacroRun(sink(), function->events, function->until))
                    : cPlayStatePtr();
}
