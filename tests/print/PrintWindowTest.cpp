#include <cDevMgrService.h>
#include <cMacroTypeMgrService.h>
#include <cProfileMgr.h>
#include <cProfileMgrService.h>
#include <cProfilePrinter.h>
#include <Fakes.h>
#include <FullDisk.h>
#include <IServiceMgr.h>
#include <PrintWindow.h>
#include <RealLook.h>
#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPrintPreviewWidget>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <memory>

namespace {

const QString P = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");
const QString K13Category = QStringLiteral("Veltrano.Gaming.LeftHandedController");
/// A name that would be something else as markup.
const QString MarkupName = QStringLiteral("<b>Bold</b> & <img src=\"x.png\"> <!-- gone -->");

QString outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s failed", qUtf8Printable(program));
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

/// From the service's operation to the page, on the real devices.
class PrintWindowTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void operationOpensAPreviewOfEachMode();
    void unknownProfileIsNotPrinted();
    void savedDocumentHasAllKeysAndCommands();
    void textsArePrintedAsTheyAre();
    void pageShowsTheDeviceAndItsLabels_data();
    void pageShowsTheDeviceAndItsLabels();
    void manyKeysGoOnOnTheNextPage();
    void pagesAreTurned();
    void documentThatCanNotBeWrittenIsReported();
    void documentThatDoesNotFitOnTheDiskReplacesNothing();

private:
    /// Assigns a command to each third key in each mode.
    void assign(const QString& category, const QStringList& keys, bool hasModes);
    static void closeWindows();
    PrintWindow* openWindow(const QString& category, const QStringList& keys = {});
    QString savedText(PrintWindow& window);
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    FakeSettings m_settings;
    FakeMainUI m_mainUI;
    std::unique_ptr<cMacroTypeMgrService> m_types;
    std::unique_ptr<cDevMgrService> m_devices;
    std::unique_ptr<cProfilePrinter> m_printer;
    std::unique_ptr<cProfileMgrService> m_service;
};

void PrintWindowTest::initTestCase()
{
    TestCase::initTestCase();
    QCoreApplication::setApplicationName("Veltrano Gaming");
    QVERIFY(applyRealLook(QStringLiteral(SHARE_FOLDER)));
    QDir().mkpath(QStringLiteral(PICTURES_FOLDER));
}

void PrintWindowTest::cleanupTestCase()
{
    qApp->setStyleSheet(QString());
    TestCase::cleanupTestCase();
}

void PrintWindowTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_types = std::make_unique<cMacroTypeMgrService>();
    m_types->registerMacroType(cMacroTypePtr(new FakeType("urn:any", {"key", "button"})));
    m_devices = std::make_unique<cDevMgrService>();
    m_devices->load(QStringLiteral(DEVICES_FOLDER));
    m_printer = std::make_unique<cProfilePrinter>(*m_devices, m_mainUI);
    QFile start(path("Default.xml"));
    QVERIFY(start.open(QIODevice::WriteOnly) && start.write("<profile name=\"Start\"/>") > 0);
    start.close();
    m_service = std::make_unique<cProfileMgrService>(path("profiles"), path("Default.xml"),
        cProfileMgrService::Surroundings {&m_settings, m_types.get(), m_devices.get(), &m_mainUI});
    m_service->setPrinter(m_printer.get());
    m_service->load();
    IServiceMgr::instance()->registerService(m_service.get());
    cJsonValue record;
    record["uid"] = P;
    record["name"] = MarkupName;
    record["description"] = "For <i>long</i> flights & short ones.";
    QVERIFY(cProfileMgr().addProfile(record));
}

void PrintWindowTest::cleanup()
{
    closeWindows();
    IServiceMgr::instance()->unregisterService(m_service.get());
    m_service.reset();
    m_printer.reset();
    m_devices.reset();
    m_types.reset();
    m_folder.reset();
}

void PrintWindowTest::closeWindows()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (qobject_cast<PrintWindow*>(window))
            delete window;
    }
}

void PrintWindowTest::assign(const QString& category, const QStringList& keys, bool hasModes)
{
    const QList<MKey::MKey_t> modes =
        hasModes ? QList<MKey::MKey_t> {MKey::M1, MKey::M2, MKey::M3} : QList<MKey::MKey_t> {MKey::M1};
    cProfileMgr profiles;
    for (int m = 0; m < modes.size(); ++m) {
        for (int i = m; i < keys.size(); i += 3) {
            cJsonValue macro;
            macro["uid"] = QString("{%1-%2}").arg(keys[i]).arg(m);
            macro["name"] = "name";
            macro["display_name"] = i % 4 == 0 ? QString("Reload the launcher %1 at once").arg(keys[i])
                                               : QString("Do %1 & <u>%2</u>").arg(keys[i]).arg(m + 1);
            macro["namespace"] = "urn:any";
            QVERIFY(profiles.addMacro(P, macro));
            profiles.setAssignment(P, category, macro["uid"].toString(), modes[m], keys[i]);
        }
    }
}

PrintWindow* PrintWindowTest::openWindow(const QString& category, const QStringList& keys)
{
    cProfileMgr().printProfile(P, category, keys);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (auto* const found = qobject_cast<PrintWindow*>(window))
            return found;
    }
    return nullptr;
}

QString PrintWindowTest::savedText(PrintWindow& window)
{
    const QString reason = window.savePdf(path("page.pdf"));
    if (!reason.isEmpty())
        qFatal("%s", qUtf8Printable(reason));
    return outputOf("pdftotext", {"-layout", path("page.pdf"), "-"});
}

void PrintWindowTest::operationOpensAPreviewOfEachMode()
{
    assign(K13Category, {"G1", "G2", "G3", "G4", "G5", "G6"}, true);
    PrintWindow* const window = openWindow(K13Category);
    QVERIFY(window);
    QVERIFY(window->isVisible());
    auto* const preview = window->findChild<QPrintPreviewWidget*>();
    QTRY_COMPARE(preview->pageCount(), 3);
    QVERIFY(window->grab().save(QStringLiteral(PICTURES_FOLDER "/print-window.png")));
}

void PrintWindowTest::unknownProfileIsNotPrinted()
{
    cProfileMgr().printProfile("{NOBODY}", K13Category, {});
    for (QWidget* each : QApplication::topLevelWidgets())
        QVERIFY(!qobject_cast<PrintWindow*>(each));
}

void PrintWindowTest::savedDocumentHasAllKeysAndCommands()
{
    assign(K13Category, {"G1", "G2", "G3"}, true);
    const QString text = savedText(*openWindow(K13Category));
    QVERIFY2(text.contains("K13 Left-Handed Controller"), qPrintable(text));
    const QStringList pages = text.split('\f', Qt::SkipEmptyParts);
    QCOMPARE(pages.size(), 3);
    for (int mode = 0; mode < 3; ++mode) {
        QVERIFY(pages[mode].contains(QString("M%1").arg(mode + 1)));
        for (int key = 1; key <= 22; ++key)
            QVERIFY2(pages[mode].contains(QString("G%1 ").arg(key)), qPrintable(pages[mode]));
        QVERIFY(pages[mode].contains(QString("Page %1 of 3").arg(mode + 1)));
    }
    QVERIFY(pages[0].contains("Reload the launcher G1"));
    QVERIFY(pages[1].contains("Do G2 & <u>2</u>"));
    QVERIFY(!pages[0].contains("Do G2"));
}

void PrintWindowTest::textsArePrintedAsTheyAre()
{
    PrintWindow* const window = openWindow("Veltrano.Gaming.Mouse");
    const QString text = savedText(*window);
    QVERIFY2(text.contains(MarkupName), qPrintable(text));
    QVERIFY(text.contains("For <i>long</i> flights & short ones."));
    QVERIFY(outputOf("pdfinfo", {path("page.pdf")}).contains(MarkupName));
}

void PrintWindowTest::pageShowsTheDeviceAndItsLabels_data()
{
    QTest::addColumn<QString>("category");
    QTest::addColumn<int>("keys");
    QTest::newRow("controller") << K13Category << 27;
    QTest::newRow("mouse") << "Veltrano.Gaming.Mouse" << 10;
    QTest::newRow("keyboard") << "Veltrano.Gaming.Keyboard" << 18;
}

void PrintWindowTest::pageShowsTheDeviceAndItsLabels()
{
    QFETCH(QString, category);
    QFETCH(int, keys);
    const auto render = [&](const QString& name) {
        if (!openWindow(category)->savePdf(path("page.pdf")).isEmpty())
            qFatal("not saved");
        outputOf("pdftoppm",
            {"-r", "100", "-f", "1", "-l", "1", "-png", "-singlefile", path("page.pdf"), path(name)});
        closeWindows();
        return QImage(path(name + ".png"));
    };
    const QImage bare = render("bare");
    QStringList ids;
    for (int i = 1; i <= keys; ++i)
        ids.append(QString("G%1").arg(keys == 27 && i > 22 ? i + 2 : i));
    assign(category, ids, category != "Veltrano.Gaming.Mouse");
    const QImage labelled = render("labelled");
    QVERIFY(labelled.save(QStringLiteral(PICTURES_FOLDER "/print-%1.png").arg(QTest::currentDataTag())));
    QCOMPARE(bare.size(), labelled.size());
    // A4 at 100 dots per inch.
    QVERIFY(qAbs(bare.width() - 827) < 3 && qAbs(bare.height() - 1169) < 3);
    // The picture is dark in the upper half of white paper, where the labels come to.
    const auto darkPixels = [](const QImage& image) {
        int count = 0;
        for (int y = 0; y < image.height() / 2; ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
        }
        return count;
    };
    QCOMPARE(qGray(bare.pixel(10, 10)), 255);
    QVERIFY2(darkPixels(bare) > 10000, qPrintable(QString::number(darkPixels(bare))));
    int changed = 0;
    for (int y = 0; y < bare.height() / 2; ++y) {
        for (int x = 0; x < bare.width(); ++x)
            changed += bare.pixel(x, y) != labelled.pixel(x, y) ? 1 : 0;
    }
    QVERIFY2(changed > 1000, qPrintable(QString::number(changed)));
}

void PrintWindowTest::manyKeysGoOnOnTheNextPage()
{
    QStringList keys;
    for (int i = 1; i <= 150; ++i)
        keys.append(QString("X%1").arg(i));
    const QString text = savedText(*openWindow("Nobody's Category", keys));
    const QStringList pages = text.split('\f', Qt::SkipEmptyParts);
    QVERIFY(pages.size() > 1);
    for (const QString& key : keys)
        QVERIFY2(text.contains(QRegularExpression(QString("\\b%1\\b").arg(key))), qPrintable(key));
    for (const QString& page : pages)
        QVERIFY(page.contains(MarkupName));
}

void PrintWindowTest::pagesAreTurned()
{
    PrintWindow* const window = openWindow(K13Category);
    auto* const preview = window->findChild<QPrintPreviewWidget*>();
    QTRY_COMPARE(preview->pageCount(), 3);
    QPushButton* previous = nullptr;
    QPushButton* next = nullptr;
    for (QPushButton* each : window->findChildren<QPushButton*>()) {
        previous = each->text() == "&Previous" ? each : previous;
        next = each->text() == "&Next" ? each : next;
    }
    if (!previous || !next)
        QFAIL("a button is missing");
    QTRY_VERIFY(next->isEnabled());
    QVERIFY(!previous->isEnabled());
    QTest::mouseClick(next, Qt::LeftButton);
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(preview->currentPage(), 3);
    QVERIFY(!next->isEnabled());
    QTest::mouseClick(previous, Qt::LeftButton);
    QCOMPARE(preview->currentPage(), 2);
}

void PrintWindowTest::documentThatCanNotBeWrittenIsReported()
{
    PrintWindow* const window = openWindow(K13Category);
    QVERIFY(!window->savePdf("/nonexistent/folder/page.pdf").isEmpty());
    QVERIFY(!window->savePdf(m_folder->path()).isEmpty());
}

void PrintWindowTest::documentThatDoesNotFitOnTheDiskReplacesNothing()
{
    PrintWindow* const window = openWindow(K13Category);
    QVERIFY(window->savePdf(path("page.pdf")).isEmpty());
    const qint64 size = QFileInfo(path("page.pdf")).size();
    QFile old(path("page.pdf"));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    {
        // Its last byte has no room.
        const FullDisk disk {rlim_t(size - 1)};
        QVERIFY(!window->savePdf(path("page.pdf")).isEmpty());
    }
    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(old.readAll(), QByteArray("old"));
}

VELTRANO_TEST_MAIN(PrintWindowTest)
#include "PrintWindowTest.moc"
