#pragma once

#include "cJsonValue.h"
#include "VHFSExport.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace HVS {

/// Deepest nesting of arrays and objects that fromJsonText() accepts.
constexpr int MaxJsonDepth = 512;

/// The value as JSON text in UTF-8, members in the order of their keys. Integers are written without, reals
/// with a fraction or an exponent. A real that is not finite is written as null, half of a surrogate pair as
/// a question mark. There is no limit to the nesting, but fromJsonText() reads no more than MaxJsonDepth
/// levels.
VHFS_EXPORT QByteArray toJsonText(const cJsonValue& value, bool indented = false);

/// Reads JSON text in UTF-8. On an error returns false, leaves `value` as it was and describes the error,
/// with its line and column, in `error` if that is given. An integer beyond 64 bits is read as a real. Of a
/// key that stands twice in an object the last value counts.
VHFS_EXPORT bool fromJsonText(const QByteArray& text, cJsonValue& value, QString* error = nullptr);

/// The keys of an object, sorted; empty for all other types.
VHFS_EXPORT QStringList jsonKeys(const cJsonValue& value);

} // namespace HVS
