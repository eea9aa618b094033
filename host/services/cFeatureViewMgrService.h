#pragma once

#include <IFeatureView.h>
#include <IFeatureViewMgr.h>

#include <QList>
#include <QPointer>

class cDevMgrService;
class FeatureViewController;
class IHostWindow;

/// The feature views that plug-ins have registered.
class cFeatureViewMgrService : public IFeatureViewMgr
{
    Q_OBJECT
    Q_CLASSINFO("service", "MainUI.FeatureViewMgr")

public:
    /// All of them outlive the service.
    cFeatureViewMgrService(
        cDevMgrService& devices, FeatureViewController& controller, QObject* parent = nullptr);

    /// The window whose device is shown; null while there is none.
    void setWindow(IHostWindow* window) { m_window = window; }

    /// The registered views, in the order in which they came.
    QList<IFeatureView*> registeredViews() const;
    /// The views that suit a device: those that its manifest names. None for an unknown device.
    QList<IFeatureView*> viewsForDevice(const QString& deviceModel) const;

    bool registerView(IFeatureView* view) override;
    bool unregisterView(IFeatureView* provider) override;
    /// False also for an unknown device. A record without `device_model` stands for the device that is shown.
    bool init(const cJsonValue& viewInfo) override;
    bool activate(const cJsonValue& viewInfo) override;
    cJsonValue views() override;
    cJsonValue getRegisteredViewsForDevice(const QString& deviceModel) override;

Q_SIGNALS:
    void viewsChanged();

private Q_SLOTS:
    void onViewDestroyed();

private:
    IFeatureView* viewOfId(const QString& viewId) const;

    cDevMgrService& m_devices;
    FeatureViewController& m_controller;
    IHostWindow* m_window = nullptr;
    QList<QPointer<IFeatureView>> m_views;
};
