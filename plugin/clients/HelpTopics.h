#pragma once

#include <QLatin1String>

/// Where the plug-in's help lies in the host's help.
namespace HelpTopics {
inline const QLatin1String Section("com.veltrano.profile");
/// Opened for the view itself; the dialogs name their own topics.
inline const QLatin1String View("customizing_gkeys.htm");
} // namespace HelpTopics
