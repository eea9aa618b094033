#include "Bar.h"

#include <cGraphicsRibbonButton.h>
#include <cGraphicsTextButton.h>

#include <QCoreApplication>

Bar::Bar(const QStringList& names, const QString& last, const QString& pictures)
    : host(names, pictures)
{
    host.settings["profiler/lastProfile"] = ProfileHost::idOf(last);
    bar = new cProfileBar(QRectF(0, 0, 593, 96), "{before}", nullptr);
    scene.addItem(bar);
    list.reset(bar->profileList());
    list->setFixedSize(404, 103);
    list->setFrameShape(QFrame::NoFrame);
    list->show();
    QCoreApplication::processEvents();
    host.clear();
}

cGraphicsRibbonButton& Bar::newButton() const
{
    return *children<cGraphicsRibbonButton>().at(0);
}

cGraphicsButton& Bar::importButton() const
{
    return *children<cGraphicsTextButton>().at(0);
}

cGraphicsButton& Bar::printButton() const
{
    return *children<cGraphicsTextButton>().at(1);
}

cGraphicsButton& Bar::arrow(int x) const
{
    for (cGraphicsButton* button : children<cGraphicsButton>()) {
        if (button->pos() == QPointF(x, 22))
            return *button;
    }
    qFatal("no arrow");
}
