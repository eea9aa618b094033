#include "cProfilerWidgetFactory.h"

IProfileBar* cProfilerWidgetFactory::getProfileBar()
{
    return nullptr;
}
