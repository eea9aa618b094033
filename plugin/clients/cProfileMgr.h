#pragma once

#include "IProfileMgr.h"

/// The client of IProfileMgr, the service "Profiler.ProfileMgr"; see cServiceClient.h for how its members
/// call.
class cProfileMgr : public IProfileMgr
{
    Q_OBJECT

public:
    cProfileMgr();

    bool addProfile(const cJsonValue& profile) override;
    bool addProfile(
        const QDomElement& profile, const QString& displayName, const QString& signature) override;
    bool deleteProfileByID(const QString& profileID) override;
    void importProfile(const QString& profilePath) override;
    void copyProfile(const QString& profileID) override;
    void copyProfileToDevice(
        const QString& profileID, const QString& deviceId, const QString& deviceName) override;
    void exportProfile(const QString& profileID, const QString& profilePath) override;
    void printProfile(
        const QString& profileID, const QString& deviceCategory, const QStringList& keysList) override;
    cJsonValue getProfileByID(const QString& profileID) override;
    cJsonValue getProfileByName(const QString& profileID) override;
    cJsonValue getProfileByTarget(const QString& profileTarget) override;
    void activateNextProfile() override;
    bool editProfileProperty(const cJsonValue& profileproperty) override;
    QString getActiveProfileID() override;
    void setPersistentProfileByID(const QString& profileID) override;
    cJsonValue getPersistentProfile() override;
    QString getPersistentProfileID() override;
    void setDefaultProfileByID(const QString& profileID) override;
    cJsonValue getDefaultProfile() override;
    QString getDefaultProfileID() override;
    bool isDefaultConfiguration(const QString& profileID) override;
    cJsonValue profiles() override;
    bool addMacro(const QString& profileID, const cJsonValue& macro) override;
    bool copyMacros(
        const QString& fromProfileID, const QString& toProfileID, const QStringList& macroIDs) override;
    bool deleteMacro(const QString& profileID, const cJsonValue& macro) override;
    bool editMacro(const QString& profileID, const cJsonValue& macro) override;
    cJsonValue macros(const QString& profileID) override;
    cJsonValue getMacroByID(const QString& profileID, const QString& macroID) override;
    QString getAssignment(const QString& profileID, const QString& devicemodal, MKey::MKey_t mode,
        const QString& contextID) override;
    void setAssignment(const QString& profileID, const QString& devicemodal, const QString& macroID,
        MKey::MKey_t mode, const QString& contextID) override;
    void setGenericAssignment(const QString& profileID, const QString& devicemodal, const QString& type,
        const QString& name, bool hidden, MKey::MKey_t mode, const QString& contextID) override;
    void removeAssignment(const QString& profileID, const QString& devicemodal, MKey::MKey_t mode,
        const QString& contextID) override;
    bool isMacroAssigned(const QString& profileID, const QString& devCategory, const QStringList& contextIDs,
        const QString& macroID) override;
    bool saveAllProfiles() override;
    bool saveProfile(const QString& profileID) override;
    bool addMouseMacro(const QString& profileID) override;
    bool addJoystickMacro(const QString& profileID) override;
    bool setProfileScript(const QString& profileID, const QString& script) override;
    QString getProfileScript(const QString& profileID) override;
    QString getProfileName(const QString& profileID) override;
    QString getProfileDeviceId(const QString& profileID) override;
    QByteArray getProfilesToGoXML(
        const QString& deviceId, bool dirtyOnly, const QStringList& localProfileIds) override;
    cJsonValue getProfilesToGo(const QString& deviceId) override;
    bool isProfileToGoDirty(const QString& profileID) override;
    void testProfile(const QString& profileID) override;
    cJsonValue getMacroByTypeAndName(
        const QString& profileID, const QString& macroType, const QString& macroName, bool hidden) override;
    void moveAssignments(
        const QString& profileID, const QString& fromMacroID, const QString& toMacroID) override;
    bool containsDevCategory(const QString& profileID, const QString& devCategory) override;
    void setPointerDpi(
        const QString& profileID, const QString& deviceModel, const cDpiSettings& dpi) override;
    void setPointerMovement(
        const QString& profileID, const QString& deviceModel, int speed, bool enableAcceleration) override;
    void setPointerReportRate(const QString& profileID, const QString& deviceModel, int reportRate) override;
    cPointerProperties pointerProperties(const QString& profileID, const QString& deviceModel) override;
    bool pointerDpi(const QString& profileID, const QString& deviceModel, cDpiSettings& dpi) override;
    bool pointerMovement(
        const QString& profileID, const QString& deviceModel, int& speed, bool& enableAcceleration) override;
    bool pointerReportRate(const QString& profileID, const QString& deviceModel, int& reportRate) override;
    bool profileHasBackup(const QString& profileID, const QString& deviceCategory) override;
    void setDefaultAssignment(const QString& profileID, const QString& devicemodal, MKey::MKey_t mode,
        const QString& contextID) override;
    void cleanupBackup(const QString& profileID, const QString& devicemodal) override;
    bool assignmentHasBackup(const QString& profileID, const QString& devicemodal, MKey::MKey_t mode,
        const QString& contextID) override;
    void setProfileIcon(const QString& profileID, const QPixmap& scaledIcon) override;
    QPixmap profileIcon(const QString& profileID) override;
    bool hasCustomIcon(const QString& profileID) override;
    bool canMacroBeAssignedTo(const QString& macroID, const QString& profileID, const QString& deviceCategory,
        MKey::MKey_t mode, const QString& contextID) override;
    bool canMacroBeChangedTo(
        const QString& profileID, const QString& macroID, const cJsonValue& newMacro) override;
    bool enableProfileBackup(const QString& profileID, bool enable) override;
    QStringList profileIDs() override;
};
