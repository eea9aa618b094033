#pragma once

#include "cMacroType.h"

/// The type of one of the stick commands: the stick moves the pointer, or works as a joystick, as long as it
/// is pushed. Commands of these types have no data, and users make none; the page is empty.
class cStickType : public cMacroType
{
    Q_OBJECT

public:
    cStickType(StickInput::Use use, InputSinkPtr sink);

    IMacroEditor* editor(cJsonValue macroData) override;

protected:
    /// Nothing says what data would mean, so it stays as it is.
    bool readElement(const XmlElement& element, cJsonValue& data) const override;
    bool writeElement(const cJsonValue& data, QDomElement& element) const override;
    cPlayStatePtr run(const cJsonValue& data) override;

private:
    StickInput::Use m_use;
};
