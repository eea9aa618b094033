#pragma once

#include "IMacroTypeMgr.h"

/// The client of IMacroTypeMgr, the service "Profiler.MacroTypeMgr"; see cServiceClient.h for how its members
/// call.
class cMacroTypeMgr : public IMacroTypeMgr
{
    Q_OBJECT

public:
    cMacroTypeMgr();

    bool registerMacroType(const cMacroTypePtr& macroType) override;
    bool unregisterMacroType(const cMacroTypePtr& macroType) override;
    cMacroTypePtr getMacroTypeByID(const QString& macroTypeID) override;
    IMacroTypePtrList getAllMacroTypes() override;
    IMacroTypePtrList getMacroTypesByControlTypeID(const QString& controlTypeID) override;
    QList<QString> getControlTypeIDsByMacroType(const cJsonValue& macroType) override;
};
