#pragma once

#include <IProfilerWidgetFactory.h>

/// Gives the interface the name under which the host finds the service.
class cProfilerWidgetFactoryService : public IProfilerWidgetFactory
{
    Q_OBJECT
    Q_CLASSINFO("service", "ProfilerWidgetFactory")

public:
    using IProfilerWidgetFactory::IProfilerWidgetFactory;
};
