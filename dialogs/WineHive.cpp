#include "WineHive.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// The files are lines of ASCII:
//
//     WINE REGISTRY Version 2
//     [Software\\Maker\\Game] 1400000000
//     "InstallDir"="C:\\Games\\Game"
//     "Path"=str(2):"%ProgramFiles%\\Game"
//     @=hex(1):43,00,3a,00,5c,00,00,00
//
// A backslash stands in front of what would end a text, of letters and numbers that name a character, and at
// the end of a line of bytes that the next line continues.

namespace {

constexpr std::string_view Header = "WINE REGISTRY Version 2";
/// How much is read at once. A line that is longer is none of ours.
constexpr std::size_t PieceSize = std::size_t(1) << 18;
/// The longest data that are read, in bytes, the zero behind a text included.
constexpr std::size_t MaxDataSize = 520;

char16_t foldedCharacter(char16_t character)
{
    if (character < 0x80)
        return character >= 'A' && character <= 'Z' ? char16_t(character + ('a' - 'A')) : character;
    return char16_t(QChar::toCaseFolded(uint(character)));
}

int digitValue(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const int letter = digit | 0x20;
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

/// Takes a number of at most so many digits, which are no more than 8, off the line; -1 if there is none.
qint64 takeNumber(std::string_view& line, int base, int maxDigits)
{
    qint64 number = -1;
    for (int i = 0; i < maxDigits && !line.empty(); ++i) {
        const int digit = digitValue(line.front());
        if (digit < 0 || digit >= base)
            break;
        number = qMax(number, qint64(0)) * base + digit;
        line.remove_prefix(1);
    }
    return number;
}

/// Takes what a backslash stands in front of off the line.
char16_t takeEscaped(std::string_view& line)
{
    constexpr std::string_view letters = "abefnrtv";
    constexpr std::string_view characters = "\a\b\x1b\f\n\r\t\v";
    const char first = line.front();
    if (first >= '0' && first <= '7')
        return char16_t(takeNumber(line, 8, 3));
    line.remove_prefix(1);
    if (const std::size_t place = letters.find(first); place != std::string_view::npos)
        return char16_t(characters[place]);
    if (first == 'x') {
        const qint64 number = takeNumber(line, 16, 4);
        return number < 0 ? u'x' : char16_t(number);
    }
    return char16_t(static_cast<unsigned char>(first));
}

/// Takes a text and what closes it off the line. False if it is not closed, or longer than `maxLength`.
bool takeText(std::string_view& line, char closing, std::size_t maxLength, std::u16string& text)
{
    text.clear();
    while (!line.empty() && text.size() <= maxLength) {
        const char character = line.front();
        line.remove_prefix(1);
        if (character == closing)
            return true;
        if (character != '\\')
            text += char16_t(static_cast<unsigned char>(character));
        else if (!line.empty())
            text += takeEscaped(line);
    }
    return false;
}

bool takePrefix(std::string_view& line, std::string_view prefix)
{
    if (line.substr(0, prefix.size()) != prefix)
        return false;
    line.remove_prefix(prefix.size());
    return true;
}

/// Takes a type such as "hex(2):" or, where it may stand for itself, "hex:" off the line.
bool takeType(std::string_view& line, std::string_view name)
{
    if (!takePrefix(line, name))
        return false;
    if (takePrefix(line, "("))
        return takeNumber(line, 16, 8) >= 0 && takePrefix(line, "):");
    return takePrefix(line, ":");
}

void fold(std::u16string& text)
{
    std::transform(text.begin(), text.end(), text.begin(), foldedCharacter);
}

QString toQString(const std::u16string& text)
{
    return QString::fromUtf16(text.data(), int(text.size()));
}

/// A look-up by a text that is not a QString yet; valid while `text` is not changed.
QString asQString(const std::u16string& text)
{
    return QString::fromRawData(reinterpret_cast<const QChar*>(text.data()), int(text.size()));
}

class Reader
{
public:
    /// The names have to outlive the reader.
    explicit Reader(const WineHive::Names& wanted)
    {
        for (auto key = wanted.begin(); key != wanted.end(); ++key) {
            m_wanted[{reinterpret_cast<const char16_t*>(key.key().utf16()), std::size_t(key.key().size())}] =
                &key.value();
            m_maxKeyLength = qMax(m_maxKeyLength, std::size_t(key.key().size()));
            for (const QString& name : key.value())
                m_maxNameLength = qMax(m_maxNameLength, std::size_t(name.size()));
        }
    }

    void readLine(std::string_view line)
    {
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (m_isInBytes) {
            readBytes(line);
        } else if (!line.empty() && line.front() == '[') {
            line.remove_prefix(1);
            readKey(line);
        } else if (m_names) {
            readValue(line);
        }
    }

    WineHive::Texts takeTexts() { return std::move(m_texts); }

private:
    void readKey(std::string_view line)
    {
        m_names = nullptr;
        if (!takeText(line, ']', m_maxKeyLength, m_key))
            return;
        fold(m_key);
        const auto found = m_wanted.find(m_key);
        if (found != m_wanted.end())
            m_names = found->second;
    }

    void readValue(std::string_view line)
    {
        m_name.clear();
        if (takePrefix(line, "\"")) {
            if (!takeText(line, '"', m_maxNameLength, m_name))
                return;
        } else if (!takePrefix(line, "@")) {
            return;
        }
        fold(m_name);
        if (!takePrefix(line, "=") || !m_names->contains(asQString(m_name)))
            return;
        if (takePrefix(line, "\"") || (takeType(line, "str") && takePrefix(line, "\""))) {
            std::u16string text;
            if (takeText(line, '"', MaxDataSize / sizeof(char16_t) - 1, text))
                store(text);
        } else if (takeType(line, "hex")) {
            m_bytes.clear();
            readBytes(line);
        }
    }

    /// A line of numbers between commas; a backslash at its end says that another follows.
    void readBytes(std::string_view line)
    {
        m_isInBytes = false;
        while (takePrefix(line, " ")) { }
        while (!line.empty() && line.front() != '\\') {
            const qint64 byte = takeNumber(line, 16, 2);
            if (byte < 0 || m_bytes.size() > MaxDataSize)
                return;
            m_bytes.push_back(static_cast<unsigned char>(byte));
            takePrefix(line, ",");
        }
        if (!line.empty()) {
            m_isInBytes = true;
        } else if (m_bytes.size() <= MaxDataSize) {
            std::u16string text;
            for (std::size_t i = 0; i + 1 < m_bytes.size(); i += 2)
                text += char16_t(m_bytes[i] | m_bytes[i + 1] << 8);
            store(text);
        }
    }

    void store(const std::u16string& text)
    {
        m_texts[toQString(m_key)][toQString(m_name)] = toQString(text.substr(0, text.find(u'\0')));
    }

    /// The wanted names by key. A registry has a great many keys that nobody wants: looking for one takes no
    /// memory.
    std::unordered_map<std::u16string_view, const QSet<QString>*> m_wanted;
    std::size_t m_maxKeyLength = 0;
    std::size_t m_maxNameLength = 0;
    WineHive::Texts m_texts;
    /// The wanted names of the key whose values are being read; null if there are none.
    const QSet<QString>* m_names = nullptr;
    std::u16string m_key;
    std::u16string m_name;
    std::vector<unsigned char> m_bytes;
    /// The next line continues m_bytes.
    bool m_isInBytes = false;
};

} // namespace

namespace WineHive {

QString folded(const QString& name)
{
    std::u16string text = name.toStdU16String();
    fold(text);
    return toQString(text);
}

Texts read(const QString& path, const Names& wanted, const std::function<bool()>& isCancelled)
{
    QFile file(path);
    // Other things than files may give bytes without an end.
    if (wanted.isEmpty() || !QFileInfo(path).isFile()
        || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Texts();

    Reader reader(wanted);
    std::vector<char> piece(PieceSize);
    std::size_t filled = 0;
    bool isFirstLine = true;
    bool isTooLong = false;
    while (!isCancelled()) {
        const qint64 got = file.read(piece.data() + filled, qint64(piece.size() - filled));
        if (got <= 0)
            break;
        filled += std::size_t(got);
        std::string_view rest(piece.data(), filled);
        for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
            const std::string_view line = rest.substr(0, end);
            rest.remove_prefix(end + 1);
            if (isFirstLine && line.substr(0, Header.size()) != Header)
                return Texts();
            if (!isFirstLine && !isTooLong)
                reader.readLine(line);
            isFirstLine = false;
            isTooLong = false;
        }
        if (rest.size() == piece.size()) {
            // All of it is one line. It began as no registry does, or with something that is too long.
            if (isFirstLine)
                return Texts();
            isTooLong = true;
            rest.remove_prefix(rest.size());
        }
        std::memmove(piece.data(), rest.data(), rest.size());
        filled = rest.size();
    }
    if (!isFirstLine && !isTooLong)
        reader.readLine(std::string_view(piece.data(), filled));
    return reader.takeTexts();
}

} // namespace WineHive
