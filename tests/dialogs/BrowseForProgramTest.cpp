#include "ProfileFormTestCase.h"

#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>
#include <QTimer>

#include <functional>

namespace {

/// Waits for the file dialog and works it; returns when it is closed.
void withFileDialog(const ProfileForm& form, const std::function<void(QFileDialog&)>& work)
{
    QTimer timer;
    bool hasCome = false;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            timer.stop();
            hasCome = true;
            work(*dialog);
        }
    });
    timer.start(10);
    form.browseButton()->click();
    QVERIFY(hasCome);
}

} // namespace

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
    withFileDialog(form, [this](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Open"));
        QCOMPARE(dialog.nameFilters(), QStringList({"Executables (*.exe)", "All Files (*.*)"}));
        QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(existingFile());
        QMetaObject::invokeMethod(&dialog, "accept");
    });
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
    withFileDialog(form, [&](QFileDialog& dialog) {
        QCOMPARE(QDir(dialog.directory().path()).canonicalPath(),
            QDir(isEmpty ? applications : m_folder->path()).canonicalPath());
        dialog.reject();
    });
    qputenv("HOME", home.toLocal8Bit());
}

void BrowseForProgramTest::cancelledBrowseChangesNothing()
{
    const ProfileForm form;
    form.executable()->setText("/games/mine.exe");
    withFileDialog(form, [](QFileDialog& dialog) { dialog.reject(); });
    QCOMPARE(form.executable()->text(), QString("/games/mine.exe"));
}

VELTRANO_TEST_MAIN(BrowseForProgramTest)
#include "BrowseForProgramTest.moc"
