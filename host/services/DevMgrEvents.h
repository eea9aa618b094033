#pragma once

#include <QLatin1String>

/// The events on "DevMgr_Events".
namespace DevMgrEvents {
/// (QString uid, cJsonValue properties): these properties of the device were written.
inline const QLatin1String PropertyChanged("DevicePropertyChanged");
/// (QString uid, cJsonValue blob, QByteArray data): a block of bytes was written to the device.
inline const QLatin1String BlobWritten("DeviceBlobWritten");
} // namespace DevMgrEvents
