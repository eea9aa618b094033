// How profiles come in from files.
#include "cProfileMgrService.h"

#include <IMainUI.h>
#include <ProfileDiff.h>
#include <ProfileDocument.h>
#include <ProfileIds.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace ProfileChanges;

namespace {

QString fileNameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}

} // namespace

/// What becomes of the profiles of one import. The user is asked first, and what there is may change
/// meanwhile.
class cProfileMgrService::Import
{
public:
    explicit Import(cProfileMgrService& service)
        : m_service(service)
    { }

    /// Asks about a profile if one like it is there.
    void consider(Profile profile, const QString& path)
    {
        const Profile* present = m_service.profile(profile.uid());
        const bool isSameId = present != nullptr;
        if (!present)
            present = m_service.withName(profile.name());
        Decision decision;
        // A second one of this import stays beside the first.
        if (present && !m_asked.contains(present->uid().toUpper())) {
            m_asked.insert(present->uid().toUpper());
            decision.presentId = present->uid();
            decision.answer = ask(profile, *present, isSameId, path);
        }
        decision.profile = std::move(profile);
        m_decisions.push_back(std::move(decision));
    }

    Changes changes()
    {
        Changes changes;
        for (Decision& decision : m_decisions) {
            if (decision.answer == ConflictResolution::DoNothing)
                continue;
            const Profile* present = m_service.profile(decision.presentId);
            if (present && decision.answer == ConflictResolution::Replace)
                replace(*present, std::move(decision.profile), changes);
            else
                insert(std::move(decision.profile), changes);
        }
        return changes;
    }

    /// Names of the profiles that come in.
    const QStringList& names() const { return m_names; }

private:
    struct Decision
    {
        Profile profile;
        QString presentId;
        ConflictResolution::ConflictResolution_t answer = ConflictResolution::Duplicate;
    };

    ConflictResolution::ConflictResolution_t ask(
        const Profile& profile, const Profile& present, bool isSameId, const QString& path) const
    {
        IMainUI* const mainUI = m_service.m_surroundings.mainUI;
        if (!mainUI)
            return ConflictResolution::Duplicate;
        const QString description = isSameId
            ? tr("This profile is on your computer already, as \"%1\".").arg(present.name())
            : tr("Your computer has another profile of the name \"%1\".").arg(present.name());
        const std::size_t count = profile.macros.size();
        const QString commands = count == 1 ? tr("one command") : tr("%1 commands").arg(count);
        const QString item = tr("%1, with %2, from %3").arg(profile.name(), commands, fileNameOf(path));
        return mainUI->conflict(
            tr("Import Profile"), description, item, tr("Replace"), tr("Leave as It Is"), tr("Keep Both"));
    }

    QString nameFor(const Profile& profile, const QString& exceptId)
    {
        const QString name =
            m_service.freeName(profile.name(), QSet<QString>(m_names.begin(), m_names.end()), exceptId);
        m_names.append(name);
        return name;
    }

    void replace(const Profile& present, Profile profile, Changes& changes)
    {
        profile.properties["uid"] = present.uid();
        profile.properties["name"] = nameFor(profile, present.uid());
        // It stays where it is, too.
        if (present.properties.contains("deviceid"))
            profile.properties["deviceid"] = present.properties["deviceid"];
        m_ids.insert(present.uid().toUpper());
        for (ProfileChange& change : ProfileDiff::changes(present, profile))
            changes.push_back(std::move(change));
    }

    void insert(Profile profile, Changes& changes)
    {
        const QString id = profile.uid().toUpper();
        if (id.isEmpty() || m_service.profile(id) || m_ids.contains(id))
            profile.properties["uid"] = ProfileIds::newUid();
        m_ids.insert(profile.uid().toUpper());
        profile.properties["name"] = nameFor(profile, QString());
        changes.emplace_back(InsertProfile {std::move(profile), -1});
    }

    cProfileMgrService& m_service;
    std::vector<Decision> m_decisions;
    /// Ids in capitals that the user was asked about, and that come in.
    QSet<QString> m_asked;
    QSet<QString> m_ids;
    QStringList m_names;
};

void cProfileMgrService::importProfile(const QString& profilePath)
{
    importProfiles({profilePath});
}

cProfileMgrService::ImportFile cProfileMgrService::readImport(const QString& path) const
{
    ImportFile file;
    file.path = path;
    QFile document(path);
    if (!QFileInfo(path).isFile() || !document.open(QIODevice::ReadOnly)) {
        file.problem = tr("it can't be opened");
        return file;
    }
    if (document.size() > ProfileDocument::MaxSize) {
        file.problem = tr("it is larger than %1 MB").arg(ProfileDocument::MaxSize / 1024 / 1024);
        return file;
    }
    const QByteArray content = document.readAll();
    if (document.error() != QFileDevice::NoError) {
        file.problem = document.errorString();
        return file;
    }
    ProfileDocument::ReadResult result = ProfileDocument::read(content, macroTypes());
    file.problem = result.error;
    if (file.problem.isEmpty() && result.profiles.empty())
        file.problem = tr("it holds no profiles");
    for (Profile& profile : result.profiles) {
        if (profile.name().isEmpty())
            profile.properties["name"] = QFileInfo(path).completeBaseName();
        // It comes to this computer, wherever it was before.
        profile.properties.deleteKey(QStringLiteral("deviceid"));
        tidyMacros(profile);
    }
    file.profiles = std::move(result.profiles);
    return file;
}

void cProfileMgrService::importProfiles(const QStringList& paths)
{
    std::vector<ImportFile> files;
    bool isAny = false;
    for (const QString& path : paths) {
        ImportFile file = readImport(path);
        if (!file.problem.isEmpty()) {
            Q_EMIT problem(tr("%1 was not imported: %2.").arg(QDir::toNativeSeparators(path), file.problem));
        }
        isAny = isAny || !file.profiles.empty();
        files.push_back(std::move(file));
    }
    if (!isAny || (m_importReview && !m_importReview(files)))
        return;
    Import import(*this);
    QStringList names;
    for (ImportFile& file : files) {
        for (Profile& profile : file.profiles)
            import.consider(std::move(profile), file.path);
        if (!file.profiles.empty())
            names.append(fileNameOf(file.path));
    }
    Changes changes = import.changes();
    if (changes.empty())
        return;
    backUp(ProfileBackups::Reason::Import, names.join(QLatin1String(", ")));
    const QString name = import.names().size() == 1 ? tr("Import Profile %1").arg(import.names().first())
                                                    : tr("Import %1 Profiles").arg(import.names().size());
    perform({name, QString()}, std::move(changes));
}

cProfileMgrService::Presence cProfileMgrService::presenceOf(const Profile& other) const
{
    const Profile* present = profile(other.uid());
    if (!present)
        return withName(other.name()) ? Presence::NameTaken : Presence::New;
    if (*present == other)
        return Presence::Same;
    // What says the same need not have the same shape: a document leaves out what is false or empty.
    const bool isSame =
        ProfileDocument::write({*present}, macroTypes()) == ProfileDocument::write({other}, macroTypes());
    return isSame ? Presence::Same : Presence::Different;
}
