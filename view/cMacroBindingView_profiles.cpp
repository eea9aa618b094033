// The steps of the scene that make the profile pane.
#include "cMacroBindingView.h"

#include "ViewConstants.h"

#include <cPanel.h>
#include <cProfileBar.h>
#include <cProfileList.h>

#include <QFrame>
#include <QGraphicsView>
#include <QHBoxLayout>

using namespace ViewConstants;

namespace {

const char* const FirstFrameSheet = "QFrame { background: yellow; }";

/// The thin scroll bar under the tiles.
const char* const ProfileBarScrollSheet =
    "    QScrollBar:horizontal {        height: 9px;    }"
    "    QScrollBar::handle:horizontal {"
    "        border-image: url(MainApp:/Resources/images/slider_thumb_H_small.png);"
    "        border-left: 7px transparent;        border-right: 7px transparent;    }"
    "    QScrollBar::add-line:horizontal, QScrollBar::sub-line:horizontal {    height: 0px;    }"
    "    QScrollBar::sub-page:horizontal, QScrollBar::add-page:horizontal {"
    "    background: transparent;    height: 1px;"
    "        border-image: url(MainApp:/Resources/images/horizontal_line.png);"
    "        border-left: 1px transparent;        border-right: 1px transparent;    }";

} // namespace

void cMacroBindingView::createProfileBar()
{
    // The bar selects the profile of the last run, which comes back to this view as an event.
    m_profileBar = new cProfileBar(QRectF(QPointF(0, 0), ProfileBarSize), m_profileId, nullptr);
    m_profileBar->profileList()->setFixedHeight(ProfileFrameSize.height());
    m_profileBar->profileList()->setTileDragEnabled(true);
    connect(m_profileBar, SIGNAL(useDefaultForAllGkeys(const QString&)), this,
        SLOT(onUseDefaultForAllGkeys(const QString&)));
    connect(m_profileBar, SIGNAL(useGenericForAllGkeys(const QString&)), this,
        SLOT(onUseGenericForAllGkeys(const QString&)));
    connect(m_profileBar, SIGNAL(unassignAllGkeys(const QString&)), this,
        SLOT(onUnassignAllGkeys(const QString&)));
    connect(m_profileBar, SIGNAL(printProfile(const QString&)), this, SLOT(onPrintProfile(const QString&)));
    connect(m_profileBar, SIGNAL(hoverOut()), this, SLOT(onStartMkeyPulsate()));
    connect(m_profileBar, SIGNAL(hoverIn()), this, SLOT(onStopMkeyPulsate()));
}

void cMacroBindingView::createProfileFrames()
{
    m_profileFrame = new QFrame(m_canvas);
    m_profileFrame->setFrameStyle(0);
    m_profileFrame->setFixedSize(ProfileFrameSize);
    m_profileFrame->move(ProfileFramePos);
    // Replaced before anybody sees it.
    m_profileFrame->setStyleSheet(QLatin1String(FirstFrameSheet));
    auto* const row = new QHBoxLayout(m_profileFrame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_profileFrame->setStyleSheet(QLatin1String(ProfileBarScrollSheet));
    row->addWidget(m_profileBar->profileList());

    m_profileSearchFrame = m_profileBar->searchFrame();
    m_profileSearchFrame->setParent(m_canvas);
    m_profileSearchFrame->move(ProfileSearchFramePos);
}

void cMacroBindingView::placeProfileBar()
{
    // The pane comes a moment after init(). A bar that was made before it belongs to nobody.
    if (!m_profilePanel)
        return;
    m_profileBar->setParentItem(m_profilePanel);
    m_profileBar->setPos(0, 0);
}
