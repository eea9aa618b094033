#pragma once

#include "cMacroType.h"
#include "KeyNames.h"

#include <optional>

/// Commands that press a combination of keys and hold it as long as the control is pressed.
///
/// `data`: `keys`, a combination by name ("Ctrl+Shift+A"), and optionally `scancode`, its key's number.
class cKeystrokeType : public cMacroType
{
    Q_OBJECT

public:
    explicit cKeystrokeType(InputSinkPtr sink);

    IMacroEditor* editor(cJsonValue macroData) override;

    static std::optional<KeyCombination> fromData(const cJsonValue& data);
    static cJsonValue toData(const KeyCombination& combination);

protected:
    cPlayStatePtr run(const cJsonValue& data) override;
};
