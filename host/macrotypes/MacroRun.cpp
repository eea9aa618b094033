#include "MacroRun.h"

#include <algorithm>
#include <utility>

namespace {

std::vector<RunStep> withoutDelays(const std::vector<InputEvent>& events)
{
    std::vector<RunStep> steps;
    steps.reserve(events.size());
    for (const InputEvent& event : events)
        steps.push_back({0, event});
    return steps;
}

} // namespace

MacroRun::MacroRun(InputSinkPtr sink, std::vector<RunStep> steps, Until until)
    : m_sink(std::move(sink))
    , m_steps(std::move(steps))
    , m_until(until)
{ }

MacroRun::MacroRun(InputSinkPtr sink, const std::vector<InputEvent>& events, Until until)
    : MacroRun(std::move(sink), withoutDelays(events), until)
{ }

MacroRun::~MacroRun()
{
    finish();
}

bool MacroRun::play(PlayStateTriggers::PlayStateTriggers_t trigger)
{
    switch (trigger) {
    case PlayStateTriggers::Pressed:
        if (m_state == State::Waiting) {
            m_state = State::Running;
            sendDueSteps();
        }
        break;
    case PlayStateTriggers::Timer:
        if (isWaitingForTimer()) {
            send(m_steps[m_next++].event);
            sendDueSteps();
        }
        break;
    case PlayStateTriggers::Released:
        m_isReleased = m_isReleased || m_state == State::Running;
        break;
    case PlayStateTriggers::Aborted:
        finish();
        break;
    }
    const bool isDone = m_state == State::Running && m_next == m_steps.size();
    if (isDone && (m_until == Until::StepsDone || m_isReleased))
        finish();
    return m_state != State::Over;
}

int MacroRun::delay() const
{
    return isWaitingForTimer() ? m_steps[m_next].delay : -1;
}

void MacroRun::sendDueSteps()
{
    while (m_next < m_steps.size() && m_steps[m_next].delay <= 0)
        send(m_steps[m_next++].event);
}

void MacroRun::send(const InputEvent& event)
{
    InputEvent end;
    const bool isBeginning = InputEvents::endOf(event, end);
    const QString ended = InputEvents::toText(isBeginning ? end : event);
    const auto pending = std::find_if(m_pending.begin(), m_pending.end(),
        [&](const InputEvent& other) { return InputEvents::toText(other) == ended; });
    if (isBeginning && pending == m_pending.end())
        m_pending.push_back(end);
    else if (!isBeginning && pending != m_pending.end())
        m_pending.erase(pending);
    m_sink->send(event);
}

void MacroRun::finish()
{
    m_state = State::Over;
    while (!m_pending.empty()) {
        const InputEvent end = m_pending.back();
        m_pending.pop_back();
        m_sink->send(end);
    }
}
