#pragma once

#include "KeyNames.h"

#include <QPushButton>

class QAction;

/// A button with a menu of the keys that can't be pressed for a capture: Esc, which ends it, keys that the
/// system takes for itself, and keys that many keyboards lack.
class KeyMenuButton : public QPushButton
{
    Q_OBJECT

public:
    explicit KeyMenuButton(const QString& text, QWidget* parent = nullptr);

Q_SIGNALS:
    void keyChosen(const Key& key);

private Q_SLOTS:
    void onTriggered(QAction* action);
};
