#pragma once

#include <cJsonValue.h>

#include <QFrame>
#include <QString>

class QLabel;
class QVBoxLayout;

/// The icon of a command type with the type's name below.
class cMacroTypeIconItem : public QFrame
{
    Q_OBJECT

public:
    /// `info` is the type's info record.
    explicit cMacroTypeIconItem(const cJsonValue& info, QWidget* parent = nullptr);

    QString macroTypeID() const { return m_macroTypeID; }
    QString displayName() const { return m_displayName; }
    bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool isHighlighted);

Q_SIGNALS:
    void clicked(const QString& macroTypeID);

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    Q_DISABLE_COPY(cMacroTypeIconItem)

    /// Gives the name the room that it needs in the present font, so that no layout can clip it.
    void fitText();

    QString m_macroTypeID;
    QString m_displayName;
    // Owned as child widgets.
    QVBoxLayout* m_layout = nullptr;
    QLabel* m_iconLabel = nullptr;
    QLabel* m_textLabel = nullptr;
    bool m_highlighted = false;
    /// Left and right of the content.
    int m_frameWidth = 0;
};
