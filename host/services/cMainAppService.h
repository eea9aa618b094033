#pragma once

#include "ActiveProcess.h"

#include <IMainApp.h>

#include <QLatin1String>
#include <QPointer>
#include <QSystemTrayIcon>

class IHostWindow;

/// The events on "MainApp_Events" that are the host's own.
namespace MainAppEvents {
/// (int cookie): a message at the tray was clicked.
inline const QLatin1String TrayMessageClicked("TrayMessageClicked");
} // namespace MainAppEvents

/// The application and its place on the desktop. Publishes "ForegroundAppChange" when another process comes
/// to the foreground; the process is 0 and the path empty where the desktop does not tell.
class cMainAppService : public IMainApp
{
    Q_OBJECT
    Q_CLASSINFO("service", "MainApp.MainApp")

public:
    explicit cMainAppService(QObject* parent = nullptr);
    ~cMainAppService() override;

    /// The window, which outlives the service; null while there is none.
    void setWindow(IHostWindow* window) { m_window = window; }
    /// The file of the style sheet.
    void setStyleSheetFile(const QString& path) { m_styleSheetFile = path; }

    void execute(bool wantsUpdateWizard) override;
    void winRegisterDeviceChange(const QUuid& classGuid) override;
    Qt::HANDLE winRegisterDeviceHandleChange(Qt::HANDLE fileHandle) override;
    void winUnregisterDeviceHandleChange(Qt::HANDLE changeHandle) override;
    QWidget* mainWidget() override;
    /// A file that can't be read leaves the style sheet as it is and is reported.
    void loadStyleSheet() override;
    /// Updates come with the system's packages: tells the version and that.
    void launchUpdateWizard() override;
    void setModalLock(bool enable) override;
    bool inForeground() override;
    bool showTrayMessage(const QString& title, const QString& message, MessageIcon::MessageIcon_t icon,
        int msecs, int cookie) override;
    QString foregroundApp() override;

Q_SIGNALS:
    /// Something failed; the text is for the user.
    void problemFound(const QString& message);

private Q_SLOTS:
    void onForegroundMayHaveChanged();
    void onTrayMessageClicked();

private:
    static bool isActive();
    /// Id of the process in the foreground; 0 if it is not known.
    quint32 foregroundProcess() const;
    QString executable(quint32 processId) const;

    IHostWindow* m_window = nullptr;
    QString m_styleSheetFile;
    ActiveProcess m_activeProcess;
    quint32 m_publishedProcess = 0;
    QPointer<QSystemTrayIcon> m_tray;
    int m_trayCookie = 0;
};
