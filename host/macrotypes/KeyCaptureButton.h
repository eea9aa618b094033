#pragma once

#include "KeyNames.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QVector>

/// A button that, while it is down, takes all keys for itself and reports them.
///
/// A click, Space or the mnemonic starts it. Esc on its own, another click or the loss of the focus stops it,
/// so Esc on its own can't be reported. While it is up, all keys do what they do on any button.
class KeyCaptureButton : public QPushButton
{
    Q_OBJECT

public:
    /// The texts while it waits and while it captures.
    KeyCaptureButton(const QString& startText, const QString& stopText, QWidget* parent = nullptr);

    bool isCapturing() const { return isChecked(); }
    void stop() { setChecked(false); }

Q_SIGNALS:
    void started();
    /// Sent after the releases of all keys that are still held.
    void stopped();
    /// `modifiers` are those that are held besides. Times are milliseconds of a clock that only goes forward;
    /// repeats of a held key are left out.
    void keyPressed(const Key& key, Qt::KeyboardModifiers modifiers, qint64 time);
    /// The key is as it was reported when it was pressed.
    void keyReleased(const Key& key, qint64 time);

protected:
    bool event(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private Q_SLOTS:
    void onToggled(bool isOn);

private:
    qint64 timeOf(const QKeyEvent& event) const;
    void press(const QKeyEvent& event);
    void release(const QKeyEvent& event);

    QString m_startText;
    QString m_stopText;
    QVector<Key> m_held;
    QElapsedTimer m_clock;
    qint64 m_lastTime = 0;
};
