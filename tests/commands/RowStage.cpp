#include "RowStage.h"

#include <cClickableLabel.h>
#include <cMacroItem.h>

#include <QCoreApplication>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>

using namespace CommandSupport;

RowStage::RowStage(const cJsonValue& record)
{
    for (const QString& look : looks())
        pictures.add("command_" + look + ".png", filledPicture(220, 30, colorOf(look)));
    pictures.add("pointer_left-click.png", filledPicture(16, 16, Qt::white));
    const QString keysIcon = pictures.add("keys.png", filledPicture(28, 28, Qt::red));
    const QString textIcon = pictures.add("text.png", filledPicture(20, 20, Qt::green));
    panel.types = {cMacroTypePtr(new FakeType(Keys, keysIcon)), cMacroTypePtr(new FakeType(Text, textIcon))};
    parent.resize(300, 60);
    make(record);
}

RowStage::~RowStage() = default;

const QStringList& RowStage::looks()
{
    static const QStringList all {"normal", "normal_assigned", "normal_selected", "normal_selected_assigned",
        "hover", "hover_assigned", "hover_selected", "hover_selected_assigned"};
    return all;
}

QColor RowStage::colorOf(const QString& look)
{
    return QColor(20 * (looks().indexOf(look) + 1), 0, 100);
}

void RowStage::make(const cJsonValue& record)
{
    panel.host.clear();
    row = std::make_unique<cMacroItem>(record, &parent);
    log = panel.takeLog();
    signalLog = std::make_unique<SignalLog>(*row, panel.host);
}

bool RowStage::send(QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons buttons,
    Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, at, row->mapToGlobal(at.toPoint()), button, buttons, modifiers);
    QCoreApplication::sendEvent(row.get(), &event);
    return event.isAccepted();
}

bool RowStage::press(const QPointF& at, Qt::KeyboardModifiers modifiers)
{
    return send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, modifiers);
}

bool RowStage::move(const QPointF& at, Qt::MouseButtons buttons)
{
    return send(QEvent::MouseMove, at, Qt::NoButton, buttons);
}

void RowStage::enter()
{
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(row.get(), &event);
}

void RowStage::leave()
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(row.get(), &event);
}

QColor RowStage::background() const
{
    return row->grab().toImage().pixelColor(215, 2);
}

cClickableLabel& RowStage::contextIcon() const
{
    return *row->findChild<cClickableLabel*>();
}

QLabel* RowStage::nameLabel() const
{
    for (QLabel* label : row->findChildren<QLabel*>()) {
        if (label->width() == 160)
            return label;
    }
    return nullptr;
}

QLabel* RowStage::iconLabel() const
{
    for (QLabel* label : row->findChildren<QLabel*>()) {
        if (label != nameLabel() && label != &contextIcon())
            return label;
    }
    return nullptr;
}

QSize RowStage::iconSize() const
{
    return iconLabel() ? iconLabel()->pixmap(Qt::ReturnByValue).size() : QSize();
}
