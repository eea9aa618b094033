#pragma once

#include <QString>

/// Where the application finds its files.
class ApplicationPaths
{
public:
    /// The folders beside the running executable, in an installation and in a build tree alike.
    static ApplicationPaths ofExecutable();

    /// Holds a folder for each plug-in.
    QString pluginsFolder;
    /// The program that runs scripts.
    QString scriptRunner;
    /// Holds "Resources" and "devices".
    QString shareFolder;

    QString devicesFolder() const { return shareFolder + QStringLiteral("/devices"); }
    /// The folder of the game database.
    QString profilerFolder() const { return shareFolder + QStringLiteral("/Resources/profiler"); }
    /// The document of the profile that new users begin with.
    QString defaultProfileFile() const { return profilerFolder() + QStringLiteral("/DefaultProfile.xml"); }
    /// The folder of the application's own help pages.
    QString helpFolder() const { return shareFolder + QStringLiteral("/Help"); }
    QString styleSheetFile() const { return shareFolder + QStringLiteral("/Resources/style/veltrano.qss"); }

    /// Makes the search paths "MainApp" and "Profiler" known.
    void mount() const;
};
