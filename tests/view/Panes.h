#pragma once

#include "ViewFixture.h"

#include <cPanel.h>
#include <cScalablePixmap.h>

#include <QList>
#include <QPoint>
#include <QPropertyAnimation>
#include <QtTest>

// The panes with their frames, outside of the canvas: 21 pixels of frame on each side.
inline constexpr QPoint CommandPaneOutside(-274, 157);
inline constexpr QPoint CommandPaneAtRest(38, 157);
inline constexpr QPoint ProfilePaneOutside(352, -128);
inline constexpr QPoint ProfilePaneAtRest(352, 37);

/// The view's panes, its mask and their animations, as a test sees them.
class Panes
{
public:
    explicit Panes(ViewFixture& fixture)
        : m_fixture(fixture)
    { }

    cPanel* command() const { return panel(QSizeF(232, 380)); }
    cPanel* profile() const { return panel(QSizeF(593, 86)); }
    cScalablePixmap* mask() const { return m_fixture.item<cScalablePixmap>(); }
    /// How many of the three there are.
    int count() const { return m_fixture.items<cPanel>().size() + m_fixture.items<cScalablePixmap>().size(); }
    QPropertyAnimation* animationOf(const QObject* target) const
    {
        for (QPropertyAnimation* animation : animations()) {
            if (animation->targetObject() == target)
                return animation;
        }
        return nullptr;
    }
    QList<QPropertyAnimation*> animations() const
    {
        return m_fixture.view.findChildren<QPropertyAnimation*>();
    }
    bool areMoving() const
    {
        for (const QPropertyAnimation* animation : animations()) {
            if (animation->state() == QAbstractAnimation::Running)
                return true;
        }
        return false;
    }

private:
    cPanel* panel(const QSizeF& size) const
    {
        for (cPanel* panel : m_fixture.items<cPanel>()) {
            if (panel->panelSize() == size)
                return panel;
        }
        return nullptr;
    }

    ViewFixture& m_fixture;
};

inline void bringUp(ViewFixture& fixture)
{
    fixture.view.init(cJsonValue(), fixture.canvas.get());
    fixture.host.clear();
}

/// With panes that have come in, so that no timer is under way any more.
class RestingView : public ViewFixture
{
public:
    RestingView()
    {
        bringUp(*this);
        const Panes panes(*this);
        QTRY_COMPARE(panes.count(), 3);
        QTRY_VERIFY(!panes.areMoving());
    }
};
