#include "cMacroBindingView.h"

#include "ViewConstants.h"

#include <cMainUI.h>
#include <cSettings.h>
#include <ScanForGamesDialog.h>
#include <SettingsKeys.h>

#include <QTimer>

void cMacroBindingView::offerGameScan()
{
    if (!cSettings().getPropertyBool(SettingsKeys::AutoScannedForGames, false))
        QTimer::singleShot(ViewConstants::AutoScanDelay, this, SLOT(onAutoScanForGames()));
}

void cMacroBindingView::onAutoScanForGames()
{
    ScanForGamesDialog dialog(cMainUI().window());
    dialog.exec();
    // Also when the user declined: the scan is offered once.
    cSettings().setPropertyBool(SettingsKeys::AutoScannedForGames, true);
}
