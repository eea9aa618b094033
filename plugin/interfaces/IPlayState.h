#pragma once

#include "PlayStateTriggers.h"

#include <QSharedPointer>

/// One run of a command, from the press of its key to its end. Made by IMacroType::createPlayState.
class IPlayState
{
public:
    virtual ~IPlayState() = default;

    /// Takes the next step that the trigger allows; false when the run is over.
    virtual bool play(PlayStateTriggers::PlayStateTriggers_t trigger) = 0;

    /// Milliseconds until the step that PlayStateTriggers::Timer takes; negative while none waits.
    virtual int delay() const = 0;
};

using cPlayStatePtr = QSharedPointer<IPlayState>;

Q_DECLARE_METATYPE(cPlayStatePtr)
