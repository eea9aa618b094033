#pragma once

#include "ProfileHistory.h"

#include <IProfileMgr.h>
#include <ProfileBackups.h>
#include <ProfileBook.h>
#include <ProfileDocument.h>
#include <ProfileStore.h>

#include <QQueue>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

class IDevMgr;
class IDeviceCopies;
class IMacroTypeMgr;
class IMainUI;
class IProfilePrinter;
class ISettings;

/// The service "Profiler.ProfileMgr" over the profile store.
///
/// Every change goes through carryOut(): it is one step of the ProfileBook, its profiles are marked for
/// writing, and then its events are published. A change that is made while events go out is in memory at
/// once, and its events follow those that still wait, so that listeners hear of changes in the order in which
/// they happened.
///
/// What perform() does can be undone and redone, with the same events as any change. Roles and the choice of
/// the current profile are no steps of their own, but a profile that comes back has the roles again that it
/// lost when it went, unless they were given to others since. Neither is a step what a view does while
/// enableProfileBackup() is off: nobody asked for it.
///
/// Rules that the operations' names leave open:
///
/// Ids are compared without regard to case; what is stored and published has the spelling that came first.
///
/// Order: the built-in profile, then the others by their names as they were at the start, then those that
/// came since.
///
/// The built-in default profile (FixedIds::DefaultProfile) is the default configuration:
/// isDefaultConfiguration() is true for it alone. It can't be deleted, and its properties can't be edited;
/// commands, assignments, icon and script can. A profile that loses its role by being deleted leaves it to
/// the built-in one, the role of the persistent profile to none.
///
/// A record that is added without a uid gets one, as do commands that come in without one, or with one that
/// the profile has already. An edited record keeps the keys of the stored one that it does not have.
///
/// Backup: from the moment that a profile is made, or cleanupBackup() was called, the first change of a
/// control remembers what the control held. assignmentHasBackup() is true while the control holds something
/// else than that, profileHasBackup() if there is such a control in the category. setDefaultAssignment() puts
/// back what is remembered; a command that is gone counts as an empty control. While enableProfileBackup() is
/// off, changes are not remembered: they become what later changes are measured against. moveAssignments()
/// changes the command in what is remembered too, since it turns one command into another.
///
/// A command may sit on a control if the device's manifest gives the control a type that the command's type
/// names. A control that no manifest describes takes every known type; a command whose type is unknown goes
/// nowhere.
///
/// Profiles go out as records with their commands and assignments from getProfileByID() and its like;
/// profiles() leaves these two out, since callers walk the list for names and ids.
///
/// Import: what a file holds is shown by the review, if there is one. A profile whose id or name is there
/// already is asked about; without anybody to ask it comes in beside the other one, with an id and a name of
/// its own.
///
/// Backups of all documents stand beside the folder of profiles. One is made each day, and one before
/// profiles go, come in from a file or out of a backup, and before another version of the application reads
/// them for the first time.
///
/// The current profile is what keys play: the persistent one if there is one, else the one whose target is
/// the foreground application, else the default one. A profile with `lock` stays current until the process
/// that made it so ends. testProfile() and activateNextProfile() override all that until an application with
/// a profile of its own comes to the foreground. The application itself in the foreground changes nothing, so
/// that its user keeps seeing the profile that was played.
class cProfileMgrService : public IProfileMgr
{
    Q_OBJECT
    Q_CLASSINFO("service", "Profiler.ProfileMgr")

public:
    /// The services that this one asks. They outlive it.
    struct Surroundings
    {
        ISettings* settings = nullptr;
        IMacroTypeMgr* macroTypes = nullptr;
        IDevMgr* devices = nullptr;
        IMainUI* mainUI = nullptr;
    };

    /// What a file holds that is to be imported.
    struct ImportFile
    {
        QString path;
        std::vector<Profile> profiles;
        /// Why it can't be read, for people.
        QString problem;
    };
    /// Shows files before anything changes and takes out what is not to come in. False for nothing at all.
    using ImportReview = std::function<bool(std::vector<ImportFile>& files)>;

    /// How a profile of a file or of a backup relates to the profiles that there are.
    enum class Presence { New, Same, Different, NameTaken };

    /// `folder` holds the documents; `defaultDocument` is the path of the document that a fresh start begins
    /// with.
    cProfileMgrService(const QString& folder, const QString& defaultDocument,
        const Surroundings& surroundings, QObject* parent = nullptr);
    ~cProfileMgrService() override;

    /// Reads the stored profiles. Called once, before the service is registered.
    void load();

    /// True if changes are not saved, because another process holds the profiles or they can't be written to.
    bool isReadOnly() const { return m_store.isReadOnly(); }
    /// Names of the profiles with changes that are not saved.
    QStringList unsavedNames() const;
    /// Why, in words.
    QStringList saveFailures() const { return m_store.failures(); }
    /// Writes these profiles into another folder as documents that can be imported; they stay unsaved here.
    /// Returns what went wrong, for people; empty if nothing did.
    QString saveElsewhere(const QString& folder) const { return m_store.writeUnwrittenTo(folder); }

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

    const ProfileBook& book() const { return m_book; }
    const ProfileHistory& history() const { return m_history; }

    void setImportReview(ImportReview review) { m_importReview = std::move(review); }
    /// Imports several files in one step.
    void importProfiles(const QStringList& paths);
    Presence presenceOf(const Profile& other) const;

    const ProfileBackups& backups() const { return m_backups; }
    /// Makes profiles what they are in documents of a backup; those that are gone come back. One step.
    /// Returns how many changed.
    int bringBack(const QString& backup, const QStringList& documents);

    /// A profile as getProfileByID() gives it; null for a null profile.
    static cJsonValue recordOf(const Profile* profile);

    /// Knows what devices hold, and outlives the service unless null takes its place. Without it every
    /// profile that is bound to a device is ahead of it.
    void setDeviceCopies(const IDeviceCopies* copies) { m_deviceCopies = copies; }
    /// Without one, printing does nothing. It outlives the service.
    void setPrinter(IProfilePrinter* printer) { m_printer = printer; }
    ProfileDocument::ReadResult readDocument(const QByteArray& document) const;
    /// Adds a profile that was found on a device, as it is. One whose id is there already is passed over.
    void adopt(Profile found);
    /// Publishes a property event for each profile that is ahead of its device.
    void announceUnwritten(const QString& deviceId);

public Q_SLOTS:
    void undo();
    void redo();
    /// Event of "MainApp_Events": chooses the current profile.
    void onForegroundAppChange(const QString& appPath, quint32 processId);

Q_SIGNALS:
    /// Something that the user has to know, in words.
    void problem(const QString& text);

private Q_SLOTS:
    void backUpDaily();

private:
    using Changes = std::vector<ProfileChange>;
    class Import;

    /// Makes a step that can be undone. False if nothing changed.
    bool perform(const StepName& name, Changes changes);
    /// Changes roles.
    void performUnnamed(Changes changes);
    /// The one place where profiles change. Listeners are told by publishWaiting(). Returns the inverse.
    ProfileStep carryOut(ProfileStep step);
    /// The step with what has to go along: a profile that goes hands over its roles, a command that goes
    /// leaves its controls.
    ProfileStep completed(ProfileStep step);
    void handOverRoles(const QSet<QString>& removedIds, Changes& changes);
    /// Copies all documents, once in a step. A failure is told and stops nothing.
    void backUp(ProfileBackups::Reason reason, const QString& note);
    void backUpBeforeAnUpgrade();
    ImportFile readImport(const QString& path) const;
    /// Tells listeners of an undone or redone step.
    void publishTurn();
    /// Id of the profile that views showed last; it may be gone.
    QString shownProfileId() const;
    void publishWaiting();
    static void publish(const ProfileEvent& event);
    void storeRoles();
    void restoreRoles();
    void loadDefaultProfile();
    /// The lookup that documents are read and written with.
    MacroTypeLookup macroTypes() const;

    const Profile* profile(const QString& profileID) const { return m_book.find(profileID); }
    static cJsonValue shortRecordOf(const Profile& profile);
    /// The profile that a record describes.
    static Profile profileOf(const cJsonValue& record);
    /// Gives an id of its own to each command that lacks one.
    static void tidyMacros(Profile& profile);
    /// A name that neither another local profile nor the given ones have: the name, or that with a number.
    static QString numberedName(const QString& name, const QSet<QString>& taken);
    QString freeName(const QString& name, QSet<QString> taken = {}, const QString& exceptId = {}) const;
    /// The local profile of that name; null for none.
    const Profile* withName(const QString& name) const;
    /// Gives the profile a new id and adds it; empty if that did not work.
    bool addCopy(Profile copy, const StepName& name);
    /// Who is current for these roles: the profile of the foreground application unless there is a persistent
    /// one, else the default one.
    QString chooseCurrent(const QString& persistent, const QString& byDefault) const;
    /// The profile whose target is the file; null for none.
    const Profile* withTarget(const QString& path) const;
    bool addFixedMacro(
        const QString& profileID, const QString& uid, const QString& name, const QString& macroNamespace);
    void copyMacro(const Profile& target, const cJsonValue& macro, Changes& changes) const;

    /// What the control goes back to; nothing if nothing is remembered.
    std::optional<QString> remembered(const Profile& profile, const ControlKey& control) const;
    bool differsFromRemembered(const Profile& profile, const ControlKey& control) const;
    /// Adds the changes that put a command, or none, on a control and remember what it held.
    void assign(
        const Profile& profile, const ControlKey& control, const QString& macroId, Changes& changes) const;
    /// Types of the control in the manifests of the category's devices; `isKnown` tells if one describes it.
    QStringList controlTypes(const ControlKey& control, bool* isKnown) const;
    bool fits(const cJsonValue& macro, const ControlKey& control) const;

    cMacroTypePtr macroType(const QString& macroNamespace) const;

    QString m_defaultDocument;
    Surroundings m_surroundings;
    const IDeviceCopies* m_deviceCopies = nullptr;
    IProfilePrinter* m_printer = nullptr;
    ProfileBook m_book;
    ProfileStore m_store;
    ProfileHistory m_history;
    ProfileBackups m_backups;
    QTimer m_dailyTimer;
    /// The step before which a backup was made last.
    int m_backedUpStep = -1;
    /// The failure that was told last.
    QString m_backupFailure;
    ImportReview m_importReview;
    QQueue<ProfileEvent> m_waiting;
    bool m_isPublishing = false;
    /// True if the last step changed nothing but profiles whose backup is paused.
    bool m_isSettingUp = false;
    /// Profiles whose backup is paused.
    QSet<QString> m_pausedBackups;
    /// The application in the foreground apart from this one.
    QString m_foregroundApp;
    /// True while testProfile() or activateNextProfile() override the choice.
    bool m_isChosenByHand = false;
    /// The process that holds the current profile, which has `lock`; 0 for none.
    quint32 m_lockingProcess = 0;
};
