#include "Strip.h"

#include <PluginContext.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDir>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

const QString Tip = QStringLiteral("Create new profile");

void moveTo(cProfileList& list, const QPoint& pos)
{
    QMouseEvent move(QEvent::MouseMove, pos, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list.viewport(), &move);
}

void press(cProfileList& list, const QPoint& pos, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mousePress(list.viewport(), button, Qt::NoModifier, pos);
    QTest::mouseRelease(list.viewport(), button, Qt::NoModifier, pos);
}

} // namespace

/// The places of the strip that hold no profile yet.
class ProfileWellsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void wellsBehindTheTilesTakeMovesAndPresses_data();
    void wellsBehindTheTilesTakeMovesAndPresses();
    void moveGoesByAFixedSize_data();
    void moveGoesByAFixedSize();
    void pressGoesByThePicture_data();
    void pressGoesByThePicture();
    void otherButtonsPressNoWell();
    void unclickableWells();
    void trackingFollowsTheNumberOfTiles();
    void searchTakesMovesButNoPresses();
    void wellsAreDrawnInAllSixPlaces();
    void tilesStandOnTheirWells();
};

void ProfileWellsTest::wellsBehindTheTilesTakeMovesAndPresses_data()
{
    QTest::addColumn<int>("count");
    for (int count = 0; count <= 7; ++count)
        QTest::newRow(qPrintable(QString("%1 profiles").arg(count))) << count;
}

void ProfileWellsTest::wellsBehindTheTilesTakeMovesAndPresses()
{
    QFETCH(int, count);
    Strip strip(ProfileHost::someNames(count));
    QSignalSpy asked(&strip.list, SIGNAL(newProfile()));
    QCOMPARE(strip.list.hasMouseTracking(), count < 6);
    for (int well = 0; well < 6; ++well) {
        const bool isEmpty = well >= count;
        moveTo(strip.list, Strip::wellCenter(well));
        QCOMPARE(strip.tip(), isEmpty ? Tip : QString());
        QCOMPARE(strip.list.cursor().shape(), isEmpty ? Qt::PointingHandCursor : Qt::ArrowCursor);
        // Between the wells.
        moveTo(strip.list, Strip::wellCenter(well) + QPoint(34, 0));
        QCOMPARE(strip.tip(), QString());
        QCOMPARE(strip.list.cursor().shape(), Qt::ArrowCursor);
        if (!isEmpty)
            continue;
        const ExpectedMessage line(
            QtInfoMsg, QRegularExpression(QString("User clicked on empty profile well %1$").arg(well)));
        press(strip.list, Strip::wellCenter(well));
        QCOMPARE(asked.size(), 1);
        asked.clear();
    }
    if (count > 0) {
        // A press on a tile is the list's.
        press(strip.list, Strip::wellCenter(0));
        QCOMPARE(asked.size(), 0);
        QCOMPARE(strip.list.selectedProfileIds().size(), 1);
    }
    QVERIFY(strip.host.takeRequests().filter("add").isEmpty());
}

void ProfileWellsTest::moveGoesByAFixedSize_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<bool>("hit");
    // The third well: x from 144 up to but not 198, y from 17 to 70.
    QTest::newRow("left edge") << QPoint(144, 40) << true;
    QTest::newRow("left of it") << QPoint(143, 40) << false;
    QTest::newRow("right edge") << QPoint(197, 40) << true;
    QTest::newRow("right of it") << QPoint(198, 40) << false;
    QTest::newRow("upper edge") << QPoint(150, 17) << true;
    QTest::newRow("above it") << QPoint(150, 16) << false;
    QTest::newRow("lower edge") << QPoint(150, 70) << true;
    QTest::newRow("below it") << QPoint(150, 71) << false;
}

void ProfileWellsTest::moveGoesByAFixedSize()
{
    QFETCH(QPoint, pos);
    QFETCH(bool, hit);
    QTemporaryDir none;
    ProfileHost on({"Default"}, none.path());
    cProfileList list;
    list.setFixedSize(404, 103);
    list.populate();
    list.show();
    moveTo(list, pos);
    // Without a picture as well.
    QCOMPARE(list.toolTip(), hit ? Tip : QString());
    QSignalSpy asked(&list, SIGNAL(newProfile()));
    press(list, pos);
    QCOMPARE(asked.size(), 0);
}

void ProfileWellsTest::pressGoesByThePicture_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<bool>("hit");
    // The third well with a picture of 20 by 80.
    QTest::newRow("upper left corner") << QPoint(144, 17) << true;
    QTest::newRow("lower right corner") << QPoint(163, 96) << true;
    QTest::newRow("right of the picture") << QPoint(164, 40) << false;
    QTest::newRow("below the picture") << QPoint(150, 97) << false;
    QTest::newRow("left of the picture") << QPoint(143, 40) << false;
    QTest::newRow("above the picture") << QPoint(150, 16) << false;
}

void ProfileWellsTest::pressGoesByThePicture()
{
    QFETCH(QPoint, pos);
    QFETCH(bool, hit);
    QTemporaryDir pictures;
    QVERIFY(QDir(pictures.path()).mkpath("Resources/images"));
    QVERIFY(filledPicture(20, 80, Qt::white).save(pictures.filePath("Resources/images/profile_outline.png")));
    ProfileHost on({"Default"}, pictures.path());
    cProfileList list;
    list.setFixedSize(404, 103);
    list.populate();
    list.show();
    QSignalSpy asked(&list, SIGNAL(newProfile()));
    std::unique_ptr<ExpectedMessage> line;
    if (hit)
        line = std::make_unique<ExpectedMessage>(QtInfoMsg, QRegularExpression("empty profile well 2$"));
    press(list, pos);
    QCOMPARE(asked.size(), hit ? 1 : 0);
}

void ProfileWellsTest::otherButtonsPressNoWell()
{
    Strip strip({"Default"});
    QSignalSpy asked(&strip.list, SIGNAL(newProfile()));
    press(strip.list, Strip::wellCenter(3), Qt::RightButton);
    press(strip.list, Strip::wellCenter(3), Qt::MiddleButton);
    QCOMPARE(asked.size(), 0);
}

void ProfileWellsTest::unclickableWells()
{
    Strip strip({"Default"});
    moveTo(strip.list, Strip::wellCenter(3));
    QCOMPARE(strip.list.cursor().shape(), Qt::PointingHandCursor);
    strip.list.setWellsClickable(false);
    QVERIFY(!strip.list.hasMouseTracking());
    QCOMPARE(strip.list.cursor().shape(), Qt::ArrowCursor);
    QSignalSpy asked(&strip.list, SIGNAL(newProfile()));
    press(strip.list, Strip::wellCenter(3));
    QCOMPARE(asked.size(), 0);
    strip.list.setWellsClickable(true);
    QVERIFY(strip.list.hasMouseTracking());
}

void ProfileWellsTest::trackingFollowsTheNumberOfTiles()
{
    Strip strip(ProfileHost::someNames(5));
    QVERIFY(strip.list.hasMouseTracking());
    moveTo(strip.list, Strip::wellCenter(5));
    QCOMPARE(strip.tip(), Tip);
    strip.host.add("New");
    QVERIFY(!strip.list.hasMouseTracking());
    QCOMPARE(strip.list.cursor().shape(), Qt::ArrowCursor);
    moveTo(strip.list, Strip::wellCenter(5));
    QCOMPARE(strip.tip(), QString());
    strip.host.remove("{New}");
    QVERIFY(strip.list.hasMouseTracking());
}

void ProfileWellsTest::searchTakesMovesButNoPresses()
{
    Strip strip({"Default"});
    moveTo(strip.list, Strip::wellCenter(2));
    strip.list.onSearch("Def");
    QVERIFY(!strip.list.hasMouseTracking());
    QCOMPARE(strip.list.cursor().shape(), Qt::ArrowCursor);
    moveTo(strip.list, Strip::wellCenter(2));
    QCOMPARE(strip.tip(), QString());
    // A press looks at nothing but whether wells can be clicked.
    QSignalSpy asked(&strip.list, SIGNAL(newProfile()));
    const ExpectedMessage line(QtInfoMsg, QRegularExpression("empty profile well 2$"));
    press(strip.list, Strip::wellCenter(2));
    QCOMPARE(asked.size(), 1);
    strip.list.onSearch(QString());
    QVERIFY(strip.list.hasMouseTracking());
}

void ProfileWellsTest::wellsAreDrawnInAllSixPlaces()
{
    const QImage well = QPixmap(pluginResource("Resources/images/profile_outline.png")).toImage();
    const auto inkOf = [](Strip& strip) {
        strip.list.viewport()->setAttribute(Qt::WA_NoSystemBackground);
        QImage picture(404, 103, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        strip.list.viewport()->render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        return inkExtent(picture);
    };
    Strip empty({});
    QCOMPARE(inkOf(empty), QRect(8, 17, 5 * 68 + 54, 54));
    Strip full(ProfileHost::someNames(6));
    QCOMPARE(inkOf(full), QRect());
    Strip searching({"Default"});
    searching.list.onSearch("Def");
    QCOMPARE(inkOf(searching), QRect());
}

void ProfileWellsTest::tilesStandOnTheirWells()
{
    Strip strip(ProfileHost::someNames(5));
    for (int i = 0; i < 5; ++i)
        QCOMPARE(strip.list.itemWidget(strip.list.item(i))->geometry(), QRect(3 + i * 68, 3, 62, 88));
}

VELTRANO_TEST_MAIN(ProfileWellsTest)
#include "ProfileWellsTest.moc"
