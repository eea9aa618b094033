#pragma once

#include "IInputSink.h"

#include <IMacroType.h>

class IMacroTypeMgr;

/// The command types of the application.
namespace MacroTypes {

/// All types, in the order of their priorities. Their commands go to `sink`.
IMacroTypePtrList all(const InputSinkPtr& sink);

/// Registers all types; false if the manager refuses one.
bool registerAll(IMacroTypeMgr& manager, const InputSinkPtr& sink);
/// The same with a DefaultInputSink.
bool registerAll(IMacroTypeMgr& manager);

} // namespace MacroTypes
