#pragma once

#include "IInputSink.h"

#include <IPlayState.h>

#include <cstddef>
#include <vector>

/// An event of a command and the milliseconds before it.
class RunStep
{
public:
    int delay = 0;
    InputEvent event;
};

/// A run that sends a command's events one after the other.
///
/// It starts with the press of the control; a step with a delay waits for PlayStateTriggers::Timer. A run
/// that lasts until the release keeps what it has pressed until then. Whatever is still pressed at the end,
/// or when the run is aborted or dropped, is released in the reverse order.
class MacroRun : public IPlayState
{
    Q_DISABLE_COPY(MacroRun)

public:
    enum class Until { StepsDone, Released };

    MacroRun(InputSinkPtr sink, std::vector<RunStep> steps, Until until);
    /// Sends all at once when the control is pressed.
    MacroRun(InputSinkPtr sink, const std::vector<InputEvent>& events, Until until);
    ~MacroRun() override;

    bool play(PlayStateTriggers::PlayStateTriggers_t trigger) override;
    int delay() const override;

private:
    enum class State { Waiting, Running, Over };

    bool isWaitingForTimer() const { return m_state == State::Running && m_next < m_steps.size(); }
    void sendDueSteps();
    void send(const InputEvent& event);
    void finish();

    InputSinkPtr m_sink;
    std::vector<RunStep> m_steps;
    Until m_until = Until::StepsDone;
    State m_state = State::Waiting;
    bool m_isReleased = false;
    std::size_t m_next = 0;
    /// The ends of what is pressed, oldest first.
    std::vector<InputEvent> m_pending;
};
