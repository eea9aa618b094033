#include "DeviceTransform.h"

#include <AppConstants.h>
#include <EventLog.h>
#include <TestCase.h>

#include <QElapsedTimer>
#include <QGraphicsPixmapItem>
#include <QThread>
#include <QTimer>

#include <limits>

namespace {

cJsonValue place(const cJsonValue& x, const cJsonValue& y, const cJsonValue& scale)
{
    cJsonValue record;
    record["pos_x"] = x;
    record["pos_y"] = y;
    record["scale"] = scale;
    return record;
}

void publishBegin(const cJsonValue& record)
{
    IServiceMgr::instance()->publish(
        EventSources::MainUI, Events::DeviceTransformBegin, Q_ARG(cJsonValue, record));
}

} // namespace

class DeviceTransformTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void beginMovesThePictureThenEnds();
    void endIsNeverWithinTheBegin();
    void endComesAfterTheViewsPanesUnderLoad();
    void unusablePlaceKeepsThePictureAndEnds_data();
    void unusablePlaceKeepsThePictureAndEnds();
    void secondBeginHasTheOneEnd();
    void homeEndsATransformWithoutAnEvent();
    void returningHomeEndsATransformWithoutAnEvent();
    void deletionEndsATransformWithoutAnEvent();

private:
    static void waitLongEnough() { QTest::qWait(AppConstants::TransformEndTime + 150); }

    QGraphicsPixmapItem m_picture;
    QScopedPointer<DeviceTransform> m_transform;
    QScopedPointer<EventLog> m_events;
};

void DeviceTransformTest::init()
{
    m_transform.reset(new DeviceTransform(m_picture));
    m_transform->setHome(QPointF(10, 20), 2.0);
    m_events.reset(new EventLog(EventSources::MainUI));
}

void DeviceTransformTest::cleanup()
{
    m_transform.reset();
    m_events.reset();
}

void DeviceTransformTest::beginMovesThePictureThenEnds()
{
    QCOMPARE(m_picture.pos(), QPointF(10, 20));
    QCOMPARE(m_picture.scale(), 2.0);
    QElapsedTimer time;
    time.start();
    publishBegin(place(110, 220, 0.5));
    bool wasBetween = false;
    QTRY_VERIFY(
        (wasBetween = wasBetween || (m_picture.x() > 10 && m_picture.x() < 110), m_events->count() > 0));
    QVERIFY(wasBetween);
    QVERIFY(time.elapsed() >= AppConstants::TransformTime - 20);
    QCOMPARE(m_events->take(), QStringList({"DeviceTransformEnd"}));
    QCOMPARE(m_picture.pos(), QPointF(110, 220));
    QCOMPARE(m_picture.scale(), 0.5);
    waitLongEnough();
    QCOMPARE(m_events->take(), QStringList());
}

void DeviceTransformTest::endIsNeverWithinTheBegin()
{
    // Nothing to move at all.
    publishBegin(place(10, 20, 2.0));
    QCOMPARE(m_events->count(), 0);
    QTRY_COMPARE(m_events->count(), 1);
}

void DeviceTransformTest::endComesAfterTheViewsPanesUnderLoad()
{
    // A view waits with its panes as its own single shot tells it, and fills them at the end.
    QStringList order;
    QTimer panes;
    panes.setSingleShot(true);
    QObject::connect(&panes, &QTimer::timeout, [&] { order = m_events->take() + QStringList("panes"); });
    panes.start(250);
    publishBegin(place(110, 220, 0.5));
    // Nobody gets a turn until all of the times are over.
    QThread::msleep(AppConstants::TransformEndTime + 100);
    QTRY_COMPARE(m_events->count(), 1);
    QCOMPARE(order, QStringList({"panes"}));
    QCOMPARE(m_picture.pos(), QPointF(110, 220));
}

void DeviceTransformTest::unusablePlaceKeepsThePictureAndEnds_data()
{
    QTest::addColumn<cJsonValue>("record");
    cJsonValue onlyScale;
    onlyScale["scale"] = 1.0;
    QTest::newRow("null") << cJsonValue();
    QTest::newRow("text") << cJsonValue("text");
    QTest::newRow("no position") << onlyScale;
    QTest::newRow("scale 0") << place(1, 1, 0.0);
    QTest::newRow("negative scale") << place(1, 1, -1.0);
    QTest::newRow("scale not a number") << place(1, 1, std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("huge scale") << place(1, 1, 1e9);
    QTest::newRow("far away") << place(1e9, 1, 1.0);
    QTest::newRow("infinite") << place(1, std::numeric_limits<double>::infinity(), 1.0);
}

void DeviceTransformTest::unusablePlaceKeepsThePictureAndEnds()
{
    QFETCH(cJsonValue, record);
    publishBegin(record);
    QTRY_COMPARE(m_events->count(), 1);
    QCOMPARE(m_events->take(), QStringList({"DeviceTransformEnd"}));
    QCOMPARE(m_picture.pos(), QPointF(10, 20));
    QCOMPARE(m_picture.scale(), 2.0);
}

void DeviceTransformTest::secondBeginHasTheOneEnd()
{
    publishBegin(place(110, 220, 0.5));
    QTRY_VERIFY(m_picture.x() > 10);
    publishBegin(place(-50, 0, 1.0));
    QVERIFY(m_picture.x() > 10);
    waitLongEnough();
    QCOMPARE(m_events->take(), QStringList({"DeviceTransformEnd"}));
    QCOMPARE(m_picture.pos(), QPointF(-50, 0));
}

void DeviceTransformTest::homeEndsATransformWithoutAnEvent()
{
    publishBegin(place(110, 220, 0.5));
    m_transform->setHome(QPointF(1, 2), 3.0);
    waitLongEnough();
    QCOMPARE(m_events->take(), QStringList());
    QCOMPARE(m_picture.pos(), QPointF(1, 2));
    QCOMPARE(m_picture.scale(), 3.0);
}

void DeviceTransformTest::returningHomeEndsATransformWithoutAnEvent()
{
    publishBegin(place(110, 220, 0.5));
    QTRY_VERIFY(m_picture.x() > 10);
    m_transform->returnHome();
    QVERIFY(m_transform->isRunning());
    waitLongEnough();
    QCOMPARE(m_events->take(), QStringList());
    QCOMPARE(m_picture.pos(), QPointF(10, 20));
    QCOMPARE(m_picture.scale(), 2.0);
    // The next one has its event again.
    publishBegin(place(5, 5, 0.5));
    QTRY_COMPARE(m_events->count(), 1);
    QCOMPARE(m_events->take(), QStringList({"DeviceTransformEnd"}));
}

void DeviceTransformTest::deletionEndsATransformWithoutAnEvent()
{
    publishBegin(place(110, 220, 0.5));
    m_transform.reset();
    waitLongEnough();
    QCOMPARE(m_events->take(), QStringList());
}

VELTRANO_TEST_MAIN(DeviceTransformTest)
#include "DeviceTransformTest.moc"
