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
    m_bar->profileList()->addProfileRecord(profile);
    return true;
}

bool cProfileBarImpl::setDeviceFilter(const QString& deviceId)
{
    m_bar->profileList()->setDeviceFilter(deviceId);
    return true;
}

void cProfileBarImpl::setTileDragEnabled(bool enabled)
{
    m_bar->profileList()->setTileDragEnabled(enabled);
}

void cProfileBarImpl::setDropsEnabled(bool enabled)
{
    cProfileList* const list = m_bar->profileList();
    list->setAcceptDrops(enabled);
    list->setDragDropMode(QAbstractItemView::InternalMove);
}

QStringList cProfileBarImpl::selectedProfileIds()
{
    return m_bar->profileList()->selectedProfileIds();
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
