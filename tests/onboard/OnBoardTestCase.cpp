#include "OnBoardTestCase.h"

#include <DeviceFolder.h>
#include <EventNames.h>
#include <IServiceMgr.h>

#include <QDir>
#include <QFile>

#include <utility>

TransferLog::TransferLog()
{
    IServiceMgr::instance()->subscribe(EventSources::ProfilesToGo, this, Events::HandlerPrefix);
}

TransferLog::~TransferLog()
{
    IServiceMgr::instance()->unsubscribe(EventSources::ProfilesToGo, this);
}

QStringList TransferLog::take()
{
    return std::exchange(m_lines, {});
}

void TransferLog::onProfilesToGoDeviceBusy(const QString& deviceName, const QString& deviceId)
{
    cProfilesToGo memories;
    const QString what = memories.isDeviceBusyReading(deviceId) ? QStringLiteral("reading")
        : memories.isDeviceBusyWriting(deviceId)                ? QStringLiteral("writing")
                                                                : QStringLiteral("nothing");
    m_lines.append(QStringLiteral("Busy %1 %2 %3").arg(deviceName, deviceId, what));
}

void TransferLog::onProfilesToGoDeviceIdle(const QString& deviceId)
{
    m_lines.append(QStringLiteral("Idle %1").arg(deviceId)
        + (cProfilesToGo().isDeviceBusy(deviceId) ? QStringLiteral(" but busy") : QString()));
}

void OnBoardTestCase::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    setSpeed(0);
    DeviceFolder::make(m_folder->filePath("devices"), "Plain");
    DeviceFolder::write(m_folder->filePath("Default.xml"), "<profile name=\"Start\"/>");
    start();
    waitUntilIdle();
    cJsonValue record;
    record["uid"] = Local;
    record["name"] = "Local";
    QVERIFY(profiles().addProfile(record));
    takeEvents();
}

void OnBoardTestCase::cleanup()
{
    stop();
    m_folder.reset();
    m_problems.clear();
}

void OnBoardTestCase::setSpeed(int bytesPerSecond)
{
    DeviceFolder::write(m_folder->filePath("devices/Mouse/manifest.xml"),
        QStringLiteral("<device model='Test.Mouse'><presentation name='The Mouse' short_name='Mm'/>"
                       "<memory size='%1' speed='%2'/><profiler category='Test.Category'/></device>")
            .arg(Capacity)
            .arg(bytesPerSecond)
            .toUtf8());
}

void OnBoardTestCase::start()
{
    m_manager = std::make_unique<cServiceMgr>();
    IServiceMgr::setInstance(m_manager.get());
    m_types = std::make_unique<cMacroTypeMgrService>();
    m_devices = std::make_unique<cDevMgrService>();
    m_devices->load(m_folder->filePath("devices"));
    m_profileService = std::make_unique<cProfileMgrService>(m_folder->filePath("profiles"),
        m_folder->filePath("Default.xml"),
        cProfileMgrService::Surroundings {&m_settings, m_types.get(), m_devices.get(), &m_mainUI});
    m_service =
        std::make_unique<cProfilesToGoService>(m_folder->filePath("onboard"), *m_devices, *m_profileService);
    connect(m_service.get(), SIGNAL(problem(QString)), this, SLOT(onProblem(QString)));
    connect(m_profileService.get(), SIGNAL(problem(QString)), this, SLOT(onProblem(QString)));
    m_profileService->load();
    m_manager->registerService(m_profileService.get());
    m_manager->registerService(m_service.get());
    for (const QLatin1String source : {EventSources::ProfileMgr, EventSources::Profiler})
        m_manager->subscribe(source, m_service.get(), Events::HandlerPrefix);
    m_profilesClient = std::make_unique<cProfileMgr>();
    m_memoriesClient = std::make_unique<cProfilesToGo>();
    m_log = std::make_unique<TransferLog>();
    m_service->start();
}

void OnBoardTestCase::stop()
{
    m_log.reset();
    m_memoriesClient.reset();
    m_profilesClient.reset();
    m_service.reset();
    m_profileService.reset();
    m_devices.reset();
    m_types.reset();
    IServiceMgr::setInstance(nullptr);
    m_manager.reset();
}

void OnBoardTestCase::restart()
{
    stop();
    start();
}

void OnBoardTestCase::waitUntilIdle()
{
    QTRY_VERIFY(!memories().isDeviceBusy(Mouse));
}

QString OnBoardTestCase::copyToMouse(const QString& profileId)
{
    const QStringList before = profiles().profileIDs();
    profiles().copyProfileToDevice(profileId, Mouse, "The Mouse");
    for (const QString& id : profiles().profileIDs()) {
        if (!before.contains(id))
            return id;
    }
    return QString();
}

void OnBoardTestCase::grow(const QString& profileId, int size)
{
    cJsonValue record;
    record["uid"] = profileId;
    record["description"] = QString(size, QLatin1Char('x'));
    QVERIFY(profiles().editProfileProperty(record));
}

QString OnBoardTestCase::memoryPath(const QString& name) const
{
    return m_folder->filePath(QStringLiteral("onboard/Mouse") + (name.isEmpty() ? name : '/' + name));
}

QStringList OnBoardTestCase::documents() const
{
    return QDir(memoryPath()).entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
}

QByteArray OnBoardTestCase::document(const QString& name) const
{
    QFile file(memoryPath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList OnBoardTestCase::takeProblems()
{
    return std::exchange(m_problems, {});
}
