#pragma once

#include <QObject>

class cProfileMgrService;
class MainWindow;
class QAction;

/// The entries of the main window's menus that concern profiles: undo and redo.
class ProfileActions : public QObject
{
    Q_OBJECT

public:
    /// Both outlive it.
    ProfileActions(MainWindow& window, cProfileMgrService& profiles);
    ~ProfileActions() override;

private Q_SLOTS:
    void onHistoryChanged();

private:
    void createHistoryActions();

    MainWindow& m_window;
    cProfileMgrService& m_profiles;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
};
