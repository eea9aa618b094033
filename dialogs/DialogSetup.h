#pragma once

class QDialog;
class QWidget;

/// What the dialogs of the plug-in have in common.
namespace DialogSetup {

/// Gives a dialog its modality, icon and title bar. From then on it outlives its parent, which the host may
/// delete at any time: the dialog is rejected then and left to whoever made it.
void apply(QDialog& dialog);

/// Has the style sheet draw a button as one that is not the dialog's first choice.
void setGray(QWidget& button);

} // namespace DialogSetup
