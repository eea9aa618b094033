#pragma once

#include <cProfileMgrService.h>

#include <QDialog>

class ProfileTable;
class QPushButton;

/// Shows what files hold before they are imported, and lets its user choose.
class ImportDialog : public QDialog
{
    Q_OBJECT

public:
    ImportDialog(cProfileMgrService& profiles, const std::vector<cProfileMgrService::ImportFile>& files,
        QWidget* parent);

    /// Takes out of the files what was not chosen.
    void choose(std::vector<cProfileMgrService::ImportFile>& files) const;

    /// Runs a dialog on the files; see cProfileMgrService::ImportReview.
    static bool review(
        cProfileMgrService& profiles, std::vector<cProfileMgrService::ImportFile>& files, QWidget* parent);

private Q_SLOTS:
    void onCheckedChanged();

private:
    ProfileTable* m_table = nullptr;
    QPushButton* m_importButton = nullptr;
};
