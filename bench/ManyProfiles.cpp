#include "ManyProfiles.h"

#include <cMultiKeyType.h>
#include <DefaultInputSink.h>
#include <MacroTypeIds.h>
#include <MacroTypes.h>
#include <ProfileStore.h>

#include <QHash>

#include <memory>
#include <vector>

namespace ManyProfiles {

QString uid(int profile, int number)
{
    return QStringLiteral("{%1-0000-0000-0000-%2}")
        .arg(profile, 8, 16, QLatin1Char('0'))
        .arg(number, 12, 16, QLatin1Char('0'))
        .toUpper();
}

ControlKey control(int number)
{
    return {QStringLiteral("Veltrano.Gaming.Keyboard"), MKey::MKey_t(number % 3),
        QStringLiteral("G%1").arg(number % 29 + 1)};
}

Profile make(int number, int commands)
{
    Profile profile;
    profile.properties["uid"] = uid(number, 0);
    profile.properties["name"] = QStringLiteral("Profile %1").arg(number);
    profile.properties["description"] = "Made to be measured";
    for (int i = 1; i <= commands; ++i) {
        const Key first {Qt::Key_A + i % 26, 0};
        const Key second {Qt::Key_0 + i % 10, 0};
        cJsonValue macro;
        macro["uid"] = uid(number, i);
        macro["name"] = QStringLiteral("Command %1").arg(i);
        macro["display_name"] = macro["name"];
        macro["namespace"] = QString(MacroTypeIds::MultiKey);
        macro["hidden"] = false;
        macro["data"] = cMultiKeyType::toData(
            {{true, first, 0}, {true, second, i}, {false, second, 25}, {false, first, 30}});
        profile.macros.push_back(macro);
        profile.assignments[control(i)] = uid(number, i);
    }
    profile.categories.insert(control(0).category);
    return profile;
}

MacroTypeLookup types()
{
    QHash<QString, cMacroTypePtr> byId;
    for (const cMacroTypePtr& type : MacroTypes::all(std::make_shared<DefaultInputSink>()))
        byId[type->info()["uid"].toString()] = type;
    return [byId](const QString& macroNamespace) {
        return byId.value(macroNamespace);
    };
}

void write(const QString& folder, int profiles, int commands)
{
    QHash<QString, Profile> made;
    ProfileStore store(folder, types(), [&](const QString& id) { return &*made.constFind(id); });
    store.readAll();
    for (int i = 0; i < profiles; ++i) {
        made[uid(i, 0)] = make(i, commands);
        store.markChanged(uid(i, 0));
    }
    store.writeNow();
}

} // namespace ManyProfiles
