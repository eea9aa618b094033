#include <MainWindowMenu.h>
#include <RecordingHost.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QMenu>
#include <QWidget>

class MainWindowMenuTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void windowIsTheHosts();
    void missingWindowIsLogged();
    void failedCallIsLoggedAsAMissingWindow();
    void placeIsMovedToTheLeftByTheOverhang_data();
    void placeIsMovedToTheLeftByTheOverhang();
};

void MainWindowMenuTest::windowIsTheHosts()
{
    RecordingHost host;
    QWidget window;
    host.answer("window", &window);
    QCOMPARE(MainWindowMenu::window(), &window);
    QCOMPARE(host.takeCalls(), QStringList("window()"));
}

void MainWindowMenuTest::missingWindowIsLogged()
{
    RecordingHost host;
    const ExpectedMessage said(QtCriticalMsg, "Main Window is returning NULL window");
    QVERIFY(!MainWindowMenu::window());
}

void MainWindowMenuTest::failedCallIsLoggedAsAMissingWindow()
{
    RecordingHost host;
    host.remove(ServiceNames::MainUI);
    const ExpectedMessage failed(QtCriticalMsg, "Failed to call 'window' on service MainUI.MainUI");
    const ExpectedMessage said(QtCriticalMsg, "Main Window is returning NULL window");
    QVERIFY(!MainWindowMenu::window());
}

void MainWindowMenuTest::placeIsMovedToTheLeftByTheOverhang_data()
{
    QTest::addColumn<int>("overhang");
    QTest::addColumn<int>("moved");
    QTest::newRow("far inside") << -100 << 0;
    QTest::newRow("left of the window") << -1000 << 0;
    QTest::newRow("just inside") << 0 << 0;
    QTest::newRow("one pixel outside") << 1 << 1;
    QTest::newRow("right of the window") << 700 << 700;
}

void MainWindowMenuTest::placeIsMovedToTheLeftByTheOverhang()
{
    QFETCH(int, overhang);
    QFETCH(int, moved);
    QWidget window;
    window.setGeometry(40, 30, 300, 200);
    QMenu menu;
    menu.addAction("Edit...");
    const QPoint wished(40 + 300 - menu.sizeHint().width() + overhang, 5000);
    // Only along x: the screen sees to the rest.
    QCOMPARE(MainWindowMenu::placeInside(window, menu, wished), wished - QPoint(moved, 0));
}

VELTRANO_TEST_MAIN(MainWindowMenuTest)
#include "MainWindowMenuTest.moc"
