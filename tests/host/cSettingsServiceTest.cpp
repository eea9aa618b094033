#include "cSettingsService.h"

#include <cServiceMgr.h>
#include <cSettings.h>
#include <JsonText.h>
#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>

/// A listener that writes down the paths that it is called with.
class Listener : public QObject
{
    Q_OBJECT

public:
    QStringList calls;
    std::function<void()> onCall;

public Q_SLOTS:
    void changed(const QString& path)
    {
        calls.append(path);
        if (onCall)
            onCall();
    }
    void touched() { calls.append(QStringLiteral("touched")); }
    void wrong(int) { }
};

/// The service is called through the plug-in's client, by name.
class cSettingsServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void valuesAreStoredByType();
    void missingValueReadsAsTheDefault();
    void valueOfAnotherTypeReadsAsTheDefault_data();
    void valueOfAnotherTypeReadsAsTheDefault();
    void integerBeyondIntReadsAsTheDefault();
    void keysAreThoseRightBelow();
    void pathsIgnoreEmptyNames();
    void valueBelowAScalarReplacesIt();
    void nullRemoves();
    void removingTheRootRemovesAll();
    void rootIsAnObject();
    void unreadableShapesAreRefused();
    void survivesARestart();
    void runOfChangesIsOneWriteShortlyAfter();
    void unchangedValueIsNotWritten();
    void endWritesWhatIsPending();
    void failedWriteIsReportedOnceAndTriedAgain();
    void damagedFileIsReported();
    void listenersHearChangesAtAndBelow();
    void listenersHearChangesAboveThatReachThem();
    void listenerMayGoWhileItIsCalled();
    void deletedReceiversAreForgotten();
    void removedListenersAreNotCalled();
    void slotsOfOtherShapesAreRefused();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("settings.json")); }
    void restart();

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<cSettingsService> m_service;
};

void cSettingsServiceTest::init()
{
    m_folder.reset(new QTemporaryDir);
    restart();
}

void cSettingsServiceTest::restart()
{
    m_service.reset();
    m_service.reset(new cSettingsService(path()));
    m_service->load();
    IServiceMgr::instance()->registerService(m_service.get());
}

void cSettingsServiceTest::cleanup()
{
    m_service.reset();
}

void cSettingsServiceTest::valuesAreStoredByType()
{
    cSettings settings;
    settings.setPropertyInt("a/int", -3);
    settings.setPropertyBool("a/bool", true);
    settings.setPropertyString("a/text", "x");
    cJsonValue record;
    record["k"] = 1.5;
    settings.setProperty("a/record", record);
    QCOMPARE(settings.getPropertyInt("a/int"), -3);
    QCOMPARE(settings.getPropertyInt("a/int", 9), -3);
    QCOMPARE(settings.getPropertyBool("a/bool"), true);
    QCOMPARE(settings.getPropertyBool("a/bool", false), true);
    QCOMPARE(settings.getPropertyString("a/text"), QString("x"));
    QCOMPARE(settings.getPropertyString("a/text", "y"), QString("x"));
    QVERIFY(settings.getProperty("a/record") == record);
    QCOMPARE(qAsConst(record)["k"].toDouble(), 1.5);
}

void cSettingsServiceTest::missingValueReadsAsTheDefault()
{
    cSettings settings;
    QCOMPARE(settings.getPropertyInt("n"), 0);
    QCOMPARE(settings.getPropertyInt("n", 4), 4);
    QCOMPARE(settings.getPropertyBool("n"), false);
    QCOMPARE(settings.getPropertyBool("n", true), true);
    QCOMPARE(settings.getPropertyString("n"), QString());
    QCOMPARE(settings.getPropertyString("n", "d"), QString("d"));
    QVERIFY(settings.getProperty("n").isNull());
    QCOMPARE(settings.getPropertyKeys("n"), QStringList());
}

void cSettingsServiceTest::valueOfAnotherTypeReadsAsTheDefault_data()
{
    QTest::addColumn<QString>("json");
    QTest::newRow("int") << "1";
    QTest::newRow("real") << "1.0";
    QTest::newRow("bool") << "true";
    QTest::newRow("text") << "\"1\"";
    QTest::newRow("array") << "[1]";
    QTest::newRow("object") << "{\"a\": 1}";
}

void cSettingsServiceTest::valueOfAnotherTypeReadsAsTheDefault()
{
    QFETCH(QString, json);
    cJsonValue value;
    QVERIFY(HVS::fromJsonText(json.toUtf8(), value));
    cSettings settings;
    settings.setProperty("v", value);
    const QString type = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(settings.getPropertyInt("v", 42), type == "int" ? 1 : 42);
    QCOMPARE(settings.getPropertyBool("v", false), type == "bool");
    QCOMPARE(settings.getPropertyString("v", "d"), type == "text" ? QString("1") : QString("d"));
}

void cSettingsServiceTest::integerBeyondIntReadsAsTheDefault()
{
    cJsonValue value;
    QVERIFY(HVS::fromJsonText("5000000000", value));
    cSettings settings;
    settings.setProperty("v", value);
    QCOMPARE(settings.getPropertyInt("v", 3), 3);
    QVERIFY(settings.getProperty("v") == value);
}

void cSettingsServiceTest::keysAreThoseRightBelow()
{
    cSettings settings;
    settings.setPropertyInt("b/x/deep", 1);
    settings.setPropertyInt("b/a", 1);
    settings.setPropertyInt("c", 1);
    QCOMPARE(settings.getPropertyKeys("b"), QStringList({"a", "x"}));
    QCOMPARE(settings.getPropertyKeys(""), QStringList({"b", "c"}));
    QCOMPARE(settings.getPropertyKeys("c"), QStringList());
}

void cSettingsServiceTest::pathsIgnoreEmptyNames()
{
    cSettings settings;
    settings.setPropertyInt("/a//b/", 5);
    QCOMPARE(settings.getPropertyInt("a/b"), 5);
}

void cSettingsServiceTest::valueBelowAScalarReplacesIt()
{
    cSettings settings;
    settings.setPropertyInt("a", 5);
    settings.setPropertyInt("a/b", 6);
    QCOMPARE(settings.getPropertyInt("a/b"), 6);
    QCOMPARE(settings.getPropertyInt("a", 1), 1);
}

void cSettingsServiceTest::nullRemoves()
{
    cSettings settings;
    settings.setPropertyInt("a/b", 6);
    settings.setPropertyInt("a/c", 7);
    settings.setProperty("a/b", cJsonValue());
    QCOMPARE(settings.getPropertyKeys("a"), QStringList({"c"}));
    settings.removeProperty("a/c");
    settings.removeProperty("a/nothing/there");
    QCOMPARE(settings.getPropertyKeys("a"), QStringList());
}

void cSettingsServiceTest::removingTheRootRemovesAll()
{
    cSettings settings;
    settings.setPropertyInt("a/b", 6);
    settings.removeProperty("");
    QCOMPARE(settings.getPropertyKeys(""), QStringList());
}

void cSettingsServiceTest::rootIsAnObject()
{
    cSettings settings;
    settings.setPropertyInt("a", 6);
    {
        const ExpectedMessage message(QtWarningMsg, "Settings can't store a value at \"\"");
        settings.setPropertyInt("", 6);
    }
    QCOMPARE(settings.getPropertyInt("a"), 6);
}

void cSettingsServiceTest::unreadableShapesAreRefused()
{
    cSettings settings;
    {
        const ExpectedMessage message(
            QtWarningMsg, QRegularExpression(QStringLiteral("^Settings can't store a value at \"a/a/a")));
        settings.setPropertyInt(QStringLiteral("a/").repeated(cSettingsService::MaxPathDepth + 1), 1);
    }
    cJsonValue deep = 1;
    for (int i = 0; i < HVS::MaxJsonDepth; ++i)
        deep = cJsonValue().append(deep);
    {
        const ExpectedMessage message(QtWarningMsg, "Settings can't store a value at \"d\"");
        settings.setProperty("d", deep);
    }
    settings.setPropertyInt(QStringLiteral("a/").repeated(cSettingsService::MaxPathDepth), 1);
    restart();
    QCOMPARE(settings.getPropertyKeys(""), QStringList({"a"}));
}

void cSettingsServiceTest::survivesARestart()
{
    cSettings settings;
    settings.setPropertyString("profiler/lastProfile", "{1}");
    restart();
    QCOMPARE(settings.getPropertyString("profiler/lastProfile"), QString("{1}"));
}

void cSettingsServiceTest::runOfChangesIsOneWriteShortlyAfter()
{
    cSettings settings;
    settings.setPropertyInt("a", 1);
    settings.setPropertyInt("a", 2);
    QVERIFY(!QFile::exists(path()));
    QTRY_VERIFY(QFile::exists(path()));
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    cJsonValue document;
    QVERIFY(HVS::fromJsonText(file.readAll(), document));
    QCOMPARE(qAsConst(document)["settings"]["a"].toInt(), 2);
    QCOMPARE(qAsConst(document)["version"].toInt(), 1);
}

void cSettingsServiceTest::unchangedValueIsNotWritten()
{
    cSettings settings;
    settings.setPropertyInt("a", 1);
    QVERIFY(m_service->flush());
    QVERIFY(QFile::remove(path()));
    settings.setPropertyInt("a", 1);
    settings.removeProperty("b");
    QVERIFY(m_service->flush());
    QVERIFY(!QFile::exists(path()));
}

void cSettingsServiceTest::endWritesWhatIsPending()
{
    cSettings().setPropertyInt("a", 1);
    m_service.reset();
    QVERIFY(QFile::exists(path()));
}

void cSettingsServiceTest::failedWriteIsReportedOnceAndTriedAgain()
{
    const QSignalSpy problems(m_service.get(), SIGNAL(problemFound(QString)));
    m_service->setRetryTime(20);
    // A file in place of the folder.
    m_folder->remove();
    QFile obstacle(m_folder->path());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    cSettings().setPropertyInt("a", 1);
    QTRY_COMPARE(problems.size(), 1);
    QVERIFY(!m_service->flush());
    cSettings().setPropertyInt("a", 2);
    QVERIFY(!m_service->flush());
    QCOMPARE(problems.size(), 1);

    cSettings().setPropertyInt("a", 3);
    QVERIFY(obstacle.remove());
    QTRY_VERIFY(QFile::exists(path()));
    QCOMPARE(problems.size(), 1);
    // A later failure is a new one.
    QVERIFY(QDir(m_folder->path()).removeRecursively());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    cSettings().setPropertyInt("a", 4);
    QVERIFY(!m_service->flush());
    QCOMPARE(problems.size(), 2);
    QVERIFY(obstacle.remove());
}

void cSettingsServiceTest::damagedFileIsReported()
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("nonsense");
    file.close();
    cSettingsService service(path());
    const QSignalSpy problems(&service, SIGNAL(problemFound(QString)));
    const ExpectedMessage message(QtWarningMsg, QRegularExpression(QStringLiteral("^Settings in ")));
    service.load();
    QCOMPARE(problems.size(), 1);
}

void cSettingsServiceTest::listenersHearChangesAtAndBelow()
{
    Listener at;
    Listener everything;
    cSettings settings;
    settings.addListener("a/b", &at, SLOT(changed(QString)));
    settings.addListener("", &everything, SLOT(touched()));
    settings.setPropertyInt("a/b", 1);
    settings.setPropertyInt("a/b", 1);
    settings.setPropertyInt("a/b/c", 1);
    settings.setPropertyInt("a/bb", 1);
    QCOMPARE(at.calls, QStringList({"a/b", "a/b/c"}));
    QCOMPARE(everything.calls, QStringList({"touched", "touched", "touched"}));
}

void cSettingsServiceTest::listenersHearChangesAboveThatReachThem()
{
    Listener listener;
    cSettings settings;
    settings.setPropertyInt("a/b", 1);
    settings.addListener("a/b", &listener, SLOT(changed(QString)));
    cJsonValue record;
    record["b"] = 1;
    record["c"] = 2;
    settings.setProperty("a", record);
    QCOMPARE(listener.calls, QStringList());
    record["b"] = 2;
    settings.setProperty("a", record);
    settings.removeProperty("a");
    QCOMPARE(listener.calls, QStringList({"a", "a"}));
}

void cSettingsServiceTest::listenerMayGoWhileItIsCalled()
{
    cSettings settings;
    Listener first;
    auto* second = new Listener;
    Listener third;
    for (Listener* listener : {&first, second, &third})
        settings.addListener("a", listener, SLOT(changed(QString)));
    first.onCall = [&] {
        delete second;
        settings.removeListener(&third);
        settings.removeListener(&first);
    };
    settings.setPropertyInt("a", 1);
    QCOMPARE(first.calls, QStringList({"a"}));
    QCOMPARE(third.calls, QStringList());
}

void cSettingsServiceTest::deletedReceiversAreForgotten()
{
    cSettings settings;
    {
        Listener gone;
        settings.addListener("a", &gone, SLOT(changed(QString)));
    }
    settings.setPropertyInt("a", 1);
    Listener listener;
    settings.addListener("a", &listener, SLOT(changed(QString)));
    settings.setPropertyInt("a", 2);
    QCOMPARE(listener.calls, QStringList({"a"}));
}

void cSettingsServiceTest::removedListenersAreNotCalled()
{
    cSettings settings;
    Listener listener;
    settings.addListener("a", &listener, SLOT(changed(QString)));
    settings.addListener("b", &listener, SLOT(touched()));
    settings.removeListener(&listener);
    settings.removeListener(&listener);
    settings.setPropertyInt("a", 1);
    settings.setPropertyInt("b", 1);
    QCOMPARE(listener.calls, QStringList());
}

void cSettingsServiceTest::slotsOfOtherShapesAreRefused()
{
    cSettings settings;
    Listener listener;
    {
        const ExpectedMessage message(
            QtWarningMsg, "Settings can't call the slot \"1wrong(int)\" of a Listener");
        settings.addListener("a", &listener, SLOT(wrong(int)));
    }
    {
        const ExpectedMessage message(
            QtWarningMsg, "Settings can't call the slot \"1missing()\" of a Listener");
        settings.addListener("a", &listener, "1missing()");
    }
    {
        const ExpectedMessage message(QtWarningMsg, "Settings can't call the slot \"\" of a Listener");
        settings.addListener("a", &listener, "");
    }
    settings.addListener("a", nullptr, SLOT(changed(QString)));
    settings.addListener("a", &listener, nullptr);
    settings.setPropertyInt("a", 1);
    QCOMPARE(listener.calls, QStringList());
}

VELTRANO_TEST_MAIN(cSettingsServiceTest)
#include "cSettingsServiceTest.moc"
