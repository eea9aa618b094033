#pragma once

#include "IECMAScriptMgr.h"

/// The client of IECMAScriptMgr, the service "ECMAScript.ECMAScriptMgr"; see cServiceClient.h for how its
/// members call.
class cECMAScript : public IECMAScriptMgr
{
    Q_OBJECT

public:
    cECMAScript();

    QScriptValue evaluate(const QString& program) override;
    void newObject(QObject* obj, const QString& varName) override;
    QScriptEngine* engine() override;
};
