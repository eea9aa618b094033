#pragma once

#include <MKey.h>

class cMacroBindingView;
class QString;
class QStringList;

/// Has the view say that it shows that profile, category and mode, without the scene that it would take.
void setShownInView(
    cMacroBindingView& view, const QString& profileID, const QString& category, MKey::MKey_t mode);

/// The same for the context ids of the device's controls.
void setControlsOfView(cMacroBindingView& view, const QStringList& controlIds);
