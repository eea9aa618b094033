#include <cJsonValue.h>
#include <TestCase.h>

#include <limits>
#include <type_traits>
#include <utility>

namespace {

/// A value of each type with something in it.
cJsonValue sample(cJsonValue::JsonValueType type)
{
    switch (type) {
    case cJsonValue::nullValue:
        break;
    case cJsonValue::booleanValue:
        return true;
    case cJsonValue::intValue:
        return 7;
    case cJsonValue::realValue:
        return 2.5;
    case cJsonValue::stringValue:
        return "text";
    case cJsonValue::arrayValue:
        return cJsonValue().append(1).append("two");
    case cJsonValue::objectValue:
        cJsonValue object;
        object["key"] = 1;
        return object;
    }
    return cJsonValue();
}

void addTypeRows()
{
    QTest::addColumn<int>("type");
    QTest::newRow("null") << int(cJsonValue::nullValue);
    QTest::newRow("boolean") << int(cJsonValue::booleanValue);
    QTest::newRow("integer") << int(cJsonValue::intValue);
    QTest::newRow("real") << int(cJsonValue::realValue);
    QTest::newRow("string") << int(cJsonValue::stringValue);
    QTest::newRow("array") << int(cJsonValue::arrayValue);
    QTest::newRow("object") << int(cJsonValue::objectValue);
}

cJsonValue::JsonValueType rowType()
{
    QFETCH_GLOBAL(int, type);
    return cJsonValue::JsonValueType(type);
}

/// As an access to a constant value.
const cJsonValue& constant(const cJsonValue& value)
{
    return value;
}

static_assert(cJsonValue::nullValue == 0);
static_assert(std::is_same_v<decltype(std::declval<cJsonValue&>()["key"]), cJsonValue&>);
static_assert(std::is_same_v<decltype(std::declval<cJsonValue&>()[QString()]), cJsonValue&>);
static_assert(std::is_same_v<decltype(std::declval<cJsonValue&>()[0]), cJsonValue&>);
static_assert(std::is_same_v<decltype(std::declval<const cJsonValue&>()["key"]), const cJsonValue&>);
static_assert(std::is_same_v<decltype(std::declval<const cJsonValue&>()[0]), const cJsonValue&>);
static_assert(std::is_same_v<decltype(std::declval<cJsonValue&>().append(cJsonValue())), cJsonValue&>);
static_assert(std::is_same_v<decltype(cJsonValue::null()), const cJsonValue&>);
static_assert(std::is_unsigned_v<decltype(cJsonValue().size())>);

} // namespace

/// All that can be done with one value, on values of all types.
class cJsonValueTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addTypeRows(); }

    void typeMakesItsEmptyValue();
    void typeTestsTellTheType();
    void constructorsMakeTheirTypes();
    void stringsAreUtf8AndUtf16();
    void conversions();
    void numbersOutOfRangeAreBroughtIn();
    void stringsConvertToNumbers_data();
    void stringsConvertToNumbers();
    void realsConvertToTheShortestText();
    void readingWhatIsMissingGivesNull();
    void readingCreatesNothing();
    void keyOfNullOrObjectMakesAMember();
    void keyOfOtherTypesLeadsNowhere();
    void indexReachesElementsOnly();
    void chainedKeysBuildNestedObjects();
    void bothSpellingsOfAKeyReachTheSameMember();
    void keysStayApartHoweverManyThereAre();
    void appendTakesNullsAndArraysOnly();
    void deleteKeyRemovesMembersOnly();
    void clearMakesNull();
    void containsLooksAtMembersOnly();
    void sizeCountsElementsOnly();
    void nothingStaysNowhere();
    void nullStaysNull();
    void equalityIsDeep();
    void typesAreNeverEqual();
    void travelsInAVariant();
};

void cJsonValueTest::typeMakesItsEmptyValue()
{
    const cJsonValue value(rowType());
    QCOMPARE(value.toString(),
        rowType() == cJsonValue::booleanValue                                         ? QString("false")
            : rowType() == cJsonValue::intValue || rowType() == cJsonValue::realValue ? QString("0")
                                                                                      : QString());
    QCOMPARE(value.toInt(), 0);
    QCOMPARE(value.toDouble(), 0.0);
    QCOMPARE(value.toBool(), false);
    QCOMPARE(value.size(), 0u);
    QVERIFY(value == cJsonValue(rowType()));
}

void cJsonValueTest::typeTestsTellTheType()
{
    for (const cJsonValue& value : {cJsonValue(rowType()), sample(rowType())}) {
        QCOMPARE(value.isNull(), rowType() == cJsonValue::nullValue);
        QCOMPARE(value.isArray(), rowType() == cJsonValue::arrayValue);
        QCOMPARE(value.isObject(), rowType() == cJsonValue::objectValue);
    }
}

void cJsonValueTest::constructorsMakeTheirTypes()
{
    QVERIFY(cJsonValue().isNull());
    QCOMPARE(cJsonValue(QString("a")).toString(), QString("a"));
    QCOMPARE(cJsonValue("a").toString(), QString("a"));
    QCOMPARE(cJsonValue(true).toBool(), true);
    QCOMPARE(cJsonValue(-3).toInt(), -3);
    QCOMPARE(cJsonValue(0.5).toDouble(), 0.5);
    QVERIFY(!cJsonValue(QString()).isNull());
    QVERIFY(!cJsonValue(false).isNull());
    // A literal is a string, not a boolean made of its pointer.
    QVERIFY(cJsonValue("true") == cJsonValue(QString("true")));
}

void cJsonValueTest::stringsAreUtf8AndUtf16()
{
    const QString text = QStringLiteral(u"\u00e4\u4e2d\U0001f3ae");
    QCOMPARE(cJsonValue("\xc3\xa4\xe4\xb8\xad\xf0\x9f\x8e\xae").toString(), text);
    cJsonValue object;
    object[text] = 1;
    QVERIFY(object.contains("\xc3\xa4\xe4\xb8\xad\xf0\x9f\x8e\xae"));
    QCOMPARE(cJsonValue(static_cast<const char*>(nullptr)).toString(), QString());
    const QString withNul = QString("a") + QChar(0) + "b";
    QCOMPARE(cJsonValue(withNul).toString(), withNul);
}

void cJsonValueTest::conversions()
{
    struct Expected
    {
        QString text;
        int integer;
        double real;
        bool boolean;
    };
    const Expected expected = [] {
        switch (rowType()) {
        case cJsonValue::booleanValue:
            return Expected {"true", 1, 1.0, true};
        case cJsonValue::intValue:
            return Expected {"7", 7, 7.0, true};
        case cJsonValue::realValue:
            return Expected {"2.5", 2, 2.5, true};
        case cJsonValue::stringValue:
            return Expected {"text", 0, 0.0, false};
        case cJsonValue::nullValue:
        case cJsonValue::arrayValue:
        case cJsonValue::objectValue:
            break;
        }
        return Expected {"", 0, 0.0, false};
    }();
    const cJsonValue value = sample(rowType());
    QCOMPARE(value.toString(), expected.text);
    QCOMPARE(value.toInt(), expected.integer);
    QCOMPARE(value.toDouble(), expected.real);
    QCOMPARE(value.toBool(), expected.boolean);
}

void cJsonValueTest::numbersOutOfRangeAreBroughtIn()
{
    constexpr int min = std::numeric_limits<int>::min();
    constexpr int max = std::numeric_limits<int>::max();
    QCOMPARE(cJsonValue(min).toInt(), min);
    QCOMPARE(cJsonValue(max).toInt(), max);
    QCOMPARE(cJsonValue(1e300).toInt(), max);
    QCOMPARE(cJsonValue(-1e300).toInt(), min);
    QCOMPARE(cJsonValue(double(max) + 1).toInt(), max);
    QCOMPARE(cJsonValue(std::numeric_limits<double>::infinity()).toInt(), max);
    QCOMPARE(cJsonValue(std::numeric_limits<double>::quiet_NaN()).toInt(), 0);
    QCOMPARE(cJsonValue(-2.9).toInt(), -2);
    QCOMPARE(cJsonValue(0.4).toBool(), true);
    QCOMPARE(cJsonValue(0.0).toBool(), false);
    QCOMPARE(cJsonValue(0).toBool(), false);
}

void cJsonValueTest::stringsConvertToNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("integer");
    QTest::addColumn<double>("real");
    QTest::addColumn<bool>("boolean");
    QTest::newRow("integer") << "42" << 42 << 42.0 << false;
    QTest::newRow("negative") << "-42" << -42 << -42.0 << false;
    QTest::newRow("real") << "2.5" << 0 << 2.5 << false;
    QTest::newRow("hexadecimal") << "0x10" << 0 << 0.0 << false;
    QTest::newRow("too large") << "99999999999" << 0 << 99999999999.0 << false;
    QTest::newRow("trailing text") << "42px" << 0 << 0.0 << false;
    QTest::newRow("empty") << "" << 0 << 0.0 << false;
    QTest::newRow("true") << "true" << 0 << 0.0 << true;
    QTest::newRow("True") << "True" << 0 << 0.0 << false;
    QTest::newRow("1") << "1" << 1 << 1.0 << false;
}

void cJsonValueTest::stringsConvertToNumbers()
{
    QFETCH(QString, text);
    const cJsonValue value(text);
    QTEST(value.toInt(), "integer");
    QTEST(value.toDouble(), "real");
    QTEST(value.toBool(), "boolean");
}

void cJsonValueTest::realsConvertToTheShortestText()
{
    QCOMPARE(cJsonValue(0.1).toString(), QString("0.1"));
    QCOMPARE(cJsonValue(100.0).toString(), QString("100"));
    QCOMPARE(cJsonValue(1.0 / 3).toString().toDouble(), 1.0 / 3);
}

void cJsonValueTest::readingWhatIsMissingGivesNull()
{
    const cJsonValue value = sample(rowType());
    QCOMPARE(&value["missing"], &cJsonValue::null());
    QCOMPARE(&value[""], &cJsonValue::null());
    for (int index : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        QCOMPARE(&value[index], &cJsonValue::null());
    QVERIFY(value["missing"]["further"][3]["down"].isNull());
    QCOMPARE(value[0].isNull(), !value.isArray());
    QCOMPARE(value["key"].isNull(), !value.isObject());
}

void cJsonValueTest::readingCreatesNothing()
{
    const cJsonValue value = sample(rowType());
    const cJsonValue before = sample(rowType());
    value["missing"]["further"];
    value[5]["further"];
    QVERIFY(value == before);
    QVERIFY(!value.contains("missing"));
}

void cJsonValueTest::keyOfNullOrObjectMakesAMember()
{
    cJsonValue value = sample(rowType());
    const bool takesMembers = value.isNull() || value.isObject();
    const cJsonValue& made = value["made"];
    QVERIFY(made.isNull());
    QCOMPARE(value.isObject(), takesMembers);
    QCOMPARE(value.contains("made"), takesMembers);
    value["made"] = "text";
    QCOMPARE(constant(value)["made"].toString(), takesMembers ? QString("text") : QString());
    value["made"] = 5;
    QCOMPARE(constant(value)["made"].toInt(), takesMembers ? 5 : 0);
}

void cJsonValueTest::keyOfOtherTypesLeadsNowhere()
{
    if (rowType() == cJsonValue::nullValue || rowType() == cJsonValue::objectValue)
        return;
    cJsonValue value = sample(rowType());
    value["a"]["b"]["c"] = 1;
    value["a"].append(1).append(2);
    value["a"].deleteKey("b");
    value["a"].clear();
    QVERIFY(value == sample(rowType()));
}

void cJsonValueTest::indexReachesElementsOnly()
{
    cJsonValue value = sample(rowType());
    for (int index : {-1, 2, std::numeric_limits<int>::max()}) {
        value[index] = 9;
        value[index]["a"] = 9;
    }
    QVERIFY(value == sample(rowType()));
    value[0] = "new";
    QCOMPARE(constant(value)[0].toString(), value.isArray() ? QString("new") : QString());
    QCOMPARE(value.isNull(), rowType() == cJsonValue::nullValue);
}

void cJsonValueTest::chainedKeysBuildNestedObjects()
{
    cJsonValue record;
    record["repeat"]["mode"] = "toggle";
    record["repeat"]["delay"] = 30;
    record["list"].append(1);
    QVERIFY(record.isObject());
    QVERIFY(record["repeat"].isObject());
    QVERIFY(record["list"].isArray());
    QCOMPARE(record["repeat"]["mode"].toString(), QString("toggle"));
    QCOMPARE(record["repeat"]["delay"].toInt(), 30);
}

void cJsonValueTest::bothSpellingsOfAKeyReachTheSameMember()
{
    cJsonValue record;
    record["key"] = 1;
    QCOMPARE(&record["key"], &record[QString("key")]);
    record[QString("Key")] = 2;
    QCOMPARE(record["key"].toInt(), 1);
    record[""] = 3;
    QVERIFY(record.contains(""));
    QCOMPARE(&record[""], &record[static_cast<const char*>(nullptr)]);
}

void cJsonValueTest::keysStayApartHoweverManyThereAre()
{
    constexpr int Count = 2000;
    const auto key = [](int i) {
        return QString::fromUtf8("Taste \u00fc%1").arg(i).toUtf8();
    };
    cJsonValue record;
    for (int i = 0; i < Count; ++i)
        record[key(i).constData()] = i;
    const cJsonValue& constRecord = record;
    for (int i = Count - 1; i >= 0; --i) {
        QVERIFY(record.contains(key(i).constData()));
        QCOMPARE(constRecord[key(i).constData()].toInt(), i);
        QCOMPARE(record[QString::fromUtf8(key(i))].toInt(), i);
    }
}

void cJsonValueTest::appendTakesNullsAndArraysOnly()
{
    cJsonValue value = sample(rowType());
    const unsigned sizeBefore = value.size();
    cJsonValue& result = value.append("last");
    QCOMPARE(&result, &value);
    if (rowType() == cJsonValue::nullValue || rowType() == cJsonValue::arrayValue) {
        QVERIFY(value.isArray());
        QCOMPARE(value.size(), sizeBefore + 1);
        QCOMPARE(constant(value)[int(sizeBefore)].toString(), QString("last"));
    } else {
        QVERIFY(value == sample(rowType()));
    }
}

void cJsonValueTest::deleteKeyRemovesMembersOnly()
{
    cJsonValue value = sample(rowType());
    value.deleteKey("missing");
    QVERIFY(value == sample(rowType()));
    value.deleteKey("key");
    QVERIFY(!value.contains("key"));
    QCOMPARE(value.isObject(), rowType() == cJsonValue::objectValue);
    QCOMPARE(value == sample(rowType()), rowType() != cJsonValue::objectValue);
}

void cJsonValueTest::clearMakesNull()
{
    cJsonValue value = sample(rowType());
    value.clear();
    QVERIFY(value.isNull());
    QVERIFY(value == cJsonValue::null());
    // What was cleared takes its type anew.
    value.append(1);
    QVERIFY(value.isArray());
    value.clear();
    value["a"] = 1;
    QVERIFY(value.isObject());
}

void cJsonValueTest::containsLooksAtMembersOnly()
{
    const cJsonValue value = sample(rowType());
    QCOMPARE(value.contains("key"), rowType() == cJsonValue::objectValue);
    QVERIFY(!value.contains("text"));
    cJsonValue object;
    object["null"];
    QVERIFY(object.contains("null"));
}

void cJsonValueTest::sizeCountsElementsOnly()
{
    QCOMPARE(sample(rowType()).size(), rowType() == cJsonValue::arrayValue ? 2u : 0u);
}

void cJsonValueTest::nothingStaysNowhere()
{
    // Two wrong accesses in one statement, one of them the source of the other.
    cJsonValue a("text");
    cJsonValue b(3);
    a["x"] = b["y"]["z"];
    a["x"]["y"] = b["y"];
    cJsonValue& nowhere = a["x"];
    nowhere = sample(rowType());
    nowhere["member"]["further"] = sample(rowType());
    nowhere.append(sample(rowType()));
    cJsonValue& further = nowhere["member"]["further"];
    QVERIFY(b["other"].isNull());
    further = 1;
    QVERIFY(nowhere.isNull());
    QVERIFY(further.isNull());
    b = nowhere;
    QVERIFY(b.isNull());
    b = 4;
    QVERIFY(nowhere.isNull());
    QCOMPARE(a.toString(), QString("text"));
}

void cJsonValueTest::nullStaysNull()
{
    cJsonValue copy = cJsonValue::null();
    copy["a"] = 1;
    QVERIFY(cJsonValue::null().isNull());
    QCOMPARE(&cJsonValue::null(), &cJsonValue::null());
}

void cJsonValueTest::equalityIsDeep()
{
    cJsonValue a = sample(rowType());
    cJsonValue b;
    a = cJsonValue().append(a);
    b.append(sample(rowType()));
    QVERIFY(a == b);
    QVERIFY(!(a != b));
    b[0] = "other";
    QVERIFY(a != b);
    b = a;
    b.append(1);
    QVERIFY(a != b);
    cJsonValue x;
    cJsonValue y;
    x["a"] = a;
    y["b"] = a;
    QVERIFY(x != y);
    y["a"] = a;
    QVERIFY(x != y);
    y.deleteKey("b");
    QVERIFY(x == y);
    x["b"]["c"].append(1);
    y["b"]["c"].append(1.0);
    QVERIFY(x != y);
}

void cJsonValueTest::typesAreNeverEqual()
{
    for (int type = cJsonValue::nullValue; type <= cJsonValue::objectValue; ++type) {
        const auto other = cJsonValue::JsonValueType(type);
        QCOMPARE(cJsonValue(other) == cJsonValue(rowType()), other == rowType());
    }
    QVERIFY(cJsonValue(1) != cJsonValue(1.0));
    QVERIFY(cJsonValue("1") != cJsonValue(1));
}

void cJsonValueTest::travelsInAVariant()
{
    const QVariant variant = QVariant::fromValue(sample(rowType()));
    cJsonValue value = variant.value<cJsonValue>();
    QVERIFY(value == sample(rowType()));
    value = "changed";
    QVERIFY(variant.value<cJsonValue>() == sample(rowType()));
}

VELTRANO_TEST_MAIN(cJsonValueTest)
#include "cJsonValueTest.moc"
