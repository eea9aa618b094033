#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cGraphicsItem.h>
#include <cMacroList.h>
#include <cPulseGlowImage.h>
#include <Gkey.h>
#include <MagnetTextItem.h>

#include <QFrame>
#include <QGraphicsRectItem>
#include <QListWidgetItem>
#include <QPropertyAnimation>
#include <QtTest>

int connections(const QObject& sender, const char* signal)
{
    // receivers() is for the class itself and its heirs.
    class Peek : public QObject
    {
    public:
        static int count(const QObject& object, const char* name)
        {
            return static_cast<const Peek&>(object).receivers(name);
        }
    };
    return Peek::count(sender, signal);
}

ViewFixture::ViewFixture()
    : scene(std::make_unique<QGraphicsScene>())
    , canvas(std::make_unique<QGraphicsView>(scene.get()))
{
    canvas->setSceneRect(CanvasRect);
}

void ViewFixture::open()
{
    cJsonValue info;
    info["device_model"] = "Model";
    view.init(info, canvas.get());
    host.publishDeviceTransformEnd();
    host.clear();
}

void ViewFixture::open(const QByteArray& manifest)
{
    setManifest(manifest);
    open();
}

void ViewFixture::openWithCommands(const char* device)
{
    host.answer(
        "getMacroTypeByID", [](const RecordedCall&) { return QVariant::fromValue(makeMacroType({"key"})); });
    putMacro("{P}", makeMacro("{1}", "Jump"));
    putMacro("{P}", makeMacro("{2}", "Run"));
    assign("{P}", "G1", "{1}");
    assign("{P}", "G3", "{1}");
    categories["{P}"] = QStringList("pad");
    open(makeManifest(device));
    showProfile("{P}");
    host.publishProfileSelectionChanged("{P}");
    QTRY_COMPARE(macroList()->count(), 2);
    host.clear();
}

bool ViewFixture::showOnScreen()
{
    canvas->setGeometry(20, 20, CanvasRect.width(), CanvasRect.height());
    canvas->setFrameShape(QFrame::NoFrame);
    canvas->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    canvas->show();
    return QTest::qWaitForWindowActive(canvas.get());
}

void ViewFixture::showProfile(const QString& profileID)
{
    host.publishProfileSelectionChanging(profileID);
    host.clear();
}

QGraphicsItem* ViewFixture::rootItem() const
{
    return item<QGraphicsRectItem>();
}

Gkey* ViewFixture::key(const QString& contextID) const
{
    for (Gkey* key : items<Gkey>()) {
        if (key->contextID() == contextID)
            return key;
    }
    return nullptr;
}

MagnetTextItem* ViewFixture::label(const QString& contextID) const
{
    for (MagnetTextItem* label : items<MagnetTextItem>()) {
        if (label->contextID() == contextID)
            return label;
    }
    return nullptr;
}

QStringList ViewFixture::labels() const
{
    QStringList found;
    for (const MagnetTextItem* label : items<MagnetTextItem>())
        found.append(label->contextID() + '=' + label->text());
    found.sort();
    return found;
}

cGraphicsItem* ViewFixture::modeButton(const QString& id) const
{
    for (cGraphicsItem* button : items<cGraphicsItem>()) {
        if (button->id() == id)
            return button;
    }
    return nullptr;
}

QStringList ViewFixture::selectedModes() const
{
    QStringList found;
    for (const cGraphicsItem* button : items<cGraphicsItem>()) {
        if (button->isItemSelected())
            found.append(button->id());
    }
    return found;
}

QStringList ViewFixture::pulsatingModes() const
{
    QStringList found;
    for (const cGraphicsItem* button : items<cGraphicsItem>()) {
        if (button->pulseAnimation() && button->pulseAnimation()->state() == QAbstractAnimation::Running)
            found.append(button->id());
    }
    return found;
}

QStringList ViewFixture::litGlows() const
{
    QStringList found;
    for (const cPulseGlowImage* glow : items<cPulseGlowImage>()) {
        if (glow->isVisible())
            found.append(QString::number(glow->x()));
    }
    return found;
}

QFrame* ViewFixture::commandFrame() const
{
    const cMacroList* const list = macroList();
    return list ? qobject_cast<QFrame*>(list->parentWidget()) : nullptr;
}

cMacroList* ViewFixture::macroList() const
{
    return canvas ? canvas->findChild<cMacroList*>() : nullptr;
}

QStringList ViewFixture::selectedCommands() const
{
    QStringList names;
    for (const QListWidgetItem* item : macroList()->selectedItems())
        names.append(item->text());
    return names;
}

cAnimatedPixmapWidget* ViewFixture::syncButton() const
{
    return canvas ? canvas->findChild<cAnimatedPixmapWidget*>() : nullptr;
}
