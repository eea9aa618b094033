#include "ModeNames.h"

namespace ModeNames {

QString toText(MKey::MKey_t mode)
{
    return QStringLiteral("M%1").arg(int(mode) + 1);
}

MKey::MKey_t fromText(const QString& text)
{
    for (int i = 0; i < Count; ++i) {
        const auto mode = MKey::MKey_t(i);
        if (text == toText(mode))
            return mode;
    }
    return MKey::M1;
}

} // namespace ModeNames
