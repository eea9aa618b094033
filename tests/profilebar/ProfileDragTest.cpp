#include "Strip.h"

#include <cProfileItem.h>
#include <cProfileTrashcanWidget.h>
#include <DragFormats.h>
#include <MenuDriver.h>
#include <RealPointer.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QAction>
#include <QDrag>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

#include <functional>
#include <memory>
#include <utility>

namespace {

constexpr int Patience = 20000;

/// Takes every drag, and tells what was in it.
class Target : public QWidget
{
public:
    explicit Target(QWidget* parent)
        : QWidget(parent)
    {
        setAcceptDrops(true);
    }

    QStringList formats;
    QByteArray payload;
    Qt::DropActions possible;
    const QObject* source = nullptr;
    QImage picture;
    bool dropped = false;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->acceptProposedAction(); }
    void dropEvent(QDropEvent* event) override
    {
        formats = event->mimeData()->formats();
        payload = event->mimeData()->data(DragFormats::Profiles);
        possible = event->possibleActions();
        source = event->source();
        // While it runs it is the application's.
        if (const auto* drag = qApp->findChild<QDrag*>())
            picture = drag->pixmap().toImage();
        dropped = true;
        event->acceptProposedAction();
    }
};

/// Starts a drag of its own when the pointer is moved over it with the button down.
class Source : public QWidget
{
public:
    using QWidget::QWidget;

    std::function<std::unique_ptr<QMimeData>()> makeData;
    int result = -1;
    /// The widget to which the drag goes.
    QWidget* target = nullptr;

protected:
    void mousePressEvent(QMouseEvent*) override { }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!(event->buttons() & Qt::LeftButton) || std::exchange(m_started, true))
            return;
        auto* drag = new QDrag(this);
        drag->setMimeData(makeData().release());
        RealPointer::act(RealPointer::moveTo(*target, QPoint(-6, 0)) + ' ' + RealPointer::moveTo(*target));
        result = drag->exec(Qt::CopyAction);
    }

private:
    bool m_started = false;
};

/// Releases the button once the pointer drags over a widget.
class Release : public QObject
{
public:
    Release(QObject* target, QEvent::Type told)
        : m_told(told)
    {
        target->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == m_told && !std::exchange(m_released, true))
            RealPointer::act("mouseup 1");
        return false;
    }

private:
    const QEvent::Type m_told;
    bool m_released = false;
};

/// Looks whether a widget takes the drag that enters it, and releases the button.
class Reception : public QObject
{
public:
    explicit Reception(QObject* target) { target->installEventFilter(this); }

    bool hasEntered() const { return m_hasEntered; }
    bool wasWelcome() const { return m_wasWelcome; }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::DragEnter || std::exchange(m_hasEntered, true))
            return false;
        // All the others hear of it in this call.
        QCoreApplication::sendEvent(watched, event);
        m_wasWelcome = event->isAccepted();
        RealPointer::act("mouseup 1");
        return true;
    }

private:
    bool m_hasEntered = false;
    bool m_wasWelcome = false;
};

/// Presses on a tile and drags it over a widget. The drag runs an event loop of its own, so the way is told
/// when it starts.
class TileDrag : public QObject
{
    Q_OBJECT

public:
    TileDrag(cProfileList& list, const QWidget& tile, QWidget& target)
        : m_target(target)
    {
        connect(&list, SIGNAL(startDrag()), SLOT(onStart()));
        RealPointer::act(RealPointer::moveTo(tile) + " mousedown 1 sleep 0.1 "
            + RealPointer::moveTo(tile, QPoint(8, 4)) + ' ' + RealPointer::moveTo(tile, QPoint(14, 8)));
    }

private Q_SLOTS:
    void onStart()
    {
        RealPointer::act("sleep 0.1 " + RealPointer::moveTo(m_target, QPoint(-6, 0)) + " sleep 0.05 "
            + RealPointer::moveTo(m_target));
    }

private:
    QWidget& m_target;
};

/// A window with the list above and a place for another widget below.
class Window : public QWidget
{
public:
    explicit Window(cProfileList* list)
    {
        resize(420, 260);
        move(60, 60);
        list->setParent(this);
        list->move(0, 0);
        list->show();
    }
    /// The list is not the window's.
    ~Window() override
    {
        if (auto* list = findChild<cProfileList*>())
            list->setParent(nullptr);
    }
    bool isUp()
    {
        show();
        return QTest::qWaitForWindowActive(this);
    }
};

/// A drag that comes to a list from another widget of the window.
struct DragFromElsewhere
{
    DragFromElsewhere() { source->setGeometry(100, 140, 100, 100); }

    /// The list takes drops itself, beside its tiles.
    void openList()
    {
        strip.list.setAcceptDrops(true);
        strip.list.setDragDropMode(QAbstractItemView::InternalMove);
    }
    QWidget* target(bool aTile)
    {
        return aTile ? static_cast<QWidget*>(strip.tile("Beta")) : strip.list.viewport();
    }
    /// True once the drag has ended.
    bool run()
    {
        RealPointer::act(
            RealPointer::moveTo(*source) + " mousedown 1 " + RealPointer::moveTo(*source, QPoint(12, 0)));
        return QTest::qWaitFor([this] { return source->result >= 0; }, Patience);
    }

    Strip strip {{"Alpha", "Beta"}, "Alpha"};
    Window window {&strip.list};
    Source* const source = new Source(&window);
};

} // namespace

/// Drags with the real pointer.
class ProfileDragTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void selectedTilesAreDragged();
    void tileDraggedIntoTheTrashGoes();
    void listThatGoesEndsItsDrag();
    void commandsAreDroppedOnATile();
    void profilesOfAnotherListAreCopied_data();
    void profilesOfAnotherListAreCopied();
    void textOfAButtonIsRefused_data();
    void textOfAButtonIsRefused();
    void ownProfilesAreRefused();
    void contextIconOpensTheMenuOfItsTile();
};

void ProfileDragTest::selectedTilesAreDragged()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.list.setTileDragEnabled(true);
    // The first icon that there is goes along.
    strip.tile("Alpha")->setProfileIcon(QPixmap());
    strip.tile("Beta")->setProfileIcon(filledPicture(48, 48, Qt::red));
    Window window(&strip.list);
    auto* const target = new Target(&window);
    target->setGeometry(100, 140, 100, 100);
    QVERIFY(window.isUp());
    strip.select({"Alpha", "Beta"});
    QSignalSpy started(&strip.list, SIGNAL(startDrag()));
    QSignalSpy ended(&strip.list, SIGNAL(endDrag()));
    const Release release(target, QEvent::DragMove);
    // A press on one of several selected tiles leaves them selected until the release.
    const TileDrag drag(strip.list, *strip.tile("Beta"), *target);
    QTRY_VERIFY_WITH_TIMEOUT(target->dropped, Patience);
    QTRY_COMPARE(ended.size(), 1);
    QCOMPARE(target->formats, QStringList(DragFormats::Profiles));
    QCOMPARE(QString(target->payload).split(',').size(), 2);
    QVERIFY(target->payload.contains("{Alpha}") && target->payload.contains("{Beta}"));
    QCOMPARE(started.size(), 1);
    QCOMPARE(target->possible, Qt::DropActions(Qt::CopyAction));
    QCOMPARE(target->source, &strip.list);
    QVERIFY(isFilled(target->picture, QRect(0, 0, 48, 48), Qt::red));
    QCOMPARE(strip.list.cursor().shape(), Qt::ArrowCursor);
}

void ProfileDragTest::tileDraggedIntoTheTrashGoes()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Beta");
    strip.list.setTileDragEnabled(true);
    Window window(&strip.list);
    auto* const trashcan = new cProfileTrashcanWidget(&window);
    trashcan->setGeometry(100, 140, 100, 100);
    connect(
        trashcan, SIGNAL(profilesDropped(const QStringList&)), &strip.list, SLOT(deleteSelectedProfiles()));
    QVERIFY(window.isUp());
    QSignalSpy ended(&strip.list, SIGNAL(endDrag()));
    const Release release(trashcan, QEvent::DragMove);
    const TileDrag drag(strip.list, *strip.tile("Beta"), *trashcan);
    QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, Patience);
    QCOMPARE(strip.names(), QStringList({"Alpha", "Default"}));
    QTRY_COMPARE(strip.current(), QStringList("Default"));
}

void ProfileDragTest::listThatGoesEndsItsDrag()
{
    ProfileHost on({"Alpha", "Default"});
    on.settings["profiler/lastProfile"] = "{Alpha}";
    auto list = std::make_unique<cProfileList>();
    list->setFixedSize(404, 103);
    list->setTileDragEnabled(true);
    list->populate();
    Window window(list.get());
    auto* const target = new Target(&window);
    target->setGeometry(100, 140, 100, 100);
    QVERIFY(window.isUp());
    // Taken down while the drag is over another widget.
    class Remover : public QObject
    {
    public:
        explicit Remover(std::unique_ptr<cProfileList>& list)
            : m_list(list)
        { }
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::DragMove)
                m_list.reset();
            return false;
        }

    private:
        std::unique_ptr<cProfileList>& m_list;
    } remover(list);
    target->installEventFilter(&remover);
    // The button is still down. A drag that went on would have to be let go.
    bool hasWaited = false;
    QTimer patience;
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, [&] {
        hasWaited = true;
        RealPointer::act("mouseup 1");
    });
    patience.start(Patience);
    const TileDrag drag(*list, *list->itemWidget(list->item(0)), *target);
    QTRY_VERIFY_WITH_TIMEOUT(!list, Patience);
    QVERIFY(!hasWaited);
    QVERIFY(!target->dropped);
    RealPointer::act("mouseup 1");
    QTRY_VERIFY_WITH_TIMEOUT(RealPointer::isIdle(), Patience);
}

void ProfileDragTest::commandsAreDroppedOnATile()
{
    DragFromElsewhere drag;
    QVERIFY(drag.window.isUp());
    drag.source->makeData = [] {
        return DragFormats::makeMacros({"{1}", "{2}"});
    };
    drag.source->target = drag.strip.tile("Beta");
    QSignalSpy dropped(&drag.strip.list, SIGNAL(macrosDropped(const QStringList&, const QString&)));
    const Release release(drag.source->target, QEvent::DragMove);
    QVERIFY(drag.run());
    QCOMPARE(drag.source->result, int(Qt::CopyAction));
    QCOMPARE(dropped, QList<QVariantList>({{QStringList({"{1}", "{2}"}), "{Beta}"}}));
}

void ProfileDragTest::profilesOfAnotherListAreCopied_data()
{
    QTest::addColumn<bool>("ontoATile");
    QTest::newRow("onto a tile") << true;
    QTest::newRow("onto the list") << false;
}

void ProfileDragTest::profilesOfAnotherListAreCopied()
{
    QFETCH(bool, ontoATile);
    DragFromElsewhere drag;
    drag.openList();
    QVERIFY(drag.window.isUp());
    drag.source->makeData = [] {
        return DragFormats::makeProfiles({"{x}", "", "{y}"});
    };
    drag.source->target = drag.target(ontoATile);
    const Release release(drag.source->target, QEvent::DragMove);
    QVERIFY(drag.run());
    QCOMPARE(drag.strip.host.takeRequests(),
        QStringList({R"(copyProfile("{x}"))", R"(copyProfile(""))", R"(copyProfile("{y}"))"}));
}

void ProfileDragTest::textOfAButtonIsRefused_data()
{
    profilesOfAnotherListAreCopied_data();
}

void ProfileDragTest::textOfAButtonIsRefused()
{
    QFETCH(bool, ontoATile);
    DragFromElsewhere drag;
    drag.openList();
    QVERIFY(drag.window.isUp());
    drag.source->makeData = [] {
        auto data = std::make_unique<QMimeData>();
        data->setText("#%1%2%3");
        return data;
    };
    drag.source->target = drag.target(ontoATile);
    QSignalSpy dropped(&drag.strip.list, SIGNAL(macrosDropped(const QStringList&, const QString&)));
    const Reception reception(drag.source->target);
    QVERIFY(drag.run());
    QVERIFY(reception.hasEntered());
    QVERIFY(!reception.wasWelcome());
    QCOMPARE(drag.source->result, int(Qt::IgnoreAction));
    QCOMPARE(dropped.size(), 0);
    QCOMPARE(drag.strip.host.takeRequests(), QStringList());
}

void ProfileDragTest::ownProfilesAreRefused()
{
    Strip strip({"Alpha", "Beta"}, "Alpha");
    strip.list.setTileDragEnabled(true);
    Window window(&strip.list);
    QVERIFY(window.isUp());
    QSignalSpy ended(&strip.list, SIGNAL(endDrag()));
    QWidget& target = *strip.tile("Beta");
    const Release release(&target, QEvent::DragEnter);
    const TileDrag drag(strip.list, *strip.tile("Alpha"), target);
    QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, Patience);
    QCOMPARE(strip.host.takeRequests(), QStringList());
}

void ProfileDragTest::contextIconOpensTheMenuOfItsTile()
{
    Strip strip({"Alpha", "Beta"}, "Alpha");
    strip.list.setTileDragEnabled(true);
    Window window(&strip.list);
    QVERIFY(window.isUp());
    const QWidget& tile = *strip.tile("Beta");
    QString title;
    const MenuDriver driver([&](QMenu& menu) { title = menu.actions().first()->text(); });
    // Where the icon stands under the pointer: at the lower right corner of the well.
    RealPointer::act(
        RealPointer::moveTo(tile) + " sleep 0.1 " + RealPointer::moveTo(tile, QPoint(19, 14)) + " click 1");
    QTRY_VERIFY_WITH_TIMEOUT(driver.hasRun(), Patience);
    QCOMPARE(title, QString("Beta"));
    QCOMPARE(strip.current(), QStringList("Beta"));
}

VELTRANO_TEST_MAIN(ProfileDragTest)
#include "ProfileDragTest.moc"
