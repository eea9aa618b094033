#pragma once

#include "MessageIcon.h"

#include <QObject>
#include <QString>
#include <Qt>
#include <QUuid>

class QWidget;

/// The application and its place on the desktop.
class IMainApp : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Starts the user interface, with the update assistant in front if wanted.
    Q_INVOKABLE virtual void execute(bool launchUpdateWizard) = 0;

    /// Asks the system to report devices of an interface class that come and go. Does something on
    /// Windows only.
    Q_INVOKABLE virtual void winRegisterDeviceChange(const QUuid& classGuid) = 0;

    /// Asks the system to report changes of an open device. Null where the system has no such report.
    Q_INVOKABLE virtual Qt::HANDLE winRegisterDeviceHandleChange(Qt::HANDLE fileHandle) = 0;

    /// Ends the report that the handle stands for.
    Q_INVOKABLE virtual void winUnregisterDeviceHandleChange(Qt::HANDLE changeHandle) = 0;

    /// The main window.
    Q_INVOKABLE virtual QWidget* mainWidget() = 0;

    /// Loads the application's style sheet again.
    Q_INVOKABLE virtual void loadStyleSheet() = 0;

    /// Starts the update assistant.
    Q_INVOKABLE virtual void launchUpdateWizard() = 0;

    /// Blocks or frees all input to the main window.
    Q_INVOKABLE virtual void setModalLock(bool enable) = 0;

    /// True if a window of the application is the active one.
    Q_INVOKABLE virtual bool inForeground() = 0;

    /// Shows a message at the tray icon for `msecs` milliseconds; `cookie` comes back when it is
    /// clicked. False without a tray.
    Q_INVOKABLE virtual bool showTrayMessage(const QString& title, const QString& message,
        MessageIcon::MessageIcon_t icon, int msecs, int cookie) = 0;

    /// Path of the executable of the active application, or empty.
    Q_INVOKABLE virtual QString foregroundApp() = 0;
};
