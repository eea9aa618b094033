#pragma once

#include <QObject>

class cProfileMgrService;
class ISettings;
class MainWindow;
class QAction;

/// The entries of the main window's menus that concern profiles: undo and redo, import and backups.
class ProfileActions : public QObject
{
    Q_OBJECT

public:
    /// All of them outlive it.
    ProfileActions(MainWindow& window, cProfileMgrService& profiles, ISettings& settings);
    ~ProfileActions() override;

private Q_SLOTS:
    void onHistoryChanged();
    void onImport();
    void onBackups();

private:
    void createHistoryActions();
    void createDataActions();

    MainWindow& m_window;
    cProfileMgrService& m_profiles;
    ISettings& m_settings;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
};
