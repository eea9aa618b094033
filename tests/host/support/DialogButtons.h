#pragma once

#include <QDialog>
#include <QPushButton>

/// The button of a dialog by its text without shortcut; null for none.
inline QPushButton* buttonOf(const QDialog& dialog, const QString& text)
{
    const QList<QPushButton*> buttons = dialog.findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->accessibleName() == text || QString(button->text()).remove(QLatin1Char('&')) == text)
            return button;
    }
    return nullptr;
}
