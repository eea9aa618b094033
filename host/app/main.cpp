#include "ApplicationLook.h"
#include "HostApplication.h"

#include <QApplication>
#include <QStringList>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    // Qt takes options of its own out of the command line, --plugin among them; all of them are ours here.
    int programNameOnly = 1;
    QApplication application(programNameOnly, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Veltrano Gaming"));
    QCoreApplication::setOrganizationName(QStringLiteral("Veltrano"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELTRANO_VERSION));
    // The window's closing ends the application, after what it has to say to the plug-ins.
    QApplication::setQuitOnLastWindowClosed(false);
    ApplicationLook::apply();

    const CommandLine commandLine(arguments);
    if (commandLine.request != CommandLine::Request::Run) {
        const bool isRefused = commandLine.request == CommandLine::Request::Refuse;
        std::fputs(qUtf8Printable(commandLine.output), isRefused ? stderr : stdout);
        return isRefused ? 2 : 0;
    }
    HostApplication host(ApplicationPaths::ofExecutable(), commandLine);
    host.start();
    return QApplication::exec();
}
