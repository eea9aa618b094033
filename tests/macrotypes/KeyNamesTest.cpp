#include <KeyNames.h>
#include <TestCase.h>

#include <QMetaEnum>

#include <random>

namespace {

const QMetaEnum Keys = QMetaEnum::fromType<Qt::Key>();

} // namespace

class KeyNamesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyKeyComesBackFromItsName();
    void namesAreTold_data();
    void namesAreTold();
    void textThatNamesNoKeyGivesNone_data();
    void textThatNamesNoKeyGivesNone();
    void everyCombinationComesBackFromItsName();
    void modifiersMayStandInAnyOrder();
    void anyTextIsSafe();
};

void KeyNamesTest::everyKeyComesBackFromItsName()
{
    for (int i = 0; i < Keys.keyCount(); ++i) {
        const int code = Keys.value(i);
        for (const int variant : {code, code | int(Qt::KeypadModifier)}) {
            const QString name = KeyNames::toText(variant);
            QVERIFY2(!name.isEmpty(), Keys.key(i));
            QVERIFY2(KeyNames::fromText(name) == variant, qPrintable(Keys.key(i) + (": " + name)));
        }
    }
    for (const int code : {0x20ac, 0x10400, 0x1001234, 0x42f}) {
        QCOMPARE(KeyNames::fromText(KeyNames::toText(code)), code);
    }
}

void KeyNamesTest::namesAreTold_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("A") << int(Qt::Key_A);
    QTest::newRow("Num+1") << int(Qt::Key_1) + int(Qt::KeypadModifier);
    QTest::newRow("Num++") << int(Qt::Key_Plus) + int(Qt::KeypadModifier);
    QTest::newRow("Shift") << int(Qt::Key_Shift);
    QTest::newRow("Ctrl") << int(Qt::Key_Control);
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Esc") << int(Qt::Key_Escape);
    QTest::newRow("Space") << int(Qt::Key_Space);
    QTest::newRow("+") << int(Qt::Key_Plus);
    QTest::newRow(",") << int(Qt::Key_Comma);
    QTest::newRow("F24") << int(Qt::Key_F24);
    QTest::newRow("Dead_Acute") << int(Qt::Key_Dead_Acute);
}

void KeyNamesTest::namesAreTold()
{
    QFETCH(int, code);
    QCOMPARE(KeyNames::toText(code), QString(QTest::currentDataTag()));
    QCOMPARE(KeyNames::fromText(QTest::currentDataTag()), code);
}

void KeyNamesTest::textThatNamesNoKeyGivesNone_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "Num+", "NoSuchKey", "A, B", "Ctrl+A", "##", "#0", "#zz", "#-5",
             "#fffffffff", "unknown key", "a", "CTRL", "Key_A"})
        QTest::newRow(text) << QString(text);
    QTest::newRow("lone surrogate") << QString(QChar(0xd800));
    QTest::newRow("null character") << QString(QChar(0));
}

void KeyNamesTest::textThatNamesNoKeyGivesNone()
{
    QFETCH(QString, text);
    QCOMPARE(KeyNames::fromText(text), 0);
}

void KeyNamesTest::everyCombinationComesBackFromItsName()
{
    for (int i = 0; i < Keys.keyCount(); ++i) {
        for (int bits = 0; bits < 16; ++bits) {
            KeyCombination keys;
            keys.key.code = Keys.value(i);
            keys.modifiers.setFlag(Qt::ControlModifier, bits & 1);
            keys.modifiers.setFlag(Qt::AltModifier, bits & 2);
            keys.modifiers.setFlag(Qt::ShiftModifier, bits & 4);
            keys.modifiers.setFlag(Qt::MetaModifier, bits & 8);
            QVERIFY2(KeyNames::combinationFromText(KeyNames::toText(keys)) == keys,
                qPrintable(KeyNames::toText(keys)));
        }
    }
}

void KeyNamesTest::modifiersMayStandInAnyOrder()
{
    const KeyCombination keys = KeyNames::combinationFromText("Shift+Meta+Ctrl++");
    QCOMPARE(KeyNames::toText(keys), QString("Ctrl+Shift+Meta++"));
    QVERIFY(KeyNames::combinationFromText("Ctrl+").isNull());
    QVERIFY(KeyNames::combinationFromText("Hyper+A").isNull());
    QCOMPARE(KeyNames::combinationFromText("Ctrl+Shift").key.code, int(Qt::Key_Shift));
}

void KeyNamesTest::anyTextIsSafe()
{
    std::mt19937 random(7);
    const QString letters = "ACFNSctrlhifumdet+,#0123 _" + QString(QChar(0xd83d)) + QChar(0xdc4d) + QChar(1);
    for (int i = 0; i < 20000; ++i) {
        QString text;
        for (int n = int(random() % 8); n > 0; --n)
            text += letters[int(random() % unsigned(letters.size()))];
        const int code = KeyNames::fromText(text);
        if (code)
            QCOMPARE(KeyNames::toText(code), text);
        const KeyCombination keys = KeyNames::combinationFromText(text);
        QVERIFY(KeyNames::combinationFromText(KeyNames::toText(keys)) == keys);
    }
}

VELTRANO_TEST_MAIN(KeyNamesTest)
#include "KeyNamesTest.moc"
