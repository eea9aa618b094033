#include "JsonKeys.h"

#include <QByteArray>

#include <array>
#include <string_view>

namespace {

struct Key
{
    QByteArray utf8;
    QString text;
};

/// Far more than there are keys with a meaning.
constexpr std::size_t Places = 256;

} // namespace

namespace JsonKeys {

const QString& text(const char* utf8)
{
    if (!utf8)
        utf8 = "";
    // A key whose place is taken by another one takes it over, so whatever the keys are, the table does not
    // grow.
    static thread_local std::array<Key, Places> keys;
    Key& key = keys[std::hash<std::string_view>()(utf8) % Places];
    if (key.utf8.isNull() || key.utf8 != utf8) {
        key.utf8 = utf8;
        key.text = QString::fromUtf8(utf8);
    }
    return key.text;
}

} // namespace JsonKeys
