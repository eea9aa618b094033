#include "DeviceButton.h"

#include "AppConstants.h"

#include <HostDevice.h>

namespace {

/// The picture made to fit, with enough pixels for the screen.
QPixmap fittingIcon(const QString& path, qreal pixelRatio)
{
    const QPixmap icon(path);
    if (icon.isNull())
        return icon;
    const QSize size = QSize(AppConstants::DeviceIconSize, AppConstants::DeviceIconSize) * pixelRatio;
    QPixmap fitting = icon.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    fitting.setDevicePixelRatio(pixelRatio);
    return fitting;
}

} // namespace

DeviceButton::DeviceButton(const HostDevice& device, QWidget* parent)
    : BarButton(device.shortName(), AppConstants::DeviceIconSize, parent)
    , m_model(device.model())
    , m_icon(fittingIcon(device.iconPath(), devicePixelRatioF()))
{
    setCheckable(true);
    setToolTip(device.problem().isEmpty() ? device.displayName() : device.problem());
    setAccessibleName(device.displayName());
}
