#pragma once

#include <cstddef>

/// What a script may use, and how its runner ends. Shared by the runner and by who starts it.
namespace RunnerLimits {

/// Largest script, in bytes.
inline constexpr std::size_t ScriptSize = std::size_t(1024) * 1024;
/// Largest name and argument of a function that is called, in bytes each.
inline constexpr std::size_t CallSize = std::size_t(64) * 1024;
/// All that a script may hold at a time, in bytes.
inline constexpr std::size_t Memory = std::size_t(128) * 1024 * 1024;
/// All that a script may print, in bytes.
inline constexpr std::size_t Output = std::size_t(1024) * 1024;
/// Longest run, in seconds.
inline constexpr int Seconds = 10;

/// Exit codes. With Failed, the standard error holds the message, in Lua's form "script:<line>: <text>".
inline constexpr int Done = 0;
inline constexpr int Failed = 1;

/// The name that a script has in its messages.
inline constexpr char ScriptName[] = "script";

} // namespace RunnerLimits
