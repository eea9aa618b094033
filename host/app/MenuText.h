#pragma once

#include <QString>

/// Texts of menu entries.
namespace MenuText {

/// A text in which an "&" is a character and marks no shortcut.
inline QString plain(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace MenuText
