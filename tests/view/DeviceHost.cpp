#include "DeviceHost.h"

#include <IMacroEditor.h>
#include <PlainMacroType.h>

#include <QLoggingCategory>
#include <QRegularExpression>

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

QStringList forPlainKeys(const QString& call)
{
    return {call.arg("G1"), call.arg("G2"), call.arg("G3")};
}

QByteArray makeManifest(const char* content, const char* model, const char* category)
{
    return QByteArray("<device model='") + model + "'><profiler category='" + category
        + "'/><macrobindingmetadata viewid='macrobinding_view'>" + content
        + "</macrobindingmetadata></device>";
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

DeviceHost::DeviceHost()
    : m_manifest(makeManifest(PlainDevice))
    , folder(QStringLiteral(PROJECT_FOLDER))
{
    // The view tells each corner of a polygon; see the test of these lines.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    answerQueries();
}

DeviceHost::~DeviceHost()
{
    QLoggingCategory::setFilterRules(QString());
}

void DeviceHost::answerQueries()
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

cJsonValue DeviceHost::macro(const QString& profileID, const QString& macroID) const
{
    const cJsonValue macros = m_macros.value(profileID);
    for (int i = 0; i < int(macros.size()); ++i) {
        if (macros[i]["uid"].toString().compare(macroID, Qt::CaseInsensitive) == 0)
            return macros[i];
    }
    return cJsonValue();
}

void DeviceHost::setManifest(const QByteArray& xml)
{
    m_manifest = xml;
}

void DeviceHost::putMacro(const QString& profileID, const cJsonValue& macro)
{
    m_macros[profileID].append(macro);
}

void DeviceHost::assign(
    const QString& profileID, const QString& contextID, const QString& macroID, MKey::MKey_t inMode)
{
    m_assignments[profileID + category() + QString::number(inMode) + contextID] = macroID;
}

QStringList DeviceHost::takeLog()
{
    QStringList found;
    for (const QString& line : host.takeLog()) {
        if (!line.startsWith("require "))
            found.append(line);
    }
    return found;
}

QStringList DeviceHost::takeBriefLog()
{
    return takeLog().replaceInStrings(
        QRegularExpression("^\\w+\\.\\w+ |const |\\b(QString|MKey::MKey_t|bool) (?=[^)])|_Events| -> .*"),
        QString());
}

#include "DeviceHost.moc"
