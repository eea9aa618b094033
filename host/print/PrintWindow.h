#pragma once

#include "KeySheet.h"

#include <QDialog>
#include <QPrinter>

class QLabel;
class QPrintPreviewWidget;
class QPushButton;

/// Shows a key sheet as it will be printed, prints it or saves it as a PDF document.
class PrintWindow : public QDialog
{
    Q_OBJECT

public:
    explicit PrintWindow(const KeySheet& sheet, QWidget* parent = nullptr);

    /// Writes the sheet as a PDF document; the reason if that failed, for people.
    QString savePdf(const QString& path);

private Q_SLOTS:
    void onPaintRequested(QPrinter* printer);
    void onPreviewChanged();
    void onPrevious();
    void onNext();
    void onFitPage();
    void onFitWidth();
    void onZoomIn();
    void onZoomOut();
    void onPrint();
    void onSavePdf();

private:
    QWidget* createBar();
    QWidget* createFooter();
    QPushButton* addButton(
        class QBoxLayout& layout, const QString& text, const QString& name, const char* slot);
    void tell(const QString& text);

    KeySheet m_sheet;
    QPrinter m_printer;
    QPrintPreviewWidget* m_preview = nullptr;
    QLabel* m_page = nullptr;
    QPushButton* m_previous = nullptr;
    QPushButton* m_next = nullptr;
};
