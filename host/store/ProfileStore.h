#pragma once

#include "MacroTypeLookup.h"
#include "Profile.h"

#include <QHash>
#include <QLockFile>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <vector>

/// The folder in which profiles are kept, one document each.
///
/// A document is only ever replaced as a whole, by a file that was written beside it and has reached the
/// disk, so a process that ends at any moment leaves each document as it was before or as it is after. What
/// can't be read is moved to the folder "damaged" with its reason beside it, and never written over. A second
/// process that opens the folder while the first one lives may read but not write.
class ProfileStore : public QObject
{
    Q_OBJECT

public:
    /// The present state of a profile; null when it is gone. The store asks for it when it writes.
    using Source = std::function<const Profile*(const QString& profileId)>;

    /// How long a change waits for others before it is written, in milliseconds.
    static constexpr int WriteDelay = 500;
    /// How long the store waits before it tries a failed write again, in milliseconds; doubled at each
    /// round that fails.
    static constexpr int FirstRetryDelay = 2000;
    static constexpr int LastRetryDelay = 60000;

    /// Takes hold of the folder, which is made if it is missing.
    ProfileStore(const QString& folder, MacroTypeLookup types, Source source, QObject* parent = nullptr);
    /// Writes what is still to be written.
    ~ProfileStore() override;

    /// True if another process holds the folder, or it can't be written to. Nothing is written then.
    bool isReadOnly() const { return m_isReadOnly; }

    /// Reads all documents, in the order of their files' names. Called once, before anything is written.
    std::vector<Profile> readAll();

    /// Notes that the profile's document is out of date, or has to go because its profile is gone.
    void markChanged(const QString& profileId);
    bool hasUnwritten() const { return !m_changed.isEmpty(); }

    /// Writes everything that is out of date now; false if something could not be written, which stays noted.
    bool writeNow();
    /// The same for one profile.
    bool writeNow(const QString& profileId);
    /// Writes what is out of date into another folder, into documents of its own beside what is there. It
    /// stays out of date here. Returns what went wrong, for people; empty if nothing did.
    QString writeUnwrittenTo(const QString& folder) const;
    /// The profiles that writeUnwrittenTo() would write.
    std::vector<const Profile*> unwritten() const;

    /// What could not be written, as it was told, since all was written last.
    QStringList failures() const;

    /// True for a path in the folder: what stands there is the store's.
    bool holds(const QString& path) const;

    /// The name of the document of a profile: made of the digits of an id that is a UUID, of a digest for any
    /// other.
    static QString fileName(const QString& profileId);

Q_SIGNALS:
    /// Something that the user has to know, in words. The same failure is told once until all is written.
    void problem(const QString& text);

private Q_SLOTS:
    void onWriteTimer();

private:
    void openFolder();
    /// Returns the reason if the document can't be used; `isUnread` is then true if the file itself could not
    /// be read.
    QString readDocument(const QString& path, std::vector<Profile>& profiles, bool* isUnread);
    QString readOnlyText() const;
    static QString unusable(const QString& path, const QString& reason);
    void setAside(const QString& path, const QString& reason);
    /// Writes what is out of date of a profile whose id is in capitals.
    bool write(const QString& id);
    bool writeOne(const QString& profileId);
    bool removeOne(const QString& path);
    /// Where the profile's document is, or goes: never at the place of a file that is not its own.
    QString documentPath(const QString& profileId);
    /// A path for the profile's document at which no file is.
    static QString freePath(const QString& folder, const QString& profileId);
    void reportFailure(const QString& text);
    void scheduleRetry();

    QString m_folder;
    MacroTypeLookup m_types;
    Source m_source;
    QLockFile m_lock;
    bool m_isReadOnly = false;
    /// The documents by profile id in capitals.
    QHash<QString, QString> m_paths;
    /// Ids in capitals whose documents are out of date.
    QSet<QString> m_changed;
    QTimer m_writeTimer;
    int m_retryDelay = FirstRetryDelay;
    /// The failures that were reported since all was written.
    QSet<QString> m_reported;
};
