#include <DragRun.h>
#include <TestCase.h>

#include <QApplication>
#include <QCursor>
#include <QDrag>
#include <QMimeData>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <utility>

/// Drags from a widget on the screen, with an owner of its own.
class DragRunTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whoeverGoesEndsTheDrag_data();
    void whoeverGoesEndsTheDrag();
    void sourceMayBeTheOwner();
    void dragIsCancelledByItself();
    void nobodyIsListenedToAfterwards();
};

namespace {

class Scene
{
public:
    Scene()
    {
        window.setGeometry(60, 50, 200, 200);
        window.show();
        QCursor::setPos(window.mapToGlobal(window.rect().center()));
    }

    QDrag* makeDrag()
    {
        auto* const drag = new QDrag(source);
        auto* const data = new QMimeData;
        data->setText("dragged");
        drag->setMimeData(data);
        return drag;
    }

    QWidget window;
    QPointer<QWidget> source = new QWidget(&window);
    std::unique_ptr<QObject> owner = std::make_unique<QObject>();
};

/// Does something from the event loop of the drag, and notes it.
class Meanwhile
{
public:
    explicit Meanwhile(std::function<void()> action)
        : m_action(std::move(action))
    {
        QTimer::singleShot(20, &m_context, [this] {
            m_hasRun = true;
            m_action();
        });
    }
    bool hasRun() const { return m_hasRun; }

private:
    QObject m_context;
    std::function<void()> m_action;
    bool m_hasRun = false;
};

} // namespace

void DragRunTest::whoeverGoesEndsTheDrag_data()
{
    QTest::addColumn<bool>("isSource");
    QTest::newRow("the owner") << false;
    QTest::newRow("the source") << true;
}

void DragRunTest::whoeverGoesEndsTheDrag()
{
    QFETCH(bool, isSource);
    Scene scene;
    const QPointer<QDrag> drag = scene.makeDrag();
    const Meanwhile meanwhile([&] {
        if (isSource)
            delete scene.source;
        else
            scene.owner.reset();
        // Qt still works on it.
        QVERIFY(drag);
    });
    QCOMPARE(DragRun::exec(drag, scene.owner.get(), Qt::MoveAction), Qt::IgnoreAction);
    QVERIFY(meanwhile.hasRun());
    QTRY_VERIFY(!drag);
}

void DragRunTest::sourceMayBeTheOwner()
{
    Scene scene;
    const QPointer<QDrag> drag = scene.makeDrag();
    const Meanwhile meanwhile([&] {
        delete scene.source;
        QVERIFY(drag);
    });
    QCOMPARE(DragRun::exec(drag, scene.source, Qt::CopyAction), Qt::IgnoreAction);
    QVERIFY(meanwhile.hasRun());
    QTRY_VERIFY(!drag);
}

void DragRunTest::dragIsCancelledByItself()
{
    Scene scene;
    const QPointer<QDrag> drag = scene.makeDrag();
    Qt::DropActions supported;
    const Meanwhile meanwhile([&] {
        supported = drag->supportedActions();
        QDrag::cancel();
    });
    QCOMPARE(DragRun::exec(drag, scene.owner.get(), Qt::CopyAction), Qt::IgnoreAction);
    QCOMPARE(supported, Qt::DropActions(Qt::CopyAction));
    QVERIFY(scene.source);
    QTRY_VERIFY(!drag);
}

void DragRunTest::nobodyIsListenedToAfterwards()
{
    Scene scene;
    const Meanwhile first([] { QDrag::cancel(); });
    DragRun::exec(scene.makeDrag(), scene.owner.get(), Qt::MoveAction);
    QVERIFY(first.hasRun());
    // The owner of the drag before has nothing to do with the next one.
    QObject other;
    bool stillRuns = false;
    const Meanwhile second([&] {
        scene.owner.reset();
        QTimer::singleShot(20, &other, [&] {
            stillRuns = true;
            QDrag::cancel();
        });
    });
    DragRun::exec(scene.makeDrag(), &other, Qt::MoveAction);
    QVERIFY(stillRuns);
}

VELTRANO_TEST_MAIN(DragRunTest)
#include "DragRunTest.moc"
