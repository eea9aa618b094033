#pragma once

#include "ProfileHost.h"

#include <cGraphicsButton.h>
#include <cProfileBar.h>
#include <cProfileList.h>

#include <QGraphicsScene>
#include <QList>
#include <QMetaObject>
#include <QString>
#include <QStringList>

#include <memory>

class cGraphicsRibbonButton;

/// A bar in a scene, with its list in a frame as large as in the view.
class Bar
{
    Q_DISABLE_COPY(Bar)

public:
    /// `last` is the name of the profile of the last run, `pictures` a folder in the place of the plug-in's.
    explicit Bar(const QStringList& names = {"Alpha", "Default"}, const QString& last = "Alpha",
        const QString& pictures = QString());

    template<typename Item>
    QList<Item*> children() const
    {
        QList<Item*> found;
        for (QGraphicsItem* item : bar->childItems()) {
            if (auto* wanted = dynamic_cast<Item*>(item))
                found.append(wanted);
        }
        return found;
    }
    cGraphicsRibbonButton& newButton() const;
    cGraphicsButton& importButton() const;
    cGraphicsButton& printButton() const;
    cGraphicsButton& left() const { return arrow(143); }
    cGraphicsButton& right() const { return arrow(579); }
    bool call(const char* slot) const { return QMetaObject::invokeMethod(bar, slot); }

    ProfileHost host;
    QGraphicsScene scene;
    /// The scene's.
    cProfileBar* bar = nullptr;
    std::unique_ptr<cProfileList> list;

private:
    cGraphicsButton& arrow(int x) const;
};
