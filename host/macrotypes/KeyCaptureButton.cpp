#include "KeyCaptureButton.h"

#include <QKeyEvent>

#include <algorithm>
#include <limits>

namespace {

Key keyOf(const QKeyEvent& event)
{
    int code = event.key();
    // Shift+Tab comes as a key of its own.
    if (code == Qt::Key_Backtab)
        code = Qt::Key_Tab;
    if (event.modifiers() & Qt::KeypadModifier)
        code |= int(Qt::KeypadModifier);
    // Records hold scan codes as integers; larger ones are not keys.
    const quint32 scanCode = event.nativeScanCode();
    return {code, scanCode > quint32(std::numeric_limits<int>::max()) ? 0 : scanCode};
}

/// Shift changes what a key is called, but not which key it is.
bool isSameKey(const Key& a, const Key& b)
{
    return a.scanCode || b.scanCode ? a.scanCode == b.scanCode : a.code == b.code;
}

} // namespace

KeyCaptureButton::KeyCaptureButton(const QString& startText, const QString& stopText, QWidget* parent)
    : QPushButton(startText, parent)
    , m_startText(startText)
    , m_stopText(stopText)
{
    setCheckable(true);
    // Return belongs to the dialog's OK.
    setAutoDefault(false);
    m_clock.start();
    connect(this, SIGNAL(toggled(bool)), this, SLOT(onToggled(bool)));
}

bool KeyCaptureButton::event(QEvent* event)
{
    if (!isCapturing())
        return QPushButton::event(event);
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyPress:
        press(*static_cast<QKeyEvent*>(event));
        event->accept();
        return true;
    case QEvent::KeyRelease:
        release(*static_cast<QKeyEvent*>(event));
        event->accept();
        return true;
    default:
        return QPushButton::event(event);
    }
}

void KeyCaptureButton::focusOutEvent(QFocusEvent* event)
{
    stop();
    QPushButton::focusOutEvent(event);
}

void KeyCaptureButton::hideEvent(QHideEvent* event)
{
    stop();
    QPushButton::hideEvent(event);
}

void KeyCaptureButton::onToggled(bool isOn)
{
    setText(isOn ? m_stopText : m_startText);
    if (isOn) {
        // On some systems a click does not give the focus to a button.
        setFocus(Qt::OtherFocusReason);
        m_lastTime = 0;
        emit started();
        return;
    }
    while (!m_held.isEmpty())
        emit keyReleased(m_held.takeLast(), m_lastTime);
    emit stopped();
}

qint64 KeyCaptureButton::timeOf(const QKeyEvent& event) const
{
    const qint64 time = event.timestamp() ? qint64(event.timestamp()) : m_clock.elapsed();
    return std::max(time, m_lastTime);
}

void KeyCaptureButton::press(const QKeyEvent& event)
{
    if (event.isAutoRepeat())
        return;
    const Key key = keyOf(event);
    const Qt::KeyboardModifiers modifiers =
        event.modifiers() & KeyNames::Modifiers & ~Qt::KeyboardModifiers(KeyNames::modifierOf(key.code));
    if (key.code == Qt::Key_Escape && modifiers == Qt::NoModifier && m_held.isEmpty()) {
        stop();
        return;
    }
    const bool isHeld =
        std::any_of(m_held.begin(), m_held.end(), [&](const Key& held) { return isSameKey(held, key); });
    if (key.isNull() || isHeld)
        return;
    m_lastTime = timeOf(event);
    m_held.append(key);
    emit keyPressed(key, modifiers, m_lastTime);
}

void KeyCaptureButton::release(const QKeyEvent& event)
{
    if (event.isAutoRepeat())
        return;
    const Key key = keyOf(event);
    const auto held =
        std::find_if(m_held.begin(), m_held.end(), [&](const Key& other) { return isSameKey(other, key); });
    // The key that started the capture is released in it.
    if (held == m_held.end())
        return;
    m_lastTime = timeOf(event);
    const Key released = *held;
    m_held.erase(held);
    emit keyReleased(released, m_lastTime);
}
