#pragma once

#include "cMacroForm.h"

class QLabel;
class QPlainTextEdit;

/// The page of text block commands.
class cTextBlockEditor : public cMacroForm
{
    Q_OBJECT

public:
    explicit cTextBlockEditor(const cJsonValue& macro);

    QString defaultMacroName() override;

protected:
    bool setForm(const cJsonValue& data) override;
    cJsonValue formData() const override;
    void clearForm() override;
    bool isFilled() const override;
    Objection check() override;

private Q_SLOTS:
    void onTextChanged();

private:
    void showCount();
    QString text() const;

    QPlainTextEdit* m_text = nullptr;
    QLabel* m_count = nullptr;
};
