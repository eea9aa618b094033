#include "cProfileItem.h"

#include "ProfileBarConstants.h"

#include <cJsonValue.h>
#include <cLuaScript.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <EditProfileDialog.h>
#include <FixedIds.h>
#include <HVS.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPainter>
#include <QPointer>
#include <QStandardPaths>

using namespace ProfileBarConstants;

namespace {

/// The centre of the picture as a square, in the size of an icon.
QPixmap cutToIcon(const QPixmap& source)
{
    const QSize size(TileIconSize, TileIconSize);
    if (source.width() == source.height())
        return source.scaled(size, Qt::KeepAspectRatio, Qt::FastTransformation);
    const int side = qMin(source.width(), source.height());
    const QRect square((source.width() - side) / 2, (source.height() - side) / 2, side, side);
    QPixmap icon(size);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.drawPixmap(icon.rect(), source, square);
    return icon;
}

} // namespace

void cProfileItem::contextMenuIconClicked(const QPoint& point)
{
    Q_EMIT profileContextMenuIconClicked(point);
}

void cProfileItem::onProfileLaunch()
{ }

void cProfileItem::onMenuPrintProfile()
{
    Q_EMIT printProfile(m_id);
}

void cProfileItem::onUseDefaultForAll()
{
    Q_EMIT useDefaultForAllGkeys(m_id);
}

void cProfileItem::onUseGenericForAll()
{
    Q_EMIT useGenericForAllGkeys(m_id);
}

void cProfileItem::onUnassignAll()
{
    Q_EMIT unassignAllGkeys(m_id);
}

void cProfileItem::onSaveMenu()
{
    cProfileMgr().saveAllProfiles();
    cMainUI().info(tr("Profile Saved"), tr("Profile saved."));
}

void cProfileItem::onTestProfile()
{
    cProfileMgr().testProfile(m_id);
}

void cProfileItem::onProfileScripting()
{
    cLuaScript().showEditor(true, m_id);
}

void cProfileItem::onPersistentProfile(bool checked)
{
    cProfileMgr().setPersistentProfileByID(checked ? m_id : QString());
}

void cProfileItem::onDefaultProfile(bool checked)
{
    cProfileMgr().setDefaultProfileByID(checked ? m_id : QString(FixedIds::DefaultProfile));
}

void cProfileItem::onResetIcon()
{
    cProfileMgr().setProfileIcon(m_id, QPixmap());
}

void cProfileItem::onPropertiesMenu()
{
    const cJsonValue profile = cProfileMgr().getProfileByID(m_id);
    EditProfileDialog dialog(cMainUI().window());
    dialog.setProfile(profile, false);
    dialog.exec();
}

void cProfileItem::onChooseIcon()
{
    const QStringList filters {tr("Images (*.png *.bmp *.jpg *.jpeg)"), tr("All Files (*)")};
    QString start = m_target;
    QString selectedFilter = filters.last();
    if (m_target.isEmpty() || !QFileInfo(m_target).dir().exists()) {
        start = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
        selectedFilter.clear();
    }
    // The host may end the tile while the file is chosen.
    const QPointer<cProfileItem> self(this);
    const QString path = QFileDialog::getOpenFileName(
        nullptr, tr("Choose Icon..."), start, filters.join(QLatin1String(";;")), &selectedFilter);
    if (path.isEmpty() || !self)
        return;
    const QPixmap picture = loadIcon(path);
    if (!picture.isNull() && self)
        cProfileMgr().setProfileIcon(m_id, cutToIcon(picture));
}

QPixmap cProfileItem::loadIcon(const QString& path) const
{
    QPixmap picture;
    if (!picture.load(path))
        picture = HVS::loadApplicationIcon(path);
    if (picture.isNull()) {
        cMainUI().warning(tr("Choose Icon..."),
            tr("%1\nVeltrano Gaming Software cannot read this file.\nThis is not a valid image file, or its "
               "format is not currently supported.")
                .arg(path));
    }
    return picture;
}
