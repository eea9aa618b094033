#include "ScanTestCase.h"

#include <QLabel>
#include <QListWidget>
#include <QMap>

#include <algorithm>

namespace {

using State = cScanEntry::State;

bool isFound(int state)
{
    return state == State::New || state == State::Known;
}

bool isKnown(int state)
{
    return state == State::KnownMissing || state == State::Known;
}

} // namespace

/// The rows that findings make: their states, their places, which of them are hidden, and their count.
class ScanRowsTest : public ScanTestCase
{
    Q_OBJECT

private Q_SLOTS:
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
};

void ScanRowsTest::rowsStandByState_data()
{
    QTest::addColumn<QStringList>("games");

    QStringList games {"new", "known", "known missing", "missing"};
    std::sort(games.begin(), games.end());
    do {
        QTest::newRow(qPrintable(games.join(", "))) << games;
    } while (std::next_permutation(games.begin(), games.end()));
}

void ScanRowsTest::rowsStandByState()
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

void ScanRowsTest::eachStateHasItsLook_data()
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

void ScanRowsTest::eachStateHasItsLook()
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
    QCOMPARE(Scan::entryOf(row)->state, state);
    QCOMPARE(row->foreground().color(), color);
    QCOMPARE(int(row->flags()), flags);
    QCOMPARE(int(row->checkState()), check);
}

void ScanRowsTest::anyOrderOfFindingsGivesTheSameGroups()
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

void ScanRowsTest::twoSignaturesOfAName_data()
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

void ScanRowsTest::twoSignaturesOfAName()
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

void ScanRowsTest::thirdSignatureIsMeasuredByTheSecond()
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

void ScanRowsTest::twoSignaturesFoundThroughTheDatabase_data()
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

void ScanRowsTest::twoSignaturesFoundThroughTheDatabase()
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
    QCOMPARE(Scan::entryOf(scan.list->item(0))->target, target < 0 ? "" : m_files->program("A", target));
}

void ScanRowsTest::editionIsARowOfItsOwn()
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

void ScanRowsTest::rowHoldsItsEntry()
{
    m_files->addElement("100% %1 Game", m_files->signature("a", "%2 Edition", true));
    m_files->write();
    const Scan scan;
    QTRY_VERIFY(scan.isFinished());
    const cScanEntry* const entry = Scan::entryOf(scan.list->item(0));
    QCOMPARE(entry->displayName, QString("100% %1 Game (%2 Edition)"));
    QCOMPARE(scan.list->item(0)->text(), entry->displayName);
    QCOMPARE(entry->profile.attribute("name"), QString("100% %1 Game"));
    QCOMPARE(entry->target, m_files->home().path(".wine/drive_c/a/game.exe"));
}

VELTRANO_TEST_MAIN(ScanRowsTest)
#include "ScanRowsTest.moc"
