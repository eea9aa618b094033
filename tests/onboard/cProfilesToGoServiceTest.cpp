#include "OnBoardTestCase.h"

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
    void unchangedProfilesAreNotWrittenAgain();
    void profileOnTheDeviceIsCopiedBack();
    void copiesOnADeviceHaveNamesOfTheirOwn();
    void deletedProfileLeavesTheDevice();
    void allDevicesAreCommittedAndAwaited();
    void commitOfABusyDeviceFollows();
    void userIsNotKeptWaiting();
    void endWaitsForNoSlowDevice();

    void fullDeviceIsLeftAsItIs();
    void spaceCountsWhatIsStillToBeWritten();
    void failedWriteIsReported();

    void pulledDeviceIsSurvived();
    void pulledDeviceTakesNothing();
    void profileThatWasDeletedMeanwhileGoesWhenTheDeviceComesBack();
    void profileThatWasDeletedMeanwhileStaysAwayAfterARestart_data();
    void profileThatWasDeletedMeanwhileStaysAwayAfterARestart();
    void profileThatWasDeletedWhileItIsWrittenLeavesTheDevice();
    void undoneDeletionLeavesTheProfileOnTheDevice();
    void deviceBroughtFromElsewhereBringsItsProfiles();
    void idleDeviceLeavesUnwrittenProfilesMarked();

    void damagedDocumentsStayUntilTheyAreRemoved_data();
    void damagedDocumentsStayUntilTheyAreRemoved();
    void sameProfileTwiceIsToldAndKept();
    void fileInPlaceOfTheMemoryIsAMissingDevice();
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

void cProfilesToGoServiceTest::deletedProfileLeavesTheDevice()
{
    const QString doomed = copyToMouse(Local);
    const QString other = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    profiles().setProfileScript(other, "print(3)");
    takeEvents();
    QVERIFY(profiles().deleteProfileByID(doomed));
    waitUntilIdle();
    QCOMPARE(takeEvents(), QStringList({"Busy The Mouse " + Mouse + " writing", "Idle " + Mouse}));
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(other)}));
    // Nobody asked for the other one to be written.
    QVERIFY(profiles().isProfileToGoDirty(other));
    QVERIFY(profiles().deleteProfileByID(Local));
    QCOMPARE(takeEvents(), QStringList());
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

void cProfilesToGoServiceTest::pulledDeviceIsSurvived()
{
    stop();
    setSpeed(8192);
    start();
    waitUntilIdle();
    const QString copy = copyToMouse(Local);
    grow(copy, 8000);
    takeEvents();
    memories().commitDevice(Mouse);
    QElapsedTimer timer;
    timer.start();
    // In the middle of its second.
    QTRY_VERIFY(timer.elapsed() > 300);
    QVERIFY(memories().isDeviceBusyWriting(Mouse));
    QVERIFY(QFile::rename(memoryPath(), awayPath()));
    waitUntilIdle();
    QTRY_VERIFY(!service().isConnected(Mouse));
    QCOMPARE(takeEvents(), QStringList({"Busy The Mouse " + Mouse + " writing", "Idle " + Mouse}));
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY2(
        problems[0].contains("it was disconnected. They are kept on this computer"), qPrintable(problems[0]));
    QVERIFY(profiles().isProfileToGoDirty(copy));
    QCOMPARE(memories().memoryUsed(Mouse), 0);

    QVERIFY(QFile::rename(awayPath(), memoryPath()));
    QTRY_VERIFY(service().isConnected(Mouse));
    waitUntilIdle();
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QVERIFY(!profiles().isProfileToGoDirty(copy));
    QCOMPARE(QDir(memoryPath()).entryList(QDir::Files), documents());
    QCOMPARE(takeProblems(), QStringList());
}

void cProfilesToGoServiceTest::pulledDeviceTakesNothing()
{
    service().setConnected(Mouse, false);
    QVERIFY(!service().isConnected(Mouse));
    QVERIFY(!memories().isSpaceAvailable(Mouse, {Local}));
    copyToMouse(Local);
    memories().commitDevice(Mouse);
    QCOMPARE(takeEvents(), QStringList());
    QCOMPARE(takeProblems(),
        QStringList({"The Mouse is not connected. Its profiles are kept on this computer; write them when it "
                     "is back."}));
    QVERIFY(!QFile::exists(memoryPath()));
    // It is still away after a restart.
    restart();
    QVERIFY(!service().isConnected(Mouse));
    service().setConnected(Mouse, true);
    QVERIFY(service().isConnected(Mouse));
    waitUntilIdle();
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QCOMPARE(documents().size(), 1);
}

void cProfilesToGoServiceTest::profileThatWasDeletedMeanwhileGoesWhenTheDeviceComesBack()
{
    const QString doomed = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    service().setConnected(Mouse, false);
    QVERIFY(profiles().deleteProfileByID(doomed));
    service().setConnected(Mouse, true);
    QTRY_COMPARE(documents(), QStringList());
    QVERIFY(profiles().getProfileByID(doomed).isNull());
    QCOMPARE(takeProblems(), QStringList());
}

void cProfilesToGoServiceTest::profileThatWasDeletedMeanwhileStaysAwayAfterARestart_data()
{
    QTest::addColumn<bool>("isAwaySinceTheStart");
    QTest::newRow("pulled since") << false;
    QTest::newRow("away since the start") << true;
}

void cProfilesToGoServiceTest::profileThatWasDeletedMeanwhileStaysAwayAfterARestart()
{
    QFETCH(bool, isAwaySinceTheStart);
    const QString doomed = copyToMouse(Local);
    const QString other = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    service().setConnected(Mouse, false);
    if (isAwaySinceTheStart)
        restart();
    QVERIFY(profiles().deleteProfileByID(doomed));
    restart();
    // As long as it takes.
    restart();
    service().setConnected(Mouse, true);
    QTRY_COMPARE(documents(), QStringList({ProfileStore::fileName(other)}));
    waitUntilIdle();
    QVERIFY(profiles().getProfileByID(doomed).isNull());
    QVERIFY(!profiles().getProfileByID(other).isNull());
    QCOMPARE(takeProblems(), QStringList());
    // The next restart has nothing left to do.
    QVERIFY(!QFile::exists(memoryPath() + ".deleted"));
}

void cProfilesToGoServiceTest::profileThatWasDeletedWhileItIsWrittenLeavesTheDevice()
{
    const QString doomed = copyToMouse(Local);
    memories().commitDevice(Mouse);
    QVERIFY(memories().isDeviceBusyWriting(Mouse));
    QVERIFY(profiles().deleteProfileByID(doomed));
    waitUntilIdle();
    QTRY_COMPARE(documents(), QStringList());
    QVERIFY(!QFile::exists(memoryPath() + ".deleted"));
}

void cProfilesToGoServiceTest::undoneDeletionLeavesTheProfileOnTheDevice()
{
    const QString copy = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    service().setConnected(Mouse, false);
    QCoreApplication::processEvents();
    QVERIFY(profiles().deleteProfileByID(copy));
    QCoreApplication::processEvents();
    profileService().undo();
    restart();
    service().setConnected(Mouse, true);
    waitUntilIdle();
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(copy)}));
    QVERIFY(!profiles().getProfileByID(copy).isNull());
    QVERIFY(!QFile::exists(memoryPath() + ".deleted"));
}

void cProfilesToGoServiceTest::deviceBroughtFromElsewhereBringsItsProfiles()
{
    stop();
    DeviceFolder::write(memoryPath("foreign.xml"),
        "<profiles version=\"1\"><profile uid=\"{F}\" name=\"Foreign\" deviceid=\"another\">"
        "<description>Brought along</description></profile></profiles>");
    start();
    EventLog events;
    waitUntilIdle();
    QCOMPARE(events.take(), QStringList({"ProfileAdded {F}", "ProfilePropertyChanged {F}"}));
    QCOMPARE(profiles().getProfileName("{F}"), QString("Foreign"));
    QCOMPARE(profiles().getProfileDeviceId("{F}"), Mouse);
    QVERIFY(profiles().isProfileToGoDirty("{F}"));
    memories().commitDevice(Mouse);
    waitUntilIdle();
    QCOMPARE(documents(), QStringList({"foreign.xml"}));
    QVERIFY(!profiles().isProfileToGoDirty("{F}"));
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

void cProfilesToGoServiceTest::fileInPlaceOfTheMemoryIsAMissingDevice()
{
    stop();
    QVERIFY(QDir(memoryPath()).removeRecursively());
    DeviceFolder::write(memoryPath(), "a file");
    start();
    QVERIFY(!service().isConnected(Mouse));
    copyToMouse(Local);
    memories().commitDevice(Mouse);
    QCOMPARE(takeProblems().size(), 1);
    service().setConnected(Mouse, true);
    QCOMPARE(takeProblems(), QStringList({"The Mouse can't be connected."}));
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
