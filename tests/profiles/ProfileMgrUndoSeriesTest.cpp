#include "ProfilesTestCase.h"

#include <QRandomGenerator>

using namespace TestIds;

/// Undo and redo of long series of all that changes profiles.
class ProfileMgrUndoSeriesTest : public ProfilesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void randomSeriesGoesBackAndForth_data();
    void randomSeriesGoesBackAndForth();

private:
    void randomOperation(QRandomGenerator& random);
};

void ProfileMgrUndoSeriesTest::randomOperation(QRandomGenerator& random)
{
    const auto number = [&](int below) {
        return random.bounded(below);
    };
    const QStringList ids = profiles().profileIDs();
    const QString& id = ids[number(ids.size())];
    const QString& other = ids[number(ids.size())];
    const Profile* const chosen = service().book().find(id);
    const auto someMacro = [&] {
        return chosen->macros.empty() ? macro("{none}", "None")
                                      : chosen->macros[std::size_t(number(int(chosen->macros.size())))];
    };
    const QString macroId = someMacro()["uid"].toString();
    const QString category = number(2) ? Mouse : QStringLiteral("Keyboard");
    const auto mode = MKey::MKey_t(number(3));
    const QString control = QStringLiteral("G%1").arg(1 + number(4));
    const QString text = QStringLiteral("t%1 & <%2>").arg(number(1000)).arg(QChar(0x20ac));
    cJsonValue record = profiles().getProfileByID(id);
    QPixmap icon(2, 2);
    icon.fill(QColor::fromRgb(random.generate()));
    switch (number(19)) {
    case 0:
        profiles().addProfile(profile(QUuid::createUuid().toString(), text));
        break;
    case 1:
        if (ids.size() > 4)
            profiles().deleteProfileByID(id);
        break;
    case 2:
        profiles().copyProfile(id);
        break;
    case 3:
        profiles().exportProfile(id, path("series.xml"));
        profiles().importProfile(path("series.xml"));
        break;
    case 4:
        record["description"] = text;
        profiles().editProfileProperty(record);
        break;
    case 5:
        profiles().setProfileScript(id, text);
        break;
    case 6:
        profiles().setProfileIcon(id, number(3) ? icon : QPixmap());
        break;
    case 7:
    case 8:
        profiles().addMacro(id, macro(QUuid::createUuid().toString(), text));
        break;
    case 9:
        profiles().deleteMacro(id, someMacro());
        break;
    case 10: {
        cJsonValue edited = someMacro();
        edited["display_name"] = text;
        profiles().editMacro(id, edited);
        break;
    }
    case 11:
        profiles().copyMacros(id, other, {macroId, someMacro()["uid"].toString()});
        break;
    case 12:
    case 13:
        profiles().setAssignment(id, category, macroId, mode, control);
        break;
    case 14:
        profiles().removeAssignment(id, category, mode, control);
        break;
    case 15:
        profiles().setGenericAssignment(
            id, category, MacroNamespaces::MouseFunction, "Back", true, mode, control);
        break;
    case 16:
        for (const char* each : {"G1", "G2", "G3", "G4"})
            profiles().setDefaultAssignment(id, category, mode, each);
        if (number(2))
            profiles().cleanupBackup(id, category);
        break;
    case 17:
        profiles().moveAssignments(id, macroId, someMacro()["uid"].toString());
        break;
    default:
        profiles().setPointerMovement(id, "Mouse.A", 1 + number(20), number(2) != 0);
    }
}

void ProfileMgrUndoSeriesTest::randomSeriesGoesBackAndForth_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 2; ++seed)
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

void ProfileMgrUndoSeriesTest::randomSeriesGoesBackAndForth()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    QVERIFY(profiles().saveAllProfiles());
    const QByteArray firstOnDisk = snapshot();
    // What the profiles were after each step.
    std::vector<QByteArray> states {content()};
    for (int i = 0; i < 80; ++i) {
        for (int n = 1 + random.bounded(3); n > 0; --n)
            randomOperation(random);
        endTurn();
        if (content() != states.back())
            states.push_back(content());
    }
    QVERIFY(states.size() > 50);
    QVERIFY(profiles().saveAllProfiles());
    const QByteArray lastOnDisk = snapshot();

    for (int round = 0; round < 2; ++round) {
        std::size_t state = states.size() - 1;
        while (history().canUndo()) {
            service().undo();
            // A step may have changed nothing in the end.
            if (content() != states[state])
                --state;
            QCOMPARE(content(), states[state]);
        }
        QCOMPARE(state, std::size_t(0));
        QVERIFY(profiles().saveAllProfiles());
        QCOMPARE(snapshot(), firstOnDisk);
        while (history().canRedo()) {
            service().redo();
            if (content() != states[state])
                ++state;
            QCOMPARE(content(), states[state]);
        }
        QCOMPARE(state, states.size() - 1);
        QVERIFY(profiles().saveAllProfiles());
        QCOMPARE(snapshot(), lastOnDisk);
    }
    restart();
    QVERIFY(takeProblems().isEmpty());
}

VELTRANO_TEST_MAIN(ProfileMgrUndoSeriesTest)
#include "ProfileMgrUndoSeriesTest.moc"
