#include "ServiceMgrObjects.h"

#include <cServiceMgr.h>
#include <TestCase.h>

#include <memory>

namespace {

const QString Source = QStringLiteral("Test_Events");
const QString Plain = QStringLiteral("Plain");

} // namespace

/// Subscriptions and the delivery of events.
class ServiceMgrEventsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void subscribersAreCalledInTheirOrder();
    void eventReachesItsSourceOnly();
    void unsubscribedIsNotCalled();
    void unsubscribingWhatIsNotSubscribedDoesNothing();
    void doubleSubscriberIsCalledTwice();
    void resubscriberStandsLast();
    void absentHandlerIsPassedOver();
    void handlerNameIsPrefixAndEvent();
    void handlerIsChosenByParameters();
    void typesAreSpelledInManyWays_data();
    void typesAreSpelledInManyWays();
    void wrongParametersAreNotDelivered();
    void tenParametersArrive();
    void resultOfAHandlerIsDropped();
    void deletedSubscriberIsPassedOver();
    void handlerMayPublish();
    void handlerMayPublishTheSameEvent();
    void handlerMaySubscribeAnother();
    void handlerMaySubscribeItselfAgain();
    void handlerMayUnsubscribeItself();
    void handlerMayUnsubscribeAnother();
    void handlerMayDeleteItself();
    void handlerMayDeleteAnother();
    void handlerMayDeleteTheOneBefore();
    void reSubscribedDuringDeliveryWaitsForTheNext();
    void handlerMayCallServices();
    void manySubscribersComeAndGo();

private:
    std::unique_ptr<TestSubscriber> subscriber(const QString& name);
    void publish(const QString& event, QGenericArgument value = QGenericArgument());
    QStringList takeEvents() { return std::exchange(m_events, {}); }

    std::unique_ptr<cServiceMgr> m_manager;
    std::unique_ptr<TestSubscriber> m_a;
    std::unique_ptr<TestSubscriber> m_b;
    std::unique_ptr<TestSubscriber> m_c;
    QStringList m_events;
};

void ServiceMgrEventsTest::init()
{
    m_manager = std::make_unique<cServiceMgr>();
    IServiceMgr::setInstance(m_manager.get());
    m_events.clear();
    m_a = subscriber("a");
    m_b = subscriber("b");
    m_c = subscriber("c");
}

void ServiceMgrEventsTest::cleanup()
{
    m_a.reset();
    m_b.reset();
    m_c.reset();
    IServiceMgr::setInstance(nullptr);
    m_manager.reset();
}

std::unique_ptr<TestSubscriber> ServiceMgrEventsTest::subscriber(const QString& name)
{
    auto result = std::make_unique<TestSubscriber>(name, m_events);
    m_manager->subscribe(Source, result.get(), "on");
    return result;
}

void ServiceMgrEventsTest::publish(const QString& event, QGenericArgument value)
{
    IServiceMgr::instance()->publish(Source, event, value);
}

void ServiceMgrEventsTest::subscribersAreCalledInTheirOrder()
{
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::eventReachesItsSourceOnly()
{
    m_manager->subscribe("Other_Events", m_b.get(), "on");
    IServiceMgr::instance()->publish("Other_Events", Plain);
    QCOMPARE(takeEvents(), QStringList("b: Plain"));
    IServiceMgr::instance()->publish("test_events", Plain);
    IServiceMgr::instance()->publish(QString(), Plain);
    QCOMPARE(takeEvents(), QStringList());
    m_manager->unsubscribe("Other_Events", m_b.get());
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::unsubscribedIsNotCalled()
{
    m_manager->unsubscribe(Source, m_b.get());
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::unsubscribingWhatIsNotSubscribedDoesNothing()
{
    QObject stranger;
    m_manager->unsubscribe(Source, &stranger);
    m_manager->unsubscribe("Missing", m_a.get());
    m_manager->unsubscribe(Source, m_a.get());
    m_manager->unsubscribe(Source, m_a.get());
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"b: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::doubleSubscriberIsCalledTwice()
{
    m_manager->subscribe(Source, m_a.get(), "on");
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain", "a: Plain"}));
    m_manager->unsubscribe(Source, m_a.get());
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"b: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::resubscriberStandsLast()
{
    m_manager->unsubscribe(Source, m_a.get());
    m_manager->subscribe(Source, m_a.get(), "on");
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"b: Plain", "c: Plain", "a: Plain"}));
}

void ServiceMgrEventsTest::absentHandlerIsPassedOver()
{
    QObject without;
    m_manager->subscribe(Source, &without, "on");
    publish("Missing");
    publish(QString());
    QCOMPARE(takeEvents(), QStringList());
    publish(Plain);
    QCOMPARE(takeEvents().size(), 3);
}

void ServiceMgrEventsTest::handlerNameIsPrefixAndEvent()
{
    TestSubscriber when("when", m_events);
    m_manager->subscribe("Other", &when, "when");
    IServiceMgr::instance()->publish("Other", Plain);
    QCOMPARE(takeEvents(), QStringList("when: when Plain"));
    // The case of the event's first letter counts.
    m_manager->unsubscribe(Source, m_b.get());
    m_manager->unsubscribe(Source, m_c.get());
    publish("plain");
    publish(Plain);
    publish("PLAIN");
    QCOMPARE(takeEvents(), QStringList({"a: plain", "a: Plain"}));
}

void ServiceMgrEventsTest::handlerIsChosenByParameters()
{
    m_b.reset();
    m_c.reset();
    const QString text = "x";
    const int number = 3;
    publish("Overloaded", Q_ARG(QString, text));
    publish("Overloaded", Q_ARG(int, number));
    publish("Overloaded");
    QCOMPARE(takeEvents(), QStringList({"a: Overloaded QString x", "a: Overloaded int 3", "a: Overloaded"}));
}

void ServiceMgrEventsTest::typesAreSpelledInManyWays_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char* type : {"QString", "const QString", "const QString&", "QString &", "QString const &"})
        QTest::newRow(type) << QByteArray(type);
}

void ServiceMgrEventsTest::typesAreSpelledInManyWays()
{
    QFETCH(QByteArray, type);
    m_b.reset();
    m_c.reset();
    const QString text = "x";
    publish("Overloaded", QGenericArgument(type, &text));
    QCOMPARE(takeEvents(), QStringList("a: Overloaded QString x"));
}

void ServiceMgrEventsTest::wrongParametersAreNotDelivered()
{
    const double real = 1.0;
    publish("Overloaded", Q_ARG(double, real));
    publish(Plain, Q_ARG(double, real));
    publish("Ten");
    QCOMPARE(takeEvents(), QStringList());
}

void ServiceMgrEventsTest::tenParametersArrive()
{
    m_b.reset();
    m_c.reset();
    cJsonValue record;
    record["key"] = 5;
    const int one = 1;
    const QString two = "two";
    const double three = 3.5;
    const bool four = true;
    const int six = 6;
    const int seven = 7;
    const int eight = 8;
    const QString nine = "nine";
    const quint32 ten = 4'000'000'000U;
    IServiceMgr::instance()->publish(Source, "Ten", Q_ARG(int, one), Q_ARG(QString, two),
        Q_ARG(double, three), Q_ARG(bool, four), Q_ARG(cJsonValue, record), Q_ARG(int, six),
        Q_ARG(int, seven), Q_ARG(int, eight), Q_ARG(QString, nine), Q_ARG(quint32, ten));
    QCOMPARE(takeEvents(), QStringList("a: Ten 1 two 3.5 1 5 6 7 8 nine 4000000000"));
}

void ServiceMgrEventsTest::resultOfAHandlerIsDropped()
{
    publish("Answered");
    QCOMPARE(takeEvents(), QStringList({"a: Answered", "b: Answered", "c: Answered"}));
}

void ServiceMgrEventsTest::deletedSubscriberIsPassedOver()
{
    m_b.reset();
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "c: Plain"}));
    // Another object may come to stand where the deleted one stood.
    std::unique_ptr<TestSubscriber> unsubscribed = std::make_unique<TestSubscriber>("d", m_events);
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "c: Plain"}));
    m_manager->subscribe(Source, unsubscribed.get(), "on");
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "c: Plain", "d: Plain"}));
}

void ServiceMgrEventsTest::handlerMayPublish()
{
    m_b->reaction = [this] {
        m_b->reaction = nullptr;
        publish("plain");
    };
    publish(Plain);
    QCOMPARE(
        takeEvents(), QStringList({"a: Plain", "b: Plain", "a: plain", "b: plain", "c: plain", "c: Plain"}));
}

void ServiceMgrEventsTest::handlerMayPublishTheSameEvent()
{
    m_a->reaction = [this] {
        m_a->reaction = nullptr;
        publish(Plain);
    };
    publish(Plain);
    QCOMPARE(
        takeEvents(), QStringList({"a: Plain", "a: Plain", "b: Plain", "c: Plain", "b: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::handlerMaySubscribeAnother()
{
    std::unique_ptr<TestSubscriber> late;
    m_a->reaction = [&] {
        if (!late)
            late = subscriber("late");
    };
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain"}));
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain", "late: Plain"}));
}

void ServiceMgrEventsTest::handlerMaySubscribeItselfAgain()
{
    // Often enough that the list of subscriptions has to move.
    m_a->reaction = [&] {
        m_a->reaction = nullptr;
        for (int i = 0; i < 100; ++i)
            m_manager->subscribe(Source, m_a.get(), "on");
    };
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain"}));
    publish(Plain);
    QCOMPARE(takeEvents().size(), 103);
}

void ServiceMgrEventsTest::handlerMayUnsubscribeItself()
{
    m_a->reaction = [this] {
        m_manager->unsubscribe(Source, m_a.get());
    };
    publish(Plain);
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain", "b: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::handlerMayUnsubscribeAnother()
{
    m_a->reaction = [this] {
        m_manager->unsubscribe(Source, m_b.get());
    };
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::handlerMayDeleteItself()
{
    m_b->reaction = [this] {
        m_b.reset();
    };
    publish(Plain);
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain", "a: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::handlerMayDeleteAnother()
{
    m_a->reaction = [this] {
        m_b.reset();
        m_c.reset();
    };
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList("a: Plain"));
}

void ServiceMgrEventsTest::handlerMayDeleteTheOneBefore()
{
    m_manager->subscribe(Source, m_a.get(), "on");
    m_b->reaction = [this] {
        m_b->reaction = nullptr;
        m_a.reset();
        publish("plain");
    };
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "b: plain", "c: plain", "c: Plain"}));
}

void ServiceMgrEventsTest::reSubscribedDuringDeliveryWaitsForTheNext()
{
    m_a->reaction = [this] {
        m_a->reaction = nullptr;
        m_manager->unsubscribe(Source, m_c.get());
        m_manager->subscribe(Source, m_c.get(), "on");
    };
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain"}));
    publish(Plain);
    QCOMPARE(takeEvents(), QStringList({"a: Plain", "b: Plain", "c: Plain"}));
}

void ServiceMgrEventsTest::handlerMayCallServices()
{
    TestService service;
    m_manager->registerService(&service);
    m_a->reaction = [&] {
        IServiceMgr::instance()->invoke("Test.Service", "nothing");
        m_manager->unregisterService(&service);
    };
    publish(Plain);
    publish(Plain);
    QCOMPARE(service.calls(), QStringList("nothing"));
}

void ServiceMgrEventsTest::manySubscribersComeAndGo()
{
    for (int i = 0; i < 1000; ++i) {
        const std::unique_ptr<TestSubscriber> passing = subscriber("passing");
        publish(Plain);
        QCOMPARE(takeEvents().size(), 4);
        if (i % 2)
            m_manager->unsubscribe(Source, passing.get());
    }
    publish(Plain);
    QCOMPARE(takeEvents().size(), 3);
}

VELTRANO_TEST_MAIN(ServiceMgrEventsTest)
#include "ServiceMgrEventsTest.moc"
