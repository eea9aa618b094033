#pragma once

#include "IInputSink.h"

#include <ICommandPlayer.h>
#include <IPlayState.h>

#include <QObject>
#include <QString>

#include <map>
#include <memory>

class IMacroTypeMgr;
class IProfileMgr;
class IScriptCaller;

/// Plays commands of profiles by their names. Several can play at a time.
///
/// Its sink is for the types of the commands: calls of scripts go to the script of the profile whose command
/// plays, everything else to the sink behind it.
class CommandPlayer : public QObject, public ICommandPlayer
{
    Q_OBJECT

public:
    /// `profiles`, `types` and `scripts` outlive the player.
    CommandPlayer(IProfileMgr& profiles, IMacroTypeMgr& types, IScriptCaller& scripts, InputSinkPtr next,
        QObject* parent = nullptr);
    /// Ends what plays.
    ~CommandPlayer() override;

    InputSinkPtr sink() const;

    bool play(const QString& profileID, const QString& macroName) override;
    bool abort() override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    class Sink;

    struct Run
    {
        QString profileId;
        cPlayStatePtr state;
    };

    /// False if a script that the run calls could not be called.
    bool goOn(const Run& run, PlayStateTriggers::PlayStateTriggers_t trigger);
    /// Waits for the run's next step, if there is one.
    void waitFor(const Run& run);

    IProfileMgr& m_profiles;
    IMacroTypeMgr& m_types;
    IScriptCaller& m_scripts;
    std::shared_ptr<Sink> m_sink;
    /// By the timer of the next step.
    std::map<int, Run> m_runs;
};
