#include "cLuaScript.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cLuaScript::cLuaScript()
{
    requireService(ServiceNames::LuaScript);
}

void cLuaScript::showEditor(bool visible, const QString& profileID)
{
    callService(
        ServiceNames::LuaScript, "showEditor", tagged("bool", visible), tagged("const QString", profileID));
}

bool cLuaScript::run(const QString& profileID, const QString& script)
{
    return askService<bool>(ServiceNames::LuaScript, "run", "bool", tagged("const QString", profileID),
        tagged("const QString", script));
}

void cLuaScript::stop()
{
    callService(ServiceNames::LuaScript, "stop");
}
