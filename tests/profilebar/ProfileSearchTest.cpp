#include "Strip.h"

#include <cProfileItem.h>
#include <cScaledFont.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QPainter>

namespace {

/// What the viewport alone draws.
QImage drawn(cProfileList& list)
{
    list.viewport()->setAttribute(Qt::WA_NoSystemBackground);
    QImage picture(404, 103, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    list.viewport()->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    return picture;
}

bool saysNoResults(cProfileList& list)
{
    const QRect ink = inkExtent(drawn(list));
    // White letters on a base line at 55 from x 20 on.
    return !ink.isNull() && qAbs(ink.left() - 20) <= 3 && ink.bottom() >= 53 && ink.bottom() <= 56
        && ink.top() > 40 && ink.width() > 50 && ink.width() < 150;
}

} // namespace

/// The search and the device filter.
class ProfileSearchTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void matchesAtTheStartOfWords_data();
    void matchesAtTheStartOfWords();
    void noHitsAreSaid();
    void addedProfilesAreSearched();
    void renamedProfilesAreSearched();
    void deletedProfilesAreSearched();
    void deviceFilterHidesOneDevice();
    void searchNeverShowsAHiddenDevice();
    void filterDuringASearchLooksAtTheDeviceOnly();
    void filteredArrivals();
    void currentStaysCurrentWhileItIsHidden();
};

void ProfileSearchTest::matchesAtTheStartOfWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("shown");
    const QStringList all {"Default", "Jump and Run", "Long Jump"};
    QTest::newRow("nothing") << "" << all;
    QTest::newRow("one word") << "jum" << QStringList({"Jump and Run", "Long Jump"});
    QTest::newRow("second word") << "RUN" << QStringList("Jump and Run");
    QTest::newRow("inside of a word") << "ump" << QStringList();
    QTest::newRow("two words") << "jump and" << QStringList("Jump and Run");
    QTest::newRow("expression") << "(long|def)" << QStringList({"Default", "Long Jump"});
    QTest::newRow("any character") << "." << all;
    QTest::newRow("open bracket") << "[" << QStringList();
    QTest::newRow("open group") << "(jump" << QStringList();
    QTest::newRow("placeholder") << "%1" << QStringList();
    QTest::newRow("300 characters") << QString(300, 'j') << QStringList();
}

void ProfileSearchTest::matchesAtTheStartOfWords()
{
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    Strip strip({"Jump and Run", "Long Jump", "Default"});
    QVERIFY(QMetaObject::invokeMethod(&strip.list, "onSearch", Q_ARG(QString, text)));
    QCOMPARE(strip.shownNames(), shown);
    QCOMPARE(saysNoResults(strip.list), shown.isEmpty());
    strip.list.onSearch(QString());
    QCOMPARE(strip.shownNames().size(), 3);
    QVERIFY(!saysNoResults(strip.list));
}

void ProfileSearchTest::noHitsAreSaid()
{
    Strip strip({});
    strip.list.onSearch("x");
    QVERIFY(saysNoResults(strip.list));
    // In white Arial of 12 points at 96 dots per inch.
    QImage expected(drawn(strip.list).size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    {
        QPainter painter(&expected);
        painter.setFont(cScaledFont("Arial", 12));
        painter.setPen(Qt::white);
        painter.drawText(QPoint(20, 55), "No Results");
    }
    QCOMPARE(drawn(strip.list), expected);
}

void ProfileSearchTest::addedProfilesAreSearched()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.list.onSearch("jum");
    QVERIFY(saysNoResults(strip.list));
    strip.host.add("Walk");
    QVERIFY(saysNoResults(strip.list));
    strip.host.add("Jump");
    QVERIFY(!saysNoResults(strip.list));
    QCOMPARE(strip.shownNames(), QStringList("Jump"));
    strip.list.onSearch(QString());
    QCOMPARE(strip.shownNames().size(), 4);
}

void ProfileSearchTest::renamedProfilesAreSearched()
{
    Strip strip({"Alpha", "Beta"}, "Alpha");
    strip.list.onSearch("alp");
    strip.host.rename("{Beta}", "Alpine");
    QCOMPARE(strip.shownNames(), QStringList({"Alpha", "Alpine"}));
    strip.host.rename("{Alpha}", "Zero");
    QCOMPARE(strip.shownNames(), QStringList("Alpine"));
    strip.host.rename("{Beta}", "ALPINE");
    QCOMPARE(strip.shownNames(), QStringList("ALPINE"));
    strip.host.rename("{Beta}", "Beta");
    QVERIFY(saysNoResults(strip.list));
}

void ProfileSearchTest::deletedProfilesAreSearched()
{
    Strip strip({"Alpha", "Alpine", "Beta"}, "Beta");
    strip.list.onSearch("alp");
    strip.host.remove("{Alpha}");
    QCOMPARE(strip.shownNames(), QStringList("Alpine"));
    strip.host.remove("{Alpine}");
    QVERIFY(saysNoResults(strip.list));
    strip.host.remove("{Beta}");
    QVERIFY(saysNoResults(strip.list));
    strip.list.onSearch(QString());
    QVERIFY(!saysNoResults(strip.list));
}

void ProfileSearchTest::deviceFilterHidesOneDevice()
{
    Strip strip({"Local"}, "Local");
    strip.host.add("One", "device-1");
    strip.host.add("Two", "device-2");
    strip.list.setDeviceFilter("device-1");
    QCOMPARE(strip.shownNames(), QStringList({"Local", "Two"}));
    strip.list.setDeviceFilter("device-2");
    QCOMPARE(strip.shownNames(), QStringList({"Local", "One"}));
    // None, and not those without a device.
    strip.list.setDeviceFilter(QString());
    QCOMPARE(strip.shownNames(), QStringList({"Local", "One", "Two"}));
}

void ProfileSearchTest::searchNeverShowsAHiddenDevice()
{
    Strip strip({"Jump"}, "Jump");
    strip.host.add("Jump on device", "device-1");
    strip.list.setDeviceFilter("device-1");
    strip.list.onSearch("jum");
    QCOMPARE(strip.shownNames(), QStringList("Jump"));
    strip.list.onSearch("jump on");
    QCOMPARE(strip.shownNames(), QStringList());
    strip.list.onSearch(QString());
    QCOMPARE(strip.shownNames(), QStringList("Jump"));
}

void ProfileSearchTest::filterDuringASearchLooksAtTheDeviceOnly()
{
    Strip strip({"Jump", "Walk"}, "Jump");
    strip.host.add("Jump on device", "device-1");
    strip.list.onSearch("jum");
    strip.list.setDeviceFilter("device-1");
    QCOMPARE(strip.shownNames(), QStringList({"Jump", "Walk"}));
    strip.list.setDeviceFilter(QString());
    QCOMPARE(strip.shownNames(), QStringList({"Jump", "Jump on device", "Walk"}));
    // Until the next letter of the search.
    strip.list.onSearch("jump");
    QCOMPARE(strip.shownNames(), QStringList({"Jump", "Jump on device"}));
}

void ProfileSearchTest::filteredArrivals()
{
    Strip strip({"Local"}, "Local");
    strip.list.setDeviceFilter("device-1");
    strip.host.add("One", "device-1");
    strip.host.add("Two", "device-2");
    strip.host.add("Here");
    QCOMPARE(strip.shownNames(), QStringList({"Here", "Local", "Two"}));
    cJsonValue record;
    record["uid"] = "{Record}";
    record["name"] = "Record";
    strip.host.put("Record", "device-1");
    strip.list.addProfileRecord(record);
    QCOMPARE(strip.names(), QStringList({"Here", "Local", "One", "Record", "Two"}));
    QCOMPARE(strip.shownNames(), QStringList({"Here", "Local", "Two"}));
}

void ProfileSearchTest::currentStaysCurrentWhileItIsHidden()
{
    Strip strip({"Alpha", "Beta"}, "Alpha");
    strip.list.onSearch("bet");
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.selected(), QStringList("Alpha"));
    strip.host.remove("{Alpha}");
    QTRY_COMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.shownNames(), QStringList("Beta"));
}

VELTRANO_TEST_MAIN(ProfileSearchTest)
#include "ProfileSearchTest.moc"
