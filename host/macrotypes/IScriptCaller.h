#pragma once

#include <QString>

/// Who calls functions of profiles' scripts.
class IScriptCaller
{
public:
    /// Calls the function of the profile's script, with the argument unless that is empty. False if it can't
    /// be called now; the user has been told why. How the call ends shows later.
    virtual bool call(const QString& profileID, const QString& function, const QString& argument) = 0;
    /// Ends the call that goes on; false if there is none.
    virtual bool abortCall() = 0;

protected:
    ~IScriptCaller() = default;
};
