#include "OnBoardTestCase.h"

#include <ApplicationLook.h>
#include <DeviceFolder.h>
#include <DialogDriver.h>
#include <OnBoardWindow.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

/// The window as its user sees it, with the application's own style sheet.
class OnBoardWindowTest : public OnBoardTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void profileIsCopiedToTheDeviceAndBack();
    void changesAreShownUntilTheyAreWritten();
    void profileThatDoesNotFitIsRefused();
    void deviceIsPulledOutAndPluggedIn();
    void profileIsRemovedAfterAQuestion();
    void damagedDocumentIsShownAndRemoved();
    void namesAreNoMarkup();
    void withoutAnyMemoryNothingCanBeDone();

private:
    OnBoardWindow& window();
    QPushButton* button(const QString& text);
    void choose(int list, const QString& text);
    QStringList rows(int list);
    void savePicture(const QString& name);

    std::unique_ptr<OnBoardWindow> m_window;
};

void OnBoardWindowTest::initTestCase()
{
    TestCase::initTestCase();
    ApplicationLook::apply();
    QDir::setSearchPaths("MainApp", {QStringLiteral(SHARE_FOLDER)});
    QFile sheet(QStringLiteral(SHARE_FOLDER "/Resources/style/veltrano.qss"));
    QVERIFY(sheet.open(QIODevice::ReadOnly));
    qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

void OnBoardWindowTest::cleanup()
{
    m_window.reset();
    OnBoardTestCase::cleanup();
}

OnBoardWindow& OnBoardWindowTest::window()
{
    if (!m_window) {
        m_window = std::make_unique<OnBoardWindow>(service(), profileService());
        m_window->showDevice(Mouse);
    }
    return *m_window;
}

QPushButton* OnBoardWindowTest::button(const QString& text)
{
    for (QPushButton* each : window().findChildren<QPushButton*>()) {
        if (each->text().remove('&') == text)
            return each;
    }
    qFatal("no button %s", qUtf8Printable(text));
}

void OnBoardWindowTest::choose(int list, const QString& text)
{
    auto* const widget = window().findChildren<QListWidget*>().at(list);
    QTRY_VERIFY(!widget->findItems(text, Qt::MatchExactly).isEmpty());
    widget->setCurrentItem(widget->findItems(text, Qt::MatchExactly).first());
}

QStringList OnBoardWindowTest::rows(int list)
{
    const auto* const widget = window().findChildren<QListWidget*>().at(list);
    QStringList result;
    for (int i = 0; i < widget->count(); ++i)
        result.append(widget->item(i)->text());
    return result;
}

void OnBoardWindowTest::savePicture(const QString& name)
{
    QDir().mkpath(QStringLiteral(PICTURES_FOLDER));
    QVERIFY(window().grab().save(QStringLiteral(PICTURES_FOLDER "/") + name));
}

void OnBoardWindowTest::profileIsCopiedToTheDeviceAndBack()
{
    QCOMPARE(rows(0), QStringList({"Start", "Local"}));
    QCOMPARE(rows(1), QStringList());
    QVERIFY(!button("Copy to Device")->isEnabled());
    choose(0, "Local");
    savePicture("onboard-empty.png");
    QTest::mouseClick(button("Copy to Device"), Qt::LeftButton);
    QTRY_COMPARE(rows(1), QStringList({"Local"}));
    waitUntilIdle();
    QCOMPARE(documents().size(), 1);
    QTRY_VERIFY(window().findChild<QProgressBar*>()->value() > 0);

    choose(1, "Local");
    QTest::mouseClick(button("Copy Back"), Qt::LeftButton);
    QTRY_COMPARE(rows(0), QStringList({"Start", "Local", "Local (2)"}));
    savePicture("onboard-copied.png");
}

void OnBoardWindowTest::changesAreShownUntilTheyAreWritten()
{
    const QString copy = copyToMouse(Local);
    QTRY_COMPARE(rows(1), QStringList({"Local - not written yet"}));
    savePicture("onboard-unwritten.png");
    QTest::mouseClick(button("Write to Device"), Qt::LeftButton);
    QTRY_COMPARE(rows(1), QStringList({"Local"}));
    profiles().setProfileScript(copy, "print(1)");
    QTRY_COMPARE(rows(1), QStringList({"Local - not written yet"}));
}

void OnBoardWindowTest::profileThatDoesNotFitIsRefused()
{
    grow(Local, Capacity);
    choose(0, "Local");
    QStringList texts;
    DialogDriver driver([&](QDialog& dialog) {
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            texts.append(label->text());
    });
    QTest::mouseClick(button("Copy to Device"), Qt::LeftButton);
    QVERIFY(driver.hasRun());
    QVERIFY(texts.join(' ').contains("Local does not fit in the memory of The Mouse."));
    QCOMPARE(rows(1), QStringList());
}

void OnBoardWindowTest::deviceIsPulledOutAndPluggedIn()
{
    choose(0, "Local");
    QTest::mouseClick(button("Disconnect"), Qt::LeftButton);
    QTRY_VERIFY(!button("Write to Device")->isEnabled());
    QVERIFY(!button("Copy to Device")->isEnabled());
    QCOMPARE(window().findChild<QProgressBar*>()->format(), QString("Not connected"));
    savePicture("onboard-away.png");
    QTest::mouseClick(button("Connect"), Qt::LeftButton);
    QTRY_VERIFY(button("Write to Device")->isEnabled());
    QVERIFY(button("Copy to Device")->isEnabled());
}

void OnBoardWindowTest::profileIsRemovedAfterAQuestion()
{
    copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    choose(1, "Local");
    {
        DialogDriver no([](QDialog& dialog) { dialog.reject(); });
        QTest::mouseClick(button("Remove"), Qt::LeftButton);
    }
    QCOMPARE(rows(1), QStringList({"Local"}));
    DialogDriver yes([](QDialog& dialog) { dialog.accept(); });
    QTest::mouseClick(button("Remove"), Qt::LeftButton);
    QTRY_COMPARE(rows(1), QStringList());
    QTRY_COMPARE(documents(), QStringList());
    QVERIFY(!profiles().getProfileByID(Local).isNull());
}

void OnBoardWindowTest::damagedDocumentIsShownAndRemoved()
{
    stop();
    DeviceFolder::write(memoryPath("bad.xml"), "damaged");
    start();
    waitUntilIdle();
    QCOMPARE(takeProblems().size(), 1);
    QTRY_COMPARE(rows(1).size(), 1);
    QVERIFY2(rows(1).first().startsWith("bad.xml - damaged: "), qPrintable(rows(1).first()));
    choose(1, rows(1).first());
    savePicture("onboard-damaged.png");
    QVERIFY(!button("Copy Back")->isEnabled());
    DialogDriver yes([](QDialog& dialog) { dialog.accept(); });
    QTest::mouseClick(button("Remove"), Qt::LeftButton);
    QTRY_COMPARE(rows(1), QStringList());
    QVERIFY(!QFile::exists(memoryPath("bad.xml")));
}

void OnBoardWindowTest::namesAreNoMarkup()
{
    cJsonValue record;
    record["uid"] = Local;
    record["name"] = "<b>bold</b> & <img src=x>";
    QVERIFY(profiles().editProfileProperty(record));
    QTRY_COMPARE(rows(0).last(), QString("<b>bold</b> & <img src=x>"));
    const auto* const list = window().findChildren<QListWidget*>().first();
    QVERIFY(list->item(1)->toolTip().contains("&lt;b&gt;"));
}

void OnBoardWindowTest::withoutAnyMemoryNothingCanBeDone()
{
    cDevMgrService none;
    cProfilesToGoService empty("/nonexistent", none, profileService());
    empty.start();
    OnBoardWindow lonely(empty, profileService());
    lonely.showDevice("nobody");
    for (const QPushButton* each : lonely.findChildren<QPushButton*>())
        QVERIFY2(!each->isEnabled() || each->text() == "Close", qPrintable(each->text()));
    profileService().setDeviceCopies(&service());
}

VELTRANO_TEST_MAIN(OnBoardWindowTest)
#include "OnBoardWindowTest.moc"
