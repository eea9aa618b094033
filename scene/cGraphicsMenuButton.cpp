#include "cGraphicsMenuButton.h"

#include <QPointer>

cGraphicsMenuButton::cGraphicsMenuButton(const cJsonValue& description, QGraphicsItem* parent)
    : cGraphicsButton(description, parent)
    , m_arrow(new cGraphicsButton(description["arrow"], this))
{
    m_arrow->setBoundarySize(boundary().size());
    connect(m_arrow, SIGNAL(clicked()), this, SLOT(onMenuClicked()));
}

cGraphicsMenuButton::~cGraphicsMenuButton()
{
    delete m_arrow;
    m_arrow = nullptr;
}

QRectF cGraphicsMenuButton::boundingRect() const
{
    return cGraphicsButton::boundingRect();
}

void cGraphicsMenuButton::setBoundarySize(const QSize& size)
{
    cGraphicsButton::setBoundarySize(size);
    m_arrow->setBoundarySize(size);
}

void cGraphicsMenuButton::setBoundarySize(int width, int height)
{
    setBoundarySize(QSize(width, height));
}

void cGraphicsMenuButton::setArrowVisible(bool visible)
{
    m_arrow->setVisible(visible);
}

void cGraphicsMenuButton::toggle()
{
    m_arrow->toggle();
}

void cGraphicsMenuButton::onMenuClicked()
{
    // The menu runs an event loop, during which the scene may be taken down.
    const QPointer<cGraphicsMenuButton> self(this);
    const QPointF corner = m_arrow->mapToScene(QPointF(0, 0));
    setEnabled(false);
    Q_EMIT menu(corner.toPoint());
    if (!self)
        return;
    setEnabled(true);
    // The pointer may have left while the menu ran, which no event tells.
    if (!isUnderMouse())
        setState(state() & ~StatePicture::UnderPointer);
}
