#include "CommandLine.h"

#include <TestCase.h>

class CommandLineTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void withoutArgumentsItRuns();
    void optionsAreRead();
    void versionAndHelpArePrinted();
    void mistakesAreRefused_data();
    void mistakesAreRefused();
};

void CommandLineTest::withoutArgumentsItRuns()
{
    const CommandLine line({"veltrano-gaming"});
    QVERIFY(line.request == CommandLine::Request::Run);
    QCOMPARE(line.device, QString());
    QVERIFY(!line.openView);
    QCOMPARE(line.screenshotFolder, QString());
    QCOMPARE(line.pluginFile, QString());
    QVERIFY(!line.dataFolder.isEmpty());
}

void CommandLineTest::optionsAreRead()
{
    const CommandLine line({"veltrano-gaming", "--device", "M", "--open-view", "--screenshots=/s",
        "--data-dir", "/d", "--plugin", "/p.so"});
    QVERIFY(line.request == CommandLine::Request::Run);
    QCOMPARE(line.device, QString("M"));
    QVERIFY(line.openView);
    QCOMPARE(line.screenshotFolder, QString("/s"));
    QCOMPARE(line.dataFolder, QString("/d"));
    QCOMPARE(line.pluginFile, QString("/p.so"));
}

void CommandLineTest::versionAndHelpArePrinted()
{
    QCoreApplication::setApplicationVersion("1.2.3");
    const CommandLine version({"veltrano-gaming", "--version"});
    QVERIFY(version.request == CommandLine::Request::ShowVersion);
    QVERIFY(version.output.endsWith(" 1.2.3\n"));
    const CommandLine help({"veltrano-gaming", "--help"});
    QVERIFY(help.request == CommandLine::Request::ShowHelp);
    for (const char* option : {"--device", "--open-view", "--screenshots", "--data-dir", "--plugin"})
        QVERIFY2(help.output.contains(option), option);
}

void CommandLineTest::mistakesAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown option") << QStringList({"v", "--nonsense"}) << "nonsense";
    QTest::newRow("missing value") << QStringList({"v", "--device"}) << "device";
    QTest::newRow("stray argument") << QStringList({"v", "stray"}) << "stray";
}

void CommandLineTest::mistakesAreRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, text);
    const CommandLine line(arguments);
    QVERIFY(line.request == CommandLine::Request::Refuse);
    QVERIFY2(line.output.contains(text), qPrintable(line.output));
    QVERIFY(line.output.endsWith('\n'));
}

VELTRANO_TEST_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
