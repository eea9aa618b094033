#include "cMainUI.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cMainUI::cMainUI()
{
    requireService(ServiceNames::MainUI);
}

void cMainUI::setVisible(bool visible)
{
    callService(ServiceNames::MainUI, "setVisible", tagged("bool", visible));
}

QWidget* cMainUI::window()
{
    return askService<QWidget*>(ServiceNames::MainUI, "window", "QWidget*");
}

void cMainUI::saveScreenshot(const QString& fileName)
{
    callService(ServiceNames::MainUI, "saveScreenshot", tagged("const QString", fileName));
}

void cMainUI::raiseDeviceBar()
{
    callService(ServiceNames::MainUI, "raiseDeviceBar");
}

bool cMainUI::isDeviceBarUnderMouse()
{
    return askService<bool>(ServiceNames::MainUI, "isDeviceBarUnderMouse", "bool");
}

QString cMainUI::getActiveDeviceId()
{
    return askService<QString>(ServiceNames::MainUI, "getActiveDeviceId", "QString");
}

void cMainUI::warning(const QString& titleText, const QString& warningText)
{
    callService(ServiceNames::MainUI, "warning", tagged("const QString", titleText),
        tagged("const QString", warningText));
}

bool cMainUI::yesno(const QString& titleText, const QString& questionText)
{
    return askService<bool>(ServiceNames::MainUI, "yesno", "bool", tagged("const QString", titleText),
        tagged("const QString", questionText));
}

ConflictResolution::ConflictResolution_t cMainUI::conflict(const QString& titleText,
    const QString& descriptionText, const QString& itemText, const QString& replaceText,
    const QString& doNothingText, const QString& duplicateText)
{
    return askService<ConflictResolution::ConflictResolution_t>(ServiceNames::MainUI, "conflict",
        "ConflictResolution::ConflictResolution_t", tagged("const QString", titleText),
        tagged("const QString", descriptionText), tagged("const QString", itemText),
        tagged("const QString", replaceText), tagged("const QString", doNothingText),
        tagged("const QString", duplicateText));
}

void cMainUI::info(const QString& titleText, const QString& messageText)
{
    callService(ServiceNames::MainUI, "info", tagged("const QString", titleText),
        tagged("const QString", messageText));
}
