#include "RandomProfiles.h"

#include <IElementReader.h>
#include <PlainMacroType.h>
#include <ProfileDocument.h>
#include <TestCase.h>
#include <XmlElement.h>

namespace {

using ProfileDocument::ReadResult;

ReadResult read(const QByteArray& document, const MacroTypeLookup& types = {})
{
    return ProfileDocument::read(document, types);
}

QByteArray write(const Profile& profile, const MacroTypeLookup& types = {})
{
    return ProfileDocument::write({profile}, types);
}

QByteArray wrapped(const QByteArray& content)
{
    return "<profiles version=\"1\"><profile uid=\"{1}\" name=\"P\">" + content + "</profile></profiles>";
}

/// A type whose data is one number in an attribute.
class NumberType : public PlainMacroType
{
public:
    cJsonValue XmlToJson(QDomElement element) override
    {
        cJsonValue data;
        if (element.tagName() == QLatin1String("number"))
            data["number"] = element.attribute(QStringLiteral("value")).toInt();
        return data;
    }
    QDomElement JsonToXml(QDomDocument document, cJsonValue macro) override
    {
        QDomElement element = document.createElement(QStringLiteral("number"));
        element.setAttribute(QStringLiteral("value"), macro["data"]["number"].toInt());
        element.setAttribute(QStringLiteral("also"), 1);
        return element;
    }
};

/// The same, read without a DOM.
class StreamedNumberType : public NumberType, public IElementReader
{
public:
    cJsonValue XmlToJson(QDomElement) override { return {}; }
    cJsonValue read(const XmlElement& element) const override
    {
        cJsonValue data;
        if (element.name == QLatin1String("number"))
            data["number"] = element.attribute(QLatin1String("value"))->toInt();
        return data;
    }
};

MacroTypeLookup numberType()
{
    return [](const QString& macroNamespace) {
        return macroNamespace == QLatin1String("urn:number") ? cMacroTypePtr(new NumberType)
                                                             : cMacroTypePtr();
    };
}

} // namespace

class ProfileDocumentTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void randomProfilesComeBackAsTheyWere();
    void equalContentMakesEqualBytes();
    void knownTypeReadsAndWritesItsElement();
    void typeThatReadsElementsIsShownNoDom();
    void elementsOfUnknownTypesAreKept_data();
    void elementsOfUnknownTypesAreKept();
    void unknownElementsAndAttributesAreKept();
    void unknownPartsOfKnownElementsAreKept_data();
    void unknownPartsOfKnownElementsAreKept();
    void elementAmongTheCommandsIsNoCommand();
    void prefixesOfTheRootAreKept();
    void extensionGoesWithItsResolution();
    void extensionGoesWithItsAssignment();
    void unknownModesAreKept();
    void textsOfAnyCharactersComeBack_data();
    void textsOfAnyCharactersComeBack();
    void carriageReturnInAnElementIsKept();
    void elementOfImpossibleCharactersIsReadWithoutThem();
    void dataThatTheTypeCantSayIsKept();
    void callersExtensionsNeverBreakTheDocument();
    void severalProfilesShareADocument();
    void loneProfileIsRead();
    void elementOfAnotherDocumentIsRead();
    void badDocumentIsRefused_data();
    void badDocumentIsRefused();
    void documentOfANewerVersionIsToldApart();
    void documentCutOffAnywhereIsRefused();
    void oversizedDocumentIsRefused();
};

void ProfileDocumentTest::randomProfilesComeBackAsTheyWere()
{
    for (quint32 seed = 0; seed < 500; ++seed) {
        const Profile profile = RandomProfiles(seed).profile();
        const ReadResult result = read(write(profile));
        QVERIFY2(
            result.error.isEmpty(), qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(result.error)));
        QCOMPARE(result.profiles.size(), std::size_t(1));
        QVERIFY2(result.profiles.front() == profile, qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

void ProfileDocumentTest::equalContentMakesEqualBytes()
{
    for (quint32 seed = 0; seed < 100; ++seed) {
        const QByteArray document = write(RandomProfiles(seed).profile());
        QCOMPARE(write(read(document).profiles.front()), document);
    }
}

void ProfileDocumentTest::knownTypeReadsAndWritesItsElement()
{
    const QByteArray document =
        wrapped("<macros><macro uid=\"{2}\" namespace=\"urn:number\"><data><number value=\"7\"/>"
                "</data></macro></macros>");
    const ReadResult result = read(document, numberType());
    QCOMPARE(result.error, QString());
    QCOMPARE(result.profiles.front().macros.front()["data"]["number"].toInt(), 7);
    // Attributes stand in the order of their names, whatever order the type made them in.
    QVERIFY(write(result.profiles.front(), numberType()).contains("<number also=\"1\" value=\"7\"/>"));
}

void ProfileDocumentTest::typeThatReadsElementsIsShownNoDom()
{
    const cMacroTypePtr type(new StreamedNumberType);
    const QByteArray document =
        wrapped("<macros><macro uid=\"{2}\"><data><number value=\"7\"/></data></macro>"
                "<macro uid=\"{3}\"><data><other b=\"1\" a=\"2\"> t </other></data></macro></macros>");
    const ReadResult result = read(document, [&](const QString&) { return type; });
    QCOMPARE(result.error, QString());
    QCOMPARE(result.profiles.front().macros[0]["data"]["number"].toInt(), 7);
    QVERIFY(write(result.profiles.front()).contains("<data><other a=\"2\" b=\"1\"> t </other></data>"));
}

void ProfileDocumentTest::elementsOfUnknownTypesAreKept_data()
{
    QTest::addColumn<QByteArray>("macroNamespace");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("no such type") << QByteArray("urn:other") << QByteArray("<a x=\"1\"> t <b/> u </a>");
    QTest::newRow("several elements") << QByteArray("urn:other") << QByteArray("<a/><b/>");
    QTest::newRow("element that the type does not know")
        << QByteArray("urn:number") << QByteArray("<text>1</text>");
    QTest::newRow("more than the type reads")
        << QByteArray("urn:number") << QByteArray("<number value=\"1\"/><b/>");
}

void ProfileDocumentTest::elementsOfUnknownTypesAreKept()
{
    QFETCH(QByteArray, macroNamespace);
    QFETCH(QByteArray, data);
    const QByteArray document = wrapped("<macros><macro uid=\"{2}\" namespace=\"" + macroNamespace
        + "\"><data>" + data + "</data></macro></macros>");
    const ReadResult result = read(document, numberType());
    QCOMPARE(result.error, QString());
    QVERIFY(write(result.profiles.front(), numberType()).contains("<data>" + data + "</data>"));
}

void ProfileDocumentTest::unknownElementsAndAttributesAreKept()
{
    const QByteArray macro =
        "<macro uid=\"{2}\" namespace=\"n\" later:x=\"1\"><later>1 &lt; 2</later></macro>";
    const QByteArray own = "<later:y b=\"2\" a=\"1\"><![CDATA[<raw>]]><!-- note --></later:y>";
    const QByteArray document = write(read(wrapped("<macros>" + macro + "</macros>" + own)).profiles.front());
    QVERIFY(document.contains("later:x=\"1\""));
    QVERIFY(document.contains("<later>1 &lt; 2</later>"));
    QVERIFY(document.contains(own));
}

void ProfileDocumentTest::unknownPartsOfKnownElementsAreKept_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("kept");
    const auto row = [](const char* name, const QByteArray& before, const QByteArray& kept,
                         const QByteArray& after) {
        QTest::newRow(name) << before + kept + after << kept;
    };
    row("signature", "", "<signature key=\"k\" value=\"\" executable=\"\" name=\"\" later=\"1\">",
        "<deeper/></signature>");
    row("repeat", "<macros><macro uid=\"{2}\">", "<repeat mode=\"toggle\" delay=\"30\" later=\"2\">",
        "<deeper/></repeat></macro></macros>");
    row("assignment", "<assignments category=\"c\">",
        "<assignment macrouid=\"{2}\" contextid=\"G1\" shiftstate=\"M1\" later=\"3\">",
        "<deeper/></assignment></assignments>");
    row("entry of a backup", "<backup category=\"c\">",
        "<assignment macrouid=\"\" contextid=\"G1\" shiftstate=\"M1\" later=\"3\">",
        "<deeper/></assignment></backup>");
    row("assignments", "", "<assignments category=\"c\" later=\"4\"", "><deeper/></assignments>");
    row("backup", "", "<backup category=\"c\" later=\"5\"", "><deeper/></backup>");
    row("backup with entries", "", "<backup category=\"c\" later=\"5\">",
        "<assignment macrouid=\"{2}\" contextid=\"G1\" shiftstate=\"M1\"/><deeper/></backup>");
    row("pointer", "",
        "<pointer model=\"m &amp; n\" speed=\"1\" reportrate=\"2\" defaultlevel=\"0\" shiftlevel=\"0\" "
        "later=\"6\"",
        "><deeper/></pointer>");
    row("resolution", "<pointer model=\"m\"><dpi x=\"1\" y=\"2\"/>", "<dpi x=\"1\" y=\"2\" later=\"7\">",
        "<deeper/></dpi></pointer>");
    row("macros", "", "<macros later=\"8\"", "><deeper/></macros>");
    row("description", "", "<description later=\"9\">a", "<deeper/>b</description>");
    row("icon", "", "<icon later=\"9\">iVBORw==", "<deeper/></icon>");
    row("script without a text", "", "<script later=\"9\">", "<deeper/></script>");
    row("property", "", "<property name=\"p\" later=\"10\">{}", "<deeper/></property>");
    row("property of a command", "<macros><macro uid=\"{2}\">", "<property name=\"p\" later=\"10\">[1]",
        "<deeper/></property></macro></macros>");
    row("data", "<macros><macro uid=\"{2}\" namespace=\"urn:number\">",
        "<data later=\"11\"><number also=\"1\" value=\"1\"/>", "</data><deeper/></macro></macros>");
    row("data in JSON", "<macros><macro uid=\"{2}\">", "<data later=\"11\" format=\"json\">[1]",
        "<deeper/></data></macro></macros>");
    row("data without content", "<macros><macro uid=\"{2}\">", "<data later=\"11\"",
        "/><deeper/></macro></macros>");
    row("data of another form", "<macros><macro uid=\"{2}\" namespace=\"urn:number\">",
        "<data format=\"packed\" later=\"12\">YWJj<deeper/>d</data>", "</macro></macros>");
    row("data that is a text", "<macros><macro uid=\"{2}\" namespace=\"urn:number\">",
        "<data><number value=\"1\"/>and more<deeper/></data>", "</macro></macros>");
}

void ProfileDocumentTest::unknownPartsOfKnownElementsAreKept()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, kept);
    const QByteArray document = write(read(wrapped(content), numberType()).profiles.front(), numberType());
    QVERIFY2(document.contains(kept), document.constData());
    QCOMPARE(document.count("<deeper/>"), 1);
    const ReadResult again = read(document, numberType());
    QCOMPARE(again.error, QString());
    QCOMPARE(write(again.profiles.front(), numberType()), document);
}

void ProfileDocumentTest::elementAmongTheCommandsIsNoCommand()
{
    const QByteArray group = "<group name=\"later\"><macro uid=\"{3}\"/></group>";
    const Profile profile =
        read(wrapped("<macros><macro uid=\"{2}\"/>" + group + "</macros>")).profiles.front();
    QCOMPARE(profile.macros.size(), std::size_t(1));
    const QByteArray document = write(profile);
    QCOMPARE(document.count(group), 1);
    QCOMPARE(write(read(document).profiles.front()), document);
}

void ProfileDocumentTest::prefixesOfTheRootAreKept()
{
    const QByteArray document =
        write(read("<profiles version=\"1\" xmlns:later=\"urn:later\"><profile uid=\"{1}\">"
                   "<later:thing/></profile></profiles>")
                  .profiles.front());
    QVERIFY2(document.contains("<profiles version=\"1\" xmlns:later=\"urn:later\">"), document.constData());
    QDomDocument dom;
    QVERIFY(dom.setContent(document, true));
}

void ProfileDocumentTest::extensionGoesWithItsResolution()
{
    Profile profile =
        read(wrapped("<pointer model=\"m\"><dpi x=\"1\" y=\"2\" later=\"3\"/></pointer>")).profiles.front();
    profile.pointers["m"].dpi.levels[0].x = 400;
    QVERIFY(!write(profile).contains("later"));
}

void ProfileDocumentTest::extensionGoesWithItsAssignment()
{
    Profile profile =
        read(wrapped("<assignments category=\"c\"><assignment macrouid=\"{2}\" contextid=\"G1\" "
                     "shiftstate=\"M1\" later=\"3\"/></assignments>"))
            .profiles.front();
    profile.assignments[{"c", MKey::M1, "G1"}] = QStringLiteral("{3}");
    QVERIFY(!write(profile).contains("later"));
}

void ProfileDocumentTest::unknownModesAreKept()
{
    const QByteArray later = "<assignment macrouid=\"{3}\" contextid=\"G1\" shiftstate=\"M4\"/>";
    const Profile profile = read(wrapped("<assignments category=\"c\"><assignment macrouid=\"{2}\" "
                                         "contextid=\"G1\" shiftstate=\"M1\"/>"
                                     + later + "</assignments>"))
                                .profiles.front();
    QCOMPARE(profile.assignments.size(), std::size_t(1));
    QCOMPARE(profile.assignments.begin()->second, QStringLiteral("{2}"));
    const QByteArray document = write(profile);
    QCOMPARE(document.count(later), 1);
    QCOMPARE(write(read(document).profiles.front()), document);
}

void ProfileDocumentTest::textsOfAnyCharactersComeBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("lines of Windows") << QStringLiteral("a\r\nb\rc");
    QTest::newRow("control characters") << QStringLiteral("a\x01\x0c\x1f b");
    QTest::newRow("zero") << QString("a") + QChar(0) + QLatin1Char('b');
    QTest::newRow("no character") << QString(QChar(0xFFFE)) + QChar(0xFFFF);
    QTest::newRow("blanks") << QStringLiteral(" \t\n x \n");
}

void ProfileDocumentTest::textsOfAnyCharactersComeBack()
{
    QFETCH(QString, text);
    Profile profile;
    for (const char* key : {"name", "description", "script", "target"})
        profile.properties[key] = text;
    cJsonValue macro;
    macro["uid"] = "{2}";
    macro["name"] = text;
    macro["hidden"] = false;
    macro["data"]["text"] = text;
    profile.macros.push_back(macro);
    const ReadResult result = read(write(profile));
    QCOMPARE(result.error, QString());
    QVERIFY(result.profiles.front() == profile);

    // Half of a character can't be kept, and must not cost the rest.
    profile.properties["name"] = text + QChar(0xD800) + QLatin1Char('x');
    const ReadResult halved = read(write(profile));
    QCOMPARE(halved.error, QString());
    QVERIFY(halved.profiles.front().name().endsWith(QLatin1Char('x')));
}

void ProfileDocumentTest::carriageReturnInAnElementIsKept()
{
    const QByteArray element = "<later>a&#13;b</later>";
    QVERIFY(write(read(wrapped(element)).profiles.front()).contains(element));
}

void ProfileDocumentTest::elementOfImpossibleCharactersIsReadWithoutThem()
{
    QDomDocument document;
    QDomElement profile = document.createElement("profile");
    profile.setAttribute("name", QStringLiteral("a\x01 b"));
    QDomElement script = document.createElement("script");
    script.appendChild(document.createTextNode(QStringLiteral("c\x02\rd") + QChar(0xDC00)));
    profile.appendChild(script);
    const ReadResult result = ProfileDocument::readElement(profile, {});
    QCOMPARE(result.error, QString());
    QCOMPARE(result.profiles.front().name(), QStringLiteral("a b"));
    QCOMPARE(result.profiles.front().properties["script"].toString(), QStringLiteral("c\rd"));
}

void ProfileDocumentTest::dataThatTheTypeCantSayIsKept()
{
    Profile profile;
    cJsonValue macro;
    macro["uid"] = "{2}";
    macro["namespace"] = "urn:number";
    macro["hidden"] = false;
    macro["data"]["number"] = 7;
    macro["data"]["more"] = "text";
    profile.macros.push_back(macro);
    const ReadResult result = read(write(profile, numberType()), numberType());
    QVERIFY(result.profiles.front() == profile);
}

void ProfileDocumentTest::callersExtensionsNeverBreakTheDocument()
{
    Profile profile;
    cJsonValue macro;
    macro["uid"] = "{2}";
    macro["extension_attributes"]["uid"] = "{3}";
    macro["extension_attributes"]["a b=<"] = "x";
    macro["extension_elements"].append("<a><b>");
    macro["extension_elements"].append("</macro>");
    macro["extension_elements"].append("<good/>");
    macro["data"]["raw_xml"] = "<open>";
    profile.macros.push_back(macro);
    const ReadResult result = read(write(profile));
    QCOMPARE(result.error, QString());
    const cJsonValue& back = result.profiles.front().macros.front();
    QCOMPARE(back["uid"].toString(), QStringLiteral("{2}"));
    QCOMPARE(back["extension_elements"].size(), 1u);
    QVERIFY(back["data"] == macro["data"]);
}

void ProfileDocumentTest::severalProfilesShareADocument()
{
    RandomProfiles random(1);
    const std::vector<Profile> profiles {random.profile(), random.profile(), random.profile()};
    const ReadResult result = read(ProfileDocument::write(profiles, {}));
    QVERIFY(result.profiles == profiles);
}

void ProfileDocumentTest::loneProfileIsRead()
{
    const ReadResult result = read("<profile uid=\"{1}\" name=\"P\"/>");
    QCOMPARE(result.profiles.size(), std::size_t(1));
    QCOMPARE(result.profiles.front().name(), QStringLiteral("P"));
}

void ProfileDocumentTest::elementOfAnotherDocumentIsRead()
{
    QDomDocument database;
    QVERIFY(database.setContent(QByteArray(
        "<profiles><profile name=\"Game\"><signature key=\"k\" name=\"n\"/></profile></profiles>")));
    const QDomElement element = database.documentElement().firstChildElement();
    const ReadResult result = ProfileDocument::readElement(element, {});
    QCOMPARE(result.profiles.front().name(), QStringLiteral("Game"));
    QCOMPARE(result.profiles.front().properties["signatures"][0]["key"].toString(), QStringLiteral("k"));
    QVERIFY(ProfileDocument::readElement(QDomElement(), {}).profiles.empty());
}

void ProfileDocumentTest::badDocumentIsRefused_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blank") << QByteArray("  \n ");
    QTest::newRow("no XML") << QByteArray("MZ\x90\0\x03 binary", 12);
    QTest::newRow("another kind of XML") << QByteArray("<html><body/></html>");
    QTest::newRow("no version") << QByteArray("<profiles><profile uid=\"{1}\"/></profiles>");
    QTest::newRow("version that is no number") << QByteArray("<profiles version=\"x\"/>");
    QTest::newRow("something beside profiles") << QByteArray("<profiles version=\"1\"><other/></profiles>");
    QTest::newRow("text behind the root") << QByteArray("<profiles version=\"1\"/>more");
    QTest::newRow("wrong nesting") << wrapped("<macros></profile></macros>");
    QTest::newRow("JSON that is none") << wrapped("<property name=\"x\">{</property>");
    QTest::newRow("entity bomb")
        << QByteArray("<!DOCTYPE b [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
                      "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d "
                      "\"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">]>")
            + wrapped("<description>&d;&d;&d;&d;&d;</description>");
    QTest::newRow("entity from outside")
        << QByteArray("<!DOCTYPE b [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>")
            + wrapped("<description>&a;</description>");
    QTest::newRow("icon of nested elements")
        << wrapped("<icon>" + QByteArray("<a>").repeated(2000000) + "</icon>");
    QTest::newRow("nested too deeply")
        << wrapped(QByteArray("<x>").repeated(5000) + QByteArray("</x>").repeated(5000));
}

void ProfileDocumentTest::badDocumentIsRefused()
{
    QFETCH(QByteArray, document);
    const ReadResult result = read(document);
    QVERIFY(result.profiles.empty());
    QVERIFY(!result.error.isEmpty());
    QVERIFY(!result.isNewer);
}

void ProfileDocumentTest::documentOfANewerVersionIsToldApart()
{
    const ReadResult result = read("<profiles version=\"2\"><profile uid=\"{1}\"/></profiles>");
    QVERIFY(result.isNewer);
    QVERIFY(result.profiles.empty());
    QVERIFY(!result.error.isEmpty());
}

void ProfileDocumentTest::documentCutOffAnywhereIsRefused()
{
    const QByteArray document = write(RandomProfiles(7).profile()).trimmed();
    for (int length = 0; length < document.size(); ++length) {
        const ReadResult result = read(document.left(length));
        QVERIFY2(result.profiles.empty() && !result.error.isEmpty(), qPrintable(QString::number(length)));
    }
}

void ProfileDocumentTest::oversizedDocumentIsRefused()
{
    const QByteArray document =
        wrapped("<description>" + QByteArray(int(ProfileDocument::MaxSize), 'x') + "</description>");
    const ReadResult result = read(document);
    QVERIFY(result.profiles.empty());
    QVERIFY(result.error.contains(QStringLiteral("MB")));
}

VELTRANO_TEST_MAIN(ProfileDocumentTest)
#include "ProfileDocumentTest.moc"
