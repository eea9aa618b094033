#pragma once

#include <ProfileStep.h>

#include <QObject>
#include <QUndoStack>

#include <functional>

/// The steps that the user can undo and redo.
///
/// What is done between two returns to the event loop is one step to its user, however many calls it took:
/// the deletion of five profiles, or "use default" for all keys with what follows from it.
class ProfileHistory : public QObject
{
    Q_OBJECT

public:
    /// Carries out a step in memory and returns its inverse. Listeners are told later.
    using CarryOut = std::function<ProfileStep(ProfileStep)>;

    /// So many steps are kept.
    static constexpr int Limit = 500;

    explicit ProfileHistory(CarryOut carryOut, QObject* parent = nullptr);
    ~ProfileHistory() override;

    /// What is done from now to the return to the event loop is one step, whose number this is.
    int openStep();
    /// Notes a step that was carried out. What can be redone is forgotten.
    void record(const StepName& name, ProfileStep inverse);
    /// Notes what is no step of its own, but is undone with a step that comes in the same turn of the event
    /// loop: roles that are handed over before a deletion.
    void recordCompanion(ProfileStep inverse);

    /// Undoes or redoes one step, if there is one, and then calls `tell`. What is recorded while it runs, in
    /// answer to what listeners were told, becomes part of that step.
    void undo(const std::function<void()>& tell);
    void redo(const std::function<void()>& tell);

    bool canUndo() const { return m_stack.canUndo(); }
    bool canRedo() const { return m_stack.canRedo(); }
    /// The name of the step that is next; empty if there is none.
    QString undoName() const { return m_stack.undoText(); }
    QString redoName() const { return m_stack.redoText(); }

Q_SIGNALS:
    /// Another step is next, or the next one has another name.
    void changed();

public Q_SLOTS:
    /// What comes from now on is a new step.
    void closeStep();

private:
    class Command;

    void run(void (QUndoStack::*direction)(), const std::function<void()>& tell);

    CarryOut m_carryOut;
    QUndoStack m_stack;
    /// Number of the step that is being recorded.
    int m_step = 0;
    bool m_isOpen = false;
    /// What undoes the companions of the step that is being recorded, while it has no other parts.
    ProfileStep m_companions;
    /// The step that was undone or redone and whose listeners are being told.
    Command* m_running = nullptr;
};
