#pragma once

#include "cMacroType.h"

#include <optional>

/// Commands that start a program or open a file.
///
/// `data`: `path`, and optionally `arguments` and `folder`; see LaunchInput.
class cLaunchType : public cMacroType
{
    Q_OBJECT

public:
    explicit cLaunchType(InputSinkPtr sink);

    IMacroEditor* editor(cJsonValue macroData) override;

    static std::optional<LaunchInput> fromData(const cJsonValue& data);
    static cJsonValue toData(const LaunchInput& launch);

protected:
    cPlayStatePtr run(const cJsonValue& data) override;
};
