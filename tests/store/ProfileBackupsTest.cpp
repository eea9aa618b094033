#include <FullDisk.h>
#include <ProfileBackups.h>
#include <ProfileDocument.h>
#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>
#include <sys/stat.h>

using Reason = ProfileBackups::Reason;

/// Backups of a folder of documents, at times of the test's own.
class ProfileBackupsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void backupHoldsTheDocumentsAsTheyWere();
    void emptyFolderNeedsNoBackup();
    void oneADayIsDue();
    void dayIsThatOfTheUsersClock_data();
    void dayIsThatOfTheUsersClock();
    void newestTwentyOfEachSortAreKept();
    void backupsOfOneSecondAreToldApart();
    void unchangedDocumentsShareAFile();
    void damagedFileIsNotHandedOn();
    void unreadableDocumentIsCopiedAsItIs();
    void damagedDocumentIsToldAndTheOthersStay_data();
    void damagedDocumentIsToldAndTheOthersStay();
    void damagedManifestLeavesWholeDocuments_data();
    void damagedManifestLeavesWholeDocuments();
    void damagedBackupIsNeverRemoved();
    void unwritableFolderIsTold();
    void fullDiskLeavesNoHalfBackup();
    void unfinishedBackupOfAnEndedProcessIsRemoved();
    void foreignFoldersAreNoBackups();

private:
    QString documentPath(const QString& name) const { return m_directory->filePath("profiles/" + name); }
    QString backupPath(const QString& backup, const QString& file) const
    {
        return m_directory->filePath("backups/" + backup + '/' + file);
    }
    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }
    static QByteArray read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void writeProfile(const QString& name, const QString& uid, const QString& profileName)
    {
        Profile profile;
        profile.properties["uid"] = uid;
        profile.properties["name"] = profileName;
        // As the store does: a new file in the old one's place.
        QFile::remove(documentPath(name));
        write(documentPath(name), ProfileDocument::write({profile}, {}));
    }
    QStringList names() const
    {
        QStringList result;
        for (const ProfileBackups::Backup& backup : m_backups->list())
            result.append(backup.name);
        return result;
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<ProfileBackups> m_backups;
    QDateTime m_now;
};

void ProfileBackupsTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_directory->path()).mkdir("profiles"));
    m_now = QDateTime(QDate(2026, 3, 1), QTime(12, 0), Qt::UTC);
    m_backups = std::make_unique<ProfileBackups>(m_directory->filePath("backups"),
        m_directory->filePath("profiles"), MacroTypeLookup(), [this] { return m_now; });
    writeProfile("a.xml", "{1}", "First");
    writeProfile("b.xml", "{2}", "Second");
}

void ProfileBackupsTest::cleanup()
{
    m_backups.reset();
    m_directory.reset();
}

void ProfileBackupsTest::backupHoldsTheDocumentsAsTheyWere()
{
    const QByteArray before = read(documentPath("a.xml"));
    QCOMPARE(m_backups->make(Reason::Deletion, "Delete First"), QString());
    QVERIFY(QFile::remove(documentPath("a.xml")));
    writeProfile("b.xml", "{2}", "Changed");

    const std::vector<ProfileBackups::Backup> list = m_backups->list();
    QCOMPARE(list.size(), std::size_t(1));
    QCOMPARE(list.front().name, QString("20260301-120000"));
    QCOMPARE(list.front().time, m_now);
    QCOMPARE(list.front().reason, Reason::Deletion);
    QCOMPARE(list.front().note, QString("Delete First"));
    QCOMPARE(list.front().count, 2);
    QCOMPARE(list.front().problem, QString());
    QCOMPARE(read(backupPath(list.front().name, "a.xml")), before);
    const std::vector<ProfileBackups::Entry> entries = m_backups->read(list.front().name);
    QCOMPARE(entries.size(), std::size_t(2));
    QCOMPARE(entries[0].profile->name(), QString("First"));
    QCOMPARE(entries[1].profile->name(), QString("Second"));
    QVERIFY(m_backups->read("../profiles").empty());
    QVERIFY(m_backups->read("20200101-000000").empty());
}

void ProfileBackupsTest::emptyFolderNeedsNoBackup()
{
    QVERIFY(QFile::remove(documentPath("a.xml")));
    QVERIFY(QFile::remove(documentPath("b.xml")));
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    QVERIFY(m_backups->list().empty());
}

void ProfileBackupsTest::oneADayIsDue()
{
    QVERIFY(m_backups->isDailyDue());
    QCOMPARE(m_backups->make(Reason::Import), QString());
    QVERIFY(m_backups->isDailyDue());
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    QVERIFY(!m_backups->isDailyDue());
    m_now = m_now.addDays(1);
    QVERIFY(m_backups->isDailyDue());
}

void ProfileBackupsTest::dayIsThatOfTheUsersClock_data()
{
    QTest::addColumn<QByteArray>("zone");
    for (const char* zone : {"UTC", "XST-13", "XST+8"})
        QTest::newRow(zone) << QByteArray(zone);
}

void ProfileBackupsTest::dayIsThatOfTheUsersClock()
{
    QFETCH(const QByteArray, zone);
    const bool wasSet = qEnvironmentVariableIsSet("TZ");
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", zone);
    const auto at = [](int day, const QTime& time) {
        return QDateTime(QDate(2026, 3, day), time, Qt::LocalTime).toUTC();
    };
    m_now = at(1, QTime(0, 0));
    const QString failure = m_backups->make(Reason::Daily);
    const bool isDueAtOnce = m_backups->isDailyDue();
    m_now = at(1, QTime(23, 59, 59));
    const bool isDueInTheEvening = m_backups->isDailyDue();
    m_now = at(2, QTime(0, 0));
    const bool isDueTheNextDay = m_backups->isDailyDue();
    wasSet ? qputenv("TZ", before) : qunsetenv("TZ");
    QCOMPARE(failure, QString());
    QVERIFY(!isDueAtOnce);
    QVERIFY(!isDueInTheEvening);
    QVERIFY(isDueTheNextDay);
}

void ProfileBackupsTest::newestTwentyOfEachSortAreKept()
{
    for (int i = 0; i < 25; ++i) {
        QCOMPARE(m_backups->make(Reason::Daily), QString());
        m_now = m_now.addSecs(60);
        QCOMPARE(m_backups->make(i % 2 ? Reason::Import : Reason::Deletion), QString());
        m_now = m_now.addDays(1);
    }
    int daily = 0;
    for (const ProfileBackups::Backup& backup : m_backups->list()) {
        daily += backup.reason == Reason::Daily ? 1 : 0;
        QVERIFY(backup.time > QDateTime(QDate(2026, 3, 5), QTime(23, 59), Qt::UTC));
    }
    QCOMPARE(daily, ProfileBackups::Kept);
    QCOMPARE(m_backups->list().size(), std::size_t(2 * ProfileBackups::Kept));
}

void ProfileBackupsTest::backupsOfOneSecondAreToldApart()
{
    for (int i = 0; i < 11; ++i)
        QCOMPARE(m_backups->make(Reason::Deletion), QString());
    const QStringList all = names();
    QCOMPARE(all.size(), 11);
    QCOMPARE(all.first(), QString("20260301-120000-11"));
    QCOMPARE(all.last(), QString("20260301-120000"));
}

void ProfileBackupsTest::unchangedDocumentsShareAFile()
{
    const auto inode = [](const QString& path) {
        struct stat status
        {
        };
        return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_ino : 0;
    };
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    m_now = m_now.addDays(1);
    writeProfile("b.xml", "{2}", "Changed");
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    const QStringList all = names();
    QCOMPARE(inode(backupPath(all[0], "a.xml")), inode(backupPath(all[1], "a.xml")));
    QVERIFY(inode(backupPath(all[0], "b.xml")) != inode(backupPath(all[1], "b.xml")));
    // Never with the document itself, which an editor could change in its place.
    QVERIFY(inode(backupPath(all[0], "a.xml")) != inode(documentPath("a.xml")));
    // A backup that goes leaves the others whole.
    QVERIFY(QDir(backupPath(all[1], ".")).removeRecursively());
    QVERIFY(m_backups->read(all[0])[0].profile.has_value());
}

void ProfileBackupsTest::damagedFileIsNotHandedOn()
{
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    write(backupPath(names().first(), "a.xml"), "damaged");
    m_now = m_now.addDays(1);
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    QCOMPARE(read(backupPath(names().first(), "a.xml")), read(documentPath("a.xml")));
}

void ProfileBackupsTest::unreadableDocumentIsCopiedAsItIs()
{
    write(documentPath("c.xml"), "no profile");
    QCOMPARE(m_backups->make(Reason::Upgrade), QString());
    QCOMPARE(read(backupPath(names().first(), "c.xml")), QByteArray("no profile"));
    const std::vector<ProfileBackups::Entry> entries = m_backups->read(names().first());
    QCOMPARE(entries.size(), std::size_t(3));
    QVERIFY(!entries[2].profile);
    QVERIFY(!entries[2].problem.isEmpty());
}

void ProfileBackupsTest::damagedDocumentIsToldAndTheOthersStay_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("cut off") << QByteArray("<profiles version=\"1\"><profile");
    QTest::newRow("empty") << QByteArray();
    // Readable, but another one than was copied.
    QTest::newRow("changed") << QByteArray(
        "<profiles version=\"1\"><profile uid=\"{1}\" name=\"Other\"/></profiles>");
    QTest::newRow("40 MB") << QByteArray(40 * 1024 * 1024, ' ');
}

void ProfileBackupsTest::damagedDocumentIsToldAndTheOthersStay()
{
    QFETCH(QByteArray, content);
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    write(backupPath(names().first(), "a.xml"), content);
    std::vector<ProfileBackups::Entry> entries = m_backups->read(names().first());
    QCOMPARE(entries.size(), std::size_t(2));
    QCOMPARE(entries[0].profile->name(), QString("Second"));
    QCOMPARE(entries[1].document, QString("a.xml"));
    QVERIFY(!entries[1].profile);
    QVERIFY(!entries[1].problem.isEmpty());
    QVERIFY(QFile::remove(backupPath(names().first(), "a.xml")));
    entries = m_backups->read(names().first());
    QCOMPARE(entries.size(), std::size_t(2));
    QVERIFY(!entries[1].problem.isEmpty());
}

void ProfileBackupsTest::damagedManifestLeavesWholeDocuments_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("{");
    QTest::newRow("another JSON") << QByteArray("[1]");
    QTest::newRow("newer") << QByteArray("{\"version\":2}");
    QTest::newRow("no documents") << QByteArray(
        "{\"version\":1,\"time\":\"2026-03-01T12:00:00Z\",\"reason\":\"daily\"}");
    QTest::newRow("unknown reason") << QByteArray(
        "{\"version\":1,\"time\":\"2026-03-01T12:00:00Z\",\"reason\":\"x\",\"documents\":[]}");
    QTest::newRow("way out") << QByteArray(
        "{\"version\":1,\"time\":\"2026-03-01T12:00:00Z\",\"reason\":\"daily\",\"documents\":"
        "[{\"name\":\"../../profiles/a.xml\"}]}");
    QTest::newRow("10 MB") << QByteArray(10 * 1024 * 1024, ' ');
}

void ProfileBackupsTest::damagedManifestLeavesWholeDocuments()
{
    QFETCH(QByteArray, content);
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    write(backupPath(names().first(), "backup.json"), content);
    const ProfileBackups::Backup backup = m_backups->list().front();
    QVERIFY(!backup.problem.isEmpty());
    QCOMPARE(backup.time, m_now);
    QCOMPARE(backup.count, 2);
    const std::vector<ProfileBackups::Entry> entries = m_backups->read(backup.name);
    QCOMPARE(entries.size(), std::size_t(2));
    QCOMPARE(entries[0].profile->name(), QString("First"));
    QVERIFY(m_backups->isDailyDue());
    QCOMPARE(m_backups->make(Reason::Daily), QString());
}

void ProfileBackupsTest::damagedBackupIsNeverRemoved()
{
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    const QString first = names().first();
    QVERIFY(QFile::remove(backupPath(first, "backup.json")));
    for (int i = 0; i <= ProfileBackups::Kept; ++i) {
        m_now = m_now.addDays(1);
        QCOMPARE(m_backups->make(Reason::Daily), QString());
    }
    QCOMPARE(names().size(), ProfileBackups::Kept + 1);
    QCOMPARE(names().last(), first);
}

void ProfileBackupsTest::unwritableFolderIsTold()
{
    // A file stands where the folder has to be; permissions would not stop root.
    write(m_directory->filePath("backups"), "a file");
    QVERIFY(m_backups->make(Reason::Daily).contains("can't be written to"));
    QVERIFY(m_backups->list().empty());
    QVERIFY(m_backups->isDailyDue());
    QCOMPARE(read(m_directory->filePath("backups")), QByteArray("a file"));
}

void ProfileBackupsTest::fullDiskLeavesNoHalfBackup()
{
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    m_now = m_now.addDays(1);
    writeProfile("b.xml", "{2}", QString(5000, 'x'));
    {
        const FullDisk disk(1000);
        QVERIFY(m_backups->make(Reason::Daily).contains("b.xml"));
    }
    QCOMPARE(names(), QStringList("20260301-120000"));
    QCOMPARE(QDir(m_directory->filePath("backups"))
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList("20260301-120000"));
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    QCOMPARE(names().size(), 2);
}

void ProfileBackupsTest::unfinishedBackupOfAnEndedProcessIsRemoved()
{
    QVERIFY(QDir(m_directory->path()).mkpath("backups/.unfinished"));
    write(backupPath(".unfinished", "old.xml"), "old");
    QVERIFY(m_backups->list().empty());
    QCOMPARE(m_backups->make(Reason::Daily), QString());
    QVERIFY(!QFileInfo::exists(backupPath(names().first(), "old.xml")));
    QVERIFY(!QFileInfo::exists(backupPath(".unfinished", ".")));
}

void ProfileBackupsTest::foreignFoldersAreNoBackups()
{
    QVERIFY(QDir(m_directory->path()).mkpath("backups/my own"));
    write(backupPath("my own", "a.xml"), "mine");
    QVERIFY(m_backups->list().empty());
    for (int i = 0; i < ProfileBackups::Kept + 2; ++i)
        QCOMPARE(m_backups->make(Reason::Import), QString());
    QCOMPARE(read(backupPath("my own", "a.xml")), QByteArray("mine"));
}

VELTRANO_TEST_MAIN(ProfileBackupsTest)
#include "ProfileBackupsTest.moc"
