#include "Journey.h"

#include <TestCase.h>

#include <QFile>
#include <QProcess>

/// A profile on paper.
class PrintJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void profileIsSavedAsPdfAndThePrintDialogOpens();
};

void PrintJourney::profileIsSavedAsPdfAndThePrintDialogOpens()
{
    Journey journey({"--device", "Veltrano.Gaming.LeftHandedController.K13"});
    QVERIFY(journey.isRunning());
    journey.key("ctrl+p");
    QVERIFY(journey.waitForWindow("Print Profile"));
    QVERIFY(Journey::saveScreen("print-preview.png"));
    journey.key("alt+s");
    QVERIFY(journey.waitForWindow("Save as PDF"));
    journey.key("ctrl+a");
    const QString document = journey.dataFile("keys of the pilot.pdf");
    // The ending comes by itself.
    journey.type(document.chopped(4));
    QVERIFY(Journey::saveScreen("print-save.png"));
    journey.key("Return");
    QTRY_VERIFY(QFile::exists(document));
    QTRY_COMPARE(Journey::countWindows("Print Profile"), 0);

    QProcess reader;
    reader.start("pdftotext", {"-layout", document, "-"});
    QVERIFY(reader.waitForFinished());
    const QByteArray text = reader.readAllStandardOutput();
    QVERIFY2(text.contains("Default Profile"), text);
    QVERIFY(text.contains("Page 3 of 3"));
    reader.start("pdftoppm",
        {"-r", "60", "-f", "1", "-l", "1", "-png", "-singlefile", document, journey.dataFile("page")});
    QVERIFY(reader.waitForFinished());
    const QImage page(journey.dataFile("page.png"));
    QVERIFY(!page.isNull());
    QCOMPARE(qGray(page.pixel(2, 2)), 255);
    // The device's picture is the one dark thing on white paper.
    int dark = 0;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            dark += qGray(page.pixel(x, y)) < 100 ? 1 : 0;
    }
    QVERIFY2(dark > page.width() * page.height() / 10, qPrintable(QString::number(dark)));

    journey.key("ctrl+p");
    QVERIFY(journey.waitForWindow("Print Profile"));
    journey.key("alt+r");
    QTRY_VERIFY(Journey::countWindows("^Print$") == 1);
    QVERIFY(Journey::saveScreen("print-dialog.png"));
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("^Print$"), 0);
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("Print Profile"), 0);
    QVERIFY(journey.end());
}

VELTRANO_TEST_MAIN(PrintJourney)
#include "PrintJourney.moc"
