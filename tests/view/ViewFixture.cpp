#include "ViewFixture.h"

#include <cAnimatedPixmapWidget.h>
#include <cGraphicsItem.h>
#include <cMacroList.h>
#include <Gkey.h>
#include <IMacroEditor.h>
#include <MagnetTextItem.h>
#include <PlainMacroType.h>

#include <QDomDocument>
#include <QFrame>
#include <QGraphicsRectItem>
#include <QListWidgetItem>
#include <QLoggingCategory>
#include <QPropertyAnimation>
#include <QtTest>

const char* const PlainDevice = R"(
<mstates>
  <mstate id="M1" imageNormal="n1.png" imageHover="h1.png" imageOn="o1.png" top="10" left="20"/>
  <mstate id="M2" imageNormal="n2.png" imageHover="h2.png" imageOn="o2.png" top="10" left="40"/>
  <mstate id="M3" imageNormal="n3.png" imageHover="h3.png" imageOn="o3.png" top="10" left="60"/>
</mstates>
<controls>
  <control id="G1"><points><point x="400" y="200"/><point x="440" y="200"/><point x="440" y="230"/></points></control>
  <control id="G2"><points><point x="500" y="200"/><point x="540" y="200"/><point x="540" y="230"/></points></control>
  <control id="G3"><points><point x="600" y="200"/><point x="640" y="200"/><point x="640" y="230"/></points></control>
</controls>)";

const char* const GenericDevice = R"(
<controls>
  <control id="G1"><generic_assignment type="uri/Mouse" name="Click" hidden="true" cannotbeunassigned="true"/></control>
  <control id="G2"><generic_assignment type="uri/Media" name="Play"/></control>
  <control id="G3"/>
</controls>)";

QByteArray makeManifest(const char* content, const char* model, const char* category)
{
    return QByteArray("<device model='") + model + "'><profiler category='" + category
        + "'/><macrobindingmetadata viewid='macrobinding_view'>" + content
        + "</macrobindingmetadata></device>";
}

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

cJsonValue makeMacro(const char* uid, const char* displayName, bool hidden)
{
    cJsonValue macro;
    macro["uid"] = uid;
    macro["name"] = QStringLiteral("name of ") + displayName;
    macro["display_name"] = displayName;
    macro["namespace"] = "uri/keystroke";
    macro["hidden"] = hidden;
    return macro;
}

namespace {

/// A page without a field.
class FakeMacroEditor : public IMacroEditor
{
    Q_OBJECT

public:
    cJsonValue data() override { return cJsonValue(); }
    QString getMacroTypeID() override { return QStringLiteral("uri/keystroke"); }
    bool showMacroName() override { return true; }
    QString defaultMacroName() override { return QString(); }
    void setMacroName(QString) override { }
    bool onOK() override { return true; }
    bool onCancel() override { return true; }
    void onHelp() override { }
    void onClearForm() override { }
    bool canAddMacro() override { return true; }
};

/// A command type whose editor is an empty page.
class FakeMacroType : public PlainMacroType
{
public:
    using PlainMacroType::PlainMacroType;

    IMacroEditor* editor(cJsonValue) override { return new FakeMacroEditor; }
};

} // namespace

cMacroTypePtr makeMacroType(const QStringList& controlTypes, bool isPrivate)
{
    cJsonValue info = PlainMacroType::infoWith(controlTypes);
    info["uid"] = "uri/keystroke";
    return QSharedPointer<FakeMacroType>::create(info, isPrivate);
}

ViewFixture::ViewFixture()
    : m_manifest(makeManifest(PlainDevice))
    , folder(QStringLiteral(PROJECT_FOLDER))
    , scene(std::make_unique<QGraphicsScene>())
    , canvas(std::make_unique<QGraphicsView>(scene.get()))
{
    // The view tells each corner of a polygon; see the test of these lines.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    canvas->setSceneRect(CanvasRect);
    answerQueries();
}

ViewFixture::~ViewFixture()
{
    QLoggingCategory::setFilterRules(QString());
}

void ViewFixture::answerQueries()
{
    // The first start has been.
    host.answer("getPropertyBool", true);
    host.answer("metaData", [this](const RecordedCall&) {
        QDomDocument document;
        document.setContent(m_manifest);
        return QVariant::fromValue(document.documentElement());
    });
    host.answer("macros", [this](const RecordedCall& call) {
        return QVariant::fromValue(m_macros.value(call.values[0].toString()));
    });
    host.answer("getMacroByID", [this](const RecordedCall& call) {
        return QVariant::fromValue(macro(call.values[0].toString(), call.values[1].toString()));
    });
    host.answer("getAssignment", [this](const RecordedCall& call) {
        const QString place = call.values[0].toString() + call.values[1].toString()
            + QString::number(call.values[2].value<MKey::MKey_t>()) + call.values[3].toString();
        return QVariant(m_assignments.value(place));
    });
    host.answer("containsDevCategory", [this](const RecordedCall& call) {
        return QVariant(categories.value(call.values[0].toString()).contains(call.values[1].toString()));
    });
    host.answer("getProfileDeviceId", [this](const RecordedCall&) { return QVariant(boundDevice); });
    host.answer("isProfileToGoDirty", [this](const RecordedCall&) { return QVariant(isDirty); });
    host.answer("isDeviceBusy", [this](const RecordedCall&) { return QVariant(isBusy); });
    host.answer("inForeground", [this](const RecordedCall&) { return QVariant(isInForeground); });
    host.answer("getMState", [this](const RecordedCall&) { return QVariant::fromValue(mode); });
    host.answer("mKeyToString", [](const RecordedCall& call) {
        return QVariant('M' + QString::number(call.values[0].value<MKey::MKey_t>() + 1));
    });
    host.answer("stringToMKey", [](const RecordedCall& call) {
        return QVariant::fromValue(MKey::MKey_t(call.values[0].toString().mid(1).toInt() - 1));
    });
}

cJsonValue ViewFixture::macro(const QString& profileID, const QString& macroID) const
{
    const cJsonValue macros = m_macros.value(profileID);
    for (int i = 0; i < int(macros.size()); ++i) {
        if (macros[i]["uid"].toString().compare(macroID, Qt::CaseInsensitive) == 0)
            return macros[i];
    }
    return cJsonValue();
}

void ViewFixture::setManifest(const QByteArray& xml)
{
    m_manifest = xml;
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

void ViewFixture::putMacro(const QString& profileID, const cJsonValue& macro)
{
    m_macros[profileID].append(macro);
}

void ViewFixture::assign(
    const QString& profileID, const QString& contextID, const QString& macroID, MKey::MKey_t inMode)
{
    m_assignments[profileID + category() + QString::number(inMode) + contextID] = macroID;
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

#include "ViewFixture.moc"
