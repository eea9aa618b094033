#pragma once

#include "IMainUI.h"

/// The client of IMainUI, the service "MainUI.MainUI"; see cServiceClient.h for how its members call.
class cMainUI : public IMainUI
{
    Q_OBJECT

public:
    cMainUI();

    void setVisible(bool visible) override;
    QWidget* window() override;
    void saveScreenshot(const QString& fileName) override;
    void raiseDeviceBar() override;
    bool isDeviceBarUnderMouse() override;
    QString getActiveDeviceId() override;
    void warning(const QString& titleText, const QString& warningText) override;
    bool yesno(const QString& titleText, const QString& questionText) override;
    ConflictResolution::ConflictResolution_t conflict(const QString& titleText,
        const QString& descriptionText, const QString& itemText, const QString& replaceText,
        const QString& doNothingText, const QString& duplicateText) override;
    void info(const QString& titleText, const QString& messageText) override;
};
