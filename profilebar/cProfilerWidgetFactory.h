#pragma once

#include "cProfilerWidgetFactoryService.h"

/// The service object itself. The plug-in has one, which lives as long as its library.
class cProfilerWidgetFactory : public cProfilerWidgetFactoryService
{
    Q_OBJECT

public:
    using cProfilerWidgetFactoryService::cProfilerWidgetFactoryService;

    IProfileBar* getProfileBar() override;
};
