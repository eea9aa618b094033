#include "ProfilesTestCase.h"

#include <IServiceMgr.h>
#include <ProfileDocument.h>

#include <QDir>
#include <QFile>

#include <utility>

void ProfilesTestCase::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_settings = std::make_unique<FakeSettings>();
    m_manager = std::make_unique<cServiceMgr>();
    IServiceMgr::setInstance(m_manager.get());
    m_types = std::make_unique<cMacroTypeMgrService>();
    m_types->registerMacroType(cMacroTypePtr(new FakeType(TestIds::ButtonType, {"button", "wheel"})));
    m_types->registerMacroType(cMacroTypePtr(new FakeType(TestIds::KeyType, {"key"})));
    m_types->registerMacroType(
        cMacroTypePtr(new FakeType(MacroNamespaces::MouseFunction, {"button", "key"})));
    m_mainUI.messages.clear();
    m_mainUI.conflicts.clear();
    m_mainUI.answers = {ConflictResolution::Duplicate};
    m_mainUI.whileAsked = nullptr;
    writeFile(defaultDocument(),
        "<profiles version=\"1\"><profile name=\"Start\"><macros><macro uid=\"{D}\" name=\"Copy\" "
        "display_name=\"Copy\" namespace=\"urn:key\"/></macros><assignments "
        "category=\"Keyboard\"><assignment "
        "macrouid=\"{D}\" contextid=\"G1\" shiftstate=\"M1\"/></assignments></profile></profiles>");
    start();
}

void ProfilesTestCase::cleanup()
{
    stop();
    m_types.reset();
    IServiceMgr::setInstance(nullptr);
    m_manager.reset();
    m_settings.reset();
    m_directory.reset();
    m_problems.clear();
}

std::unique_ptr<cProfileMgrService> ProfilesTestCase::makeService()
{
    auto service = std::make_unique<cProfileMgrService>(folder(), defaultDocument(),
        cProfileMgrService::Surroundings {m_settings.get(), m_types.get(), &m_devices, &m_mainUI});
    connect(service.get(), SIGNAL(problem(QString)), this, SLOT(onProblem(QString)));
    return service;
}

void ProfilesTestCase::start()
{
    m_service = makeService();
    m_service->load();
    m_manager->registerService(m_service.get());
    m_client = std::make_unique<cProfileMgr>();
    m_events = std::make_unique<EventLog>();
}

void ProfilesTestCase::stop()
{
    m_events.reset();
    m_client.reset();
    if (m_service)
        m_manager->unregisterService(m_service.get());
    m_service.reset();
}

void ProfilesTestCase::restart()
{
    stop();
    start();
}

void ProfilesTestCase::writeFile(const QString& path, const QByteArray& content) const
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QByteArray ProfilesTestCase::readFile(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList ProfilesTestCase::documents() const
{
    return QDir(folder()).entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
}

QByteArray ProfilesTestCase::snapshot() const
{
    QByteArray text;
    for (const QString& name : documents())
        text += name.toUtf8() + '\n' + readFile(folder() + QLatin1Char('/') + name);
    return text;
}

QByteArray ProfilesTestCase::content()
{
    std::vector<Profile> all;
    for (const QString& id : profiles().profileIDs())
        all.push_back(*service().book().find(id));
    return ProfileDocument::write(all, {});
}

cJsonValue ProfilesTestCase::profile(const QString& uid, const QString& name)
{
    cJsonValue record;
    record["uid"] = uid;
    record["name"] = name;
    return record;
}

cJsonValue ProfilesTestCase::macro(const QString& uid, const QString& name, const QString& macroNamespace)
{
    cJsonValue record;
    record["uid"] = uid;
    record["name"] = name;
    record["display_name"] = name;
    record["namespace"] = macroNamespace;
    record["hidden"] = false;
    record["data"]["function"] = name;
    return record;
}

QStringList ProfilesTestCase::takeProblems()
{
    return std::exchange(m_problems, {});
}
