#pragma once

#include <QSet>
#include <QString>

#include <functional>

/// The ids, in capitals, of deleted profiles that a device may still hold. They are kept in a file, since the
/// device may be away for longer than the application runs; else it would bring them back.
class DeletedProfiles
{
public:
    /// Reads the file, which need not be there.
    explicit DeletedProfiles(const QString& file);

    const QSet<QString>& ids() const { return m_ids; }
    /// These two answer with the reason, for people, if the file can't be written.
    QString add(const QString& profileId);
    QString forgetUnless(const std::function<bool(const QString& id)>& isNeeded);

private:
    QString save() const;

    QString m_file;
    QSet<QString> m_ids;
};
