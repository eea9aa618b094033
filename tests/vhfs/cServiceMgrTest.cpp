#include "ServiceMgrObjects.h"

#include <cServiceMgr.h>
#include <TestCase.h>

#include <memory>

namespace {

template<typename T>
QGenericArgument tag(const char* type, const T& value)
{
    return QGenericArgument(type, &value);
}

template<typename T>
QGenericReturnArgument resultTag(const char* type, T& value)
{
    return QGenericReturnArgument(type, &value);
}

const QString Name = QStringLiteral("Test.Service");

} // namespace

/// The registry of services and the calls to them.
class cServiceMgrTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void processHasOneManager();
    void serviceIsFoundByItsClassInformation();
    void classInformationIsInherited();
    void objectWithoutNameIsNoService();
    void secondServiceOfANameIsRefused();
    void sameServiceTwiceIsOne();
    void deletedServiceIsGone();
    void deletedServiceMakesPlaceForAnother();
    void unregisteringLeavesOthersAlone();
    void serviceMayUnregisterInADestructorOfABase();
    void nullIsIgnored();
    void otherVersionIsReported();
    void requiringWhatIsMissingSaysNothing();

    void missingServiceAndOperationAreNotCalled();
    void namesAreCaseSensitive();
    void argumentsArriveInTheirPlaces();
    void typesAreSpelledInManyWays_data();
    void typesAreSpelledInManyWays();
    void namesOfOneTypeAreTheSame_data();
    void namesOfOneTypeAreTheSame();
    void overloadIsChosenByTypes();
    void overloadIsChosenByNumber();
    void overriddenOperationIsThatOfTheClassItself();
    void wrongArgumentsAreNotDelivered_data();
    void wrongArgumentsAreNotDelivered();
    void argumentBehindAnEmptyPlaceDoesNotCount();
    void defaultArgumentsMayBeLeftOut();
    void outParameterIsWritten();
    void resultsOfAllKinds();
    void wrongResultIsNotDelivered();
    void resultMayBeDropped();
    void enumerationsAndRecordsPass();
    void signalsAreNoOperations();
    void plainMembersAreNoOperations();
    void callsMayNest();
    void serviceMayUnregisterInItsOwnCall();
    void serviceMayDeleteItselfInItsOwnCall();
    void whatWasNotFoundIsNotFoundAgain();

private:
    bool call(const QString& operation);

    std::unique_ptr<cServiceMgr> m_manager;
    std::unique_ptr<TestService> m_service;
};

void cServiceMgrTest::init()
{
    m_manager = std::make_unique<cServiceMgr>();
    m_service = std::make_unique<TestService>();
    IServiceMgr::setInstance(m_manager.get());
    m_manager->registerService(m_service.get());
}

void cServiceMgrTest::cleanup()
{
    IServiceMgr::setInstance(nullptr);
    m_service.reset();
    m_manager.reset();
}

bool cServiceMgrTest::call(const QString& operation)
{
    return IServiceMgr::instance()->invoke(Name, operation);
}

void cServiceMgrTest::processHasOneManager()
{
    QCOMPARE(IServiceMgr::instance(), m_manager.get());
    QCOMPARE(IServiceMgr::setInstance(nullptr), m_manager.get());
    IServiceMgr* own = IServiceMgr::instance();
    if (!own)
        QFAIL("there is no manager");
    QVERIFY(own != m_manager.get());
    QCOMPARE(IServiceMgr::instance(), own);
    QVERIFY(!own->hasService(Name));
}

void cServiceMgrTest::serviceIsFoundByItsClassInformation()
{
    QVERIFY(m_manager->hasService(Name));
    QVERIFY(call("nothing"));
    QCOMPARE(m_service->calls(), QStringList("nothing"));
    m_manager->unregisterService(m_service.get());
    QVERIFY(!m_manager->hasService(Name));
    QVERIFY(!call("nothing"));
    m_manager->registerService(m_service.get());
    QVERIFY(call("nothing"));
}

void cServiceMgrTest::classInformationIsInherited()
{
    m_manager->unregisterService(m_service.get());
    DerivedService derived;
    m_manager->registerService(&derived);
    QVERIFY(call("nothing"));
    QCOMPARE(derived.calls(), QStringList("nothing"));
}

void cServiceMgrTest::objectWithoutNameIsNoService()
{
    QObject object;
    const ExpectedMessage message(
        QtWarningMsg, "A QObject is no service: its class has no class information \"service\"");
    m_manager->registerService(&object);
    QVERIFY(!m_manager->hasService(QString()));
}

void cServiceMgrTest::secondServiceOfANameIsRefused()
{
    TestService second;
    {
        const ExpectedMessage message(QtWarningMsg, "Service Test.Service is registered already");
        m_manager->registerService(&second);
    }
    QVERIFY(call("nothing"));
    QCOMPARE(m_service->calls(), QStringList("nothing"));
    m_manager->unregisterService(&second);
    QVERIFY(call("nothing"));
    QCOMPARE(second.calls(), QStringList());
}

void cServiceMgrTest::sameServiceTwiceIsOne()
{
    m_manager->registerService(m_service.get());
    QVERIFY(call("nothing"));
    m_manager->unregisterService(m_service.get());
    QVERIFY(!call("nothing"));
}

void cServiceMgrTest::deletedServiceIsGone()
{
    QVERIFY(call("nothing"));
    m_service.reset();
    QVERIFY(!m_manager->hasService(Name));
    QVERIFY(!call("nothing"));
}

void cServiceMgrTest::deletedServiceMakesPlaceForAnother()
{
    m_service.reset();
    TestService other;
    m_manager->registerService(&other);
    QVERIFY(call("nothing"));
    QCOMPARE(other.calls(), QStringList("nothing"));
}

void cServiceMgrTest::unregisteringLeavesOthersAlone()
{
    OtherService other;
    m_manager->registerService(&other);
    m_manager->unregisterService(&other);
    QVERIFY(!m_manager->hasService("Other"));
    m_manager->unregisterService(&other);
    QVERIFY(m_manager->hasService(Name));
}

void cServiceMgrTest::serviceMayUnregisterInADestructorOfABase()
{
    auto service = std::make_unique<SelfUnregisteringService>();
    m_manager->registerService(service.get());
    QVERIFY(m_manager->hasService("SelfUnregistering"));
    bool wasKnown = true;
    service->wasKnownAtTheEnd = &wasKnown;
    service.reset();
    QVERIFY(!wasKnown);
}

void cServiceMgrTest::nullIsIgnored()
{
    m_manager->registerService(nullptr);
    m_manager->unregisterService(nullptr);
    m_manager->subscribe("source", nullptr, "on");
    m_manager->unsubscribe("source", nullptr);
    m_manager->publish("source", "Event", {}, {}, {}, {}, {}, {}, {}, {}, {}, {});
    QVERIFY(m_manager->hasService(Name));
}

void cServiceMgrTest::otherVersionIsReported()
{
    m_manager->requireService(Name, "1");
    const ExpectedMessage message(QtWarningMsg, "Service Test.Service has version 1, wanted is 2");
    m_manager->requireService(Name, "2");
}

void cServiceMgrTest::requiringWhatIsMissingSaysNothing()
{
    m_manager->requireService("Missing", "1");
    m_service.reset();
    m_manager->requireService(Name, "7");
    QVERIFY(!m_manager->hasService("Missing"));
}

void cServiceMgrTest::missingServiceAndOperationAreNotCalled()
{
    QVERIFY(!IServiceMgr::instance()->invoke("Missing", "nothing"));
    QVERIFY(!IServiceMgr::instance()->invoke(QString(), QString()));
    QVERIFY(!call("missing"));
    QVERIFY(!call(QString()));
    QString result = "before";
    QVERIFY(!IServiceMgr::instance()->invoke("Missing", "text", resultTag("QString", result)));
    QCOMPARE(result, QString("before"));
    QCOMPARE(m_service->calls(), QStringList());
}

void cServiceMgrTest::namesAreCaseSensitive()
{
    QVERIFY(!IServiceMgr::instance()->invoke("test.service", "nothing"));
    QVERIFY(!call("Nothing"));
    QCOMPARE(m_service->calls(), QStringList());
}

void cServiceMgrTest::argumentsArriveInTheirPlaces()
{
    const int values[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    const auto place = [&values](int i) {
        return tag("int", values[i]);
    };
    IServiceMgr* manager = IServiceMgr::instance();
    QVERIFY(manager->invoke(Name, "take"));
    QVERIFY(manager->invoke(Name, "take", place(0)));
    QVERIFY(manager->invoke(Name, "take", place(0), place(1)));
    QVERIFY(manager->invoke(Name, "take", place(0), place(1), place(2)));
    QVERIFY(manager->invoke(Name, "take", place(0), place(1), place(2), place(3)));
    QVERIFY(manager->invoke(Name, "take", place(0), place(1), place(2), place(3), place(4)));
    QVERIFY(manager->invoke(Name, "take", place(0), place(1), place(2), place(3), place(4), place(5)));
    QVERIFY(
        manager->invoke(Name, "take", place(0), place(1), place(2), place(3), place(4), place(5), place(6)));
    QVERIFY(manager->invoke(
        Name, "take", place(0), place(1), place(2), place(3), place(4), place(5), place(6), place(7)));
    QVERIFY(manager->invoke(Name, "take", place(0), place(1), place(2), place(3), place(4), place(5),
        place(6), place(7), place(8)));
    QVERIFY(manager->invoke(Name, "take", place(0), place(1), place(2), place(3), place(4), place(5),
        place(6), place(7), place(8), place(9)));
    QCOMPARE(m_service->calls(),
        QStringList({"take", "take 1", "take 1 2", "take 1 2 3", "take 1 2 3 4", "take 1 2 3 4 5",
            "take 1 2 3 4 5 6", "take 1 2 3 4 5 6 7", "take 1 2 3 4 5 6 7 8", "take 1 2 3 4 5 6 7 8 9",
            "take 1 2 3 4 5 6 7 8 9 10"}));
}

void cServiceMgrTest::typesAreSpelledInManyWays_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QByteArray>("type");
    for (const char* operation : {"byValue", "byConstReference", "byReference"}) {
        for (const char* type : {"QString", "const QString", "const QString&", "const QString &", "QString&",
                 "QString &", " QString ", "QString const&"})
            QTest::addRow("%s as \"%s\"", operation, type) << QString(operation) << QByteArray(type);
    }
}

void cServiceMgrTest::typesAreSpelledInManyWays()
{
    QFETCH(QString, operation);
    QFETCH(QByteArray, type);
    const QString value = "value";
    QVERIFY(IServiceMgr::instance()->invoke(Name, operation, tag(type, value)));
    // Once more, from what was found before.
    QVERIFY(IServiceMgr::instance()->invoke(Name, operation, tag(type, value)));
    QCOMPARE(m_service->calls(), QStringList({operation + " value", operation + " value"}));
}

void cServiceMgrTest::namesOfOneTypeAreTheSame_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char* type : {"quint32", "uint", "unsigned int", "unsigned", "const quint32&"})
        QTest::newRow(type) << QByteArray(type);
}

void cServiceMgrTest::namesOfOneTypeAreTheSame()
{
    QFETCH(QByteArray, type);
    const quint32 value = 5;
    quint32 result = 0;
    QVERIFY(IServiceMgr::instance()->invoke(Name, "twice", resultTag(type, result), tag(type, value)));
    QCOMPARE(result, 10U);
    QVERIFY(!IServiceMgr::instance()->invoke(Name, "twice", tag("int", value)));
}

void cServiceMgrTest::overloadIsChosenByTypes()
{
    const int integer = 1;
    const double real = 2.5;
    const QString text = "x";
    IServiceMgr* manager = IServiceMgr::instance();
    QVERIFY(manager->invoke(Name, "overloaded", tag("int", integer)));
    QVERIFY(manager->invoke(Name, "overloaded", tag("double", real)));
    QVERIFY(manager->invoke(Name, "overloaded", tag("const QString", text)));
    QVERIFY(manager->invoke(Name, "overloaded", tag("QString", text), tag("int", integer)));
    QCOMPARE(m_service->calls(),
        QStringList({"overloaded int 1", "overloaded double 2.5", "overloaded QString x",
            "overloaded QString x int 1"}));
}

void cServiceMgrTest::overloadIsChosenByNumber()
{
    const int value = 4;
    QVERIFY(IServiceMgr::instance()->invoke(Name, "take", tag("int", value)));
    QVERIFY(IServiceMgr::instance()->invoke(Name, "take"));
    QVERIFY(IServiceMgr::instance()->invoke(Name, "take", tag("int", value)));
    QCOMPARE(m_service->calls(), QStringList({"take 4", "take", "take 4"}));
}

void cServiceMgrTest::overriddenOperationIsThatOfTheClassItself()
{
    m_manager->unregisterService(m_service.get());
    DerivedService derived;
    m_manager->registerService(&derived);
    const QString value = "value";
    QVERIFY(IServiceMgr::instance()->invoke(Name, "byValue", tag("QString", value)));
    QVERIFY(IServiceMgr::instance()->invoke(Name, "virtualOperation"));
    QCOMPARE(derived.calls(), QStringList({"derived byValue value", "derived virtualOperation"}));
}

void cServiceMgrTest::wrongArgumentsAreNotDelivered_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QList<QByteArray>>("types");
    const auto row = [](const char* name, const QString& operation, const QList<QByteArray>& types) {
        QTest::newRow(name) << operation << types;
    };
    row("wrong type", "byValue", {"int"});
    row("pointer for a value", "byValue", {"QString*"});
    row("unknown type", "byValue", {"NoSuchType"});
    row("other case", "byValue", {"qstring"});
    row("too few", "byValue", {});
    row("too many", "byValue", {"QString", "QString"});
    row("too many for none", "nothing", {"QString"});
    row("right number in the wrong order", "overloaded", {"int", "QString"});
    row("value for a pointer", "byPointer", {"QObject"});
    row("broken tag", "byValue", {"const &*<"});
}

void cServiceMgrTest::wrongArgumentsAreNotDelivered()
{
    QFETCH(QString, operation);
    QFETCH(QList<QByteArray>, types);
    const QString value = "value";
    const auto place = [&](int i) {
        return i < types.size() ? tag(types[i], value) : QGenericArgument();
    };
    QVERIFY(!IServiceMgr::instance()->invoke(Name, operation, place(0), place(1), place(2)));
    QCOMPARE(m_service->calls(), QStringList());
}

void cServiceMgrTest::argumentBehindAnEmptyPlaceDoesNotCount()
{
    const int value = 4;
    QVERIFY(IServiceMgr::instance()->invoke(Name, "take", QGenericArgument(), tag("int", value)));
    QVERIFY(IServiceMgr::instance()->invoke(
        Name, "take", tag("int", value), QGenericArgument("", nullptr), tag("int", value)));
    QCOMPARE(m_service->calls(), QStringList({"take", "take 4"}));
}

void cServiceMgrTest::defaultArgumentsMayBeLeftOut()
{
    const int value = 4;
    QVERIFY(IServiceMgr::instance()->invoke(Name, "withDefault", tag("int", value)));
    QVERIFY(IServiceMgr::instance()->invoke(Name, "withDefault", tag("int", value), tag("int", value)));
    QCOMPARE(m_service->calls(), QStringList({"withDefault 4 7", "withDefault 4 4"}));
}

void cServiceMgrTest::outParameterIsWritten()
{
    QString text = "in";
    int number = 1;
    QVERIFY(IServiceMgr::instance()->invoke(Name, "fill", tag("QString", text), tag("int &", number)));
    QCOMPARE(text, QString("out"));
    QCOMPARE(number, 2);
    QCOMPARE(m_service->calls(), QStringList("fill in 1"));
}

void cServiceMgrTest::resultsOfAllKinds()
{
    IServiceMgr* manager = IServiceMgr::instance();
    for (const char* type : {"QString", "const QString", "QString "}) {
        QString text = "before";
        QVERIFY(manager->invoke(Name, "text", resultTag(type, text)));
        QCOMPARE(text, QString("text"));
    }
    bool boolean = false;
    QVERIFY(manager->invoke(Name, "boolean", resultTag("bool", boolean)));
    QVERIFY(boolean);
    cJsonValue value;
    QVERIFY(manager->invoke(Name, "value", resultTag("cJsonValue", value)));
    QCOMPARE(value["key"].toInt(), 1);
    QObject* object = nullptr;
    QVERIFY(manager->invoke(Name, "object", resultTag("QObject *", object)));
    QCOMPARE(object, m_service.get());
    RecordPtr record;
    QVERIFY(manager->invoke(Name, "sharedRecord", resultTag("RecordPtr", record)));
    QCOMPARE(record->number, 5);
    TestService::Colour colour = TestService::Red;
    QVERIFY(manager->invoke(Name, "colour", resultTag("TestService::Colour", colour)));
    QCOMPARE(colour, TestService::Green);
    QStringList list;
    const QString argument = "a";
    QVERIFY(manager->invoke(Name, "list", resultTag("QStringList", list), tag("QString", argument)));
    QCOMPARE(list, QStringList({"a", "a"}));
}

void cServiceMgrTest::wrongResultIsNotDelivered()
{
    QString text = "before";
    QVERIFY(!IServiceMgr::instance()->invoke(Name, "boolean", resultTag("QString", text)));
    QVERIFY(!IServiceMgr::instance()->invoke(Name, "nothing", resultTag("QString", text)));
    QVERIFY(!IServiceMgr::instance()->invoke(Name, "text", resultTag("", text)));
    QVERIFY(!IServiceMgr::instance()->invoke(Name, "text", resultTag(nullptr, text)));
    QObject* object = nullptr;
    QVERIFY(!IServiceMgr::instance()->invoke(Name, "object", resultTag("TestService*", object)));
    QCOMPARE(text, QString("before"));
    QCOMPARE(m_service->calls(), QStringList());
}

void cServiceMgrTest::resultMayBeDropped()
{
    QVERIFY(call("text"));
    QVERIFY(call("value"));
    QVERIFY(call("sharedRecord"));
    QVERIFY(IServiceMgr::instance()->invoke(Name, "text", QGenericReturnArgument("QString", nullptr)));
    QCOMPARE(m_service->calls(), QStringList({"text", "value", "sharedRecord", "text"}));
}

void cServiceMgrTest::enumerationsAndRecordsPass()
{
    const TestService::Colour colour = TestService::Green;
    cJsonValue value;
    value["key"] = "member";
    const RecordPtr record(new Record {9});
    QObject* const object = this;
    const char* const bytes = "bytes";
    QVERIFY(IServiceMgr::instance()->invoke(Name, "mixed", tag("TestService::Colour", colour),
        tag("const cJsonValue", value), tag("RecordPtr", record), tag("QObject *", object),
        tag("const char *", bytes)));
    QCOMPARE(m_service->calls(), QStringList("mixed 1 member 9 cServiceMgrTest bytes"));
    // The record is not kept.
    QCOMPARE(record.use_count(), 1L);
}

void cServiceMgrTest::signalsAreNoOperations()
{
    QVERIFY(!call("aSignal"));
}

void cServiceMgrTest::plainMembersAreNoOperations()
{
    QVERIFY(!call("plain"));
    QVERIFY(call("aSlot"));
    QCOMPARE(m_service->calls(), QStringList("aSlot"));
}

void cServiceMgrTest::callsMayNest()
{
    const int depth = 3;
    QVERIFY(IServiceMgr::instance()->invoke(Name, "nest", tag("int", depth)));
    QCOMPARE(m_service->calls(), QStringList({"nest 3", "nest 2", "nest 1", "nest 0"}));
}

void cServiceMgrTest::serviceMayUnregisterInItsOwnCall()
{
    QString result;
    QVERIFY(IServiceMgr::instance()->invoke(Name, "unregisterSelf", resultTag("QString", result)));
    QCOMPARE(result, QString("done"));
    QVERIFY(!call("nothing"));
}

void cServiceMgrTest::serviceMayDeleteItselfInItsOwnCall()
{
    m_service.release(); // NOLINT(bugprone-unused-return-value): it deletes itself
    QString result;
    QVERIFY(IServiceMgr::instance()->invoke(Name, "deleteSelf", resultTag("QString", result)));
    QCOMPARE(result, QString("done"));
    QVERIFY(!m_manager->hasService(Name));
    QVERIFY(!call("deleteSelf"));
}

void cServiceMgrTest::whatWasNotFoundIsNotFoundAgain()
{
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!call("missing"));
        QVERIFY(call("nothing"));
    }
    // Another class of the same name has another set of operations.
    QVERIFY(!call("derivedOnly"));
    m_manager->unregisterService(m_service.get());
    DerivedService derived;
    m_manager->registerService(&derived);
    QVERIFY(call("derivedOnly"));
    QVERIFY(!call("missing"));
}

VELTRANO_TEST_MAIN(cServiceMgrTest)
#include "cServiceMgrTest.moc"
