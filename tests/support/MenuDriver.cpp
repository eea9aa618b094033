#include "MenuDriver.h"

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QtTest>

#include <utility>

namespace {

constexpr int LookInterval = 10;

} // namespace

MenuDriver::MenuDriver(std::function<void(QMenu&)> action)
    : m_action(std::move(action))
{
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(look()));
    m_timer.start(LookInterval);
}

QStringList MenuDriver::entriesOf(const QMenu& menu)
{
    QStringList entries;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator())
            entries.append(QStringLiteral("-"));
        else
            entries.append(action->isEnabled() ? action->text() : '(' + action->text() + ')');
    }
    return entries;
}

void MenuDriver::choose(QMenu& menu, const QString& text)
{
    for (QAction* action : menu.actions()) {
        if (action->text() == text) {
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
            return;
        }
    }
    QTest::qFail(qPrintable(QStringLiteral("no such entry: ") + text), __FILE__, __LINE__);
}

void MenuDriver::look()
{
    const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu || !menu->isVisible())
        return;
    m_timer.stop();
    m_hasRun = true;
    m_action(*menu);
    if (menu && menu->isVisible())
        menu->close();
}
