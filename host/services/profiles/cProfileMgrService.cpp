#include "cProfileMgrService.h"

#include <EventNames.h>
#include <FixedIds.h>
#include <IMacroTypeMgr.h>
#include <IServiceMgr.h>
#include <ISettings.h>
#include <ProfileDocument.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace ProfileChanges;

namespace {

/// Where the settings keep the roles.
const QLatin1String DefaultKey("profiles/default");
const QLatin1String PersistentKey("profiles/persistent");

/// Folder of the backups, beside that of the profiles.
const QLatin1String BackupsFolder("backups");
/// How often it is looked whether a new day has begun, in milliseconds.
constexpr int DailyCheckTime = 15 * 60 * 1000;

template<typename T>
QGenericArgument tagged(const char* type, const T& value)
{
    return QGenericArgument(type, &value);
}

} // namespace

cProfileMgrService::cProfileMgrService(
    const QString& folder, const QString& defaultDocument, const Surroundings& surroundings, QObject* parent)
    : IProfileMgr(parent)
    , m_defaultDocument(defaultDocument)
    , m_surroundings(surroundings)
    , m_store(folder, macroTypes(), [this](const QString& profileId) { return m_book.find(profileId); })
    , m_history([this](ProfileStep step) { return carryOut(std::move(step)); })
    , m_backups(QDir(QFileInfo(folder).absolutePath()).filePath(BackupsFolder), folder, macroTypes())
{
    connect(&m_dailyTimer, SIGNAL(timeout()), this, SLOT(backUpDaily()));
    connect(&m_store, SIGNAL(problem(QString)), this, SIGNAL(problem(QString)));
}

cProfileMgrService::~cProfileMgrService() = default;

void cProfileMgrService::load()
{
    backUpBeforeAnUpgrade();
    std::vector<Profile> profiles = m_store.readAll();
    const auto isBefore = [](const Profile& a, const Profile& b) {
        if (const int order = a.name().localeAwareCompare(b.name()); order != 0)
            return order < 0;
        return a.uid() < b.uid();
    };
    std::sort(profiles.begin(), profiles.end(), isBefore);
    Changes changes;
    for (Profile& profile : profiles) {
        tidyMacros(profile);
        const bool isFirst = isDefaultConfiguration(profile.uid());
        changes.emplace_back(InsertProfile {std::move(profile), isFirst ? 0 : -1});
    }
    // Nobody listens yet, and what was read need not be written.
    m_book.apply({std::move(changes)});
    loadDefaultProfile();
    restoreRoles();
    backUpDaily();
    m_dailyTimer.start(DailyCheckTime);
}

void cProfileMgrService::loadDefaultProfile()
{
    if (profile(FixedIds::DefaultProfile))
        return;
    Profile profile;
    QFile file(m_defaultDocument);
    ProfileDocument::ReadResult result;
    if (file.open(QIODevice::ReadOnly))
        result = ProfileDocument::read(file.readAll(), macroTypes());
    else
        result.error = file.errorString();
    if (!result.error.isEmpty())
        Q_EMIT problem(tr("The profile that new users begin with can't be read: %1.").arg(result.error));
    if (!result.profiles.empty())
        profile = result.profiles.front();
    tidyMacros(profile);
    profile.properties["uid"] = QString(FixedIds::DefaultProfile);
    if (profile.name().isEmpty())
        profile.properties["name"] = tr("Default Profile");
    Changes changes;
    changes.emplace_back(InsertProfile {std::move(profile), 0});
    carryOut({std::move(changes)});
    publishWaiting();
}

void cProfileMgrService::restoreRoles()
{
    const auto stored = [this](QLatin1String key) {
        return m_surroundings.settings ? m_surroundings.settings->getPropertyString(key) : QString();
    };
    const auto idOr = [this](const QString& id, const QString& otherwise) {
        return profile(id) ? id : otherwise;
    };
    const QString byDefault = idOr(stored(DefaultKey), FixedIds::DefaultProfile);
    const QString persistent = idOr(stored(PersistentKey), QString());
    m_book.apply({{SetRole {Role::Default, byDefault}, SetRole {Role::Persistent, persistent},
        SetRole {Role::Current, chooseCurrent(persistent, byDefault)}}});
}

void cProfileMgrService::storeRoles()
{
    if (!m_surroundings.settings)
        return;
    m_surroundings.settings->setPropertyString(DefaultKey, m_book.withRole(Role::Default));
    m_surroundings.settings->setPropertyString(PersistentKey, m_book.withRole(Role::Persistent));
}

void cProfileMgrService::publishWaiting()
{
    if (m_isPublishing)
        return;
    m_isPublishing = true;
    while (!m_waiting.isEmpty())
        publish(m_waiting.dequeue());
    m_isPublishing = false;
}

void cProfileMgrService::publish(const ProfileEvent& event)
{
    struct Publisher
    {
        void operator()(const ProfileEvents::ProfileAdded& e) const
        {
            send(Events::ProfileAdded, e.profileId);
        }
        void operator()(const ProfileEvents::ProfileDeleted& e) const
        {
            send(Events::ProfileDeleted, e.profileId);
        }
        void operator()(const ProfileEvents::ProfilePropertyChanged& e) const
        {
            send(Events::ProfilePropertyChanged, e.profileId);
        }
        void operator()(const ProfileEvents::CurrentProfileSwitched& e) const
        {
            send(Events::CurrentProfileSwitched, e.profileId);
        }
        void operator()(const ProfileEvents::MacroAdded& e) const
        {
            send(Events::MacroAdded, e.profileId, e.macro);
        }
        void operator()(const ProfileEvents::MacroDeleted& e) const
        {
            send(Events::MacroDeleted, e.profileId, e.macro);
        }
        void operator()(const ProfileEvents::MacroChanged& e) const
        {
            send(Events::MacroChanged, e.profileId, e.macro);
        }
        void operator()(const ProfileEvents::MacroAssigned& e) const
        {
            IServiceMgr::instance()->publish(EventSources::ProfileMgr, Events::MacroAssigned,
                tagged("QString", e.profileId), tagged("QString", e.control.category),
                tagged("QString", e.macroId), tagged("MKey::MKey_t", e.control.mode),
                tagged("QString", e.control.contextId));
        }
        void operator()(const ProfileEvents::AssignmentRemoved& e) const
        {
            IServiceMgr::instance()->publish(EventSources::ProfileMgr, Events::AssignmentRemoved,
                tagged("QString", e.profileId), tagged("QString", e.control.category),
                tagged("MKey::MKey_t", e.control.mode), tagged("QString", e.control.contextId),
                tagged("QString", e.macroId));
        }

        static void send(QLatin1String name, const QString& profileId)
        {
            IServiceMgr::instance()->publish(EventSources::ProfileMgr, name, tagged("QString", profileId));
        }
        static void send(QLatin1String name, const QString& profileId, const cJsonValue& macro)
        {
            IServiceMgr::instance()->publish(
                EventSources::ProfileMgr, name, tagged("QString", profileId), tagged("cJsonValue", macro));
        }
    };
    std::visit(Publisher(), event);
}

MacroTypeLookup cProfileMgrService::macroTypes() const
{
    return [this](const QString& macroNamespace) {
        return macroType(macroNamespace);
    };
}

cMacroTypePtr cProfileMgrService::macroType(const QString& macroNamespace) const
{
    return m_surroundings.macroTypes ? m_surroundings.macroTypes->getMacroTypeByID(macroNamespace)
                                     : cMacroTypePtr();
}
