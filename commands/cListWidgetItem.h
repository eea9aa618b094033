#pragma once

#include <QListWidgetItem>
#include <QObject>
#include <QString>
#include <QVariant>

/// The item behind a row of the command list and of the profile list: it carries what its row is sorted and
/// searched by. The text is the name that users see.
class cListWidgetItem : public QObject, public QListWidgetItem
{
    Q_OBJECT
    Q_DISABLE_COPY(cListWidgetItem)

public:
    /// The sort modes; any other leaves rows unsorted.
    enum SortMode { SortByName = 1, SortByType = 2 };

    /// The role of what setNamespace() stores. It dates from when Qt::UserRole was 32; the present
    /// Qt::UserRole + 1 leads to the same value.
    static constexpr int NamespaceRole = 33;

    cListWidgetItem(const QString& text, int sortMode);

    void setSortMode(int sortMode) { m_sortMode = sortMode; }
    /// The id of a command's type, or one word for all profiles. An item of the namespace "EmptyWell" stands
    /// behind all others when it is sorted by name.
    void setNamespace(const QString& id);

    QVariant data(int role) const override;
    void setData(int role, const QVariant& value) override;

    /// By name: as people of the locale sort. By type: namespaces from the highest to the lowest, and names
    /// from the last to the first within them. Two items with the same keys are then each less than the
    /// other, unless the model sorts all of its items, which takes a proper order.
    bool operator<(const QListWidgetItem& other) const override;

private Q_SLOTS:
    void onNameChanged(const QString& name);

private:
    bool isLessByName(const QListWidgetItem& other) const;
    bool isLessByType(const QListWidgetItem& other) const;

    int m_sortMode;
};
