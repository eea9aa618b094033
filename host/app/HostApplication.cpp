#include "HostApplication.h"

#include "MainWindow.h"
#include "PluginLoader.h"
#include "ProfileActions.h"
#include "ScreenshotRun.h"
#include "UnsavedProfiles.h"

#include <cDevMgrService.h>
#include <cECMAScriptMgrService.h>
#include <cFeatureViewMgrService.h>
#include <cHelpMgrService.h>
#include <cLCDMonService.h>
#include <cLuaScriptService.h>
#include <cMacroTypeMgrService.h>
#include <cMainAppService.h>
#include <cMainUIService.h>
#include <CommandPlayer.h>
#include <cProfileMgrService.h>
#include <cProfilePrinter.h>
#include <cProfilerService.h>
#include <cProfilesToGoService.h>
#include <cSettingsService.h>
#include <DefaultInputSink.h>
#include <EventNames.h>
#include <FeatureViewController.h>
#include <HelpKey.h>
#include <HostDevice.h>
#include <IServiceMgr.h>
#include <MacroTypes.h>
#include <OnBoardWindow.h>
#include <SettingsKeys.h>

#include <QCoreApplication>
#include <QKeySequence>

#include <cstdio>

namespace {

/// Settings key, string: model of the device that was shown last.
const QString LastDeviceKey = QStringLiteral("host/lastDevice");

/// The id of the application's first help page.
const QString ApplicationHelpId = QStringLiteral("application");

} // namespace

HostApplication::HostApplication(const ApplicationPaths& paths, const CommandLine& commandLine)
    : m_paths(paths)
    , m_commandLine(commandLine)
{
    m_paths.mount();
    createServices();
    createWindow();
}

HostApplication::~HostApplication()
{
    m_screenshots.reset();
    m_controller->closeNow();
    IServiceMgr::instance()->unsubscribe(EventSources::ProfileMgr, m_profilesToGo.get());
    // While all services are still there: plug-ins withdraw their views and call services as they stop.
    m_plugins.reset();
    m_help->unloadHelp();
    IServiceMgr::instance()->unsubscribe(EventSources::MainApp, m_profiles.get());
    // Their texts go to the profiles.
    m_luaScripts->setWindow(nullptr);
    // The user was asked when the window closed; this is for an end that came another way.
    if (!m_profiles->saveAllProfiles() && !m_profiles->isReadOnly() && !m_isEndAgreed)
        qCritical("Some profiles could not be saved");
    m_settings->flush();
    for (QObject* service : services())
        IServiceMgr::instance()->unregisterService(service);
    m_mainUI->setWindow(nullptr);
    m_mainApp->setWindow(nullptr);
    m_featureViews->setWindow(nullptr);
    m_onBoardWindow.reset();
    m_profileActions.reset();
    m_window.reset();
}

void HostApplication::createServices()
{
    m_settings =
        std::make_unique<cSettingsService>(m_commandLine.dataFolder + QStringLiteral("/settings.json"));
    m_devices = std::make_unique<cDevMgrService>();
    m_controller = std::make_unique<FeatureViewController>();
    m_featureViews = std::make_unique<cFeatureViewMgrService>(*m_devices, *m_controller);
    m_mainUI = std::make_unique<cMainUIService>();
    m_mainApp = std::make_unique<cMainAppService>();
    m_mainApp->setStyleSheetFile(m_paths.styleSheetFile());
    m_help = std::make_unique<cHelpMgrService>();
    m_scripts = std::make_unique<cECMAScriptMgrService>();
    createProfileServices();
    // The profiles are offered once they are read.
    for (QObject* service : services()) {
        if (service != m_profiles.get())
            IServiceMgr::instance()->registerService(service);
    }
}

void HostApplication::createProfileServices()
{
    m_macroTypes = std::make_unique<cMacroTypeMgrService>();
    m_profiler = std::make_unique<cProfilerService>();
    m_displays = std::make_unique<cLCDMonService>(*m_devices, *m_mainUI);
    m_profiles = std::make_unique<cProfileMgrService>(m_commandLine.dataFolder + QStringLiteral("/profiles"),
        m_paths.defaultProfileFile(),
        cProfileMgrService::Surroundings {
            m_settings.get(), m_macroTypes.get(), m_devices.get(), m_mainUI.get()});
    m_printer = std::make_unique<cProfilePrinter>(*m_devices, *m_mainUI);
    m_profiles->setPrinter(m_printer.get());
    m_luaScripts = std::make_unique<cLuaScriptService>(m_paths.scriptRunner, *m_profiles);
    m_player = std::make_unique<CommandPlayer>(
        *m_profiles, *m_macroTypes, *m_luaScripts, std::make_shared<DefaultInputSink>());
    m_profiler->setPlayer(m_player.get());
    m_profilesToGo = std::make_unique<cProfilesToGoService>(
        m_commandLine.dataFolder + QStringLiteral("/onboard"), *m_devices, *m_profiles);
    // Who holds the profiles holds all of the user's data.
    if (m_profiles->isReadOnly())
        m_settings->setReadOnly();
}

QList<QObject*> HostApplication::services() const
{
    return {m_settings.get(), m_devices.get(), m_featureViews.get(), m_mainUI.get(), m_mainApp.get(),
        m_help.get(), m_scripts.get(), m_macroTypes.get(), m_profiler.get(), m_profilesToGo.get(),
        m_displays.get(), m_luaScripts.get(), m_profiles.get()};
}

void HostApplication::createWindow()
{
    m_window = std::make_unique<MainWindow>(
        MainWindowServices {*m_devices, *m_featureViews, *m_controller, *m_help, *m_mainApp});
    m_profileActions = std::make_unique<ProfileActions>(*m_window, *m_profiles, *m_settings);
    m_plugins = std::make_unique<PluginLoader>();
    m_mainUI->setWindow(m_window.get());
    m_mainApp->setWindow(m_window.get());
    m_featureViews->setWindow(m_window.get());
    m_luaScripts->setWindow(m_window.get());

    connect(m_settings.get(), SIGNAL(problemFound(QString)), m_window.get(), SLOT(onMessage(QString)));
    connect(m_devices.get(), SIGNAL(problemFound(QString)), m_window.get(), SLOT(onMessage(QString)));
    connect(m_mainApp.get(), SIGNAL(problemFound(QString)), m_window.get(), SLOT(onMessage(QString)));
    connect(m_profiles.get(), SIGNAL(problem(QString)), m_window.get(), SLOT(onMessage(QString)));
    connect(m_luaScripts.get(), SIGNAL(problem(QString)), m_window.get(), SLOT(onMessage(QString)));
    connect(m_profilesToGo.get(), SIGNAL(problem(QString)), m_window.get(), SLOT(onMessage(QString)));
    connect(m_plugins.get(), SIGNAL(failed(QString)), m_window.get(), SLOT(onMessage(QString)));
    m_window->addTool(tr("&On-board Memory..."), QKeySequence(), this, SLOT(onShowOnBoardMemory()));
    m_window->addTool(tr("S&cript Editor..."), QKeySequence(), this, SLOT(onShowScript()));
    m_window->addTool(tr("&Print Profile..."), QKeySequence(QKeySequence::Print), this, SLOT(onPrint()));
    m_window->setCloseGuard([this] {
        m_isEndAgreed = UnsavedProfiles::settle(*m_profiles, m_window.get());
        return m_isEndAgreed;
    });
    connect(m_window.get(), SIGNAL(closing()), qApp, SLOT(quit()), Qt::QueuedConnection);
}

void HostApplication::start()
{
    m_mainApp->loadStyleSheet();
    m_settings->load();
    m_devices->load(m_paths.devicesFolder());
    startProfiles();
    m_window->reloadDevices();
    showLastDevice();
    connect(m_window.get(), SIGNAL(deviceChanged(QString)), this, SLOT(onDeviceChanged(QString)));

    if (m_commandLine.pluginFile.isEmpty())
        m_plugins->loadAll(m_paths.pluginsFolder);
    else
        m_plugins->load(m_commandLine.pluginFile);
    m_help->registerHelp(ApplicationHelpId,
        QStringLiteral("qthelp://%1/doc/en_US/getting_started.htm").arg(HelpKey::Section),
        m_paths.helpFolder());
    m_help->askProviders();
    m_window->show();

    if (!m_commandLine.screenshotFolder.isEmpty()) {
        m_screenshots =
            std::make_unique<ScreenshotRun>(*m_window, *m_controller, m_commandLine.screenshotFolder);
        connect(m_screenshots.get(), SIGNAL(finished(QString)), this, SLOT(onScreenshotsFinished(QString)));
        m_screenshots->start();
    } else if (m_commandLine.openView) {
        m_window->openFirstView();
    }
}

void HostApplication::startProfiles()
{
    // Documents are read by the types of their commands.
    if (!MacroTypes::registerAll(*m_macroTypes, m_player->sink()))
        qCritical("Not all command types could be registered");
    m_profiles->load();
    IServiceMgr::instance()->registerService(m_profiles.get());
    IServiceMgr::instance()->subscribe(EventSources::MainApp, m_profiles.get(), Events::HandlerPrefix);
    IServiceMgr::instance()->subscribe(EventSources::ProfileMgr, m_profilesToGo.get(), Events::HandlerPrefix);
    m_profilesToGo->start();
}

void HostApplication::showLastDevice()
{
    if (m_commandLine.device.isEmpty())
        m_window->selectDevice(m_settings->getPropertyString(LastDeviceKey));
    else if (!m_window->selectDevice(m_commandLine.device))
        m_window->showMessage(tr("There is no device of the model \"%1\".").arg(m_commandLine.device));
}

void HostApplication::onDeviceChanged(const QString& model)
{
    m_settings->setPropertyString(LastDeviceKey, model);
}

void HostApplication::onShowOnBoardMemory()
{
    if (!m_onBoardWindow)
        m_onBoardWindow = std::make_unique<OnBoardWindow>(*m_profilesToGo, *m_profiles, m_window.get());
    m_onBoardWindow->showDevice(m_window->activeDeviceId());
}

void HostApplication::onShowScript()
{
    m_luaScripts->showEditor(true, shownProfile());
}

void HostApplication::onPrint()
{
    const auto device = m_devices->deviceOfModel(m_window->activeDeviceModel());
    if (device)
        m_profiles->printProfile(shownProfile(), device->properties()["category"].toString(), {});
}

QString HostApplication::shownProfile() const
{
    const QString shown = m_settings->getPropertyString(SettingsKeys::LastProfile);
    const bool isThere = !m_profiles->getProfileByID(shown).isNull();
    return isThere ? shown : m_profiles->getActiveProfileID();
}

void HostApplication::onScreenshotsFinished(const QString& message)
{
    if (!message.isEmpty())
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    QCoreApplication::exit(message.isEmpty() ? 0 : 1);
}
