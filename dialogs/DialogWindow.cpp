#include "DialogWindow.h"

#include <QDialog>
#include <QIcon>

void DialogWindow::setUp(QDialog& dialog)
{
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setWindowIcon(QIcon(QStringLiteral("MainApp:/Resources/images/VeltranoBlackLogo.png")));
    dialog.setWindowFlags(
        Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}
