#pragma once

#include "ConflictResolution.h"

#include <QObject>
#include <QString>

class QWidget;

/// The main window and the message boxes in its look.
class IMainUI : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Shows or hides the main window.
    Q_INVOKABLE virtual void setVisible(bool visible) = 0;

    /// The main window: parent of every dialog, menu and message.
    Q_INVOKABLE virtual QWidget* window() = 0;

    /// Writes a picture of the main window to a file; the name's ending chooses the format.
    Q_INVOKABLE virtual void saveScreenshot(const QString& fileName) = 0;

    /// Brings the device bar in front of what lies on the canvas.
    Q_INVOKABLE virtual void raiseDeviceBar() = 0;

    /// True if the pointer is over the device bar.
    Q_INVOKABLE virtual bool isDeviceBarUnderMouse() = 0;

    /// Id of the device that is shown, or empty.
    Q_INVOKABLE virtual QString getActiveDeviceId() = 0;

    /// A modal warning.
    Q_INVOKABLE virtual void warning(const QString& titleText, const QString& warningText) = 0;

    /// A modal question; true for yes.
    Q_INVOKABLE virtual bool yesno(const QString& titleText, const QString& questionText) = 0;

    /// A modal choice between replacing an item, doing nothing and keeping both; the last three texts
    /// label the choices.
    Q_INVOKABLE virtual ConflictResolution::ConflictResolution_t conflict(const QString& titleText,
        const QString& descriptionText, const QString& itemText, const QString& replaceText,
        const QString& doNothingText, const QString& duplicateText) = 0;

    /// A modal message.
    Q_INVOKABLE virtual void info(const QString& titleText, const QString& messageText) = 0;
};
