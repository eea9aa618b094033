#include "WineHome.h"

#include <TestCase.h>
#include <WinePrefixes.h>

#include <unistd.h>

class WinePrefixesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void homeWithoutPrefixesHasNone();
    void usualPrefixIsFound();
    void prefixOfTheEnvironmentGoesFirst();
    void prefixIsFoundOnce();
    void steamsPrefixesAreFound_data();
    void steamsPrefixesAreFound();
    void librariesAreReadFromTheirList_data();
    void librariesAreReadFromTheirList();
    void damagedLibraryListIsPassedOver_data();
    void damagedLibraryListIsPassedOver();

    void pathIsTranslated_data();
    void pathIsTranslated();
    void pathWithoutADriveIsNothing_data();
    void pathWithoutADriveIsNothing();
    void exactSpellingGoesFirst();
    void anotherSpellingIsTriedWhereTheExactOneEnds();
    void lettersBeyondAsciiMatchInAnyCase();
    void linksInACircleEnd();
    void driveMayLeadAnywhere();
    void drivesThatLeadNowhereAreNothing();
    void unreadableFolderIsNothing();
};

void WinePrefixesTest::homeWithoutPrefixesHasNone()
{
    const WineHome home;
    QCOMPARE(WinePrefixes::find(), QStringList());
    // Neither is a file one.
    home.write(".wine");
    qputenv("WINEPREFIX", home.path("none").toLocal8Bit());
    QCOMPARE(WinePrefixes::find(), QStringList());
}

void WinePrefixesTest::usualPrefixIsFound()
{
    const WineHome home;
    home.addPrefix(".wine");
    QCOMPARE(WinePrefixes::find(), QStringList(home.path(".wine")));
}

void WinePrefixesTest::prefixOfTheEnvironmentGoesFirst()
{
    const WineHome home;
    home.addPrefix(".wine");
    home.addPrefix("other place");
    qputenv("WINEPREFIX", home.path("other place").toLocal8Bit());
    QCOMPARE(WinePrefixes::find(), QStringList({home.path("other place"), home.path(".wine")}));
}

void WinePrefixesTest::prefixIsFoundOnce()
{
    const WineHome home;
    home.addPrefix(".wine");
    QVERIFY(QFile::link(home.path(".wine"), home.path("link")));
    qputenv("WINEPREFIX", home.path("link").toLocal8Bit());
    QCOMPARE(WinePrefixes::find(), QStringList(home.path(".wine")));
}

void WinePrefixesTest::steamsPrefixesAreFound_data()
{
    QTest::addColumn<QString>("installation");

    for (const char* const place : {".steam/steam", ".steam/root", ".local/share/Steam",
             ".var/app/com.valvesoftware.Steam/.local/share/Steam",
             ".var/app/com.valvesoftware.Steam/data/Steam", "snap/steam/common/.local/share/Steam",
             "data home/Steam"})
        QTest::newRow(place) << QString(place);
}

void WinePrefixesTest::steamsPrefixesAreFound()
{
    QFETCH(QString, installation);
    const WineHome home;
    qputenv("XDG_DATA_HOME", home.path("data home").toLocal8Bit());
    const QString games = installation + "/steamapps/compatdata/";
    home.addPrefix(games + "480/pfx");
    home.addPrefix(games + "220/pfx");
    home.write(games + "620/version");
    QCOMPARE(WinePrefixes::find(), QStringList({home.path(games + "220/pfx"), home.path(games + "480/pfx")}));
    // An installation is often reached by several links.
    QDir().mkpath(home.path("links"));
    if (installation != ".steam/root") {
        QDir().mkpath(home.path(".steam"));
        QVERIFY(QFile::link(home.path(installation), home.path(".steam/root")));
        QCOMPARE(WinePrefixes::find().size(), 2);
    }
}

void WinePrefixesTest::librariesAreReadFromTheirList_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("list");

    const QByteArray newer = R"("libraryfolders"
{
    "0"
    {
        "path"		"@/.local/share/Steam"
        "label"		""
        "totalsize"		"0"
        "apps"
        {
            "228980"		"162345678"
        }
    }
    "1"
    {
        "path"		"@/my \"games\"\\x"
        "apps" { "480" "12" }
    }
    "2" { "path" "@/second" }
    "3" { "path" "@/gone" }
}
)";
    const QByteArray older = R"("LibraryFolders"
{
    "TimeNextStatsReport"		"1590000000"
    "ContentStatsID"		"-123"
    "1"		"@/my \"games\"\\x"
    "2"		"@/second"
}
)";
    QTest::newRow("newer list") << "steamapps/libraryfolders.vdf" << newer;
    QTest::newRow("older list") << "steamapps/libraryfolders.vdf" << older;
    QTest::newRow("list among the settings") << "config/libraryfolders.vdf" << newer;
}

void WinePrefixesTest::librariesAreReadFromTheirList()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, list);
    const WineHome home;
    home.write(".local/share/Steam/" + file, list.replace("@", home.path().toUtf8()));
    home.addPrefix(".local/share/Steam/steamapps/compatdata/1/pfx");
    home.addPrefix("my \"games\"\\x/steamapps/compatdata/2/pfx");
    home.addPrefix("second/steamapps/compatdata/3/pfx");
    QCOMPARE(WinePrefixes::find(),
        QStringList({home.path(".local/share/Steam/steamapps/compatdata/1/pfx"),
            home.path("my \"games\"\\x/steamapps/compatdata/2/pfx"),
            home.path("second/steamapps/compatdata/3/pfx")}));
}

void WinePrefixesTest::damagedLibraryListIsPassedOver_data()
{
    QTest::addColumn<QByteArray>("list");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("nonsense") << QByteArray(100000, '"');
    QTest::newRow("zeros") << QByteArray(100000, '\0');
    QTest::newRow("open text") << QByteArray("\"path\" \"/tmp");
    QTest::newRow("backslashes") << QByteArray("\"path\" \"") + QByteArray(100001, '\\');
    QTest::newRow("relative place") << QByteArray("\"path\" \"games\"");
    QTest::newRow("empty place") << QByteArray("\"path\" \"\"");
}

void WinePrefixesTest::damagedLibraryListIsPassedOver()
{
    QFETCH(QByteArray, list);
    const WineHome home;
    home.write(".local/share/Steam/steamapps/libraryfolders.vdf", list);
    home.addPrefix(".local/share/Steam/steamapps/compatdata/1/pfx");
    QCOMPARE(WinePrefixes::find().size(), 1);
}

void WinePrefixesTest::pathIsTranslated_data()
{
    QTest::addColumn<QString>("windowsPath");
    QTest::addColumn<QString>("found");

    const QString game = "drive_c/Games/My Game/Bin/Game.exe";
    QTest::newRow("as it is spelled") << R"(C:\Games\My Game\Bin\Game.exe)" << game;
    QTest::newRow("in another case") << R"(c:\GAMES\my game\bIN\game.EXE)" << game;
    QTest::newRow("with slashes") << "C:/Games/My Game/Bin/Game.exe" << game;
    QTest::newRow("with both") << R"(C:\Games\My Game/Bin\Game.exe)" << game;
    QTest::newRow("with more slashes than needed") << R"(C:\\Games\\\My Game\Bin\\Game.exe)" << game;
    QTest::newRow("with dots") << R"(C:\Games\.\None\..\My Game\Bin\Game.exe)" << game;
    QTest::newRow("out of the drive") << R"(C:\..\..\Games\My Game\Bin\Game.exe)" << game;
    QTest::newRow("folder") << R"(C:\games\my game)"
                            << "drive_c/Games/My Game";
    QTest::newRow("folder with a slash at its end") << R"(C:\games\)"
                                                    << "drive_c/Games";
    QTest::newRow("drive") << R"(C:\)"
                           << "drive_c";
    QTest::newRow("hidden file") << R"(C:\.HIDDEN)"
                                 << "drive_c/.hidden";
    QTest::newRow("missing file") << R"(C:\Games\None.exe)"
                                  << "";
    QTest::newRow("missing folder") << R"(C:\None\Game.exe)"
                                    << "";
    QTest::newRow("file as a folder") << R"(C:\Games\My Game\Bin\Game.exe\x)"
                                      << "";
    QTest::newRow("missing drive") << R"(D:\Games)"
                                   << "";
}

void WinePrefixesTest::pathIsTranslated()
{
    QFETCH(QString, windowsPath);
    QFETCH(QString, found);
    const WineHome home;
    const QString prefix = home.addPrefix(".wine");
    home.write(".wine/drive_c/Games/My Game/Bin/Game.exe");
    home.write(".wine/drive_c/.hidden");
    QCOMPARE(WinePrefixes::resolve(prefix, windowsPath), found.isEmpty() ? "" : prefix + '/' + found);
}

void WinePrefixesTest::pathWithoutADriveIsNothing_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("empty") << "";
    QTest::newRow("plain") << "/tmp";
    QTest::newRow("relative") << "Games";
    QTest::newRow("drive alone") << "C:";
    QTest::newRow("relative on a drive") << "C:Games";
    QTest::newRow("longer drive") << R"(CC:\Games)";
    QTest::newRow("other system") << R"(\\server\share)";
    QTest::newRow("number") << R"(1:\)";
    QTest::newRow("out of the drives") << R"(..:\)";
}

void WinePrefixesTest::pathWithoutADriveIsNothing()
{
    QFETCH(QString, path);
    const WineHome home;
    QCOMPARE(WinePrefixes::resolve(home.addPrefix(".wine"), path), QString());
}

void WinePrefixesTest::exactSpellingGoesFirst()
{
    const WineHome home;
    const QString prefix = home.addPrefix(".wine");
    home.write(".wine/drive_c/GAMES/a.exe");
    home.write(".wine/drive_c/Games/a.exe");
    home.write(".wine/drive_c/games/A.exe");
    home.write(".wine/drive_c/games/a.exe");
    QCOMPARE(WinePrefixes::resolve(prefix, R"(C:\Games\a.exe)"), prefix + "/drive_c/Games/a.exe");
    QCOMPARE(WinePrefixes::resolve(prefix, R"(C:\games\a.exe)"), prefix + "/drive_c/games/a.exe");
    QCOMPARE(WinePrefixes::resolve(prefix, R"(C:\games\A.EXE)"), prefix + "/drive_c/games/A.exe");
}

void WinePrefixesTest::anotherSpellingIsTriedWhereTheExactOneEnds()
{
    const WineHome home;
    const QString prefix = home.addPrefix(".wine");
    home.write(".wine/drive_c/Games/other.exe");
    home.write(".wine/drive_c/games/A.exe");
    QCOMPARE(WinePrefixes::resolve(prefix, R"(C:\Games\a.exe)"), prefix + "/drive_c/games/A.exe");
}

void WinePrefixesTest::lettersBeyondAsciiMatchInAnyCase()
{
    const WineHome home;
    const QString prefix = home.addPrefix(".wine");
    home.write(QString::fromUtf8(".wine/drive_c/J\u00e9u/\u0416.exe"));
    QCOMPARE(WinePrefixes::resolve(prefix, QString::fromUtf8("C:\\j\u00c9U\\\u0436.EXE")),
        prefix + QString::fromUtf8("/drive_c/J\u00e9u/\u0416.exe"));
}

void WinePrefixesTest::linksInACircleEnd()
{
    const WineHome home;
    const QString prefix = home.addPrefix(".wine");
    // Each level could be entered in two ways.
    QVERIFY(QFile::link(".", prefix + "/drive_c/a"));
    QVERIFY(QFile::link(".", prefix + "/drive_c/A"));
    QCOMPARE(WinePrefixes::resolve(prefix, "C:\\" + QString("a\\").repeated(64) + "none.exe"), QString());
    home.write(".wine/drive_c/There.exe");
    QVERIFY(QFileInfo::exists(WinePrefixes::resolve(prefix, R"(C:\a\A\a\there.exe)")));
}

void WinePrefixesTest::driveMayLeadAnywhere()
{
    const WineHome home;
    const QString prefix = home.addPrefix(".wine");
    home.write("disk/Games/Game.exe");
    QVERIFY(QFile::link(home.path("disk"), prefix + "/dosdevices/d:"));
    QCOMPARE(WinePrefixes::resolve(prefix, R"(D:\games\game.exe)"), home.path("disk/Games/Game.exe"));
    // The drive of the whole system.
    const QString windowsPath = "Z:" + home.path("disk/Games/Game.exe").replace('/', '\\');
    QCOMPARE(WinePrefixes::resolve(prefix, windowsPath), home.path("disk/Games/Game.exe"));
    QCOMPARE(
        WinePrefixes::resolve(prefix, windowsPath.chopped(8) + "GAME.EXE"), home.path("disk/Games/Game.exe"));
    QCOMPARE(WinePrefixes::resolve(prefix, "Z:\\"), QString("/"));
}

void WinePrefixesTest::drivesThatLeadNowhereAreNothing()
{
    const WineHome home;
    const QString prefix = home.addPrefix(".wine");
    QVERIFY(QFile::link(home.path("gone"), prefix + "/dosdevices/d:"));
    QVERIFY(QFile::link("e:", prefix + "/dosdevices/e:"));
    home.write(".wine/dosdevices/f:");
    for (const char* const path : {"D:\\x", "E:\\x", "F:\\x"})
        QCOMPARE(WinePrefixes::resolve(prefix, path), QString());
    QCOMPARE(WinePrefixes::resolve(home.path("none"), "C:\\x"), QString());
}

void WinePrefixesTest::unreadableFolderIsNothing()
{
    if (geteuid() == 0)
        QSKIP("the administrator may read everything");
    const WineHome home;
    const QString prefix = home.addPrefix(".wine");
    home.write(".wine/drive_c/Games/Game.exe");
    const QString folder = prefix + "/drive_c/Games";
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions()));
    QCOMPARE(WinePrefixes::resolve(prefix, R"(C:\games\game.exe)"), QString());
    QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

VELTRANO_TEST_MAIN(WinePrefixesTest)
#include "WinePrefixesTest.moc"
