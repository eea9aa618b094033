#include "Gallery.h"

#include <cClickableLabel.h>
#include <cGraphicsButton.h>
#include <cGraphicsButtonList.h>
#include <cGraphicsMenuButton.h>
#include <cGraphicsRibbonButton.h>
#include <cGraphicsTextButton.h>
#include <cJsonValue.h>
#include <StatePicture.h>

#include <QApplication>
#include <QEvent>
#include <QMouseEvent>

namespace {

/// The new button of the panels, as a description.
cJsonValue newButton(int width, int height)
{
    cJsonValue description;
    description["normal"] = pluginImage("icon_new_normal");
    description["hover"] = pluginImage("icon_new_hover");
    description["pressed"] = pluginImage("icon_new_pressed");
    description["boundary"]["width"] = width;
    description["boundary"]["height"] = height;
    return description;
}

cJsonValue arrowStrip()
{
    cJsonValue description;
    description["boundary"]["width"] = 27;
    description["boundary"]["height"] = 10;
    description["arrow"]["normal"] = pluginImage("pointer_down_up");
    description["arrow"]["hover"] = pluginImage("pointer_down_hover");
    return description;
}

/// A button with a strip of 10 pixels for its menu.
cJsonValue ribbon(const char* direction)
{
    cJsonValue description = newButton(27, 41);
    description["alignment"] = 1;
    description["menubutton"] = arrowStrip();
    description["menudir"] = direction;
    return description;
}

/// The states that a button can be shown in, with their captions.
const QList<QPair<QString, int>>& buttonStates()
{
    using namespace StatePicture;
    static const QList<QPair<QString, int>> states {{QStringLiteral("normal"), Resting},
        {QStringLiteral("hover"), Resting | UnderPointer}, {QStringLiteral("toggled"), Resting | ToggledOn},
        {QStringLiteral("toggled, hover"), Resting | ToggledOn | UnderPointer}};
    return states;
}

} // namespace

void Gallery::showButtons()
{
    startRow(tr("cGraphicsButton"));
    for (const auto& [caption, state] : buttonStates()) {
        auto* button = new cGraphicsButton(newButton(0, 0));
        button->setState(state);
        add(button, caption);
    }
    cJsonValue stretched = newButton(60, 30);
    stretched["stretch"] = true;
    add(new cGraphicsButton(stretched), tr("stretched"));
    for (int alignment = -1; alignment < 8; ++alignment) {
        cJsonValue aligned = newButton(44, 40);
        aligned["alignment"] = alignment;
        add(new cGraphicsButton(aligned), tr("aligned %1").arg(alignment));
    }
}

void Gallery::showTextButtons()
{
    startRow(tr("cGraphicsTextButton"));
    for (const auto& [caption, state] : buttonStates()) {
        cJsonValue description = newButton(84, 44);
        description["alignment"] = 1;
        description["text"] = tr("Command");
        auto* button = new cGraphicsTextButton(description);
        button->setState(state);
        add(button, caption);
    }
}

void Gallery::showMenuButtons()
{
    startRow(tr("cGraphicsMenuButton"));
    for (const auto& [caption, state] : buttonStates()) {
        auto* button = new cGraphicsMenuButton(arrowStrip());
        button->setState(state);
        add(button, caption);
    }
    auto* bare = new cGraphicsMenuButton(arrowStrip());
    bare->setArrowVisible(false);
    add(bare, tr("arrow hidden"));
}

void Gallery::showRibbonButtons()
{
    startRow(tr("cGraphicsRibbonButton"));
    add(new cGraphicsRibbonButton(ribbon("bottom")), tr("menu hidden"));
    auto* below = new cGraphicsRibbonButton(ribbon("bottom"));
    below->showMenu(true);
    add(below, tr("menu at the bottom"));
    auto* above = new cGraphicsRibbonButton(ribbon("top"));
    above->showMenu(true);
    add(above, tr("menu at the top"));
    auto* toggled = new cGraphicsRibbonButton(ribbon("bottom"));
    toggled->toggle();
    add(toggled, tr("toggled"));
}

void Gallery::showButtonLists()
{
    startRow(tr("cGraphicsButtonList"));
    for (const int orientation : {int(Qt::Horizontal), int(Qt::Vertical)}) {
        auto* list = new cGraphicsButtonList(orientation);
        list->setBackground(QColor(6, 50, 50));
        list->setSpacing(4);
        for (int i = 0; i < 3; ++i)
            list->addItem(new cGraphicsButton(newButton(30, 30)), QString::number(i), cJsonValue());
        list->updateLayout();
        add(list, orientation == Qt::Vertical ? tr("vertical") : tr("horizontal"));
    }
}

void Gallery::showClickableLabels()
{
    startRow(tr("cClickableLabel"));
    const auto makeLabel = [] {
        auto* label = new cClickableLabel(QPixmap(pluginImage("icon_new_normal")));
        label->setHoverPixmap(QPixmap(pluginImage("icon_new_hover")));
        label->setPressedPixmap(QPixmap(pluginImage("icon_new_pressed")));
        return label;
    };
    add(makeLabel(), tr("normal"));
    cClickableLabel* hovered = makeLabel();
    add(hovered, tr("hover"));
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(hovered, &enter);
    cClickableLabel* pressed = makeLabel();
    add(pressed, tr("pressed"));
    const QPointF inside(5, 5);
    QMouseEvent press(QEvent::MouseButtonPress, inside, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pressed, &press);
}
