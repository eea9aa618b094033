#include "cGraphicsRibbonButton.h"

#include "ButtonDescription.h"
#include "cGraphicsMenuButton.h"
#include "cGraphicsTextButton.h"
#include "SceneConstants.h"

#include <QCursor>
#include <QLinearGradient>

namespace {

QRect extentOf(const cJsonValue& description)
{
    return QRect(QPoint(0, 0), ButtonDescription::size(description["boundary"]));
}

} // namespace

cGraphicsRibbonButton::cGraphicsRibbonButton(const cJsonValue& description, QGraphicsItem* parent)
{
    setParentItem(parent);
    load(description);
    setAcceptHoverEvents(true);
    m_menuButton->hide();
}

cGraphicsRibbonButton::~cGraphicsRibbonButton()
{
    deleteButtons();
}

void cGraphicsRibbonButton::load(const cJsonValue& description)
{
    deleteButtons();
    prepareGeometryChange();
    m_boundary = description.contains("boundary")
        ? extentOf(description)
        : extentOf(description["menu"]) | extentOf(description["button"]);
    if (description["menudir"].toString() == QLatin1String("bottom"))
        m_menuDirection = Qt::AlignBottom;
    createButtons(description);
    layOutButtons();
    connectButtons();
    if (description.contains("pos"))
        setPos(ButtonDescription::point(description["pos"]));
    if (description.contains("buttonpos"))
        m_mainButton->setPos(ButtonDescription::point(description["buttonpos"]));
}

void cGraphicsRibbonButton::createButtons(const cJsonValue& description)
{
    m_menuButton = new cGraphicsMenuButton(description["menubutton"], this);
    m_menuButton->setZValue(SceneConstants::RibbonMenuZ);
    if (description.contains("text"))
        m_mainButton = new cGraphicsTextButton(description, this);
    else
        m_mainButton = new cGraphicsButton(description, this);
}

void cGraphicsRibbonButton::layOutButtons()
{
    const int menuHeight = m_menuButton->boundary().height();
    const int mainHeight = m_boundary.height() - menuHeight;
    m_menuButton->setBoundarySize(m_boundary.width(), menuHeight);
    if (m_menuDirection == Qt::AlignTop) {
        m_menuButton->setPos(0, 0);
        m_mainButton->setPos(0, menuHeight);
    } else {
        m_menuButton->setPos(0, mainHeight);
        m_mainButton->setPos(0, 0);
    }
    m_mainButton->setBoundarySize(m_boundary.width(), mainHeight);
}

void cGraphicsRibbonButton::connectButtons()
{
    connect(m_mainButton, SIGNAL(clicked()), this, SLOT(onMainButtonClicked()));
    connect(m_menuButton, SIGNAL(menu(const QPoint&)), this, SLOT(onMenuClicked(const QPoint&)));
}

void cGraphicsRibbonButton::deleteButtons()
{
    delete m_menuButton;
    m_menuButton = nullptr;
    delete m_mainButton;
    m_mainButton = nullptr;
}

QRectF cGraphicsRibbonButton::boundingRect() const
{
    return m_boundary;
}

void cGraphicsRibbonButton::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*)
{ }

void cGraphicsRibbonButton::setMenuArrowVisible(bool visible)
{
    if (m_menuButton)
        m_menuButton->setArrowVisible(visible);
}

void cGraphicsRibbonButton::setMainGradients(const QLinearGradient& normal, const QLinearGradient& hover)
{
    if (m_mainButton)
        m_mainButton->setGradients(normal, hover);
}

void cGraphicsRibbonButton::setMenuGradients(const QLinearGradient& normal, const QLinearGradient& hover)
{
    if (m_menuButton)
        m_menuButton->setGradients(normal, hover);
}

QString cGraphicsRibbonButton::userText() const
{
    return m_mainButton ? m_mainButton->userText() : QString();
}

void cGraphicsRibbonButton::setUserText(const QString& text)
{
    if (m_mainButton)
        m_mainButton->setUserText(text);
}

void cGraphicsRibbonButton::toggle()
{
    if (m_menuButton)
        m_menuButton->toggle();
}

void cGraphicsRibbonButton::showMenu(bool show)
{
    if (m_menuButton)
        m_menuButton->setVisible(show);
}

void cGraphicsRibbonButton::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    m_mainButton->setCursor(Qt::PointingHandCursor);
    m_menuButton->show();
    update();
}

void cGraphicsRibbonButton::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    m_mainButton->setCursor(Qt::ArrowCursor);
    m_menuButton->hide();
    update();
}

void cGraphicsRibbonButton::onMenuClicked(const QPoint& point)
{
    QPoint place = point;
    if (m_menuDirection == Qt::AlignBottom)
        place.ry() += m_menuButton->boundary().height();
    Q_EMIT menu(place);
}

void cGraphicsRibbonButton::onMainButtonClicked()
{
    Q_EMIT clicked();
}
