#pragma once

#include "cLaunchType.h"
#include "cMacroForm.h"

class QLineEdit;
class QPushButton;

/// The page of launch commands.
class cLaunchEditor : public cMacroForm
{
    Q_OBJECT

public:
    explicit cLaunchEditor(const cJsonValue& macro);

    QString defaultMacroName() override;

protected:
    bool setForm(const cJsonValue& data) override;
    cJsonValue formData() const override;
    void clearForm() override;
    bool isFilled() const override;
    Objection check() override;

private Q_SLOTS:
    void onBrowsePath();
    void onBrowseFolder();

private:
    QLineEdit* makeField(const QString& accessibleName, const QString& vacantText = QString());
    QPushButton* makeBrowseButton(const QString& accessibleName, const char* slot);
    /// A null button leaves the row to the field.
    void addRow(const QString& label, QLineEdit* field, QPushButton* button);
    void showForm(const LaunchInput& launch);
    LaunchInput form() const;

    QLineEdit* m_path = nullptr;
    QLineEdit* m_arguments = nullptr;
    QLineEdit* m_folder = nullptr;
};
