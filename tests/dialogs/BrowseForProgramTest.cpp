#include "ProfileFormTestCase.h"

#include <FileChoice.h>

#include <QDir>
#include <QStandardPaths>

/// The search for a profile's program in the file dialog.
class BrowseForProgramTest : public ProfileFormTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void browsePutsTheChosenFileIntoTheForm();
    void browseBeginsWhereTheExecutableIs_data();
    void browseBeginsWhereTheExecutableIs();
    void cancelledBrowseChangesNothing();
};

void BrowseForProgramTest::browsePutsTheChosenFileIntoTheForm()
{
    const ProfileForm form;
    form.executable()->setText(m_folder->path());
    const FileChoice choice(existingFile());
    form.browseButton()->click();
    QVERIFY(choice.hasRun());
    QCOMPARE(choice.title, QString("Open"));
    QCOMPARE(choice.filters, QStringList({"Executables (*.exe)", "All Files (*.*)"}));
    QCOMPARE(choice.fileMode, QFileDialog::ExistingFile);
    QCOMPARE(form.executable()->text(), QDir::toNativeSeparators(existingFile()));
}

void BrowseForProgramTest::browseBeginsWhereTheExecutableIs_data()
{
    QTest::addColumn<bool>("isEmpty");

    QTest::newRow("nothing chosen yet") << true;
    QTest::newRow("something chosen") << false;
}

void BrowseForProgramTest::browseBeginsWhereTheExecutableIs()
{
    QFETCH(bool, isEmpty);
    const QString home = qEnvironmentVariable("HOME");
    qputenv("HOME", m_folder->path().toLocal8Bit());
    const QString applications = QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
    QVERIFY(QDir().mkpath(applications));
    const ProfileForm form;
    form.executable()->setText(isEmpty ? QString() : existingFile());
    const FileChoice cancelled;
    form.browseButton()->click();
    QVERIFY(cancelled.hasRun());
    QCOMPARE(QDir(cancelled.folder).canonicalPath(),
        QDir(isEmpty ? applications : m_folder->path()).canonicalPath());
    qputenv("HOME", home.toLocal8Bit());
}

void BrowseForProgramTest::cancelledBrowseChangesNothing()
{
    const ProfileForm form;
    form.executable()->setText("/games/mine.exe");
    const FileChoice cancelled;
    form.browseButton()->click();
    QVERIFY(cancelled.hasRun());
    QCOMPARE(form.executable()->text(), QString("/games/mine.exe"));
}

VELTRANO_TEST_MAIN(BrowseForProgramTest)
#include "BrowseForProgramTest.moc"
