#pragma once

#include "IInputSink.h"

/// The sink for systems on which nothing can press keys for the user.
///
/// It starts programs and opens files. Everything else it only reports, as one line to the logging category
/// "veltrano.input", which is silent unless it is switched on (QT_LOGGING_RULES="veltrano.input.debug=true"):
/// no key, button, text or script reaches any program. An application that can do so gives the command types
/// a sink of its own.
class DefaultInputSink : public IInputSink
{
public:
    void send(const InputEvent& event) override;
};
