#include "IconFiles.h"

#include <HVS.h>
#include <TestCase.h>

#include <QDir>
#include <QElapsedTimer>
#include <QIcon>
#include <QImage>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <map>
#include <memory>

/// Every case has an empty home, no programs but the extractor, and an icon theme of its own.
class LoadApplicationIconTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void executableHasItsIcon();
    void firstIconOfAnExecutableIsItsOwn();
    void largestPictureIsTaken_data();
    void largestPictureIsTaken();
    void contentCountsNotTheSuffix();
    void pathMayHoldAnything_data();
    void pathMayHoldAnything();
    void damagedPictureGivesWayToTheNext();
    void fileWithoutAnIconHasNone_data();
    void fileWithoutAnIconHasNone();
    void pathWithoutAFileHasNone();
    void everyTruncationIsSurvived();
    void garbledIconFilesAreSurvived();
    void missingExtractorIsNoIcon();
    void stalledExtractorIsGivenUp();
    void crashedExtractorIsNoIcon();
    void endlessExtractorIsEnded();

    void desktopEntryNamesThePicture_data();
    void desktopEntryNamesThePicture();
    void entryWithoutArgumentsCountsFirst();
    void entryOfTheUserReplacesThatOfTheSystem();
    void entryMayNameAnIconOfTheTheme();
    void entryOfALinkedProgramIsFound();
    void brokenEntriesAreSurvived();
    void iconOfTheThemeIsTheLastResort();
    void moreGeneralIconOfTheThemeIsNotTaken();
    void pictureOutsideOfThemesIsFound();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QString write(const QString& name, const QByteArray& content, bool isExecutable = false);
    QString writePicture(const QString& name, const QColor& colour);
    void writeEntry(const QString& name, const QByteArray& lines);
    void useExtractor(const QByteArray& script);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::map<const char*, QByteArray> m_environment;
};

namespace {

/// The size and the colour in the middle, "48 #00ff00"; "none" for a null pixmap.
QString summary(const QPixmap& pixmap)
{
    if (pixmap.isNull())
        return QStringLiteral("none");
    const QImage image = pixmap.toImage();
    return QStringLiteral("%1 %2").arg(image.width()).arg(image.pixelColor(image.rect().center()).name());
}

QString iconOf(const QString& path)
{
    return summary(HVS::loadApplicationIcon(path));
}

} // namespace

void LoadApplicationIconTest::init()
{
    const QString extractor = QStandardPaths::findExecutable("wrestool");
    QVERIFY2(!extractor.isEmpty(), "wrestool of icoutils is not installed");
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char* variable : {"HOME", "PATH", "XDG_DATA_HOME", "XDG_DATA_DIRS"})
        m_environment[variable] = qgetenv(variable);
    qputenv("HOME", path("home").toUtf8());
    qputenv("PATH", path("bin").toUtf8());
    qputenv("XDG_DATA_HOME", path("user").toUtf8());
    qputenv("XDG_DATA_DIRS", path("system").toUtf8());
    for (const char* folder :
        {"bin", "user/applications/sub", "system/applications", "system/pixmaps", "icons/test/48x48/apps"})
        QVERIFY(QDir(m_folder->path()).mkpath(folder));
    QVERIFY(QFile::link(extractor, path("bin/wrestool")));
    write("icons/test/index.theme",
        "[Icon Theme]\nName=test\nDirectories=48x48/apps\n[48x48/apps]\nSize=48\nType=Fixed\n");
    QIcon::setThemeSearchPaths({path("icons")});
    QIcon::setThemeName("test");
}

void LoadApplicationIconTest::cleanup()
{
    for (const auto& [variable, value] : m_environment)
        qputenv(variable, value);
    m_folder.reset();
}

QString LoadApplicationIconTest::write(const QString& name, const QByteArray& content, bool isExecutable)
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("can't write", __FILE__, __LINE__);
    if (isExecutable)
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return file.fileName();
}

QString LoadApplicationIconTest::writePicture(const QString& name, const QColor& colour)
{
    return write(name, IconFiles::pngData({48, colour}));
}

void LoadApplicationIconTest::writeEntry(const QString& name, const QByteArray& lines)
{
    write(name, "# A comment\n[Desktop Entry]\nType=Application\n" + lines + "\n[Other]\nExec=x\nIcon=y\n");
}

void LoadApplicationIconTest::useExtractor(const QByteArray& script)
{
    QVERIFY(QFile::remove(path("bin/wrestool")));
    write("bin/wrestool", "#!/bin/sh\n" + script, true);
}

void LoadApplicationIconTest::executableHasItsIcon()
{
    const QString program = write("game.exe", IconFiles::executable({{{48, Qt::green}}}));
    QCOMPARE(iconOf(program), QString("48 #00ff00"));
    // No permission to run it is needed, and it may be named from the current folder.
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    QCOMPARE(iconOf("game.exe"), QString("48 #00ff00"));
    QVERIFY(QDir::setCurrent(before));
}

void LoadApplicationIconTest::firstIconOfAnExecutableIsItsOwn()
{
    QCOMPARE(iconOf(write(
                 "game.exe", IconFiles::executable({{{16, Qt::red}, {32, Qt::green}}, {{256, Qt::blue}}}))),
        QString("32 #00ff00"));
}

void LoadApplicationIconTest::largestPictureIsTaken_data()
{
    QTest::addColumn<QList<int>>("sizes");
    QTest::addColumn<int>("expected");
    QTest::newRow("one") << QList<int>({16}) << 16;
    QTest::newRow("smallest first") << QList<int>({16, 32, 48}) << 48;
    QTest::newRow("largest first") << QList<int>({48, 32, 16}) << 48;
    QTest::newRow("largest in the middle") << QList<int>({16, 256, 32}) << 256;
    QTest::newRow("larger than needed") << QList<int>({512, 128, 64}) << 128;
    QTest::newRow("only larger") << QList<int>({512, 300}) << 256;
    QTest::newRow("far too large") << QList<int>({2000, 16}) << 16;
}

void LoadApplicationIconTest::largestPictureIsTaken()
{
    QFETCH(QList<int>, sizes);
    QFETCH(int, expected);
    IconFiles::Icon icon;
    for (int size : qAsConst(sizes))
        icon.append({size, size > 256 ? Qt::red : Qt::blue});
    for (const QString& file :
        {write("game.exe", IconFiles::executable({icon})), write("game.ico", IconFiles::iconFile(icon))})
        QCOMPARE(HVS::loadApplicationIcon(file).size(), QSize(expected, expected));
    // What the directory says about a size doesn't count.
    icon.append({64, Qt::green, 200});
    if (expected > 64)
        QCOMPARE(HVS::loadApplicationIcon(write("game.ico", IconFiles::iconFile(icon))).width(),
            sizes == QList<int>({512, 300}) ? 64 : expected);
}

void LoadApplicationIconTest::contentCountsNotTheSuffix()
{
    const QByteArray executable = IconFiles::executable({{{48, Qt::green}}});
    const QByteArray icon = IconFiles::iconFile({{32, Qt::blue}});
    QCOMPARE(iconOf(write("game", executable)), QString("48 #00ff00"));
    QCOMPARE(iconOf(write("game.ico", executable)), QString("48 #00ff00"));
    QCOMPARE(iconOf(write("game.exe", icon)), QString("32 #0000ff"));
    QCOMPARE(iconOf(write("game.txt", icon)), QString("32 #0000ff"));
}

void LoadApplicationIconTest::pathMayHoldAnything_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"a game.exe", "-x.exe", "--help", "it's \"quoted\".exe", "$(touch x);.exe",
             "sp\xc3\xa4\xe4\xb8\xad.exe", "%1 %s.exe", "new\nline.exe"})
        QTest::newRow(name) << QString(name);
}

void LoadApplicationIconTest::pathMayHoldAnything()
{
    QFETCH(QString, name);
    QCOMPARE(iconOf(write(name, IconFiles::executable({{{48, Qt::green}}}))), QString("48 #00ff00"));
}

void LoadApplicationIconTest::damagedPictureGivesWayToTheNext()
{
    const QByteArray whole = IconFiles::iconFile({{16, Qt::red}, {48, Qt::green}});
    QCOMPARE(iconOf(write("whole.ico", whole)), QString("48 #00ff00"));
    // The last picture is the large one.
    QCOMPARE(iconOf(write("cut.ico", whole.chopped(20))), QString("16 #ff0000"));
}

void LoadApplicationIconTest::fileWithoutAnIconHasNone_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("just some text\n");
    QTest::newRow("garbage") << QByteArray("\x80\x01\xff").repeated(10'000);
    QTest::newRow("zeros") << QByteArray(100'000, '\0');
    QTest::newRow("executable's mark alone") << QByteArray("MZ");
    QTest::newRow("executable's mark and garbage") << "MZ" + QByteArray("\xff\x7f").repeated(10'000);
    QTest::newRow("executable without an icon") << IconFiles::executable({});
    QTest::newRow("executable with an empty icon") << IconFiles::executable({{}});
    QTest::newRow("picture that is no icon") << IconFiles::pngData({32, Qt::red});
    QTest::newRow("icon's header alone") << QByteArray("\0\0\1\0", 4);
    QTest::newRow("icon with no pictures") << QByteArray("\0\0\1\0\0\0", 6);
    QTest::newRow("icon with missing pictures") << QByteArray("\0\0\1\0\xff\xff", 6);
    QTest::newRow("cursor") << QByteArray("\0\0\2\0\1\0", 6) + IconFiles::iconFile({{16, Qt::red}}).mid(6);
    QTest::newRow("Linux program") << QByteArray("\x7f"
                                                 "ELF\2\1\1");
}

void LoadApplicationIconTest::fileWithoutAnIconHasNone()
{
    QFETCH(QByteArray, content);
    for (const char* name : {"no-such-theme-icon.exe", "no-such-theme-icon.ico", "no-such-theme-icon"})
        QCOMPARE(iconOf(write(name, content, true)), QString("none"));
}

void LoadApplicationIconTest::pathWithoutAFileHasNone()
{
    QCOMPARE(iconOf(path("missing.exe")), QString("none"));
    QCOMPARE(iconOf(m_folder->path()), QString("none"));
    QCOMPARE(iconOf(QString()), QString("none"));
    QCOMPARE(iconOf("/dev/zero"), QString("none"));
    // Not even if there is a picture of that name.
    writePicture("icons/test/48x48/apps/known-program.png", Qt::red);
    QCOMPARE(iconOf(path("known-program")), QString("none"));
}

void LoadApplicationIconTest::everyTruncationIsSurvived()
{
    const QByteArray executable = IconFiles::executable({{{48, Qt::green}}});
    QCOMPARE(iconOf(write("whole.exe", executable)), QString("48 #00ff00"));
    // The icon's directory comes last; wrestool makes do without its very end.
    for (int length = executable.size() - 24; length > 0; length -= 61)
        QCOMPARE(iconOf(write("cut.exe", executable.left(length))), QString("none"));
    const QByteArray icon = IconFiles::iconFile({{48, Qt::green}});
    for (int length = icon.size() - 1; length >= 0; --length)
        QCOMPARE(iconOf(write("cut.ico", icon.left(length))), QString("none"));
}

void LoadApplicationIconTest::garbledIconFilesAreSurvived()
{
    // The directory and the pictures' headers; what follows is the business of the pictures' reader.
    const QByteArray icon = IconFiles::iconFile({{16, Qt::red}, {48, Qt::green}});
    constexpr int directory = 6 + 2 * 16;
    for (int place = 4; place < directory; ++place) {
        for (char value : {'\0', '\1', '\x7f', '\x80', '\xff'}) {
            QByteArray garbled = icon;
            garbled[place] = value;
            const QPixmap pixmap = HVS::loadApplicationIcon(write("garbled.ico", garbled));
            QVERIFY(pixmap.isNull() || pixmap.width() == 16 || pixmap.width() == 48);
        }
    }
}

void LoadApplicationIconTest::missingExtractorIsNoIcon()
{
    QVERIFY(QFile::remove(path("bin/wrestool")));
    QCOMPARE(iconOf(write("game.exe", IconFiles::executable({{{48, Qt::green}}}))), QString("none"));
    QCOMPARE(iconOf(write("game.ico", IconFiles::iconFile({{48, Qt::green}}))), QString("48 #00ff00"));
}

void LoadApplicationIconTest::stalledExtractorIsGivenUp()
{
    useExtractor("exec /bin/sleep 100\n");
    QElapsedTimer time;
    time.start();
    QCOMPARE(iconOf(write("game.exe", IconFiles::executable({{{48, Qt::green}}}))), QString("none"));
    QVERIFY(time.elapsed() < 30'000);
}

void LoadApplicationIconTest::crashedExtractorIsNoIcon()
{
    useExtractor("kill -SEGV $$\n");
    QCOMPARE(iconOf(write("game.exe", IconFiles::executable({{{48, Qt::green}}}))), QString("none"));
    useExtractor("exit 1\n");
    QCOMPARE(iconOf(write("game.exe", IconFiles::executable({{{48, Qt::green}}}))), QString("none"));
}

void LoadApplicationIconTest::endlessExtractorIsEnded()
{
    useExtractor("exec /bin/cat /dev/zero\n");
    QCOMPARE(iconOf(write("game.exe", IconFiles::executable({{{48, Qt::green}}}))), QString("none"));
    // What came before the rest is used.
    const QString icon = write("first.ico", IconFiles::iconFile({{48, Qt::green}}));
    useExtractor("exec /bin/cat " + icon.toUtf8() + " /dev/zero\n");
    QCOMPARE(iconOf(path("game.exe")), QString("48 #00ff00"));
}

void LoadApplicationIconTest::desktopEntryNamesThePicture_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<bool>("isFound");
    const auto row = [](const char* name, const QByteArray& lines, bool isFound) {
        QTest::newRow(name) << lines << isFound;
    };
    row("path", "Icon=%icon\nExec=%program", true);
    row("path with places", "Icon=%icon\nExec=%program %U --new-window %f", true);
    row("path in quotes", "Icon=%icon\nExec=\"%program\" %u", true);
    row("name", "Icon=%icon\nExec=my-program %F", true);
    row("behind env", "Icon=%icon\nExec=env A=1 B=\"2 3\" my-program", true);
    row("tried program", "Icon=%icon\nTryExec=%program\nExec=/bin/sh -c x", true);
    row("tried name", "Icon=%icon\nTryExec=my-program\nExec=wrapper", true);
    row("spaces around", "  Icon = %icon  \r\n Exec = %program \r\n", true);
    row("not shown in menus", "NoDisplay=true\nIcon=%icon\nExec=%program", true);
    row("another program", "Icon=%icon\nExec=%program-other", false);
    row("another name", "Icon=%icon\nExec=my-programs", false);
    row("program as argument", "Icon=%icon\nExec=/bin/sh %program", false);
    row("hidden", "Hidden=true\nIcon=%icon\nExec=%program", false);
    row("no picture", "Exec=%program", false);
    row("missing picture", "Icon=%icon.missing\nExec=%program", false);
    row("commented out", "#Icon=%icon\nExec=%program", false);
    row("no command", "Icon=%icon\nExec=\nTryExec=", false);
    row("env alone", "Icon=%icon\nExec=env", false);
}

void LoadApplicationIconTest::desktopEntryNamesThePicture()
{
    QFETCH(QByteArray, lines);
    QFETCH(bool, isFound);
    const QString program = write("bin/my-program", "#!/bin/sh\n", true);
    const QString icon = writePicture("a picture; with, marks.png", Qt::green);
    lines.replace("%program", program.toUtf8()).replace("%icon", icon.toUtf8());
    for (const char* folder : {"user/applications/", "user/applications/sub/", "system/applications/"}) {
        const QString entry = QString(folder) + "entry.desktop";
        writeEntry(entry, lines);
        QCOMPARE(iconOf(program), isFound ? QString("48 #00ff00") : QString("none"));
        QVERIFY(QFile::remove(path(entry)));
    }
    writeEntry("user/applications/entry.txt", lines);
    QCOMPARE(iconOf(program), QString("none"));
}

void LoadApplicationIconTest::entryWithoutArgumentsCountsFirst()
{
    const QString program = write("bin/launcher", "#!/bin/sh\n", true);
    const QByteArray red = "Icon=" + writePicture("red.png", Qt::red).toUtf8();
    const QByteArray green = "Icon=" + writePicture("green.png", Qt::green).toUtf8();
    writeEntry("user/applications/a.desktop", red + "\nExec=launcher launcher://run/1");
    QCOMPARE(iconOf(program), QString("48 #ff0000"));
    writeEntry("system/applications/b.desktop", green + "\nExec=launcher %U");
    QCOMPARE(iconOf(program), QString("48 #00ff00"));
}

void LoadApplicationIconTest::entryOfTheUserReplacesThatOfTheSystem()
{
    const QString program = write("bin/program", "#!/bin/sh\n", true);
    const QByteArray red = "Icon=" + writePicture("red.png", Qt::red).toUtf8();
    const QByteArray green = "Icon=" + writePicture("green.png", Qt::green).toUtf8();
    writeEntry("system/applications/program.desktop", red + "\nExec=program");
    writeEntry("user/applications/program.desktop", green + "\nExec=program");
    QCOMPARE(iconOf(program), QString("48 #00ff00"));
    writeEntry("user/applications/program.desktop", "Hidden=true");
    QCOMPARE(iconOf(program), QString("none"));
}

void LoadApplicationIconTest::entryMayNameAnIconOfTheTheme()
{
    const QString program = write("bin/program", "#!/bin/sh\n", true);
    writePicture("icons/test/48x48/apps/shown-name.png", Qt::green);
    for (const char* icon : {"shown-name", "shown-name.png", "shown-name.svg"}) {
        writeEntry("user/applications/program.desktop", "Exec=program\nIcon=" + QByteArray(icon));
        QCOMPARE(iconOf(program), QString("48 #00ff00"));
    }
    writeEntry("user/applications/program.desktop", "Exec=program\nIcon=unknown-name");
    QCOMPARE(iconOf(program), QString("none"));
    writeEntry("user/applications/program.desktop", "Exec=program\nIcon=.png");
    QCOMPARE(iconOf(program), QString("none"));
}

void LoadApplicationIconTest::entryOfALinkedProgramIsFound()
{
    const QString program = write("real-program", "#!/bin/sh\n", true);
    QVERIFY(QFile::link(program, path("bin/linked-program")));
    writeEntry("user/applications/program.desktop",
        "Exec=linked-program\nIcon=" + writePicture("green.png", Qt::green).toUtf8());
    QCOMPARE(iconOf(program), QString("48 #00ff00"));
    QCOMPARE(iconOf(path("bin/linked-program")), QString("48 #00ff00"));
}

void LoadApplicationIconTest::brokenEntriesAreSurvived()
{
    const QString program = write("bin/program", "#!/bin/sh\n", true);
    write("user/applications/1.desktop", QByteArray());
    write("user/applications/2.desktop", QByteArray("\xff\0[Desktop Entry", 16));
    write("user/applications/3.desktop", "[Desktop Entry]\nExec=\"program\nIcon=\\");
    write("user/applications/4.desktop", "Exec=program\nIcon=x\n[Desktop Entry]\n=\n==\n[[]]\n");
    write("user/applications/5.desktop", "[Desktop Entry]\nExec=" + QByteArray(2'000'000, '"'));
    QVERIFY(QDir(m_folder->path()).mkpath("user/applications/6.desktop"));
    QVERIFY(QFile::link(path("missing"), path("user/applications/7.desktop")));
    QCOMPARE(iconOf(program), QString("none"));
    writeEntry(
        "user/applications/8.desktop", "Exec=program\nIcon=" + writePicture("green.png", Qt::green).toUtf8());
    QCOMPARE(iconOf(program), QString("48 #00ff00"));
}

void LoadApplicationIconTest::iconOfTheThemeIsTheLastResort()
{
    writePicture("icons/test/48x48/apps/my-game.png", Qt::green);
    QCOMPARE(iconOf(write("my-game", "text")), QString("48 #00ff00"));
    QCOMPARE(iconOf(write("my-game.exe", "MZ")), QString("48 #00ff00"));
    QCOMPARE(iconOf(write("my-game.EXE", "text")), QString("48 #00ff00"));
    QCOMPARE(iconOf(write("my-game.txt", "text")), QString("none"));
    QCOMPARE(iconOf(write("my-game.exe", IconFiles::executable({{{32, Qt::red}}}))), QString("32 #ff0000"));
}

void LoadApplicationIconTest::moreGeneralIconOfTheThemeIsNotTaken()
{
    writePicture("icons/test/48x48/apps/text.png", Qt::green);
    QCOMPARE(iconOf(write("text-adventure", "text")), QString("none"));
    QCOMPARE(iconOf(write("text", "text")), QString("48 #00ff00"));
}

void LoadApplicationIconTest::pictureOutsideOfThemesIsFound()
{
    writePicture("system/pixmaps/old-game.png", Qt::green);
    QCOMPARE(iconOf(write("old-game", "text")), QString("48 #00ff00"));
}

VELTRANO_TEST_MAIN(LoadApplicationIconTest)
#include "LoadApplicationIconTest.moc"
