#include "MainWindow.h"

#include <cProfileMgrService.h>
#include <TestApplication.h>
#include <TestCase.h>

#include <QLineEdit>
#include <QMenu>

namespace {

const QString Id = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");

} // namespace

/// The entries about profiles in the window of the whole application.
class ProfileActionsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void entriesNameTheStep();
    void shortcutsUndoAndRedo();
    void nameOfAnyKindIsShortAndPlain();
    void fieldKeepsItsOwnUndo();

private:
    cProfileMgrService& profiles() { return (*m_application)->profiles(); }
    MainWindow& window() { return (*m_application)->window(); }
    QAction& undo() { return *window().editMenu().actions().at(0); }
    QAction& redo() { return *window().editMenu().actions().at(1); }
    void addProfile(const QString& name);

    QScopedPointer<TestApplication> m_application;
};

void ProfileActionsTest::init()
{
    m_application.reset(new TestApplication);
    window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
}

void ProfileActionsTest::cleanup()
{
    m_application.reset();
}

void ProfileActionsTest::addProfile(const QString& name)
{
    cJsonValue record;
    record["uid"] = Id;
    record["name"] = name;
    QVERIFY(profiles().addProfile(record));
    QCoreApplication::processEvents();
}

void ProfileActionsTest::entriesNameTheStep()
{
    QCOMPARE(undo().text(), QString("&Undo"));
    QCOMPARE(redo().text(), QString("&Redo"));
    QVERIFY(!undo().isEnabled());
    QVERIFY(!redo().isEnabled());
    addProfile("Game");
    QCOMPARE(undo().text(), QString("&Undo Add Profile Game"));
    QVERIFY(undo().isEnabled());
    undo().trigger();
    QVERIFY(profiles().getProfileByID(Id).isNull());
    QCOMPARE(undo().text(), QString("&Undo"));
    QVERIFY(!undo().isEnabled());
    QCOMPARE(redo().text(), QString("&Redo Add Profile Game"));
    redo().trigger();
    QCOMPARE(profiles().getProfileName(Id), QString("Game"));
    QVERIFY(!redo().isEnabled());
}

void ProfileActionsTest::shortcutsUndoAndRedo()
{
    addProfile("Game");
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(profiles().getProfileByID(Id).isNull());
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(profiles().getProfileName(Id), QString("Game"));
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&window(), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(profiles().getProfileName(Id), QString("Game"));
}

void ProfileActionsTest::nameOfAnyKindIsShortAndPlain()
{
    addProfile("Fish & Chips\n%1 <b>");
    QCOMPARE(undo().text(), QString("&Undo Add Profile Fish && Chips %1 <b>"));
    undo().trigger();
    addProfile(QString(10000, 'x'));
    QVERIFY(undo().text().size() < 100);
}

void ProfileActionsTest::fieldKeepsItsOwnUndo()
{
    addProfile("Game");
    QLineEdit field(&window());
    field.show();
    field.setFocus();
    QTest::keyClicks(&field, "typed");
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field.text(), QString());
    QVERIFY(!profiles().getProfileByID(Id).isNull());
}

VELTRANO_TEST_MAIN(ProfileActionsTest)
#include "ProfileActionsTest.moc"
