#include "OnBoardTestCase.h"

#include <ProfileStore.h>

#include <QCoreApplication>
#include <QFile>

/// Profiles that the user deletes while a device holds them.
class OnBoardDeletionTest : public OnBoardTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void deletedProfileLeavesTheDevice();
    void profileThatWasDeletedMeanwhileGoesWhenTheDeviceComesBack();
    void profileThatWasDeletedMeanwhileStaysAwayAfterARestart_data();
    void profileThatWasDeletedMeanwhileStaysAwayAfterARestart();
    void profileThatWasDeletedWhileItIsWrittenLeavesTheDevice();
    void undoneDeletionLeavesTheProfileOnTheDevice();
};

void OnBoardDeletionTest::deletedProfileLeavesTheDevice()
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

void OnBoardDeletionTest::profileThatWasDeletedMeanwhileGoesWhenTheDeviceComesBack()
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

void OnBoardDeletionTest::profileThatWasDeletedMeanwhileStaysAwayAfterARestart_data()
{
    QTest::addColumn<bool>("isAwaySinceTheStart");
    QTest::newRow("pulled since") << false;
    QTest::newRow("away since the start") << true;
}

void OnBoardDeletionTest::profileThatWasDeletedMeanwhileStaysAwayAfterARestart()
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

void OnBoardDeletionTest::profileThatWasDeletedWhileItIsWrittenLeavesTheDevice()
{
    const QString doomed = copyToMouse(Local);
    memories().commitDevice(Mouse);
    QVERIFY(memories().isDeviceBusyWriting(Mouse));
    QVERIFY(profiles().deleteProfileByID(doomed));
    waitUntilIdle();
    QTRY_COMPARE(documents(), QStringList());
    QVERIFY(!QFile::exists(memoryPath() + ".deleted"));
}

void OnBoardDeletionTest::undoneDeletionLeavesTheProfileOnTheDevice()
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

VELTRANO_TEST_MAIN(OnBoardDeletionTest)
#include "OnBoardDeletionTest.moc"
