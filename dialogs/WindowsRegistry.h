#pragma once

#include <optional>
#include <string>

/// Reads the registry of a Windows system. Free of Qt, so that it can be built and run without it.
namespace WindowsRegistry {

/// The two faces of the registry on a 64-bit system. The numbers are access flags.
enum class View : unsigned { Native = 0, Bits32 = 512 };

/// The text of a value under a key that begins with "HKEY_LOCAL_MACHINE\" or "HKEY_CURRENT_USER\"; nothing if
/// there is none or if it is longer than 260 characters. Data of another type are read as if they were text.
std::optional<std::wstring> readText(const std::wstring& key, const std::wstring& value, View view);

} // namespace WindowsRegistry
