#include "WineHome.h"

#include <TestCase.h>
#include <WineHive.h>

#include <QRandomGenerator>

#include <sys/stat.h>

using WineHive::Names;
using WineHive::Texts;

namespace {

/// How much is read at once.
constexpr int PieceSize = 256 * 1024;

bool never()
{
    return false;
}

} // namespace

class WineHiveTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void valueIsRead_data();
    void valueIsRead();
    void valueOfAnotherKeyIsNotRead_data();
    void valueOfAnotherKeyIsNotRead();
    void laterKeyOfTheSamePathAddsToTheEarlier();
    void namesAreFoldedBeyondAscii();
    void manyValuesAreReadAtOnce();
    void otherThingsThanRegistriesHaveNoValues_data();
    void otherThingsThanRegistriesHaveNoValues();
    void missingFileHasNoValues();
    void folderAndPipeAreNotRead();
    void lineLongerThanAPieceIsPassedOver();
    void lineAtTheEdgeOfAPieceIsWhole();
    void fileThatIsCutAnywhereHasTheValuesBeforeTheCut();
    void damagedBytesDoNoHarm();
    void largeNonsenseIsNotFoundAndTakesLittleMemory_data();
    void largeNonsenseIsNotFoundAndTakesLittleMemory();
    void cancelEndsTheReading();
    void nothingWantedReadsNothing();

private:
    /// The text of one value in a file with these lines; "missing" if there is none.
    QString valueIn(const QByteArray& content, const QString& key = QStringLiteral("software\\game"),
        const QString& name = QStringLiteral("dir"));
};

QString WineHiveTest::valueIn(const QByteArray& content, const QString& key, const QString& name)
{
    const WineHome home;
    const QString path = home.write("system.reg", content);
    const Texts texts = WineHive::read(path, Names {{key, {name}}}, never);
    return texts.value(key).value(name, "missing");
}

void WineHiveTest::valueIsRead_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("text");

    const QByteArray key = "[Software\\\\Game] 1400000000\n#time=1d0\n";
    const auto row = [&](const char* name, const QByteArray& lines, const QString& text) {
        QTest::newRow(name) << (key + lines) << text;
    };
    row("text", R"("Dir"="C:\\Games\\Game")", R"(C:\Games\Game)");
    row("text in another case", R"("DIR"="C:\\Games")", R"(C:\Games)");
    row("text that is expanded elsewhere", R"("Dir"=str(2):"%A%\\Game")", R"(%A%\Game)");
    row("several texts", R"("Dir"=str(7):"C:\\One\0C:\\Two\0")", R"(C:\One)");
    row("quotation marks", R"("Dir"="C:\\\"Game\"")", R"(C:\"Game")");
    row("empty text", R"("Dir"="")", "");
    row("hexadecimal character", "\"Dir\"=\"C:\\\\Spi\\xe9l\"", QString::fromUtf8("C:\\Spi\u00e9l"));
    row("hexadecimal character of four digits", "\"Dir\"=\"C:\\\\\\x30b2X\"",
        QString::fromUtf8("C:\\\u30b2X"));
    row("hexadecimal character before a digit", "\"Dir\"=\"C:\\\\\\x00e95\"",
        QString::fromUtf8("C:\\\u00e95"));
    row("x without digits", R"("Dir"="C:\\a\xy")", R"(C:\axy)");
    row("characters beyond 16 bits", R"("Dir"="C:\\\xd83c\xdfae")", QString::fromUtf8("C:\\\U0001F3AE"));
    row("octal character", R"("Dir"="C:\\a\051b")", R"(C:\a)b)");
    row("zero ends the text", R"("Dir"="C:\\a\0b")", R"(C:\a)");
    row("letters for characters", R"("Dir"="\a\b\e\f\n\r\t\v\q")", "\a\b\x1b\f\n\r\t\vq");
    row("bytes of a text", R"("Dir"=hex(1):43,00,3a,00,5c,00,47,00,00,00)", R"(C:\G)");
    row("bytes without a type", R"("Dir"=hex:43,00,3a,00)", "C:");
    row("bytes of another type", R"("Dir"=hex(80000001):43,00,3a,00)", "C:");
    row("bytes on several lines", "\"Dir\"=hex(2):43,00,3a,00,\\\n  5c,00,\\\n  47,00,00,00", R"(C:\G)");
    row("bytes in capitals", R"("Dir"=hex(1):4A,00,e9,00)", QString::fromUtf8("J\u00e9"));
    row("odd number of bytes", R"("Dir"=hex(1):43,00,3a)", "C");
    row("no bytes", R"("Dir"=hex:)", "");
    row("value behind others", "\"A\"=\"1\"\n@=\"2\"\n\"Dir\"=\"3\"\n\"Z\"=\"4\"", "3");
    row("value behind bytes", "\"A\"=hex:01,02,\\\n  03\n\"Dir\"=\"3\"", "3");
    row("line ends of another system", "\"Dir\"=\"C:\\\\G\"\r", R"(C:\G)");
    row("same name twice", "\"Dir\"=\"1\"\n\"dir\"=\"2\"", "2");
    row("longest text", "\"Dir\"=\"" + QByteArray(259, 'x') + '"', QString(259, 'x'));
    row("longest bytes", "\"Dir\"=hex:" + QByteArray("78,00,").repeated(259) + "78,00", QString(260, 'x'));
    row("number", R"("Dir"=dword:00000043)", "missing");
    row("text that is not closed", R"("Dir"="C:\\Games)", "missing");
    row("backslash at the end", R"("Dir"="C:\)", "missing");
    row("type that is not closed", R"("Dir"=str(2:"C:")", "missing");
    row("type without a number", R"("Dir"=str():"C:")", "missing");
    row("text too long", "\"Dir\"=\"" + QByteArray(260, 'x') + '"', "missing");
    row("bytes too many", "\"Dir\"=hex:" + QByteArray("78,00,").repeated(260) + "78", "missing");
    row("bytes that are none", R"("Dir"=hex:43,zz)", "missing");
    row("name that is not closed", R"("Dir=x)", "missing");
    row("no equals sign", R"("Dir" "x")", "missing");
    row("longer name", R"("Dirs"="x")", "missing");
    row("shorter name", R"("Di"="x")", "missing");
    row("default value", R"(@="x")", "missing");
    row("nothing", "", "missing");
}

void WineHiveTest::valueIsRead()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, text);
    QCOMPARE(valueIn(WineHome::hive({lines})), text);
    // The last line of a file need not end.
    QCOMPARE(valueIn(WineHome::hive({}) + lines), text);
}

void WineHiveTest::valueOfAnotherKeyIsNotRead_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QString>("text");

    QTest::newRow("the key") << QByteArray("[Software\\\\Game]") << "x";
    QTest::newRow("another case") << QByteArray("[SOFTWARE\\\\gAME] 1") << "x";
    QTest::newRow("written in escapes") << QByteArray("[Software\\\\\\x0047ame] 1") << "x";
    QTest::newRow("key above") << QByteArray("[Software] 1") << "missing";
    QTest::newRow("key below") << QByteArray("[Software\\\\Game\\\\Sub] 1") << "missing";
    QTest::newRow("longer key") << QByteArray("[Software\\\\Games] 1") << "missing";
    QTest::newRow("key elsewhere") << QByteArray("[Other\\\\Software\\\\Game] 1") << "missing";
    QTest::newRow("key that is not closed") << QByteArray("[Software\\\\Game") << "missing";
    QTest::newRow("empty key") << QByteArray("[]") << "missing";
    QTest::newRow("bracket in the name") << QByteArray("[Software\\\\Game\\]] 1") << "missing";
    QTest::newRow("no key") << QByteArray("Software\\\\Game") << "missing";
}

void WineHiveTest::valueOfAnotherKeyIsNotRead()
{
    QFETCH(QByteArray, key);
    QFETCH(QString, text);
    QCOMPARE(valueIn(WineHome::hive({"[A] 1", key, R"("Dir"="x")", "[B] 1", R"("Dir"="y")"})), text);
    // Neither is one in front of it taken.
    QCOMPARE(valueIn(WineHome::hive({R"("Dir"="y")", key, R"("Dir"="x")"})), text);
}

void WineHiveTest::laterKeyOfTheSamePathAddsToTheEarlier()
{
    const WineHome home;
    const QString path = home.write("system.reg",
        WineHome::hive({"[K]", R"("A"="1")", R"("B"="2")", "[Other]", "[k]", R"("B"="3")", R"(@="4")"}));
    const Texts texts = WineHive::read(path, Names {{"k", {"a", "b", ""}}}, never);
    QCOMPARE(texts.value("k"), (QHash<QString, QString> {{"a", "1"}, {"b", "3"}, {"", "4"}}));
}

void WineHiveTest::namesAreFoldedBeyondAscii()
{
    QCOMPARE(WineHive::folded(QString::fromUtf8("AZ[\u00c9\u0416")), QString::fromUtf8("az[\u00e9\u0436"));
    QCOMPARE(valueIn(WineHome::hive({"[\\xc9t\\xe9]", "\"\\x0416\"=\"x\""}),
                 WineHive::folded(QString::fromUtf8("\u00e9t\u00c9")),
                 WineHive::folded(QString::fromUtf8("\u0436"))),
        QString("x"));
}

void WineHiveTest::manyValuesAreReadAtOnce()
{
    constexpr int count = 5000;
    Names wanted;
    QByteArray content = WineHome::hive({});
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        content +=
            "[Software\\\\Game " + number + "] 1\n\"Other\"=\"no\"\n\"Dir\"=\"C:\\\\" + number + "\"\n\n";
        // Every other one is wanted.
        if (i % 2 == 0)
            wanted[QString("software\\game %1").arg(i)].insert("dir");
    }
    const WineHome home;
    const Texts texts = WineHive::read(home.write("system.reg", content), wanted, never);
    QCOMPARE(texts.size(), count / 2);
    for (int i = 0; i < count; i += 2)
        QCOMPARE(texts[QString("software\\game %1").arg(i)],
            (QHash<QString, QString> {{"dir", QString("C:\\%1").arg(i)}}));
}

void WineHiveTest::otherThingsThanRegistriesHaveNoValues_data()
{
    QTest::addColumn<QByteArray>("content");

    const QByteArray value = "[Software\\\\Game]\n\"Dir\"=\"x\"\n";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blank line") << QByteArray("\n");
    QTest::newRow("no header") << value;
    QTest::newRow("header of another version") << QByteArray("WINE REGISTRY Version 1\n" + value);
    QTest::newRow("header on a later line") << QByteArray("\nWINE REGISTRY Version 2\n" + value);
    QTest::newRow("header alone") << QByteArray("WINE REGISTRY Version 2");
    QTest::newRow("zeros") << QByteArray(100000, '\0');
    QTest::newRow("long line without an end") << QByteArray(3 * 1024 * 1024, 'x');
    QTest::newRow("text in 16 bits") << QByteArray(
        reinterpret_cast<const char*>(u"WINE REGISTRY Version 2\n[Software\\\\Game]\n"), 82);
}

void WineHiveTest::otherThingsThanRegistriesHaveNoValues()
{
    QFETCH(QByteArray, content);
    QCOMPARE(valueIn(content), QString("missing"));
}

void WineHiveTest::missingFileHasNoValues()
{
    QVERIFY(WineHive::read("/none/system.reg", Names {{"k", {"v"}}}, never).isEmpty());
}

void WineHiveTest::folderAndPipeAreNotRead()
{
    const WineHome home;
    QVERIFY(WineHive::read(home.path(), Names {{"k", {"v"}}}, never).isEmpty());
    // Opening a pipe that nobody writes to would wait for ever.
    const QString pipe = home.path("system.reg");
    QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    QVERIFY(WineHive::read(pipe, Names {{"k", {"v"}}}, never).isEmpty());
}

void WineHiveTest::lineLongerThanAPieceIsPassedOver()
{
    for (const int length : {PieceSize - 1, PieceSize, PieceSize + 1, 5 * PieceSize}) {
        const QByteArray junk = "\"Junk\"=\"" + QByteArray(length, 'x') + '"';
        QCOMPARE(valueIn(WineHome::hive({"[Software\\\\Game]", junk, R"("Dir"="x")"})), QString("x"));
        // What stands at the end of such a line is not taken for a line.
        QCOMPARE(valueIn(WineHome::hive({"[Software\\\\Game]", QByteArray(length, ' ') + R"("Dir"="x")"})),
            QString("missing"));
    }
}

void WineHiveTest::lineAtTheEdgeOfAPieceIsWhole()
{
    const QByteArray begin = WineHome::hive({"[Software\\\\Game]"});
    const QByteArray value = "\"Dir\"=\"C:\\\\Games\"\n";
    for (int before = -int(value.size()) - 1; before <= 1; ++before) {
        const QByteArray filler = "\"A\"=\"" + QByteArray(PieceSize / 2 - 8, 'x') + "\"\n";
        QByteArray content = begin + filler;
        content += "\"B\"=\"" + QByteArray(PieceSize + before - int(content.size()) - 7, 'x') + "\"\n";
        content += value;
        QCOMPARE(valueIn(content), QString("C:\\Games"));
    }
}

void WineHiveTest::fileThatIsCutAnywhereHasTheValuesBeforeTheCut()
{
    const QByteArray content = WineHome::hive({"[A\\\\B] 1", "#time=1", R"("Other"=hex(1):01,02,\)",
        "  03,04", "[Software\\\\Game] 1400", R"("Dir"="C:\\a\x30b2b")"});
    for (int size = 0; size < content.size(); ++size) {
        const QString text = valueIn(content.left(size));
        QVERIFY2(text == "missing" || size >= content.size() - 1, qPrintable(text));
    }
}

void WineHiveTest::damagedBytesDoNoHarm()
{
    QRandomGenerator random(7);
    const QByteArray whole = WineHome::hive({"[Software\\\\Game] 1", R"("Other"=hex(1):01,02,\)", "  03,04",
        R"("Dir"="C:\\a\x30b2b")", R"("Dir2"=str(2):"\0\x\777")", "[Z] 1"});
    const WineHome home;
    for (int round = 0; round < 400; ++round) {
        QByteArray content = whole;
        for (int i = 0; i < 6; ++i) {
            const int place = int(WineHome::hive({}).size())
                + random.bounded(int(whole.size() - WineHome::hive({}).size()));
            constexpr char characters[] = "\\\"[]=,:@x0(7 \n\r\0\xff";
            content[place] = characters[random.bounded(int(sizeof characters))];
        }
        const Texts texts = WineHive::read(home.write("system.reg", content),
            Names {{"software\\game", {"dir", "dir2", "other", ""}}}, never);
        for (const auto& values : texts) {
            for (const QString& text : values)
                QVERIFY(text.size() <= 260);
        }
    }
}

void WineHiveTest::largeNonsenseIsNotFoundAndTakesLittleMemory_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("megabytes");

    QTest::newRow("zeros") << QByteArray(4096, '\0') << 200;
    QTest::newRow("keys") << QByteArray("[a]\n") << 40;
    QTest::newRow("open brackets") << QByteArray("[\n") << 40;
    QTest::newRow("values of the key") << QByteArray("\"Dir2\"=\"x\"\n") << 40;
    QTest::newRow("bytes that go on and on") << QByteArray("\"Dir\"=hex:41,00,\\\n") << 40;
    QTest::newRow("one line of bytes") << QByteArray("41,00,") << 40;
    QTest::newRow("backslashes") << QByteArray("\\") << 40;
}

void WineHiveTest::largeNonsenseIsNotFoundAndTakesLittleMemory()
{
    QFETCH(QByteArray, line);
    QFETCH(int, megabytes);
    const WineHome home;
    const QString path = home.write("system.reg", WineHome::hive({"[Software\\\\Game]"}));
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append));
    const QByteArray block = line.repeated(1024 * 1024 / line.size());
    for (int i = 0; i < megabytes; ++i)
        QVERIFY(file.write(block) > 0);
    file.close();

    const auto peakMemory = [] {
        QFile status("/proc/self/status");
        const bool isOpen = status.open(QIODevice::ReadOnly);
        const QByteArray text = isOpen ? status.readAll() : QByteArray();
        return text.mid(text.indexOf("VmHWM:") + 6, 20).simplified().split(' ').first().toLongLong();
    };
    const qint64 before = peakMemory();
    const Texts texts = WineHive::read(path, Names {{"software\\game", {"dir"}}}, never);
    QVERIFY(texts.isEmpty());
    QVERIFY(before > 0);
#ifndef __SANITIZE_ADDRESS__ // which keeps for a while what was freed
    const qint64 kilobytes = peakMemory() - before;
    QVERIFY2(kilobytes < 16384, qPrintable(QString::number(kilobytes)));
#endif
}

void WineHiveTest::cancelEndsTheReading()
{
    const WineHome home;
    const QString path = home.write("system.reg",
        WineHome::hive({"[K]", R"("A"="1")"}) + QByteArray(8 * 1024 * 1024, '\n') + "\"B\"=\"2\"\n");
    int asked = 0;
    const Texts texts = WineHive::read(path, Names {{"k", {"a", "b"}}}, [&asked] { return ++asked > 2; });
    QCOMPARE(asked, 3);
    QCOMPARE(texts.value("k"), (QHash<QString, QString> {{"a", "1"}}));
}

void WineHiveTest::nothingWantedReadsNothing()
{
    const WineHome home;
    const QString path = home.write("system.reg", WineHome::hive({"[K]", R"("A"="1")"}));
    int asked = 0;
    QVERIFY(WineHive::read(path, Names(), [&asked] { return ++asked < 0; }).isEmpty());
    QCOMPARE(asked, 0);
}

VELTRANO_TEST_MAIN(WineHiveTest)
#include "WineHiveTest.moc"
