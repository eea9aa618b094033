#include "cGraphicsButtonList.h"

#include "cGraphicsButton.h"
#include "SceneConstants.h"

#include <PluginContext.h>

#include <QDebug>
#include <QPainter>

using namespace SceneConstants;

cGraphicsButtonList::cGraphicsButtonList(int orientation, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_orientation(orientation)
{ }

cGraphicsButtonList::~cGraphicsButtonList()
{
    // Buttons that were given another parent in the meantime go too.
    for (const QPointer<cGraphicsButton>& button : qAsConst(m_buttons))
        delete button;
}

void cGraphicsButtonList::updateLayout()
{
    QRectF bounds;
    const cGraphicsButton* previous = nullptr;
    for (cGraphicsButton* button : qAsConst(m_buttons)) {
        if (!button || !button->isVisible())
            continue;
        QSizeF gap(0, 0);
        if (!previous) {
            button->setPos(0, 0);
        } else if (m_orientation == Qt::Vertical) {
            button->setPos(0, m_spacing + previous->y() + previous->boundingRect().height());
            gap.setHeight(m_spacing);
        } else {
            button->setPos(m_spacing + previous->x() + previous->boundingRect().width(), 0);
            gap.setWidth(m_spacing);
        }
        bounds |= QRectF(button->pos(), button->boundingRect().size() + gap);
        previous = button;
    }
    prepareGeometryChange();
    m_bounds = bounds;
}

QRectF cGraphicsButtonList::boundingRect() const
{
    return m_bounds;
}

void cGraphicsButtonList::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_fillBackground)
        painter->fillRect(m_bounds, QBrush(m_backgroundColor, Qt::SolidPattern));
    const cGraphicsButton* first = itemAt(0);
    if (!m_showEdge || !first)
        return;
    for (const qreal x : {-ListEdgeWidth, m_bounds.width()}) {
        const QRectF edge(x, first->y(), ListEdgeWidth, m_bounds.height());
        painter->drawPixmap(edge, m_edgePixmap, m_edgePixmap.rect());
    }
}

bool cGraphicsButtonList::addItem(cGraphicsButton* button, const QString& text, const cJsonValue& data)
{
    if (!button) {
        qCritical() << "cGraphicsButtonList::addItem()"
                    << "Invalid parameter";
        return false;
    }
    button->setParentItem(this);
    button->setUserData(data);
    updateLayout();
    button->setUserText(text);
    m_buttons.append(button);
    connect(button, SIGNAL(clicked(cGraphicsButton*)), this, SLOT(onClicked(cGraphicsButton*)));
    updateLayout();
    return true;
}

bool cGraphicsButtonList::removeAt(int index)
{
    if (index < 0 || index >= m_buttons.size())
        return false;
    delete m_buttons.takeAt(index);
    updateLayout();
    return true;
}

bool cGraphicsButtonList::removeItem(const QString& text)
{
    int index = -1;
    return findItem(text, &index) && removeAt(index);
}

void cGraphicsButtonList::clear()
{
    while (!m_buttons.isEmpty())
        delete m_buttons.takeLast();
    updateLayout();
}

cGraphicsButton* cGraphicsButtonList::findItem(const QString& text, int* index) const
{
    for (int i = 0; i < m_buttons.size(); ++i) {
        cGraphicsButton* button = m_buttons.at(i);
        if (!button || button->userText() != text)
            continue;
        if (index)
            *index = i;
        return button;
    }
    return nullptr;
}

cGraphicsButton* cGraphicsButtonList::itemAt(int index) const
{
    return m_buttons.value(index);
}

cJsonValue cGraphicsButtonList::dataOf(const QString& text) const
{
    const cGraphicsButton* button = findItem(text);
    return button ? button->userData() : cJsonValue();
}

cJsonValue cGraphicsButtonList::dataAt(int index) const
{
    const cGraphicsButton* button = itemAt(index);
    return button ? button->userData() : cJsonValue();
}

void cGraphicsButtonList::setItemsVisible(bool visible, cGraphicsButton* other)
{
    for (cGraphicsButton* button : qAsConst(m_buttons)) {
        if (button)
            button->setVisible(visible);
    }
    if (other)
        other->setVisible(!visible);
    updateLayout();
}

void cGraphicsButtonList::setBackground(const QColor& color)
{
    m_backgroundColor = color;
    m_fillBackground = true;
    update();
}

void cGraphicsButtonList::setEdge(bool show, bool fill)
{
    m_showEdge = show;
    if (show)
        m_edgePixmap = QPixmap(pluginResource("Resources/images/edge_devicepanel.png"));
    m_fillBackground = fill;
    update();
}

void cGraphicsButtonList::setSpacing(int spacing)
{
    m_spacing = spacing;
    updateLayout();
}

void cGraphicsButtonList::onClicked(cGraphicsButton* pButton)
{
    // Receivers may change the list or delete it.
    const QPointer<cGraphicsButtonList> self(this);
    for (int i = 0; self && i < m_buttons.size(); ++i) {
        if (pButton && m_buttons.at(i) == pButton)
            Q_EMIT itemClicked(i, pButton);
    }
}
