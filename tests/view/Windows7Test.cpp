#include "ViewFixture.h"

#include <SystemVersion.h>
#include <TestCase.h>

#include <QCoreApplication>

/// The view on the one system on which panels leave the pulse alone. This definition takes the place of the
/// real one.
bool SystemVersion::isWindows7()
{
    return true;
}

class Windows7Test : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void panelsLeaveThePulseAlone();
    void foregroundAndModesDoNot();
};

void Windows7Test::panelsLeaveThePulseAlone()
{
    ViewFixture fixture;
    fixture.open();
    QCOMPARE(fixture.pulsatingModes(), QStringList("M1"));
    QVERIFY(fixture.call("onStopMkeyPulsate"));
    QCOMPARE(fixture.pulsatingModes(), QStringList("M1"));
    fixture.host.publishForegroundAppChange("", quint32(QCoreApplication::applicationPid()) + 1);
    QVERIFY(fixture.call("onStartMkeyPulsate"));
    QCOMPARE(fixture.pulsatingModes(), QStringList());
}

void Windows7Test::foregroundAndModesDoNot()
{
    ViewFixture fixture;
    fixture.isInForeground = true;
    fixture.open();
    const quint32 own = quint32(QCoreApplication::applicationPid());
    fixture.host.publishForegroundAppChange("", own + 1);
    QCOMPARE(fixture.pulsatingModes(), QStringList());
    fixture.host.publishForegroundAppChange("", own);
    QCOMPARE(fixture.pulsatingModes(), QStringList("M1"));
    fixture.host.publishMStateChanged(MKey::M2, "pad");
    QCOMPARE(fixture.pulsatingModes(), QStringList("M2"));
}

VELTRANO_TEST_MAIN(Windows7Test)
#include "Windows7Test.moc"
