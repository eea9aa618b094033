#include "cDevMgrService.h"

#include "DevMgrEvents.h"
#include "HostDevice.h"

#include <EventNames.h>
#include <IServiceMgr.h>
#include <JsonText.h>

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

/// True if each member of the filter equals the record's; a null filter has none.
bool matches(const cJsonValue& record, const cJsonValue& filter)
{
    const QStringList keys = HVS::jsonKeys(filter);
    return std::all_of(keys.begin(), keys.end(), [&](const QString& key) {
        const QByteArray name = key.toUtf8();
        return record.contains(name.constData()) && record[name.constData()] == filter[name.constData()];
    });
}

/// True if the text can be the name of a search path.
bool isSearchPathName(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("\\A[A-Za-z0-9]{2,}\\z"));
    return pattern.match(text).hasMatch();
}

} // namespace

cDevMgrService::cDevMgrService(QObject* parent)
    : IDevMgr(parent)
{ }

void cDevMgrService::load(const QString& devicesFolder)
{
    m_devices.clear();
    const QFileInfoList folders =
        QDir(devicesFolder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo& folder : folders)
        addDevice(folder.absoluteFilePath());
    if (m_devices.isEmpty())
        Q_EMIT problemFound(
            tr("No devices are installed in %1.").arg(QDir::toNativeSeparators(devicesFolder)));
}

void cDevMgrService::addDevice(const QString& folder)
{
    const auto device = DevicePtr::create(folder);
    if (!device->problem().isEmpty())
        Q_EMIT problemFound(device->problem());
    if (deviceOfModel(device->model())) {
        Q_EMIT problemFound(tr("The device \"%1\" has the model \"%2\", which another device has already.")
                                .arg(device->folderName(), device->model()));
        return;
    }
    if (isSearchPathName(device->folderName()))
        QDir::setSearchPaths(device->folderName(), {folder});
    else
        Q_EMIT problemFound(tr("The pictures of the device \"%1\" can't be found, because its folder's name "
                               "has other characters than letters and digits.")
                                .arg(device->folderName()));
    m_devices.append(device);
}

cDevMgrService::DevicePtr cDevMgrService::deviceOfModel(const QString& model) const
{
    const auto found = std::find_if(m_devices.begin(), m_devices.end(),
        [&](const DevicePtr& device) { return device->model() == model; });
    return found == m_devices.end() ? DevicePtr() : *found;
}

QList<cDevMgrService::DevicePtr> cDevMgrService::matching(const cJsonValue& filter) const
{
    QList<DevicePtr> result;
    if (!filter.isNull() && !filter.isObject())
        return result;
    std::copy_if(m_devices.begin(), m_devices.end(), std::back_inserter(result),
        [&](const DevicePtr& device) { return matches(device->properties(), filter); });
    return result;
}

cJsonValue cDevMgrService::enumerate(const cJsonValue& filter)
{
    cJsonValue records(cJsonValue::arrayValue);
    for (const DevicePtr& device : matching(filter))
        records.append(device->properties());
    return records;
}

void cDevMgrService::writeProperty(const cJsonValue& filter, const cJsonValue& prop)
{
    const QStringList names = HVS::jsonKeys(prop);
    if (names.isEmpty())
        return;
    for (const DevicePtr& device : matching(filter)) {
        for (const QString& name : names)
            device->state()[name] = prop[name.toUtf8().constData()];
        const QString uid = device->uid();
        IServiceMgr::instance()->publish(EventSources::DevMgr, DevMgrEvents::PropertyChanged,
            Q_ARG(QString, uid), Q_ARG(cJsonValue, prop));
    }
}

void cDevMgrService::writeBlob(const cJsonValue& filter, const cJsonValue& blob, const QByteArray& data)
{
    for (const DevicePtr& device : matching(filter)) {
        const QString uid = device->uid();
        IServiceMgr::instance()->publish(EventSources::DevMgr, DevMgrEvents::BlobWritten, Q_ARG(QString, uid),
            Q_ARG(cJsonValue, blob), Q_ARG(QByteArray, data));
    }
}

cJsonValue cDevMgrService::readState(const cJsonValue& deviceid, const cJsonValue& properties)
{
    cJsonValue result(cJsonValue::objectValue);
    const QString uid = deviceid.isObject() ? deviceid["uid"].toString() : deviceid.toString();
    for (const DevicePtr& device : qAsConst(m_devices)) {
        if (device->uid() != uid)
            continue;
        const cJsonValue state = device->state();
        const QStringList names = HVS::jsonKeys(state);
        for (const QString& name : names) {
            bool wanted = properties.isNull();
            for (unsigned i = 0; i < properties.size(); ++i)
                wanted = wanted || properties[int(i)].toString() == name;
            if (wanted)
                result[name] = state[name.toUtf8().constData()];
        }
    }
    return result;
}

QDomElement cDevMgrService::metaData(const QString& deviceModel)
{
    const DevicePtr device = deviceOfModel(deviceModel);
    return device ? device->manifest().cloneNode().toElement() : QDomElement();
}

cAbstractDevicePtr cDevMgrService::findDevice(const QString& uid)
{
    const auto found = std::find_if(
        m_devices.begin(), m_devices.end(), [&](const DevicePtr& device) { return device->uid() == uid; });
    return found == m_devices.end() ? cAbstractDevicePtr() : *found;
}

cAbstractDeviceList cDevMgrService::findDevices(const cJsonValue& filter)
{
    cAbstractDeviceList result;
    for (const DevicePtr& device : matching(filter))
        result.append(device);
    return result;
}
