#pragma once

#include <QString>

class QLayout;

/// What a layout holds, as in "V[H[Name:, stretch, QLineEdit], 0x10, OK*1]": columns and rows with the
/// beginnings of the texts of their widgets, or with the classes of those that show none of their own. Gaps
/// that may grow to any size are "stretch", those that Qt's addSpacing() makes "spacing 5", others their
/// size; a stretch factor stands behind a star.
QString layoutText(const QLayout& layout);
