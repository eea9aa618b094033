#pragma once

#include <QWidget>

/// A row's widget in a cRowList: it shows only while its place is in sight.
///
/// The view that holds it calls show() for every row. A widget that is shown gets its style, its layout and
/// its place among the widgets that are painted, all of which a row far down a long list can do without.
class cRowWidget : public QWidget
{
public:
    using QWidget::QWidget;

    /// True until the list says otherwise. Hides or shows nothing itself.
    void setInSight(bool inSight) { m_inSight = inSight; }
    void setVisible(bool visible) override { QWidget::setVisible(visible && m_inSight); }

private:
    bool m_inSight = true;
};
