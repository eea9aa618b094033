#pragma once

#include <QDialog>
#include <QStringList>

class cProfileMgrService;
class ProfileTable;
class QLabel;
class QPushButton;
class QTreeWidget;

/// Looks into the backups and brings profiles back from them.
class BackupsDialog : public QDialog
{
    Q_OBJECT

public:
    BackupsDialog(cProfileMgrService& profiles, QWidget* parent);

private Q_SLOTS:
    void onBackupChosen();
    void onCheckedChanged();
    void onBringBackChecked();
    void onBringBackAll();

private:
    void createContent();
    void fillBackups(const QString& chosen);
    QString chosenBackup() const;
    void bringBack(const QStringList& documents);

    cProfileMgrService& m_profiles;
    QTreeWidget* m_backups = nullptr;
    ProfileTable* m_content = nullptr;
    QLabel* m_state = nullptr;
    QPushButton* m_checkedButton = nullptr;
    QPushButton* m_allButton = nullptr;
};
