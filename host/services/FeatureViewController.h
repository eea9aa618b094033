#pragma once

#include <cJsonValue.h>
#include <IFeatureView.h>

#include <QElapsedTimer>
#include <QGraphicsView>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

/// Opens and closes feature views on the canvas, one at a time, in the order that IFeatureView asks for.
///
/// A view brings panes in some time after init() and removes them some time after deinit(); only when both
/// are over is the canvas free again. Requests that come before that are remembered, the last one counts.
class FeatureViewController : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Closed,
        /// From init() to the end of the device's transform.
        Opening,
        Open,
        /// From the request to the moment at which the view's panes are gone.
        Closing
    };

    explicit FeatureViewController(QObject* parent = nullptr);
    ~FeatureViewController() override;

    void setCanvas(QGraphicsView* canvas) { m_canvas = canvas; }

    State state() const { return m_state; }
    /// The view that is not closed, or null.
    IFeatureView* view() const { return m_view; }
    /// Model of the device for which the view is not closed, or empty.
    QString deviceModel() const { return m_deviceModel; }
    /// True if the view is shown, or will be once what is under way is over.
    bool isWanted(const IFeatureView* view) const;

    /// Shows the view for a device, closing what is open first. False if there is no view or it refused; true
    /// if it opens now or was remembered.
    bool open(IFeatureView* view, const QString& deviceModel);
    void close();
    /// Closes without waiting, also what is remembered. For the end, and for a view that goes away.
    void closeNow();
    /// Closes the view without waiting, or forgets that it was to be opened.
    void forget(IFeatureView* view);
    /// Activates the open view; false if none is open or it refused.
    bool activate();

    // Handlers of events.
    Q_INVOKABLE void onDeviceTransformBegin(const cJsonValue& metadata);
    Q_INVOKABLE void onDeviceTransformEnd();

Q_SIGNALS:
    void stateChanged();
    /// A view could not be opened; the text is for the user.
    void failed(const QString& message);

private Q_SLOTS:
    void onTimeout();
    void onViewDestroyed();

private:
    bool start(IFeatureView* view, const QString& deviceModel);
    void takeDown();
    void finishClosing();
    void setState(State state);
    cJsonValue info() const;

    QPointer<QGraphicsView> m_canvas;
    QPointer<IFeatureView> m_view;
    QString m_deviceModel;
    State m_state = State::Closed;
    QPointer<IFeatureView> m_nextView;
    QString m_nextDeviceModel;
    QElapsedTimer m_age;
    QTimer m_timer;
    bool m_isStarting = false;
    bool m_closeAfterStart = false;
    bool m_isTransforming = false;
    bool m_isTakenDown = true;
};
