#include "cHelpMgr.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cHelpMgr::cHelpMgr()
{
    requireService(ServiceNames::HelpMgr);
}

bool cHelpMgr::registerHelp(const QString& helpID, const QString& helpUrl, const QString& helpFilePath)
{
    return askService<bool>(ServiceNames::HelpMgr, "registerHelp", "bool", tagged("QString", helpID),
        tagged("QString", helpUrl), tagged("QString", helpFilePath));
}

bool cHelpMgr::unRegisterHelp(const QString& helpFilePath)
{
    return askService<bool>(ServiceNames::HelpMgr, "unRegisterHelp", "bool", tagged("QString", helpFilePath));
}

void cHelpMgr::LaunchHelpByViewID(const QString& helpID)
{
    callService(ServiceNames::HelpMgr, "LaunchHelpByViewID", tagged("QString", helpID));
}

void cHelpMgr::LaunchHelp(const QString& section, const QString& topic)
{
    callService(ServiceNames::HelpMgr, "LaunchHelp", tagged("QString", section), tagged("QString", topic));
}

void cHelpMgr::unloadHelp()
{
    callService(ServiceNames::HelpMgr, "unloadHelp");
}
