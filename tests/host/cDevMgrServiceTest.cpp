#include "cDevMgrService.h"

#include <cDevMgr.h>
#include <cServiceMgr.h>
#include <DeviceFolder.h>
#include <EventLog.h>
#include <HostDevice.h>
#include <TestCase.h>

#include <QSignalSpy>
#include <QTemporaryDir>

/// The service is called through the plug-in's client, by name.
class cDevMgrServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void devicesAreListedInTheOrderOfTheirFolders();
    void foldersAreSearchPaths();
    void presentationIsRead();
    void presentationOfNonsenseHasUsableValues();
    void enumerateFilters();
    void metaDataIsACopyOfTheManifest();
    void metaDataOfAnUnknownModelIsNull();
    void damagedManifestIsListedByItsFolder_data();
    void damagedManifestIsListedByItsFolder();
    void secondDeviceOfAModelIsRefused();
    void folderThatIsNoSearchPathIsReported();
    void missingDevicesFolderIsReported();
    void devicesAreFoundByUidAndFilter();
    void propertiesAreWrittenAndRead();
    void blobIsPublished();
    void viewsAreSuitedByTheirIdInTheManifest();

private:
    void load();

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<cDevMgrService> m_service;
    QStringList m_problems;
};

void cDevMgrServiceTest::init()
{
    m_folder.reset(new QTemporaryDir);
    m_service.reset(new cDevMgrService);
    IServiceMgr::instance()->registerService(m_service.get());
    DeviceFolder::make(m_folder->path(), QStringLiteral("Beta"));
    DeviceFolder::make(m_folder->path(), QStringLiteral("Alpha1"));
}

void cDevMgrServiceTest::cleanup()
{
    m_service.reset();
}

void cDevMgrServiceTest::load()
{
    QSignalSpy problems(m_service.get(), SIGNAL(problemFound(QString)));
    m_service->load(m_folder->path());
    m_problems.clear();
    for (const QList<QVariant>& problem : problems)
        m_problems.append(problem.constFirst().toString());
}

void cDevMgrServiceTest::devicesAreListedInTheOrderOfTheirFolders()
{
    load();
    QCOMPARE(m_problems, QStringList());
    const cJsonValue devices = cDevMgr().enumerate(cJsonValue());
    QCOMPARE(devices.size(), 2u);
    QCOMPARE(devices[0]["device_model"].toString(), QString("Test.Alpha1"));
    QCOMPARE(devices[1]["device_model"].toString(), QString("Test.Beta"));
    QCOMPARE(devices[1]["display_name"].toString(), QString("The Beta"));
    QCOMPARE(devices[1]["short_name"].toString(), QString("Beta"));
    QCOMPARE(devices[1]["category"].toString(), QString("Test.Category"));
    QVERIFY(devices[1]["demonstration"].toBool());
    QVERIFY(devices[0]["uid"].toString() != devices[1]["uid"].toString());
}

void cDevMgrServiceTest::foldersAreSearchPaths()
{
    load();
    QCOMPARE(QPixmap(QStringLiteral("Beta:/images/p.png")).size(), QSize(200, 100));
}

void cDevMgrServiceTest::presentationIsRead()
{
    load();
    const cDevMgrService::DevicePtr device = m_service->deviceOfModel(QStringLiteral("Test.Beta"));
    QVERIFY(device);
    QCOMPARE(device->displayName(), QString("The Beta"));
    QCOMPARE(device->shortName(), QString("Beta"));
    QCOMPARE(device->picturePath(), QString("Beta:/images/p.png"));
    QCOMPARE(device->homePosition(), QPointF(10, 20));
    QCOMPARE(device->homeScale(), 1.5);
}

void cDevMgrServiceTest::presentationOfNonsenseHasUsableValues()
{
    DeviceFolder::write(m_folder->filePath(QStringLiteral("Odd/manifest.xml")),
        "<device model='Odd'><presentation scale='0' x='inf' y='1e300'/></device>");
    DeviceFolder::write(m_folder->filePath(QStringLiteral("Bare/manifest.xml")), "<device model='Bare'/>");
    load();
    for (const char* model : {"Odd", "Bare"}) {
        const cDevMgrService::DevicePtr device = m_service->deviceOfModel(QLatin1String(model));
        QVERIFY(device);
        QCOMPARE(device->displayName(), QString(model));
        QCOMPARE(device->shortName(), QString(model));
        QCOMPARE(device->homeScale(), 1.0);
        QCOMPARE(device->homePosition(), QPointF(0, 0));
        QCOMPARE(device->problem(), QString());
    }
}

void cDevMgrServiceTest::enumerateFilters()
{
    load();
    cJsonValue filter;
    filter["category"] = "Test.Category";
    QCOMPARE(cDevMgr().enumerate(filter).size(), 2u);
    filter["short_name"] = "Beta";
    QCOMPARE(cDevMgr().enumerate(filter).size(), 1u);
    filter["no such key"] = cJsonValue();
    QCOMPARE(cDevMgr().enumerate(filter).size(), 0u);
    QCOMPARE(cDevMgr().enumerate(cJsonValue("text")).size(), 0u);
}

void cDevMgrServiceTest::metaDataIsACopyOfTheManifest()
{
    load();
    QDomElement manifest = cDevMgr().metaData(QStringLiteral("Test.Beta"));
    QCOMPARE(manifest.attribute("model"), QString("Test.Beta"));
    QCOMPARE(manifest.firstChildElement("profiler").attribute("category"), QString("Test.Category"));
    manifest.setAttribute("model", "changed");
    QCOMPARE(cDevMgr().metaData(QStringLiteral("Test.Beta")).attribute("model"), QString("Test.Beta"));
    m_service->load(m_folder->path());
    QCOMPARE(manifest.firstChildElement("profiler").attribute("category"), QString("Test.Category"));
}

void cDevMgrServiceTest::metaDataOfAnUnknownModelIsNull()
{
    load();
    QVERIFY(cDevMgr().metaData(QStringLiteral("Test.Gamma")).isNull());
    QVERIFY(cDevMgr().metaData(QString()).isNull());
}

void cDevMgrServiceTest::damagedManifestIsListedByItsFolder_data()
{
    QTest::addColumn<QByteArray>("manifest");
    QTest::addColumn<bool>("isWarned");
    QTest::newRow("no XML") << QByteArray("<device model='x'") << true;
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("missing") << QByteArray("missing") << true;
    QTest::newRow("no model") << QByteArray("<device/>") << false;
}

void cDevMgrServiceTest::damagedManifestIsListedByItsFolder()
{
    QFETCH(QByteArray, manifest);
    QFETCH(bool, isWarned);
    QDir(m_folder->path()).mkdir(QStringLiteral("Broken"));
    if (manifest != "missing")
        DeviceFolder::write(m_folder->filePath(QStringLiteral("Broken/manifest.xml")), manifest);
    {
        QScopedPointer<ExpectedMessage> message;
        if (isWarned)
            message.reset(new ExpectedMessage(
                QtWarningMsg, QRegularExpression(QStringLiteral("Broken/manifest\\.xml"))));
        load();
    }
    QCOMPARE(m_problems.size(), 1);
    QVERIFY(m_problems.constFirst().contains(QStringLiteral("Broken")));
    QCOMPARE(cDevMgr().enumerate(cJsonValue()).size(), 3u);
    const cDevMgrService::DevicePtr device = m_service->deviceOfModel(QStringLiteral("Broken"));
    QVERIFY(device);
    QCOMPARE(device->displayName(), QString("Broken"));
    QVERIFY(cDevMgr().metaData(QStringLiteral("Broken")).isNull());
    QVERIFY(!device->suitsView(QString()));
}

void cDevMgrServiceTest::secondDeviceOfAModelIsRefused()
{
    DeviceFolder::write(
        m_folder->filePath(QStringLiteral("Copy/manifest.xml")), "<device model='Test.Beta'/>");
    load();
    QCOMPARE(m_problems.size(), 1);
    QCOMPARE(cDevMgr().enumerate(cJsonValue()).size(), 2u);
    QCOMPARE(m_service->deviceOfModel(QStringLiteral("Test.Beta"))->folderName(), QString("Beta"));
}

void cDevMgrServiceTest::folderThatIsNoSearchPathIsReported()
{
    DeviceFolder::write(m_folder->filePath(QStringLiteral("With Space/manifest.xml")), "<device model='S'/>");
    load();
    QCOMPARE(m_problems.size(), 1);
    QVERIFY(m_service->deviceOfModel(QStringLiteral("S")));
}

void cDevMgrServiceTest::missingDevicesFolderIsReported()
{
    m_folder.reset(new QTemporaryDir);
    load();
    QCOMPARE(m_problems.size(), 1);
    QCOMPARE(cDevMgr().enumerate(cJsonValue()).size(), 0u);
    QVERIFY(cDevMgr().enumerate(cJsonValue()).isArray());
}

void cDevMgrServiceTest::devicesAreFoundByUidAndFilter()
{
    load();
    cJsonValue filter;
    filter["device_model"] = "Test.Beta";
    const cAbstractDeviceList found = cDevMgr().findDevices(filter);
    QCOMPARE(found.size(), 1);
    const cAbstractDevicePtr device = cDevMgr().findDevice(found.constFirst()->uid());
    QVERIFY(device);
    QCOMPARE(device->model(), QString("Test.Beta"));
    QCOMPARE(device->properties(), cDevMgr().enumerate(filter)[0]);
    QVERIFY(!cDevMgr().findDevice(QStringLiteral("nobody")));
    QCOMPARE(cDevMgr().findDevices(cJsonValue()).size(), 2);
}

void cDevMgrServiceTest::propertiesAreWrittenAndRead()
{
    load();
    EventLog events(EventSources::DevMgr);
    cJsonValue filter;
    filter["short_name"] = "Beta";
    cJsonValue properties;
    properties["light"] = "teal";
    properties["rate"] = 500;
    cDevMgr().writeProperty(filter, properties);
    const cJsonValue record = cDevMgr().enumerate(filter)[0];
    const QString uid = record["uid"].toString();
    QCOMPARE(events.take(), QStringList({"DevicePropertyChanged " + uid + " teal"}));

    QVERIFY(cDevMgr().readState(uid, cJsonValue()) == properties);
    QVERIFY(cDevMgr().readState(record, cJsonValue()) == properties);
    const cJsonValue rate = cDevMgr().readState(uid, cJsonValue().append("rate").append("unknown"));
    QCOMPARE(rate["rate"].toInt(), 500);
    QVERIFY(!rate.contains("light"));
    QVERIFY(!rate.contains("unknown"));
    QVERIFY(cDevMgr().readState(cJsonValue("nobody"), cJsonValue()) == cJsonValue(cJsonValue::objectValue));
    // The other device was not meant.
    const cJsonValue other = cDevMgr().enumerate(cJsonValue())[0];
    QVERIFY(cDevMgr().readState(other, cJsonValue()) == cJsonValue(cJsonValue::objectValue));

    cDevMgr().writeProperty(filter, cJsonValue("no object"));
    QCOMPARE(events.take(), QStringList());
}

void cDevMgrServiceTest::blobIsPublished()
{
    load();
    EventLog events(EventSources::DevMgr);
    cJsonValue blob;
    blob["kind"] = "picture";
    cDevMgr().writeBlob(cJsonValue(), blob, "bytes");
    const QStringList log = events.take();
    QCOMPARE(log.size(), 2);
    QVERIFY(log.constFirst().endsWith(QStringLiteral("picture bytes")));
}

void cDevMgrServiceTest::viewsAreSuitedByTheirIdInTheManifest()
{
    load();
    const cDevMgrService::DevicePtr device = m_service->deviceOfModel(QStringLiteral("Test.Beta"));
    QVERIFY(device->suitsView(QStringLiteral("fake_view")));
    QVERIFY(!device->suitsView(QStringLiteral("other_view")));
    QVERIFY(!device->suitsView(QString()));
}

VELTRANO_TEST_MAIN(cDevMgrServiceTest)
#include "cDevMgrServiceTest.moc"
