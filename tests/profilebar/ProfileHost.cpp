#include "ProfileHost.h"

#include <cMacroBindingView.h>
#include <FixedIds.h>
#include <ShownInView.h>

#include <QLoggingCategory>

#include <algorithm>

namespace {

/// The operations that change nothing and show nothing.
const QStringList Queries {"profiles", "getProfileByID", "getProfileName", "getProfileDeviceId",
    "profileIcon", "shortDeviceName", "window", "getPropertyString", "isDefaultConfiguration",
    "profileHasBackup", "hasCustomIcon", "getDefaultProfileID", "getPersistentProfileID", "lcdDevices"};

} // namespace

cJsonValue HostProfile::record() const
{
    cJsonValue record;
    record["uid"] = uid;
    record["name"] = name;
    record["target"] = target;
    record["deviceid"] = deviceId;
    return record;
}

ProfileHost::ProfileHost(const QStringList& names, const QString& pictures)
    : folder(pictures.isEmpty() ? QStringLiteral(PROJECT_FOLDER) : pictures)
    , defaultId(FixedIds::DefaultProfile)
{
    // A tile tells when the pointer leaves it; see the test of this line.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    for (const QString& name : names)
        put(name);
    answerProfiles();
    answerSettings();
    window.setGeometry(50, 50, 700, 500);
    host.answer("window", static_cast<QWidget*>(&window));
    host.answer("yesno", [this](const RecordedCall&) { return QVariant(sure); });
    setShownInView(*cMacroBindingView::instance(), QString(), QString(), MKey::M1);
    clear();
}

ProfileHost::~ProfileHost()
{
    QLoggingCategory::setFilterRules(QString());
}

QString ProfileHost::idOf(const QString& name)
{
    return name == QLatin1String("Default") ? QString(FixedIds::DefaultProfile) : '{' + name + '}';
}

QStringList ProfileHost::someNames(int count)
{
    QStringList names {"Default"};
    for (int i = 1; i < count; ++i)
        names.append(QString("P%1").arg(i, 3, 10, QChar('0')));
    return names.mid(0, count);
}

void ProfileHost::answerProfiles()
{
    const auto ask = [this](const QString& operation, auto answer) {
        host.answer(operation, [this, answer](const RecordedCall& call) {
            const QString id = call.values[0].toString();
            const auto found = std::find_if(
                profiles.begin(), profiles.end(), [&](const HostProfile& one) { return one.uid == id; });
            return found == profiles.end() ? QVariant() : QVariant::fromValue(answer(*found));
        });
    };
    host.answer("profiles", [this](const RecordedCall&) {
        cJsonValue all;
        for (const HostProfile& one : qAsConst(profiles))
            all.append(one.record());
        return QVariant::fromValue(all);
    });
    ask("getProfileByID", [](const HostProfile& one) { return one.record(); });
    ask("getProfileName", [](const HostProfile& one) { return one.name; });
    ask("getProfileDeviceId", [](const HostProfile& one) { return one.deviceId; });
    ask("profileIcon", [](const HostProfile& one) { return one.icon; });
    ask("isDefaultConfiguration", [](const HostProfile& one) { return one.uid == FixedIds::DefaultProfile; });
    ask("profileHasBackup", [this](const HostProfile& one) { return withBackup.contains(one.uid); });
    ask("hasCustomIcon", [this](const HostProfile& one) { return withCustomIcon.contains(one.uid); });
    host.answer("getDefaultProfileID", [this](const RecordedCall&) { return QVariant(defaultId); });
    host.answer("getPersistentProfileID", [this](const RecordedCall&) { return QVariant(persistentId); });
    host.answer("deleteProfileByID", [this](const RecordedCall& call) {
        remove(call.values[0].toString());
        return QVariant(true);
    });
    host.answer("shortDeviceName",
        [](const RecordedCall& call) { return QVariant(call.values[0].toString().left(3).toUpper()); });
}

void ProfileHost::answerSettings()
{
    host.answer("getPropertyString", [this](const RecordedCall& call) {
        return QVariant(settings.value(call.values[0].toString(), call.values.value(1).toString()));
    });
    host.answer("setPropertyString", [this](const RecordedCall& call) {
        settings[call.values[0].toString()] = call.values[1].toString();
    });
}

HostProfile& ProfileHost::put(const QString& name, const QString& deviceId)
{
    HostProfile added;
    added.uid = idOf(name);
    added.name = name;
    added.deviceId = deviceId;
    profiles.append(added);
    return profiles.last();
}

HostProfile& ProfileHost::profile(const QString& id)
{
    return *std::find_if(
        profiles.begin(), profiles.end(), [&](const HostProfile& one) { return one.uid == id; });
}

void ProfileHost::add(const QString& name, const QString& deviceId)
{
    host.publishProfileAdded(put(name, deviceId).uid);
}

void ProfileHost::rename(const QString& id, const QString& name)
{
    profile(id).name = name;
    host.publishProfilePropertyChanged(id);
}

void ProfileHost::remove(const QString& id)
{
    profiles.erase(std::remove_if(profiles.begin(), profiles.end(),
                       [&](const HostProfile& one) { return one.uid == id; }),
        profiles.end());
    host.publishProfileDeleted(id);
}

QStringList ProfileHost::takeRequests()
{
    QStringList requests;
    for (const QString& call : host.takeCalls()) {
        if (!Queries.contains(call.section('(', 0, 0)))
            requests.append(call);
    }
    return requests;
}

QStringList ProfileHost::takeEvents()
{
    QStringList events;
    for (const QString& line : host.takeLog()) {
        if (line.startsWith(QLatin1String("publish "))) {
            const QString event = line.section(' ', 2);
            events.append(event.section('(', 0, 0) + ' ' + event.section('"', 1, 1));
        }
    }
    return events;
}

void ProfileHost::clear()
{
    host.clear();
}
