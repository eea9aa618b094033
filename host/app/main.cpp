#include "ApplicationLook.h"
#include "EndSignals.h"
#include "HostApplication.h"

#include <QApplication>
#include <QLoggingCategory>

#include <cstdio>

namespace {

/// Reads the command line without a display, which --help and --version don't need.
CommandLine readCommandLine(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    return CommandLine(QCoreApplication::arguments());
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Veltrano Gaming"));
    QCoreApplication::setOrganizationName(QStringLiteral("Veltrano"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELTRANO_VERSION));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);

    // Lines for developers are asked for: QT_LOGGING_RULES="*.debug=true" has the last word.
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));

    const CommandLine commandLine = readCommandLine(argc, argv);
    if (commandLine.request != CommandLine::Request::Run) {
        const bool isRefused = commandLine.request == CommandLine::Request::Refuse;
        std::fputs(qUtf8Printable(commandLine.output), isRefused ? stderr : stdout);
        return isRefused ? 2 : 0;
    }

    // Qt would take options of its own out of the command line, --plugin among them; all of them are ours.
    int programNameOnly = 1;
    QApplication application(programNameOnly, argv);
    // The window's closing ends the application, after what it has to say to the plug-ins.
    QApplication::setQuitOnLastWindowClosed(false);
    ApplicationLook::apply();

    HostApplication host(ApplicationPaths::ofExecutable(), commandLine);
    host.start();
    // Nobody may be there to be asked; profiles and settings are saved by the end itself.
    const EndSignals endSignals;
    QObject::connect(&endSignals, SIGNAL(endAsked()), &application, SLOT(quit()));
    return QApplication::exec();
}
