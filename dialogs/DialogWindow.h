#pragma once

class QDialog;

/// What the windows of all dialogs have in common.
namespace DialogWindow {

/// Sets flags, modality and icon. Called before the dialog is shown.
void setUp(QDialog& dialog);

} // namespace DialogWindow
