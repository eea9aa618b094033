#include "RandomProfiles.h"

#include <FullDisk.h>
#include <OrdinaryUser.h>
#include <ProfileDocument.h>
#include <ProfileStore.h>
#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

namespace {

Profile namedProfile(const QString& uid, const QString& name)
{
    Profile profile;
    profile.properties["uid"] = uid;
    profile.properties["name"] = name;
    return profile;
}

const QString Id1 = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");
const QString Id2 = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000002}");

QByteArray document(const QString& uid, const QString& name)
{
    return ProfileDocument::write({namedProfile(uid, name)}, {});
}

/// Profiles in memory and a store that writes them to a folder.
class Shelf
{
public:
    explicit Shelf(const QString& folder)
        : store(folder, {}, [this](const QString& id) { return find(id); })
        , problems(&store, SIGNAL(problem(QString)))
    { }

    void put(const Profile& profile)
    {
        profiles[profile.uid().toUpper()] = profile;
        store.markChanged(profile.uid());
    }

    const Profile* find(const QString& id) const
    {
        const auto found = profiles.find(id.toUpper());
        return found == profiles.end() ? nullptr : &found->second;
    }

    QString lastProblem() const
    {
        return problems.isEmpty() ? QString() : problems.last().first().toString();
    }

    std::map<QString, Profile> profiles;
    ProfileStore store;
    QSignalSpy problems;
};

} // namespace

class ProfileStoreTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void changeIsWrittenShortlyAfterwards();
    void oneChangeWritesOneDocument();
    void allIsReadAgain();
    void unwrittenChangesAreWrittenAtTheEnd();
    void documentOfADeletedProfileGoes();
    void idsNeverBecomePaths_data();
    void idsNeverBecomePaths();
    void damagedDocumentIsSetAside_data();
    void damagedDocumentIsSetAside();
    void documentUnderAnotherNameStaysThere();
    void secondDocumentOfAnIdIsSetAside();
    void newDocumentKeepsClearOfAForeignFile();
    void folderThatCantBeMadeIsReported();
    void profilesInAReadOnlyFolderAreRead();
    void folderThatBecomesReadOnlyKeepsItsDocuments();
    void failedWriteIsReportedOnceAndTriedAgain();
    void fullDiskKeepsTheOldDocument_data();
    void fullDiskKeepsTheOldDocument();
    void secondStoreReadsAndDoesNotWrite();
    void hugeProfileIsNotWritten();
    void severalFailuresAreOneRoundOfRetries();
    void unwrittenProfilesGoToAnotherFolder();
    void pathsInTheFolderAreTheStores();

private:
    QString path(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    QStringList documents() const
    {
        return QDir(m_folder).entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
    }
    QStringList damaged() const { return QDir(path("damaged")).entryList(QDir::Files, QDir::Name); }
    void writeFile(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }
    QByteArray readFile(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_folder;
};

void ProfileStoreTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_folder = m_directory->filePath(QStringLiteral("profiles"));
}

void ProfileStoreTest::cleanup()
{
    m_directory.reset();
}

void ProfileStoreTest::changeIsWrittenShortlyAfterwards()
{
    Shelf shelf(m_folder);
    shelf.put(namedProfile(Id1, "First"));
    QVERIFY(documents().isEmpty());
    QTRY_COMPARE(documents(), QStringList({ProfileStore::fileName(Id1)}));
    QVERIFY(!shelf.store.hasUnwritten());
    QVERIFY(shelf.problems.isEmpty());
}

void ProfileStoreTest::oneChangeWritesOneDocument()
{
    Shelf shelf(m_folder);
    shelf.put(namedProfile(Id1, "First"));
    shelf.put(namedProfile(Id2, "Second"));
    QVERIFY(shelf.store.writeNow());
    // A foreign hand on the other document shows whether it is written again.
    writeFile(ProfileStore::fileName(Id1), "mark");
    shelf.put(namedProfile(Id2, "Renamed"));
    QVERIFY(shelf.store.writeNow());
    QCOMPARE(readFile(ProfileStore::fileName(Id1)), QByteArray("mark"));
    QVERIFY(readFile(ProfileStore::fileName(Id2)).contains("Renamed"));
}

void ProfileStoreTest::allIsReadAgain()
{
    RandomProfiles random(3);
    std::map<QString, Profile> written;
    {
        Shelf shelf(m_folder);
        for (int i = 0; i < 20; ++i)
            shelf.put(random.profile());
        QVERIFY(shelf.store.writeNow());
        written = shelf.profiles;
    }
    Shelf shelf(m_folder);
    const std::vector<Profile> read = shelf.store.readAll();
    QCOMPARE(read.size(), written.size());
    for (const Profile& profile : read)
        QVERIFY(profile == written.at(profile.uid().toUpper()));
    QVERIFY(shelf.problems.isEmpty());
}

void ProfileStoreTest::unwrittenChangesAreWrittenAtTheEnd()
{
    {
        Shelf shelf(m_folder);
        shelf.put(namedProfile(Id1, "Late"));
    }
    QVERIFY(readFile(ProfileStore::fileName(Id1)).contains("Late"));
}

void ProfileStoreTest::documentOfADeletedProfileGoes()
{
    Shelf shelf(m_folder);
    shelf.put(namedProfile(Id1, "First"));
    shelf.put(namedProfile(Id2, "Second"));
    QVERIFY(shelf.store.writeNow());
    shelf.profiles.erase(Id1);
    shelf.store.markChanged(Id1);
    QVERIFY(shelf.store.writeNow());
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(Id2)}));
}

void ProfileStoreTest::idsNeverBecomePaths_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("path") << QStringLiteral("../../evil");
    QTest::newRow("absolute path") << QStringLiteral("/tmp/evil");
    QTest::newRow("drive") << QStringLiteral("C:\\evil");
    QTest::newRow("long") << QString(5000, QLatin1Char('x'));
    QTest::newRow("reserved name") << QStringLiteral("CON");
}

void ProfileStoreTest::idsNeverBecomePaths()
{
    QFETCH(QString, id);
    const QRegularExpression safe(QStringLiteral("^id-[0-9a-f]{64}\\.xml$"));
    QVERIFY(safe.match(ProfileStore::fileName(id)).hasMatch());
    Shelf shelf(m_folder);
    shelf.put(namedProfile(id, "P"));
    QVERIFY(shelf.store.writeNow());
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(id)}));
    QCOMPARE(QDir(m_directory->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
        QStringList({QStringLiteral("profiles")}));
}

void ProfileStoreTest::damagedDocumentIsSetAside_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray whole = document(Id1, "P");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << whole.left(whole.size() / 2);
    QTest::newRow("of another kind") << QByteArray("<html/>");
    QTest::newRow("of a newer version")
        << QByteArray(whole).replace("<profiles version=\"1\"", "<profiles version=\"2\"");
    QTest::newRow("without an id") << QByteArray(whole).replace("uid=", "other=");
    QTest::newRow("with two profiles")
        << ProfileDocument::write({namedProfile(Id1, "P"), namedProfile(Id2, "Q")}, {});
    QTest::newRow("100 MB") << QByteArray(100 * 1024 * 1024, 'x');
    QTest::newRow("entity bomb") << QByteArray("<!DOCTYPE b [<!ENTITY a \"aaaa\">]>")
            + whole.mid(whole.indexOf("<profiles"));
}

void ProfileStoreTest::damagedDocumentIsSetAside()
{
    QFETCH(QByteArray, content);
    QVERIFY(QDir().mkpath(m_folder));
    const QString name = ProfileStore::fileName(Id1);
    writeFile(name, content);
    writeFile(ProfileStore::fileName(Id2), document(Id2, "Good"));

    Shelf shelf(m_folder);
    const std::vector<Profile> read = shelf.store.readAll();
    QCOMPARE(read.size(), std::size_t(1));
    QCOMPARE(read.front().name(), QStringLiteral("Good"));
    QCOMPARE(shelf.problems.size(), 1);
    QVERIFY(shelf.lastProblem().contains(name));
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(Id2)}));
    QCOMPARE(damaged().size(), 2);
    QCOMPARE(readFile(QStringLiteral("damaged/") + damaged().first()), content);
    QVERIFY(damaged().last().endsWith(QStringLiteral(".reason.txt")));

    // The id may be used again, and what was set aside stays as it is.
    shelf.put(namedProfile(Id1, "New"));
    QVERIFY(shelf.store.writeNow());
    QCOMPARE(readFile(QStringLiteral("damaged/") + damaged().first()), content);
}

void ProfileStoreTest::documentUnderAnotherNameStaysThere()
{
    const QString name = QStringLiteral("copied by hand.xml");
    QVERIFY(QDir().mkpath(m_folder));
    writeFile(name, document(Id1, "P"));
    Shelf shelf(m_folder);
    QCOMPARE(shelf.store.readAll().size(), std::size_t(1));
    shelf.put(namedProfile(Id1, "Renamed"));
    QVERIFY(shelf.store.writeNow());
    QCOMPARE(documents(), QStringList({name}));
    QVERIFY(readFile(name).contains("Renamed"));
}

void ProfileStoreTest::secondDocumentOfAnIdIsSetAside()
{
    QVERIFY(QDir().mkpath(m_folder));
    writeFile(QStringLiteral("a.xml"), document(Id1, "One"));
    writeFile(QStringLiteral("b.xml"), document(Id1.toLower(), "Two"));
    Shelf shelf(m_folder);
    const std::vector<Profile> read = shelf.store.readAll();
    QCOMPARE(read.size(), std::size_t(1));
    QCOMPARE(read.front().name(), QStringLiteral("One"));
    QCOMPARE(shelf.problems.size(), 1);
    QVERIFY(readFile(QStringLiteral("damaged/") + damaged().first()).contains("Two"));
}

void ProfileStoreTest::newDocumentKeepsClearOfAForeignFile()
{
    Shelf shelf(m_folder);
    writeFile(ProfileStore::fileName(Id1), "foreign");
    shelf.put(namedProfile(Id1, "P"));
    QVERIFY(shelf.store.writeNow());
    QCOMPARE(readFile(ProfileStore::fileName(Id1)), QByteArray("foreign"));
    QCOMPARE(documents().size(), 2);
}

void ProfileStoreTest::folderThatCantBeMadeIsReported()
{
    // A file stands where the folder has to be; permissions would not stop root.
    QFile file(m_folder);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    Shelf shelf(m_folder);
    QVERIFY(shelf.store.isReadOnly());
    QVERIFY(shelf.store.readAll().empty());
    QVERIFY(shelf.lastProblem().contains(QStringLiteral("can't be written to")));
    shelf.put(namedProfile(Id1, "P"));
    QVERIFY(!shelf.store.writeNow());
    QVERIFY(shelf.store.hasUnwritten());
}

void ProfileStoreTest::profilesInAReadOnlyFolderAreRead()
{
    {
        Shelf shelf(m_folder);
        shelf.put(namedProfile(Id1, "P"));
    }
    const OrdinaryUser user(m_directory->path());
    if (OrdinaryUser::isAdministrator())
        QSKIP("The administrator may write anywhere");
    const ReadOnlyFolder folder(m_folder);
    Shelf shelf(m_folder);
    QVERIFY(shelf.store.isReadOnly());
    QCOMPARE(shelf.store.readAll().size(), std::size_t(1));
    QVERIFY(shelf.lastProblem().contains(QStringLiteral("can't be written to")));
    shelf.put(namedProfile(Id1, "Changed"));
    QVERIFY(!shelf.store.writeNow());
    QVERIFY(shelf.store.hasUnwritten());
    QCOMPARE(readFile(ProfileStore::fileName(Id1)), document(Id1, "P"));
}

void ProfileStoreTest::folderThatBecomesReadOnlyKeepsItsDocuments()
{
    Shelf shelf(m_folder);
    shelf.put(namedProfile(Id1, "P"));
    shelf.put(namedProfile(Id2, "Doomed"));
    QVERIFY(shelf.store.writeNow());
    const OrdinaryUser user(m_directory->path());
    if (OrdinaryUser::isAdministrator())
        QSKIP("The administrator may write anywhere");
    shelf.put(namedProfile(Id1, "Changed"));
    shelf.profiles.erase(Id2);
    shelf.store.markChanged(Id2);
    {
        const ReadOnlyFolder folder(m_folder);
        QVERIFY(!shelf.store.writeNow());
        QVERIFY(!shelf.store.writeNow());
        // One for each of the two, once.
        QCOMPARE(shelf.problems.size(), 2);
        QCOMPARE(readFile(ProfileStore::fileName(Id1)), document(Id1, "P"));
    }
    QVERIFY(shelf.store.writeNow());
    QCOMPARE(readFile(ProfileStore::fileName(Id1)), document(Id1, "Changed"));
    QVERIFY(!QFile::exists(path(ProfileStore::fileName(Id2))));
}

void ProfileStoreTest::failedWriteIsReportedOnceAndTriedAgain()
{
    Shelf shelf(m_folder);
    shelf.put(namedProfile(Id1, "P"));
    QVERIFY(shelf.store.writeNow());
    // A folder in the document's place fails every write, for root as well.
    const QString place = path(ProfileStore::fileName(Id1));
    QVERIFY(QFile::remove(place));
    QVERIFY(QDir().mkpath(place + QStringLiteral("/in the way")));
    shelf.put(namedProfile(Id1, "Changed"));
    QVERIFY(!shelf.store.writeNow());
    QVERIFY(!shelf.store.writeNow());
    QCOMPARE(shelf.problems.size(), 1);
    QVERIFY(shelf.lastProblem().contains(QStringLiteral("Changed")));
    QVERIFY(shelf.store.hasUnwritten());

    QVERIFY(QDir(place).removeRecursively());
    QTRY_VERIFY_WITH_TIMEOUT(!shelf.store.hasUnwritten(), 4 * ProfileStore::FirstRetryDelay);
    QVERIFY(readFile(ProfileStore::fileName(Id1)).contains("Changed"));
}

void ProfileStoreTest::fullDiskKeepsTheOldDocument_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("room");
    QTest::newRow("large document") << 100000 << 20000;
    // It waits in a buffer until the file is closed.
    QTest::newRow("small document") << 1000 << 200;
}

void ProfileStoreTest::fullDiskKeepsTheOldDocument()
{
    QFETCH(int, size);
    QFETCH(int, room);
    Shelf shelf(m_folder);
    shelf.put(namedProfile(Id1, "Old"));
    QVERIFY(shelf.store.writeNow());
    Profile grown = namedProfile(Id1, "New");
    grown.properties["script"] = QString(size, QLatin1Char('x'));
    shelf.put(grown);
    {
        const FullDisk disk {rlim_t(room)};
        QVERIFY(!shelf.store.writeNow());
    }
    QCOMPARE(shelf.problems.size(), 1);
    QVERIFY(shelf.store.hasUnwritten());
    QCOMPARE(readFile(ProfileStore::fileName(Id1)), document(Id1, "Old"));
    QVERIFY(shelf.store.writeNow());
    QVERIFY(readFile(ProfileStore::fileName(Id1)).contains("New"));
}

void ProfileStoreTest::secondStoreReadsAndDoesNotWrite()
{
    Shelf first(m_folder);
    first.put(namedProfile(Id1, "First"));
    QVERIFY(first.store.writeNow());

    Shelf second(m_folder);
    QVERIFY(second.store.isReadOnly());
    QCOMPARE(second.store.readAll().size(), std::size_t(1));
    QVERIFY(second.lastProblem().contains(QStringLiteral("Another process")));
    second.put(namedProfile(Id1, "Second"));
    QVERIFY(!second.store.writeNow());
    QVERIFY(readFile(ProfileStore::fileName(Id1)).contains("First"));
}

void ProfileStoreTest::hugeProfileIsNotWritten()
{
    Shelf shelf(m_folder);
    shelf.put(namedProfile(Id1, "Small"));
    QVERIFY(shelf.store.writeNow());
    Profile huge = namedProfile(Id1, "Huge");
    huge.properties["script"] = QString(int(ProfileDocument::MaxSize), QLatin1Char('x'));
    shelf.put(huge);
    QVERIFY(!shelf.store.writeNow());
    QVERIFY(shelf.lastProblem().contains(QStringLiteral("too large")));
    QVERIFY(readFile(ProfileStore::fileName(Id1)).contains("Small"));
}

void ProfileStoreTest::severalFailuresAreOneRoundOfRetries()
{
    Shelf shelf(m_folder);
    for (int i = 0; i < 8; ++i) {
        const QString id = QStringLiteral("{AAAAAAAA-0000-0000-0000-00000000000%1}").arg(i);
        shelf.put(namedProfile(id, "P"));
    }
    {
        const FullDisk disk(10);
        QVERIFY(!shelf.store.writeNow());
    }
    // One delay of the first length, not one for each profile.
    QTRY_VERIFY_WITH_TIMEOUT(!shelf.store.hasUnwritten(), 2 * ProfileStore::FirstRetryDelay);
}

void ProfileStoreTest::unwrittenProfilesGoToAnotherFolder()
{
    Shelf shelf(m_folder);
    shelf.put(namedProfile(Id1, "Written"));
    QVERIFY(shelf.store.writeNow());
    shelf.put(namedProfile(Id2, "Unwritten"));
    const QTemporaryDir other;
    const QString name = ProfileStore::fileName(Id2);
    QFile foreign(other.filePath(name));
    QVERIFY(foreign.open(QIODevice::WriteOnly));
    foreign.write("foreign");
    foreign.close();
    QCOMPARE(shelf.store.writeUnwrittenTo(other.path()), QString());
    QCOMPARE(QDir(other.path()).entryList(QDir::Files), QStringList({"2-" + name, name}));
    QVERIFY(shelf.store.hasUnwritten());
    QFile written(other.filePath("2-" + name));
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), document(Id2, "Unwritten"));
    QVERIFY(shelf.store.writeUnwrittenTo(m_folder + "/no such folder").contains("Unwritten"));
}

void ProfileStoreTest::pathsInTheFolderAreTheStores()
{
    const Shelf shelf(m_folder);
    QVERIFY(shelf.store.holds(path("new.xml")));
    QVERIFY(shelf.store.holds(m_folder + "/../profiles/new.xml"));
    QVERIFY(QDir(m_folder).mkdir("damaged"));
    QVERIFY(shelf.store.holds(path("damaged/new.xml")));
    QVERIFY(QFile::link(m_folder, m_directory->filePath("link")));
    QVERIFY(shelf.store.holds(m_directory->filePath("link/new.xml")));
    QVERIFY(!shelf.store.holds(m_directory->filePath("new.xml")));
    QVERIFY(!shelf.store.holds(m_directory->filePath("no such folder/new.xml")));
    QVERIFY(!shelf.store.holds(m_directory->filePath("profiles2/new.xml")));
}

VELTRANO_TEST_MAIN(ProfileStoreTest)
#include "ProfileStoreTest.moc"
