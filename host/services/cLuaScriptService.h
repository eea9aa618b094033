#pragma once

#include <ILuaScript.h>

class IMainUI;

/// The service "LuaScript.LuaScript". This version keeps the scripts of profiles but neither edits nor runs
/// them, and says so to a user who asks for the editor.
class cLuaScriptService : public ILuaScript
{
    Q_OBJECT
    Q_CLASSINFO("service", "LuaScript.LuaScript")

public:
    /// `mainUI` outlives the service.
    explicit cLuaScriptService(IMainUI& mainUI, QObject* parent = nullptr);

    void showEditor(bool visible, const QString& profileID) override;
    /// False: nothing runs.
    bool run(const QString& profileID, const QString& script) override;
    void stop() override;

private:
    IMainUI& m_mainUI;
};
