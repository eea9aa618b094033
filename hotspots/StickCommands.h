#pragma once

#include <FixedIds.h>
#include <GKey.h>

#include <QLatin1String>
#include <QString>
#include <QStringList>

/// A command that takes several keys of the device's stick at once.
struct StickCommand
{
    QLatin1String macroID;
    /// The first key that it occupies; the last is the stick's last.
    GKey::GKey_t firstKey {};

    bool occupies(int key) const { return key >= firstKey && key <= GKey::StickLast; }
    /// The context ids of the keys that it occupies.
    QStringList contextIDs() const
    {
        QStringList ids;
        for (int key = firstKey; key <= GKey::StickLast; ++key)
            ids.append(QLatin1Char('G') + QString::number(key));
        return ids;
    }
};

namespace StickCommands {

/// The stick's press stays free.
inline const StickCommand Mouse {FixedIds::MouseMacro, GKey::GKey_t(GKey::StickFirst + 1)};
inline const StickCommand Joystick {FixedIds::JoystickMacro, GKey::StickFirst};

/// The stick command with that uid; null for any other command.
inline const StickCommand* find(const QString& macroID)
{
    for (const StickCommand* command : {&Mouse, &Joystick}) {
        if (macroID == command->macroID)
            return command;
    }
    return nullptr;
}

} // namespace StickCommands
