#include "Strip.h"

#include <cMacroBindingView.h>
#include <FixedIds.h>
#include <ShownInView.h>
#include <TestCase.h>

#include <memory>

namespace {

const QString Default = FixedIds::DefaultProfile;

void showInView(const QString& profileID)
{
    setShownInView(*cMacroBindingView::instance(), profileID, QString(), MKey::M1);
}

QString question(const QString& text)
{
    return QString("yesno(\"Delete Profile\", \"%1\")").arg(text);
}

} // namespace

/// The deletion of profiles by their user.
class ProfileDeletionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void questionNamesWhatGoes_data();
    void questionNamesWhatGoes();
    void noMeansNo();
    void fixedDefaultProfileIsNotAskedAbout_data();
    void fixedDefaultProfileIsNotAskedAbout();
    void nothingSelectedAsksNothing();
    void deleteKeyDoesTheSame();
    void otherKeysAreTheLists();

    void neighbourBecomesCurrent_data();
    void neighbourBecomesCurrent();
    void shownProfileHandsTheDefaultOver();
    void fixedDefaultSurvivesAmongOthers();
    void severalWithTheCurrent();
    void allButTheDefaultInASearch();
    void hostThatRefusesKeepsTheTile();
    void listThatGoesDuringTheQuestion();
    void profileThatGoesDuringTheQuestion();
};

void ProfileDeletionTest::questionNamesWhatGoes_data()
{
    QTest::addColumn<QStringList>("selected");
    QTest::addColumn<QString>("text");
    QTest::newRow("one") << QStringList("Alpha")
                         << "Are you sure you want to delete Alpha from your computer?";
    QTest::newRow("of a device") << QStringList("Device")
                                 << "Are you sure you want to delete Device from your MOU?";
    QTest::newRow("two") << QStringList({"Alpha", "Beta"})
                         << "Are you sure you want to delete 2 profiles from your computer?";
    QTest::newRow("with the fixed default") << QStringList(
        {"Alpha", "Default", "Device"}) << "Are you sure you want to delete 3 profiles from your computer?";
}

void ProfileDeletionTest::questionNamesWhatGoes()
{
    QFETCH(QStringList, selected);
    QFETCH(QString, text);
    Strip strip({"Alpha", "Beta", "Default"}, "Beta");
    strip.host.add("Device", "mouse-1");
    strip.host.sure = false;
    strip.select(selected);
    strip.host.clear();
    strip.list.deleteSelectedProfiles();
    QCOMPARE(strip.host.takeRequests(), QStringList(question(text)));
}

void ProfileDeletionTest::noMeansNo()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.host.sure = false;
    strip.list.deleteSelectedProfiles();
    QCOMPARE(strip.host.takeRequests().size(), 1);
    QCOMPARE(strip.names(), QStringList({"Alpha", "Default"}));
    QCOMPARE(strip.current(), QStringList("Alpha"));
}

void ProfileDeletionTest::fixedDefaultProfileIsNotAskedAbout_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("as it is") << Default;
    QTest::newRow("in small letters") << Default.toLower();
}

void ProfileDeletionTest::fixedDefaultProfileIsNotAskedAbout()
{
    QFETCH(QString, id);
    ProfileHost on({"Alpha"});
    on.put("Default").uid = id;
    on.settings["profiler/lastProfile"] = id;
    cProfileList list;
    list.populate();
    QCOMPARE(list.selectedProfileIds(), QStringList(id));
    on.clear();
    list.deleteSelectedProfiles();
    QTest::keyClick(&list, Qt::Key_Delete);
    QCOMPARE(on.host.takeCalls(), QStringList());
}

void ProfileDeletionTest::nothingSelectedAsksNothing()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.list.clearSelection();
    strip.list.deleteSelectedProfiles();
    QTest::keyClick(&strip.list, Qt::Key_Delete);
    QCOMPARE(strip.host.host.takeCalls(), QStringList());
}

void ProfileDeletionTest::deleteKeyDoesTheSame()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    QTest::keyClick(&strip.list, Qt::Key_Delete);
    QCOMPARE(strip.names(), QStringList("Default"));
}

void ProfileDeletionTest::otherKeysAreTheLists()
{
    Strip strip({"Alpha", "Beta", "Gamma"}, "Alpha");
    QTest::keyClick(&strip.list, Qt::Key_Right);
    QCOMPARE(strip.current(), QStringList("Beta"));
    QTest::keyClick(&strip.list, Qt::Key_End);
    QCOMPARE(strip.current(), QStringList("Gamma"));
    QTest::keyClick(&strip.list, Qt::Key_Backspace);
    QCOMPARE(strip.names().size(), 3);
}

void ProfileDeletionTest::neighbourBecomesCurrent_data()
{
    QTest::addColumn<QStringList>("deleted");
    QTest::addColumn<QStringList>("current");
    QTest::newRow("first") << QStringList("A") << QStringList("B");
    QTest::newRow("middle") << QStringList("B") << QStringList("C");
    QTest::newRow("last") << QStringList("D") << QStringList("C");
    QTest::newRow("first two") << QStringList({"A", "B"}) << QStringList("C");
    QTest::newRow("first two, backwards") << QStringList({"B", "A"}) << QStringList("C");
    QTest::newRow("all") << QStringList({"A", "B", "C", "D"}) << QStringList();
}

void ProfileDeletionTest::neighbourBecomesCurrent()
{
    QFETCH(QStringList, deleted);
    QFETCH(QStringList, current);
    Strip strip({"A", "B", "C", "D"}, "C");
    strip.select(deleted);
    strip.host.clear();
    strip.list.deleteSelectedProfiles();
    QCOMPARE(strip.list.count(), 4 - deleted.size());
    QTRY_COMPARE(strip.current(), current);
    QCOMPARE(strip.selected(), current);
    if (!current.isEmpty()) {
        QCOMPARE(strip.host.settings["profiler/lastProfile"], ProfileHost::idOf(current.first()));
        QVERIFY(strip.host.takeEvents().contains("ProfileSelectionChange "));
    }
}

void ProfileDeletionTest::shownProfileHandsTheDefaultOver()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    showInView("{Alpha}");
    strip.list.deleteSelectedProfiles();
    QCOMPARE(strip.host.takeRequests().mid(1),
        QStringList(
            {QString("setDefaultProfileByID(\"%1\")").arg(Default), R"(deleteProfileByID("{Alpha}"))"}));
    showInView("{somebody}");
    strip.select({"Beta"});
    strip.host.clear();
    strip.list.deleteSelectedProfiles();
    QCOMPARE(strip.host.takeRequests().mid(1), QStringList(R"(deleteProfileByID("{Beta}"))"));
}

void ProfileDeletionTest::fixedDefaultSurvivesAmongOthers()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Beta");
    strip.select({"Alpha", "Default"});
    strip.host.clear();
    strip.list.deleteSelectedProfiles();
    const QStringList requests = strip.host.takeRequests();
    QCOMPARE(requests.filter("deleteProfileByID"), QStringList(R"(deleteProfileByID("{Alpha}"))"));
    QTRY_COMPARE(strip.current(), QStringList("Default"));
    QCOMPARE(strip.names(), QStringList({"Beta", "Default"}));
}

void ProfileDeletionTest::severalWithTheCurrent()
{
    Strip strip({"A", "B", "C", "Default"}, "A");
    strip.select({"A", "B", "C"});
    QCOMPARE(strip.current(), QStringList("A"));
    strip.list.deleteSelectedProfiles();
    QTRY_COMPARE(strip.current(), QStringList("Default"));
    QCOMPARE(strip.selected(), QStringList("Default"));
}

void ProfileDeletionTest::allButTheDefaultInASearch()
{
    Strip strip({"Jump", "Jumper", "Default"}, "Default");
    strip.list.onSearch("jum");
    strip.select({"Jump", "Jumper"});
    strip.list.deleteSelectedProfiles();
    QTRY_COMPARE(strip.current(), QStringList("Default"));
    QCOMPARE(strip.shownNames(), QStringList());
    strip.list.onSearch(QString());
    QCOMPARE(strip.shownNames(), QStringList("Default"));
}

void ProfileDeletionTest::hostThatRefusesKeepsTheTile()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.host.host.answer("deleteProfileByID", false);
    strip.list.deleteSelectedProfiles();
    QCOMPARE(strip.names(), QStringList({"Alpha", "Default"}));
    // Nothing more comes of it, and the next choice works.
    QTest::qWait(10);
    strip.click("Default");
    QCOMPARE(strip.selected(), QStringList("Default"));
}

void ProfileDeletionTest::listThatGoesDuringTheQuestion()
{
    ProfileHost on({"Alpha", "Default"});
    on.settings["profiler/lastProfile"] = "{Alpha}";
    auto list = std::make_unique<cProfileList>();
    list->populate();
    on.host.answer("yesno", [&](const RecordedCall&) {
        list.reset();
        return QVariant(true);
    });
    list->deleteSelectedProfiles();
    QVERIFY(!list);
    QVERIFY(on.takeRequests().filter("deleteProfileByID").isEmpty());
}

void ProfileDeletionTest::profileThatGoesDuringTheQuestion()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.select({"Alpha", "Beta"});
    strip.host.host.answer("yesno", [&](const RecordedCall&) {
        strip.host.remove("{Beta}");
        return QVariant(true);
    });
    strip.list.deleteSelectedProfiles();
    QTRY_COMPARE(strip.current(), QStringList("Default"));
    QCOMPARE(strip.names(), QStringList("Default"));
}

VELTRANO_TEST_MAIN(ProfileDeletionTest)
#include "ProfileDeletionTest.moc"
