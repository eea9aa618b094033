#include <HVS.h>
#include <TestCase.h>

#include <QProcess>
#include <QProcessEnvironment>

#include <cstdio>

namespace {

const char* const PrintLocale = "--print-locale";

} // namespace

/// The locale of a process is settled when it starts, so each case runs a process of its own, which prints
/// its locale.
class HVSLocaleTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void languageAndCountry_data();
    void languageAndCountry();
    void variablesCountInTheUsualOrder();
};

namespace {

QString localeUnder(const QStringList& variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"})
        environment.remove(QLatin1String(variable));
    for (const QString& variable : variables)
        environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(PrintLocale)});
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

} // namespace

void HVSLocaleTest::languageAndCountry_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("expected");
    QTest::newRow("american") << "en_US.UTF-8"
                              << "en US";
    QTest::newRow("austrian") << "de_AT.UTF-8"
                              << "de AT";
    QTest::newRow("brazilian") << "pt_BR"
                               << "pt BR";
    QTest::newRow("with modifier") << "sr_RS@latin"
                                   << "sr RS";
    QTest::newRow("with script") << "zh_Hant_TW"
                                 << "zh TW";
    QTest::newRow("language of three letters") << "fil_PH"
                                               << "fil PH";
    QTest::newRow("language alone") << "fr"
                                    << "fr FR";
    QTest::newRow("region larger than a country") << "es_419"
                                                  << "es US";
    QTest::newRow("language of the world") << "eo"
                                           << "eo US";
    QTest::newRow("C") << "C"
                       << "en US";
    QTest::newRow("C with encoding") << "C.UTF-8"
                                     << "en US";
    QTest::newRow("POSIX") << "POSIX"
                           << "en US";
    QTest::newRow("empty") << ""
                           << "en US";
    QTest::newRow("unknown") << "xx_YY"
                             << "en US";
    QTest::newRow("garbage") << "%$/../@@_"
                             << "en US";
}

void HVSLocaleTest::languageAndCountry()
{
    QFETCH(QString, locale);
    QFETCH(QString, expected);
    QCOMPARE(localeUnder({"LC_ALL=" + locale}), expected);
}

void HVSLocaleTest::variablesCountInTheUsualOrder()
{
    QCOMPARE(localeUnder({"LANG=de_DE.UTF-8"}), QString("de DE"));
    QCOMPARE(localeUnder({"LANG=de_DE.UTF-8", "LC_MESSAGES=fr_CA.UTF-8"}), QString("fr CA"));
    QCOMPARE(
        localeUnder({"LANG=de_DE.UTF-8", "LC_MESSAGES=fr_CA.UTF-8", "LC_ALL=it_IT.UTF-8"}), QString("it IT"));
    QCOMPARE(localeUnder({}), QString("en US"));
}

int main(int argc, char** argv)
{
    if (argc == 2 && qstrcmp(argv[1], PrintLocale) == 0) {
        const QCoreApplication application(argc, argv);
        std::printf(
            "%s %s\n", qPrintable(HVS::currentLocaleLanguage()), qPrintable(HVS::currentLocaleCountry()));
        return 0;
    }
    const QApplication application(argc, argv);
    HVSLocaleTest test;
    return runTest(test, argc, argv);
}
#include "HVSLocaleTest.moc"
