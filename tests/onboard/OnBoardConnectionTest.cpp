#include "OnBoardTestCase.h"

#include <DeviceFolder.h>
#include <EventLog.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

/// Devices that are pulled out, come back, or come from elsewhere.
class OnBoardConnectionTest : public OnBoardTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pulledDeviceIsSurvived();
    void pulledDeviceTakesNothing();
    void deviceBroughtFromElsewhereBringsItsProfiles();
    void fileInPlaceOfTheMemoryIsAMissingDevice();
};

void OnBoardConnectionTest::pulledDeviceIsSurvived()
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

void OnBoardConnectionTest::pulledDeviceTakesNothing()
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

void OnBoardConnectionTest::deviceBroughtFromElsewhereBringsItsProfiles()
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

void OnBoardConnectionTest::fileInPlaceOfTheMemoryIsAMissingDevice()
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

VELTRANO_TEST_MAIN(OnBoardConnectionTest)
#include "OnBoardConnectionTest.moc"
