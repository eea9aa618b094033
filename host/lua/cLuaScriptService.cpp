#include "cLuaScriptService.h"

#include "LuaRun.h"

#include <IHostWindow.h>
#include <IProfileMgr.h>

#include <algorithm>

cLuaScriptService::cLuaScriptService(const QString& runner, IProfileMgr& profiles, QObject* parent)
    : ILuaScript(parent)
    , m_runner(runner)
    , m_profiles(profiles)
{ }

cLuaScriptService::~cLuaScriptService()
{
    closeEditors();
}

void cLuaScriptService::setWindow(IHostWindow* window)
{
    if (!window)
        closeEditors();
    m_window = window;
}

void cLuaScriptService::closeEditors()
{
    for (const QPointer<ScriptWindow>& editor : m_editors) {
        if (editor)
            editor->storeText();
        delete editor;
    }
    m_editors.clear();
}

ScriptWindow* cLuaScriptService::editor(const QString& profileID) const
{
    const auto found =
        std::find_if(m_editors.begin(), m_editors.end(), [&](const QPointer<ScriptWindow>& editor) {
            return editor && editor->profileId().compare(profileID, Qt::CaseInsensitive) == 0;
        });
    return found == m_editors.end() ? nullptr : found->data();
}

bool cLuaScriptService::isRunning() const
{
    return m_run && m_run->isRunning();
}

void cLuaScriptService::showEditor(bool visible, const QString& profileID)
{
    if (!visible && profileID.isEmpty()) {
        closeEditors();
        return;
    }
    ScriptWindow* shown = editor(profileID);
    if (!visible) {
        if (shown)
            shown->close();
        return;
    }
    if (!shown) {
        if (m_profiles.getProfileByID(profileID).isNull()) {
            Q_EMIT problem(tr("The script can't be opened: its profile is not there any more."));
            return;
        }
        shown = new ScriptWindow(m_profiles, profileID, m_window ? m_window->widget() : nullptr);
        connect(shown, SIGNAL(runAsked(QString, QString)), this, SLOT(onRunAsked(QString, QString)));
        connect(shown, SIGNAL(stopAsked()), this, SLOT(stop()));
        shown->setRunning(isRunning());
        m_editors.emplace_back(shown);
    }
    shown->show();
    shown->raise();
    shown->activateWindow();
}

void cLuaScriptService::onRunAsked(const QString& profileID, const QString& script)
{
    run(profileID, script);
}

void cLuaScriptService::refuse(const QString& profileID, const QString& reason)
{
    if (ScriptWindow* shown = editor(profileID))
        shown->appendMessage(reason, ScriptWindow::Tone::Bad);
    else
        Q_EMIT problem(reason);
}

bool cLuaScriptService::run(const QString& profileID, const QString& script)
{
    return start(profileID, script, {});
}

bool cLuaScriptService::call(const QString& profileID, const QString& function, const QString& argument)
{
    const QString script = m_profiles.getProfileScript(profileID);
    if (script.trimmed().isEmpty() && !m_profiles.getProfileByID(profileID).isNull()) {
        refuse(profileID,
            tr("The function %1 can't be called: %2 has no script.")
                .arg(function, m_profiles.getProfileName(profileID)));
        return false;
    }
    return start(profileID, script, {function, argument});
}

bool cLuaScriptService::abortCall()
{
    const bool isCalling = isRunning() && !m_calledFunction.isEmpty();
    if (isCalling)
        stop();
    return isCalling;
}

bool cLuaScriptService::start(const QString& profileID, const QString& script, const ScriptCall& call)
{
    QString reason;
    if (m_profiles.getProfileByID(profileID).isNull())
        reason = tr("The script was not run: its profile is not there any more.");
    else if (isRunning())
        reason = tr("The script was not run: another one is running.");
    else
        LuaRun::isAcceptable(script, call, &reason);
    if (!reason.isEmpty()) {
        refuse(profileID, reason);
        return false;
    }
    m_runningProfile = profileID;
    m_calledFunction = call.function;
    m_run = std::make_unique<LuaRun>(m_runner);
    connect(m_run.get(), SIGNAL(printed(QString)), this, SLOT(onPrinted(QString)));
    connect(m_run.get(), SIGNAL(ended()), this, SLOT(onEnded()));
    for (const QPointer<ScriptWindow>& each : m_editors) {
        if (each)
            each->setRunning(true);
    }
    if (ScriptWindow* shown = editor(profileID))
        shown->beginRun();
    m_run->start(script, m_profiles.getProfileName(profileID), call);
    return true;
}

void cLuaScriptService::stop()
{
    if (m_run)
        m_run->stop();
}

void cLuaScriptService::onPrinted(const QString& text)
{
    if (ScriptWindow* shown = editor(m_runningProfile))
        shown->appendOutput(text);
}

QString cLuaScriptService::endText() const
{
    if (m_run->end() == LuaRun::End::Stopped)
        return tr("Stopped.");
    if (m_run->end() == LuaRun::End::Done)
        return tr("Done.");
    return m_run->line() > 0 ? tr("Line %1: %2").arg(m_run->line()).arg(m_run->message()) : m_run->message();
}

void cLuaScriptService::onEnded()
{
    for (const QPointer<ScriptWindow>& each : m_editors) {
        if (each)
            each->setRunning(false);
    }
    const bool isFailed = m_run->end() == LuaRun::End::Failed;
    if (ScriptWindow* shown = editor(m_runningProfile)) {
        shown->appendMessage(endText(), isFailed ? ScriptWindow::Tone::Bad : ScriptWindow::Tone::Quiet);
        if (isFailed)
            shown->markLine(m_run->line());
    } else if (isFailed) {
        Q_EMIT problem(
            tr("The script of %1 failed. %2").arg(m_profiles.getProfileName(m_runningProfile), endText()));
    }
}
