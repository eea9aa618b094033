#include "Samples.h"
#include "ServiceTable.h"

#include <MethodText.h>
#include <RecordingHost.h>
#include <TestCase.h>

#include <QMetaClassInfo>
#include <QMetaMethod>

using ServiceTable::Operation;
using ServiceTable::Outcome;
using ServiceTable::Service;

class ServiceClientsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void thereAreThirteenServices();

    void interfaceHasItsVersion_data() { addServices(); }
    void interfaceHasItsVersion();
    void interfaceHasItsOperationsInOrder_data() { addServices(); }
    void interfaceHasItsOperationsInOrder();
    void virtualFunctionsStandInOrder_data() { addServices(); }
    void virtualFunctionsStandInOrder();
    void clientAddsNothing_data() { addServices(); }
    void clientAddsNothing();
    void constructionRequiresTheServiceOnce_data() { addServices(); }
    void constructionRequiresTheServiceOnce();

    void memberSendsItsOperation_data() { addOperations(); }
    void memberSendsItsOperation();
    void memberOfAMissingServiceComesBackEmpty_data() { addOperations(); }
    void memberOfAMissingServiceComesBackEmpty();

private:
    static void addServices();
    static void addOperations();
    static const Service& currentService();
    static const Operation& currentOperation();
};

void ServiceClientsTest::initTestCase()
{
    TestCase::initTestCase();
    Samples::objects = std::make_unique<Samples::Objects>();
}

void ServiceClientsTest::cleanupTestCase()
{
    Samples::objects.reset();
    TestCase::cleanupTestCase();
}

void ServiceClientsTest::addServices()
{
    QTest::addColumn<int>("service");
    for (int i = 0; i < ServiceTable::services().size(); ++i)
        QTest::newRow(qPrintable(ServiceTable::services()[i].name)) << i;
}

void ServiceClientsTest::addOperations()
{
    QTest::addColumn<int>("service");
    QTest::addColumn<int>("operation");
    for (int i = 0; i < ServiceTable::services().size(); ++i) {
        const Service& service = ServiceTable::services()[i];
        for (int k = 0; k < service.operations.size(); ++k) {
            const QString row = service.name + QLatin1Char(' ') + service.operations[k].signature;
            QTest::newRow(qPrintable(row)) << i << k;
        }
    }
}

const Service& ServiceClientsTest::currentService()
{
    QFETCH(int, service);
    return ServiceTable::services()[service];
}

const Operation& ServiceClientsTest::currentOperation()
{
    QFETCH(int, operation);
    return currentService().operations[operation];
}

void ServiceClientsTest::thereAreThirteenServices()
{
    QSet<QString> names;
    int operations = 0;
    for (const Service& service : ServiceTable::services()) {
        names.insert(service.name);
        operations += service.operations.size();
        QCOMPARE(serviceInterface(service.name), service.interface);
    }
    QCOMPARE(names.size(), 13);
    QCOMPARE(operations, 156);
    QCOMPARE(ServiceTable::services().constFirst().operations.size(), 66);
}

void ServiceClientsTest::interfaceHasItsVersion()
{
    const QMetaObject* interface = currentService().interface;
    QCOMPARE(interface->superClass(), &QObject::staticMetaObject);
    QCOMPARE(interface->classInfoCount() - interface->classInfoOffset(), 1);
    const QMetaClassInfo info = interface->classInfo(interface->classInfoOffset());
    QCOMPARE(info.name(), "version");
    QCOMPARE(info.value(), "1");
}

void ServiceClientsTest::interfaceHasItsOperationsInOrder()
{
    const Service& service = currentService();
    QStringList expected;
    for (const Operation& operation : service.operations)
        expected.append(operation.signature);
    QStringList found;
    for (int i = service.interface->methodOffset(); i < service.interface->methodCount(); ++i) {
        const QMetaMethod method = service.interface->method(i);
        QCOMPARE(method.methodType(), QMetaMethod::Method);
        QCOMPARE(method.access(), QMetaMethod::Public);
        found.append(QLatin1String(method.typeName()) + QLatin1Char(' ') + methodText(method));
    }
    QCOMPARE(found, expected);
}

void ServiceClientsTest::virtualFunctionsStandInOrder()
{
#ifndef Q_PROCESSOR_X86_64
    QSKIP("pointers to members have another form here");
#endif
    const Service& service = currentService();
    const std::ptrdiff_t first = service.operations.constFirst().virtualOffset;
    for (int i = 0; i < service.operations.size(); ++i) {
        const Operation& operation = service.operations[i];
        QVERIFY2(operation.virtualOffset == first + i * std::ptrdiff_t(sizeof(void*)),
            qPrintable(operation.signature));
    }
}

void ServiceClientsTest::clientAddsNothing()
{
    const Service& service = currentService();
    QCOMPARE(service.client->superClass(), service.interface);
    QCOMPARE(service.client->methodCount(), service.interface->methodCount());
    QCOMPARE(service.client->propertyCount(), QObject::staticMetaObject.propertyCount());
    QCOMPARE(service.client->classInfoCount(), service.interface->classInfoCount());
}

void ServiceClientsTest::constructionRequiresTheServiceOnce()
{
    RecordingHost host;
    QVERIFY(currentService().makeClient());
    QCOMPARE(host.takeLog(), QStringList({QStringLiteral("require %1 1").arg(currentService().name)}));
}

void ServiceClientsTest::memberSendsItsOperation()
{
    const Service& service = currentService();
    const Operation& operation = currentOperation();
    RecordingHost host;
    const Outcome outcome = operation.call(host);

    // The host checks in addition that no used place follows an empty one.
    QCOMPARE(host.calls().size(), 1);
    const RecordedCall& call = host.calls().constFirst();
    QCOMPARE(call.service, service.name);
    QCOMPARE(call.operation, operation.name());
    QCOMPARE(call.typeNames, operation.tags);
    QCOMPARE(call.resultType, operation.resultType());
    QCOMPARE(host.takeLog(), QStringList({QStringLiteral("require %1 1").arg(service.name), call.full()}));

    QVERIFY(outcome.argumentsArrived);
    QVERIFY(outcome.resultCameBack);
    QVERIFY(outcome.outParametersWritten);
}

void ServiceClientsTest::memberOfAMissingServiceComesBackEmpty()
{
    const Service& service = currentService();
    const Operation& operation = currentOperation();
    RecordingHost host;
    host.remove(QLatin1String(service.name.toLatin1()));
    const ExpectedMessage line(QtCriticalMsg,
        QStringLiteral("Failed to call '%1' on service %2").arg(operation.name(), service.name));
    QVERIFY(operation.comesBackEmpty());
    QVERIFY(line.hasCome());
    QCOMPARE(host.calls().size(), 1);
}

VELTRANO_TEST_MAIN(ServiceClientsTest)
#include "ServiceClientsTest.moc"
