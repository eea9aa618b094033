#include <cDebug.h>
#include <cLog.h>
#include <TestCase.h>

class cLogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void lineIsWrittenWhenTheDebugIsDestroyed();
    void namelessLogWritesTheBareText();
    void copiesWriteToTheSameLog();
    void assignmentTakesTheOthersPlace();
    void valuesAreSeparatedBySpaces();
    void nothingStreamedWritesNothing();
    void percentSignsAndUnicodeStandAsTheyAre();
};

void cLogTest::lineIsWrittenWhenTheDebugIsDestroyed()
{
    const ExpectedMessage message(QtInfoMsg, "Profiler: first second");
    {
        cDebug line = cLog("Profiler").info();
        line << "first";
        line << "second";
        QVERIFY(!message.hasCome());
    }
    QVERIFY(message.hasCome());
}

void cLogTest::namelessLogWritesTheBareText()
{
    const ExpectedMessage message(QtInfoMsg, "User clicked on empty profile well 3");
    cLog().info() << "User clicked on empty profile well" << 3;
}

void cLogTest::copiesWriteToTheSameLog()
{
    const cLog log("Profiler");
    const cLog copy(log); // NOLINT(performance-unnecessary-copy-initialization)
    QCOMPARE(copy.name(), QString("Profiler"));
    const ExpectedMessage message(QtInfoMsg, "Profiler: text");
    copy.info() << "text";
}

void cLogTest::assignmentTakesTheOthersPlace()
{
    cLog log;
    QCOMPARE(log.name(), QString());
    log = cLog("Profiler");
    const ExpectedMessage message(QtInfoMsg, "Profiler: text");
    log.info() << "text";
}

void cLogTest::valuesAreSeparatedBySpaces()
{
    const ExpectedMessage message(QtInfoMsg, "Log: 1 2.5 true \"text\" QSize(1, 2)");
    cLog("Log").info() << 1 << 2.5 << true << QString("text") << QSize(1, 2);
}

void cLogTest::nothingStreamedWritesNothing()
{
    // An unannounced message would fail this.
    cLog("Log").info();
    cLog().info() << "";
}

void cLogTest::percentSignsAndUnicodeStandAsTheyAre()
{
    const ExpectedMessage message(QtInfoMsg, QStringLiteral(u"100%s: %d %n \u00e4\U0001f3ae"));
    cLog("100%s").info() << "%d %n \xc3\xa4\xf0\x9f\x8e\xae";
}

VELTRANO_TEST_MAIN(cLogTest)
#include "cLogTest.moc"
