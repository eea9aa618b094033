#pragma once

#include <QDialog>
#include <QDomDocument>
#include <QDomElement>
#include <QFutureWatcher>
#include <QMap>
#include <QMetaType>
#include <QSemaphore>
#include <QString>

class cAnimatedPixmapWidget;
class GameLocator;
class QBoxLayout;
class QLabel;
class QListWidget;
class QListWidgetItem;

/// What a row of the scan's list stands for.
class cScanEntry
{
public:
    enum State { KnownMissing = 1, Missing = 2, New = 3, Known = 4 };

    /// The game's element of the database.
    QDomElement profile;
    QString displayName;
    /// Path of the program with native separators; empty if it was not found.
    QString target;
    int state = Missing;
};

Q_DECLARE_METATYPE(cScanEntry*)

/// Looks for the games that are installed on this machine and makes profiles of those that the user keeps
/// checked.
///
/// The games come from the database "Profiler:/GameDatabase.xml". A worker on the global thread pool reads it
/// and looks for each game; what it finds reaches the dialog by queued calls, so that the list fills while
/// the user watches. There is one row for each signature; a second row of a name is hidden behind the one
/// that says more. The scan begins with the dialog. There may be several, since the first scan that the view
/// offers by itself comes without looking whether the user has just asked for one: each scans for itself.
class ScanForGamesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ScanForGamesDialog(QWidget* parent);
    ~ScanForGamesDialog() override;

Q_SIGNALS:
    void scanCompleted(bool enable);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void onOK();
    void onRejected();
    void onGameDatabaseRead();
    void onScanFinished();
    void onGameScanned(const QString& profileName, const QString& signatureName, const QString& targetPath,
        const QDomElement& domProfile);

private:
    Q_DISABLE_COPY(ScanForGamesDialog)

    QBoxLayout* createHeader();
    void createList();
    QBoxLayout* createFooter();
    void startWorker();
    void endWorker();

    // The worker's: these run on its thread. They touch nothing but m_database, the watcher's mark of a
    // cancel and, by queued calls, the slots.
    static bool scan();
    bool scanDatabase();
    void scanGame(const QDomElement& profile, const GameLocator& locator);

    void insertRow(QListWidgetItem* row, int state);
    void hideDuplicate(QListWidgetItem* earlier, QListWidgetItem* row);
    void showCount();

    /// The dialog of the worker that begins next; it takes no arguments. Another dialog comes here only after
    /// the worker of this one has begun or will never begin.
    static ScanForGamesDialog* s_dialog;

    QLabel* m_statusLabel = nullptr;
    cAnimatedPixmapWidget* m_animation = nullptr;
    QListWidget* m_list = nullptr;
    QLabel* m_countLabel = nullptr;
    QDomDocument m_database;
    QFutureWatcher<bool> m_watcher;
    /// The row that came last for each display name.
    QMap<QString, QListWidgetItem*> m_rowsByName;
    // Counters of rows, hidden ones too.
    int m_foundNew = 0;
    int m_foundKnown = 0;
    int m_knownMissing = 0;
    int m_duplicates = 0;
    /// Opens when the watcher has its future: until then the worker must not look at it.
    QSemaphore m_isWatched;
    /// Opens when the worker does not look at s_dialog any more.
    QSemaphore m_isTaken;
};
