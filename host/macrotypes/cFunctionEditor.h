#pragma once

#include "cMacroForm.h"
#include "NamedFunctions.h"

class QTreeWidget;

/// The page of a fixed type: the list of its functions.
class cFunctionEditor : public cMacroForm
{
    Q_OBJECT

public:
    cFunctionEditor(const QString& typeId, QLatin1String helpTopic, const NamedFunctionList& functions,
        const cJsonValue& macro);

    bool showMacroName() override { return false; }
    QString defaultMacroName() override;
    /// Selects the function of that name as long as none is selected.
    void setMacroName(QString macroName) override;

protected:
    bool setForm(const cJsonValue& data) override;
    cJsonValue formData() const override;
    void clearForm() override;
    bool isFilled() const override { return selected() != nullptr; }
    Objection check() override;
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void onSelectionChanged();

private:
    void createList();
    bool select(const QString& name);
    const NamedFunction* selected() const;

    const NamedFunctionList& m_functions;
    QTreeWidget* m_list = nullptr;
};
