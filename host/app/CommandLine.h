#pragma once

#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
class CommandLine
{
public:
    enum class Request { Run, ShowVersion, ShowHelp, Refuse };

    /// Reads the arguments, the program's name first.
    explicit CommandLine(const QStringList& arguments);

    Request request = Request::Run;
    /// What to print for the requests other than Run, with a line end.
    QString output;

    /// Model of the device to show; empty for the last one.
    QString device;
    bool openView = false;
    /// Folder for pictures of the window; empty to run as usual.
    QString screenshotFolder;
    /// Folder of the user's data; never empty.
    QString dataFolder;
    /// The one plug-in to load; empty for those that are installed.
    QString pluginFile;
};
