#include "WineHome.h"

#include <GameLocator.h>
#include <TestCase.h>

namespace {

const QByteArray GameDir = R"("InstallDir"="C:\\Games\\Game")";

/// A signature of the one game that the tests install.
GameSignature signature(const QString& key, const QString& value = QStringLiteral("InstallDir"),
    const QString& executable = QStringLiteral("Game.exe"))
{
    return {key, value, executable};
}

const GameSignature MachineSignature = signature(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Maker\\Game"));
const GameSignature UserSignature = signature(QStringLiteral("HKEY_CURRENT_USER\\Software\\Maker\\Game"));

QString locate(const GameSignature& wanted)
{
    return GameLocator({wanted}, [] { return false; }).locate(wanted);
}

} // namespace

/// Finding games in the registries of Wine prefixes.
class GameLocatorTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keyIsReadFromTheHiveOfItsRoot_data();
    void keyIsReadFromTheHiveOfItsRoot();
    void rootIsComparedWithCaseAndTheRestWithout_data();
    void rootIsComparedWithCaseAndTheRestWithout();
    void bothViewsAreLookedAt_data();
    void bothViewsAreLookedAt();
    void gameOfTheFirstViewGoesFirst();
    void candidateIsMadeOfDirectoryAndExecutable_data();
    void candidateIsMadeOfDirectoryAndExecutable();
    void defaultValueHasNoName();
    void staleEntryIsNotFound();
    void allPrefixesAreLookedAt();
    void entryThatIsStaleInOnePrefixIsFoundInAnother();
    void damagedHivesFindNothing_data();
    void damagedHivesFindNothing();
    void signatureThatWasNotAnnouncedIsNotFound();
    void manySignaturesAreFoundInOneReading();
    void cancelBeforeTheReadingFindsNothing();
    void machineWithoutPrefixesFindsNothing();
};

void GameLocatorTest::keyIsReadFromTheHiveOfItsRoot_data()
{
    QTest::addColumn<bool>("isInMachine");

    QTest::newRow("machine") << true;
    QTest::newRow("user") << false;
}

void GameLocatorTest::keyIsReadFromTheHiveOfItsRoot()
{
    QFETCH(bool, isInMachine);
    const WineHome home;
    const QByteArray hive = WineHome::hive({"[Software\\\\Maker\\\\Game] 1", GameDir});
    home.addPrefix(".wine", isInMachine ? hive : WineHome::hive({}), isInMachine ? WineHome::hive({}) : hive);
    const QString game = home.write(".wine/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(MachineSignature), isInMachine ? game : QString());
    QCOMPARE(locate(UserSignature), isInMachine ? QString() : game);
}

void GameLocatorTest::rootIsComparedWithCaseAndTheRestWithout_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isFound");

    const QString value = "InstallDir";
    QTest::newRow("as written") << R"(HKEY_LOCAL_MACHINE\Software\Maker\Game)" << value << true;
    QTest::newRow("key in another case") << R"(HKEY_LOCAL_MACHINE\SOFTWARE\mAKER\game)" << value << true;
    QTest::newRow("value in another case") << R"(HKEY_LOCAL_MACHINE\Software\Maker\Game)"
                                           << "INSTALLDIR" << true;
    QTest::newRow("backslash at the end") << R"(HKEY_LOCAL_MACHINE\Software\Maker\Game\)" << value << true;
    QTest::newRow("root in another case") << R"(hkey_local_machine\Software\Maker\Game)" << value << false;
    QTest::newRow("short root") << R"(HKLM\Software\Maker\Game)" << value << false;
    QTest::newRow("other root") << R"(HKEY_USERS\Software\Maker\Game)" << value << false;
    QTest::newRow("root alone") << "HKEY_LOCAL_MACHINE" << value << false;
    QTest::newRow("root and backslash") << R"(HKEY_LOCAL_MACHINE\)" << value << false;
    QTest::newRow("root goes on") << R"(HKEY_LOCAL_MACHINES\Software\Maker\Game)" << value << false;
    QTest::newRow("blank first") << R"( HKEY_LOCAL_MACHINE\Software\Maker\Game)" << value << false;
    QTest::newRow("slashes") << "HKEY_LOCAL_MACHINE/Software/Maker/Game" << value << false;
    QTest::newRow("no key") << "" << value << false;
    QTest::newRow("no value") << R"(HKEY_LOCAL_MACHINE\Software\Maker\Game)"
                              << "" << false;
    QTest::newRow("other value") << R"(HKEY_LOCAL_MACHINE\Software\Maker\Game)"
                                 << "Path" << false;
}

void GameLocatorTest::rootIsComparedWithCaseAndTheRestWithout()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(bool, isFound);
    const WineHome home;
    home.addPrefix(".wine", WineHome::hive({"[Software\\\\Maker\\\\Game] 1", GameDir}));
    const QString game = home.write(".wine/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(signature(key, value)), isFound ? game : QString());
}

void GameLocatorTest::bothViewsAreLookedAt_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("isFound");

    QTest::newRow("native view") << QByteArray("[Software\\\\Maker\\\\Game]") << true;
    QTest::newRow("32-bit view") << QByteArray("[Software\\\\Wow6432Node\\\\Maker\\\\Game]") << true;
    QTest::newRow("32-bit view in another case")
        << QByteArray("[SOFTWARE\\\\WOW6432NODE\\\\Maker\\\\Game]") << true;
    QTest::newRow("elsewhere") << QByteArray("[Wow6432Node\\\\Software\\\\Maker\\\\Game]") << false;
}

void GameLocatorTest::bothViewsAreLookedAt()
{
    QFETCH(QByteArray, key);
    QFETCH(bool, isFound);
    const QByteArray hive = WineHome::hive({key, GameDir});
    const WineHome home;
    home.addPrefix(".wine", hive, hive);
    const QString game = home.write(".wine/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(MachineSignature), isFound ? game : QString());
    QCOMPARE(locate(UserSignature), isFound ? game : QString());
}

void GameLocatorTest::gameOfTheFirstViewGoesFirst()
{
    const WineHome home;
    home.addPrefix(".wine",
        WineHome::hive({"[Software\\\\Wow6432Node\\\\Maker\\\\Game]", R"("InstallDir"="C:\\Old")",
            "[Software\\\\Maker\\\\Game]", GameDir}));
    const QString old = home.write(".wine/drive_c/Old/Game.exe");
    // The first view's entry leads nowhere, so the other one's counts.
    QCOMPARE(locate(MachineSignature), old);
    const QString game = home.write(".wine/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(MachineSignature), game);
}

void GameLocatorTest::candidateIsMadeOfDirectoryAndExecutable_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QString>("found");

    const QString game = "drive_c/Games/Game/bin/Game.exe";
    QTest::newRow("plain") << R"(C:\Games\Game\bin)"
                           << "Game.exe" << game;
    QTest::newRow("backslash behind the directory") << R"(C:\Games\Game\bin\)"
                                                    << "Game.exe" << game;
    QTest::newRow("executable in a folder") << R"(C:\Games\Game)"
                                            << R"(bin\Game.exe)" << game;
    QTest::newRow("executable in a folder, with a slash") << R"(C:\Games\Game)"
                                                          << "bin/Game.exe" << game;
    QTest::newRow("executable elsewhere") << R"(C:\Games\Other)"
                                          << R"(..\Game\bin\Game.exe)" << game;
    QTest::newRow("executable in another case") << R"(c:\games\GAME\BIN)"
                                                << "GAME.EXE" << game;
    QTest::newRow("whole path") << R"(C:\None)"
                                << R"(C:\Games\Game\bin\Game.exe)" << game;
    QTest::newRow("path on the drive") << R"(C:\None)"
                                       << R"(\Games\Game\bin\Game.exe)" << game;
    QTest::newRow("folder") << R"(C:\Games)"
                            << "Game"
                            << "drive_c/Games/Game";
    QTest::newRow("text to add") << R"(C:\Games\Game\bin\Game)"
                                 << " 2.exe"
                                 << "drive_c/Games/Game/bin/Game 2.exe";
    QTest::newRow("text to add does not stand in the directory") << R"(C:\Games\Game\bin)"
                                                                 << " Game.exe"
                                                                 << "";
    QTest::newRow("no executable") << R"(C:\Games\Game\bin)"
                                   << ""
                                   << "";
    QTest::newRow("no directory") << ""
                                  << "Game.exe"
                                  << "";
    QTest::newRow("no directory, whole path") << ""
                                              << R"(C:\Games\Game\bin\Game.exe)"
                                              << "";
    QTest::newRow("relative directory") << "Games"
                                        << "Game.exe"
                                        << "";
    QTest::newRow("missing executable") << R"(C:\Games\Game\bin)"
                                        << "None.exe"
                                        << "";
}

void GameLocatorTest::candidateIsMadeOfDirectoryAndExecutable()
{
    QFETCH(QString, directory);
    QFETCH(QString, executable);
    QFETCH(QString, found);
    const WineHome home;
    const QString prefix = home.addPrefix(".wine",
        WineHome::hive({"[Software\\\\Maker\\\\Game]",
            "\"InstallDir\"=\"" + directory.replace('\\', "\\\\").toLatin1() + '"'}));
    home.write(".wine/drive_c/Games/Game/bin/Game.exe");
    home.write(".wine/drive_c/Games/Game/bin/Game 2.exe");
    QCOMPARE(locate(signature(MachineSignature.key, "InstallDir", executable)),
        found.isEmpty() ? "" : prefix + '/' + found);
}

void GameLocatorTest::defaultValueHasNoName()
{
    const WineHome home;
    home.addPrefix(".wine", WineHome::hive({"[Software\\\\Maker\\\\Game]", R"(@="C:\\Games\\Game")"}));
    const QString game = home.write(".wine/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(signature(MachineSignature.key, "")), game);
    QCOMPARE(locate(signature(MachineSignature.key, "@")), QString());
}

void GameLocatorTest::staleEntryIsNotFound()
{
    const WineHome home;
    home.addPrefix(".wine", WineHome::hive({"[Software\\\\Maker\\\\Game]", GameDir}));
    QCOMPARE(locate(MachineSignature), QString());
}

void GameLocatorTest::allPrefixesAreLookedAt()
{
    const WineHome home;
    const QByteArray hive = WineHome::hive({"[Software\\\\Maker\\\\Game]", GameDir});
    home.addPrefix(".wine");
    home.addPrefix(".local/share/Steam/steamapps/compatdata/480/pfx", hive);
    const QString game =
        home.write(".local/share/Steam/steamapps/compatdata/480/pfx/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(MachineSignature), game);
    home.addPrefix(".wine", hive);
    const QString nearer = home.write(".wine/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(MachineSignature), nearer);
}

void GameLocatorTest::entryThatIsStaleInOnePrefixIsFoundInAnother()
{
    const WineHome home;
    const QByteArray hive = WineHome::hive({"[Software\\\\Maker\\\\Game]", GameDir});
    home.addPrefix(".wine", hive);
    home.addPrefix("other", hive);
    qputenv("WINEPREFIX", home.path("other").toLocal8Bit());
    const QString game = home.write(".wine/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(MachineSignature), game);
}

void GameLocatorTest::damagedHivesFindNothing_data()
{
    QTest::addColumn<QByteArray>("hive");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("nonsense") << QByteArray("\xff\xfe\0\1[]\"=\n", 9).repeated(10000);
    QTest::newRow("cut") << WineHome::hive({"[Software\\\\Maker\\\\Game] 1", R"("InstallDir"="C:\\Ga)"});
}

void GameLocatorTest::damagedHivesFindNothing()
{
    QFETCH(QByteArray, hive);
    const WineHome home;
    home.addPrefix(".wine", hive, hive);
    home.write(".wine/drive_c/Games/Game/Game.exe");
    QCOMPARE(locate(MachineSignature), QString());
    QCOMPARE(locate(UserSignature), QString());
    // One that is whole is read all the same.
    home.addPrefix(".wine", hive, WineHome::hive({"[Software\\\\Maker\\\\Game]", GameDir}));
    QVERIFY(!locate(UserSignature).isEmpty());
}

void GameLocatorTest::signatureThatWasNotAnnouncedIsNotFound()
{
    const WineHome home;
    home.addPrefix(".wine", WineHome::hive({"[Software\\\\Maker\\\\Game]", GameDir}));
    home.write(".wine/drive_c/Games/Game/Game.exe");
    const GameLocator locator({UserSignature}, [] { return false; });
    QCOMPARE(locator.locate(MachineSignature), QString());
}

void GameLocatorTest::manySignaturesAreFoundInOneReading()
{
    const WineHome home;
    QVector<GameSignature> signatures;
    QList<QByteArray> lines;
    for (int i = 0; i < 50; ++i) {
        const QByteArray name = "Game " + QByteArray::number(i);
        signatures.append(signature("HKEY_LOCAL_MACHINE\\SOFTWARE\\" + name));
        lines << "[Software\\\\" + name + "]"
              << R"("InstallDir"="C:\\)" + name + '"';
        if (i % 2)
            home.write(".wine/drive_c/" + name + "/Game.exe");
    }
    const QString prefix = home.addPrefix(".wine", WineHome::hive(lines));
    const GameLocator locator(signatures, [] { return false; });
    // The registry is not needed any more.
    QVERIFY(QFile::remove(prefix + "/system.reg"));
    for (int i = 0; i < 50; ++i)
        QCOMPARE(locator.locate(signatures[i]),
            i % 2 ? QString("%1/drive_c/Game %2/Game.exe").arg(prefix).arg(i) : QString());
}

void GameLocatorTest::cancelBeforeTheReadingFindsNothing()
{
    const WineHome home;
    home.addPrefix(".wine", WineHome::hive({"[Software\\\\Maker\\\\Game]", GameDir}));
    home.write(".wine/drive_c/Games/Game/Game.exe");
    const GameLocator locator({MachineSignature}, [] { return true; });
    QCOMPARE(locator.locate(MachineSignature), QString());
}

void GameLocatorTest::machineWithoutPrefixesFindsNothing()
{
    const WineHome home;
    QCOMPARE(locate(MachineSignature), QString());
}

VELTRANO_TEST_MAIN(GameLocatorTest)
#include "GameLocatorTest.moc"
