#include "ScanTestCase.h"

#include <cAnimatedPixmapWidget.h>
#include <MetaMembers.h>
#include <TestPictures.h>

#include <QApplication>
#include <QCursor>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

/// How the dialog is built, how it goes from waiting to its end, and what its user does with it then.
class ScanForGamesDialogTest : public ScanTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void membersAreDeclaredInTheirOrder();
    void windowIsBuiltAsDesigned();
    void scanGoesFromWaitingToFinished();
    void emptyScanDoesNotShowACount();
    void okMakesProfilesOfTheCheckedRows();
    void okHandsOnTheElement();
    void rowWithAProfileCantBeUnchecked();
    void rowIsCheckedByKeyboard();
    void helpKeyOpensThePage();
    void enterDoesNothingBeforeTheEnd();
};

void ScanForGamesDialogTest::membersAreDeclaredInTheirOrder()
{
    QCOMPARE(
        MetaMembers::signalsOf(ScanForGamesDialog::staticMetaObject), QStringList("scanCompleted(bool)"));
    QCOMPARE(MetaMembers::slotsOf(ScanForGamesDialog::staticMetaObject),
        QStringList({"onOK()", "onRejected()", "onGameDatabaseRead()", "onScanFinished()",
            "onGameScanned(QString,QString,QString,QDomElement)"}));
}

void ScanForGamesDialogTest::windowIsBuiltAsDesigned()
{
    m_files->write();
    TestPictures pictures;
    QPixmap strip(8 * 64, 64);
    strip.fill(Qt::green);
    pictures.add("search.png", strip);

    const Scan scan;
    QCOMPARE(scan.dialog.windowTitle(), QString("Scan For New Games"));
    QCOMPARE(scan.dialog.windowModality(), Qt::WindowModal);
    QCOMPARE(scan.dialog.windowFlags(),
        Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    QCOMPARE(scan.dialog.size(), QSize(550, 450));
    QCOMPARE(
        scan.status->text(), QString("Please wait while Profiler scans your system for known profiles."));
    QCOMPARE(scan.list->styleSheet(),
        QString("QListView::item:hover, QListView::item:selected { color: white; background-color: "
                "transparent;}"));
    QCOMPARE(scan.list->contextMenuPolicy(), Qt::NoContextMenu);
    QCOMPARE(scan.list->viewport()->contextMenuPolicy(), Qt::NoContextMenu);
    QVERIFY(scan.list->uniformItemSizes());
    QVERIFY(scan.count->isHidden());
    QVERIFY(!scan.ok()->isEnabled());
    QVERIFY(scan.ok()->isDefault());
    QCOMPARE(scan.cancel()->property("uiType").toString(), QString("grayButton"));
    QVERIFY(scan.animation->isRunning());
    QCOMPARE(scan.animation->size(), QSize(64, 64));
    QCOMPARE(scan.animation->frameCount(), 8);

    const auto* const layout = qobject_cast<QVBoxLayout*>(scan.dialog.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 3);
    const auto* const header = qobject_cast<QHBoxLayout*>(layout->itemAt(0)->layout());
    QVERIFY(header);
    QCOMPARE(header->itemAt(0)->widget(), scan.animation);
    QCOMPARE(header->itemAt(1)->widget(), scan.status);
    QCOMPARE(header->stretch(1), 1);
    QCOMPARE(layout->itemAt(1)->widget(), scan.list);
    const auto* const footer = qobject_cast<QHBoxLayout*>(layout->itemAt(2)->layout());
    QVERIFY(footer);
    QCOMPARE(footer->itemAt(0)->widget(), scan.count);
    QVERIFY(footer->itemAt(1)->spacerItem());
    QCOMPARE(footer->itemAt(2)->widget(), scan.ok());
    QCOMPARE(footer->itemAt(3)->widget(), scan.cancel());
    QTRY_VERIFY(scan.isFinished());
}

void ScanForGamesDialogTest::scanGoesFromWaitingToFinished()
{
    m_files->addGame("One", {true});
    m_files->addGame("Two", {false});
    m_files->write();
    const Scan scan;
    const QSignalSpy completed(&scan.dialog, SIGNAL(scanCompleted(bool)));
    QVERIFY(QApplication::overrideCursor());
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    // Between the reading of the database and the end.
    QStringList seen;
    m_host->answer("getProfileByName", [&](const RecordedCall&) {
        seen.append(QString("%1, %2, %3")
                        .arg(QApplication::overrideCursor() ? "waiting" : "listing",
                            scan.ok()->isEnabled() ? "OK" : "no OK", scan.count->text()));
    });
    QTRY_COMPARE(completed.size(), 1);
    QCOMPARE(seen, QStringList({"listing, no OK, ", "listing, no OK, 1/1 profile(s) found"}));
    QCOMPARE(completed.first().first().toBool(), true);
    QVERIFY(scan.ok()->isEnabled());
    QVERIFY(!scan.animation->isRunning());
    QCOMPARE(scan.status->text(), QString("The profiler has completed its scan."));
    QVERIFY(!scan.count->isHidden());
    QCOMPARE(scan.count->text(), QString("1/2 profile(s) found"));
    QVERIFY(!QApplication::overrideCursor());
}

void ScanForGamesDialogTest::emptyScanDoesNotShowACount()
{
    m_files->addElement("Without signatures", "<other/>");
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.list->count(), 0);
    QVERIFY(scan.count->isHidden());
}

void ScanForGamesDialogTest::okMakesProfilesOfTheCheckedRows()
{
    for (const char* const name : {"known", "new 1", "new 2", "new 3"})
        m_files->addGame(name, {true});
    for (const char* const name : {"known missing", "missing 1", "missing 2"})
        m_files->addGame(name, {false});
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    const auto row = [&scan](const QString& name) {
        return scan.list->findItems(name, Qt::MatchExactly).first();
    };
    row("new 2")->setCheckState(Qt::Unchecked);
    row("missing 2")->setCheckState(Qt::Checked);
    m_host->takeCalls();
    scan.ok()->click();
    QCOMPARE(scan.dialog.result(), int(QDialog::Accepted));
    const auto added = [](const QString& name, const QString& target) {
        return QStringLiteral("addProfile(<profile>, \"%1\", \"%2\")").arg(name, target);
    };
    QCOMPARE(m_host->takeCalls(),
        QStringList({added("new 1", m_files->program("new 1")), added("new 3", m_files->program("new 3")),
            added("missing 2", "")}));
}

void ScanForGamesDialogTest::okHandsOnTheElement()
{
    m_files->addElement(
        "A", m_files->signature("a", "", true) + "<macros><macro name='of the host'/></macros>");
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    m_host->takeLog();
    scan.ok()->click();
    const auto profile = m_host->calls().last().values.first().value<QDomElement>();
    QCOMPARE(profile.attribute("name"), QString("A"));
    QCOMPARE(profile.firstChildElement("macros").firstChildElement("macro").attribute("name"),
        QString("of the host"));
    const QStringList log = m_host->takeLog();
    QCOMPARE(log.size(), 2);
    QVERIFY(log[1].startsWith("Profiler.ProfileMgr addProfile(const QDomElement <profile>, const QString "
                              "\"A\", const QString "));
}

void ScanForGamesDialogTest::rowWithAProfileCantBeUnchecked()
{
    m_files->addGame("known", {true});
    m_files->addGame("known missing", {false});
    m_files->addGame("new", {true});
    m_files->write();
    Scan scan;
    scan.dialog.show();
    QTRY_VERIFY(scan.isFinished());
    const auto clickBox = [&scan](int i) {
        const QRect place = scan.list->visualItemRect(scan.list->item(i));
        QTest::mouseClick(scan.list->viewport(), Qt::LeftButton, Qt::NoModifier,
            QPoint(place.left() + 10, place.center().y()));
    };
    for (int i = 0; i < 3; ++i)
        clickBox(i);
    QCOMPARE(scan.allRows(), QStringList({"[ ] new", "-[x] known", "-[x] known missing"}));
    clickBox(0);
    QCOMPARE(scan.allRows().first(), QString("[x] new"));
}

void ScanForGamesDialogTest::rowIsCheckedByKeyboard()
{
    m_files->addGame("new 1", {true});
    m_files->addGame("new 2", {true});
    m_files->write();
    Scan scan;
    scan.dialog.show();
    QTRY_VERIFY(scan.isFinished());
    scan.list->setFocus();
    QTest::keyClick(scan.list, Qt::Key_Down);
    QTest::keyClick(scan.list, Qt::Key_Down);
    QTest::keyClick(scan.list, Qt::Key_Space);
    QCOMPARE(scan.allRows(), QStringList({"[x] new 1", "[ ] new 2"}));
    QTest::keyClick(scan.list, Qt::Key_Return);
    QVERIFY(!scan.dialog.isVisible());
    QCOMPARE(scan.dialog.result(), int(QDialog::Accepted));
}

void ScanForGamesDialogTest::helpKeyOpensThePage()
{
    m_files->write();
    Scan scan;
    scan.dialog.show();
    m_host->takeLog();
    QTest::keyClick(&scan.dialog, Qt::Key_F1);
    QCOMPARE(m_host->takeLog(),
        QStringList({"require Help.HelpMgr 1",
            R"(Help.HelpMgr LaunchHelp(QString "com.veltrano.profile", QString "scan_new_games.htm"))"}));
    QVERIFY(scan.dialog.isVisible());
    QTest::keyClick(&scan.dialog, Qt::Key_Escape);
    QVERIFY(!scan.dialog.isVisible());
}

void ScanForGamesDialogTest::enterDoesNothingBeforeTheEnd()
{
    m_files->addGame("new", {true});
    m_files->write();
    Scan scan;
    scan.dialog.show();
    QTest::keyClick(&scan.dialog, Qt::Key_Return);
    QVERIFY(scan.dialog.isVisible());
    QTRY_VERIFY(scan.isFinished());
    QTest::keyClick(&scan.dialog, Qt::Key_Return);
    QVERIFY(!scan.dialog.isVisible());
    QCOMPARE(scan.dialog.result(), int(QDialog::Accepted));
}

VELTRANO_TEST_MAIN(ScanForGamesDialogTest)
#include "ScanForGamesDialogTest.moc"
