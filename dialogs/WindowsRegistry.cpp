#include "WindowsRegistry.h"

#include <windows.h>

#include <array>

namespace {

/// The longest text that is read, in characters.
constexpr std::size_t MaxLength = 260;
constexpr REGSAM ReadAccess = 0x20019;

/// The root that a key names; null for an unknown one.
HKEY rootOf(const std::wstring& key)
{
    const auto startsWith = [&key](const wchar_t* root) {
        return key.rfind(root, 0) == 0;
    };
    if (startsWith(L"HKEY_LOCAL_MACHINE\\"))
        return HKEY_LOCAL_MACHINE;
    if (startsWith(L"HKEY_CURRENT_USER\\"))
        return HKEY_CURRENT_USER;
    return nullptr;
}

} // namespace

namespace WindowsRegistry {

std::optional<std::wstring> readText(const std::wstring& key, const std::wstring& value, View view)
{
    const HKEY root = rootOf(key);
    if (root == nullptr)
        return std::nullopt;
    const std::wstring subkey = key.substr(key.find(L'\\') + 1);
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, subkey.c_str(), 0, ReadAccess | static_cast<REGSAM>(view), &opened)
        != ERROR_SUCCESS)
        return std::nullopt;
    // The registry keeps texts as they were written to it, with or without a zero at their end.
    std::array<wchar_t, MaxLength + 1> text {};
    DWORD size = MaxLength * sizeof(wchar_t);
    const LSTATUS status = RegQueryValueExW(
        opened, value.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size);
    RegCloseKey(opened);
    if (status != ERROR_SUCCESS)
        return std::nullopt;
    return std::wstring(text.data());
}

} // namespace WindowsRegistry
