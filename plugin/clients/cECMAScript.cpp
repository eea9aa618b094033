#include "cECMAScript.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cECMAScript::cECMAScript()
{
    requireService(ServiceNames::ECMAScriptMgr);
}

QScriptValue cECMAScript::evaluate(const QString& program)
{
    return askService<QScriptValue>(
        ServiceNames::ECMAScriptMgr, "evaluate", "QScriptValue", tagged("const QString", program));
}

void cECMAScript::newObject(QObject* obj, const QString& varName)
{
    callService(
        ServiceNames::ECMAScriptMgr, "newObject", tagged("QObject *", obj), tagged("const QString", varName));
}

QScriptEngine* cECMAScript::engine()
{
    return askService<QScriptEngine*>(ServiceNames::ECMAScriptMgr, "engine", "QScriptEngine*");
}
