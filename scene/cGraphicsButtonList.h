#pragma once

#include <cJsonValue.h>

#include <QColor>
#include <QGraphicsItem>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QRectF>
#include <QString>

class cGraphicsButton;

/// Lines up buttons in a row or a column.
///
/// The list owns its buttons and is their parent. Each carries its text and its data as the button's
/// userText() and userData(). Hidden buttons take no room. While the list itself is hidden, all of them are;
/// call updateLayout() once it shows. A button that somebody else deletes leaves an empty place at its index.
class cGraphicsButtonList : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(cGraphicsButtonList)
    Q_PROPERTY(QPointF pos READ pos WRITE setPos)

public:
    /// Qt::Vertical, which is 2, makes a column; any other number a row.
    explicit cGraphicsButtonList(int orientation, QGraphicsItem* parent = nullptr);
    ~cGraphicsButtonList() override;

    /// Puts the buttons in their places and fits the extent to them.
    virtual void updateLayout();

    /// Around the visible buttons. After each of them but the first, the spacing is a part of it too.
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// Takes a button over, at the end. A null button is reported and gives false.
    bool addItem(cGraphicsButton* button, const QString& text, const cJsonValue& data);
    /// Deletes a button; false if there is none at that index.
    bool removeAt(int index);
    /// Deletes the first button with that text; false if there is none.
    bool removeItem(const QString& text);
    /// Deletes all buttons.
    void clear();

    /// The first button with that text, or null. Its index is written only if there is one.
    cGraphicsButton* findItem(const QString& text, int* index = nullptr) const;
    /// Null for an index that the list does not have.
    cGraphicsButton* itemAt(int index) const;
    /// The null value for a text or an index that the list does not have.
    cJsonValue dataOf(const QString& text) const;
    cJsonValue dataAt(int index) const;

    /// Shows or hides all buttons, and does the opposite to `other`, which may be null.
    void setItemsVisible(bool visible, cGraphicsButton* other);
    /// Fills the extent with a colour from now on.
    void setBackground(const QColor& color);
    /// Whether edges stand at both sides, and whether the extent is filled.
    void setEdge(bool show, bool fill);
    /// The gap between neighbours in pixels.
    void setSpacing(int spacing);

public Q_SLOTS:
    void onClicked(cGraphicsButton* pButton);

Q_SIGNALS:
    void itemClicked(int index, cGraphicsButton* pButton);

private:
    QList<QPointer<cGraphicsButton>> m_buttons;
    QPixmap m_edgePixmap;
    QRectF m_bounds;
    int m_orientation;
    QColor m_backgroundColor {0, 0, 0, 255};
    bool m_fillBackground = false;
    bool m_showEdge = true;
    int m_spacing = 0;
};
