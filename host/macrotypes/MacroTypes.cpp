#include "MacroTypes.h"

#include "cFunctionType.h"
#include "cKeystrokeType.h"
#include "cLaunchType.h"
#include "cMultiKeyType.h"
#include "cScriptType.h"
#include "cStickType.h"
#include "cTextBlockType.h"
#include "DefaultInputSink.h"

#include <IMacroTypeMgr.h>

namespace MacroTypes {

IMacroTypePtrList all(const InputSinkPtr& sink)
{
    return {
        cMacroTypePtr(new cKeystrokeType(sink)),
        cMacroTypePtr(new cMultiKeyType(sink)),
        cMacroTypePtr(new cTextBlockType(sink)),
        cFunctionType::mouse(sink),
        cFunctionType::media(sink),
        cFunctionType::hotkeys(sink),
        cMacroTypePtr(new cLaunchType(sink)),
        cMacroTypePtr(new cScriptType(sink)),
        cMacroTypePtr(new cStickType(StickInput::Use::Mouse, sink)),
        cMacroTypePtr(new cStickType(StickInput::Use::Joystick, sink)),
    };
}

bool registerAll(IMacroTypeMgr& manager, const InputSinkPtr& sink)
{
    bool isComplete = true;
    for (const cMacroTypePtr& type : all(sink))
        isComplete = manager.registerMacroType(type) && isComplete;
    return isComplete;
}

bool registerAll(IMacroTypeMgr& manager)
{
    return registerAll(manager, std::make_shared<DefaultInputSink>());
}

} // namespace MacroTypes
