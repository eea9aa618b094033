// Runs on Windows: writes values of all kinds to the registry, asks WindowsRegistry for them, and fails if it
// answers anything else than what a value holds. Prints each question with its answer, as
//
//     <root>|<key>|<value>|<view>|<the characters in hexadecimal numbers, or "none">
//
// so that other readers of the same registry can be held against it.

#include <WindowsRegistry.h>

#include <windows.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

using WindowsRegistry::readText;
using WindowsRegistry::View;

namespace {

int failures = 0;

std::string plain(const std::wstring& text)
{
    std::string result;
    for (const wchar_t character : text)
        result += static_cast<char>(character);
    return result;
}

std::string numbers(const std::optional<std::wstring>& text)
{
    if (!text)
        return "none";
    std::string result;
    char number[8];
    for (const wchar_t character : *text) {
        std::snprintf(number, sizeof number, "%04x", static_cast<unsigned>(character));
        result += number;
    }
    return result;
}

/// Writes bytes, which may be any.
void write(HKEY root, const std::wstring& key, const std::wstring& value, REGSAM view, DWORD type,
    const void* data, std::size_t size)
{
    HKEY opened = nullptr;
    if (RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS | view, nullptr, &opened, nullptr)
            != ERROR_SUCCESS
        || RegSetValueExW(
               opened, value.c_str(), 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size))
            != ERROR_SUCCESS) {
        std::printf("can't write %s\n", plain(key).c_str());
        ++failures;
    }
    RegCloseKey(opened);
}

/// Writes a text with the zero at its end.
void write(HKEY root, const std::wstring& key, const std::wstring& value, REGSAM view,
    const std::wstring& text, DWORD type = REG_SZ)
{
    write(root, key, value, view, type, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

void expect(const std::wstring& root, const std::wstring& key, const std::wstring& value, View view,
    const std::optional<std::wstring>& expected)
{
    const std::optional<std::wstring> text = readText(root + L"\\" + key, value, view);
    std::printf("%s|%s|%s|%u|%s\n", plain(root).c_str(), plain(key).c_str(), plain(value).c_str(),
        static_cast<unsigned>(view), numbers(text).c_str());
    if (text != expected) {
        std::printf("expected %s\n", numbers(expected).c_str());
        ++failures;
    }
}

} // namespace

int main()
{
    const std::wstring machine = L"HKEY_LOCAL_MACHINE";
    const std::wstring user = L"HKEY_CURRENT_USER";
    const std::wstring key = L"Software\\Veltrano Test\\Game";

    // The two views, which only the machine's half of the registry tells apart.
    write(HKEY_LOCAL_MACHINE, key, L"Both", KEY_WOW64_64KEY, L"C:\\Games\\64");
    write(HKEY_LOCAL_MACHINE, key, L"Both", KEY_WOW64_32KEY, L"C:\\Games\\32");
    write(HKEY_LOCAL_MACHINE, key, L"Native", KEY_WOW64_64KEY, L"C:\\Games\\64");
    write(HKEY_LOCAL_MACHINE, key, L"Other", KEY_WOW64_32KEY, L"C:\\Games\\32");
    expect(machine, key, L"Both", View::Native, L"C:\\Games\\64");
    expect(machine, key, L"Both", View::Bits32, L"C:\\Games\\32");
    expect(machine, key, L"Native", View::Native, L"C:\\Games\\64");
    expect(machine, key, L"Native", View::Bits32, std::nullopt);
    expect(machine, key, L"Other", View::Native, std::nullopt);
    expect(machine, key, L"Other", View::Bits32, L"C:\\Games\\32");
    write(HKEY_CURRENT_USER, key, L"Own", 0, L"C:\\Games\\Own");
    expect(user, key, L"Own", View::Native, L"C:\\Games\\Own");
    expect(machine, key, L"Own", View::Native, std::nullopt);
    expect(user, key, L"Both", View::Native, std::nullopt);

    // Names.
    expect(machine, L"SOFTWARE\\veltrano TEST\\GAME", L"bOTH", View::Native, L"C:\\Games\\64");
    expect(machine, key + L"s", L"Both", View::Native, std::nullopt);
    expect(machine, L"Software\\Veltrano Test", L"Both", View::Native, std::nullopt);
    expect(machine, key, L"Neither", View::Native, std::nullopt);
    expect(machine, key, L"", View::Native, std::nullopt);
    write(HKEY_LOCAL_MACHINE, key, L"", KEY_WOW64_64KEY, L"C:\\Games\\Default");
    expect(machine, key, L"", View::Native, L"C:\\Games\\Default");
    expect(L"hkey_local_machine", key, L"Both", View::Native, std::nullopt);
    expect(L"HKLM", key, L"Both", View::Native, std::nullopt);
    expect(L"HKEY_USERS", key, L"Both", View::Native, std::nullopt);
    expect(L"", key, L"Both", View::Native, std::nullopt);
    const std::wstring odd = L"Software\\Veltrano Test\\[Odd] \"Name\" = @";
    write(HKEY_LOCAL_MACHINE, odd, L"a\"b]=c", KEY_WOW64_64KEY, L"C:\\Odd");
    expect(machine, odd, L"A\"B]=C", View::Native, L"C:\\Odd");

    // Texts and what is read as one.
    const auto text = [&](const wchar_t* name, const std::wstring& content,
                          const std::optional<std::wstring>& expected, DWORD type = REG_SZ) {
        write(HKEY_LOCAL_MACHINE, key, name, KEY_WOW64_64KEY, content, type);
        expect(machine, key, name, View::Native, expected);
    };
    text(L"Empty", L"", L"");
    text(L"Quoted", L"\"C:\\Games\"", L"\"C:\\Games\"");
    text(L"Letters",
        L"C:\\Jeu\x00e9\x0416\x30b2\xd83c\xdfae"
        L"5f",
        L"C:\\Jeu\x00e9\x0416\x30b2\xd83c\xdfae"
        L"5f");
    text(L"Controls",
        L"a\tb\nc\x01"
        L"7d\x7f",
        L"a\tb\nc\x01"
        L"7d\x7f");
    text(L"Expanded", L"%ProgramFiles%\\Game", L"%ProgramFiles%\\Game", REG_EXPAND_SZ);
    text(L"Several", std::wstring(L"C:\\One\0C:\\Two\0", 14), L"C:\\One", REG_MULTI_SZ);
    text(L"Longest", std::wstring(259, L'x'), std::wstring(259, L'x'));
    text(L"Too long", std::wstring(260, L'x'), std::nullopt);

    const auto bytes = [&](const wchar_t* name, const std::wstring& content,
                           const std::optional<std::wstring>& expected, DWORD type) {
        write(HKEY_LOCAL_MACHINE, key, name, KEY_WOW64_64KEY, type, content.data(),
            content.size() * sizeof(wchar_t));
        expect(machine, key, name, View::Native, expected);
    };
    bytes(L"No zero", L"C:\\Games", L"C:\\Games", REG_SZ);
    bytes(L"No zero, too long", std::wstring(261, L'x'), std::nullopt, REG_SZ);
    bytes(L"Nothing", L"", L"", REG_SZ);
    bytes(L"Bytes", L"C:\\Bytes", L"C:\\Bytes", REG_BINARY);
    bytes(L"Bytes, longest", std::wstring(260, L'x'), std::wstring(260, L'x'), REG_BINARY);
    bytes(L"Bytes, too long", std::wstring(261, L'x'), std::nullopt, REG_BINARY);
    bytes(L"No type", L"C:\\None", L"C:\\None", REG_NONE);

    // For who looks for the game itself.
    write(HKEY_LOCAL_MACHINE, L"Software\\Veltrano Test\\Installed", L"Dir", KEY_WOW64_32KEY,
        L"C:\\GAMES\\Installed Game");

    std::printf("%d failures\n", failures);
    return failures == 0 ? 0 : 1;
}
