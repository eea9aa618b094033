#pragma once

#include <QFrame>
#include <QList>
#include <QString>

class cMacroTypeIconItem;
class QVBoxLayout;

/// The left-hand side of the command editor: a column with an icon for each command type that users make
/// commands of. By keyboard it is one stop, in which the arrow keys choose.
class cMacroTypeIconList : public QFrame
{
    Q_OBJECT

public:
    explicit cMacroTypeIconList(QWidget* parent = nullptr);

    /// Chooses a type by its place. A place outside, or the one that was last set in this way, changes
    /// nothing.
    void setCurrentIndex(int index);
    /// Chooses a type by its id; an unknown one changes nothing.
    void setCurrentMacroType(const QString& macroTypeID);
    /// The place of a type, 0 if nothing matches.
    int indexOf(const QString& macroTypeID) const;
    int count() const { return m_items.size(); }

    /// The names of the types need their whole width.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void macroTypeSelected(int idx);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private Q_SLOTS:
    void onMacroTypeItemClicked(const QString& macroTypeID);

private:
    Q_DISABLE_COPY(cMacroTypeIconList)

    /// The place of the highlighted type, -1 if there is none.
    int highlightedIndex() const;

    // Owned as child widgets.
    QVBoxLayout* m_layout = nullptr;
    QList<cMacroTypeIconItem*> m_items;
    /// What setCurrentIndex() last set. It lags behind a click, which highlights without storing.
    int m_currentIndex = -1;
};
