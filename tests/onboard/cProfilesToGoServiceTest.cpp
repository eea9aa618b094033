#include "OnBoardTestCase.h"

#include <cEventHelpers.h>
#include <DeviceFolder.h>
#include <EventLog.h>
#include <ProfileStore.h>

#include <QElapsedTimer>
#include <QFile>

/// Each road through the service, by name, with its events.
class cProfilesToGoServiceTest : public OnBoardTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void deviceIsReadWhenItIsSeen();
    void onlyDevicesWithAMemoryHaveOne();
    void devicesHaveShortNames();

    void copyIsWrittenByACommit();
    void changedProfileIsAheadUntilItIsWritten();
    void profileThatIsShownIsToldToBeUnwritten();
    void unchangedProfilesAreNotWrittenAgain();
    void profileOnTheDeviceIsCopiedBack();
    void copiesOnADeviceHaveNamesOfTheirOwn();
    void allDevicesAreCommittedAndAwaited();
    void commitOfABusyDeviceFollows();
    void userIsNotKeptWaiting();
    void endWaitsForNoSlowDevice();

    void fullDeviceIsLeftAsItIs();
    void spaceCountsWhatIsStillToBeWritten();
    void failedWriteIsReported();

    void idleDeviceLeavesUnwrittenProfilesMarked();

    void damagedDocumentsStayUntilTheyAreRemoved_data();
    void damagedDocumentsStayUntilTheyAreRemoved();
    void sameProfileTwiceIsToldAndKept();
    void secondProcessWritesNothing();
    void unknownDevice();
};

void cProfilesToGoServiceTest::deviceIsReadWhenItIsSeen()
{
    restart();
    QVERIFY(memories().isDeviceBusyReading(Mouse));
    waitUntilIdle();
    QCOMPARE(takeEvents(), QStringList({"Busy The Mouse " + Mouse + " reading", "Idle " + Mouse}));
    QVERIFY(memories().getProfiles(Mouse).isArray());
    QCOMPARE(memories().getProfiles(Mouse).size(), 0u);
    QCOMPARE(memories().memoryUsed(Mouse), 0);
    QCOMPARE(takeProblems(), QStringList());
}

void cProfilesToGoServiceTest::onlyDevicesWithAMemoryHaveOne()
{
    QCOMPARE(service().deviceIds(), QStringList({Mouse}));
    QCOMPARE(service().capacity(Mouse), Capacity);
    QVERIFY(!memories().isSpaceAvailable("Test.Plain#demonstration", {Local}));
    QVERIFY(!memories().isDeviceBusy("Test.Plain#demonstration"));
}

void cProfilesToGoServiceTest::devicesHaveShortNames()
{
    QCOMPARE(memories().shortDeviceName(Mouse), QString("Mm"));
    QCOMPARE(memories().shortDeviceName("Test.Plain#demonstration"), QString("Plain"));
    QCOMPARE(memories().shortDeviceName("nobody"), QString());
}

void cProfilesToGoServiceTest::copyIsWrittenByACommit()
{
    const QString copy = copyToMouse(Local);
    QCOMPARE(profiles().getProfileDeviceId(copy), Mouse);
    QVERIFY(profiles().isProfileToGoDirty(copy));
    QCOMPARE(documents(), QStringList());

    memories().commitDevice(Mouse);
    QVERIFY(memories().isDeviceBusyWriting(Mouse));
    QVERIFY(!memories().isDeviceBusyReading(Mouse));
    waitUntilIdle();
    QCOMPARE(takeEvents(), QStringList({"Busy The Mouse " + Mouse + " writing", "Idle " + Mouse}));
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(copy)}));
    QVERIFY(!profiles().isProfileToGoDirty(copy));
    QCOMPARE(memories().memoryUsed(Mouse), document(ProfileStore::fileName(copy)).size());
    const cJsonValue stored = memories().getProfiles(Mouse);
    QCOMPARE(stored.size(), 1u);
    QCOMPARE(stored[0]["name"].toString(), QString("Local"));
    QCOMPARE(stored[0]["deviceid"].toString(), Mouse);
    // The one that it was copied from is on this computer as before.
    QCOMPARE(profiles().getProfileDeviceId(Local), QString());
    QVERIFY(!profiles().isProfileToGoDirty(Local));

    restart();
    waitUntilIdle();
    QVERIFY(!profiles().isProfileToGoDirty(copy));
    QCOMPARE(takeProblems(), QStringList());
}

void cProfilesToGoServiceTest::changedProfileIsAheadUntilItIsWritten()
{
    const QString copy = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QVERIFY(profiles().setProfileScript(copy, "print(1)"));
    QVERIFY(profiles().isProfileToGoDirty(copy));
    QVERIFY(profiles().setProfileScript(copy, QString()));
    QPixmap icon(48, 48);
    icon.fill(Qt::red);
    profiles().setProfileIcon(copy, icon);
    QVERIFY(profiles().isProfileToGoDirty(copy));
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QVERIFY(!profiles().isProfileToGoDirty(copy));
    QVERIFY(document(ProfileStore::fileName(copy)).contains("<icon>"));
}

void cProfilesToGoServiceTest::profileThatIsShownIsToldToBeUnwritten()
{
    const QString copy = copyToMouse(Local);
    EventLog events;
    EventHelpers::publishProfileSelectionChanged(copy);
    QCOMPARE(events.take(), QStringList({"ProfilePropertyChanged " + copy}));
    EventHelpers::publishProfileSelectionChanged(Local);
    memories().commitDevice(Mouse);
    EventHelpers::publishProfileSelectionChanged(copy);
    QCOMPARE(events.take(), QStringList());
    waitUntilIdle();
    EventHelpers::publishProfileSelectionChanged(copy);
    QCOMPARE(events.take(), QStringList());
}

void cProfilesToGoServiceTest::unchangedProfilesAreNotWrittenAgain()
{
    const QString first = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QFile file(memoryPath(ProfileStore::fileName(first)));
    const QDateTime old = QDateTime::currentDateTime().addDays(-1);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(old, QFile::FileModificationTime));
    file.close();
    copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QCOMPARE(documents().size(), 2);
    QCOMPARE(QFileInfo(file.fileName()).lastModified().toSecsSinceEpoch(), old.toSecsSinceEpoch());
}

void cProfilesToGoServiceTest::profileOnTheDeviceIsCopiedBack()
{
    const QString onDevice = copyToMouse(Local);
    profiles().setProfileScript(onDevice, "print(2)");
    const QStringList before = profiles().profileIDs();
    profiles().copyProfile(onDevice);
    const QString back = profiles().profileIDs().last();
    QVERIFY(!before.contains(back));
    QCOMPARE(profiles().getProfileDeviceId(back), QString());
    QCOMPARE(profiles().getProfileScript(back), QString("print(2)"));
    QCOMPARE(profiles().getProfileName(back), QString("Local (2)"));
}

void cProfilesToGoServiceTest::copiesOnADeviceHaveNamesOfTheirOwn()
{
    QCOMPARE(profiles().getProfileName(copyToMouse(Local)), QString("Local"));
    QCOMPARE(profiles().getProfileName(copyToMouse(Local)), QString("Local (2)"));
}

void cProfilesToGoServiceTest::allDevicesAreCommittedAndAwaited()
{
    copyToMouse(Local);
    memories().commitAllDevices();
    QVERIFY(memories().isDeviceBusyWriting(Mouse));
    waitUntilIdle();
    QCOMPARE(documents().size(), 1);
    copyToMouse(Local);
    memories().commitAllDevicesAndWait();
    QVERIFY(!memories().isDeviceBusy(Mouse));
    QCOMPARE(documents().size(), 2);
    service().setConnected(Mouse, false);
    copyToMouse(Local);
    memories().commitAllDevicesAndWait();
    QCOMPARE(takeProblems(), QStringList());
}

void cProfilesToGoServiceTest::commitOfABusyDeviceFollows()
{
    copyToMouse(Local);
    memories().commitDevice(Mouse);
    const QString late = copyToMouse(Local);
    memories().commitDevice(Mouse);
    memories().commitDevice(Mouse);
    QTRY_VERIFY(!profiles().isProfileToGoDirty(late));
    waitUntilIdle();
    QCOMPARE(takeEvents().count("Idle " + Mouse), 2);
    QCOMPARE(documents().size(), 2);
}

void cProfilesToGoServiceTest::userIsNotKeptWaiting()
{
    stop();
    setSpeed(4096);
    start();
    waitUntilIdle();
    copyToMouse(Local);
    QElapsedTimer timer;
    timer.start();
    memories().commitDevice(Mouse);
    const qint64 callTime = timer.elapsed();
    waitUntilIdle();
    QVERIFY(document(documents().value(0)).size() > 0);
    QVERIFY2(callTime < timer.elapsed(), qPrintable(QString::number(callTime)));
    QVERIFY(timer.elapsed() >= 1000 * document(documents().value(0)).size() / 4096);
}

void cProfilesToGoServiceTest::endWaitsForNoSlowDevice()
{
    stop();
    // It would take hours.
    setSpeed(1);
    start();
    waitUntilIdle();
    const QString copy = copyToMouse(Local);
    grow(copy, 5000);
    memories().commitDevice(Mouse);
    QVERIFY(memories().isDeviceBusyWriting(Mouse));
    QElapsedTimer timer;
    timer.start();
    stop();
    QVERIFY(timer.elapsed() < 5000);
    // What was begun came to its end.
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(copy)}));
    QVERIFY(document(documents().first()).trimmed().endsWith("</profiles>"));
}

void cProfilesToGoServiceTest::fullDeviceIsLeftAsItIs()
{
    const QString small = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    profiles().setProfileScript(small, "print(4)");
    const QString large = copyToMouse(Local);
    grow(large, Capacity);
    const QByteArray before = document(documents().value(0));
    takeEvents();
    memories().commitDevice(Mouse);
    QVERIFY(!memories().isDeviceBusy(Mouse));
    QCOMPARE(takeEvents(), QStringList());
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(small)}));
    QCOMPARE(document(documents().value(0)), before);
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY2(problems[0].contains("its memory has 20 KB. Nothing was written."), qPrintable(problems[0]));
    QVERIFY(profiles().isProfileToGoDirty(large));

    QVERIFY(profiles().deleteProfileByID(large));
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QVERIFY(!profiles().isProfileToGoDirty(small));
    QCOMPARE(takeProblems(), QStringList());
}

void cProfilesToGoServiceTest::spaceCountsWhatIsStillToBeWritten()
{
    QVERIFY(memories().isSpaceAvailable(Mouse, {}));
    QVERIFY(memories().isSpaceAvailable(Mouse, {Local}));
    grow(Local, Capacity / 2);
    QVERIFY(memories().isSpaceAvailable(Mouse, {Local}));
    const QString copy = copyToMouse(Local);
    QVERIFY(memories().isSpaceAvailable(Mouse, {copy}));
    QVERIFY(!memories().isSpaceAvailable(Mouse, {Local}));
    grow(Local, Capacity / 4);
    QVERIFY(memories().isSpaceAvailable(Mouse, {Local}));
}

void cProfilesToGoServiceTest::failedWriteIsReported()
{
    const QString copy = copyToMouse(Local);
    // A folder where the document has to go can't be replaced by a file.
    QVERIFY(QDir().mkpath(memoryPath(ProfileStore::fileName(copy)) + "/full"));
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY2(
        problems[0].startsWith("The profiles could not be written to The Mouse: "), qPrintable(problems[0]));
    QVERIFY(profiles().isProfileToGoDirty(copy));
    QVERIFY(QDir(memoryPath(ProfileStore::fileName(copy))).removeRecursively());
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QVERIFY(!profiles().isProfileToGoDirty(copy));
    QCOMPARE(takeProblems(), QStringList());
}

void cProfilesToGoServiceTest::idleDeviceLeavesUnwrittenProfilesMarked()
{
    const QString written = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    const QString unwritten = copyToMouse(Local);
    restart();
    EventLog events;
    waitUntilIdle();
    QCOMPARE(events.take(), QStringList({"ProfilePropertyChanged " + unwritten}));
    QVERIFY(!profiles().isProfileToGoDirty(written));
}

void cProfilesToGoServiceTest::damagedDocumentsStayUntilTheyAreRemoved_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no XML") << QByteArray("\0\1\2\3 damaged", 12);
    QTest::newRow("cut off") << QByteArray("<profiles version=\"1\"><profile uid=\"{F}\" name=");
    QTest::newRow("no id") << QByteArray("<profiles version=\"1\"><profile name=\"x\"/></profiles>");
    QTest::newRow("two profiles") << QByteArray(
        "<profiles version=\"1\"><profile uid=\"{1}\"/><profile uid=\"{2}\"/></profiles>");
    QTest::newRow("larger than the memory") << QByteArray(Capacity + 1, ' ');
}

void cProfilesToGoServiceTest::damagedDocumentsStayUntilTheyAreRemoved()
{
    QFETCH(QByteArray, content);
    stop();
    DeviceFolder::write(memoryPath("bad.xml"), content);
    start();
    const QStringList idsBefore = profiles().profileIDs();
    waitUntilIdle();
    QCOMPARE(profiles().profileIDs(), idsBefore);
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY2(problems[0].startsWith("The Mouse holds something that can't be used: bad.xml, "),
        qPrintable(problems[0]));
    QCOMPARE(memories().memoryUsed(Mouse), content.size());
    QCOMPARE(memories().getProfiles(Mouse).size(), 0u);

    if (content.size() < Capacity / 2) {
        copyToMouse(Local);
        memories().commitDevice(Mouse);
        waitUntilIdle();
        QCOMPARE(documents().size(), 2);
    }
    QCOMPARE(document("bad.xml"), content);
    QCOMPARE(service().damages(Mouse).size(), 1);
    service().removeDamaged(Mouse, "no such.xml");
    service().removeDamaged(Mouse, "../../devices/Mouse/manifest.xml");
    QVERIFY(!memories().isDeviceBusy(Mouse));
    service().removeDamaged(Mouse, "bad.xml");
    waitUntilIdle();
    QVERIFY(!documents().contains("bad.xml"));
    QCOMPARE(service().damages(Mouse).size(), 0);
}

void cProfilesToGoServiceTest::sameProfileTwiceIsToldAndKept()
{
    stop();
    const QByteArray document = "<profiles version=\"1\"><profile uid=\"{F}\" name=\"F\"/></profiles>";
    DeviceFolder::write(memoryPath("a.xml"), document);
    DeviceFolder::write(memoryPath("b.xml"), document);
    start();
    waitUntilIdle();
    QCOMPARE(takeProblems().size(), 1);
    QCOMPARE(memories().getProfiles(Mouse).size(), 1u);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QCOMPARE(documents(), QStringList({"a.xml", "b.xml"}));
}

void cProfilesToGoServiceTest::secondProcessWritesNothing()
{
    const QString copy = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    const QString folder = QFileInfo(memoryPath()).path() + "/../";
    FakeSettings settings;
    cDevMgrService devices;
    devices.load(folder + "devices");
    cProfileMgrService second(
        folder + "profiles", folder + "Default.xml", {&settings, nullptr, &devices, nullptr});
    QVERIFY(second.isReadOnly());
    second.load();
    cProfilesToGoService memory(folder + "onboard", devices, second);
    memory.start();
    QTRY_VERIFY(!memory.isDeviceBusy(Mouse));
    QVERIFY(second.deleteProfileByID(copy));
    memory.onProfileDeleted(copy);
    memory.commitDevice(Mouse);
    QVERIFY(!memory.isDeviceBusy(Mouse));
    QCOMPARE(documents().size(), 1);
}

void cProfilesToGoServiceTest::unknownDevice()
{
    QVERIFY(memories().getProfiles("nobody").isArray());
    QCOMPARE(memories().getProfiles("nobody").size(), 0u);
    QCOMPARE(memories().memoryUsed("nobody"), 0);
    QVERIFY(!memories().isDeviceBusy("nobody"));
    QVERIFY(!memories().isDeviceBusyReading("nobody"));
    QVERIFY(!memories().isDeviceBusyWriting("nobody"));
    QVERIFY(!memories().isSpaceAvailable("nobody", {}));
    memories().commitDevice("nobody");
    QCOMPARE(takeProblems(), QStringList({"There is no device with an on-board memory for this profile."}));
}

VELTRANO_TEST_MAIN(cProfilesToGoServiceTest)
#include "cProfilesToGoServiceTest.moc"
