#pragma once

#include "GenericButton.h"
#include "GKey.h"
#include "MKey.h"

#include <QObject>
#include <QString>

/// Keys and M states as text and back, and the current M state of each device category.
class IProfiler : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Context id of a key.
    Q_INVOKABLE virtual QString toContextId(GKey::GKey_t gkey) = 0;

    /// Context id of a button.
    Q_INVOKABLE virtual QString toContextId(GenericButton::GenericButton_t button) = 0;

    /// Number of the key that the context id names; GKey::None for any other text.
    Q_INVOKABLE virtual GKey::GKey_t stringToGKey(const QString& name) = 0;

    /// Context id of a key number; empty for GKey::None.
    Q_INVOKABLE virtual QString gKeyToString(GKey::GKey_t gkey) = 0;

    /// M state of a mode button's id; the first state for any other text.
    Q_INVOKABLE virtual MKey::MKey_t stringToMKey(const QString& name) = 0;

    /// Text of an M state, as manifests and assignment records have it.
    Q_INVOKABLE virtual QString mKeyToString(MKey::MKey_t mkey) = 0;

    /// Current M state of the category.
    Q_INVOKABLE virtual MKey::MKey_t getMState(const QString& category) = 0;

    /// Sets the category's M state. Published as "MStateChanged" on "Profiler_Events".
    Q_INVOKABLE virtual bool setMState(const QString& category, MKey::MKey_t mkey) = 0;

    /// Runs the script command of that name; false if there is none.
    Q_INVOKABLE virtual bool playScriptingMacroByName(const QString& profileID, const QString& macroName) = 0;

    /// Stops the script command that runs; false if none does.
    Q_INVOKABLE virtual bool abortScriptingMacro() = 0;
};
