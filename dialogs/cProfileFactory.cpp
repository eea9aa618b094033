#include "cProfileFactory.h"

#include <cProfiler.h>

#include <QDebug>

#include <array>
#include <utility>

namespace {

/// Delay of a repeat that the factory sets, in milliseconds.
constexpr int RepeatDelay = 30;
/// The texts of the repeat modes, by number.
constexpr std::array<const char*, 3> RepeatModes {"none", "whilepressed", "toggle"};

/// Appends an open piece to its parent and closes it.
void file(cJsonValue& piece, cJsonValue& parent)
{
    parent.append(piece);
    piece.clear();
}

} // namespace

void cProfileFactory::addProfile(
    const QString& name, const QString& description, const QUuid& uid, const QString& target)
{
    finishProfile();
    setName(name);
    setDescription(description);
    setUid(uid);
    setTarget(target);
}

void cProfileFactory::setName(const QString& name)
{
    m_profile["name"] = name;
}

void cProfileFactory::setDescription(const QString& description)
{
    m_profile["description"] = description;
}

void cProfileFactory::setTarget(const QString& target)
{
    m_profile["target"] = target;
}

void cProfileFactory::setScript(const QString& script)
{
    m_profile["script"] = script;
}

void cProfileFactory::setMigration(const QString& migration)
{
    m_profile["migration"] = migration;
}

void cProfileFactory::setUid(const QUuid& uid)
{
    m_profile["uid"] = uid.toString().toUpper();
}

void cProfileFactory::finishProfile()
{
    if (!m_profile.isObject())
        return;
    fileProfilePieces();
    file(m_profile, m_result);
}

void cProfileFactory::addMacro(
    const QString& name, const QUuid& uid, const cJsonValue& data, const QString& typeNamespace)
{
    if (!hasProfile())
        return;
    fileMacro();
    setMacroName(name);
    setMacroUid(uid);
    setMacroData(data);
    setMacroNamespace(typeNamespace);
}

void cProfileFactory::setMacroName(const QString& name)
{
    m_macro["name"] = name;
}

void cProfileFactory::setMacroDisplayName(const QString& displayName)
{
    m_macro["display_name"] = displayName;
}

void cProfileFactory::setMacroNamespace(const QString& typeNamespace)
{
    m_macro["namespace"] = typeNamespace;
}

void cProfileFactory::setMacroData(const cJsonValue& data)
{
    m_macro["data"] = data;
}

void cProfileFactory::setMacroUid(const QUuid& uid)
{
    m_macro["uid"] = uid.toString();
}

void cProfileFactory::setMacroRepeat(const QUuid& uid, int mode)
{
    if (!m_profile.contains("macros") || !m_profile["macros"].isArray())
        return;
    cJsonValue& macros = m_profile["macros"];
    const QString wanted = uid.toString().toLower();
    for (unsigned i = 0; i < macros.size(); ++i) {
        cJsonValue& macro = macros[int(i)];
        // Every match is set: nothing keeps two commands of a document from having one id.
        if (std::as_const(macro)["uid"].toString().toLower() != wanted || mode < 0
            || std::size_t(mode) >= RepeatModes.size())
            continue;
        macro["repeat"]["mode"] = RepeatModes[std::size_t(mode)];
        macro["repeat"]["delay"] = RepeatDelay;
    }
}

void cProfileFactory::finishMacro()
{
    if (hasProfile())
        fileMacro();
}

void cProfileFactory::setAssignmentCategory(const QString& category)
{
    if (!hasProfile())
        return;
    fileAssignment();
    m_category = category;
}

void cProfileFactory::addAssignment(
    const QUuid& macroUid, const QString& contextId, const QString& shiftState)
{
    if (!hasProfile() || !hasCategory())
        return;
    fileAssignment();
    setAssignmentMacroUid(macroUid);
    setAssignmentContextId(contextId);
    m_assignment["shiftstate"] = shiftState;
}

void cProfileFactory::setAssignmentMacroUid(const QUuid& macroUid)
{
    m_assignment["macrouid"] = macroUid.toString();
}

void cProfileFactory::setAssignmentContextId(const QString& contextId)
{
    m_assignment["contextid"] = contextId;
}

void cProfileFactory::setAssignmentShiftState(MKey::MKey_t shiftState)
{
    m_assignment["shiftstate"] = cProfiler().mKeyToString(shiftState);
}

void cProfileFactory::finishAssignment()
{
    if (hasProfile() && hasCategory())
        fileAssignment();
}

void cProfileFactory::finishCategory()
{
    if (hasProfile())
        fileAssignment();
}

void cProfileFactory::addSignature(
    const QString& key, const QString& value, const QString& executable, const QString& name)
{
    if (!hasProfile())
        return;
    fileSignature();
    setSignatureKey(key);
    setSignatureValue(value);
    setSignatureExecutable(executable);
    setSignatureName(name);
}

void cProfileFactory::setSignatureKey(const QString& key)
{
    m_signature["key"] = key;
}

void cProfileFactory::setSignatureValue(const QString& value)
{
    m_signature["value"] = value;
}

void cProfileFactory::setSignatureExecutable(const QString& executable)
{
    m_signature["executable"] = executable;
}

void cProfileFactory::setSignatureName(const QString& name)
{
    m_signature["name"] = name;
}

void cProfileFactory::finishSignature()
{
    if (hasProfile())
        fileSignature();
}

const cJsonValue& cProfileFactory::build()
{
    if (!m_profile.isObject()) {
        qCritical("Factory does not contain any profiles");
        return cJsonValue::null();
    }
    finishProfile();
    return m_result;
}

bool cProfileFactory::hasProfile() const
{
    if (m_profile.isObject())
        return true;
    qCritical("You must add a profile before you can add anything else.");
    return false;
}

bool cProfileFactory::hasCategory() const
{
    if (!m_category.isEmpty())
        return true;
    qCritical("You must add an assignment category before you can add assignments");
    return false;
}

void cProfileFactory::fileMacro()
{
    if (m_macro.isObject())
        file(m_macro, m_profile["macros"]);
}

void cProfileFactory::fileAssignment()
{
    if (m_assignment.isObject())
        file(m_assignment, m_profile["assignments"][m_category]);
}

void cProfileFactory::fileSignature()
{
    if (m_signature.isObject())
        file(m_signature, m_profile["signatures"]);
}

void cProfileFactory::fileProfilePieces()
{
    fileMacro();
    fileAssignment();
    fileSignature();
}
