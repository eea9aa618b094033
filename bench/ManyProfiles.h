#pragma once

#include <MacroTypeLookup.h>
#include <Profile.h>

#include <QString>

/// The profiles of a heavy user, to measure with.
namespace ManyProfiles {

constexpr int DefaultProfiles = 200;
constexpr int DefaultCommands = 200;

/// Of a profile with the number 0, of its commands with those from 1.
QString uid(int profile, int number);

/// A profile with so many multi-key commands of four events each, all of them on keys.
Profile make(int number, int commands);

/// A control of the profiles.
ControlKey control(int number);

/// The types of the application.
MacroTypeLookup types();

/// Writes so many profiles into a folder, as the application would.
void write(const QString& folder, int profiles, int commands);

} // namespace ManyProfiles
