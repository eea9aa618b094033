#include "ServiceInterfaces.h"

#include <IDevMgr.h>
#include <IECMAScriptMgr.h>
#include <IFeatureView.h>
#include <IFeatureViewMgr.h>
#include <IHelpMgr.h>
#include <ILCDMon.h>
#include <ILuaScript.h>
#include <IMacroTypeMgr.h>
#include <IMainApp.h>
#include <IMainUI.h>
#include <IProfileBar.h>
#include <IProfileMgr.h>
#include <IProfiler.h>
#include <IProfilesToGo.h>
#include <ISettings.h>
#include <ServiceNames.h>

#include <QHash>
#include <QMetaClassInfo>
#include <QWidget>

const QMetaObject* serviceInterface(const QString& serviceName)
{
    static const QHash<QString, const QMetaObject*> interfaces {
        {ServiceNames::ProfileMgr, &IProfileMgr::staticMetaObject},
        {ServiceNames::MacroTypeMgr, &IMacroTypeMgr::staticMetaObject},
        {ServiceNames::Profiler, &IProfiler::staticMetaObject},
        {ServiceNames::MainUI, &IMainUI::staticMetaObject},
        {ServiceNames::FeatureViewMgr, &IFeatureViewMgr::staticMetaObject},
        {ServiceNames::MainApp, &IMainApp::staticMetaObject},
        {ServiceNames::DevMgr, &IDevMgr::staticMetaObject},
        {ServiceNames::Settings, &ISettings::staticMetaObject},
        {ServiceNames::HelpMgr, &IHelpMgr::staticMetaObject},
        {ServiceNames::ProfilesToGo, &IProfilesToGo::staticMetaObject},
        {ServiceNames::LCDMon, &ILCDMon::staticMetaObject},
        {ServiceNames::LuaScript, &ILuaScript::staticMetaObject},
        {ServiceNames::ECMAScriptMgr, &IECMAScriptMgr::staticMetaObject},
    };
    return interfaces.value(serviceName);
}

QString serviceNameOf(const QObject* object)
{
    if (!object)
        return QStringLiteral("null");
    const QMetaObject* type = object->metaObject();
    const int index = type->indexOfClassInfo("service");
    return index < 0 ? QString() : QString::fromUtf8(type->classInfo(index).value());
}

void registerServiceTypes()
{
    qRegisterMetaType<cJsonValue>("cJsonValue");
    qRegisterMetaType<QDomElement>("QDomElement");
    qRegisterMetaType<QList<QString>>("QList<QString>");
    qRegisterMetaType<Qt::HANDLE>("Qt::HANDLE");
    qRegisterMetaType<QScriptValue>("QScriptValue");
    qRegisterMetaType<QScriptEngine*>("QScriptEngine*");
    qRegisterMetaType<QWidget*>("QWidget*");
    qRegisterMetaType<IFeatureView*>("IFeatureView*");
    qRegisterMetaType<IProfileBar*>("IProfileBar*");
    qRegisterMetaType<MKey::MKey_t>("MKey::MKey_t");
    qRegisterMetaType<GKey::GKey_t>("GKey::GKey_t");
    qRegisterMetaType<GenericButton::GenericButton_t>("GenericButton::GenericButton_t");
    qRegisterMetaType<MessageIcon::MessageIcon_t>("MessageIcon::MessageIcon_t");
    qRegisterMetaType<ConflictResolution::ConflictResolution_t>("ConflictResolution::ConflictResolution_t");
    qRegisterMetaType<cDpiSettings>("cDpiSettings");
    qRegisterMetaType<cPointerProperties>("cPointerProperties");
    qRegisterMetaType<cMacroTypePtr>("cMacroTypePtr");
    qRegisterMetaType<IMacroTypePtrList>("IMacroTypePtrList");
    qRegisterMetaType<cAbstractDevicePtr>("cAbstractDevicePtr");
    qRegisterMetaType<cAbstractDeviceList>("cAbstractDeviceList");
    qRegisterMetaType<cDeviceSettingsPtr>("cDeviceSettingsPtr");
    qRegisterMetaType<cAppletOnDeviceListPtr>("cAppletOnDeviceListPtr");
    qRegisterMetaType<cLCDDeviceListPtr>("cLCDDeviceListPtr");
    qRegisterMetaType<cLCDBitmapPtr>("cLCDBitmapPtr");
}
