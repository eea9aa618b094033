#include "Tile.h"

#include <DragFormats.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>

Q_DECLARE_METATYPE(Qt::CursorShape)
Q_DECLARE_METATYPE(Qt::KeyboardModifiers)
Q_DECLARE_METATYPE(Qt::MouseButton)
Q_DECLARE_METATYPE(Qt::MouseButtons)

/// What presses, moves and drops on a tile do.
class ProfileTilePointerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pressesAreLeftToTheList_data();
    void pressesAreLeftToTheList();
    void dragStartsBeyondTheDistance_data();
    void dragStartsBeyondTheDistance();
    void disabledDragIsNone();

    void commandsOfThisProcessMayEnter();
    void droppedCommandsAreTold_data();
    void droppedCommandsAreTold();
    void dropIsTakenOnceItIsTold();
};

void ProfileTilePointerTest::pressesAreLeftToTheList_data()
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

void ProfileTilePointerTest::pressesAreLeftToTheList()
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
    QVERIFY(!tile.release(QPoint(20, 20), button));
    QCOMPARE(tile.item.cursor().shape(), Qt::PointingHandCursor);
}

void ProfileTilePointerTest::dragStartsBeyondTheDistance_data()
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

void ProfileTilePointerTest::dragStartsBeyondTheDistance()
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

void ProfileTilePointerTest::disabledDragIsNone()
{
    Tile tile;
    QSignalSpy started(&tile.item, SIGNAL(dragStart()));
    tile.press(QPoint(10, 10));
    QVERIFY(tile.item.cursor().shape() != Qt::ClosedHandCursor);
    QVERIFY(!tile.move(QPoint(60, 60)));
    QCOMPARE(started.size(), 0);
}

void ProfileTilePointerTest::commandsOfThisProcessMayEnter()
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

void ProfileTilePointerTest::droppedCommandsAreTold_data()
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

void ProfileTilePointerTest::droppedCommandsAreTold()
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

void ProfileTilePointerTest::dropIsTakenOnceItIsTold()
{
    const ProfileHost on;
    const QPointer<cProfileItem> tile(
        new cProfileItem("{id}", "Alpha", filledPicture(48, 48, TilePictures::Icon)));
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

VELTRANO_TEST_MAIN(ProfileTilePointerTest)
#include "ProfileTilePointerTest.moc"
