#include "CommandSupport.h"

#include <cMacroItem.h>
#include <PaintCount.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QPointer>

using namespace CommandSupport;

namespace {

constexpr MKey::MKey_t Mode = MKey::M3;

/// Whether the row shows its mark, by pictures of one colour.
class Marks
{
public:
    Marks()
    {
        pictures.add("command_normal.png", filledPicture(220, 30, Qt::red));
        pictures.add("command_normal_assigned.png", filledPicture(220, 30, Qt::green));
    }
    static bool isAssigned(const Panel& panel, int row)
    {
        return panel.row(row)->grab().toImage().pixelColor(218, 1) == QColor(Qt::green);
    }

    TestPictures pictures;
};

} // namespace

class cMacroListEventsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void eventsOfOtherProfilesAreIgnored_data();
    void eventsOfOtherProfilesAreIgnored();
    void eventsForUnknownCommandsAreIgnored();
    void addedCommandGetsItsRow();
    void deletedCommandLosesItsRow();
    void deletedCommandIsFoundByItsExactId();
    void renameMovesTheRow();
    void renameAmongManyKeepsTheFilter();
    void changeWithoutRenameStays();
    void assignmentMarksTheRow();
    void marksAndChangesAreDrawnAtOnce();
    void removedAssignmentAsksTheHost_data();
    void removedAssignmentAsksTheHost();
    void secondCommandOfTheSameIdIsUntouched();
    void deletionOfASelectedRow();
    void profileGoneBehindTheBack();
};

void cMacroListEventsTest::eventsOfOtherProfilesAreIgnored_data()
{
    QTest::addColumn<QString>("profile");
    QTest::newRow("another") << "{Q}";
    QTest::newRow("none") << "";
    QTest::newRow("in small letters") << Profile.toLower();
}

void cMacroListEventsTest::eventsOfOtherProfilesAreIgnored()
{
    QFETCH(QString, profile);
    Panel panel;
    panel.fillNames({"Jump"});
    panel.host.publishMacroAdded(profile, macro("{9}", "Fire"));
    panel.host.publishMacroChanged(profile, macro("{1}", "Fire"));
    panel.host.publishMacroDeleted(profile, macro("{1}", "Jump"));
    panel.host.publishMacroAssigned(profile, Category, "{1}", Mode, "G1");
    panel.host.publishAssignmentRemoved(profile, Category, Mode, "G1", "{1}");
    QCOMPARE(panel.takeLog(), QStringList());
    QCOMPARE(panel.shownNames(), QStringList({"Jump"}));
}

void cMacroListEventsTest::eventsForUnknownCommandsAreIgnored()
{
    Panel panel;
    panel.fillNames({"Jump"});
    panel.host.publishMacroChanged(Profile, macro("{9}", "Fire"));
    panel.host.publishMacroDeleted(Profile, macro("{9}", "Fire"));
    panel.host.publishMacroDeleted(Profile, cJsonValue());
    panel.host.publishMacroAssigned(Profile, Category, "{9}", Mode, "G1");
    panel.host.publishAssignmentRemoved(Profile, Category, Mode, "G1", "{9}");
    QCOMPARE(panel.takeLog(), QStringList());
    QCOMPARE(panel.shownNames(), QStringList({"Jump"}));
}

void cMacroListEventsTest::addedCommandGetsItsRow()
{
    Panel panel;
    panel.fillNames({"Jump"});
    panel.host.publishMacroAdded(Profile, macro("{9}", "Fire", Text));
    QCOMPARE(panel.takeLog(), rowCalls("{9}", Text));
    QCOMPARE(panel.shownNames(), QStringList({"Fire", "Jump"}));
    QVERIFY(panel.row(0)->isVisible());
}

void cMacroListEventsTest::deletedCommandLosesItsRow()
{
    Panel panel;
    panel.fillNames({"a", "b", "c"});
    const QPointer<cMacroItem> row = panel.row(1);
    const QPointer<cListWidgetItem> item = dynamic_cast<cListWidgetItem*>(panel.list->item(1));
    panel.host.publishMacroDeleted(Profile, macro("{2}", "anything"));
    QVERIFY(!row);
    QVERIFY(!item);
    QCOMPARE(panel.takeLog(), QStringList());
    QCOMPARE(panel.shownNames(), QStringList({"a", "c"}));
    QCoreApplication::processEvents();
    QCOMPARE(panel.row(1)->y(), 33);
}

void cMacroListEventsTest::deletedCommandIsFoundByItsExactId()
{
    Panel panel;
    cJsonValue records(cJsonValue::arrayValue);
    records.append(macro("{AB}", "a"));
    panel.fill(records);
    panel.host.publishMacroDeleted(Profile, macro("{ab}", "a"));
    QCOMPARE(panel.list->count(), 1);
    panel.host.publishMacroDeleted(Profile, macro("{AB}", "a"));
    QCOMPARE(panel.list->count(), 0);
}

void cMacroListEventsTest::renameMovesTheRow()
{
    Panel panel;
    panel.fillNames({"a", "b", "c"});
    const cMacroItem* row = panel.row(0);
    panel.host.publishMacroChanged(Profile, macro("{1}", "z"));
    QCOMPARE(panel.takeLog(), QStringList({allTypesCall()}));
    QCOMPARE(panel.shownNames(), QStringList({"b", "c", "z"}));
    QCOMPARE(panel.row(2), row);
    QCOMPARE(row->toolTip(), QString("z"));
    QCoreApplication::processEvents();
    QCOMPARE(row->y(), 1 + 2 * 32);
}

void cMacroListEventsTest::renameAmongManyKeepsTheFilter()
{
    Panel panel;
    panel.fillNames({"Fire", "Fish", "Jump"});
    panel.search("fi");
    // The row that takes the place of the renamed one must not be mistaken for it.
    panel.host.publishMacroChanged(Profile, macro("{1}", "Zero"));
    QCOMPARE(panel.shownNames(), QStringList({"Fish"}));
    panel.host.publishMacroChanged(Profile, macro("{3}", "Fight"));
    QCOMPARE(panel.shownNames(), QStringList({"Fight", "Fish"}));
}

void cMacroListEventsTest::changeWithoutRenameStays()
{
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.host.publishMacroChanged(Profile, macro("{1}", "a", Text));
    QCOMPARE(panel.row(0)->macro(), macro("{1}", "a", Text));
    QCOMPARE(panel.shownNames(), QStringList({"a", "b"}));
    // The item keeps the namespace by which it is sorted.
    QCOMPARE(panel.list->item(0)->data(33).toString(), Keys);
}

void cMacroListEventsTest::assignmentMarksTheRow()
{
    const Marks marks;
    Panel panel;
    panel.fillNames({"a", "b"});
    // Device and mode are not looked at.
    panel.host.publishMacroAssigned(Profile, "Another", "{2}", MKey::M1, "G99");
    QCOMPARE(panel.takeLog(), QStringList());
    QVERIFY(!Marks::isAssigned(panel, 0));
    QVERIFY(Marks::isAssigned(panel, 1));
    // It is seen.
    QCOMPARE(panel.list->viewport()->grab().toImage().pixelColor(220, 35), QColor(Qt::green));
}

void cMacroListEventsTest::marksAndChangesAreDrawnAtOnce()
{
    Panel panel;
    panel.fillNames({"a", "b"});
    QCoreApplication::processEvents();
    // A row does not redraw itself for its mark.
    PaintCount paints(*panel.row(1));
    panel.host.publishMacroAssigned(Profile, Category, "{2}", Mode, "G1");
    QTRY_VERIFY(paints.count() > 0);
    paints.clear();
    panel.host.publishAssignmentRemoved(Profile, Category, Mode, "G1", "{2}");
    QTRY_VERIFY(paints.count() > 0);
    paints.clear();
    panel.host.publishMacroChanged(Profile, macro("{1}", "a"));
    QTRY_VERIFY(paints.count() > 0);
}

void cMacroListEventsTest::removedAssignmentAsksTheHost_data()
{
    QTest::addColumn<bool>("stillAssigned");
    QTest::newRow("another control holds it") << true;
    QTest::newRow("none holds it") << false;
}

void cMacroListEventsTest::removedAssignmentAsksTheHost()
{
    QFETCH(bool, stillAssigned);
    const Marks marks;
    Panel panel;
    panel.fillNames({"a", "b"});
    panel.host.publishMacroAssigned(Profile, Category, "{1}", Mode, "G1");
    panel.host.answer("isMacroAssigned", stillAssigned);
    panel.host.clear();
    panel.host.publishAssignmentRemoved(Profile, "Another", Mode, "G1", "{1}");
    QCOMPARE(panel.takeLog(), QStringList({assignedCall("{1}")}));
    QCOMPARE(Marks::isAssigned(panel, 0), stillAssigned);
}

void cMacroListEventsTest::secondCommandOfTheSameIdIsUntouched()
{
    Panel panel;
    cJsonValue records(cJsonValue::arrayValue);
    records.append(macro("{1}", "a"));
    records.append(macro("{1}", "b"));
    panel.fill(records);
    panel.host.publishMacroDeleted(Profile, macro("{1}", ""));
    QCOMPARE(panel.shownNames(), QStringList({"b"}));
}

void cMacroListEventsTest::deletionOfASelectedRow()
{
    Panel panel;
    panel.fillNames({"a", "b", "c"});
    panel.select({1});
    panel.host.publishMacroDeleted(Profile, macro("{2}", ""));
    QCoreApplication::processEvents();
    for (int i = 0; i < panel.list->count(); ++i)
        QVERIFY(panel.row(i));
    QCOMPARE(panel.shownNames(), QStringList({"a", "c"}));
}

void cMacroListEventsTest::profileGoneBehindTheBack()
{
    // The view shows another profile already, the list is not told yet: it keeps to its own.
    Panel panel;
    panel.fillNames({"a"});
    show("{Q}");
    panel.host.publishMacroAdded("{Q}", macro("{9}", "b"));
    QCOMPARE(panel.shownNames(), QStringList({"a"}));
    panel.host.publishMacroDeleted(Profile, macro("{1}", ""));
    QCOMPARE(panel.list->count(), 0);
}

VELTRANO_TEST_MAIN(cMacroListEventsTest)
#include "cMacroListEventsTest.moc"
