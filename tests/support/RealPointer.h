#pragma once

#include <QObject>
#include <QPoint>
#include <QProcess>
#include <QString>
#include <QStringList>

class QWidget;

/// The pointer and the keyboard of the display, moved and pressed from outside the program by xdotool.
class RealPointer : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(RealPointer)

public:
    ~RealPointer() override;

    /// Does what xdotool's words say, after all that was asked for before, without waiting for it.
    static void act(const QString& actions);
    /// Whether all that was asked for has been done.
    static bool isIdle();

    /// The words that move it to a place of the screen.
    static QString moveTo(const QPoint& place);
    /// To the widget's middle, or beside it.
    static QString moveTo(const QWidget& widget, const QPoint& offset = QPoint());

private Q_SLOTS:
    void onFinished();

private:
    explicit RealPointer(QObject* parent);
    static RealPointer& instance();
    void startNext();

    // One process at a time: two would overtake each other, and a release come before its press.
    QProcess m_process;
    QStringList m_waiting;
};
