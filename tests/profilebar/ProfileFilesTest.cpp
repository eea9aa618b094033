#include "Bar.h"

#include <FileChoice.h>
#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

QString desktop()
{
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

} // namespace

/// Profiles are read from files and written to them.
class ProfileFilesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void importAsksForAFile_data();
    void importAsksForAFile();
    void exportAsksForAFile_data();
    void exportAsksForAFile();
    void exportTakesWhatIsCurrentWhenTheFileIsChosen();
    void exportWithoutADesktopEmptiesTheSetting();
    void barThatGoesDuringAFileDialog();
};

void ProfileFilesTest::initTestCase()
{
    TestCase::initTestCase();
    QStandardPaths::setTestModeEnabled(true);
    QDir().mkpath(desktop());
}

void ProfileFilesTest::importAsksForAFile_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<bool>("cancels");
    QTest::newRow("first time") << QString() << false;
    QTest::newRow("again") << QString("there") << false;
    QTest::newRow("folder that is gone") << QString("gone") << false;
    QTest::newRow("cancelled") << QString("there") << true;
}

void ProfileFilesTest::importAsksForAFile()
{
    QFETCH(QString, last);
    QFETCH(bool, cancels);
    QTemporaryDir folder;
    QDir(folder.path()).mkpath("there");
    QDir(folder.path()).mkpath("other");
    const QString path = folder.filePath("other/100% %1.lgp");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    Bar on;
    if (!last.isEmpty())
        on.host.settings["profiler/lastimportdir"] = folder.filePath(last);
    FileChoice choice(cancels ? QString() : path);
    on.call("onMenuImportProfile");
    QVERIFY(choice.hasRun());
    QCOMPARE(choice.title, QString("Import Profile"));
    QVERIFY(!choice.hasParent);
    QCOMPARE(choice.filters, QStringList({"Game Profiles (*.lgp *.xml)", "All Files (*)"}));
    QCOMPARE(choice.mode, QFileDialog::AcceptOpen);
    if (last == "there")
        QCOMPARE(choice.folder, folder.filePath("there"));
    QStringList calls {QString("getPropertyString(\"profiler/lastimportdir\", \"%1\")").arg(desktop())};
    if (!cancels) {
        calls += QString("importProfile(\"%1\")").replace("%1", path);
        calls +=
            QString("setPropertyString(\"profiler/lastimportdir\", \"%1\")").arg(folder.filePath("other"));
    }
    QCOMPARE(on.host.host.takeCalls(), calls);
}

void ProfileFilesTest::exportAsksForAFile_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<bool>("cancels");
    // Whether the setting is emptied before the dialog opens.
    QTest::addColumn<bool>("empties");
    QTest::newRow("first time") << QString() << false << false;
    QTest::newRow("again") << QString("there") << false << false;
    QTest::newRow("empty setting") << QString("") << false << false;
    QTest::newRow("folder that is gone") << QString("gone") << false << true;
    QTest::newRow("file instead of a folder") << QString("file") << true << true;
    QTest::newRow("cancelled") << QString("there") << true << false;
    QTest::newRow("gone and cancelled") << QString("gone") << true << true;
}

void ProfileFilesTest::exportAsksForAFile()
{
    QFETCH(QString, last);
    QFETCH(bool, cancels);
    QFETCH(bool, empties);
    QTemporaryDir folder;
    QDir(folder.path()).mkpath("there");
    QDir(folder.path()).mkpath("other");
    QFile file(folder.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString path = folder.filePath("other/profile.xml");
    Bar on({"Alpha", "Beta", "Default"});
    if (!last.isNull())
        on.host.settings["profiler/lastexportdir"] = last.isEmpty() ? QString("") : folder.filePath(last);
    FileChoice choice(cancels ? QString() : path);
    // From a tile's menu as well as from the bar's.
    Q_EMIT on.list->exportProfile();
    QVERIFY(choice.hasRun());
    QCOMPARE(choice.title, QString("Export Profile"));
    QVERIFY(!choice.hasParent);
    QCOMPARE(choice.filters, QStringList({"Game Profiles (*.xml)", "All Files (*)"}));
    QCOMPARE(choice.mode, QFileDialog::AcceptSave);
    QCOMPARE(choice.folder, last == "there" ? folder.filePath("there") : desktop());
    QStringList calls {QString("getPropertyString(\"profiler/lastexportdir\", \"%1\")").arg(desktop())};
    if (empties)
        calls += R"(setPropertyString("profiler/lastexportdir", ""))";
    if (!cancels) {
        calls += QString("exportProfile(\"{Alpha}\", \"%1\")").arg(path);
        calls +=
            QString("setPropertyString(\"profiler/lastexportdir\", \"%1\")").arg(folder.filePath("other"));
    }
    QCOMPARE(on.host.host.takeCalls(), calls);
}

void ProfileFilesTest::exportTakesWhatIsCurrentWhenTheFileIsChosen()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("profile.xml");
    Bar on({"Alpha", "Beta", "Default"});
    const DialogDriver driver([&](QDialog& dialog) {
        on.host.host.publishCurrentProfileSwitched("{Beta}");
        FileChoice::give(dialog, path);
    });
    on.call("onMenuExportProfile");
    QVERIFY(driver.hasRun());
    QVERIFY(on.host.takeRequests().contains(QString("exportProfile(\"{Beta}\", \"%1\")").arg(path)));
}

void ProfileFilesTest::exportWithoutADesktopEmptiesTheSetting()
{
    // A person's folder in which nothing is.
    const QTemporaryDir home;
    const QByteArray before = qgetenv("HOME");
    const auto restore = qScopeGuard([&] { qputenv("HOME", before); });
    qputenv("HOME", QFile::encodeName(home.path()));
    QVERIFY(!QDir(desktop()).exists());
    Bar on;
    on.host.settings["profiler/lastexportdir"] = QString("");
    const FileChoice choice;
    on.call("onMenuExportProfile");
    QVERIFY(choice.hasRun());
    QCOMPARE(on.host.host.takeCalls(),
        QStringList({QString("getPropertyString(\"profiler/lastexportdir\", \"%1\")").arg(desktop()),
            R"(setPropertyString("profiler/lastexportdir", ""))"}));
}

void ProfileFilesTest::barThatGoesDuringAFileDialog()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("profile.xml");
    Bar on;
    const DialogDriver driver([&](QDialog& dialog) {
        delete on.bar;
        FileChoice::give(dialog, path);
    });
    on.call("onMenuExportProfile");
    QVERIFY(driver.hasRun());
    // What the user asked for is done all the same.
    QVERIFY(on.host.takeRequests().contains(QString("exportProfile(\"{Alpha}\", \"%1\")").arg(path)));
}

VELTRANO_TEST_MAIN(ProfileFilesTest)
#include "ProfileFilesTest.moc"
