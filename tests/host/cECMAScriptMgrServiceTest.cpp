#include "cECMAScriptMgrService.h"

#include <cECMAScript.h>
#include <IServiceMgr.h>
#include <TestCase.h>

#include <QElapsedTimer>

/// The service is called through the plug-in's client, by name.
class cECMAScriptMgrServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void programsAreEvaluated();
    void failureIsAnErrorObject_data();
    void failureIsAnErrorObject();
    void engineWorksAfterAFailure();
    void endlessProgramIsStopped_data();
    void endlessProgramIsStopped();
    void objectsAreShownAndNotOwned();
    void deletedObjectIsHarmless();
    void nullObjectAndEmptyNameAreHarmless();
    void scriptMayEvaluateAScript();

public Q_SLOTS:
    QString shout(const QString& text) { return text.toUpper(); }
    int nested() { return cECMAScript().evaluate("20 + 1").toInt32(); }

private:
    QScopedPointer<cECMAScriptMgrService> m_service;
};

void cECMAScriptMgrServiceTest::init()
{
    m_service.reset(new cECMAScriptMgrService);
    IServiceMgr::instance()->registerService(m_service.get());
}

void cECMAScriptMgrServiceTest::cleanup()
{
    m_service.reset();
}

void cECMAScriptMgrServiceTest::programsAreEvaluated()
{
    QCOMPARE(cECMAScript().evaluate("var x = 6; x * 7").toInt32(), 42);
    QCOMPARE(cECMAScript().evaluate("x").toInt32(), 6);
    QVERIFY(cECMAScript().evaluate("").isUndefined());
    QCOMPARE(cECMAScript().engine(), m_service->engine());
    QCOMPARE(cECMAScript().engine()->evaluate("x").toInt32(), 6);
}

void cECMAScriptMgrServiceTest::failureIsAnErrorObject_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("text");
    QTest::newRow("syntax") << "var = ;"
                            << "SyntaxError";
    QTest::newRow("reference") << "nothing.there"
                               << "ReferenceError";
    QTest::newRow("thrown number") << "throw 5"
                                   << "5";
    QTest::newRow("thrown text") << "throw 'ouch'"
                                 << "ouch";
    QTest::newRow("recursion") << "function f() { f(); } f()"
                               << "RangeError";
}

void cECMAScriptMgrServiceTest::failureIsAnErrorObject()
{
    QFETCH(QString, program);
    QFETCH(QString, text);
    const QScriptValue result = cECMAScript().evaluate(program);
    QVERIFY(result.isError());
    QVERIFY2(result.toString().contains(text), qPrintable(result.toString()));
    QVERIFY(!m_service->engine()->hasUncaughtException());
}

void cECMAScriptMgrServiceTest::engineWorksAfterAFailure()
{
    cECMAScript().evaluate("throw 1");
    QCOMPARE(cECMAScript().evaluate("1 + 1").toInt32(), 2);
}

void cECMAScriptMgrServiceTest::endlessProgramIsStopped_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("while") << "while (true) { }";
    QTest::newRow("for") << "for (;;) { var a = 1; }";
    QTest::newRow("empty statement") << "while (true);";
    QTest::newRow("caught") << "while (true) { try { while (true) { } } catch (e) { } }";
}

void cECMAScriptMgrServiceTest::endlessProgramIsStopped()
{
    QFETCH(QString, program);
    m_service->setTimeLimit(50);
    QElapsedTimer time;
    time.start();
    const QScriptValue result = cECMAScript().evaluate(program);
    QVERIFY(time.elapsed() < 5000);
    QVERIFY(result.isError());
    QCOMPARE(cECMAScript().evaluate("3").toInt32(), 3);
}

void cECMAScriptMgrServiceTest::objectsAreShownAndNotOwned()
{
    cECMAScript().newObject(this, "Test");
    QCOMPARE(cECMAScript().evaluate("Test.shout('ab')").toString(), QString("AB"));
    m_service.reset();
    QCOMPARE(objectName(), QString());
}

void cECMAScriptMgrServiceTest::deletedObjectIsHarmless()
{
    auto* object = new QObject;
    cECMAScript().newObject(object, "Gone");
    delete object;
    QVERIFY(cECMAScript().evaluate("Gone.objectName").isError());
}

void cECMAScriptMgrServiceTest::nullObjectAndEmptyNameAreHarmless()
{
    cECMAScript().newObject(this, "");
    cECMAScript().newObject(this, "Test");
    cECMAScript().newObject(nullptr, "Test");
    QVERIFY(cECMAScript().evaluate("Test === null").toBool());
}

void cECMAScriptMgrServiceTest::scriptMayEvaluateAScript()
{
    cECMAScript().newObject(this, "Test");
    QCOMPARE(cECMAScript().evaluate("Test.nested() + 21").toInt32(), 42);
}

VELTRANO_TEST_MAIN(cECMAScriptMgrServiceTest)
#include "cECMAScriptMgrServiceTest.moc"
