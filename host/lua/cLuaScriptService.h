#pragma once

#include "ScriptWindow.h"

#include <ILuaScript.h>
#include <IScriptCaller.h>

#include <QPointer>
#include <QString>

#include <memory>
#include <vector>

struct ScriptCall;
class IHostWindow;
class IProfileMgr;
class LuaRun;

/// The service "LuaScript.LuaScript": scripts of profiles, their editors and their runs.
///
/// A profile has one editor window at most. One script runs at a time, in a process of its own, with the
/// libraries that reach no file and no other program, and with limits on time, memory and output.
class cLuaScriptService : public ILuaScript, public IScriptCaller
{
    Q_OBJECT
    Q_CLASSINFO("service", "LuaScript.LuaScript")

public:
    /// `runner` is the program that runs scripts. `profiles` outlives the service.
    cLuaScriptService(const QString& runner, IProfileMgr& profiles, QObject* parent = nullptr);
    ~cLuaScriptService() override;

    /// The window to which the editors belong; null while there is none. Losing it closes them.
    void setWindow(IHostWindow* window);

    /// The profile's open editor, or null.
    ScriptWindow* editor(const QString& profileID) const;
    bool isRunning() const;

    /// Closing without a profile closes all editors.
    void showEditor(bool visible, const QString& profileID) override;
    /// False if another script runs, or if the profile is unknown or the script too large; the editor says
    /// why. What is printed goes to the profile's editor if it is open; a failure always reaches the user.
    bool run(const QString& profileID, const QString& script) override;
    void stop() override;

    /// Runs the script that is kept with the profile and then the function.
    bool call(const QString& profileID, const QString& function, const QString& argument) override;
    bool abortCall() override;

Q_SIGNALS:
    /// Something that the user has to know, in words.
    void problem(const QString& text);

private Q_SLOTS:
    void onRunAsked(const QString& profileID, const QString& script);
    void onPrinted(const QString& text);
    void onEnded();

private:
    void closeEditors();
    bool start(const QString& profileID, const QString& script, const ScriptCall& call);
    void refuse(const QString& profileID, const QString& reason);
    QString endText() const;

    QString m_runner;
    IProfileMgr& m_profiles;
    IHostWindow* m_window = nullptr;
    std::vector<QPointer<ScriptWindow>> m_editors;
    std::unique_ptr<LuaRun> m_run;
    QString m_runningProfile;
    /// The function that the running script was called for; empty if the user runs it.
    QString m_calledFunction;
};
