#pragma once

#include <QMetaType>

/// The buttons of a pointing device by number, counted from 1.
namespace GenericButton {
enum GenericButton_t { None = 0, First = 1, Last = 20 };
} // namespace GenericButton

Q_DECLARE_METATYPE(GenericButton::GenericButton_t)
