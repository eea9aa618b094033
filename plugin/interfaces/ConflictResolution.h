#pragma once

#include <QMetaType>

/// The user's answer to IMainUI::conflict.
namespace ConflictResolution {
enum ConflictResolution_t { Replace = 0, DoNothing = 1, Duplicate = 2 };
} // namespace ConflictResolution

Q_DECLARE_METATYPE(ConflictResolution::ConflictResolution_t)
