#include "ProfileHost.h"

#include <cClickableLabel.h>
#include <cProfileItem.h>
#include <DialogDriver.h>
#include <DragFormats.h>
#include <IconFiles.h>
#include <MetaMembers.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolTip>

#include <memory>

Q_DECLARE_METATYPE(Qt::CursorShape)
Q_DECLARE_METATYPE(Qt::KeyboardModifiers)
Q_DECLARE_METATYPE(Qt::MouseButton)
Q_DECLARE_METATYPE(Qt::MouseButtons)

namespace {

const QColor Well(200, 0, 0);
const QColor SelectedWell(0, 200, 0);
const QColor SelectedMarker(0, 0, 200);
const QColor HoverMarker(200, 200, 0);
const QColor Balloon(200, 0, 200);
const QColor Icon(10, 20, 30);

/// The tile's pictures as fields of one colour each.
class Pictures
{
public:
    Pictures()
    {
        QDir(folder.path()).mkpath("Resources/images");
        add("profile_outline.png", 54, 54, Well);
        add("profile_icon_well_selected.png", 54, 54, SelectedWell);
        add("selected.png", 14, 9, SelectedMarker);
        add("hover.png", 14, 9, HoverMarker);
        add("device_balloon.png", 34, 18, Balloon);
        add("pointer_left-click.png", 16, 16, Qt::white);
    }

    QTemporaryDir folder;

private:
    void add(const char* name, int width, int height, const QColor& color)
    {
        filledPicture(width, height, color).save(folder.filePath(QString("Resources/images/") + name));
    }
};

QImage grab(QWidget& widget)
{
    QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::black);
    widget.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}

/// A tile as the list has it.
class Tile
{
    Q_DISABLE_COPY(Tile)

public:
    explicit Tile(const QString& name = "Alpha")
        : host({}, pictures.folder.path())
        , item("{id}", name, filledPicture(48, 48, Icon))
    {
        item.show();
        host.clear();
    }

    QLabel* marker() { return item.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly); }
    cClickableLabel* contextIcon() { return item.findChild<cClickableLabel*>(); }
    void enter()
    {
        QEvent event(QEvent::Enter);
        QCoreApplication::sendEvent(&item, &event);
    }
    void leave()
    {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&item, &event);
    }
    /// Whether the tile kept the event for itself.
    bool mouse(QEvent::Type type, const QPoint& pos, Qt::MouseButton button, Qt::MouseButtons buttons,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QMouseEvent event(type, pos, button, buttons, modifiers);
        event.accept();
        QCoreApplication::sendEvent(&item, &event);
        return event.isAccepted();
    }
    bool press(const QPoint& pos, Qt::MouseButton button = Qt::LeftButton,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        return mouse(QEvent::MouseButtonPress, pos, button, button, modifiers);
    }
    bool move(const QPoint& pos, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        return mouse(QEvent::MouseMove, pos, Qt::NoButton, buttons);
    }

    Pictures pictures;
    ProfileHost host;
    cProfileItem item;
};

/// Chooses a file in the next file dialog and looks at the dialog before.
class FileChoice
{
public:
    explicit FileChoice(const QString& path)
        : m_driver([this, path](QDialog& dialog) {
            auto& files = *qobject_cast<QFileDialog*>(&dialog);
            title = files.windowTitle();
            folder = files.directory().absolutePath();
            filters = files.nameFilters();
            filter = files.selectedNameFilter();
            hasParent = dialog.parentWidget() != nullptr;
            if (path.isEmpty())
                return;
            auto* edit = files.findChild<QLineEdit*>("fileNameEdit");
            edit->setText(path);
            QMetaObject::invokeMethod(&files, "accept");
        })
    { }

    QString title;
    QString folder;
    QStringList filters;
    QString filter;
    bool hasParent = true;
    bool hasRun() const { return m_driver.hasRun(); }

private:
    DialogDriver m_driver;
};

} // namespace

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
    void deviceBalloonStandsAtTheRight();
    void renamingTells();

    void hoverShowsMarkerAndIcon();
    void currentKeepsItsMarkerUnderThePointer();
    void noLongerCurrentLosesItsMarkerUnderThePointer();
    void leavingIsWrittenToTheDebugOutput();
    void tipStandsAtTheUpperEdge();
    void contextIconAsksForTheMenuLater();

    void pressesAreLeftToTheList_data();
    void pressesAreLeftToTheList();
    void dragStartsBeyondTheDistance_data();
    void dragStartsBeyondTheDistance();
    void disabledDragIsNone();

    void commandsOfThisProcessMayEnter();
    void droppedCommandsAreTold_data();
    void droppedCommandsAreTold();
    void dropIsTakenOnceItIsTold();

    void pictureIsCutToAnIcon_data();
    void pictureIsCutToAnIcon();
    void iconDialog_data();
    void iconDialog();
    void fileThatIsNoPicture();
    void iconOfAProgram();
    void tileThatGoesDuringTheDialog();
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
    const QImage picture = grab(tile.item);
    QCOMPARE(colorExtent(picture, Well), QRect(5, 14, 54, 54));
    QCOMPARE(colorExtent(picture, Icon), QRect(8, 17, 48, 48));
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
    const QImage before = grab(tile.item);
    tile.item.setTileSelected(true);
    const QImage picture = grab(tile.item);
    QCOMPARE(colorExtent(picture, SelectedWell), QRect(5, 14, 54, 54));
    for (int x = 0; x < 62; ++x) {
        for (int y = 0; y < 88; ++y) {
            if (picture.pixelColor(x, y) != SelectedWell)
                QCOMPARE(picture.pixel(x, y), before.pixel(x, y));
        }
    }
    tile.item.setTileSelected(false);
    QCOMPARE(grab(tile.item), before);
}

void cProfileItemTest::currentHasMarkerAndOtherColor()
{
    Tile tile;
    const QImage before = grab(tile.item);
    tile.item.setCurrent(true);
    const QImage picture = grab(tile.item);
    QCOMPARE(colorExtent(picture, SelectedMarker), QRect(24, 0, 14, 9));
    QCOMPARE(colorExtent(picture, Well), QRect(5, 14, 54, 54));
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
    QCOMPARE(grab(tile.item), before);
}

void cProfileItemTest::namesAreCentredOrCutOff()
{
    const auto inkOf = [](const QString& name) {
        Tile tile(name);
        const QImage strip = grab(tile.item).copy(0, 70, 62, 18);
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

void cProfileItemTest::deviceBalloonStandsAtTheRight()
{
    Tile tile;
    tile.item.setDeviceId(QString());
    QCOMPARE(tile.host.host.takeCalls(), QStringList());
    QVERIFY(colorExtent(grab(tile.item), Balloon).isNull());
    tile.item.setDeviceId("m51");
    QCOMPARE(tile.host.host.takeCalls(), QStringList(R"(shortDeviceName("m51"))"));
    QCOMPARE(tile.item.deviceId(), QString("m51"));
    const QImage picture = grab(tile.item);
    const QRect balloon = colorExtent(picture, Balloon);
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
    QCOMPARE(colorExtent(grab(tile.item), HoverMarker), QRect(24, 0, 14, 9));
    QVERIFY(tile.contextIcon()->isVisible());
    QVERIFY(tile.item.rect().contains(tile.contextIcon()->geometry()));
    tile.leave();
    QCOMPARE(tile.item.cursor().shape(), Qt::ArrowCursor);
    QVERIFY(colorExtent(grab(tile.item), HoverMarker).isNull());
    QVERIFY(!tile.contextIcon()->isVisible());
}

void cProfileItemTest::currentKeepsItsMarkerUnderThePointer()
{
    Tile tile;
    tile.item.setCurrent(true);
    tile.enter();
    QVERIFY(!colorExtent(grab(tile.item), SelectedMarker).isNull());
    QVERIFY(colorExtent(grab(tile.item), HoverMarker).isNull());
    tile.leave();
    QVERIFY(!colorExtent(grab(tile.item), SelectedMarker).isNull());
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
    QVERIFY(!colorExtent(grab(tile.item), HoverMarker).isNull());
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
    QVERIFY(tip);
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

void cProfileItemTest::pressesAreLeftToTheList_data()
{
    QTest::addColumn<bool>("dragEnabled");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<Qt::CursorShape>("cursor");
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    QTest::newRow("left") << true << Qt::LeftButton << none << Qt::ClosedHandCursor;
    QTest::newRow("right") << true << Qt::RightButton << none << Qt::PointingHandCursor;
    QTest::newRow("ctrl") << true << Qt::LeftButton << Qt::KeyboardModifiers(Qt::ControlModifier)
                          << Qt::PointingHandCursor;
    QTest::newRow("no drag") << false << Qt::LeftButton << none << Qt::PointingHandCursor;
}

void cProfileItemTest::pressesAreLeftToTheList()
{
    QFETCH(bool, dragEnabled);
    QFETCH(Qt::MouseButton, button);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(Qt::CursorShape, cursor);
    Tile tile;
    tile.item.setDragEnabled(dragEnabled);
    tile.enter();
    QVERIFY(!tile.press(QPoint(20, 20), button, modifiers));
    QCOMPARE(tile.item.cursor().shape(), cursor);
    QVERIFY(!tile.mouse(QEvent::MouseButtonRelease, QPoint(20, 20), button, Qt::NoButton));
    QCOMPARE(tile.item.cursor().shape(), Qt::PointingHandCursor);
}

void cProfileItemTest::dragStartsBeyondTheDistance_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<Qt::MouseButtons>("buttons");
    QTest::addColumn<bool>("starts");
    const int distance = QApplication::startDragDistance();
    const Qt::MouseButtons left = Qt::LeftButton;
    QTest::newRow("at the distance") << QPoint(distance, 0) << left << false;
    QTest::newRow("one pixel more") << QPoint(distance, -1) << left << true;
    QTest::newRow("both ways") << QPoint(-distance + 2, 3) << left << true;
    QTest::newRow("right button") << QPoint(distance, 5) << Qt::MouseButtons(Qt::RightButton) << false;
    QTest::newRow("two buttons") << QPoint(distance, 5) << (Qt::LeftButton | Qt::RightButton) << false;
}

void cProfileItemTest::dragStartsBeyondTheDistance()
{
    QFETCH(QPoint, way);
    QFETCH(Qt::MouseButtons, buttons);
    QFETCH(bool, starts);
    Tile tile;
    tile.item.setDragEnabled(true);
    QSignalSpy started(&tile.item, SIGNAL(dragStart()));
    const QPoint start(30, 40);
    tile.press(start);
    tile.move(start + way, buttons);
    QCOMPARE(started.size(), starts ? 1 : 0);
}

void cProfileItemTest::disabledDragIsNone()
{
    Tile tile;
    QSignalSpy started(&tile.item, SIGNAL(dragStart()));
    tile.press(QPoint(10, 10));
    QVERIFY(tile.item.cursor().shape() != Qt::ClosedHandCursor);
    QVERIFY(!tile.move(QPoint(60, 60)));
    QCOMPARE(started.size(), 0);
}

void cProfileItemTest::commandsOfThisProcessMayEnter()
{
    Tile tile;
    // The source is known to the event only while a drag is under way, which takes a window; see
    // ProfileDragTest. Here none is, and that says nothing at all.
    const auto data = DragFormats::makeMacros({"{1}"});
    for (const bool accepted : {false, true}) {
        QDragEnterEvent event(QPoint(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        event.setAccepted(accepted);
        QCoreApplication::sendEvent(&tile.item, &event);
        QCOMPARE(event.isAccepted(), accepted);
    }
}

void cProfileItemTest::droppedCommandsAreTold_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QStringList>("ids");
    QTest::newRow("one") << QString(DragFormats::Macros) << QByteArray("{1}") << QStringList("{1}");
    QTest::newRow("several") << QString(DragFormats::Macros) << QByteArray("{1},,{2}")
                             << QStringList({"{1}", "", "{2}"});
    QTest::newRow("none") << QString(DragFormats::Macros) << QByteArray() << QStringList("");
    QTest::newRow("profiles") << QString(DragFormats::Profiles) << QByteArray("{1}") << QStringList();
    QTest::newRow("text") << "text/plain" << QByteArray("{1}") << QStringList();
}

void cProfileItemTest::droppedCommandsAreTold()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, payload);
    QFETCH(QStringList, ids);
    Tile tile;
    QSignalSpy dropped(&tile.item, SIGNAL(macrosDropped(const QStringList&, const QString&)));
    QMimeData data;
    data.setData(format, payload);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject&>(tile.item).event(&event);
    QCOMPARE(event.isAccepted(), !ids.isEmpty());
    QCOMPARE(dropped, ids.isEmpty() ? QList<QVariantList>() : QList<QVariantList>({{ids, "{id}"}}));
}

namespace {

/// Looks at a drop while the tile tells of it, and takes the tile away.
class DropWitness : public QObject
{
    Q_OBJECT

public:
    DropWitness(cProfileItem* tile, const QDropEvent& event)
        : m_tile(tile)
        , m_event(event)
    {
        connect(tile, SIGNAL(macrosDropped(const QStringList&, const QString&)),
            SLOT(onDropped(const QStringList&, const QString&)));
    }

    bool wasAccepted = true;
    QString profile;

private Q_SLOTS:
    void onDropped(const QStringList&, const QString& profileID)
    {
        wasAccepted = m_event.isAccepted();
        delete m_tile;
        profile = profileID;
    }

private:
    QPointer<cProfileItem> m_tile;
    const QDropEvent& m_event;
};

} // namespace

void cProfileItemTest::dropIsTakenOnceItIsTold()
{
    const ProfileHost on;
    const QPointer<cProfileItem> tile(new cProfileItem("{id}", "Alpha", filledPicture(48, 48, Icon)));
    const auto data = DragFormats::makeMacros({"{1}"});
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    const DropWitness witness(tile, event);
    static_cast<QObject&>(*tile).event(&event);
    QVERIFY(!tile);
    QVERIFY(!witness.wasAccepted);
    QCOMPARE(witness.profile, QString("{id}"));
    QVERIFY(event.isAccepted());
}

void cProfileItemTest::pictureIsCutToAnIcon_data()
{
    QTest::addColumn<QSize>("size");
    // The square that is left of the source.
    QTest::addColumn<QRect>("square");
    QTest::newRow("square") << QSize(96, 96) << QRect(0, 0, 96, 96);
    QTest::newRow("as it should be") << QSize(48, 48) << QRect(0, 0, 48, 48);
    QTest::newRow("one pixel") << QSize(1, 1) << QRect(0, 0, 1, 1);
    QTest::newRow("wide") << QSize(192, 96) << QRect(48, 0, 96, 96);
    QTest::newRow("tall") << QSize(96, 192) << QRect(0, 48, 96, 96);
    QTest::newRow("odd and wide") << QSize(51, 48) << QRect(1, 0, 48, 48);
    QTest::newRow("odd and tall") << QSize(48, 51) << QRect(0, 1, 48, 48);
    QTest::newRow("a line") << QSize(100, 1) << QRect(49, 0, 1, 1);
    QTest::newRow("a column") << QSize(1, 101) << QRect(0, 50, 1, 1);
}

void cProfileItemTest::pictureIsCutToAnIcon()
{
    QFETCH(QSize, size);
    QFETCH(QRect, square);
    Tile tile;
    QTemporaryDir folder;
    // Each pixel tells its place.
    QImage source(size, QImage::Format_ARGB32);
    for (int x = 0; x < size.width(); ++x) {
        for (int y = 0; y < size.height(); ++y)
            source.setPixelColor(x, y, QColor(x, y, 100, 255));
    }
    const QString path = folder.filePath("picture.png");
    QVERIFY(source.save(path));
    QImage icon;
    tile.host.host.answer("setProfileIcon",
        [&](const RecordedCall& call) { icon = call.values[1].value<QPixmap>().toImage(); });
    FileChoice choice(path);
    QVERIFY(QMetaObject::invokeMethod(&tile.item, "onChooseIcon"));
    QCOMPARE(icon.size(), QSize(48, 48));
    for (const QPoint& pixel : {QPoint(0, 0), QPoint(47, 47), QPoint(24, 24)}) {
        const QColor color = icon.pixelColor(pixel);
        const int x = square.x() + pixel.x() * square.width() / 48;
        const int y = square.y() + pixel.y() * square.height() / 48;
        QVERIFY2(
            qAbs(color.red() - x) <= square.width() / 48 && qAbs(color.green() - y) <= square.height() / 48,
            qPrintable(QString("%1,%2 instead of %3,%4").arg(color.red()).arg(color.green()).arg(x).arg(y)));
        QCOMPARE(color.blue(), 100);
    }
    // The tile waits for the host's event.
    QVERIFY(isFilled(tile.item.icon().toImage(), QRect(0, 0, 48, 48), Icon));
}

void cProfileItemTest::iconDialog_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("startsAtTarget");
    QTest::newRow("no target") << "" << false;
    QTest::newRow("target") << "game.exe" << true;
    QTest::newRow("target that is gone, in a folder that is there") << "gone.exe" << true;
    QTest::newRow("folder that is gone") << "gone/game.exe" << false;
}

void cProfileItemTest::iconDialog()
{
    QFETCH(QString, target);
    QFETCH(bool, startsAtTarget);
    QTemporaryDir folder;
    QFile file(folder.filePath("game.exe"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    Tile tile;
    if (!target.isEmpty())
        tile.item.setTarget(folder.filePath(target));
    FileChoice cancelled((QString()));
    QMetaObject::invokeMethod(&tile.item, "onChooseIcon");
    QVERIFY(cancelled.hasRun());
    QCOMPARE(cancelled.title, QString("Choose Icon..."));
    QVERIFY(!cancelled.hasParent);
    QCOMPARE(cancelled.filters, QStringList({"Images (*.png *.bmp *.jpg *.jpeg)", "All Files (*)"}));
    QCOMPARE(cancelled.filter, cancelled.filters[startsAtTarget ? 1 : 0]);
    QCOMPARE(QDir(cancelled.folder) == QDir(folder.path()), startsAtTarget);
    QCOMPARE(tile.host.host.takeCalls(), QStringList());
}

void cProfileItemTest::fileThatIsNoPicture()
{
    QTemporaryDir folder;
    Tile tile;
    for (const QByteArray& content :
        {QByteArray("no picture"), QByteArray(), QByteArray("\x89PNG\r\n\x1a\n broken")}) {
        const QString path = folder.filePath("100% %1.png");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        FileChoice choice(path);
        QMetaObject::invokeMethod(&tile.item, "onChooseIcon");
        QCOMPARE(tile.host.host.takeCalls(),
            QStringList(QString("warning(\"Choose Icon...\", \"%1\nVeltrano Gaming Software cannot read this "
                                "file.\nThis is not a valid image file, or its format is not currently "
                                "supported.\")")
                            .replace("%1", path)));
    }
}

void cProfileItemTest::iconOfAProgram()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("game.exe");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(IconFiles::executable({{{64, Qt::green}}}));
    file.close();
    Tile tile;
    FileChoice choice(path);
    QMetaObject::invokeMethod(&tile.item, "onChooseIcon");
    QCOMPARE(tile.host.host.takeCalls(), QStringList(R"(setProfileIcon("{id}", 48x48))"));
}

void cProfileItemTest::tileThatGoesDuringTheDialog()
{
    ProfileHost on;
    auto tile = std::make_unique<cProfileItem>("{id}", "Alpha", QPixmap());
    on.clear();
    QTemporaryDir folder;
    const QString path = folder.filePath("picture.png");
    QVERIFY(filledPicture(48, 48, Qt::red).save(path));
    const DialogDriver driver([&](QDialog& dialog) {
        tile.reset();
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    QMetaObject::invokeMethod(tile.get(), "onChooseIcon");
    QVERIFY(driver.hasRun());
    QCOMPARE(on.host.takeCalls(), QStringList());
}

VELTRANO_TEST_MAIN(cProfileItemTest)
#include "cProfileItemTest.moc"
