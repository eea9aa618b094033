#include "CommandPlayer.h"

#include "IScriptCaller.h"

#include <IMacroTypeMgr.h>
#include <IProfileMgr.h>

#include <QTimerEvent>

#include <utility>

namespace {

cJsonValue commandOf(const cJsonValue& macros, const QString& name)
{
    const int count = macros.isArray() ? int(macros.size()) : 0;
    for (int i = 0; i < count; ++i) {
        if (macros[i]["display_name"].toString() == name)
            return macros[i];
    }
    return {};
}

} // namespace

/// The sink of the types. It may outlive the player, and then calls no scripts.
class CommandPlayer::Sink : public IInputSink
{
public:
    Sink(IProfileMgr& profiles, IScriptCaller& scripts, InputSinkPtr next)
        : m_profiles(&profiles)
        , m_scripts(&scripts)
        , m_next(std::move(next))
    { }

    void send(const InputEvent& event) override
    {
        const auto* const called = std::get_if<ScriptInput>(&event);
        if (!called)
            m_next->send(event);
        else if (m_scripts)
            callScript(*called);
    }

    /// What comes until end() is of that profile.
    void begin(const QString& profileId)
    {
        m_profileId = profileId;
        m_isRefused = false;
    }
    /// False if a script could not be called.
    bool end()
    {
        m_profileId.clear();
        return !m_isRefused;
    }
    void leave() { m_scripts = nullptr; }

private:
    void callScript(const ScriptInput& called)
    {
        // A run that is not the player's belongs to a key, and keys play the active profile.
        const QString profile = m_profileId.isEmpty() ? m_profiles->getActiveProfileID() : m_profileId;
        if (!m_scripts->call(profile, called.function, called.argument))
            m_isRefused = true;
    }

    IProfileMgr* m_profiles;
    IScriptCaller* m_scripts;
    InputSinkPtr m_next;
    /// Of the run that plays at the moment.
    QString m_profileId;
    bool m_isRefused = false;
};

CommandPlayer::CommandPlayer(
    IProfileMgr& profiles, IMacroTypeMgr& types, IScriptCaller& scripts, InputSinkPtr next, QObject* parent)
    : QObject(parent)
    , m_profiles(profiles)
    , m_types(types)
    , m_scripts(scripts)
    , m_sink(std::make_shared<Sink>(profiles, scripts, std::move(next)))
{ }

CommandPlayer::~CommandPlayer()
{
    m_runs.clear();
    m_sink->leave();
}

InputSinkPtr CommandPlayer::sink() const
{
    return m_sink;
}

bool CommandPlayer::play(const QString& profileID, const QString& macroName)
{
    const cJsonValue macro = commandOf(m_profiles.macros(profileID), macroName);
    const cMacroTypePtr type = m_types.getMacroTypeByID(macro["namespace"].toString());
    const Run run {profileID, type ? type->createPlayState(macro) : cPlayStatePtr()};
    if (!run.state)
        return false;
    const bool isPlayed = goOn(run, PlayStateTriggers::Pressed);
    goOn(run, PlayStateTriggers::Released);
    waitFor(run);
    return isPlayed;
}

bool CommandPlayer::abort()
{
    const bool isPlaying = !m_runs.empty();
    for (const auto& waiting : std::exchange(m_runs, {})) {
        killTimer(waiting.first);
        goOn(waiting.second, PlayStateTriggers::Aborted);
    }
    return m_scripts.abortCall() || isPlaying;
}

void CommandPlayer::timerEvent(QTimerEvent* event)
{
    const auto waiting = m_runs.find(event->timerId());
    if (waiting == m_runs.end())
        return;
    const Run run = waiting->second;
    killTimer(waiting->first);
    m_runs.erase(waiting);
    goOn(run, PlayStateTriggers::Timer);
    waitFor(run);
}

bool CommandPlayer::goOn(const Run& run, PlayStateTriggers::PlayStateTriggers_t trigger)
{
    m_sink->begin(run.profileId);
    run.state->play(trigger);
    return m_sink->end();
}

void CommandPlayer::waitFor(const Run& run)
{
    const int delay = run.state->delay();
    if (delay >= 0)
        m_runs.emplace(startTimer(delay, Qt::PreciseTimer), run);
}
