#pragma once

#include "ILuaScript.h"

/// The client of ILuaScript, the service "LuaScript.LuaScript"; see cServiceClient.h for how its members
/// call.
class cLuaScript : public ILuaScript
{
    Q_OBJECT

public:
    cLuaScript();

    void showEditor(bool visible, const QString& profileID) override;
    bool run(const QString& profileID, const QString& script) override;
    void stop() override;
};
