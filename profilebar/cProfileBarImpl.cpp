#include "cProfileBarImpl.h"

#include "cProfileBar.h"
#include "cProfileList.h"
#include "ProfileBarConstants.h"

using namespace ProfileBarConstants;

cProfileBarImpl::cProfileBarImpl()
    : m_bar(
        new cProfileBar(QRectF(0, 0, SharedBarSize.width(), SharedBarSize.height() + SharedBarExtraHeight),
            QString(), nullptr))
{ }

QGraphicsItem* cProfileBarImpl::graphicsItem()
{
    return m_bar;
}

QListWidget* cProfileBarImpl::profileList()
{
    return m_bar->profileList();
}

bool cProfileBarImpl::addProfile(const cJsonValue& profile)
{
    if (cProfileList* const list = m_bar->profileList())
        list->addProfileRecord(profile);
    return true;
}

bool cProfileBarImpl::setDeviceFilter(const QString& deviceId)
{
    if (cProfileList* const list = m_bar->profileList())
        list->setDeviceFilter(deviceId);
    return true;
}

void cProfileBarImpl::setTileDragEnabled(bool enabled)
{
    if (cProfileList* const list = m_bar->profileList())
        list->setTileDragEnabled(enabled);
}

void cProfileBarImpl::setDropsEnabled(bool enabled)
{
    cProfileList* const list = m_bar->profileList();
    if (!list)
        return;
    list->setAcceptDrops(enabled);
    list->setDragDropMode(QAbstractItemView::InternalMove);
}

QStringList cProfileBarImpl::selectedProfileIds()
{
    const cProfileList* list = m_bar->profileList();
    return list ? list->selectedProfileIds() : QStringList();
}

QString cProfileBarImpl::currentProfileId()
{
    return m_bar->currentProfileId();
}

bool cProfileBarImpl::setButtons(const QSet<int>& buttons)
{
    return m_bar->setButtons(buttons);
}

bool cProfileBarImpl::setMenuOptions(const QSet<int>& options)
{
    return m_bar->setMenuOptions(options);
}

QFrame* cProfileBarImpl::searchFrame()
{
    return m_bar->searchFrame();
}
