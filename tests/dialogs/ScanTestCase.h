#pragma once

#include "GameFiles.h"

#include <RecordingHost.h>
#include <ScanForGamesDialog.h>
#include <TestCase.h>

#include <QStringList>

#include <memory>

class cAnimatedPixmapWidget;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

/// The dialog of the game scan with its parts.
class Scan
{
    Q_DISABLE_COPY(Scan)

public:
    Scan();

    QPushButton* ok() const { return button(QStringLiteral("OK")); }
    QPushButton* cancel() const { return button(QStringLiteral("Cancel")); }
    bool isFinished() const;

    // The rows from top to bottom as the user sees them, in a form that reads well in a comparison: "[x]
    // Name",
    // "[ ] Name", with "-" in front of one that can't be changed. All of them show also the hidden ones, with
    // "hidden" behind their names.
    QStringList visibleRows() const;
    QStringList allRows() const;
    static cScanEntry* entryOf(const QListWidgetItem* row);

    /// As the worker reports, but at once.
    void report(const QString& name, const QString& edition, const QString& target);

    ScanForGamesDialog dialog;
    QListWidget* list;
    cAnimatedPixmapWidget* animation;
    QLabel* status = nullptr;
    QLabel* count = nullptr;

private:
    QPushButton* button(const QString& text) const;
};

/// Base of the tests of the game scan: a machine without games so far, and a host that has profiles for the
/// games with "known" in their names.
class ScanTestCase : public TestCase
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();

protected:
    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<GameFiles> m_files;
};
