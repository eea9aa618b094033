#pragma once

#include <QFrame>
#include <QSet>
#include <QString>

class cClickableLabel;
class cSearchEditLine;

/// The field with a magnifier and a clear button that filters a list. While it is idle it shows the grey word
/// "Search", which never counts as a search.
class cSearchBox : public QFrame
{
    Q_OBJECT
    Q_DISABLE_COPY(cSearchBox)

public:
    /// In pixels.
    cSearchBox(int width, int height, QWidget* parent = nullptr);

    /// See cSearchEditLine.
    void setForwarding(QWidget* target, const QSet<Qt::Key>& keys);

Q_SIGNALS:
    /// What to search for; empty for everything. It may come again with the same text.
    void textEdited(const QString& text);

private Q_SLOTS:
    void onTextEdited(const QString& text);
    void onEditingFinished();
    void onClear();

private:
    void createEdit();
    void connectEdit();
    void createDecorations();

    cSearchEditLine* m_edit = nullptr;
    cClickableLabel* m_clearButton = nullptr;
};
