#include "SettingsFile.h"

#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class SettingsFileTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void missingFileIsEmptyWithoutAProblem();
    void whatIsWrittenIsRead();
    void folderIsMade();
    void unusableFileIsSetAside_data();
    void unusableFileIsSetAside();
    void secondDamagedFileDoesNotReplaceTheFirst();
    void fileThatCannotBeSetAsideIsNeverWrittenOver();
    void failedWriteLeavesTheFile();
    void tooLargeSettingsAreNotWritten();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("settings.json")); }
    void put(const QByteArray& content) const;
    QByteArray content() const;
    QStringList damagedFiles() const;

    QScopedPointer<QTemporaryDir> m_folder;
};

void SettingsFileTest::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

void SettingsFileTest::put(const QByteArray& content) const
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QByteArray SettingsFileTest::content() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList SettingsFileTest::damagedFiles() const
{
    return QDir(m_folder->path()).entryList({QStringLiteral("settings.json.damaged-*")});
}

void SettingsFileTest::missingFileIsEmptyWithoutAProblem()
{
    QString problem;
    const cJsonValue settings = SettingsFile(path()).read(problem);
    QVERIFY(settings.isObject());
    QCOMPARE(problem, QString());
    QVERIFY(!QFile::exists(path()));
}

void SettingsFileTest::whatIsWrittenIsRead()
{
    cJsonValue settings;
    settings["a"]["b"] = 7;
    settings["text"] = QString::fromUtf8("\xc3\xa4\xe2\x82\xac");
    QString problem;
    QVERIFY(SettingsFile(path()).write(settings, problem));
    QVERIFY(SettingsFile(path()).read(problem) == settings);
    QCOMPARE(problem, QString());
}

void SettingsFileTest::folderIsMade()
{
    QString problem;
    const QString deep = m_folder->filePath(QStringLiteral("x/y/settings.json"));
    QVERIFY(SettingsFile(deep).write(cJsonValue(cJsonValue::objectValue), problem));
    QVERIFY(QFile::exists(deep));
}

void SettingsFileTest::unusableFileIsSetAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no JSON") << QByteArray("{\"settings\": {");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no UTF-8") << QByteArray("{\"settings\": {\"a\": \"\xff\xfe\"}, \"version\": 1}");
    QTest::newRow("an array") << QByteArray("[]");
    QTest::newRow("no version") << QByteArray("{\"settings\": {}}");
    QTest::newRow("version 0") << QByteArray("{\"settings\": {}, \"version\": 0}");
    QTest::newRow("version as text") << QByteArray("{\"settings\": {}, \"version\": \"1\"}");
    QTest::newRow("newer version") << QByteArray("{\"settings\": {\"a\": 1}, \"version\": 2}");
    QTest::newRow("settings no object") << QByteArray("{\"settings\": 5, \"version\": 1}");
    QTest::newRow("too deep") << "{\"version\": 1, \"settings\": {\"a\": " + QByteArray(100000, '[')
            + QByteArray(100000, ']') + "}}";
    QTest::newRow("too large") << "{\"version\": 1, \"settings\": {}}"
            + QByteArray(int(SettingsFile::MaxSize), ' ');
}

void SettingsFileTest::unusableFileIsSetAside()
{
    QFETCH(QByteArray, content);
    put(content);
    QString problem;
    cJsonValue settings;
    {
        // One line, and no second one: that would be unannounced.
        const ExpectedMessage message(
            QtWarningMsg, QRegularExpression(QStringLiteral("^Settings in .* are not used .*is kept as ")));
        settings = SettingsFile(path()).read(problem);
    }
    QVERIFY(settings == cJsonValue(cJsonValue::objectValue));
    QVERIFY(!problem.isEmpty());
    QVERIFY(!QFile::exists(path()));
    QCOMPARE(damagedFiles().size(), 1);
    QFile kept(m_folder->filePath(damagedFiles().constFirst()));
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), content);
}

void SettingsFileTest::secondDamagedFileDoesNotReplaceTheFirst()
{
    QString problem;
    for (const char* text : {"first", "second", "third"}) {
        put(text);
        const ExpectedMessage message(
            QtWarningMsg, QRegularExpression(QStringLiteral("^Settings in .*is kept as ")));
        SettingsFile(path()).read(problem);
    }
    QStringList contents;
    const QStringList names = damagedFiles();
    for (const QString& name : names) {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        contents.append(QString::fromUtf8(file.readAll()));
    }
    contents.sort();
    QCOMPARE(contents, QStringList({"first", "second", "third"}));
}

void SettingsFileTest::fileThatCannotBeSetAsideIsNeverWrittenOver()
{
    // A file that nobody can rename, and that holds no settings.
    const QString name = QStringLiteral("/proc/version");
    SettingsFile file(name);
    QString problem;
    {
        const ExpectedMessage message(
            QtWarningMsg, QRegularExpression(QStringLiteral("could not be set aside and is left alone$")));
        QVERIFY(file.read(problem) == cJsonValue(cJsonValue::objectValue));
    }
    QVERIFY(!problem.isEmpty());
    problem.clear();
    QVERIFY(!file.write(cJsonValue(cJsonValue::objectValue), problem));
    // Refused, not tried: the reason is that the file was not read.
    QVERIFY2(problem.contains(QStringLiteral("/proc/version can't be read")), qPrintable(problem));
}

void SettingsFileTest::failedWriteLeavesTheFile()
{
    put("{\"settings\": {\"a\": 1}, \"version\": 1}");
    // The folder of the settings is a file.
    SettingsFile file(path() + QStringLiteral("/settings.json"));
    QString problem;
    QVERIFY(!file.write(cJsonValue(cJsonValue::objectValue), problem));
    QVERIFY(!problem.isEmpty());
    QCOMPARE(content(), QByteArray("{\"settings\": {\"a\": 1}, \"version\": 1}"));
}

void SettingsFileTest::tooLargeSettingsAreNotWritten()
{
    put("{\"settings\": {}, \"version\": 1}");
    cJsonValue settings;
    settings["a"] = QString(int(SettingsFile::MaxSize), QLatin1Char('x'));
    QString problem;
    QVERIFY(!SettingsFile(path()).write(settings, problem));
    QVERIFY(!problem.isEmpty());
    QCOMPARE(content(), QByteArray("{\"settings\": {}, \"version\": 1}"));
}

VELTRANO_TEST_MAIN(SettingsFileTest)
#include "SettingsFileTest.moc"
