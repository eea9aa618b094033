#include "ServiceTable.h"

#include "ServiceCaller.h"
#include "VirtualOffset.h"

#include <cDevMgr.h>
#include <cECMAScript.h>
#include <cFeatureViewMgr.h>
#include <cHelpMgr.h>
#include <cLCDMon.h>
#include <cLuaScript.h>
#include <cMacroTypeMgr.h>
#include <cMainApp.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <cProfiler.h>
#include <cProfilesToGo.h>
#include <cSettings.h>

namespace {

using ServiceTable::Operation;
using ServiceTable::Service;

/// `tags` are the type names as passed, separated by ", ".
template<typename Client, typename Result, typename... Args>
Operation operation(Result (Client::*member)(Args...), const char* signature, const char* tags = "")
{
    Operation operation;
    operation.signature = QString::fromLatin1(signature);
    for (const QString& tag : QString::fromLatin1(tags).split(QLatin1String(", "), Qt::SkipEmptyParts))
        operation.tags.append(tag.toLatin1());
    const ServiceCaller<Client, Result, Args...> caller(member, operation.name());
    operation.call = [caller](RecordingHost& host) {
        return caller.call(host);
    };
    operation.comesBackEmpty = [caller] {
        return caller.comesBackEmpty();
    };
    operation.virtualOffset = virtualOffset(member);
    return operation;
}

template<typename Interface, typename Client>
Service service(const char* name, const QVector<Operation>& operations)
{
    static_assert(std::is_abstract_v<Interface>, "an interface leaves its operations to others");
    static_assert(std::is_base_of_v<Interface, Client>, "a client is called through its interface");
    static_assert(sizeof(Client) == sizeof(QObject), "a client has no fields");
    Service service;
    service.name = QString::fromLatin1(name);
    service.interface = &Interface::staticMetaObject;
    service.client = &Client::staticMetaObject;
    service.makeClient = [] {
        return Client().parent() == nullptr;
    };
    service.operations = operations;
    return service;
}

} // namespace

namespace ServiceTable {

QString Operation::name() const
{
    const QString head = signature.section(QLatin1Char('('), 0, 0);
    return head.section(QLatin1Char(' '), -1);
}

QByteArray Operation::resultType() const
{
    const QByteArray type = signature.section(QLatin1Char(' '), 0, 0).toLatin1();
    return type == "void" ? QByteArray() : type;
}

const QVector<Service>& services()
{
    static const QVector<Service> table {
        service<IProfileMgr, cProfileMgr>("Profiler.ProfileMgr",
            {
                operation(qOverload<const cJsonValue&>(&cProfileMgr::addProfile),
                    "bool addProfile(cJsonValue profile)", "const cJsonValue"),
                operation(
                    qOverload<const QDomElement&, const QString&, const QString&>(&cProfileMgr::addProfile),
                    "bool addProfile(QDomElement profile, QString displayName, QString signature)",
                    "const QDomElement, const QString, const QString"),
                operation(
                    &cProfileMgr::deleteProfileByID, "bool deleteProfileByID(QString profileID)", "QString"),
                operation(&cProfileMgr::importProfile, "void importProfile(QString profilePath)", "QString"),
                operation(&cProfileMgr::copyProfile, "void copyProfile(QString profileID)", "const QString"),
                operation(&cProfileMgr::copyProfileToDevice,
                    "void copyProfileToDevice(QString profileID, QString deviceId, QString deviceName)",
                    "const QString, const QString, const QString"),
                operation(&cProfileMgr::exportProfile,
                    "void exportProfile(QString profileID, QString profilePath)", "QString, QString"),
                operation(&cProfileMgr::printProfile,
                    "void printProfile(QString profileID, QString deviceCategory, QStringList keysList)",
                    "QString, QString, QStringList"),
                operation(
                    &cProfileMgr::getProfileByID, "cJsonValue getProfileByID(QString profileID)", "QString"),
                operation(&cProfileMgr::getProfileByName, "cJsonValue getProfileByName(QString profileID)",
                    "QString"),
                operation(&cProfileMgr::getProfileByTarget,
                    "cJsonValue getProfileByTarget(QString profileTarget)", "QString"),
                operation(&cProfileMgr::activateNextProfile, "void activateNextProfile()"),
                operation(&cProfileMgr::editProfileProperty,
                    "bool editProfileProperty(cJsonValue profileproperty)", "const cJsonValue"),
                operation(&cProfileMgr::getActiveProfileID, "QString getActiveProfileID()"),
                operation(&cProfileMgr::setPersistentProfileByID,
                    "void setPersistentProfileByID(QString profileID)", "QString"),
                operation(&cProfileMgr::getPersistentProfile, "cJsonValue getPersistentProfile()"),
                operation(&cProfileMgr::getPersistentProfileID, "QString getPersistentProfileID()"),
                operation(&cProfileMgr::setDefaultProfileByID,
                    "void setDefaultProfileByID(QString profileID)", "QString"),
                operation(&cProfileMgr::getDefaultProfile, "cJsonValue getDefaultProfile()"),
                operation(&cProfileMgr::getDefaultProfileID, "QString getDefaultProfileID()"),
                operation(&cProfileMgr::isDefaultConfiguration,
                    "bool isDefaultConfiguration(QString profileID)", "const QString"),
                operation(&cProfileMgr::profiles, "cJsonValue profiles()"),
                operation(&cProfileMgr::addMacro, "bool addMacro(QString profileID, cJsonValue macro)",
                    "QString, const cJsonValue"),
                operation(&cProfileMgr::copyMacros,
                    "bool copyMacros(QString fromProfileID, QString toProfileID, QStringList macroIDs)",
                    "const QString, const QString, const QStringList"),
                operation(&cProfileMgr::deleteMacro, "bool deleteMacro(QString profileID, cJsonValue macro)",
                    "QString, const cJsonValue"),
                operation(&cProfileMgr::editMacro, "bool editMacro(QString profileID, cJsonValue macro)",
                    "QString, const cJsonValue"),
                operation(&cProfileMgr::macros, "cJsonValue macros(QString profileID)", "QString"),
                operation(&cProfileMgr::getMacroByID,
                    "cJsonValue getMacroByID(QString profileID, QString macroID)", "QString, QString"),
                operation(&cProfileMgr::getAssignment,
                    "QString getAssignment(QString profileID, QString devicemodal, MKey::MKey_t mode, "
                    "QString contextID)",
                    "QString, QString, MKey::MKey_t, const QString"),
                operation(&cProfileMgr::setAssignment,
                    "void setAssignment(QString profileID, QString devicemodal, QString macroID, "
                    "MKey::MKey_t mode, QString contextID)",
                    "QString, QString, QString, MKey::MKey_t, const QString"),
                operation(&cProfileMgr::setGenericAssignment,
                    "void setGenericAssignment(QString profileID, QString devicemodal, QString type, QString "
                    "name, bool hidden, MKey::MKey_t mode, QString contextID)",
                    "QString, QString, QString, QString, bool, MKey::MKey_t, const QString"),
                operation(&cProfileMgr::removeAssignment,
                    "void removeAssignment(QString profileID, QString devicemodal, MKey::MKey_t mode, "
                    "QString contextID)",
                    "QString, QString, MKey::MKey_t, const QString"),
                operation(&cProfileMgr::isMacroAssigned,
                    "bool isMacroAssigned(QString profileID, QString devCategory, QStringList contextIDs, "
                    "QString macroID)",
                    "const QString, const QString, const QStringList, const QString"),
                operation(&cProfileMgr::saveAllProfiles, "bool saveAllProfiles()"),
                operation(&cProfileMgr::saveProfile, "bool saveProfile(QString profileID)", "const QString"),
                operation(
                    &cProfileMgr::addMouseMacro, "bool addMouseMacro(QString profileID)", "const QString"),
                operation(&cProfileMgr::addJoystickMacro, "bool addJoystickMacro(QString profileID)",
                    "const QString"),
                operation(&cProfileMgr::setProfileScript,
                    "bool setProfileScript(QString profileID, QString script)",
                    "const QString, const QString"),
                operation(&cProfileMgr::getProfileScript, "QString getProfileScript(QString profileID)",
                    "const QString"),
                operation(&cProfileMgr::getProfileName, "QString getProfileName(QString profileID)",
                    "const QString"),
                operation(&cProfileMgr::getProfileDeviceId, "QString getProfileDeviceId(QString profileID)",
                    "const QString"),
                operation(&cProfileMgr::getProfilesToGoXML,
                    "QByteArray getProfilesToGoXML(QString deviceId, bool dirtyOnly, QStringList "
                    "localProfileIds)",
                    "const QString, bool, const QStringList"),
                operation(&cProfileMgr::getProfilesToGo, "cJsonValue getProfilesToGo(QString deviceId)",
                    "const QString"),
                operation(&cProfileMgr::isProfileToGoDirty, "bool isProfileToGoDirty(QString profileID)",
                    "const QString"),
                operation(&cProfileMgr::testProfile, "void testProfile(QString profileID)", "const QString"),
                operation(&cProfileMgr::getMacroByTypeAndName,
                    "cJsonValue getMacroByTypeAndName(QString profileID, QString macroType, QString "
                    "macroName, bool hidden)",
                    "const QString, const QString, const QString, bool"),
                operation(&cProfileMgr::moveAssignments,
                    "void moveAssignments(QString profileID, QString fromMacroID, QString toMacroID)",
                    "const QString, const QString, const QString"),
                operation(&cProfileMgr::containsDevCategory,
                    "bool containsDevCategory(QString profileID, QString devCategory)",
                    "const QString, const QString"),
                operation(&cProfileMgr::setPointerDpi,
                    "void setPointerDpi(QString profileID, QString deviceModel, cDpiSettings dpi)",
                    "const QString, const QString, const cDpiSettings"),
                operation(&cProfileMgr::setPointerMovement,
                    "void setPointerMovement(QString profileID, QString deviceModel, int speed, bool "
                    "enableAcceleration)",
                    "const QString, const QString, int, bool"),
                operation(&cProfileMgr::setPointerReportRate,
                    "void setPointerReportRate(QString profileID, QString deviceModel, int reportRate)",
                    "const QString, const QString, int"),
                operation(&cProfileMgr::pointerProperties,
                    "cPointerProperties pointerProperties(QString profileID, QString deviceModel)",
                    "const QString, const QString"),
                operation(&cProfileMgr::pointerDpi,
                    "bool pointerDpi(QString profileID, QString deviceModel, cDpiSettings& dpi)",
                    "const QString, const QString, cDpiSettings"),
                operation(&cProfileMgr::pointerMovement,
                    "bool pointerMovement(QString profileID, QString deviceModel, int& speed, bool& "
                    "enableAcceleration)",
                    "const QString, const QString, int, bool"),
                operation(&cProfileMgr::pointerReportRate,
                    "bool pointerReportRate(QString profileID, QString deviceModel, int& reportRate)",
                    "const QString, const QString, int"),
                operation(&cProfileMgr::profileHasBackup,
                    "bool profileHasBackup(QString profileID, QString deviceCategory)",
                    "const QString, const QString"),
                operation(&cProfileMgr::setDefaultAssignment,
                    "void setDefaultAssignment(QString profileID, QString devicemodal, MKey::MKey_t mode, "
                    "QString contextID)",
                    "QString, QString, MKey::MKey_t, const QString"),
                operation(&cProfileMgr::cleanupBackup,
                    "void cleanupBackup(QString profileID, QString devicemodal)", "QString, QString"),
                operation(&cProfileMgr::assignmentHasBackup,
                    "bool assignmentHasBackup(QString profileID, QString devicemodal, MKey::MKey_t mode, "
                    "QString contextID)",
                    "const QString, const QString, MKey::MKey_t, const QString"),
                operation(&cProfileMgr::setProfileIcon,
                    "void setProfileIcon(QString profileID, QPixmap scaledIcon)",
                    "const QString, const QPixmap"),
                operation(
                    &cProfileMgr::profileIcon, "QPixmap profileIcon(QString profileID)", "const QString"),
                operation(
                    &cProfileMgr::hasCustomIcon, "bool hasCustomIcon(QString profileID)", "const QString"),
                operation(&cProfileMgr::canMacroBeAssignedTo,
                    "bool canMacroBeAssignedTo(QString macroID, QString profileID, QString deviceCategory, "
                    "MKey::MKey_t mode, QString contextID)",
                    "const QString, const QString, const QString, MKey::MKey_t, const QString"),
                operation(&cProfileMgr::canMacroBeChangedTo,
                    "bool canMacroBeChangedTo(QString profileID, QString macroID, cJsonValue newMacro)",
                    "const QString, const QString, cJsonValue"),
                operation(&cProfileMgr::enableProfileBackup,
                    "bool enableProfileBackup(QString profileID, bool enable)", "const QString, bool"),
                operation(&cProfileMgr::profileIDs, "QStringList profileIDs()"),
            }),
        service<IMacroTypeMgr, cMacroTypeMgr>("Profiler.MacroTypeMgr",
            {
                operation(&cMacroTypeMgr::registerMacroType,
                    "bool registerMacroType(cMacroTypePtr macroType)", "cMacroTypePtr"),
                operation(&cMacroTypeMgr::unregisterMacroType,
                    "bool unregisterMacroType(cMacroTypePtr macroType)", "cMacroTypePtr"),
                operation(&cMacroTypeMgr::getMacroTypeByID,
                    "cMacroTypePtr getMacroTypeByID(QString macroTypeID)", "QString"),
                operation(&cMacroTypeMgr::getAllMacroTypes, "IMacroTypePtrList getAllMacroTypes()"),
                operation(&cMacroTypeMgr::getMacroTypesByControlTypeID,
                    "IMacroTypePtrList getMacroTypesByControlTypeID(QString controlTypeID)", "QString"),
                operation(&cMacroTypeMgr::getControlTypeIDsByMacroType,
                    "QList<QString> getControlTypeIDsByMacroType(cJsonValue macroType)", "cJsonValue"),
            }),
        service<IProfiler, cProfiler>("Profiler.Profiler",
            {
                operation(qOverload<GKey::GKey_t>(&cProfiler::toContextId),
                    "QString toContextId(GKey::GKey_t gkey)", "GKey::GKey_t"),
                operation(qOverload<GenericButton::GenericButton_t>(&cProfiler::toContextId),
                    "QString toContextId(GenericButton::GenericButton_t button)",
                    "GenericButton::GenericButton_t"),
                operation(
                    &cProfiler::stringToGKey, "GKey::GKey_t stringToGKey(QString name)", "const QString"),
                operation(
                    &cProfiler::gKeyToString, "QString gKeyToString(GKey::GKey_t gkey)", "GKey::GKey_t"),
                operation(
                    &cProfiler::stringToMKey, "MKey::MKey_t stringToMKey(QString name)", "const QString"),
                operation(
                    &cProfiler::mKeyToString, "QString mKeyToString(MKey::MKey_t mkey)", "MKey::MKey_t"),
                operation(&cProfiler::getMState, "MKey::MKey_t getMState(QString category)", "const QString"),
                operation(&cProfiler::setMState, "bool setMState(QString category, MKey::MKey_t mkey)",
                    "const QString, MKey::MKey_t"),
                operation(&cProfiler::playScriptingMacroByName,
                    "bool playScriptingMacroByName(QString profileID, QString macroName)",
                    "const QString, const QString"),
                operation(&cProfiler::abortScriptingMacro, "bool abortScriptingMacro()"),
            }),
        service<IMainUI, cMainUI>("MainUI.MainUI",
            {
                operation(&cMainUI::setVisible, "void setVisible(bool visible)", "bool"),
                operation(&cMainUI::window, "QWidget* window()"),
                operation(&cMainUI::saveScreenshot, "void saveScreenshot(QString fileName)", "const QString"),
                operation(&cMainUI::raiseDeviceBar, "void raiseDeviceBar()"),
                operation(&cMainUI::isDeviceBarUnderMouse, "bool isDeviceBarUnderMouse()"),
                operation(&cMainUI::getActiveDeviceId, "QString getActiveDeviceId()"),
                operation(&cMainUI::warning, "void warning(QString titleText, QString warningText)",
                    "const QString, const QString"),
                operation(&cMainUI::yesno, "bool yesno(QString titleText, QString questionText)",
                    "const QString, const QString"),
                operation(&cMainUI::conflict,
                    "ConflictResolution::ConflictResolution_t conflict(QString titleText, QString "
                    "descriptionText, QString itemText, QString replaceText, QString doNothingText, QString "
                    "duplicateText)",
                    "const QString, const QString, const QString, const QString, const QString, const "
                    "QString"),
                operation(&cMainUI::info, "void info(QString titleText, QString messageText)",
                    "const QString, const QString"),
            }),
        service<IFeatureViewMgr, cFeatureViewMgr>("MainUI.FeatureViewMgr",
            {
                operation(
                    &cFeatureViewMgr::registerView, "bool registerView(IFeatureView* view)", "IFeatureView*"),
                operation(&cFeatureViewMgr::unregisterView, "bool unregisterView(IFeatureView* provider)",
                    "IFeatureView*"),
                operation(&cFeatureViewMgr::init, "bool init(cJsonValue viewInfo)", "cJsonValue"),
                operation(&cFeatureViewMgr::activate, "bool activate(cJsonValue viewInfo)", "cJsonValue"),
                operation(&cFeatureViewMgr::views, "cJsonValue views()"),
                operation(&cFeatureViewMgr::getRegisteredViewsForDevice,
                    "cJsonValue getRegisteredViewsForDevice(QString deviceModel)", "QString"),
            }),
        service<IMainApp, cMainApp>("MainApp.MainApp",
            {
                operation(&cMainApp::execute, "void execute(bool launchUpdateWizard)", "bool"),
                operation(&cMainApp::winRegisterDeviceChange, "void winRegisterDeviceChange(QUuid classGuid)",
                    "const QUuid"),
                operation(&cMainApp::winRegisterDeviceHandleChange,
                    "Qt::HANDLE winRegisterDeviceHandleChange(Qt::HANDLE fileHandle)", "Qt::HANDLE"),
                operation(&cMainApp::winUnregisterDeviceHandleChange,
                    "void winUnregisterDeviceHandleChange(Qt::HANDLE changeHandle)", "Qt::HANDLE"),
                operation(&cMainApp::mainWidget, "QWidget* mainWidget()"),
                operation(&cMainApp::loadStyleSheet, "void loadStyleSheet()"),
                operation(&cMainApp::launchUpdateWizard, "void launchUpdateWizard()"),
                operation(&cMainApp::setModalLock, "void setModalLock(bool enable)", "bool"),
                operation(&cMainApp::inForeground, "bool inForeground()"),
                operation(&cMainApp::showTrayMessage,
                    "bool showTrayMessage(QString title, QString message, MessageIcon::MessageIcon_t icon, "
                    "int msecs, int cookie)",
                    "const QString, const QString, MessageIcon::MessageIcon_t, int, int"),
                operation(&cMainApp::foregroundApp, "QString foregroundApp()"),
            }),
        service<IDevMgr, cDevMgr>("DevMgr.DevMgr",
            {
                operation(&cDevMgr::enumerate, "cJsonValue enumerate(cJsonValue filter)", "const cJsonValue"),
                operation(&cDevMgr::writeProperty, "void writeProperty(cJsonValue filter, cJsonValue prop)",
                    "const cJsonValue, const cJsonValue"),
                operation(&cDevMgr::writeBlob,
                    "void writeBlob(cJsonValue filter, cJsonValue blob, QByteArray data)",
                    "const cJsonValue, const cJsonValue, const QByteArray"),
                operation(&cDevMgr::readState,
                    "cJsonValue readState(cJsonValue deviceid, cJsonValue properties)",
                    "const cJsonValue, const cJsonValue"),
                operation(&cDevMgr::metaData, "QDomElement metaData(QString deviceModel)", "const QString"),
                operation(
                    &cDevMgr::findDevice, "cAbstractDevicePtr findDevice(QString uid)", "const QString"),
                operation(&cDevMgr::findDevices, "cAbstractDeviceList findDevices(cJsonValue filter)",
                    "const cJsonValue"),
            }),
        service<ISettings, cSettings>("VGFSettings.Settings",
            {
                operation(&cSettings::getProperty, "cJsonValue getProperty(QString path)", "const QString"),
                operation(qOverload<const QString&>(&cSettings::getPropertyInt),
                    "int getPropertyInt(QString path)", "const QString"),
                operation(qOverload<const QString&, int>(&cSettings::getPropertyInt),
                    "int getPropertyInt(QString path, int defaultValue)", "const QString, int"),
                operation(qOverload<const QString&>(&cSettings::getPropertyBool),
                    "bool getPropertyBool(QString path)", "const QString"),
                operation(qOverload<const QString&, bool>(&cSettings::getPropertyBool),
                    "bool getPropertyBool(QString path, bool defaultValue)", "const QString, bool"),
                operation(qOverload<const QString&>(&cSettings::getPropertyString),
                    "QString getPropertyString(QString path)", "const QString"),
                operation(qOverload<const QString&, const QString&>(&cSettings::getPropertyString),
                    "QString getPropertyString(QString path, QString defaultValue)",
                    "const QString, const QString"),
                operation(&cSettings::getPropertyKeys, "QStringList getPropertyKeys(QString path)",
                    "const QString"),
                operation(&cSettings::setPropertyInt, "void setPropertyInt(QString path, int val)",
                    "const QString, int"),
                operation(&cSettings::setPropertyBool, "void setPropertyBool(QString path, bool val)",
                    "const QString, bool"),
                operation(&cSettings::setPropertyString, "void setPropertyString(QString path, QString val)",
                    "const QString, const QString"),
                operation(&cSettings::setProperty, "void setProperty(QString path, cJsonValue val)",
                    "const QString, const cJsonValue"),
                operation(&cSettings::removeProperty, "void removeProperty(QString path)", "const QString"),
                operation(&cSettings::addListener,
                    "void addListener(QString path, QObject* receiver, const char* slotToCall)",
                    "const QString, QObject *, const char *"),
                operation(&cSettings::removeListener, "void removeListener(QObject* receiver)", "QObject *"),
            }),
        service<IHelpMgr, cHelpMgr>("Help.HelpMgr",
            {
                operation(&cHelpMgr::registerHelp,
                    "bool registerHelp(QString helpID, QString helpUrl, QString helpFilePath)",
                    "QString, QString, QString"),
                operation(&cHelpMgr::unRegisterHelp, "bool unRegisterHelp(QString helpFilePath)", "QString"),
                operation(
                    &cHelpMgr::LaunchHelpByViewID, "void LaunchHelpByViewID(QString helpID)", "QString"),
                operation(&cHelpMgr::LaunchHelp, "void LaunchHelp(QString section, QString topic)",
                    "QString, QString"),
                operation(&cHelpMgr::unloadHelp, "void unloadHelp()"),
            }),
        service<IProfilesToGo, cProfilesToGo>("ProfilesToGo",
            {
                operation(
                    &cProfilesToGo::getProfiles, "cJsonValue getProfiles(QString deviceId)", "const QString"),
                operation(&cProfilesToGo::shortDeviceName, "QString shortDeviceName(QString deviceId)",
                    "const QString"),
                operation(
                    &cProfilesToGo::commitDevice, "void commitDevice(QString deviceId)", "const QString"),
                operation(&cProfilesToGo::commitAllDevices, "void commitAllDevices()"),
                operation(&cProfilesToGo::commitAllDevicesAndWait, "void commitAllDevicesAndWait()"),
                operation(&cProfilesToGo::memoryUsed, "int memoryUsed(QString deviceId)", "const QString"),
                operation(
                    &cProfilesToGo::isDeviceBusy, "bool isDeviceBusy(QString deviceId)", "const QString"),
                operation(&cProfilesToGo::isDeviceBusyReading, "bool isDeviceBusyReading(QString deviceId)",
                    "const QString"),
                operation(&cProfilesToGo::isDeviceBusyWriting, "bool isDeviceBusyWriting(QString deviceId)",
                    "const QString"),
                operation(&cProfilesToGo::isSpaceAvailable,
                    "bool isSpaceAvailable(QString deviceId, QStringList profileIds)",
                    "const QString, const QStringList"),
            }),
        service<ILCDMon, cLCDMon>("LCDMon.LCDMon",
            {
                operation(&cLCDMon::deviceSettings, "cDeviceSettingsPtr deviceSettings(QString deviceModel)",
                    "const QString"),
                operation(&cLCDMon::appletsOnDevice,
                    "cAppletOnDeviceListPtr appletsOnDevice(QString deviceModel)", "const QString"),
                operation(&cLCDMon::lcdDevices, "cLCDDeviceListPtr lcdDevices()"),
                operation(&cLCDMon::lastBitmapSent, "cLCDBitmapPtr lastBitmapSent(QString deviceModel)",
                    "const QString"),
            }),
        service<ILuaScript, cLuaScript>("LuaScript.LuaScript",
            {
                operation(&cLuaScript::showEditor, "void showEditor(bool visible, QString profileID)",
                    "bool, const QString"),
                operation(&cLuaScript::run, "bool run(QString profileID, QString script)",
                    "const QString, const QString"),
                operation(&cLuaScript::stop, "void stop()"),
            }),
        service<IECMAScriptMgr, cECMAScript>("ECMAScript.ECMAScriptMgr",
            {
                operation(&cECMAScript::evaluate, "QScriptValue evaluate(QString program)", "const QString"),
                operation(&cECMAScript::newObject, "void newObject(QObject* obj, QString varName)",
                    "QObject *, const QString"),
                operation(&cECMAScript::engine, "QScriptEngine* engine()"),
            }),
    };
    return table;
}

} // namespace ServiceTable
