#pragma once

#include <QObject>
#include <QString>

/// The scripts of profiles.
class ILuaScript : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Opens or closes the script editor of a profile.
    Q_INVOKABLE virtual void showEditor(bool visible, const QString& profileID) = 0;

    /// Runs a script for a profile; false if it could not be started.
    Q_INVOKABLE virtual bool run(const QString& profileID, const QString& script) = 0;

    /// Stops the script that runs.
    Q_INVOKABLE virtual void stop() = 0;
};
