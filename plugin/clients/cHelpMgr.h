#pragma once

#include "IHelpMgr.h"

/// The client of IHelpMgr, the service "Help.HelpMgr"; see cServiceClient.h for how its members call.
class cHelpMgr : public IHelpMgr
{
    Q_OBJECT

public:
    cHelpMgr();

    bool registerHelp(const QString& helpID, const QString& helpUrl, const QString& helpFilePath) override;
    bool unRegisterHelp(const QString& helpFilePath) override;
    void LaunchHelpByViewID(const QString& helpID) override;
    void LaunchHelp(const QString& section, const QString& topic) override;
    void unloadHelp() override;
};
