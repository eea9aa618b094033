#pragma once

#include <QGraphicsItem>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

class cGraphicsItem;

/// Keeps items of which one is selected at a time.
///
/// The group owns its items, but is not their parent in the scene. An item that somebody else deletes, as its
/// parent item may do, is passed over from then on.
class cGraphicsItemGroup : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(cGraphicsItemGroup)

public:
    explicit cGraphicsItemGroup(QGraphicsItem* parent = nullptr);
    ~cGraphicsItemGroup() override;

    /// The united extents of the items, each in its own coordinates, wherever the items stand.
    QRectF boundingRect() const override;
    /// Draws nothing: the items draw themselves.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// Takes an item over. Null and items that are already in the group change nothing.
    void addItem(cGraphicsItem* item);
    /// Deletes an item of the group; one that is not in the group is left alone.
    void removeItem(cGraphicsItem* item);
    /// The first selected item, or null.
    cGraphicsItem* selectedItem() const;
    /// The first item with that id, or null.
    cGraphicsItem* itemByID(const QString& id) const;
    /// Selects the items with that id and unselects all others. Emits nothing.
    void select(const QString& id);
    void stopPulses();

public Q_SLOTS:
    /// Selects the item and says so, also when it was selected before.
    void onClicked(const QString& id);

Q_SIGNALS:
    void itemSelected(const QString& id);

private:
    QList<QPointer<cGraphicsItem>> m_items;
};
