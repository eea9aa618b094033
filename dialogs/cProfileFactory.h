#pragma once

#include <cJsonValue.h>
#include <MKey.h>

#include <QString>
#include <QUuid>

/// Builds profile records, piece by piece, in the shape that IProfileMgr::addProfile takes.
///
/// Pieces are added one after the other, as one writes a document: starting a piece files the one before it
/// in its parent. A piece is open from its first key until it is filed. An operation that misses its parent
/// writes one critical line and does nothing; plain setters check nothing and start their piece if it is not
/// open.
class cProfileFactory
{
public:
    cProfileFactory() = default;

    void addProfile(const QString& name, const QString& description, const QUuid& uid, const QString& target);
    void setName(const QString& name);
    void setDescription(const QString& description);
    void setTarget(const QString& target);
    void setScript(const QString& script);
    void setMigration(const QString& migration);
    /// The id is stored in capitals.
    void setUid(const QUuid& uid);
    /// Files the open profile with all its open pieces.
    void finishProfile();

    /// The id is stored as it prints.
    void addMacro(
        const QString& name, const QUuid& uid, const cJsonValue& data, const QString& typeNamespace);
    void setMacroName(const QString& name);
    void setMacroDisplayName(const QString& displayName);
    void setMacroNamespace(const QString& typeNamespace);
    void setMacroData(const cJsonValue& data);
    void setMacroUid(const QUuid& uid);
    /// Sets how the filed commands with that id repeat: 0 not at all, 1 while pressed, 2 toggled. Other modes
    /// change nothing, and neither does a command that is still open.
    void setMacroRepeat(const QUuid& uid, int mode);
    void finishMacro();

    /// The device category of the assignments that follow.
    void setAssignmentCategory(const QString& category);
    void addAssignment(const QUuid& macroUid, const QString& contextId, const QString& shiftState);
    void setAssignmentMacroUid(const QUuid& macroUid);
    void setAssignmentContextId(const QString& contextId);
    void setAssignmentShiftState(MKey::MKey_t shiftState);
    void finishAssignment();
    void finishCategory();

    void addSignature(
        const QString& key, const QString& value, const QString& executable, const QString& name);
    void setSignatureKey(const QString& key);
    void setSignatureValue(const QString& value);
    void setSignatureExecutable(const QString& executable);
    void setSignatureName(const QString& name);
    void finishSignature();

    /// Files what is open. Returns the array of all profiles so far; the null value if none is open. The
    /// reference lives as long as the factory.
    const cJsonValue& build();

private:
    bool hasProfile() const;
    bool hasCategory() const;
    void fileMacro();
    void fileAssignment();
    void fileSignature();
    void fileProfilePieces();

    cJsonValue m_result;
    cJsonValue m_profile;
    cJsonValue m_macro;
    cJsonValue m_assignment;
    QString m_category;
    cJsonValue m_signature;
};
