#pragma once

class cJsonValue;
class QPoint;
class QSize;

/// Pieces of the records that describe buttons. What is missing or of another type counts as 0.
namespace ButtonDescription {

/// From the integers `x` and `y`.
QPoint point(const cJsonValue& record);

/// From the integers `width` and `height`. A negative length counts as 0.
QSize size(const cJsonValue& record);

} // namespace ButtonDescription
