#pragma once

#include <QtGlobal>

/// The resolution at which the sizes in the design of the view are meant, in dots per inch.
inline constexpr qreal DesignDpi = 96.0;

/// Horizontal dots per inch of the screen as the user's settings have it, which need not be what a ruler
/// gives. DesignDpi where there is no screen to ask.
qreal screenHorizontalDpi();
