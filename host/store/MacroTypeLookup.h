#pragma once

#include <IMacroType.h>

#include <QString>

#include <functional>

/// The type for a command's `namespace`, or a null pointer. The store knows command types through this alone.
using MacroTypeLookup = std::function<cMacroTypePtr(const QString& macroNamespace)>;
