#include "DropEvents.h"

#include <cProfileDropTarget.h>
#include <DragFormats.h>
#include <TestCase.h>

#include <QWidget>

namespace {

class RecordingTarget : public cProfileDropTarget
{
public:
    void profilesDropped(const QStringList& profileIds) override { record("profiles", profileIds); }
    void macrosDropped(const QStringList& macroIds) override { record("macros", macroIds); }
    void assignmentsDropped(const QStringList& contextIds) override { record("assignments", contextIds); }

    QStringList calls;

private:
    void record(const QString& operation, const QStringList& ids)
    {
        calls += operation + '(' + ids.join('|') + ')';
    }
};

class PlainTarget : public cProfileDropTarget
{
};

QStringList delivered(const QMimeData* data)
{
    RecordingTarget target;
    target.deliverDrop(nullptr, nullptr, data);
    return target.calls;
}

} // namespace

class cProfileDropTargetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void formatDecidesWhetherADropIsAccepted_data();
    void formatDecidesWhetherADropIsAccepted();
    void targetRefusesItself();
    void payloadIsNotLookedAtBeforeTheDrop();
    void noDataIsRefusedAndDeliversNothing();
    void eachFormatHasItsOperation();
    void firstKnownFormatDecides();
    void assignmentDeliversTheContextIdAlone();
    void foreignDataDeliversNothing();
    void brokenPayloadsAreDeliveredAsOddIds();
    void operationsOfTheBaseDoNothing();
};

void cProfileDropTargetTest::formatDecidesWhetherADropIsAccepted_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("profiles") << "application/x-velt-gaming-profiles" << true;
    QTest::newRow("macros") << "application/x-velt-gaming-macros" << true;
    QTest::newRow("assignment") << "application/x-velt-gaming-assignment" << true;
    QTest::newRow("text of a button") << "text/plain" << false;
    QTest::newRow("other case") << "application/x-velt-gaming-Macros" << false;
    QTest::newRow("longer") << "application/x-velt-gaming-macros2" << false;
    QTest::newRow("empty") << "" << false;
}

void cProfileDropTargetTest::formatDecidesWhetherADropIsAccepted()
{
    QFETCH(QString, format);
    QFETCH(bool, accepted);
    const QWidget source;
    const QObject target;
    const auto data = dataOf(format, "1");
    QCOMPARE(cProfileDropTarget::canAcceptDrop(&source, &target, data.get()), accepted);
    QCOMPARE(cProfileDropTarget::canAcceptDrop(nullptr, &target, data.get()), accepted);
    // One known format is enough.
    data->setText("#%1%2%3");
    QCOMPARE(cProfileDropTarget::canAcceptDrop(&source, &target, data.get()), accepted);
}

void cProfileDropTargetTest::targetRefusesItself()
{
    const QWidget both;
    const auto data = DragFormats::makeMacros({"{1}"});
    QVERIFY(!cProfileDropTarget::canAcceptDrop(&both, &both, data.get()));
}

void cProfileDropTargetTest::payloadIsNotLookedAtBeforeTheDrop()
{
    const QObject target;
    for (const QLatin1String format : {DragFormats::Profiles, DragFormats::Macros, DragFormats::Assignment}) {
        QVERIFY(cProfileDropTarget::canAcceptDrop(nullptr, &target, dataOf(format, "").get()));
        QVERIFY(cProfileDropTarget::canAcceptDrop(nullptr, &target, dataOf(format, "\xff\xfe\x01").get()));
    }
}

void cProfileDropTargetTest::noDataIsRefusedAndDeliversNothing()
{
    const QObject target;
    QVERIFY(!cProfileDropTarget::canAcceptDrop(nullptr, &target, nullptr));
    QCOMPARE(delivered(nullptr), QStringList());
}

void cProfileDropTargetTest::eachFormatHasItsOperation()
{
    QCOMPARE(delivered(DragFormats::makeProfiles({"{1}", "{2}"}).get()), QStringList({"profiles({1}|{2})"}));
    QCOMPARE(delivered(DragFormats::makeMacros({"{1}", "{2}"}).get()), QStringList({"macros({1}|{2})"}));
    QCOMPARE(delivered(DragFormats::makeAssignment({"{1}", "G7"}).get()), QStringList({"assignments(G7)"}));
    // An empty text is one empty id, not none.
    QCOMPARE(delivered(dataOf(DragFormats::Profiles, "").get()), QStringList({"profiles()"}));
    QCOMPARE(delivered(dataOf(DragFormats::Macros, ",").get()), QStringList({"macros(|)"}));
}

void cProfileDropTargetTest::firstKnownFormatDecides()
{
    const auto data = DragFormats::makeAssignment({"{1}", "G7"});
    data->setData(DragFormats::Macros, "{2}");
    QCOMPARE(delivered(data.get()), QStringList({"macros({2})"}));
    data->setData(DragFormats::Profiles, "{3}");
    QCOMPARE(delivered(data.get()), QStringList({"profiles({3})"}));
}

void cProfileDropTargetTest::assignmentDeliversTheContextIdAlone()
{
    const auto data = DragFormats::makeAssignment({"{8AE557B2-4775-4BC2-9877-DD627CE43692}", "G26"});
    QCOMPARE(delivered(data.get()), QStringList({"assignments(G26)"}));
}

void cProfileDropTargetTest::foreignDataDeliversNothing()
{
    QMimeData data;
    QCOMPARE(delivered(&data), QStringList());
    data.setText("#%1%2%3");
    QCOMPARE(delivered(&data), QStringList());
    data.setData("application/x-velt-gaming-Macros", "{1}");
    QCOMPARE(delivered(&data), QStringList());
}

void cProfileDropTargetTest::brokenPayloadsAreDeliveredAsOddIds()
{
    QCOMPARE(delivered(dataOf(DragFormats::Assignment, "").get()), QStringList({"assignments()"}));
    QCOMPARE(delivered(dataOf(DragFormats::Assignment, "\x01").get()), QStringList({"assignments()"}));
    QCOMPARE(delivered(dataOf(DragFormats::Macros, "a\xff,b").get()),
        QStringList({QStringLiteral("macros(a\ufffd|b)")}));
}

void cProfileDropTargetTest::operationsOfTheBaseDoNothing()
{
    PlainTarget target;
    target.deliverDrop(nullptr, nullptr, DragFormats::makeProfiles({"{1}"}).get());
    target.deliverDrop(nullptr, nullptr, DragFormats::makeMacros({"{1}"}).get());
    target.deliverDrop(nullptr, nullptr, DragFormats::makeAssignment({"{1}", "G1"}).get());
}

VELTRANO_TEST_MAIN(cProfileDropTargetTest)
#include "cProfileDropTargetTest.moc"
