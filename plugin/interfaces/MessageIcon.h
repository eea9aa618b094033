#pragma once

#include <QMetaType>

/// The icon of a message at the tray, in the order of QSystemTrayIcon::MessageIcon.
namespace MessageIcon {
enum MessageIcon_t { NoIcon = 0, Information = 1, Warning = 2, Critical = 3 };
} // namespace MessageIcon

Q_DECLARE_METATYPE(MessageIcon::MessageIcon_t)
