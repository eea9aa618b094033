#include "Tile.h"

#include <cClickableLabel.h>
#include <cScaledFont.h>
#include <MetaMembers.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QHelpEvent>
#include <QLabel>
#include <QLoggingCategory>
#include <QPainter>
#include <QSignalSpy>
#include <QToolTip>

class cProfileItemTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void membersAreReachableByName();
    void hasOneSize();
    void paintsWellIconAndName();
    void selectionChangesTheWellOnly();
    void currentHasMarkerAndOtherColor();
    void namesAreCentredOrCutOff();
    void namesAreWrittenInTheirFonts_data();
    void namesAreWrittenInTheirFonts();
    void deviceBalloonStandsAtTheRight();
    void renamingTells();

    void hoverShowsMarkerAndIcon();
    void currentKeepsItsMarkerUnderThePointer();
    void noLongerCurrentLosesItsMarkerUnderThePointer();
    void leavingIsWrittenToTheDebugOutput();
    void tipStandsAtTheUpperEdge();
    void contextIconAsksForTheMenuLater();
};

void cProfileItemTest::membersAreReachableByName()
{
    const QMetaObject& meta = cProfileItem::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta),
        QStringList({"useGenericForAllGkeys(QString)", "unassignAllGkeys(QString)", "printProfile(QString)",
            "macrosDropped(QStringList,QString)", "hoverIn()", "hoverOut()", "nameChanged(QString)",
            "dragStart()", "profileContextMenuIconClicked(QPoint)", "useDefaultForAllGkeys(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(meta),
        QStringList({"onPropertiesMenu()", "onSaveMenu()", "onProfileLaunch()", "onPersistentProfile(bool)",
            "onDefaultProfile(bool)", "onProfileScripting()", "onMenuPrintProfile()", "onUseGenericForAll()",
            "onUnassignAll()", "contextMenuIconClicked(QPoint)", "onUseDefaultForAll()", "onChooseIcon()",
            "onResetIcon()", "onTestProfile()"}));
}

void cProfileItemTest::hasOneSize()
{
    Tile tile;
    QCOMPARE(tile.item.sizeHint(), QSize(62, 88));
    QCOMPARE(tile.item.minimumSize(), QSize(62, 88));
    QCOMPARE(tile.item.maximumSize(), QSize(62, 88));
    QVERIFY(tile.item.acceptDrops());
    QVERIFY(!tile.contextIcon()->isVisible());
}

void cProfileItemTest::paintsWellIconAndName()
{
    Tile tile;
    const QImage picture = tile.grab();
    QCOMPARE(colorExtent(picture, TilePictures::Well), QRect(5, 14, 54, 54));
    QCOMPARE(colorExtent(picture, TilePictures::Icon), QRect(8, 17, 48, 48));
    // The name is grey.
    bool hasGrey = false;
    for (int x = 0; x < 62; ++x) {
        for (int y = 70; y < 88; ++y) {
            const QColor color = picture.pixelColor(x, y);
            QCOMPARE(color.red(), color.green());
            hasGrey = hasGrey || color.red() > 100;
        }
    }
    QVERIFY(hasGrey);
}

void cProfileItemTest::selectionChangesTheWellOnly()
{
    Tile tile;
    const QImage before = tile.grab();
    tile.item.setTileSelected(true);
    const QImage picture = tile.grab();
    QCOMPARE(colorExtent(picture, TilePictures::SelectedWell), QRect(5, 14, 54, 54));
    for (int x = 0; x < 62; ++x) {
        for (int y = 0; y < 88; ++y) {
            if (picture.pixelColor(x, y) != TilePictures::SelectedWell)
                QCOMPARE(picture.pixel(x, y), before.pixel(x, y));
        }
    }
    tile.item.setTileSelected(false);
    QCOMPARE(tile.grab(), before);
}

void cProfileItemTest::currentHasMarkerAndOtherColor()
{
    Tile tile;
    const QImage before = tile.grab();
    tile.item.setCurrent(true);
    const QImage picture = tile.grab();
    QCOMPARE(colorExtent(picture, TilePictures::SelectedMarker), QRect(24, 0, 14, 9));
    QCOMPARE(colorExtent(picture, TilePictures::Well), QRect(5, 14, 54, 54));
    // Cyan: no red in it.
    bool hasCyan = false;
    for (int x = 0; x < 62; ++x) {
        for (int y = 70; y < 88; ++y) {
            const QColor color = picture.pixelColor(x, y);
            QCOMPARE(color.red(), 0);
            hasCyan = hasCyan || (color.green() > 150 && color.blue() > 150);
        }
    }
    QVERIFY(hasCyan);
    tile.item.setCurrent(false);
    QCOMPARE(tile.grab(), before);
}

void cProfileItemTest::namesAreCentredOrCutOff()
{
    const auto inkOf = [](const QString& name) {
        Tile tile(name);
        const QImage strip = tile.grab().copy(0, 70, 62, 18);
        QRect ink;
        for (int x = 0; x < strip.width(); ++x) {
            for (int y = 0; y < strip.height(); ++y) {
                if (strip.pixelColor(x, y).value() > 60)
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    };
    const QRect small = inkOf("oo");
    QVERIFY(qAbs(small.left() - (61 - small.right())) <= 1);
    const QRect wide = inkOf(QString(300, 'M'));
    QVERIFY(wide.left() <= 1);
    QCOMPARE(wide.right(), 61);
    QVERIFY(inkOf(QString()).isNull());
}

void cProfileItemTest::namesAreWrittenInTheirFonts_data()
{
    QTest::addColumn<bool>("isCurrent");
    QTest::addColumn<QColor>("color");
    QTest::newRow("another profile") << false << QColor(Qt::gray);
    QTest::newRow("the current profile") << true << QColor(Qt::cyan);
}

void cProfileItemTest::namesAreWrittenInTheirFonts()
{
    QFETCH(bool, isCurrent);
    QFETCH(QColor, color);
    const auto font = [](qreal designSize) {
        cScaledFont made("Arial", designSize);
        made.setFixedPitch(true);
        made.setStyleStrategy(QFont::ForceOutline);
        return made;
    };
    const auto written = [](const QString& text, const QFont& in, const QColor& ink, const QSize& size,
                             const QColor& background) {
        QImage picture(size, QImage::Format_ARGB32_Premultiplied);
        picture.fill(background);
        // On a transparent picture first, which is what the tile keeps.
        QPixmap kept(size);
        kept.fill(Qt::transparent);
        {
            QPainter painter(&kept);
            painter.setFont(in);
            painter.setPen(ink);
            painter.drawText(QRect(QPoint(0, 0), size), Qt::TextSingleLine | int(Qt::AlignCenter), text);
        }
        QPainter(&picture).drawPixmap(0, 0, kept);
        return picture;
    };
    Tile tile;
    tile.item.setCurrent(isCurrent);
    const int height = QFontMetrics(font(8)).size(Qt::TextSingleLine, "Alpha").height();
    QCOMPARE(
        tile.grab().copy(0, 70, 62, height), written("Alpha", font(8), color, QSize(62, height), Qt::black));
    // That of the device is smaller, on a picture as large as the other font would take.
    tile.item.setDeviceId("m51");
    const QSize size = QFontMetrics(font(8)).size(Qt::TextSingleLine, "M51");
    const QPoint corner(56 - 34 / 2 - size.width() / 2, 17);
    QCOMPARE(tile.grab().copy(QRect(corner, size)),
        written("M51", font(7), Qt::white, size, TilePictures::Balloon));
}

void cProfileItemTest::deviceBalloonStandsAtTheRight()
{
    Tile tile;
    tile.item.setDeviceId(QString());
    QCOMPARE(tile.host.host.takeCalls(), QStringList());
    QVERIFY(colorExtent(tile.grab(), TilePictures::Balloon).isNull());
    tile.item.setDeviceId("m51");
    QCOMPARE(tile.host.host.takeCalls(), QStringList(R"(shortDeviceName("m51"))"));
    QCOMPARE(tile.item.deviceId(), QString("m51"));
    const QImage picture = tile.grab();
    const QRect balloon = colorExtent(picture, TilePictures::Balloon);
    QCOMPARE(balloon.left(), 56 - 34);
    QCOMPARE(balloon.size(), QSize(34, 18));
    // The text has the height of the font of size 8, in which it stands centred.
    const int textHeight = QFontMetrics(cScaledFont("Arial", 8)).size(Qt::TextSingleLine, "M51").height();
    QCOMPARE(balloon.top(), 17 - (18 - textHeight) / 2);
    QRect ink;
    for (int x = balloon.left(); x <= balloon.right(); ++x) {
        for (int y = balloon.top(); y <= balloon.bottom(); ++y) {
            if (picture.pixelColor(x, y).green() > 128)
                ink |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(qAbs((ink.left() + ink.right()) / 2 - (56 - 17)) <= 1);
}

void cProfileItemTest::renamingTells()
{
    Tile tile;
    QSignalSpy renamed(&tile.item, SIGNAL(nameChanged(const QString&)));
    tile.item.setProfileName("Beta");
    QCOMPARE(renamed, QList<QVariantList>({{"Beta"}}));
    QCOMPARE(tile.item.name(), QString("Beta"));
    QCOMPARE(tile.item.toolTip(), QString("Beta"));
}

void cProfileItemTest::hoverShowsMarkerAndIcon()
{
    Tile tile;
    tile.enter();
    QCOMPARE(tile.item.cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(colorExtent(tile.grab(), TilePictures::HoverMarker), QRect(24, 0, 14, 9));
    QVERIFY(tile.contextIcon()->isVisible());
    // In the middle of what is right of 41 pixels, with 20 pixels below it.
    QCOMPARE(tile.contextIcon()->geometry(), QRect(43, 88 - 20 - 16, 16, 16));
    tile.leave();
    QCOMPARE(tile.item.cursor().shape(), Qt::ArrowCursor);
    QVERIFY(colorExtent(tile.grab(), TilePictures::HoverMarker).isNull());
    QVERIFY(!tile.contextIcon()->isVisible());
}

void cProfileItemTest::currentKeepsItsMarkerUnderThePointer()
{
    Tile tile;
    tile.item.setCurrent(true);
    tile.enter();
    QVERIFY(!colorExtent(tile.grab(), TilePictures::SelectedMarker).isNull());
    QVERIFY(colorExtent(tile.grab(), TilePictures::HoverMarker).isNull());
    tile.leave();
    QVERIFY(!colorExtent(tile.grab(), TilePictures::SelectedMarker).isNull());
}

void cProfileItemTest::noLongerCurrentLosesItsMarkerUnderThePointer()
{
    Tile tile;
    tile.item.setCurrent(true);
    tile.enter();
    tile.item.setCurrent(false);
    QVERIFY(!tile.marker()->isVisible());
    tile.leave();
    tile.enter();
    QVERIFY(!colorExtent(tile.grab(), TilePictures::HoverMarker).isNull());
}

void cProfileItemTest::leavingIsWrittenToTheDebugOutput()
{
    Tile tile("A name");
    QLoggingCategory::setFilterRules(QString());
    const ExpectedMessage line(QtDebugMsg, "cProfileItem::leaveEvent profile: \"A name\"");
    tile.leave();
}

void cProfileItemTest::tipStandsAtTheUpperEdge()
{
    Tile tile("A name");
    tile.item.move(120, 150);
    const QPoint global = tile.item.mapToGlobal(QPoint(20, 60));
    QHelpEvent event(QEvent::ToolTip, QPoint(20, 60), global);
    QCoreApplication::sendEvent(&tile.item, &event);
    QTRY_VERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QString("A name"));
    const QWidget* tip = nullptr;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QTipLabel"))
            tip = widget;
    }
    if (!tip)
        QFAIL("there is no tip");
    // A tip stands a little below the place for which it is asked.
    QVERIFY(tip->pos().y() < global.y());
    QVERIFY(tip->pos().y() >= tile.item.mapToGlobal(QPoint(0, 0)).y());
    QToolTip::hideText();
    delete tip;
}

void cProfileItemTest::contextIconAsksForTheMenuLater()
{
    Tile tile;
    tile.enter();
    QSignalSpy asked(&tile.item, SIGNAL(profileContextMenuIconClicked(const QPoint&)));
    QTest::mouseClick(tile.contextIcon(), Qt::LeftButton, {}, QPoint(3, 4));
    QCOMPARE(asked.size(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(asked, QList<QVariantList>({{tile.contextIcon()->mapToGlobal(QPoint(3, 4))}}));
}

VELTRANO_TEST_MAIN(cProfileItemTest)
#include "cProfileItemTest.moc"
