#pragma once

#include "DeviceHost.h"

#include <cMacroBindingView.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QList>
#include <QMetaObject>
#include <QString>
#include <QStringList>

#include <memory>

class cAnimatedPixmapWidget;
class cGraphicsItem;
class cGraphicsItemGroup;
class cMacroList;
class cPanel;
class cPulseGlowImage;
class cScalablePixmap;
class cTooltip;
class Gkey;
class MagnetTextItem;
class QFrame;

/// The view on a canvas before the host.
///
///     ViewFixture fixture;
///     fixture.open("<device ...>");
///     fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
///     fixture.assign("{P}", "G1", "{1}");
///     fixture.showProfile("{P}");
///     QCOMPARE(fixture.label("G1")->text(), "Jump");
class ViewFixture : public DeviceHost
{
    Q_DISABLE_COPY(ViewFixture)

public:
    static constexpr QRect CanvasRect {0, 0, 980, 620};

    ViewFixture();

    /// init() and the end of the transform. Calls up to the end are taken.
    void open();
    void open(const QByteArray& manifest);
    /// Opens the view on "{P}" with "{1}" Jump on G1 and G3 and "{2}" Run on no key, and waits for the list
    /// of them.
    void openWithCommands(const char* device = PlainDevice);
    /// Shows the canvas, whose points are then those of its scene, to the pointer of the display. False if it
    /// does not come up.
    bool showOnScreen();
    /// Publishes that the profile is about to be shown; its calls are taken.
    void showProfile(const QString& profileID);

    /// Calls a slot by its name.
    template<typename... Args>
    bool call(const char* slot, const Args&... args)
    {
        return QMetaObject::invokeMethod(&view, slot, Qt::DirectConnection, args...);
    }

    /// All items of that class in the scene, in the order in which they are painted.
    template<typename Item>
    QList<Item*> items() const
    {
        QList<Item*> found;
        for (QGraphicsItem* item : scene->items(Qt::AscendingOrder)) {
            if (auto* const wanted = dynamic_cast<Item*>(item))
                found.append(wanted);
        }
        return found;
    }
    /// The one item of that class; null if there are none or several.
    template<typename Item>
    Item* item() const
    {
        const QList<Item*> found = items<Item>();
        return found.size() == 1 ? found.constFirst() : nullptr;
    }
    QGraphicsItem* rootItem() const;
    Gkey* key(const QString& contextID) const;
    MagnetTextItem* label(const QString& contextID) const;
    /// As in "G1=Jump", by context id.
    QStringList labels() const;
    cGraphicsItem* modeButton(const QString& id) const;
    /// The ids of the selected and of the pulsating mode buttons.
    QStringList selectedModes() const;
    QStringList pulsatingModes() const;
    /// The x of those pulse glows that are lit.
    QStringList litGlows() const;
    QFrame* commandFrame() const;
    cMacroList* macroList() const;
    /// The names of the commands that are selected in the list.
    QStringList selectedCommands() const;
    cAnimatedPixmapWidget* syncButton() const;

    std::unique_ptr<QGraphicsScene> scene;
    std::unique_ptr<QGraphicsView> canvas;
    cMacroBindingView view;
};

/// How many slots hear the signal.
int connections(const QObject& sender, const char* signal);
