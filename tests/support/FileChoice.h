#pragma once

#include "DialogDriver.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMetaObject>
#include <QString>
#include <QStringList>

/// Looks at the next file dialog and answers it.
class FileChoice
{
    Q_DISABLE_COPY(FileChoice)

public:
    /// No path cancels.
    explicit FileChoice(const QString& path = QString())
        : m_driver([this, path](QDialog& dialog) { answer(dialog, path); })
    { }

    /// Has the dialog take the file.
    static void give(QDialog& dialog, const QString& path)
    {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    }

    bool hasRun() const { return m_driver.hasRun(); }

    // What the dialog showed.
    QString title;
    QString folder;
    QStringList filters;
    /// The one that was selected.
    QString filter;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    QFileDialog::FileMode fileMode = QFileDialog::AnyFile;
    bool hasParent = true;

private:
    void answer(QDialog& dialog, const QString& path)
    {
        const auto& files = *qobject_cast<QFileDialog*>(&dialog);
        title = files.windowTitle();
        folder = files.directory().absolutePath();
        filters = files.nameFilters();
        filter = files.selectedNameFilter();
        mode = files.acceptMode();
        fileMode = files.fileMode();
        hasParent = dialog.parentWidget() != nullptr;
        if (!path.isEmpty())
            give(dialog, path);
    }

    DialogDriver m_driver;
};
