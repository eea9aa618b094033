#include "ModeNames.h"

namespace ModeNames {

QString toText(MKey::MKey_t mode)
{
    return QStringLiteral("M%1").arg(int(mode) + 1);
}

MKey::MKey_t fromText(const QString& text)
{
    return parse(text).value_or(MKey::M1);
}

std::optional<MKey::MKey_t> parse(const QString& text)
{
    if (text.isEmpty())
        return MKey::M1;
    for (int i = 0; i < Count; ++i) {
        const auto mode = MKey::MKey_t(i);
        if (text == toText(mode))
            return mode;
    }
    return std::nullopt;
}

bool isValid(MKey::MKey_t mode)
{
    return int(mode) >= 0 && int(mode) < Count;
}

} // namespace ModeNames
