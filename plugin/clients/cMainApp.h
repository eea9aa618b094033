#pragma once

#include "IMainApp.h"

/// The client of IMainApp, the service "MainApp.MainApp"; see cServiceClient.h for how its members call.
class cMainApp : public IMainApp
{
    Q_OBJECT

public:
    cMainApp();

    void execute(bool launchUpdateWizard) override;
    void winRegisterDeviceChange(const QUuid& classGuid) override;
    Qt::HANDLE winRegisterDeviceHandleChange(Qt::HANDLE fileHandle) override;
    void winUnregisterDeviceHandleChange(Qt::HANDLE changeHandle) override;
    QWidget* mainWidget() override;
    void loadStyleSheet() override;
    void launchUpdateWizard() override;
    void setModalLock(bool enable) override;
    bool inForeground() override;
    bool showTrayMessage(const QString& title, const QString& message, MessageIcon::MessageIcon_t icon,
        int msecs, int cookie) override;
    QString foregroundApp() override;
};
