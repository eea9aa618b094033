#pragma once

#include <QMetaType>
#include <QString>
#include <QtGlobal>

/// A key of a keyboard.
class Key
{
public:
    /// The key, a Qt::Key, together with Qt::KeypadModifier for a key of the number block; 0 for none.
    int code = 0;
    /// The key's number as its keyboard driver gives it, which tells left from right; 0 if it is not known.
    quint32 scanCode = 0;

    bool isNull() const { return code == 0; }
    friend bool operator==(const Key& a, const Key& b)
    {
        return a.code == b.code && a.scanCode == b.scanCode;
    }
};

/// A key with the modifiers that are held with it. The key may be a modifier itself.
class KeyCombination
{
public:
    /// Shift, Ctrl, Alt and Meta.
    Qt::KeyboardModifiers modifiers;
    Key key;

    bool isNull() const { return key.isNull(); }
    friend bool operator==(const KeyCombination& a, const KeyCombination& b)
    {
        return a.modifiers == b.modifiers && a.key == b.key;
    }
};

/// The names of keys, the same in every language: QKeySequence's portable names, and for the keys that it has
/// none for, Qt's own ("Num+Enter", "Shift", "F13", "Dead_Acute", "#1001abc").
namespace KeyNames {

inline constexpr Qt::KeyboardModifiers Modifiers =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

QString toText(int code);
/// 0 if no key has that name.
int fromText(const QString& name);

/// As in "Ctrl+Shift+A".
QString toText(const KeyCombination& combination);
/// Null if the text names no combination. The scan code is 0.
KeyCombination combinationFromText(const QString& text);

/// The modifier that the key is while it is held; none for other keys.
Qt::KeyboardModifier modifierOf(int code);
/// The key that stands for one modifier.
int keyOf(Qt::KeyboardModifier modifier);

} // namespace KeyNames

Q_DECLARE_METATYPE(Key)
