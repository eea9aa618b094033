#include "cProfilerWidgetFactory.h"

#include "cProfileBarImpl.h"

IProfileBar* cProfilerWidgetFactory::getProfileBar()
{
    // The caller's, who never gives it back.
    return new cProfileBarImpl;
}
