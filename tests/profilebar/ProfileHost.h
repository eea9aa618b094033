#pragma once

#include <cJsonValue.h>
#include <PluginFolder.h>
#include <RecordingHost.h>

#include <QHash>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QWidget>

/// What a profile of the host is.
class HostProfile
{
public:
    QString uid;
    QString name;
    QString target;
    QString deviceId;
    QPixmap icon;

    cJsonValue record() const;
};

/// A recording host that keeps profiles and settings as a host does: what the plug-in asks for comes back,
/// and what it asks to delete goes, with its event. It has a main window, and the plug-in's own pictures.
class ProfileHost
{
    Q_DISABLE_COPY(ProfileHost)

public:
    /// The profiles have the names as their ids too; "Default" has the id of the fixed default profile.
    explicit ProfileHost(const QStringList& names = {}, const QString& pictures = QString());
    ~ProfileHost();

    static QString idOf(const QString& name);
    /// So many names, "Default" first.
    static QStringList someNames(int count);

    /// Stores a profile without an event.
    HostProfile& put(const QString& name, const QString& deviceId = QString());
    HostProfile& profile(const QString& id);
    // What the host does of its own accord, with the event.
    void add(const QString& name, const QString& deviceId = QString());
    void rename(const QString& id, const QString& name);
    void remove(const QString& id);

    /// The calls since the last take that change something or talk to the user, briefly.
    QStringList takeRequests();
    /// The events that the plug-in published since the last take, as in: ProfileSelectionChanging {1}
    QStringList takeEvents();
    void clear();

    const PluginFolder folder;
    RecordingHost host;
    QWidget window;
    QVector<HostProfile> profiles;
    QHash<QString, QString> settings;
    QString defaultId;
    QString persistentId;
    /// Ids of profiles for which the host says so.
    QStringList withBackup;
    QStringList withCustomIcon;
    /// What the user answers to a question.
    bool sure = true;

private:
    void answerProfiles();
    void answerSettings();
};
