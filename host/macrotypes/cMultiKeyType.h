#pragma once

#include "cMacroType.h"
#include "KeyNames.h"

#include <optional>
#include <vector>

/// A key that goes down or up in a multi-key command.
class KeyStep
{
public:
    bool isPress = true;
    Key key;
    /// Milliseconds after the step before.
    int delay = 0;

    friend bool operator==(const KeyStep& a, const KeyStep& b)
    {
        return a.isPress == b.isPress && a.key == b.key && a.delay == b.delay;
    }
};

/// Commands that press and release keys one after the other, each in its time.
///
/// `data`: `events`, an array of objects with `type` ("press" or "release"), `key` (a name), `delay` and
/// optionally `scancode`. In XML the type is the element's name.
class cMultiKeyType : public cMacroType
{
    Q_OBJECT

public:
    explicit cMultiKeyType(InputSinkPtr sink);

    IMacroEditor* editor(cJsonValue macroData) override;

    /// Nothing if some of the data is not of this type, unknown keys and times below 0 or above
    /// MacroLimits::Delay included.
    static std::optional<std::vector<KeyStep>> fromData(const cJsonValue& data);
    static cJsonValue toData(const std::vector<KeyStep>& steps);

protected:
    bool readElement(const XmlElement& element, cJsonValue& data) const override;
    bool writeElement(const cJsonValue& data, QDomElement& element) const override;
    cPlayStatePtr run(const cJsonValue& data) override;
};
