#include "FakePluginHost.h"

#include <IPlugin.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QLibrary>
#include <QProcess>

/// The plug-in as a host meets it: a file on the disk.
class PluginLibraryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void entryPointIsTheOnlySymbol();
    void libraryRunsAndUnloads();
};

void PluginLibraryTest::entryPointIsTheOnlySymbol()
{
    QProcess nm;
    nm.start(VELTRANO_NM, {"-D", "--defined-only", "--format=posix", VELTRANO_PLUGIN_FILE});
    QVERIFY2(nm.waitForFinished(), qPrintable(nm.errorString()));
    QCOMPARE(nm.exitStatus(), QProcess::NormalExit);
    QCOMPARE(nm.exitCode(), 0);
    QStringList symbols;
    const QStringList lines =
        QString::fromLatin1(nm.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines)
        symbols.append(line.section(QLatin1Char(' '), 0, 1));
    QCOMPARE(symbols, QStringList({"entrypoint T"}));
}

void PluginLibraryTest::libraryRunsAndUnloads()
{
    RecordingHost services;
    FakePluginHost host(services);
    QLibrary library(QStringLiteral(VELTRANO_PLUGIN_FILE));
    // A symbol that is missing shows at the start and not in the middle of the work.
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    const auto entryPoint = reinterpret_cast<PluginEntryPoint>(library.resolve("entrypoint"));
    QVERIFY(entryPoint);
    IPlugin* plugin = entryPoint();
    QVERIFY(plugin);
    QCOMPARE(entryPoint(), plugin);
    QCOMPARE(services.takeLog(), QStringList());

    QVERIFY(plugin->init(&host));
    QCOMPARE(services.takeLog(), expectedInitLog());
    QVERIFY(services.hasService(ServiceNames::ProfilerWidgetFactory));
    plugin->deinit(&host);
    QCOMPARE(services.takeLog(), expectedDeinitLog(host.helpFolder()));

    QVERIFY2(library.unload(), qPrintable(library.errorString()));
    // What is left in the manager must not lead into the library that is gone.
    QVERIFY(!services.hasService(ServiceNames::ProfilerWidgetFactory));
    services.publishRegisterHelpProvider(10);
    QCOMPARE(services.takeLog(), QStringList());
}

VELTRANO_TEST_MAIN(PluginLibraryTest)
#include "PluginLibraryTest.moc"
