#include "PluginLoader.h"

#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

/// The small libraries lie in one folder, made by the build, each <Name>/lib<Name>.so.
class PluginLoaderTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void goodPluginIsStartedAndStopped();
    void itsFolderIsASearchPath();
    void pluginThatCannotRunIsReported_data();
    void pluginThatCannotRunIsReported();
    void fileThatIsNoLibraryIsReported();
    void missingFileIsReported();
    void oddlyNamedFileIsReported();
    void pluginIsStartedOnce();
    void allOfAFolderAreLoadedInOrderAndStoppedInReverse();
    void emptyFolderIsReported();
    void endStopsWhatRuns();

private:
    static QString library(const QString& name)
    {
        return QStringLiteral(TEST_PLUGINS_DIR "/%1/lib%1.so").arg(name);
    }
    /// A copy with a name of its own: a library runs once in a process.
    QString copyOf(const QString& name, const QString& newName);
    static QStringList takeLog();

    QScopedPointer<QTemporaryDir> m_folder;
};

void PluginLoaderTest::init()
{
    m_folder.reset(new QTemporaryDir);
    takeLog();
}

QString PluginLoaderTest::copyOf(const QString& name, const QString& newName)
{
    const QString folder = m_folder->filePath(newName);
    const QString file = QStringLiteral("%1/lib%2.so").arg(folder, newName);
    QDir().mkpath(folder);
    return QFile::copy(library(name), file) ? file : QString();
}

QStringList PluginLoaderTest::takeLog()
{
    QStringList log = qApp->property("pluginLog").toStringList();
    qApp->setProperty("pluginLog", QVariant());
    return log;
}

void PluginLoaderTest::goodPluginIsStartedAndStopped()
{
    const QString file = copyOf("Good", "First");
    PluginLoader loader;
    const QSignalSpy failures(&loader, SIGNAL(failed(QString)));
    {
        const ExpectedMessage message(QtInfoMsg, "First: log");
        QVERIFY(loader.load(file));
    }
    QCOMPARE(failures.size(), 0);
    QCOMPARE(loader.running(), QStringList({"First"}));
    QCOMPARE(takeLog(), QStringList({"init First " + QFileInfo(file).absolutePath()}));
    loader.stopAll();
    QCOMPARE(loader.running(), QStringList());
    QCOMPARE(takeLog(), QStringList({"deinit First"}));
    loader.stopAll();
    QCOMPARE(takeLog(), QStringList());
}

void PluginLoaderTest::itsFolderIsASearchPath()
{
    const QString file = copyOf("Good", "Second");
    PluginLoader loader;
    const ExpectedMessage message(QtInfoMsg, "Second: log");
    loader.load(file);
    QVERIFY(QFileInfo::exists("Second:/libSecond.so"));
}

void PluginLoaderTest::pluginThatCannotRunIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("no entry point") << "NoEntryPoint"
                                    << "it has no function \"entrypoint\"" << QStringList();
    QTest::newRow("null") << "Null"
                          << "it offers no plug-in" << QStringList();
    QTest::newRow("init false") << "Refusing"
                                << "it could not be started" << QStringList({"init"});
}

void PluginLoaderTest::pluginThatCannotRunIsReported()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    QFETCH(QStringList, log);
    PluginLoader loader;
    QSignalSpy failures(&loader, SIGNAL(failed(QString)));
    {
        QScopedPointer<ExpectedMessage> message;
        if (!log.isEmpty())
            message.reset(new ExpectedMessage(QtInfoMsg, name + ": log"));
        QVERIFY(!loader.load(library(name)));
    }
    QCOMPARE(failures.size(), 1);
    const QString text = failures.constFirst().constFirst().toString();
    QVERIFY2(text.contains(reason), qPrintable(text));
    QVERIFY2(text.contains("lib" + name + ".so"), qPrintable(text));
    QCOMPARE(loader.running(), QStringList());
    loader.stopAll();
    // A plug-in that did not start is not stopped.
    const QStringList calls = takeLog();
    QCOMPARE(calls.size(), log.size());
    QVERIFY(calls.filter("deinit").isEmpty());
}

void PluginLoaderTest::fileThatIsNoLibraryIsReported()
{
    QFile file(m_folder->filePath("libText.so"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no library at all");
    file.close();
    PluginLoader loader;
    const QSignalSpy failures(&loader, SIGNAL(failed(QString)));
    QVERIFY(!loader.load(file.fileName()));
    QVERIFY(failures.constFirst().constFirst().toString().contains("libText.so"));
    QCOMPARE(failures.size(), 1);
}

void PluginLoaderTest::missingFileIsReported()
{
    PluginLoader loader;
    const QSignalSpy failures(&loader, SIGNAL(failed(QString)));
    QVERIFY(!loader.load("/nonexistent/libNone.so"));
    QVERIFY(!loader.load(QString()));
    QVERIFY(!loader.load(m_folder->path()));
    QCOMPARE(failures.size(), 3);
    QVERIFY(failures.constFirst().constFirst().toString().contains("/nonexistent/libNone.so"));
}

void PluginLoaderTest::oddlyNamedFileIsReported()
{
    PluginLoader loader;
    const QSignalSpy failures(&loader, SIGNAL(failed(QString)));
    for (const char* name : {"Other.so", "lib.so", "libWith-Dash.so", "libX.so.1"}) {
        const QString file = m_folder->filePath(name);
        QVERIFY(QFile::copy(library("Good"), file));
        QVERIFY(!loader.load(file));
    }
    QCOMPARE(failures.size(), 4);
    QCOMPARE(takeLog(), QStringList());
}

void PluginLoaderTest::pluginIsStartedOnce()
{
    const QString file = copyOf("Good", "Third");
    PluginLoader loader;
    const QSignalSpy failures(&loader, SIGNAL(failed(QString)));
    const ExpectedMessage message(QtInfoMsg, "Third: log");
    QVERIFY(loader.load(file));
    QVERIFY(!loader.load(file));
    loader.stopAll();
    QVERIFY(!loader.load(file));
    QCOMPARE(failures.size(), 2);
    QCOMPARE(takeLog().size(), 2);
}

void PluginLoaderTest::allOfAFolderAreLoadedInOrderAndStoppedInReverse()
{
    copyOf("Good", "Bravo");
    copyOf("Good", "Alfa");
    QDir().mkpath(m_folder->filePath("Empty"));
    PluginLoader loader;
    const QSignalSpy failures(&loader, SIGNAL(failed(QString)));
    const ExpectedMessage alfa(QtInfoMsg, "Alfa: log");
    const ExpectedMessage bravo(QtInfoMsg, "Bravo: log");
    loader.loadAll(m_folder->path());
    QCOMPARE(loader.running(), QStringList({"Alfa", "Bravo"}));
    QCOMPARE(failures.size(), 1);
    QVERIFY(failures.constFirst().constFirst().toString().contains("libEmpty.so"));
    takeLog();
    loader.stopAll();
    QCOMPARE(takeLog(), QStringList({"deinit Bravo", "deinit Alfa"}));
}

void PluginLoaderTest::emptyFolderIsReported()
{
    PluginLoader loader;
    const QSignalSpy failures(&loader, SIGNAL(failed(QString)));
    loader.loadAll(m_folder->path());
    loader.loadAll("/nonexistent");
    QCOMPARE(failures.size(), 2);
}

void PluginLoaderTest::endStopsWhatRuns()
{
    {
        PluginLoader loader;
        const ExpectedMessage message(QtInfoMsg, "Fourth: log");
        QVERIFY(loader.load(copyOf("Good", "Fourth")));
        takeLog();
    }
    QCOMPARE(takeLog(), QStringList({"deinit Fourth"}));
}

VELTRANO_TEST_MAIN(PluginLoaderTest)
#include "PluginLoaderTest.moc"
