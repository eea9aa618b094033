#include "cProfilerService.h"

#include "ICommandPlayer.h"

#include <EventNames.h>
#include <IServiceMgr.h>
#include <ModeNames.h>

namespace {

/// A number in a range as its prefix and digits, empty for any other.
QString numbered(QLatin1Char prefix, int number, int first, int last)
{
    return number < first || number > last ? QString() : prefix + QString::number(number);
}

} // namespace

QString cProfilerService::toContextId(GKey::GKey_t gkey)
{
    return gKeyToString(gkey);
}

QString cProfilerService::toContextId(GenericButton::GenericButton_t button)
{
    return numbered(QLatin1Char('B'), button, GenericButton::First, GenericButton::Last);
}

GKey::GKey_t cProfilerService::stringToGKey(const QString& name)
{
    for (int number = GKey::First; number <= GKey::Last; ++number) {
        const auto key = GKey::GKey_t(number);
        if (gKeyToString(key) == name)
            return key;
    }
    return GKey::None;
}

QString cProfilerService::gKeyToString(GKey::GKey_t gkey)
{
    return numbered(QLatin1Char('G'), gkey, GKey::First, GKey::Last);
}

MKey::MKey_t cProfilerService::stringToMKey(const QString& name)
{
    return ModeNames::fromText(name);
}

QString cProfilerService::mKeyToString(MKey::MKey_t mkey)
{
    return ModeNames::toText(mkey);
}

MKey::MKey_t cProfilerService::getMState(const QString& category)
{
    return m_states.value(category, MKey::M1);
}

bool cProfilerService::setMState(const QString& category, MKey::MKey_t mkey)
{
    if (int(mkey) < 0 || int(mkey) >= ModeNames::Count || getMState(category) == mkey)
        return false;
    m_states[category] = mkey;
    IServiceMgr::instance()->publish(EventSources::Profiler, Events::MStateChanged,
        QGenericArgument("MKey::MKey_t", &mkey), QGenericArgument("QString", &category));
    return true;
}

bool cProfilerService::playScriptingMacroByName(const QString& profileID, const QString& macroName)
{
    return m_player && m_player->play(profileID, macroName);
}

bool cProfilerService::abortScriptingMacro()
{
    return m_player && m_player->abort();
}
