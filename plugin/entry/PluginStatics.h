#pragma once

#include <QString>

class cLog;
class cProfilerWidgetFactory;

/// The objects that live as long as the library, for the plug-in object.
namespace PluginStatics {
QString& alias();
cLog& log();
cProfilerWidgetFactory& widgetFactory();
} // namespace PluginStatics
