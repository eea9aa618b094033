#pragma once

#include <MKey.h>

class cMacroBindingView;
class QString;

/// Has the view say that it shows that profile, category and mode, without the scene that it would take.
void setShownInView(
    cMacroBindingView& view, const QString& profileID, const QString& category, MKey::MKey_t mode);
