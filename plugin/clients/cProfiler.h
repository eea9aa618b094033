#pragma once

#include "IProfiler.h"

/// The client of IProfiler, the service "Profiler.Profiler"; see cServiceClient.h for how its members call.
class cProfiler : public IProfiler
{
    Q_OBJECT

public:
    cProfiler();

    QString toContextId(GKey::GKey_t gkey) override;
    QString toContextId(GenericButton::GenericButton_t button) override;
    GKey::GKey_t stringToGKey(const QString& name) override;
    QString gKeyToString(GKey::GKey_t gkey) override;
    MKey::MKey_t stringToMKey(const QString& name) override;
    QString mKeyToString(MKey::MKey_t mkey) override;
    MKey::MKey_t getMState(const QString& category) override;
    bool setMState(const QString& category, MKey::MKey_t mkey) override;
    bool playScriptingMacroByName(const QString& profileID, const QString& macroName) override;
    bool abortScriptingMacro() override;
};
