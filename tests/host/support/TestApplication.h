#pragma once

#include "DeviceFolder.h"

#include <HostApplication.h>

#include <QTemporaryDir>

#include <memory>

/// The whole application over folders of its own, with one device and a profile to begin with.
class TestApplication
{
public:
    TestApplication()
    {
        DeviceFolder::make(m_folder.filePath("share/devices"), "Alpha");
        DeviceFolder::write(
            m_folder.filePath("share/Resources/style/veltrano.qss"), "QWidget { color: white; }");
        DeviceFolder::write(
            m_folder.filePath("share/Resources/profiler/DefaultProfile.xml"), "<profile name=\"Start\"/>");
        ApplicationPaths paths;
        paths.pluginsFolder = m_folder.filePath("plugins");
        paths.shareFolder = m_folder.filePath("share");
        m_application = std::make_unique<HostApplication>(
            paths, CommandLine({"test", "--data-dir", m_folder.filePath("data")}));
        m_application->start();
    }

    HostApplication* operator->() const { return m_application.get(); }
    QString path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<HostApplication> m_application;
};
