#include <HVS.h>
#include <TestCase.h>

#include <QDomDocument>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray nested(int levels)
{
    return QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

QByteArray utf16(const QString& text)
{
    return QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
}

/// Entities that each stand for ten of the one before, 10^10 characters in all.
QByteArray entityBomb()
{
    QByteArray type = "<!DOCTYPE a [<!ENTITY e0 '0123456789'>";
    for (int i = 1; i < 10; ++i) {
        const QByteArray inner = "&e" + QByteArray::number(i - 1) + ";";
        type += "<!ENTITY e" + QByteArray::number(i) + " '" + inner.repeated(10) + "'>";
    }
    return type + "]>";
}

} // namespace

class FileReadDomTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void readsElementsAttributesAndTexts();
    void namespacesAreProcessedIfWanted();
    void encodingsAreRead_data();
    void encodingsAreRead();
    void entitiesOfTheDocumentAreRead();
    void documentIsReplacedNotAddedTo();
    void otherHandlesKeepTheFormerDocument();
    void resourcePathIsRead();
    void missingFileIsRefused();
    void folderIsRefused();
    void pipeIsRefused();
    void unreadableFileIsRefused();
    void errorWhileReadingIsReported();
    void hugeFileIsRefusedAtOnce();
    void largeFileIsReadInTime();
    void depthLimitIsExact();
    void attributeLimitIsExact();
    void nodeLimitRefusesWhatTheMemoryCouldNotHold();
    void badFileIsRefused_data();
    void badFileIsRefused();
    void entityOfAnotherFileIsNotRead_data();
    void entityOfAnotherFileIsNotRead();

private:
    QString write(const QByteArray& content);
    /// Reads a file that has to be refused with one warning that holds `reason`.
    void refuse(const QString& path, const QString& reason);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void FileReadDomTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void FileReadDomTest::cleanup()
{
    m_folder.reset();
}

QString FileReadDomTest::write(const QByteArray& content)
{
    QFile file(m_folder->filePath("file.xml"));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("can't write", __FILE__, __LINE__);
    return file.fileName();
}

void FileReadDomTest::refuse(const QString& path, const QString& reason)
{
    for (bool namespaceProcessing : {false, true}) {
        QDomDocument document;
        document.setContent(QByteArray("<before/>"));
        const QRegularExpression line(
            QStringLiteral("^Can't read %1: [^\n]*%2[^\n]*$")
                .arg(QRegularExpression::escape(path), QRegularExpression::escape(reason)));
        const ExpectedMessage message(QtWarningMsg, line);
        QVERIFY(!HVS::FileReadDom(path, document, namespaceProcessing));
        QCOMPARE(document.toString(-1), QString("<before/>"));
    }
}

void FileReadDomTest::readsElementsAttributesAndTexts()
{
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(
        write("<?xml version='1.0'?>\n<!-- c --><db>\n <game name='a &lt; &#228;'>t<![CDATA[<x>]]>"
              "</game>\n <game/></db>\n"),
        document, false));
    const QDomElement root = document.documentElement();
    QCOMPARE(root.tagName(), QString("db"));
    QCOMPARE(root.childNodes().count(), 2);
    QCOMPARE(root.firstChildElement("game").attribute("name"), QString::fromUtf8("a < \xc3\xa4"));
    QCOMPARE(root.firstChildElement("game").text(), QString("t<x>"));
}

void FileReadDomTest::namespacesAreProcessedIfWanted()
{
    const QString path = write("<p:db xmlns:p='urn:x'><p:game/></p:db>");
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(path, document, true));
    QCOMPARE(document.documentElement().namespaceURI(), QString("urn:x"));
    QCOMPARE(document.documentElement().localName(), QString("db"));
    QVERIFY(HVS::FileReadDom(path, document, false));
    QCOMPARE(document.documentElement().namespaceURI(), QString());
    QCOMPARE(document.documentElement().tagName(), QString("p:db"));

    const QString unbound = write("<p:db/>");
    QVERIFY(HVS::FileReadDom(unbound, document, false));
    const ExpectedMessage message(QtWarningMsg, QRegularExpression("prefix 'p' not declared"));
    QVERIFY(!HVS::FileReadDom(unbound, document, true));
}

void FileReadDomTest::encodingsAreRead_data()
{
    QTest::addColumn<QByteArray>("content");
    const QString text = QStringLiteral(u"<a>\u00e4</a>");
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with mark") << "\xef\xbb\xbf" + text.toUtf8();
    QTest::newRow("UTF-8 declared with mark")
        << "\xef\xbb\xbf<?xml version='1.0' encoding='utf-8'?>" + text.toUtf8();
    QTest::newRow("Latin 1") << QByteArray("<?xml version='1.0' encoding=\"ISO-8859-1\"?><a>\xe4</a>");
    QTest::newRow("Windows") << QByteArray("<?xml version='1.0' encoding='windows-1252' ?><a>\xe4</a>");
    QTest::newRow("UTF-16") << "\xff\xfe" + utf16("<?xml version='1.0' encoding='utf-16'?>" + text);
    QTest::newRow("UTF-16 undeclared") << "\xff\xfe" + utf16(text);
}

void FileReadDomTest::encodingsAreRead()
{
    QFETCH(QByteArray, content);
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(write(content), document, false));
    QCOMPARE(document.documentElement().text(), QStringLiteral(u"\u00e4"));
}

void FileReadDomTest::entitiesOfTheDocumentAreRead()
{
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(
        write("<!DOCTYPE a [<!-- x --><!ENTITY e 'entity'>]><a b='&e;'/>"), document, false));
    QCOMPARE(document.documentElement().attribute("b"), QString("entity"));
    QVERIFY(HVS::FileReadDom(write("<!DOCTYPE a><a>text</a>"), document, false));
    QCOMPARE(document.documentElement().text(), QString("text"));
}

void FileReadDomTest::documentIsReplacedNotAddedTo()
{
    QDomDocument document;
    document.setContent(QByteArray("<before/>"));
    QVERIFY(HVS::FileReadDom(write("<after/>"), document, false));
    QCOMPARE(document.toString(-1), QString("<after/>"));
}

void FileReadDomTest::otherHandlesKeepTheFormerDocument()
{
    QDomDocument document;
    document.setContent(QByteArray("<before/>"));
    const QDomDocument former = document;
    QVERIFY(HVS::FileReadDom(write("<after/>"), document, false));
    QCOMPARE(former.toString(-1), QString("<before/>"));
}

void FileReadDomTest::resourcePathIsRead()
{
    write("<a/>");
    QDir::addSearchPath("FileReadDomTest", m_folder->path());
    QDomDocument document;
    QVERIFY(HVS::FileReadDom("FileReadDomTest:/file.xml", document, false));
}

void FileReadDomTest::missingFileIsRefused()
{
    refuse(m_folder->filePath("missing.xml"), "there is no such file");
    refuse(QString(), "there is no such file");
    QVERIFY(QFile::link(m_folder->filePath("missing.xml"), m_folder->filePath("link.xml")));
    refuse(m_folder->filePath("link.xml"), "there is no such file");
}

void FileReadDomTest::folderIsRefused()
{
    refuse(m_folder->path(), "it is not a file");
}

void FileReadDomTest::pipeIsRefused()
{
    // Opening it would wait for somebody to write.
    const QString path = m_folder->filePath("pipe");
    QCOMPARE(mkfifo(qPrintable(path), S_IRUSR | S_IWUSR), 0);
    refuse(path, "it is not a file");
}

void FileReadDomTest::unreadableFileIsRefused()
{
    if (geteuid() == 0)
        QSKIP("everything is readable for the superuser");
    const QString path = write("<a/>");
    QVERIFY(QFile::setPermissions(path, QFile::WriteOwner));
    refuse(path, "");
}

void FileReadDomTest::errorWhileReadingIsReported()
{
    // Can be opened, but has nothing at its beginning that could be read.
    refuse("/proc/self/mem", "Input/output error");
}

void FileReadDomTest::hugeFileIsRefusedAtOnce()
{
    const QString path = write("<a>");
    constexpr qint64 size = 100'000'000;
    QVERIFY(QFile::resize(path, size));
    QElapsedTimer time;
    time.start();
    refuse(path, "it is larger than 64 MiB");
    QVERIFY2(time.elapsed() < 2000, qPrintable(QString::number(time.elapsed())));
    QVERIFY(QFile::resize(path, HVS::MaxDomFileSize + 1));
    refuse(path, "it is larger than 64 MiB");
}

void FileReadDomTest::largeFileIsReadInTime()
{
    constexpr int games = 220'000;
    const QString path = write("<db>"
        + QByteArray("  <game name=\"Some game\" id=\"0123456789\"><macro key=\"a\">the macro's text</macro>"
                     "<x y=\"z\"/></game>\n")
              .repeated(games)
        + "</db>");
    QVERIFY(QFileInfo(path).size() > 20'000'000);
    QElapsedTimer time;
    time.start();
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(path, document, false));
    QCOMPARE(document.documentElement().childNodes().count(), games);
    // A generous bound, also for instrumented builds; anything that isn't linear takes far longer.
    QVERIFY2(time.elapsed() < 120'000, qPrintable(QString::number(time.elapsed())));
}

void FileReadDomTest::depthLimitIsExact()
{
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(write(nested(HVS::MaxDomDepth)), document, false));
    refuse(write(nested(HVS::MaxDomDepth + 1)),
        "line 1, column 771: elements are nested deeper than 256 levels");
    refuse(write(nested(1'000'000)), "elements are nested deeper than 256 levels");
    refuse(write(QByteArray("<a>").repeated(1'000'000)), "elements are nested deeper than 256 levels");
}

void FileReadDomTest::attributeLimitIsExact()
{
    const auto tag = [](int attributes) {
        QByteArray text = "<a";
        for (int i = 0; i < attributes; ++i)
            text += " a" + QByteArray::number(i) + "='>'";
        return text + "/>";
    };
    constexpr int most = 256;
    QDomDocument document;
    QVERIFY(HVS::FileReadDom(write(tag(most)), document, false));
    QCOMPARE(document.documentElement().attributes().count(), most);
    refuse(write(tag(most + 1)), "more than 256 attributes in a tag");
    refuse(write(tag(1'000'000)), "more than 256 attributes in a tag");
    // Quotes and tags that are none don't distract from it.
    refuse(write("<!-- <x ' --><a><![CDATA[<y \"]]><?z <z '?>" + tag(100'000) + "</a>"),
        "more than 256 attributes in a tag");
    QVERIFY(
        HVS::FileReadDom(write("<a>" + QByteArray("x = '1' ").repeated(most * 2) + "</a>"), document, false));
}

void FileReadDomTest::nodeLimitRefusesWhatTheMemoryCouldNotHold()
{
    refuse(write("<a>" + QByteArray("<a/>").repeated(HVS::MaxDomNodes / 2) + "</a>"),
        "more than 4000000 elements, attributes and texts");
}

void FileReadDomTest::badFileIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& content, const QString& reason) {
        QTest::newRow(name) << content << reason;
    };
    row("empty", "", "it is empty");
    row("only space", " \n\n ", "line 3, column 1: ");
    row("no XML", "hello", "line 1, column ");
    row("comment alone", "<!-- x -->", "line 1, column ");
    row("open element", "<a>\n<b></b>", "line 2, column 7: ");
    row("wrong end", "<a>\n <b>\n</a>", "line 3, column ");
    row("end alone", "</a>", "line 1, column ");
    row("cut within a tag", "<a><b c='", "line 1, column ");
    row("cut within a comment", "<a><!-- ", "line 1, column ");
    row("cut within character data", "<a><![CDATA[x", "line 1, column ");
    row("two roots", "<a/>\n<b/>", "line 2, column ");
    row("text behind the root", "<a/>x", "line 1, column ");
    row("attribute twice", "<a b='1' b='2'/>", "line 1, column ");
    row("attribute without quotes", "<a b=1/>", "line 1, column ");
    row("attribute with a tag", "<a b='<c/>'/>", "line 1, column ");
    row("unknown entity", "<a>\n&nbsp;</a>", "line 2, column ");
    row("bare ampersand", "<a>a & b</a>", "line 1, column ");
    row("nul", QByteArray("<a>x\0y</a>", 10), "line 1, column ");
    row("character that can't be", "<a>&#0;</a>", "line 1, column ");
    row("broken UTF-8", "<a>\xe4</a>", "it is not in the encoding UTF-8");
    row("unknown encoding", "<?xml version='1.0' encoding='none-such'?><a/>",
        "its encoding none-such is unknown");
    row("UTF-16 without mark", utf16("<a/>"), "line 1, column ");
    row("binary", QByteArray("\x89PNG\r\n\x1a\n\0\0", 10), "it is not in the encoding UTF-8");
    row("line ends in the reason", "<a b\n=\n\n>", "line ");
    row("entity bomb", entityBomb() + "<a>&e9;</a>", "expan");
    row("entity bomb in an attribute", entityBomb() + "<a b='&e9;'/>", "expan");
    row("entity bomb that is not lit", entityBomb() + "<a/>", "line 1, column ");
    row("entity of itself", "<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a>&e;</a>", "line 1, column ");
    row("parameter entity", "<!DOCTYPE a [<!ENTITY % p '<!ENTITY e \"x\">'> %p;]><a>&e;</a>",
        "a parameter entity");
    row("entity used very often",
        "<!DOCTYPE a [<!ENTITY e '" + QByteArray(4000, 'x') + "'>]><a>"
            + QByteArray("&e;").repeated(1'000'000) + "</a>",
        "more than 10000 references to entities");
    row("long entity", "<!DOCTYPE a [<!ENTITY e '" + QByteArray(1'000'000, 'x') + "'>]><a>&e;</a>",
        "a document type of more than 4096 characters");
    row("many attributes by default",
        "<!DOCTYPE a [" + QByteArray("<!ATTLIST b c CDATA 'x'>").repeated(10'000) + "]><a><b/></a>",
        "a document type of more than 4096 characters");
    row("long attribute by default",
        "<!DOCTYPE a [<!ATTLIST b c CDATA '" + QByteArray(4000, 'x') + "'>]><a>"
            + QByteArray("<b/>").repeated(1'000'000) + "</a>",
        "entities expand to more than 67108864 characters");
}

void FileReadDomTest::badFileIsRefused()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QString path = write(content);
    QElapsedTimer time;
    time.start();
    refuse(path, reason);
    // Both passes together, also in instrumented builds.
    QVERIFY2(time.elapsed() < 20'000, qPrintable(QString::number(time.elapsed())));
}

void FileReadDomTest::entityOfAnotherFileIsNotRead_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& content, const QString& reason) {
        QTest::newRow(name) << content << reason;
    };
    row("entity", "<!DOCTYPE a [<!ENTITY e SYSTEM '%1'>]><a>&e;</a>", "an entity outside of the file");
    row("entity by address", "<!DOCTYPE a [<!ENTITY e SYSTEM 'file://%1'>]><a>&e;</a>",
        "an entity outside of the file");
    row("public entity", "<!DOCTYPE a [<!ENTITY e PUBLIC 'x' '%1'>]><a>&e;</a>",
        "an entity outside of the file");
    row("entity in an attribute", "<!DOCTYPE a [<!ENTITY e SYSTEM '%1'>]><a b='&e;'/>", "line 1, column ");
    row("entity that is not used", "<!DOCTYPE a [<!ENTITY e SYSTEM '%1'>]><a/>",
        "an entity outside of the file");
    row("parameter entity", "<!DOCTYPE a [<!ENTITY % e SYSTEM '%1'> %e;]><a>x</a>",
        "an entity outside of the file");
    row("entity by a parameter entity",
        "<!DOCTYPE a [<!ENTITY % p '<!ENTITY e SYSTEM \"%1\">'> %p;]><a>&e;</a>", "line 1, column ");
    row("document type", "<!DOCTYPE a SYSTEM '%1'><a>x</a>", "a document type outside of the file");
    row("public document type", "<!DOCTYPE a PUBLIC 'x' '%1'><a>x</a>",
        "a document type outside of the file");
}

void FileReadDomTest::entityOfAnotherFileIsNotRead()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    QFile secret(m_folder->filePath("secret.txt"));
    QVERIFY(secret.open(QIODevice::WriteOnly));
    secret.write("secret");
    secret.close();
    refuse(write(content.replace("%1", secret.fileName().toUtf8())), reason);
}

VELTRANO_TEST_MAIN(FileReadDomTest)
#include "FileReadDomTest.moc"
