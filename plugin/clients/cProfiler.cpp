#include "cProfiler.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cProfiler::cProfiler()
{
    requireService(ServiceNames::Profiler);
}

QString cProfiler::toContextId(GKey::GKey_t gkey)
{
    return askService<QString>(
        ServiceNames::Profiler, "toContextId", "QString", tagged("GKey::GKey_t", gkey));
}

QString cProfiler::toContextId(GenericButton::GenericButton_t button)
{
    return askService<QString>(
        ServiceNames::Profiler, "toContextId", "QString", tagged("GenericButton::GenericButton_t", button));
}

GKey::GKey_t cProfiler::stringToGKey(const QString& name)
{
    return askService<GKey::GKey_t>(
        ServiceNames::Profiler, "stringToGKey", "GKey::GKey_t", tagged("const QString", name));
}

QString cProfiler::gKeyToString(GKey::GKey_t gkey)
{
    return askService<QString>(
        ServiceNames::Profiler, "gKeyToString", "QString", tagged("GKey::GKey_t", gkey));
}

MKey::MKey_t cProfiler::stringToMKey(const QString& name)
{
    return askService<MKey::MKey_t>(
        ServiceNames::Profiler, "stringToMKey", "MKey::MKey_t", tagged("const QString", name));
}

QString cProfiler::mKeyToString(MKey::MKey_t mkey)
{
    return askService<QString>(
        ServiceNames::Profiler, "mKeyToString", "QString", tagged("MKey::MKey_t", mkey));
}

MKey::MKey_t cProfiler::getMState(const QString& category)
{
    return askService<MKey::MKey_t>(
        ServiceNames::Profiler, "getMState", "MKey::MKey_t", tagged("const QString", category));
}

bool cProfiler::setMState(const QString& category, MKey::MKey_t mkey)
{
    return askService<bool>(ServiceNames::Profiler, "setMState", "bool", tagged("const QString", category),
        tagged("MKey::MKey_t", mkey));
}

bool cProfiler::playScriptingMacroByName(const QString& profileID, const QString& macroName)
{
    return askService<bool>(ServiceNames::Profiler, "playScriptingMacroByName", "bool",
        tagged("const QString", profileID), tagged("const QString", macroName));
}

bool cProfiler::abortScriptingMacro()
{
    return askService<bool>(ServiceNames::Profiler, "abortScriptingMacro", "bool");
}
