#pragma once

#include "ApplicationPaths.h"
#include "CommandLine.h"

#include <QObject>

#include <memory>

class cDevMgrService;
class cECMAScriptMgrService;
class cFeatureViewMgrService;
class cHelpMgrService;
class cLCDMonService;
class cLuaScriptService;
class cMacroTypeMgrService;
class cMainAppService;
class cMainUIService;
class cProfilePrinter;
class cProfileMgrService;
class cProfilerService;
class cProfilesToGoService;
class cSettingsService;
class CommandPlayer;
class FeatureViewController;
class MainWindow;
class OnBoardWindow;
class PluginLoader;
class ProfileActions;
class ScreenshotRun;

/// The application: its services, its window and its plug-ins, brought up and taken down in the order in
/// which they need each other.
class HostApplication : public QObject
{
    Q_OBJECT

public:
    HostApplication(const ApplicationPaths& paths, const CommandLine& commandLine);
    /// Stops the plug-ins, saves profiles and settings, then withdraws the services.
    ~HostApplication() override;

    /// Loads devices and plug-ins and shows the window.
    void start();

    MainWindow& window() { return *m_window; }
    cSettingsService& settings() { return *m_settings; }
    cProfileMgrService& profiles() { return *m_profiles; }
    FeatureViewController& controller() { return *m_controller; }
    PluginLoader& plugins() { return *m_plugins; }

private Q_SLOTS:
    void onDeviceChanged(const QString& model);
    void onScreenshotsFinished(const QString& message);
    void onShowOnBoardMemory();
    void onShowScript();
    void onPrint();

private:
    void createServices();
    void createProfileServices();
    void createWindow();
    void startProfiles();
    void showLastDevice();
    QList<QObject*> services() const;
    /// The profile that the user looked at last, if it is still there, else the one that keys play.
    QString shownProfile() const;

    /// True once the user has said what becomes of profiles that can't be saved.
    bool m_isEndAgreed = false;
    ApplicationPaths m_paths;
    CommandLine m_commandLine;
    // Destroyed from the last to the first.
    std::unique_ptr<cSettingsService> m_settings;
    std::unique_ptr<cDevMgrService> m_devices;
    std::unique_ptr<FeatureViewController> m_controller;
    std::unique_ptr<cFeatureViewMgrService> m_featureViews;
    std::unique_ptr<cMainUIService> m_mainUI;
    std::unique_ptr<cMainAppService> m_mainApp;
    std::unique_ptr<cHelpMgrService> m_help;
    std::unique_ptr<cECMAScriptMgrService> m_scripts;
    std::unique_ptr<cMacroTypeMgrService> m_macroTypes;
    std::unique_ptr<cProfilerService> m_profiler;
    std::unique_ptr<cLCDMonService> m_displays;
    std::unique_ptr<cProfilePrinter> m_printer;
    std::unique_ptr<cProfileMgrService> m_profiles;
    std::unique_ptr<cLuaScriptService> m_luaScripts;
    std::unique_ptr<CommandPlayer> m_player;
    std::unique_ptr<cProfilesToGoService> m_profilesToGo;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<OnBoardWindow> m_onBoardWindow;
    std::unique_ptr<ProfileActions> m_profileActions;
    std::unique_ptr<PluginLoader> m_plugins;
    std::unique_ptr<ScreenshotRun> m_screenshots;
};
