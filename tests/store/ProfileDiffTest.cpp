#include "RandomProfiles.h"

#include <ProfileBook.h>
#include <ProfileDiff.h>
#include <ProfileDocument.h>
#include <TestCase.h>

using namespace ProfileChanges;

/// From one state of a profile to another.
class ProfileDiffTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void profileBecomesTheOther();
    void equalProfilesNeedNoChange();
    void movedCommandsAreNotAnnounced();
    void onlyWhatDiffersIsAnnounced();
};

namespace {

QByteArray text(const Profile& profile)
{
    return ProfileDocument::write({profile}, {});
}

/// Another profile of the same id that shares some of the commands.
Profile relative(const Profile& profile, RandomProfiles& random)
{
    Profile other = random.profile();
    other.properties["uid"] = profile.uid();
    for (const cJsonValue& macro : profile.macros) {
        cJsonValue kept = macro;
        if (random.coin())
            kept["name"] = random.text();
        const auto place = other.macros.begin() + random.number(int(other.macros.size()) + 1);
        if (random.coin())
            other.macros.insert(place, kept);
        if (random.coin())
            other.assignments[{"c", MKey::M1, random.text()}] = macro["uid"].toString();
    }
    return other;
}

Profile withMacros(const QStringList& ids)
{
    Profile profile;
    profile.properties["uid"] = "{1}";
    for (const QString& id : ids) {
        cJsonValue macro;
        macro["uid"] = id;
        profile.macros.push_back(macro);
    }
    return profile;
}

} // namespace

void ProfileDiffTest::profileBecomesTheOther()
{
    RandomProfiles random(5);
    for (int i = 0; i < 300; ++i) {
        const Profile from = random.profile();
        const Profile to = relative(from, random);
        ProfileBook book;
        book.apply({{InsertProfile {from, -1}}});
        const auto outcome = book.apply({ProfileDiff::changes(from, to)});
        QCOMPARE(text(*book.find(from.uid())), text(to));
        book.apply(outcome.inverse);
        QCOMPARE(text(*book.find(from.uid())), text(from));
    }
}

void ProfileDiffTest::equalProfilesNeedNoChange()
{
    RandomProfiles random(6);
    for (int i = 0; i < 50; ++i) {
        const Profile profile = random.profile();
        ProfileBook book;
        book.apply({{InsertProfile {profile, -1}}});
        QVERIFY(book.apply({ProfileDiff::changes(profile, profile)}).inverse.changes.empty());
    }
}

void ProfileDiffTest::movedCommandsAreNotAnnounced()
{
    const Profile from = withMacros({"a", "b", "c"});
    const Profile to = withMacros({"c", "a", "b"});
    ProfileBook book;
    book.apply({{InsertProfile {from, -1}}});
    const auto outcome = book.apply({ProfileDiff::changes(from, to)});
    QVERIFY(outcome.events.empty());
    QCOMPARE(text(*book.find("{1}")), text(to));
}

void ProfileDiffTest::onlyWhatDiffersIsAnnounced()
{
    Profile from = withMacros({"a", "b"});
    from.assignments[{"c", MKey::M1, "G1"}] = "a";
    from.assignments[{"c", MKey::M1, "G2"}] = "b";
    Profile to = withMacros({"a", "n"});
    to.assignments[{"c", MKey::M1, "G1"}] = "a";
    to.assignments[{"c", MKey::M1, "G2"}] = "n";
    ProfileBook book;
    book.apply({{InsertProfile {from, -1}}});
    const std::vector<ProfileEvent> events = book.apply({ProfileDiff::changes(from, to)}).events;
    using namespace ProfileEvents;
    QCOMPARE(events.size(), std::size_t(4));
    QVERIFY(std::holds_alternative<MacroDeleted>(events[0]));
    QVERIFY(std::holds_alternative<MacroAdded>(events[1]));
    QCOMPARE(std::get<AssignmentRemoved>(events[2]).macroId, QString("b"));
    QCOMPARE(std::get<MacroAssigned>(events[3]).macroId, QString("n"));
}

VELTRANO_TEST_MAIN(ProfileDiffTest)
#include "ProfileDiffTest.moc"
