#pragma once

#include "cMacroType.h"
#include "NamedFunctions.h"

/// One of the three fixed types: its commands are functions out of a list and known by their names.
///
/// `data`: `function`, the name. Other applications' functions keep their names and do nothing here.
class cFunctionType : public cMacroType
{
    Q_OBJECT

public:
    IMacroEditor* editor(cJsonValue macroData) override;

    static cMacroTypePtr mouse(const InputSinkPtr& sink);
    static cMacroTypePtr media(const InputSinkPtr& sink);
    static cMacroTypePtr hotkeys(const InputSinkPtr& sink);

protected:
    cPlayStatePtr run(const cJsonValue& data) override;

private:
    cFunctionType(const MacroTypeTraits& traits, const NamedFunctionList& functions, QLatin1String helpTopic,
        const InputSinkPtr& sink);

    const NamedFunctionList& m_functions;
    QLatin1String m_helpTopic;
};
