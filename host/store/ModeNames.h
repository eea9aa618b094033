#pragma once

#include <MKey.h>

#include <QString>

/// M states as text: "M1" and so on, the form of manifests, documents and mode buttons.
namespace ModeNames {

/// Number of M states.
constexpr int Count = 3;

QString toText(MKey::MKey_t mode);

/// The first state for a text that names none.
MKey::MKey_t fromText(const QString& text);

} // namespace ModeNames
