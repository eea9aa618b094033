#pragma once

#include "InputEvent.h"

#include <memory>

/// Carries out what running commands ask for. The only door from commands to the system.
class IInputSink
{
public:
    virtual ~IInputSink() = default;

    virtual void send(const InputEvent& event) = 0;
};

using InputSinkPtr = std::shared_ptr<IInputSink>;
