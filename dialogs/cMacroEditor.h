#pragma once

#include <cJsonValue.h>

#include <QDialog>
#include <QString>

class cMacroEditPage;
class cMacroTypeIconList;

/// The modal dialog in which a command is made or changed: the types' icons at the left, the page of the
/// chosen type at the right. The page does all saving.
///
///     cMacroEditor editor(macro, cMainUI().window(), true);
///     connect(&editor, SIGNAL(macroEditorClosed(const QString&)), ...);
///     editor.exec();
///
/// The result of exec() says nothing; listen to macroEditorClosed(). While it is open, scripts of the host
/// reach the dialog as "CommandEditor".
class cMacroEditor : public QDialog
{
    Q_OBJECT

public:
    /// Edits a command record; a null one makes a new command. `withAddButton` offers to add several new
    /// commands in a row.
    cMacroEditor(const cJsonValue& macro, QWidget* parent, bool withAddButton);

Q_SIGNALS:
    /// A command was saved, or was found to be there already, under that uid. Not sent for commands that are
    /// added while the dialog stays open.
    void macroEditorClosed(const QString& macroID);

public Q_SLOTS:
    /// Shows the page of a type, by its place in the column.
    void changePage(int idx);
    /// Chooses a type in the column, by its place; its page follows.
    void setCurrentIndex(int index);
    /// Number of types in the column.
    int count();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Q_DISABLE_COPY(cMacroEditor)

    bool m_isNew = false;
    cJsonValue m_macro;
    // Owned through the layout.
    cMacroTypeIconList* m_iconList = nullptr;
    cMacroEditPage* m_page = nullptr;
};
