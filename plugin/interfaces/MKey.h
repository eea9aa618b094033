#pragma once

#include <QMetaType>

/// The modes (M states) of a device. The number is what calls carry; texts such as "M1" come from
/// IProfiler::mKeyToString. A device without mode buttons stays in the first mode.
namespace MKey {
enum MKey_t { M1 = 0, M2 = 1, M3 = 2 };
} // namespace MKey

Q_DECLARE_METATYPE(MKey::MKey_t)
