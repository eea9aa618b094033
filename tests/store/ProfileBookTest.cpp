#include "RandomProfiles.h"

#include <ProfileBook.h>
#include <ProfileDocument.h>
#include <TestCase.h>

using namespace ProfileChanges;

namespace {

const QString Id = QStringLiteral("{A}");
const ControlKey G1 {QStringLiteral("mouse"), MKey::M1, QStringLiteral("G1")};
const ControlKey G2 {QStringLiteral("mouse"), MKey::M2, QStringLiteral("G2")};

Profile emptyProfile(const QString& uid)
{
    Profile profile;
    profile.properties["uid"] = uid;
    profile.properties["name"] = uid;
    return profile;
}

cJsonValue macro(const QString& uid)
{
    cJsonValue macro;
    macro["uid"] = uid;
    return macro;
}

/// An event as a line.
QString line(const ProfileEvent& event)
{
    using namespace ProfileEvents;
    struct Line
    {
        QString operator()(const ProfileAdded& e) const { return QStringLiteral("added ") + e.profileId; }
        QString operator()(const ProfileDeleted& e) const { return QStringLiteral("deleted ") + e.profileId; }
        QString operator()(const ProfilePropertyChanged& e) const
        {
            return QStringLiteral("changed ") + e.profileId;
        }
        QString operator()(const CurrentProfileSwitched& e) const
        {
            return QStringLiteral("current ") + e.profileId;
        }
        QString operator()(const MacroAdded& e) const
        {
            return QStringLiteral("macro+ ") + e.macro["uid"].toString();
        }
        QString operator()(const MacroDeleted& e) const
        {
            return QStringLiteral("macro- ") + e.macro["uid"].toString();
        }
        QString operator()(const MacroChanged& e) const
        {
            return QStringLiteral("macro* ") + e.macro["uid"].toString();
        }
        QString operator()(const MacroAssigned& e) const
        {
            return e.control.contextId + QStringLiteral(" = ") + e.macroId;
        }
        QString operator()(const AssignmentRemoved& e) const
        {
            return e.control.contextId + QStringLiteral(" - ") + e.macroId;
        }
    };
    return std::visit(Line(), event);
}

QStringList lines(const ProfileBook::Outcome& outcome)
{
    QStringList result;
    for (const ProfileEvent& event : outcome.events)
        result.append(line(event));
    return result;
}

QByteArray content(const ProfileBook& book)
{
    std::vector<Profile> profiles;
    for (const QString& id : book.ids())
        profiles.push_back(*book.find(id));
    QByteArray text = ProfileDocument::write(profiles, {});
    for (const Role role : {Role::Current, Role::Default, Role::Persistent})
        text += book.withRole(role).toUtf8() + '\n';
    return text;
}

/// A change of any kind, most of them to things that are there.
ProfileChange randomChange(RandomProfiles& random, const ProfileBook& book)
{
    const QStringList ids = book.ids();
    const QString id = ids.isEmpty() ? QStringLiteral("none") : ids[random.number(ids.size())];
    const Profile* profile = book.find(id);
    const cJsonValue known = profile && !profile->macros.empty()
        ? profile->macros[std::size_t(random.number(int(profile->macros.size())))]
        : macro(QStringLiteral("none"));
    const ControlKey control = random.coin() ? G1 : G2;
    cJsonValue properties = profile ? profile->properties : cJsonValue();
    cJsonValue changed = known;
    switch (random.number(14)) {
    case 0:
        return InsertProfile {random.profile(), random.number(4) - 1};
    case 1:
        return ids.size() > 6 ? ProfileChange(RemoveProfile {id}) : InsertProfile {random.profile(), -1};
    case 2:
        properties["name"] = random.text();
        return SetProperties {id, properties};
    case 3:
        return InsertMacro {id, random.macro(), random.number(4) - 1};
    case 4:
        return RemoveMacro {id, known["uid"].toString().toLower()};
    case 5:
        changed["name"] = random.text();
        return ReplaceMacro {id, changed};
    case 6:
        return SetAssignment {id, control, random.coin() ? known["uid"].toString() : QString()};
    case 7:
        return SetBackup {id, control, random.coin() ? std::optional<QString>(random.text()) : std::nullopt};
    case 8:
        return SetCategory {id, random.text(), random.coin()};
    case 9:
        return SetIcon {id, random.text().toUtf8()};
    case 10:
        return SetPointer {id, QStringLiteral("m"),
            random.coin() ? std::optional<cPointerProperties>(
                cPointerProperties {{}, random.number(5), random.coin(), 0})
                          : std::nullopt};
    case 11:
        return MoveMacro {id, known["uid"].toString(), random.number(5) - 1};
    case 12:
        return SetExtensions {id, random.profile().extensions};
    default:
        return SetRole {Role(random.number(3)), random.coin() ? id : QString()};
    }
}

} // namespace

class ProfileBookTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void inverseBringsBackWhatWas();
    void assignmentReplacesTheOldOne();
    void deletedCommandIsAnnouncedBeforeItsControls();
    void undoneDeletionAnnouncesTheCommandBeforeItsControls();
    void propertyEventComesOnceAndNotForAGoneProfile();
    void changeWithoutEffectIsNoStep();
    void idsAreComparedWithoutRegardToCase();
    void placesAreKeptByUndo();
};

void ProfileBookTest::inverseBringsBackWhatWas()
{
    RandomProfiles random(11);
    ProfileBook book;
    std::vector<ProfileStep> inverses;
    std::vector<QByteArray> contents {content(book)};
    for (int i = 0; i < 400; ++i) {
        ProfileStep step;
        for (int n = 1 + random.number(3); n > 0; --n)
            step.changes.push_back(randomChange(random, book));
        inverses.push_back(book.apply(step).inverse);
        contents.push_back(content(book));
    }
    QVERIFY(book.ids().size() > 2);
    // Back to the start, forth again and back once more.
    std::vector<ProfileStep> redo;
    for (std::size_t i = inverses.size(); i > 0; --i) {
        redo.push_back(book.apply(inverses[i - 1]).inverse);
        QCOMPARE(content(book), contents[i - 1]);
    }
    for (std::size_t i = redo.size(); i > 0; --i) {
        book.apply(redo[i - 1]);
        QCOMPARE(content(book), contents[redo.size() - i + 1]);
    }
}

void ProfileBookTest::assignmentReplacesTheOldOne()
{
    ProfileBook book;
    book.apply({{InsertProfile {emptyProfile(Id), -1}, InsertMacro {Id, macro("1"), -1},
        InsertMacro {Id, macro("2"), -1}}});
    QCOMPARE(lines(book.apply({{SetAssignment {Id, G1, "1"}}})), QStringList({"G1 = 1"}));
    QCOMPARE(lines(book.apply({{SetAssignment {Id, G1, "2"}}})), QStringList({"G1 - 1", "G1 = 2"}));
    QCOMPARE(lines(book.apply({{SetAssignment {Id, G1, ""}}})), QStringList({"G1 - 2"}));
}

void ProfileBookTest::deletedCommandIsAnnouncedBeforeItsControls()
{
    ProfileBook book;
    book.apply({{InsertProfile {emptyProfile(Id), -1}, InsertMacro {Id, macro("1"), -1},
        SetAssignment {Id, G1, "1"}, SetAssignment {Id, G2, "1"}}});
    const ProfileStep step {{SetAssignment {Id, G1, ""}, SetAssignment {Id, G2, ""}, RemoveMacro {Id, "1"}}};
    QCOMPARE(lines(book.apply(step)), QStringList({"macro- 1", "G1 - 1", "G2 - 1"}));
}

void ProfileBookTest::undoneDeletionAnnouncesTheCommandBeforeItsControls()
{
    ProfileBook book;
    book.apply({{InsertProfile {emptyProfile(Id), -1}, InsertMacro {Id, macro("1"), -1},
        SetAssignment {Id, G1, "1"}}});
    const auto outcome = book.apply({{RemoveMacro {Id, "1"}, SetAssignment {Id, G1, ""}}});
    QCOMPARE(lines(book.apply(outcome.inverse)), QStringList({"macro+ 1", "G1 = 1"}));
}

void ProfileBookTest::propertyEventComesOnceAndNotForAGoneProfile()
{
    ProfileBook book;
    book.apply({{InsertProfile {emptyProfile(Id), -1}, InsertProfile {emptyProfile("{B}"), -1},
        SetRole {Role::Default, Id}}});
    cJsonValue renamed = emptyProfile("{B}").properties;
    renamed["name"] = "New";
    const auto outcome = book.apply({{SetProperties {"{B}", renamed}, SetIcon {"{B}", "png"},
        SetRole {Role::Default, "{B}"}, RemoveProfile {Id}}});
    QCOMPARE(lines(outcome), QStringList({"changed {B}", "deleted {A}"}));
    QCOMPARE(outcome.touched, QSet<QString>({Id, "{B}"}));
    QVERIFY(outcome.rolesChanged);
}

void ProfileBookTest::changeWithoutEffectIsNoStep()
{
    ProfileBook book;
    book.apply({{InsertProfile {emptyProfile(Id), -1}, InsertMacro {Id, macro("1"), -1}}});
    const auto outcome = book.apply({{InsertProfile {emptyProfile(Id), -1}, InsertMacro {Id, macro("1"), -1},
        RemoveMacro {Id, "2"}, ReplaceMacro {Id, macro("1")}, SetAssignment {Id, G1, ""},
        SetProperties {Id, emptyProfile(Id).properties}, RemoveProfile {"{C}"},
        InsertMacro {"{C}", macro("1"), -1}, InsertMacro {Id, cJsonValue(), -1},
        SetRole {Role::Current, "{C}"}}});
    QVERIFY(outcome.inverse.changes.empty());
    QVERIFY(outcome.events.empty());
    QVERIFY(outcome.touched.isEmpty());
    QVERIFY(!outcome.rolesChanged);
}

void ProfileBookTest::idsAreComparedWithoutRegardToCase()
{
    ProfileBook book;
    book.apply({{InsertProfile {emptyProfile("{ab}"), -1}, InsertMacro {"{AB}", macro("cd"), -1},
        SetAssignment {"{Ab}", G1, "cd"}}});
    QVERIFY(book.find("{AB}"));
    QVERIFY(book.findMacro("{aB}", "CD"));
    QCOMPARE(book.controlsOf("{ab}", "CD").size(), std::size_t(1));
    book.apply({{InsertProfile {emptyProfile("{AB}"), -1}}});
    QCOMPARE(book.ids(), QStringList({"{ab}"}));
}

void ProfileBookTest::placesAreKeptByUndo()
{
    ProfileBook book;
    book.apply({{InsertProfile {emptyProfile("{1}"), -1}, InsertProfile {emptyProfile("{2}"), -1},
        InsertProfile {emptyProfile("{3}"), -1}}});
    const auto outcome = book.apply({{RemoveProfile {"{2}"}, RemoveProfile {"{1}"}}});
    QCOMPARE(book.ids(), QStringList({"{3}"}));
    book.apply(outcome.inverse);
    QCOMPARE(book.ids(), QStringList({"{1}", "{2}", "{3}"}));
}

VELTRANO_TEST_MAIN(ProfileBookTest)
#include "ProfileBookTest.moc"
