#pragma once

#include <QObject>

class IProfileBar;

/// The service "ProfilerWidgetFactory", by which other modules get a profile bar of their own.
class IProfilerWidgetFactory : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// A new bar at each call.
    Q_INVOKABLE virtual IProfileBar* getProfileBar() = 0;
};
