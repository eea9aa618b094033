#include "Fakes.h"

#include <cMacroTypeMgr.h>
#include <cMacroTypeMgrService.h>
#include <cServiceMgr.h>
#include <TestCase.h>

#include <memory>

class cMacroTypeMgrServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void registeredTypeIsFound();
    void unknownTypeIsNull();
    void idIsTakenOnce();
    void typeWithoutAnIdIsRefused();
    void orderIsByPriorityThenByRegistration();
    void unregisteredTypeIsGone();
    void typesAreFoundByControlType();
    void controlTypesAreReadFromTheRecord();

private:
    static QStringList ids(const IMacroTypePtrList& types)
    {
        QStringList ids;
        for (const cMacroTypePtr& type : types)
            ids.append(type->info()["uid"].toString());
        return ids;
    }

    std::unique_ptr<cServiceMgr> m_manager;
    std::unique_ptr<cMacroTypeMgrService> m_service;
};

void cMacroTypeMgrServiceTest::init()
{
    m_manager = std::make_unique<cServiceMgr>();
    IServiceMgr::setInstance(m_manager.get());
    m_service = std::make_unique<cMacroTypeMgrService>();
    m_manager->registerService(m_service.get());
}

void cMacroTypeMgrServiceTest::cleanup()
{
    m_service.reset();
    IServiceMgr::setInstance(nullptr);
    m_manager.reset();
}

void cMacroTypeMgrServiceTest::registeredTypeIsFound()
{
    cMacroTypeMgr types;
    const cMacroTypePtr type(new FakeType("urn:a", {"key"}));
    QVERIFY(types.registerMacroType(type));
    QCOMPARE(types.getMacroTypeByID("urn:a"), type);
    QCOMPARE(types.getAllMacroTypes(), IMacroTypePtrList({type}));
}

void cMacroTypeMgrServiceTest::unknownTypeIsNull()
{
    cMacroTypeMgr types;
    QVERIFY(types.getMacroTypeByID("urn:a").isNull());
    QVERIFY(types.getMacroTypeByID("").isNull());
    QVERIFY(types.getAllMacroTypes().isEmpty());
}

void cMacroTypeMgrServiceTest::idIsTakenOnce()
{
    cMacroTypeMgr types;
    const cMacroTypePtr first(new FakeType("urn:a", {}));
    QVERIFY(types.registerMacroType(first));
    QVERIFY(!types.registerMacroType(cMacroTypePtr(new FakeType("urn:a", {}))));
    QVERIFY(!types.registerMacroType(first));
    QCOMPARE(types.getMacroTypeByID("urn:a"), first);
    QCOMPARE(types.getAllMacroTypes().size(), 1);
}

void cMacroTypeMgrServiceTest::typeWithoutAnIdIsRefused()
{
    cMacroTypeMgr types;
    QVERIFY(!types.registerMacroType(cMacroTypePtr()));
    QVERIFY(!types.registerMacroType(cMacroTypePtr(new FakeType("", {}))));
}

void cMacroTypeMgrServiceTest::orderIsByPriorityThenByRegistration()
{
    cMacroTypeMgr types;
    types.registerMacroType(cMacroTypePtr(new FakeType("urn:b", {}, 2)));
    types.registerMacroType(cMacroTypePtr(new FakeType("urn:c", {}, 1)));
    types.registerMacroType(cMacroTypePtr(new FakeType("urn:a", {}, 2)));
    QCOMPARE(ids(types.getAllMacroTypes()), QStringList({"urn:c", "urn:b", "urn:a"}));
}

void cMacroTypeMgrServiceTest::unregisteredTypeIsGone()
{
    cMacroTypeMgr types;
    const cMacroTypePtr type(new FakeType("urn:a", {}));
    types.registerMacroType(type);
    QVERIFY(types.unregisterMacroType(type));
    QVERIFY(types.getMacroTypeByID("urn:a").isNull());
    QVERIFY(types.getAllMacroTypes().isEmpty());
    QVERIFY(!types.unregisterMacroType(type));
    QVERIFY(!types.unregisterMacroType(cMacroTypePtr()));
}

void cMacroTypeMgrServiceTest::typesAreFoundByControlType()
{
    cMacroTypeMgr types;
    types.registerMacroType(cMacroTypePtr(new FakeType("urn:a", {"key", "button"})));
    types.registerMacroType(cMacroTypePtr(new FakeType("urn:b", {"button"})));
    QCOMPARE(ids(types.getMacroTypesByControlTypeID("button")), QStringList({"urn:a", "urn:b"}));
    QCOMPARE(ids(types.getMacroTypesByControlTypeID("key")), QStringList({"urn:a"}));
    QCOMPARE(ids(types.getMacroTypesByControlTypeID("")), QStringList());
}

void cMacroTypeMgrServiceTest::controlTypesAreReadFromTheRecord()
{
    cMacroTypeMgr types;
    FakeType type("urn:a", {"key", "button"});
    QCOMPARE(types.getControlTypeIDsByMacroType(type.info()), QList<QString>({"key", "button"}));
    QCOMPARE(types.getControlTypeIDsByMacroType(cJsonValue()), QList<QString>());
    QCOMPARE(types.getControlTypeIDsByMacroType(cJsonValue("text")), QList<QString>());
}

VELTRANO_TEST_MAIN(cMacroTypeMgrServiceTest)
#include "cMacroTypeMgrServiceTest.moc"
