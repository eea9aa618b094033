#pragma once

#include <IMainUI.h>

class IHostWindow;

/// The main window as plug-ins see it. Without a window the messages are still shown and the rest does
/// nothing.
class cMainUIService : public IMainUI
{
    Q_OBJECT
    Q_CLASSINFO("service", "MainUI.MainUI")

public:
    explicit cMainUIService(QObject* parent = nullptr);

    /// The window, which outlives the service; null while there is none.
    void setWindow(IHostWindow* window) { m_window = window; }

    void setVisible(bool visible) override;
    QWidget* window() override;
    /// A file that can't be written is reported in the window.
    void saveScreenshot(const QString& fileName) override;
    void raiseDeviceBar() override;
    bool isDeviceBarUnderMouse() override;
    QString getActiveDeviceId() override;
    void warning(const QString& titleText, const QString& warningText) override;
    /// "No" is the default, and Escape answers it.
    bool yesno(const QString& titleText, const QString& questionText) override;
    /// Doing nothing is the default, and Escape answers it. Choices without a text get a text of their own.
    ConflictResolution::ConflictResolution_t conflict(const QString& titleText,
        const QString& descriptionText, const QString& itemText, const QString& replaceText,
        const QString& doNothingText, const QString& duplicateText) override;
    void info(const QString& titleText, const QString& messageText) override;

private:
    IHostWindow* m_window = nullptr;
};
