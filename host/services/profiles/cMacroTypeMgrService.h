#pragma once

#include <IMacroTypeMgr.h>

#include <QHash>

/// The service "Profiler.MacroTypeMgr": the registered command types, in the order of their priorities; among
/// equal ones the order of registration.
class cMacroTypeMgrService : public IMacroTypeMgr
{
    Q_OBJECT
    Q_CLASSINFO("service", "Profiler.MacroTypeMgr")

public:
    using IMacroTypeMgr::IMacroTypeMgr;

    bool registerMacroType(const cMacroTypePtr& macroType) override;
    bool unregisterMacroType(const cMacroTypePtr& macroType) override;
    cMacroTypePtr getMacroTypeByID(const QString& macroTypeID) override;
    IMacroTypePtrList getAllMacroTypes() override;
    IMacroTypePtrList getMacroTypesByControlTypeID(const QString& controlTypeID) override;
    QList<QString> getControlTypeIDsByMacroType(const cJsonValue& macroType) override;

private:
    IMacroTypePtrList m_types;
    /// A type makes its info record anew at each call, and types are looked up for every stored command.
    QHash<QString, cMacroTypePtr> m_byId;
};
