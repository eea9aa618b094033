#include <DragFormats.h>
#include <TestCase.h>

#include <QMimeData>

using namespace DragFormats;

namespace {

/// The bytes of a literal, zero bytes among them.
template<std::size_t N>
QByteArray bytes(const char (&literal)[N])
{
    return QByteArray(literal, int(N - 1));
}

QStringList macrosIn(const QByteArray& payload)
{
    QMimeData data;
    data.setData(Macros, payload);
    return macroIds(data);
}

/// The two strings, with a bar between them.
QString assignmentIn(const QByteArray& payload)
{
    QMimeData data;
    data.setData(Assignment, payload);
    const AssignmentIds ids = assignment(data);
    return ids.macroID + '|' + ids.contextID;
}

const QByteArray AssignmentOfG1 = bytes("\0\0\0\x06\0{\0a\0}\0\0\0\x04\0G\0"
                                        "1");

} // namespace

class DragFormatsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void formatsHaveTheirNames();
    void idsTravelAsJoinedText_data();
    void idsTravelAsJoinedText();
    void assignmentTravelsAsTwoStrings();
    void assignmentKeepsEmptyAndForeignText();
    void dataHasOneFormatOnly();
    void textIsSplitAtEachComma_data();
    void textIsSplitAtEachComma();
    void missingFormatReadsAsEmpty();
    void oneFormatIsNotReadAsAnother();
    void brokenAssignmentReadsAsEmptyStrings_data();
    void brokenAssignmentReadsAsEmptyStrings();
    void bytesAfterAnAssignmentAreIgnored();
    void tenThousandIdsSurvive();
};

void DragFormatsTest::formatsHaveTheirNames()
{
    QCOMPARE(Profiles, QLatin1String("application/x-velt-gaming-profiles"));
    QCOMPARE(Macros, QLatin1String("application/x-velt-gaming-macros"));
    QCOMPARE(Assignment, QLatin1String("application/x-velt-gaming-assignment"));
}

void DragFormatsTest::idsTravelAsJoinedText_data()
{
    QTest::addColumn<QStringList>("ids");
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("one") << QStringList({"{A-1}"}) << bytes("{A-1}");
    QTest::newRow("three") << QStringList({"{A-1}", "{B-2}", "c"}) << bytes("{A-1},{B-2},c");
    QTest::newRow("empty one") << QStringList({""}) << bytes("");
    QTest::newRow("empty among others") << QStringList({"a", "", "b"}) << bytes("a,,b");
    QTest::newRow("beyond latin") << QStringList({QStringLiteral("\u00e4\u20ac"), "b"})
                                  << bytes("\xc3\xa4\xe2\x82\xac,b");
}

void DragFormatsTest::idsTravelAsJoinedText()
{
    QFETCH(QStringList, ids);
    QFETCH(QByteArray, payload);
    const auto profiles = makeProfiles(ids);
    QCOMPARE(profiles->data("application/x-velt-gaming-profiles"), payload);
    QCOMPARE(profileIds(*profiles), ids);
    const auto macros = makeMacros(ids);
    QCOMPARE(macros->data("application/x-velt-gaming-macros"), payload);
    QCOMPARE(macroIds(*macros), ids);
}

void DragFormatsTest::assignmentTravelsAsTwoStrings()
{
    const auto data = makeAssignment({"{a}", "G1"});
    // Each string is its length in bytes, most significant byte first, and its UTF-16 in the same order.
    QCOMPARE(data->data("application/x-velt-gaming-assignment"), AssignmentOfG1);
    QCOMPARE(assignment(*data).macroID, QString("{a}"));
    QCOMPARE(assignment(*data).contextID, QString("G1"));
}

void DragFormatsTest::assignmentKeepsEmptyAndForeignText()
{
    const QString foreign = QStringLiteral("\u20ac,\u05d0");
    const auto data = makeAssignment({"", foreign});
    QCOMPARE(data->data(Assignment), bytes("\0\0\0\0\0\0\0\x06\x20\xac\0,\x05\xd0"));
    QCOMPARE(assignment(*data).macroID, QString());
    QCOMPARE(assignment(*data).contextID, foreign);
    // A null string has a length of its own.
    QCOMPARE(makeAssignment({QString(), "G"})->data(Assignment), bytes("\xff\xff\xff\xff\0\0\0\x02\0G"));
}

void DragFormatsTest::dataHasOneFormatOnly()
{
    QCOMPARE(makeProfiles({"a", "b"})->formats(), QStringList({Profiles}));
    QCOMPARE(makeMacros({"a", "b"})->formats(), QStringList({Macros}));
    QCOMPARE(makeAssignment({"a", "b"})->formats(), QStringList({Assignment}));
}

void DragFormatsTest::textIsSplitAtEachComma_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QStringList>("ids");
    QTest::newRow("empty") << bytes("") << QStringList({""});
    QTest::newRow("comma alone") << bytes(",") << QStringList({"", ""});
    QTest::newRow("commas around") << bytes(",a,") << QStringList({"", "a", ""});
    QTest::newRow("blanks stay") << bytes(" a , b") << QStringList({" a ", " b"});
    QTest::newRow("zero byte ends it") << bytes("a,b\0c,d") << QStringList({"a", "b"});
    QTest::newRow("zero byte first") << bytes("\0a,b") << QStringList({""});
    QTest::newRow("no UTF-8") << bytes("a\xff,\xc3")
                              << QStringList({QStringLiteral("a\ufffd"), QStringLiteral("\ufffd")});
    QTest::newRow("comma inside a broken character")
        << bytes("\xe2,b") << QStringList({QStringLiteral("\ufffd"), "b"});
}

void DragFormatsTest::textIsSplitAtEachComma()
{
    QFETCH(QByteArray, payload);
    QFETCH(QStringList, ids);
    QCOMPARE(macrosIn(payload), ids);
}

void DragFormatsTest::missingFormatReadsAsEmpty()
{
    const QMimeData data;
    QCOMPARE(profileIds(data), QStringList({""}));
    QCOMPARE(macroIds(data), QStringList({""}));
    QCOMPARE(assignment(data).macroID, QString());
    QCOMPARE(assignment(data).contextID, QString());
}

void DragFormatsTest::oneFormatIsNotReadAsAnother()
{
    QCOMPARE(profileIds(*makeMacros({"a"})), QStringList({""}));
    QCOMPARE(macroIds(*makeProfiles({"a"})), QStringList({""}));
    QCOMPARE(assignment(*makeMacros({"a"})).contextID, QString());
}

void DragFormatsTest::brokenAssignmentReadsAsEmptyStrings_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("read");
    QTest::newRow("nothing") << bytes("") << "|";
    QTest::newRow("half a length") << bytes("\0\0") << "|";
    QTest::newRow("first string cut off") << AssignmentOfG1.left(7) << "|";
    QTest::newRow("second length cut off") << AssignmentOfG1.left(12) << "{a}|";
    QTest::newRow("second string cut off") << AssignmentOfG1.left(16) << "{a}|";
    QTest::newRow("second missing") << AssignmentOfG1.left(10) << "{a}|";
    QTest::newRow("largest length") << bytes("\xff\xff\xff\xfe\0a\0b") << "|";
    QTest::newRow("negative length") << bytes("\x80\0\0\0\0a\0b") << "|";
    QTest::newRow("length of one gigabyte") << bytes("\x40\0\0\0\0a\0b") << "|";
    QTest::newRow("huge second length") << bytes("\0\0\0\x02\0a\x7f\xff\xff\xfe\0b") << "a|";
    // What follows an odd length would read as a string of its own, "G".
    QTest::newRow("odd length") << bytes("\0\0\0\x03\0\0\0\x02\0G") << "|";
    QTest::newRow("both null") << bytes("\xff\xff\xff\xff\xff\xff\xff\xff") << "|";
}

void DragFormatsTest::brokenAssignmentReadsAsEmptyStrings()
{
    QFETCH(QByteArray, payload);
    QFETCH(QString, read);
    QCOMPARE(assignmentIn(payload), read);
}

void DragFormatsTest::bytesAfterAnAssignmentAreIgnored()
{
    QCOMPARE(assignmentIn(AssignmentOfG1 + "more"), QString("{a}|G1"));
}

void DragFormatsTest::tenThousandIdsSurvive()
{
    QStringList ids;
    for (int i = 0; i < 10000; ++i)
        ids += QStringLiteral("{%1}").arg(i);
    QCOMPARE(profileIds(*makeProfiles(ids)), ids);
}

VELTRANO_TEST_MAIN(DragFormatsTest)
#include "DragFormatsTest.moc"
