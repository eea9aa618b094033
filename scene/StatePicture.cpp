#include "StatePicture.h"

QPixmap StatePicture::choose(int state, const QPixmap& normal, const QPixmap& hover, const QPixmap& pressed)
{
    if ((state & ToggledOn) && !pressed.isNull())
        return pressed;
    if ((state & UnderPointer) && !hover.isNull())
        return hover;
    return normal;
}
