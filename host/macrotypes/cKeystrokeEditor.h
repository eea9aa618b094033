#pragma once

#include "cMacroForm.h"
#include "KeyNames.h"

#include <QVector>

class KeyCaptureButton;
class KeyMenuButton;
class QCheckBox;
class QLineEdit;

/// The page of keystroke commands: the keys are pressed, or those that can't be are chosen and given their
/// modifiers by hand.
class cKeystrokeEditor : public cMacroForm
{
    Q_OBJECT

public:
    explicit cKeystrokeEditor(const cJsonValue& macro);

    QString defaultMacroName() override;

protected:
    bool setForm(const cJsonValue& data) override;
    cJsonValue formData() const override;
    void clearForm() override;
    bool isFilled() const override { return !m_keys.isNull(); }
    Objection check() override;
    void stop() override;

private Q_SLOTS:
    void onCaptureStarted();
    void onCaptureStopped();
    void onKeyPressed(const Key& key, Qt::KeyboardModifiers modifiers);
    void onKeyReleased(const Key& key);
    void onKeyChosen(const Key& key);
    void onModifierToggled();

private:
    void createFields();
    void showKeys(const KeyCombination& keys);
    void setKeys(const KeyCombination& keys);

    KeyCombination m_keys;
    /// While keys are pressed: what they would make, and how many are down.
    KeyCombination m_pressed;
    int m_held = 0;
    QLineEdit* m_shown = nullptr;
    KeyCaptureButton* m_capture = nullptr;
    KeyMenuButton* m_others = nullptr;
    QVector<QCheckBox*> m_modifiers;
};
