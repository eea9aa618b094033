#include "cMainApp.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cMainApp::cMainApp()
{
    requireService(ServiceNames::MainApp);
}

void cMainApp::execute(bool launchUpdateWizard)
{
    callService(ServiceNames::MainApp, "execute", tagged("bool", launchUpdateWizard));
}

void cMainApp::winRegisterDeviceChange(const QUuid& classGuid)
{
    callService(ServiceNames::MainApp, "winRegisterDeviceChange", tagged("const QUuid", classGuid));
}

Qt::HANDLE cMainApp::winRegisterDeviceHandleChange(Qt::HANDLE fileHandle)
{
    return askService<Qt::HANDLE>(ServiceNames::MainApp, "winRegisterDeviceHandleChange", "Qt::HANDLE",
        tagged("Qt::HANDLE", fileHandle));
}

void cMainApp::winUnregisterDeviceHandleChange(Qt::HANDLE changeHandle)
{
    callService(ServiceNames::MainApp, "winUnregisterDeviceHandleChange", tagged("Qt::HANDLE", changeHandle));
}

QWidget* cMainApp::mainWidget()
{
    return askService<QWidget*>(ServiceNames::MainApp, "mainWidget", "QWidget*");
}

void cMainApp::loadStyleSheet()
{
    callService(ServiceNames::MainApp, "loadStyleSheet");
}

void cMainApp::launchUpdateWizard()
{
    callService(ServiceNames::MainApp, "launchUpdateWizard");
}

void cMainApp::setModalLock(bool enable)
{
    callService(ServiceNames::MainApp, "setModalLock", tagged("bool", enable));
}

bool cMainApp::inForeground()
{
    return askService<bool>(ServiceNames::MainApp, "inForeground", "bool");
}

bool cMainApp::showTrayMessage(
    const QString& title, const QString& message, MessageIcon::MessageIcon_t icon, int msecs, int cookie)
{
    return askService<bool>(ServiceNames::MainApp, "showTrayMessage", "bool", tagged("const QString", title),
        tagged("const QString", message), tagged("MessageIcon::MessageIcon_t", icon), tagged("int", msecs),
        tagged("int", cookie));
}

QString cMainApp::foregroundApp()
{
    return askService<QString>(ServiceNames::MainApp, "foregroundApp", "QString");
}
