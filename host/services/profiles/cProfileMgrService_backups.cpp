// Backups, and what comes back from them.
#include "cProfileMgrService.h"

#include <ISettings.h>
#include <ProfileDiff.h>
#include <ProfileIds.h>

#include <QCoreApplication>

using namespace ProfileChanges;
using Reason = ProfileBackups::Reason;

namespace {

/// Settings key, string: the version of the application that had the profiles last.
const QLatin1String VersionKey("profiles/version");

} // namespace

void cProfileMgrService::backUp(Reason reason, const QString& note)
{
    // Another process that holds the profiles makes its own.
    if (m_store.isReadOnly() || m_backedUpStep == m_history.openStep())
        return;
    m_backedUpStep = m_history.openStep();
    // The backup is made of the documents. What can't be saved is told by the store.
    m_store.writeNow();
    const QString failure = m_backups.make(reason, note);
    if (!failure.isEmpty() && failure != m_backupFailure)
        Q_EMIT problem(tr("The profiles could not be backed up: %1.").arg(failure));
    m_backupFailure = failure;
}

void cProfileMgrService::backUpDaily()
{
    if (m_store.isReadOnly() || !m_backups.isDailyDue())
        return;
    // Whatever step there is, the day's backup is one of its own.
    m_backedUpStep = -1;
    backUp(Reason::Daily, QString());
    m_backedUpStep = -1;
}

void cProfileMgrService::backUpBeforeAnUpgrade()
{
    if (!m_surroundings.settings || m_store.isReadOnly())
        return;
    const QString version = QCoreApplication::applicationVersion();
    const QString before = m_surroundings.settings->getPropertyString(VersionKey);
    if (version == before)
        return;
    backUp(Reason::Upgrade, before.isEmpty() ? version : tr("%1 to %2").arg(before, version));
    m_backedUpStep = -1;
    m_surroundings.settings->setPropertyString(VersionKey, version);
}

int cProfileMgrService::bringBack(const QString& backup, const QStringList& documents)
{
    Changes changes;
    QStringList names;
    QSet<QString> ids;
    for (ProfileBackups::Entry& entry : m_backups.read(backup)) {
        if (!documents.contains(entry.document))
            continue;
        if (!entry.profile) {
            Q_EMIT problem(tr("%1 was not brought back: %2.").arg(entry.document, entry.problem));
            continue;
        }
        Profile& wanted = *entry.profile;
        const QString id = wanted.uid().toUpper();
        if (ids.contains(id) || presenceOf(wanted) == Presence::Same)
            continue;
        ids.insert(id);
        tidyMacros(wanted);
        if (withName(wanted.name()))
            wanted.properties["name"] = freeName(wanted.name(), {}, wanted.uid());
        names.append(wanted.name());
        if (const Profile* present = profile(id)) {
            for (ProfileChange& change : ProfileDiff::changes(*present, wanted))
                changes.push_back(std::move(change));
        } else {
            changes.emplace_back(InsertProfile {std::move(wanted), -1});
        }
    }
    if (changes.empty())
        return 0;
    backUp(Reason::Restore, names.join(QLatin1String(", ")));
    const QString name = names.size() == 1 ? tr("Bring Back Profile %1").arg(names.first())
                                           : tr("Bring Back %1 Profiles").arg(names.size());
    return perform({name, QString()}, std::move(changes)) ? names.size() : 0;
}
