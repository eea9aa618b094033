#include <LuaRun.h>
#include <RunnerLimits.h>
#include <TestCase.h>

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>

#include <memory>

/// Scripts in the real runner.
class LuaRunTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_run.reset(); }

    void printedTextArrives();
    void charactersAreNotCutInTwo();
    void profileHasAName();
    void failuresNameTheirLine_data();
    void failuresNameTheirLine();
    void safeLibrariesAreThere_data();
    void safeLibrariesAreThere();
    void nothingReachesOutOfTheScript_data();
    void nothingReachesOutOfTheScript();
    void compiledScriptIsNotRun();
    void memoryIsLimited_data();
    void memoryIsLimited();
    void outputIsLimited();
    void deepRecursionIsAnError();
    void endlessScriptIsStoppable_data();
    void endlessScriptIsStoppable();
    void timeIsLimited_data();
    void timeIsLimited();
    void runThatIsDroppedEndsItsProcess();
    void missingRunnerIsAFailure();
    void tooLargeScriptIsNotAccepted();

private:
    void run(const QString& script, int patience = 20000);
    QStringList children() const;

    std::unique_ptr<LuaRun> m_run;
    QString m_printed;

private Q_SLOTS:
    void onPrinted(const QString& text) { m_printed += text; }
};

void LuaRunTest::init()
{
    m_run = std::make_unique<LuaRun>(QStringLiteral(SCRIPT_RUNNER));
    connect(m_run.get(), SIGNAL(printed(QString)), this, SLOT(onPrinted(QString)));
    m_printed.clear();
}

void LuaRunTest::run(const QString& script, int patience)
{
    m_run->start(script, "Name of the profile");
    QVERIFY(m_run->isRunning());
    QTRY_VERIFY_WITH_TIMEOUT(!m_run->isRunning(), patience);
}

QStringList LuaRunTest::children() const
{
    const QString id = QString::number(QCoreApplication::applicationPid());
    QFile file(QStringLiteral("/proc/%1/task/%1/children").arg(id));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no children file");
    return QString::fromLatin1(file.readAll()).split(' ', Qt::SkipEmptyParts);
}

void LuaRunTest::printedTextArrives()
{
    QSignalSpy ended(m_run.get(), SIGNAL(ended()));
    run("print('a', 1, nil, true)\nprint()\nprint('\\195\\164\\226\\130\\172')");
    QCOMPARE(m_printed, QString::fromUtf8("a\t1\tnil\ttrue\n\n\u00e4\u20ac\n"));
    QCOMPARE(m_run->end(), LuaRun::End::Done);
    QCOMPARE(ended.count(), 1);
}

void LuaRunTest::charactersAreNotCutInTwo()
{
    // Larger than what a pipe hands on at a time, with characters of three bytes.
    run("print(('\\226\\130\\172'):rep(100001))");
    QCOMPARE(m_printed, QString(100001, QChar(0x20ac)) + '\n');
}

void LuaRunTest::profileHasAName()
{
    run("print(profile.name)");
    QCOMPARE(m_printed, QString("Name of the profile\n"));
}

void LuaRunTest::failuresNameTheirLine_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("message");
    QTest::newRow("syntax") << "\n\nfor" << 3 << "<name> expected near <eof>";
    QTest::newRow("run time") << "local a\na.b = 1" << 2 << "attempt to index a nil value (local 'a')";
    QTest::newRow("own error") << "\nerror('mine')" << 2 << "mine";
    QTest::newRow("several lines") << "error('one\\ntwo')" << 1 << "one\ntwo";
    QTest::newRow("error without a place") << "error('bare', 0)" << 0 << "bare";
    QTest::newRow("error that is no text")
        << "error({})" << 0 << "the script ended with an error that is no text";
    QTest::newRow("in a coroutine") << "local c = coroutine.wrap(function()\nerror('deep') end)\nc()" << 2
                                    << "deep";
}

void LuaRunTest::failuresNameTheirLine()
{
    QFETCH(QString, script);
    QFETCH(int, line);
    run(script);
    QCOMPARE(m_run->end(), LuaRun::End::Failed);
    QCOMPARE(m_run->line(), line);
    QTEST(m_run->message(), "message");
}

void LuaRunTest::safeLibrariesAreThere_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<QString>("value");
    QTest::newRow("string") << "('abc'):upper()"
                            << "ABC";
    QTest::newRow("table") << "table.concat({1, 2}, '-')"
                           << "1-2";
    QTest::newRow("math") << "math.floor(2.7)"
                          << "2";
    QTest::newRow("utf8") << "utf8.char(8364)" << QString(QChar(0x20ac));
    QTest::newRow("coroutine") << "coroutine.isyieldable()"
                               << "false";
    QTest::newRow("time") << "os.time() > 0 and os.clock() >= 0 and #os.date() > 0"
                          << "true";
    QTest::newRow("protected call") << "pcall(error)"
                                    << "false\tnil";
}

void LuaRunTest::safeLibrariesAreThere()
{
    QFETCH(QString, expression);
    run("print(" + expression + ")");
    QCOMPARE(m_run->message(), QString());
    QTEST(m_printed.trimmed(), "value");
}

void LuaRunTest::nothingReachesOutOfTheScript_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
        {"io", "debug", "package", "require", "dofile", "loadfile", "load", "collectgarbage", "warn",
            "string.dump", "('').dump", "os.execute", "os.exit", "os.getenv", "os.remove", "os.rename",
            "os.tmpname", "os.setlocale", "_G.io", "getmetatable('').__index.dump"})
        QTest::newRow(name) << name;
}

void LuaRunTest::nothingReachesOutOfTheScript()
{
    QFETCH(QString, name);
    run("print(" + name + ")");
    QCOMPARE(m_printed, QString("nil\n"));
}

void LuaRunTest::compiledScriptIsNotRun()
{
    run("\x1bLua");
    QCOMPARE(m_run->end(), LuaRun::End::Failed);
    QVERIFY2(m_run->message().contains("attempt to load a binary chunk"), qPrintable(m_run->message()));
}

void LuaRunTest::memoryIsLimited_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("many values") << "local t = {}\nwhile true do t[#t + 1] = {} end";
    QTest::newRow("one long text") << "local s = 'x'\nwhile true do s = s .. s end";
    QTest::newRow("repetition") << "print(#('x'):rep(1 << 40))";
}

void LuaRunTest::memoryIsLimited()
{
    QFETCH(QString, script);
    run(script);
    QCOMPARE(m_run->end(), LuaRun::End::Failed);
    QVERIFY2(m_run->message().contains("not enough memory")
            || m_run->message().contains("resulting string too large"),
        qPrintable(m_run->message()));
}

void LuaRunTest::outputIsLimited()
{
    run("while true do print(('x'):rep(1000)) end");
    QCOMPARE(m_run->end(), LuaRun::End::Failed);
    QCOMPARE(m_run->message(), QString("the script has printed more than 1024 KB"));
    QCOMPARE(m_run->line(), 1);
    QVERIFY(std::size_t(m_printed.size()) <= RunnerLimits::Output);
}

void LuaRunTest::deepRecursionIsAnError()
{
    run("local function f() return 1 + f() end\nf()");
    QCOMPARE(m_run->end(), LuaRun::End::Failed);
    QVERIFY2(m_run->message().contains("stack overflow"), qPrintable(m_run->message().left(200)));
}

void LuaRunTest::endlessScriptIsStoppable_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("loop") << "print('on') while true do end";
    QTest::newRow("loop that catches errors")
        << "print('on') while true do pcall(function() while true do end end) end";
    QTest::newRow("coroutine") << "print('on') coroutine.wrap(function() while true do end end)()";
    QTest::newRow("library function that Lua can't interrupt") << "print('on'); (''):rep(1 << 60)";
    QTest::newRow("pattern that backtracks")
        << "print('on') string.find(('a'):rep(200), ('a*'):rep(100) .. 'b')";
}

void LuaRunTest::endlessScriptIsStoppable()
{
    QFETCH(QString, script);
    m_run->start(script, "P");
    QTRY_COMPARE(m_printed, QString("on\n"));
    QVERIFY(m_run->isRunning());
    QElapsedTimer timer;
    timer.start();
    m_run->stop();
    QTRY_VERIFY(!m_run->isRunning());
    QVERIFY(timer.elapsed() < 2000);
    QCOMPARE(m_run->end(), LuaRun::End::Stopped);
    QCOMPARE(children(), QStringList());
    m_run->stop();
}

void LuaRunTest::timeIsLimited_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("line");
    QTest::newRow("loop") << "\nwhile true do end" << 2;
    QTest::newRow("loop that catches errors")
        << "while true do pcall(function() while true do end end) end" << 1;
    QTest::newRow("library function that Lua can't interrupt") << "(''):rep(1 << 60)" << 0;
}

void LuaRunTest::timeIsLimited()
{
    QFETCH(QString, script);
    QElapsedTimer timer;
    timer.start();
    run(script, 1000 * (RunnerLimits::Seconds + 5));
    QVERIFY(timer.elapsed() >= qint64(1000) * (RunnerLimits::Seconds - 1));
    QCOMPARE(m_run->end(), LuaRun::End::Failed);
    QVERIFY2(m_run->message().contains("ran for more than 10 seconds"), qPrintable(m_run->message()));
    QTEST(m_run->line(), "line");
    QCOMPARE(children(), QStringList());
}

void LuaRunTest::runThatIsDroppedEndsItsProcess()
{
    m_run->start("print('on') while true do end", "P");
    QTRY_COMPARE(m_printed, QString("on\n"));
    QCOMPARE(children().size(), 1);
    m_run.reset();
    QCOMPARE(children(), QStringList());
}

void LuaRunTest::missingRunnerIsAFailure()
{
    LuaRun broken("/nonexistent/runner");
    broken.start("print(1)", "P");
    QTRY_VERIFY(!broken.isRunning());
    QCOMPARE(broken.end(), LuaRun::End::Failed);
    QVERIFY(broken.message().contains("/nonexistent/runner"));
}

void LuaRunTest::tooLargeScriptIsNotAccepted()
{
    QString reason;
    QVERIFY(LuaRun::isAcceptable(QString(int(RunnerLimits::ScriptSize), ' '), {}, &reason));
    QCOMPARE(reason, QString());
    QVERIFY(!LuaRun::isAcceptable(QString(int(RunnerLimits::ScriptSize) + 1, ' '), {}, &reason));
    QCOMPARE(reason, QString("The script is too large to be run: it may have 1024 KB."));
}

VELTRANO_TEST_MAIN(LuaRunTest)
#include "LuaRunTest.moc"
