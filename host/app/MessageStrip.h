#pragma once

#include <QFrame>
#include <QStringList>

class QLabel;
class QPushButton;

/// A strip over the canvas with a message that stays until it is dismissed. Messages that come meanwhile wait
/// their turn; one that waits already is not added again.
class MessageStrip : public QFrame
{
    Q_OBJECT

public:
    explicit MessageStrip(QWidget* parent = nullptr);

    void addMessage(const QString& text);
    /// The messages that were not dismissed, the one that is shown first.
    QStringList messages() const { return m_messages; }

    /// Takes as much height as the text needs in the area, whose lower edge it sits on.
    void placeIn(const QRect& area);

public Q_SLOTS:
    void dismiss();

private:
    void showFirst();

    QLabel* m_text = nullptr;
    QLabel* m_count = nullptr;
    QPushButton* m_button = nullptr;
    QStringList m_messages;
    QRect m_area;
};
