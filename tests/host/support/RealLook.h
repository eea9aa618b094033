#pragma once

#include <ApplicationLook.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QString>

/// Gives the test's application the look of the real one: its fonts, its palette and its style sheet with the
/// pictures from the share folder. False if there is no style sheet.
inline bool applyRealLook(const QString& shareFolder)
{
    ApplicationLook::apply();
    QDir::setSearchPaths(QStringLiteral("MainApp"), {shareFolder});
    QFile sheet(shareFolder + QStringLiteral("/Resources/style/veltrano.qss"));
    if (!sheet.open(QIODevice::ReadOnly))
        return false;
    qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
    return true;
}
