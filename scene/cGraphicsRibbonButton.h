#pragma once

#include <cJsonValue.h>

#include <QGraphicsItem>
#include <QObject>
#include <QRect>
#include <QString>

class cGraphicsButton;
class cGraphicsMenuButton;
class QLinearGradient;

/// A main button and a strip with an arrow that asks for a menu, joined into one control. The strip shows
/// only while the pointer is on the control.
class cGraphicsRibbonButton : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(cGraphicsRibbonButton)

public:
    /// The description is that of the main button, a cGraphicsTextButton if it has the key `text` and a
    /// cGraphicsButton otherwise, see there; and:
    /// - `boundary`: the extent of the whole, an object with the integers `width` and `height`. Without it
    ///   the extent is the union of the `boundary` objects in `menu` and in `button`.
    /// - `menubutton`: the description of the strip, a cGraphicsMenuButton. It keeps its height and is made
    ///   as wide as the control.
    /// - `menudir`: "bottom" puts the strip under the main button, anything else above it.
    /// - `pos`: the place of the control in its parent; `buttonpos`: that of the main button in the control.
    ///   Both are objects with the integers `x` and `y`.
    explicit cGraphicsRibbonButton(const cJsonValue& description, QGraphicsItem* parent = nullptr);
    ~cGraphicsRibbonButton() override;

    QRectF boundingRect() const override;
    /// Paints nothing: the children do.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void setMenuArrowVisible(bool visible);
    void setMainGradients(const QLinearGradient& normal, const QLinearGradient& hover);
    void setMenuGradients(const QLinearGradient& normal, const QLinearGradient& hover);
    /// That of the main button.
    QString userText() const;
    void setUserText(const QString& text);

public Q_SLOTS:
    /// Toggles the arrow.
    void toggle();
    /// Shows or hides the strip.
    void showMenu(bool show);

Q_SIGNALS:
    /// The arrow was pressed. The point is where the menu is to open, in the coordinates of the scene: the
    /// corner of the strip, or one strip lower if the strip is under the main button.
    void menu(const QPoint& point);
    /// The main button was pressed.
    void clicked();

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;

private Q_SLOTS:
    void onMenuClicked(const QPoint& point);
    void onMainButtonClicked();

private:
    void load(const cJsonValue& description);
    void createButtons(const cJsonValue& description);
    void layOutButtons();
    void connectButtons();
    void deleteButtons();

    /// Both owned.
    cGraphicsMenuButton* m_menuButton = nullptr;
    cGraphicsButton* m_mainButton = nullptr;
    QRect m_boundary;
    Qt::AlignmentFlag m_menuDirection = Qt::AlignTop;
};
