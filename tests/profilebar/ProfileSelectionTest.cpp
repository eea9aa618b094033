#include "Strip.h"

#include <TestCase.h>

#include <QPointer>
#include <QSignalSpy>

/// Which tiles are selected, and which of them is the current profile.
class ProfileSelectionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void clickMakesCurrentAndPublishes();
    void secondClickOnTheCurrentPublishesNothing();
    void selectionWithTheCurrentKeepsIt();
    void deselectedCurrentStaysMarked();
    void selectingOthersMakesTheFirstCurrent();
    void selectProfileFindsItsRow();
    void selectProfileKeepsWhatAnArrivalFoundSelected();
    void listThatGoesWhileItTells();
};

void ProfileSelectionTest::clickMakesCurrentAndPublishes()
{
    Strip strip({"Alpha", "Beta", "Default"});
    QSignalSpy selected(&strip.list, SIGNAL(selectedProfile(const QString&)));
    strip.click("Beta");
    QCOMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.selected(), QStringList("Beta"));
    QCOMPARE(selected, QList<QVariantList>({{"{Beta}"}}));
    QCOMPARE(
        strip.host.takeRequests(), QStringList(R"(setPropertyString("profiler/lastProfile", "{Beta}"))"));
    QCOMPARE(strip.host.takeEvents(), QStringList("ProfileSelectionChange "));
}

void ProfileSelectionTest::secondClickOnTheCurrentPublishesNothing()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.click("Alpha");
    QCOMPARE(strip.host.host.takeLog(), QStringList());
    QCOMPARE(strip.current(), QStringList("Alpha"));
}

void ProfileSelectionTest::selectionWithTheCurrentKeepsIt()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.click("Default", Qt::ControlModifier);
    QCOMPARE(strip.selected(), QStringList({"Alpha", "Default"}));
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.host.host.takeLog(), QStringList());
    strip.click("Beta", Qt::ControlModifier);
    QCOMPARE(strip.selected(), QStringList({"Alpha", "Beta", "Default"}));
    // Taking the current one out makes another selected one current.
    strip.click("Alpha", Qt::ControlModifier);
    QCOMPARE(strip.current().size(), 1);
    QVERIFY(strip.selected().contains(strip.current().first()));
    QVERIFY(strip.current().first() != "Alpha");
}

void ProfileSelectionTest::deselectedCurrentStaysMarked()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.click("Alpha", Qt::ControlModifier);
    QVERIFY(strip.selected().isEmpty());
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.host.host.takeLog(), QStringList());
    QTest::qWait(20);
    QCOMPARE(strip.current(), QStringList("Alpha"));
}

void ProfileSelectionTest::selectingOthersMakesTheFirstCurrent()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.list.clearSelection();
    strip.list.selectionModel()->select(
        QItemSelection(strip.list.model()->index(1, 0), strip.list.model()->index(2, 0)),
        QItemSelectionModel::Select);
    QCOMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.host.takeEvents(), QStringList("ProfileSelectionChange "));
}

void ProfileSelectionTest::selectProfileFindsItsRow()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.list.selectProfile("{nobody}");
    QCOMPARE(strip.host.host.takeLog(), QStringList());
    strip.list.selectProfile("{Beta}");
    QCOMPARE(strip.current(), QStringList("Beta"));
    strip.list.selectRow(17);
    QCOMPARE(strip.current(), QStringList());
    strip.list.selectRow(-1);
    QCOMPARE(strip.current(), QStringList());
}

void ProfileSelectionTest::selectProfileKeepsWhatAnArrivalFoundSelected()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    // The list moves on as lists of several do: what was selected when a row came stays so.
    strip.host.add("Device", "device-1");
    strip.list.selectProfile("{Beta}");
    QCOMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.selected(), QStringList({"Alpha", "Beta"}));
    QCOMPARE(
        strip.host.takeRequests(), QStringList(R"(setPropertyString("profiler/lastProfile", "{Beta}"))"));
}

namespace {

/// Takes the list away when it says which profile is current.
class Remover : public QObject
{
    Q_OBJECT

public:
    explicit Remover(cProfileList* list)
        : m_list(list)
    {
        connect(list, SIGNAL(selectedProfile(const QString&)), SLOT(remove()));
    }

private Q_SLOTS:
    void remove() { delete m_list; }

private:
    QPointer<cProfileList> m_list;
};

} // namespace

void ProfileSelectionTest::listThatGoesWhileItTells()
{
    ProfileHost on({"Alpha", "Default"});
    const QPointer<cProfileList> list(new cProfileList);
    list->populate();
    const Remover remover(list);
    on.clear();
    list->selectProfile("{Alpha}");
    QVERIFY(!list);
    // What the user chose is remembered all the same.
    QCOMPARE(on.settings["profiler/lastProfile"], QString("{Alpha}"));
}

VELTRANO_TEST_MAIN(ProfileSelectionTest)
#include "ProfileSelectionTest.moc"
