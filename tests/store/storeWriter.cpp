// A process that writes profiles until it is killed. It prints the number of each round before it begins with
// it.

#include "RandomProfiles.h"

#include <ProfileStore.h>

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString folder = QCoreApplication::arguments().value(1);
    std::map<QString, Profile> profiles;
    ProfileStore store(folder, {}, [&](const QString& id) {
        const auto found = profiles.find(id.toUpper());
        return found == profiles.end() ? nullptr : &found->second;
    });
    int last = 0;
    for (const Profile& profile : store.readAll()) {
        last = qMax(last, profile.properties["round"].toInt());
        profiles[profile.uid().toUpper()] = profile;
    }
    RandomProfiles random(1);
    for (int i = 0; i < 5; ++i) {
        const Profile profile = random.profile();
        profiles.insert({profile.uid().toUpper(), profile});
    }
    for (int round = last + 1;; ++round) {
        std::printf("%d\n", round);
        std::fflush(stdout);
        for (auto& entry : profiles) {
            entry.second.properties["round"] = round;
            store.markChanged(entry.first);
        }
        if (!store.writeNow())
            return 1;
    }
}
