#pragma once

#include "InputEvent.h"
#include "MacroRun.h"

#include <QString>

#include <vector>

/// A function that a fixed command carries out.
class NamedFunction
{
public:
    /// The function's name, which is also its commands' name. Plain English: it is stored, and translated
    /// where it is shown.
    const char* name;
    /// What it sends. A press without a release lasts as long as the control is pressed.
    std::vector<InputEvent> events;
    MacroRun::Until until;
    /// The keys that it stands for, by name; empty if it stands for none.
    QString keys;
};

using NamedFunctionList = std::vector<NamedFunction>;

/// The functions of the three fixed types, in the order in which people look for them.
namespace NamedFunctions {

const NamedFunctionList& mouse();
const NamedFunctionList& media();
const NamedFunctionList& hotkeys();

/// Null if the list has no function of that name.
const NamedFunction* find(const NamedFunctionList& functions, const QString& name);

} // namespace NamedFunctions
