#include "GameFiles.h"

#include <cAnimatedPixmapWidget.h>
#include <MetaMembers.h>
#include <RecordingHost.h>
#include <ScanForGamesDialog.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QApplication>
#include <QCursor>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QtConcurrentRun>
#include <QThread>
#include <QThreadPool>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace {

using State = cScanEntry::State;

/// A row as the user sees it, in a form that reads well in a comparison: "[x] Name", "[ ] Name", with "-" in
/// front of one that can't be changed.
QString rowText(const QListWidgetItem* row)
{
    return QStringLiteral("%1[%2] %3")
        .arg(row->flags() & Qt::ItemIsEnabled ? QString() : QStringLiteral("-"),
            row->checkState() == Qt::Checked ? QStringLiteral("x") : QStringLiteral(" "), row->text());
}

cScanEntry* entryOf(const QListWidgetItem* row)
{
    return row->data(Qt::UserRole).value<cScanEntry*>();
}

/// The dialog with its parts.
class Scan
{
public:
    Scan()
        : dialog(nullptr)
        , list(dialog.findChild<QListWidget*>())
        , animation(dialog.findChild<cAnimatedPixmapWidget*>())
    {
        // Apart from their places the two labels differ in that one begins with a text.
        for (auto* const label : dialog.findChildren<QLabel*>())
            (label->text().isEmpty() ? count : status) = label;
    }

    QPushButton* button(const QString& text) const
    {
        for (auto* const each : dialog.findChildren<QPushButton*>()) {
            if (each->text() == text)
                return each;
        }
        return nullptr;
    }
    QPushButton* ok() const { return button(QStringLiteral("OK")); }
    QPushButton* cancel() const { return button(QStringLiteral("Cancel")); }
    bool isFinished() const { return ok()->isEnabled(); }

    /// The rows from top to bottom, without or with the hidden ones.
    QStringList visibleRows() const
    {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i) {
            if (!list->item(i)->isHidden())
                texts.append(rowText(list->item(i)));
        }
        return texts;
    }
    QStringList allRows() const
    {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i) {
            texts.append(
                rowText(list->item(i)) + (list->item(i)->isHidden() ? QStringLiteral(" hidden") : QString()));
        }
        return texts;
    }
    /// As the worker reports, but at once.
    void report(const QString& name, const QString& edition, const QString& target)
    {
        QDomDocument document;
        QVERIFY(QMetaObject::invokeMethod(&dialog, "onGameScanned", Qt::DirectConnection,
            Q_ARG(QString, name), Q_ARG(QString, edition), Q_ARG(QString, target),
            Q_ARG(QDomElement, document.createElement("profile"))));
    }

    ScanForGamesDialog dialog;
    QListWidget* list;
    cAnimatedPixmapWidget* animation;
    QLabel* status = nullptr;
    QLabel* count = nullptr;
};

bool isFound(int state)
{
    return state == State::New || state == State::Known;
}

bool isKnown(int state)
{
    return state == State::KnownMissing || state == State::Known;
}

/// Keeps workers from beginning for a moment, as other things that the application does would.
void occupyAllThreads()
{
    for (int i = QThreadPool::globalInstance()->maxThreadCount(); i > 0; --i)
        QtConcurrent::run([] { QThread::msleep(200); });
}

} // namespace

class ScanForGamesDialogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void membersAreDeclaredInTheirOrder();
    void windowIsBuiltAsDesigned();
    void scanGoesFromWaitingToFinished();
    void emptyScanDoesNotShowACount();
    void rowsStandByState_data();
    void rowsStandByState();
    void eachStateHasItsLook_data();
    void eachStateHasItsLook();
    void anyOrderOfFindingsGivesTheSameGroups();
    void twoSignaturesOfAName_data();
    void twoSignaturesOfAName();
    void thirdSignatureIsMeasuredByTheSecond();
    void twoSignaturesFoundThroughTheDatabase_data();
    void twoSignaturesFoundThroughTheDatabase();
    void editionIsARowOfItsOwn();
    void rowHoldsItsEntry();
    void missingAttributesAreEmpty();
    void otherElementsAreNotLookedAt();
    void rowsComeOnTheThreadOfTheWindow();
    void databaseThatCantBeUsedEndsTheScan_data();
    void databaseThatCantBeUsedEndsTheScan();
    void okMakesProfilesOfTheCheckedRows();
    void okHandsOnTheElement();
    void rowWithAProfileCantBeUnchecked();
    void rowIsCheckedByKeyboard();
    void helpKeyOpensThePage();
    void enterDoesNothingBeforeTheEnd();
    void aSecondScanStartsAnew();
    void dialogsMadeAtOnceScanEachForItself();
    void endOfOneOfTwoDialogsLeavesTheOther_data();
    void endOfOneOfTwoDialogsLeavesTheOther();
    void dialogNeedNotWaitForAWorkerThatNeverBegan();

private:
    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<GameFiles> m_files;
};

void ScanForGamesDialogTest::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_files = std::make_unique<GameFiles>();
    // Profiles exist for the games that say so.
    m_host->answer("getProfileByName", [](const RecordedCall& call) {
        cJsonValue record;
        if (call.values.first().toString().contains("known"))
            record["uid"] = "{1}";
        return QVariant::fromValue(record);
    });
}

void ScanForGamesDialogTest::cleanup()
{
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    m_host.reset();
    m_files.reset();
}

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

void ScanForGamesDialogTest::rowsStandByState_data()
{
    QTest::addColumn<QStringList>("games");

    QStringList games {"new", "known", "known missing", "missing"};
    std::sort(games.begin(), games.end());
    do {
        QTest::newRow(qPrintable(games.join(", "))) << games;
    } while (std::next_permutation(games.begin(), games.end()));
}

void ScanForGamesDialogTest::rowsStandByState()
{
    QFETCH(QStringList, games);
    for (const QString& game : games)
        m_files->addGame(game, {!game.contains("missing")});
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.allRows(), QStringList({"[x] new", "-[x] known", "-[x] known missing", "[ ] missing"}));
    QCOMPARE(scan.count->text(), QString("3/4 profile(s) found"));
}

void ScanForGamesDialogTest::eachStateHasItsLook_data()
{
    QTest::addColumn<QString>("game");
    QTest::addColumn<int>("state");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("check");

    const int open = Qt::ItemIsEnabled | Qt::ItemIsUserCheckable;
    QTest::newRow("new") << "new" << 3 << QColor(20, 172, 172) << open << int(Qt::Checked);
    QTest::newRow("known") << "known" << 4 << QColor(128, 128, 128) << int(Qt::ItemIsUserCheckable)
                           << int(Qt::Checked);
    QTest::newRow("known missing") << "known missing" << 1 << QColor(128, 128, 128)
                                   << int(Qt::ItemIsUserCheckable) << int(Qt::Checked);
    QTest::newRow("missing") << "missing" << 2 << QColor(200, 200, 200) << open << int(Qt::Unchecked);
}

void ScanForGamesDialogTest::eachStateHasItsLook()
{
    QFETCH(QString, game);
    QFETCH(int, state);
    QFETCH(QColor, color);
    QFETCH(int, flags);
    QFETCH(int, check);
    m_files->addGame(game, {!game.contains("missing")});
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.list->count(), 1);
    const QListWidgetItem* const row = scan.list->item(0);
    QCOMPARE(entryOf(row)->state, state);
    QCOMPARE(row->foreground().color(), color);
    QCOMPARE(int(row->flags()), flags);
    QCOMPARE(int(row->checkState()), check);
}

void ScanForGamesDialogTest::anyOrderOfFindingsGivesTheSameGroups()
{
    m_files->write();
    // Every sequence of five findings, each of which is in one of the four states.
    constexpr int length = 5;
    for (int sequence = 0; sequence < 1 << (2 * length); ++sequence) {
        Scan scan;
        QMap<int, QStringList> expected;
        for (int i = 0; i < length; ++i) {
            const int state = (sequence >> (2 * i) & 3) + 1;
            const QString name = QString("%1%2").arg(isKnown(state) ? "known " : "").arg(i);
            scan.report(name, "", isFound(state) ? "/game" : "");
            // The latest found game that has a profile comes first of its kind.
            if (state == State::Known)
                expected[state].prepend(name);
            else
                expected[state].append(name);
        }
        QStringList names;
        for (int i = 0; i < scan.list->count(); ++i)
            names.append(scan.list->item(i)->text());
        const QStringList groups = expected[State::New] + expected[State::Known]
            + expected[State::KnownMissing] + expected[State::Missing];
        QCOMPARE(names, groups);
        QCOMPARE(scan.count->text(),
            QString("%1/%2 profile(s) found").arg(length - expected[State::Missing].size()).arg(length));
    }
}

void ScanForGamesDialogTest::twoSignaturesOfAName_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("count");

    // Whether the name has a profile may change between the two.
    const QStringList newStays {"[x] A", "[ ] A hidden"};
    QTest::newRow("missing, new") << 2 << 3 << newStays << "1";
    QTest::newRow("missing, missing") << 2 << 2 << QStringList({"[ ] A", "[ ] A hidden"}) << "0";
    QTest::newRow("missing, known") << 2 << 4 << QStringList({"-[ ] A hidden", "[ ] A"}) << "0";
    QTest::newRow("missing, known missing") << 2 << 1 << QStringList({"-[ ] A hidden", "[ ] A"}) << "0";
    QTest::newRow("new, missing") << 3 << 2 << newStays << "1";
    QTest::newRow("new, new") << 3 << 3 << newStays << "1";
    QTest::newRow("new, known") << 3 << 4 << QStringList({"[x] A", "-[ ] A hidden"}) << "1";
    QTest::newRow("new, known missing") << 3 << 1 << QStringList({"[x] A", "-[ ] A hidden"}) << "1";
    QTest::newRow("known, missing") << 4 << 2 << QStringList({"-[x] A", "[ ] A hidden"}) << "1";
    QTest::newRow("known, new") << 4 << 3 << QStringList({"[ ] A hidden", "-[x] A"}) << "1";
    QTest::newRow("known, known") << 4 << 4 << QStringList({"-[ ] A hidden", "-[x] A"}) << "1";
    QTest::newRow("known, known missing") << 4 << 1 << QStringList({"-[x] A", "-[ ] A hidden"}) << "1";
    QTest::newRow("known missing, missing") << 1 << 2 << QStringList({"-[x] A", "[ ] A hidden"}) << "1";
    QTest::newRow("known missing, new") << 1 << 3 << QStringList({"[ ] A hidden", "-[x] A"}) << "1";
    QTest::newRow("known missing, known") << 1 << 4 << QStringList({"-[ ] A hidden", "-[x] A"}) << "1";
    QTest::newRow("known missing, known missing")
        << 1 << 1 << QStringList({"-[x] A", "-[ ] A hidden"}) << "1";
}

void ScanForGamesDialogTest::twoSignaturesOfAName()
{
    QFETCH(int, first);
    QFETCH(int, second);
    QFETCH(QStringList, rows);
    QFETCH(QString, count);
    m_files->write();
    Scan scan;
    for (const int state : {first, second}) {
        cJsonValue record;
        if (isKnown(state))
            record["uid"] = "{1}";
        m_host->answer("getProfileByName", record);
        scan.report("A", "", isFound(state) ? "/game" : "");
    }
    QCOMPARE(scan.allRows(), rows);
    QCOMPARE(scan.count->text(), count + "/1 profile(s) found");
}

void ScanForGamesDialogTest::thirdSignatureIsMeasuredByTheSecond()
{
    m_files->write();
    Scan scan;
    scan.report("A", "", "");
    scan.report("A", "", "");
    // The second row is hidden, and it is the one that the third finds under the name: it is hidden once
    // more, while the first one goes on to be seen.
    scan.report("A", "", "/game");
    QCOMPARE(scan.allRows(), QStringList({"[x] A", "[ ] A", "[ ] A hidden"}));
    QCOMPARE(scan.count->text(), QString("1/1 profile(s) found"));
    scan.report("A", "", "/game");
    QCOMPARE(scan.allRows(), QStringList({"[x] A", "[ ] A hidden", "[ ] A", "[ ] A hidden"}));
    QCOMPARE(scan.count->text(), QString("1/1 profile(s) found"));
}

void ScanForGamesDialogTest::twoSignaturesFoundThroughTheDatabase_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("second");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("count");
    QTest::addColumn<int>("target");

    QTest::newRow("none") << false << false << QStringList({"[ ] A", "[ ] A hidden"}) << "0/1" << -1;
    QTest::newRow("first") << true << false << QStringList({"[x] A", "[ ] A hidden"}) << "1/1" << 0;
    QTest::newRow("second") << false << true << QStringList({"[x] A", "[ ] A hidden"}) << "1/1" << 1;
    QTest::newRow("both") << true << true << QStringList({"[x] A", "[ ] A hidden"}) << "1/1" << 0;
}

void ScanForGamesDialogTest::twoSignaturesFoundThroughTheDatabase()
{
    QFETCH(bool, first);
    QFETCH(bool, second);
    QFETCH(QStringList, rows);
    QFETCH(QString, count);
    QFETCH(int, target);
    m_files->addGame("A", {first, second});
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.allRows(), rows);
    QCOMPARE(scan.count->text(), count + " profile(s) found");
    QCOMPARE(entryOf(scan.list->item(0))->target, target < 0 ? "" : m_files->program("A", target));
}

void ScanForGamesDialogTest::editionIsARowOfItsOwn()
{
    m_files->addElement("Game",
        m_files->signature("a", "", true) + m_files->signature("b", "Gold", true)
            + m_files->signature("c", "Demo", false) + m_files->signature("d", "Gold", true));
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.visibleRows(), QStringList({"[x] Game", "[x] Game (Gold)", "[ ] Game (Demo)"}));
    QCOMPARE(scan.count->text(), QString("2/3 profile(s) found"));
    QStringList asked;
    for (const RecordedCall& call : m_host->calls())
        asked.append(call.operation + ' ' + call.values.first().toString());
    QCOMPARE(asked,
        QStringList({"getProfileByName Game", "getProfileByName Game (Gold)", "getProfileByName Game (Demo)",
            "getProfileByName Game (Gold)"}));
}

void ScanForGamesDialogTest::rowHoldsItsEntry()
{
    m_files->addElement("100% %1 Game", m_files->signature("a", "%2 Edition", true));
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    const cScanEntry* const entry = entryOf(scan.list->item(0));
    QCOMPARE(entry->displayName, QString("100% %1 Game (%2 Edition)"));
    QCOMPARE(scan.list->item(0)->text(), entry->displayName);
    QCOMPARE(entry->profile.attribute("name"), QString("100% %1 Game"));
    QCOMPARE(entry->target, m_files->home().path(".wine/drive_c/a/game.exe"));
}

void ScanForGamesDialogTest::missingAttributesAreEmpty()
{
    m_files->writeDatabase("<profiles><profile><signature/></profile><profile name='B'/>"
                           "<profile name='C'><signature key='HKEY_LOCAL_MACHINE\\x'/></profile></profiles>");
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.allRows(), QStringList({"[ ] ", "[ ] C"}));
}

void ScanForGamesDialogTest::otherElementsAreNotLookedAt()
{
    m_files->writeDatabase("<!-- games --><profiles><other name='X'><signature/></other>"
                           "<profile name='A'>text<macros><signature/></macros><signature/></profile>"
                           "<group><profile name='Y'><signature/></profile></group>"
                           "<profile name='B'><signature/></profile></profiles>");
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.allRows(), QStringList({"[ ] A", "[ ] B"}));
}

void ScanForGamesDialogTest::rowsComeOnTheThreadOfTheWindow()
{
    m_files->addGame("A", {true});
    m_files->write();
    const Scan scan;
    QThread* thread = nullptr;
    m_host->answer("getProfileByName", [&thread](const RecordedCall&) { thread = QThread::currentThread(); });
    // Nothing is reported before the window's thread gets round to it.
    QThread::msleep(100);
    QCOMPARE(scan.list->count(), 0);
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(thread, QThread::currentThread());
}

void ScanForGamesDialogTest::databaseThatCantBeUsedEndsTheScan_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("warning");

    QTest::newRow("missing") << QByteArray() << "there is no such file";
    QTest::newRow("empty") << QByteArray("") << "it is empty";
    QTest::newRow("malformed") << QByteArray("<profiles><profile name='A'>") << "line 1, column .*";
    QTest::newRow("not XML") << QByteArray("games") << "line 1, column .*";
    QTest::newRow("without profiles") << QByteArray("<games><profile name='A'/></games>") << "";
    QTest::newRow("without profile") << QByteArray("<profiles><game/></profiles>") << "";
    QTest::newRow("profiles without content") << QByteArray("<profiles/>") << "";
}

void ScanForGamesDialogTest::databaseThatCantBeUsedEndsTheScan()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, warning);
    if (!text.isNull())
        m_files->writeDatabase(text);
    std::unique_ptr<ExpectedMessage> message;
    if (!warning.isEmpty()) {
        message = std::make_unique<ExpectedMessage>(
            QtWarningMsg, QRegularExpression("^Can't read Profiler:/GameDatabase.xml: " + warning + "$"));
    }
    Scan scan;
    scan.dialog.show();
    QTRY_VERIFY(scan.isFinished());
    QCOMPARE(scan.status->text(), QString("The profiler has completed its scan."));
    QCOMPARE(scan.list->count(), 0);
    QVERIFY(scan.count->isHidden());
    QVERIFY(!scan.animation->isRunning());
    // The wait ends with the reading; where that failed it goes on.
    QCOMPARE(QApplication::overrideCursor() != nullptr, !warning.isEmpty());
    scan.cancel()->click();
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!scan.dialog.isVisible());
    QCOMPARE(m_host->takeCalls(), QStringList());
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

void ScanForGamesDialogTest::aSecondScanStartsAnew()
{
    m_files->addGame("new", {true});
    m_files->write();
    for (int i = 0; i < 3; ++i) {
        const Scan scan;
        QTRY_VERIFY(scan.isFinished());
        QCOMPARE(scan.allRows(), QStringList("[x] new"));
        QCOMPARE(scan.count->text(), QString("1/1 profile(s) found"));
    }
}

void ScanForGamesDialogTest::dialogsMadeAtOnceScanEachForItself()
{
    m_files->addGame("new", {true});
    m_files->write();
    occupyAllThreads();
    const Scan first;
    const Scan second;
    for (const Scan* const each : {&first, &second}) {
        QTRY_VERIFY(each->isFinished());
        QCOMPARE(each->allRows(), QStringList("[x] new"));
    }
}

void ScanForGamesDialogTest::endOfOneOfTwoDialogsLeavesTheOther_data()
{
    QTest::addColumn<bool>("firstEnds");
    QTest::addColumn<bool>("isCancelled");

    QTest::newRow("first cancelled") << true << true;
    QTest::newRow("second cancelled") << false << true;
    QTest::newRow("first deleted") << true << false;
    QTest::newRow("second deleted") << false << false;
}

void ScanForGamesDialogTest::endOfOneOfTwoDialogsLeavesTheOther()
{
    QFETCH(bool, firstEnds);
    QFETCH(bool, isCancelled);
    m_files->addGame("new", {true});
    m_files->write();
    occupyAllThreads();
    auto ends = std::make_unique<Scan>();
    auto stays = std::make_unique<Scan>();
    if (!firstEnds)
        std::swap(ends, stays);
    if (isCancelled)
        ends->cancel()->click();
    else
        ends.reset();
    QTRY_VERIFY(stays->isFinished());
    QCOMPARE(stays->allRows(), QStringList("[x] new"));
}

void ScanForGamesDialogTest::dialogNeedNotWaitForAWorkerThatNeverBegan()
{
    m_files->addGame("new", {true});
    m_files->write();
    occupyAllThreads();
    const Scan first;
    first.cancel()->click();
    const Scan second;
    QTRY_VERIFY(second.isFinished());
    QCOMPARE(second.allRows(), QStringList("[x] new"));
    QCOMPARE(first.allRows(), QStringList());
}

VELTRANO_TEST_MAIN(ScanForGamesDialogTest)
#include "ScanForGamesDialogTest.moc"
