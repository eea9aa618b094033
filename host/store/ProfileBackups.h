#pragma once

#include "MacroTypeLookup.h"
#include "Profile.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// Copies of the folder of profiles as it was at certain moments.
///
/// A backup is a folder with the documents as they stood and a manifest that tells when and why it was made
/// and what the documents' contents have to be. It is made under another name and renamed when it is whole. A
/// document that is the same as in the backup before shares its file. Of the daily backups and of the others
/// the newest ones are kept; what can't be understood is never removed.
class ProfileBackups
{
public:
    enum class Reason { Daily, Import, Deletion, Upgrade, Restore };
    using Clock = std::function<QDateTime()>;

    /// So many daily ones are kept, and so many others.
    static constexpr int Kept = 20;

    struct Backup
    {
        /// Names it in the calls of this class.
        QString name;
        QDateTime time;
        Reason reason = Reason::Daily;
        /// What it was made before, for people; may be empty.
        QString note;
        /// Number of documents.
        int count = 0;
        /// Why the backup can't be used as a whole; empty if it can.
        QString problem;
    };

    struct Entry
    {
        QString document;
        /// Nothing if it can't be used.
        std::optional<Profile> profile;
        /// Why not, for people.
        QString problem;
    };

    /// `folder` holds the backups of the documents in `documents`.
    ProfileBackups(
        QString folder, QString documents, MacroTypeLookup types, Clock now = &QDateTime::currentDateTimeUtc);

    /// Copies the documents as they are on the disk and removes backups that are too old. Returns why it
    /// could not be made, for people; empty if it was, or if there is nothing to copy.
    QString make(Reason reason, const QString& note = QString());

    /// True if there is no daily backup of the day that it is now.
    bool isDailyDue() const;

    /// All backups, the newest first.
    std::vector<Backup> list() const;
    /// What a backup holds, by the names of its profiles, what can't be used at the end. Nothing for an
    /// unknown name.
    std::vector<Entry> read(const QString& name) const;

    const QString& folder() const { return m_folder; }
    /// The reason in words.
    static QString text(Reason reason);

private:
    struct Document
    {
        QString name;
        qint64 size = 0;
        QString digest;
    };
    struct Manifest;

    QString path(const QString& name) const;
    static bool isName(const QString& name);
    Manifest readManifest(const QString& name) const;
    QString fill(const QString& target, Reason reason, const QString& note) const;
    /// Paths of the documents of the newest backup that can be used, by the digest that they should have.
    QHash<QString, QString> lastDocuments() const;
    Entry readEntry(const QString& path, const Document* expected) const;
    void removeOld() const;

    QString m_folder;
    QString m_documents;
    MacroTypeLookup m_types;
    Clock m_now;
};
