#pragma once

#include <QString>

/// The keys of records. There are few different ones, each used over and over and kept in thousands of
/// records.
namespace JsonKeys {

/// The text of a key that is given in UTF-8, shared with earlier ones that were the same. The reference is
/// good until the thread's next call.
const QString& text(const char* utf8);

} // namespace JsonKeys
