#include "cSearchEditLine.h"

#include <QCoreApplication>
#include <QKeyEvent>

cSearchEditLine::cSearchEditLine(QWidget* parent)
    : QLineEdit(parent)
{ }

void cSearchEditLine::setForwarding(QWidget* target, const QSet<Qt::Key>& keys)
{
    m_forwardTarget = target;
    m_forwardKeys = keys;
}

void cSearchEditLine::keyPressEvent(QKeyEvent* event)
{
    QLineEdit::keyPressEvent(event);
    forward(*event);
}

void cSearchEditLine::keyReleaseEvent(QKeyEvent* event)
{
    QWidget::keyReleaseEvent(event);
    forward(*event);
}

void cSearchEditLine::focusInEvent(QFocusEvent* event)
{
    if (m_initialStatus)
        Q_EMIT focusInIntialStatus();
    QLineEdit::focusInEvent(event);
}

void cSearchEditLine::forward(const QKeyEvent& event)
{
    if (!m_forwardTarget || !m_forwardKeys.contains(Qt::Key(event.key())))
        return;
    QCoreApplication::postEvent(m_forwardTarget,
        new QKeyEvent(event.type(), event.key(), event.modifiers(), event.text(), event.isAutoRepeat(),
            ushort(event.count())));
}
