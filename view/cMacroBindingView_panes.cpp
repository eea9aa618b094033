#include "cMacroBindingView.h"

#include "ViewConstants.h"

#include <cAnimatedPixmapWidget.h>
#include <cClickableLabel.h>
#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cPanel.h>
#include <cScalablePixmap.h>
#include <cScaledFont.h>
#include <cSearchBox.h>
#include <FixedIds.h>
#include <PluginContext.h>
#include <SceneConstants.h>

#include <QBrush>
#include <QEasingCurve>
#include <QFrame>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QPen>
#include <QPixmap>
#include <QPropertyAnimation>
#include <QTimer>
#include <QVariant>

using namespace ViewConstants;

namespace {

/// Lets the target of an animation come in from `outside`, or leave to there.
void run(QPropertyAnimation& animation, bool enters, const QVariant& outside, const QVariant& resting)
{
    // One that is under way would not begin anew.
    animation.stop();
    animation.setEasingCurve(enters ? QEasingCurve::OutCubic : QEasingCurve::InCubic);
    animation.setStartValue(enters ? outside : resting);
    animation.setEndValue(enters ? resting : outside);
    animation.targetObject()->setProperty(animation.propertyName(), enters ? outside : resting);
    animation.start();
}

void ensurePane(QPointer<cPanel>& panel, const QSize& size, QGraphicsScene& scene)
{
    if (panel)
        return;
    panel = new cPanel(size);
    panel->setZValue(PaneZ);
    scene.addItem(panel);
}

void ensureAnimation(
    QPointer<QPropertyAnimation>& animation, QObject* target, const char* property, QObject* owner)
{
    // A scene that went took its panes along, and an animation without its pane moves no other one.
    if (animation && !animation->targetObject())
        delete animation;
    if (animation || !target)
        return;
    animation = new QPropertyAnimation(target, property, owner);
    animation->setDuration(PaneAnimationTime);
}

} // namespace

void cMacroBindingView::onFade(qreal)
{ }

void cMacroBindingView::ensurePanesAndMask()
{
    if (m_mainWindowClosing)
        return;
    if (m_canvas && m_canvas->scene()) {
        QGraphicsScene& scene = *m_canvas->scene();
        if (!m_maskItem && rootItem())
            createMask(scene);
        ensurePane(m_commandPanel, CommandPaneSize, scene);
        ensurePane(m_profilePanel, ProfilePaneSize, scene);
    }
    ensureAnimation(m_maskAnimation, m_maskItem, "scale", this);
    ensureAnimation(m_commandPaneAnimation, m_commandPanel, "pos", this);
    ensureAnimation(m_profilePaneAnimation, m_profilePanel, "pos", this);
}

void cMacroBindingView::createMask(QGraphicsScene& scene)
{
    const QRectF canvas = rootItem()->rect();
    m_maskItem = new cScalablePixmap(QPixmap(MaskPicture));
    scene.addItem(m_maskItem);
    m_maskItem->setPos(0, 0);
    m_maskItem->setTransformOriginPoint(canvas.width() / 2, canvas.height() / 2);
    m_maskItem->setZValue(MaskZ);
}

void cMacroBindingView::onPaneAndMaskEnterAnimation()
{
    ensurePanesAndMask();
    movePanesAndMask(PaneMovement::Enter);
}

void cMacroBindingView::onPaneAndMaskExitAnimation()
{
    // A view that goes makes no panes only to slide them out.
    if (!m_leaving)
        ensurePanesAndMask();
    movePanesAndMask(PaneMovement::Exit);
    QTimer::singleShot(PaneAnimationTime, this, SLOT(onPaneAndMaskAnimationExitFinished()));
}

void cMacroBindingView::movePanesAndMask(PaneMovement movement)
{
    const bool enters = movement == PaneMovement::Enter;
    if (m_maskAnimation && m_maskItem)
        run(*m_maskAnimation, enters, MaskSwollen, MaskAtRest);
    // Outside, each pane with its frame ends exactly at an edge of the scene.
    if (m_commandPaneAnimation && m_commandPanel) {
        const int left = int(-m_commandPanel->boundingRect().width());
        run(*m_commandPaneAnimation, enters, QPoint(left, CommandPanePos.y()), CommandPanePos);
    }
    if (m_profilePaneAnimation && m_profilePanel) {
        const int top = int(-m_profilePanel->boundingRect().height());
        run(*m_profilePaneAnimation, enters, QPoint(ProfilePanePos.x(), top), ProfilePanePos);
    }
}

void cMacroBindingView::onPaneAndMaskAnimationExitFinished()
{
    removePanesAndMask();
}

void cMacroBindingView::onMainWindowClosing()
{
    removePanesAndMask();
    m_mainWindowClosing = true;
}

void cMacroBindingView::removePanesAndMask()
{
    delete m_commandPanel;
    // Takes the profile bar along.
    delete m_profilePanel;
    delete m_maskItem;
    delete m_commandPaneAnimation;
    delete m_profilePaneAnimation;
    delete m_maskAnimation;
}

// The panes' contents.

void cMacroBindingView::createCommandFrame()
{
    m_commandFrame = new QFrame(m_canvas);
    m_commandFrame->setFrameStyle(0);
    m_commandFrame->setFixedSize(CommandFrameSize);
    m_commandFrame->move(CommandPanePos);
    m_commandFrame->setAutoFillBackground(true);

    auto* const title = new QLabel(tr("Commands"), m_commandFrame);
    title->move(PanelTitlePos);
    title->setProperty("uiType", QStringLiteral("PanelTitle"));
}

void cMacroBindingView::createSyncButton()
{
    const QPixmap strip(pluginResource("Resources/images/sync_button_animation.png"));
    m_syncButton = new cAnimatedPixmapWidget(strip, SyncButtonFrameWidth, m_commandFrame);
    m_syncButton->setToolTip(QObject::tr("Synchronize the profile to your device"));
    m_syncButton->setHoverPixmap(QPixmap(pluginResource("Resources/images/sync_button_hover.png")));
    m_syncButton->setUseHoverPixmap(true);
    m_syncButton->move(SyncButtonPos);
    connect(m_syncButton, SIGNAL(clicked()), this, SLOT(onForceProfilesToGoSync()));
    connect(m_syncButton, SIGNAL(enter()), this, SLOT(onStopMkeyPulsate()));
    connect(m_syncButton, SIGNAL(leave()), this, SLOT(onStartMkeyPulsate()));
    setSyncButtonEnabled(false);
    m_syncButton->hide();
}

void cMacroBindingView::createNewCommandButton()
{
    auto* const button =
        new cClickableLabel(QPixmap(pluginResource("Resources/images/icon_new_normal.png")), m_commandFrame);
    button->setHoverPixmap(QPixmap(pluginResource("Resources/images/icon_new_hover.png")));
    button->setPressedPixmap(QPixmap(pluginResource("Resources/images/icon_new_pressed.png")));
    button->setToolTip(tr("Create new command"));
    button->move(NewCommandButtonPos);
    connect(button, SIGNAL(hoverIn()), this, SLOT(onStopMkeyPulsate()));
    connect(button, SIGNAL(hoverOut()), this, SLOT(onStartMkeyPulsate()));
    connect(button, SIGNAL(clicked()), this, SLOT(newCommand()));
}

void cMacroBindingView::createMacroList()
{
    auto* const searchBox = new cSearchBox(SearchBoxSize.width(), SearchBoxSize.height(), m_commandFrame);
    searchBox->move(SearchBoxPos);

    m_macroList = new cMacroList(m_commandFrame);
    m_macroList->move(MacroListPos);
    // Queued, because the list's own slot is still on the stack when the editor opens; queues know types by
    // name.
    qRegisterMetaType<cJsonValue>();
    connect(m_macroList, SIGNAL(editMacro(cJsonValue)), this, SLOT(loadMacroEditor(cJsonValue)),
        Qt::QueuedConnection);
    connect(m_macroList, SIGNAL(hoverIn()), this, SLOT(onStopMkeyPulsate()));
    connect(m_macroList, SIGNAL(hoverOut()), this, SLOT(onStartMkeyPulsate()));
    connect(m_macroList, SIGNAL(MacroSelected(cJsonValue)), this, SLOT(highlightAssignment(cJsonValue)));
    connect(m_macroList, SIGNAL(MacroUnSelected(cJsonValue)), this, SLOT(unHighlightAssignment(cJsonValue)));
    connect(m_macroList, SIGNAL(populating()), this, SLOT(onPopulatingMacros()));
    connect(m_macroList, SIGNAL(populated()), this, SLOT(onPopulatedMacros()));

    // The user walks the list while the text cursor stays in the search box.
    searchBox->setForwarding(m_macroList,
        {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter});
    connect(searchBox, SIGNAL(textEdited(QString)), m_macroList, SLOT(onSearch(QString)));
}

void cMacroBindingView::createHintText()
{
    m_hintText = new cGraphicsText;
    m_hintText->setFont(cScaledFont(SceneConstants::TextFamily, HintTextDesignSize, QFont::Bold));
    QPen pen;
    pen.setBrush(QBrush(Qt::lightGray, Qt::SolidPattern));
    m_hintText->setPen(pen);
    m_hintText->setFlags(Qt::TextSingleLine);
    m_hintText->setText(m_deviceCategory == DeviceIds::MouseCategory
            ? QObject::tr("Drag commands onto buttons or profile icons")
            : tr("Drag commands onto G-keys or profile icons"));
    m_hintText->setPos(HintTextPos);
    if (m_canvas->scene())
        m_canvas->scene()->addItem(m_hintText);
}
