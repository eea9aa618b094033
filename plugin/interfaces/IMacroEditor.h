#pragma once

#include <cJsonValue.h>

#include <QString>
#include <QWidget>

/// The page of a command type in the command editor. It is made by IMacroType::editor and called directly;
/// the page that shows it owns it.
class IMacroEditor : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// The payload for the command's `data`.
    virtual cJsonValue data() = 0;

    /// The value for the command's `namespace`.
    virtual QString getMacroTypeID() = 0;

    /// True if the editor shows the name field above this page.
    virtual bool showMacroName() = 0;

    /// The name that a new command gets while the user has not typed one.
    virtual QString defaultMacroName() = 0;

    /// Tells the page the name in the name field.
    virtual void setMacroName(QString macroName) = 0;

    /// The check before saving; false stops the save, and the page has said why.
    virtual bool onOK() = 0;

    /// The check before the editor is closed without saving; false keeps it open.
    virtual bool onCancel() = 0;

    /// Shows the help for this type.
    virtual void onHelp() = 0;

    /// Empties the form.
    virtual void onClearForm() = 0;

    /// True if the form holds enough for a command.
    virtual bool canAddMacro() = 0;

Q_SIGNALS:
    /// The form has changed so that the command's name should be this; also sent when only canAddMacro() has
    /// changed.
    void nameChanged(const QString& macroName);
};
