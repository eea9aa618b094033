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
    // Regions larger than a country have numbers, such as 419 for Latin America.
    const QString country = localeParts().last();
    const bool isCountry = country.size() == 2 && country.at(0).isUpper();
    return isCountry ? country : QStringLiteral("US");
}

} // namespace HVS
