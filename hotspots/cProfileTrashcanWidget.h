#pragma once

#include "cProfileDropTarget.h"

#include <QLabel>
#include <QPixmap>

/// The trash can for widget surfaces, see cProfileTrashcanGraphicsItem. Its pictures follow the pointer and
/// not a drag.
class cProfileTrashcanWidget : public QLabel, public cProfileDropTarget
{
    Q_OBJECT
    Q_DISABLE_COPY(cProfileTrashcanWidget)

public:
    explicit cProfileTrashcanWidget(QWidget* parent);

    /// Shown from the next time that the pointer leaves.
    void setNormalPixmap(const QPixmap& pixmap);
    /// Shown at once.
    void setHoverPixmap(const QPixmap& pixmap);

Q_SIGNALS:
    // Each overrides the operation of the drop target: to be given a drop is to emit the signal.
    void profilesDropped(const QStringList& profileIds) override;
    void macrosDropped(const QStringList& macroIds) override;
    void assignmentsDropped(const QStringList& contextIds) override;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    QPixmap m_normalPixmap;
    QPixmap m_hoverPixmap;
};
