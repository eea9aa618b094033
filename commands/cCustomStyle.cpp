#include "cCustomStyle.h"

void cCustomStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    if (element != PE_FrameFocusRect)
        QCommonStyle::drawPrimitive(element, option, painter, widget);
}
