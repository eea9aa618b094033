#pragma once

#include <MKey.h>

#include <QString>

#include <optional>

/// M states as text: "M1" and so on, the form of manifests, documents and mode buttons.
namespace ModeNames {

/// Number of M states.
constexpr int Count = 3;

QString toText(MKey::MKey_t mode);

/// The first state for a text that names none.
MKey::MKey_t fromText(const QString& text);

/// The first state for an empty text; nothing for one that names no state that there is.
std::optional<MKey::MKey_t> parse(const QString& text);

/// False for a number that is no state, as a caller by name may send it.
bool isValid(MKey::MKey_t mode);

} // namespace ModeNames
