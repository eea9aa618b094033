#include "cProfileMgr.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cProfileMgr::cProfileMgr()
{
    requireService(ServiceNames::ProfileMgr);
}

bool cProfileMgr::addProfile(const cJsonValue& profile)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "addProfile", "bool", tagged("const cJsonValue", profile));
}

bool cProfileMgr::addProfile(const QDomElement& profile, const QString& displayName, const QString& signature)
{
    return askService<bool>(ServiceNames::ProfileMgr, "addProfile", "bool",
        tagged("const QDomElement", profile), tagged("const QString", displayName),
        tagged("const QString", signature));
}

bool cProfileMgr::deleteProfileByID(const QString& profileID)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "deleteProfileByID", "bool", tagged("QString", profileID));
}

void cProfileMgr::importProfile(const QString& profilePath)
{
    callService(ServiceNames::ProfileMgr, "importProfile", tagged("QString", profilePath));
}

void cProfileMgr::copyProfile(const QString& profileID)
{
    callService(ServiceNames::ProfileMgr, "copyProfile", tagged("const QString", profileID));
}

void cProfileMgr::copyProfileToDevice(
    const QString& profileID, const QString& deviceId, const QString& deviceName)
{
    callService(ServiceNames::ProfileMgr, "copyProfileToDevice", tagged("const QString", profileID),
        tagged("const QString", deviceId), tagged("const QString", deviceName));
}

void cProfileMgr::exportProfile(const QString& profileID, const QString& profilePath)
{
    callService(ServiceNames::ProfileMgr, "exportProfile", tagged("QString", profileID),
        tagged("QString", profilePath));
}

void cProfileMgr::printProfile(
    const QString& profileID, const QString& deviceCategory, const QStringList& keysList)
{
    callService(ServiceNames::ProfileMgr, "printProfile", tagged("QString", profileID),
        tagged("QString", deviceCategory), tagged("QStringList", keysList));
}

cJsonValue cProfileMgr::getProfileByID(const QString& profileID)
{
    return askService<cJsonValue>(
        ServiceNames::ProfileMgr, "getProfileByID", "cJsonValue", tagged("QString", profileID));
}

cJsonValue cProfileMgr::getProfileByName(const QString& profileID)
{
    return askService<cJsonValue>(
        ServiceNames::ProfileMgr, "getProfileByName", "cJsonValue", tagged("QString", profileID));
}

cJsonValue cProfileMgr::getProfileByTarget(const QString& profileTarget)
{
    return askService<cJsonValue>(
        ServiceNames::ProfileMgr, "getProfileByTarget", "cJsonValue", tagged("QString", profileTarget));
}

void cProfileMgr::activateNextProfile()
{
    callService(ServiceNames::ProfileMgr, "activateNextProfile");
}

bool cProfileMgr::editProfileProperty(const cJsonValue& profileproperty)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "editProfileProperty", "bool", tagged("const cJsonValue", profileproperty));
}

QString cProfileMgr::getActiveProfileID()
{
    return askService<QString>(ServiceNames::ProfileMgr, "getActiveProfileID", "QString");
}

void cProfileMgr::setPersistentProfileByID(const QString& profileID)
{
    callService(ServiceNames::ProfileMgr, "setPersistentProfileByID", tagged("QString", profileID));
}

cJsonValue cProfileMgr::getPersistentProfile()
{
    return askService<cJsonValue>(ServiceNames::ProfileMgr, "getPersistentProfile", "cJsonValue");
}

QString cProfileMgr::getPersistentProfileID()
{
    return askService<QString>(ServiceNames::ProfileMgr, "getPersistentProfileID", "QString");
}

void cProfileMgr::setDefaultProfileByID(const QString& profileID)
{
    callService(ServiceNames::ProfileMgr, "setDefaultProfileByID", tagged("QString", profileID));
}

cJsonValue cProfileMgr::getDefaultProfile()
{
    return askService<cJsonValue>(ServiceNames::ProfileMgr, "getDefaultProfile", "cJsonValue");
}

QString cProfileMgr::getDefaultProfileID()
{
    return askService<QString>(ServiceNames::ProfileMgr, "getDefaultProfileID", "QString");
}

bool cProfileMgr::isDefaultConfiguration(const QString& profileID)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "isDefaultConfiguration", "bool", tagged("const QString", profileID));
}

cJsonValue cProfileMgr::profiles()
{
    return askService<cJsonValue>(ServiceNames::ProfileMgr, "profiles", "cJsonValue");
}

bool cProfileMgr::addMacro(const QString& profileID, const cJsonValue& macro)
{
    return askService<bool>(ServiceNames::ProfileMgr, "addMacro", "bool", tagged("QString", profileID),
        tagged("const cJsonValue", macro));
}

bool cProfileMgr::copyMacros(
    const QString& fromProfileID, const QString& toProfileID, const QStringList& macroIDs)
{
    return askService<bool>(ServiceNames::ProfileMgr, "copyMacros", "bool",
        tagged("const QString", fromProfileID), tagged("const QString", toProfileID),
        tagged("const QStringList", macroIDs));
}

bool cProfileMgr::deleteMacro(const QString& profileID, const cJsonValue& macro)
{
    return askService<bool>(ServiceNames::ProfileMgr, "deleteMacro", "bool", tagged("QString", profileID),
        tagged("const cJsonValue", macro));
}

bool cProfileMgr::editMacro(const QString& profileID, const cJsonValue& macro)
{
    return askService<bool>(ServiceNames::ProfileMgr, "editMacro", "bool", tagged("QString", profileID),
        tagged("const cJsonValue", macro));
}

cJsonValue cProfileMgr::macros(const QString& profileID)
{
    return askService<cJsonValue>(
        ServiceNames::ProfileMgr, "macros", "cJsonValue", tagged("QString", profileID));
}

cJsonValue cProfileMgr::getMacroByID(const QString& profileID, const QString& macroID)
{
    return askService<cJsonValue>(ServiceNames::ProfileMgr, "getMacroByID", "cJsonValue",
        tagged("QString", profileID), tagged("QString", macroID));
}

QString cProfileMgr::getAssignment(
    const QString& profileID, const QString& devicemodal, MKey::MKey_t mode, const QString& contextID)
{
    return askService<QString>(ServiceNames::ProfileMgr, "getAssignment", "QString",
        tagged("QString", profileID), tagged("QString", devicemodal), tagged("MKey::MKey_t", mode),
        tagged("const QString", contextID));
}

void cProfileMgr::setAssignment(const QString& profileID, const QString& devicemodal, const QString& macroID,
    MKey::MKey_t mode, const QString& contextID)
{
    callService(ServiceNames::ProfileMgr, "setAssignment", tagged("QString", profileID),
        tagged("QString", devicemodal), tagged("QString", macroID), tagged("MKey::MKey_t", mode),
        tagged("const QString", contextID));
}

void cProfileMgr::setGenericAssignment(const QString& profileID, const QString& devicemodal,
    const QString& type, const QString& name, bool hidden, MKey::MKey_t mode, const QString& contextID)
{
    callService(ServiceNames::ProfileMgr, "setGenericAssignment", tagged("QString", profileID),
        tagged("QString", devicemodal), tagged("QString", type), tagged("QString", name),
        tagged("bool", hidden), tagged("MKey::MKey_t", mode), tagged("const QString", contextID));
}

void cProfileMgr::removeAssignment(
    const QString& profileID, const QString& devicemodal, MKey::MKey_t mode, const QString& contextID)
{
    callService(ServiceNames::ProfileMgr, "removeAssignment", tagged("QString", profileID),
        tagged("QString", devicemodal), tagged("MKey::MKey_t", mode), tagged("const QString", contextID));
}

bool cProfileMgr::isMacroAssigned(const QString& profileID, const QString& devCategory,
    const QStringList& contextIDs, const QString& macroID)
{
    return askService<bool>(ServiceNames::ProfileMgr, "isMacroAssigned", "bool",
        tagged("const QString", profileID), tagged("const QString", devCategory),
        tagged("const QStringList", contextIDs), tagged("const QString", macroID));
}

bool cProfileMgr::saveAllProfiles()
{
    return askService<bool>(ServiceNames::ProfileMgr, "saveAllProfiles", "bool");
}

bool cProfileMgr::saveProfile(const QString& profileID)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "saveProfile", "bool", tagged("const QString", profileID));
}

bool cProfileMgr::addMouseMacro(const QString& profileID)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "addMouseMacro", "bool", tagged("const QString", profileID));
}

bool cProfileMgr::addJoystickMacro(const QString& profileID)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "addJoystickMacro", "bool", tagged("const QString", profileID));
}

bool cProfileMgr::setProfileScript(const QString& profileID, const QString& script)
{
    return askService<bool>(ServiceNames::ProfileMgr, "setProfileScript", "bool",
        tagged("const QString", profileID), tagged("const QString", script));
}

QString cProfileMgr::getProfileScript(const QString& profileID)
{
    return askService<QString>(
        ServiceNames::ProfileMgr, "getProfileScript", "QString", tagged("const QString", profileID));
}

QString cProfileMgr::getProfileName(const QString& profileID)
{
    return askService<QString>(
        ServiceNames::ProfileMgr, "getProfileName", "QString", tagged("const QString", profileID));
}

QString cProfileMgr::getProfileDeviceId(const QString& profileID)
{
    return askService<QString>(
        ServiceNames::ProfileMgr, "getProfileDeviceId", "QString", tagged("const QString", profileID));
}

QByteArray cProfileMgr::getProfilesToGoXML(
    const QString& deviceId, bool dirtyOnly, const QStringList& localProfileIds)
{
    return askService<QByteArray>(ServiceNames::ProfileMgr, "getProfilesToGoXML", "QByteArray",
        tagged("const QString", deviceId), tagged("bool", dirtyOnly),
        tagged("const QStringList", localProfileIds));
}

cJsonValue cProfileMgr::getProfilesToGo(const QString& deviceId)
{
    return askService<cJsonValue>(
        ServiceNames::ProfileMgr, "getProfilesToGo", "cJsonValue", tagged("const QString", deviceId));
}

bool cProfileMgr::isProfileToGoDirty(const QString& profileID)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "isProfileToGoDirty", "bool", tagged("const QString", profileID));
}

void cProfileMgr::testProfile(const QString& profileID)
{
    callService(ServiceNames::ProfileMgr, "testProfile", tagged("const QString", profileID));
}

cJsonValue cProfileMgr::getMacroByTypeAndName(
    const QString& profileID, const QString& macroType, const QString& macroName, bool hidden)
{
    return askService<cJsonValue>(ServiceNames::ProfileMgr, "getMacroByTypeAndName", "cJsonValue",
        tagged("const QString", profileID), tagged("const QString", macroType),
        tagged("const QString", macroName), tagged("bool", hidden));
}

void cProfileMgr::moveAssignments(
    const QString& profileID, const QString& fromMacroID, const QString& toMacroID)
{
    callService(ServiceNames::ProfileMgr, "moveAssignments", tagged("const QString", profileID),
        tagged("const QString", fromMacroID), tagged("const QString", toMacroID));
}

bool cProfileMgr::containsDevCategory(const QString& profileID, const QString& devCategory)
{
    return askService<bool>(ServiceNames::ProfileMgr, "containsDevCategory", "bool",
        tagged("const QString", profileID), tagged("const QString", devCategory));
}

void cProfileMgr::setPointerDpi(const QString& profileID, const QString& deviceModel, const cDpiSettings& dpi)
{
    callService(ServiceNames::ProfileMgr, "setPointerDpi", tagged("const QString", profileID),
        tagged("const QString", deviceModel), tagged("const cDpiSettings", dpi));
}

void cProfileMgr::setPointerMovement(
    const QString& profileID, const QString& deviceModel, int speed, bool enableAcceleration)
{
    callService(ServiceNames::ProfileMgr, "setPointerMovement", tagged("const QString", profileID),
        tagged("const QString", deviceModel), tagged("int", speed), tagged("bool", enableAcceleration));
}

void cProfileMgr::setPointerReportRate(const QString& profileID, const QString& deviceModel, int reportRate)
{
    callService(ServiceNames::ProfileMgr, "setPointerReportRate", tagged("const QString", profileID),
        tagged("const QString", deviceModel), tagged("int", reportRate));
}

cPointerProperties cProfileMgr::pointerProperties(const QString& profileID, const QString& deviceModel)
{
    return askService<cPointerProperties>(ServiceNames::ProfileMgr, "pointerProperties", "cPointerProperties",
        tagged("const QString", profileID), tagged("const QString", deviceModel));
}

bool cProfileMgr::pointerDpi(const QString& profileID, const QString& deviceModel, cDpiSettings& dpi)
{
    return askService<bool>(ServiceNames::ProfileMgr, "pointerDpi", "bool",
        tagged("const QString", profileID), tagged("const QString", deviceModel),
        tagged("cDpiSettings", dpi));
}

bool cProfileMgr::pointerMovement(
    const QString& profileID, const QString& deviceModel, int& speed, bool& enableAcceleration)
{
    return askService<bool>(ServiceNames::ProfileMgr, "pointerMovement", "bool",
        tagged("const QString", profileID), tagged("const QString", deviceModel), tagged("int", speed),
        tagged("bool", enableAcceleration));
}

bool cProfileMgr::pointerReportRate(const QString& profileID, const QString& deviceModel, int& reportRate)
{
    return askService<bool>(ServiceNames::ProfileMgr, "pointerReportRate", "bool",
        tagged("const QString", profileID), tagged("const QString", deviceModel), tagged("int", reportRate));
}

bool cProfileMgr::profileHasBackup(const QString& profileID, const QString& deviceCategory)
{
    return askService<bool>(ServiceNames::ProfileMgr, "profileHasBackup", "bool",
        tagged("const QString", profileID), tagged("const QString", deviceCategory));
}

void cProfileMgr::setDefaultAssignment(
    const QString& profileID, const QString& devicemodal, MKey::MKey_t mode, const QString& contextID)
{
    callService(ServiceNames::ProfileMgr, "setDefaultAssignment", tagged("QString", profileID),
        tagged("QString", devicemodal), tagged("MKey::MKey_t", mode), tagged("const QString", contextID));
}

void cProfileMgr::cleanupBackup(const QString& profileID, const QString& devicemodal)
{
    callService(ServiceNames::ProfileMgr, "cleanupBackup", tagged("QString", profileID),
        tagged("QString", devicemodal));
}

bool cProfileMgr::assignmentHasBackup(
    const QString& profileID, const QString& devicemodal, MKey::MKey_t mode, const QString& contextID)
{
    return askService<bool>(ServiceNames::ProfileMgr, "assignmentHasBackup", "bool",
        tagged("const QString", profileID), tagged("const QString", devicemodal),
        tagged("MKey::MKey_t", mode), tagged("const QString", contextID));
}

void cProfileMgr::setProfileIcon(const QString& profileID, const QPixmap& scaledIcon)
{
    callService(ServiceNames::ProfileMgr, "setProfileIcon", tagged("const QString", profileID),
        tagged("const QPixmap", scaledIcon));
}

QPixmap cProfileMgr::profileIcon(const QString& profileID)
{
    return askService<QPixmap>(
        ServiceNames::ProfileMgr, "profileIcon", "QPixmap", tagged("const QString", profileID));
}

bool cProfileMgr::hasCustomIcon(const QString& profileID)
{
    return askService<bool>(
        ServiceNames::ProfileMgr, "hasCustomIcon", "bool", tagged("const QString", profileID));
}

bool cProfileMgr::canMacroBeAssignedTo(const QString& macroID, const QString& profileID,
    const QString& deviceCategory, MKey::MKey_t mode, const QString& contextID)
{
    return askService<bool>(ServiceNames::ProfileMgr, "canMacroBeAssignedTo", "bool",
        tagged("const QString", macroID), tagged("const QString", profileID),
        tagged("const QString", deviceCategory), tagged("MKey::MKey_t", mode),
        tagged("const QString", contextID));
}

bool cProfileMgr::canMacroBeChangedTo(
    const QString& profileID, const QString& macroID, const cJsonValue& newMacro)
{
    return askService<bool>(ServiceNames::ProfileMgr, "canMacroBeChangedTo", "bool",
        tagged("const QString", profileID), tagged("const QString", macroID), tagged("cJsonValue", newMacro));
}

bool cProfileMgr::enableProfileBackup(const QString& profileID, bool enable)
{
    return askService<bool>(ServiceNames::ProfileMgr, "enableProfileBackup", "bool",
        tagged("const QString", profileID), tagged("bool", enable));
}

QStringList cProfileMgr::profileIDs()
{
    return askService<QStringList>(ServiceNames::ProfileMgr, "profileIDs", "QStringList");
}
