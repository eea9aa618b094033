#include "ProfileHistory.h"

#include <QMetaObject>
#include <QUndoCommand>

#include <iterator>
#include <utility>

namespace {

/// Puts what undoes a later part before what undoes the earlier ones.
void prepend(ProfileStep& step, ProfileStep later)
{
    later.changes.insert(later.changes.end(), std::make_move_iterator(step.changes.begin()),
        std::make_move_iterator(step.changes.end()));
    step = std::move(later);
}

} // namespace

/// One step. It is carried out when it is pushed, and holds what takes it to its other side.
class ProfileHistory::Command : public QUndoCommand
{
public:
    Command(ProfileHistory& history, StepName name, ProfileStep inverse)
        // A line end would divide the text into one for lists and one for menus.
        : QUndoCommand(name.one.simplified())
        , m_history(history)
        , m_name(std::move(name))
        , m_number(history.m_step)
        , m_next(std::move(inverse))
    { }

    /// One number for all, so that the stack tries to merge.
    int id() const override { return 1; }

    bool mergeWith(const QUndoCommand* other) override
    {
        const auto* const later = static_cast<const Command*>(other);
        if (later->m_number != m_number)
            return false;
        take(later->m_next);
        // The first kind of step names the whole; what follows from it does not.
        if (!m_name.many.isEmpty() && later->m_name.many == m_name.many)
            setText(m_name.many.arg(++m_count));
        return true;
    }

    void take(ProfileStep later) { prepend(m_next, std::move(later)); }

    void undo() override { turn(); }

    void redo() override
    {
        // The stack calls this for a command that it is given.
        if (std::exchange(m_isNew, false))
            return;
        turn();
    }

private:
    void turn()
    {
        m_next = m_history.m_carryOut(std::move(m_next));
        m_history.m_running = this;
    }

    ProfileHistory& m_history;
    StepName m_name;
    int m_number = 0;
    /// Steps of the first kind.
    int m_count = 1;
    bool m_isNew = true;
    /// Undoes the step if it is done, else does it.
    ProfileStep m_next;
};

ProfileHistory::ProfileHistory(CarryOut carryOut, QObject* parent)
    : QObject(parent)
    , m_carryOut(std::move(carryOut))
{
    m_stack.setUndoLimit(Limit);
    connect(&m_stack, SIGNAL(indexChanged(int)), this, SIGNAL(changed()));
}

ProfileHistory::~ProfileHistory() = default;

int ProfileHistory::openStep()
{
    if (!std::exchange(m_isOpen, true))
        QMetaObject::invokeMethod(this, "closeStep", Qt::QueuedConnection);
    return m_step;
}

void ProfileHistory::closeStep()
{
    m_isOpen = false;
    ++m_step;
    m_companions.changes.clear();
}

void ProfileHistory::record(const StepName& name, ProfileStep inverse)
{
    if (inverse.changes.empty())
        return;
    if (m_running) {
        m_running->take(std::move(inverse));
        return;
    }
    openStep();
    prepend(m_companions, std::move(inverse));
    m_stack.push(new Command(*this, name, std::exchange(m_companions, {})));
}

void ProfileHistory::recordCompanion(ProfileStep inverse)
{
    if (m_running) {
        m_running->take(std::move(inverse));
        return;
    }
    openStep();
    prepend(m_companions, std::move(inverse));
}

void ProfileHistory::undo(const std::function<void()>& tell)
{
    run(&QUndoStack::undo, tell);
}

void ProfileHistory::redo(const std::function<void()>& tell)
{
    run(&QUndoStack::redo, tell);
}

void ProfileHistory::run(void (QUndoStack::*direction)(), const std::function<void()>& tell)
{
    // Listeners that ask for another step while they are told of one are not served.
    if (m_running)
        return;
    closeStep();
    (m_stack.*direction)();
    if (!m_running)
        return;
    tell();
    m_running = nullptr;
}
