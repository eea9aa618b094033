#include "FeatureViewController.h"

#include <EventNames.h>
#include <FakeFeatureView.h>
#include <ServiceConstants.h>
#include <TestCase.h>

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QSignalSpy>

using State = FeatureViewController::State;

namespace {

void publishTransformEnd()
{
    IServiceMgr::instance()->publish(EventSources::MainUI, Events::DeviceTransformEnd);
}

} // namespace

class FeatureViewControllerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void openInitialisesThenActivates();
    void viewWithoutATransformIsOpenAtOnce();
    void transformEndMakesItOpen();
    void nothingOpensWithoutAViewOrACanvas();
    void refusedInitIsReportedAndClosed();
    void refusedActivationClosesAgain();
    void closeDeactivatesThenTakesDown();
    void youngViewIsNotTakenDownBeforeItsPanesAreIn();
    void reopeningWaitsForThePanesToGo();
    void lastRequestWhileClosingCounts();
    void closeWhileClosingForgetsTheRequest();
    void otherDeviceClosesAndReopens();
    void otherViewClosesFirst();
    void sameViewAndDeviceIsLeftAlone();
    void closeNowDoesNotWait();
    void closeDuringInitIsDoneAfterwards();
    void forgottenViewIsTakenDownAtOnce();
    void forgottenRequestIsNotOpened();
    void deletedViewLeavesTheCanvasFree();
    void activateReachesTheOpenView();

private:
    bool waitForClosed() const;

    QScopedPointer<QGraphicsScene> m_scene;
    QScopedPointer<QGraphicsView> m_canvas;
    QScopedPointer<FeatureViewController> m_controller;
    QScopedPointer<FakeFeatureView> m_view;
};

void FeatureViewControllerTest::init()
{
    m_scene.reset(new QGraphicsScene);
    m_canvas.reset(new QGraphicsView(m_scene.get()));
    m_controller.reset(new FeatureViewController);
    m_controller->setCanvas(m_canvas.get());
    m_view.reset(new FakeFeatureView);
}

void FeatureViewControllerTest::cleanup()
{
    m_controller.reset();
    m_view.reset();
    m_canvas.reset();
    m_scene.reset();
}

bool FeatureViewControllerTest::waitForClosed() const
{
    return QTest::qWaitFor([this] { return m_controller->state() == State::Closed; });
}

void FeatureViewControllerTest::openInitialisesThenActivates()
{
    QVERIFY(m_controller->open(m_view.get(), "M1"));
    QCOMPARE(m_view->takeLog(), QStringList({"init fake_view M1", "activate fake_view M1"}));
    QCOMPARE(m_view->initCanvas, m_canvas.get());
    QCOMPARE(m_controller->view(), m_view.get());
    QCOMPARE(m_controller->deviceModel(), QString("M1"));
}

void FeatureViewControllerTest::viewWithoutATransformIsOpenAtOnce()
{
    m_controller->open(m_view.get(), "M1");
    QCOMPARE(m_controller->state(), State::Open);
}

void FeatureViewControllerTest::transformEndMakesItOpen()
{
    m_view->asksForTransform = true;
    m_controller->open(m_view.get(), "M1");
    QCOMPARE(m_controller->state(), State::Opening);
    publishTransformEnd();
    QCOMPARE(m_controller->state(), State::Open);
}

void FeatureViewControllerTest::nothingOpensWithoutAViewOrACanvas()
{
    QVERIFY(!m_controller->open(nullptr, "M1"));
    m_controller->setCanvas(nullptr);
    QVERIFY(!m_controller->open(m_view.get(), "M1"));
    QCOMPARE(m_controller->state(), State::Closed);
    QCOMPARE(m_view->takeLog(), QStringList());
}

void FeatureViewControllerTest::refusedInitIsReportedAndClosed()
{
    QSignalSpy failures(m_controller.get(), SIGNAL(failed(QString)));
    m_view->initAnswer = false;
    QVERIFY(!m_controller->open(m_view.get(), "M1"));
    QCOMPARE(m_view->takeLog(), QStringList({"init fake_view M1"}));
    QCOMPARE(m_controller->state(), State::Closed);
    QCOMPARE(failures.size(), 1);
    QVERIFY(failures.constFirst().constFirst().toString().contains("fake_view tooltip"));
    m_view->initAnswer = true;
    QVERIFY(m_controller->open(m_view.get(), "M1"));
}

void FeatureViewControllerTest::refusedActivationClosesAgain()
{
    QSignalSpy failures(m_controller.get(), SIGNAL(failed(QString)));
    m_view->activateAnswer = false;
    QVERIFY(!m_controller->open(m_view.get(), "M1"));
    QCOMPARE(failures.size(), 1);
    QVERIFY(waitForClosed());
    QCOMPARE(m_view->takeLog().constLast(), QString("deinit fake_view M1"));
}

void FeatureViewControllerTest::closeDeactivatesThenTakesDown()
{
    m_controller->open(m_view.get(), "M1");
    m_view->takeLog();
    m_controller->close();
    QCOMPARE(m_controller->state(), State::Closing);
    QVERIFY(waitForClosed());
    QCOMPARE(m_view->takeLog(), QStringList({"deactivate fake_view M1", "deinit fake_view M1"}));
    QVERIFY(m_view->sinceDeinit.elapsed() > ServiceConstants::PaneTime);
    QVERIFY(!m_controller->view());
    m_controller->close();
    QCOMPARE(m_controller->state(), State::Closed);
}

void FeatureViewControllerTest::youngViewIsNotTakenDownBeforeItsPanesAreIn()
{
    m_controller->open(m_view.get(), "M1");
    m_controller->close();
    QVERIFY(waitForClosed());
    QVERIFY(m_view->ageAtDeinit > ServiceConstants::PaneTime);
}

void FeatureViewControllerTest::reopeningWaitsForThePanesToGo()
{
    m_controller->open(m_view.get(), "M1");
    m_controller->close();
    QTRY_COMPARE(m_view->log.size(), 4);
    m_view->takeLog();
    qint64 pause = 0;
    m_view->onInit = [&] {
        pause = m_view->sinceDeinit.elapsed();
    };
    QVERIFY(m_controller->open(m_view.get(), "M1"));
    QVERIFY(m_controller->isWanted(m_view.get()));
    QCOMPARE(m_view->takeLog(), QStringList());
    QTRY_COMPARE(m_controller->state(), State::Open);
    QCOMPARE(m_view->takeLog(), QStringList({"init fake_view M1", "activate fake_view M1"}));
    QVERIFY(pause > ServiceConstants::PaneTime);
}

void FeatureViewControllerTest::lastRequestWhileClosingCounts()
{
    m_controller->open(m_view.get(), "M1");
    m_controller->close();
    m_controller->open(m_view.get(), "M2");
    m_controller->open(m_view.get(), "M3");
    QTRY_COMPARE(m_controller->deviceModel(), QString("M3"));
    QVERIFY(!m_view->log.join(' ').contains("M2"));
}

void FeatureViewControllerTest::closeWhileClosingForgetsTheRequest()
{
    m_controller->open(m_view.get(), "M1");
    m_controller->close();
    m_controller->open(m_view.get(), "M1");
    m_controller->close();
    QVERIFY(!m_controller->isWanted(m_view.get()));
    QVERIFY(waitForClosed());
    QCOMPARE(m_view->log.filter("init fake_view").filter(QRegularExpression("^init")).size(), 1);
}

void FeatureViewControllerTest::otherDeviceClosesAndReopens()
{
    m_controller->open(m_view.get(), "M1");
    QVERIFY(m_controller->open(m_view.get(), "M2"));
    QCOMPARE(m_controller->state(), State::Closing);
    QTRY_COMPARE(m_controller->state(), State::Open);
    QCOMPARE(m_view->takeLog(),
        QStringList({"init fake_view M1", "activate fake_view M1", "deactivate fake_view M1",
            "deinit fake_view M1", "init fake_view M2", "activate fake_view M2"}));
}

void FeatureViewControllerTest::otherViewClosesFirst()
{
    FakeFeatureView other("other");
    m_controller->open(m_view.get(), "M1");
    m_controller->open(&other, "M1");
    QVERIFY(!m_controller->isWanted(m_view.get()));
    QTRY_COMPARE(m_controller->view(), &other);
    QCOMPARE(m_view->log.constLast(), QString("deinit fake_view M1"));
    m_controller->closeNow();
}

void FeatureViewControllerTest::sameViewAndDeviceIsLeftAlone()
{
    m_controller->open(m_view.get(), "M1");
    m_view->takeLog();
    QVERIFY(m_controller->open(m_view.get(), "M1"));
    QCOMPARE(m_controller->state(), State::Open);
    QCOMPARE(m_view->takeLog(), QStringList());
}

void FeatureViewControllerTest::closeNowDoesNotWait()
{
    m_controller->open(m_view.get(), "M1");
    m_view->takeLog();
    m_controller->closeNow();
    QCOMPARE(m_view->takeLog(), QStringList({"deactivate fake_view M1", "deinit fake_view M1"}));
    QCOMPARE(m_controller->state(), State::Closed);
    m_controller->closeNow();
    QCOMPARE(m_view->takeLog(), QStringList());
}

void FeatureViewControllerTest::closeDuringInitIsDoneAfterwards()
{
    m_view->onInit = [this] {
        m_controller->close();
    };
    m_controller->open(m_view.get(), "M1");
    QCOMPARE(m_controller->state(), State::Closing);
    QVERIFY(waitForClosed());
    QCOMPARE(m_view->takeLog(),
        QStringList({"init fake_view M1", "activate fake_view M1", "deactivate fake_view M1",
            "deinit fake_view M1"}));
}

void FeatureViewControllerTest::forgottenViewIsTakenDownAtOnce()
{
    FakeFeatureView other("other");
    m_controller->open(m_view.get(), "M1");
    m_controller->open(&other, "M2");
    m_controller->forget(m_view.get());
    QCOMPARE(m_view->log.constLast(), QString("deinit fake_view M1"));
    QCOMPARE(m_controller->view(), &other);
    QCOMPARE(m_controller->deviceModel(), QString("M2"));
    m_controller->forget(nullptr);
    m_controller->forget(&other);
    QCOMPARE(m_controller->state(), State::Closed);
}

void FeatureViewControllerTest::forgottenRequestIsNotOpened()
{
    FakeFeatureView other("other");
    m_controller->open(m_view.get(), "M1");
    m_controller->open(&other, "M1");
    m_controller->forget(&other);
    QVERIFY(waitForClosed());
    QCOMPARE(other.log, QStringList());
}

void FeatureViewControllerTest::deletedViewLeavesTheCanvasFree()
{
    m_controller->open(m_view.get(), "M1");
    m_view.reset();
    QCOMPARE(m_controller->state(), State::Closed);
    FakeFeatureView other("other");
    QVERIFY(m_controller->open(&other, "M1"));
    m_controller->closeNow();
}

void FeatureViewControllerTest::activateReachesTheOpenView()
{
    QVERIFY(!m_controller->activate());
    m_controller->open(m_view.get(), "M1");
    m_view->takeLog();
    QVERIFY(m_controller->activate());
    QCOMPARE(m_view->takeLog(), QStringList({"activate fake_view M1"}));
    m_view->activateAnswer = false;
    QVERIFY(!m_controller->activate());
    m_controller->close();
    QVERIFY(!m_controller->activate());
}

VELTRANO_TEST_MAIN(FeatureViewControllerTest)
#include "FeatureViewControllerTest.moc"
