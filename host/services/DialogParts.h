#pragma once

#include <QList>
#include <QString>
#include <Qt>

class QDialog;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// What the application's own dialogs have in common.
namespace DialogParts {

inline constexpr Qt::WindowFlags Flags =
    Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

void prepare(QDialog& dialog, const QString& title);
QVBoxLayout* createLayout(QDialog& dialog);
QLabel* createHeading(const QString& text);
QLabel* createText(const QString& text);
/// A row of buttons, the first ones at the left and the others at the right.
QHBoxLayout* createButtons(const QList<QPushButton*>& left, const QList<QPushButton*>& right);

} // namespace DialogParts
