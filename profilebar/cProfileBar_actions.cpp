// The bar's menus and what stands in them.
#include "cProfileBar.h"

#include "cProfileList.h"
#include "ProfileBarConstants.h"

#include <cGraphicsButton.h>
#include <cJsonValue.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <cSettings.h>
#include <EditProfileDialog.h>
#include <MainWindowMenu.h>
#include <PlainText.h>
#include <ScanForGamesDialog.h>
#include <SettingsKeys.h>

#include <QAction>
#include <QActionGroup>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>
#include <QStandardPaths>

using namespace ProfileBarConstants;

namespace {

QString desktopFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

QString folderOf(const QString& path)
{
    return QFileInfo(path).absolutePath();
}

} // namespace

void cProfileBar::newProfile()
{
    EditProfileDialog dialog(cMainUI().window());
    dialog.setProfile(cJsonValue(), false);
    dialog.exec();
}

void cProfileBar::scanForGames()
{
    ScanForGamesDialog dialog(cMainUI().window());
    dialog.exec();
}

void cProfileBar::onNewMenuClicked(const QPoint& point)
{
    QWidget* const window = MainWindowMenu::window();
    if (!window)
        return;
    auto* const menu = new QMenu(window);
    menu->addAction(tr("Create New Profile..."), this, SLOT(newProfile()));
    menu->addAction(tr("Scan For New Games"), this, SLOT(scanForGames()));
    QMenu* const copies = menu->addMenu(tr("Copy Existing Profile"));
    auto* const group = new QActionGroup(copies);
    for (int row = 0; m_list && row < m_list->count(); ++row) {
        QAction* const copy =
            copies->addAction(PlainText::menuText(m_list->profileName(row), copies->font()));
        copy->setData(m_list->profileId(row));
        group->addAction(copy);
    }
    connect(group, SIGNAL(triggered(QAction*)), SLOT(onCopyProfileClicked(QAction*)));
    MainWindowMenu::run(menu, this, MainWindowMenu::globalPosOf(*window, scene(), point));
}

void cProfileBar::onCopyProfileClicked(QAction* profileAction)
{
    cProfileMgr().copyProfile(profileAction->data().toString());
}

void cProfileBar::onSaveMenuClicked()
{
    QWidget* const window = MainWindowMenu::window();
    if (!window)
        return;
    auto* const menu = new QMenu(window);
    menu->addAction(tr("Import..."), this, SLOT(onMenuImportProfile()));
    menu->addAction(tr("Export..."), this, SLOT(onMenuExportProfile()));
    const QPointF corner = m_importButton->mapToScene(ImportMenuPos);
    MainWindowMenu::run(menu, this, MainWindowMenu::globalPosOf(*window, scene(), corner.toPoint()));
}

void cProfileBar::onMenuImportProfile()
{
    const QStringList filters {tr("Game Profiles (*.lgp *.xml)"), tr("All Files (*)")};
    const QString folder = cSettings().getPropertyString(SettingsKeys::LastImportDir, desktopFolder());
    const QString path = QFileDialog::getOpenFileName(
        nullptr, tr("Import Profile"), folder, filters.join(QLatin1String(";;")));
    if (path.isEmpty())
        return;
    cProfileMgr().importProfile(path);
    cSettings().setPropertyString(SettingsKeys::LastImportDir, folderOf(path));
}

void cProfileBar::onMenuExportProfile()
{
    const QStringList filters {tr("Game Profiles (*.xml)"), tr("All Files (*)")};
    // A bar that goes while a file is chosen has said which profile is meant.
    const QPointer<cProfileBar> self(this);
    const QString lastProfileID = m_currentProfileId;
    const QString path = QFileDialog::getSaveFileName(
        nullptr, tr("Export Profile"), exportFolder(), filters.join(QLatin1String(";;")));
    if (path.isEmpty())
        return;
    cProfileMgr().exportProfile(self ? m_currentProfileId : lastProfileID, path);
    cSettings().setPropertyString(SettingsKeys::LastExportDir, folderOf(path));
}

QString cProfileBar::exportFolder() const
{
    cSettings settings;
    QString folder = settings.getPropertyString(SettingsKeys::LastExportDir, desktopFolder());
    if (folder.isEmpty())
        folder = desktopFolder();
    if (QFileInfo(folder).isDir())
        return folder;
    settings.setPropertyString(SettingsKeys::LastExportDir, QString());
    return desktopFolder();
}

void cProfileBar::onPrintClicked()
{
    Q_EMIT printProfile(m_currentProfileId);
}

void cProfileBar::onSilentSaveClicked()
{
    cProfileMgr().saveAllProfiles();
}

void cProfileBar::onMenuSortProfileAscending()
{
    sortProfiles(Qt::AscendingOrder);
}

void cProfileBar::onMenuSortProfileDescending()
{
    sortProfiles(Qt::DescendingOrder);
}

void cProfileBar::sortProfiles(Qt::SortOrder order)
{
    if (!m_list)
        return;
    m_list->sortItems(order);
    m_list->update();
}

void cProfileBar::onMacrosDropped(const QStringList& macroIDs, const QString& profileID)
{
    if (profileID != m_currentProfileId)
        cProfileMgr().copyMacros(m_currentProfileId, profileID, macroIDs);
}
