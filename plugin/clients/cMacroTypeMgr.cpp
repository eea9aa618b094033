#include "cMacroTypeMgr.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cMacroTypeMgr::cMacroTypeMgr()
{
    requireService(ServiceNames::MacroTypeMgr);
}

bool cMacroTypeMgr::registerMacroType(const cMacroTypePtr& macroType)
{
    return askService<bool>(
        ServiceNames::MacroTypeMgr, "registerMacroType", "bool", tagged("cMacroTypePtr", macroType));
}

bool cMacroTypeMgr::unregisterMacroType(const cMacroTypePtr& macroType)
{
    return askService<bool>(
        ServiceNames::MacroTypeMgr, "unregisterMacroType", "bool", tagged("cMacroTypePtr", macroType));
}

cMacroTypePtr cMacroTypeMgr::getMacroTypeByID(const QString& macroTypeID)
{
    return askService<cMacroTypePtr>(
        ServiceNames::MacroTypeMgr, "getMacroTypeByID", "cMacroTypePtr", tagged("QString", macroTypeID));
}

IMacroTypePtrList cMacroTypeMgr::getAllMacroTypes()
{
    return askService<IMacroTypePtrList>(ServiceNames::MacroTypeMgr, "getAllMacroTypes", "IMacroTypePtrList");
}

IMacroTypePtrList cMacroTypeMgr::getMacroTypesByControlTypeID(const QString& controlTypeID)
{
    return askService<IMacroTypePtrList>(ServiceNames::MacroTypeMgr, "getMacroTypesByControlTypeID",
        "IMacroTypePtrList", tagged("QString", controlTypeID));
}

QList<QString> cMacroTypeMgr::getControlTypeIDsByMacroType(const cJsonValue& macroType)
{
    return askService<QList<QString>>(ServiceNames::MacroTypeMgr, "getControlTypeIDsByMacroType",
        "QList<QString>", tagged("cJsonValue", macroType));
}
