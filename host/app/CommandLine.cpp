#include "CommandLine.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QStandardPaths>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("CommandLine", text);
}

} // namespace

CommandLine::CommandLine(const QStringList& arguments)
{
    const QCommandLineOption deviceOption(
        QStringLiteral("device"), tr("Show the device of this model."), tr("model"));
    const QCommandLineOption openOption(
        QStringLiteral("open-view"), tr("Open the first view of the device."));
    const QCommandLineOption screenshotsOption(QStringLiteral("screenshots"),
        tr("Write pictures of the window, without and with the view, to this folder, and quit."),
        tr("folder"));
    const QCommandLineOption dataOption(QStringLiteral("data-dir"),
        tr("Keep settings and profiles in this folder instead of the user's data folder."), tr("folder"));
    const QCommandLineOption pluginOption(
        QStringLiteral("plugin"), tr("Load this plug-in instead of those that are installed."), tr("file"));

    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Assign commands to the programmable keys of gaming devices."));
    parser.addOptions({deviceOption, openOption, screenshotsOption, dataOption, pluginOption});
    const QCommandLineOption helpOption = parser.addHelpOption();
    const QCommandLineOption versionOption = parser.addVersionOption();

    const bool isUnderstood = parser.parse(arguments);
    if (isUnderstood && parser.isSet(helpOption)) {
        request = Request::ShowHelp;
        output = parser.helpText();
        return;
    }
    if (isUnderstood && parser.isSet(versionOption)) {
        request = Request::ShowVersion;
        output = QCoreApplication::applicationName() + QLatin1Char(' ')
            + QCoreApplication::applicationVersion() + QLatin1Char('\n');
        return;
    }
    if (!isUnderstood || !parser.positionalArguments().isEmpty()) {
        request = Request::Refuse;
        output = isUnderstood ? tr("Unknown argument '%1'.").arg(parser.positionalArguments().constFirst())
                              : parser.errorText();
        output += QLatin1Char('\n');
        return;
    }
    device = parser.value(deviceOption);
    openView = parser.isSet(openOption);
    screenshotFolder = parser.value(screenshotsOption);
    pluginFile = parser.value(pluginOption);
    dataFolder = parser.value(dataOption);
    if (dataFolder.isEmpty())
        dataFolder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}
