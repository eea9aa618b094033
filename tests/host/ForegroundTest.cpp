#include "ActiveProcess.h"

#include <cMainApp.h>
#include <cMainAppService.h>
#include <EventLog.h>
#include <FakeWindow.h>
#include <TestCase.h>

#include <QFileInfo>
#include <QProcess>

#include <cstring>

namespace {

/// Has the test's executable be another application with a window.
constexpr const char* OtherApplication = "--other-application";

QString change(const QString& path, qint64 processId)
{
    return QStringLiteral("ForegroundAppChange %1 %2").arg(path).arg(processId);
}

} // namespace

/// Which application is in the foreground, on a real display.
class ForegroundTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void ownWindowIsTheForeground();
    void otherApplicationTakesTheForegroundAndGivesItBack();
    void executableOfNoProcessIsEmpty();
};

void ForegroundTest::ownWindowIsTheForeground()
{
    cMainAppService service;
    IServiceMgr::instance()->registerService(&service);
    EventLog events(EventSources::MainApp);
    QVERIFY(!cMainApp().inForeground());
    QCOMPARE(cMainApp().foregroundApp(), QString());

    FakeWindow window;
    service.setWindow(&window);
    cMainApp().execute(false);
    const QString own = QCoreApplication::applicationFilePath();
    QTRY_VERIFY(cMainApp().inForeground());
    QTRY_COMPARE(cMainApp().foregroundApp(), own);
    QTRY_COMPARE(events.count(), 1);
    QCOMPARE(events.take(), QStringList({change(own, QCoreApplication::applicationPid())}));

    window.hide();
    QTRY_VERIFY(!cMainApp().inForeground());
    QTRY_COMPARE(events.count(), 1);
    QCOMPARE(events.take(), QStringList({change(QString(), 0)}));
    QCOMPARE(cMainApp().foregroundApp(), QString());
}

void ForegroundTest::otherApplicationTakesTheForegroundAndGivesItBack()
{
    cMainAppService service;
    IServiceMgr::instance()->registerService(&service);
    FakeWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QString own = QCoreApplication::applicationFilePath();
    QTRY_COMPARE(cMainApp().foregroundApp(), own);

    EventLog events(EventSources::MainApp);
    QProcess other;
    other.setProcessChannelMode(QProcess::ForwardedChannels);
    other.start(own, {QLatin1String(OtherApplication)});
    QVERIFY(other.waitForStarted());
    // The same file, so that only the process tells them apart.
    const QString path = QFileInfo(own).canonicalFilePath();
    QTRY_COMPARE(events.count(), 1);
    QCOMPARE(events.take(), QStringList({change(path, other.processId())}));
    QTRY_VERIFY(!cMainApp().inForeground());

    other.terminate();
    QVERIFY(other.waitForFinished());
    QTRY_VERIFY(cMainApp().inForeground());
    QTRY_COMPARE(cMainApp().foregroundApp(), own);
    // On the way there may be no active window for a moment.
    QTRY_VERIFY(events.count() > 0);
    QCOMPARE(events.take().constLast(), change(own, QCoreApplication::applicationPid()));
}

void ForegroundTest::executableOfNoProcessIsEmpty()
{
    QCOMPARE(ActiveProcess::executable(0), QString());
    QCOMPARE(ActiveProcess::executable(0xffffffffU), QString());
    QCOMPARE(ActiveProcess::executable(quint32(QCoreApplication::applicationPid())),
        QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath());
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], OtherApplication) == 0) {
        QWidget window;
        window.show();
        return QApplication::exec();
    }
    ForegroundTest test;
    return runTest(test, argc, argv);
}
#include "ForegroundTest.moc"
