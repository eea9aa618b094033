#pragma once

#include <QMetaType>

/// What makes a running command take its next step.
namespace PlayStateTriggers {
enum PlayStateTriggers_t { Pressed = 0, Released = 1, Timer = 2, Aborted = 3 };
} // namespace PlayStateTriggers

Q_DECLARE_METATYPE(PlayStateTriggers::PlayStateTriggers_t)
