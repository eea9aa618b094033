#pragma once

#include <QString>

/// Who plays commands without a key.
class ICommandPlayer
{
public:
    /// Plays the profile's command of that name, as a short press of its key would. False if there is no such
    /// command or if it can't be played.
    virtual bool play(const QString& profileID, const QString& macroName) = 0;
    /// Ends what plays; false if nothing does.
    virtual bool abort() = 0;

protected:
    ~ICommandPlayer() = default;
};
