#include "cProfileBar.h"

#include "cProfileList.h"
#include "ProfileBarConstants.h"

#include <cEventHelpers.h>
#include <cGraphicsButton.h>
#include <cGraphicsRibbonButton.h>
#include <cGraphicsText.h>
#include <cGraphicsTextButton.h>
#include <cJsonValue.h>
#include <cScaledFont.h>
#include <cSearchBox.h>
#include <EventNames.h>
#include <PluginContext.h>
#include <SceneConstants.h>

#include <QBrush>
#include <QEasingCurve>
#include <QFrame>
#include <QPen>
#include <QPixmap>
#include <QPropertyAnimation>
#include <QScrollBar>

using namespace ProfileBarConstants;

namespace {

cJsonValue pointRecord(const QPoint& point)
{
    cJsonValue record;
    record["x"] = point.x();
    record["y"] = point.y();
    return record;
}

cJsonValue sizeRecord(int width, int height)
{
    cJsonValue record;
    record["width"] = width;
    record["height"] = height;
    return record;
}

/// What a button of the bar is made from, see cGraphicsButton.
cJsonValue buttonRecord(
    const char* normal, const char* hover, int height, const QPoint& pos, const QString& tooltip)
{
    cJsonValue record;
    record["normal"] = pluginResource(normal);
    record["hover"] = pluginResource(hover);
    record["boundary"] = sizeRecord(ButtonWidth, height);
    record["pos"] = pointRecord(pos);
    record["alignment"] = int(PictureAlignment::TopCenter);
    record["offset"] = pointRecord(ButtonOffset);
    record["tooltip"] = tooltip;
    return record;
}

cJsonValue menuStripRecord()
{
    cJsonValue record;
    record["boundary"] = sizeRecord(ButtonWidth, MenuStripHeight);
    record["arrow"]["normal"] = pluginResource("Resources/images/pointer_down_up.png");
    record["arrow"]["hover"] = pluginResource("Resources/images/pointer_down_hover.png");
    return record;
}

} // namespace

cProfileBar::cProfileBar(const QRectF& rect, const QString& profileId, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_currentProfileId(profileId)
    , m_rect(rect)
{
    setAcceptHoverEvents(true);
    createTitle();
    createButtons();
    createArrows();
    createList();
    // Last, so that the bar hears nothing of the host before it is whole.
    EventHelpers::subscribe(EventSources::ProfileMgr, this);
}

cProfileBar::~cProfileBar()
{
    delete m_scrollAnimation;
    delete m_leftFade;
    delete m_rightFade;
    EventHelpers::unsubscribe(EventSources::ProfileMgr, this);
}

void cProfileBar::createTitle()
{
    auto* const title = new cGraphicsText(this);
    title->setFont(cScaledFont(SceneConstants::TextFamily, TitleFontSize, QFont::Normal));
    QPen pen;
    pen.setBrush(QBrush(Qt::white, Qt::SolidPattern));
    title->setPen(pen);
    title->setFlags(Qt::TextSingleLine);
    title->setText(tr("Profiles"));
    title->setPos(TitlePos);
}

void cProfileBar::createButtons()
{
    cJsonValue record =
        buttonRecord("Resources/images/icon_new_normal.png", "Resources/images/icon_new_hover.png",
            ButtonHeight + MenuStripHeight, NewButtonPos, tr("Create new profile"));
    record["menubutton"] = menuStripRecord();
    record["menudir"] = QStringLiteral("bottom");
    m_newButton = new cGraphicsRibbonButton(record, this);
    connect(m_newButton, SIGNAL(clicked()), SLOT(newProfile()));
    connect(m_newButton, SIGNAL(menu(const QPoint&)), SLOT(onNewMenuClicked(const QPoint&)));

    QPoint place = NewButtonPos;
    place.rx() += ImportButtonStep;
    m_buttonPlaces[ImportButton] = place.x();
    m_importButton = new cGraphicsTextButton(
        buttonRecord("Resources/images/folder_normal.png", "Resources/images/folder_hover.png", ButtonHeight,
            place, tr("Import/Export")),
        this);
    connect(m_importButton, SIGNAL(clicked()), SLOT(onSaveMenuClicked()));

    place.rx() += PrintButtonStep;
    m_buttonPlaces[PrintButton] = place.x();
    m_printButton = new cGraphicsTextButton(
        buttonRecord("Resources/images/print_profile.png", "Resources/images/print_profile_hover.png",
            ButtonHeight, place, tr("Print")),
        this);
    connect(m_printButton, SIGNAL(clicked()), SLOT(onPrintClicked()));
}

void cProfileBar::createArrows()
{
    m_leftArrow =
        createArrow("Resources/images/pointer_left_large.png", LeftArrowPos, SLOT(onScrollLeftClicked()));
    m_rightArrow =
        createArrow("Resources/images/pointer_right_large.png", RightArrowPos, SLOT(onScrollRightClicked()));
    const auto createFade = [this](cGraphicsButton* arrow) {
        auto* const fade = new QPropertyAnimation(arrow, "opacity", this);
        fade->setDuration(ArrowFadeTime);
        fade->setEasingCurve(QEasingCurve::OutCubic);
        return fade;
    };
    m_leftFade = createFade(m_leftArrow);
    m_rightFade = createFade(m_rightArrow);
}

cGraphicsButton* cProfileBar::createArrow(const char* picture, const QPoint& pos, const char* slot)
{
    auto* const arrow = new cGraphicsButton(QPixmap(pluginResource(picture)), this);
    arrow->setOpacity(0);
    arrow->setPos(pos);
    connect(arrow, SIGNAL(clicked()), slot);
    return arrow;
}

void cProfileBar::createList()
{
    m_list = new cProfileList;
    connectList();
    createScrollAnimation();
    m_list->populate();
}

void cProfileBar::connectList()
{
    connect(m_list, SIGNAL(selectedProfile(const QString&)), SLOT(onCurrentProfileSwitched(const QString&)));
    connect(
        m_list, SIGNAL(useDefaultForAllGkeys(const QString&)), SIGNAL(useDefaultForAllGkeys(const QString&)));
    connect(
        m_list, SIGNAL(useGenericForAllGkeys(const QString&)), SIGNAL(useGenericForAllGkeys(const QString&)));
    connect(m_list, SIGNAL(unassignAllGkeys(const QString&)), SIGNAL(unassignAllGkeys(const QString&)));
    connect(m_list, SIGNAL(printProfile(const QString&)), SIGNAL(printProfile(const QString&)));
    connect(m_list, SIGNAL(macrosDropped(const QStringList&, const QString&)),
        SLOT(onMacrosDropped(const QStringList&, const QString&)));
    connect(m_list, SIGNAL(newProfile()), SLOT(newProfile()));
    connect(m_list, SIGNAL(exportProfile()), SLOT(onMenuExportProfile()));
    connect(m_list, SIGNAL(hoverIn()), SIGNAL(hoverIn()));
    const QScrollBar* scrollBar = m_list->horizontalScrollBar();
    connect(scrollBar, SIGNAL(rangeChanged(int, int)), SLOT(onProfilesScrollRangeChanged(int, int)));
    connect(scrollBar, SIGNAL(valueChanged(int)), SLOT(onProfilesScrollChanged(int)));
}

void cProfileBar::createScrollAnimation()
{
    m_scrollAnimation = new QPropertyAnimation(m_list->horizontalScrollBar(), "value", this);
    m_scrollAnimation->setDuration(ScrollTime);
    m_scrollAnimation->setEasingCurve(QEasingCurve::OutQuad);
}

cProfileList* cProfileBar::profileList() const
{
    return m_list;
}

QFrame* cProfileBar::searchFrame()
{
    if (!m_searchFrame) {
        m_searchFrame = new QFrame;
        m_searchFrame->setFrameStyle(0);
        m_searchFrame->setAutoFillBackground(true);
        m_searchFrame->setFixedSize(SearchBoxSize);
        const auto* box = new cSearchBox(SearchBoxSize.width(), SearchBoxSize.height(), m_searchFrame);
        if (m_list)
            connect(box, SIGNAL(textEdited(const QString&)), m_list, SLOT(onSearch(const QString&)));
    }
    return m_searchFrame;
}

bool cProfileBar::setButtons(const QSet<int>& buttons)
{
    int shift = 0;
    if (!buttons.contains(NewButton)) {
        m_newButton->hide();
        shift = m_buttonPlaces[ImportButton] - m_buttonPlaces[NewButton];
        if (m_list)
            m_list->setWellsClickable(false);
    }
    m_importButton->setX(m_buttonPlaces[ImportButton] - shift);
    if (!buttons.contains(ImportButton)) {
        m_importButton->hide();
        shift += m_buttonPlaces[PrintButton] - m_buttonPlaces[ImportButton];
    }
    m_printButton->setX(m_buttonPlaces[PrintButton] - shift);
    if (!buttons.contains(PrintButton))
        m_printButton->hide();
    return true;
}

bool cProfileBar::setMenuOptions(const QSet<int>& options)
{
    if (!m_list)
        return false;
    m_list->setMenuOptions(options);
    return true;
}

QRectF cProfileBar::boundingRect() const
{
    return m_rect;
}

void cProfileBar::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*)
{ }

void cProfileBar::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    Q_EMIT hoverIn();
}

void cProfileBar::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    Q_EMIT hoverOut();
}

void cProfileBar::onCurrentProfileSwitched(const QString& id)
{
    // Labels change at the first event and lists at the second; only then is the profile the bar's.
    // Who hears of it may take the bar down.
    const QPointer<cProfileBar> self(this);
    const QString profileID = id; // NOLINT(performance-unnecessary-copy-initialization)
    EventHelpers::publishProfileSelectionChanging(profileID);
    EventHelpers::publishProfileSelectionChanged(profileID);
    if (self)
        m_currentProfileId = profileID;
}

// Scrolling

int cProfileBar::value() const
{
    return m_list ? m_list->horizontalScrollBar()->value() : 0;
}

void cProfileBar::setValue(int value)
{
    if (m_list)
        m_list->horizontalScrollBar()->setValue(value);
}

void cProfileBar::onScrollLeftClicked()
{
    if (m_list)
        scrollBy(-m_list->horizontalScrollBar()->singleStep());
}

void cProfileBar::onScrollRightClicked()
{
    if (m_list)
        scrollBy(m_list->horizontalScrollBar()->singleStep());
}

void cProfileBar::scrollBy(int step)
{
    // A running animation would not start again.
    m_scrollAnimation->stop();
    m_scrollAnimation->setStartValue(value());
    m_scrollAnimation->setEndValue(value() + step);
    m_scrollAnimation->start();
}

void cProfileBar::onProfilesScrollChanged(int)
{
    refreshArrows();
}

void cProfileBar::onProfilesScrollRangeChanged(int, int)
{
    refreshArrows();
}

void cProfileBar::refreshArrows()
{
    if (!m_list)
        return;
    const QScrollBar* scrollBar = m_list->horizontalScrollBar();
    const bool showLeft = scrollBar->value() > scrollBar->minimum();
    const bool showRight = scrollBar->value() < scrollBar->maximum();
    if (showLeft != m_leftShown)
        fade(*m_leftFade, showLeft);
    if (showRight != m_rightShown)
        fade(*m_rightFade, showRight);
    m_leftShown = showLeft;
    m_rightShown = showRight;
}

void cProfileBar::fade(QPropertyAnimation& animation, bool show)
{
    animation.stop();
    animation.setStartValue(show ? 0.0 : 1.0);
    animation.setEndValue(show ? 1.0 : 0.0);
    animation.start();
}
