#pragma once

class QDialog;
class QWidget;

/// What the dialogs of the plug-in have in common.
namespace DialogSetup {

/// Gives a dialog its modality, icon and title bar.
void apply(QDialog& dialog);

/// Has the style sheet draw a button as one that is not the dialog's first choice.
void setGray(QWidget& button);

} // namespace DialogSetup
