#pragma once

#include "CommandSupport.h"

#include <TestPictures.h>

#include <QColor>
#include <QEvent>
#include <QPointF>
#include <QSize>
#include <QStringList>
#include <QWidget>

#include <memory>

class cClickableLabel;
class cMacroItem;
class QLabel;

/// A row on a host with the types, in a parent that stands for the list.
class RowStage
{
    Q_DISABLE_COPY(RowStage)

public:
    explicit RowStage(const cJsonValue& record = CommandSupport::macro("{1}", "Jump"));
    ~RowStage();

    /// The looks of a row as its pictures are named: the eighth is hovered, selected and assigned.
    static const QStringList& looks();
    static QColor colorOf(const QString& look);

    /// Replaces the row by one for this command.
    void make(const cJsonValue& record);

    /// Sends the event to the row alone and tells whether it accepted it.
    bool send(QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons buttons,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    bool press(const QPointF& at, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    bool move(const QPointF& at, Qt::MouseButtons buttons = Qt::LeftButton);
    void enter();
    void leave();

    /// Of the picture behind the labels.
    QColor background() const;
    cClickableLabel& contextIcon() const;
    QLabel* nameLabel() const;
    /// Null if there is none.
    QLabel* iconLabel() const;
    QSize iconSize() const;

    TestPictures pictures;
    CommandSupport::Panel panel;
    QWidget parent;
    std::unique_ptr<cMacroItem> row;
    /// The calls of the row's construction.
    QStringList log;
    std::unique_ptr<SignalLog> signalLog;
};
