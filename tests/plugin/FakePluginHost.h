#pragma once

#include <cLog.h>
#include <IPluginHost.h>
#include <RecordingHost.h>

#include <QDir>
#include <QString>
#include <QTemporaryDir>

/// A host that hands out a RecordingHost as the service manager, notes in its log what it is asked for, and
/// mounts an empty plug-in folder under its alias.
class FakePluginHost final : public IPluginHost
{
public:
    explicit FakePluginHost(RecordingHost& services)
        : m_services(services)
    {
        QDir(m_folder.path()).mkpath(QStringLiteral("Help"));
        QDir::addSearchPath(alias(), m_folder.path());
    }
    ~FakePluginHost() { QDir::setSearchPaths(alias(), {}); }

    static QString alias() { return QStringLiteral("MountedPlugin"); }
    static QString logName() { return QStringLiteral("plug-in"); }
    QString helpFolder() const { return m_folder.filePath(QStringLiteral("Help")); }

    IServiceMgr* serviceMgr() override
    {
        m_services.note(QStringLiteral("serviceMgr"));
        return &m_services;
    }
    QString pluginAlias() override
    {
        m_services.note(QStringLiteral("pluginAlias"));
        return alias();
    }
    QString pluginFolder() override
    {
        m_services.note(QStringLiteral("pluginFolder"));
        return m_folder.path();
    }
    cLog log() override
    {
        m_services.note(QStringLiteral("log"));
        return cLog(logName());
    }

private:
    RecordingHost& m_services;
    QTemporaryDir m_folder;
};

/// What a plug-in's init() does, with the calls of the view's constructor.
inline QStringList expectedInitLog()
{
    return {
        QStringLiteral("pluginAlias"),
        QStringLiteral("log"),
        QStringLiteral("serviceMgr"),
        QStringLiteral("register ProfilerWidgetFactory"),
        QStringLiteral("subscribe HelpMgrEvent on"),
        QStringLiteral("require ECMAScript.ECMAScriptMgr 1"),
        QStringLiteral("ECMAScript.ECMAScriptMgr newObject(QObject * cMacroBindingView, "
                       "const QString \"MacroBindingView\")"),
        QStringLiteral("require MainUI.FeatureViewMgr 1"),
        QStringLiteral("MainUI.FeatureViewMgr registerView(IFeatureView* cMacroBindingView) -> bool"),
    };
}

/// What a plug-in's deinit() does after that, with the calls of the view's destructor.
inline QStringList expectedDeinitLog(const QString& helpFolder)
{
    return {
        QStringLiteral("require MainUI.FeatureViewMgr 1"),
        QStringLiteral("MainUI.FeatureViewMgr unregisterView(IFeatureView* cMacroBindingView) -> bool"),
        QStringLiteral("unsubscribe HelpMgrEvent"),
        QStringLiteral("require Help.HelpMgr 1"),
        QStringLiteral("Help.HelpMgr unRegisterHelp(QString \"%1\") -> bool").arg(helpFolder),
        QStringLiteral("unsubscribe MainUI_Events"),
        QStringLiteral("unsubscribe MainApp_Events"),
        QStringLiteral("serviceMgr"),
        QStringLiteral("unregister ProfilerWidgetFactory"),
    };
}
