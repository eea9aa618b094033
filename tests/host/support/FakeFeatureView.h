#pragma once

#include <EventNames.h>
#include <IFeatureView.h>
#include <IServiceMgr.h>

#include <QElapsedTimer>
#include <QGraphicsView>
#include <QStringList>

#include <functional>

/// A feature view that writes down what is asked of it and answers what the test sets.
class FakeFeatureView : public IFeatureView
{
public:
    explicit FakeFeatureView(const QString& viewId = QStringLiteral("fake_view"))
        : m_viewId(viewId)
    { }

    bool init(cJsonValue viewInfo, QGraphicsView* canvas) override
    {
        note("init", viewInfo);
        initCanvas = canvas;
        sinceInit.start();
        if (onInit)
            onInit();
        if (asksForTransform) {
            cJsonValue place;
            place["scale"] = 0.5;
            place["pos_x"] = 300;
            place["pos_y"] = 150;
            IServiceMgr::instance()->publish(
                EventSources::MainUI, Events::DeviceTransformBegin, Q_ARG(cJsonValue, place));
        }
        return initAnswer;
    }
    bool deinit(cJsonValue viewInfo, QGraphicsView*) override
    {
        note("deinit", viewInfo);
        ageAtDeinit = sinceInit.elapsed();
        sinceDeinit.start();
        return true;
    }
    bool activate(cJsonValue viewInfo) override
    {
        note("activate", viewInfo);
        return activateAnswer;
    }
    bool deactivate(cJsonValue viewInfo) override
    {
        note("deactivate", viewInfo);
        return true;
    }
    cJsonValue viewInfo() override
    {
        cJsonValue info;
        info["view_id"] = m_viewId;
        info["tooltip"] = m_viewId + QStringLiteral(" tooltip");
        return info;
    }

    QStringList takeLog() { return std::exchange(log, {}); }

    /// As in: init fake_view M1
    QStringList log;
    QGraphicsView* initCanvas = nullptr;
    bool initAnswer = true;
    bool activateAnswer = true;
    /// Asks for (300, 150) at half the size.
    bool asksForTransform = false;
    std::function<void()> onInit;
    QElapsedTimer sinceInit;
    QElapsedTimer sinceDeinit;
    qint64 ageAtDeinit = 0;

private:
    void note(const char* operation, const cJsonValue& viewInfo)
    {
        log.append(QStringLiteral("%1 %2 %3")
                       .arg(QLatin1String(operation), viewInfo["view_id"].toString(),
                           viewInfo["device_model"].toString()));
    }

    QString m_viewId;
};
