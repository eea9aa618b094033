#pragma once

#include "cMacroType.h"

#include <optional>

/// Commands that call a function of the profile's script.
///
/// `data`: `function`, its name, and optionally `argument`, a text that it is called with.
class cScriptType : public cMacroType
{
    Q_OBJECT

public:
    explicit cScriptType(InputSinkPtr sink);

    IMacroEditor* editor(cJsonValue macroData) override;

    static std::optional<ScriptInput> fromData(const cJsonValue& data);
    static cJsonValue toData(const ScriptInput& call);
    /// True for what a script can call: names of letters, digits and underscores, joined by points.
    static bool isFunctionName(const QString& name);

protected:
    cPlayStatePtr run(const cJsonValue& data) override;
};
