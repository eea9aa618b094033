#pragma once

#include <cJsonValue.h>

#include <QString>

/// Commands of the application's types, as a user could have made them.
namespace SampleCommands {

/// `data` of a command of the type.
cJsonValue data(const QString& typeId);

/// A command record under that uid.
cJsonValue record(const QString& typeId, const QString& uid, const QString& name);

} // namespace SampleCommands
