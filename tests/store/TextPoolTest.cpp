#include <TestCase.h>
#include <TextPool.h>

class TextPoolTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sameTextsShareTheirMemory();
    void textsStayApartHoweverManyThereAre();
    void emptyTextIsEmpty();
};

void TextPoolTest::sameTextsShareTheirMemory()
{
    TextPool pool;
    const QString source = QStringLiteral("press release press");
    const QString first = pool.text(source.leftRef(5));
    const QString other = pool.text(source.midRef(6, 7));
    const QString again = pool.text(source.rightRef(5));
    QCOMPARE(first, QString("press"));
    QCOMPARE(other, QString("release"));
    QCOMPARE(again.constData(), first.constData());
}

void TextPoolTest::textsStayApartHoweverManyThereAre()
{
    TextPool pool;
    for (int i = 0; i < 20000; ++i) {
        const QString number = QString::number(i % 7000);
        QCOMPARE(pool.text(QStringRef(&number)), number);
    }
}

void TextPoolTest::emptyTextIsEmpty()
{
    TextPool pool;
    QCOMPARE(pool.text(QStringRef()), QString());
}

VELTRANO_TEST_MAIN(TextPoolTest)
#include "TextPoolTest.moc"
