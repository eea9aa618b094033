#include <cMacroTypeMgrService.h>
#include <FixedIds.h>
#include <JsonText.h>
#include <MacroTypeIds.h>
#include <MacroTypes.h>
#include <ProfileDocument.h>
#include <TestCase.h>

#include <QImage>
#include <QSet>
#include <QTextStream>

#include <random>

namespace {

class IgnoringSink : public IInputSink
{
public:
    void send(const InputEvent&) override { }
};

IMacroTypePtrList types()
{
    return MacroTypes::all(std::make_shared<IgnoringSink>());
}

cMacroTypePtr typeOf(const QString& uid)
{
    for (const cMacroTypePtr& type : types()) {
        if (type->info()["uid"].toString() == uid)
            return type;
    }
    return {};
}

QDomElement parse(const QByteArray& xml)
{
    QDomDocument document;
    document.setContent(xml);
    return document.documentElement();
}

cJsonValue json(const QByteArray& text)
{
    cJsonValue value;
    HVS::fromJsonText(text, value);
    return value;
}

/// The data after a way through a profile document, which the types write and read.
cJsonValue stored(const QString& uid, const cJsonValue& data, QByteArray* document = nullptr)
{
    const MacroTypeLookup lookup = [](const QString& macroNamespace) {
        return typeOf(macroNamespace);
    };
    Profile profile;
    profile.properties["uid"] = "{1}";
    cJsonValue macro;
    macro["uid"] = "{2}";
    macro["namespace"] = uid;
    macro["data"] = data;
    profile.macros.push_back(macro);
    const QByteArray written = ProfileDocument::write({profile}, lookup);
    if (document)
        *document = written;
    const ProfileDocument::ReadResult result = ProfileDocument::read(written, lookup);
    if (result.profiles.size() != 1 || result.profiles[0].macros.size() != 1)
        return "unreadable: " + result.error;
    return result.profiles[0].macros[0]["data"];
}

/// Makes data of each type, and now and then something else under one of its keys.
class RandomData
{
public:
    explicit RandomData(unsigned seed)
        : m_random(seed)
    { }

    int below(int limit) { return int(m_random() % unsigned(limit)); }

    QString text()
    {
        static const QString letters =
            QStringLiteral("aB9 .+<>&\"'\t\r\n\u00a0\u20ac]]>") + QChar(0xd83d) + QChar(0xdc4d) + QChar(1);
        QString result;
        for (int n = below(12); n > 0; --n)
            result += letters[below(letters.size())];
        return result;
    }

    cJsonValue odd()
    {
        switch (below(7)) {
        case 0:
            return {};
        case 1:
            return below(2) == 0;
        case 2:
            return -below(1000);
        case 3:
            return 0.5 * below(1000);
        case 4:
            return text();
        case 5:
            return json("[1, {\"a\": null}]");
        default:
            return json("{\"a\": 4294967296}");
        }
    }

    void put(cJsonValue& record, const char* key, const cJsonValue& value, bool isOptional = false)
    {
        if (isOptional && below(2) == 0)
            return;
        record[key] = below(12) == 0 ? odd() : value;
    }

    cJsonValue data(const QString& uid)
    {
        cJsonValue record(cJsonValue::objectValue);
        if (uid == MacroTypeIds::Keystroke) {
            put(record, "keys", text());
            put(record, "scancode", below(255), true);
        } else if (uid == MacroTypeIds::MultiKey) {
            cJsonValue events(cJsonValue::arrayValue);
            for (int n = below(5); n > 0; --n) {
                cJsonValue event;
                put(event, "type", below(2) ? "press" : "release");
                put(event, "key", text());
                put(event, "delay", below(1000) - 10);
                put(event, "scancode", below(255), true);
                events.append(below(20) == 0 ? odd() : event);
            }
            put(record, "events", events);
        } else if (uid == MacroTypeIds::TextBlock) {
            put(record, "text", text());
        } else if (uid == MacroTypeIds::Launch) {
            put(record, "path", text());
            put(record, "arguments", text(), true);
            put(record, "folder", text(), true);
        } else {
            put(record, "function", text());
            put(record, "argument", text(), true);
        }
        if (below(10) == 0)
            record["later"] = odd();
        return record;
    }

private:
    std::mt19937 m_random;
};

} // namespace

class MacroTypesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void typesAreDescribed_data();
    void typesAreDescribed();
    void iconsAreThere();
    void allAreRegisteredInOrder();
    void secondRegistrationIsRefused();
    void dataIsReadableInADocument_data();
    void dataIsReadableInADocument();
    void elementComesBackAsItWas_data();
    void elementComesBackAsItWas();
    void elementWithMoreIsLeftToTheStore_data();
    void elementWithMoreIsLeftToTheStore();
    void randomDataComesBackAsItWas();
    void indentedElementsAreRead();
    void elementOfAnotherTypeIsNotRead();
    void badDataMakesNoElement_data();
    void badDataMakesNoElement();
    void thousandsOfEventsComeBack();
};

void MacroTypesTest::typesAreDescribed_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<bool>("isRepeatable");
    QTest::addColumn<bool>("isPrivate");
    QTest::addColumn<bool>("isFixedName");
    QTest::addColumn<QString>("controls");
    const QString any = "key button wheel-tilt stick-direction stick-press";
    QTest::newRow("Keystroke") << QString(MacroTypeIds::Keystroke) << true << false << false << any;
    QTest::newRow("Multi Key") << QString(MacroTypeIds::MultiKey) << true << false << false << any;
    QTest::newRow("Text Block") << QString(MacroTypeIds::TextBlock) << true << false << false << any;
    QTest::newRow("Mouse Function") << QString(MacroNamespaces::MouseFunction) << true << false << true
                                    << any;
    QTest::newRow("Media") << QString(MacroNamespaces::Media) << true << false << true << any;
    QTest::newRow("Hotkeys") << QString(MacroNamespaces::Hotkeys) << true << false << true << any;
    QTest::newRow("Launch") << QString(MacroTypeIds::Launch) << false << false << false << any;
    QTest::newRow("Script") << QString(MacroTypeIds::Script) << true << false << false << any;
    QTest::newRow("Stick as Mouse") << QString(MacroNamespaces::StickMouse) << false << true << true
                                    << QString("stick-direction");
    QTest::newRow("Stick as Joystick") << QString(MacroNamespaces::StickJoystick) << false << true << true
                                       << QString("stick-direction stick-press");
}

void MacroTypesTest::typesAreDescribed()
{
    QFETCH(QString, uid);
    QFETCH(bool, isRepeatable);
    QFETCH(bool, isPrivate);
    QFETCH(bool, isFixedName);
    QFETCH(QString, controls);
    const cMacroTypePtr type = typeOf(uid);
    QVERIFY(type);
    const cJsonValue info = type->info();
    QCOMPARE(HVS::jsonKeys(info), QStringList({"control_types", "displayname", "iconpath", "uid"}));
    QCOMPARE(info["displayname"].toString(), QString(QTest::currentDataTag()));
    QVERIFY(info["iconpath"].toString().startsWith("MainApp:/Resources/images/macro_"));
    QStringList named;
    for (unsigned i = 0; i < info["control_types"].size(); ++i)
        named << info["control_types"][int(i)]["control_type"].toString();
    QCOMPARE(named.join(' '), controls);
    QCOMPARE(type->isRepeatable(), isRepeatable);
    QCOMPARE(type->isPrivate(), isPrivate);
    QCOMPARE(type->isFixedName(), isFixedName);
}

void MacroTypesTest::iconsAreThere()
{
    QSet<QString> names;
    for (const cMacroTypePtr& type : types()) {
        const QString file = type->info()["iconpath"].toString().section('/', -1);
        const QImage icon(VELTRANO_SOURCE_DIR "/host/resources/images/" + file);
        QVERIFY2(!icon.isNull(), qPrintable(file));
        QVERIFY(icon.width() <= 28 && icon.height() <= 28);
        names.insert(file);
    }
    QCOMPARE(names.size(), types().size());
}

void MacroTypesTest::allAreRegisteredInOrder()
{
    cMacroTypeMgrService manager;
    QVERIFY(MacroTypes::registerAll(manager));
    QStringList names;
    int last = -1;
    for (const cMacroTypePtr& type : manager.getAllMacroTypes()) {
        names << type->info()["displayname"].toString();
        QVERIFY(type->getPriority() > last);
        last = type->getPriority();
    }
    QCOMPARE(names,
        QStringList({"Keystroke", "Multi Key", "Text Block", "Mouse Function", "Media", "Hotkeys", "Launch",
            "Script", "Stick as Mouse", "Stick as Joystick"}));
    QCOMPARE(manager.getMacroTypesByControlTypeID("stick-press").size(), 9);
}

void MacroTypesTest::secondRegistrationIsRefused()
{
    cMacroTypeMgrService manager;
    QVERIFY(MacroTypes::registerAll(manager));
    QVERIFY(!MacroTypes::registerAll(manager));
    QCOMPARE(manager.getAllMacroTypes().size(), types().size());
}

void MacroTypesTest::dataIsReadableInADocument_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("keystroke") << QString(MacroTypeIds::Keystroke)
                               << QByteArray("{\"keys\": \"Ctrl+<\", \"scancode\": 94}")
                               << QByteArray("<keystroke keys=\"Ctrl+&lt;\" scancode=\"94\"/>");
    QTest::newRow("multi key")
        << QString(MacroTypeIds::MultiKey)
        << QByteArray("{\"events\": [{\"type\": \"press\", \"key\": \"A\", \"delay\": 0, \"scancode\": 38},"
                      "{\"type\": \"release\", \"key\": \"A\", \"delay\": 80}]}")
        << QByteArray("<multikey><press delay=\"0\" key=\"A\" scancode=\"38\"/>"
                      "<release delay=\"80\" key=\"A\"/></multikey>");
    QTest::newRow("no events") << QString(MacroTypeIds::MultiKey) << QByteArray("{\"events\": []}")
                               << QByteArray("<multikey/>");
    QTest::newRow("text") << QString(MacroTypeIds::TextBlock)
                          << QByteArray("{\"text\": \"  Hello\\n\\n&\\r\\t\"}")
                          << QByteArray("<textblock><line text=\"  Hello\"/><line text=\"\"/>"
                                        "<line text=\"&amp;&#13;&#9;\"/></textblock>");
    QTest::newRow("mouse") << QString(MacroNamespaces::MouseFunction)
                           << QByteArray("{\"function\": \"DPI Shift\"}")
                           << QByteArray("<mouse function=\"DPI Shift\"/>");
    QTest::newRow("media") << QString(MacroNamespaces::Media) << QByteArray("{\"function\": \"Play/Pause\"}")
                           << QByteArray("<media function=\"Play/Pause\"/>");
    QTest::newRow("hotkey") << QString(MacroNamespaces::Hotkeys) << QByteArray("{\"function\": \"Copy\"}")
                            << QByteArray("<hotkey function=\"Copy\"/>");
    QTest::newRow("launch") << QString(MacroTypeIds::Launch)
                            << QByteArray("{\"path\": \"/a b\", \"arguments\": \"\", \"folder\": \"/\"}")
                            << QByteArray("<launch arguments=\"\" folder=\"/\" path=\"/a b\"/>");
    QTest::newRow("script") << QString(MacroTypeIds::Script) << QByteArray("{\"function\": \"f\"}")
                            << QByteArray("<script function=\"f\"/>");
}

void MacroTypesTest::dataIsReadableInADocument()
{
    QFETCH(QString, uid);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, xml);
    const cJsonValue value = json(data);
    QVERIFY(value.isObject());
    QByteArray document;
    QCOMPARE(HVS::toJsonText(stored(uid, value, &document)), HVS::toJsonText(value));
    QVERIFY2(document.contains("<data>" + xml + "</data>"), document.constData());
}

void MacroTypesTest::elementComesBackAsItWas_data()
{
    dataIsReadableInADocument_data();
}

void MacroTypesTest::elementComesBackAsItWas()
{
    QFETCH(QString, uid);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, xml);
    const cJsonValue read = typeOf(uid)->XmlToJson(parse(xml));
    QCOMPARE(HVS::toJsonText(read), HVS::toJsonText(json(data)));
}

void MacroTypesTest::elementWithMoreIsLeftToTheStore_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QByteArray>("xml");
    const auto row = [](QLatin1String uid, const char* xml) {
        QTest::newRow(xml) << QString(uid) << QByteArray(xml);
    };
    row(MacroTypeIds::Keystroke, "<keystroke keys=\"A\" hold=\"5\"/>");
    row(MacroTypeIds::Keystroke, "<keystroke keys=\"A\"><later/></keystroke>");
    row(MacroTypeIds::Keystroke, "<keystroke keys=\"A\">text</keystroke>");
    row(MacroTypeIds::Keystroke, "<keystroke scancode=\"5\"/>");
    row(MacroTypeIds::Keystroke, "<keystroke keys=\"A\" scancode=\"05\"/>");
    row(MacroTypeIds::Keystroke, "<keystroke keys=\"A\" scancode=\"99999999999\"/>");
    row(MacroTypeIds::MultiKey, "<multikey mode=\"1\"/>");
    row(MacroTypeIds::MultiKey, "<multikey><hold key=\"A\" delay=\"1\"/></multikey>");
    row(MacroTypeIds::MultiKey, "<multikey><press key=\"A\"/></multikey>");
    row(MacroTypeIds::MultiKey, "<multikey><press key=\"A\" delay=\"x\"/></multikey>");
    row(MacroTypeIds::MultiKey, "<multikey><press key=\"A\" delay=\"1\"><b/></press></multikey>");
    row(MacroTypeIds::MultiKey, "<multikey><press key=\"A\" delay=\"1\"/>wait</multikey>");
    row(MacroTypeIds::TextBlock, "<textblock/>");
    row(MacroTypeIds::TextBlock, "<textblock>text</textblock>");
    row(MacroTypeIds::TextBlock, "<textblock font=\"a\"><line text=\"b\"/></textblock>");
    row(MacroTypeIds::TextBlock, "<textblock><line text=\"b\"/><pause/></textblock>");
    row(MacroTypeIds::Launch, "<launch arguments=\"a\"/>");
    row(MacroTypeIds::Script, "<script name=\"f\"/>");
    row(MacroNamespaces::Media, "<media/>");
    row(MacroNamespaces::StickMouse, "<stick speed=\"3\"/>");
}

void MacroTypesTest::elementWithMoreIsLeftToTheStore()
{
    QFETCH(QString, uid);
    QFETCH(QByteArray, xml);
    QVERIFY(typeOf(uid)->XmlToJson(parse(xml)).isNull());
    const MacroTypeLookup lookup = [](const QString& macroNamespace) {
        return typeOf(macroNamespace);
    };
    const QByteArray document = "<profiles version=\"1\"><profile uid=\"{1}\"><macros><macro namespace=\""
        + uid.toUtf8() + "\"><data>" + xml + "</data></macro></macros></profile></profiles>";
    const auto result = ProfileDocument::read(document, lookup);
    QCOMPARE(result.profiles.size(), std::size_t(1));
    const QByteArray written = ProfileDocument::write(result.profiles, lookup);
    const QDomElement data = parse(written)
                                 .firstChildElement("profile")
                                 .firstChildElement("macros")
                                 .firstChildElement("macro")
                                 .firstChildElement("data");
    QString text;
    QTextStream stream(&text);
    data.firstChildElement().save(stream, -1);
    QString expected;
    QTextStream expectedStream(&expected);
    parse(xml).save(expectedStream, -1);
    // A DOM keeps no order of attributes.
    QCOMPARE(text.simplified().size(), expected.simplified().size());
    QVERIFY(!written.contains("format=\"json\""));
}

void MacroTypesTest::randomDataComesBackAsItWas()
{
    RandomData random(2026);
    int elements = 0;
    for (const cMacroTypePtr& type : types()) {
        const QString uid = type->info()["uid"].toString();
        for (int i = 0; i < 300; ++i) {
            const cJsonValue data = random.data(uid);
            QByteArray document;
            const QByteArray back = HVS::toJsonText(stored(uid, data, &document));
            QVERIFY2(back == HVS::toJsonText(data),
                (HVS::toJsonText(data) + " became " + back + "\n" + document).constData());
            elements += !document.contains("format=\"json\"");
        }
    }
    // Both forms were met.
    QVERIFY2(elements > 300 && elements < 2900, qPrintable(QString::number(elements)));
}

void MacroTypesTest::indentedElementsAreRead()
{
    const cJsonValue text =
        typeOf(MacroTypeIds::TextBlock)
            ->XmlToJson(
                parse("<textblock>\n  <line text=\"a\"/>\n  <line text=\"b\">\n</line>\n</textblock>"));
    QCOMPARE(text["text"].toString(), QString("a\nb"));
    const cJsonValue keys =
        typeOf(MacroTypeIds::MultiKey)
            ->XmlToJson(parse("<multikey>\n <press key=\"A\" delay=\"0\"/>\n</multikey>"));
    QCOMPARE(keys["events"].size(), 1u);
}

void MacroTypesTest::elementOfAnotherTypeIsNotRead()
{
    for (const cMacroTypePtr& type : types()) {
        QVERIFY(type->XmlToJson(QDomElement()).isNull());
        QVERIFY(type->XmlToJson(parse("<other function=\"Copy\" keys=\"A\" path=\"a\"/>")).isNull());
    }
    QVERIFY(typeOf(MacroNamespaces::Media)->XmlToJson(parse("<mouse function=\"Copy\"/>")).isNull());
}

void MacroTypesTest::badDataMakesNoElement_data()
{
    QTest::addColumn<cJsonValue>("data");
    for (const char* text :
        {"null", "1", "\"text\"", "[]", "{}", "true", "{\"keys\": 1}", "{\"function\": null}",
            "{\"events\": 5}", "{\"events\": [5]}", "{\"events\": [{\"type\": \"press\"}]}",
            "{\"events\": [{\"type\": \"a b\", \"key\": \"A\", \"delay\": 1}]}", "{\"text\": []}",
            "{\"path\": false}", "{\"path\": \"a\", \"later\": 1}", "{\"text\": \"\\u0001\"}",
            "{\"function\": \"\\ud800\"}", "{\"raw_xml\": \"<a/>\"}"})
        QTest::newRow(text) << json(text);
}

void MacroTypesTest::badDataMakesNoElement()
{
    QFETCH(cJsonValue, data);
    cJsonValue macro;
    macro["data"] = data;
    for (const cMacroTypePtr& type : types()) {
        QVERIFY(type->JsonToXml(QDomDocument(), macro).isNull());
        QVERIFY(type->JsonToXml(QDomDocument(), data).isNull());
    }
}

void MacroTypesTest::thousandsOfEventsComeBack()
{
    cJsonValue data;
    for (int i = 0; i < MacroLimits::Events; ++i) {
        cJsonValue event;
        event["type"] = i % 2 ? "release" : "press";
        event["key"] = QString(QChar('A' + i / 2 % 26));
        event["delay"] = i;
        data["events"].append(event);
    }
    QVERIFY(stored(MacroTypeIds::MultiKey, data) == data);
}

VELTRANO_TEST_MAIN(MacroTypesTest)
#include "MacroTypesTest.moc"
