#pragma once

#include <cJsonValue.h>

#include <QFrame>
#include <QList>
#include <QSharedPointer>

class DeviceButton;
class FeatureViewButton;
class HostDevice;
class QButtonGroup;
class QHBoxLayout;
class QScrollArea;

/// The bar below the canvas: the devices at the left, the views of the chosen device at the right. Tab
/// goes to the chosen device and to each view; the arrow keys choose the neighbouring device.
class DeviceBar : public QFrame
{
    Q_OBJECT

public:
    explicit DeviceBar(QWidget* parent = nullptr);

    void setDevices(const QList<QSharedPointer<HostDevice>>& devices);
    /// Marks the device; the others are unmarked. A device that has the focus gives it to the marked one.
    void setActiveDevice(const QString& model);
    /// Gives the marked device the focus.
    void focusActiveDevice();

    /// Makes a button for each info record of the array. The same records once more change nothing.
    void setViews(const cJsonValue& viewInfos);
    /// Marks the view; the others are unmarked.
    void setWantedView(const QString& viewId);

    QList<DeviceButton*> deviceButtons() const { return m_deviceButtons; }
    QList<FeatureViewButton*> viewButtons() const { return m_viewButtons; }

Q_SIGNALS:
    void deviceChosen(const QString& model);
    void viewToggled(const QString& viewId);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void onDeviceToggled(bool checked);
    void onViewClicked();

private:
    QScrollArea* m_area = nullptr;
    QHBoxLayout* m_devicesLayout = nullptr;
    QHBoxLayout* m_viewsLayout = nullptr;
    QButtonGroup* m_group = nullptr;
    QList<DeviceButton*> m_deviceButtons;
    QList<FeatureViewButton*> m_viewButtons;
    cJsonValue m_viewInfos;
};
