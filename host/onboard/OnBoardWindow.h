#pragma once

#include <cJsonValue.h>
#include <MKey.h>

#include <QDialog>
#include <QTimer>

class cProfileMgrService;
class cProfilesToGoService;
class QComboBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QProgressBar;
class QPushButton;

/// The window in which the user looks after the on-board memory of a device: what it holds, how much room is
/// left, what goes in and comes out.
class OnBoardWindow : public QDialog
{
    Q_OBJECT

public:
    /// The services outlive the window.
    OnBoardWindow(cProfilesToGoService& memories, cProfileMgrService& profiles, QWidget* parent = nullptr);
    ~OnBoardWindow() override;

    /// Shows that device if it has a memory, else the one that was shown last.
    void showDevice(const QString& deviceId);

    // Events of "ProfileMgr_Events" after which the lists are out of date.
    Q_INVOKABLE void onProfileAdded(const QString&) { refreshSoon(); }
    Q_INVOKABLE void onProfileDeleted(const QString&) { refreshSoon(); }
    Q_INVOKABLE void onProfilePropertyChanged(const QString&) { refreshSoon(); }
    Q_INVOKABLE void onmacroAdded(const QString&, const cJsonValue&) { refreshSoon(); }
    Q_INVOKABLE void onmacroDeleted(const QString&, const cJsonValue&) { refreshSoon(); }
    Q_INVOKABLE void onmacroChanged(const QString&, const cJsonValue&) { refreshSoon(); }
    Q_INVOKABLE void onMacroAssigned(
        const QString&, const QString&, const QString&, MKey::MKey_t, const QString&)
    {
        refreshSoon();
    }
    Q_INVOKABLE void onAssignmentRemoved(
        const QString&, const QString&, MKey::MKey_t, const QString&, const QString&)
    {
        refreshSoon();
    }

private Q_SLOTS:
    void refresh();
    void refreshSoon();
    void updateButtons();
    void onCopyToDevice();
    void onCopyBack();
    void onRemove();
    void onWrite();
    void onConnect();

private:
    QWidget* createHeader();
    QWidget* createLists();
    QWidget* createFooter();
    void fillLocal();
    void fillDevice();
    void addRow(QListWidget* list, const QString& text, const QString& id, const QString& fileName = {});
    QString deviceId() const;
    static QString chosenId(const QListWidget* list);
    QString stateText() const;

    cProfilesToGoService& m_memories;
    cProfileMgrService& m_profiles;
    QTimer m_refreshTimer;
    QComboBox* m_device = nullptr;
    QLabel* m_state = nullptr;
    QPushButton* m_connect = nullptr;
    QListWidget* m_local = nullptr;
    QListWidget* m_stored = nullptr;
    QLabel* m_storedTitle = nullptr;
    QPushButton* m_copyToDevice = nullptr;
    QPushButton* m_copyBack = nullptr;
    QPushButton* m_remove = nullptr;
    QProgressBar* m_space = nullptr;
    QPushButton* m_write = nullptr;
    QLabel* m_hint = nullptr;
};
