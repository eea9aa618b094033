#include "DialogSetup.h"

#include "DialogConstants.h"

#include <QDialog>
#include <QIcon>
#include <QVariant>

void DialogSetup::apply(QDialog& dialog)
{
    dialog.setWindowFlags(
        Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setWindowIcon(QIcon(DialogConstants::WindowIcon));
}

void DialogSetup::setGray(QWidget& button)
{
    button.setProperty(DialogConstants::UiType, QString(DialogConstants::GrayButton));
}
