#include "KeyNames.h"

#include <QKeySequence>
#include <QLatin1String>
#include <QMetaEnum>
#include <QVector>

#include <algorithm>

namespace {

class ModifierName
{
public:
    Qt::KeyboardModifier modifier = Qt::NoModifier;
    int code = 0;
    QLatin1String name;
};

/// In the order in which combinations name them.
const ModifierName ModifierNames[] = {
    {Qt::ControlModifier, Qt::Key_Control, QLatin1String("Ctrl")},
    {Qt::AltModifier, Qt::Key_Alt, QLatin1String("Alt")},
    {Qt::ShiftModifier, Qt::Key_Shift, QLatin1String("Shift")},
    {Qt::MetaModifier, Qt::Key_Meta, QLatin1String("Meta")},
};
const QLatin1String KeypadPrefix("Num+");
const QLatin1String EnumPrefix("Key_");
constexpr int KeypadFlag = int(Qt::KeypadModifier);
/// All bits that a key without modifiers has.
constexpr int KeyBits = 0x01ffffff;

QMetaEnum keyEnum()
{
    return QMetaEnum::fromType<Qt::Key>();
}

int sequenceKey(const QString& name)
{
    const QKeySequence sequence = QKeySequence::fromString(name, QKeySequence::PortableText);
    return sequence.count() == 1 ? sequence[0] : 0;
}

bool isShown(const QString& name)
{
    const QVector<uint> characters = name.toUcs4();
    return !characters.isEmpty() && std::all_of(characters.begin(), characters.end(), [](uint character) {
        return QChar::isPrint(character);
    });
}

/// Without the prefix of the number block.
QString plainName(int code)
{
    for (const ModifierName& each : ModifierNames) {
        if (each.code == code)
            return each.name;
    }
    QString name = QKeySequence(code).toString(QKeySequence::PortableText);
    if (!QChar::isSurrogate(uint(code)) && isShown(name) && sequenceKey(name) == code)
        return name;
    if (const char* key = keyEnum().valueToKey(code))
        return QLatin1String(key).mid(EnumPrefix.size());
    return QLatin1Char('#') + QString::number(code, 16);
}

int plainCode(const QString& name)
{
    for (const ModifierName& each : ModifierNames) {
        if (each.name == name)
            return each.code;
    }
    // A name counts as the key whose name it is, which settles the spellings that several sources know.
    const int keys[] = {sequenceKey(name), keyEnum().keyToValue((EnumPrefix + name).toLatin1().constData()),
        name.startsWith(QLatin1Char('#')) ? name.mid(1).toInt(nullptr, 16) : 0};
    for (const int code : keys) {
        if (code > 0 && (code & ~KeyBits) == 0 && plainName(code) == name)
            return code;
    }
    return 0;
}

} // namespace

namespace KeyNames {

QString toText(int code)
{
    const int plain = code & KeyBits;
    if (plain == 0)
        return QString();
    return (code & KeypadFlag ? KeypadPrefix : QLatin1String()) + plainName(plain);
}

int fromText(const QString& name)
{
    if (!name.startsWith(KeypadPrefix) || name.size() == KeypadPrefix.size())
        return plainCode(name);
    const int plain = plainCode(name.mid(KeypadPrefix.size()));
    return plain ? plain | KeypadFlag : 0;
}

QString toText(const KeyCombination& combination)
{
    QString text;
    for (const ModifierName& each : ModifierNames) {
        if (combination.modifiers & each.modifier)
            text += each.name + QLatin1Char('+');
    }
    return combination.isNull() ? QString() : text + toText(combination.key.code);
}

KeyCombination combinationFromText(const QString& text)
{
    KeyCombination combination;
    QString rest = text;
    const auto takeModifier = [&] {
        for (const ModifierName& each : ModifierNames) {
            const QString prefix = each.name + QLatin1Char('+');
            if (!rest.startsWith(prefix) || rest.size() == prefix.size())
                continue;
            combination.modifiers |= each.modifier;
            rest.remove(0, prefix.size());
            return true;
        }
        return false;
    };
    while (takeModifier()) { }
    combination.key.code = fromText(rest);
    return combination.isNull() ? KeyCombination() : combination;
}

Qt::KeyboardModifier modifierOf(int code)
{
    for (const ModifierName& each : ModifierNames) {
        if (each.code == code)
            return each.modifier;
    }
    return Qt::NoModifier;
}

int keyOf(Qt::KeyboardModifier modifier)
{
    for (const ModifierName& each : ModifierNames) {
        if (each.modifier == modifier)
            return each.code;
    }
    return 0;
}

} // namespace KeyNames
