#pragma once

namespace SystemVersion {

/// Whether the operating system is Windows 7; false on every other system.
bool isWindows7();

} // namespace SystemVersion
