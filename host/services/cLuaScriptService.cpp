#include "cLuaScriptService.h"

#include <IMainUI.h>

cLuaScriptService::cLuaScriptService(IMainUI& mainUI, QObject* parent)
    : ILuaScript(parent)
    , m_mainUI(mainUI)
{ }

void cLuaScriptService::showEditor(bool visible, const QString&)
{
    if (visible)
        m_mainUI.info(tr("Scripting"), tr("There is no script editor in this version."));
}

bool cLuaScriptService::run(const QString&, const QString&)
{
    return false;
}

void cLuaScriptService::stop()
{ }
