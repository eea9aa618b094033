#include "ValueModel.h"

#include <cJsonValue.h>
#include <TestCase.h>

#include <memory>
#include <random>
#include <vector>

namespace {

const cJsonValue& constant(const cJsonValue& value)
{
    return value;
}

/// {"a": {"b": {"c": 1}, "list": [1, 2]}}
cJsonValue tree()
{
    cJsonValue value;
    value["a"]["b"]["c"] = 1;
    value["a"]["list"].append(1).append(2);
    return value;
}

/// As nested as real data never is.
cJsonValue deepValue(int innermost)
{
    constexpr int depth = 100'000;
    cJsonValue value(innermost);
    for (int i = 0; i < depth; ++i) {
        cJsonValue outer;
        if (i % 2)
            outer.append(value);
        else
            outer["a"] = value;
        value = outer;
    }
    return value;
}

} // namespace

/// What copies of a value share, and that nobody can tell.
class cJsonValueSharingTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void copySharesItsElements();
    void changeOfEitherSideStaysThere();
    void copyOfACopyIsIndependent();
    void referenceIntoTheOriginalDoesNotReachTheCopy();
    void referenceFromDeepDoesNotReachCopiesOfAnyLevel();
    void referenceIntoACopyDoesNotReachTheOriginal();
    void constReferenceSeesItsOwnValueOnly();
    void constReferenceOutlivesTheOriginal();
    void constReferenceOutlivesTheRemovalFromTheOriginal();
    void constReferenceStaysWhenItsOwnValueChangesAndACopyDies();
    void referencesStayWhileMembersAndElementsAreAdded();
    void referenceIsGoodAfterTheCopyDied();
    void assignmentToAReferenceAfterItsParentWasCopied();
    void valueAsItsOwnMember();
    void valueBecomesItsOwnPart();
    void valueAsItsOwnElement();
    void elementAppendedToItsArray();
    void memberAssignedToItsSibling();
    void selfAssignmentChangesNothing();
    void deleteKeySparesCopies();
    void clearSparesCopies();
    void partsOutliveTheirWhole();
    void deepValuesEndComparedAndDestroyed();
    void behavesAsDeepCopies_data();
    void behavesAsDeepCopies();
};

void cJsonValueSharingTest::copySharesItsElements()
{
    // Nobody holds a reference into the array, so its elements need not be anywhere twice.
    cJsonValue original;
    original.append("one").append("two");
    const cJsonValue* element = nullptr;
    {
        const cJsonValue copy(original); // NOLINT(performance-unnecessary-copy-initialization)
        element = &copy[1];
        QCOMPARE(&copy[1], element);
    }
    QCOMPARE(&constant(original)[1], element);

    cJsonValue assigned;
    assigned = original;
    original.clear();
    QCOMPARE(&constant(assigned)[1], element);
}

void cJsonValueSharingTest::changeOfEitherSideStaysThere()
{
    cJsonValue original = tree();
    cJsonValue copy = original;
    original["a"]["b"]["c"] = 2;
    QCOMPARE(copy["a"]["b"]["c"].toInt(), 1);
    copy["a"]["list"].append(3);
    QCOMPARE(original["a"]["list"].size(), 2u);
    QCOMPARE(copy["a"]["list"].size(), 3u);
    QCOMPARE(original["a"]["b"]["c"].toInt(), 2);
}

void cJsonValueSharingTest::copyOfACopyIsIndependent()
{
    cJsonValue first = tree();
    cJsonValue second = first;
    cJsonValue third = second;
    second["a"]["b"]["c"] = 2;
    third["a"]["b"]["c"] = 3;
    QCOMPARE(first["a"]["b"]["c"].toInt(), 1);
    QCOMPARE(second["a"]["b"]["c"].toInt(), 2);
    QCOMPARE(third["a"]["b"]["c"].toInt(), 3);
}

void cJsonValueSharingTest::referenceIntoTheOriginalDoesNotReachTheCopy()
{
    cJsonValue original = tree();
    cJsonValue& reference = original["a"]["b"]["c"];
    const cJsonValue copy = original;
    reference = 2;
    QCOMPARE(copy["a"]["b"]["c"].toInt(), 1);
    QCOMPARE(original["a"]["b"]["c"].toInt(), 2);
    QCOMPARE(&original["a"]["b"]["c"], &reference);
}

void cJsonValueSharingTest::referenceFromDeepDoesNotReachCopiesOfAnyLevel()
{
    cJsonValue original = tree();
    cJsonValue& a = original["a"];
    cJsonValue& b = a["b"];
    cJsonValue& c = b["c"];
    const cJsonValue copyOfAll = original;
    const cJsonValue copyOfA = a;
    const cJsonValue copyOfB = b;
    const cJsonValue copyOfC = c;
    c = 2;
    b["new"] = 3;
    a["list"][0] = 4;
    QVERIFY(copyOfAll == tree());
    QVERIFY(copyOfA == constant(tree())["a"]);
    QVERIFY(copyOfB == constant(tree())["a"]["b"]);
    QCOMPARE(copyOfC.toInt(), 1);
    QCOMPARE(original["a"]["b"]["c"].toInt(), 2);
    QCOMPARE(original["a"]["b"]["new"].toInt(), 3);
    QCOMPARE(original["a"]["list"][0].toInt(), 4);
}

void cJsonValueSharingTest::referenceIntoACopyDoesNotReachTheOriginal()
{
    cJsonValue original = tree();
    cJsonValue copy = original;
    cJsonValue& reference = copy["a"]["b"]["c"];
    cJsonValue& list = copy["a"]["list"];
    const cJsonValue copyOfTheCopy = copy;
    reference = 2;
    list.append(3);
    QVERIFY(original == tree());
    QVERIFY(copyOfTheCopy == tree());
    QCOMPARE(copy["a"]["b"]["c"].toInt(), 2);
    QCOMPARE(copy["a"]["list"].size(), 3u);
}

void cJsonValueSharingTest::constReferenceSeesItsOwnValueOnly()
{
    cJsonValue original = tree();
    cJsonValue& writer = original["a"]["b"]["c"];
    const cJsonValue copy = original;
    const cJsonValue& reader = copy["a"]["b"]["c"];
    writer = 2;
    QCOMPARE(reader.toInt(), 1);
    original["a"]["b"]["c"] = 3;
    QCOMPARE(reader.toInt(), 1);
    QCOMPARE(writer.toInt(), 3);
}

void cJsonValueSharingTest::constReferenceOutlivesTheOriginal()
{
    auto original = std::make_unique<cJsonValue>(tree());
    const cJsonValue& first = constant(*original)["a"];
    const cJsonValue copy = *original;
    const cJsonValue& reader = copy["a"]["b"];
    QVERIFY(first == copy["a"]);
    (*original)["a"]["b"]["c"] = 2;
    original.reset();
    QCOMPARE(reader["c"].toInt(), 1);
}

void cJsonValueSharingTest::constReferenceOutlivesTheRemovalFromTheOriginal()
{
    cJsonValue original = tree();
    const cJsonValue copy = original;
    const cJsonValue& reader = copy["a"];
    original.deleteKey("a");
    QCOMPARE(reader["b"]["c"].toInt(), 1);
    QCOMPARE(&copy["a"], &reader);
}

void cJsonValueSharingTest::constReferenceStaysWhenItsOwnValueChangesAndACopyDies()
{
    cJsonValue original = tree();
    const cJsonValue& reader = constant(original)["a"]["b"];
    {
        cJsonValue copy = original;
        QCOMPARE(constant(copy)["a"]["b"]["c"].toInt(), 1);
        original["a"]["b"]["c"] = 2;
        copy["a"].clear();
    }
    QCOMPARE(reader["c"].toInt(), 2);
    QCOMPARE(&original["a"]["b"], &reader);
}

void cJsonValueSharingTest::referencesStayWhileMembersAndElementsAreAdded()
{
    cJsonValue value;
    value["a"] = 1;
    value["list"].append(1);
    cJsonValue& member = value["a"];
    cJsonValue& element = value["list"][0];
    for (int i = 0; i < 1000; ++i) {
        value[QString::number(i)] = i;
        value["list"].append(i);
    }
    member = 5;
    element = 6;
    QCOMPARE(value["a"].toInt(), 5);
    QCOMPARE(value["list"][0].toInt(), 6);
    value.deleteKey("7");
    QCOMPARE(&value["a"], &member);
}

void cJsonValueSharingTest::referenceIsGoodAfterTheCopyDied()
{
    cJsonValue original = tree();
    cJsonValue& reference = original["a"]["b"];
    for (int i = 0; i < 3; ++i) {
        cJsonValue copy = original;
        copy["a"]["b"]["c"] = 10 + i;
        reference["c"] = i;
        QCOMPARE(copy["a"]["b"]["c"].toInt(), 10 + i);
    }
    QCOMPARE(original["a"]["b"]["c"].toInt(), 2);
}

void cJsonValueSharingTest::assignmentToAReferenceAfterItsParentWasCopied()
{
    cJsonValue original = tree();
    cJsonValue& b = original["a"]["b"];
    const cJsonValue parent = original["a"];
    b = original;
    QVERIFY(parent == constant(tree())["a"]);
    QVERIFY(constant(original)["a"]["b"] == tree());
    b = parent["list"];
    QCOMPARE(original["a"]["b"].size(), 2u);
    QVERIFY(parent == constant(tree())["a"]);
}

void cJsonValueSharingTest::valueAsItsOwnMember()
{
    cJsonValue value = tree();
    value["self"] = value;
    cJsonValue expected = tree();
    expected["self"];
    QVERIFY(constant(value)["self"] == expected);
    value["self"]["a"]["b"]["c"] = 2;
    QCOMPARE(value["a"]["b"]["c"].toInt(), 1);
    value["a"]["b"]["c"] = value;
    QCOMPARE(value["a"]["b"]["c"]["a"]["b"]["c"].toInt(), 1);
    QCOMPARE(value["a"]["b"]["c"]["self"]["a"]["b"]["c"].toInt(), 2);
}

void cJsonValueSharingTest::valueBecomesItsOwnPart()
{
    cJsonValue value = tree();
    value = value["a"]["list"];
    QVERIFY(value == cJsonValue().append(1).append(2));
    value = constant(value)[1];
    QCOMPARE(value.toInt(), 2);
    value = tree();
    const cJsonValue copy = value;
    value["a"] = value["a"]["b"];
    QCOMPARE(value["a"]["c"].toInt(), 1);
    QVERIFY(copy == tree());
}

void cJsonValueSharingTest::valueAsItsOwnElement()
{
    cJsonValue value;
    value.append(1);
    value.append(value);
    QVERIFY(value == cJsonValue().append(1).append(cJsonValue().append(1)));
    cJsonValue& first = value[0];
    value.append(value);
    first = 2;
    QCOMPARE(value[2][0].toInt(), 1);
    QCOMPARE(value[0].toInt(), 2);
    cJsonValue null;
    null.append(null);
    QVERIFY(null == cJsonValue().append(cJsonValue()));
}

void cJsonValueSharingTest::elementAppendedToItsArray()
{
    cJsonValue value;
    value.append(tree());
    for (int i = 0; i < 100; ++i)
        value.append(value[0]);
    value[0]["a"] = 1;
    QVERIFY(constant(value)[100] == tree());
    value[1].append(value);
    value[50]["a"].append(value[0]);
    QVERIFY(constant(value)[99] == tree());
}

void cJsonValueSharingTest::memberAssignedToItsSibling()
{
    cJsonValue value = tree();
    value["x"] = value["a"];
    value["a"] = value["x"]["b"];
    value["x"]["b"]["c"] = 9;
    QCOMPARE(value["a"]["c"].toInt(), 1);
}

void cJsonValueSharingTest::selfAssignmentChangesNothing()
{
    cJsonValue value = tree();
    cJsonValue& reference = value["a"];
    const cJsonValue copy = value;
    cJsonValue& alias = value;
    value = alias;
    cJsonValue& sameMember = value["a"];
    reference = sameMember;
    QVERIFY(value == tree());
    reference["b"]["c"] = 2;
    QCOMPARE(value["a"]["b"]["c"].toInt(), 2);
    QVERIFY(copy == tree());
}

void cJsonValueSharingTest::deleteKeySparesCopies()
{
    cJsonValue original = tree();
    cJsonValue copy = original;
    cJsonValue& reference = copy["a"];
    original.deleteKey("a");
    QVERIFY(original.isObject());
    QVERIFY(!original.contains("a"));
    QVERIFY(copy == tree());
    original = copy;
    reference.deleteKey("b");
    QVERIFY(!copy["a"].contains("b"));
    QVERIFY(original == tree());
}

void cJsonValueSharingTest::clearSparesCopies()
{
    cJsonValue original = tree();
    cJsonValue& a = original["a"];
    const cJsonValue copy = original;
    a.clear();
    QVERIFY(copy == tree());
    original.clear();
    QVERIFY(copy == tree());
}

void cJsonValueSharingTest::partsOutliveTheirWhole()
{
    auto whole = std::make_unique<cJsonValue>(tree());
    const cJsonValue part = constant(*whole)["a"];
    cJsonValue& inner = (*whole)["a"]["b"];
    cJsonValue other;
    other["x"] = inner;
    whole.reset();
    QVERIFY(part == constant(tree())["a"]);
    QCOMPARE(other["x"]["c"].toInt(), 1);
}

void cJsonValueSharingTest::deepValuesEndComparedAndDestroyed()
{
    cJsonValue value = deepValue(1);
    const cJsonValue copy = value;
    QVERIFY(value == deepValue(1));
    QVERIFY(value != deepValue(2));
    value[0] = 1;
    QVERIFY(value != copy);
    value.clear();
    QVERIFY(copy == deepValue(1));
}

void cJsonValueSharingTest::behavesAsDeepCopies_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void cJsonValueSharingTest::behavesAsDeepCopies()
{
    QFETCH(unsigned, seed);
    constexpr int operations = 2000;
    RandomValues values(seed);
    for (int i = 0; i < operations; ++i) {
        const QString operation = values.doSomething();
        const QString difference = values.difference();
        QVERIFY2(difference.isEmpty(),
            qPrintable(QStringLiteral("operation %1, %2: %3").arg(i).arg(operation, difference)));
    }
    QVERIFY(values.longestReferenceLife() > 20);
}

VELTRANO_TEST_MAIN(cJsonValueSharingTest)
#include "cJsonValueSharingTest.moc"
