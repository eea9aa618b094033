#pragma once

#include "cMacroForm.h"

/// The page of a stick command, which has nothing to change.
class cStickEditor : public cMacroForm
{
    Q_OBJECT

public:
    cStickEditor(const QString& typeId, const QString& typeName, const cJsonValue& macro);

    cJsonValue data() override { return original(); }
    bool showMacroName() override { return false; }
    QString defaultMacroName() override { return m_name; }

protected:
    bool setForm(const cJsonValue&) override { return true; }
    cJsonValue formData() const override { return {}; }
    void clearForm() override { }
    bool isFilled() const override { return true; }
    Objection check() override { return {}; }

private:
    QString m_name;
};
