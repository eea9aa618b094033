#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QSet>

/// The field of a search box. It says when the first focus arrives, and passes chosen keys on to another
/// widget, so that the user can walk a list while the text cursor stays in the field.
class cSearchEditLine : public QLineEdit
{
    Q_OBJECT

public:
    explicit cSearchEditLine(QWidget* parent = nullptr);

    /// Whether the field shows the word that stands in it while it is idle, as it does at first.
    void setInitialStatus(bool initial) { m_initialStatus = initial; }
    /// Presses and releases of the keys go to the field and then, through the event loop, to the target,
    /// which may be null.
    void setForwarding(QWidget* target, const QSet<Qt::Key>& keys);

Q_SIGNALS:
    void focusInIntialStatus();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void forward(const QKeyEvent& event);

    bool m_initialStatus = true;
    QPointer<QWidget> m_forwardTarget;
    QSet<Qt::Key> m_forwardKeys;
};
