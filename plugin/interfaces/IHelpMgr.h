#pragma once

#include <QObject>
#include <QString>

/// The help window and the collections that it shows.
class IHelpMgr : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Adds a help page: `helpUrl` is where it opens for `helpID`, `helpFilePath` the folder that holds
    /// its files.
    Q_INVOKABLE virtual bool registerHelp(
        const QString& helpID, const QString& helpUrl, const QString& helpFilePath) = 0;

    /// Removes the pages of a folder.
    Q_INVOKABLE virtual bool unRegisterHelp(const QString& helpFilePath) = 0;

    /// Opens the help at the page registered for an id.
    Q_INVOKABLE virtual void LaunchHelpByViewID(const QString& helpID) = 0;

    /// Opens the help at a topic file of a section.
    Q_INVOKABLE virtual void LaunchHelp(const QString& section, const QString& topic) = 0;

    /// Closes the help window and lets its files go.
    Q_INVOKABLE virtual void unloadHelp() = 0;
};
