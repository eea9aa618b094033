#include <cJsonValue.h>
#include <JsonText.h>
#include <TestCase.h>

#include <limits>

namespace {

cJsonValue parsed(const QByteArray& text)
{
    cJsonValue value("not parsed");
    QString error;
    if (!HVS::fromJsonText(text, value, &error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return value;
}

QByteArray nested(int levels)
{
    return QByteArray(levels, '[') + QByteArray(levels, ']');
}

} // namespace

class JsonTextTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void textOfEachType_data();
    void textOfEachType();
    void indentedText();
    void membersStandInTheOrderOfTheirKeys();
    void roundTripKeepsEverything_data();
    void roundTripKeepsEverything();
    void integersKeep64Bits();
    void realsAreNoIntegers();
    void numbersThatFitNowhere();
    void notFiniteRealsAreWrittenAsNull();
    void escapesAreRead();
    void halfASurrogatePairIsWrittenAsQuestionMark();
    void lastOfTwinKeysCounts();
    void spaceAndByteOrderMarkAreSkipped();
    void depthLimitIsExact();
    void anyDepthIsWritten();
    void malformedTextIsRefused_data();
    void malformedTextIsRefused();
    void errorTextIsOptional();
    void keysAreSorted();
};

void JsonTextTest::textOfEachType_data()
{
    QTest::addColumn<cJsonValue>("value");
    QTest::addColumn<QByteArray>("text");
    cJsonValue object;
    object["b"].append(1).append(cJsonValue());
    object["a"]["c"] = true;
    QTest::newRow("null") << cJsonValue() << QByteArray("null");
    QTest::newRow("true") << cJsonValue(true) << QByteArray("true");
    QTest::newRow("false") << cJsonValue(false) << QByteArray("false");
    QTest::newRow("integer") << cJsonValue(-5) << QByteArray("-5");
    QTest::newRow("real") << cJsonValue(2.5) << QByteArray("2.5");
    QTest::newRow("whole real") << cJsonValue(1.0) << QByteArray("1.0");
    QTest::newRow("string") << cJsonValue("a\"\\\n/") << QByteArray("\"a\\\"\\\\\\n/\"");
    QTest::newRow("empty string") << cJsonValue("") << QByteArray("\"\"");
    QTest::newRow("empty array") << cJsonValue(cJsonValue::arrayValue) << QByteArray("[]");
    QTest::newRow("empty object") << cJsonValue(cJsonValue::objectValue) << QByteArray("{}");
    QTest::newRow("nested") << object << QByteArray(R"({"a":{"c":true},"b":[1,null]})");
}

void JsonTextTest::textOfEachType()
{
    QFETCH(cJsonValue, value);
    QFETCH(QByteArray, text);
    QCOMPARE(HVS::toJsonText(value), text);
    QVERIFY(parsed(text) == value);
}

void JsonTextTest::indentedText()
{
    const cJsonValue value = parsed(R"({"a":[1,{"b":2}],"c":{},"d":[]})");
    const QByteArray text = HVS::toJsonText(value, true);
    QCOMPARE(text,
        QByteArray("{\n    \"a\": [\n        1,\n        {\n            \"b\": 2\n        }\n    ],\n"
                   "    \"c\": {},\n    \"d\": []\n}"));
    QVERIFY(parsed(text) == value);
}

void JsonTextTest::membersStandInTheOrderOfTheirKeys()
{
    QCOMPARE(
        HVS::toJsonText(parsed(R"({"b":1,"":2,"a":3,"B":4})")), QByteArray(R"({"":2,"B":4,"a":3,"b":1})"));
}

void JsonTextTest::roundTripKeepsEverything_data()
{
    QTest::addColumn<QString>("string");
    QTest::newRow("latin") << QStringLiteral(u"\u00e4\u00df");
    QTest::newRow("chinese") << QStringLiteral(u"\u4e2d\u6587");
    QTest::newRow("beyond the first plane") << QStringLiteral(u"\U0001f3ae\U00010000");
    QTest::newRow("control characters") << QString("\x01\x1f\x7f\t\r\b\f");
    QTest::newRow("nul") << QString("a") + QChar(0) + "b";
    QTest::newRow("line separators") << QStringLiteral(u"\u2028\u2029\ufeff\uffff");
    QTest::newRow("markup") << QString("</script>&amp;\"'\\u0041");
    QTest::newRow("long") << QString(100'000, QChar(0x20ac));
}

void JsonTextTest::roundTripKeepsEverything()
{
    QFETCH(QString, string);
    cJsonValue value;
    value[string]["inner"].append(string).append(7).append(-0.5).append(true).append(cJsonValue());
    QVERIFY(parsed(HVS::toJsonText(value)) == value);
    QVERIFY(parsed(HVS::toJsonText(value, true)) == value);
    QCOMPARE(HVS::jsonKeys(parsed(HVS::toJsonText(value))), QStringList(string));
}

void JsonTextTest::integersKeep64Bits()
{
    for (const char* text : {"9223372036854775807", "-9223372036854775808", "4294967296", "0"}) {
        const cJsonValue value = parsed(text);
        QCOMPARE(HVS::toJsonText(value), QByteArray(text));
        QCOMPARE(value.toString(), QString(text));
    }
    QCOMPARE(parsed("9223372036854775807").toInt(), std::numeric_limits<int>::max());
    QCOMPARE(parsed("-9223372036854775808").toInt(), std::numeric_limits<int>::min());
    QCOMPARE(parsed("4294967296").toDouble(), 4294967296.0);
}

void JsonTextTest::realsAreNoIntegers()
{
    QVERIFY(parsed("1") == cJsonValue(1));
    QVERIFY(parsed("1.0") == cJsonValue(1.0));
    QVERIFY(parsed("1e0") == cJsonValue(1.0));
    QVERIFY(parsed("1") != parsed("1.0"));
    QCOMPARE(HVS::toJsonText(cJsonValue(1e300)), QByteArray("1e+300"));
    QCOMPARE(HVS::toJsonText(cJsonValue(-0.0)), QByteArray("-0.0"));
    const double third = 1.0 / 3;
    QCOMPARE(parsed(HVS::toJsonText(cJsonValue(third))).toDouble(), third);
}

void JsonTextTest::numbersThatFitNowhere()
{
    QCOMPARE(parsed("9223372036854775808").toDouble(), 9223372036854775808.0);
    QCOMPARE(parsed("-9223372036854775809").toDouble(), -9223372036854775809.0);
    QCOMPARE(parsed("18446744073709551616").toDouble(), 18446744073709551616.0);
    QCOMPARE(parsed(QByteArray(300, '9')).toDouble(), 1e300);
    QCOMPARE(parsed("1e-400").toDouble(), 0.0);
    cJsonValue value(1);
    QString error;
    QVERIFY(!HVS::fromJsonText("[1,\n1e400]", value, &error));
    QVERIFY2(error.startsWith("line 2, column "), qPrintable(error));
    QVERIFY2(error.contains("1e400"), qPrintable(error));
}

void JsonTextTest::notFiniteRealsAreWrittenAsNull()
{
    QCOMPARE(HVS::toJsonText(cJsonValue(std::numeric_limits<double>::infinity())), QByteArray("null"));
    QCOMPARE(HVS::toJsonText(cJsonValue(-std::numeric_limits<double>::infinity())), QByteArray("null"));
    QCOMPARE(HVS::toJsonText(cJsonValue(std::numeric_limits<double>::quiet_NaN())), QByteArray("null"));
}

void JsonTextTest::escapesAreRead()
{
    QCOMPARE(parsed("\"\\u00e4\\ud83c\\udfae\\n\\/\\\"\\u0000\"").toString(),
        QStringLiteral(u"\u00e4\U0001f3ae\n/\"") + QChar(0));
}

void JsonTextTest::halfASurrogatePairIsWrittenAsQuestionMark()
{
    QCOMPARE(HVS::toJsonText(cJsonValue(QString("a") + QChar(0xd83c) + "b")), QByteArray("\"a?b\""));
    QCOMPARE(HVS::toJsonText(cJsonValue(QString(QChar(0xdfae)))), QByteArray("\"?\""));
}

void JsonTextTest::lastOfTwinKeysCounts()
{
    QVERIFY(parsed(R"({"a":1,"b":2,"a":{"c":3}})") == parsed(R"({"a":{"c":3},"b":2})"));
}

void JsonTextTest::spaceAndByteOrderMarkAreSkipped()
{
    QCOMPARE(parsed(" \t\r\n[ 1 , 2 ] \n").size(), 2u);
    QCOMPARE(parsed("\xef\xbb\xbf[1]").size(), 1u);
}

void JsonTextTest::depthLimitIsExact()
{
    QVERIFY(parsed(nested(HVS::MaxJsonDepth)).isArray());
    cJsonValue value("before");
    QString error;
    for (int levels : {HVS::MaxJsonDepth + 1, 1'000'000}) {
        QVERIFY(!HVS::fromJsonText(nested(levels), value, &error));
        QCOMPARE(error, QString("line 1, column 513: nested deeper than 512 levels"));
    }
    QVERIFY(!HVS::fromJsonText(QByteArray("{\"a\":").repeated(1'000'000), value, &error));
    QCOMPARE(value.toString(), QString("before"));
}

void JsonTextTest::anyDepthIsWritten()
{
    constexpr int levels = 100'000;
    cJsonValue value(cJsonValue::arrayValue);
    for (int i = 1; i < levels; ++i) {
        cJsonValue outer;
        outer.append(value);
        value = outer;
    }
    QVERIFY(HVS::toJsonText(value) == nested(levels));
}

void JsonTextTest::malformedTextIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("place");
    const auto row = [](const char* name, const QByteArray& text, int line, int column) {
        QTest::newRow(name) << text << QStringLiteral("line %1, column %2: ").arg(line).arg(column);
    };
    row("empty", "", 1, 0);
    row("only space", " \n ", 2, 1);
    row("two values", "1 2", 1, 3);
    row("open array", "[1,", 1, 3);
    row("open object", "{\"a\":1", 1, 6);
    row("open string", "[\n \"abc", 2, 5);
    row("wrong bracket", "[1}", 1, 3);
    row("closing bracket alone", "]", 1, 1);
    row("trailing comma", "[1,]", 1, 4);
    row("trailing comma in an object", "{\"a\":1,}", 1, 8);
    row("missing comma", "[1 true]", 1, 7);
    row("missing colon", "{\"a\" []}", 1, 6);
    row("missing value", "{\"a\":}", 1, 6);
    row("key without quotes", "{a:1}", 1, 2);
    row("key that is a list", "{[]:1}", 1, 2);
    row("single quotes", "['a']", 1, 2);
    row("misspelt word", "nul", 1, 3);
    row("capital word", "True", 1, 1);
    row("leading zero", "01", 1, 2);
    row("plus sign", "+1", 1, 1);
    row("lone minus", "-", 1, 1);
    row("lone point", "1.", 1, 2);
    row("lone exponent", "1e", 1, 2);
    row("hexadecimal", "0x10", 1, 2);
    row("not a number", "NaN", 1, 1);
    row("comment", "[1] // x", 1, 5);
    row("line end in a string", "\"a\nb\"", 2, 0);
    row("unknown escape", "\"\\x\"", 1, 3);
    row("short escape", "\"\\u12\"", 1, 6);
    row("half a surrogate pair", "\"\\ud83c\"", 1, 8);
    row("broken UTF-8", "\"\xff\"", 1, 2);
    row("overlong UTF-8", "\"\xc0\xaf\"", 1, 2);
    row("nul", QByteArray("[\0]", 3), 1, 1);
    row("nul behind the value", QByteArray("[1]\0", 4), 1, 3);
    row("value behind a nul", QByteArray("[1]\0[2]", 7), 1, 3);
    row("not JSON at all", "<xml/>", 1, 1);
    row("column in characters", "[\"\xc3\xa4\xe4\xb8\xad\" x", 1, 7);
}

void JsonTextTest::malformedTextIsRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, place);
    cJsonValue value;
    value["a"] = "before";
    const cJsonValue before = value;
    QString error;
    QVERIFY(!HVS::fromJsonText(text, value, &error));
    QVERIFY2(error.startsWith(place), qPrintable(error));
    QVERIFY2(error.size() > place.size() && !error.contains("json.exception"), qPrintable(error));
    QVERIFY(value == before);
}

void JsonTextTest::errorTextIsOptional()
{
    cJsonValue value(1);
    QVERIFY(!HVS::fromJsonText("[", value));
    QVERIFY(HVS::fromJsonText("[]", value));
    QVERIFY(value.isArray());
}

void JsonTextTest::keysAreSorted()
{
    QCOMPARE(HVS::jsonKeys(parsed(R"({"b":1,"a":{"x":1},"C":2})")), QStringList({"C", "a", "b"}));
    for (const char* text : {"{}", "[1]", "null", "\"a\"", "1"})
        QVERIFY(HVS::jsonKeys(parsed(text)).isEmpty());
}

VELTRANO_TEST_MAIN(JsonTextTest)
#include "JsonTextTest.moc"
