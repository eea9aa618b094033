#pragma once

#include "cRowWidget.h"

#include <cJsonValue.h>

#include <QPixmap>
#include <QPoint>
#include <QPointF>
#include <QString>

class cClickableLabel;
class QHBoxLayout;
class QLabel;

/// The row of one command in the command list: the icon of its type, its name, and while the pointer is on it
/// a small icon that opens the context menu.
///
/// It shows by one of eight pictures whether the pointer is on it, whether it is selected and whether a
/// control holds the command. It leaves presses to the list, which selects, and tells the list when a drag
/// should begin.
class cMacroItem : public cRowWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(cMacroItem)

public:
    /// Asks the host whether a control of the shown device holds the command.
    cMacroItem(const cJsonValue& macro, QWidget* parent);

    cJsonValue macro() const { return m_macro; }
    QString macroId() const;

    /// Refreshes the row for a changed record. Whether the command is assigned is not asked again.
    void setMacro(const cJsonValue& macro);
    // These two only store; the caller sees to it that the row is painted again.
    void setAssigned(bool assigned) { m_assigned = assigned; }
    void setRowSelected(bool selected) { m_selected = selected; }

Q_SIGNALS:
    void macroDoubleClicked(const cJsonValue& macro);
    /// In global coordinates.
    void macroContextMenuIconClicked(const QPoint& point);
    void dragStart(const cJsonValue& macro);
    void hoverIn();
    void hoverOut();
    void nameChanged(const QString& name);

public Q_SLOTS:
    void contextMenuIconClicked(const QPoint& point);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString displayName() const;
    void createLabels();
    void createContextIcon();
    void loadPictures();
    /// Does nothing for a null record. Makes the icon's label if there is none yet: the type may have been
    /// registered after the row was made.
    void showIcon(const cJsonValue& info);
    const QPixmap& picture() const;

    cJsonValue m_macro;
    QHBoxLayout* m_layout = nullptr;
    /// Null if no type has the command's namespace.
    QLabel* m_iconLabel = nullptr;
    QLabel* m_nameLabel = nullptr;
    bool m_assigned = false;
    bool m_selected = false;
    bool m_hover = false;
    QPointF m_pressPoint;
    QPixmap m_normal;
    QPixmap m_normalAssigned;
    QPixmap m_normalSelected;
    QPixmap m_normalSelectedAssigned;
    QPixmap m_hoverNormal;
    QPixmap m_hoverAssigned;
    QPixmap m_hoverSelected;
    QPixmap m_hoverSelectedAssigned;
    cClickableLabel* m_contextIcon = nullptr;
};
