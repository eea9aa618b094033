#include "PrintWindow.h"

#include "KeySheetPainter.h"

#include <HelpKey.h>
#include <HostPalette.h>
#include <MessageDialog.h>
#include <WholeFile.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>
#include <QVariant>
#include <QVBoxLayout>

namespace {

constexpr QSize InitialSize(760, 820);
constexpr int Margin = 16;
constexpr int Spacing = 8;
/// Dots per inch of PDF documents; what is drawn are curves and letters, apart from the device's picture.
constexpr int PdfResolution = 300;
constexpr qreal PageMargin = 15.0;

/// The profile's name without what file names can't have.
QString fileNameOf(const QString& profileName)
{
    static const QRegularExpression unusable(QStringLiteral("[\\x00-\\x1f/\\\\:*?\"<>|]+"));
    const QString name = QString(profileName).replace(unusable, QStringLiteral("_")).left(100).trimmed();
    return (name.isEmpty() ? QStringLiteral("profile") : name) + QStringLiteral(".pdf");
}

} // namespace

PrintWindow::PrintWindow(const KeySheet& sheet, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint)
    , m_sheet(sheet)
    , m_printer(QPrinter::HighResolution)
{
    setWindowModality(Qt::WindowModal);
    setWindowTitle(tr("Print Profile"));
    setWindowIcon(QIcon(QStringLiteral("MainApp:/Resources/images/VeltranoBlackLogo.png")));
    setProperty("uiType", QStringLiteral("PrintWindow"));
    m_printer.setDocName(m_sheet.profileName);
    m_printer.setCreator(QCoreApplication::applicationName());
    m_printer.setPageMargins(
        QMarginsF(PageMargin, PageMargin, PageMargin, PageMargin), QPageLayout::Millimeter);

    m_preview = new QPrintPreviewWidget(&m_printer);
    m_preview->setAccessibleName(tr("Preview"));
    // Its own grey is brighter than all around it.
    if (auto* const view = m_preview->findChild<QGraphicsView*>())
        view->setBackgroundBrush(QColor(HostPalette::Rim));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addWidget(createBar());
    layout->addWidget(m_preview, 1);
    layout->addWidget(createFooter());
    resize(InitialSize);
    new HelpKey(QStringLiteral("printing.htm"), this);
    connect(m_preview, SIGNAL(paintRequested(QPrinter*)), this, SLOT(onPaintRequested(QPrinter*)));
    connect(m_preview, SIGNAL(previewChanged()), this, SLOT(onPreviewChanged()));
    onFitPage();
}

QPushButton* PrintWindow::addButton(
    QBoxLayout& layout, const QString& text, const QString& name, const char* slot)
{
    auto* const button = new QPushButton(text);
    if (!name.isEmpty()) {
        button->setAccessibleName(name);
        button->setToolTip(name);
    }
    button->setAutoDefault(false);
    connect(button, SIGNAL(clicked()), this, slot);
    layout.addWidget(button);
    return button;
}

QWidget* PrintWindow::createBar()
{
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing);
    m_previous = addButton(*layout, tr("&Previous"), tr("Previous page"), SLOT(onPrevious()));
    m_page = new QLabel;
    m_page->setProperty("uiType", QStringLiteral("QuietText"));
    m_page->setAlignment(Qt::AlignCenter);
    m_page->setMinimumWidth(
        m_page->fontMetrics().horizontalAdvance(tr("Page %1 of %2").arg(99).arg(99)) + Margin);
    layout->addWidget(m_page);
    m_next = addButton(*layout, tr("&Next"), tr("Next page"), SLOT(onNext()));
    layout->addStretch(1);
    addButton(*layout, tr("&Whole Page"), QString(), SLOT(onFitPage()));
    addButton(*layout, tr("Page W&idth"), QString(), SLOT(onFitWidth()));
    addButton(*layout, QStringLiteral("+"), tr("Larger"), SLOT(onZoomIn()));
    addButton(*layout, QString(QChar(0x2212)), tr("Smaller"), SLOT(onZoomOut()));
    return bar;
}

QWidget* PrintWindow::createFooter()
{
    auto* const footer = new QWidget;
    auto* const layout = new QHBoxLayout(footer);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing);
    layout->addStretch(1);
    addButton(*layout, tr("&Save as PDF..."), QString(), SLOT(onSavePdf()));
    addButton(*layout, tr("P&rint..."), QString(), SLOT(onPrint()))->setDefault(true);
    addButton(*layout, tr("Close"), QString(), SLOT(reject()))
        ->setProperty("uiType", QStringLiteral("grayButton"));
    return footer;
}

void PrintWindow::onPaintRequested(QPrinter* printer)
{
    KeySheetPainter(m_sheet).paint(*printer);
}

void PrintWindow::onPreviewChanged()
{
    const int page = m_preview->currentPage();
    const int count = m_preview->pageCount();
    m_page->setText(tr("Page %1 of %2").arg(page).arg(count));
    m_previous->setEnabled(page > 1);
    m_next->setEnabled(page < count);
}

void PrintWindow::onPrevious()
{
    m_preview->setCurrentPage(m_preview->currentPage() - 1);
    onPreviewChanged();
}

void PrintWindow::onNext()
{
    m_preview->setCurrentPage(m_preview->currentPage() + 1);
    onPreviewChanged();
}

void PrintWindow::onFitPage()
{
    m_preview->fitInView();
}

void PrintWindow::onFitWidth()
{
    m_preview->fitToWidth();
}

void PrintWindow::onZoomIn()
{
    m_preview->zoomIn();
}

void PrintWindow::onZoomOut()
{
    m_preview->zoomOut();
}

void PrintWindow::tell(const QString& text)
{
    auto* const dialog = new MessageDialog(MessageDialog::Kind::Warning, tr("Print Profile"), text, this);
    dialog->addChoice(QDialog::Accepted, tr("OK"), true);
    MessageDialog::run(dialog, QDialog::Rejected);
}

void PrintWindow::onPrint()
{
    QPrintDialog dialog(&m_printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (KeySheetPainter(m_sheet).paint(m_printer) && m_printer.printerState() != QPrinter::Error)
        accept();
    else
        tell(tr("%1 was not printed: the printer can't be used.").arg(m_sheet.profileName));
}

void PrintWindow::onSavePdf()
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QFileDialog dialog(this, tr("Save as PDF"), folder.path(), tr("PDF Documents (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(fileNameOf(m_sheet.profileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().constFirst();
    const QString reason = savePdf(path);
    if (!reason.isEmpty())
        tell(tr("%1 was not saved as %2: %3.")
                 .arg(m_sheet.profileName, QDir::toNativeSeparators(path), reason));
    else
        accept();
}

QString PrintWindow::savePdf(const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    {
        QPdfWriter writer(&file);
        writer.setTitle(m_sheet.profileName);
        writer.setCreator(QCoreApplication::applicationName());
        writer.setResolution(PdfResolution);
        writer.setPageLayout(m_printer.pageLayout());
        if (!KeySheetPainter(m_sheet).paint(writer))
            return tr("the document can't be drawn");
    }
    QString error;
    WholeFile::commit(file, &error);
    return error;
}
