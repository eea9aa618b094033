#pragma once

#include <QPixmap>

/// The state of an item that has several looks, and the picture for it.
namespace StatePicture {

/// Bits of the state. Resting is set in every state of a button.
enum State { Resting = 1, ToggledOn = 2, UnderPointer = 4 };

/// The pressed picture for a state that is toggled on, else the hover picture for one that is under the
/// pointer, else the normal one. A picture that is null is passed over for the next; the normal one may be
/// null.
QPixmap choose(int state, const QPixmap& normal, const QPixmap& hover, const QPixmap& pressed = QPixmap());

} // namespace StatePicture
