#include "cMainAppService.h"

#include <cMainApp.h>
#include <DialogDriver.h>
#include <FakeWindow.h>
#include <IServiceMgr.h>
#include <TestCase.h>

#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QSystemTrayIcon>
#include <QTemporaryDir>
#include <QUuid>

/// The service is called through the plug-in's client, by name.
class cMainAppServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void executeShowsTheWindow();
    void executeStartsTheUpdateAssistantIfWanted();
    void deviceNotificationsDoNothingHere();
    void mainWidgetIsTheWindow();
    void styleSheetIsLoaded();
    void missingStyleSheetIsReportedAndChangesNothing();
    void modalLockBlocksTheWindow();
    void trayMessageNeedsATray();
    void withoutAWindowNothingHappens();

private:
    QScopedPointer<cMainAppService> m_service;
    QScopedPointer<FakeWindow> m_window;
};

void cMainAppServiceTest::init()
{
    m_service.reset(new cMainAppService);
    m_window.reset(new FakeWindow);
    m_service->setWindow(m_window.get());
    IServiceMgr::instance()->registerService(m_service.get());
}

void cMainAppServiceTest::cleanup()
{
    m_service.reset();
    m_window.reset();
}

void cMainAppServiceTest::executeShowsTheWindow()
{
    cMainApp().execute(false);
    QVERIFY(m_window->isVisible());
}

void cMainAppServiceTest::executeStartsTheUpdateAssistantIfWanted()
{
    QCoreApplication::setApplicationVersion("9.8.7");
    const DialogDriver driver([](QDialog& dialog) {
        QStringList texts;
        const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
        for (const QLabel* label : labels)
            texts.append(label->text());
        QVERIFY(texts.join(' ').contains("9.8.7"));
    });
    cMainApp().execute(true);
    QVERIFY(driver.hasRun());
    const DialogDriver second([](QDialog&) {});
    cMainApp().launchUpdateWizard();
    QVERIFY(second.hasRun());
}

void cMainAppServiceTest::deviceNotificationsDoNothingHere()
{
    cMainApp().winRegisterDeviceChange(QUuid::createUuid());
    int handle = 0;
    QVERIFY(!cMainApp().winRegisterDeviceHandleChange(&handle));
    cMainApp().winUnregisterDeviceHandleChange(&handle);
}

void cMainAppServiceTest::mainWidgetIsTheWindow()
{
    QCOMPARE(cMainApp().mainWidget(), m_window->widget());
}

void cMainAppServiceTest::styleSheetIsLoaded()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("style.qss"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("QWidget { color: #010203; }");
    file.close();
    m_service->setStyleSheetFile(file.fileName());
    cMainApp().loadStyleSheet();
    QCOMPARE(qApp->styleSheet(), QString("QWidget { color: #010203; }"));
    qApp->setStyleSheet(QString());
}

void cMainAppServiceTest::missingStyleSheetIsReportedAndChangesNothing()
{
    qApp->setStyleSheet("QWidget { color: #010203; }");
    const QSignalSpy problems(m_service.get(), SIGNAL(problemFound(QString)));
    m_service->setStyleSheetFile("/nonexistent/style.qss");
    cMainApp().loadStyleSheet();
    QCOMPARE(problems.size(), 1);
    QCOMPARE(qApp->styleSheet(), QString("QWidget { color: #010203; }"));
    qApp->setStyleSheet(QString());
}

void cMainAppServiceTest::modalLockBlocksTheWindow()
{
    cMainApp().setModalLock(true);
    QVERIFY(!m_window->isEnabled());
    cMainApp().setModalLock(true);
    cMainApp().setModalLock(false);
    QVERIFY(m_window->isEnabled());
}

void cMainAppServiceTest::trayMessageNeedsATray()
{
    const bool hasTray = QSystemTrayIcon::isSystemTrayAvailable();
    QCOMPARE(cMainApp().showTrayMessage("T", "text", MessageIcon::Warning, 100, 7), hasTray);
}

void cMainAppServiceTest::withoutAWindowNothingHappens()
{
    m_service->setWindow(nullptr);
    cMainApp().execute(false);
    cMainApp().setModalLock(true);
    QVERIFY(!cMainApp().mainWidget());
    QVERIFY(m_window->isEnabled());
}

VELTRANO_TEST_MAIN(cMainAppServiceTest)
#include "cMainAppServiceTest.moc"
