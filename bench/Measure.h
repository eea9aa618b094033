#pragma once

#include <QElapsedTimer>
#include <QStringList>

/// What something took, in milliseconds.
class Times
{
public:
    /// Of the process's CPU, all its threads together.
    double cpu = 0;
    double clock = 0;

    /// Starts this program anew with these arguments, and returns what that says by print(). Ends this
    /// process if it says nothing.
    static Times ofOwnProcess(const QStringList& arguments);

    void print() const;
};

/// Runs from its making.
class Stopwatch
{
public:
    Stopwatch();

    Times times() const;
    /// The same, but of the CPU all that the process took since its start.
    Times timesSinceStart() const;

private:
    double m_cpuBefore;
    QElapsedTimer m_clock;
};
