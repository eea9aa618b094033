#include "cMacroTypeMgrService.h"

#include <algorithm>

bool cMacroTypeMgrService::registerMacroType(const cMacroTypePtr& macroType)
{
    if (!macroType)
        return false;
    const QString id = macroType->info()["uid"].toString();
    if (id.isEmpty() || m_byId.contains(id))
        return false;
    m_byId[id] = macroType;
    const auto isBefore = [](const cMacroTypePtr& a, const cMacroTypePtr& b) {
        return a->getPriority() < b->getPriority();
    };
    m_types.insert(std::upper_bound(m_types.begin(), m_types.end(), macroType, isBefore), macroType);
    return true;
}

bool cMacroTypeMgrService::unregisterMacroType(const cMacroTypePtr& macroType)
{
    if (!m_types.removeOne(macroType))
        return false;
    m_byId.remove(m_byId.key(macroType));
    return true;
}

cMacroTypePtr cMacroTypeMgrService::getMacroTypeByID(const QString& macroTypeID)
{
    return m_byId.value(macroTypeID);
}

IMacroTypePtrList cMacroTypeMgrService::getAllMacroTypes()
{
    return m_types;
}

IMacroTypePtrList cMacroTypeMgrService::getMacroTypesByControlTypeID(const QString& controlTypeID)
{
    IMacroTypePtrList types;
    for (const cMacroTypePtr& type : qAsConst(m_types)) {
        if (getControlTypeIDsByMacroType(type->info()).contains(controlTypeID))
            types.append(type);
    }
    return types;
}

QList<QString> cMacroTypeMgrService::getControlTypeIDsByMacroType(const cJsonValue& macroType)
{
    QList<QString> controlTypes;
    const cJsonValue& entries = macroType["control_types"];
    for (unsigned i = 0; i < entries.size(); ++i)
        controlTypes.append(entries[int(i)]["control_type"].toString());
    return controlTypes;
}
