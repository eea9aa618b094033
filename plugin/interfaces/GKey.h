#pragma once

#include <QMetaType>

/// The programmable keys by number: key "G1" is 1, "G2" is 2 and so on.
namespace GKey {
enum GKey_t {
    None = 0,
    First = 1,
    /// The stick's group: four directions and the press, which share one stick command.
    StickFirst = 25,
    StickLast = 29,
    Last = 29
};
} // namespace GKey

Q_DECLARE_METATYPE(GKey::GKey_t)
