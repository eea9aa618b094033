#pragma once

#include "cDpiSettings.h"
#include "cPointerProperties.h"
#include "MKey.h"

#include <cJsonValue.h>

#include <QByteArray>
#include <QDomElement>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <QStringList>

/// All profiles with their commands and assignments.
///
/// Ids are the `uid` texts of the records. "devicemodal", "deviceModel", "deviceCategory" and
/// "devCategory" all name the device category that scopes an assignment, for instance
/// "Veltrano.Gaming.Mouse"; `mode` is an M state and `contextID` the id of one control. An assignment is
/// kept under these four: profile, category, mode and context id.
///
/// Records that are asked for by an unknown id are null values, texts are empty. Operations that return
/// a bool answer false when they changed nothing. Each change is published on "ProfileMgr_Events".
class IProfileMgr : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Stores a new profile from its record; the record's `uid` must be set and unused.
    Q_INVOKABLE virtual bool addProfile(const cJsonValue& profile) = 0;

    /// Creates the profile of a detected game from its `profile` element of the game database.
    /// `signature` tells what was found: the path of the game's executable, which becomes the target.
    Q_INVOKABLE virtual bool addProfile(
        const QDomElement& profile, const QString& displayName, const QString& signature) = 0;

    /// Deletes the profile with its commands and assignments. The built-in default profile stays.
    Q_INVOKABLE virtual bool deleteProfileByID(const QString& profileID) = 0;

    /// Reads the profile document at `profilePath` and adds its profiles.
    Q_INVOKABLE virtual void importProfile(const QString& profilePath) = 0;

    /// Copies a profile with all that it holds under a new id.
    Q_INVOKABLE virtual void copyProfile(const QString& profileID) = 0;

    /// Copies a profile to the memory of a device; `deviceName` is the name to show while it is written.
    Q_INVOKABLE virtual void copyProfileToDevice(
        const QString& profileID, const QString& deviceId, const QString& deviceName) = 0;

    /// Writes the profile as a document to `profilePath`.
    Q_INVOKABLE virtual void exportProfile(const QString& profileID, const QString& profilePath) = 0;

    /// Prints the commands on the keys `keysList` (context ids) of one device category.
    Q_INVOKABLE virtual void printProfile(
        const QString& profileID, const QString& deviceCategory, const QStringList& keysList) = 0;

    /// The profile record, or null.
    Q_INVOKABLE virtual cJsonValue getProfileByID(const QString& profileID) = 0;

    /// The profile record whose name is `profileID`, or null. The parameter holds a name, not an id.
    Q_INVOKABLE virtual cJsonValue getProfileByName(const QString& profileID) = 0;

    /// The record of the profile tied to the executable at `profileTarget`, or null.
    Q_INVOKABLE virtual cJsonValue getProfileByTarget(const QString& profileTarget) = 0;

    /// Makes the profile after the current one current.
    Q_INVOKABLE virtual void activateNextProfile() = 0;

    /// Replaces the properties of the profile that has the record's `uid`.
    Q_INVOKABLE virtual bool editProfileProperty(const cJsonValue& profileproperty) = 0;

    /// Id of the current profile.
    Q_INVOKABLE virtual QString getActiveProfileID() = 0;

    /// Makes a profile the persistent one, which stays current whatever application is in the
    /// foreground; an empty id ends that.
    Q_INVOKABLE virtual void setPersistentProfileByID(const QString& profileID) = 0;

    /// Record of the persistent profile, or null.
    Q_INVOKABLE virtual cJsonValue getPersistentProfile() = 0;

    /// Id of the persistent profile, or empty.
    Q_INVOKABLE virtual QString getPersistentProfileID() = 0;

    /// Makes a profile the default one, which is current when no other profile claims the foreground
    /// application.
    Q_INVOKABLE virtual void setDefaultProfileByID(const QString& profileID) = 0;

    /// Record of the default profile.
    Q_INVOKABLE virtual cJsonValue getDefaultProfile() = 0;

    /// Id of the default profile.
    Q_INVOKABLE virtual QString getDefaultProfileID() = 0;

    /// True for the built-in default profile, which users can't delete or edit the properties of.
    Q_INVOKABLE virtual bool isDefaultConfiguration(const QString& profileID) = 0;

    /// Array of the records of all profiles.
    Q_INVOKABLE virtual cJsonValue profiles() = 0;

    /// Adds a command, whose record has a new `uid`, to the profile. Published as "macroAdded".
    Q_INVOKABLE virtual bool addMacro(const QString& profileID, const cJsonValue& macro) = 0;

    /// Copies commands from one profile to another.
    Q_INVOKABLE virtual bool copyMacros(
        const QString& fromProfileID, const QString& toProfileID, const QStringList& macroIDs) = 0;

    /// Removes the command that has the record's `uid`. Published as "macroDeleted".
    Q_INVOKABLE virtual bool deleteMacro(const QString& profileID, const cJsonValue& macro) = 0;

    /// Replaces the command that has the record's `uid`. Published as "macroChanged".
    Q_INVOKABLE virtual bool editMacro(const QString& profileID, const cJsonValue& macro) = 0;

    /// Array of the command records of a profile; null for an unknown profile.
    Q_INVOKABLE virtual cJsonValue macros(const QString& profileID) = 0;

    /// The command record, or null.
    Q_INVOKABLE virtual cJsonValue getMacroByID(const QString& profileID, const QString& macroID) = 0;

    /// Id of the command on the control in that M state, or empty.
    Q_INVOKABLE virtual QString getAssignment(const QString& profileID, const QString& devicemodal,
        MKey::MKey_t mode, const QString& contextID) = 0;

    /// Puts the command on the control. Published as "MacroAssigned".
    Q_INVOKABLE virtual void setAssignment(const QString& profileID, const QString& devicemodal,
        const QString& macroID, MKey::MKey_t mode, const QString& contextID) = 0;

    /// Puts the built-in command given by its type and name on the control, making it first where the
    /// profile lacks it; `hidden` is the new record's `hidden`.
    Q_INVOKABLE virtual void setGenericAssignment(const QString& profileID, const QString& devicemodal,
        const QString& type, const QString& name, bool hidden, MKey::MKey_t mode,
        const QString& contextID) = 0;

    /// Takes the command off the control. Published as "AssignmentRemoved".
    Q_INVOKABLE virtual void removeAssignment(const QString& profileID, const QString& devicemodal,
        MKey::MKey_t mode, const QString& contextID) = 0;

    /// True if the command is on one of the controls `contextIDs`, in any M state.
    Q_INVOKABLE virtual bool isMacroAssigned(const QString& profileID, const QString& devCategory,
        const QStringList& contextIDs, const QString& macroID) = 0;

    /// Writes all changed profiles to disk at once; false if one could not be written.
    Q_INVOKABLE virtual bool saveAllProfiles() = 0;

    /// Writes one profile to disk at once; false if it could not be written.
    Q_INVOKABLE virtual bool saveProfile(const QString& profileID) = 0;

    /// Sees to it that the profile holds the stick's mouse command (FixedIds::MouseMacro).
    Q_INVOKABLE virtual bool addMouseMacro(const QString& profileID) = 0;

    /// Sees to it that the profile holds the stick's joystick command (FixedIds::JoystickMacro).
    Q_INVOKABLE virtual bool addJoystickMacro(const QString& profileID) = 0;

    /// Stores the text of the profile's script.
    Q_INVOKABLE virtual bool setProfileScript(const QString& profileID, const QString& script) = 0;

    /// Text of the profile's script, or empty.
    Q_INVOKABLE virtual QString getProfileScript(const QString& profileID) = 0;

    /// Display name of the profile, or empty.
    Q_INVOKABLE virtual QString getProfileName(const QString& profileID) = 0;

    /// Id of the device that the profile lives on; empty for a local profile.
    Q_INVOKABLE virtual QString getProfileDeviceId(const QString& profileID) = 0;

    /// Document with the profiles that go to the device: the changed ones only if `dirtyOnly`, and the
    /// local profiles `localProfileIds`.
    Q_INVOKABLE virtual QByteArray getProfilesToGoXML(
        const QString& deviceId, bool dirtyOnly, const QStringList& localProfileIds) = 0;

    /// Array of the records of the profiles that live on the device.
    Q_INVOKABLE virtual cJsonValue getProfilesToGo(const QString& deviceId) = 0;

    /// True if the profile was changed since it was last written to its device.
    Q_INVOKABLE virtual bool isProfileToGoDirty(const QString& profileID) = 0;

    /// Makes the profile current for a test, as if its application had come to the foreground.
    Q_INVOKABLE virtual void testProfile(const QString& profileID) = 0;

    /// The command record with that type (`namespace`), name and `hidden` state, or null.
    Q_INVOKABLE virtual cJsonValue getMacroByTypeAndName(
        const QString& profileID, const QString& macroType, const QString& macroName, bool hidden) = 0;

    /// Puts the second command on every control that holds the first.
    Q_INVOKABLE virtual void moveAssignments(
        const QString& profileID, const QString& fromMacroID, const QString& toMacroID) = 0;

    /// True if the profile was set up for the device category before.
    Q_INVOKABLE virtual bool containsDevCategory(const QString& profileID, const QString& devCategory) = 0;

    /// Stores the pointer's resolution, in dots per inch.
    Q_INVOKABLE virtual void setPointerDpi(
        const QString& profileID, const QString& deviceModel, const cDpiSettings& dpi) = 0;

    /// Stores the pointer's speed (1 to 20, 10 is the middle) and whether it accelerates.
    Q_INVOKABLE virtual void setPointerMovement(
        const QString& profileID, const QString& deviceModel, int speed, bool enableAcceleration) = 0;

    /// Stores the pointer's report rate, in reports per second.
    Q_INVOKABLE virtual void setPointerReportRate(
        const QString& profileID, const QString& deviceModel, int reportRate) = 0;

    /// All pointer properties of the profile for a device model.
    Q_INVOKABLE virtual cPointerProperties pointerProperties(
        const QString& profileID, const QString& deviceModel) = 0;

    /// Writes the pointer's resolution, in dots per inch, to `dpi`; false if none is stored.
    Q_INVOKABLE virtual bool pointerDpi(
        const QString& profileID, const QString& deviceModel, cDpiSettings& dpi) = 0;

    /// Writes the pointer's speed and acceleration to the references; false if none are stored.
    Q_INVOKABLE virtual bool pointerMovement(
        const QString& profileID, const QString& deviceModel, int& speed, bool& enableAcceleration) = 0;

    /// Writes the pointer's report rate, in reports per second, to `reportRate`; false if none is
    /// stored.
    Q_INVOKABLE virtual bool pointerReportRate(
        const QString& profileID, const QString& deviceModel, int& reportRate) = 0;

    /// True if the profile remembers what its controls of that category held when its backup was made.
    Q_INVOKABLE virtual bool profileHasBackup(const QString& profileID, const QString& deviceCategory) = 0;

    /// Restores what the control held when the profile's backup was made.
    Q_INVOKABLE virtual void setDefaultAssignment(const QString& profileID, const QString& devicemodal,
        MKey::MKey_t mode, const QString& contextID) = 0;

    /// Forgets the profile's backup for the device category.
    Q_INVOKABLE virtual void cleanupBackup(const QString& profileID, const QString& devicemodal) = 0;

    /// True if the control holds something else than when the profile's backup was made.
    Q_INVOKABLE virtual bool assignmentHasBackup(const QString& profileID, const QString& devicemodal,
        MKey::MKey_t mode, const QString& contextID) = 0;

    /// Stores the profile's icon, already scaled by the caller.
    Q_INVOKABLE virtual void setProfileIcon(const QString& profileID, const QPixmap& scaledIcon) = 0;

    /// The profile's icon, or a null pixmap.
    Q_INVOKABLE virtual QPixmap profileIcon(const QString& profileID) = 0;

    /// True if the user chose the profile's icon.
    Q_INVOKABLE virtual bool hasCustomIcon(const QString& profileID) = 0;

    /// True if the command's type fits the control.
    Q_INVOKABLE virtual bool canMacroBeAssignedTo(const QString& macroID, const QString& profileID,
        const QString& deviceCategory, MKey::MKey_t mode, const QString& contextID) = 0;

    /// True if the command may be replaced by the record `newMacro`; false ends an edit.
    Q_INVOKABLE virtual bool canMacroBeChangedTo(
        const QString& profileID, const QString& macroID, const cJsonValue& newMacro) = 0;

    /// Pauses or resumes the making of backups for the profile.
    Q_INVOKABLE virtual bool enableProfileBackup(const QString& profileID, bool enable) = 0;

    /// Ids of all profiles.
    Q_INVOKABLE virtual QStringList profileIDs() = 0;
};
