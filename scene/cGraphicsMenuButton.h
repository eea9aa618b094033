#pragma once

#include "cGraphicsButton.h"

/// A button with an arrow on it that asks for a menu.
class cGraphicsMenuButton : public cGraphicsButton
{
    Q_OBJECT

public:
    /// The keys of cGraphicsButton's description, and `arrow`, the description of the arrow, which fills the
    /// button.
    explicit cGraphicsMenuButton(const cJsonValue& description, QGraphicsItem* parent = nullptr);
    ~cGraphicsMenuButton() override;

    QRectF boundingRect() const override;

    /// Resizes the arrow as well.
    void setBoundarySize(const QSize& size);
    void setBoundarySize(int width, int height);
    void setArrowVisible(bool visible);

public Q_SLOTS:
    /// Toggles the arrow, not the button itself.
    void toggle();

Q_SIGNALS:
    /// The arrow was pressed. The point is the arrow's top left corner in the coordinates of the scene. The
    /// button is disabled until all receivers are done with their menus.
    void menu(const QPoint& point);

private Q_SLOTS:
    void onMenuClicked();

private:
    /// Owned.
    cGraphicsButton* m_arrow = nullptr;
};
