#include <DeviceFolder.h>
#include <DeviceMemory.h>
#include <FullDisk.h>
#include <TestCase.h>

#include <QElapsedTimer>
#include <QFile>
#include <QtConcurrentRun>
#include <QTemporaryDir>

namespace {

constexpr int Capacity = 10000;

} // namespace

class DeviceMemoryTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void documentsAreReadInTheOrderOfTheirNames();
    void documentLargerThanTheMemoryIsNotRead();
    void foldersAndOtherFilesAreNoDocuments();
    void changesAreCarriedOut();
    void documentThatCantBeRemovedIsToldAndHoldsUpNoOther();
    void documentThatIsNotWrittenWholeReplacesNothing_data();
    void documentThatIsNotWrittenWholeReplacesNothing();
    void leftoversOfABrokenWriteGo();
    void memoryTakesItsTimeUnlessItMustHurry();
    void memoryThatIsPulledOutKeepsTheOldDocument();
    void memoryThatIsPulledOutWhileItIsReadSaysSo();
    void memoryThatIsAwaySaysSo();
    void fileInPlaceOfTheMemoryIsNoMemory();

private:
    QString path(const QString& name) const { return m_folder->filePath(QStringLiteral("memory/") + name); }
    DeviceMemory memory(int speed = 0) const { return {m_folder->filePath("memory"), Capacity, speed}; }
    QByteArray content(const QString& name) const;

    const std::atomic_bool m_noHurry {false};
    QScopedPointer<QTemporaryDir> m_folder;
};

void DeviceMemoryTest::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(QDir(m_folder->path()).mkdir("memory"));
}

QByteArray DeviceMemoryTest::content(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

void DeviceMemoryTest::documentsAreReadInTheOrderOfTheirNames()
{
    DeviceFolder::write(path("b.xml"), "bbb");
    DeviceFolder::write(path("a.xml"), "");
    const DeviceMemory::Contents contents = memory().read(m_noHurry);
    QCOMPARE(contents.error, QString());
    QCOMPARE(contents.documents.size(), 2);
    QCOMPARE(contents.documents[0].fileName, QString("a.xml"));
    QCOMPARE(contents.documents[1].bytes, QByteArray("bbb"));
    QCOMPARE(contents.documents[1].size, 3);
}

void DeviceMemoryTest::documentLargerThanTheMemoryIsNotRead()
{
    DeviceFolder::write(path("a.xml"), QByteArray(Capacity + 1, 'x'));
    const DeviceMemory::Contents contents = memory().read(m_noHurry);
    QCOMPARE(contents.documents.size(), 1);
    QCOMPARE(contents.documents[0].bytes, QByteArray());
    QCOMPARE(contents.documents[0].size, Capacity + 1);
}

void DeviceMemoryTest::foldersAndOtherFilesAreNoDocuments()
{
    DeviceFolder::write(path("folder.xml/inner.xml"), "x");
    DeviceFolder::write(path("note.txt"), "x");
    QCOMPARE(memory().read(m_noHurry).documents.size(), 0);
}

void DeviceMemoryTest::changesAreCarriedOut()
{
    DeviceFolder::write(path("a.xml"), "old");
    DeviceFolder::write(path("b.xml"), "gone");
    DeviceMemory::Changes changes;
    changes.written["a.xml"] = QByteArray(5000, 'n');
    changes.written["c.xml"] = "new";
    changes.removed = QStringList({"b.xml", "was never there.xml"});
    const DeviceMemory::Contents contents = memory().write(changes, m_noHurry);
    QCOMPARE(contents.error, QString());
    QCOMPARE(contents.documents.size(), 2);
    QCOMPARE(contents.documents[0].bytes, QByteArray(5000, 'n'));
    QCOMPARE(content("a.xml"), QByteArray(5000, 'n'));
    QCOMPARE(content("c.xml"), QByteArray("new"));
    QVERIFY(!QFile::exists(path("b.xml")));
}

void DeviceMemoryTest::documentThatCantBeRemovedIsToldAndHoldsUpNoOther()
{
    // A folder that holds something does not go like a document.
    DeviceFolder::write(path("a.xml/inner"), "x");
    DeviceFolder::write(path("b.xml"), "x");
    DeviceMemory::Changes changes;
    changes.removed = QStringList({"a.xml", "b.xml"});
    changes.written["c.xml"] = "has room";
    DeviceMemory::Contents contents = memory().write(changes, m_noHurry);
    QVERIFY(!contents.removalError.isEmpty());
    QCOMPARE(contents.error, QString());
    QVERIFY(!QFile::exists(path("b.xml")));
    QCOMPARE(content("c.xml"), QByteArray("has room"));

    DeviceFolder::write(path("d.xml"), QByteArray(Capacity + 10, 'x'));
    changes.written["c.xml"] = "has no room any more";
    contents = memory().write(changes, m_noHurry);
    QCOMPARE(contents.error, QString("what can't be removed takes the room"));
    QCOMPARE(content("c.xml"), QByteArray("has room"));

    // Nothing wants the room.
    changes.written.clear();
    contents = memory().write(changes, m_noHurry);
    QVERIFY(!contents.removalError.isEmpty());
    QCOMPARE(contents.error, QString());
}

void DeviceMemoryTest::documentThatIsNotWrittenWholeReplacesNothing_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("large document") << 60000;
    // It waits in a buffer until the file is closed.
    QTest::newRow("small document") << 1000;
}

void DeviceMemoryTest::documentThatIsNotWrittenWholeReplacesNothing()
{
    QFETCH(const int, size);
    DeviceFolder::write(path("a.xml"), "old");
    DeviceMemory::Changes changes;
    changes.written["a.xml"] = QByteArray(size, 'n');
    const FullDisk disk(200);
    QVERIFY(!memory().write(changes, m_noHurry).error.isEmpty());
    QCOMPARE(content("a.xml"), QByteArray("old"));
}

void DeviceMemoryTest::leftoversOfABrokenWriteGo()
{
    DeviceFolder::write(path("a.xml.Abc123"), "half");
    memory().write({}, m_noHurry);
    QVERIFY(!QFile::exists(path("a.xml.Abc123")));
}

void DeviceMemoryTest::memoryTakesItsTimeUnlessItMustHurry()
{
    DeviceMemory::Changes changes;
    changes.written["a.xml"] = QByteArray(4000, 'x');
    QElapsedTimer timer;
    timer.start();
    memory(20000).write(changes, m_noHurry);
    QVERIFY(timer.elapsed() >= 200);
    // A speed that would take more than an hour.
    memory(1).write(changes, std::atomic_bool(true));
}

void DeviceMemoryTest::memoryThatIsPulledOutKeepsTheOldDocument()
{
    DeviceFolder::write(path("a.xml"), "old");
    DeviceMemory::Changes changes;
    changes.written["a.xml"] = QByteArray(8192, 'n');
    const DeviceMemory slow = memory(16384);
    const QFuture<DeviceMemory::Contents> job =
        QtConcurrent::run([&] { return slow.write(changes, m_noHurry); });
    QElapsedTimer timer;
    timer.start();
    // In the middle of its half a second.
    QTRY_VERIFY(timer.elapsed() > 200);
    QVERIFY(job.isRunning());
    QVERIFY(QFile::rename(m_folder->filePath("memory"), m_folder->filePath("away")));
    QCOMPARE(job.result().error, QString("it was disconnected"));
    QVERIFY(!QFile::exists(m_folder->filePath("memory")));
    QVERIFY(QFile::rename(m_folder->filePath("away"), m_folder->filePath("memory")));
    QCOMPARE(content("a.xml"), QByteArray("old"));
}

void DeviceMemoryTest::memoryThatIsPulledOutWhileItIsReadSaysSo()
{
    DeviceFolder::write(path("a.xml"), QByteArray(8192, 'x'));
    const DeviceMemory slow = memory(16384);
    const QFuture<DeviceMemory::Contents> job = QtConcurrent::run([&] { return slow.read(m_noHurry); });
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY(timer.elapsed() > 200);
    QVERIFY(QFile::rename(m_folder->filePath("memory"), m_folder->filePath("away")));
    QCOMPARE(job.result().error, QString("it was disconnected"));
    QCOMPARE(job.result().documents.size(), 0);
}

void DeviceMemoryTest::memoryThatIsAwaySaysSo()
{
    const DeviceMemory away(m_folder->filePath("nowhere"), Capacity, 0);
    QVERIFY(!away.isThere());
    QCOMPARE(away.read(m_noHurry).error, QString("it was disconnected"));
    DeviceMemory::Changes changes;
    changes.written["a.xml"] = "x";
    QCOMPARE(away.write(changes, m_noHurry).error, QString("it was disconnected"));
}

void DeviceMemoryTest::fileInPlaceOfTheMemoryIsNoMemory()
{
    DeviceFolder::write(m_folder->filePath("file"), "x");
    const DeviceMemory damaged(m_folder->filePath("file"), Capacity, 0);
    QVERIFY(!damaged.isThere());
    DeviceMemory::Changes changes;
    changes.written["a.xml"] = "x";
    QVERIFY(!damaged.write(changes, m_noHurry).error.isEmpty());
}

VELTRANO_TEST_MAIN(DeviceMemoryTest)
#include "DeviceMemoryTest.moc"
