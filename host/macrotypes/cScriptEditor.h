#pragma once

#include "cMacroForm.h"

class QLineEdit;

/// The page of script commands.
class cScriptEditor : public cMacroForm
{
    Q_OBJECT

public:
    explicit cScriptEditor(const cJsonValue& macro);

    QString defaultMacroName() override;

protected:
    bool setForm(const cJsonValue& data) override;
    cJsonValue formData() const override;
    void clearForm() override;
    bool isFilled() const override;
    Objection check() override;

private:
    QString function() const;

    QLineEdit* m_function = nullptr;
    QLineEdit* m_argument = nullptr;
};
