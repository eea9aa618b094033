#include "HVS.h"

#include <QLocale>

namespace {

/// Language and country of the user's locale, "en_US" for the C locale.
QStringList localeParts()
{
    const QLocale locale = QLocale::system();
    return (locale.language() == QLocale::C ? QStringLiteral("en_US") : locale.name())
        .split(QLatin1Char('_'));
}

} // namespace

namespace HVS {

QString currentLocaleLanguage()
{
    return localeParts().first();
}

QString currentLocaleCountry()
{
    const QStringList parts = localeParts();
    return parts.size() > 1 ? parts.last() : QStringLiteral("US");
}

} // namespace HVS
