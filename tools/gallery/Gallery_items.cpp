#include "Gallery.h"

#include <cAnimatedPixmap.h>
#include <cAnimatedPixmapWidget.h>
#include <cGraphicsItem.h>
#include <cGraphicsItemGroup.h>
#include <cGraphicsText.h>
#include <cPanel.h>
#include <cProfileTrashcanGraphicsItem.h>
#include <cProfileTrashcanWidget.h>
#include <cPulseGlowImage.h>
#include <cScalablePixmap.h>
#include <cScaledFont.h>
#include <cScrollBarItem.h>
#include <cTooltip.h>
#include <MagnetTextItem.h>
#include <StatePicture.h>

#include <QApplication>
#include <QDir>
#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QPropertyAnimation>

namespace {

/// The picture of a mode button of the demonstration controller.
QString modeImage(const char* state)
{
    return QStringLiteral("K13Device:/images/m1_%1.png").arg(QLatin1String(state));
}

void enter(QGraphicsItem* item)
{
    QGraphicsSceneHoverEvent event(QEvent::GraphicsSceneHoverEnter);
    item->scene()->sendEvent(item, &event);
}

} // namespace

void Gallery::showPanels()
{
    startRow(tr("cPanel"));
    for (const QSizeF& size : {QSizeF(232, 120), QSizeF(593, 86), QSizeF(60, 60)})
        add(new cPanel(size), tr("%1 x %2").arg(size.width()).arg(size.height()));
}

void Gallery::showTexts()
{
    startRow(tr("cGraphicsText"));
    const auto makeText = [](const QString& text, const cScaledFont& font, const QColor& color) {
        auto* item = new cGraphicsText;
        item->setFont(font);
        item->setPen(QPen(color));
        item->setText(text);
        return item;
    };
    const QString arial = QStringLiteral("Arial");
    add(makeText(tr("Profiles"), cScaledFont(arial, 15, QFont::Normal), Qt::white), tr("title"));
    add(makeText(tr("Drag commands onto G-keys or profile icons"), cScaledFont(arial, 8, QFont::Bold),
            Qt::lightGray),
        tr("hint, wrapped at 256"));
    cGraphicsText* narrow =
        makeText(tr("A text that is wrapped at its words"), cScaledFont(arial, 10), Qt::white);
    narrow->setTextWidth(80, true);
    add(narrow, tr("wrapped at 80"));
}

void Gallery::showLabels()
{
    startRow(tr("MagnetTextItem"));
    struct Look
    {
        QString caption;
        bool isStatic;
        bool isSelected;
        bool isHovered;
    };
    const QList<Look> looks {{tr("normal"), false, false, false}, {tr("selected"), false, true, false},
        {tr("static"), true, false, false}, {tr("expanded"), false, false, true},
        {tr("selected, expanded"), false, true, true}, {tr("static, expanded"), true, false, true}};
    for (const QString& text : {tr("Reload"), tr("Throw a smoke grenade"),
             tr("Cast the third spell of the second book at nobody")}) {
        for (const Look& look : looks) {
            auto* label = new MagnetTextItem(QStringLiteral("G1"), look.isStatic, nullptr);
            label->setMacroID(QStringLiteral("1"));
            label->setCollapsedWidth(66);
            label->setExpandedMaxWidth(130);
            label->setText(text);
            label->setBalloonSelected(look.isSelected);
            if (look.isHovered)
                label->onGkeyHoverIn();
            add(label, look.caption);
        }
    }
}

void Gallery::showModeButtons()
{
    startRow(tr("cGraphicsItem in a cGraphicsItemGroup"));
    auto* group = new cGraphicsItemGroup;
    scene()->addItem(group);
    struct State
    {
        const char* id;
        const char* caption;
    };
    for (const State& state : {State {"1", "normal"}, State {"2", "hover"}, State {"3", "selected"}}) {
        auto* item = new cGraphicsItem(
            QLatin1String(state.id), modeImage("normal"), modeImage("hover"), modeImage("on"), group);
        group->addItem(item);
        add(item, tr(state.caption));
    }
    enter(group->itemByID(QStringLiteral("2")));
    group->select(QStringLiteral("3"));
}

void Gallery::showGlows()
{
    startRow(tr("cPulseGlowImage and cScalablePixmap"));
    auto* glow = new cPulseGlowImage(pluginImage("key_glow"), {QStringLiteral("key")});
    add(glow, tr("glow"));
    auto* target = new cScalablePixmap(QPixmap(pluginImage("key_target_glow")));
    add(target, tr("target, scale 1.0"));
    auto* scaled = new cScalablePixmap(QPixmap(pluginImage("key_target_glow")));
    add(scaled, tr("scale 0.5"));
    scaled->setScale(0.5);
}

void Gallery::showFilmStrips()
{
    startRow(tr("cAnimatedPixmap and cAnimatedPixmapWidget"));
    const QPixmap search(pluginImage("search"));
    for (int frame = 0; frame < search.width() / 64; ++frame) {
        auto* strip = new cAnimatedPixmap(search, 64);
        strip->setFrame(frame);
        add(strip, tr("frame %1").arg(frame));
    }
    const QPixmap sync(pluginImage("sync_button_animation"));
    for (const int frame : {0, 7, 14, 21}) {
        auto* strip = new cAnimatedPixmapWidget(sync, 29);
        strip->setFrame(frame);
        add(strip, tr("frame %1").arg(frame));
    }
    auto* running = new cAnimatedPixmapWidget(sync, 29);
    running->start();
    add(running, tr("running"));
    auto* hovered = new cAnimatedPixmapWidget(sync, 29);
    hovered->setHoverPixmap(QPixmap(pluginImage("sync_button_hover")));
    hovered->setUseHoverPixmap(true);
    add(hovered, tr("hover"));
    QEvent event(QEvent::Enter);
    QApplication::sendEvent(hovered, &event);
}

void Gallery::showScrollBars()
{
    startRow(tr("cScrollBarItem"));
    QPixmap piece(8, 8);
    piece.fill(QColor(0x14, 0xac, 0xac));
    QPixmap middle(8, 1);
    middle.fill(QColor(0x21, 0x63, 0x63));
    for (const int content : {100, 130, 180}) {
        auto* bar = new cScrollBarItem;
        bar->setPixmaps(piece, middle, piece);
        bar->setSize(8, 100);
        bar->setMinimumHandle(20);
        bar->setContentLength(content);
        bar->setOpacity(1.0);
        add(bar, tr("content %1").arg(content));
    }
}

void Gallery::showTooltips()
{
    startRow(tr("cTooltip"));
    for (const QString& text :
        {tr("Short"), tr("To assign a command to this G-key, drag the command here")}) {
        auto* tooltip = new cTooltip;
        scene()->addItem(tooltip);
        tooltip->showTip(QPointF(), text);
        add(tooltip, QString());
    }
}

void Gallery::showTrashCans()
{
    startRow(tr("cProfileTrashcanGraphicsItem and cProfileTrashcanWidget"));
    const QPixmap normal(pluginImage("icon_trash"));
    const QPixmap hover(pluginImage("icon_trash_hover"));
    add(new cProfileTrashcanGraphicsItem(normal, hover, nullptr), tr("at rest"));
    auto* open = new cProfileTrashcanGraphicsItem(normal, hover, nullptr);
    open->setState(StatePicture::UnderPointer);
    add(open, tr("drag over"));
    auto* widget = new cProfileTrashcanWidget(nullptr);
    widget->setHoverPixmap(hover);
    add(widget, tr("widget, drag over"));
}
