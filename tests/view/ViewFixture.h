#pragma once

#include <cJsonValue.h>
#include <cMacroBindingView.h>
#include <IMacroType.h>
#include <PluginFolder.h>
#include <RecordingHost.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QHash>
#include <QList>
#include <QMap>
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
class QDomElement;
class QFrame;

/// Three keys, three modes, no glows.
extern const char* const PlainDevice;
/// G1 can't be empty, G2 has a generic command, G3 has none.
extern const char* const GenericDevice;

/// A command record as the host keeps it.
cJsonValue makeMacro(const char* uid, const char* displayName, bool hidden = false);

/// A command type that fits those control types.
cMacroTypePtr makeMacroType(const QStringList& controlTypes, bool isPrivate = false);

/// The view on a canvas before a recording host that keeps the commands and assignments of some profiles, as
/// a host does: what the view asks for comes back, but nothing that it asks to change is changed.
///
///     ViewFixture fixture;
///     fixture.open("<device ...>");
///     fixture.putMacro("{P}", makeMacro("{1}", "Jump"));
///     fixture.assign("{P}", "G1", "{1}");
///     fixture.showProfile("{P}");
///     QCOMPARE(fixture.label("G1")->text(), "Jump");
class ViewFixture
{
    Q_DISABLE_COPY(ViewFixture)

public:
    static constexpr QRect CanvasRect {0, 0, 980, 620};

    ViewFixture();
    ~ViewFixture();

    /// What the host has as the manifest of every model.
    void setManifest(const QByteArray& xml);
    /// init() and the end of the transform. Calls up to the end are taken.
    void open();
    void open(const QByteArray& manifest);
    /// What `profiler.category` of makeManifest() gives.
    static QString category() { return QStringLiteral("pad"); }

    void putMacro(const QString& profileID, const cJsonValue& macro);
    /// For the category of the device, in one mode.
    void assign(const QString& profileID, const QString& contextID, const QString& macroID,
        MKey::MKey_t inMode = MKey::M1);
    /// Opens the view on "{P}" with "{1}" Jump on G1 and G3 and "{2}" Run on no key, and waits for the list
    /// of them.
    void openWithCommands(const char* device = PlainDevice);
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
    QFrame* commandFrame() const;
    cMacroList* macroList() const;
    /// The names of the commands that are selected in the list.
    QStringList selectedCommands() const;
    cAnimatedPixmapWidget* syncButton() const;

    // The host's data.
    QHash<QString, QStringList> categories;
    QString boundDevice;
    bool isDirty = false;
    bool isBusy = false;
    bool isInForeground = true;
    MKey::MKey_t mode = MKey::M1;

private:
    void answerQueries();
    cJsonValue macro(const QString& profileID, const QString& macroID) const;

    QByteArray m_manifest;
    QHash<QString, cJsonValue> m_macros;
    QMap<QString, QString> m_assignments;

public:
    // Behind the data, which the view asks for until it has gone.
    const PluginFolder folder;
    RecordingHost host;
    std::unique_ptr<QGraphicsScene> scene;
    std::unique_ptr<QGraphicsView> canvas;
    cMacroBindingView view;
};

/// A manifest of the category "pad" with that content below `macrobindingmetadata`.
QByteArray makeManifest(const char* content, const char* model = "Model", const char* category = "pad");

/// How many slots hear the signal.
int connections(const QObject& sender, const char* signal);
