#pragma once

#include "cListWidgetItem.h"
#include "cRowList.h"

#include <cJsonValue.h>
#include <MKey.h>

#include <QList>
#include <QPoint>
#include <QString>
#include <QTimer>

class cMacroItem;

/// The list of the shown profile's commands.
///
/// It asks the host for the commands when the profile selection has changed and adds one row at each turn of
/// the event loop, so that the view stays usable; from then on it follows the host's events. It filters by
/// the search text, sorts by name or type, starts the drags that the view turns into assignments, and deletes
/// commands after a question. What it asks of the host shows when the host's event comes back.
class cMacroList : public cRowList
{
    Q_OBJECT
    Q_DISABLE_COPY(cMacroList)

public:
    /// Empty until the first event "ProfileSelectionChanged".
    explicit cMacroList(QWidget* parent = nullptr);
    ~cMacroList() override;

    /// A cListWidgetItem::SortMode for all rows, also later ones. Call sortItems() to sort the rows that are
    /// there.
    void setSortMode(int mode);

    /// The number of the command's row, -1 if it has none.
    int rowByMacroId(const QString& macroID) const;

    // Events of the host. Those for another profile than the list's are ignored, and those for a command
    // without a row.
    Q_INVOKABLE virtual void onmacroAdded(const QString& profileID, const cJsonValue& macro);
    Q_INVOKABLE virtual void onmacroDeleted(const QString& profileID, const cJsonValue& macro);
    Q_INVOKABLE virtual void onmacroChanged(const QString& profileID, const cJsonValue& macro);
    Q_INVOKABLE virtual void onMacroAssigned(const QString& profileID, const QString& deviceModel,
        const QString& macroID, MKey::MKey_t mode, const QString& contextID);
    Q_INVOKABLE virtual void onAssignmentRemoved(const QString& profileID, const QString& deviceModel,
        MKey::MKey_t mode, const QString& contextID, const QString& macroID);
    /// Fills the list anew with the commands of the view's profile; the argument is not read.
    Q_INVOKABLE virtual void onProfileSelectionChanged(const QString& profileID);

public Q_SLOTS:
    /// Asks the user and then has the host delete the selected commands.
    void deleteSelectedMacros();

Q_SIGNALS:
    /// At every change of the selection, MacroUnSelected is emitted for every row, then MacroSelected for
    /// each selected one.
    void MacroSelected(const cJsonValue& macro);
    void MacroUnSelected(const cJsonValue& macro);
    void editMacro(const cJsonValue& macro);
    void hoverIn();
    void hoverOut();
    void singleMacroStartDrag(const cJsonValue& macro);
    void singleMacroEndDrag();
    void multiMacroStartDrag();
    void multiMacroEndDrag();
    /// A fill started.
    void populating();
    /// A fill ended, or was stopped whether it ran or not.
    void populated();

private Q_SLOTS:
    void macroItemContextMenuIconClicked(const QPoint& point);
    void macroItemDblClicked(cListWidgetItem* pItem);
    void macroItemSelectionChanged();
    void onMenuEditMacro();
    void MacroStartDrag(const cJsonValue& macro);
    void macroEditIconClicked(const cJsonValue& macro);
    void onIdleTimeout();
    /// Shows only the commands in which a word begins with the text.
    void onSearch(const QString& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void populate();
    void stopPopulation();
    void addMacroRow(const cJsonValue& macro);
    cMacroItem* rowOf(const QListWidgetItem* item) const;
    cMacroItem* itemByMacroId(const QString& macroID) const;
    void emitEditMacro(const QListWidgetItem* item);

    QString m_profileID;
    QTimer m_idleTimer;
    /// The array that the fill reads.
    cJsonValue m_macros;
    quint64 m_fillIndex = 0;
    int m_sortMode = cListWidgetItem::SortByName;
    QList<QListWidgetItem*> m_searchHits;
    bool m_searchActive = false;
    QString m_searchText;
};
